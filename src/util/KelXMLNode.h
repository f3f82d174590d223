// KelXMLNode: one node of a KelXMLDocument (element, comment or text). A node is a light handle:
// it stays valid while its document lives.
#pragma once

#include "port/Export.h"

#include <pugixml.hpp>

#include "mfc/CString.h"

class KelXMLNodeList;

class ORV_API KelXMLNode {
public:
    KelXMLNode() = default;
    explicit KelXMLNode(pugi::xml_node node) : m_node(node) {}

    // The child nodes in document order, leaving out text that is only layout white space. A new
    // list owned by the caller, or null when there are no children.
    KelXMLNodeList* GetChildNodes() const;
    // An element's name; "#comment", "#text" or "#cdata-section" for the other kinds.
    CString GetNodeName() const;
    // An element's text content; the text of a comment or a text node.
    CString GetNodeValue() const;
    // GetNodeValue read as a number, 0 when it is none.
    double GetNodeValueInDouble() const;

    bool IsElement() const { return m_node.type() == pugi::node_element; }

    // False when the attribute is missing (value is then left alone).
    bool GetAttributeValue(CString name, CString& value) const;
    // Changes an existing attribute; false when it is missing.
    bool SetAttributeValue(CString name, CString value);
    // Appends a new attribute after the others, or changes it if it is there already.
    bool AddAttribute(CString name, CString value);

private:
    pugi::xml_node m_node;
};
