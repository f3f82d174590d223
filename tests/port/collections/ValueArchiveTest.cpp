// The archive forms of points, sizes, rectangles, times and spans, written out by hand.
#include <afx.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "support/ArchiveRoundTrip.h"

TEST(ValueArchiveTest, PointSizeAndRectAreRawStructures) {
    const Bytes expected{0x01, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0xFF,  // CPoint(1, -1)
                         0x02, 0x01, 0x00, 0x00, 0x03, 0x00, 0x00, 0x00,  // CSize(0x102, 3)
                         0x01, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00,  // CRect(1, 2,
                         0x03, 0x00, 0x00, 0x00, 0x04, 0x00, 0x00, 0x00}; //       3, 4)
    EXPECT_EQ(StoreBytes([](CArchive& ar) {
                  ar << CPoint(1, -1) << CSize(0x102, 3);
                  ar << CRect(1, 2, 3, 4);
              }),
              expected);
    CPoint point;
    CSize size;
    CRect rect;
    EXPECT_EQ(LoadBytes(expected, [&](CArchive& ar) { ar >> point >> size >> rect; }), 0u);
    EXPECT_EQ(point, CPoint(1, -1));
    EXPECT_EQ(size, CSize(0x102, 3));
    EXPECT_EQ(rect, CRect(1, 2, 3, 4));
}

TEST(ValueArchiveTest, TimeIsTheMarkThenSixtyFourBits) {
    const Bytes expected{0x0A, 0x00, 0x00, 0x80, 0x78, 0x56, 0x34, 0x12, 0x01, 0x00, 0x00, 0x00};
    EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << CTime(0x112345678LL); }), expected);
    CTime time;
    EXPECT_EQ(LoadBytes(expected, [&](CArchive& ar) { ar >> time; }), 0u);
    EXPECT_EQ(time.GetTime(), 0x112345678LL);
}

TEST(ValueArchiveTest, TimeLoadsTheOlderThirtyTwoBitForm) {
    CTime time;
    // 1600000000 = 0x5F5E1000.
    EXPECT_EQ(LoadBytes(Bytes{0x00, 0x10, 0x5E, 0x5F}, [&](CArchive& ar) { ar >> time; }), 0u);
    EXPECT_EQ(time.GetTime(), 1600000000);
    // Signed: 0xFFFFFFFF is one second before 1970.
    EXPECT_EQ(LoadBytes(Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0xAA}, [&](CArchive& ar) { ar >> time; }),
              1u);
    EXPECT_EQ(time.GetTime(), -1);
    // The mark without its 64-bit value is cut short.
    EXPECT_EQ(ArchiveCause([&] {
                  LoadBytes(Bytes{0x0A, 0x00, 0x00, 0x80, 0x01}, [&](CArchive& ar) { ar >> time; });
              }),
              CArchiveException::endOfFile);
}

TEST(ValueArchiveTest, TimeSpanIsThirtyTwoBitSeconds) {
    // One day, one hour, one minute, one second: 90061 = 0x00015FCD.
    const Bytes expected{0xCD, 0x5F, 0x01, 0x00, 0xFF, 0xFF, 0xFF, 0xFF};
    EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << CTimeSpan(1, 1, 1, 1) << CTimeSpan(-1); }),
              expected);
    CTimeSpan a;
    CTimeSpan b;
    EXPECT_EQ(LoadBytes(expected, [&](CArchive& ar) { ar >> a >> b; }), 0u);
    EXPECT_EQ(a.GetTotalSeconds(), 90061);
    EXPECT_EQ(b.GetTotalSeconds(), -1);
    // A span that does not fit in 32 bits is refused rather than cut.
    EXPECT_EQ(
        ArchiveCause([] { StoreBytes([](CArchive& ar) { ar << CTimeSpan(0x100000000LL); }); }),
        CArchiveException::genericException);
}
