// OrvBaseFolder: a user folder of the document tree. Its children are plain objects and folders
// in order; it owns its sub-folders and not its plain objects.
#pragma once

#include "port/Export.h"

#include "mfc/CObList.h"
#include "objects/OrvCallbackHelper.h"
#include "objects/OrvObject.h"

enum ORV_FOLDER_TYPE : int { ORV_FOLDER_GENERIC = 0 };

class ORV_API OrvBaseFolder : public OrvObject {
    DECLARE_SERIAL(OrvBaseFolder)
public:
    OrvBaseFolder();
    // Deletes the sub-folders, recursively; plain objects stay with their owner.
    ~OrvBaseFolder() override;

    // The OrvObject part, the name and the children as object references. No class tag of its
    // own: the schema of the reference that loaded it is taken and dropped. The ids are not
    // archived. Loading replaces the children.
    void Serialize(CArchive& ar) override;
    // Also empties the children without deleting the sub-folders.
    void ReleaseLinks() override;

    // Empties the children without deleting anything.
    virtual void RemoveAll();
    virtual ORV_FOLDER_TYPE GetFolderType();
    // This folder, its sub-folders and its plain objects, all below, get `owner`.
    virtual void SetOwner(OrvObject* owner);
    // A deep copy: an OrvBaseFolder of the same name, sub-folders cloned, plain objects cloned by
    // their Clone. The caller owns the result and the cloned plain objects.
    virtual OrvBaseFolder* CloneFolder() const;

    CString GetName() const { return m_FolderName; }
    void SetName(const CString& name) { m_FolderName = name; }
    int GetFolderId() const { return m_FolderId; }
    void SetFolderId(int id) { m_FolderId = id; }
    int GetSequenceNo() const { return m_SequenceNo; }
    void SetSequenceNo(int sequenceNo) { m_SequenceNo = sequenceNo; }
    int GetParentFolderId() const { return m_ParentFolderId; }
    void SetParentFolderId(int id) { m_ParentFolderId = id; }

    // The operations below work on this folder's level and the folders below it. Each answers 1
    // when it did its work here or below, 0 otherwise.

    // At the head when atHead is non-zero, else at the tail.
    int AddChild(OrvObject* child, int atHead);
    // Appends the direct children.
    int GetChilds(CObList& children) const;
    // Appends every plain object below, depth-first.
    int GetAllChilds(CObList& objects) const;
    // `parent` becomes the folder that holds `object` directly.
    int GetParentFolder(OrvObject* object, OrvBaseFolder*& parent);
    // Puts `folder` (a new OrvBaseFolder when null) before the list's head, in the level that
    // holds the head, and moves the list's entries of that level into it.
    int AddToNewFolder(CObList& objects, OrvBaseFolder* folder, OrvObject* owner);
    // Puts `folder` (a new OrvBaseFolder when null) before `anchor`, in the level that holds it.
    int CreateNewFolder(OrvObject* anchor, OrvBaseFolder* folder, OrvObject* owner);
    int RemoveObject(CObject* object);
    int InsertObjectBefore(OrvObject* object, OrvObject* reference);
    int InsertObjectAfter(OrvObject* object, OrvObject* reference);
    // `object` takes the place of `reference`.
    int SetAt(OrvObject* object, OrvObject* reference);
    int Contains(OrvObject* object);
    // Deletes the sub-folders, recursively, and empties the children.
    int Cleanup();
    int RemoveEmptyFolders();
    // True when no plain object stands anywhere below.
    int IsEmpty() const;
    // A shallow copy of `source`: the name, new OrvBaseFolders for its sub-folders, its plain
    // objects shared.
    int Copy(const OrvBaseFolder* source);
    // Numbers this folder with `counter`, then its sub-folders in order.
    int GenerateFolderIds(int& counter);
    // The sub-folder with `id`, depth-first, each folder before its descendants.
    OrvBaseFolder* GetSubFolder(int id);
    // Unlinks `folder` from its level; the caller gets it.
    int RemoveFolder(OrvBaseFolder* folder);
    // Deletes `folder` and puts its children in its place.
    int DeleteFolder(OrvBaseFolder* folder);
    int InsertObjectInFolder(OrvObject* object, OrvBaseFolder* folder, int atHead);
    int InsertObjectAfterFolder(OrvObject* object, OrvBaseFolder* folder);
    // A null `object` puts the folder at the head of this level.
    int InsertFolderAfterObject(OrvBaseFolder* folder, OrvObject* object);
    int InsertFolderBeforeObject(OrvBaseFolder* folder, OrvObject* object);
    int InsertFolderInFolderObject(OrvBaseFolder* child, OrvBaseFolder* folder, int atHead);

    // The children, for the walks of the tree.
    CObList& Children() { return m_Childs; }
    const CObList& Children() const { return m_Childs; }

    // The interface companion's factory of every folder.
    static OrvCallbackHelper* sCallbackHelper();

protected:
    OrvCallbackHelper* iCallbackHelper() override;

private:
    CString m_FolderName;
    CObList m_Childs{10};
    int m_FolderId = -1;
    int m_SequenceNo = -1;
    int m_ParentFolderId = -1;
};
