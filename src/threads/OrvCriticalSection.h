// OrvCriticalSection: the library's reentrant lock, a Win32 critical section.
#pragma once

#include "port/Export.h"

#include "win/threads.h"

class ORV_API OrvCriticalSection {
public:
    OrvCriticalSection();
    ~OrvCriticalSection();

    void Lock();
    void Unlock();
    // Non-zero when the lock was taken (or is held already by this thread, one level more).
    int LockIfUnlocked();

private:
    OrvCriticalSection(const OrvCriticalSection&) = delete;
    OrvCriticalSection& operator=(const OrvCriticalSection&) = delete;

    CRITICAL_SECTION m_CriticalSection;
};
