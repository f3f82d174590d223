// Storing and loading a document of one million nodes, each with a label, one user list entry and
// an owner, through the library's node archive; beside it, the same graph through
// Boost.Serialization's binary archive. Objects per second and MB/s for each.
#include <benchmark/benchmark.h>

#include "ArchiveBenchSupport.h"
#include <boost/serialization/string.hpp>
#include <boost/serialization/vector.hpp>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "addin/NodeDocument.h"
#include "mfc/CMemFile.h"

namespace {

std::wstring Label(std::size_t i) {
    return L"Node " + std::to_wstring(i);
}

// Node i hangs under node (i - 1) / 4 (the first under the document) and is used by node i - 1.
std::unique_ptr<NodeDocument> MakeDocument(std::size_t count) {
    auto doc = std::make_unique<NodeDocument>();
    std::vector<OrvObject*> nodes;
    nodes.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto* node = new OrvObject;
        doc->m_Nodes.AddTail(node);
        node->ChangeName(Label(i).c_str());
        node->SetOwner(i == 0 ? static_cast<OrvObject*>(doc.get()) : nodes[(i - 1) / 4]);
        if (i > 0)
            node->AddToUserObjectsList(nodes[i - 1], 0);
        nodes.push_back(node);
    }
    return doc;
}

struct BoostNode {
    std::wstring label;
    BoostNode* owner = nullptr;
    std::vector<BoostNode*> users;

    template <class Archive> void serialize(Archive& ar, unsigned /*version*/) {
        ar& label& owner& users;
    }
};

struct BoostDocument {
    std::vector<BoostNode*> nodes;
    ~BoostDocument() {
        for (BoostNode* node : nodes)
            delete node;
    }
};

std::unique_ptr<BoostDocument> MakeBoostDocument(std::size_t count) {
    auto doc = std::make_unique<BoostDocument>();
    doc->nodes.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto* node = new BoostNode;
        node->label = Label(i);
        node->owner = i == 0 ? nullptr : doc->nodes[(i - 1) / 4];
        if (i > 0)
            node->users.push_back(doc->nodes[i - 1]);
        doc->nodes.push_back(node);
    }
    return doc;
}

std::vector<BYTE> Store(NodeDocument& doc) {
    CMemFile file(1 << 20);
    {
        CArchive ar(&file, CArchive::store, 1 << 16);
        ar << static_cast<CObject*>(&doc);
        ar.Close();
    }
    std::vector<BYTE> bytes(static_cast<std::size_t>(file.GetLength()));
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

std::unique_ptr<NodeDocument> Load(std::vector<BYTE>& bytes) {
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load, 1 << 16);
    NodeDocument* doc = nullptr;
    ar >> doc;
    ar.Close();
    return std::unique_ptr<NodeDocument>(doc);
}

// The loads ask the active document for its storage version.
NodeDocument& Host() {
    static NodeDocument host;
    static const bool active = (NodeDocument::Activate(&host), true);
    (void)active;
    return host;
}

void BM_DocumentStore(benchmark::State& state) {
    Host();
    auto doc = MakeDocument(static_cast<std::size_t>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes = Store(*doc).size();
    ReportRates(state, bytes);
}

void BM_DocumentLoad(benchmark::State& state) {
    Host();
    auto bytes = Store(*MakeDocument(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state) {
        auto doc = Load(bytes);
        benchmark::DoNotOptimize(doc.get());
        state.PauseTiming();
        doc.reset();
        state.ResumeTiming();
    }
    ReportRates(state, bytes.size());
}

void BM_BoostStore(benchmark::State& state) {
    auto doc = MakeBoostDocument(static_cast<std::size_t>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes = StoreBoost(doc->nodes).size();
    ReportRates(state, bytes);
}

void BM_BoostLoad(benchmark::State& state) {
    const std::string bytes =
        StoreBoost(MakeBoostDocument(static_cast<std::size_t>(state.range(0)))->nodes);
    for (auto _ : state) {
        auto doc = LoadBoost(bytes, &BoostDocument::nodes);
        benchmark::DoNotOptimize(doc.get());
        state.PauseTiming();
        doc.reset();
        state.ResumeTiming();
    }
    ReportRates(state, bytes.size());
}

} // namespace

BENCHMARK(BM_DocumentStore)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BoostStore)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_DocumentLoad)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BoostLoad)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_MAIN();
