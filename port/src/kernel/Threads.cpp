// The Win32 thread functions over ThreadObject.
#include "ThreadObject.h"

#include <sys/types.h>
#include <unistd.h>

namespace {

// The thread object of a handle; null with ERROR_INVALID_HANDLE when it names no thread.
std::shared_ptr<port::ThreadObject> ResolveThread(HANDLE handle) {
    auto thread = std::dynamic_pointer_cast<port::ThreadObject>(port::ResolveHandle(handle));
    if (!thread)
        SetLastError(ERROR_INVALID_HANDLE);
    return thread;
}

} // namespace

HANDLE CreateThread(struct _SECURITY_ATTRIBUTES*, SIZE_T dwStackSize,
                    LPTHREAD_START_ROUTINE lpStartAddress, LPVOID lpParameter,
                    DWORD dwCreationFlags, LPDWORD lpThreadId) {
    constexpr DWORD kKnownFlags = CREATE_SUSPENDED | STACK_SIZE_PARAM_IS_A_RESERVATION;
    if (!lpStartAddress || (dwCreationFlags & ~kKnownFlags) != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto thread = port::ThreadObject::Start(lpStartAddress, lpParameter, dwStackSize,
                                            (dwCreationFlags & CREATE_SUSPENDED) != 0);
    if (!thread)
        return nullptr;
    if (lpThreadId)
        *lpThreadId = thread->Id();
    return port::NewHandle(std::move(thread));
}

HANDLE GetCurrentThread() {
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-2));
}

DWORD GetCurrentThreadId() {
    return static_cast<DWORD>(gettid());
}

DWORD GetThreadId(HANDLE Thread) {
    const auto thread = ResolveThread(Thread);
    return thread ? thread->Id() : 0;
}

BOOL GetExitCodeThread(HANDLE hThread, LPDWORD lpExitCode) {
    const auto thread = ResolveThread(hThread);
    if (!thread)
        return FALSE;
    if (!lpExitCode) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *lpExitCode = thread->ExitCode();
    return TRUE;
}

DWORD SuspendThread(HANDLE hThread) {
    const auto thread = ResolveThread(hThread);
    return thread ? thread->Suspend() : static_cast<DWORD>(-1);
}

DWORD ResumeThread(HANDLE hThread) {
    const auto thread = ResolveThread(hThread);
    return thread ? thread->Resume() : static_cast<DWORD>(-1);
}
