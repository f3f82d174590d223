#include "addin/NodeDocument.h"

#include <cstdint>

#include "addin/AddinText.h"

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

namespace {

NodeDocument* g_active = nullptr;

unsigned long NewObjectId() {
    return g_active ? ++g_active->m_LastId : 0;
}
OrvObject* ActiveDocument() {
    return g_active;
}
OrvObjectIndexerHelper* ActiveIndexer() {
    return g_active ? g_active->m_pIndexer : nullptr;
}

void AppendFolders(const CObList& level, std::vector<OrvObject*>& owned) {
    for (POSITION pos = level.GetHeadPosition(); pos;)
        if (auto* folder = DYNAMIC_DOWNCAST(OrvBaseFolder, level.GetNext(pos))) {
            owned.push_back(folder);
            AppendFolders(folder->Children(), owned);
        }
}

template <class T> T& At(unsigned long long param) {
    return *reinterpret_cast<T*>(static_cast<std::uintptr_t>(param));
}

} // namespace

void NodeDocument::Activate(NodeDocument* document) {
    g_active = document;
    OrvShareRegisterDocCBK(nullptr, NewObjectId, ActiveDocument, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr);
    orvshare_init(ActiveIndexer, nullptr, nullptr, nullptr);
}

NodeDocument* NodeDocument::Active() {
    return g_active;
}

NodeDocument::~NodeDocument() {
    if (g_active == this)
        g_active = nullptr;
    FreeNodes(m_Nodes, m_FolderList);
    ReleaseLinks();
    delete m_pIndexer;
}

void NodeDocument::AppendTreeNodes(const OrvFolderObList& list, std::vector<OrvObject*>& owned) {
    if (OrvFolderManager* manager = list.GetFolderManager()) {
        owned.push_back(manager);
        AppendFolders(manager->TopLevel(), owned);
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
    switch (id) {
    case ORV_MSG_GET_DOC_READ_STORAGE_UNITS:
        At<float>(param) = m_StorageUnits;
        return 1;
    case ORV_MSG_SET_DOC_READ_STORAGE_UNITS:
        m_StorageUnits = At<float>(param);
        return 1;
    case ORV_MSG_SET_DOC_MODIFIED_FLAG:
        m_Modified = At<int>(param);
        return 1;
    case ORV_MSG_IS_DOC_MODIFIED:
        At<int>(param) = m_Modified;
        return 1;
    case ORV_MSG_IS_DOC_UNITS_MM:
        At<int>(param) = m_Units == 0;
        return 1;
    case ORV_MSG_GET_DOC_UNITS:
        At<int>(param) = m_Units;
        return 1;
    case ORV_MSG_GET_DOC_TITLE:
        At<CString>(param) = m_Title;
        return 1;
    default:
        return 0;
    }
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

// The banners around the document's dump, in the form the library's own dumps use.
constexpr const wchar_t* kBanner =
    L"\n============================ NodeDocument %s ================================\n";

void NodeDocument::DumpData(FILE* file) {
    if (!file)
        return;
    AddinPrint(file, kBanner, L"Start");
    OrvObject::DumpData(file);
    AddinPrint(file, L"\n m_LastId: %d", static_cast<int>(m_LastId));
    for (POSITION pos = m_Nodes.GetHeadPosition(); pos;) {
        auto* node = static_cast<OrvObject*>(m_Nodes.GetNext(pos));
        node->DumpData(file);
        node->DumpUserObjs(file);
        if (CFlaggedError* flag = node->GetFlag())
            flag->DumpData(file);
    }
    if (m_pIndexer)
        m_pIndexer->DumpData(file);
    AddinPrint(file, kBanner, L"End");
}
