// Storing and loading a document-like graph through CArchive, beside Boost.Serialization's binary
// archive on the same graph. Each object holds a string, a few scalars and two references to
// earlier objects in a list of its own; the document is the list of all objects. Sizes of 250k,
// 500k and 1M objects show how the time grows.
#include <cstdio>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "ArchiveBenchSupport.h"
#include <afx.h>
#include <benchmark/benchmark.h>
#include <boost/serialization/string.hpp>
#include <boost/serialization/vector.hpp>

namespace {

// The references of object i: the one before it and one further back, chosen by a hash.
std::size_t SecondReference(std::size_t i) {
    return (i * 2654435761u) % i;
}

std::wstring ItemName(std::size_t i) {
    wchar_t buffer[32];
    std::swprintf(buffer, 32, L"item%07zu", i);
    return buffer;
}

} // namespace

class CBenchItem : public CObject {
    DECLARE_SERIAL(CBenchItem)
public:
    void Serialize(CArchive& ar) override {
        if (ar.IsStoring())
            ar << m_name << m_id << m_x << m_flags;
        else
            ar >> m_name >> m_id >> m_x >> m_flags;
        m_refs.Serialize(ar);
    }

    CString m_name;
    int m_id = 0;
    double m_x = 0;
    WORD m_flags = 0;
    CObList m_refs{2};
};
IMPLEMENT_SERIAL(CBenchItem, CObject, 1)

namespace {

// The document: owns its items.
struct MfcDocument {
    CObList items;
    ~MfcDocument() {
        for (POSITION pos = items.GetHeadPosition(); pos;)
            delete items.GetNext(pos);
    }
};

std::unique_ptr<MfcDocument> MakeMfcDocument(std::size_t count) {
    auto doc = std::make_unique<MfcDocument>();
    std::vector<CBenchItem*> all;
    all.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto* item = new CBenchItem;
        item->m_name = ItemName(i);
        item->m_id = static_cast<int>(i);
        item->m_x = static_cast<double>(i) * 0.5;
        item->m_flags = static_cast<WORD>(i & 0xFF);
        item->m_refs.AddTail(i > 0 ? all[i - 1] : nullptr);
        item->m_refs.AddTail(i > 0 ? all[SecondReference(i)] : nullptr);
        all.push_back(item);
        doc->items.AddTail(item);
    }
    return doc;
}

struct BoostItem {
    std::wstring name;
    int id = 0;
    double x = 0;
    std::uint16_t flags = 0;
    std::vector<BoostItem*> refs;

    template <class Archive> void serialize(Archive& ar, unsigned /*version*/) {
        ar& name& id& x& flags& refs;
    }
};

struct BoostDocument {
    std::vector<BoostItem*> items;
    ~BoostDocument() {
        for (BoostItem* item : items)
            delete item;
    }
};

std::unique_ptr<BoostDocument> MakeBoostDocument(std::size_t count) {
    auto doc = std::make_unique<BoostDocument>();
    doc->items.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto* item = new BoostItem;
        item->name = ItemName(i);
        item->id = static_cast<int>(i);
        item->x = static_cast<double>(i) * 0.5;
        item->flags = static_cast<std::uint16_t>(i & 0xFF);
        item->refs.push_back(i > 0 ? doc->items[i - 1] : nullptr);
        item->refs.push_back(i > 0 ? doc->items[SecondReference(i)] : nullptr);
        doc->items.push_back(item);
    }
    return doc;
}

std::vector<BYTE> StoreMfc(MfcDocument& doc) {
    CMemFile file(1 << 20);
    {
        CArchive ar(&file, CArchive::store, 1 << 16);
        doc.items.Serialize(ar);
        ar.Close();
    }
    std::vector<BYTE> bytes(static_cast<std::size_t>(file.GetLength()));
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

std::unique_ptr<MfcDocument> LoadMfc(std::vector<BYTE>& bytes) {
    auto doc = std::make_unique<MfcDocument>();
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load, 1 << 16);
    doc->items.Serialize(ar);
    ar.Close();
    return doc;
}

MfcDocument& CachedMfc(std::size_t count) {
    static std::map<std::size_t, std::unique_ptr<MfcDocument>> cache;
    auto& doc = cache[count];
    if (!doc)
        doc = MakeMfcDocument(count);
    return *doc;
}

BoostDocument& CachedBoost(std::size_t count) {
    static std::map<std::size_t, std::unique_ptr<BoostDocument>> cache;
    auto& doc = cache[count];
    if (!doc)
        doc = MakeBoostDocument(count);
    return *doc;
}

void BM_MfcStore(benchmark::State& state) {
    MfcDocument& doc = CachedMfc(static_cast<std::size_t>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes = StoreMfc(doc).size();
    ReportRates(state, bytes);
}

void BM_MfcLoad(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    std::vector<BYTE> stored = StoreMfc(CachedMfc(count));
    for (auto _ : state) {
        std::unique_ptr<MfcDocument> loaded = LoadMfc(stored);
        state.PauseTiming();
        if (loaded->items.GetCount() != static_cast<INT_PTR>(count))
            state.SkipWithError("wrong count");
        loaded.reset();
        state.ResumeTiming();
    }
    ReportRates(state, stored.size());
}

void BM_BoostStore(benchmark::State& state) {
    BoostDocument& doc = CachedBoost(static_cast<std::size_t>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes = StoreBoost(doc.items).size();
    ReportRates(state, bytes);
}

void BM_BoostLoad(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const std::string stored = StoreBoost(CachedBoost(count).items);
    for (auto _ : state) {
        std::unique_ptr<BoostDocument> loaded = LoadBoost(stored, &BoostDocument::items);
        state.PauseTiming();
        if (loaded->items.size() != count)
            state.SkipWithError("wrong count");
        loaded.reset();
        state.ResumeTiming();
    }
    ReportRates(state, stored.size());
}

void Sizes(benchmark::internal::Benchmark* b) {
    b->Arg(250000)
        ->Arg(500000)
        ->Arg(1000000)
        ->Unit(benchmark::kMillisecond)
        ->Complexity(benchmark::oN);
}

} // namespace

BENCHMARK(BM_MfcStore)->Apply(Sizes);
BENCHMARK(BM_BoostStore)->Apply(Sizes);
BENCHMARK(BM_MfcLoad)->Apply(Sizes);
BENCHMARK(BM_BoostLoad)->Apply(Sizes);

BENCHMARK_MAIN();
