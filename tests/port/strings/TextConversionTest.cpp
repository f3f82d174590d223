#include <gtest/gtest.h>

#include "port/TextConversion.h"

namespace {

TEST(Utf16, SupplementaryCharactersBecomeSurrogatePairs) {
    EXPECT_EQ(port::ToUtf16(L"\U0001F600"), (std::u16string{0xD83D, 0xDE00}));
    EXPECT_EQ(port::FromUtf16(std::u16string{0xD83D, 0xDE00}), L"\U0001F600");
    // The edges of the planes.
    EXPECT_EQ(port::ToUtf16(L"\uFFFF\U00010000\U0010FFFF"),
              (std::u16string{0xFFFF, 0xD800, 0xDC00, 0xDBFF, 0xDFFF}));
    const std::wstring text = L"A\u00E9\u20AC\U0001F600\U0010FFFF";
    EXPECT_EQ(port::FromUtf16(port::ToUtf16(text)), text);
}

TEST(Utf16, LoneSurrogatesReadAsReplacementCharacter) {
    EXPECT_EQ(port::FromUtf16(std::u16string{u'a', 0xD800, u'b'}), L"a\uFFFDb");
    EXPECT_EQ(port::FromUtf16(std::u16string{0xDC00, u'x'}), L"\uFFFDx");
    EXPECT_EQ(port::FromUtf16(std::u16string{u'x', 0xD83D}), L"x\uFFFD");
    // A pair in the wrong order is two lone surrogates.
    EXPECT_EQ(port::FromUtf16(std::u16string{0xDE00, 0xD83D}), L"\uFFFD\uFFFD");
    // Wide units that are no character cannot be written as UTF-16 either.
    EXPECT_EQ(port::ToUtf16(std::wstring{L'a', wchar_t(0xD800), wchar_t(0x110000)}),
              (std::u16string{u'a', 0xFFFD, 0xFFFD}));
}

TEST(Utf8, DecodesAndEncodesAllLengths) {
    EXPECT_EQ(port::NarrowToWide("h\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"),
              L"h\u00E9\u20AC\U0001F600");
    EXPECT_EQ(port::WideToNarrow(L"h\u00E9\u20AC\U0001F600"),
              "h\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(port::WideToNarrow(std::wstring{wchar_t(0x110000)}), "\xEF\xBF\xBD");
    EXPECT_EQ(port::NarrowToWide(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(Utf8, InvalidBytesBecomeReplacementCharacters) {
    EXPECT_EQ(port::NarrowToWide("\xFF"), L"\uFFFD");
    EXPECT_EQ(port::NarrowToWide("ab\xC3"), L"ab\uFFFD"); // cut short at the end
    EXPECT_EQ(port::NarrowToWide("\xE2\x82"
                                 "A"),
              L"\uFFFD"
              "A");                                             // one mark per broken sequence
    EXPECT_EQ(port::NarrowToWide("\xC0\xAF"), L"\uFFFD\uFFFD"); // overlong '/'
    EXPECT_EQ(port::NarrowToWide("\xE0\x80\xAF"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(port::NarrowToWide("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD"); // encoded surrogate
    EXPECT_EQ(port::NarrowToWide("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD"); // > U+10FFFF
    EXPECT_EQ(port::NarrowToWide("\x80x"), L"\uFFFDx");
}

TEST(Cp1252, HighBlockMapsAsWindowsDoes) {
    EXPECT_EQ(port::FromCp1252("\x80"), L"\u20AC");
    EXPECT_EQ(port::FromCp1252("\x85\x8A\x91\x92\x99\x9F"),
              L"\u2026\u0160\u2018\u2019\u2122\u0178");
    EXPECT_EQ(port::FromCp1252("\x81\x8D\x8F\x90\x9D"), L"\u0081\u008D\u008F\u0090\u009D");
    EXPECT_EQ(port::FromCp1252("A\xA0\xE9\xFF"), L"A\u00A0\u00E9\u00FF");
    EXPECT_EQ(port::ToCp1252(L"\u20AC\u0178\u00E9"), "\x80\x9F\xE9");
    EXPECT_EQ(port::ToCp1252(L"\u4E2D\U0001F600\u0080"), "???");
}

TEST(Cp1252, EveryByteRoundTrips) {
    std::string all;
    for (int b = 0; b < 256; ++b)
        all += static_cast<char>(b);
    EXPECT_EQ(port::ToCp1252(port::FromCp1252(all)), all);
}

} // namespace
