// SYSTEMTIME and FILETIME conversions, local time, and the tick counts. Expected file times are
// counted by hand from 1 January 1601: 1970-01-01 is 134,774 days later, 2000-01-01 145,731.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "win/threads.h"

namespace {

constexpr ULONGLONG kTicksPerDay = 864'000'000'000ULL;

ULONGLONG Join(const FILETIME& time) {
    return (static_cast<ULONGLONG>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

FILETIME Split(ULONGLONG ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

SYSTEMTIME Make(int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
                int millisecond = 0) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(hour);
    time.wMinute = static_cast<WORD>(minute);
    time.wSecond = static_cast<WORD>(second);
    time.wMilliseconds = static_cast<WORD>(millisecond);
    return time;
}

std::optional<ULONGLONG> ToFileTime(const SYSTEMTIME& time) {
    FILETIME file{};
    if (!SystemTimeToFileTime(&time, &file))
        return std::nullopt;
    return Join(file);
}

// Runs the body with the TZ variable set, restoring the previous zone afterwards.
class ZoneScope {
public:
    explicit ZoneScope(const char* zone) {
        if (const char* old = std::getenv("TZ"))
            m_previous = old;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ZoneScope() {
        if (m_previous)
            setenv("TZ", m_previous->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

private:
    std::optional<std::string> m_previous;
};

TEST(SystemTime, KnownDatesGiveHandCountedFileTimes) {
    EXPECT_EQ(ToFileTime(Make(1601, 1, 1)), 0u);
    EXPECT_EQ(ToFileTime(Make(1970, 1, 1)), 134774 * kTicksPerDay);
    EXPECT_EQ(ToFileTime(Make(1970, 1, 1)), 116444736000000000ULL);
    // 2000-02-29 is 59 days into the leap year 2000; 12:34:56.789 is 45,296.789 s.
    EXPECT_EQ(ToFileTime(Make(2000, 2, 29, 12, 34, 56, 789)),
              (145731 + 59) * kTicksPerDay + 452'967'890'000ULL);
}

TEST(SystemTime, FileTimesGoBackToCalendarFieldsWithTheWeekday) {
    const FILETIME file = Split((145731 + 59) * kTicksPerDay + 452'967'890'000ULL);
    SYSTEMTIME time{};
    ASSERT_TRUE(FileTimeToSystemTime(&file, &time));
    EXPECT_EQ(time.wYear, 2000);
    EXPECT_EQ(time.wMonth, 2);
    EXPECT_EQ(time.wDay, 29);
    EXPECT_EQ(time.wDayOfWeek, 2); // a Tuesday
    EXPECT_EQ(time.wHour, 12);
    EXPECT_EQ(time.wMinute, 34);
    EXPECT_EQ(time.wSecond, 56);
    EXPECT_EQ(time.wMilliseconds, 789);

    const FILETIME epoch = Split(0);
    ASSERT_TRUE(FileTimeToSystemTime(&epoch, &time));
    EXPECT_EQ(time.wYear, 1601);
    EXPECT_EQ(time.wDayOfWeek, 1); // 1 January 1601 was a Monday
}

TEST(SystemTime, InvalidFieldsAreRefused) {
    for (const SYSTEMTIME& bad :
         {Make(1900, 2, 29), Make(2001, 13, 1), Make(2001, 0, 1), Make(2001, 4, 31),
          Make(1600, 12, 31), Make(2001, 1, 1, 24), Make(2001, 1, 1, 0, 60),
          Make(2001, 1, 1, 0, 0, 60), Make(2001, 1, 1, 0, 0, 0, 1000), Make(30828, 1, 1)}) {
        SetLastError(0);
        FILETIME file{};
        EXPECT_FALSE(SystemTimeToFileTime(&bad, &file)) << bad.wYear << "-" << bad.wMonth;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    }
    EXPECT_TRUE(ToFileTime(Make(30827, 12, 31, 23, 59, 59, 999)).has_value());

    const FILETIME negative = Split(0x8000000000000000ULL);
    SYSTEMTIME time{};
    EXPECT_FALSE(FileTimeToSystemTime(&negative, &time));
    EXPECT_FALSE(SystemTimeToFileTime(nullptr, nullptr));
}

TEST(SystemTime, SystemClockIsNow) {
    SYSTEMTIME now{};
    GetSystemTime(&now);
    const auto ticks = ToFileTime(now);
    ASSERT_TRUE(ticks.has_value());
    const ULONGLONG unixNow = static_cast<ULONGLONG>(std::time(nullptr));
    const ULONGLONG ours = (*ticks - 116444736000000000ULL) / 10'000'000ULL;
    EXPECT_LE(ours > unixNow ? ours - unixNow : unixNow - ours, 2u);
}

// Eastern time in Windows' terms: daylight from the second Sunday of March at 02:00 to the
// first Sunday of November at 02:00.
TIME_ZONE_INFORMATION Eastern() {
    TIME_ZONE_INFORMATION zone{};
    zone.Bias = 300;
    zone.StandardDate = Make(0, 11, 1, 2);
    zone.DaylightDate = Make(0, 3, 2, 2);
    zone.DaylightBias = -60;
    return zone;
}

// Central Europe: daylight from the last Sunday of March 01:00 UTC (02:00 standard).
TIME_ZONE_INFORMATION Central() {
    TIME_ZONE_INFORMATION zone{};
    zone.Bias = -60;
    zone.StandardDate = Make(0, 10, 5, 3);
    zone.DaylightDate = Make(0, 3, 5, 2);
    zone.DaylightBias = -60;
    return zone;
}

struct LocalCase {
    const char* what;
    const TIME_ZONE_INFORMATION* zone; // null: the system zone
    SYSTEMTIME utc;
    SYSTEMTIME local; // the fields compared; wDayOfWeek only where not zero
};

void ExpectLocal(const std::vector<LocalCase>& cases) {
    for (const LocalCase& c : cases) {
        SCOPED_TRACE(c.what);
        SYSTEMTIME local{};
        ASSERT_TRUE(SystemTimeToTzSpecificLocalTime(c.zone, &c.utc, &local));
        EXPECT_EQ(local.wYear, c.local.wYear);
        EXPECT_EQ(local.wMonth, c.local.wMonth);
        EXPECT_EQ(local.wDay, c.local.wDay);
        EXPECT_EQ(local.wHour, c.local.wHour);
        EXPECT_EQ(local.wMinute, c.local.wMinute);
        EXPECT_EQ(local.wSecond, c.local.wSecond);
        EXPECT_EQ(local.wMilliseconds, c.local.wMilliseconds);
        if (c.local.wDayOfWeek != 0) {
            EXPECT_EQ(local.wDayOfWeek, c.local.wDayOfWeek);
        }
    }
}

SYSTEMTIME OnWeekday(SYSTEMTIME time, int weekday) {
    time.wDayOfWeek = static_cast<WORD>(weekday);
    return time;
}

TEST(LocalTime, SystemZoneFollowsItsDaylightRules) {
    const ZoneScope zone("EST5EDT,M3.2.0,M11.1.0");
    ExpectLocal({
        {"summer", nullptr, Make(2021, 7, 1, 17, 5, 9, 250), Make(2021, 7, 1, 13, 5, 9, 250)},
        {"winter", nullptr, Make(2021, 1, 15, 5, 10, 0), Make(2021, 1, 15, 0, 10, 0)},
        // Across midnight into the previous day, a Thursday.
        {"new year", nullptr, Make(2021, 1, 1, 3, 0, 0), OnWeekday(Make(2020, 12, 31, 22), 4)},
    });
}

TEST(LocalTime, ExplicitZonesSwitchAtTheirTransitions) {
    const TIME_ZONE_INFORMATION eastern = Eastern();
    const TIME_ZONE_INFORMATION central = Central();
    TIME_ZONE_INFORMATION india{};
    india.Bias = -330;
    ExpectLocal({
        // 14 March 2021 is the second Sunday: 06:59 UTC is 01:59 EST, 07:00 UTC is 03:00 EDT.
        {"before spring", &eastern, Make(2021, 3, 14, 6, 59), Make(2021, 3, 14, 1, 59)},
        {"after spring", &eastern, Make(2021, 3, 14, 7, 0), Make(2021, 3, 14, 3, 0)},
        // 7 November 2021 is the first Sunday: 05:59 UTC is 01:59 EDT, 06:00 UTC is 01:00 EST.
        {"last daylight", &eastern, Make(2021, 11, 7, 5, 59), Make(2021, 11, 7, 1, 59)},
        {"first standard", &eastern, Make(2021, 11, 7, 6, 0), Make(2021, 11, 7, 1, 0)},
        // The last Sunday of March 2021 is the 28th (the 5th Sunday would be past the month's end).
        {"saturday", &central, Make(2021, 3, 27, 12), Make(2021, 3, 27, 13)},
        {"sunday", &central, Make(2021, 3, 28, 12), Make(2021, 3, 28, 14)},
        {"no daylight time", &india, Make(2021, 6, 1, 12), Make(2021, 6, 1, 17, 30)},
    });
    TIME_ZONE_INFORMATION absolute = Eastern();
    absolute.DaylightDate.wYear = 2021;
    const SYSTEMTIME noon = Make(2021, 6, 1, 12);
    SYSTEMTIME local{};
    EXPECT_FALSE(SystemTimeToTzSpecificLocalTime(&absolute, &noon, &local));
}

TEST(LocalTime, FileTimeAndLocalClockUseTheCurrentOffset) {
    const ZoneScope zone("XYZ-2"); // two hours east of UTC, no daylight time
    const ULONGLONG utc = 134774 * kTicksPerDay;
    const FILETIME in = Split(utc);
    FILETIME out{};
    ASSERT_TRUE(FileTimeToLocalFileTime(&in, &out));
    EXPECT_EQ(Join(out), utc + 2 * 3600 * 10'000'000ULL);

    SYSTEMTIME system{};
    SYSTEMTIME local{};
    GetSystemTime(&system);
    GetLocalTime(&local);
    const auto systemTicks = ToFileTime(system);
    const auto localTicks = ToFileTime(local);
    ASSERT_TRUE(systemTicks && localTicks);
    const LONGLONG difference = static_cast<LONGLONG>(*localTicks - *systemTicks);
    EXPECT_NEAR(static_cast<double>(difference) / 1e7, 7200.0, 2.0);
}

TEST(TickCount, CountsMillisecondsAndTheShortCountIsItsLowHalf) {
    const ULONGLONG before = GetTickCount64();
    const DWORD shortCount = GetTickCount();
    const ULONGLONG after = GetTickCount64();
    EXPECT_LE(static_cast<DWORD>(shortCount - static_cast<DWORD>(before)),
              static_cast<DWORD>(after - before));
    EXPECT_GT(before, 0u);
}

} // namespace
