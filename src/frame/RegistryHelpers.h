// The product's registry root, the plain registry readers and writers, and the debug-value
// helpers. Absence of a plain DWORD reads as 1: switched on.
#pragma once

#include <windows.h>

#include "mfc/CString.h"

// "Software\Halden\Halden CAM\": the product root. Every key path of the library comes from here.
CString GetProductRegistryRoot();
// Root + major version: a new major version starts a new key tree.
CString GetVersionKeyPath();
// Version key + "\Debug": switches bound to this version.
CString GetDebugKeyPath();
// Root + "Debug": switches that hold across versions.
CString GetVersionIndependentDebugKeyPath();
// Root + "PostData" and root + "SetupSheet".
CString GetPostDataKeyPath();
CString GetSetupSheetKeyPath();

// The DWORD, or 1 when the key or the value can't be read.
int GetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name);
// The same; `exists` is 1 when the read succeeded, else 0.
int GetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name, int& exists);
// Writes a REG_DWORD, creating the key when it is missing. Failure is not reported.
void SetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name, int value);
// The string (at most 1000 characters), or empty on failure.
CString GetRegSettingStringValue(HKEY root, CString subKey, wchar_t* name);
void RegSettingDeleteValue(HKEY root, CString subKey, CString name);
// Writes REG_SZ into an existing key (none is created), without a terminator in the byte count.
// 1 on success, else 0.
int SetRegistryValueForString(HKEY root, CString subKey, CString name, CString value);

// A value of the Debug key, or `defaultValue` when the key does not restore.
int GetDebugRegistryVal(CString& name, int defaultValue);
CString GetDebugRegistryVal(CString& name, CString defaultValue);
// The same on the version-independent Debug key.
int GetVersionIndependentDebugRegistryVal(CString& name, int defaultValue);

// A DWORD value of one key at `path` (key name "Debug"), or `defaultValue` when the key does not
// restore. Each call opens the key anew.
int ReadDebugDwordValue(const CString& path, const wchar_t* name, int defaultValue);

// Which uninstall list GetAppInstallPathFromReg walks.
enum ORV_APP_TYPE { ORV_APP_NATIVE = 0, ORV_APP_WOW6432 = 1 };
// "InstallLocation" + `suffix` of the first uninstall entry on HKEY_LOCAL_MACHINE whose
// "DisplayName" equals `displayName` without regard to case; empty when none does.
CString GetAppInstallPathFromReg(CString displayName, ORV_APP_TYPE type, CString suffix);
