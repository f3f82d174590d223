#include <memory>
#include <optional>
#include <string>

#include "environment/CutbaseDatabase.h"
#include "port/SqliteStatement.h"
#include "port/TextConversion.h"

namespace {

using port::sqlite::SqliteConnection;
using port::sqlite::SqliteError;
using port::sqlite::SqliteStatement;

// The SQLite wrapper's failures end here: each operation answers false with SQLite's reason.
class SQLiteCutbaseDatabase : public CutbaseDatabase {
public:
    bool Open(const CString& path, CString& error) override {
        try {
            m_db.emplace(port::WideToNarrow(path.GetString()), SQLITE_OPEN_READWRITE);
            return true;
        } catch (const SqliteError& failure) {
            return Fail(failure, error);
        }
    }

    bool ExchangeFormsPath(CString& path, bool write, CString& error) override {
        if (!m_db) {
            error = L"The database is not open.";
            return false;
        }
        try {
            SqliteStatement select(m_db->Handle(),
                                   "SELECT rowid, [path] FROM CutbaseFormsPathTable;");
            if (!select.Step())
                return true;
            if (!write) {
                path = port::NarrowToWide(select.Text(1)).c_str();
                return true;
            }
            const std::int64_t row = select.Int(0);
            select.Done();
            SqliteStatement update(m_db->Handle(),
                                   "UPDATE CutbaseFormsPathTable SET [path] = ? WHERE rowid = ?;");
            update.Bind(1, port::WideToNarrow(path.GetString())).Bind(2, row).Run();
            return true;
        } catch (const SqliteError& failure) {
            return Fail(failure, error);
        }
    }

private:
    static bool Fail(const SqliteError& failure, CString& error) {
        error = port::NarrowToWide(failure.what()).c_str();
        return false;
    }

    std::optional<SqliteConnection> m_db;
};

} // namespace

std::unique_ptr<CutbaseDatabase> CreateSQLiteCutbaseDatabase() {
    return std::make_unique<SQLiteCutbaseDatabase>();
}
