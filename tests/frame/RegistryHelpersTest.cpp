#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

#include <fstream>

#include "frame/FeatureSwitches.h"
#include "frame/RegistryHelpers.h"
#include "port/ProcessQueries.h"
#include "support/EnvironmentTest.h"

namespace {

using RegistryHelpersTest = EnvironmentTest;

TEST_F(RegistryHelpersTest, KeyPathsFollowTheRootRule) {
    EXPECT_EQ(GetProductRegistryRoot(), CString(L"Software\\Halden\\Halden CAM\\"));
    EXPECT_EQ(GetVersionKeyPath(), CString(kVersionKey));
    EXPECT_EQ(GetDebugKeyPath(), CString(kDebugKey));
    EXPECT_EQ(GetVersionIndependentDebugKeyPath(), CString(kIndependentDebugKey));
    EXPECT_EQ(GetPostDataKeyPath(), CString(kPostDataKey));
    EXPECT_EQ(GetSetupSheetKeyPath(), CString(L"Software\\Halden\\Halden CAM\\SetupSheet"));
}

TEST_F(RegistryHelpersTest, PlainDwordReaderAnswersOneWhenAbsent) {
    wchar_t name[] = L"Missing";
    int exists = 7;
    EXPECT_EQ(GetRegSettingDwordValue(HKEY_CURRENT_USER, L"Software\\Nowhere", name, exists), 1);
    EXPECT_EQ(exists, 0);
    EXPECT_EQ(GetRegSettingDwordValue(HKEY_CURRENT_USER, L"Software\\Nowhere", name), 1);

    WriteDword(HKEY_CURRENT_USER, L"Software\\Here", L"Zero", 0);
    wchar_t zero[] = L"Zero";
    EXPECT_EQ(GetRegSettingDwordValue(HKEY_CURRENT_USER, L"Software\\Here", zero, exists), 0);
    EXPECT_EQ(exists, 1);
    // The key exists but not the value.
    EXPECT_EQ(GetRegSettingDwordValue(HKEY_CURRENT_USER, L"Software\\Here", name, exists), 1);
    EXPECT_EQ(exists, 0);
}

TEST_F(RegistryHelpersTest, DwordWriterCreatesAMissingKey) {
    wchar_t name[] = L"Value";
    SetRegSettingDwordValue(HKEY_CURRENT_USER, L"Software\\A\\B", name, 42);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, L"Software\\A\\B", L"Value"), 42);
    SetRegSettingDwordValue(HKEY_CURRENT_USER, L"Software\\A\\B", name, -1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, L"Software\\A\\B", L"Value"), 0xFFFFFFFFLL);
}

TEST_F(RegistryHelpersTest, StringReaderAndDelete) {
    wchar_t name[] = L"Text";
    EXPECT_EQ(GetRegSettingStringValue(HKEY_CURRENT_USER, L"Software\\S", name), CString());
    WriteString(HKEY_CURRENT_USER, L"Software\\S", L"Text", L"C:\\Data\\");
    EXPECT_EQ(GetRegSettingStringValue(HKEY_CURRENT_USER, L"Software\\S", name),
              CString(L"C:\\Data\\"));
    // A DWORD is not a string.
    WriteDword(HKEY_CURRENT_USER, L"Software\\S", L"Number", 3);
    wchar_t number[] = L"Number";
    EXPECT_EQ(GetRegSettingStringValue(HKEY_CURRENT_USER, L"Software\\S", number), CString());
    RegSettingDeleteValue(HKEY_CURRENT_USER, L"Software\\S", L"Text");
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, L"Software\\S", L"Text"), L"<none>");
}

TEST_F(RegistryHelpersTest, StringWriterNeedsTheKeyAndCountsNoTerminator) {
    EXPECT_EQ(SetRegistryValueForString(HKEY_CURRENT_USER, L"Software\\Absent", L"V", L"abc"), 0);
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, L"Software\\Absent"));

    WriteDword(HKEY_CURRENT_USER, L"Software\\Present", L"Other", 1);
    EXPECT_EQ(SetRegistryValueForString(HKEY_CURRENT_USER, L"Software\\Present", L"V", L"abc"), 1);
    DWORD bytes = 0;
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, L"Software\\Present", L"V", &bytes), L"abc");
    EXPECT_EQ(bytes, 3 * sizeof(wchar_t));
}

TEST_F(RegistryHelpersTest, DebugHelpersTakeTheStoredValueOnlyWhenItRestores) {
    CString name = L"SomeSwitch";
    EXPECT_EQ(GetDebugRegistryVal(name, 5), 5);
    EXPECT_EQ(GetVersionIndependentDebugRegistryVal(name, 6), 6);
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"SomeSwitch", 0);
    EXPECT_EQ(GetDebugRegistryVal(name, 5), 0);
    EXPECT_EQ(GetVersionIndependentDebugRegistryVal(name, 6), 6); // other key
    WriteDword(HKEY_CURRENT_USER, kIndependentDebugKey, L"SomeSwitch", 9);
    EXPECT_EQ(GetVersionIndependentDebugRegistryVal(name, 6), 9);

    CString language = L"HDCAMLanguage";
    EXPECT_EQ(GetDebugRegistryVal(language, CString()), CString());
    WriteString(HKEY_CURRENT_USER, kDebugKey, L"HDCAMLanguage", L"French");
    EXPECT_EQ(GetDebugRegistryVal(language, CString()), CString(L"French"));
}

TEST_F(RegistryHelpersTest, SwitchDefaultsWhenNothingIsStored) {
    int row = 0; // a failure names the position in the list
    for (int (*on)() :
         {GetIsWIPImprovementEnabled, GetIsWIPInvalidateOnTPDeleteEnabled,
          GetIs3AxisFeatImprovementEnabled, GetIsToolBlockEnabled, GetIsFolderSupportEnabled,
          IsSegMgrRegEnabled, orv_getIsAvoidChuckClippingEnabled, orv_getIsToolOffsetSupport,
          orv_getIsCRF1363ShareRegistryEnabled})
        EXPECT_EQ(on(), 1) << "switch " << row++;
    for (int (*off)() :
         {GetIsDynamicWIPDisplayEnabled, GetIsPrimeTurningForFaceFinishRegSupport,
          GetIsPrimeTurningSupportsAllStrategies, GetIsPrimeTurningSupportsRetractDistance,
          GetIsVoluTurningSupportsAllStrategies, GetCommandTrackingLinesInLogFile,
          orv_getIsLogToolStationsListEnabled, orv_getIsWorkAreaSpindleEnabled})
        EXPECT_EQ(off(), 0) << "switch " << row++;
    int exists = 9, value = 9;
    GetLegacyTurnDataRegistryData(exists, value);
    EXPECT_EQ(exists, 0);
    EXPECT_EQ(value, 0);
}

TEST_F(RegistryHelpersTest, SwitchesReadTheirOwnKey) {
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"EnableFolderSupport", 0);
    EXPECT_EQ(GetIsFolderSupportEnabled(), 0);
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"CommandTrackingLinesInLogFile", 500);
    EXPECT_EQ(GetCommandTrackingLinesInLogFile(), 500);
    // A version-bound value does not reach a version-independent switch.
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"AvoidChuckClipping", 0);
    EXPECT_EQ(orv_getIsAvoidChuckClippingEnabled(), 1);
    WriteDword(HKEY_CURRENT_USER, kIndependentDebugKey, L"AvoidChuckClipping", 0);
    EXPECT_EQ(orv_getIsAvoidChuckClippingEnabled(), 0);
    WriteDword(HKEY_CURRENT_USER, kIndependentDebugKey, L"EnableDynamicWIPDisplay", 1);
    EXPECT_EQ(GetIsDynamicWIPDisplayEnabled(), 1);
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"LegacyTurnDataCorrection", 3);
    int exists = 0, value = 0;
    GetLegacyTurnDataRegistryData(exists, value);
    EXPECT_EQ(exists, 1);
    EXPECT_EQ(value, 3);
}

TEST_F(RegistryHelpersTest, FirstRunWritersWriteOnceAndKeepExistingValues) {
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"BAxisContinuousSupport", 2);
    EXPECT_EQ(SetDefaultTurnVariableBAxisSupport(), 0);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"BAxisContinuousSupport"), 2);

    int row = 0;
    for (int (*writer)() :
         {SetShowCustomChuckOptionsDisplayRegistry, SetDefaultCalMaxFitCirInThread,
          SetTurnBAxisConTlpKeepArcMove, SetTurnBAxisConLLForArcFacet,
          SetBAxisFaceFinishOperSupport, SetSpindleDirForTurnMillTurnSupport,
          SetToolpathShowHideSupportKeyValue, SetTlpColorSupportKeyValue,
          SetTlpHiddenMoveColorSupportKeyValue, SetCRF1478StepThruSupportKeyValue,
          SetCRF1478TurnSupportKeyValue, SetCRF1478For2axSupportKeyValue,
          SetWIPArcRegistrySupportKeyValue, SetPostPerformanceImprovements})
        EXPECT_EQ(writer(), 1) << "writer " << row++;
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"ShowCustomChuckOptions"), 1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"CalMaxFitCirInThreads"), 0);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"ContinuousBAxisTlpKeepArcMoves"), 0);
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kPostDataKey, L"LinearLengthForArcFacet"), L"0.01");
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"BAxisFaceFinishOperationSupport"), 0);
    EXPECT_EQ(
        ReadDword(HKEY_CURRENT_USER, kDebugKey, L"NewSetSpindleDirForTurnMillTurnMachineSupport"),
        1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"GetWIPArcSupport"), 1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"PostingPerformanceImprovements"), 1);

    // A user's change survives the next start.
    WriteDword(HKEY_CURRENT_USER, kDebugKey, L"ShowCustomChuckOptions", 0);
    WriteString(HKEY_CURRENT_USER, kPostDataKey, L"LinearLengthForArcFacet", L"0.5");
    EXPECT_EQ(SetShowCustomChuckOptionsDisplayRegistry(), 0);
    EXPECT_EQ(SetTurnBAxisConLLForArcFacet(), 0);
    EXPECT_EQ(SetPostPerformanceImprovements(), 0);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"ShowCustomChuckOptions"), 0);
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kPostDataKey, L"LinearLengthForArcFacet"), L"0.5");
}

TEST_F(RegistryHelpersTest, ANewMajorVersionRunsTheWritersAgain) {
    // Values of an older version's tree do not count.
    WriteDword(HKEY_CURRENT_USER, L"Software\\Halden\\Halden CAM\\2025\\Debug",
               L"ShowCustomChuckOptions", 0);
    EXPECT_EQ(SetShowCustomChuckOptionsDisplayRegistry(), 1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kDebugKey, L"ShowCustomChuckOptions"), 1);
}

TEST_F(RegistryHelpersTest, BrowserEmulationIsWrittenOnlyWhenMissing) {
    const wchar_t* key = L"SOFTWARE\\Microsoft\\Internet Explorer\\Main\\FeatureControl\\"
                         L"FEATURE_BROWSER_EMULATION";
    WriteDword(HKEY_CURRENT_USER, key, L"Edge.exe", 7000);
    EXPECT_EQ(SetHaldenExeNameToRegistry(), 1);
    EXPECT_EQ(SetOstrandExeNameToRegistry(), 0);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, key, L"HALDEN.exe"), 11001);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, key, L"Edge.exe"), 7000);
}

TEST_F(RegistryHelpersTest, InstallPathFromTheUninstallList) {
    const CString native = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
    const CString wow = L"Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
    WriteString(HKEY_LOCAL_MACHINE, native + L"\\{A}", L"DisplayName", L"Other Tool");
    WriteString(HKEY_LOCAL_MACHINE, native + L"\\{A}", L"InstallLocation", L"/opt/other/");
    WriteString(HKEY_LOCAL_MACHINE, native + L"\\{B}", L"DisplayName", L"Eureka Machine");
    WriteString(HKEY_LOCAL_MACHINE, native + L"\\{B}", L"InstallLocation", L"/opt/eureka/");
    WriteString(HKEY_LOCAL_MACHINE, wow + L"\\{C}", L"DisplayName", L"Eureka Machine");
    WriteString(HKEY_LOCAL_MACHINE, wow + L"\\{C}", L"InstallLocation", L"/opt/eureka32/");

    EXPECT_EQ(GetAppInstallPathFromReg(L"EUREKA machine", ORV_APP_NATIVE, L"bin/eureka"),
              CString(L"/opt/eureka/bin/eureka"));
    EXPECT_EQ(GetAppInstallPathFromReg(L"eureka machine", ORV_APP_WOW6432, L""),
              CString(L"/opt/eureka32/"));
    EXPECT_EQ(GetAppInstallPathFromReg(L"Unknown", ORV_APP_NATIVE, L"x"), CString());
}

TEST_F(RegistryHelpersTest, ProcessesByExecutableName) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe").filename().string();
    EXPECT_EQ(IsProcessAlreadyRunning(self.c_str()), 1);
    std::string upper = self;
    for (char& c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(IsProcessAlreadyRunning(upper.c_str()), 1);
    EXPECT_EQ(IsProcessAlreadyRunning("no-such-program-here.exe"), 0);
    EXPECT_EQ(IsProcessAlreadyRunning(""), 0);
    std::wstring wide(self.begin(), self.end());
    EXPECT_EQ(IsProcessAlreadyRunning2(wide.data()), 1);
}

TEST_F(RegistryHelpersTest, TerminatingAProcessThatIsNotThere) {
    EXPECT_EQ(TerminateProcessById(0xFFFFFFFFul), 1);
    EXPECT_EQ(TerminateProcessById(0), 1);
}

} // namespace
