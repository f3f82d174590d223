// The generic-text names of the Microsoft runtime, in their Unicode form: TCHAR is wchar_t.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cwchar>

#include "win/types.h"

using _TCHAR = wchar_t;
using _TSCHAR = wchar_t;
using _TUCHAR = wchar_t;

#define _tcslen wcslen
#define _tcscpy wcscpy
#define _tcsncpy wcsncpy
#define _tcscat wcscat
#define _tcsncat wcsncat
#define _tcscmp wcscmp
#define _tcsncmp wcsncmp
#define _tcschr wcschr
#define _tcsrchr wcsrchr
#define _tcsstr wcsstr
#define _tcsspn wcsspn
#define _tcscspn wcscspn
#define _tcstol wcstol
#define _tcstoul wcstoul
#define _tcstod wcstod
#define _tcscoll wcscoll
#define _ttoi _wtoi
#define _ttol _wtol
#define _tstof _wtof

// Decimal text to a number; values past a Windows int or long (both 32-bit) clamp to its range.
inline long _wtol(const wchar_t* text) {
    const long value = std::wcstol(text, nullptr, 10);
    return std::clamp<long>(value, INT_MIN, INT_MAX);
}
inline int _wtoi(const wchar_t* text) {
    return static_cast<int>(_wtol(text));
}
inline double _wtof(const wchar_t* text) {
    return std::wcstod(text, nullptr);
}
