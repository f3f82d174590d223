// A fresh, empty registry in a temporary folder: ORV_REGISTRY_DIR points at it while the object
// lives and gets its previous value back afterwards. Raw access to values, to check what the code
// under test wrote and to plant what it should read.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "support/TempFolder.h"

class TempRegistryDir : public TempFolder {
public:
    TempRegistryDir();
    ~TempRegistryDir();

private:
    std::string m_previous;
    bool m_hadPrevious = false;
};

struct RawValue {
    LSTATUS status = ERROR_FILE_NOT_FOUND;
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

// The value as the registry API hands it out: its type and its bytes.
RawValue ReadRaw(HKEY root, const wchar_t* path, const wchar_t* name);
// Creates the key as needed and sets the value.
LSTATUS WriteRaw(HKEY root, const wchar_t* path, const wchar_t* name, DWORD type, const void* data,
                 DWORD size);
// REG_SZ data as this platform hands them out: wchar_t units with the terminator.
std::vector<BYTE> WideBytes(const std::wstring& text);

LSTATUS WriteDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD value);
LSTATUS WriteString(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* value);
// The stored DWORD, or -1 when there is none (or it has another type).
long long ReadDword(HKEY root, const wchar_t* path, const wchar_t* name);
// The stored string up to its first terminator, or "<none>"; `bytes` gets the raw byte count.
std::wstring ReadString(HKEY root, const wchar_t* path, const wchar_t* name,
                        DWORD* bytes = nullptr);
bool KeyExists(HKEY root, const wchar_t* path);
