// Which Microsoft Access installations the machine has, and the registry values of the database
// front end that follow from them ("CutbaseForms", "Access32bit", "Access64bit" on the version
// key).
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

// 1 when Software\[Wow6432Node\]Microsoft\Office\<version>.0\Access\InstallRoot exists on
// HKEY_LOCAL_MACHINE (`wow` 1 for the 32-bit view).
ORV_API int CheckAccessVersionInstalled(int version, int wow);
// Tries versions 16, 15, 14, 12 and 11: `has64` from the native view, `has32` from the 32-bit one.
ORV_API void DetectAccessInstallations(int& has64, int& has32);

// The stored values, with their defaults (empty, 0, 0).
struct ORV_API CutbaseAccessValues {
    CString cutbaseForms;
    int access32 = 0;
    int access64 = 0;
};
ORV_API CutbaseAccessValues ReadCutbaseAccessValues();

// The constructor's step: records the detected Access bitnesses, seeds "CutbaseForms" on a first
// run (and "UseConfigData" = 1 under "EDMApp 2026\Debug"), and fits the front end's name to the
// Access that is present.
ORV_API void SetDefaultCutbaseForms();
// Records the detected bitnesses when they differ from the stored ones. 1 when it saved.
ORV_API int SetDatabaseInstallationDataForAccess();
// For the add-in: SetDatabaseInstallationDataForAccess() when the environment's active database
// is an Access one; otherwise, or without an active record, 0 and nothing is written. It asks
// AppEnv(), which starts the environment if the add-in has not.
ORV_API int SetDatabaseInstallationData();
