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
    EXPECT_EQ(GetCADMinorVersion(), L"3");
    EXPECT_EQ(GetProductAndVersionString(), L"Mill Pro 2026");
    // The version number reads the leading digits only.
    for (const auto& [version, number] : {std::pair{L"2026", 2026}, {L"12.5b", 12}, {L"v12", 0}}) {
        g_info.m_ProductVersion = version;
        EXPECT_EQ(GetKelVersionLong(), number) << CStringA(version).GetString();
    }
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

TEST(HaldenRevision, MajorMinorAndValidity) {
    // The minor part is the rightmost index-of-"." + 1 characters; no "." means nothing is known
    // (major 0, minor left alone); an empty major text converts to 0; valid up to 34.
    struct Row {
        const wchar_t* revision;
        int known;
        long major;
        const wchar_t* minor;
        int valid;
    };
    const Row rows[] = {
        {L"33.2", 1, 33, L"3.2", 1}, {L"2024.10.5", 1, 2024, L".10.5", 0},
        {L"35", 0, 0, L"kept", 1},   {L"", 0, 0, L"kept", 1},
        {L"35.0", 1, 35, L"5.0", 0}, {L"34.9", 1, 34, L"4.9", 1},
        {L".5", 1, 0, L"5", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(CStringA(row.revision).GetString());
        SetHaldenDateCode(2024123, row.revision);
        EXPECT_EQ(GetHaldenDateCode(), 2024123);
        EXPECT_EQ(GetHaldenRevisionNumber(), row.revision);
        long major = 99;
        EXPECT_EQ(GetHaldenRevisionNumber(major), row.known);
        EXPECT_EQ(major, row.major);
        CString minor = L"kept";
        EXPECT_EQ(GetHaldenMinorRevisionNumber(minor), row.known);
        EXPECT_EQ(minor, row.minor);
        EXPECT_EQ(IsValidHDVersion(), row.valid);
    }
}

} // namespace
