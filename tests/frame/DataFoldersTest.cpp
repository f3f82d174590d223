#include <gtest/gtest.h>

#include <filesystem>

#include "support/EnvironmentTest.h"
#include "frame/DataFolders.h"
#include "frame/LanguageTable.h"
#include "core/OrvHostCallbacks.h"
#include "settings/OrvSettingsKey.h"

namespace {

OrvSettingsKey* g_tree = nullptr;
OrvSettingsKey* Tree() {
    return g_tree;
}

void RegisterTree(bool withTree) {
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           withTree ? Tree : nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

const wchar_t* const kApplicationKey = L"Software\\Halden\\Halden CAM\\2026";

class DataFoldersTest : public EnvironmentTest {
protected:
    void SetUp() override {
        EnvironmentTest::SetUp();
        m_install = CString(Folder("install").c_str());
        g_tree = nullptr;
        RegisterTree(false);
    }
    void TearDown() override {
        RegisterTree(false);
        g_tree = nullptr;
        EnvironmentTest::TearDown();
    }
    CString m_install;
};

TEST_F(DataFoldersTest, FirstRunSeedsTheDataFolderOnBothRoots) {
    EXPECT_EQ(SetDefaultKelDataPath(m_install), 1);
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath"),
              std::wstring(m_install.GetString()));
    EXPECT_EQ(ReadString(HKEY_LOCAL_MACHINE, kApplicationKey, L"KelDataPath"),
              std::wstring(m_install.GetString()));
    EXPECT_EQ(SetDefaultKelDataPath(L"/elsewhere/"), 0);
    EXPECT_EQ(GetKelDataPath(L"/elsewhere/"), m_install);
}

TEST_F(DataFoldersTest, MachineWideValueIsCopiedToTheUser) {
    WriteString(HKEY_LOCAL_MACHINE, kApplicationKey, L"KelDataPath", L"/srv/tarvex");
    EXPECT_EQ(SetDefaultKelDataPath(m_install), 1);
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath"), L"/srv/tarvex");
    EXPECT_EQ(ReadString(HKEY_LOCAL_MACHINE, kApplicationKey, L"KelDataPath"), L"/srv/tarvex");
    // No final separator stored: the answer has one.
    EXPECT_EQ(GetKelDataPath(m_install), CString(L"/srv/tarvex/"));
}

TEST_F(DataFoldersTest, DataFolderReadingFallsBackAndSeedsTheMachine) {
    EXPECT_EQ(GetKelDataPath(L"/opt/kel"), CString(L"/opt/kel/"));
    EXPECT_EQ(ReadString(HKEY_LOCAL_MACHINE, kApplicationKey, L"KelDataPath"), L"/opt/kel");
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath"), L"<none>");
    WriteString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath", L"C:\\Data\\");
    EXPECT_EQ(GetKelDataPath(L"/opt/kel"), CString(L"C:\\Data\\")); // already has one
}

TEST_F(DataFoldersTest, SecondFormSeedsTheUserAndAnEmptyTreeValue) {
    WriteString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath", L"/data/");
    OrvSettingsKey tree(L"Application", L"Software\\Unused");
    tree.AddValue(L"SimulationJobPath", CString());
    tree.AddValue(L"SSImgPath", CString(L"/custom/images/"));
    g_tree = &tree;
    RegisterTree(true);

    EXPECT_EQ(SetDefaultSimulationJobFolderPath(m_install), 1);
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kApplicationKey, L"SimulationJobPath"),
              L"/data/MachSim/Jobs");
    CString inTree;
    tree.GetValue(L"SimulationJobPath", inTree);
    EXPECT_EQ(inTree, CString(L"/data/MachSim/Jobs"));
    EXPECT_EQ(GetDefaultSimulationJobFolderPath(), CString(L"/data/MachSim/Jobs/"));

    // A tree value that is set stays; the user's key is still seeded.
    EXPECT_EQ(SetDefaultSetupSheetImagePath(m_install, L"lang/French/"), 1);
    tree.GetValue(L"SSImgPath", inTree);
    EXPECT_EQ(inTree, CString(L"/custom/images/"));
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kApplicationKey, L"SSImgPath"),
              std::wstring((m_install + L"lang/French/Setup_Sheet_Images/").GetString()));
    EXPECT_EQ(GetSetupSheetImagePath(), CString(L"/custom/images/")); // the tree is read first
    EXPECT_EQ(SetDefaultSetupSheetImagePath(m_install, L"lang/French/"), 0);
}

TEST_F(DataFoldersTest, EverySeedingDefault) {
    WriteString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath", L"/data");
    EXPECT_EQ(SetDefaultSetupSheetTemplatePath(L"/i/", L"lang/English/"), 1);
    EXPECT_EQ(SetDefaultSubSpndleOperFolderPath(L"/i/"), 1);
    EXPECT_EQ(SetDefaultMachineSimulationApplicationPath(L"/i/"), 1);
    EXPECT_EQ(SetDefaultSimulationMachineFolderPath(L"/i/"), 1);
    EXPECT_EQ(SetDefaultSimulationControllerFolderPath(L"/i/"), 1);
    EXPECT_EQ(GetSetupSheetTemplatePath(), CString(L"/i/lang/English/Setup_Sheet_Templates/"));
    EXPECT_EQ(GetSubSpindleOperFolderPath(), CString(L"/data/SubSpindleOps/"));
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kApplicationKey, L"MachineSimulationApplicationPath"),
              L"/i/KelVirtualMachine/KelVirtualMachine.exe");
    EXPECT_EQ(GetDefaultSimulationMachineFolderPath(), CString(L"/data/MachSim/Machines/"));
    EXPECT_EQ(GetDefaultSimulationControllerFolderPath(), CString(L"/data/MachSim/Machines/"));
    EXPECT_EQ(GetKelCommonDataPath(), CString()); // no default: empty stays empty
}

TEST_F(DataFoldersTest, SimulationApplicationPrefersTheMachinesEureka) {
    WriteString(HKEY_LOCAL_MACHINE, kApplicationKey, L"EurekaExePath", L"/opt/eureka/Eureka.exe");
    EXPECT_EQ(GetVirtualMachinePath(), CString(L"/opt/eureka/Eureka.exe"));
    EXPECT_EQ(SetDefaultMachineSimulationApplicationPath(L"/i/"), 1);
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kApplicationKey, L"MachineSimulationApplicationPath"),
              L"/opt/eureka/Eureka.exe");
    // The file name gets a final separator, as it always has.
    EXPECT_EQ(GetIMSExePath(), CString(L"/opt/eureka/Eureka.exe/"));
}

TEST_F(DataFoldersTest, IMSPathFromTheTreeOrEmpty) {
    EXPECT_EQ(GetIMSExePath(), CString());
    OrvSettingsKey tree(L"Application", L"Software\\Unused");
    tree.AddValue(L"EurekaExePath", CString());
    tree.AddValue(L"MachineSimulationApplicationPath", CString(L"/i/KelVirtualMachine.exe"));
    g_tree = &tree;
    RegisterTree(true);
    EXPECT_EQ(GetIMSExePath(), CString()); // not a Eureka.exe
    tree.SetValue(L"MachineSimulationApplicationPath", CString(L"/x/Eureka.exe"));
    EXPECT_EQ(GetIMSExePath(), CString(L"/x/Eureka.exe/"));
}

TEST_F(DataFoldersTest, SimulationFoldersFallBackToTheMachine) {
    WriteString(HKEY_LOCAL_MACHINE, kApplicationKey, L"SimulationMachinePath", L"/srv/machines");
    EXPECT_EQ(GetDefaultSimulationMachineFolderPath(), CString(L"/srv/machines/"));
    WriteString(HKEY_LOCAL_MACHINE, kApplicationKey, L"SSImgPath", L"/srv/images");
    EXPECT_EQ(GetSetupSheetImagePath(), CString()); // not a simulation folder
}

TEST_F(DataFoldersTest, ComputedPaths) {
    WriteString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath", (m_install + L"data/"));
    EXPECT_EQ(GetKelAMHelpPath(L"/i/"), CString(L"/i/lang/English/AM.chm"));
    EXPECT_EQ(GetWhatsNewPDFFilePath(L"/i/"),
              CString(L"/i/lang/English/Manuals/kel_whats_new.pdf"));
    EXPECT_EQ(GetKelTaskPaneINIFilePath(L"/i/"), m_install + L"data/KelTaskPaneWebCtrl.ini");
    EXPECT_EQ(GetUtilitiesDllPath(L"/i/"), CString(L"/i/KelUtilities/"));
    EXPECT_EQ(GetUtilitiesDllName(), CString(L"KelUtilitiesu.dll"));

    const CString recordings = GetSimulationRecordingFolderPath(L"/unused/");
    EXPECT_EQ(recordings, m_install + L"data/SimulationRecordings/");
    EXPECT_TRUE(std::filesystem::is_directory(m_root / "install/data/SimulationRecordings"));

    CString out;
    GetCorrectToolFilePath(L"/unused/", L"C:\\Old\\Data\\Tooling\\Mill\\t1.tool", out);
    EXPECT_EQ(out, m_install + L"data/Tooling/Mill/t1.tool");
    GetCorrectToolFilePath(L"/unused/", L"/other/t1.tool", out);
    EXPECT_EQ(out, CString(L"/other/t1.tool"));
}

TEST_F(DataFoldersTest, EDMPathsFromTheTreeOrBelowTheData) {
    WriteString(HKEY_CURRENT_USER, kApplicationKey, L"KelDataPath", L"/data/");
    EXPECT_EQ(ExtractEDMCuttingConditionPath(L"/i/"), CString(L"/data/Edm/EDMCuttingConditions/"));
    EXPECT_EQ(ExtractEDMPostFilePath(L"/i/"), CString(L"/data/Edm/Posts/"));
    OrvSettingsKey tree(L"Application", L"Software\\Unused");
    auto* edm = new OrvSettingsKey(L"EDMApp", L"Software\\Unused\\EDMApp");
    edm->AddValue(L"EdmCutCondPath", CString());
    edm->AddValue(L"EdmPostFilePath", CString());
    tree.AddKey(edm);
    g_tree = &tree;
    RegisterTree(true);
    StoreEDMPathInSettings(L"EdmPostFilePath", L"/edm/posts");
    EXPECT_EQ(ExtractEDMPostFilePath(L"/i/"), CString(L"/edm/posts"));
    EXPECT_EQ(ExtractEDMCuttingConditionPath(L"/i/"), CString(L"/data/Edm/EDMCuttingConditions/"));
}

TEST_F(DataFoldersTest, TutorialsOnlyForSixLanguages) {
    const CString install = CString(Folder("tut").c_str());
    Folder("tut/lang/French/Manuals");
    Folder("tut/lang/Spanish/Manuals");
    EXPECT_EQ(GetTutorialsPath(install, ORV_LANG_FRENCH), install + L"lang/French/Manuals");
    EXPECT_EQ(GetTutorialsPath(install, ORV_LANG_SPANISH), install + L"lang/English/Manuals");
    EXPECT_EQ(GetTutorialsPath(install, ORV_LANG_GERMAN), install + L"lang/English/Manuals");
}

TEST_F(DataFoldersTest, CommandTrackingFolderLevelsAreCreated) {
    CString path;
    EXPECT_TRUE(GetCommandTrackingFolderBelow(CString(Folder("common").c_str()), path));
    EXPECT_EQ(path, CString(Folder("common").c_str()) + L"Tarvex/LOGS/CommandTracking/");
    EXPECT_TRUE(std::filesystem::is_directory(m_root / "common/Tarvex/LOGS/CommandTracking"));
}

TEST_F(DataFoldersTest, VersionIndependentTemplateFolder) {
    EXPECT_EQ(GetVersionIndependentSetupSheetTemplatePath(), CString());
    WriteString(HKEY_CURRENT_USER, L"Software\\Halden\\Halden CAM\\SetupSheet", L"SaveStyleSheetTo",
                L"/sheets");
    EXPECT_EQ(GetVersionIndependentSetupSheetTemplatePath(), CString(L"/sheets"));
}

TEST(LanguageTableTest, HostWordsAndFolderNames) {
    EXPECT_EQ(GetFolderNameOfHostLanguage(L"FRENCH"), CString(L"French"));
    EXPECT_EQ(GetFolderNameOfHostLanguage(L"chinese"), CString(L"Chinese-Traditional"));
    EXPECT_EQ(GetFolderNameOfHostLanguage(L"chinese-simplified"), CString(L"Chinese"));
    EXPECT_EQ(GetFolderNameOfHostLanguage(L"portugese-brazilian"),
              CString(L"Portuguese-Brazilian"));
    EXPECT_EQ(GetFolderNameOfHostLanguage(L"portuguese-brazilian"), CString());
    EXPECT_EQ(GetFolderNameOfHostLanguage(L"greek"), CString());

    EXPECT_EQ(GetCorrespondingDBLangName(L"French"), ORV_LANG_FRENCH);
    EXPECT_EQ(GetCorrespondingDBLangName(L"french"), ORV_LANG_ENGLISH); // with case
    EXPECT_EQ(GetCorrespondingDBLangName(L"Czech"), ORV_LANG_CZECH);
    EXPECT_EQ(GetCorrespondingDBLangName(L"Greek"), ORV_LANG_ENGLISH);
    EXPECT_EQ(GetCorrespondingDBLangName(L""), ORV_LANG_ENGLISH);

    EXPECT_EQ(GetDatabaseLangTag(ORV_LANG_TURKISH), CString(L"en-US"));
    EXPECT_EQ(GetDatabaseLangTag(ORV_LANG_CHINESE_TRADITIONAL), CString(L"zh-CHT"));
    EXPECT_EQ(GetDatabaseLangTag(15), CString(L"en-US"));
    EXPECT_EQ(GetDatabaseLangFolderName(ORV_LANG_GREEK), CString(L"Greek"));
}

TEST(LanguageTableTest, SystemLanguageIds) {
    // MAKELANGID(primary, sub) = sub << 10 | primary.
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0408), ORV_LANG_GREEK);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0407), ORV_LANG_GERMAN);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0C07), ORV_LANG_GERMAN); // any sub-language
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0416), ORV_LANG_PORTUGUESE_BRAZILIAN);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0816), ORV_LANG_ENGLISH); // Portugal
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0404), ORV_LANG_CHINESE_TRADITIONAL);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0804), ORV_LANG_CHINESE);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0C04), ORV_LANG_CHINESE_TRADITIONAL);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x1004), ORV_LANG_CHINESE);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x1404), ORV_LANG_CHINESE_TRADITIONAL);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x1804), ORV_LANG_ENGLISH);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x040C), ORV_LANG_FRENCH);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0405), ORV_LANG_CZECH);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x041F), ORV_LANG_TURKISH);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0419), ORV_LANG_RUSSIAN);
    EXPECT_EQ(GetLangCodeOfSystemLangId(0x0413), ORV_LANG_ENGLISH); // Dutch has no row
}

} // namespace
