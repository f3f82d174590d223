#include "core/OrvDumpBanner.h"

void OrvDumpBanner(FILE* file, const wchar_t* className, const wchar_t* which) {
    port::FilePrintf(file,
                     L"\n============================ %s %s ================================\n",
                     className, which);
}
