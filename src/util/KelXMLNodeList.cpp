#include "util/KelXMLNodeList.h"

KelXMLNode* KelXMLNodeList::operator[](long index) {
    if (index < 0 || index >= GetSize())
        return nullptr;
    return &m_nodes[static_cast<std::size_t>(index)];
}
