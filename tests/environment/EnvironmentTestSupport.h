// A fresh registry and a scratch folder for each test, and raw registry access to check what the
// code under test wrote.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "mfc/CString.h"

class EnvironmentTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "orv-env-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        m_root = pattern;
        std::filesystem::create_directories(m_root / "registry");
        setenv("ORV_REGISTRY_DIR", (m_root / "registry").c_str(), 1);
    }
    void TearDown() override {
        unsetenv("ORV_REGISTRY_DIR");
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }

    // A folder below the scratch root, created; as text with a final '/'.
    std::string Folder(const std::string& relative) const {
        std::filesystem::create_directories(m_root / relative);
        return (m_root / relative).string() + "/";
    }

    static void WriteDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD value) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                       sizeof(value));
        RegCloseKey(key);
    }
    static void WriteString(HKEY root, const wchar_t* path, const wchar_t* name,
                            const CString& value) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.GetString()),
                       static_cast<DWORD>((value.GetLength() + 1) * sizeof(wchar_t)));
        RegCloseKey(key);
    }
    // The stored DWORD, or -1 when there is none.
    static long long ReadDword(HKEY root, const wchar_t* path, const wchar_t* name) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
            return -1;
        DWORD value = 0, type = 0, size = sizeof(value);
        const LSTATUS status =
            RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
        RegCloseKey(key);
        return status == ERROR_SUCCESS && type == REG_DWORD ? static_cast<long long>(value) : -1LL;
    }
    // The stored string with its raw byte count, or "<none>".
    static std::wstring ReadString(HKEY root, const wchar_t* path, const wchar_t* name,
                                   DWORD* bytes = nullptr) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
            return L"<none>";
        wchar_t buffer[1024] = {};
        DWORD type = 0, size = sizeof(buffer) - sizeof(wchar_t);
        const LSTATUS status =
            RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size);
        RegCloseKey(key);
        if (bytes)
            *bytes = size;
        return status == ERROR_SUCCESS ? std::wstring(buffer) : L"<none>";
    }
    static bool KeyExists(HKEY root, const wchar_t* path) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        RegCloseKey(key);
        return true;
    }

    static std::string ReadFile(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    static void WriteFile(const std::string& path, const std::string& bytes) {
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }

    std::filesystem::path m_root;
};

// Registry paths the tests check by hand.
inline constexpr const wchar_t* kVersionKey = L"Software\\Halden\\Halden CAM\\2026";
inline constexpr const wchar_t* kDebugKey = L"Software\\Halden\\Halden CAM\\2026\\Debug";
inline constexpr const wchar_t* kIndependentDebugKey = L"Software\\Halden\\Halden CAM\\Debug";
inline constexpr const wchar_t* kPostDataKey = L"Software\\Halden\\Halden CAM\\PostData";
