// CTimeSpan: a signed duration in whole seconds.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"
#include "win/types.h"

class CArchive;

class ORV_API CTimeSpan {
public:
    CTimeSpan() noexcept = default;
    CTimeSpan(LONGLONG seconds) noexcept : m_timeSpan(seconds) {}
    CTimeSpan(LONG days, int hours, int mins, int secs) noexcept
        : m_timeSpan(((LONGLONG{days} * 24 + hours) * 60 + mins) * 60 + secs) {}

    LONGLONG GetDays() const noexcept { return m_timeSpan / (24 * 3600); }
    LONGLONG GetTotalHours() const noexcept { return m_timeSpan / 3600; }
    LONG GetHours() const noexcept { return static_cast<LONG>(GetTotalHours() - GetDays() * 24); }
    LONGLONG GetTotalMinutes() const noexcept { return m_timeSpan / 60; }
    LONG GetMinutes() const noexcept {
        return static_cast<LONG>(GetTotalMinutes() - GetTotalHours() * 60);
    }
    LONGLONG GetTotalSeconds() const noexcept { return m_timeSpan; }
    LONG GetSeconds() const noexcept {
        return static_cast<LONG>(GetTotalSeconds() - GetTotalMinutes() * 60);
    }
    LONGLONG GetTimeSpan() const noexcept { return m_timeSpan; }

    // %D days, %H hours of the day, %M minutes, %S seconds (two digits each but days), %% a
    // percent sign; any other character is copied.
    CString Format(LPCTSTR format) const;

    CTimeSpan operator+(CTimeSpan other) const noexcept { return m_timeSpan + other.m_timeSpan; }
    CTimeSpan operator-(CTimeSpan other) const noexcept { return m_timeSpan - other.m_timeSpan; }
    CTimeSpan& operator+=(CTimeSpan other) noexcept {
        m_timeSpan += other.m_timeSpan;
        return *this;
    }
    CTimeSpan& operator-=(CTimeSpan other) noexcept {
        m_timeSpan -= other.m_timeSpan;
        return *this;
    }
    friend auto operator<=>(CTimeSpan a, CTimeSpan b) noexcept = default;
    friend bool operator==(CTimeSpan a, CTimeSpan b) noexcept = default;

private:
    LONGLONG m_timeSpan = 0;
};

// A span travels as a 32-bit count of seconds; one that does not fit cannot be stored
// (CArchiveException genericException) rather than being cut short.
ORV_API CArchive& operator<<(CArchive& ar, CTimeSpan span);
ORV_API CArchive& operator>>(CArchive& ar, CTimeSpan& span);
