// CTime: an absolute time, 64-bit seconds since 1970-01-01 UTC, broken down in local time.
#pragma once

#include "port/Export.h"

#include <ctime>

#include "mfc/CString.h"
#include "mfc/CTimeSpan.h"
#include "win/types.h"

class CArchive;

class ORV_API CTime {
public:
    CTime() noexcept = default;
    CTime(LONGLONG time) noexcept : m_time(time) {}
    // Local time; dst < 0 lets the C library decide whether daylight saving applies. Fields out
    // of range (year before 1900, month 0...) throw CInvalidArgException.
    CTime(int year, int month, int day, int hour, int min, int sec, int dst = -1);

    static CTime GetCurrentTime() noexcept;

    LONGLONG GetTime() const noexcept { return m_time; }
    // Null when the time cannot be broken down.
    struct tm* GetLocalTm(struct tm* out) const noexcept;
    struct tm* GetGmtTm(struct tm* out) const noexcept;

    // Local fields; 0 when the time cannot be broken down. GetDayOfWeek: 1 is Sunday.
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;
    int GetDayOfWeek() const noexcept;

    // strftime conventions, in local time or in UTC.
    CString Format(LPCTSTR format) const;
    CString FormatGmt(LPCTSTR format) const;

    CTimeSpan operator-(CTime other) const noexcept { return m_time - other.m_time; }
    CTime operator+(CTimeSpan span) const noexcept { return m_time + span.GetTimeSpan(); }
    CTime operator-(CTimeSpan span) const noexcept { return m_time - span.GetTimeSpan(); }
    CTime& operator+=(CTimeSpan span) noexcept {
        m_time += span.GetTimeSpan();
        return *this;
    }
    CTime& operator-=(CTimeSpan span) noexcept {
        m_time -= span.GetTimeSpan();
        return *this;
    }
    friend auto operator<=>(CTime a, CTime b) noexcept = default;
    friend bool operator==(CTime a, CTime b) noexcept = default;

private:
    int LocalField(int tm::*field, int offset) const noexcept;

    LONGLONG m_time = 0;
};

// Stored as the mark 0x8000000A and the 64-bit time; loading also takes the older form, a lone
// signed 32-bit time.
ORV_API CArchive& operator<<(CArchive& ar, CTime time);
ORV_API CArchive& operator>>(CArchive& ar, CTime& time);
