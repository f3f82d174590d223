// OrvAfx's fall-backs to the framework's application and thread objects. OrvAfx's values can
// never be cleared, so each case runs in a fresh copy of the test program.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "frame/OrvAfx.h"
#include "mfc/CWinApp.h"

namespace {

HWND Window(std::uintptr_t value) {
    return reinterpret_cast<HWND>(value);
}

// Runs check where OrvAfx holds nothing yet; check answers what went wrong, or nothing.
void ExpectInFreshProcess(std::string (*check)()) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            const std::string fault = check();
            std::fputs(fault.c_str(), stderr);
            std::exit(fault.empty() ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "^$");
    GTEST_FLAG_SET(death_test_style, "fast");
}

#define CHECK_EQ(a, b)                                                                             \
    if ((a) != (b))                                                                                \
    return std::string(#a " != " #b " at line ") + std::to_string(__LINE__)

TEST(OrvAfxFallbacks, ApplicationAndWindowComeFromTheFrameworkUntilStored) {
    ExpectInFreshProcess([]() -> std::string {
        CHECK_EQ(OrvAfx::GetWinApp(), nullptr);
        CHECK_EQ(OrvAfx::GetMainWnd(), nullptr);
        CHECK_EQ(OrvAfx::GetMainHWnd(), nullptr);
        CWinApp app;
        CHECK_EQ(OrvAfx::GetWinApp(), &app); // the module state's application
        CHECK_EQ(OrvAfx::GetMainWnd(), nullptr);
        app.m_hMainWnd = Window(0x40);
        CHECK_EQ(OrvAfx::GetMainWnd(), Window(0x40));
        CHECK_EQ(OrvAfx::GetMainHWnd(), Window(0x40));
        OrvAfx::SetMainHWnd(Window(0x50)); // a stored handle comes first
        CHECK_EQ(OrvAfx::GetMainHWnd(), Window(0x50));
        CHECK_EQ(OrvAfx::GetMainWnd(), Window(0x40));
        {
            CWinApp later; // now the module state's application
            later.m_hMainWnd = Window(0x60);
            CHECK_EQ(OrvAfx::GetMainWnd(), Window(0x60));
            OrvAfx::SetWinApp(&app); // a stored application comes first
            CHECK_EQ(OrvAfx::GetWinApp(), &app);
            CHECK_EQ(OrvAfx::GetMainWnd(), Window(0x40));
        }
        return {};
    });
}

TEST(OrvAfxFallbacks, WithoutOwnStateSetWinAppStoresNoHandle) {
    ExpectInFreshProcess([]() -> std::string {
        CWinApp app;
        app.m_hMainWnd = Window(0x40);
        OrvAfx::SetWinApp(&app);
        app.m_hMainWnd = Window(0x41);
        CHECK_EQ(OrvAfx::GetMainHWnd(), Window(0x41)); // followed through the application
        return {};
    });
}

TEST(OrvAfxFallbacks, WithOwnStateSetWinAppStoresTheThreadsWindow) {
    ExpectInFreshProcess([]() -> std::string {
        OrvAfx::SetUseOwnState(1);
        CWinApp app; // the framework thread of this thread
        OrvAfx::SetWinApp(&app);
        CHECK_EQ(OrvAfx::GetMainHWnd(), nullptr); // the thread had no window: nothing stored
        app.m_hMainWnd = Window(0x40);
        OrvAfx::SetWinApp(&app);
        app.m_hMainWnd = Window(0x41);
        CHECK_EQ(OrvAfx::GetMainHWnd(), Window(0x40)); // stored, no longer followed
        CHECK_EQ(OrvAfx::GetMainWnd(), Window(0x41));
        return {};
    });
}

TEST(OrvAfxFallbacks, AnotherThreadHasNoFrameworkThread) {
    ExpectInFreshProcess([]() -> std::string {
        OrvAfx::SetUseOwnState(1);
        CWinApp app;
        app.m_hMainWnd = Window(0x40);
        CWinThread* seen = &app;
        std::thread([&] {
            seen = AfxGetThread();
            OrvAfx::SetWinApp(&app);
        }).join();
        CHECK_EQ(seen, nullptr);
        CHECK_EQ(AfxGetThread(), &app);
        CHECK_EQ(OrvAfx::GetWinApp(), &app);
        app.m_hMainWnd = Window(0x41);
        CHECK_EQ(OrvAfx::GetMainHWnd(), Window(0x41)); // nothing was stored
        return {};
    });
}

} // namespace
