// The Win32 scalar and handle types with their Windows widths (LLP64), whatever the host's model.
#pragma once

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = unsigned int;
using UINT = unsigned int;
using ULONG = unsigned int;
using LONG = int;
using BOOL = int;
using INT = int;
using SHORT = short;
using USHORT = unsigned short;
using CHAR = char;
using WCHAR = wchar_t;
using TCHAR = wchar_t;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using DWORD64 = unsigned long long;
using QWORD = unsigned long long;
using HRESULT = std::int32_t;
using LPARAM = std::intptr_t;
using WPARAM = std::uintptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using COLORREF = DWORD;
using REGSAM = DWORD;

using LPVOID = void*;
using LPCVOID = const void*;
using PVOID = void*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using LPLONG = LONG*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;

using HANDLE = void*;
using HKEY = struct HKEY__*;
using PHKEY = HKEY*;
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;

#ifndef __int64
#define __int64 long long
#endif

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

#ifndef _T
#define _T(x) L##x
#endif
#ifndef _TEXT
#define _TEXT(x) L##x
#endif

#define MAKEWORD(a, b) ((WORD)(((BYTE)(a)) | ((WORD)((BYTE)(b))) << 8))
#define MAKELONG(a, b) ((LONG)(((WORD)(a)) | ((DWORD)((WORD)(b))) << 16))
#define LOWORD(l) ((WORD)((DWORD)(l)&0xffff))
#define HIWORD(l) ((WORD)(((DWORD)(l) >> 16) & 0xffff))
#define LOBYTE(w) ((BYTE)((w)&0xff))
#define HIBYTE(w) ((BYTE)(((WORD)(w) >> 8) & 0xff))
#define RGB(r, g, b)                                                                               \
    ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define GetRValue(rgb) (LOBYTE(rgb))
#define GetGValue(rgb) (LOBYTE(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) (LOBYTE((rgb) >> 16))

static_assert(sizeof(WORD) == 2 && sizeof(DWORD) == 4 && sizeof(LONG) == 4 &&
              sizeof(LONGLONG) == 8);
