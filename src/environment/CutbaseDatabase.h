// CutbaseDatabase: the database front end file of the older single-file mode, opened as a
// database. Its table CutbaseFormsPathTable holds in its "path" field where the technology
// database lies.
#pragma once

#include "port/Export.h"

#include <memory>

#include "mfc/CString.h"

class ORV_API CutbaseDatabase {
public:
    virtual ~CutbaseDatabase() = default;

    // Opens an existing file for reading and writing; false with `error` set when it can't.
    virtual bool Open(const CString& path, CString& error) = 0;
    // With records in CutbaseFormsPathTable: `write` false reads the first record's "path" into
    // `path`, `write` true stores `path` there. No records: nothing changes. False with `error`
    // set on a database error.
    virtual bool ExchangeFormsPath(CString& path, bool write, CString& error) = 0;
};

// The front end as an SQLite database.
ORV_API std::unique_ptr<CutbaseDatabase> CreateSQLiteCutbaseDatabase();
