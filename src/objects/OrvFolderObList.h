// OrvFolderObList: a document's ordered list of objects with a folder tree beside it. The flat
// list holds plain objects only; the tree's depth-first walk of its plain objects is the flat
// list's order. Edits of the flat list are replayed on the tree, and edits of the tree are followed
// by a rebuild of the flat list. Until Initialize it is a plain list without a tree.
//
// The plain objects belong to their real owner and must outlive the tree that refers to them: the
// tree tells its folders from its objects by their class when it edits or deletes itself.
#pragma once

#include "port/Export.h"

#include <memory>

#include "mfc/CObList.h"
#include "objects/OrvFolderManager.h"
#include "objects/OrvObject.h"

class OrvBaseFolder;

class ORV_API OrvFolderObList : public OrvObject {
    DECLARE_SERIAL(OrvFolderObList)
public:
    OrvFolderObList() = default;
    // The flat list from the objects of `objects`; no tree.
    explicit OrvFolderObList(CObList& objects);
    // Deletes the tree (with its folders); the plain objects stay with their owner.
    ~OrvFolderObList() override;

    // The OrvObject part, the flat list and the tree as object references. A tree that fails to
    // be written is logged (0x1000) and written as null. Loading replaces both.
    void Serialize(CArchive& ar) override;
    // Also empties the flat list and lets go of the tree without deleting it.
    void ReleaseLinks() override;

    // The flat list becomes the objects of `objects`, and a new tree holds them at its top level.
    void Initialize(CObList* objects);
    // Empty flat list, new empty tree.
    void Initialize();
    // The flat list and a shallow copy of the tree of `source` (a tree of its flat list when it
    // has none).
    void Copy(const OrvFolderObList& source);
    // The flat lists and the trees change places; the node parts stay.
    void Swap(OrvFolderObList& other);

    CObList& GetObList() { return m_ObList; }
    const CObList& GetObList() const { return m_ObList; }
    OrvFolderManager* GetFolderManager() const { return m_pFolderManager.get(); }

    INT_PTR GetCount() const { return m_ObList.GetCount(); }
    BOOL IsEmpty() const { return m_ObList.IsEmpty(); }
    POSITION GetHeadPosition() const { return m_ObList.GetHeadPosition(); }
    POSITION GetTailPosition() const { return m_ObList.GetTailPosition(); }
    OrvObject* GetNext(POSITION& position) const { return Entry(m_ObList.GetNext(position)); }
    OrvObject* GetPrev(POSITION& position) const { return Entry(m_ObList.GetPrev(position)); }
    OrvObject* GetAt(POSITION position) const { return Entry(m_ObList.GetAt(position)); }
    OrvObject* GetHead() const { return Entry(m_ObList.GetHead()); }
    OrvObject* GetTail() const { return Entry(m_ObList.GetTail()); }
    POSITION Find(OrvObject* object, POSITION startAfter = nullptr) const {
        return m_ObList.Find(object, startAfter);
    }
    POSITION FindIndex(INT_PTR index) const { return m_ObList.FindIndex(index); }

    POSITION AddHead(OrvObject* object);
    POSITION AddTail(OrvObject* object);
    void AddTail(CObList* objects);
    void AddTail(OrvFolderObList* objects);
    // The flat list alone: the tree is not told.
    void AddHead(CObList* objects);
    // Null, and nothing done, when `reference` is not in the flat list.
    POSITION InsertAfter(OrvObject* object, OrvObject* reference);
    POSITION InsertBefore(OrvObject* object, OrvObject* reference);
    // `object` takes the place of `reference`; an absent `reference` is an invalid argument.
    void SetAt(OrvObject* object, OrvObject* reference);
    // Takes `object` from the flat list and from the tree.
    int Remove(OrvObject* object);
    // Takes `object` from the flat list and from the tree's top level only.
    int Remove(CObject* object);
    // The head, taken from the flat list and the tree; null when there is none.
    OrvObject* RemoveHead();
    // Empties the flat list and the tree, deleting the folders.
    void RemoveAll();

    // Takes the plain objects below `folder` out of the flat list and unlinks the folder from
    // the tree; the caller gets the folder and its subtree.
    int RemoveFolder(OrvBaseFolder* folder);
    // Deletes `folder`, its children taking its place; the flat order stays.
    int DeleteFolderObject(OrvBaseFolder* folder);
    // `object` goes to the tail of the flat list and of the folder numbered `folderId`.
    void Append(OrvObject* object, int folderId);
    void AddNewFolder(OrvBaseFolder* folder, OrvObject* ignored, int folderId);
    int AddToNewFolder(CObList& objects, OrvBaseFolder* folder, OrvObject* owner);
    int CreateNewFolder(OrvObject* anchor, OrvBaseFolder* folder, OrvObject* owner);

    // The tree edits: without a tree they answer 1 and do nothing; with one, the tree's
    // operation, a rebuild of the flat list, and 1.
    int InsertObjectInFolder(OrvObject* object, OrvBaseFolder* folder, int atHead);
    int InsertObjectAfterFolder(OrvObject* object, OrvBaseFolder* folder);
    int InsertFolderAfterObject(OrvBaseFolder* folder, OrvObject* object);
    int InsertFolderBeforeObject(OrvBaseFolder* folder, OrvObject* object);
    int InsertFolderInFolderObject(OrvBaseFolder* child, OrvBaseFolder* folder, int atHead);

    // The flat list rebuilt from the tree's walk.
    void UpdateObListAsPerFolderManager();
    // Appends the tree's top level.
    void GetAllObjectsWithFolders(CObList* objects) const;
    // Null for a null object; else the folder holding it (null at the top level). Needs a tree.
    OrvBaseFolder* GetParentFolderOfObject(OrvObject* object) const;
    // Whether every entry has the same parent folder (1 for an empty list or without a tree).
    int AreObjectsInSameFolder(CObList& objects) const;
    // The same, and the entries, once sorted in the flat order, follow each other there.
    int AreObjectsInSequenceAndSameFolder(CObList& objects) const;
    int RemoveEmptyFolders();
    int IsAnyObjectPresnentInBetween(OrvBaseFolder* folder, OrvObject* object);
    int IsAnyObjectPresnentInBetween(OrvBaseFolder* first, OrvBaseFolder* second);
    void GenerateFolderIds();
    // The tree's objects and folders (or, without a tree, the flat list's objects) get `owner`.
    void SetOwner(OrvObject* owner);
    // Keeps the first of each object in the flat list; the tree is not told.
    void RemoveDuplicates();

private:
    static OrvObject* Entry(CObject* entry) { return static_cast<OrvObject*>(entry); }
    CObList m_ObList{10};
    std::unique_ptr<OrvFolderManager> m_pFolderManager;
};
