#include "environment/OrvCutbaseConfigData.h"

namespace {

// From `word` up to the next ';' (or the end).
CString TextFrom(const CString& text, const wchar_t* word) {
    const int start = text.Find(word);
    if (start < 0)
        return CString();
    const int end = text.Find(L';', start);
    return end < 0 ? text.Mid(start) : text.Mid(start, end - start);
}

} // namespace

CString OrvCutbaseConfigData::GetDisplayName() const {
    if (m_DatabaseType == ORV_CUTBASE_SQL)
        return GetSQLServerDisplayText(m_ConnectionString);
    return m_FilePath;
}

bool OrvCutbaseConfigData::IsSameDatabase(const OrvCutbaseConfigData& other) const {
    return m_DatabaseType == other.m_DatabaseType &&
           m_ConnectionString == other.m_ConnectionString && m_FilePath == other.m_FilePath &&
           m_Reserved == other.m_Reserved && m_Description == other.m_Description;
}

CString MakeSQLiteConnectionString(const CString& filePath) {
    CString text;
    text.Format(L"Driver={Tarvex SQLite3 ODBC Driver};Database=%s;FKSupport=true;",
                filePath.GetString());
    return text;
}

CString MakeAccessConnectionString(const CString& filePath) {
    CString text;
    text.Format(L"Driver={Microsoft Access Driver (*.mdb, *.accdb)};Dbq=%s;", filePath.GetString());
    return text;
}

CString MakeSQLServerConnectionString(const CString& server, const CString& database,
                                      int windowsAuthentication, const CString& userId,
                                      const CString& password) {
    CString text;
    if (windowsAuthentication)
        text.Format(L"Driver={SQL Server};SERVER=%s;DATABASE=%s;Trusted_Connection=Yes;"
                    L"Connection Timeout=60;",
                    server.GetString(), database.GetString());
    else
        text.Format(L"Driver={SQL Server};SERVER=%s;DATABASE=%s;Uid=%s;Pwd=%s;"
                    L"Connection Timeout=60;",
                    server.GetString(), database.GetString(), userId.GetString(),
                    password.GetString());
    return text;
}

CString GetSQLServerDisplayText(const CString& connectionString) {
    return TextFrom(connectionString, L"SERVER") + L";" + TextFrom(connectionString, L"DATABASE");
}
