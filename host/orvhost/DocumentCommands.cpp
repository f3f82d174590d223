// orvhost doc save FILE: builds the reference add-in's demonstration document and writes it.
// orvhost doc dump FILE: loads a document written that way and prints its dump, then both views of
// its folder list.
#include <cstdio>
#include <memory>
#include <string>

#include "HostCallbacks.h"
#include "HostCommand.h"
#include "addin/DemoFolders.h"
#include "addin/Demonstration.h"
#include "addin/NodeDocument.h"
#include "mfc/CFile.h"

namespace {

std::string FaultText(CException* e) {
    TCHAR text[256];
    if (!e->GetErrorMessage(text, 256))
        return "unknown fault";
    return std::string(CStringA(text).GetString());
}

int RunSave(const std::string& path) {
    NodeDocument doc;
    orvhost::StartLibrary();
    addin::OpenDocument(&doc);
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
    orvhost::StopLibrary();
    return 0;
}

int RunDump(const std::string& path) {
    orvhost::StartLibrary();
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
    addin::OpenDocument(doc.get());
    doc->DumpData(stdout);
    std::printf("\n");
    DumpFolderViews(doc->m_FolderList, stdout);
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
