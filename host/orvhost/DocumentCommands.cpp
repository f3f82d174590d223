// orvhost doc save FILE: builds a demonstration document the way an add-in does and writes it.
// orvhost doc dump FILE: loads a document written that way and prints its dump, then both views of
// its folder list.
#include <cstdio>
#include <memory>
#include <string>

#include "HostCallbacks.h"
#include "HostCommand.h"
#include "mfc/CFile.h"
#include "objects/FolderDemo.h"

#define NODE_DOCUMENT_IMPLEMENTATION
#include "tests/objects/nodes/NodeDocument.h"

namespace {

// The document whose indexer helper the library numbers new nodes in.
NodeDocument* g_document = nullptr;

OrvObjectIndexerHelper* HostIndexerHelper() {
    return g_document ? g_document->m_pIndexer : nullptr;
}

// The host's start-up, then the document-side providers.
void Start(NodeDocument* document) {
    orvhost::StartLibrary();
    g_document = document;
    orvshare_init(HostIndexerHelper, nullptr, nullptr, nullptr);
}

// A small feature tree: two folders under the document, features in them, a feature that uses
// another, one recycled into a bin, a flagged one, a locked and a suppressed one. The features
// that stand also go into the document's folder list, grouped in nested folders.
void BuildDemonstration(NodeDocument& doc) {
    doc.ChangeName(L"Demonstration");
    auto* bin = doc.Add<DocFolder>(L"Recycle bin", &doc);
    auto* features = doc.Add<DocFolder>(L"Features", &doc);
    auto* operations = doc.Add<DocFolder>(L"Operations", &doc);
    auto* pocket = doc.Add<DocNode>(L"Pocket", features);
    auto* hole = doc.Add<DocNode>(L"Hole", features);
    auto* slot = doc.Add<DocNode>(L"Slot", features);
    auto* boss = doc.Add<DocNode>(L"Boss", features);
    auto* groove = doc.Add<DocNode>(L"Groove", features);
    auto* chamfer = doc.Add<DocNode>(L"Chamfer", features);
    auto* face = doc.Add<DocNode>(L"Face", features);
    auto* roughing = doc.Add<DocNode>(L"Roughing", operations);
    auto* drilling = doc.Add<DocNode>(L"Drilling", operations);
    pocket->AddToUserObjectsList(roughing, 0); // the roughing works on the pocket
    hole->AddToUserObjectsList(drilling, 0);
    roughing->AddToUserObjectsList(pocket, 1); // a transient link: not stored
    slot->Recycle();
    slot->SetOwner(bin);
    hole->m_Flag.SetFlag();
    hole->m_Flag.SetFlagErrorType(SEGMENT);
    drilling->LockThis();
    roughing->SetState(OrvObject::SUPPRESSED);
    pocket->SetDisplayColor(0x000080FF);
    pocket->SetNodeStatus(ORV_NODE_STATUS_DISPLAY, 1);
    CObList featureList;
    for (OrvObject* feature : {static_cast<OrvObject*>(pocket), static_cast<OrvObject*>(hole),
                               static_cast<OrvObject*>(boss), static_cast<OrvObject*>(groove),
                               static_cast<OrvObject*>(chamfer), static_cast<OrvObject*>(face)})
        featureList.AddTail(feature);
    BuildDemoFolders(doc.m_FolderList, featureList, &doc);
    for (POSITION pos = doc.m_Nodes.GetHeadPosition(); pos;)
        static_cast<OrvObject*>(doc.m_Nodes.GetNext(pos))->GetUiObject(); // audit stamps
}

std::string FaultText(CException* e) {
    TCHAR text[256];
    if (!e->GetErrorMessage(text, 256))
        return "unknown fault";
    return std::string(CStringA(text).GetString());
}

int RunSave(const std::string& path) {
    NodeDocument doc;
    Start(&doc);
    BuildDemonstration(doc);
    try {
        CFile file(CString(path.c_str()), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
        CArchive ar(&file, CArchive::store);
        ar << static_cast<CObject*>(&doc);
        ar.Close();
    } catch (CException* e) {
        std::fprintf(stderr, "orvhost: cannot write %s: %s\n", path.c_str(), FaultText(e).c_str());
        e->Delete();
        return 1;
    }
    std::printf("saved a document of %d nodes to %s\n", static_cast<int>(doc.m_Nodes.GetCount()),
                path.c_str());
    g_document = nullptr;
    orvhost::StopLibrary();
    return 0;
}

int RunDump(const std::string& path) {
    Start(nullptr);
    std::unique_ptr<NodeDocument> doc;
    try {
        CFile file(CString(path.c_str()), CFile::modeRead | CFile::typeBinary);
        CArchive ar(&file, CArchive::load);
        NodeDocument* loaded = nullptr;
        ar >> loaded;
        doc.reset(loaded);
        ar.Close();
    } catch (CException* e) {
        std::fprintf(stderr, "orvhost: %s is not a document: %s\n", path.c_str(),
                     FaultText(e).c_str());
        e->Delete();
        return 1;
    }
    if (!doc) {
        std::fprintf(stderr, "orvhost: %s holds no document\n", path.c_str());
        return 1;
    }
    g_document = doc.get();
    doc->DumpData(stdout);
    std::printf("\n");
    DumpFolderViews(doc->m_FolderList, stdout);
    g_document = nullptr;
    orvhost::StopLibrary();
    return 0;
}

int RunDoc(const orvhost::Arguments& arguments) {
    if (arguments.size() != 2 || (arguments[0] != "save" && arguments[0] != "dump")) {
        std::fprintf(stderr, "usage: orvhost doc save FILE | orvhost doc dump FILE\n");
        return 2;
    }
    return arguments[0] == "save" ? RunSave(arguments[1]) : RunDump(arguments[1]);
}

const orvhost::CommandRegistrar docRegistrar(
    {"doc",
     "doc save FILE | doc dump FILE   write a demonstration document of nodes, or load one and "
     "dump it",
     RunDoc});

} // namespace
