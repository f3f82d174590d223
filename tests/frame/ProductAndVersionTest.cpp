// Product strings, the name substitution, and the host revision rules.
#include <gtest/gtest.h>

#include "core/OrvHostCallbacks.h"
#include "frame/OrvHaldenVersion.h"
#include "frame/OrvProductAccessors.h"

namespace {

ProductInfo g_info;
ProductInfo* Info() {
    return &g_info;
}

void RegisterProduct(bool withRecord) {
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, withRecord ? Info : nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

TEST(ProductStrings, WithoutARecordAllAreEmpty) {
    RegisterProduct(false);
    EXPECT_EQ(GetProductInfo(), nullptr);
    EXPECT_EQ(GetProductName(), L"");
    EXPECT_EQ(GetProductVersion(), L"");
    EXPECT_EQ(GetCADName(), L"");
    EXPECT_EQ(GetCADVersion(), L"");
    EXPECT_EQ(GetCADMinorVersion(), L"");
    EXPECT_EQ(GetProductAndVersionString(), L" ");
    EXPECT_EQ(GetKelVersionLong(), 0);
    EXPECT_EQ(GetProductSpecificString(2553), L"");
    EXPECT_EQ(GetProductSpecificString2(L"Tarvex on Halden"), L"Tarvex on Halden");
    EXPECT_EQ(IsAssemblyDocumentSupported(), 1);
}

TEST(ProductStrings, FieldsComeFromTheRecord) {
    g_info = {L"Mill Pro", L"2026", L"HD", L"Cad", L"12", L"3"};
    RegisterProduct(true);
    EXPECT_EQ(GetProductInfo(), &g_info);
    EXPECT_EQ(GetProductName(), L"Mill Pro");
    EXPECT_EQ(GetProductVersion(), L"2026");
    EXPECT_EQ(GetCADName(), L"Cad");
    EXPECT_EQ(GetCADVersion(), L"12");
    EXPECT_EQ(GetCADMinorVersion(), L"3");
    EXPECT_EQ(GetProductAndVersionString(), L"Mill Pro 2026");
    EXPECT_EQ(GetKelVersionLong(), 2026);
}

TEST(ProductStrings, VersionNumberReadsLeadingDigitsOnly) {
    RegisterProduct(true);
    g_info.m_ProductVersion = L"12.5b";
    EXPECT_EQ(GetKelVersionLong(), 12);
    g_info.m_ProductVersion = L"v12";
    EXPECT_EQ(GetKelVersionLong(), 0);
}

TEST(ProductStrings, SubstitutionReplacesInOrderAndMatchesCase) {
    g_info = {L"HaldenMill", L"1", L"HX", L"", L"", L""};
    RegisterProduct(true);
    // "Tarvex" becomes the product name first, whose "Halden" is then replaced in turn.
    EXPECT_EQ(GetProductSpecificString2(L"Tarvex for Halden (HALDEN, halden, TARVEX)"),
              L"HXMill for HX (HX, halden, TARVEX)");
}

TEST(HaldenRevision, StartsUnknownAndValid) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(GetHaldenDateCode() == -1 && GetHaldenRevisionNumber() == L"" &&
                                  IsValidHDVersion() == 1
                              ? 0
                              : 1),
                ::testing::ExitedWithCode(0), "");
    GTEST_FLAG_SET(death_test_style, "fast");
}

TEST(HaldenRevision, MajorAndMinorOf33Point2) {
    SetHaldenDateCode(2024123, L"33.2");
    EXPECT_EQ(GetHaldenDateCode(), 2024123);
    EXPECT_EQ(GetHaldenRevisionNumber(), L"33.2");
    long major = -1;
    EXPECT_EQ(GetHaldenRevisionNumber(major), 1);
    EXPECT_EQ(major, 33);
    CString minor;
    EXPECT_EQ(GetHaldenMinorRevisionNumber(minor), 1);
    EXPECT_EQ(minor, L"3.2"); // the rightmost 2 + 1 characters
    EXPECT_EQ(IsValidHDVersion(), 1);
}

TEST(HaldenRevision, MinorIsTheRightmostIndexPlusOneCharacters) {
    SetHaldenDateCode(1, L"2024.10.5");
    CString minor;
    EXPECT_EQ(GetHaldenMinorRevisionNumber(minor), 1);
    EXPECT_EQ(minor, L".10.5"); // first "." at index 4: the last five characters, not "10.5"
    long major = 0;
    GetHaldenRevisionNumber(major);
    EXPECT_EQ(major, 2024);
    EXPECT_EQ(IsValidHDVersion(), 0);
}

TEST(HaldenRevision, WithoutAPointNothingIsKnown) {
    SetHaldenDateCode(1, L"35");
    long major = 99;
    EXPECT_EQ(GetHaldenRevisionNumber(major), 0);
    EXPECT_EQ(major, 0);
    CString minor = L"kept";
    EXPECT_EQ(GetHaldenMinorRevisionNumber(minor), 0);
    EXPECT_EQ(minor, L"kept");
    EXPECT_EQ(IsValidHDVersion(), 1);

    SetHaldenDateCode(1, L"");
    EXPECT_EQ(GetHaldenRevisionNumber(major), 0);
    EXPECT_EQ(GetHaldenMinorRevisionNumber(minor), 0);
    EXPECT_EQ(IsValidHDVersion(), 1);
}

TEST(HaldenRevision, ValidUpTo34) {
    SetHaldenDateCode(1, L"35.0");
    EXPECT_EQ(IsValidHDVersion(), 0);
    SetHaldenDateCode(1, L"34.9");
    EXPECT_EQ(IsValidHDVersion(), 1);
    SetHaldenDateCode(1, L".5"); // empty major text converts to 0
    long major = -1;
    EXPECT_EQ(GetHaldenRevisionNumber(major), 1);
    EXPECT_EQ(major, 0);
    EXPECT_EQ(IsValidHDVersion(), 1);
}

} // namespace
