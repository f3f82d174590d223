// The registry at the size of the application settings (40 keys, 500 values): open a key and
// query a value, and set a value, beside a plain SQLite lookup and update of the same row.
#include <windows.h>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int kKeys = 40;
constexpr int kValuesPerKey = 12; // 480 values in all

std::wstring KeyPath(int key) {
    return L"Software\\Halden\\Halden CAM\\2026\\Group" + std::to_wstring(key);
}
std::wstring ValueName(int value) {
    return L"Option" + std::to_wstring(value);
}

// A temporary registry folder holding the settings-sized tree, and a plain SQLite table of the
// same rows in the same folder.
class Fixture {
public:
    Fixture() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "bench-reg-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            std::abort();
        m_dir = pattern;
        setenv("ORV_REGISTRY_DIR", m_dir.c_str(), 1);
        for (int k = 0; k < kKeys; ++k) {
            HKEY key = nullptr;
            RegCreateKeyExW(HKEY_CURRENT_USER, KeyPath(k).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                            nullptr, &key, nullptr);
            for (int v = 0; v < kValuesPerKey; ++v) {
                const DWORD data = static_cast<DWORD>(v);
                RegSetValueExW(key, ValueName(v).c_str(), 0, REG_DWORD,
                               reinterpret_cast<const BYTE*>(&data), 4);
            }
            RegCloseKey(key);
        }
        sqlite3_open((m_dir + "/plain.db").c_str(), &m_plain);
        sqlite3_exec(m_plain,
                     "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;"
                     "CREATE TABLE v(path TEXT, name TEXT, data BLOB, PRIMARY KEY(path, name));",
                     nullptr, nullptr, nullptr);
        sqlite3_exec(m_plain, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(m_plain, "INSERT INTO v VALUES(?1, ?2, ?3)", -1, &insert, nullptr);
        for (int k = 0; k < kKeys; ++k)
            for (int v = 0; v < kValuesPerKey; ++v) {
                sqlite3_bind_int(insert, 1, k);
                sqlite3_bind_int(insert, 2, v);
                sqlite3_bind_blob(insert, 3, &v, 4, SQLITE_TRANSIENT);
                sqlite3_step(insert);
                sqlite3_reset(insert);
            }
        sqlite3_finalize(insert);
        sqlite3_exec(m_plain, "COMMIT", nullptr, nullptr, nullptr);
    }
    ~Fixture() {
        sqlite3_close(m_plain);
        std::error_code error;
        std::filesystem::remove_all(m_dir, error);
    }
    sqlite3* Plain() const { return m_plain; }

private:
    std::string m_dir;
    sqlite3* m_plain = nullptr;
};

Fixture& Tree() {
    static Fixture fixture;
    return fixture;
}

void OpenKeyAndQueryValue(benchmark::State& state) {
    Tree();
    std::vector<std::wstring> paths, names;
    for (int k = 0; k < kKeys; ++k)
        paths.push_back(KeyPath(k));
    for (int v = 0; v < kValuesPerKey; ++v)
        names.push_back(ValueName(v));
    int i = 0;
    for (auto _ : state) {
        HKEY key = nullptr;
        DWORD data = 0, size = 4;
        RegOpenKeyExW(HKEY_CURRENT_USER, paths[i % kKeys].c_str(), 0, KEY_READ, &key);
        if (RegQueryValueExW(key, names[i % kValuesPerKey].c_str(), nullptr, nullptr,
                             reinterpret_cast<BYTE*>(&data), &size) != ERROR_SUCCESS)
            state.SkipWithError("query failed");
        RegCloseKey(key);
        benchmark::DoNotOptimize(data);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(OpenKeyAndQueryValue);

void SetValue(benchmark::State& state) {
    Tree();
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, KeyPath(7).c_str(), 0, KEY_ALL_ACCESS, &key);
    std::vector<std::wstring> names;
    for (int v = 0; v < kValuesPerKey; ++v)
        names.push_back(ValueName(v));
    DWORD data = 0;
    for (auto _ : state) {
        ++data;
        if (RegSetValueExW(key, names[data % kValuesPerKey].c_str(), 0, REG_DWORD,
                           reinterpret_cast<const BYTE*>(&data), 4) != ERROR_SUCCESS)
            state.SkipWithError("set failed");
    }
    RegCloseKey(key);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(SetValue);

void PlainSqliteLookup(benchmark::State& state) {
    sqlite3* db = Tree().Plain();
    sqlite3_stmt* select = nullptr;
    sqlite3_prepare_v2(db, "SELECT data FROM v WHERE path = ?1 AND name = ?2", -1, &select,
                       nullptr);
    int i = 0;
    for (auto _ : state) {
        sqlite3_bind_int(select, 1, i % kKeys);
        sqlite3_bind_int(select, 2, i % kValuesPerKey);
        if (sqlite3_step(select) != SQLITE_ROW)
            state.SkipWithError("lookup failed");
        benchmark::DoNotOptimize(sqlite3_column_blob(select, 0));
        sqlite3_reset(select);
        ++i;
    }
    sqlite3_finalize(select);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(PlainSqliteLookup);

void PlainSqliteUpdate(benchmark::State& state) {
    sqlite3* db = Tree().Plain();
    sqlite3_stmt* update = nullptr;
    sqlite3_prepare_v2(db, "UPDATE v SET data = ?3 WHERE path = ?1 AND name = ?2", -1, &update,
                       nullptr);
    int i = 0;
    for (auto _ : state) {
        sqlite3_bind_int(update, 1, 7);
        sqlite3_bind_int(update, 2, i % kValuesPerKey);
        sqlite3_bind_blob(update, 3, &i, 4, SQLITE_TRANSIENT);
        if (sqlite3_step(update) != SQLITE_DONE)
            state.SkipWithError("update failed");
        sqlite3_reset(update);
        ++i;
    }
    sqlite3_finalize(update);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(PlainSqliteUpdate);

} // namespace

BENCHMARK_MAIN();
