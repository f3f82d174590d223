// Names, paths and value data as the registry functions see them and as the store keeps them.
#pragma once

#include "win/types.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace port::registry {

using Bytes = std::vector<std::uint8_t>;

// The form under which names compare: upper case, as Windows compares registry names (ASCII,
// Latin-1, Latin Extended-A, Greek and Cyrillic letters), in UTF-8.
std::string FoldName(std::wstring_view name);

// The components of a key path separated by '\'; empty components are skipped.
std::vector<std::wstring> SplitKeyPath(std::wstring_view path);

// REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ and REG_LINK: text that crosses the API as wchar_t.
bool IsTextType(DWORD type);

// Data given to RegSetValueExW, as the store keeps it: text types become UTF-16LE, with exactly
// the code units the caller gave (a partial wchar_t at the end is dropped); others are copied.
Bytes StoredFromApi(DWORD type, const BYTE* data, DWORD size);
// Stored data as RegQueryValueExW hands it out: text types become wchar_t units (an odd last byte
// of a damaged value reads as one more unit).
Bytes ApiFromStored(DWORD type, const Bytes& stored);

// UTF-16LE bytes and text.
Bytes Utf16Bytes(std::wstring_view text);
std::wstring TextFromUtf16Bytes(const Bytes& bytes);

} // namespace port::registry
