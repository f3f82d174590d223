// The Win32 registry functions this library calls, over a persistent per-user and per-machine
// store.
#pragma once

#include "port/Export.h"

#include "win/error.h"
#include "win/time.h"
#include "win/types.h"

#define HKEY_CURRENT_USER ((HKEY)(ULONG_PTR)0x80000001u)
#define HKEY_LOCAL_MACHINE ((HKEY)(ULONG_PTR)0x80000002u)

#define KEY_QUERY_VALUE 0x0001u
#define KEY_SET_VALUE 0x0002u
#define KEY_CREATE_SUB_KEY 0x0004u
#define KEY_ENUMERATE_SUB_KEYS 0x0008u
#define KEY_NOTIFY 0x0010u
#define KEY_CREATE_LINK 0x0020u
#define KEY_WOW64_64KEY 0x0100u
#define KEY_WOW64_32KEY 0x0200u
#define KEY_READ 0x20019u
#define KEY_WRITE 0x20006u
#define KEY_EXECUTE 0x20019u
#define KEY_ALL_ACCESS 0xF003Fu

#define REG_NONE 0u
#define REG_SZ 1u
#define REG_EXPAND_SZ 2u
#define REG_BINARY 3u
#define REG_DWORD 4u
#define REG_DWORD_LITTLE_ENDIAN 4u
#define REG_DWORD_BIG_ENDIAN 5u
#define REG_LINK 6u
#define REG_MULTI_SZ 7u
#define REG_QWORD 11u
#define REG_QWORD_LITTLE_ENDIAN 11u

#define REG_OPTION_NON_VOLATILE 0x0000u

#define REG_CREATED_NEW_KEY 0x0001u
#define REG_OPENED_EXISTING_KEY 0x0002u

using LSTATUS = LONG;

// The security attributes are accepted for source compatibility and not used.
struct _SECURITY_ATTRIBUTES;
using LPSECURITY_ATTRIBUTES = _SECURITY_ATTRIBUTES*;

ORV_API LSTATUS RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD Reserved, LPWSTR lpClass,
                                DWORD dwOptions, REGSAM samDesired,
                                LPSECURITY_ATTRIBUTES lpSecurityAttributes, PHKEY phkResult,
                                LPDWORD lpdwDisposition);
ORV_API LSTATUS RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD ulOptions, REGSAM samDesired,
                              PHKEY phkResult);
ORV_API LSTATUS RegCloseKey(HKEY hKey);
ORV_API LSTATUS RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType,
                                 LPBYTE lpData, LPDWORD lpcbData);
ORV_API LSTATUS RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD Reserved, DWORD dwType,
                               const BYTE* lpData, DWORD cbData);
ORV_API LSTATUS RegDeleteValueW(HKEY hKey, LPCWSTR lpValueName);
ORV_API LSTATUS RegEnumValueW(HKEY hKey, DWORD dwIndex, LPWSTR lpValueName, LPDWORD lpcchValueName,
                              LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData, LPDWORD lpcbData);
ORV_API LSTATUS RegEnumKeyExW(HKEY hKey, DWORD dwIndex, LPWSTR lpName, LPDWORD lpcchName,
                              LPDWORD lpReserved, LPWSTR lpClass, LPDWORD lpcchClass,
                              PFILETIME lpftLastWriteTime);
ORV_API LSTATUS RegDeleteKeyW(HKEY hKey, LPCWSTR lpSubKey);
ORV_API LSTATUS RegQueryInfoKeyW(HKEY hKey, LPWSTR lpClass, LPDWORD lpcchClass, LPDWORD lpReserved,
                                 LPDWORD lpcSubKeys, LPDWORD lpcbMaxSubKeyLen,
                                 LPDWORD lpcbMaxClassLen, LPDWORD lpcValues,
                                 LPDWORD lpcbMaxValueNameLen, LPDWORD lpcbMaxValueLen,
                                 LPDWORD lpcbSecurityDescriptor, PFILETIME lpftLastWriteTime);
