#include "util/KelXMLNode.h"

#include <tchar.h>

#include <string>
#include <vector>

#include "port/TextConversion.h"
#include "util/KelXMLNodeList.h"

namespace {

CString Wide(const char* utf8) {
    return CString(port::NarrowToWide(utf8).c_str());
}
std::string Narrow(const CString& text) {
    return port::WideToNarrow(text.GetString());
}

bool IsLayoutOnly(const pugi::xml_node& node) {
    if (node.type() != pugi::node_pcdata)
        return false;
    const std::string_view text = node.value();
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

} // namespace

KelXMLNodeList* KelXMLNode::GetChildNodes() const {
    std::vector<KelXMLNode> children;
    for (pugi::xml_node child : m_node.children())
        if (!IsLayoutOnly(child))
            children.emplace_back(child);
    if (children.empty())
        return nullptr;
    return new KelXMLNodeList(std::move(children));
}

CString KelXMLNode::GetNodeName() const {
    switch (m_node.type()) {
    case pugi::node_element:
        return Wide(m_node.name());
    case pugi::node_comment:
        return L"#comment";
    case pugi::node_cdata:
        return L"#cdata-section";
    case pugi::node_pcdata:
        return L"#text";
    default:
        return CString();
    }
}

CString KelXMLNode::GetNodeValue() const {
    if (m_node.type() == pugi::node_element)
        return Wide(m_node.text().get());
    return Wide(m_node.value());
}

double KelXMLNode::GetNodeValueInDouble() const {
    return _wtof(GetNodeValue());
}

bool KelXMLNode::GetAttributeValue(CString name, CString& value) const {
    const pugi::xml_attribute attribute = m_node.attribute(Narrow(name).c_str());
    if (!attribute)
        return false;
    value = Wide(attribute.value());
    return true;
}

bool KelXMLNode::SetAttributeValue(CString name, CString value) {
    pugi::xml_attribute attribute = m_node.attribute(Narrow(name).c_str());
    return attribute && attribute.set_value(Narrow(value).c_str());
}

bool KelXMLNode::AddAttribute(CString name, CString value) {
    if (SetAttributeValue(name, value))
        return true;
    pugi::xml_attribute attribute = m_node.append_attribute(Narrow(name).c_str());
    return attribute && attribute.set_value(Narrow(value).c_str());
}
