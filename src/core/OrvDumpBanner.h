// The Start and End banners of the settings classes' text dumps.
#pragma once

#include <cstdio>

#include "mfc/StringFormat.h"

// Writes "\n============================ <className> <which> ================================\n".
void OrvDumpBanner(FILE* file, const wchar_t* className, const wchar_t* which);
