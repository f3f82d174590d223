// OrvAutoCriticalSection: holds an OrvCriticalSection for the guard's scope.
#pragma once

#include "threads/OrvCriticalSection.h"

class OrvAutoCriticalSection {
public:
    explicit OrvAutoCriticalSection(OrvCriticalSection& lock);
    ~OrvAutoCriticalSection();
    OrvAutoCriticalSection(const OrvAutoCriticalSection&) = delete;
    OrvAutoCriticalSection& operator=(const OrvAutoCriticalSection&) = delete;

private:
    OrvCriticalSection* m_pCriticalSection;
};
