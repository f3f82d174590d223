// Module frame entry points, the settings shortcuts, OrvAfx and the environment entry points.
#include <gtest/gtest.h>

#include "core/OrvHostCallbacks.h"
#include "environment/CKelEnvApp.h"
#include "environment/OrvAppEnv.h"
#include "frame/OrvAfx.h"
#include "frame/OrvSettingsShortcuts.h"
#include "frame/OrvShareDll.h"
#include "mfc/CString.h"
#include "settings/OrvSettingsKey.h"
#include "support/TempRegistry.h"

namespace {

OrvSettingsKey* g_appSettings = nullptr;
OrvSettingsKey* AppSettings() {
    return g_appSettings;
}
CString ProductString(unsigned int id) {
    return id == 2553 ? L"Tarvex caption" : L"";
}

void Register(bool withSettings) {
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           withSettings ? AppSettings : nullptr, nullptr, nullptr, ProductString,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr);
}

TEST(SettingsShortcuts, ZeroUntilTreeGroupAndValueExist) {
    Register(false);
    EXPECT_EQ(GetLastopernDlgtab(), 0);
    EXPECT_EQ(GetCollapseOnPreview(), 0);

    OrvSettingsKey app(L"App", L"Software\\OrvTest\\App");
    app.AddValue(L"OpenOperationDialogToLastPage", 7); // outside the Display group
    g_appSettings = &app;
    Register(true);
    EXPECT_EQ(GetLastopernDlgtab(), 0);

    auto* display = new OrvSettingsKey(L"Display", L"Software\\OrvTest\\Display");
    app.AddKey(display);
    EXPECT_EQ(GetLastopernDlgtab(), 0);

    display->AddValue(L"OpenOperationDialogToLastPage", 1);
    display->AddValue(L"CollapseOperationOnPreview", 2);
    EXPECT_EQ(GetLastopernDlgtab(), 1);
    EXPECT_EQ(GetCollapseOnPreview(), 2);
    g_appSettings = nullptr;
}

TEST(SettingsShortcuts, DisplayGroupIsFoundBelowOtherGroups) {
    OrvSettingsKey app(L"App", L"Software\\OrvTest\\App");
    auto* outer = new OrvSettingsKey(L"Outer", L"Software\\OrvTest\\Outer");
    auto* display = new OrvSettingsKey(L"Display", L"Software\\OrvTest\\Display");
    display->AddValue(L"CollapseOperationOnPreview", 1);
    outer->AddKey(display);
    app.AddKey(outer);
    g_appSettings = &app;
    Register(true);
    EXPECT_EQ(GetCollapseOnPreview(), 1);
    g_appSettings = nullptr;
}

TEST(ShareDll, StringResourcesResolveThroughTheProductStrings) {
    Register(false);
    InitShareDll();
    CString text;
    EXPECT_TRUE(text.LoadString(2553));
    EXPECT_EQ(text, L"Tarvex caption");
    EXPECT_FALSE(text.LoadString(1));
}

TEST(AppEnv, EntryPointsShareOneEnvironmentUntilClosed) {
    const TempRegistryDir registry; // the environment's start-up writes its first-run values
    CKelEnvApp* first = InitAppEnv();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(AppEnv(), first);
    EXPECT_EQ(CKelEnvApp::Instance(), first);
    CloseAppEnv();
    CKelEnvApp* again = AppEnv(); // made afresh
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(InitAppEnv(), again);
    CloseAppEnv();
    CloseAppEnv(); // closing twice is harmless
}

TEST(OrvAfxState, EmptyArgumentsNeverClearAValue) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(OrvAfx::GetWinApp() == nullptr && OrvAfx::GetMainHWnd() == nullptr &&
                                  OrvAfx::GetModuleState() == nullptr &&
                                  OrvAfx::GetUseOwnState() == 0
                              ? 0
                              : 1),
                ::testing::ExitedWithCode(0), "");
    GTEST_FLAG_SET(death_test_style, "fast");

    auto* app = reinterpret_cast<CWinApp*>(0x10);
    auto* window = reinterpret_cast<HWND>(0x20);
    auto* state = reinterpret_cast<AFX_MODULE_STATE*>(0x30);
    OrvAfx::SetUseOwnState(1);
    OrvAfx::SetModuleState(state);
    OrvAfx::SetWinApp(app);
    OrvAfx::SetMainHWnd(window);
    OrvAfx::SetModuleState(nullptr);
    OrvAfx::SetWinApp(nullptr);
    OrvAfx::SetMainHWnd(nullptr);
    EXPECT_EQ(OrvAfx::GetModuleState(), state);
    EXPECT_EQ(OrvAfx::GetWinApp(), app);
    EXPECT_EQ(OrvAfx::GetMainHWnd(), window);
    EXPECT_EQ(OrvAfx::GetUseOwnState(), 1);
}

} // namespace
