#include "objects/OrvFolderManager.h"

#include "core/OrvLoadTracker.h"
#include "objects/FolderLevel.h"
#include "objects/FolderSchema.h"
#include "objects/OrvBaseFolder.h"

IMPLEMENT_SERIAL(OrvFolderManager, OrvObject, VERSIONABLE_SCHEMA | 1)

using namespace folder_level;

OrvFolderManager::~OrvFolderManager() {
    DeleteFolders(m_ObjList);
}

void OrvFolderManager::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(OrvFolderManager));
    if (ar.IsStoring()) {
        OrvObject::Serialize(ar);
        SerializeLevel(ar, m_ObjList, nullptr);
        return;
    }
    RequireSchema(ar.GetObjectSchema());
    OrvObject::Serialize(ar);
    // Opened behind the node part: when it is the thread's first, nothing that the node part made
    // (objects its links only refer to) counts as fresh for the children.
    OrvLoadTracker tracker(this);
    SerializeLevel(ar, m_ObjList, &tracker);
}

void OrvFolderManager::ReleaseLinks() {
    OrvObject::ReleaseLinks();
    m_ObjList.RemoveAll();
}

void OrvFolderManager::Update(ORV_ENUM_OB_ACTION_TYPE action, OrvObject* object,
                              OrvObject* reference) {
    switch (action) {
    case ORV_OB_ADD_HEAD:
        m_ObjList.AddHead(object);
        break;
    case ORV_OB_ADD_TAIL:
        m_ObjList.AddTail(object);
        break;
    case ORV_OB_INSERT_AFTER:
        PlaceBy(m_ObjList, object, reference, Where::After);
        break;
    case ORV_OB_INSERT_BEFORE:
        PlaceBy(m_ObjList, object, reference, Where::Before);
        break;
    case ORV_OB_REPLACE:
        PlaceBy(m_ObjList, object, reference, Where::Replace);
        break;
    case ORV_OB_REMOVE_ALL:
        DeleteFolders(m_ObjList);
        break;
    case ORV_OB_REMOVE:
        Unlink(m_ObjList, object);
        break;
    }
}

void OrvFolderManager::SetInitialObjList(const CObList& objects) {
    DeleteFolders(m_ObjList);
    m_ObjList.AddTail(const_cast<CObList*>(&objects));
}

void OrvFolderManager::GetAllObjectsWithFolders(CObList* objects) const {
    if (objects)
        objects->AddTail(const_cast<CObList*>(&m_ObjList));
}

void OrvFolderManager::GetAllChilds(CObList& objects) const {
    CollectObjects(m_ObjList, objects);
}

OrvBaseFolder* OrvFolderManager::GetParentFolder(OrvObject* object) {
    Place place;
    return Locate(m_ObjList, nullptr, object, place) ? place.holder : nullptr;
}

int OrvFolderManager::RemoveFolder(OrvBaseFolder* folder) {
    return folder ? Unlink(m_ObjList, folder) : 0;
}

int OrvFolderManager::DeleteFolder(OrvBaseFolder* folder) {
    return folder_level::DeleteFolder(m_ObjList, folder);
}

int OrvFolderManager::RemoveObject(CObject* object) {
    const POSITION position = m_ObjList.Find(object);
    if (!position)
        return 0;
    m_ObjList.RemoveAt(position);
    return 1;
}

int OrvFolderManager::Copy(const OrvFolderManager* source) {
    if (!source || source == this)
        return 0;
    CopyLevel(source->m_ObjList, m_ObjList);
    return 1;
}

void OrvFolderManager::SetOwner(OrvObject* owner) {
    folder_level::SetOwner(m_ObjList, owner);
}

int OrvFolderManager::AddToNewFolder(CObList& objects, OrvBaseFolder* folder, OrvObject* owner) {
    if (objects.IsEmpty() || !objects.GetHead())
        return 0;
    return PlaceNewFolder(m_ObjList, DYNAMIC_DOWNCAST(OrvObject, objects.GetHead()), &objects,
                          folder, owner, false);
}

int OrvFolderManager::CreateNewFolder(OrvObject* anchor, OrvBaseFolder* folder, OrvObject* owner) {
    return PlaceNewFolder(m_ObjList, anchor, nullptr, folder, owner, true);
}

int OrvFolderManager::InsertObjectInFolder(OrvObject* object, OrvBaseFolder* folder, int atHead) {
    return PlaceInFolder(m_ObjList, object, folder, atHead);
}

int OrvFolderManager::InsertObjectAfterFolder(OrvObject* object, OrvBaseFolder* folder) {
    return PlaceAfterFolder(m_ObjList, object, folder);
}

int OrvFolderManager::InsertFolderAfterObject(OrvBaseFolder* folder, OrvObject* object) {
    return PlaceFolderNextTo(m_ObjList, folder, object, true);
}

int OrvFolderManager::InsertFolderBeforeObject(OrvBaseFolder* folder, OrvObject* object) {
    return PlaceFolderNextTo(m_ObjList, folder, object, false);
}

int OrvFolderManager::InsertFolderInFolderObject(OrvBaseFolder* child, OrvBaseFolder* folder,
                                                 int atHead) {
    return PlaceInFolder(m_ObjList, child, folder, atHead);
}

int OrvFolderManager::RemoveEmptyFolders() {
    folder_level::RemoveEmptyFolders(m_ObjList);
    return m_ObjList.IsEmpty();
}

int OrvFolderManager::IsAnyObjectPresnentInBetween(OrvBaseFolder* folder, OrvObject* object) {
    if (!folder || !object)
        return 0;
    int folderPassed = 0;
    int objectPassed = 0;
    return AnyObjectBetween(m_ObjList, folder, object, folderPassed, objectPassed);
}

int OrvFolderManager::IsAnyObjectPresnentInBetween(OrvBaseFolder* first, OrvBaseFolder* second) {
    if (!first || !second)
        return 0;
    int firstPassed = 0;
    int secondPassed = 0;
    return AnyObjectBetween(m_ObjList, first, second, firstPassed, secondPassed);
}

void OrvFolderManager::GenerateFolderIds() {
    int counter = 1;
    folder_level::GenerateFolderIds(m_ObjList, counter);
}

void OrvFolderManager::Append(OrvObject* object, int folderId) {
    if (OrvBaseFolder* folder = FindFolderById(m_ObjList, folderId))
        folder->AddChild(object, 0);
    else
        m_ObjList.AddTail(object);
}

void OrvFolderManager::AddNewFolder(OrvBaseFolder* folder, OrvObject*, int folderId) {
    Place place;
    if (!folder || Locate(m_ObjList, nullptr, folder, place))
        return;
    Append(folder, folderId);
}
