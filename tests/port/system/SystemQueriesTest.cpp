#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "port/SystemQueries.h"

namespace {

TEST(SystemQueriesTest, LocaleNamesToWindowsLanguageIds) {
    EXPECT_EQ(LangIdOfLocaleName("de_DE.UTF-8"), 0x0407);
    EXPECT_EQ(LangIdOfLocaleName("el_GR.UTF-8"), 0x0408);
    EXPECT_EQ(LangIdOfLocaleName("fr_CA"), 0x040C);
    EXPECT_EQ(LangIdOfLocaleName("pt_BR.UTF-8"), 0x0416);
    EXPECT_EQ(LangIdOfLocaleName("pt_PT@euro"), 0x0816);
    EXPECT_EQ(LangIdOfLocaleName("zh_TW.UTF-8"), 0x0404);
    EXPECT_EQ(LangIdOfLocaleName("zh_CN.GB18030"), 0x0804);
    EXPECT_EQ(LangIdOfLocaleName("zh_HK"), 0x0C04);
    EXPECT_EQ(LangIdOfLocaleName("ja:en_US"), 0x0411); // the first entry of a list
    EXPECT_EQ(LangIdOfLocaleName("C"), 0x0409);
    EXPECT_EQ(LangIdOfLocaleName("POSIX"), 0x0409);
    EXPECT_EQ(LangIdOfLocaleName("xx_YY"), 0x0409);
    EXPECT_EQ(LangIdOfLocaleName(nullptr), 0x0409);
}

TEST(SystemQueriesTest, EnvironmentVariablesInOrder) {
    const char* names[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
    std::string saved[4];
    bool had[4];
    for (int i = 0; i < 4; ++i) {
        const char* value = std::getenv(names[i]);
        had[i] = value != nullptr;
        saved[i] = value ? value : "";
        unsetenv(names[i]);
    }
    EXPECT_EQ(GetUserDefaultLangID(), 0x0409);
    setenv("LANG", "ru_RU.UTF-8", 1);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0419);
    setenv("LC_MESSAGES", "it_IT.UTF-8", 1);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0410);
    setenv("LC_ALL", "ko_KR.UTF-8", 1);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0412);
    setenv("LANGUAGE", "", 1); // empty counts as not set
    EXPECT_EQ(GetUserDefaultLangID(), 0x0412);
    setenv("LANGUAGE", "pl", 1);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0415);
    for (int i = 0; i < 4; ++i) {
        if (had[i])
            setenv(names[i], saved[i].c_str(), 1);
        else
            unsetenv(names[i]);
    }
}

TEST(SystemQueriesTest, DateAndTimePictures) {
    std::tm moment{};
    moment.tm_year = 2026 - 1900;
    moment.tm_mon = 0;
    moment.tm_mday = 5;
    moment.tm_hour = 7;
    moment.tm_min = 3;
    EXPECT_EQ(FormatDateMMddyyyy(moment), CString(L"01/05/2026"));
    EXPECT_EQ(FormatTimeHHmm(moment), CString(L"07:03"));
    moment.tm_hour = 23;
    moment.tm_min = 59;
    EXPECT_EQ(FormatTimeHHmm(moment), CString(L"23:59"));
}

TEST(SystemQueriesTest, OwnFileAndUser) {
    // In this test program the library's code is linked into the program itself.
    const CString own = GetOwnModuleFilePath();
    const std::filesystem::path self = std::filesystem::canonical("/proc/self/exe");
    EXPECT_EQ(own, CString(self.wstring().c_str()));

    const passwd* entry = getpwuid(geteuid());
    ASSERT_NE(entry, nullptr);
    const std::string name = entry->pw_name;
    EXPECT_EQ(GetLogonUserName(100), CString(std::wstring(name.begin(), name.end()).c_str()));
    EXPECT_EQ(GetLogonUserName(static_cast<int>(name.size())), CString()); // no room
}

} // namespace
