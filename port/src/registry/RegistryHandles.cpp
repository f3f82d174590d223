#include "RegistryHandles.h"

#include "RegistryRoots.h"

#include "win/registry.h"

#include <mutex>
#include <unordered_map>

namespace port::registry {
namespace {

// Handles are small even numbers well away from the predefined roots and from real addresses.
constexpr std::uintptr_t kFirstHandle = 0x1000;
constexpr std::uintptr_t kHandleStep = 4;

struct HandleTable {
    std::mutex mutex;
    std::unordered_map<std::uintptr_t, OpenKey> keys;
    std::uintptr_t next = kFirstHandle;
};

HandleTable& Table() {
    static HandleTable table;
    return table;
}

} // namespace

HKEY AddHandle(OpenKey key) {
    auto& table = Table();
    std::lock_guard lock(table.mutex);
    const std::uintptr_t value = table.next;
    table.next += kHandleStep;
    table.keys.emplace(value, std::move(key));
    return reinterpret_cast<HKEY>(value);
}

std::optional<OpenKey> ResolveHandle(HKEY handle) {
    if (auto store = RootStore(handle))
        return OpenKey{std::move(store), RegistryStore::kRoot, KEY_ALL_ACCESS};
    auto& table = Table();
    std::lock_guard lock(table.mutex);
    const auto found = table.keys.find(reinterpret_cast<std::uintptr_t>(handle));
    if (found == table.keys.end())
        return std::nullopt;
    return found->second;
}

bool RemoveHandle(HKEY handle) {
    auto& table = Table();
    std::lock_guard lock(table.mutex);
    return table.keys.erase(reinterpret_cast<std::uintptr_t>(handle)) > 0;
}

} // namespace port::registry
