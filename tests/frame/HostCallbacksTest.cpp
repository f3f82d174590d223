// The callback tables: empty-slot answers, faults by design, and each slot reaching its accessor.
#include <gtest/gtest.h>

#include <cstring>

#include "core/OrvHostCallbacks.h"
#include "core/ProductInfo.h"
#include "objects/OrvObject.h"

namespace {

void RegisterEmptyTables() {
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr);
    orvshare_init(nullptr, nullptr, nullptr, nullptr);
}

TEST(EmptySlots, AnswerTheirStatedDefaults) {
    RegisterEmptyTables();
    EXPECT_EQ(IsMetricUnit(), 1);
    EXPECT_EQ(GetNewObjectIdCB(), 0u);
    EXPECT_EQ(OrvMessageCallback(7, "lost"), 0);
    EXPECT_EQ(OrvProgressCallback(50), 0);
    EXPECT_EQ(IsUserJobCancelled(), 0);
    EXPECT_EQ(GetActiveDocSettingsCB(), nullptr);
    EXPECT_EQ(GetAppSettingsCB(), nullptr);
    EXPECT_EQ(GetAppFeedColorSettingsCB(), nullptr);
    EXPECT_EQ(GetProductInfoCB(), nullptr);
    EXPECT_EQ(GetProductSpecificStringCB(2553), L"");
    EXPECT_EQ(GetExceptionReportAllowedCB(), 0);
    EXPECT_EQ(gGetAppSilentModeFlag(), 0);
    EXPECT_EQ(GetIsDocFullyLoaded(), 0);
    EXPECT_EQ(orv_GetIsTurnYZAxisRev(nullptr), 0);
    EXPECT_EQ(orv_getActiveAutoIdHelper(), nullptr);
    GetAppDisplayAlerts(nullptr); // a null answer variable: nothing is called
}

TEST(EmptySlotsDeathTest, AccessorsWithoutADefaultFault) {
    RegisterEmptyTables();
    short alerts = 0;
    EXPECT_DEATH(GetActiveDocument(), "");
    EXPECT_DEATH(GetAppDisplayAlerts(&alerts), "");
    EXPECT_DEATH(GetStockGroupName(), "");
    EXPECT_DEATH(GetCorrespondingDoc(nullptr), "");
    EXPECT_DEATH(orv_getIsWorkpieceSTLStock(), "");
    EXPECT_DEATH(orv_getActivePPMHelper(), "");
    EXPECT_DEATH(orv_getActiveBasePPMHelper(), "");
    EXPECT_DEATH(orv_getActiveCorePPMHelper(), "");
}

// One distinct answer per slot, so that a slot wired to the wrong accessor shows.
OrvObject g_document, g_corresponding, g_ppm, g_basePpm, g_corePpm;
ProductInfo g_product{L"P", L"V", L"H", L"C", L"CV", L"CMV"};
int g_lastProgress = 0;

template <class T> T* Fake(std::uintptr_t value) {
    return reinterpret_cast<T*>(value);
}

TEST(RegisteredSlots, EachAccessorCallsItsOwnSlot) {
    OrvShareRegisterDocCBK(
        [] { return 0; }, [] { return 1002ul; }, [] { return &g_document; },
        [](unsigned int id, va_list& args) {
            // The caller's own arguments arrive: an int and a text.
            const int number = va_arg(args, int);
            const char* text = va_arg(args, const char*);
            return static_cast<int>(id) * 1000 + number + static_cast<int>(std::strlen(text));
        },
        [](long long progress) {
            g_lastProgress = static_cast<int>(progress);
            return 1005;
        },
        [] { return 1006; }, [] { return Fake<OrvSettingsKey>(0x1007); },
        [] { return Fake<OrvSettingsKey>(0x1008); },
        [] { return Fake<OrvFeedColorsSettings>(0x1009); }, [] { return &g_product; },
        [](unsigned int id) { return CString(id == 2553 ? L"caption" : L""); },
        [](short* alerts) { *alerts += 2; }, [] { return 1013; }, [] { return CString(L"Stock"); },
        [](OrvObject* object) { return object == &g_document ? &g_corresponding : nullptr; },
        [] { return CString(L"french"); }, [] { return 1017; }, [] { return 1018; },
        [] { return 1019; }, [](OrvObject* object) { return object == &g_document ? 1020 : 0; });
    EXPECT_EQ(orvshare_init([] { return Fake<OrvObjectIndexerHelper>(0x2001); },
                            [] { return &g_ppm; }, [] { return &g_basePpm; },
                            [] { return &g_corePpm; }),
              1);

    EXPECT_EQ(IsMetricUnit(), 0);
    EXPECT_EQ(GetNewObjectIdCB(), 1002u);
    EXPECT_EQ(GetActiveDocument(), &g_document);
    EXPECT_EQ(OrvMessageCallback(4, 30, "abcd"), 4034);
    EXPECT_EQ(OrvProgressCallback(77), 1005);
    EXPECT_EQ(g_lastProgress, 77);
    EXPECT_EQ(IsUserJobCancelled(), 1006);
    EXPECT_EQ(GetActiveDocSettingsCB(), Fake<OrvSettingsKey>(0x1007));
    EXPECT_EQ(GetAppSettingsCB(), Fake<OrvSettingsKey>(0x1008));
    EXPECT_EQ(GetAppFeedColorSettingsCB(), Fake<OrvFeedColorsSettings>(0x1009));
    EXPECT_EQ(GetProductInfoCB(), &g_product);
    EXPECT_EQ(GetProductSpecificStringCB(2553), L"caption");
    short alerts = 0;
    GetAppDisplayAlerts(&alerts); // -1 first, then the add-in's change
    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(GetExceptionReportAllowedCB(), 1013);
    EXPECT_EQ(GetStockGroupName(), L"Stock");
    EXPECT_EQ(GetCorrespondingDoc(&g_document), &g_corresponding);
    EXPECT_EQ(gGetAppSilentModeFlag(), 1017);
    EXPECT_EQ(GetIsDocFullyLoaded(), 1018);
    EXPECT_EQ(orv_getIsWorkpieceSTLStock(), 1019);
    EXPECT_EQ(orv_GetIsTurnYZAxisRev(&g_document), 1020);
    EXPECT_EQ(orv_getActiveAutoIdHelper(), Fake<OrvObjectIndexerHelper>(0x2001));
    EXPECT_EQ(orv_getActivePPMHelper(), &g_ppm);
    EXPECT_EQ(orv_getActiveBasePPMHelper(), &g_basePpm);
    EXPECT_EQ(orv_getActiveCorePPMHelper(), &g_corePpm);

    // A second registration replaces everything, empty slots included.
    RegisterEmptyTables();
    EXPECT_EQ(IsMetricUnit(), 1);
    EXPECT_EQ(orv_getActiveAutoIdHelper(), nullptr);

    // Alerts stay on when the add-in leaves them.
    OrvShareRegisterDocCBK(
        nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
        nullptr, [](short*) {}, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
        nullptr);
    alerts = 0;
    GetAppDisplayAlerts(&alerts);
    EXPECT_EQ(alerts, -1);
}

TEST(LangNameDeathTest, IsEnglishBeforeAnyRegistration) {
    // In a freshly started copy of this program, whatever other tests have set.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(GetHaldenLangName() == L"english" ? 0 : 1), ::testing::ExitedWithCode(0),
                "");
    GTEST_FLAG_SET(death_test_style, "fast");
}

int g_langCalls = 0;

TEST(LangName, EmptyNameAsksTheAddInOnceAndKeepsTheAnswer) {
    RegisterEmptyTables();
    SetHaldenLangName(L"");
    EXPECT_EQ(GetHaldenLangName(), L"english"); // empty slot 16: "english", now stored
    OrvShareRegisterDocCBK(
        nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
        nullptr, nullptr, nullptr, nullptr, nullptr,
        [] {
            ++g_langCalls;
            return CString(L"german");
        },
        nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(GetHaldenLangName(), L"english"); // stored: the add-in is not asked
    EXPECT_EQ(g_langCalls, 0);

    SetHaldenLangName(L"");
    EXPECT_EQ(GetHaldenLangName(), L"german");
    EXPECT_EQ(GetHaldenLangName(), L"german");
    EXPECT_EQ(g_langCalls, 1);

    SetHaldenLangName(L"spanish");
    EXPECT_EQ(GetHaldenLangName(), L"spanish");
    EXPECT_EQ(g_langCalls, 1);
    SetHaldenLangName(L"english");
}

} // namespace
