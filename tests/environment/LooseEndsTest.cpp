// The install path helper, the Access step that only an Access database runs, and the prime
// turning switch.
#include <gtest/gtest.h>

#include "support/EnvironmentTest.h"
#include "environment/CKelEnvApp.h"
#include "environment/CutbaseAccessSetup.h"
#include "frame/FeatureSwitches.h"
#include "environment/OrvAppEnv.h"
#include "core/OrvHostCallbacks.h"

namespace {

class EnvironmentLooseEnds : public EnvironmentTest {
protected:
    void SetUp() override {
        EnvironmentTest::SetUp();
        m_install = Folder("install");
        WriteFileBytes(m_install + "lang/English/KELRESu.DLL", "58237=English\n");
        UseDatabase("sqlite", "Cutbase.keldb");
        CKelEnvApp::SetModuleFilePathOverride(CString((m_install + "libKELSHAREu.so").c_str()));
        SetHaldenLangName(L"english");
    }
    void TearDown() override {
        CloseAppEnv();
        CKelEnvApp::SetModuleFilePathOverride(CString());
        EnvironmentTest::TearDown();
    }
    // A database.config of one active record of the kind, and its file.
    void UseDatabase(const char* kind, const char* file) {
        WriteFileBytes(m_install + "Cutbase/database.config",
                  std::string("<configuration><applicationSettings><!-- databases -->"
                              "<setting databaseType=\"") +
                      kind + "\" Default=\"True\"><filePath>" + file +
                      "</filePath></setting></applicationSettings></configuration>");
        WriteFileBytes(m_install + "Cutbase/" + file, "");
    }
    static void Install64BitAccess() {
        WriteString(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Office\\16.0\\Access\\InstallRoot",
                    L"Path", L"C:\\Office\\");
    }

    std::string m_install;
};

TEST_F(EnvironmentLooseEnds, InstallPathIsTheFolderOfTheLibrary) {
    CString path = L"before";
    KelGetInstallPath(path);
    EXPECT_EQ(path, CString(m_install.c_str()));
    EXPECT_EQ(path, AppEnv()->GetKelDrive() + AppEnv()->GetKelPath());
}

TEST_F(EnvironmentLooseEnds, AccessStepRunsForAnAccessDatabase) {
    UseDatabase("ms-access", "Cutbase.mdb");
    ASSERT_NE(InitAppEnv()->GetActiveCutbaseConfigData(), nullptr);
    Install64BitAccess(); // after start-up, so that only the step under test can record it
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit"), -1);
    EXPECT_EQ(SetDatabaseInstallationData(), 1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit"), 1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access32bit"), -1); // unchanged
    EXPECT_EQ(SetDatabaseInstallationData(), 0); // nothing differs any more
}

TEST_F(EnvironmentLooseEnds, AccessStepIsSkippedForOtherDatabases) {
    InitAppEnv();
    Install64BitAccess();
    EXPECT_EQ(SetDatabaseInstallationData(), 0);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit"), -1);

    WriteFileBytes(m_install + "Cutbase/database.config", "<configuration><applicationSett");
    CloseAppEnv();
    ASSERT_EQ(InitAppEnv()->GetActiveCutbaseConfigData(), nullptr);
    WriteDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit", 0); // start-up recorded it
    EXPECT_EQ(SetDatabaseInstallationData(), 0);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit"), 0);
}

TEST_F(EnvironmentLooseEnds, PrimeTurningFollowsItsDebugValue) {
    EXPECT_EQ(GetIsPrimeTurningRegSupport(), 0);
    EXPECT_EQ(IsPrimeTurnSupported(), 0);
    WriteDword(HKEY_CURRENT_USER, kIndependentDebugKey, L"PrimeTurningSupport", 1);
    EXPECT_EQ(IsPrimeTurnSupported(), 0); // the version's key only
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"PrimeTurningSupport", 1);
    EXPECT_EQ(GetIsPrimeTurningRegSupport(), 1);
    EXPECT_EQ(IsPrimeTurnSupported(), 1);
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"PrimeTurningSupport", 2);
    EXPECT_EQ(GetIsPrimeTurningRegSupport(), 2);
    EXPECT_EQ(IsPrimeTurnSupported(), 0); // exactly 1, not any non-zero value
}

} // namespace
