// orvreg run as a process, every command with good and bad arguments, against a registry of its
// own; each transcript is compared with its golden copy.
#include "Transcript.h"
#include "support/TempRegistry.h"

#include <gtest/gtest.h>

namespace {

const std::string kKey = "HKCU\\Software\\Halden\\Halden CAM\\2026";

class OrvregTranscript : public ::testing::Test {
protected:
    void Reg(const std::vector<std::string>& args) { m_log.Run("orvreg", args); }
    void AddSampleValues() {
        Reg({"add", kKey, "/v", "PostName", "/d", "Fanuc \u00e9"});
        Reg({"add", kKey, "/v", "Units", "/t", "REG_DWORD", "/d", "2"});
        Reg({"add", kKey + "\\Debug", "/v", "EnableToolBlock", "/t", "REG_DWORD", "/d", "0"});
    }

    TempRegistryDir m_dir;
    Transcript m_log{m_dir.Path()};
};

TEST_F(OrvregTranscript, UsageAndUnknownOptions) {
    Reg({});
    Reg({"query"});
    Reg({"frobnicate", "HKCU"});
    Reg({"import"});
    Reg({"export", kKey});
    Reg({"query", "HKCU\\Software", "/x"});
    Reg({"query", "HKCU\\Software", "/v"});
    Reg({"query", "HKXX\\Software"});
    ExpectMatchesGolden("orvreg-usage", m_log.Text());
}

TEST_F(OrvregTranscript, AddAndQueryEveryType) {
    Reg({"add", kKey, "/v", "PostName", "/d", "Fanuc"});
    Reg({"add", kKey, "/ve", "/d", "default text"});
    Reg({"add", kKey, "/v", "DataPath", "/t", "reg_expand_sz", "/d", "%APPDATA%\\Halden"});
    Reg({"add", kKey, "/v", "Recent", "/t", "REG_MULTI_SZ", "/d", "a.doc;b.doc", "/s", ";"});
    Reg({"add", kKey, "/v", "Units", "/t", "REG_DWORD", "/d", "0x10"});
    Reg({"add", kKey, "/v", "Big", "/t", "REG_QWORD", "/d", "18446744073709551615"});
    Reg({"add", kKey, "/v", "Blob", "/t", "REG_BINARY", "/d", "0102DEADBEEF"});
    Reg({"add", kKey, "/v", "Marker", "/t", "REG_NONE", "/d", ""});
    Reg({"add", kKey + "\\Debug"});
    Reg({"query", kKey});
    Reg({"query", kKey, "/v", "units"});
    Reg({"query", kKey, "/ve"});
    Reg({"query", "hkey_current_user\\software\\halden"});
    ExpectMatchesGolden("orvreg-add-query", m_log.Text());
}

TEST_F(OrvregTranscript, AddRefusesBadDataAndOverwritesOnlyWithForce) {
    Reg({"add", kKey, "/v", "Units", "/t", "REG_DWORD", "/d", "2"});
    Reg({"add", kKey, "/ve", "/d", "first"});
    m_log.Note("orvreg never asks: without /f an existing value is left as it is");
    Reg({"add", kKey, "/v", "Units", "/t", "REG_DWORD", "/d", "3"});
    Reg({"add", kKey, "/v", "UNITS", "/d", "text"});
    Reg({"add", kKey, "/ve", "/d", "second"});
    Reg({"query", kKey});
    Reg({"add", kKey, "/v", "Units", "/t", "REG_DWORD", "/d", "3", "/f"});
    Reg({"add", kKey, "/ve", "/d", "second", "/F"});
    Reg({"query", kKey});
    m_log.Note("bad data is refused, and nothing is written");
    Reg({"add", kKey, "/v", "A", "/t", "REG_DWORD", "/d", "4294967296"});
    Reg({"add", kKey, "/v", "A", "/t", "REG_DWORD", "/d", "-1"});
    Reg({"add", kKey, "/v", "A", "/t", "REG_DWORD", "/d", "12abc"});
    Reg({"add", kKey, "/v", "A", "/t", "REG_BINARY", "/d", "ABC"});
    Reg({"add", kKey, "/v", "A", "/t", "REG_BINARY", "/d", "GG"});
    Reg({"add", kKey, "/v", "A", "/t", "REG_LINK", "/d", "x"});
    Reg({"add", "HKXX\\Software", "/v", "A", "/d", "x"});
    Reg({"add", kKey, "/v", "A", "/d"});
    Reg({"query", kKey});
    ExpectMatchesGolden("orvreg-add-refused", m_log.Text());
}

TEST_F(OrvregTranscript, Delete) {
    AddSampleValues();
    Reg({"add", kKey, "/ve", "/d", "default text"});
    Reg({"delete", kKey, "/v", "Units"});
    Reg({"delete", kKey, "/ve"});
    Reg({"query", kKey});
    Reg({"delete", kKey, "/va"});
    Reg({"query", kKey});
    Reg({"delete", kKey, "/v", "Units"});
    Reg({"delete", kKey + "\\Missing"});
    Reg({"delete", "HKCU"});
    Reg({"delete", kKey, "/f"});
    Reg({"query", kKey});
    Reg({"query", "HKCU\\Software\\Halden\\Halden CAM"});
    ExpectMatchesGolden("orvreg-delete", m_log.Text());
}

TEST_F(OrvregTranscript, ExportAndImport) {
    AddSampleValues();
    Reg({"export", kKey, "x.reg"});
    m_log.ShowFile("x.reg");
    m_log.Note("orvreg never asks: without /y an existing file is left as it is");
    Reg({"add", kKey, "/v", "Units", "/t", "REG_DWORD", "/d", "7", "/f"});
    Reg({"export", kKey, "x.reg"});
    m_log.ShowFile("x.reg");
    Reg({"export", kKey, "x.reg", "/y"});
    m_log.ShowFile("x.reg");
    Reg({"delete", kKey, "/f"});
    Reg({"import", "x.reg"});
    Reg({"query", kKey});
    Reg({"query", kKey + "\\Debug"});
    m_log.Note("bad files: nothing of them is applied");
    Reg({"import", "missing.reg"});
    WriteFileBytes(m_dir.File("bad.reg"), "Windows Registry Editor Version 5.00\r\n\r\n[" +
                                              std::string("HKEY_CURRENT_USER\\New") +
                                              "]\r\n\"a\"=dword:00000001\r\n\"b\"=hex:01,zz\r\n");
    Reg({"import", "bad.reg"});
    WriteFileBytes(m_dir.File("notreg.reg"), "[HKEY_CURRENT_USER\\New]\r\n\"a\"=\"b\"\r\n");
    Reg({"import", "notreg.reg"});
    WriteFileBytes(m_dir.File("root.reg"),
                   "REGEDIT4\r\n\r\n[HKEY_CLASSES_ROOT\\New]\r\n\"a\"=\"b\"\r\n");
    Reg({"import", "root.reg"});
    Reg({"query", "HKCU\\New"});
    Reg({"export", kKey, "no/such/folder/x.reg"});
    Reg({"export", "HKCU\\Software\\Missing", "y.reg"});
    ExpectMatchesGolden("orvreg-export-import", m_log.Text());
}

} // namespace
