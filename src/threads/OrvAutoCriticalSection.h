// OrvAutoCriticalSection: holds an OrvCriticalSection for the guard's scope.
#pragma once

#include "port/Export.h"

#include "threads/OrvCriticalSection.h"

class ORV_API OrvAutoCriticalSection {
public:
    explicit OrvAutoCriticalSection(OrvCriticalSection& lock);
    ~OrvAutoCriticalSection();
    OrvAutoCriticalSection(const OrvAutoCriticalSection&) = delete;
    OrvAutoCriticalSection& operator=(const OrvAutoCriticalSection&) = delete;

private:
    OrvCriticalSection* m_pCriticalSection;
};
