// Text output of the add-in's dumps: Microsoft-runtime formats (as CString::Format takes them)
// written to a C stream as UTF-8.
#pragma once

#include <cstdio>

void AddinPrint(FILE* file, const wchar_t* format, ...);
