#include "port/SqliteStatement.h"

namespace port::sqlite {

SqliteConnection::SqliteConnection(const std::string& path, int flags) {
    const int status = sqlite3_open_v2(path.c_str(), &m_db, flags, nullptr);
    if (status == SQLITE_OK)
        return;
    const SqliteError error(status, m_db ? sqlite3_errmsg(m_db) : "out of memory");
    sqlite3_close(m_db);
    throw error;
}

SqliteConnection::~SqliteConnection() {
    sqlite3_close(m_db);
}

SqliteStatement::SqliteStatement(sqlite3* db, const char* sql) : m_db(db) {
    if (sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &m_stmt, nullptr) != SQLITE_OK)
        throw SqliteError(sqlite3_extended_errcode(db), sqlite3_errmsg(db));
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(m_stmt);
}

SqliteStatement& SqliteStatement::Bind(int index, std::int64_t value) {
    if (index == 1)
        sqlite3_reset(m_stmt);
    sqlite3_bind_int64(m_stmt, index, value);
    return *this;
}

SqliteStatement& SqliteStatement::Bind(int index, std::string_view text) {
    if (index == 1)
        sqlite3_reset(m_stmt);
    sqlite3_bind_text(m_stmt, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return *this;
}

SqliteStatement& SqliteStatement::BindBlob(int index, const std::vector<std::uint8_t>& bytes) {
    // A zero-length blob must still be a blob, not NULL.
    static const std::uint8_t empty = 0;
    sqlite3_bind_blob(m_stmt, index, bytes.empty() ? &empty : bytes.data(),
                      static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
    return *this;
}

bool SqliteStatement::Step() {
    const int rc = sqlite3_step(m_stmt);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    const SqliteError error(sqlite3_extended_errcode(m_db), sqlite3_errmsg(m_db));
    Done();
    throw error;
}

void SqliteStatement::Run() {
    Step();
    Done();
}

void SqliteStatement::Done() {
    sqlite3_reset(m_stmt);
    sqlite3_clear_bindings(m_stmt);
}

std::int64_t SqliteStatement::Int(int column) const {
    return sqlite3_column_int64(m_stmt, column);
}

std::string SqliteStatement::Text(int column) const {
    const auto* text = sqlite3_column_text(m_stmt, column);
    return text ? std::string(reinterpret_cast<const char*>(text),
                              static_cast<std::size_t>(sqlite3_column_bytes(m_stmt, column)))
                : std::string();
}

std::vector<std::uint8_t> SqliteStatement::Blob(int column) const {
    const auto* data = static_cast<const std::uint8_t*>(sqlite3_column_blob(m_stmt, column));
    const int size = sqlite3_column_bytes(m_stmt, column);
    return data ? std::vector<std::uint8_t>(data, data + size) : std::vector<std::uint8_t>();
}

} // namespace port::sqlite
