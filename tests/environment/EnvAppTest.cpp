#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/EnvironmentTest.h"
#include "environment/CKelEnvApp.h"
#include "frame/CKelVersionInfo.h"
#include "frame/FeatureSwitches.h"
#include "environment/OrvAppEnv.h"
#include "core/OrvHostCallbacks.h"

namespace {

const char* const kConfig = "<?xml version=\"1.0\"?>\n<configuration>\n <applicationSettings>\n"
                            "  <!-- databases -->\n"
                            "  <setting databaseType=\"sqlite\" Default=\"True\">\n"
                            "   <filePath>Cutbase.keldb</filePath>\n"
                            "   <description>shipped</description>\n"
                            "  </setting>\n </applicationSettings>\n</configuration>\n";

class EnvAppTest : public EnvironmentTest {
protected:
    void SetUp() override {
        EnvironmentTest::SetUp();
        for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "_KELDEBUG", "KEL_TESTING"})
            unsetenv(name);
        setenv("LANG", "en_US.UTF-8", 1);
        m_install = Folder("install");
        WriteFileBytes(m_install + "lang/English/KELRESu.DLL", "58237=English\n2553=Note\n");
        WriteFileBytes(m_install + "lang/French/KELRESu.DLL", "58237=French\n");
        WriteFileBytes(m_install + "Cutbase/database.config", kConfig);
        WriteFileBytes(m_install + "Cutbase/Cutbase.keldb", "");
        CKelEnvApp::SetModuleFilePathOverride(CString((m_install + "libKELSHAREu.so").c_str()));
        SetHaldenLangName(L"english");
    }
    void TearDown() override {
        CloseAppEnv();
        CKelEnvApp::SetModuleFilePathOverride(CString());
        unsetenv("LANG");
        EnvironmentTest::TearDown();
    }
    CString Install() const { return CString(m_install.c_str()); }
    static CKelEnvApp* Restart() {
        CloseAppEnv();
        return InitAppEnv();
    }
    std::string m_install;
};

TEST_F(EnvAppTest, FirstRunAgainstAnInstallTree) {
    CKelEnvApp* env = InitAppEnv();
    EXPECT_EQ(env->GetEnvAPPInitResult(), 0);
    EXPECT_EQ(env->GetKelDrive(), CString());
    EXPECT_EQ(env->GetKelPath(), Install());
    EXPECT_EQ(env->GetKelModuleExt(), CString(L".so"));
    EXPECT_EQ(env->GetKelModuleName(), CString(L"TARVEXu"));
    EXPECT_EQ(env->GetKelDefDataRelPath(), CString(L"lang/English/"));
    EXPECT_EQ(env->GetCutbaseLang(), ORV_LANG_ENGLISH);
    EXPECT_EQ(env->GetKelDataPath(), Install());
    EXPECT_EQ(env->GetKelCutbasePath(), Install() + L"Cutbase/Cutbase.keldb");
    EXPECT_EQ(env->GetKelCutbaseName(), CString(L"Cutbase.keldb"));
    EXPECT_EQ(env->GetKelCutbaseFormsName(), CString(L"Cutbase-App.exe"));
    EXPECT_EQ(env->GetKelCutbaseFormsPath(), Install() + L"CutbaseApp/Cutbase-App.exe");
    EXPECT_EQ(env->IsSQLiteDatabaseInUse(), 1);
    EXPECT_EQ(env->Is64BitDatabaseInUse(), 1);
    EXPECT_EQ(env->Is64BitAccessInstalled(), 1);
    EXPECT_EQ(env->IsConnectedToCutbaseSQL(), 0);
    EXPECT_EQ(env->GetActiveDBname(), Install() + L"Cutbase/Cutbase.keldb");
    EXPECT_EQ(env->GetKelResourceDllPath(), Install() + L"lang/English/KELRESu.DLL");
    EXPECT_EQ(env->GetKelDebugResourceDllPath(), Install() + L"lang/English/KELDEBUGRESu.DLL");
    EXPECT_EQ(env->GetKelAPIDllPath(), Install() + L"KELAPIu.DLL");
    EXPECT_EQ(env->GetKelHelpPath(), Install() + L"lang/English/");
    EXPECT_EQ(env->GetVisiDllPath(), Install() + L"MS/");
    EXPECT_EQ(env->GetKelVistabridgeDllPath(), Install() + L"KELVistabridgeu.DLL");
    EXPECT_EQ(env->GetCIMCOEditorCmdArg(), CString(L"/lang=en-US"));
    // No editor in the install folder: the sibling folder's, untested.
    const CString parent = CString((m_root.string() + "/").c_str());
    EXPECT_EQ(env->GetCIMCOEditorPath(), parent + L"nceditor/TarvexNCEditor.exe");
    EXPECT_FALSE(env->GetUserNameW().IsEmpty());
    EXPECT_EQ(env->GetKelDefaultToolInsertPath(), Install() + L"lang/English/");
    EXPECT_EQ(env->GetKel5AxisDllPath(), Install() + L"lang/English/KEL5AxisResu.dll");
    EXPECT_EQ(env->GetDisplayPLYFileRegStatus(), 0); // a first run keeps 0
    EXPECT_EQ(env->GetIsAvoidChuckClippingEnabled(), 1);
    EXPECT_EQ(env->GetMultiSurfaceByID(), 0);
    EXPECT_EQ(env->KillCutbaseProcess(), 1); // initial id: nothing to end
    EXPECT_EQ(GetIsAvoidChuckClippingEnabled(), 1);
    EXPECT_EQ(GetDisplayPLYFileRegStatus(), 0);
    CKelVersionInfo info;
    EXPECT_EQ(info.OnTarvexTaskPaneINIFFilePath(), Install() + L"KelTaskPaneWebCtrl.ini");
    EXPECT_EQ(info.GetTaskPaneTabStringName(), CString(L"KELTASKPANE.KelTaskPaneWebCtrlVS2022.8"));

    // What the first run laid down.
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kVersionKey, L"KelDataPath"),
              std::wstring(Install().GetString()));
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kVersionKey, L"SimulationJobPath"),
              std::wstring((Install() + L"MachSim/Jobs").GetString()));
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"BAxisContinuousSupport"), 4);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"PostingPerformanceImprovements"), 1);
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kVersionKey, L"CutbaseForms"), L"Cutbase App");

    CString text;
    EXPECT_TRUE(text.LoadString(58237)); // the language folder's string table
    EXPECT_EQ(text, CString(L"English"));
}

TEST_F(EnvAppTest, SecondRunChangesNothingThatExists) {
    InitAppEnv();
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"BAxisContinuousSupport", 2);
    WriteString(HKEY_CURRENT_USER, kVersionKey, L"SimulationJobPath", L"/jobs");
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"DisplayPLYFile", 0);
    WriteDword(HKEY_CURRENT_USER, kVersionKey, L"MultiSurfaceByID", 1);
    CKelEnvApp* env = Restart();
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"BAxisContinuousSupport"), 2);
    EXPECT_EQ(env->GetDefaultSimulationJobFolderPath(), CString(L"/jobs/"));
    EXPECT_EQ(env->GetMultiSurfaceByID(), 1);
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"DisplayPLYFile", 1);
    env = Restart();
    EXPECT_EQ(env->GetDisplayPLYFileRegStatus(), 1);
}

TEST_F(EnvAppTest, ForcedLanguageWithAndWithoutResources) {
    WriteString(HKEY_CURRENT_USER, kDebugKey, L"HDCAMLanguage", L"French");
    CKelEnvApp* env = InitAppEnv();
    EXPECT_EQ(env->GetCutbaseLang(), ORV_LANG_FRENCH);
    EXPECT_EQ(env->GetKelDefDataRelPath(), CString(L"lang/French/"));
    EXPECT_EQ(env->GetCIMCOEditorCmdArg(), CString(L"/lang=fr-FR"));
    EXPECT_EQ(env->GetKelHelpPath(), Install() + L"lang/English/"); // no CAM_Help.chm there
    CString text;
    EXPECT_TRUE(text.LoadString(58237));
    EXPECT_EQ(text, CString(L"French"));

    WriteString(HKEY_CURRENT_USER, kDebugKey, L"HDCAMLanguage", L"Klingon");
    env = Restart();
    EXPECT_EQ(env->GetCutbaseLang(), ORV_LANG_ENGLISH);
    EXPECT_EQ(env->GetKelDefDataRelPath(), CString(L"lang/English/"));
}

TEST_F(EnvAppTest, HostLanguageWords) {
    SetHaldenLangName(L"FRENCH");
    EXPECT_EQ(InitAppEnv()->GetCutbaseLang(), ORV_LANG_FRENCH);
    SetHaldenLangName(L"german"); // a row, but no German resources installed
    EXPECT_EQ(Restart()->GetCutbaseLang(), ORV_LANG_ENGLISH);
}

TEST_F(EnvAppTest, SystemLanguageDecidesWithoutAHostRow) {
    WriteFileBytes(m_install + "lang/Greek/KELRESu.DLL", "58237=Greek\n");
    WriteFileBytes(m_install + "lang/German/KELRESu.DLL", "58237=German\n");
    SetHaldenLangName(L"greek"); // no row: the name stays "Automatic"
    setenv("LANG", "el_GR.UTF-8", 1);
    EXPECT_EQ(InitAppEnv()->GetCutbaseLang(), ORV_LANG_GREEK);

    setenv("LANG", "pt_PT.UTF-8", 1);
    EXPECT_EQ(Restart()->GetCutbaseLang(), ORV_LANG_ENGLISH);

    setenv("LANG", "de_DE.UTF-8", 1);
    EXPECT_EQ(Restart()->GetCutbaseLang(), ORV_LANG_GERMAN);
    WriteDword(HKEY_CURRENT_USER, L"Software\\Halden\\General", L"Use English language", 1);
    CKelEnvApp* env = Restart();
    EXPECT_EQ(env->GetCutbaseLang(), ORV_LANG_ENGLISH);
    EXPECT_EQ(env->GetKelDefDataRelPath(), CString(L"lang/English/"));
}

TEST_F(EnvAppTest, DebugAndTestModeSwitches) {
    setenv("_KELDEBUG", "yEs", 1);
    setenv("KEL_TESTING", "Yes", 1);
    CKelEnvApp* env = InitAppEnv();
    EXPECT_EQ(env->IsKelDebugEnabled(), 1);
    EXPECT_EQ(env->IsKelRunningInTestMode(), 0); // not configured for testing
    env->ConfigureForTesting(1);
    EXPECT_EQ(env->IsKelRunningInTestMode(), 1);
    setenv("KEL_TESTING", "no", 1);
    EXPECT_EQ(env->IsKelRunningInTestMode(), 0);
    unsetenv("_KELDEBUG");
    unsetenv("KEL_TESTING");
    EXPECT_EQ(Restart()->IsKelDebugEnabled(), 0);
}

TEST_F(EnvAppTest, DatabaseResultCodes) {
    std::filesystem::remove(m_install + "Cutbase/Cutbase.keldb");
    EXPECT_EQ(InitAppEnv()->GetEnvAPPInitResult(), 1); // file of the active record missing

    const std::string broken = "<configuration><applicationSettings><setting";
    WriteFileBytes(m_install + "Cutbase/database.config", broken);
    CKelEnvApp* env = Restart(); // a new object with a new result
    EXPECT_EQ(env->GetEnvAPPInitResult(), 2);
    EXPECT_EQ(env->GetActiveCutbaseConfigData(), nullptr);
    EXPECT_EQ(env->GetActiveDBname(), CString());
    EXPECT_EQ(ReadFileBytes(m_install + "Cutbase/database.config"), broken);
}

TEST_F(EnvAppTest, SqlServerRecord) {
    WriteFileBytes(m_install + "Cutbase/database.config",
                   "<c><applicationSettings><!--x-->"
                   "<setting databaseType=\"sql\" Default=\"True\"><serverID>S</serverID>"
                   "<databaseName>D</databaseName><authenticationMode>windows</authenticationMode>"
                   "</setting></applicationSettings></c>");
    CKelEnvApp* env = InitAppEnv();
    EXPECT_EQ(env->GetEnvAPPInitResult(), 0);
    EXPECT_EQ(env->IsConnectedToCutbaseSQL(), 1);
    EXPECT_EQ(env->IsConnectedToCutbaseSQLServerDirectly(), 1);
    EXPECT_EQ(env->GetCutbaseSQLInfo(), CString(L"SERVER=S;DATABASE=D"));
    EXPECT_EQ(env->GetActiveDBname(), CString(L"SERVER=S;DATABASE=D"));
    EXPECT_EQ(env->GetKelCutbaseName(), CString(L"Cutbase"));
    EXPECT_EQ(env->IsSQLiteDatabaseInUse(), 0);
}

TEST_F(EnvAppTest, MissingInstallTreeStillCompletes) {
    CKelEnvApp::SetModuleFilePathOverride(CString((m_root.string() + "/gone/lib.so").c_str()));
    CKelEnvApp* env = InitAppEnv();
    EXPECT_EQ(env->GetEnvAPPInitResult(), 2);
    EXPECT_EQ(env->GetKelDefDataRelPath(), CString(L"lang/English/"));
    EXPECT_FALSE(std::filesystem::exists(m_root / "gone"));
}

TEST_F(EnvAppTest, UnwritableRegistryStillCompletes) {
    WriteFileBytes((m_root / "blocker").string(), "a file, not a folder");
    setenv("ORV_REGISTRY_DIR", (m_root / "blocker" / "registry").c_str(), 1);
    CKelEnvApp* env = InitAppEnv();
    EXPECT_EQ(env->GetEnvAPPInitResult(), 0);
    EXPECT_EQ(env->GetKelDataPath(), Install());
    EXPECT_EQ(ReadFileBytes(m_install + "Cutbase/database.config"), kConfig);
}

TEST_F(EnvAppTest, ControllerPathFromTheMachineIsCopiedToTheUser) {
    WriteString(HKEY_LOCAL_MACHINE, kPostDataKey, L"ControllerPath", L"/srv/controllers");
    InitAppEnv();
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kPostDataKey, L"ControllerPath"), L"/srv/controllers");
}

TEST_F(EnvAppTest, WritingTheConfigurationBack) {
    CKelEnvApp* env = InitAppEnv();
    std::unique_ptr<OrvCutbaseConfigInfo> copy(env->GetCutbaseConfigInfo().Clone());
    copy->GetCutbaseConfigData(0)->m_ActiveFlag = 0;
    env->UpdateDBConfigData(copy.get());
    EXPECT_EQ(env->WriteDBConfigData(), 1); // a comment and one setting: count + 1 children
    std::string expected = kConfig;
    expected.replace(expected.find("Default=\"True\""), 14, "Default=\"False\"");
    EXPECT_EQ(ReadFileBytes(m_install + "Cutbase/database.config"), expected);
    EXPECT_EQ(env->UpdateCutbaseConfigInfo(), 1);
    EXPECT_EQ(env->GetActiveCutbaseConfigData()->m_ActiveFlag, 0); // the last record still serves
}

} // namespace
