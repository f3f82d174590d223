// Waits on kernel objects, and Sleep.
#include <chrono>
#include <thread>
#include <vector>

#include "KernelObject.h"

DWORD WaitForMultipleObjects(DWORD nCount, const HANDLE* lpHandles, BOOL bWaitAll,
                             DWORD dwMilliseconds) {
    if (nCount == 0 || nCount > MAXIMUM_WAIT_OBJECTS || !lpHandles) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return WAIT_FAILED;
    }
    // The objects stay alive for the whole wait, even if a handle is closed meanwhile.
    std::vector<std::shared_ptr<port::KernelObject>> objects;
    for (DWORD i = 0; i < nCount; ++i) {
        auto object = port::ResolveHandle(lpHandles[i]);
        if (!object)
            return WAIT_FAILED;
        if (bWaitAll) {
            for (const auto& earlier : objects) {
                if (earlier == object) { // one object twice cannot be waited for all at once
                    SetLastError(ERROR_INVALID_PARAMETER);
                    return WAIT_FAILED;
                }
            }
        }
        objects.push_back(std::move(object));
    }

    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(dwMilliseconds);
    std::unique_lock lock(port::WaitLock());
    for (;;) {
        if (bWaitAll) {
            bool all = true;
            for (const auto& object : objects)
                all = all && object->IsSignalled();
            if (all)
                return WAIT_OBJECT_0;
        } else {
            for (DWORD i = 0; i < nCount; ++i) {
                if (objects[i]->IsSignalled())
                    return WAIT_OBJECT_0 + i;
            }
        }
        if (dwMilliseconds == INFINITE)
            port::WaitCondition().wait(lock);
        else if (std::chrono::steady_clock::now() >= deadline)
            return WAIT_TIMEOUT;
        else
            port::WaitCondition().wait_until(lock, deadline);
    }
}

DWORD WaitForSingleObject(HANDLE hHandle, DWORD dwMilliseconds) {
    return WaitForMultipleObjects(1, &hHandle, FALSE, dwMilliseconds);
}

void Sleep(DWORD dwMilliseconds) {
    if (dwMilliseconds == INFINITE) {
        for (;;)
            std::this_thread::sleep_for(std::chrono::hours(24));
    }
    if (dwMilliseconds == 0)
        std::this_thread::yield();
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(dwMilliseconds));
}
