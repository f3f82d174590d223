#include <gtest/gtest.h>

#include "support/EnvironmentTest.h"
#include "frame/KelStringTable.h"
#include "core/OrvHostCallbacks.h"
#include "mfc/StringResources.h"

namespace {

CString HostStrings(unsigned int id) {
    return id == 2553 ? CString(L"Host note") : CString();
}

using StringTableTest = EnvironmentTest;

TEST_F(StringTableTest, ReadsIdTextLines) {
    const std::string file = Folder("lang/French") + "KELRESu.DLL";
    WriteFileBytes(file, "\xEF\xBB\xBF# comment\r\n"
                         "2553=Note\r\n"
                         "\n"
                         "60113=&Donn\xC3\xA9"
                         "es\\tTarvex\\n=2\r\n"
                         "abc=skipped\n"
                         "99999999999=too big\n"
                         "no equals sign\n"
                         "58237=French");
    KelStringTable table;
    ASSERT_TRUE(table.Load(CString(file.c_str())));
    EXPECT_EQ(table.GetCount(), 3);
    std::wstring text;
    EXPECT_TRUE(table.Find(60113, text));
    EXPECT_EQ(text, L"&Donn\u00e9es\tTarvex\n=2");
    EXPECT_TRUE(table.Find(58237, text));
    EXPECT_EQ(text, L"French");
    EXPECT_FALSE(table.Find(1, text));
    EXPECT_FALSE(table.Load(CString((file + ".absent").c_str())));
    EXPECT_EQ(table.GetCount(), 0);
}

TEST_F(StringTableTest, HostStringsComeFirst) {
    const std::string file = Folder("lang/English") + "KELRESu.DLL";
    WriteFileBytes(file, "2553=Table note\n2554=Table warning\n");
    KelStringTable table;
    ASSERT_TRUE(table.Load(CString(file.c_str())));
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, HostStrings, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr);
    InstallStringResources(&table);
    CString text;
    EXPECT_TRUE(text.LoadString(2553));
    EXPECT_EQ(text, CString(L"Host note"));
    EXPECT_TRUE(text.LoadString(2554));
    EXPECT_EQ(text, CString(L"Table warning"));
    EXPECT_FALSE(text.LoadString(2555));
    port::SetStringResourceLoader(nullptr);
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr);
}

} // namespace
