// Case mapping and collation behind CString.
#include <clocale>
#include <cstring>
#include <cwchar>
#include <cwctype>
#include <locale.h>

#include "mfc/CString.h"

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

wchar_t ToLowerChar(wchar_t ch) {
    const locale_t locale = CaseLocale();
    return static_cast<wchar_t>(locale ? towlower_l(static_cast<wint_t>(ch), locale)
                                       : std::towlower(static_cast<wint_t>(ch)));
}

wchar_t ToUpperChar(wchar_t ch) {
    const locale_t locale = CaseLocale();
    return static_cast<wchar_t>(locale ? towupper_l(static_cast<wint_t>(ch), locale)
                                       : std::towupper(static_cast<wint_t>(ch)));
}

char ToLowerChar(char ch) {
    return (ch >= 'A' && ch <= 'Z') ? static_cast<char>(ch + 32) : ch;
}

char ToUpperChar(char ch) {
    return (ch >= 'a' && ch <= 'z') ? static_cast<char>(ch - 32) : ch;
}

int CollateStrings(const wchar_t* a, const wchar_t* b) {
    const int c = std::wcscoll(a, b);
    return (c > 0) - (c < 0);
}

int CollateStrings(const char* a, const char* b) {
    const int c = std::strcoll(a, b);
    return (c > 0) - (c < 0);
}

} // namespace port
