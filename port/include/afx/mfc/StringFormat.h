// printf-style formatting by the rules of the Microsoft C runtime, for strings and text files.
//
// Format strings are written for MSVC: in a wide format %s and %c take wide arguments and %S and
// %C narrow ones, in a narrow format the other way round; %hs/%hc are always narrow and
// %ls/%lc/%ws/%wc always wide. %I64d, %I32d, %Id (pointer-sized), %lld, %zd, %jd, %td, %hd and
// %hhd size integers as Windows does; %ld reads a `long` argument and prints the 32 bits that a
// Windows `long` holds. %p prints 16 upper-case hex digits; a null string prints "(null)".
// Floating point follows the Universal CRT: exponents of at least two digits, "inf", "nan",
// "-nan(ind)" for the indefinite NaN, and 13 hex digits for %a without a precision.
// Narrow text is UTF-8. %n and unknown conversions are refused.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <string>

namespace port {

// Appends the formatted text to out and answers the number of characters appended. A refused or
// null format answers -1 and leaves out as it was.
int AppendFormatV(std::wstring& out, const wchar_t* format, va_list args);
int AppendFormatV(std::string& out, const char* format, va_list args);

// Writes the formatted wide text to file as UTF-8 and answers the number of wide characters
// formatted; a null file writes nothing and answers 0. A refused format or a failed write
// answers -1.
int FilePrintf(FILE* file, const wchar_t* format, ...);
int VFilePrintf(FILE* file, const wchar_t* format, va_list args);

} // namespace port
