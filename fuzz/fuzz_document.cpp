// Loads arbitrary bytes as a document of the reference add-in (the library's node, flag, folder
// and indexer classes under the add-in's document class), dumps what loads with both views of its
// folder list, and frees it. A damaged document must end in an archive exception, never in a crash
// or a leak.
#include <cstdint>
#include <cstdio>
#include <memory>

#include "addin/DemoFolders.h"
#include "addin/NodeDocument.h"
#include "mfc/CMemFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static NodeDocument host; // answers the storage version that loading asks for
    static FILE* sink = [] {
        NodeDocument::Activate(&host);
        return std::fopen("/dev/null", "w");
    }();
    if (size > 1 << 20)
        return 0;
    CMemFile file(const_cast<BYTE*>(data), static_cast<UINT>(size));
    try {
        CArchive ar(&file, CArchive::load);
        NodeDocument* loaded = nullptr;
        ar >> loaded;
        std::unique_ptr<NodeDocument> doc(loaded);
        if (doc) {
            doc->DumpData(sink);
            DumpFolderViews(doc->m_FolderList, sink);
        }
    } catch (CException* e) {
        e->Delete();
    }
    return 0;
}
