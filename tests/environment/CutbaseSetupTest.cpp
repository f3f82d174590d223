#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "environment/CutbaseAccessSetup.h"
#include "environment/CutbaseDatabase.h"
#include "port/ProcessQueries.h"
#include "support/EnvironmentTest.h"

namespace {

class CutbaseSetupTest : public EnvironmentTest {
protected:
    static void InstallAccess(int version, bool wow) {
        CString path;
        path.Format(wow ? L"Software\\Wow6432Node\\Microsoft\\Office\\%d.0\\Access\\InstallRoot"
                        : L"Software\\Microsoft\\Office\\%d.0\\Access\\InstallRoot",
                    version);
        WriteString(HKEY_LOCAL_MACHINE, path, L"Path", L"C:\\Office\\");
    }
    static std::wstring StoredForms() {
        return ReadString(HKEY_CURRENT_USER, kVersionKey, L"CutbaseForms");
    }
};

TEST_F(CutbaseSetupTest, AccessDetectionByVersionAndView) {
    int has64 = 9, has32 = 9;
    DetectAccessInstallations(has64, has32);
    EXPECT_EQ(has64, 0);
    EXPECT_EQ(has32, 0);
    InstallAccess(12, true);
    EXPECT_EQ(CheckAccessVersionInstalled(12, 1), 1);
    EXPECT_EQ(CheckAccessVersionInstalled(12, 0), 0);
    EXPECT_EQ(CheckAccessVersionInstalled(13, 1), 0);
    DetectAccessInstallations(has64, has32);
    EXPECT_EQ(has64, 0);
    EXPECT_EQ(has32, 1);
    InstallAccess(13, false); // not a version that is looked for
    DetectAccessInstallations(has64, has32);
    EXPECT_EQ(has64, 0);
}

TEST_F(CutbaseSetupTest, FirstRunWithoutAccessSeedsTheFrontEnd) {
    SetDefaultCutbaseForms();
    EXPECT_EQ(StoredForms(), L"Cutbase App");
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, L"Software\\Halden\\Halden CAM\\EDMApp 2026\\Debug",
                        L"UseConfigData"),
              1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access32bit"), -1); // unchanged
    const CutbaseAccessValues values = ReadCutbaseAccessValues();
    EXPECT_EQ(values.cutbaseForms, CString(L"Cutbase App"));
    EXPECT_EQ(values.access32, 0);
    EXPECT_EQ(values.access64, 0);
}

TEST_F(CutbaseSetupTest, FrontEndNameFollowsTheInstalledAccess) {
    WriteString(HKEY_CURRENT_USER, kVersionKey, L"CutbaseForms", L"CutbaseForms_basic.mde (32bit)");
    InstallAccess(16, false);
    SetDefaultCutbaseForms();
    EXPECT_EQ(StoredForms(), L"CutbaseFormsx64.mde (64bit)");
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit"), 1);

    InstallAccess(14, true); // both: a set name stays
    SetDefaultCutbaseForms();
    EXPECT_EQ(StoredForms(), L"CutbaseFormsx64.mde (64bit)");
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access32bit"), 1);
    EXPECT_EQ(SetDatabaseInstallationDataForAccess(), 0); // nothing differs now
}

TEST_F(CutbaseSetupTest, OnlyThirtyTwoBitAccess) {
    WriteString(HKEY_CURRENT_USER, kVersionKey, L"CutbaseForms", L"CutbaseFormsx64.mde (64bit)");
    WriteDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit", 1);
    InstallAccess(11, true);
    EXPECT_EQ(SetDatabaseInstallationDataForAccess(), 1);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access64bit"), 0);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kVersionKey, L"Access32bit"), 1);
    SetDefaultCutbaseForms();
    EXPECT_EQ(StoredForms(), L"CutbaseForms.mde (32bit)");
}

class CutbaseDatabaseTest : public EnvironmentTest {
protected:
    std::string MakeFrontEnd(const char* sql) {
        const std::string path = Folder("forms") + "CutbaseForms.mde";
        sqlite3* db = nullptr;
        EXPECT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
        return path;
    }
    // The front end at `file`, opened.
    static std::unique_ptr<CutbaseDatabase> Opened(const std::string& file) {
        auto database = CreateSQLiteCutbaseDatabase();
        CString error;
        EXPECT_TRUE(database->Open(CString(file.c_str()), error)) << CStringA(error).GetString();
        return database;
    }
    CString m_error;
};

TEST_F(CutbaseDatabaseTest, ReadsAndWritesTheFirstRecordsPath) {
    const std::string file =
        MakeFrontEnd("CREATE TABLE CutbaseFormsPathTable(path TEXT);"
                     "INSERT INTO CutbaseFormsPathTable VALUES('/srv/Cutbase.mdb');"
                     "INSERT INTO CutbaseFormsPathTable VALUES('/second/Cutbase.mdb');");
    CString path = L"before";
    ASSERT_TRUE(Opened(file)->ExchangeFormsPath(path, false, m_error));
    EXPECT_EQ(path, CString(L"/srv/Cutbase.mdb"));
    path = L"/new/Cutbase.mdb";
    ASSERT_TRUE(Opened(file)->ExchangeFormsPath(path, true, m_error));
    CString reread;
    ASSERT_TRUE(Opened(file)->ExchangeFormsPath(reread, false, m_error));
    EXPECT_EQ(reread, CString(L"/new/Cutbase.mdb"));
}

TEST_F(CutbaseDatabaseTest, EmptyTableLeavesThePathAlone) {
    const std::string file = MakeFrontEnd("CREATE TABLE CutbaseFormsPathTable(path TEXT);");
    CString path = L"kept";
    EXPECT_TRUE(Opened(file)->ExchangeFormsPath(path, false, m_error));
    EXPECT_EQ(path, CString(L"kept"));
}

TEST_F(CutbaseDatabaseTest, ErrorsAreReportedNotThrown) {
    auto database = CreateSQLiteCutbaseDatabase();
    CString error, path = L"kept";
    EXPECT_FALSE(database->ExchangeFormsPath(path, false, error));
    EXPECT_FALSE(database->Open(CString((Folder("forms") + "absent.mde").c_str()), error));
    EXPECT_FALSE(error.IsEmpty());

    const std::string notADatabase = Folder("forms") + "text.mde";
    WriteFileBytes(notADatabase, "this is not a database file at all, just some text......");
    error.Empty();
    auto other = CreateSQLiteCutbaseDatabase();
    if (other->Open(CString(notADatabase.c_str()), error)) {
        EXPECT_FALSE(other->ExchangeFormsPath(path, false, error));
    }
    EXPECT_FALSE(error.IsEmpty());
    EXPECT_EQ(path, CString(L"kept"));

    EXPECT_FALSE(
        Opened(MakeFrontEnd("CREATE TABLE Other(x);"))->ExchangeFormsPath(path, true, error));
}

TEST_F(CutbaseDatabaseTest, TerminatingARunningProcess) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        pause();
        _exit(0);
    }
    EXPECT_EQ(TerminateProcessById(static_cast<unsigned long>(child)), 1);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGTERM);
}

} // namespace
