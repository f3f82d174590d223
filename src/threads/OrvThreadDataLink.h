// OrvThreadDataLink: the base of a command's parameter. Its two identifiers name the command's
// target and its group number lets commands on one target run side by side; the manager reads a
// command's parameter as one of these to tell duplicates and groups apart.
#pragma once

#include "port/Export.h"

#include "win/types.h"

class ORV_API OrvThreadDataLink {
public:
    OrvThreadDataLink();
    OrvThreadDataLink(const OrvThreadDataLink& other);
    OrvThreadDataLink& operator=(const OrvThreadDataLink& other);
    virtual ~OrvThreadDataLink();

    void* GetIdentifierA() const { return m_pIdentifierA; }
    void SetIdentifierA(void* identifier) { m_pIdentifierA = identifier; }
    void* GetIdentifierB() const { return m_pIdentifierB; }
    void SetIdentifierB(void* identifier) { m_pIdentifierB = identifier; }
    // 0 means no group.
    DWORD GetGroupNum() const { return m_GroupNum; }
    void SetGroupNum(DWORD group) { m_GroupNum = group; }

private:
    void* m_pIdentifierA;
    void* m_pIdentifierB;
    DWORD m_GroupNum;
};
