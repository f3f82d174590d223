// The command path on the calling thread ("ThreadMulti" 0): RunCommand to the end of the node's
// HandleCommand, record made, listed, run and destroyed. And the manager's look-ups against a list
// of ten thousand records.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "core/OrvHostCallbacks.h"
#include "objects/OrvObject.h"
#include "settings/OrvSettingsKey.h"
#include "threads/OrvThreadBaseMgr.h"
#include "threads/OrvThreadData.h"
#include "threads/OrvThreadDataLink.h"

namespace {

OrvObject* g_document = nullptr;
OrvSettingsKey* g_settings = nullptr;

OrvObject* ActiveDocument() {
    return g_document;
}
OrvSettingsKey* AppSettings() {
    return g_settings;
}

class BenchManager : public OrvThreadBaseMgr {
public:
    BenchManager() { m_pInstance = this; }
    ~BenchManager() override {
        CObList all;
        GetAllThreads(all);
        for (POSITION pos = all.GetHeadPosition(); pos;)
            DestroyThreadData(static_cast<OrvThreadData*>(all.GetNext(pos)));
        m_pInstance = nullptr;
    }
    void List(OrvThreadData* data) { m_ThreadList.AddTail(data); }
    using OrvThreadBaseMgr::FindThreadData;
    using OrvThreadBaseMgr::GetNumThreadsRunningOrWaiting;
};

class Operation : public OrvObject {
public:
    OrveThreadStatus HandleCommand(OrveCommandType, unsigned int, void*&) override {
        return ThreadDone;
    }
};

// The document, the settings with "ThreadMulti" at 0 and a manager, for one benchmark.
struct Setup {
    OrvObject document;
    std::unique_ptr<OrvSettingsKey> settings =
        std::make_unique<OrvSettingsKey>(L"Application", L"Software\\Bench\\Application");
    std::unique_ptr<BenchManager> manager;

    Setup() {
        settings->AddValue(L"ThreadMulti", 0);
        settings->AddValue(L"ThreadNum", 5);
        settings->AddValue(L"ThreadDel", 1);
        g_document = &document;
        g_settings = settings.get();
        OrvShareRegisterDocCBK(nullptr, nullptr, ActiveDocument, nullptr, nullptr, nullptr, nullptr,
                               AppSettings, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        manager = std::make_unique<BenchManager>();
    }
    ~Setup() {
        manager.reset();
        g_document = nullptr;
        g_settings = nullptr;
    }
};

void BM_RunCommandOnCallingThread(benchmark::State& state) {
    Setup setup;
    Operation node;
    OrvThreadDataLink link;
    link.SetIdentifierA(&node);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            OrvThreadBaseMgr::RunCommand(&node, 7, &link, OrveThreadType(0), OrveThreadEndType(0)));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RunCommandOnCallingThread);

// Ten thousand finished records of a hundred nodes, for the walks.
struct BigList : Setup {
    std::vector<std::unique_ptr<Operation>> nodes;
    std::vector<OrvThreadDataLink> links = std::vector<OrvThreadDataLink>(10000);
    BigList() {
        for (int n = 0; n < 100; ++n)
            nodes.push_back(std::make_unique<Operation>());
        for (int i = 0; i < 10000; ++i) {
            links[i].SetIdentifierA(&links[i]);
            auto* data = new OrvThreadData(nodes[i % 100].get(), 1 + i / 100, &links[i],
                                           OrveThreadType(0), OrveThreadEndType(0));
            data->SetThreadStatus(ThreadDoneKeep);
            manager->List(data);
        }
    }
    ~BigList() { manager.reset(); } // records go before their nodes
};

void BM_FindThreadDataMiss10k(benchmark::State& state) {
    BigList list;
    Operation stranger;
    for (auto _ : state)
        benchmark::DoNotOptimize(list.manager->FindThreadData(&stranger, 1, nullptr));
    state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_FindThreadDataMiss10k);

void BM_RunCommandRefusedAtTail10k(benchmark::State& state) {
    BigList list;
    // The last record's command: found after a walk of the whole list, and refused.
    Operation* last = list.nodes[99].get();
    for (auto _ : state)
        benchmark::DoNotOptimize(OrvThreadBaseMgr::RunCommand(
            last, 100, &list.links[9999], OrveThreadType(0), OrveThreadEndType(0)));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RunCommandRefusedAtTail10k);

void BM_ThreadInListHead10k(benchmark::State& state) {
    BigList list;
    CObList all;
    list.manager->GetAllThreads(all);
    auto* oldest = static_cast<OrvThreadData*>(all.GetHead());
    for (auto _ : state)
        benchmark::DoNotOptimize(list.manager->ThreadInList(oldest)); // walked newest first
    state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_ThreadInListHead10k);

void BM_RunningOrWaitingInDocument10k(benchmark::State& state) {
    BigList list;
    for (auto _ : state)
        benchmark::DoNotOptimize(list.manager->GetNumThreadsRunningOrWaiting(&list.document));
    state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_RunningOrWaitingInDocument10k);

void BM_TerminateIfRunning10k(benchmark::State& state) {
    BigList list;
    int target = 0;
    for (auto _ : state)
        list.manager->TerminateIfRunning(&target); // nothing matches: a full locked walk
    state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_TerminateIfRunning10k);

} // namespace

BENCHMARK_MAIN();
