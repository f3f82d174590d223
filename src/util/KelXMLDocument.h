// KelXMLDocument: an XML file loaded for reading and small edits. Saving writes the file back as
// it was read (comments, order, layout, quotes of unchanged attributes) apart from the edits.
#pragma once

#include "port/Export.h"

#include <memory>
#include <string>

#include <pugixml.hpp>

#include "mfc/CString.h"
#include "util/KelXMLNode.h"

class ORV_API KelXMLDocument {
public:
    KelXMLDocument();
    ~KelXMLDocument();
    KelXMLDocument(const KelXMLDocument&) = delete;
    KelXMLDocument& operator=(const KelXMLDocument&) = delete;

    // The root element, owned by the document, or null if the file can't be read or parsed.
    KelXMLNode* LoadFromFile(CString path);
    // Writes the document to the file it was loaded from, or to `path`; true on success.
    bool Save();
    bool Save(CString path);

private:
    pugi::xml_document m_document;
    std::unique_ptr<KelXMLNode> m_root;
    CString m_path;
    // The file's bytes before and after the root element, written back as they were.
    std::string m_prolog;
    std::string m_epilog;
};
