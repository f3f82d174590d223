// The kernel objects behind HANDLE values, and the one lock and condition on which every change of
// a signalled state is published to the waiting functions.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

#include "win/threads.h"

namespace port {

class KernelObject {
public:
    virtual ~KernelObject() = default;
    // Read with WaitLock() held.
    virtual bool IsSignalled() const = 0;
};

std::mutex& WaitLock();
// Notified, with WaitLock() released, after an object became signalled.
std::condition_variable& WaitCondition();

// A new handle that holds one reference to the object.
HANDLE NewHandle(std::shared_ptr<KernelObject> object);
// The object of a handle, the current thread for its pseudo handle; null (and ERROR_INVALID_HANDLE)
// for anything else.
std::shared_ptr<KernelObject> ResolveHandle(HANDLE handle);

} // namespace port
