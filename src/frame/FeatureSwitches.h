// The feature switches: small DWORD values on the Debug keys that testers and support set by hand.
// Each reader opens its key anew and answers the stored value, or its default when the key does
// not restore.
#pragma once

int GetIsWIPImprovementEnabled();
int GetIsWIPInvalidateOnTPDeleteEnabled();
int GetIs3AxisFeatImprovementEnabled();
int GetIsDynamicWIPDisplayEnabled();
// "PrimeTurningSupport" on the Debug key, default 0. The name is this library's choice, made to
// stand beside the other prime-turning values.
int GetIsPrimeTurningRegSupport();
int GetIsPrimeTurningForFaceFinishRegSupport();
int GetIsPrimeTurningSupportsAllStrategies();
int GetIsPrimeTurningSupportsRetractDistance();
int GetIsToolBlockEnabled();
int GetIsVoluTurningSupportsAllStrategies();
int GetCommandTrackingLinesInLogFile();
int GetIsFolderSupportEnabled();
int IsSegMgrRegEnabled();
int orv_getIsAvoidChuckClippingEnabled();
int orv_getIsToolOffsetSupport();
int orv_getIsLogToolStationsListEnabled();
// "LegacyTurnDataCorrection": `exists` 1 and the stored value when the key restores, else
// `exists` 0 and `value` 0.
void GetLegacyTurnDataRegistryData(int& exists, int& value);

// Fixed answers.
int orv_getIsCRF1363ShareRegistryEnabled(); // always 1
int orv_getIsWorkAreaSpindleEnabled();      // always 0
// 1 exactly when GetIsPrimeTurningRegSupport() answers 1.
int IsPrimeTurnSupported();

// First-run writers: each writes its default on HKEY_CURRENT_USER when the value is missing and
// never changes an existing value. Each answers 1 when it wrote.
int SetShowCustomChuckOptionsDisplayRegistry();
int SetDefaultCalMaxFitCirInThread();
int SetDefaultTurnVariableBAxisSupport();
int SetTurnBAxisConTlpKeepArcMove();
int SetTurnBAxisConLLForArcFacet(); // a string on the PostData key
int SetBAxisFaceFinishOperSupport();
int SetSpindleDirForTurnMillTurnSupport();
int SetToolpathShowHideSupportKeyValue();
int SetTlpColorSupportKeyValue();
int SetTlpHiddenMoveColorSupportKeyValue();
int SetCRF1478StepThruSupportKeyValue();
int SetCRF1478TurnSupportKeyValue();
int SetCRF1478For2axSupportKeyValue();
int SetWIPArcRegistrySupportKeyValue();
// "PostingPerformanceImprovements" = 1 when the Debug key does not restore it.
int SetPostPerformanceImprovements();

// For the add-in: make the embedded browser control of "HALDEN.exe" / "Edge.exe" use current
// rendering (11001) unless a value is already there.
int SetHaldenExeNameToRegistry();
int SetOstrandExeNameToRegistry();

// The environment's switches, or 0 without an environment.
int GetMultiSurfaceByID();
int GetDisplayPLYFileRegStatus();
int GetIsAvoidChuckClippingEnabled();
