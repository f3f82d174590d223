#include "diagnostics/BoundedFormat.h"

#include <string>

#include "mfc/StringFormat.h"

CString FormatBounded(const CString& format, std::size_t bufferChars, va_list args) {
    std::wstring text;
    if (port::AppendFormatV(text, format.GetString(), args) < 0)
        return CString();
    if (bufferChars == 0)
        return CString();
    if (text.size() > bufferChars - 1)
        text.resize(bufferChars - 1);
    return CString(text.c_str());
}
