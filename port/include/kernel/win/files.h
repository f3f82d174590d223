// Win32 file attributes, answered from the file's POSIX mode and this process's access to it.
#pragma once

#include "port/Export.h"

#include "win/types.h"

#define INVALID_FILE_ATTRIBUTES ((DWORD)-1)
#define FILE_ATTRIBUTE_READONLY 0x00000001u
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010u
#define FILE_ATTRIBUTE_NORMAL 0x00000080u

// INVALID_FILE_ATTRIBUTES, with the last error set, when the path can't be examined. READONLY
// when this process may not both read and write it; NORMAL for a file with no other attribute.
ORV_API DWORD GetFileAttributesW(LPCWSTR path);
// Clearing READONLY gives the owner read and write permission; setting it takes every write
// permission away. Other attributes are ignored. FALSE, with the last error set, on failure.
ORV_API BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes);
