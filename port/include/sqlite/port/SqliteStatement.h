// The port's one wrapper of SQLite: a connection, a prepared statement kept for the life of its
// connection and reset after each use, and the error that both throw.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace port::sqlite {

// A failed SQLite call, with its extended result code and SQLite's message.
class SqliteError : public std::runtime_error {
public:
    SqliteError(int code, const std::string& message) : std::runtime_error(message), code(code) {}
    int code;
};

// A connection opened with sqlite3_open_v2's flags and closed with its owner. A file that can't be
// opened throws SqliteError with SQLite's reason.
class SqliteConnection {
public:
    SqliteConnection(const std::string& path, int flags);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    sqlite3* Handle() const { return m_db; }

private:
    sqlite3* m_db = nullptr;
};

class SqliteStatement {
public:
    SqliteStatement(sqlite3* db, const char* sql);
    ~SqliteStatement();
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    // Binding parameter 1 starts a new use: a use left unfinished by an exception is reset.
    SqliteStatement& Bind(int index, std::int64_t value);
    SqliteStatement& Bind(int index, std::string_view text);
    SqliteStatement& BindBlob(int index, const std::vector<std::uint8_t>& bytes);

    // True while a row is available; false at the end. Errors throw SqliteError.
    bool Step();
    // Runs a statement that returns no rows.
    void Run();
    void Done();

    std::int64_t Int(int column) const;
    std::string Text(int column) const;
    std::vector<std::uint8_t> Blob(int column) const;

private:
    sqlite3* m_db;
    sqlite3_stmt* m_stmt = nullptr;
};

} // namespace port::sqlite
