// Writes .reg files as regedit exports them.
#include "RegFile.h"

#include "win/registry.h"

#include <cstdio>

namespace port::registry {
namespace {

// regedit breaks hex data before a byte that would take the line past this column.
constexpr std::size_t kHexColumns = 77;

std::wstring Quoted(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (wchar_t c : text) {
        if (c == L'\\' || c == L'"')
            quoted += L'\\';
        quoted += c;
    }
    return quoted + L"\"";
}

// A REG_SZ that a quoted string gives back exactly: one terminator at the end, none inside, no
// line breaks. Anything else is written as hex(1) so that it comes back byte for byte.
bool IsPlainString(const Bytes& data, std::wstring& text) {
    if (data.size() < 2 || data.size() % 2 != 0 || data[data.size() - 1] != 0 ||
        data[data.size() - 2] != 0)
        return false;
    text = TextFromUtf16Bytes(Bytes(data.begin(), data.end() - 2));
    return text.find_first_of(std::wstring(L"\0\r\n", 3)) == std::wstring::npos;
}

std::wstring HexData(const std::wstring& prefix, const Bytes& data) {
    std::wstring line = prefix;
    std::size_t column = prefix.size();
    for (std::size_t i = 0; i < data.size(); ++i) {
        if (column + 3 > kHexColumns) {
            line += L"\\\r\n  ";
            column = 2;
        }
        wchar_t digits[4];
        std::swprintf(digits, 4, L"%02x", data[i]);
        line += digits;
        column += 2;
        if (i + 1 < data.size()) {
            line += L',';
            ++column;
        }
    }
    return line;
}

std::wstring ValueLine(const RegFileValue& value) {
    const std::wstring name = value.name.empty() ? L"@" : Quoted(value.name);
    if (value.remove)
        return name + L"=-";
    std::wstring text;
    if (value.type == REG_SZ && IsPlainString(value.data, text))
        return name + L"=" + Quoted(text);
    if (value.type == REG_DWORD && value.data.size() == 4) {
        const unsigned number = value.data[0] | value.data[1] << 8 | value.data[2] << 16 |
                                static_cast<unsigned>(value.data[3]) << 24;
        wchar_t digits[16];
        std::swprintf(digits, 16, L"dword:%08x", number);
        return name + L"=" + digits;
    }
    if (value.type == REG_BINARY)
        return HexData(name + L"=hex:", value.data);
    wchar_t type[24];
    std::swprintf(type, 24, L"=hex(%x):", value.type);
    return HexData(name + type, value.data);
}

} // namespace

std::string FormatRegFile(const std::vector<RegFileKey>& keys) {
    std::wstring text = L"Windows Registry Editor Version 5.00\r\n\r\n";
    for (const auto& key : keys) {
        text += L"[" + std::wstring(key.remove ? L"-" : L"") + FullKeyName(key.root, key.path) +
                L"]\r\n";
        for (const auto& value : key.values)
            text += ValueLine(value) + L"\r\n";
        text += L"\r\n";
    }
    const Bytes bytes = Utf16Bytes(text);
    return std::string("\xFF\xFE") + std::string(bytes.begin(), bytes.end());
}

} // namespace port::registry
