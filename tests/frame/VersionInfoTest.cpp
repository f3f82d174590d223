#include <gtest/gtest.h>

#include "support/EnvironmentTest.h"
#include "frame/CKelVersionInfo.h"

namespace {

using VersionInfoTest = EnvironmentTest;

TEST_F(VersionInfoTest, CodeComparisonAgainstOwnHelpAboutCode) {
    CKelVersionInfo info;
    EXPECT_EQ(info.IsGreater(CString(L"2017/0115")), 0); // the library's own code
    EXPECT_EQ(info.IsGreater(CString(L"2017/0116")), 1); // a day later
    EXPECT_EQ(info.IsGreater(CString(L"2018/0101")), 1); // any date of a later year
    EXPECT_EQ(info.IsGreater(CString(L"2017/0114")), 0);
    EXPECT_EQ(info.IsGreater(CString(L"2016/1231")), 0);
    // Too short to split: "20" is year 20 and month-day 20.
    EXPECT_EQ(info.IsGreater(CString(L"20")), 0);
}

TEST_F(VersionInfoTest, StorageVersionComparison) {
    CKelVersionInfo info;
    EXPECT_EQ(info.IsGreater(40.0f), 0);
    EXPECT_EQ(info.IsGreater(40.5f), 1);
    EXPECT_EQ(info.IsGreater(31.6f), 0);
}

TEST_F(VersionInfoTest, FreeFunctionsAnswerTheConstants) {
    EXPECT_EQ(GetKelVersion(), CString(L"2026"));
    EXPECT_EQ(GetRequiredHDVersion(), CString(L"2026"));
    EXPECT_EQ(GetKelServicePack(), CString(L"SP0"));
    EXPECT_EQ(GetKelBuildDate(), CString(L"2025/0729"));
    EXPECT_EQ(GetKernelType(), 0);
    EXPECT_EQ(CKelVersionInfo::ORV_STORAGE_VERSION_EX, 31.6f);
    EXPECT_EQ(std::wstring(CKelVersionInfo::ORV_BS_VERSION_STRING), L"2026 ");
}

TEST_F(VersionInfoTest, ProductTypeIsTwoWhateverTheSwitchHolds) {
    EXPECT_EQ(GetProductType(), 2);
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"EnableKelBrisk", 0);
    EXPECT_EQ(GetProductType(), 2);
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"EnableKelBrisk", 1);
    EXPECT_EQ(GetProductType(), 2);
}

TEST_F(VersionInfoTest, ProductNameSwapByEdition) {
    CString text = L"Tarvex for Tarvex users";
    UpdateStringForEdition(text, 5);
    EXPECT_EQ(text, CString(L"Halden CAM for Halden CAM users"));

    text = L"Tarvex inside Halden CAM";
    UpdateStringForEdition(text, 5); // already names Halden CAM: unchanged
    EXPECT_EQ(text, CString(L"Tarvex inside Halden CAM"));

    text = L"Halden CAM and Halden CAM";
    UpdateStringForEdition(text, 2);
    EXPECT_EQ(text, CString(L"Tarvex and Tarvex"));

    text = L"Halden CAM";
    UpdateStringForBrisk(text); // this build's edition is 2
    EXPECT_EQ(text, CString(L"Tarvex"));
}

} // namespace
