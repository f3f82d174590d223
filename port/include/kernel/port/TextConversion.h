// Conversions between the platform's text forms and the Windows forms that leave the process.
#pragma once

#include <string>
#include <string_view>

namespace port {

// Narrow text on this platform is UTF-8; wide text is UTF-32 in wchar_t.
std::wstring NarrowToWide(std::string_view utf8);
std::string WideToNarrow(std::wstring_view wide);

// UTF-16 as Windows stores it (archives, registry values, compound-file names): characters
// beyond the basic plane become surrogate pairs; a lone surrogate reads as U+FFFD.
std::u16string ToUtf16(std::wstring_view wide);
std::wstring FromUtf16(std::u16string_view utf16);

// 8-bit text of Windows' ANSI code page (Windows-1252), as older archives hold it.
std::wstring FromCp1252(std::string_view bytes);
// Characters outside Windows-1252 become '?'.
std::string ToCp1252(std::wstring_view wide);

} // namespace port
