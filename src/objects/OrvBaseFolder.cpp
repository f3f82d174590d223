#include "objects/OrvBaseFolder.h"

#include <memory>

#include "core/OrvLoadTracker.h"
#include "objects/FolderLevel.h"

IMPLEMENT_SERIAL(OrvBaseFolder, OrvObject, VERSIONABLE_SCHEMA | 1)

using namespace folder_level;

OrvBaseFolder::OrvBaseFolder() = default;

OrvBaseFolder::~OrvBaseFolder() {
    Cleanup();
}

void OrvBaseFolder::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        OrvObject::Serialize(ar);
        ar << m_FolderName;
        SerializeLevel(ar, m_Childs, nullptr);
        return;
    }
    // The folder reads no version of its own; the schema of the reference that loaded it is
    // taken so that it does not stand for the next object.
    ar.GetObjectSchema();
    OrvObject::Serialize(ar);
    // Opened behind the node part: when it is the thread's first, nothing that the node part made
    // (objects its links only refer to) counts as fresh for the children.
    OrvLoadTracker tracker(this);
    ar >> m_FolderName;
    SerializeLevel(ar, m_Childs, &tracker);
}

void OrvBaseFolder::ReleaseLinks() {
    OrvObject::ReleaseLinks();
    m_Childs.RemoveAll();
}

void OrvBaseFolder::RemoveAll() {
    m_Childs.RemoveAll();
}

ORV_FOLDER_TYPE OrvBaseFolder::GetFolderType() {
    return ORV_FOLDER_GENERIC;
}

void OrvBaseFolder::SetOwner(OrvObject* owner) {
    OrvObject::SetOwner(owner);
    folder_level::SetOwner(m_Childs, owner);
}

OrvBaseFolder* OrvBaseFolder::CloneFolder() const {
    auto clone = std::make_unique<OrvBaseFolder>();
    clone->m_FolderName = m_FolderName;
    for (POSITION pos = m_Childs.GetHeadPosition(); pos;) {
        CObject* child = m_Childs.GetNext(pos);
        if (const OrvBaseFolder* folder = AsFolder(child)) {
            std::unique_ptr<OrvBaseFolder> copy(folder->CloneFolder());
            copy->SetOwner(GetOwner());
            clone->AddChild(copy.release(), 0);
        } else if (OrvObject* object = DYNAMIC_DOWNCAST(OrvObject, child)) {
            // A class that cannot be cloned answers null and contributes nothing.
            if (OrvObject* copy = object->Clone())
                clone->AddChild(copy, 0);
        }
    }
    return clone.release();
}

int OrvBaseFolder::AddChild(OrvObject* child, int atHead) {
    if (atHead)
        m_Childs.AddHead(child);
    else
        m_Childs.AddTail(child);
    return 1;
}

int OrvBaseFolder::GetChilds(CObList& children) const {
    children.AddTail(const_cast<CObList*>(&m_Childs));
    return 1;
}

int OrvBaseFolder::GetAllChilds(CObList& objects) const {
    CollectObjects(m_Childs, objects);
    return 1;
}

int OrvBaseFolder::GetParentFolder(OrvObject* object, OrvBaseFolder*& parent) {
    Place place;
    if (!Locate(m_Childs, this, object, place))
        return 0;
    parent = place.holder;
    return 1;
}

int OrvBaseFolder::AddToNewFolder(CObList& objects, OrvBaseFolder* folder, OrvObject* owner) {
    if (objects.IsEmpty() || !objects.GetHead())
        return 0;
    return PlaceNewFolder(m_Childs, DYNAMIC_DOWNCAST(OrvObject, objects.GetHead()), &objects,
                          folder, owner, false);
}

int OrvBaseFolder::CreateNewFolder(OrvObject* anchor, OrvBaseFolder* folder, OrvObject* owner) {
    return PlaceNewFolder(m_Childs, anchor, nullptr, folder, owner, false);
}

int OrvBaseFolder::RemoveObject(CObject* object) {
    return Unlink(m_Childs, object);
}

int OrvBaseFolder::InsertObjectBefore(OrvObject* object, OrvObject* reference) {
    return PlaceBy(m_Childs, object, reference, Where::Before);
}

int OrvBaseFolder::InsertObjectAfter(OrvObject* object, OrvObject* reference) {
    return PlaceBy(m_Childs, object, reference, Where::After);
}

int OrvBaseFolder::SetAt(OrvObject* object, OrvObject* reference) {
    return PlaceBy(m_Childs, object, reference, Where::Replace);
}

int OrvBaseFolder::Contains(OrvObject* object) {
    Place place;
    return Locate(m_Childs, this, object, place) ? 1 : 0;
}

int OrvBaseFolder::Cleanup() {
    DeleteFolders(m_Childs);
    return 1;
}

int OrvBaseFolder::RemoveEmptyFolders() {
    return folder_level::RemoveEmptyFolders(m_Childs);
}

int OrvBaseFolder::IsEmpty() const {
    CObList objects;
    CollectObjects(m_Childs, objects);
    return objects.IsEmpty();
}

int OrvBaseFolder::Copy(const OrvBaseFolder* source) {
    if (!source || source == this)
        return 0;
    m_FolderName = source->m_FolderName;
    CopyLevel(source->m_Childs, m_Childs);
    return 1;
}

int OrvBaseFolder::GenerateFolderIds(int& counter) {
    m_FolderId = counter++;
    folder_level::GenerateFolderIds(m_Childs, counter);
    return 1;
}

OrvBaseFolder* OrvBaseFolder::GetSubFolder(int id) {
    return FindFolderById(m_Childs, id);
}

int OrvBaseFolder::RemoveFolder(OrvBaseFolder* folder) {
    return folder ? Unlink(m_Childs, folder) : 0;
}

int OrvBaseFolder::DeleteFolder(OrvBaseFolder* folder) {
    return folder_level::DeleteFolder(m_Childs, folder);
}

int OrvBaseFolder::InsertObjectInFolder(OrvObject* object, OrvBaseFolder* folder, int atHead) {
    return PlaceInFolder(m_Childs, object, folder, atHead);
}

int OrvBaseFolder::InsertObjectAfterFolder(OrvObject* object, OrvBaseFolder* folder) {
    return PlaceAfterFolder(m_Childs, object, folder);
}

int OrvBaseFolder::InsertFolderAfterObject(OrvBaseFolder* folder, OrvObject* object) {
    return PlaceFolderNextTo(m_Childs, folder, object, true);
}

int OrvBaseFolder::InsertFolderBeforeObject(OrvBaseFolder* folder, OrvObject* object) {
    return PlaceFolderNextTo(m_Childs, folder, object, false);
}

int OrvBaseFolder::InsertFolderInFolderObject(OrvBaseFolder* child, OrvBaseFolder* folder,
                                              int atHead) {
    return PlaceInFolder(m_Childs, child, folder, atHead);
}

OrvCallbackHelper* OrvBaseFolder::sCallbackHelper() {
    static OrvCallbackHelper helper;
    return &helper;
}

OrvCallbackHelper* OrvBaseFolder::iCallbackHelper() {
    return sCallbackHelper();
}
