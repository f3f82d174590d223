// The product's registry root, the plain registry readers and writers, and the debug-value
// helpers. Absence of a plain DWORD reads as 1: switched on.
#pragma once

#include "port/Export.h"

#include <windows.h>

#include "mfc/CString.h"

// "Software\Halden\Halden CAM\": the product root. Every key path of the library comes from here.
ORV_API CString GetProductRegistryRoot();
// Root + major version: a new major version starts a new key tree.
ORV_API CString GetVersionKeyPath();
// Version key + "\Debug": switches bound to this version.
ORV_API CString GetDebugKeyPath();
// Root + "Debug": switches that hold across versions.
ORV_API CString GetVersionIndependentDebugKeyPath();
// Root + "PostData" and root + "SetupSheet".
ORV_API CString GetPostDataKeyPath();
ORV_API CString GetSetupSheetKeyPath();

// The DWORD, or 1 when the key or the value can't be read.
ORV_API int GetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name);
// The same; `exists` is 1 when the read succeeded, else 0.
ORV_API int GetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name, int& exists);
// Writes a REG_DWORD, creating the key when it is missing. Failure is not reported.
ORV_API void SetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name, int value);
// The string (at most 1000 characters), or empty on failure.
ORV_API CString GetRegSettingStringValue(HKEY root, CString subKey, wchar_t* name);
ORV_API void RegSettingDeleteValue(HKEY root, CString subKey, CString name);
// Writes REG_SZ into an existing key (none is created), without a terminator in the byte count.
// 1 on success, else 0.
ORV_API int SetRegistryValueForString(HKEY root, CString subKey, CString name, CString value);

// A value of the Debug key, or `defaultValue` when the key does not restore.
ORV_API int GetDebugRegistryVal(CString& name, int defaultValue);
ORV_API CString GetDebugRegistryVal(CString& name, CString defaultValue);
// The same on the version-independent Debug key.
ORV_API int GetVersionIndependentDebugRegistryVal(CString& name, int defaultValue);

// A DWORD value of one key at `path` (key name "Debug"), or `defaultValue` when the key does not
// restore. Each call opens the key anew.
ORV_API int ReadDebugDwordValue(const CString& path, const wchar_t* name, int defaultValue);

// Which uninstall list GetAppInstallPathFromReg walks.
enum ORV_APP_TYPE { ORV_APP_NATIVE = 0, ORV_APP_WOW6432 = 1 };
// "InstallLocation" + `suffix` of the first uninstall entry on HKEY_LOCAL_MACHINE whose
// "DisplayName" equals `displayName` without regard to case; empty when none does.
ORV_API CString GetAppInstallPathFromReg(CString displayName, ORV_APP_TYPE type, CString suffix);
