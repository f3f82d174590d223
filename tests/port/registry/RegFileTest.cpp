// The .reg text format: what regedit writes and what it reads.
#include "port/src/registry/RegFile.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

using port::registry::Bytes;
using port::registry::FormatRegFile;
using port::registry::ParseKeyName;
using port::registry::ParseRegFile;
using port::registry::RegFileError;
using port::registry::RegFileKey;
using port::registry::RegFileValue;

// UTF-16LE bytes with byte-order mark of ASCII text, as a .reg file holds it.
std::string Utf16File(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (char c : text) {
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

std::string ErrorOf(const std::string& bytes) {
    try {
        ParseRegFile(bytes);
    } catch (const RegFileError& error) {
        return error.what();
    }
    return "no error";
}

TEST(RegFileFormat, WritesEachTypeAsRegeditDoes) {
    RegFileKey key{HKEY_CURRENT_USER, L"Software\\A", false, {}};
    key.values.push_back({L"", false, REG_SZ, {'x', 0, 0, 0}});
    key.values.push_back(
        {L"a\"b", false, REG_SZ, {'C', 0, ':', 0, '\\', 0, '"', 0, 'y', 0, '"', 0, 0, 0}});
    key.values.push_back({L"n", false, REG_DWORD, {10, 0, 0, 0}});
    key.values.push_back({L"q", false, REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8}});
    key.values.push_back({L"e", false, REG_EXPAND_SZ, {'%', 0, 0, 0}});
    key.values.push_back({L"m", false, REG_MULTI_SZ, {'a', 0, 0, 0, 0, 0}});
    key.values.push_back({L"z", false, REG_NONE, {}});
    key.values.push_back({L"bare", false, REG_SZ, {'a', 0}}); // no terminator
    key.values.push_back({L"odd", false, REG_DWORD, {1, 2}}); // not four bytes
    const std::string expected = Utf16File("Windows Registry Editor Version 5.00\r\n\r\n"
                                           "[HKEY_CURRENT_USER\\Software\\A]\r\n"
                                           "@=\"x\"\r\n"
                                           "\"a\\\"b\"=\"C:\\\\\\\"y\\\"\"\r\n"
                                           "\"n\"=dword:0000000a\r\n"
                                           "\"q\"=hex(b):01,02,03,04,05,06,07,08\r\n"
                                           "\"e\"=hex(2):25,00,00,00\r\n"
                                           "\"m\"=hex(7):61,00,00,00,00,00\r\n"
                                           "\"z\"=hex(0):\r\n"
                                           "\"bare\"=hex(1):61,00\r\n"
                                           "\"odd\"=hex(4):01,02\r\n"
                                           "\r\n");
    EXPECT_EQ(expected, FormatRegFile({key}));
}

TEST(RegFileFormat, LongHexDataWrapsBeforeColumn78) {
    // "ShellState"=hex: is 17 columns; 20 bytes of "xx," reach column 77, then the backslash.
    // Continuation lines are indented by two and hold 25 bytes.
    RegFileKey key{HKEY_LOCAL_MACHINE, L"S", false, {}};
    key.values.push_back({L"ShellState", false, REG_BINARY, Bytes(50, 0xAB)});
    std::string line1 = "\"ShellState\"=hex:", line2 = "  ", line3 = "  ";
    for (int i = 0; i < 20; ++i)
        line1 += "ab,";
    for (int i = 0; i < 25; ++i)
        line2 += "ab,";
    line3 += "ab,ab,ab,ab,ab";
    ASSERT_EQ(77u, line1.size());
    const std::string expected =
        Utf16File("Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\S]\r\n" +
                  line1 + "\\\r\n" + line2 + "\\\r\n" + line3 + "\r\n\r\n");
    EXPECT_EQ(expected, FormatRegFile({key}));
}

TEST(RegFileParse, ReadsVersion5WithContinuationsAndDeletions) {
    const auto keys = ParseRegFile(Utf16File("Windows Registry Editor Version 5.00\r\n\r\n"
                                             "; a comment\r\n"
                                             "[HKEY_CURRENT_USER\\Software\\X\\]\r\n"
                                             "@=\"d\"\r\n"
                                             "\"p\"=\"C:\\\\dir\\\\\"\r\n"
                                             "\"b\"=hex:01,02,\\\r\n"
                                             "  03,\\\r\n"
                                             "  04\r\n"
                                             "\"N\"=dword:FFFFFFFF\r\n"
                                             "\"gone\"=-\r\n"
                                             "[-HKLM\\Software\\Old]\r\n"));
    ASSERT_EQ(2u, keys.size());
    EXPECT_EQ(HKEY_CURRENT_USER, keys[0].root);
    EXPECT_EQ(L"Software\\X", keys[0].path);
    ASSERT_EQ(5u, keys[0].values.size());
    EXPECT_EQ(L"", keys[0].values[0].name);
    EXPECT_EQ((Bytes{'d', 0, 0, 0}), keys[0].values[0].data);
    EXPECT_EQ((Bytes{'C', 0, ':', 0, '\\', 0, 'd', 0, 'i', 0, 'r', 0, '\\', 0, 0, 0}),
              keys[0].values[1].data);
    EXPECT_EQ(REG_BINARY, keys[0].values[2].type);
    EXPECT_EQ((Bytes{1, 2, 3, 4}), keys[0].values[2].data);
    EXPECT_EQ(REG_DWORD, keys[0].values[3].type);
    EXPECT_EQ((Bytes{0xFF, 0xFF, 0xFF, 0xFF}), keys[0].values[3].data);
    EXPECT_TRUE(keys[0].values[4].remove);
    EXPECT_TRUE(keys[1].remove);
    EXPECT_EQ(HKEY_LOCAL_MACHINE, keys[1].root);
    EXPECT_EQ(L"Software\\Old", keys[1].path);
}

TEST(RegFileParse, ReadsRegedit4InTheAnsiCodePage) {
    // 0xE9 is e acute in Windows-1252; REGEDIT4 holds string-type hex data as ANSI bytes.
    const auto keys = ParseRegFile("REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Caf\xE9]\r\n"
                                   "\"n\xE9\"=\"\x80\"\r\n"
                                   "\"x\"=hex(2):41,e9,00\r\n");
    ASSERT_EQ(1u, keys.size());
    EXPECT_EQ(L"Caf\u00e9", keys[0].path);
    EXPECT_EQ(L"n\u00e9", keys[0].values[0].name);
    EXPECT_EQ((Bytes{0xAC, 0x20, 0, 0}), keys[0].values[0].data); // the euro sign, U+20AC
    EXPECT_EQ((Bytes{'A', 0, 0xE9, 0, 0, 0}), keys[0].values[1].data);
}

TEST(RegFileParse, ErrorsNameTheLine) {
    const std::string header =
        "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n";
    EXPECT_NE(std::string::npos, ErrorOf(Utf16File("Hello\r\n")).find("line 1:"));
    EXPECT_NE(std::string::npos, ErrorOf(Utf16File(header + "\"a\"=hex:1g\r\n")).find("line 4:"));
    EXPECT_NE(std::string::npos,
              ErrorOf(Utf16File(header + "\"a\"=dword:1\r\n\"b\"=qword:1\r\n")).find("line 5:"));
    EXPECT_NE(std::string::npos, ErrorOf(Utf16File(header + "\"a=\"x\"\r\n")).find("line 4:"));
    EXPECT_NE(std::string::npos, ErrorOf(Utf16File(header + "\"a\"=\"x\\n\"\r\n")).find("line 4:"));
    EXPECT_NE(std::string::npos,
              ErrorOf(Utf16File(header + "\"a\"=dword:123456789\r\n")).find("line 4:"));
    EXPECT_NE(std::string::npos,
              ErrorOf(Utf16File(header + "[HKEY_CLASSES_ROOT\\x]\r\n")).find("line 4:"));
    EXPECT_NE(std::string::npos,
              ErrorOf(Utf16File("REGEDIT4\r\n\"a\"=\"x\"\r\n")).find("before any [key]"));
    EXPECT_NE(std::string::npos, ErrorOf(Utf16File(header + "[-HKCU]\r\n")).find("line 4:"));
    EXPECT_NE(std::string::npos, ErrorOf(Utf16File(header + "[HKCU\\b\r\n")).find("line 4:"));
}

TEST(RegKeyName, RootsInShortAndFullSpelling) {
    std::wstring path;
    EXPECT_EQ(HKEY_CURRENT_USER, ParseKeyName(L"hkcu\\Software\\\\Halden\\", path));
    EXPECT_EQ(L"Software\\Halden", path);
    EXPECT_EQ(HKEY_LOCAL_MACHINE, ParseKeyName(L"HKEY_LOCAL_MACHINE", path));
    EXPECT_EQ(L"", path);
    EXPECT_EQ(HKEY_CURRENT_USER, ParseKeyName(L"Hkey_Current_User\\x", path));
    EXPECT_THROW(ParseKeyName(L"HKXX\\Software", path), RegFileError);
    EXPECT_THROW(ParseKeyName(L"HKCU\\" + std::wstring(256, L'k'), path), RegFileError);
}

} // namespace
