#include "frame/KelStringTable.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>

#include "core/OrvHostCallbacks.h"
#include "mfc/StringResources.h"
#include "port/TextConversion.h"

namespace {

std::string Unescape(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) {
            const char next = text[++i];
            out += next == 'n' ? '\n' : next == 't' ? '\t' : next;
        } else {
            out += text[i];
        }
    }
    return out;
}

bool ParseId(const std::string& text, UINT& id) {
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos)
        return false;
    errno = 0;
    const unsigned long value = std::strtoul(text.c_str(), nullptr, 10);
    if (errno != 0 || value > 0xFFFFFFFFul)
        return false;
    id = static_cast<UINT>(value);
    return true;
}

} // namespace

bool KelStringTable::Load(const CString& path) {
    m_strings.clear();
    std::ifstream in(port::WideToNarrow(path.GetString()), std::ios::binary);
    if (!in)
        return false;
    std::string line;
    bool first = true;
    while (std::getline(in, line)) {
        if (first && line.rfind("\xEF\xBB\xBF", 0) == 0)
            line.erase(0, 3);
        first = false;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.empty() || line[0] == '#' || line[0] == ';')
            continue;
        const std::size_t equals = line.find('=');
        UINT id = 0;
        if (equals == std::string::npos || !ParseId(line.substr(0, equals), id))
            continue;
        m_strings[id] = port::NarrowToWide(Unescape(line.substr(equals + 1)));
    }
    return true;
}

bool KelStringTable::Find(UINT id, std::wstring& text) const {
    const auto found = m_strings.find(id);
    if (found == m_strings.end())
        return false;
    text = found->second;
    return true;
}

void InstallStringResources(const KelStringTable* table) {
    port::SetStringResourceLoader([table](UINT id, std::wstring& text) {
        const CString product = GetProductSpecificStringCB(id);
        if (!product.IsEmpty()) {
            text = product.GetString();
            return true;
        }
        return table && table->Find(id, text);
    });
}
