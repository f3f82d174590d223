#include "util/KelXMLDocument.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>

#include "port/TextConversion.h"

namespace {

// Everything inside the root element is kept as a node, layout white space and line ends
// included, so that a save gives back the same bytes.
constexpr unsigned kParseOptions =
    (pugi::parse_full | pugi::parse_ws_pcdata) & ~(pugi::parse_eol | pugi::parse_wconv_attribute);

bool ReadBytes(const std::string& path, std::string& bytes) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

// Where the root element starts and ends in the file's bytes.
bool FindRootSpan(const std::string& bytes, const pugi::xml_node& root, std::size_t& begin,
                  std::size_t& end) {
    const std::ptrdiff_t nameOffset = root.offset_debug();
    if (nameOffset <= 0 || static_cast<std::size_t>(nameOffset) > bytes.size())
        return false;
    begin = static_cast<std::size_t>(nameOffset) - 1;
    const std::size_t closing = bytes.rfind(std::string("</") + root.name());
    const std::size_t from = closing == std::string::npos || closing < begin ? begin : closing;
    const std::size_t close = bytes.find('>', from);
    if (close == std::string::npos)
        return false;
    end = close + 1;
    return true;
}

} // namespace

KelXMLDocument::KelXMLDocument() = default;
KelXMLDocument::~KelXMLDocument() = default;

KelXMLNode* KelXMLDocument::LoadFromFile(CString path) {
    m_root.reset();
    std::string bytes;
    if (!ReadBytes(port::WideToNarrow(path.GetString()), bytes))
        return nullptr;
    const pugi::xml_parse_result result =
        m_document.load_buffer(bytes.data(), bytes.size(), kParseOptions, pugi::encoding_utf8);
    const pugi::xml_node root = m_document.document_element();
    std::size_t begin = 0, end = 0;
    if (!result || !root || !FindRootSpan(bytes, root, begin, end))
        return nullptr;
    m_prolog = bytes.substr(0, begin);
    m_epilog = bytes.substr(end);
    m_path = path;
    m_root = std::make_unique<KelXMLNode>(root);
    return m_root.get();
}

bool KelXMLDocument::Save() {
    return !m_path.IsEmpty() && Save(m_path);
}

bool KelXMLDocument::Save(CString path) {
    if (!m_root)
        return false;
    std::ostringstream text;
    m_document.document_element().print(text, "", pugi::format_raw, pugi::encoding_utf8);
    // Written beside the file and then renamed over it, so that a failed write loses nothing.
    const std::string target = port::WideToNarrow(path.GetString());
    const std::string temporary = target + ".saving";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        out << m_prolog << text.str() << m_epilog;
        out.flush();
        if (!out) {
            std::remove(temporary.c_str());
            return false;
        }
    }
    if (std::rename(temporary.c_str(), target.c_str()) != 0) {
        std::remove(temporary.c_str());
        return false;
    }
    return true;
}
