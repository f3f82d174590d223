// The feature switches: small DWORD values on the Debug keys that testers and support set by hand.
// Each reader opens its key anew and answers the stored value, or its default when the key does
// not restore.
#pragma once

#include "port/Export.h"

ORV_API int GetIsWIPImprovementEnabled();
ORV_API int GetIsWIPInvalidateOnTPDeleteEnabled();
ORV_API int GetIs3AxisFeatImprovementEnabled();
ORV_API int GetIsDynamicWIPDisplayEnabled();
// "PrimeTurningSupport" on the Debug key, default 0. The name is this library's choice, made to
// stand beside the other prime-turning values.
ORV_API int GetIsPrimeTurningRegSupport();
ORV_API int GetIsPrimeTurningForFaceFinishRegSupport();
ORV_API int GetIsPrimeTurningSupportsAllStrategies();
ORV_API int GetIsPrimeTurningSupportsRetractDistance();
ORV_API int GetIsToolBlockEnabled();
ORV_API int GetIsVoluTurningSupportsAllStrategies();
ORV_API int GetCommandTrackingLinesInLogFile();
ORV_API int GetIsFolderSupportEnabled();
ORV_API int IsSegMgrRegEnabled();
ORV_API int orv_getIsAvoidChuckClippingEnabled();
ORV_API int orv_getIsToolOffsetSupport();
ORV_API int orv_getIsLogToolStationsListEnabled();
// "LegacyTurnDataCorrection": `exists` 1 and the stored value when the key restores, else
// `exists` 0 and `value` 0.
ORV_API void GetLegacyTurnDataRegistryData(int& exists, int& value);

// Fixed answers.
ORV_API int orv_getIsCRF1363ShareRegistryEnabled(); // always 1
ORV_API int orv_getIsWorkAreaSpindleEnabled();      // always 0
// 1 exactly when GetIsPrimeTurningRegSupport() answers 1.
ORV_API int IsPrimeTurnSupported();

// First-run writers: each writes its default on HKEY_CURRENT_USER when the value is missing and
// never changes an existing value. Each answers 1 when it wrote.
ORV_API int SetShowCustomChuckOptionsDisplayRegistry();
ORV_API int SetDefaultCalMaxFitCirInThread();
ORV_API int SetDefaultTurnVariableBAxisSupport();
ORV_API int SetTurnBAxisConTlpKeepArcMove();
ORV_API int SetTurnBAxisConLLForArcFacet(); // a string on the PostData key
ORV_API int SetBAxisFaceFinishOperSupport();
ORV_API int SetSpindleDirForTurnMillTurnSupport();
ORV_API int SetToolpathShowHideSupportKeyValue();
ORV_API int SetTlpColorSupportKeyValue();
ORV_API int SetTlpHiddenMoveColorSupportKeyValue();
ORV_API int SetCRF1478StepThruSupportKeyValue();
ORV_API int SetCRF1478TurnSupportKeyValue();
ORV_API int SetCRF1478For2axSupportKeyValue();
ORV_API int SetWIPArcRegistrySupportKeyValue();
// "PostingPerformanceImprovements" = 1 when the Debug key does not restore it.
ORV_API int SetPostPerformanceImprovements();

// For the add-in: make the embedded browser control of "HALDEN.exe" / "Edge.exe" use current
// rendering (11001) unless a value is already there.
ORV_API int SetHaldenExeNameToRegistry();
ORV_API int SetOstrandExeNameToRegistry();

// The environment's switches, or 0 without an environment.
ORV_API int GetMultiSurfaceByID();
ORV_API int GetDisplayPLYFileRegStatus();
ORV_API int GetIsAvoidChuckClippingEnabled();
