// The archive forms of the value types: points, sizes, rectangles, times and time spans.
#include <climits>

#include "mfc/CArchive.h"
#include "mfc/CPoint.h"
#include "mfc/CRect.h"
#include "mfc/CSize.h"
#include "mfc/CTime.h"
#include "mfc/CTimeSpan.h"

namespace {
// Marks the 64-bit form of a stored CTime; the older form is a lone 32-bit time.
constexpr DWORD kTime64Mark = 0x8000000A;
} // namespace

CArchive& operator<<(CArchive& ar, SIZE size) {
    return ar << size.cx << size.cy;
}
CArchive& operator>>(CArchive& ar, SIZE& size) {
    return ar >> size.cx >> size.cy;
}
CArchive& operator<<(CArchive& ar, POINT point) {
    return ar << point.x << point.y;
}
CArchive& operator>>(CArchive& ar, POINT& point) {
    return ar >> point.x >> point.y;
}

CArchive& operator<<(CArchive& ar, const RECT& rect) {
    return ar << rect.left << rect.top << rect.right << rect.bottom;
}
CArchive& operator>>(CArchive& ar, RECT& rect) {
    return ar >> rect.left >> rect.top >> rect.right >> rect.bottom;
}

CArchive& operator<<(CArchive& ar, CTime time) {
    // long long, not LONGLONG: LONGLONG is long here, which archives in 4 bytes.
    return ar << kTime64Mark << static_cast<long long>(time.GetTime());
}

CArchive& operator>>(CArchive& ar, CTime& time) {
    DWORD first = 0;
    ar >> first;
    if (first == kTime64Mark) {
        long long value = 0;
        ar >> value;
        time = CTime(value);
    } else {
        time = CTime(static_cast<LONGLONG>(static_cast<LONG>(first)));
    }
    return ar;
}

CArchive& operator<<(CArchive& ar, CTimeSpan span) {
    const LONGLONG seconds = span.GetTotalSeconds();
    if (seconds < INT_MIN || seconds > INT_MAX)
        AfxThrowArchiveException(CArchiveException::genericException);
    return ar << static_cast<LONG>(seconds);
}

CArchive& operator>>(CArchive& ar, CTimeSpan& span) {
    LONG seconds = 0;
    ar >> seconds;
    span = CTimeSpan(static_cast<LONGLONG>(seconds));
    return ar;
}
