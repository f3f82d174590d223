// Registry reads and writes shared by the value classes. Each opens the key that the holding
// OrvSettingsKey names, does one value, and closes the key again.
#pragma once

#include <windows.h>

#include <vector>

#include "mfc/CString.h"

class OrvSettingsKey;

namespace orv_settings {

// Writes one value; 1 when RegSetValueExW succeeded. A key that can't be opened shows as a
// failed write.
int WriteRegistryValue(OrvSettingsKey* key, const CString& name, DWORD type, const void* data,
                       DWORD size);
// A REG_SZ value of length + 1 characters.
int WriteRegistryText(OrvSettingsKey* key, const CString& name, const CString& text);

// Reads a value of `size` bytes; `data` changes only when the query succeeds.
int ReadRegistryFixed(OrvSettingsKey* key, const CString& name, void* data, DWORD size);
// Reads a text value; `text` changes only when both queries succeed.
int ReadRegistryText(OrvSettingsKey* key, const CString& name, CString& text);

// Reads a value's type and, when it is REG_BINARY, its bytes. 0 when the value can't be read;
// for another type 1, with `data` left empty.
int ReadRegistryBinary(OrvSettingsKey* key, const CString& name, DWORD& type,
                       std::vector<BYTE>& data);

} // namespace orv_settings
