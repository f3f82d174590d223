#include "support/TempRegistry.h"

#include <cstdlib>
#include <cstring>

TempRegistryDir::TempRegistryDir() {
    if (const char* previous = std::getenv("ORV_REGISTRY_DIR")) {
        m_previous = previous;
        m_hadPrevious = true;
    }
    setenv("ORV_REGISTRY_DIR", Path().c_str(), 1);
}

TempRegistryDir::~TempRegistryDir() {
    if (m_hadPrevious)
        setenv("ORV_REGISTRY_DIR", m_previous.c_str(), 1);
    else
        unsetenv("ORV_REGISTRY_DIR");
}

RawValue ReadRaw(HKEY root, const wchar_t* path, const wchar_t* name) {
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

LSTATUS WriteRaw(HKEY root, const wchar_t* path, const wchar_t* name, DWORD type, const void* data,
                 DWORD size) {
    HKEY key = nullptr;
    LSTATUS status =
        RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS)
        return status;
    status = RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size);
    RegCloseKey(key);
    return status;
}

std::vector<BYTE> WideBytes(const std::wstring& text) {
    std::vector<BYTE> bytes((text.size() + 1) * sizeof(wchar_t), 0);
    std::memcpy(bytes.data(), text.c_str(), text.size() * sizeof(wchar_t));
    return bytes;
}

LSTATUS WriteDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD value) {
    return WriteRaw(root, path, name, REG_DWORD, &value, sizeof(value));
}

LSTATUS WriteString(HKEY root, const wchar_t* path, const wchar_t* name,
                    const wchar_t* value) {
    const std::vector<BYTE> bytes = WideBytes(value);
    return WriteRaw(root, path, name, REG_SZ, bytes.data(), static_cast<DWORD>(bytes.size()));
}

long long ReadDword(HKEY root, const wchar_t* path, const wchar_t* name) {
    const RawValue raw = ReadRaw(root, path, name);
    if (raw.status != ERROR_SUCCESS || raw.type != REG_DWORD || raw.bytes.size() != sizeof(DWORD))
        return -1;
    DWORD value = 0;
    std::memcpy(&value, raw.bytes.data(), sizeof(value));
    return value;
}

std::wstring ReadString(HKEY root, const wchar_t* path, const wchar_t* name, DWORD* bytes) {
    const RawValue raw = ReadRaw(root, path, name);
    if (bytes)
        *bytes = static_cast<DWORD>(raw.bytes.size());
    if (raw.status != ERROR_SUCCESS)
        return L"<none>";
    std::wstring text(raw.bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), raw.bytes.data(), text.size() * sizeof(wchar_t));
    return text.substr(0, text.find(L'\0'));
}

bool KeyExists(HKEY root, const wchar_t* path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}
