// One registry root kept in one SQLite database: a tree of keys holding typed values.
#pragma once

#include "RegistryText.h"
#include "port/SqliteStatement.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace port::registry {

using port::sqlite::SqliteError;
using port::sqlite::SqliteStatement;

using KeyId = std::int64_t;

struct ValueRecord {
    std::wstring name;
    DWORD type = 0;
    Bytes data; // as stored: text types in UTF-16LE
};

struct SubkeyRecord {
    KeyId id = 0;
    std::wstring name;
    std::int64_t written = 0;
};

struct KeyInfo {
    DWORD subkeys = 0;
    DWORD maxSubkeyName = 0; // characters
    DWORD values = 0;
    DWORD maxValueName = 0; // characters
    DWORD maxValueData = 0; // bytes as the API hands them out
    std::int64_t written = 0;
};

// Callers hold Lock() around each sequence of calls: one connection serves all threads of the
// process. Writes go inside a RegistryStore::Transaction. Reads see the last committed state of
// every process. SqliteError escapes on a damaged or unreachable database.
class RegistryStore {
public:
    static constexpr KeyId kRoot = 0;

    // Opens or creates the database (and its folders). A file that can't be written is opened for
    // reading; one that can't be opened at all makes a store that holds nothing.
    explicit RegistryStore(std::string path);
    ~RegistryStore();
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;

    const std::string& Path() const { return m_path; }
    bool Writable() const { return m_writable; }
    std::unique_lock<std::recursive_mutex> Lock() { return std::unique_lock(m_mutex); }

    std::optional<KeyId> FindSubkey(KeyId parent, const std::wstring& name);
    bool KeyExists(KeyId key);
    std::optional<ValueRecord> FindValue(KeyId key, const std::wstring& name);
    // Subkeys in order of their folded names; values in the order they were first written.
    std::optional<SubkeyRecord> SubkeyAt(KeyId key, std::int64_t index);
    std::optional<ValueRecord> ValueAt(KeyId key, std::int64_t index);
    std::vector<SubkeyRecord> Subkeys(KeyId key);
    std::vector<ValueRecord> Values(KeyId key);
    KeyInfo Info(KeyId key);

    // Writes (inside a transaction).
    KeyId CreateSubkey(KeyId parent, const std::wstring& name);
    void SetValue(KeyId key, const std::wstring& name, DWORD type, const Bytes& data);
    bool DeleteValue(KeyId key, const std::wstring& name);
    bool HasSubkeys(KeyId key);
    // Deletes the key, its values and everything below it.
    void DeleteTree(KeyId key);

    // BEGIN IMMEDIATE on construction; rolled back unless Commit() was called.
    class Transaction {
    public:
        explicit Transaction(RegistryStore& store);
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        void Commit();

    private:
        RegistryStore& m_store;
        bool m_done = false;
    };

private:
    struct Statements;
    void Open();
    void Touch(KeyId key);

    std::string m_path;
    std::recursive_mutex m_mutex;
    sqlite3* m_db = nullptr;
    bool m_writable = false;
    std::unique_ptr<Statements> m_sql;
};

// The time now in Windows FILETIME units (100 ns since 1601).
std::int64_t FileTimeNow();

} // namespace port::registry
