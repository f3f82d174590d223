#include "frame/RegistryHelpers.h"

#include <array>

#include "frame/CKelVersionInfo.h"
#include "settings/OrvSettingsKey.h"

namespace {

// The longest string the plain reader takes, in characters.
constexpr DWORD kMaxStringChars = 1000;

class RegKey {
public:
    RegKey(HKEY root, const CString& path, REGSAM access) {
        m_status = RegOpenKeyExW(root, path, 0, access, &m_handle);
    }
    ~RegKey() {
        if (m_status == ERROR_SUCCESS)
            RegCloseKey(m_handle);
    }
    RegKey(const RegKey&) = delete;
    RegKey& operator=(const RegKey&) = delete;

    LSTATUS Status() const { return m_status; }
    HKEY Handle() const { return m_handle; }

private:
    HKEY m_handle = nullptr;
    LSTATUS m_status;
};

} // namespace

CString GetProductRegistryRoot() {
    return L"Software\\Halden\\Halden CAM\\";
}

CString GetVersionKeyPath() {
    return GetProductRegistryRoot() + CKelVersionInfo::ORV_VERSION_MAJOR_FOR_SERVICE_PACK;
}

CString GetDebugKeyPath() {
    return GetVersionKeyPath() + L"\\Debug";
}

CString GetVersionIndependentDebugKeyPath() {
    return GetProductRegistryRoot() + L"Debug";
}

CString GetPostDataKeyPath() {
    return GetProductRegistryRoot() + L"PostData";
}

CString GetSetupSheetKeyPath() {
    return GetProductRegistryRoot() + L"SetupSheet";
}

int GetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name) {
    int exists = 0;
    return GetRegSettingDwordValue(root, subKey, name, exists);
}

int GetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name, int& exists) {
    exists = 0;
    RegKey key(root, subKey, KEY_READ);
    if (key.Status() != ERROR_SUCCESS)
        return 1;
    DWORD value = 0;
    DWORD type = REG_NONE;
    DWORD size = sizeof(value);
    if (RegQueryValueExW(key.Handle(), name, nullptr, &type, reinterpret_cast<BYTE*>(&value),
                         &size) != ERROR_SUCCESS ||
        type != REG_DWORD)
        return 1;
    exists = 1;
    return static_cast<int>(value);
}

void SetRegSettingDwordValue(HKEY root, CString subKey, wchar_t* name, int value) {
    HKEY handle = nullptr;
    LSTATUS status = RegOpenKeyExW(root, subKey, 0, KEY_WRITE, &handle);
    if (status == ERROR_FILE_NOT_FOUND)
        status = RegCreateKeyExW(root, subKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE,
                                 nullptr, &handle, nullptr);
    if (status != ERROR_SUCCESS)
        return;
    const DWORD data = static_cast<DWORD>(value);
    RegSetValueExW(handle, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&data), sizeof(data));
    RegCloseKey(handle);
}

CString GetRegSettingStringValue(HKEY root, CString subKey, wchar_t* name) {
    RegKey key(root, subKey, KEY_READ);
    if (key.Status() != ERROR_SUCCESS)
        return CString();
    std::array<wchar_t, kMaxStringChars + 1> buffer{};
    DWORD size = kMaxStringChars * sizeof(wchar_t);
    DWORD type = REG_NONE;
    if (RegQueryValueExW(key.Handle(), name, nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()),
                         &size) != ERROR_SUCCESS ||
        (type != REG_SZ && type != REG_EXPAND_SZ))
        return CString();
    return CString(buffer.data());
}

void RegSettingDeleteValue(HKEY root, CString subKey, CString name) {
    RegKey key(root, subKey, KEY_SET_VALUE);
    if (key.Status() == ERROR_SUCCESS)
        RegDeleteValueW(key.Handle(), name);
}

int SetRegistryValueForString(HKEY root, CString subKey, CString name, CString value) {
    RegKey key(root, subKey, KEY_SET_VALUE);
    if (key.Status() != ERROR_SUCCESS)
        return 0;
    const DWORD bytes = static_cast<DWORD>(value.GetLength() * sizeof(wchar_t));
    return RegSetValueExW(key.Handle(), name, 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.GetString()), bytes) == ERROR_SUCCESS
               ? 1
               : 0;
}

int ReadDebugDwordValue(const CString& path, const wchar_t* name, int defaultValue) {
    OrvSettingsKey key(L"Debug", path);
    key.AddValue(name, defaultValue);
    int value = defaultValue;
    if (key.RestoreValuesFromRegistry())
        key.GetValue(name, value);
    return value;
}

int GetDebugRegistryVal(CString& name, int defaultValue) {
    return ReadDebugDwordValue(GetDebugKeyPath(), name, defaultValue);
}

int GetVersionIndependentDebugRegistryVal(CString& name, int defaultValue) {
    return ReadDebugDwordValue(GetVersionIndependentDebugKeyPath(), name, defaultValue);
}

CString GetDebugRegistryVal(CString& name, CString defaultValue) {
    OrvSettingsKey key(L"Debug", GetDebugKeyPath());
    key.AddValue(name, defaultValue);
    CString value = defaultValue;
    if (key.RestoreValuesFromRegistry())
        key.GetValue(name, value);
    return value;
}

CString GetAppInstallPathFromReg(CString displayName, ORV_APP_TYPE type, CString suffix) {
    const CString uninstall =
        type == ORV_APP_WOW6432
            ? CString(L"Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall")
            : CString(L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall");
    RegKey key(HKEY_LOCAL_MACHINE, uninstall, KEY_READ);
    if (key.Status() != ERROR_SUCCESS)
        return CString();
    wchar_t displayNameValue[] = L"DisplayName";
    wchar_t locationValue[] = L"InstallLocation";
    std::array<wchar_t, 256> name{};
    for (DWORD index = 0;; ++index) {
        DWORD length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key.Handle(), index, name.data(), &length, nullptr, nullptr, nullptr,
                          nullptr) != ERROR_SUCCESS)
            break;
        const CString entry = uninstall + L"\\" + name.data();
        if (GetRegSettingStringValue(HKEY_LOCAL_MACHINE, entry, displayNameValue)
                .CompareNoCase(displayName) == 0)
            return GetRegSettingStringValue(HKEY_LOCAL_MACHINE, entry, locationValue) + suffix;
    }
    return CString();
}
