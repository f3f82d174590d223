// OrvCriticalSectionLoader: a scope guard that may take an OrvCriticalSection now, later, or only
// when it is free. It holds at most one level of the lock, so its destructor's single release
// always undoes what it took. A guard is used by one thread.
#pragma once

#include "port/Export.h"

#include "threads/OrvCriticalSection.h"

class ORV_API OrvCriticalSectionLoader {
public:
    // Takes the lock only when lockNow is exactly 1.
    OrvCriticalSectionLoader(OrvCriticalSection& lock, int lockNow);
    ~OrvCriticalSectionLoader();
    OrvCriticalSectionLoader(const OrvCriticalSectionLoader&) = delete;
    OrvCriticalSectionLoader& operator=(const OrvCriticalSectionLoader&) = delete;

    // Takes the lock unless this guard holds it already.
    void Lock();
    // Takes the lock if no other thread holds it; non-zero when this guard now holds it.
    int EnterIfUnlocked();

private:
    OrvCriticalSection* m_pCriticalSection;
    int m_bLocked;    // true while this guard holds the lock
    HANDLE m_hThread; // pseudo handle of the thread that took it; null when not held
};
