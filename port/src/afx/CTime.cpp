// CTime: construction from local fields, breaking down and formatting through the C library.
#include "mfc/CTime.h"

#include <cwchar>
#include <string>
#include <vector>

#include "mfc/CException.h"

CTime::CTime(int year, int month, int day, int hour, int min, int sec, int dst) {
    if (year < 1900 || month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || hour > 23 ||
        min < 0 || min > 59 || sec < 0 || sec > 59)
        AfxThrowInvalidArgException();
    struct tm fields {};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = min;
    fields.tm_sec = sec;
    fields.tm_isdst = dst;
    const time_t value = mktime(&fields);
    if (value == static_cast<time_t>(-1))
        AfxThrowInvalidArgException();
    m_time = value;
}

CTime CTime::GetCurrentTime() noexcept {
    return CTime(static_cast<LONGLONG>(time(nullptr)));
}

struct tm* CTime::GetLocalTm(struct tm* out) const noexcept {
    const time_t value = static_cast<time_t>(m_time);
    return out ? localtime_r(&value, out) : nullptr;
}

struct tm* CTime::GetGmtTm(struct tm* out) const noexcept {
    const time_t value = static_cast<time_t>(m_time);
    return out ? gmtime_r(&value, out) : nullptr;
}

int CTime::LocalField(int tm::*field, int offset) const noexcept {
    struct tm fields {};
    return GetLocalTm(&fields) ? fields.*field + offset : 0;
}

int CTime::GetYear() const noexcept {
    return LocalField(&tm::tm_year, 1900);
}
int CTime::GetMonth() const noexcept {
    return LocalField(&tm::tm_mon, 1);
}
int CTime::GetDay() const noexcept {
    return LocalField(&tm::tm_mday, 0);
}
int CTime::GetHour() const noexcept {
    return LocalField(&tm::tm_hour, 0);
}
int CTime::GetMinute() const noexcept {
    return LocalField(&tm::tm_min, 0);
}
int CTime::GetSecond() const noexcept {
    return LocalField(&tm::tm_sec, 0);
}
int CTime::GetDayOfWeek() const noexcept {
    return LocalField(&tm::tm_wday, 1);
}

namespace {

CString FormatFields(const struct tm* fields, LPCTSTR format) {
    if (!fields || !format || !*format)
        return CString();
    // wcsftime answers 0 both for "too small" and for an empty result: grow a few times, then
    // take the empty result as the answer.
    for (std::size_t size = 128; size <= 128 * 1024; size *= 8) {
        std::vector<wchar_t> buffer(size);
        const std::size_t length = std::wcsftime(buffer.data(), size, format, fields);
        if (length > 0)
            return CString(std::wstring(buffer.data(), length));
    }
    return CString();
}

} // namespace

CString CTime::Format(LPCTSTR format) const {
    struct tm fields {};
    return FormatFields(GetLocalTm(&fields), format);
}

CString CTime::FormatGmt(LPCTSTR format) const {
    struct tm fields {};
    return FormatFields(GetGmtTm(&fields), format);
}
