// The reference add-in's document: a document node that owns a flat list of nodes (their tree runs
// through the owner links), keeps some of them in a folder list with a folder tree, numbers them
// through its indexer helper, hands out their ids and answers the library's document messages.
// orvhost, the tests, the fuzz target and the benchmarks load and store it.
#pragma once

#include <cstdio>
#include <memory>
#include <vector>

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
    float m_StorageUnits = 0.0f; // 0: the current storage version
    int m_Modified = 0;
    int m_Units = 0; // the unit code: 0 is millimetres
    CString m_Title;

    NodeDocument() = default;
    ~NodeDocument() override;

    CString GetClassNameW() override { return L"NodeDocument"; }
    // Answers the storage version, the modified flag, the units and the title from the fields
    // above (and sets the first two); every other message is left unanswered (0).
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
