// OrvFolderManager: the folder tree beside a flat object list. Its top level holds plain objects
// and folders in order; it owns its folders and not its plain objects.
#pragma once

#include "port/Export.h"

#include "mfc/CObList.h"
#include "objects/OrvObject.h"

class OrvBaseFolder;

// The edits of the flat list, replayed on the tree by OrvFolderManager::Update.
enum ORV_ENUM_OB_ACTION_TYPE : int {
    ORV_OB_ADD_HEAD = 0,
    ORV_OB_ADD_TAIL = 1,
    ORV_OB_INSERT_AFTER = 2,
    ORV_OB_INSERT_BEFORE = 3,
    ORV_OB_REPLACE = 4,
    ORV_OB_REMOVE_ALL = 5,
    ORV_OB_REMOVE = 6,
};

class ORV_API OrvFolderManager : public OrvObject {
    DECLARE_SERIAL(OrvFolderManager)
public:
    OrvFolderManager() = default;
    // Deletes the folders, recursively; plain objects stay with their owner.
    ~OrvFolderManager() override;

    // The OrvObject part and the top level as object references. Loading replaces the tree.
    void Serialize(CArchive& ar) override;
    // Also empties the top level without deleting the folders.
    void ReleaseLinks() override;

    // Replays an edit of the flat list. Actions 2, 3 and 4 act where `reference` stands and
    // action 6 where `object` stands, at the top level or in a folder; 7 and above are ignored.
    void Update(ORV_ENUM_OB_ACTION_TYPE action, OrvObject* object, OrvObject* reference);

    // Deletes all folders, then takes a copy of `objects` as the top level.
    void SetInitialObjList(const CObList& objects);
    // Appends the top level.
    void GetAllObjectsWithFolders(CObList* objects) const;
    // Appends every plain object, depth-first: the flat list's order.
    void GetAllChilds(CObList& objects) const;
    // The folder that holds `object` directly; null at the top level or nowhere.
    OrvBaseFolder* GetParentFolder(OrvObject* object);
    // Unlinks `folder` wherever it stands; the caller gets it.
    int RemoveFolder(OrvBaseFolder* folder);
    // Deletes `folder` and puts its children in its place.
    int DeleteFolder(OrvBaseFolder* folder);
    // Takes `object` from the top level only.
    int RemoveObject(CObject* object);
    // A shallow copy of `source`'s tree: new OrvBaseFolders, plain objects shared.
    int Copy(const OrvFolderManager* source);
    // Every folder and plain object of the tree gets `owner`; the manager keeps its own.
    void SetOwner(OrvObject* owner);

    // Puts `folder` (a new OrvBaseFolder when null) before the list's head, in the level that
    // holds the head, and moves the list's entries of that level into it.
    int AddToNewFolder(CObList& objects, OrvBaseFolder* folder, OrvObject* owner);
    // Puts `folder` (a new OrvBaseFolder when null) before `anchor`, or at the tail of the top
    // level when `anchor` stands nowhere.
    int CreateNewFolder(OrvObject* anchor, OrvBaseFolder* folder, OrvObject* owner);
    int InsertObjectInFolder(OrvObject* object, OrvBaseFolder* folder, int atHead);
    int InsertObjectAfterFolder(OrvObject* object, OrvBaseFolder* folder);
    // A null `object` puts the folder at the head of the top level.
    int InsertFolderAfterObject(OrvBaseFolder* folder, OrvObject* object);
    int InsertFolderBeforeObject(OrvBaseFolder* folder, OrvObject* object);
    int InsertFolderInFolderObject(OrvBaseFolder* child, OrvBaseFolder* folder, int atHead);
    // Deletes the folders without plain objects below; answers whether the top level is then
    // empty.
    int RemoveEmptyFolders();
    // Whether a plain object stands between `folder` and `object`, the folder's content counting
    // as between.
    int IsAnyObjectPresnentInBetween(OrvBaseFolder* folder, OrvObject* object);
    int IsAnyObjectPresnentInBetween(OrvBaseFolder* first, OrvBaseFolder* second);
    // Numbers the folders 1, 2, ... in pre-order.
    void GenerateFolderIds();
    // `object` goes to the tail of the folder numbered `folderId`, or of the top level.
    void Append(OrvObject* object, int folderId);
    // `folder` likewise; the second argument plays no part.
    void AddNewFolder(OrvBaseFolder* folder, OrvObject* ignored, int folderId);

    const CObList& TopLevel() const { return m_ObjList; }

private:
    CObList m_ObjList{10};
};
