// The .reg text format of the Windows registry editor: reading and writing.
#pragma once

#include "RegistryText.h"

#include "win/types.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace port::registry {

// A bad file, key name or request; the message names the line or key at fault.
class RegFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct RegFileValue {
    std::wstring name; // empty: the default value ("@")
    bool remove = false;
    DWORD type = 0;
    Bytes data; // as the store keeps it: text in UTF-16LE
};

struct RegFileKey {
    HKEY root = nullptr;
    std::wstring path; // below the root, without leading or trailing '\'
    bool remove = false;
    std::vector<RegFileValue> values;
};

// "HKCU\Software\X" or "HKEY_CURRENT_USER\Software\X": the root and the path below it. Throws
// RegFileError for an unknown root.
HKEY ParseKeyName(std::wstring_view name, std::wstring& path);
// "HKEY_CURRENT_USER\path", or the root alone for an empty path.
std::wstring FullKeyName(HKEY root, const std::wstring& path);

// Reads a whole file ("Windows Registry Editor Version 5.00" in UTF-16LE with byte-order mark or
// UTF-8, or "REGEDIT4" in the ANSI code page). Throws RegFileError naming the line at fault.
std::vector<RegFileKey> ParseRegFile(std::string_view bytes);

// Writes the sections as regedit does: version 5 header, UTF-16LE with byte-order mark, CRLF.
std::string FormatRegFile(const std::vector<RegFileKey>& keys);

} // namespace port::registry
