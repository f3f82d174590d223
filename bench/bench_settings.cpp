// The settings tree at the size of the application catalogue (40 groups, 500 values): look-up by
// bare name, and a whole restore from and save to the registry.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "settings/OrvSettingsKey.h"

namespace {

constexpr int kGroups = 40;
constexpr int kValuesPerGroup = 12; // 480 in the groups
constexpr int kRootValues = 20;     // and 20 at the top: 500 values

CString Name(const wchar_t* prefix, int group, int index) {
    CString name;
    name.Format(L"%s%02d_%02d", prefix, group, index);
    return name;
}

// Values of the nine types in turn, spread over the groups like the catalogue's.
void AddValueOfType(OrvSettingsKey& key, const CString& name, int index) {
    switch (index % 9) {
    case 0:
        key.AddValue(name, index);
        break;
    case 1:
        key.AddValue(name, static_cast<unsigned long>(index * 0x10101u));
        break;
    case 2:
        key.AddValue(name, index * 0.5);
        break;
    case 3:
        key.AddValue(name, index * 0.25L);
        break;
    case 4:
        key.AddValue(name, CString(L"text value"));
        break;
    case 5:
        key.AddValue(name, CPoint(index, -index));
        break;
    case 6:
        key.AddValue(name, CRect(0, 0, index, index));
        break;
    case 7:
        key.AddValue(name, CTime(1700000000LL + index));
        break;
    default: {
        CArray<int, int> array;
        for (int i = 0; i < 8; ++i)
            array.Add(i);
        key.AddValue(name, array);
    }
    }
}

std::unique_ptr<OrvSettingsKey> MakeCatalogue() {
    const CString base = L"Software\\Halden\\Halden CAM\\bench\\";
    auto root = std::make_unique<OrvSettingsKey>(L"Application", base + L"Application");
    for (int i = 0; i < kRootValues; ++i)
        AddValueOfType(*root, Name(L"Root", 0, i), i);
    for (int g = 0; g < kGroups; ++g) {
        CString groupName;
        groupName.Format(L"Group%02d", g);
        auto* group = new OrvSettingsKey(groupName, base + groupName);
        for (int i = 0; i < kValuesPerGroup; ++i)
            AddValueOfType(*group, Name(L"Value", g, i), i);
        root->AddKey(group);
    }
    return root;
}

// The benchmarks use a registry of their own in a temporary folder.
class TemporaryRegistry {
public:
    TemporaryRegistry() {
        char pattern[] = "/tmp/orv-bench-settings-XXXXXX";
        if (const char* made = mkdtemp(pattern)) {
            m_folder = made;
            setenv("ORV_REGISTRY_DIR", made, 1);
        }
    }
    ~TemporaryRegistry() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

private:
    std::string m_folder;
};
TemporaryRegistry g_registry;

// Every value by its bare name from the root, in turn: the average depth-first search.
void BM_GetValueByBareName(benchmark::State& state) {
    auto tree = MakeCatalogue();
    std::vector<CString> names;
    for (int i = 0; i < kRootValues; i += 9)
        names.push_back(Name(L"Root", 0, i));
    for (int g = 0; g < kGroups; ++g)
        for (int i = 0; i < kValuesPerGroup; i += 9)
            names.push_back(Name(L"Value", g, i));
    std::size_t next = 0;
    int value = 0;
    for (auto _ : state) {
        tree->GetValue(names[next], value);
        benchmark::DoNotOptimize(value);
        next = next + 1 == names.size() ? 0 : next + 1;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_GetValueByBareName);

// The value that the search reaches last: the first value of the first group added.
void BM_GetValueLastInSearch(benchmark::State& state) {
    auto tree = MakeCatalogue();
    const CString name = Name(L"Value", 0, 0);
    int value = 0;
    for (auto _ : state) {
        tree->GetValue(name, value);
        benchmark::DoNotOptimize(value);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_GetValueLastInSearch);

void BM_SaveValuesToRegistry(benchmark::State& state) {
    auto tree = MakeCatalogue();
    for (auto _ : state)
        benchmark::DoNotOptimize(tree->SaveValuesToRegistry());
    state.SetItemsProcessed(state.iterations() * (kRootValues + kGroups * kValuesPerGroup));
}
BENCHMARK(BM_SaveValuesToRegistry)->Unit(benchmark::kMillisecond);

void BM_RestoreValuesFromRegistry(benchmark::State& state) {
    auto tree = MakeCatalogue();
    if (!tree->SaveValuesToRegistry())
        state.SkipWithError("the registry could not be written");
    for (auto _ : state)
        benchmark::DoNotOptimize(tree->RestoreValuesFromRegistry());
    state.SetItemsProcessed(state.iterations() * (kRootValues + kGroups * kValuesPerGroup));
}
BENCHMARK(BM_RestoreValuesFromRegistry)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
