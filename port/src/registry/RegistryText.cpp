#include "RegistryText.h"

#include "port/TextConversion.h"
#include "win/registry.h"

#include <cstring>

namespace port::registry {
namespace {

wchar_t FoldChar(wchar_t c) {
    if (c < 0x80)
        return (c >= L'a' && c <= L'z') ? c - 0x20 : c;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7)
        return c - 0x20;
    if (c == 0xFF)
        return 0x178;
    if (c >= 0x100 && c <= 0x137)
        return c & ~1u;
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E))
        return (c & 1u) ? c : c - 1;
    if (c >= 0x14A && c <= 0x177)
        return c & ~1u;
    if (c == 0x3C2)
        return 0x3A3;
    if ((c >= 0x3B1 && c <= 0x3C9) || (c >= 0x430 && c <= 0x44F))
        return c - 0x20;
    if (c >= 0x450 && c <= 0x45F)
        return c - 0x50;
    return c;
}

} // namespace

std::string FoldName(std::wstring_view name) {
    std::wstring folded(name);
    for (auto& c : folded)
        c = FoldChar(c);
    return WideToNarrow(folded);
}

std::vector<std::wstring> SplitKeyPath(std::wstring_view path) {
    std::vector<std::wstring> parts;
    std::size_t start = 0;
    while (start <= path.size()) {
        const std::size_t end = std::min(path.find(L'\\', start), path.size());
        if (end > start)
            parts.emplace_back(path.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

bool IsTextType(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ || type == REG_LINK;
}

Bytes Utf16Bytes(std::wstring_view text) {
    const std::u16string units = ToUtf16(text);
    Bytes bytes;
    bytes.reserve(units.size() * 2);
    for (char16_t unit : units) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

std::wstring TextFromUtf16Bytes(const Bytes& bytes) {
    std::u16string units((bytes.size() + 1) / 2, u'\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        units[i / 2] |= static_cast<char16_t>(bytes[i] << ((i % 2) * 8));
    return FromUtf16(units);
}

Bytes StoredFromApi(DWORD type, const BYTE* data, DWORD size) {
    if (!data || size == 0)
        return {};
    if (!IsTextType(type))
        return Bytes(data, data + size);
    std::wstring text(size / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), data, text.size() * sizeof(wchar_t));
    return Utf16Bytes(text);
}

Bytes ApiFromStored(DWORD type, const Bytes& stored) {
    if (!IsTextType(type))
        return stored;
    const std::wstring text = TextFromUtf16Bytes(stored);
    Bytes bytes(text.size() * sizeof(wchar_t));
    if (!bytes.empty())
        std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

} // namespace port::registry
