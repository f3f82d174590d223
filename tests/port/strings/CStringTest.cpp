#include <gtest/gtest.h>

#include <cwchar>

#include "mfc/CString.h"

namespace {

TEST(CStringExtract, MidLeftRightClampTheirArguments) {
    const CString s(L"Hello");
    EXPECT_EQ(s.Mid(1, 3), L"ell");
    EXPECT_EQ(s.Mid(-2, 3), L"Hel");
    EXPECT_EQ(s.Mid(3, 100), L"lo");
    EXPECT_EQ(s.Mid(3), L"lo");
    EXPECT_EQ(s.Mid(10), L"");
    EXPECT_EQ(s.Mid(2, -1), L"");
    EXPECT_EQ(s.Left(-1), L"");
    EXPECT_EQ(s.Left(2), L"He");
    EXPECT_EQ(s.Left(10), L"Hello");
    EXPECT_EQ(s.Right(2), L"lo");
    EXPECT_EQ(s.Right(99), L"Hello");
    EXPECT_EQ(s.Right(-3), L"");
    EXPECT_EQ(CString(L"cabbage").SpanIncluding(L"abc"), L"cabba");
    EXPECT_EQ(CString(L"Hello World! Goodbye!").SpanExcluding(L".!?"), L"Hello World");
    EXPECT_EQ(CString(L"abc").SpanExcluding(L""), L"abc");
}

TEST(CStringSearch, FindAnswersIndexOrMinusOne) {
    const CString s(L"abcabc");
    EXPECT_EQ(s.Find(L'c'), 2);
    EXPECT_EQ(s.Find(L'c', 3), 5);
    EXPECT_EQ(s.Find(L'c', 6), -1);
    EXPECT_EQ(s.Find(L'c', -1), -1);
    EXPECT_EQ(s.Find(L'z'), -1);
    EXPECT_EQ(s.Find(L"bc", 2), 4);
    EXPECT_EQ(s.Find(L"bc", 7), -1);
    EXPECT_EQ(s.Find(L"cab"), 2);
    EXPECT_EQ(s.ReverseFind(L'a'), 3);
    EXPECT_EQ(s.ReverseFind(L'x'), -1);
    EXPECT_EQ(s.FindOneOf(L"xc"), 2);
    EXPECT_EQ(s.FindOneOf(L""), -1);
}

TEST(CStringEdit, ReplaceRemoveInsertDelete) {
    CString s(L"a-b-c");
    EXPECT_EQ(s.Replace(L'-', L'+'), 2);
    EXPECT_EQ(s, L"a+b+c");
    s = L"aaaaa";
    EXPECT_EQ(s.Replace(L"aa", L"b"), 2); // left to right, no overlap
    EXPECT_EQ(s, L"bba");
    EXPECT_EQ(s.Replace(L"", L"x"), 0);
    s = L"abab";
    EXPECT_EQ(s.Replace(L"ab", L"abab"), 2); // the inserted text is not searched again
    EXPECT_EQ(s, L"abababab");
    s = L"abc";
    EXPECT_EQ(s.Replace(L"b", nullptr), 1);
    EXPECT_EQ(s, L"ac");

    s = L"banana";
    EXPECT_EQ(s.Remove(L'a'), 3);
    EXPECT_EQ(s, L"bnn");

    s = L"abc";
    EXPECT_EQ(s.Insert(1, L'X'), 4);
    EXPECT_EQ(s.Insert(-5, L"<"), 5);
    EXPECT_EQ(s.Insert(100, L">"), 6);
    EXPECT_EQ(s, L"<aXbc>");

    s = L"abcdef";
    EXPECT_EQ(s.Delete(1, 2), 4);
    EXPECT_EQ(s, L"adef");
    EXPECT_EQ(s.Delete(-3, 1), 3);
    EXPECT_EQ(s, L"def");
    EXPECT_EQ(s.Delete(1, 99), 1);
    EXPECT_EQ(s.Delete(5), 1);
    EXPECT_EQ(s.Delete(0, -2), 1);
    EXPECT_EQ(s, L"d");
}

TEST(CStringEdit, CaseReverseAndTrim) {
    CString s(L"\u00C4b\u00DFC");
    EXPECT_EQ(CString(s).MakeLower(), L"\u00E4b\u00DFc");
    EXPECT_EQ(CString(s).MakeUpper(), L"\u00C4B\u00DFC");
    EXPECT_EQ(CString(L"abc").MakeReverse(), L"cba");
    // Narrow text is UTF-8: only its ASCII letters change.
    EXPECT_EQ(CStringA("\xC3\xA4"
                       "bC")
                  .MakeUpper(),
              "\xC3\xA4"
              "BC");

    EXPECT_EQ(CString(L" \t x y \r\n").Trim(), L"x y");
    EXPECT_EQ(CString(L" \t x y \r\n").TrimLeft(), L"x y \r\n");
    EXPECT_EQ(CString(L" \t x y \r\n").TrimRight(), L" \t x y");
    EXPECT_EQ(CString(L"xxaxx").TrimRight(L'x'), L"xxa");
    EXPECT_EQ(CString(L"xxaxx").TrimLeft(L'x'), L"axx");
    EXPECT_EQ(CString(L"-=a=-b=-").Trim(L"-="), L"a=-b");
    EXPECT_EQ(CString(L"    ").Trim(), L"");
}

TEST(CStringCompare, OrdinalNoCaseAndCollate) {
    EXPECT_EQ(CString(L"abc").Compare(L"abd"), -1);
    EXPECT_EQ(CString(L"abc").Compare(L"abc"), 0);
    EXPECT_EQ(CString(L"b").Compare(L"a"), 1);
    EXPECT_EQ(CString(L"a").Compare(nullptr), 1);
    EXPECT_EQ(CString().Compare(nullptr), 0);
    EXPECT_EQ(CString(L"abc").CompareNoCase(L"ABC"), 0);
    // Both sides are lowered: '_' (0x5F) sorts before 'a' (0x61), not after 'A' (0x41).
    EXPECT_EQ(CString(L"_").CompareNoCase(L"A"), -1);
    EXPECT_EQ(CString(L"\u00E4").CompareNoCase(L"\u00C4"), 0);
    EXPECT_EQ(CString(L"a").Collate(L"b"), -1);
    EXPECT_EQ(CString(L"abc").CollateNoCase(L"ABC"), 0);
    // Narrow text orders by unsigned byte, so UTF-8 sorts after ASCII.
    EXPECT_GT(CStringA("\xC3\xA9"), CStringA("z"));
}

TEST(CStringTokenize, SkipsLeadingDelimitersAndEndsWithMinusOne) {
    const CString s(L"%First Second#Third");
    int pos = 0;
    EXPECT_EQ(s.Tokenize(L"% #", pos), L"First");
    EXPECT_EQ(s.Tokenize(L"% #", pos), L"Second");
    EXPECT_EQ(s.Tokenize(L"% #", pos), L"Third");
    EXPECT_EQ(s.Tokenize(L"% #", pos), L"");
    EXPECT_EQ(pos, -1);

    const CString t(L",,a,,b,,");
    pos = 0;
    EXPECT_EQ(t.Tokenize(L",", pos), L"a");
    EXPECT_EQ(pos, 4);
    EXPECT_EQ(t.Tokenize(L",", pos), L"b");
    EXPECT_EQ(pos, 7);
    EXPECT_EQ(t.Tokenize(L",", pos), L"");
    EXPECT_EQ(pos, -1);

    pos = 0;
    EXPECT_EQ(CString().Tokenize(L",", pos), L"");
    EXPECT_EQ(pos, -1);
    pos = 1;
    EXPECT_EQ(CString(L"abc").Tokenize(L"", pos), L"bc");
    EXPECT_EQ(CString(L"abc").Tokenize(L"", pos), L"");
    EXPECT_EQ(pos, -1);
}

TEST(CStringBuffer, GetBufferAndReleaseBuffer) {
    CString s;
    wchar_t* p = s.GetBuffer(10);
    std::wcscpy(p, L"abc");
    s.ReleaseBuffer();
    EXPECT_EQ(s.GetLength(), 3);
    EXPECT_EQ(s, L"abc");

    p = s.GetBufferSetLength(4);
    std::wmemcpy(p, L"wxyz", 4);
    s.ReleaseBuffer(2);
    EXPECT_EQ(s, L"wx");

    s = L"hello";
    s.GetBuffer()[1] = L'\0';
    s.ReleaseBuffer();
    EXPECT_EQ(s, L"h");

    s = L"keep";
    s.GetBuffer(2); // a smaller request keeps the text
    s.ReleaseBuffer();
    EXPECT_EQ(s, L"keep");
}

TEST(CStringOperators, LiteralsCompareAndConcatenate) {
    CString s = L"x";
    EXPECT_TRUE(s == L"x");
    EXPECT_TRUE(L"x" == s);
    EXPECT_TRUE(s != L"y");
    EXPECT_FALSE(s == static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(CString() == static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(s < L"y");
    EXPECT_TRUE(L"w" < s);
    EXPECT_TRUE(s >= CString(L"x"));
    EXPECT_TRUE(s <= L"x");
    EXPECT_TRUE(s > L"");
    EXPECT_EQ(L"a" + s, L"ax");
    EXPECT_EQ(s + L"b", L"xb");
    EXPECT_EQ(s + L'y', L"xy");
    EXPECT_EQ(L'w' + s, L"wx");
    s += L"1";
    s += L'2';
    s += CString(L"3");
    s += "4"; // narrow text converts
    EXPECT_EQ(s, L"x1234");
    const wchar_t* raw = s;
    EXPECT_EQ(std::wcslen(raw), 5u);
    EXPECT_EQ(s[0], L'x');
    EXPECT_EQ(s[std::size_t{4}], L'4');
    EXPECT_EQ(CString(L'-', 3), L"---");
    EXPECT_EQ(CString(L"abcdef", 3), L"abc");
}

TEST(CStringEdit, AppendTruncateSetString) {
    CString s;
    s.Append(L"ab");
    s.Append(L"cdef", 2);
    s.Append(nullptr);
    s.AppendChar(L'!');
    EXPECT_EQ(s, L"abcd!");
    s.Truncate(2);
    EXPECT_EQ(s, L"ab");
    s.Truncate(10);
    EXPECT_EQ(s, L"ab");
    s.SetString(L"xyz", 2);
    EXPECT_EQ(s, L"xy");
    s.SetString(nullptr);
    EXPECT_TRUE(s.IsEmpty());
}

TEST(CStringOperators, WidthsConvertThroughUtf8) {
    const CStringA narrow("h\xC3\xA9");
    const CString wide(narrow);
    EXPECT_EQ(wide, L"h\u00E9");
    EXPECT_EQ(CStringA(wide), narrow);
    CString assigned;
    assigned = narrow;
    EXPECT_EQ(assigned, L"h\u00E9");
    CStringA back;
    back = L"\u20AC";
    EXPECT_EQ(back, "\xE2\x82\xAC");
    const CString fromLiteral = "abc";
    EXPECT_EQ(fromLiteral, L"abc");
}

} // namespace
