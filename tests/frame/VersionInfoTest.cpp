#include <gtest/gtest.h>

#include "frame/CKelVersionInfo.h"
#include "support/EnvironmentTest.h"

namespace {

using VersionInfoTest = EnvironmentTest;

TEST_F(VersionInfoTest, ComparisonAgainstOwnCodes) {
    CKelVersionInfo info;
    // The library's own help-about code is 2017/0115; "20" is too short to split: year 20 and
    // month-day 20.
    for (const auto& [code, greater] : {std::pair{L"2017/0115", 0},
                                        {L"2017/0116", 1},
                                        {L"2018/0101", 1},
                                        {L"2017/0114", 0},
                                        {L"2016/1231", 0},
                                        {L"20", 0}})
        EXPECT_EQ(info.IsGreater(CString(code)), greater) << CStringA(code).GetString();
    EXPECT_EQ(info.IsGreater(40.0f), 0);
    EXPECT_EQ(info.IsGreater(40.5f), 1);
    EXPECT_EQ(info.IsGreater(31.6f), 0);
}

TEST_F(VersionInfoTest, ProductTypeIsTwoWhateverTheSwitchHolds) {
    EXPECT_EQ(GetProductType(), 2);
    for (DWORD brisk : {0u, 1u}) {
        WriteDword(HKEY_CURRENT_USER, kDebugKey, L"EnableKelBrisk", brisk);
        EXPECT_EQ(GetProductType(), 2);
    }
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
