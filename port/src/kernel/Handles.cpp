// The process's handle table: handle values are never reused, so a stale handle is refused
// rather than taken for a newer object.
#include <cstdint>
#include <unordered_map>

#include "KernelObject.h"
#include "ThreadObject.h"

namespace port {
namespace {

struct HandleTable {
    std::mutex lock;
    std::uintptr_t next = 4;
    std::unordered_map<std::uintptr_t, std::shared_ptr<KernelObject>> objects;
};

// The shared state below is never destroyed: detached threads may still use it while the process
// runs its exit handlers.
HandleTable& Table() {
    static auto* const table = new HandleTable;
    return *table;
}

} // namespace

std::mutex& WaitLock() {
    static auto* const lock = new std::mutex;
    return *lock;
}

std::condition_variable& WaitCondition() {
    static auto* const condition = new std::condition_variable;
    return *condition;
}

HANDLE NewHandle(std::shared_ptr<KernelObject> object) {
    HandleTable& table = Table();
    const std::lock_guard guard(table.lock);
    const std::uintptr_t value = table.next;
    table.next += 4; // Windows' handle values are multiples of 4
    table.objects.emplace(value, std::move(object));
    return reinterpret_cast<HANDLE>(value);
}

std::shared_ptr<KernelObject> ResolveHandle(HANDLE handle) {
    if (handle == GetCurrentThread())
        return ThreadObject::Current();
    HandleTable& table = Table();
    {
        const std::lock_guard guard(table.lock);
        const auto found = table.objects.find(reinterpret_cast<std::uintptr_t>(handle));
        if (found != table.objects.end())
            return found->second;
    }
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

} // namespace port

BOOL CloseHandle(HANDLE hObject) {
    if (hObject == GetCurrentThread())
        return TRUE;
    port::HandleTable& table = port::Table();
    std::shared_ptr<port::KernelObject> released; // freed after the table's lock is let go
    {
        const std::lock_guard guard(table.lock);
        const auto found = table.objects.find(reinterpret_cast<std::uintptr_t>(hObject));
        if (found == table.objects.end()) {
            SetLastError(ERROR_INVALID_HANDLE);
            return FALSE;
        }
        released = std::move(found->second);
        table.objects.erase(found);
    }
    return TRUE;
}
