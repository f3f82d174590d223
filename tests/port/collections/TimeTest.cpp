// CTime and CTimeSpan: local-time fields, formatting and arithmetic.
#include <cstdlib>
#include <ctime>

#include <afx.h>
#include <gtest/gtest.h>

#include "support/ArchiveRoundTrip.h"

namespace {

// Runs the tests of this file in a fixed zone, whatever the machine's.
class TimeZoneTest : public ::testing::Test {
protected:
    void SetUp() override {
        const char* old = std::getenv("TZ");
        m_hadZone = old != nullptr;
        if (old)
            m_oldZone = old;
        setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
        tzset();
    }
    void TearDown() override {
        if (m_hadZone)
            setenv("TZ", m_oldZone.c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

private:
    bool m_hadZone = false;
    std::string m_oldZone;
};

} // namespace

using CTimeTest = TimeZoneTest;

TEST_F(CTimeTest, LocalFieldsRoundTripAndSummerTimeComesFromTheZone) {
    // 2024-01-15 12:30:45 in UTC+1 is 11:30:45 UTC: 19737 days * 86400 + 41445 = 1705318245.
    CTime t(2024, 1, 15, 12, 30, 45);
    EXPECT_EQ(t.GetTime(), 1705318245);
    EXPECT_EQ(t.GetYear(), 2024);
    EXPECT_EQ(t.GetMonth(), 1);
    EXPECT_EQ(t.GetDay(), 15);
    EXPECT_EQ(t.GetHour(), 12);
    EXPECT_EQ(t.GetMinute(), 30);
    EXPECT_EQ(t.GetSecond(), 45);
    // 15 January 2024 was a Monday: Sunday is 1.
    EXPECT_EQ(t.GetDayOfWeek(), 2);
    // 1 July 2024 12:00 CEST (UTC+2) is 10:00 UTC: 19905 days * 86400 + 36000.
    const CTime summer(2024, 7, 1, 12, 0, 0);
    EXPECT_EQ(summer.GetTime(), 1719828000);
    EXPECT_EQ(summer.GetHour(), 12);
}

TEST_F(CTimeTest, FormatUsesStrftimeInLocalOrUniversalTime) {
    CTime t(2024, 1, 15, 12, 30, 45);
    EXPECT_EQ(t.Format(L"%Y-%m-%d %H:%M:%S"), L"2024-01-15 12:30:45");
    EXPECT_EQ(t.FormatGmt(L"%H:%M"), L"11:30");
    EXPECT_EQ(t.Format(L"%%"), L"%");
    EXPECT_EQ(t.Format(L""), L"");
}

TEST_F(CTimeTest, OutOfRangeFieldsAreInvalidArguments) {
    const int fields[][5] = {{1899, 1, 1, 0, 0},
                             {2000, 13, 1, 0, 0},
                             {2000, 1, 0, 0, 0},
                             {2000, 1, 1, 24, 0},
                             {2000, 1, 1, 0, 60}};
    for (const auto& f : fields)
        EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] {
            CTime(f[0], f[1], f[2], f[3], f[4], 0);
        })) << f[0]
            << "-" << f[1] << "-" << f[2] << " " << f[3] << ":" << f[4];
}

TEST_F(CTimeTest, ArithmeticWithSpans) {
    CTime a(2024, 2, 28, 23, 0, 0);
    CTime b = a + CTimeSpan(1, 2, 0, 0);
    // 2024 is a leap year: one day and two hours later is 1 March, 01:00.
    EXPECT_EQ(b.GetMonth(), 3);
    EXPECT_EQ(b.GetDay(), 1);
    EXPECT_EQ(b.GetHour(), 1);
    EXPECT_EQ((b - a).GetTotalHours(), 26);
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(b - CTimeSpan(93600) == a);
    b -= CTimeSpan(0, 26, 0, 0);
    EXPECT_EQ(a, b);
    const CTime now = CTime::GetCurrentTime();
    EXPECT_GT(now.GetYear(), 2023);
}

TEST(CTimeSpanTest, PartsAndTotals) {
    CTimeSpan span(2, 3, 4, 5);
    EXPECT_EQ(span.GetTotalSeconds(), 2 * 86400 + 3 * 3600 + 4 * 60 + 5);
    EXPECT_EQ(span.GetDays(), 2);
    EXPECT_EQ(span.GetHours(), 3);
    EXPECT_EQ(span.GetTotalHours(), 51);
    EXPECT_EQ(span.GetMinutes(), 4);
    EXPECT_EQ(span.GetTotalMinutes(), 51 * 60 + 4);
    EXPECT_EQ(span.GetSeconds(), 5);
    EXPECT_EQ(span.Format(L"%D days %H:%M:%S %%"), L"2 days 03:04:05 %");
    EXPECT_EQ(CTimeSpan(0, 0, 0, 7).Format(L"%S%Q"), L"07%Q");
    EXPECT_EQ((span - CTimeSpan(2, 0, 0, 0)).GetTotalSeconds(), 11045);
    EXPECT_TRUE(CTimeSpan(1) < CTimeSpan(2));
}
