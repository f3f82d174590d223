#include "threads/OrvCriticalSection.h"

OrvCriticalSection::OrvCriticalSection() {
    InitializeCriticalSection(&m_CriticalSection);
}

OrvCriticalSection::~OrvCriticalSection() {
    DeleteCriticalSection(&m_CriticalSection);
}

void OrvCriticalSection::Lock() {
    EnterCriticalSection(&m_CriticalSection);
}

void OrvCriticalSection::Unlock() {
    LeaveCriticalSection(&m_CriticalSection);
}

int OrvCriticalSection::LockIfUnlocked() {
    return TryEnterCriticalSection(&m_CriticalSection);
}
