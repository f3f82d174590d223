// CString's character traits: case mapping, collation, formatting, width conversion, resources.
#include <clocale>
#include <cstring>
#include <cwchar>
#include <cwctype>
#include <locale.h>

#include "mfc/CString.h"
#include "port/TextConversion.h"

namespace port {
namespace {

// A UTF-8 character-type locale, so that wide case mapping covers all of Unicode whatever
// locale the process runs in; 0 where the system has none, and then the process locale serves.
locale_t CaseLocale() {
    static const locale_t locale = [] {
        locale_t l = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t(0));
        return l ? l : newlocale(LC_CTYPE_MASK, "en_US.UTF-8", locale_t(0));
    }();
    return locale;
}

} // namespace
} // namespace port

int ChTraitsCRT<wchar_t>::AppendFormatV(std::wstring& out, const wchar_t* format, va_list args) {
    return port::AppendFormatV(out, format, args);
}

int ChTraitsCRT<char>::AppendFormatV(std::string& out, const char* format, va_list args) {
    return port::AppendFormatV(out, format, args);
}

std::wstring ChTraitsCRT<wchar_t>::FromOtherWidth(std::string_view text) {
    return port::NarrowToWide(text);
}

std::string ChTraitsCRT<char>::FromOtherWidth(std::wstring_view text) {
    return port::WideToNarrow(text);
}

bool ChTraitsCRT<wchar_t>::LoadString(UINT id, std::wstring& text) {
    return port::LoadStringResource(id, text);
}

wchar_t ChTraitsCRT<wchar_t>::CharToLower(wchar_t ch) {
    const locale_t locale = port::CaseLocale();
    return static_cast<wchar_t>(locale ? towlower_l(static_cast<wint_t>(ch), locale)
                                       : std::towlower(static_cast<wint_t>(ch)));
}

wchar_t ChTraitsCRT<wchar_t>::CharToUpper(wchar_t ch) {
    const locale_t locale = port::CaseLocale();
    return static_cast<wchar_t>(locale ? towupper_l(static_cast<wint_t>(ch), locale)
                                       : std::towupper(static_cast<wint_t>(ch)));
}

char ChTraitsCRT<char>::CharToLower(char ch) {
    return (ch >= 'A' && ch <= 'Z') ? static_cast<char>(ch + 32) : ch;
}

char ChTraitsCRT<char>::CharToUpper(char ch) {
    return (ch >= 'a' && ch <= 'z') ? static_cast<char>(ch - 32) : ch;
}

int ChTraitsCRT<wchar_t>::StringCollate(const wchar_t* a, const wchar_t* b) {
    const int c = std::wcscoll(a, b);
    return (c > 0) - (c < 0);
}

int ChTraitsCRT<char>::StringCollate(const char* a, const char* b) {
    const int c = std::strcoll(a, b);
    return (c > 0) - (c < 0);
}
