// KelXMLNodeList: the child nodes of a KelXMLNode, in document order.
#pragma once

#include "port/Export.h"

#include <vector>

#include "util/KelXMLNode.h"

class ORV_API KelXMLNodeList {
public:
    explicit KelXMLNodeList(std::vector<KelXMLNode> nodes) : m_nodes(std::move(nodes)) {}

    long GetSize() const { return static_cast<long>(m_nodes.size()); }
    // The node at `index`, or null outside the list. The list owns it.
    KelXMLNode* operator[](long index);

private:
    std::vector<KelXMLNode> m_nodes;
};
