// CTimeSpan's text form.
#include "mfc/CTimeSpan.h"

#include <cwchar>
#include <string>

namespace {

void AppendNumber(std::wstring& out, LONGLONG value, bool twoDigits) {
    wchar_t buffer[32];
    std::swprintf(buffer, 32, twoDigits ? L"%02lld" : L"%lld", static_cast<long long>(value));
    out += buffer;
}

} // namespace

CString CTimeSpan::Format(LPCTSTR format) const {
    std::wstring out;
    if (!format)
        return CString();
    for (const wchar_t* p = format; *p; ++p) {
        if (*p != L'%' || p[1] == L'\0') {
            out += *p;
            continue;
        }
        switch (*++p) {
        case L'D':
            AppendNumber(out, GetDays(), false);
            break;
        case L'H':
            AppendNumber(out, GetHours(), true);
            break;
        case L'M':
            AppendNumber(out, GetMinutes(), true);
            break;
        case L'S':
            AppendNumber(out, GetSeconds(), true);
            break;
        case L'%':
            out += L'%';
            break;
        default:
            out += L'%';
            out += *p;
            break;
        }
    }
    return CString(std::move(out));
}
