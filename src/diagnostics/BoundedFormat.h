// printf-style formatting into a buffer of fixed size, as the message texts have always been made:
// what does not fit is cut off.
#pragma once

#include <cstdarg>
#include <cstddef>

#include "mfc/CString.h"

// `format` with `args`, cut to `bufferChars` - 1 characters. A refused format gives the empty
// string.
CString FormatBounded(const CString& format, std::size_t bufferChars, va_list args);
