#include "frame/FeatureSwitches.h"

#include "frame/RegistryHelpers.h"
#include "settings/OrvSettingsKey.h"

namespace {

int DebugSwitch(const wchar_t* name, int defaultValue) {
    return ReadDebugDwordValue(GetDebugKeyPath(), name, defaultValue);
}

int IndependentSwitch(const wchar_t* name, int defaultValue) {
    return ReadDebugDwordValue(GetVersionIndependentDebugKeyPath(), name, defaultValue);
}

int WriteDwordOnce(const CString& path, const wchar_t* name, int defaultValue) {
    CString valueName = name;
    int exists = 0;
    GetRegSettingDwordValue(HKEY_CURRENT_USER, path, valueName.GetBuffer(), exists);
    if (exists)
        return 0;
    SetRegSettingDwordValue(HKEY_CURRENT_USER, path, valueName.GetBuffer(), defaultValue);
    return 1;
}

int WriteDebugDwordOnce(const wchar_t* name, int defaultValue) {
    return WriteDwordOnce(GetDebugKeyPath(), name, defaultValue);
}

// Browser emulation for the embedded control: 11001 is the current rendering mode.
int SetBrowserEmulation(const wchar_t* exeName) {
    return WriteDwordOnce(L"SOFTWARE\\Microsoft\\Internet Explorer\\Main\\FeatureControl\\"
                          L"FEATURE_BROWSER_EMULATION",
                          exeName, 11001);
}

} // namespace

int GetIsWIPImprovementEnabled() {
    return IndependentSwitch(L"EnableWIPImprovement", 1);
}
int GetIsWIPInvalidateOnTPDeleteEnabled() {
    return IndependentSwitch(L"EnableWIPInvalidateOnTPDelete", 1);
}
int GetIs3AxisFeatImprovementEnabled() {
    return IndependentSwitch(L"Enable3AxisFeatImprovement", 1);
}
int GetIsDynamicWIPDisplayEnabled() {
    return IndependentSwitch(L"EnableDynamicWIPDisplay", 0);
}
int GetIsPrimeTurningRegSupport() {
    return DebugSwitch(L"PrimeTurningSupport", 0);
}
int GetIsPrimeTurningForFaceFinishRegSupport() {
    return DebugSwitch(L"PrimeTurningSupportForFaceFinish", 0);
}
int GetIsPrimeTurningSupportsAllStrategies() {
    return DebugSwitch(L"PrimeTurningSupportsAllStrategies", 0);
}
int GetIsPrimeTurningSupportsRetractDistance() {
    return DebugSwitch(L"PrimeTurningSupportsRetractDistance", 0);
}
int GetIsToolBlockEnabled() {
    return DebugSwitch(L"EnableToolBlock", 1);
}
int GetIsVoluTurningSupportsAllStrategies() {
    return DebugSwitch(L"VoluTurningSupportsAllStrategies", 0);
}
int GetCommandTrackingLinesInLogFile() {
    return DebugSwitch(L"CommandTrackingLinesInLogFile", 0);
}
int GetIsFolderSupportEnabled() {
    return DebugSwitch(L"EnableFolderSupport", 1);
}
int IsSegMgrRegEnabled() {
    return IndependentSwitch(L"SegmentationMgr", 1);
}
int orv_getIsAvoidChuckClippingEnabled() {
    return IndependentSwitch(L"AvoidChuckClipping", 1);
}
int orv_getIsToolOffsetSupport() {
    return DebugSwitch(L"EnableSwissToolOffset", 1);
}
int orv_getIsLogToolStationsListEnabled() {
    return DebugSwitch(L"LogToolStationsList", 0);
}

void GetLegacyTurnDataRegistryData(int& exists, int& value) {
    OrvSettingsKey key(L"Debug", GetDebugKeyPath());
    key.AddValue(L"LegacyTurnDataCorrection", 0);
    exists = 0;
    value = 0;
    if (key.RestoreValuesFromRegistry()) {
        exists = 1;
        key.GetValue(L"LegacyTurnDataCorrection", value);
    }
}

int orv_getIsCRF1363ShareRegistryEnabled() {
    return 1;
}
int orv_getIsWorkAreaSpindleEnabled() {
    return 0;
}
int IsPrimeTurnSupported() {
    return GetIsPrimeTurningRegSupport() == 1;
}

int SetShowCustomChuckOptionsDisplayRegistry() {
    return WriteDebugDwordOnce(L"ShowCustomChuckOptions", 1);
}
int SetDefaultCalMaxFitCirInThread() {
    return WriteDebugDwordOnce(L"CalMaxFitCirInThreads", 0);
}
int SetDefaultTurnVariableBAxisSupport() {
    return WriteDebugDwordOnce(L"BAxisContinuousSupport", 4);
}
int SetTurnBAxisConTlpKeepArcMove() {
    return WriteDebugDwordOnce(L"ContinuousBAxisTlpKeepArcMoves", 0);
}

int SetTurnBAxisConLLForArcFacet() {
    OrvSettingsKey key(L"PostData", GetPostDataKeyPath());
    key.AddValue(L"LinearLengthForArcFacet", CString(L"0.01"));
    if (key.RestoreValuesFromRegistry())
        return 0;
    key.SaveValuesToRegistry();
    return 1;
}

int SetBAxisFaceFinishOperSupport() {
    return WriteDebugDwordOnce(L"BAxisFaceFinishOperationSupport", 0);
}
int SetSpindleDirForTurnMillTurnSupport() {
    return WriteDebugDwordOnce(L"NewSetSpindleDirForTurnMillTurnMachineSupport", 1);
}
int SetToolpathShowHideSupportKeyValue() {
    return WriteDebugDwordOnce(L"ShowHideToolpathSegmentsSupport", 1);
}
int SetTlpColorSupportKeyValue() {
    return WriteDebugDwordOnce(L"ColorToolpathSegmentsSupport", 1);
}
int SetTlpHiddenMoveColorSupportKeyValue() {
    return WriteDebugDwordOnce(L"ColorHiddenTlpMoveSupport", 1);
}
int SetCRF1478StepThruSupportKeyValue() {
    return WriteDebugDwordOnce(L"StepThruTlpCRFSupport", 1);
}
int SetCRF1478TurnSupportKeyValue() {
    return WriteDebugDwordOnce(L"CRF1478TurnSupport", 1);
}
int SetCRF1478For2axSupportKeyValue() {
    return WriteDebugDwordOnce(L"CRF1478For2axSupport", 1);
}
int SetWIPArcRegistrySupportKeyValue() {
    return WriteDebugDwordOnce(L"GetWIPArcSupport", 1);
}

int SetPostPerformanceImprovements() {
    OrvSettingsKey key(L"Debug", GetDebugKeyPath());
    key.AddValue(L"PostingPerformanceImprovements", 1);
    if (key.RestoreValuesFromRegistry())
        return 0;
    key.SaveValuesToRegistry();
    return 1;
}

int SetHaldenExeNameToRegistry() {
    return SetBrowserEmulation(L"HALDEN.exe");
}
int SetOstrandExeNameToRegistry() {
    return SetBrowserEmulation(L"Edge.exe");
}
