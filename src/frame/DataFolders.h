// The data folders and tool paths: each has a named string value in the "Application" key under
// the version key, seeded once by a SetDefault... function and read afresh by a Get... function.
// `install` is the install folder and `lang` the language folder below it, both with a final
// separator; the environment passes its own.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

// Appends the native separator to a non-empty path that does not end in one ('/' or '\').
ORV_API CString EnsureTrailingSeparator(CString path);

// Seeding: 1 when a default was written, 0 when a value was already there. The data folder is
// also copied from, or seeded on, HKEY_LOCAL_MACHINE.
ORV_API int SetDefaultKelDataPath(const CString& install);
ORV_API int SetDefaultSetupSheetImagePath(const CString& install, const CString& lang);
ORV_API int SetDefaultSetupSheetTemplatePath(const CString& install, const CString& lang);
ORV_API int SetDefaultSubSpndleOperFolderPath(const CString& install);
ORV_API int SetDefaultMachineSimulationApplicationPath(const CString& install);
ORV_API int SetDefaultSimulationMachineFolderPath(const CString& install);
ORV_API int SetDefaultSimulationControllerFolderPath(const CString& install);
ORV_API int SetDefaultSimulationJobFolderPath(const CString& install);

// Reading. The data folder: the user's value, else the machine's, else `install` (written to the
// machine's key). The others: the application settings tree when there is one, else the user's
// key; the simulation folders fall back to the machine's key. Each ends in a separator.
ORV_API CString GetKelDataPath(const CString& install);
ORV_API CString GetKelCommonDataPath();
ORV_API CString GetSetupSheetImagePath();
ORV_API CString GetSetupSheetTemplatePath();
ORV_API CString GetSubSpindleOperFolderPath();
ORV_API CString GetDefaultSimulationMachineFolderPath();
ORV_API CString GetDefaultSimulationControllerFolderPath();
ORV_API CString GetDefaultSimulationJobFolderPath();
// "SaveStyleSheetTo" of the settings tree, else of the version-independent SetupSheet key.
ORV_API CString GetVersionIndependentSetupSheetTemplatePath();
// "EurekaExePath" of the version key on HKEY_LOCAL_MACHINE.
ORV_API CString GetVirtualMachinePath();
// The machine simulation program; an empty answer stays empty.
ORV_API CString GetIMSExePath();

// The EDM folders as stored in the tree's "EDMApp" key, else below the data folder.
ORV_API CString ExtractEDMCuttingConditionPath(const CString& install);
ORV_API CString ExtractEDMPostFilePath(const CString& install);
// Stores a value in the tree's "EDMApp" key when the tree has that key.
ORV_API void StoreEDMPathInSettings(const wchar_t* valueName, const CString& value);

// Computed without the registry.
ORV_API CString GetSimulationRecordingFolderPath(const CString& install); // created if missing
ORV_API CString GetKelAMHelpPath(const CString& install);
ORV_API CString GetWhatsNewPDFFilePath(const CString& install);
ORV_API CString GetManualPDFFilePath(const CString& install);
ORV_API CString GetKelTaskPaneINIFilePath(const CString& install);
ORV_API CString GetUtilitiesDllPath(const CString& install);
ORV_API CString GetUtilitiesDllName();
ORV_API CString GetEDMResourceDllPath(const CString& install, const CString& lang);
// Install + the language folder of `cutbaseLang` when it has tutorials + "Manuals", else the
// English one.
ORV_API CString GetTutorialsPath(const CString& install, int cutbaseLang);
// The machine's common data folder + "Tarvex/LOGS/CommandTracking", each level created. Answers
// whether the folder exists.
ORV_API bool GetProgramDataPathCommandTracking(CString& path);
// The part of `in` from "Tooling" on, placed behind the data folder; `in` unchanged otherwise.
ORV_API void GetCorrectToolFilePath(const CString& install, CString const& in, CString& out);
// The same below another common data folder.
ORV_API bool GetCommandTrackingFolderBelow(const CString& commonData, CString& path);
