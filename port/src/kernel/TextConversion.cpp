// UTF-8, UTF-16 and Windows-1252 conversions of the platform's wide text.
#include "port/TextConversion.h"

#include <array>
#include <cstdint>

namespace port {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

// A wide unit that is not a Unicode scalar value (a surrogate, or past U+10FFFF) becomes U+FFFD.
char32_t Scalar(wchar_t ch) {
    const auto c = static_cast<char32_t>(ch);
    return (IsSurrogate(c) || c > 0x10FFFF) ? kReplacement : c;
}

// Decodes one UTF-8 sequence at text[pos], advancing pos. An ill-formed sequence yields U+FFFD
// and consumes its maximal valid prefix (at least one byte), as the Unicode standard recommends.
char32_t DecodeUtf8(std::string_view text, std::size_t& pos) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(pos++);
    if (lead < 0x80)
        return lead;
    int trail = 0;
    char32_t c = 0;
    unsigned char low = 0x80, high = 0xBF; // allowed range of the first trail byte
    if (lead >= 0xC2 && lead <= 0xDF) {
        trail = 1;
        c = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        trail = 2;
        c = lead & 0x0F;
        if (lead == 0xE0)
            low = 0xA0; // no overlong forms
        else if (lead == 0xED)
            high = 0x9F; // no surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        trail = 3;
        c = lead & 0x07;
        if (lead == 0xF0)
            low = 0x90;
        else if (lead == 0xF4)
            high = 0x8F; // nothing past U+10FFFF
    } else {
        return kReplacement;
    }
    for (int i = 0; i < trail; ++i) {
        if (pos >= text.size())
            return kReplacement;
        const unsigned char b = byte(pos);
        if (b < low || b > high)
            return kReplacement;
        low = 0x80;
        high = 0xBF;
        c = (c << 6) | (b & 0x3F);
        ++pos;
    }
    return c;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Windows-1252 bytes 0x80-0x9F. The five bytes the code page leaves undefined map to the C1
// control of the same value, as Windows' own table does.
constexpr std::array<char16_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

std::wstring NarrowToWide(std::string_view utf8) {
    std::wstring out;
    out.reserve(utf8.size());
    std::size_t pos = 0;
    while (pos < utf8.size())
        out += static_cast<wchar_t>(DecodeUtf8(utf8, pos));
    return out;
}

std::string WideToNarrow(std::wstring_view wide) {
    std::string out;
    out.reserve(wide.size());
    for (const wchar_t ch : wide)
        AppendUtf8(out, Scalar(ch));
    return out;
}

std::u16string ToUtf16(std::wstring_view wide) {
    std::u16string out;
    out.reserve(wide.size());
    for (const wchar_t ch : wide) {
        const char32_t c = Scalar(ch);
        if (c < 0x10000) {
            out += static_cast<char16_t>(c);
        } else {
            const char32_t v = c - 0x10000;
            out += static_cast<char16_t>(0xD800 | (v >> 10));
            out += static_cast<char16_t>(0xDC00 | (v & 0x3FF));
        }
    }
    return out;
}

std::wstring FromUtf16(std::u16string_view utf16) {
    std::wstring out;
    out.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const char32_t c = utf16[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 &&
            utf16[i + 1] <= 0xDFFF) {
            const char32_t low = utf16[++i];
            out += static_cast<wchar_t>(0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00));
        } else {
            out += static_cast<wchar_t>(IsSurrogate(c) ? kReplacement : c);
        }
    }
    return out;
}

std::wstring FromCp1252(std::string_view bytes) {
    std::wstring out;
    out.reserve(bytes.size());
    for (const char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        out += static_cast<wchar_t>((u >= 0x80 && u <= 0x9F) ? kCp1252High[u - 0x80] : u);
    }
    return out;
}

std::string ToCp1252(std::wstring_view wide) {
    std::string out;
    out.reserve(wide.size());
    for (const wchar_t ch : wide) {
        const auto c = static_cast<char32_t>(ch);
        char byte = '?';
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            byte = static_cast<char>(c);
        } else {
            for (std::size_t i = 0; i < kCp1252High.size(); ++i) {
                if (kCp1252High[i] == c) {
                    byte = static_cast<char>(0x80 + i);
                    break;
                }
            }
        }
        out += byte;
    }
    return out;
}

} // namespace port
