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

class EmptySlots : public ::testing::Test {
protected:
    void SetUp() override { RegisterEmptyTables(); }
};

TEST_F(EmptySlots, AnswerTheirStatedDefaults) {
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

using EmptySlotsDeathTest = EmptySlots;

TEST_F(EmptySlotsDeathTest, AccessorsWithoutADefaultFault) {
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
OrvObject g_document;
OrvObject g_corresponding;
OrvObject g_ppm, g_basePpm, g_corePpm;
int g_lastProgress = 0;

int SlotMetric() {
    return 0;
}
unsigned long SlotObjectId() {
    return 1002;
}
OrvObject* SlotDocument() {
    return &g_document;
}
int SlotMessage(unsigned int id, va_list& args) {
    // The caller's own arguments arrive: an int and a text.
    const int number = va_arg(args, int);
    const char* text = va_arg(args, const char*);
    return static_cast<int>(id) * 1000 + number + static_cast<int>(std::strlen(text));
}
int SlotProgress(long long progress) {
    g_lastProgress = static_cast<int>(progress);
    return 1005;
}
int SlotCancelled() {
    return 1006;
}
OrvSettingsKey* SlotDocSettings() {
    return reinterpret_cast<OrvSettingsKey*>(0x1007);
}
OrvSettingsKey* SlotAppSettings() {
    return reinterpret_cast<OrvSettingsKey*>(0x1008);
}
OrvFeedColorsSettings* SlotFeedColors() {
    return reinterpret_cast<OrvFeedColorsSettings*>(0x1009);
}
ProductInfo g_product{L"P", L"V", L"H", L"C", L"CV", L"CMV"};
ProductInfo* SlotProduct() {
    return &g_product;
}
CString SlotString(unsigned int id) {
    return id == 2553 ? L"caption" : L"";
}
void SlotAlerts(short* alerts) {
    *alerts += 2;
}
int SlotReportAllowed() {
    return 1013;
}
CString SlotStockGroup() {
    return L"Stock";
}
OrvObject* SlotCorresponding(OrvObject* object) {
    return object == &g_document ? &g_corresponding : nullptr;
}
CString SlotLang() {
    return L"french";
}
int SlotSilent() {
    return 1017;
}
int SlotFullyLoaded() {
    return 1018;
}
int SlotStlStock() {
    return 1019;
}
int SlotTurnYZ(OrvObject* object) {
    return object == &g_document ? 1020 : 0;
}
OrvObjectIndexerHelper* SlotAutoId() {
    return reinterpret_cast<OrvObjectIndexerHelper*>(0x2001);
}
OrvObject* SlotPpm() {
    return &g_ppm;
}
OrvObject* SlotBasePpm() {
    return &g_basePpm;
}
OrvObject* SlotCorePpm() {
    return &g_corePpm;
}

TEST(RegisteredSlots, EachAccessorCallsItsOwnSlot) {
    OrvShareRegisterDocCBK(SlotMetric, SlotObjectId, SlotDocument, SlotMessage, SlotProgress,
                           SlotCancelled, SlotDocSettings, SlotAppSettings, SlotFeedColors,
                           SlotProduct, SlotString, SlotAlerts, SlotReportAllowed, SlotStockGroup,
                           SlotCorresponding, SlotLang, SlotSilent, SlotFullyLoaded, SlotStlStock,
                           SlotTurnYZ);
    EXPECT_EQ(orvshare_init(SlotAutoId, SlotPpm, SlotBasePpm, SlotCorePpm), 1);

    EXPECT_EQ(IsMetricUnit(), 0);
    EXPECT_EQ(GetNewObjectIdCB(), 1002u);
    EXPECT_EQ(GetActiveDocument(), &g_document);
    EXPECT_EQ(OrvMessageCallback(4, 30, "abcd"), 4034);
    EXPECT_EQ(OrvProgressCallback(77), 1005);
    EXPECT_EQ(g_lastProgress, 77);
    EXPECT_EQ(IsUserJobCancelled(), 1006);
    EXPECT_EQ(GetActiveDocSettingsCB(), reinterpret_cast<OrvSettingsKey*>(0x1007));
    EXPECT_EQ(GetAppSettingsCB(), reinterpret_cast<OrvSettingsKey*>(0x1008));
    EXPECT_EQ(GetAppFeedColorSettingsCB(), reinterpret_cast<OrvFeedColorsSettings*>(0x1009));
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
    EXPECT_EQ(orv_getActiveAutoIdHelper(), reinterpret_cast<OrvObjectIndexerHelper*>(0x2001));
    EXPECT_EQ(orv_getActivePPMHelper(), &g_ppm);
    EXPECT_EQ(orv_getActiveBasePPMHelper(), &g_basePpm);
    EXPECT_EQ(orv_getActiveCorePPMHelper(), &g_corePpm);

    // A second registration replaces everything, empty slots included.
    RegisterEmptyTables();
    EXPECT_EQ(IsMetricUnit(), 1);
    EXPECT_EQ(orv_getActiveAutoIdHelper(), nullptr);
}

void AlertsUntouched(short*) {}

TEST(RegisteredSlots, AlertsStayOnWhenTheAddInLeavesThem) {
    RegisterEmptyTables();
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, AlertsUntouched, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr);
    short alerts = 0;
    GetAppDisplayAlerts(&alerts);
    EXPECT_EQ(alerts, -1);
}

// Runs `check` in a freshly started copy of this program, so that it sees the module's state
// as it is at load, whatever other tests have set.
#define EXPECT_IN_FRESH_PROCESS(check)                                                             \
    do {                                                                                           \
        GTEST_FLAG_SET(death_test_style, "threadsafe");                                            \
        EXPECT_EXIT(std::exit((check) ? 0 : 1), ::testing::ExitedWithCode(0), "");                 \
        GTEST_FLAG_SET(death_test_style, "fast");                                                  \
    } while (0)

TEST(LangNameDeathTest, IsEnglishBeforeAnyRegistration) {
    EXPECT_IN_FRESH_PROCESS(GetHaldenLangName() == L"english");
}

int g_langCalls = 0;
CString CountedLang() {
    ++g_langCalls;
    return L"german";
}

TEST(LangName, EmptyNameAsksTheAddInOnceAndKeepsTheAnswer) {
    RegisterEmptyTables();
    SetHaldenLangName(L"");
    EXPECT_EQ(GetHaldenLangName(), L"english"); // empty slot 16: "english", now stored
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           CountedLang, nullptr, nullptr, nullptr, nullptr);
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
