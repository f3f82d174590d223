#include "TestNode.h"

IMPLEMENT_SERIAL(CNode, CObject, 1)

void CNode::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << m_value << m_name;
        ar << m_next;
    } else {
        ar >> m_value >> m_name;
        ar >> m_next;
    }
}
