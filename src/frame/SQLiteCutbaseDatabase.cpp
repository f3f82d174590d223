#include <sqlite3.h>

#include <string>

#include "frame/CutbaseDatabase.h"
#include "mfc/TextConversion.h"

namespace {

struct ConnectionCloser {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
};
struct StatementFinalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, ConnectionCloser>;
using Statement = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

class SQLiteCutbaseDatabase : public CutbaseDatabase {
public:
    bool Open(const CString& path, CString& error) override {
        sqlite3* db = nullptr;
        const int status = sqlite3_open_v2(port::WideToNarrow(path.GetString()).c_str(), &db,
                                           SQLITE_OPEN_READWRITE, nullptr);
        m_db.reset(db);
        if (status != SQLITE_OK)
            return Fail(error);
        return true;
    }

    bool ExchangeFormsPath(CString& path, bool write, CString& error) override {
        if (!m_db) {
            error = L"The database is not open.";
            return false;
        }
        Statement select = Prepare("SELECT rowid, [path] FROM CutbaseFormsPathTable;");
        if (!select)
            return Fail(error);
        const int step = sqlite3_step(select.get());
        if (step == SQLITE_DONE)
            return true;
        if (step != SQLITE_ROW)
            return Fail(error);
        if (!write) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(select.get(), 1));
            path = port::NarrowToWide(text ? text : "").c_str();
            return true;
        }
        const sqlite3_int64 row = sqlite3_column_int64(select.get(), 0);
        select.reset();
        Statement update = Prepare("UPDATE CutbaseFormsPathTable SET [path] = ? WHERE rowid = ?;");
        if (!update)
            return Fail(error);
        const std::string value = port::WideToNarrow(path.GetString());
        sqlite3_bind_text(update.get(), 1, value.c_str(), static_cast<int>(value.size()),
                          SQLITE_TRANSIENT);
        sqlite3_bind_int64(update.get(), 2, row);
        if (sqlite3_step(update.get()) != SQLITE_DONE)
            return Fail(error);
        return true;
    }

private:
    Statement Prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_db.get(), sql, -1, &statement, nullptr) != SQLITE_OK)
            return nullptr;
        return Statement(statement);
    }

    bool Fail(CString& error) const {
        error = port::NarrowToWide(m_db ? sqlite3_errmsg(m_db.get()) : "out of memory").c_str();
        return false;
    }

    Connection m_db;
};

} // namespace

std::unique_ptr<CutbaseDatabase> CreateSQLiteCutbaseDatabase() {
    return std::make_unique<SQLiteCutbaseDatabase>();
}
