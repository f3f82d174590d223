#include "addin/AddinText.h"

#include <cstdarg>

#include "mfc/CString.h"

void AddinPrint(FILE* file, const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    CString text;
    text.FormatV(format, args);
    va_end(args);
    std::fputs(CStringA(text).GetString(), file);
}
