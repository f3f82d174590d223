// OrvCutbaseConfigData: one technology database of "database.config": its kind, connection
// string, file and whether it is the selected one.
#pragma once

#include "port/Export.h"

#include "mfc/CString.h"

// The kinds of database, as m_DatabaseType holds them.
enum OrvCutbaseDatabaseType { ORV_CUTBASE_SQLITE = 0, ORV_CUTBASE_ACCESS = 1, ORV_CUTBASE_SQL = 2 };

class ORV_API OrvCutbaseConfigData {
public:
    OrvCutbaseConfigData() = default;
    OrvCutbaseConfigData(const OrvCutbaseConfigData&) = default;
    OrvCutbaseConfigData& operator=(const OrvCutbaseConfigData&) = default;

    // A new copy, owned by the caller.
    OrvCutbaseConfigData* Clone() const { return new OrvCutbaseConfigData(*this); }
    // "SERVER=...;DATABASE=..." for SQL Server, the file path otherwise.
    CString GetDisplayName() const;
    int GetActiveFlag() const { return m_ActiveFlag; }
    // Equal in everything but the active flag.
    bool IsSameDatabase(const OrvCutbaseConfigData& other) const;

    int m_DatabaseType = ORV_CUTBASE_SQLITE;
    CString m_ConnectionString;
    CString m_FilePath;
    int m_Reserved = 0;
    int m_ActiveFlag = 0;
    CString m_Description;
};

// Connection strings by kind.
ORV_API CString MakeSQLiteConnectionString(const CString& filePath);
ORV_API CString MakeAccessConnectionString(const CString& filePath);
ORV_API CString MakeSQLServerConnectionString(const CString& server, const CString& database,
                                              int windowsAuthentication, const CString& userId,
                                              const CString& password);
// From a SQL Server connection string: the text from "SERVER" up to the next ";", a ";", and the
// text from "DATABASE" up to the next ";".
ORV_API CString GetSQLServerDisplayText(const CString& connectionString);
