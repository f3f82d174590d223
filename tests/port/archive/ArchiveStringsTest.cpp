// Strings: the Unicode mark, the three length forms, code pages and surrogate pairs.
#include <gtest/gtest.h>

#include "ArchiveTestClasses.h"
#include "support/ArchiveRoundTrip.h"

namespace {

Bytes Prefix(const Bytes& bytes, size_t n) {
    return Bytes(bytes.begin(), bytes.begin() + n);
}

} // namespace

TEST(ArchiveStrings, WideStringsCarryTheUnicodeMark) {
    EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << CString(); }), Hex("FF FE FF 00"));
    EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << CString(L"ab"); }),
              Hex("FF FE FF 02 61 00 62 00"));
    EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << L"ab"; }), Hex("FF FE FF 02 61 00 62 00"));
}

TEST(ArchiveStrings, WideLengthForms) {
    const std::pair<int, const char*> cases[] = {
        {254, "FF FE FF FE"},
        {255, "FF FE FF FF FF 00"},
        {0xFFFD, "FF FE FF FF FD FF"},
        {0xFFFE, "FF FE FF FF FF FF FE FF 00 00"},
    };
    for (const auto& [length, hex] : cases) {
        SCOPED_TRACE(hex);
        const CString text(L'x', length);
        const Bytes bytes = StoreBytes([&](CArchive& ar) { ar << text; });
        const Bytes header = Hex(hex);
        ASSERT_EQ(bytes.size(), header.size() + 2 * static_cast<size_t>(length));
        EXPECT_EQ(Prefix(bytes, header.size()), header);
        EXPECT_EQ(bytes[header.size()], 'x');
        EXPECT_EQ(bytes[header.size() + 1], 0);
        LoadBytes(bytes, [&](CArchive& ar) {
            CString back;
            ar >> back;
            EXPECT_EQ(back, text);
        });
    }
}

TEST(ArchiveStrings, EightBitLengthFormsAvoidTheMark) {
    const std::pair<int, const char*> cases[] = {
        {254, "FE"},
        {255, "FF FF 00"},
        {0xFFFD, "FF FD FF"},
        {0xFFFE, "FF FF FF FE FF 00 00"},
    };
    for (const auto& [length, hex] : cases) {
        SCOPED_TRACE(hex);
        const CStringA text('y', length);
        const Bytes bytes = StoreBytes([&](CArchive& ar) { ar << text; });
        const Bytes header = Hex(hex);
        ASSERT_EQ(bytes.size(), header.size() + static_cast<size_t>(length));
        EXPECT_EQ(Prefix(bytes, header.size()), header);
        LoadBytes(bytes, [&](CArchive& ar) {
            CStringA back;
            ar >> back;
            EXPECT_EQ(back, text);
        });
    }
}

TEST(ArchiveStrings, QuadWordLengthsLoad) {
    LoadBytes(Hex("FF FF FF FF FF FF FF 02 00 00 00 00 00 00 00 61 62"), [](CArchive& ar) {
        CString text;
        ar >> text;
        EXPECT_EQ(text, L"ab");
    });
    LoadBytes(Hex("FF FE FF FF FF FF FF FF FF FF 01 00 00 00 00 00 00 00 41 00"), [](CArchive& ar) {
        CString text;
        ar >> text;
        EXPECT_EQ(text, L"A");
    });
}

TEST(ArchiveStrings, CharactersBeyondTheBasicPlaneAreSurrogatePairs) {
    const CString text(L"\U0001F600a");
    const Bytes bytes = StoreBytes([&](CArchive& ar) { ar << text; });
    EXPECT_EQ(bytes, Hex("FF FE FF 03 3D D8 00 DE 61 00"));
    LoadBytes(bytes, [&](CArchive& ar) {
        CString back;
        ar >> back;
        EXPECT_EQ(back, text);
    });
}

TEST(ArchiveStrings, EightBitTextIsWindows1252) {
    // 0x80 is the euro sign and 0xE9 e-acute in Windows-1252.
    LoadBytes(Hex("02 80 E9 02 80 E9"), [](CArchive& ar) {
        CString wide;
        CStringA narrow;
        ar >> wide >> narrow;
        EXPECT_EQ(wide, L"\u20AC\u00E9");
        EXPECT_EQ(narrow, "\xE2\x82\xAC\xC3\xA9"); // UTF-8 here
    });
    EXPECT_EQ(StoreBytes([](CArchive& ar) { ar << CStringA("\xE2\x82\xAC\xC3\xA9"); }),
              Hex("02 80 E9"));
}

TEST(ArchiveStrings, NarrowTextOutsideTheCodePageIsWrittenAsUnicode) {
    // Omega is not in Windows-1252; the Unicode form keeps it.
    const Bytes bytes = StoreBytes([](CArchive& ar) { ar << CStringA("\xCE\xA9"); });
    EXPECT_EQ(bytes, Hex("FF FE FF 01 A9 03"));
    LoadBytes(bytes, [](CArchive& ar) {
        CStringA back;
        ar >> back;
        EXPECT_EQ(back, "\xCE\xA9");
    });
}

TEST(ArchiveStrings, DamagedLengthEndsAtTheEndOfTheData) {
    EXPECT_EQ(LoadCause(Hex("FF FF FF F0 FF FF FF 61 62"),
                        [](CArchive& ar) {
                            CString text;
                            ar >> text;
                        }),
              CArchiveException::endOfFile);
    EXPECT_EQ(LoadCause(Hex("FF FE FF 05 61 00 62"),
                        [](CArchive& ar) {
                            CString text;
                            ar >> text;
                        }),
              CArchiveException::endOfFile);
}
