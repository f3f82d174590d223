// The Win32 registry functions: sizes, types, names, enumeration, access and deleted keys.
#include "support/TempRegistry.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>

#include <filesystem>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

class RegistryApi : public ::testing::Test {
protected:
    HKEY Create(const wchar_t* path, REGSAM access = KEY_ALL_ACCESS, HKEY root = HKEY_CURRENT_USER,
                DWORD* disposition = nullptr) {
        HKEY key = nullptr;
        EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(root, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                 access, nullptr, &key, disposition));
        m_open.push_back(key);
        return key;
    }
    HKEY Open(const wchar_t* path, REGSAM access = KEY_READ, HKEY root = HKEY_CURRENT_USER) {
        HKEY key = nullptr;
        EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(root, path, 0, access, &key));
        m_open.push_back(key);
        return key;
    }
    void TearDown() override {
        for (HKEY key : m_open)
            RegCloseKey(key);
    }
    static LONG SetString(HKEY key, const wchar_t* name, const std::wstring& text,
                          bool terminator = true) {
        return RegSetValueExW(
            key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
            static_cast<DWORD>((text.size() + (terminator ? 1 : 0)) * sizeof(wchar_t)));
    }
    static LONG SetDword(HKEY key, const wchar_t* name, DWORD value) {
        return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), 4);
    }
    static std::vector<std::wstring> ValueNames(HKEY key) {
        std::vector<std::wstring> names;
        wchar_t name[256];
        for (DWORD i = 0;; ++i) {
            DWORD length = 256;
            if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
                ERROR_SUCCESS)
                return names;
            names.emplace_back(name, length);
        }
    }

    TempRegistryDir m_dir;
    std::vector<HKEY> m_open;
};

TEST_F(RegistryApi, CreateReportsNewOrExistingAndOpenOfMissingKeyFails) {
    DWORD disposition = 0;
    Create(L"Software\\Halden\\Test", KEY_ALL_ACCESS, HKEY_CURRENT_USER, &disposition);
    EXPECT_EQ(REG_CREATED_NEW_KEY, disposition);
    Create(L"Software\\Halden\\Test", KEY_ALL_ACCESS, HKEY_CURRENT_USER, &disposition);
    EXPECT_EQ(REG_OPENED_EXISTING_KEY, disposition);

    HKEY key = reinterpret_cast<HKEY>(0x1234);
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Halden\\Missing", 0, KEY_READ, &key));
    // A failed open neither creates the key nor hands out a handle.
    EXPECT_EQ(reinterpret_cast<HKEY>(0x1234), key);
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Halden\\Missing", 0, KEY_READ, &key));
    // The two roots are separate stores, each in its own file.
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Halden\\Test", 0, KEY_READ, &key));
    EXPECT_TRUE(std::filesystem::exists(m_dir.File("user.db")));
}

TEST_F(RegistryApi, NamesCompareWithoutCaseAndKeepTheirSpelling) {
    HKEY key = Create(L"Software\\Halden CAM\\Colors");
    Open(L"SOFTWARE\\halden cam\\COLORS");
    ASSERT_EQ(ERROR_SUCCESS, SetDword(key, L"UseFeedColors", 1));
    ASSERT_EQ(ERROR_SUCCESS, SetDword(key, L"USEFEEDCOLORS", 7));
    DWORD value = 0, size = 4;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"usefeedcolors", nullptr, nullptr,
                                              reinterpret_cast<BYTE*>(&value), &size));
    EXPECT_EQ(7u, value);
    EXPECT_EQ(std::vector<std::wstring>{L"UseFeedColors"}, ValueNames(key));

    // Non-ASCII letters fold too: É and é name one value.
    ASSERT_EQ(ERROR_SUCCESS, SetDword(key, L"Caf\u00e9", 1));
    EXPECT_EQ(ERROR_SUCCESS,
              RegQueryValueExW(key, L"CAF\u00c9", nullptr, nullptr, nullptr, nullptr));

    HKEY software = Open(L"software");
    wchar_t name[64];
    DWORD length = 64;
    ASSERT_EQ(ERROR_SUCCESS,
              RegEnumKeyExW(software, 0, name, &length, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(std::wstring(L"Halden CAM"), std::wstring(name, length));
}

TEST_F(RegistryApi, SizeQueryAndTooSmallBuffer) {
    HKEY key = Create(L"Software\\Sizes");
    ASSERT_EQ(ERROR_SUCCESS, SetString(key, L"Name", L"abc"));

    DWORD type = 0, size = 0;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Name", nullptr, &type, nullptr, &size));
    EXPECT_EQ(REG_SZ, type);
    EXPECT_EQ(4 * sizeof(wchar_t), size); // three characters and the terminator

    wchar_t buffer[8] = {L'x', L'x', L'x', L'x', L'x', L'x', L'x', L'x'};
    size = 2 * sizeof(wchar_t);
    EXPECT_EQ(ERROR_MORE_DATA, RegQueryValueExW(key, L"Name", nullptr, &type,
                                                reinterpret_cast<BYTE*>(buffer), &size));
    EXPECT_EQ(4 * sizeof(wchar_t), size);

    size = sizeof buffer;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Name", nullptr, &type,
                                              reinterpret_cast<BYTE*>(buffer), &size));
    EXPECT_EQ(4 * sizeof(wchar_t), size);
    EXPECT_EQ(0, std::wmemcmp(L"abc\0xxxx", buffer, 8));

    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegQueryValueExW(key, L"Other", nullptr, &type, nullptr, &size));
    EXPECT_EQ(ERROR_INVALID_PARAMETER, RegQueryValueExW(key, L"Name", nullptr, &type,
                                                        reinterpret_cast<BYTE*>(buffer), nullptr));
}

TEST_F(RegistryApi, StringsKeepExactlyTheTerminatorTheWriterGave) {
    HKEY key = Create(L"Software\\Strings");
    ASSERT_EQ(ERROR_SUCCESS, SetString(key, L"Bare", L"abc", false));
    ASSERT_EQ(ERROR_SUCCESS, SetString(key, L"Terminated", L"abc", true));
    DWORD size = 0;
    ASSERT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Bare", nullptr, nullptr, nullptr, &size));
    EXPECT_EQ(3 * sizeof(wchar_t), size);
    ASSERT_EQ(ERROR_SUCCESS,
              RegQueryValueExW(key, L"Terminated", nullptr, nullptr, nullptr, &size));
    EXPECT_EQ(4 * sizeof(wchar_t), size);

    // A character beyond the basic plane is one wchar_t here (a surrogate pair when stored).
    const std::wstring smile = L"\U0001F600!";
    ASSERT_EQ(ERROR_SUCCESS, SetString(key, L"Smile", smile));
    wchar_t buffer[8] = {};
    size = sizeof buffer;
    ASSERT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Smile", nullptr, nullptr,
                                              reinterpret_cast<BYTE*>(buffer), &size));
    EXPECT_EQ(3 * sizeof(wchar_t), size);
    EXPECT_EQ(smile, std::wstring(buffer));
}

TEST_F(RegistryApi, DefaultValueIsTheEmptyOrNullName) {
    HKEY key = Create(L"Software\\Default");
    ASSERT_EQ(ERROR_SUCCESS, SetString(key, nullptr, L"first"));
    wchar_t buffer[16];
    DWORD size = sizeof buffer;
    ASSERT_EQ(ERROR_SUCCESS,
              RegQueryValueExW(key, L"", nullptr, nullptr, reinterpret_cast<BYTE*>(buffer), &size));
    EXPECT_EQ(std::wstring(L"first"), buffer);
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteValueW(key, L""));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(RegistryApi, ValueRewrittenWithAnotherTypeTakesTheNewType) {
    HKEY key = Create(L"Software\\Types");
    const double number = 2.5;
    ASSERT_EQ(ERROR_SUCCESS, RegSetValueExW(key, L"Value", 0, REG_BINARY,
                                            reinterpret_cast<const BYTE*>(&number), 8));
    DWORD type = 0, size = 0;
    ASSERT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Value", nullptr, &type, nullptr, &size));
    EXPECT_EQ(REG_BINARY, type);
    EXPECT_EQ(8u, size);

    ASSERT_EQ(ERROR_SUCCESS, SetDword(key, L"Value", 42));
    DWORD value = 0;
    size = 4;
    ASSERT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Value", nullptr, &type,
                                              reinterpret_cast<BYTE*>(&value), &size));
    EXPECT_EQ(REG_DWORD, type);
    EXPECT_EQ(4u, size);
    EXPECT_EQ(42u, value);
    // A reader that expects 8 bytes of binary data gets the 4 bytes of the new value.
    double read = 0;
    size = 8;
    ASSERT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Value", nullptr, &type,
                                              reinterpret_cast<BYTE*>(&read), &size));
    EXPECT_EQ(4u, size);
    EXPECT_EQ(1u, ValueNames(key).size());
}

TEST_F(RegistryApi, EnumerationIsStableAndDeletingFromIndexZeroEmptiesTheKey) {
    HKEY key = Create(L"Software\\FeedColors\\Mill");
    for (const wchar_t* name : {L"200.00", L"100.00", L"50.00", L"", L"300.00"})
        ASSERT_EQ(ERROR_SUCCESS, SetDword(key, name, 1));
    const auto names = ValueNames(key);
    EXPECT_EQ((std::vector<std::wstring>{L"200.00", L"100.00", L"50.00", L"", L"300.00"}), names);
    // Rewriting a value keeps its place.
    ASSERT_EQ(ERROR_SUCCESS, SetDword(key, L"100.00", 2));
    EXPECT_EQ(names, ValueNames(key));

    int deleted = 0;
    wchar_t name[256];
    DWORD length = 256, colour = 0, size = 4;
    while (RegEnumValueW(key, 0, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(&colour),
                         &size) == ERROR_SUCCESS) {
        ASSERT_EQ(ERROR_SUCCESS, RegDeleteValueW(key, name));
        ++deleted;
        length = 256;
        size = 4;
    }
    EXPECT_EQ(5, deleted);
    DWORD values = 99;
    ASSERT_EQ(ERROR_SUCCESS,
              RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values,
                               nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(0u, values);

    // Subkeys come in alphabetical order without regard to case.
    Create(L"Software\\Order\\b");
    Create(L"Software\\Order\\A");
    Create(L"Software\\Order\\c");
    HKEY order = Open(L"Software\\Order");
    std::wstring all;
    for (DWORD i = 0;; ++i) {
        length = 256;
        if (RegEnumKeyExW(order, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        all += name;
    }
    EXPECT_EQ(L"Abc", all);
}

TEST_F(RegistryApi, EnumerationReportsShortBuffers) {
    HKEY key = Create(L"Software\\Short");
    ASSERT_EQ(ERROR_SUCCESS, SetString(key, L"LongName", L"0123456789"));
    wchar_t name[4];
    DWORD length = 4;
    EXPECT_EQ(ERROR_MORE_DATA,
              RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr));

    wchar_t longName[16], data[4];
    DWORD type = 0, size = sizeof data;
    length = 16;
    EXPECT_EQ(ERROR_MORE_DATA, RegEnumValueW(key, 0, longName, &length, nullptr, &type,
                                             reinterpret_cast<BYTE*>(data), &size));
    EXPECT_EQ(11 * sizeof(wchar_t), size);
    EXPECT_EQ(ERROR_NO_MORE_ITEMS,
              RegEnumValueW(key, 1, longName, &length, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(RegistryApi, QueryInfoCountsAndLongestNamesAndData) {
    HKEY key = Create(L"Software\\Info");
    Create(L"Software\\Info\\x");
    Create(L"Software\\Info\\yyy");
    ASSERT_EQ(ERROR_SUCCESS, SetString(key, L"a", L"hello"));
    ASSERT_EQ(ERROR_SUCCESS, SetDword(key, L"longer", 3));
    DWORD subkeys = 0, maxSubkey = 0, values = 0, maxName = 0, maxData = 0;
    FILETIME written{};
    ASSERT_EQ(ERROR_SUCCESS,
              RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &subkeys, &maxSubkey, nullptr,
                               &values, &maxName, &maxData, nullptr, &written));
    EXPECT_EQ(2u, subkeys);
    EXPECT_EQ(3u, maxSubkey);
    EXPECT_EQ(2u, values);
    EXPECT_EQ(6u, maxName);
    EXPECT_EQ(6 * sizeof(wchar_t), maxData);
    // Written after 1 January 2020 (132223104000000000 in 100 ns units since 1601).
    const auto time =
        static_cast<unsigned long long>(written.dwHighDateTime) << 32 | written.dwLowDateTime;
    EXPECT_GT(time, 132223104000000000ull);
}

TEST_F(RegistryApi, ReadOnlyHandleRefusesWrites) {
    Create(L"Software\\ReadOnly");
    HKEY key = Open(L"Software\\ReadOnly", KEY_READ);
    EXPECT_EQ(ERROR_ACCESS_DENIED, SetDword(key, L"x", 1));
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegDeleteValueW(key, L"x"));
    HKEY sub = nullptr;
    EXPECT_EQ(ERROR_ACCESS_DENIED,
              RegCreateKeyExW(key, L"New", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &sub, nullptr));
    HKEY writer = Open(L"Software\\ReadOnly", KEY_WRITE);
    EXPECT_EQ(ERROR_SUCCESS, SetDword(writer, L"x", 1));
    // A write-only handle can't read.
    EXPECT_EQ(ERROR_ACCESS_DENIED,
              RegQueryValueExW(writer, L"x", nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"x", nullptr, nullptr, nullptr, nullptr));
}

TEST_F(RegistryApi, DeleteKeyRefusesKeysWithSubkeys) {
    Create(L"Software\\Tree\\Child");
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Tree"));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Tree\\Child"));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Tree\\Child"));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(HKEY_CURRENT_USER, L"software\\TREE"));
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Tree", 0, KEY_READ, &key));
}

TEST_F(RegistryApi, KeyDeletedUnderAnOpenHandle) {
    HKEY key = Create(L"Software\\Doomed");
    ASSERT_EQ(ERROR_SUCCESS, SetDword(key, L"v", 5));
    ASSERT_EQ(ERROR_SUCCESS, RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Doomed"));

    EXPECT_EQ(ERROR_KEY_DELETED, SetDword(key, L"v", 6));
    EXPECT_EQ(ERROR_KEY_DELETED, RegDeleteValueW(key, L"v"));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegQueryValueExW(key, L"v", nullptr, nullptr, nullptr, nullptr));
    wchar_t name[16];
    DWORD length = 16;
    EXPECT_EQ(ERROR_NO_MORE_ITEMS,
              RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr));
    HKEY sub = nullptr;
    EXPECT_EQ(ERROR_KEY_DELETED,
              RegCreateKeyExW(key, L"Sub", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &sub, nullptr));

    // A new key of the same name is another key: the old handle still finds nothing.
    HKEY again = Create(L"Software\\Doomed");
    ASSERT_EQ(ERROR_SUCCESS, SetDword(again, L"v", 7));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegQueryValueExW(key, L"v", nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(ERROR_KEY_DELETED, SetDword(key, L"v", 8));
}

TEST_F(RegistryApi, ClosedOrUnknownHandlesAreRejected) {
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Closed", 0, nullptr, 0,
                                             KEY_ALL_ACCESS, nullptr, &key, nullptr));
    EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(key));
    EXPECT_EQ(ERROR_INVALID_HANDLE, RegCloseKey(key));
    EXPECT_EQ(ERROR_INVALID_HANDLE, SetDword(key, L"x", 1));
    EXPECT_EQ(ERROR_INVALID_HANDLE, RegQueryValueExW(reinterpret_cast<HKEY>(0x80000003u), L"x",
                                                     nullptr, nullptr, nullptr, nullptr));
}

TEST_F(RegistryApi, UnwritableRootRefusesWritesAndFindsNothing) {
    // A registry folder below a plain file can't be created, not even by root.
    WriteFileBytes(m_dir.File("plain"), "x");
    setenv("ORV_REGISTRY_DIR", m_dir.File("plain/registry").c_str(), 1);
    HKEY key = nullptr;
    // This is how the library asks whether it may write to HKEY_LOCAL_MACHINE.
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software", 0, nullptr, 0,
                                                   KEY_WRITE, nullptr, &key, nullptr));
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegCreateKeyExW(HKEY_CURRENT_USER, L"Software", 0, nullptr, 0,
                                                   KEY_READ, nullptr, &key, nullptr));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key));
    EXPECT_EQ(ERROR_ACCESS_DENIED, SetDword(HKEY_CURRENT_USER, L"x", 1));
    setenv("ORV_REGISTRY_DIR", m_dir.Path().c_str(), 1);
}

TEST_F(RegistryApi, DamagedDatabaseIsNeitherReadNorOverwritten) {
    const std::string damaged = m_dir.File("damaged");
    std::filesystem::create_directory(damaged);
    std::string garbage(8192, '\x5A');
    garbage.replace(0, 16, "SQLite format 3");
    WriteFileBytes(damaged + "/user.db", garbage);
    setenv("ORV_REGISTRY_DIR", damaged.c_str(), 1);
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key));
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegCreateKeyExW(HKEY_CURRENT_USER, L"Software", 0, nullptr, 0,
                                                   KEY_ALL_ACCESS, nullptr, &key, nullptr));
    EXPECT_EQ(ERROR_ACCESS_DENIED, SetDword(HKEY_CURRENT_USER, L"x", 1));
    wchar_t name[16];
    DWORD length = 16;
    EXPECT_EQ(ERROR_NO_MORE_ITEMS, RegEnumKeyExW(HKEY_CURRENT_USER, 0, name, &length, nullptr,
                                                 nullptr, nullptr, nullptr));
    EXPECT_EQ(garbage, ReadFileBytes(damaged + "/user.db"));
    setenv("ORV_REGISTRY_DIR", m_dir.Path().c_str(), 1);
}

TEST_F(RegistryApi, ThreadsWritingOneKeyLoseNothing) {
    HKEY key = Create(L"Software\\Threads");
    constexpr int kEach = 200;
    auto writer = [key](int thread) {
        for (int i = 0; i < kEach; ++i)
            EXPECT_EQ(ERROR_SUCCESS,
                      SetDword(key,
                               (L"t" + std::to_wstring(thread) + L"_" + std::to_wstring(i)).c_str(),
                               static_cast<DWORD>(i)));
    };
    std::thread first(writer, 0), second(writer, 1);
    first.join();
    second.join();
    EXPECT_EQ(2u * kEach, ValueNames(key).size());
}

} // namespace
