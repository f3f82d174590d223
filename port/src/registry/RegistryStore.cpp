#include "RegistryStore.h"

#include "port/TextConversion.h"
#include "win/registry.h"

#include <chrono>
#include <filesystem>
#include <thread>

namespace port::registry {
namespace {

constexpr int kBusyTimeoutMs = 30000;

const char* const kSchema = R"(
CREATE TABLE IF NOT EXISTS keys(id INTEGER PRIMARY KEY AUTOINCREMENT, parent INTEGER NOT NULL,
    name TEXT NOT NULL, fold TEXT NOT NULL, written INTEGER NOT NULL, UNIQUE(parent, fold));
CREATE TABLE IF NOT EXISTS vals(key INTEGER NOT NULL, name TEXT NOT NULL, fold TEXT NOT NULL,
    type INTEGER NOT NULL, data BLOB NOT NULL, UNIQUE(key, fold));
CREATE INDEX IF NOT EXISTS vals_by_key ON vals(key);
)";

const char* const kSubtree = "WITH RECURSIVE t(id) AS (SELECT ?1 UNION ALL SELECT keys.id FROM "
                             "keys JOIN t ON keys.parent = t.id) ";

void Exec(sqlite3* db, const char* sql) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
        SqliteError error{sqlite3_extended_errcode(db), message ? message : "sqlite3_exec"};
        sqlite3_free(message);
        throw error;
    }
}

sqlite3* OpenWith(const std::string& name, int flags) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(name.c_str(), &db, flags | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        return nullptr;
    }
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    return db;
}

// Creates the tables in one transaction, rolled back when any part fails.
void CreateSchema(sqlite3* db) {
    Exec(db, "BEGIN IMMEDIATE");
    try {
        Exec(db, kSchema);
        Exec(db, "COMMIT");
    } catch (...) { // whatever failed, the transaction is rolled back before the failure goes on
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

// Puts the WAL journal and the schema in place. Answers SQLITE_OK, or the code of what failed.
int PrepareForWriting(sqlite3* db) {
    try {
        SqliteStatement wal(db, "PRAGMA journal_mode=WAL");
        if (!wal.Step() || wal.Text(0) != "wal")
            return SQLITE_READONLY;
        wal.Done();
        Exec(db, "PRAGMA synchronous=NORMAL");
        CreateSchema(db);
        return SQLITE_OK;
    } catch (const SqliteError& error) {
        return error.code;
    }
}

// A read-write connection in WAL mode with the schema in place, or null. Two processes that open
// a new store at once both read it and both ask to turn it to WAL: SQLite refuses one of them at
// once rather than let them wait for each other, so that one tries again, by then on a WAL store.
sqlite3* OpenForWriting(const std::string& path) {
    constexpr int kAttempts = 100;
    constexpr auto kPause = std::chrono::milliseconds(10);
    for (int attempt = 1;; ++attempt) {
        sqlite3* db = OpenWith(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        if (!db)
            return nullptr;
        const int result =
            sqlite3_db_readonly(db, "main") != 0 ? SQLITE_READONLY : PrepareForWriting(db);
        if (result == SQLITE_OK)
            return db;
        sqlite3_close(db);
        if ((result & 0xFF) != SQLITE_BUSY || attempt == kAttempts)
            return nullptr;
        std::this_thread::sleep_for(kPause);
    }
}

bool Readable(sqlite3* db) {
    return sqlite3_exec(db, "SELECT count(*) FROM keys, vals WHERE 0", nullptr, nullptr, nullptr) ==
           SQLITE_OK;
}

// A read-only connection to an existing store, or null. A WAL database whose folder we can't
// write is read as an immutable file.
sqlite3* OpenForReading(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return nullptr;
    for (const std::string& name : {path, "file:" + path + "?immutable=1"}) {
        sqlite3* db = OpenWith(name, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
        if (db && Readable(db))
            return db;
        sqlite3_close(db);
    }
    return nullptr;
}

} // namespace

std::int64_t FileTimeNow() {
    using namespace std::chrono;
    constexpr std::int64_t kEpochDifference = 116444736000000000; // 1601 to 1970 in 100 ns
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count() / 100 +
           kEpochDifference;
}

struct RegistryStore::Statements {
    explicit Statements(sqlite3* db)
        : findKey(db, "SELECT id FROM keys WHERE parent = ?1 AND fold = ?2"),
          keyExists(db, "SELECT 1 FROM keys WHERE id = ?1"),
          findValue(db, "SELECT name, type, data FROM vals WHERE key = ?1 AND fold = ?2"),
          subkeyAt(db, "SELECT id, name, written FROM keys WHERE parent = ?1 ORDER BY fold "
                       "LIMIT 1 OFFSET ?2"),
          valueAt(db, "SELECT name, type, data FROM vals WHERE key = ?1 ORDER BY rowid "
                      "LIMIT 1 OFFSET ?2"),
          subkeys(db, "SELECT id, name, written FROM keys WHERE parent = ?1 ORDER BY fold"),
          values(db, "SELECT name, type, data FROM vals WHERE key = ?1 ORDER BY rowid"),
          written(db, "SELECT written FROM keys WHERE id = ?1"),
          insertKey(db, "INSERT INTO keys(parent, name, fold, written) VALUES(?1, ?2, ?3, ?4)"),
          upsertValue(db, "INSERT INTO vals(key, name, fold, type, data) VALUES(?1, ?2, ?3, ?4, "
                          "?5) ON CONFLICT(key, fold) DO UPDATE SET type = excluded.type, "
                          "data = excluded.data"),
          deleteValue(db, "DELETE FROM vals WHERE key = ?1 AND fold = ?2"),
          hasSubkeys(db, "SELECT 1 FROM keys WHERE parent = ?1 LIMIT 1"),
          touch(db, "UPDATE keys SET written = ?2 WHERE id = ?1"),
          deleteTreeValues(db, (std::string(kSubtree) + "DELETE FROM vals WHERE key IN t").c_str()),
          deleteTreeKeys(db, (std::string(kSubtree) + "DELETE FROM keys WHERE id IN t").c_str()),
          begin(db, "BEGIN IMMEDIATE"), commit(db, "COMMIT"), rollback(db, "ROLLBACK") {}

    SqliteStatement findKey, keyExists, findValue, subkeyAt, valueAt, subkeys, values, written,
        insertKey, upsertValue, deleteValue, hasSubkeys, touch, deleteTreeValues, deleteTreeKeys,
        begin, commit, rollback;
};

RegistryStore::RegistryStore(std::string path) : m_path(std::move(path)) {
    Open();
}

RegistryStore::~RegistryStore() {
    m_sql.reset();
    sqlite3_close(m_db);
}

void RegistryStore::Open() {
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(m_path).parent_path(), error);
    m_db = OpenForWriting(m_path);
    m_writable = m_db != nullptr;
    if (!m_db)
        m_db = OpenForReading(m_path);
    if (m_db)
        m_sql = std::make_unique<Statements>(m_db);
}

std::optional<KeyId> RegistryStore::FindSubkey(KeyId parent, const std::wstring& name) {
    if (!m_sql)
        return std::nullopt;
    auto& s = m_sql->findKey.Bind(1, parent).Bind(2, FoldName(name));
    std::optional<KeyId> id;
    if (s.Step())
        id = s.Int(0);
    s.Done();
    return id;
}

bool RegistryStore::KeyExists(KeyId key) {
    if (key == kRoot)
        return true;
    if (!m_sql)
        return false;
    auto& s = m_sql->keyExists.Bind(1, key);
    const bool found = s.Step();
    s.Done();
    return found;
}

namespace {

ValueRecord ReadValue(const SqliteStatement& s) {
    return ValueRecord{NarrowToWide(s.Text(0)), static_cast<DWORD>(s.Int(1)), s.Blob(2)};
}

} // namespace

std::optional<ValueRecord> RegistryStore::FindValue(KeyId key, const std::wstring& name) {
    if (!m_sql)
        return std::nullopt;
    auto& s = m_sql->findValue.Bind(1, key).Bind(2, FoldName(name));
    std::optional<ValueRecord> value;
    if (s.Step())
        value = ReadValue(s);
    s.Done();
    return value;
}

std::optional<SubkeyRecord> RegistryStore::SubkeyAt(KeyId key, std::int64_t index) {
    if (!m_sql)
        return std::nullopt;
    auto& s = m_sql->subkeyAt.Bind(1, key).Bind(2, index);
    std::optional<SubkeyRecord> subkey;
    if (s.Step())
        subkey = SubkeyRecord{s.Int(0), NarrowToWide(s.Text(1)), s.Int(2)};
    s.Done();
    return subkey;
}

std::optional<ValueRecord> RegistryStore::ValueAt(KeyId key, std::int64_t index) {
    if (!m_sql)
        return std::nullopt;
    auto& s = m_sql->valueAt.Bind(1, key).Bind(2, index);
    std::optional<ValueRecord> value;
    if (s.Step())
        value = ReadValue(s);
    s.Done();
    return value;
}

std::vector<SubkeyRecord> RegistryStore::Subkeys(KeyId key) {
    std::vector<SubkeyRecord> subkeys;
    if (!m_sql)
        return subkeys;
    auto& s = m_sql->subkeys.Bind(1, key);
    while (s.Step())
        subkeys.push_back(SubkeyRecord{s.Int(0), NarrowToWide(s.Text(1)), s.Int(2)});
    s.Done();
    return subkeys;
}

std::vector<ValueRecord> RegistryStore::Values(KeyId key) {
    std::vector<ValueRecord> values;
    if (!m_sql)
        return values;
    auto& s = m_sql->values.Bind(1, key);
    while (s.Step())
        values.push_back(ReadValue(s));
    s.Done();
    return values;
}

KeyInfo RegistryStore::Info(KeyId key) {
    KeyInfo info;
    for (const auto& subkey : Subkeys(key)) {
        ++info.subkeys;
        info.maxSubkeyName = std::max(info.maxSubkeyName, static_cast<DWORD>(subkey.name.size()));
    }
    for (const auto& value : Values(key)) {
        ++info.values;
        info.maxValueName = std::max(info.maxValueName, static_cast<DWORD>(value.name.size()));
        info.maxValueData = std::max(
            info.maxValueData, static_cast<DWORD>(ApiFromStored(value.type, value.data).size()));
    }
    if (key != kRoot && m_sql) {
        auto& written = m_sql->written.Bind(1, key);
        if (written.Step())
            info.written = written.Int(0);
        written.Done();
    }
    return info;
}

KeyId RegistryStore::CreateSubkey(KeyId parent, const std::wstring& name) {
    m_sql->insertKey.Bind(1, parent)
        .Bind(2, WideToNarrow(name))
        .Bind(3, FoldName(name))
        .Bind(4, FileTimeNow())
        .Run();
    Touch(parent);
    return sqlite3_last_insert_rowid(m_db);
}

void RegistryStore::SetValue(KeyId key, const std::wstring& name, DWORD type, const Bytes& data) {
    m_sql->upsertValue.Bind(1, key)
        .Bind(2, WideToNarrow(name))
        .Bind(3, FoldName(name))
        .Bind(4, static_cast<std::int64_t>(type))
        .BindBlob(5, data)
        .Run();
    Touch(key);
}

bool RegistryStore::DeleteValue(KeyId key, const std::wstring& name) {
    m_sql->deleteValue.Bind(1, key).Bind(2, FoldName(name)).Run();
    const bool deleted = sqlite3_changes(m_db) > 0;
    if (deleted)
        Touch(key);
    return deleted;
}

bool RegistryStore::HasSubkeys(KeyId key) {
    if (!m_sql)
        return false;
    auto& s = m_sql->hasSubkeys.Bind(1, key);
    const bool found = s.Step();
    s.Done();
    return found;
}

void RegistryStore::DeleteTree(KeyId key) {
    m_sql->deleteTreeValues.Bind(1, key).Run();
    m_sql->deleteTreeKeys.Bind(1, key).Run();
}

void RegistryStore::Touch(KeyId key) {
    if (key != kRoot)
        m_sql->touch.Bind(1, key).Bind(2, FileTimeNow()).Run();
}

RegistryStore::Transaction::Transaction(RegistryStore& store) : m_store(store) {
    if (!store.m_writable)
        throw SqliteError{SQLITE_READONLY, "the store is read-only: " + store.m_path};
    store.m_sql->begin.Run();
}

RegistryStore::Transaction::~Transaction() {
    if (!m_done) {
        try {
            m_store.m_sql->rollback.Run();
        } catch (const SqliteError&) {
            // Nothing more can be done: SQLite rolls back on its own when a statement fails.
        }
    }
}

void RegistryStore::Transaction::Commit() {
    m_store.m_sql->commit.Run();
    m_done = true;
}

} // namespace port::registry
