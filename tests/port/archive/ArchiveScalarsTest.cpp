// Scalars, counts, raw bytes, buffering and the archive's modes.
#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "ArchiveTestClasses.h"
#include "support/ArchiveRoundTrip.h"

TEST(ArchiveScalars, EachTypeHasItsWindowsWidthLittleEndian) {
    const Bytes bytes = StoreBytes([](CArchive& ar) {
        ar << BYTE(0xAB) << 'A' << true << false << WORD(0x1234) << short(-2) << wchar_t(0xE9)
           << int(-1) << unsigned(0x12345678) << long(-2) << static_cast<unsigned long>(0xFFFFFFFF)
           << 0x0102030405060708LL << 1.0f << -2.5;
    });
    EXPECT_EQ(bytes, Hex("AB 41 01 00 34 12 FE FF E9 00 FF FF FF FF 78 56 34 12 FE FF FF FF"
                         " FF FF FF FF 08 07 06 05 04 03 02 01 00 00 80 3F"
                         " 00 00 00 00 00 00 04 C0"));

    LoadBytes(bytes, [](CArchive& ar) {
        BYTE by;
        char ch;
        bool b1, b2;
        WORD w;
        short s;
        wchar_t wc;
        int i;
        unsigned u;
        long l;
        unsigned long ul;
        long long ll;
        float f;
        double d;
        ar >> by >> ch >> b1 >> b2 >> w >> s >> wc >> i >> u >> l >> ul >> ll >> f >> d;
        EXPECT_EQ(std::tuple(by, ch, b1, b2, w, s, wc, i, u, l, ul, ll, f, d),
                  std::tuple(BYTE(0xAB), 'A', true, false, WORD(0x1234), short(-2), L'\u00E9', -1,
                             0x12345678u, -2L, 0xFFFFFFFFul, 0x0102030405060708LL, 1.0f, -2.5));
    });
}

TEST(ArchiveScalars, WindowsNamedSixtyFourBitTypesTakeEightBytesAndBoolTakesAnyNonZero) {
    // LONGLONG and ULONGLONG must not be the 4-byte long of this platform.
    EXPECT_EQ(ArchiveCause([] {
                  EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << LONGLONG(-2); }),
                            Hex("FE FF FF FF FF FF FF FF"));
                  EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << ULONGLONG(0x100000000ULL); }),
                            Hex("00 00 00 00 01 00 00 00"));
              }),
              -1);
    LoadBytes(Hex("7F"), [](CArchive& ar) {
        bool b = false;
        ar >> b;
        EXPECT_TRUE(b);
    });
}

TEST(ArchiveScalars, LongThatDoesNotFitFourBytesIsAnError) {
    EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << long(-2147483647 - 1); }), Hex("00 00 00 80"));
    const std::function<void(CArchive&)> tooWide[] = {
        [](CArchive& ar) { ar << long(0x80000000L); },
        [](CArchive& ar) { ar << long(-2147483649L); },
        [](CArchive& ar) { ar << static_cast<unsigned long>(0x100000000UL); },
    };
    for (const auto& write : tooWide)
        EXPECT_EQ(ArchiveCause([&] { StoreBytes(write); }), CArchiveException::genericException);
}

TEST(ArchiveScalars, ShortTypedReadThrowsEndOfFileButRawReadAnswersTheCount) {
    EXPECT_EQ(LoadCause(Hex("01 02"),
                        [](CArchive& ar) {
                            int i;
                            ar >> i;
                        }),
              CArchiveException::endOfFile);
    LoadBytes(Hex("01 02"), [](CArchive& ar) {
        BYTE buffer[4] = {};
        EXPECT_EQ(ar.Read(buffer, 4), 2u);
        EXPECT_EQ(buffer[1], 0x02);
        EXPECT_EQ(ar.Read(buffer, 4), 0u);
    });
}

TEST(ArchiveScalars, WrongDirectionThrowsReadOnlyOrWriteOnly) {
    EXPECT_EQ(LoadCause(Hex("01 00 00 00"), [](CArchive& ar) { ar << 1; }),
              CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([] {
                  StoreBytes([](CArchive& ar) {
                      int i;
                      ar >> i;
                  });
              }),
              CArchiveException::writeOnly);
}

TEST(ArchiveCounts, EachRangeTakesItsForm) {
    const std::pair<DWORD_PTR, const char*> cases[] = {
        {0, "00 00"},
        {0xFFFE, "FE FF"},
        {0xFFFF, "FF FF FF FF 00 00"},
        {0xFFFFFFFE, "FF FF FE FF FF FF"},
        {0xFFFFFFFF, "FF FF FF FF FF FF FF FF FF FF 00 00 00 00"},
        {0x100000000, "FF FF FF FF FF FF 00 00 00 00 01 00 00 00"},
    };
    for (const auto& [count, hex] : cases) {
        SCOPED_TRACE(hex);
        EXPECT_EQ(StoreBytes([count = count](CArchive& ar) { ar.WriteCount(count); }), Hex(hex));
        LoadBytes(Hex(hex), [count = count](CArchive& ar) { EXPECT_EQ(ar.ReadCount(), count); });
    }
}

TEST(ArchiveBuffer, ValuesCrossingBufferBoundsAndLargeBlocksSurvive) {
    // 10000 ints cross the 4096-byte buffer many times; a large raw block goes around it.
    Bytes block(10000);
    for (size_t i = 0; i < block.size(); ++i)
        block[i] = static_cast<BYTE>(i * 7);
    const Bytes bytes = StoreBytes([&](CArchive& ar) {
        ar << BYTE(1);
        for (int i = 0; i < 10000; ++i)
            ar << i;
        ar.Write(block.data(), static_cast<UINT>(block.size()));
        ar << 0.5;
    });
    ASSERT_EQ(bytes.size(), 1u + 40000 + 10000 + 8);
    EXPECT_EQ(bytes[1 + 4 * 258], 2); // int 258 = 02 01 00 00
    EXPECT_EQ(bytes[1 + 4 * 258 + 1], 1);
    LoadBytes(bytes, [&](CArchive& ar) {
        BYTE first;
        ar >> first;
        for (int i = 0; i < 10000; ++i) {
            int v;
            ar >> v;
            ASSERT_EQ(v, i);
        }
        Bytes back(block.size());
        EXPECT_EQ(ar.Read(back.data(), static_cast<UINT>(back.size())), back.size());
        EXPECT_EQ(back, block);
        double d;
        ar >> d;
        EXPECT_EQ(d, 0.5);
        EXPECT_TRUE(ar.IsBufferEmpty());
    });
}

TEST(ArchiveLifeCycle, ClosingALoadingArchiveGivesBackUnreadBytes) {
    CMemFile file;
    const Bytes data = Hex("01 00 00 00 02 00 00 00 03 00 00 00");
    file.Write(data.data(), static_cast<UINT>(data.size()));
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load);
    EXPECT_EQ(ar.GetFile(), &file);
    int i;
    ar >> i;
    ar.Close();
    EXPECT_EQ(file.GetPosition(), 4u);
    EXPECT_EQ(ar.GetFile(), nullptr);
}

TEST(ArchiveLifeCycle, DestructorWritesWhatWasNotClosedAndAbortDropsIt) {
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        ar << 7;
    }
    EXPECT_EQ(file.GetLength(), 4u);
    {
        CArchive ar(&file, CArchive::store);
        ar << 8;
        ar.Abort();
    }
    EXPECT_EQ(file.GetLength(), 4u);
}

TEST(ArchiveText, LinesOfUtf16Units) {
    const Bytes bytes = StoreBytes([](CArchive& ar) {
        ar.WriteString(L"ab\r\n");
        ar.WriteString(L"\n");
        ar.WriteString(L"\U0001F600c");
    });
    EXPECT_EQ(bytes, Hex("61 00 62 00 0D 00 0A 00 0A 00 3D D8 00 DE 63 00"));
    LoadBytes(bytes, [](CArchive& ar) {
        CString line;
        EXPECT_TRUE(ar.ReadString(line));
        EXPECT_EQ(line, L"ab");
        EXPECT_TRUE(ar.ReadString(line));
        EXPECT_EQ(line, L"");
        EXPECT_TRUE(ar.ReadString(line));
        EXPECT_EQ(line, L"\U0001F600c");
        EXPECT_FALSE(ar.ReadString(line));
    });
    LoadBytes(Hex("61 00 62 00 63 00 0A 00"), [](CArchive& ar) {
        wchar_t buffer[8];
        EXPECT_EQ(ar.ReadString(buffer, 2), buffer);
        EXPECT_STREQ(buffer, L"ab");
        EXPECT_EQ(ar.ReadString(buffer, 7), buffer);
        EXPECT_STREQ(buffer, L"c");
        EXPECT_EQ(ar.ReadString(buffer, 7), nullptr);
    });
}
