#include "ArchiveTestClasses.h"

IMPLEMENT_SERIAL(CNode, CObject, 1)
IMPLEMENT_SERIAL(CLeaf, CNode, 1)
IMPLEMENT_SERIAL(COther, CObject, 1)
IMPLEMENT_SERIAL(CVersioned, CObject, VERSIONABLE_SCHEMA | 3)
IMPLEMENT_DYNAMIC(CDynamicOnly, CObject)

std::set<CNode*>& CNode::Live() {
    static std::set<CNode*> live;
    return live;
}

void CNode::DeleteAll() {
    while (!Live().empty())
        delete *Live().begin();
}

void CNode::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << m_n << m_str << m_pNext;
    } else {
        ar >> m_n >> m_str >> m_pNext;
    }
}

void CVersioned::Serialize(CArchive& ar) {
    if (ar.IsLoading()) {
        m_firstSchema = ar.GetObjectSchema();
        m_secondSchema = ar.GetObjectSchema();
    }
}
