// orvreg as separate processes: round trip through .reg files, bad input, concurrent writers,
// a writer killed in the middle of an import.
#include "support/TempRegistry.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace {

const std::string kOrvreg = ORV_BINARY_DIR "/orvreg";
const std::string kRoundTrip = ORV_SOURCE_DIR "/tests/port/registry/data/roundtrip.reg";
const std::string kVersionKey = "HKCU\\Software\\Halden\\Halden CAM\\2026";

struct Outcome {
    int status = -1; // exit status, or 128 + signal
    std::string out, err;
};

// Starts orvreg with ORV_REGISTRY_DIR set to dir, its output going to files under outputs.
pid_t Start(const std::string& dir, const std::vector<std::string>& args,
            const std::string& outputs, uid_t user = 0) {
    const pid_t pid = fork();
    if (pid == 0) {
        setenv("ORV_REGISTRY_DIR", dir.c_str(), 1);
        const int out = open((outputs + ".out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int err = open((outputs + ".err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        dup2(out, 1);
        dup2(err, 2);
        if (user != 0 && setuid(user) != 0)
            _exit(99);
        std::vector<char*> argv{const_cast<char*>(kOrvreg.c_str())};
        for (const auto& arg : args)
            argv.push_back(const_cast<char*>(arg.c_str()));
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(98);
    }
    return pid;
}

int Wait(pid_t pid) {
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

Outcome RunIn(const std::string& dir, const std::vector<std::string>& args, uid_t user = 0) {
    static int runs = 0;
    static const TempFolder folder;
    const std::string outputs = folder.File(std::to_string(++runs));
    Outcome outcome;
    outcome.status = Wait(Start(dir, args, outputs, user));
    outcome.out = ReadFileBytes(outputs + ".out");
    outcome.err = ReadFileBytes(outputs + ".err");
    unlink((outputs + ".out").c_str());
    unlink((outputs + ".err").c_str());
    return outcome;
}

class Orvreg : public ::testing::Test {
protected:
    Outcome Reg(const std::vector<std::string>& args) { return RunIn(m_dir.Path(), args); }
    std::string Export(const std::string& key) {
        const std::string file = m_dir.File("export.reg");
        const Outcome outcome = Reg({"export", key, file, "/y"});
        EXPECT_EQ(0, outcome.status) << outcome.err;
        return ReadFileBytes(file);
    }
    void ExpectCleanError(const Outcome& outcome, const std::string& words) {
        EXPECT_NE(0, outcome.status);
        EXPECT_EQ(0, outcome.err.rfind("orvreg: ERROR: ", 0)) << outcome.err;
        EXPECT_EQ(1, std::count(outcome.err.begin(), outcome.err.end(), '\n')) << outcome.err;
        EXPECT_NE(std::string::npos, outcome.err.find(words)) << outcome.err;
    }

    TempRegistryDir m_dir;
};

TEST_F(Orvreg, HandWrittenRegFileRoundTripsByteForByte) {
    const Outcome imported = Reg({"import", kRoundTrip});
    ASSERT_EQ(0, imported.status) << imported.err;
    const std::string original = ReadFileBytes(kRoundTrip);
    const std::string exported = Export(kVersionKey);
    EXPECT_EQ(original, exported);

    // The library sees what the tool imported.
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, L"software\\halden\\halden cam\\2026",
                                           0, KEY_READ, &key));
    wchar_t text[64];
    DWORD size = sizeof text;
    ASSERT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Quote", nullptr, nullptr,
                                              reinterpret_cast<BYTE*>(text), &size));
    EXPECT_EQ(std::wstring(L"He said \"hello\""), text);
    size = sizeof text;
    ASSERT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"CAF\u00c9", nullptr, nullptr,
                                              reinterpret_cast<BYTE*>(text), &size));
    EXPECT_EQ(std::wstring(L"\u00fcber \U0001F600"), text);
    RegCloseKey(key);

    // The export imports into an empty store and exports the same again.
    const std::string second = m_dir.File("second");
    mkdir(second.c_str(), 0700);
    WriteFileBytes(m_dir.File("first.reg"), exported);
    ASSERT_EQ(0, RunIn(second, {"import", m_dir.File("first.reg")}).status);
    ASSERT_EQ(0, RunIn(second, {"export", kVersionKey, m_dir.File("again.reg")}).status);
    EXPECT_EQ(original, ReadFileBytes(m_dir.File("again.reg")));
}

TEST_F(Orvreg, AddQueryAndDelete) {
    EXPECT_EQ(0, Reg({"add", "HKEY_CURRENT_USER\\Software\\T", "/v", "Count", "/t", "REG_DWORD",
                      "/d", "0x10", "/f"})
                     .status);
    EXPECT_EQ(0, Reg({"add", "HKCU\\Software\\T", "/ve", "/d", "hello"}).status);
    EXPECT_EQ(0,
              Reg({"add", "HKCU\\Software\\T", "/v", "List", "/t", "REG_MULTI_SZ", "/d", "a\\0b"})
                  .status);
    const Outcome query = Reg({"query", "HKCU\\Software\\T"});
    EXPECT_NE(std::string::npos, query.out.find("    Count    REG_DWORD    0x10\n")) << query.out;
    EXPECT_NE(std::string::npos, query.out.find("    (Default)    REG_SZ    hello\n"));
    EXPECT_NE(std::string::npos, query.out.find("    List    REG_MULTI_SZ    a\\0b\n"));

    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\T", 0, KEY_READ, &key));
    DWORD count = 0, size = 4;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"Count", nullptr, nullptr,
                                              reinterpret_cast<BYTE*>(&count), &size));
    EXPECT_EQ(16u, count);
    wchar_t list[8];
    size = sizeof list;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"List", nullptr, nullptr,
                                              reinterpret_cast<BYTE*>(list), &size));
    EXPECT_EQ(5 * sizeof(wchar_t), size);
    EXPECT_EQ(0, std::wmemcmp(L"a\0b\0\0", list, 5));

    // The handle stays valid while another process writes and deletes.
    EXPECT_EQ(0, Reg({"delete", "HKCU\\Software\\T", "/v", "Count"}).status);
    EXPECT_EQ(ERROR_FILE_NOT_FOUND,
              RegQueryValueExW(key, L"Count", nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(0, Reg({"delete", "HKCU\\Software\\T", "/f"}).status);
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegQueryValueExW(key, L"", nullptr, nullptr, nullptr, nullptr));
    RegCloseKey(key);
    ExpectCleanError(Reg({"query", "HKCU\\Software\\T"}), "cannot open");
}

TEST_F(Orvreg, BadInputGivesOneLineAndChangesNothing) {
    ASSERT_EQ(0, Reg({"import", kRoundTrip}).status);
    const std::string before = Export(kVersionKey);

    ExpectCleanError(Reg({"add", "HKXX\\Software\\T", "/v", "a", "/d", "b"}), "unknown root");
    ExpectCleanError(Reg({"add", kVersionKey, "/v", "a", "/t", "REG_FOO", "/d", "1"}),
                     "unknown type");
    ExpectCleanError(
        Reg({"add", kVersionKey, "/v", "Count", "/t", "REG_DWORD", "/d", "4294967296"}),
        "not a number");
    ExpectCleanError(Reg({"export", kVersionKey, "/nonexistent/folder/x.reg"}), "cannot write");
    ExpectCleanError(Reg({"import", "/nonexistent/x.reg"}), "cannot read");
    ExpectCleanError(Reg({"delete", "HKCU\\Software\\Missing"}), "cannot open");
    ExpectCleanError(Reg({"frobnicate", "HKCU"}), "usage");

    // Files whose first lines are good and whose fault comes later: nothing of them is applied.
    const std::string head = "Windows Registry Editor Version 5.00\r\n\r\n[" +
                             std::string("HKEY_CURRENT_USER\\Software\\Halden\\Halden CAM\\2026") +
                             "]\r\n\"Count\"=dword:00000063\r\n[-HKEY_CURRENT_USER\\Software]\r\n";
    const auto utf16 = [](const std::string& text) {
        std::string bytes = "\xFF\xFE";
        for (char c : text)
            bytes += std::string{c, '\0'};
        return bytes;
    };
    WriteFileBytes(m_dir.File("bad1.reg"),
                   utf16(head + "[HKEY_CURRENT_USER\\New]\r\n\"a\"=hex:01,zz\r\n"));
    ExpectCleanError(Reg({"import", m_dir.File("bad1.reg")}), "line 7:");
    WriteFileBytes(m_dir.File("bad2.reg"),
                   utf16(head + "[HKEY_CURRENT_USER\\New]\r\n\"a\"=foo:1\r\n"));
    ExpectCleanError(Reg({"import", m_dir.File("bad2.reg")}), "unknown value type");
    WriteFileBytes(m_dir.File("bad3.reg"), utf16(head + "[HKEY_USERS\\x]\r\n"));
    ExpectCleanError(Reg({"import", m_dir.File("bad3.reg")}), "unknown root");

    EXPECT_EQ(before, Export(kVersionKey));
    ExpectCleanError(Reg({"query", "HKCU\\New"}), "cannot open");
}

TEST_F(Orvreg, StoreThatCannotBeWrittenRefusesWrites) {
    // A registry folder below a plain file can't be created, not even by root.
    WriteFileBytes(m_dir.File("plain"), "x");
    const std::string blocked = m_dir.File("plain/registry");
    const Outcome add = RunIn(blocked, {"add", "HKLM\\Software\\T", "/v", "a", "/d", "b"});
    EXPECT_NE(0, add.status);
    EXPECT_NE(std::string::npos, add.err.find("access denied")) << add.err;
    const Outcome import = RunIn(blocked, {"import", kRoundTrip});
    EXPECT_NE(std::string::npos, import.err.find("access denied")) << import.err;
    EXPECT_NE(0, RunIn(blocked, {"query", "HKLM\\Software"}).status);

    // An existing store in a folder the user can't write: reads work, writes are refused.
    const std::string shared = m_dir.File("shared");
    mkdir(shared.c_str(), 0755);
    ASSERT_EQ(0, RunIn(shared, {"add", "HKLM\\Software\\T", "/v", "a", "/d", "b"}).status);
    chmod(m_dir.Path().c_str(), 0755);
    chmod(shared.c_str(), 0555);
    chmod((shared + "/machine.db").c_str(), 0444);
    const uid_t user = geteuid() == 0 ? 65534 : 0; // root writes anything: run as nobody
    const Outcome query = RunIn(shared, {"query", "HKLM\\Software\\T", "/v", "a"}, user);
    EXPECT_EQ(0, query.status) << query.err;
    EXPECT_NE(std::string::npos, query.out.find("a    REG_SZ    b"));
    const Outcome write =
        RunIn(shared, {"add", "HKLM\\Software\\T", "/v", "a", "/d", "c", "/f"}, user);
    EXPECT_NE(0, write.status);
    EXPECT_NE(std::string::npos, write.err.find("access denied")) << write.err;
    chmod(shared.c_str(), 0755);
    EXPECT_NE(std::string::npos,
              RunIn(shared, {"query", "HKLM\\Software\\T", "/v", "a"}).out.find("REG_SZ    b"));
}

// Processes that open a store that does not exist yet all turn it to WAL at once; SQLite refuses
// all but one of them at once, and each must try again rather than fall back to reading.
TEST_F(Orvreg, ProcessesCreatingANewStoreAtOnceAllWrite) {
    constexpr int kRounds = 20, kProcesses = 6;
    for (int round = 0; round < kRounds; ++round) {
        const std::string dir = m_dir.Folder("store" + std::to_string(round));
        std::vector<pid_t> writers;
        for (int p = 0; p < kProcesses; ++p)
            writers.push_back(Start(dir,
                                    {"add", "HKCU\\Software\\Shared", "/v", "v" + std::to_string(p),
                                     "/t", "REG_DWORD", "/d", "1"},
                                    dir + "/out" + std::to_string(p)));
        for (pid_t pid : writers)
            EXPECT_EQ(0, Wait(pid)) << "round " << round;
    }
}

TEST_F(Orvreg, TwoProcessesWritingOneKeyLoseNothing) {
    constexpr int kToolWrites = 40, kLibraryWrites = 400;
    // Two shells run orvreg over and over, while two forked processes write through the library.
    std::vector<pid_t> writers;
    for (int p = 0; p < 2; ++p) {
        const std::string script = "i=0; while [ $i -lt " + std::to_string(kToolWrites) +
                                   " ]; do \"" + kOrvreg +
                                   "\" add 'HKCU\\Software\\Shared' /v tool" + std::to_string(p) +
                                   "_$i /t REG_DWORD /d $i >/dev/null || exit 1; i=$((i+1)); done";
        const pid_t pid = fork();
        if (pid == 0) {
            execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
            _exit(98);
        }
        writers.push_back(pid);
    }
    for (int p = 0; p < 2; ++p) {
        const pid_t pid = fork();
        if (pid == 0) {
            HKEY key = nullptr;
            int failures = 0;
            if (RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Shared", 0, nullptr, 0,
                                KEY_ALL_ACCESS, nullptr, &key, nullptr) != ERROR_SUCCESS)
                _exit(2);
            for (DWORD i = 0; i < kLibraryWrites; ++i) {
                const std::wstring name = L"lib" + std::to_wstring(p) + L"_" + std::to_wstring(i);
                failures += RegSetValueExW(key, name.c_str(), 0, REG_DWORD,
                                           reinterpret_cast<const BYTE*>(&i), 4) != ERROR_SUCCESS;
            }
            _exit(failures == 0 ? 0 : 1);
        }
        writers.push_back(pid);
    }
    for (pid_t pid : writers)
        EXPECT_EQ(0, Wait(pid));

    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS,
              RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Shared", 0, KEY_READ, &key));
    DWORD values = 0;
    ASSERT_EQ(ERROR_SUCCESS,
              RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values,
                               nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(2u * (kToolWrites + kLibraryWrites), values);
    for (const std::wstring name : {L"tool1_39", L"lib0_399", L"lib1_123"}) {
        DWORD value = 0, size = 4;
        EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, name.c_str(), nullptr, nullptr,
                                                  reinterpret_cast<BYTE*>(&value), &size));
        EXPECT_EQ(std::stoul(name.substr(name.find(L'_') + 1)), value);
    }
    RegCloseKey(key);
}

// Values under HKCU\Big in the store of dir, counted through the library.
DWORD CountBigValues(const std::string& dir) {
    setenv("ORV_REGISTRY_DIR", dir.c_str(), 1);
    DWORD total = 0;
    HKEY big = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Big", 0, KEY_READ, &big) == ERROR_SUCCESS) {
        wchar_t name[64];
        for (DWORD i = 0;; ++i) {
            DWORD length = 64, values = 0;
            HKEY key = nullptr;
            if (RegEnumKeyExW(big, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
                    ERROR_SUCCESS ||
                RegOpenKeyExW(big, name, 0, KEY_READ, &key) != ERROR_SUCCESS)
                break;
            RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values,
                             nullptr, nullptr, nullptr, nullptr);
            total += values;
            RegCloseKey(key);
        }
        RegCloseKey(big);
    }
    return total;
}

TEST_F(Orvreg, ImportKilledMidwayLeavesAllOrNothing) {
    constexpr int kKeys = 100, kValuesPerKey = 300;
    std::string text = "Windows Registry Editor Version 5.00\r\n\r\n";
    for (int k = 0; k < kKeys; ++k) {
        text += "[HKEY_CURRENT_USER\\Big\\Key" + std::to_string(k) + "]\r\n";
        for (int v = 0; v < kValuesPerKey; ++v)
            text += "\"Value" + std::to_string(v) + "\"=hex:01,02,03,04,05,06,07,08,09,0a\r\n";
        text += "\r\n";
    }
    const std::string file = m_dir.File("big.reg");
    WriteFileBytes(file, text); // ASCII: read as the ANSI code page
    const std::string saved = m_dir.Path();

    int killedWhileRunning = 0;
    const int delaysMs[] = {1, 5, 15, 30, 60, 100, 150, 250};
    for (int delay : delaysMs) {
        const std::string dir = m_dir.File("k" + std::to_string(delay));
        mkdir(dir.c_str(), 0700);
        const pid_t pid = Start(dir, {"import", file}, dir + "/import");
        usleep(static_cast<useconds_t>(delay) * 1000);
        kill(pid, SIGKILL);
        killedWhileRunning += Wait(pid) == 128 + SIGKILL;
        const DWORD count = CountBigValues(dir);
        EXPECT_TRUE(count == 0 || count == kKeys * kValuesPerKey)
            << "after " << delay << " ms: " << count << " values";
    }
    EXPECT_GT(killedWhileRunning, 0);
    const std::string whole = m_dir.File("whole");
    mkdir(whole.c_str(), 0700);
    ASSERT_EQ(0, RunIn(whole, {"import", file}).status);
    EXPECT_EQ(static_cast<DWORD>(kKeys * kValuesPerKey), CountBigValues(whole));
    setenv("ORV_REGISTRY_DIR", saved.c_str(), 1);
}

} // namespace
