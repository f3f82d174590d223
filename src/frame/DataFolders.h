// The data folders and tool paths: each has a named string value in the "Application" key under
// the version key, seeded once by a SetDefault... function and read afresh by a Get... function.
// `install` is the install folder and `lang` the language folder below it, both with a final
// separator; the environment passes its own.
#pragma once

#include "mfc/CString.h"

// Appends the native separator to a non-empty path that does not end in one ('/' or '\').
CString EnsureTrailingSeparator(CString path);

// Seeding: 1 when a default was written, 0 when a value was already there. The data folder is
// also copied from, or seeded on, HKEY_LOCAL_MACHINE.
int SetDefaultKelDataPath(const CString& install);
int SetDefaultSetupSheetImagePath(const CString& install, const CString& lang);
int SetDefaultSetupSheetTemplatePath(const CString& install, const CString& lang);
int SetDefaultSubSpndleOperFolderPath(const CString& install);
int SetDefaultMachineSimulationApplicationPath(const CString& install);
int SetDefaultSimulationMachineFolderPath(const CString& install);
int SetDefaultSimulationControllerFolderPath(const CString& install);
int SetDefaultSimulationJobFolderPath(const CString& install);

// Reading. The data folder: the user's value, else the machine's, else `install` (written to the
// machine's key). The others: the application settings tree when there is one, else the user's
// key; the simulation folders fall back to the machine's key. Each ends in a separator.
CString GetKelDataPath(const CString& install);
CString GetKelCommonDataPath();
CString GetSetupSheetImagePath();
CString GetSetupSheetTemplatePath();
CString GetSubSpindleOperFolderPath();
CString GetDefaultSimulationMachineFolderPath();
CString GetDefaultSimulationControllerFolderPath();
CString GetDefaultSimulationJobFolderPath();
// "SaveStyleSheetTo" of the settings tree, else of the version-independent SetupSheet key.
CString GetVersionIndependentSetupSheetTemplatePath();
// "EurekaExePath" of the version key on HKEY_LOCAL_MACHINE.
CString GetVirtualMachinePath();
// The machine simulation program; an empty answer stays empty.
CString GetIMSExePath();

// The EDM folders as stored in the tree's "EDMApp" key, else below the data folder.
CString ExtractEDMCuttingConditionPath(const CString& install);
CString ExtractEDMPostFilePath(const CString& install);
// Stores a value in the tree's "EDMApp" key when the tree has that key.
void StoreEDMPathInSettings(const wchar_t* valueName, const CString& value);

// Computed without the registry.
CString GetSimulationRecordingFolderPath(const CString& install); // created if missing
CString GetKelAMHelpPath(const CString& install);
CString GetWhatsNewPDFFilePath(const CString& install);
CString GetManualPDFFilePath(const CString& install);
CString GetKelTaskPaneINIFilePath(const CString& install);
CString GetUtilitiesDllPath(const CString& install);
CString GetUtilitiesDllName();
CString GetEDMResourceDllPath(const CString& install, const CString& lang);
// Install + the language folder of `cutbaseLang` when it has tutorials + "Manuals", else the
// English one.
CString GetTutorialsPath(const CString& install, int cutbaseLang);
// The machine's common data folder + "Tarvex/LOGS/CommandTracking", each level created. Answers
// whether the folder exists.
bool GetProgramDataPathCommandTracking(CString& path);
// The part of `in` from "Tooling" on, placed behind the data folder; `in` unchanged otherwise.
void GetCorrectToolFilePath(const CString& install, CString const& in, CString& out);
// The same below another common data folder.
bool GetCommandTrackingFolderBelow(const CString& commonData, CString& path);
