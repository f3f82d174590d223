// A document the way an add-in builds one on the library: a document node that owns a flat list
// of nodes (their tree runs through the owner links), keeps some of them in a folder list with a
// folder tree, numbers them through its indexer helper and hands out their ids. The tests, the fuzz
// target and the benchmark load and store it.
//
// One source file of a program defines NODE_DOCUMENT_IMPLEMENTATION before including this header,
// so that the classes' run-time information exists once.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

#include "core/OrvDumpBanner.h"
#include "core/OrvHostCallbacks.h"
#include "core/OrvLoadTracker.h"
#include "mfc/CArchive.h"
#include "mfc/CException.h"
#include "objects/CFlaggedError.h"
#include "objects/OrvBaseFolder.h"
#include "objects/OrvFolderObList.h"
#include "objects/OrvNodeLoadScope.h"
#include "objects/OrvObject.h"
#include "objects/OrvObjectIndexerHelper.h"

// A node with a flag. The flag's message id is the class's own, set at construction.
class DocNode : public OrvObject {
    DECLARE_SERIAL(DocNode)
public:
    CFlaggedError m_Flag{1001, STOCK};

    CString GetClassNameW() override { return L"DocNode"; }
    CFlaggedError* GetFlag() override { return &m_Flag; }
    void Serialize(CArchive& ar) override;
};

// A second node class, numbered under a registered name of its own.
class DocFolder : public DocNode {
    DECLARE_SERIAL(DocFolder)
public:
    CString GetClassNameW() override { return L"DocFolder"; }
    CString GetRegisterNodeName() override { return L"Folder"; }
    void Serialize(CArchive& ar) override;
};

class NodeDocument : public OrvObject {
    DECLARE_SERIAL(NodeDocument)
public:
    CObList m_Nodes{10};          // owned
    OrvFolderObList m_FolderList; // some of the nodes, in folders; owns its folders
    OrvObjectIndexerHelper* m_pIndexer = new OrvObjectIndexerHelper; // owned
    DWORD m_LastId = 0;                                              // the last id handed out
    float m_StorageUnits = 0.0f;                                     // what message 201 answers

    NodeDocument() = default;
    ~NodeDocument() override;

    CString GetClassNameW() override { return L"NodeDocument"; }
    int SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param,
                           long long extra) override;
    // The document node, the last id, the nodes, the folder list, the indexer helper. A load
    // takes only nodes that it made for this document or for the folder list's own tree, each
    // once, and frees everything it made if it fails.
    void Serialize(CArchive& ar) override;
    // The document node's dump, then each node's with its users and flag, then the helper's.
    void DumpData(FILE* file) override;

    // A new node of class T in this document, under `owner`, named and numbered. The document
    // must be the active one, as it hands out the id.
    template <class T> T* Add(const CString& name, OrvObject* owner) {
        T* node = new T;
        m_Nodes.AddTail(node);
        node->ChangeName(name);
        node->SetOwner(owner);
        node->onCreate();
        return node;
    }

    // Registers the callbacks of an add-in (ids, active document, indexer helper) with
    // `document` as the active one.
    static void Activate(NodeDocument* document);
    static NodeDocument* Active();

private:
    // The nodes that `list` owns: its folder manager and every folder of the tree.
    static void AppendTreeNodes(const OrvFolderObList& list, std::vector<OrvObject*>& owned);
    // Frees `nodes` and the tree of `list` at once: every link is dropped before anything is
    // deleted, so that no destructor follows a link to a node already gone.
    static void FreeNodes(CObList& nodes, OrvFolderObList& list);
};

#ifdef NODE_DOCUMENT_IMPLEMENTATION

IMPLEMENT_SERIAL(DocNode, OrvObject, VERSIONABLE_SCHEMA | 1)
IMPLEMENT_SERIAL(DocFolder, DocNode, VERSIONABLE_SCHEMA | 1)
IMPLEMENT_SERIAL(NodeDocument, OrvObject, VERSIONABLE_SCHEMA | 1)

void DocNode::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(DocNode));
    OrvObject::Serialize(ar);
    m_Flag.Serialize(ar);
}

void DocFolder::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(DocFolder));
    DocNode::Serialize(ar);
}

namespace node_document {

inline NodeDocument* g_active = nullptr;

inline unsigned long NewObjectId() {
    return g_active ? ++g_active->m_LastId : 0;
}
inline OrvObject* ActiveDocument() {
    return g_active;
}
inline OrvObjectIndexerHelper* ActiveIndexer() {
    return g_active ? g_active->m_pIndexer : nullptr;
}

} // namespace node_document

void NodeDocument::Activate(NodeDocument* document) {
    node_document::g_active = document;
    OrvShareRegisterDocCBK(nullptr, node_document::NewObjectId, node_document::ActiveDocument,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr);
    orvshare_init(node_document::ActiveIndexer, nullptr, nullptr, nullptr);
}

NodeDocument* NodeDocument::Active() {
    return node_document::g_active;
}

NodeDocument::~NodeDocument() {
    if (node_document::g_active == this)
        node_document::g_active = nullptr;
    FreeNodes(m_Nodes, m_FolderList);
    ReleaseLinks();
    delete m_pIndexer;
}

namespace node_document {

inline void AppendFolders(const CObList& level, std::vector<OrvObject*>& owned) {
    for (POSITION pos = level.GetHeadPosition(); pos;)
        if (auto* folder = DYNAMIC_DOWNCAST(OrvBaseFolder, level.GetNext(pos))) {
            owned.push_back(folder);
            AppendFolders(folder->Children(), owned);
        }
}

} // namespace node_document

void NodeDocument::AppendTreeNodes(const OrvFolderObList& list, std::vector<OrvObject*>& owned) {
    if (OrvFolderManager* manager = list.GetFolderManager()) {
        owned.push_back(manager);
        node_document::AppendFolders(manager->TopLevel(), owned);
    }
}

void NodeDocument::FreeNodes(CObList& nodes, OrvFolderObList& list) {
    std::vector<OrvObject*> owned;
    for (POSITION pos = nodes.GetHeadPosition(); pos;)
        owned.push_back(static_cast<OrvObject*>(nodes.GetNext(pos)));
    AppendTreeNodes(list, owned);
    nodes.RemoveAll();
    for (OrvObject* node : owned)
        node->ReleaseLinks();
    list.ReleaseLinks();
    for (OrvObject* node : owned)
        delete node;
}

int NodeDocument::SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param, long long) {
    if (id != ORV_MSG_GET_DOC_READ_STORAGE_UNITS)
        return 0;
    *reinterpret_cast<float*>(static_cast<std::uintptr_t>(param)) = m_StorageUnits;
    return 1;
}

void NodeDocument::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(NodeDocument));
    if (ar.IsStoring()) {
        OrvObject::Serialize(ar);
        ar << m_LastId;
        ar.WriteCount(static_cast<DWORD_PTR>(m_Nodes.GetCount()));
        for (POSITION pos = m_Nodes.GetHeadPosition(); pos;)
            ar << m_Nodes.GetNext(pos);
        m_FolderList.Serialize(ar);
        ar << m_pIndexer;
        return;
    }
    OrvNodeLoadScope scope(this);
    OrvLoadTracker tracker(this);
    CObList nodes(10);
    // The folder list is read into an object of this load, which the scope frees with the rest
    // if the load fails; on success its content moves into the member.
    OrvFolderObList* list = nullptr;
    OrvObjectIndexerHelper* indexer = nullptr;
    try {
        OrvObject::Serialize(ar);
        DWORD lastId = 0;
        ar >> lastId;
        for (DWORD_PTR left = ar.ReadCount(); left > 0; --left) {
            OrvObject* node = nullptr;
            ar >> node;
            if (!tracker.Claim(node))
                AfxThrowArchiveException(CArchiveException::badIndex);
            nodes.AddTail(node);
        }
        list = new OrvFolderObList;
        OrvNodeLoadScope::Loading(list);
        list->Serialize(ar);
        ar >> indexer;
        if (indexer && !tracker.Claim(indexer)) {
            indexer = nullptr;
            AfxThrowArchiveException(CArchiveException::badIndex);
        }
        // Every node this load made must be one of the document's, the folder list or a node of
        // its tree, and none may have been lost half-made while others kept pointing at it.
        std::vector<OrvObject*> tree;
        AppendTreeNodes(*list, tree);
        if (scope.LostNodes() ||
            scope.NodesMade() != static_cast<std::size_t>(nodes.GetCount()) + 1 + tree.size())
            AfxThrowArchiveException(CArchiveException::badIndex);
        m_LastId = lastId;
    } catch (...) {
        delete indexer;
        ReleaseLinks();
        throw; // the scope frees the nodes
    }
    scope.Commit();
    // The old content goes into the loaded list's place and is freed with the old nodes.
    std::unique_ptr<OrvFolderObList> old(list);
    m_FolderList.Swap(*old);
    FreeNodes(m_Nodes, *old);
    // The loaded list object goes; a damaged file may have entered it in user lists of the nodes
    // that stay (its destructor, run while the load's scope is open, only drops its own links).
    std::vector<OrvObject*> staying{this};
    for (POSITION pos = nodes.GetHeadPosition(); pos;)
        staying.push_back(static_cast<OrvObject*>(nodes.GetNext(pos)));
    AppendTreeNodes(m_FolderList, staying);
    for (OrvObject* node : staying)
        node->RemoveFromUserObjectsList(old.get());
    // Folder ids are not archived: the tree is numbered again, as when it was built.
    m_FolderList.GenerateFolderIds();
    m_Nodes.AddTail(&nodes);
    // A recycled node read inside its original owner's user list is entered there twice: once by
    // the load's repair, once by the list itself.
    RemoveDuplicatesFromUserObjects();
    for (POSITION pos = m_Nodes.GetHeadPosition(); pos;)
        static_cast<OrvObject*>(m_Nodes.GetNext(pos))->RemoveDuplicatesFromUserObjects();
    delete m_pIndexer;
    m_pIndexer = indexer ? indexer : new OrvObjectIndexerHelper;
}

void NodeDocument::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"NodeDocument", L"Start");
    OrvObject::DumpData(file);
    port::FilePrintf(file, L"\n m_LastId: %d", static_cast<int>(m_LastId));
    for (POSITION pos = m_Nodes.GetHeadPosition(); pos;) {
        auto* node = static_cast<OrvObject*>(m_Nodes.GetNext(pos));
        node->DumpData(file);
        node->DumpUserObjs(file);
        if (CFlaggedError* flag = node->GetFlag())
            flag->DumpData(file);
    }
    if (m_pIndexer)
        m_pIndexer->DumpData(file);
    OrvDumpBanner(file, L"NodeDocument", L"End");
}

#endif
