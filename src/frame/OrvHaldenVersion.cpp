#include "frame/OrvHaldenVersion.h"

#include <climits>
#include <cstdint>
#include <cwchar>

namespace {

// The host's version fields are 32-bit, whatever `long` is here.
long g_dateCode = -1;

CString& Revision() {
    static CString revision;
    return revision;
}

// The runtime's wide-to-integer conversion: leading blanks and sign, then digits; 0 when there
// are none, clamped to 32 bits.
long WideToLong(const CString& text) {
    const long long value = std::wcstoll(text.GetString(), nullptr, 10);
    if (value > INT32_MAX)
        return INT32_MAX;
    if (value < INT32_MIN)
        return INT32_MIN;
    return static_cast<long>(value);
}

} // namespace

void SetHaldenDateCode(long dateCode, CString revision) {
    g_dateCode = dateCode;
    Revision() = revision;
}

long GetHaldenDateCode() {
    return g_dateCode;
}

CString GetHaldenRevisionNumber() {
    return Revision();
}

int GetHaldenRevisionNumber(long& major) {
    major = 0;
    const CString& revision = Revision();
    const int point = revision.Find(L'.');
    if (revision.IsEmpty() || point < 0)
        return 0;
    major = WideToLong(revision.Left(point));
    return 1;
}

int GetHaldenMinorRevisionNumber(CString& minor) {
    const CString& revision = Revision();
    const int point = revision.Find(L'.');
    if (revision.IsEmpty() || point < 0)
        return 0;
    minor = revision.Right(point + 1);
    return 1;
}

int IsValidHDVersion() {
    int valid = 1;
    long major = 0;
    if (GetHaldenRevisionNumber(major) && major > 34)
        valid = 0;
    return valid;
}
