// orvhost run as a process, every command with good and bad arguments, against a registry and an
// install tree of its own; each transcript is compared with its golden copy.
#include "Transcript.h"
#include "support/TempRegistry.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

class OrvhostTranscript : public ::testing::Test {
protected:
    // A copy of the project's install tree, as "install" in the run's folder.
    void CopyInstallTree(const std::string& name = "install") {
        fs::copy(ORV_SOURCE_DIR "/data", m_dir.File(name), fs::copy_options::recursive);
    }
    // The first half of a file of the run's folder, as another file.
    void WriteFirstHalf(const std::string& from, const std::string& to) {
        const std::string bytes = ReadFileBytes(m_dir.File(from));
        WriteFileBytes(m_dir.File(to), bytes.substr(0, bytes.size() / 2));
    }
    bool Exists(const std::string& name) const { return fs::exists(m_dir.File(name)); }
    RunOptions FreshRegistry(const std::string& name) {
        fs::create_directory(m_dir.File(name));
        RunOptions options;
        options.registry = name;
        return options;
    }

    TempRegistryDir m_dir;
    Transcript m_log{m_dir.Path()};
};

TEST_F(OrvhostTranscript, HelpAndUnknownCommands) {
    m_log.Run("orvhost", {"help"});
    m_log.Run("orvhost", {"--help"});
    m_log.Run("orvhost", {"frobnicate"});
    m_log.Run("orvhost", {"Help"}); // command names are case-sensitive
    ExpectMatchesGolden("orvhost-help", m_log.Text());
}

TEST_F(OrvhostTranscript, Version) {
    m_log.Run("orvhost", {"version"});
    m_log.Note("without a command the host prints its version");
    m_log.Run("orvhost", {});
    ExpectMatchesGolden("orvhost-version", m_log.Text());
}

TEST_F(OrvhostTranscript, EnvironmentOfGoodAndDamagedInstallTrees) {
    CopyInstallTree();
    m_log.Run("orvhost", {"env", "install"});
    m_log.Note("a second tree keeps the data folder that the first run stored in the registry");
    m_log.Run("orvhost", {"env"});
    m_log.Note("the project's own data/ by default; each case below on a fresh registry");
    m_log.Run("orvhost", {"env"}, FreshRegistry("r1"));
    m_log.Run("orvhost", {"env", "missing"}, FreshRegistry("r2"));
    CopyInstallTree("nodb");
    fs::remove(m_dir.File("nodb/Cutbase/Cutbase.keldb"));
    m_log.Run("orvhost", {"env", "nodb"}, FreshRegistry("r3"));
    CopyInstallTree("damaged");
    WriteFileBytes(m_dir.File("damaged/Cutbase/database.config"), "<configuration><applicat");
    m_log.Run("orvhost", {"env", "damaged"}, FreshRegistry("r4"));
    m_log.Note("database.config and the database file both gone");
    CopyInstallTree("empty");
    fs::remove_all(m_dir.File("empty/Cutbase"));
    m_log.Run("orvhost", {"env", "empty"}, FreshRegistry("r5"));
    ExpectMatchesGolden("orvhost-env", m_log.Text());
}

TEST_F(OrvhostTranscript, Messages) {
    m_log.Run("orvhost", {"message", "hello", "world"});
    m_log.Run("orvhost", {"message", "--severity", "1", "--caption", "2555", "Stop", "here"});
    m_log.Run("orvhost", {"message", "--severity", "2", "--labels", "Keep,Drop", "--focus-no",
                          "Keep the toolpath?"});
    m_log.Run("orvhost", {"message", "--severity", "3", "--labels", "Keep,Drop,Later",
                          "--help-context", "42", "Keep the toolpath?"});
    m_log.Note("a message id without a string answers yes without showing anything");
    m_log.Run("orvhost", {"message", "--id", "99999"});
    m_log.Run("orvhost", {"message"});
    m_log.Run("orvhost", {"message", "--colour", "red", "text"});
    m_log.Run("orvhost", {"message", "text", "--severity"});
    ExpectMatchesGolden("orvhost-message", m_log.Text());
}

TEST_F(OrvhostTranscript, SettingsArchive) {
    m_log.Run("orvhost", {"settings-archive", "s.arc", "Units=3", "CollapseOperationOnPreview=0"});
    m_log.Run("orvhost", {"settings-archive"});
    m_log.Run("orvhost", {"settings-archive", "bad.arc", "Units=3", "Tolerance=1"});
    m_log.Run("orvhost", {"settings-archive", "bad.arc", "Units=99999999999"});
    m_log.Run("orvhost", {"settings-archive", "bad.arc", "Units"});
    EXPECT_FALSE(Exists("bad.arc")); // refused before anything was written
    m_log.Run("orvhost", {"settings-archive", "no/such/folder/s.arc"});
    ExpectMatchesGolden("orvhost-settings-archive", m_log.Text());
}

TEST_F(OrvhostTranscript, SettingsLoadOfGoodAndDamagedArchives) {
    m_log.Run("orvhost", {"settings-archive", "s.arc", "Units=7"});
    m_log.Run("orvhost", {"settings-load", "s.arc"});
    m_log.Run("orvhost", {"settings-load"});
    m_log.Run("orvhost", {"settings-load", "s.arc", "t.arc"});
    m_log.Run("orvhost", {"settings-load", "missing.arc"});
    WriteFirstHalf("s.arc", "half.arc");
    m_log.Run("orvhost", {"settings-load", "half.arc"});
    WriteFileBytes(m_dir.File("text.arc"), "this is not an archive\n");
    m_log.Run("orvhost", {"settings-load", "text.arc"});
    m_log.Run("orvhost", {"doc", "save", "d.doc"});
    m_log.Run("orvhost", {"settings-load", "d.doc"});
    ExpectMatchesGolden("orvhost-settings-load", m_log.Text());
}

TEST_F(OrvhostTranscript, SettingsRegistryValidatesEveryArgumentFirst) {
    const std::string key = "HKCU\\Software\\Halden\\Halden CAM\\orvhost\\Application";
    m_log.Note("a refused first run writes nothing, not even the defaults");
    m_log.Run("orvhost", {"settings-registry", "Units=99999999999"});
    m_log.Run("orvreg", {"query", key});
    m_log.Run("orvhost", {"settings-registry"});
    m_log.Run("orvhost", {"settings-registry", "Units=5", "OpenOperationDialogToLastPage=1"});
    m_log.Run("orvreg", {"query", key});
    m_log.Note("each of these is refused whole: a good first argument is not applied either");
    m_log.Run("orvhost", {"settings-registry", "Units=2", "Bogus=1"});
    m_log.Run("orvhost", {"settings-registry", "Units=2", "Units=2147483648"});
    m_log.Run("orvhost", {"settings-registry", "Units=2", "Units=-2147483649"});
    m_log.Run("orvhost", {"settings-registry", "Units=2", "Units=1.5"});
    m_log.Run("orvhost", {"settings-registry", "Units=2", "PostName=Heidenhain"});
    m_log.Run("orvhost", {"settings-registry", "Units=-2147483648"});
    m_log.Note("a registry that cannot be written: its folder would lie below a plain file");
    WriteFileBytes(m_dir.File("plain"), "x");
    RunOptions blocked;
    blocked.registry = "plain/registry";
    m_log.Run("orvhost", {"settings-registry"}, blocked);
    ExpectMatchesGolden("orvhost-settings-registry", m_log.Text());
}

TEST_F(OrvhostTranscript, DocumentSaveDumpAndDamagedDocuments) {
    m_log.Run("orvhost", {"doc", "save", "d.doc"});
    m_log.Run("orvhost", {"doc", "dump", "d.doc"});
    m_log.Run("orvhost", {"doc"});
    m_log.Run("orvhost", {"doc", "save"});
    m_log.Run("orvhost", {"doc", "print", "d.doc"});
    m_log.Run("orvhost", {"doc", "dump", "missing.doc"});
    WriteFirstHalf("d.doc", "half.doc");
    m_log.Run("orvhost", {"doc", "dump", "half.doc"});
    m_log.Run("orvhost", {"settings-archive", "s.arc"});
    m_log.Run("orvhost", {"doc", "dump", "s.arc"});
    m_log.Run("orvhost", {"doc", "save", "no/such/folder/d.doc"});
    ExpectMatchesGolden("orvhost-doc", m_log.Text());
}

TEST_F(OrvhostTranscript, CommandsOnWorkersAndOnTheCallingThread) {
    RunOptions options;
    options.unordered = true;
    options.dropErrorLinesStartingWith = "orvhost: progress ";
    const ProcessResult result = m_log.Run("orvhost", {"commands"}, options);
    // The progress reports interleave and their number depends on when the termination lands;
    // the first command runs alone on the calling thread, so its three reports come first.
    EXPECT_EQ(0u, result.err.rfind("orvhost: progress 33\norvhost: progress 66\n"
                                   "orvhost: progress 100\n",
                                   0))
        << result.err;
    ExpectMatchesGolden("orvhost-commands", m_log.Text());
}

} // namespace
