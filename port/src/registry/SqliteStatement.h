// A prepared SQLite statement kept for the life of its connection, reset after each use.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace port::registry {

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

// A failed SQLite call, with its result code.
struct SqliteError {
    int code;
    std::string message;
};

} // namespace port::registry
