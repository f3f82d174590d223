#include "threads/OrvAutoCriticalSection.h"

OrvAutoCriticalSection::OrvAutoCriticalSection(OrvCriticalSection& lock)
    : m_pCriticalSection(&lock) {
    m_pCriticalSection->Lock();
}

OrvAutoCriticalSection::~OrvAutoCriticalSection() {
    m_pCriticalSection->Unlock();
}
