#include "settings/SettingsRegistryIO.h"

#include <cstring>
#include <utility>
#include <vector>

#include "settings/OrvSettingsKey.h"

namespace orv_settings {

namespace {

// Closes the key when the read or write is over.
class OpenKey {
public:
    explicit OpenKey(HKEY key) : m_key(key) {}
    ~OpenKey() {
        if (m_key)
            RegCloseKey(m_key);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    HKEY get() const { return m_key; }

private:
    HKEY m_key;
};

} // namespace

int WriteRegistryValue(OrvSettingsKey* key, const CString& name, DWORD type, const void* data,
                       DWORD size) {
    const OpenKey open(key->GetHandleToKey(1, 0));
    return RegSetValueExW(open.get(), name, 0, type, static_cast<const BYTE*>(data), size) ==
           ERROR_SUCCESS;
}

int WriteRegistryText(OrvSettingsKey* key, const CString& name, const CString& text) {
    const DWORD size = static_cast<DWORD>((text.GetLength() + 1) * sizeof(wchar_t));
    return WriteRegistryValue(key, name, REG_SZ, text.GetString(), size);
}

int ReadRegistryFixed(OrvSettingsKey* key, const CString& name, void* data, DWORD size) {
    const OpenKey open(key->GetHandleToKey(0, 1));
    if (!open.get())
        return 0;
    std::vector<BYTE> buffer(size);
    std::memcpy(buffer.data(), data, size);
    DWORD got = size;
    if (RegQueryValueExW(open.get(), name, nullptr, nullptr, buffer.data(), &got) != ERROR_SUCCESS)
        return 0;
    std::memcpy(data, buffer.data(), size);
    return 1;
}

int ReadRegistryText(OrvSettingsKey* key, const CString& name, CString& text) {
    const OpenKey open(key->GetHandleToKey(0, 1));
    if (!open.get())
        return 0;
    DWORD size = 0;
    if (RegQueryValueExW(open.get(), name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS)
        return 0;
    // One more character than the data holds, so that a value stored without its terminator
    // still ends.
    std::vector<wchar_t> buffer(size / sizeof(wchar_t) + 1, L'\0');
    DWORD got = size;
    if (RegQueryValueExW(open.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(buffer.data()),
                         &got) != ERROR_SUCCESS)
        return 0;
    text = buffer.data();
    return 1;
}

int ReadRegistryBinary(OrvSettingsKey* key, const CString& name, DWORD& type,
                       std::vector<BYTE>& data) {
    const OpenKey open(key->GetHandleToKey(0, 1));
    if (!open.get())
        return 0;
    DWORD size = 0;
    if (RegQueryValueExW(open.get(), name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return 0;
    if (type != REG_BINARY)
        return 1;
    std::vector<BYTE> bytes(size);
    DWORD got = size;
    if (RegQueryValueExW(open.get(), name, nullptr, nullptr, bytes.data(), &got) != ERROR_SUCCESS)
        return 0;
    bytes.resize(got);
    data = std::move(bytes);
    return 1;
}

} // namespace orv_settings
