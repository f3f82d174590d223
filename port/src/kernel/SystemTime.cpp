// SYSTEMTIME and FILETIME: the clock, the calendar conversions, UTC to local time, tick counts.
#include <time.h>

#include <chrono>
#include <optional>

#include "win/threads.h"

namespace {

using namespace std::chrono;

constexpr LONGLONG kTicksPerMillisecond = 10'000;
constexpr LONGLONG kTicksPerSecond = 10'000'000;
constexpr LONGLONG kTicksPerMinute = 60 * kTicksPerSecond;
constexpr LONGLONG kTicksPerDay = 86'400 * kTicksPerSecond;
constexpr LONGLONG kUnixEpochTicks = 116'444'736'000'000'000; // 1970-01-01 in file time
constexpr sys_days kFileTimeEpoch{year{1601} / January / 1};
constexpr WORD kLastYear = 30827; // the last year a SYSTEMTIME may hold

LONGLONG Join(const FILETIME& time) {
    return static_cast<LONGLONG>((static_cast<ULONGLONG>(time.dwHighDateTime) << 32) |
                                 time.dwLowDateTime);
}

FILETIME Split(LONGLONG ticks) {
    const auto value = static_cast<ULONGLONG>(ticks);
    return {static_cast<DWORD>(value), static_cast<DWORD>(value >> 32)};
}

// File-time ticks of a valid SYSTEMTIME; wDayOfWeek is ignored, as Windows does.
std::optional<LONGLONG> ToTicks(const SYSTEMTIME& time) {
    if (time.wYear < 1601 || time.wYear > kLastYear || time.wHour > 23 || time.wMinute > 59 ||
        time.wSecond > 59 || time.wMilliseconds > 999)
        return std::nullopt;
    const year_month_day date{year{time.wYear}, month{time.wMonth}, day{time.wDay}};
    if (!date.ok())
        return std::nullopt;
    const LONGLONG dayCount = (sys_days{date} - kFileTimeEpoch).count();
    return dayCount * kTicksPerDay +
           ((time.wHour * 60LL + time.wMinute) * 60 + time.wSecond) * kTicksPerSecond +
           time.wMilliseconds * kTicksPerMillisecond;
}

// The SYSTEMTIME of ticks from 0 up to the end of year 30827.
std::optional<SYSTEMTIME> FromTicks(LONGLONG ticks) {
    if (ticks < 0)
        return std::nullopt;
    const sys_days date = kFileTimeEpoch + days{ticks / kTicksPerDay};
    const year_month_day ymd{date};
    if (static_cast<int>(ymd.year()) > kLastYear)
        return std::nullopt;
    const LONGLONG rest = ticks % kTicksPerDay;
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(static_cast<int>(ymd.year()));
    time.wMonth = static_cast<WORD>(static_cast<unsigned>(ymd.month()));
    time.wDay = static_cast<WORD>(static_cast<unsigned>(ymd.day()));
    time.wDayOfWeek = static_cast<WORD>(weekday{date}.c_encoding());
    time.wHour = static_cast<WORD>(rest / (60 * kTicksPerMinute));
    time.wMinute = static_cast<WORD>(rest / kTicksPerMinute % 60);
    time.wSecond = static_cast<WORD>(rest / kTicksPerSecond % 60);
    time.wMilliseconds = static_cast<WORD>(rest / kTicksPerMillisecond % 1000);
    return time;
}

LONGLONG NowTicks() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return kUnixEpochTicks + now.tv_sec * kTicksPerSecond + now.tv_nsec / 100;
}

// The system zone's offset from UTC, in seconds east, at a file time.
std::optional<long> ZoneOffsetAt(LONGLONG ticks) {
    const LONGLONG unixTicks = ticks - kUnixEpochTicks;
    time_t seconds = static_cast<time_t>(unixTicks / kTicksPerSecond);
    if (unixTicks % kTicksPerSecond < 0)
        --seconds; // round towards the past
    tm local{};
    if (!localtime_r(&seconds, &local))
        return std::nullopt;
    return local.tm_gmtoff;
}

// The file time at which a day-of-week transition rule falls in a year, in the local wall time
// that the rule is written in.
std::optional<LONGLONG> TransitionTicks(const SYSTEMTIME& rule, int yearNumber) {
    if (rule.wMonth < 1 || rule.wMonth > 12 || rule.wDay < 1 || rule.wDay > 5 ||
        rule.wDayOfWeek > 6)
        return std::nullopt;
    const year y{yearNumber};
    const month m{rule.wMonth};
    const unsigned firstWeekday = weekday{sys_days{y / m / 1}}.c_encoding();
    unsigned dayOfMonth = 1 + (rule.wDayOfWeek + 7 - firstWeekday) % 7 + (rule.wDay - 1) * 7u;
    const unsigned lastDay = static_cast<unsigned>(year_month_day_last{y / m / last}.day());
    while (dayOfMonth > lastDay)
        dayOfMonth -= 7; // wDay 5 means the last such weekday of the month
    SYSTEMTIME at = rule;
    at.wYear = static_cast<WORD>(yearNumber);
    at.wDay = static_cast<WORD>(dayOfMonth);
    return ToTicks(at);
}

// Minutes to add to local time to get UTC, at a UTC file time, under a zone's rules.
std::optional<LONGLONG> BiasAt(const TIME_ZONE_INFORMATION& zone, LONGLONG utc) {
    if (zone.StandardDate.wMonth == 0 || zone.DaylightDate.wMonth == 0)
        return zone.Bias; // no daylight time
    if (zone.StandardDate.wYear != 0 || zone.DaylightDate.wYear != 0)
        return std::nullopt; // the one-year absolute form is not supported
    const LONGLONG standardWall = utc - (zone.Bias + zone.StandardBias) * kTicksPerMinute;
    const LONGLONG daylightWall = utc - (zone.Bias + zone.DaylightBias) * kTicksPerMinute;
    const auto standardTime = FromTicks(standardWall);
    if (!standardTime)
        return std::nullopt;
    // Daylight time starts at DaylightDate on the standard clock and ends at StandardDate on
    // the daylight clock.
    const auto start = TransitionTicks(zone.DaylightDate, standardTime->wYear);
    const auto end = TransitionTicks(zone.StandardDate, standardTime->wYear);
    if (!start || !end)
        return std::nullopt;
    const bool daylight = *start < *end ? standardWall >= *start && daylightWall < *end
                                        : standardWall >= *start || daylightWall < *end;
    return zone.Bias + (daylight ? zone.DaylightBias : zone.StandardBias);
}

BOOL Fail() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

} // namespace

void GetSystemTime(LPSYSTEMTIME lpSystemTime) {
    *lpSystemTime = *FromTicks(NowTicks());
}

void GetLocalTime(LPSYSTEMTIME lpSystemTime) {
    const LONGLONG now = NowTicks();
    *lpSystemTime = *FromTicks(now + ZoneOffsetAt(now).value_or(0) * kTicksPerSecond);
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* lpSystemTime, LPFILETIME lpFileTime) {
    if (!lpSystemTime || !lpFileTime)
        return Fail();
    const auto ticks = ToTicks(*lpSystemTime);
    if (!ticks)
        return Fail();
    *lpFileTime = Split(*ticks);
    return TRUE;
}

BOOL FileTimeToSystemTime(const FILETIME* lpFileTime, LPSYSTEMTIME lpSystemTime) {
    if (!lpFileTime || !lpSystemTime)
        return Fail();
    const auto time = FromTicks(Join(*lpFileTime)); // the high bit set reads as negative
    if (!time)
        return Fail();
    *lpSystemTime = *time;
    return TRUE;
}

BOOL FileTimeToLocalFileTime(const FILETIME* lpFileTime, LPFILETIME lpLocalFileTime) {
    if (!lpFileTime || !lpLocalFileTime)
        return Fail();
    const LONGLONG utc = Join(*lpFileTime);
    const auto offset = ZoneOffsetAt(NowTicks());
    if (utc < 0 || !offset)
        return Fail();
    const LONGLONG local = utc + *offset * kTicksPerSecond;
    if (local < 0)
        return Fail();
    *lpLocalFileTime = Split(local);
    return TRUE;
}

BOOL SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION* lpTimeZoneInformation,
                                     const SYSTEMTIME* lpUniversalTime, LPSYSTEMTIME lpLocalTime) {
    if (!lpUniversalTime || !lpLocalTime)
        return Fail();
    const auto utc = ToTicks(*lpUniversalTime);
    if (!utc)
        return Fail();
    std::optional<LONGLONG> local;
    if (!lpTimeZoneInformation) {
        if (const auto offset = ZoneOffsetAt(*utc))
            local = *utc + *offset * kTicksPerSecond;
    } else if (const auto bias = BiasAt(*lpTimeZoneInformation, *utc)) {
        local = *utc - *bias * kTicksPerMinute;
    }
    const auto time = local ? FromTicks(*local) : std::nullopt;
    if (!time)
        return Fail();
    *lpLocalTime = *time;
    return TRUE;
}

ULONGLONG GetTickCount64() {
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<ULONGLONG>(now.tv_sec) * 1000 +
           static_cast<ULONGLONG>(now.tv_nsec) / 1'000'000;
}

DWORD GetTickCount() {
    return static_cast<DWORD>(GetTickCount64());
}
