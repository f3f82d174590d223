// Expected texts are worked out from the Microsoft runtime's documented printf rules.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "mfc/CString.h"

namespace {

template <typename... A> CString F(const wchar_t* format, A... args) {
    CString s;
    s.Format(format, args...);
    return s;
}

template <typename... A> CStringA FA(const char* format, A... args) {
    CStringA s;
    s.Format(format, args...);
    return s;
}

void* Address(std::uintptr_t value) {
    return reinterpret_cast<void*>(value);
}

TEST(FormatDumpLines, ObjectDumpTexts) {
    EXPECT_EQ(F(L"\n Address of this: %p", Address(0x1234ABCD)),
              L"\n Address of this: 000000001234ABCD");
    EXPECT_EQ(F(L"\n Address of this: %p", nullptr), L"\n Address of this: 0000000000000000");
    EXPECT_EQ(
        F(L"\n ObjectClassName : %s,  Address of pObj: %p", L"OrvObject", Address(0x7FF6A0B1C2D3)),
        L"\n ObjectClassName : OrvObject,  Address of pObj: 00007FF6A0B1C2D3");
    EXPECT_EQ(F(L"\n m_Data: %8.6f", 3.14159265), L"\n m_Data: 3.141593");
    EXPECT_EQ(F(L"\n m_RefPosOfObject: %8.6f %8.6f %8.6f", -1.5, 0.0, 2.25),
              L"\n m_RefPosOfObject: -1.500000 0.000000 2.250000");
}

TEST(FormatDumpLines, ExceptionReportAndOtherLibraryTexts) {
    EXPECT_EQ(F(L"Error type          :    %s (0x%08x)\r\n", L"Access violation", 0xC0000005u),
              L"Error type          :    Access violation (0xc0000005)\r\n");
    EXPECT_EQ(F(L"Error at            :    %04x:%08x \r\n", 0x33, 0x4010A2),
              L"Error at            :    0033:004010a2 \r\n");
    EXPECT_EQ(F(L"Storage version                :  %8.4f \r\n", 12.5),
              CString(L"Storage version                :  ") + L" 12.5000" + L" \r\n");
    EXPECT_EQ(F(L"Halden version             :   %s  (%d/%03d) \r\n", L"R3", 2024007 / 1000,
                2024007 % 1000),
              L"Halden version             :   R3  (2024/007) \r\n");
    EXPECT_EQ(F(L"Memory in use                  : %d%% \r\n", 37),
              L"Memory in use                  : 37% \r\n");
    EXPECT_EQ(
        F(L"RIP   :    0x%08x  RBP:   0x%08x  SegCs:   0x%08x\r\n", 0xDEADBEEFu, 0x10u, 0x33u),
        L"RIP   :    0xdeadbeef  RBP:   0x00000010  SegCs:   0x00000033\r\n");
    EXPECT_EQ(F(L"File Size   :   %-10d    File Time :   %s\r\n", 12345, L""),
              CString(L"File Size   :   12345") + L"     " + L"    File Time :   \r\n");
    EXPECT_EQ(F(L"Operating system               : %s ( %s ) \r\n", L"Linux",
                F(L"%u.%u.%u", 6u, 1u, 0u).GetString()),
              L"Operating system               : Linux ( 6.1.0 ) \r\n");
    EXPECT_EQ(F(L"STATIONS=%d DIAM=%.3f GAUGEX=%.3f ROT_ABOUT=%s \n", 12, 250.0, -3.25, L"Z"),
              L"STATIONS=12 DIAM=250.000 GAUGEX=-3.250 ROT_ABOUT=Z \n");
    EXPECT_EQ(F(L"%6.2f", 2.5), L"  2.50");
    EXPECT_EQ(F(L"%02d:%02d:%02d", 123, 0, 1), L"123:00:01");
    EXPECT_EQ(F(L"%0.6g", 0.1), L"0.1");
    EXPECT_EQ(F(L"%0.6g", 1234567.0), L"1.23457e+06");
    EXPECT_EQ(F(L"%.2f KB", 1536 / 1024.0), L"1.50 KB");
}

TEST(FormatFloat, UniversalCrtForms) {
    EXPECT_EQ(F(L"%e", 12345.678), L"1.234568e+04");
    EXPECT_EQ(F(L"%E", 1e-300), L"1.000000E-300");
    EXPECT_EQ(F(L"%g|%g", 0.0001, 0.00001), L"0.0001|1e-05");
    EXPECT_EQ(F(L"%a", 1.0), L"0x1.0000000000000p+0");
    EXPECT_EQ(F(L"%.2a", 1.0), L"0x1.00p+0");
    EXPECT_EQ(F(L"%A", -2.0), L"-0X1.0000000000000P+1");
    EXPECT_EQ(F(L"%Lf", 2.5L), L"2.500000");
    EXPECT_EQ(F(L"[%#.0f] [%08.2f] [%+.1e]", 3.0, -3.14159, 0.5), L"[3.] [-0003.14] [+5.0e-01]");

    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(F(L"%f %F %+f %e", inf, inf, inf, -inf), L"inf INF +inf -inf");
    EXPECT_EQ(F(L"[%8.3f] [%-6f]", inf, inf), L"[     inf] [inf   ]");
    const double quiet = std::bit_cast<double>(std::uint64_t{0x7FF8000000000000});
    const double indefinite = std::bit_cast<double>(std::uint64_t{0xFFF8000000000000});
    const double signaling = std::bit_cast<double>(std::uint64_t{0x7FF0000000000001});
    EXPECT_EQ(F(L"%f %f %f %G", quiet, indefinite, signaling, quiet),
              L"nan -nan(ind) nan(snan) NAN");
}

TEST(FormatWidth, StarWidthAndPrecision) {
    EXPECT_EQ(F(L"[%*d]", 5, 42), L"[   42]");
    EXPECT_EQ(F(L"[%-*d]", 5, 42), L"[42   ]");
    EXPECT_EQ(F(L"[%*d]", -5, 42), L"[42   ]");
    EXPECT_EQ(F(L"[%.*f]", 2, 3.14159), L"[3.14]");
    EXPECT_EQ(F(L"[%*.*s]", 6, 2, L"abcdef"), L"[    ab]");
    EXPECT_EQ(F(L"[%.*s]", -1, L"abc"), L"[abc]");
    EXPECT_EQ(F(L"[%*s|%-4s]", 3, L"a", L"b"), L"[  a|b   ]");
    EXPECT_EQ(F(L"%1000d", 1).GetLength(), 1000);
}

TEST(FormatInteger, SizesAndFlags) {
    EXPECT_EQ(F(L"%I64d", 1099511627776LL), L"1099511627776");
    EXPECT_EQ(F(L"%I64d", std::numeric_limits<long long>::min()), L"-9223372036854775808");
    EXPECT_EQ(F(L"%I64u", std::numeric_limits<unsigned long long>::max()), L"18446744073709551615");
    EXPECT_EQ(F(L"%I64x %I64X", 0x123456789ABCDEF0ULL, 0x123456789ABCDEF0ULL),
              L"123456789abcdef0 123456789ABCDEF0");
    EXPECT_EQ(F(L"%I64d %d", 5000000000LL, 7), L"5000000000 7"); // the next argument stays in step
    EXPECT_EQ(F(L"%lld|%llu", -5000000000LL, 5000000000ULL), L"-5000000000|5000000000");
    EXPECT_EQ(F(L"%I32d|%I32u", -1, 4294967295u), L"-1|4294967295");
    EXPECT_EQ(
        F(L"%Id|%Iu|%zu", std::ptrdiff_t{8589934592}, std::size_t{8589934592}, std::size_t{3}),
        L"8589934592|8589934592|3");
    // A Windows long holds 32 bits, and so does what %ld prints.
    EXPECT_EQ(F(L"%ld|%ld|%lu|%lx", -5L, 4294967301L, 4294967295UL, 0x1FFFFFFFFUL),
              L"-5|5|4294967295|ffffffff");
    EXPECT_EQ(F(L"%ld %ld", LONG{-7}, LONG{8}), L"-7 8"); // LONG is int here
    EXPECT_EQ(F(L"%hd|%hu|%hhd|%hhu", 70000, -1, 200, 257), L"4464|65535|-56|1");
    EXPECT_EQ(F(L"[%+d] [% d] [%05d] [%#x] [%#o] [%+.3d] [%-4d]", 5, 5, -42, 255, 8, 7, 3),
              L"[+5] [ 5] [-0042] [0xff] [010] [+007] [3   ]");
    EXPECT_EQ(F(L"%i|%u|%o|%X", -3, 3000000000u, 64, 0xABCu), L"-3|3000000000|100|ABC");
    EXPECT_EQ(F(L"100%%"), L"100%");
}

TEST(FormatText, WideFormatArgumentWidths) {
    EXPECT_EQ(F(L"%S|%hs|%s|%ls|%ws", "na\xC3\xAFve", "h", L"\u20AC", L"l", L"w"),
              L"na\u00EFve|h|\u20AC|l|w");
    EXPECT_EQ(F(L"%c%C%hc%lc%wc", L'\u00E9', 'A', 'b', L'c', L'd'), L"\u00E9Abcd");
    EXPECT_EQ(F(L"[%s] [%S] [%.3s] [%8s]", static_cast<const wchar_t*>(nullptr),
                static_cast<const char*>(nullptr), static_cast<const wchar_t*>(nullptr),
                static_cast<const wchar_t*>(nullptr)),
              L"[(null)] [(null)] [(nu] [  (null)]");
    EXPECT_EQ(F(L"[%3c] [%-3c]", L'x', L'y'), L"[  x] [y  ]");
}

TEST(FormatText, NarrowFormatArgumentWidths) {
    EXPECT_EQ(FA("%s|%S|%ls|%hs|%c|%C|%lc", "ab", L"\u00E9", L"\u20AC", "h", 'x', L'\u00E9', L'z'),
              "ab|\xC3\xA9|\xE2\x82\xAC|h|x|\xC3\xA9|z");
    // A precision counts bytes and never splits a UTF-8 character.
    EXPECT_EQ(FA("[%.3s] [%.2s] [%.1S]", "h\xC3\xA9llo", "h\xC3\xA9llo", L"\u00E9a"),
              "[h\xC3\xA9] [h] []");
    EXPECT_EQ(FA("%I64d %p", 1LL << 40, Address(0xABC)), "1099511627776 0000000000000ABC");
    EXPECT_EQ(FA("[%s]", static_cast<const char*>(nullptr)), "[(null)]");
}

TEST(FormatRefused, PercentNAndUnknownConversionsLeaveTheStringAlone) {
    CString s(L"before");
    int count = 0;
    EXPECT_THROW(s.Format(L"x%n", &count), std::invalid_argument);
    EXPECT_EQ(s, L"before");
    EXPECT_EQ(count, 0);
    EXPECT_THROW(s.Format(L"%y", 1), std::invalid_argument);
    EXPECT_THROW(s.Format(L"50%"), std::invalid_argument);
    EXPECT_THROW(s.AppendFormat(L"%wd", 1), std::invalid_argument);
    EXPECT_EQ(s, L"before");
}

CString FormatThroughV(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    CString s;
    s.FormatV(format, args);
    va_end(args);
    return s;
}

TEST(FormatAppend, AppendFormatFormatVAndSelfReference) {
    CString s(L"a");
    s.AppendFormat(L"%d-%s", 5, L"b");
    EXPECT_EQ(s, L"a5-b");
    s.Format(L"%s!", s.GetString()); // the argument is the string being formatted
    EXPECT_EQ(s, L"a5-b!");
    s.Format(L"");
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(FormatThroughV(L"%s=%I64d", L"n", 1LL << 33), L"n=8589934592");
}

TEST(FilePrintf, WritesUtf8AndAnswersWideCount) {
    FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(port::FilePrintf(file, L"\n m_Name: %s", L"Gr\u00F6\u00DFe"), 15);
    EXPECT_EQ(port::FilePrintf(file, L"|%S|%d", "x", 9), 4);
    EXPECT_EQ(port::FilePrintf(file, L"%n", nullptr), -1);
    std::rewind(file);
    char buffer[64] = {};
    const std::size_t read = std::fread(buffer, 1, sizeof buffer, file);
    std::fclose(file);
    EXPECT_EQ(std::string(buffer, read), "\n m_Name: Gr\xC3\xB6\xC3\x9F"
                                         "e|x|9");
    EXPECT_EQ(port::FilePrintf(nullptr, L"%d", 1), 0);
}

} // namespace
