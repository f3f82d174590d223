// Gives the test program a registry of its own in a temporary folder, removed at exit, and reads
// values back raw.
#pragma once

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

class TemporaryRegistry {
public:
    TemporaryRegistry() {
        char pattern[] = "/tmp/orv-settings-registry-XXXXXX";
        if (const char* made = mkdtemp(pattern)) {
            m_folder = made;
            setenv("ORV_REGISTRY_DIR", made, 1);
        }
    }
    ~TemporaryRegistry() {
        std::error_code ignored;
        if (!m_folder.empty())
            std::filesystem::remove_all(m_folder, ignored);
    }

private:
    std::string m_folder;
};

// Set up before any test runs.
inline TemporaryRegistry g_temporaryRegistry;

struct RawValue {
    LSTATUS status = ERROR_FILE_NOT_FOUND;
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

// The value as the registry API hands it out: its type and its bytes.
inline RawValue ReadRaw(HKEY root, const wchar_t* path, const wchar_t* name) {
    RawValue raw;
    HKEY key = nullptr;
    raw.status = RegOpenKeyExW(root, path, 0, KEY_READ, &key);
    if (raw.status != ERROR_SUCCESS)
        return raw;
    DWORD size = 0;
    raw.status = RegQueryValueExW(key, name, nullptr, &raw.type, nullptr, &size);
    if (raw.status == ERROR_SUCCESS) {
        raw.bytes.resize(size);
        raw.status = RegQueryValueExW(key, name, nullptr, nullptr, raw.bytes.data(), &size);
    }
    RegCloseKey(key);
    return raw;
}

// REG_SZ data as this platform hands them out: wchar_t units with the terminator.
inline std::vector<BYTE> WideBytes(const std::wstring& text) {
    std::vector<BYTE> bytes((text.size() + 1) * sizeof(wchar_t), 0);
    std::memcpy(bytes.data(), text.c_str(), text.size() * sizeof(wchar_t));
    return bytes;
}

inline LSTATUS WriteRaw(HKEY root, const wchar_t* path, const wchar_t* name, DWORD type,
                        const void* data, DWORD size) {
    HKEY key = nullptr;
    LSTATUS status =
        RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS)
        return status;
    status = RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size);
    RegCloseKey(key);
    return status;
}
