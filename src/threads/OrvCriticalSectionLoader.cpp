#include "threads/OrvCriticalSectionLoader.h"

OrvCriticalSectionLoader::OrvCriticalSectionLoader(OrvCriticalSection& lock, int lockNow)
    : m_pCriticalSection(&lock), m_bLocked(0), m_hThread(nullptr) {
    if (lockNow == 1)
        Lock();
}

OrvCriticalSectionLoader::~OrvCriticalSectionLoader() {
    if (m_bLocked) {
        m_pCriticalSection->Unlock();
        m_bLocked = 0;
        m_hThread = nullptr;
    }
}

void OrvCriticalSectionLoader::Lock() {
    if (m_bLocked)
        return;
    m_pCriticalSection->Lock();
    m_bLocked = 1;
    m_hThread = GetCurrentThread();
}

int OrvCriticalSectionLoader::EnterIfUnlocked() {
    if (m_bLocked)
        return m_bLocked; // one level at most: entering again would outlast the destructor
    m_bLocked = m_pCriticalSection->LockIfUnlocked();
    if (m_bLocked)
        m_hThread = GetCurrentThread();
    return m_bLocked;
}
