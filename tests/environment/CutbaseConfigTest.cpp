#include <gtest/gtest.h>

#include <memory>

#include "environment/CutbaseConfigFile.h"
#include "environment/OrvCutbaseConfigInfo.h"
#include "support/EnvironmentTest.h"

namespace {

class CutbaseConfigTest : public EnvironmentTest {
protected:
    void SetUp() override {
        EnvironmentTest::SetUp();
        m_folder = Folder("data/Cutbase");
        m_file = m_folder + "database.config";
    }
    CString ConfigFolder() const { return CString(m_folder.c_str()); }
    int Read(OrvCutbaseConfigInfo& info, const std::string& defaultFile = "") {
        return ReadCutbaseConfigFile(ConfigFolder(), CString(defaultFile.c_str()), info);
    }
    // Writes `text` as the configuration file and reads it.
    int Read(const std::string& text, OrvCutbaseConfigInfo& info) {
        WriteFileBytes(m_file, text);
        return Read(info);
    }

    std::string m_folder;
    std::string m_file;
};

const char* const kThreeKinds = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                "<configuration>\n"
                                "  <applicationSettings>\n"
                                "    <!-- Technology databases: one is the default. -->\n"
                                "    <setting databaseType=\"sqlite\" Default=\"False\">\n"
                                "      <filePath>Cutbase.keldb</filePath>\n"
                                "      <description>Shop &amp; office</description>\n"
                                "    </setting>\n"
                                "    <setting databaseType=\"MS-Access\" Default=\"TRUE\">\n"
                                "      <filePath>\\\\server\\share\\Cutbase.mdb</filePath>\n"
                                "    </setting>\n"
                                "    <setting databaseType=\"sql\" Default=\"False\">\n"
                                "      <databaseName>Cutbase</databaseName>\n"
                                "      <serverID>CAMSRV\\SQLEXPRESS</serverID>\n"
                                "      <authenticationMode>Windows</authenticationMode>\n"
                                "      <colour>ignored</colour>\n"
                                "    </setting>\n"
                                "  </applicationSettings>\n"
                                "</configuration>\n";

TEST_F(CutbaseConfigTest, ReadsEachKindIntoItsRecord) {
    OrvCutbaseConfigInfo info;
    ASSERT_EQ(Read(kThreeKinds, info), 1);
    ASSERT_EQ(info.GetCount(), 3);

    const OrvCutbaseConfigData* sqlite = info.GetCutbaseConfigData(0);
    const CString sqlitePath = ConfigFolder() + L"Cutbase.keldb"; // a bare name: config folder
    EXPECT_EQ(sqlite->m_DatabaseType, 0);
    EXPECT_EQ(sqlite->m_FilePath, sqlitePath);
    EXPECT_EQ(sqlite->m_ConnectionString,
              L"Driver={Tarvex SQLite3 ODBC Driver};Database=" + sqlitePath + L";FKSupport=true;");
    EXPECT_EQ(sqlite->m_Description, CString(L"Shop & office"));
    EXPECT_EQ(sqlite->m_ActiveFlag, 0);

    const OrvCutbaseConfigData* access = info.GetCutbaseConfigData(1);
    EXPECT_EQ(access->m_DatabaseType, 1);
    EXPECT_EQ(access->m_FilePath, CString(L"\\\\server\\share\\Cutbase.mdb")); // stands as it is
    EXPECT_EQ(access->m_ConnectionString,
              CString(L"Driver={Microsoft Access Driver (*.mdb, *.accdb)};"
                      L"Dbq=\\\\server\\share\\Cutbase.mdb;"));
    EXPECT_EQ(access->m_ActiveFlag, 1); // "TRUE" without regard to case
    EXPECT_TRUE(access->m_Description.IsEmpty());

    const OrvCutbaseConfigData* server = info.GetCutbaseConfigData(2);
    EXPECT_EQ(server->m_DatabaseType, 2);
    EXPECT_TRUE(server->m_FilePath.IsEmpty());
    EXPECT_EQ(server->m_ConnectionString,
              CString(L"Driver={SQL Server};SERVER=CAMSRV\\SQLEXPRESS;DATABASE=Cutbase;"
                      L"Trusted_Connection=Yes;Connection Timeout=60;"));
    EXPECT_EQ(server->GetDisplayName(), CString(L"SERVER=CAMSRV\\SQLEXPRESS;DATABASE=Cutbase"));
    EXPECT_EQ(access->GetDisplayName(), access->m_FilePath);

    EXPECT_EQ(info.GetActiveConfigData(), access);
}

TEST_F(CutbaseConfigTest, SqlAuthenticationAndSkippedRecords) {
    WriteFileBytes(m_file,
                   "<root><applicationSettings><!--c-->"
                   "<setting databaseType=\"sql\"><authenticationMode>sql</authenticationMode>"
                   "<password>p;w</password><userID>cam</userID><serverID>S1</serverID>"
                   "<databaseName>D1</databaseName></setting>"
                   "<setting databaseType=\"oracle\"><filePath>x</filePath></setting>"
                   "<setting databaseType=\"sqlite\"><filePath></filePath></setting>"
                   "<setting><filePath>no type</filePath></setting>"
                   "</applicationSettings></root>");
    OrvCutbaseConfigInfo info;
    ASSERT_EQ(Read(info), 1);
    ASSERT_EQ(info.GetCount(), 1);
    EXPECT_EQ(info.GetCutbaseConfigData(0)->m_ConnectionString,
              CString(L"Driver={SQL Server};SERVER=S1;DATABASE=D1;Uid=cam;Pwd=p;w;"
                      L"Connection Timeout=60;"));
}

TEST_F(CutbaseConfigTest, NoMarkMeansTheLastRecordIsActive) {
    WriteFileBytes(m_file, "<c><applicationSettings><!--x-->"
                           "<setting databaseType=\"sqlite\"><filePath>a.keldb</filePath></setting>"
                           "<setting databaseType=\"sqlite\"><filePath>b.keldb</filePath></setting>"
                           "</applicationSettings></c>");
    const std::string before = ReadFileBytes(m_file);
    OrvCutbaseConfigInfo info;
    ASSERT_EQ(Read(info), 1);
    ASSERT_EQ(info.GetCount(), 2);
    EXPECT_EQ(info.GetCutbaseConfigData(0)->m_ActiveFlag, 0);
    EXPECT_EQ(info.GetCutbaseConfigData(1)->m_ActiveFlag, 0);
    EXPECT_EQ(info.GetActiveConfigData(), info.GetCutbaseConfigData(1));
    EXPECT_EQ(ReadFileBytes(m_file), before); // three children: no repair
}

TEST_F(CutbaseConfigTest, OneSettingFileGainsItsDefaultMark) {
    const std::string original = "<?xml version=\"1.0\"?>\r\n"
                                 "<configuration>\r\n"
                                 "\t<applicationSettings>\r\n"
                                 "\t\t<!-- the only database -->\r\n"
                                 "\t\t<setting databaseType=\"sqlite\">\r\n"
                                 "\t\t\t<filePath>/srv/cam/Cutbase.keldb</filePath>\r\n"
                                 "\t\t</setting>\r\n"
                                 "\t</applicationSettings>\r\n"
                                 "</configuration>\r\n";
    OrvCutbaseConfigInfo info;
    ASSERT_EQ(Read(original, info), 1);
    ASSERT_EQ(info.GetCount(), 1);
    EXPECT_EQ(info.GetCutbaseConfigData(0)->m_ActiveFlag, 1);
    EXPECT_EQ(info.GetCutbaseConfigData(0)->m_FilePath, CString(L"/srv/cam/Cutbase.keldb"));
    std::string expected = original;
    expected.replace(expected.find("\"sqlite\">"), 9, "\"sqlite\" Default=\"True\">");
    EXPECT_EQ(ReadFileBytes(m_file), expected);
}

TEST_F(CutbaseConfigTest, WriterChangesOnlyTheDefaultAttributes) {
    OrvCutbaseConfigInfo info;
    ASSERT_EQ(Read(kThreeKinds, info), 1);
    std::unique_ptr<OrvCutbaseConfigInfo> edited(info.Clone());
    edited->GetCutbaseConfigData(1)->m_ActiveFlag = 0;
    edited->GetCutbaseConfigData(2)->m_ActiveFlag = 1;
    EXPECT_EQ(info.IsActiveCutbaseChange(edited.get()), 1);
    ASSERT_EQ(info.CopyFrom(edited.get()), 1);
    EXPECT_EQ(info.GetActiveConfigData(), info.GetCutbaseConfigData(2));

    ASSERT_EQ(WriteCutbaseConfigFile(CString(m_file.c_str()), info), 1);
    std::string expected = kThreeKinds;
    expected.replace(expected.find("Default=\"TRUE\""), 14, "Default=\"False\"");
    const std::size_t sql = expected.find("\"sql\" Default=\"False\"");
    expected.replace(sql, 21, "\"sql\" Default=\"True\"");
    EXPECT_EQ(ReadFileBytes(m_file), expected);
}

TEST_F(CutbaseConfigTest, WriterRefusesAFileThatDoesNotMatch) {
    OrvCutbaseConfigInfo info;
    ASSERT_EQ(Read(kThreeKinds, info), 1);

    // A list of two against a file of three children: three were needed.
    OrvCutbaseConfigInfo two;
    two.AddCutbaseConfigData(info.GetCutbaseConfigData(0)->Clone());
    two.AddCutbaseConfigData(info.GetCutbaseConfigData(1)->Clone());
    WriteFileBytes(m_file, "<c><applicationSettings>"
                           "<setting databaseType=\"sqlite\"><filePath>a</filePath></setting>"
                           "<setting databaseType=\"ms-access\"><filePath>b</filePath></setting>"
                           "</applicationSettings></c>");
    const std::string twoChildren = ReadFileBytes(m_file);
    EXPECT_EQ(WriteCutbaseConfigFile(CString(m_file.c_str()), two), 0);
    EXPECT_EQ(ReadFileBytes(m_file), twoChildren);

    // A kind that differs at one position stops the whole update.
    WriteFileBytes(m_file, kThreeKinds);
    info.GetCutbaseConfigData(2)->m_DatabaseType = 0;
    info.GetCutbaseConfigData(0)->m_ActiveFlag = 1;
    EXPECT_EQ(WriteCutbaseConfigFile(CString(m_file.c_str()), info), 0);
    EXPECT_EQ(ReadFileBytes(m_file), kThreeKinds);

    // Nothing to load.
    EXPECT_EQ(WriteCutbaseConfigFile(CString((m_folder + "absent.config").c_str()), info), 0);
}

TEST_F(CutbaseConfigTest, MalformedFileReadsNothingAndStaysAsItWas) {
    const std::string broken = "<configuration><applicationSettings><setting databaseType=";
    OrvCutbaseConfigInfo info;
    EXPECT_EQ(Read(broken, info), 0);
    EXPECT_EQ(info.GetCount(), 0);
    EXPECT_EQ(ReadFileBytes(m_file), broken);
    EXPECT_EQ(WriteCutbaseConfigFile(CString(m_file.c_str()), info), 0);
    EXPECT_EQ(ReadFileBytes(m_file), broken);
}

TEST_F(CutbaseConfigTest, WithoutAConfigFileTheDefaultSQLiteFileIsUsed) {
    OrvCutbaseConfigInfo info;
    const std::string fallback = m_folder + "Cutbase.keldb";
    EXPECT_EQ(Read(info, fallback), 0); // neither file
    EXPECT_EQ(info.GetCount(), 0);
    EXPECT_EQ(info.GetActiveConfigData(), nullptr);

    WriteFileBytes(fallback, "");
    ASSERT_EQ(Read(info, fallback), 1);
    ASSERT_EQ(info.GetCount(), 1);
    EXPECT_EQ(info.GetCutbaseConfigData(0)->m_FilePath, CString(fallback.c_str()));
    EXPECT_EQ(info.GetCutbaseConfigData(0)->m_ActiveFlag, 1);
    EXPECT_EQ(info.GetCutbaseConfigData(0)->m_DatabaseType, 0);
}

TEST_F(CutbaseConfigTest, ListOperations) {
    OrvCutbaseConfigInfo info;
    EXPECT_EQ(info.GetCutbaseConfigData(0), nullptr);
    EXPECT_EQ(info.CopyFrom(nullptr), 0);
    auto* first = new OrvCutbaseConfigData;
    first->m_FilePath = L"a";
    auto* second = new OrvCutbaseConfigData;
    second->m_FilePath = L"b";
    second->m_ActiveFlag = 1;
    info.AddCutbaseConfigData(first);
    info.AddCutbaseConfigData(second);
    EXPECT_EQ(info.GetCutbaseConfigData(-1), nullptr);
    EXPECT_EQ(info.GetCutbaseConfigData(2), nullptr);
    EXPECT_EQ(info.GetActiveConfigData(), second);

    std::unique_ptr<OrvCutbaseConfigInfo> copy(info.Clone());
    EXPECT_NE(copy->GetCutbaseConfigData(0), first); // deep
    EXPECT_EQ(info.IsActiveCutbaseChange(copy.get()), 0);
    copy->GetCutbaseConfigData(1)->m_Description = L"other"; // another database
    copy->GetCutbaseConfigData(1)->m_ActiveFlag = 0;
    EXPECT_EQ(info.IsActiveCutbaseChange(copy.get()), 0);
    copy->GetCutbaseConfigData(0)->m_ActiveFlag = 1;
    EXPECT_EQ(info.IsActiveCutbaseChange(copy.get()), 1);

    OrvCutbaseConfigInfo one;
    one.AddCutbaseConfigData(new OrvCutbaseConfigData);
    EXPECT_EQ(info.CopyFrom(&one), 0); // counts differ
    EXPECT_EQ(info.IsActiveCutbaseChange(&one), 0);
    info.ClearCutbaseInfo();
    EXPECT_EQ(info.GetCount(), 0);
}

} // namespace
