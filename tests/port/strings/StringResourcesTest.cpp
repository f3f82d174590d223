#include <gtest/gtest.h>

#include "mfc/CString.h"

namespace {

class LoadStringTest : public ::testing::Test {
protected:
    void TearDown() override { port::SetStringResourceLoader({}); }
    static void InstallTable() {
        port::SetStringResourceLoader([](UINT id, std::wstring& text) {
            if (id == 101)
                text = L"Hello %s";
            else if (id == 102)
                text = L"\u00E9t\u00E9";
            else
                return false;
            return true;
        });
    }
};

TEST_F(LoadStringTest, LoaderResolvesIdsInBothWidthsAndForFormat) {
    CString s(L"old");
    EXPECT_EQ(s.LoadString(101), FALSE); // no loader yet
    EXPECT_TRUE(s.IsEmpty());
    InstallTable();
    EXPECT_EQ(s.LoadString(101), TRUE);
    EXPECT_EQ(s, L"Hello %s");
    CStringA a;
    EXPECT_EQ(a.LoadString(102), TRUE);
    EXPECT_EQ(a, "\xC3\xA9t\xC3\xA9");
    s = L"old";
    EXPECT_EQ(s.LoadString(999), FALSE);
    EXPECT_TRUE(s.IsEmpty());
    s.Format(101u, L"world");
    EXPECT_EQ(s, L"Hello world");
}

TEST_F(LoadStringTest, LoaderMayLoadStringsItself) {
    port::SetStringResourceLoader([](UINT id, std::wstring& text) {
        if (id == 1) {
            text = L"one";
            return true;
        }
        std::wstring inner;
        const bool found = port::LoadStringResource(1, inner);
        text = inner + L"+";
        return found;
    });
    CString s;
    EXPECT_EQ(s.LoadString(2), TRUE);
    EXPECT_EQ(s, L"one+");
}

} // namespace
