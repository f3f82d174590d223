// A folder list at the size of a large document (10000 objects in 1000 folders, nested): an edit
// replayed on the tree, a rebuild of the flat list, and an archive round trip.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "addin/NodeDocument.h"
#include "mfc/CMemFile.h"
#include "objects/OrvBaseFolder.h"
#include "objects/OrvFolderObList.h"

namespace {

constexpr int kObjects = 10000;
constexpr int kFolders = 1000;

// The objects, and a list whose tree groups runs of ten into folders and every fifth folder with
// its neighbours into an outer one.
class Document {
public:
    Document() {
        // Loading asks the active document for its storage version.
        static NodeDocument host;
        NodeDocument::Activate(&host);
        CObList all;
        for (int index = 0; index < kObjects; ++index) {
            m_objects.push_back(std::make_unique<OrvObject>());
            all.AddTail(m_objects.back().get());
        }
        m_list.Initialize(&all);
        for (int folder = 0; folder < kFolders; ++folder) {
            CObList run;
            for (int index = folder * 10; index < folder * 10 + 10; ++index)
                run.AddTail(m_objects[index].get());
            m_list.AddToNewFolder(run, nullptr, nullptr);
        }
        for (int outer = 0; outer < kFolders / 5; ++outer) {
            CObList run;
            run.AddTail(m_list.GetParentFolderOfObject(m_objects[outer * 50].get()));
            run.AddTail(m_list.GetParentFolderOfObject(m_objects[outer * 50 + 10].get()));
            m_list.AddToNewFolder(run, nullptr, nullptr);
        }
    }
    // The objects outlive the tree that refers to them.
    std::vector<std::unique_ptr<OrvObject>> m_objects;
    OrvFolderObList m_list;
};

// An insert behind an object deep in the tree and its removal: two searches of the tree.
void BM_InsertAndRemoveDeep(benchmark::State& state) {
    Document document;
    OrvObject extra;
    OrvObject* reference = document.m_objects[kObjects - 5].get();
    for (auto _ : state) {
        document.m_list.InsertAfter(&extra, reference);
        document.m_list.Remove(&extra);
    }
}
BENCHMARK(BM_InsertAndRemoveDeep);

void BM_RebuildFlatList(benchmark::State& state) {
    Document document;
    for (auto _ : state)
        document.m_list.UpdateObListAsPerFolderManager();
    state.SetItemsProcessed(state.iterations() * kObjects);
}
BENCHMARK(BM_RebuildFlatList);

void BM_ArchiveRoundTrip(benchmark::State& state) {
    Document document;
    for (auto _ : state) {
        CMemFile file;
        {
            CArchive ar(&file, CArchive::store);
            ar << static_cast<const CObject*>(&document.m_list);
            ar.Close();
        }
        file.Seek(0, CFile::begin);
        CArchive ar(&file, CArchive::load);
        OrvFolderObList* loaded = nullptr;
        ar >> loaded;
        ar.Close();
        CObList objects;
        objects.AddTail(&loaded->GetObList());
        delete loaded;
        for (POSITION pos = objects.GetHeadPosition(); pos;)
            delete objects.GetNext(pos);
    }
    state.SetItemsProcessed(state.iterations() * kObjects);
}
BENCHMARK(BM_ArchiveRoundTrip)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
