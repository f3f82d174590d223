// Win32 time: SYSTEMTIME and FILETIME, the clock, the conversions between UTC and local time, and
// the millisecond tick counts.
#pragma once

#include "port/Export.h"

#include "win/types.h"

typedef struct _SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek; // 0 Sunday to 6 Saturday
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
} SYSTEMTIME, *PSYSTEMTIME, *LPSYSTEMTIME;

// 100-nanosecond intervals since 1 January 1601 UTC, split in two 32-bit halves.
typedef struct _FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME, *PFILETIME, *LPFILETIME;

// A time zone in Windows' terms: UTC = local time + Bias + StandardBias or DaylightBias, in
// minutes. The transition dates use the day-of-week form (wYear 0, wDay 1 to 5 for the first to
// the last such weekday of wMonth, at wHour:wMinute local time); wMonth 0 means no daylight time.
typedef struct _TIME_ZONE_INFORMATION {
    LONG Bias;
    WCHAR StandardName[32];
    SYSTEMTIME StandardDate;
    LONG StandardBias;
    WCHAR DaylightName[32];
    SYSTEMTIME DaylightDate;
    LONG DaylightBias;
} TIME_ZONE_INFORMATION, *PTIME_ZONE_INFORMATION, *LPTIME_ZONE_INFORMATION;

ORV_API void GetSystemTime(LPSYSTEMTIME lpSystemTime);
ORV_API void GetLocalTime(LPSYSTEMTIME lpSystemTime);
ORV_API BOOL SystemTimeToFileTime(const SYSTEMTIME* lpSystemTime, LPFILETIME lpFileTime);
ORV_API BOOL FileTimeToSystemTime(const FILETIME* lpFileTime, LPSYSTEMTIME lpSystemTime);
// As on Windows, applies the offset from UTC in force now, not the one at the given time.
ORV_API BOOL FileTimeToLocalFileTime(const FILETIME* lpFileTime, LPFILETIME lpLocalFileTime);
// A null zone means the system's own time zone (TZ, /etc/localtime), with its full rules.
ORV_API BOOL SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION* lpTimeZoneInformation,
                                             const SYSTEMTIME* lpUniversalTime,
                                             LPSYSTEMTIME lpLocalTime);

// Milliseconds since the system started; the 32-bit count wraps after 49.7 days.
ORV_API DWORD GetTickCount();
ORV_API ULONGLONG GetTickCount64();
