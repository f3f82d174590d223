#include "objects/OrvFolderObList.h"

#include <unordered_set>

#include "core/OrvLoadTracker.h"
#include "mfc/CException.h"
#include "objects/FolderLevel.h"
#include "objects/FolderSchema.h"
#include "objects/ObjectSequence.h"
#include "objects/OrvBaseFolder.h"
#include "objects/OrvSerializeStatus.h"

IMPLEMENT_SERIAL(OrvFolderObList, OrvObject, VERSIONABLE_SCHEMA | 1)

namespace {

// The location bit of a folder list in the serialisation status.
constexpr DWORD kFolderListLocation = 0x1000;

// Appends the entries of `from` that are objects, in order.
void AppendObjects(const CObList& from, CObList& objects) {
    for (POSITION pos = from.GetHeadPosition(); pos;)
        if (OrvObject* object = DYNAMIC_DOWNCAST(OrvObject, from.GetNext(pos)))
            objects.AddTail(object);
}

} // namespace

OrvFolderObList::OrvFolderObList(CObList& objects) {
    AppendObjects(objects, m_ObList);
}

OrvFolderObList::~OrvFolderObList() {
    m_ObList.RemoveAll();
}

void OrvFolderObList::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(OrvFolderObList));
    if (ar.IsStoring()) {
        OrvObject::Serialize(ar);
        m_ObList.Serialize(ar);
        try {
            ar << m_pFolderManager.get();
        } catch (CException* e) {
            e->Delete();
            LogSerializationError(kFolderListLocation);
            ar << static_cast<CObject*>(nullptr);
        }
        return;
    }
    folder_level::RequireSchema(ar.GetObjectSchema());
    OrvObject::Serialize(ar);
    // Opened behind the node part: when it is the thread's first, nothing that the node part made
    // (objects its links only refer to) counts as fresh for the children.
    OrvLoadTracker tracker(this);
    m_ObList.RemoveAll();
    m_pFolderManager.reset();
    for (DWORD_PTR left = ar.ReadCount(); left > 0; --left) {
        m_ObList.AddTail(ar.ReadObject(RUNTIME_CLASS(OrvObject)));
    }
    CObject* manager = ar.ReadObject(RUNTIME_CLASS(OrvFolderManager));
    if (manager && !tracker.Claim(manager))
        AfxThrowArchiveException(CArchiveException::badIndex);
    m_pFolderManager.reset(static_cast<OrvFolderManager*>(manager));
}

void OrvFolderObList::ReleaseLinks() {
    OrvObject::ReleaseLinks();
    m_ObList.RemoveAll();
    static_cast<void>(m_pFolderManager.release());
}

void OrvFolderObList::Initialize(CObList* objects) {
    CObList entries;
    if (objects)
        AppendObjects(*objects, entries);
    m_ObList.RemoveAll();
    m_ObList.AddTail(&entries);
    m_pFolderManager = std::make_unique<OrvFolderManager>();
    m_pFolderManager->SetInitialObjList(m_ObList);
}

void OrvFolderObList::Initialize() {
    m_ObList.RemoveAll();
    m_pFolderManager = std::make_unique<OrvFolderManager>();
}

void OrvFolderObList::Copy(const OrvFolderObList& source) {
    if (&source == this)
        return;
    m_ObList.RemoveAll();
    m_ObList.AddTail(const_cast<CObList*>(&source.m_ObList));
    m_pFolderManager = std::make_unique<OrvFolderManager>();
    if (source.m_pFolderManager)
        m_pFolderManager->Copy(source.m_pFolderManager.get());
    else
        m_pFolderManager->SetInitialObjList(m_ObList);
}

void OrvFolderObList::Swap(OrvFolderObList& other) {
    if (&other == this)
        return;
    CObList mine;
    mine.AddTail(&m_ObList);
    m_ObList.RemoveAll();
    m_ObList.AddTail(&other.m_ObList);
    other.m_ObList.RemoveAll();
    other.m_ObList.AddTail(&mine);
    m_pFolderManager.swap(other.m_pFolderManager);
}

POSITION OrvFolderObList::AddHead(OrvObject* object) {
    const POSITION position = m_ObList.AddHead(object);
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_ADD_HEAD, object, nullptr);
    return position;
}

POSITION OrvFolderObList::AddTail(OrvObject* object) {
    const POSITION position = m_ObList.AddTail(object);
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_ADD_TAIL, object, nullptr);
    return position;
}

void OrvFolderObList::AddTail(CObList* objects) {
    if (!objects)
        return;
    CObList entries;
    AppendObjects(*objects, entries);
    for (POSITION pos = entries.GetHeadPosition(); pos;)
        AddTail(Entry(entries.GetNext(pos)));
}

void OrvFolderObList::AddTail(OrvFolderObList* objects) {
    if (objects)
        AddTail(&objects->m_ObList);
}

void OrvFolderObList::AddHead(CObList* objects) {
    if (!objects)
        return;
    CObList entries;
    AppendObjects(*objects, entries);
    m_ObList.AddHead(&entries);
}

POSITION OrvFolderObList::InsertAfter(OrvObject* object, OrvObject* reference) {
    const POSITION at = m_ObList.Find(reference);
    if (!at)
        return nullptr;
    const POSITION position = m_ObList.InsertAfter(at, object);
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_INSERT_AFTER, object, reference);
    return position;
}

POSITION OrvFolderObList::InsertBefore(OrvObject* object, OrvObject* reference) {
    const POSITION at = m_ObList.Find(reference);
    if (!at)
        return nullptr;
    const POSITION position = m_ObList.InsertBefore(at, object);
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_INSERT_BEFORE, object, reference);
    return position;
}

void OrvFolderObList::SetAt(OrvObject* object, OrvObject* reference) {
    // CObList refuses the null position of an absent reference.
    m_ObList.SetAt(m_ObList.Find(reference), object);
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_REPLACE, object, reference);
}

int OrvFolderObList::Remove(OrvObject* object) {
    const POSITION at = m_ObList.Find(object);
    if (!at)
        return 0;
    m_ObList.RemoveAt(at);
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_REMOVE, object, object);
    return 1;
}

int OrvFolderObList::Remove(CObject* object) {
    const POSITION at = m_ObList.Find(object);
    if (!at)
        return 0;
    m_ObList.RemoveAt(at);
    if (m_pFolderManager)
        m_pFolderManager->RemoveObject(object);
    return 1;
}

OrvObject* OrvFolderObList::RemoveHead() {
    if (m_ObList.IsEmpty() || !m_ObList.GetHead())
        return nullptr;
    OrvObject* head = Entry(m_ObList.RemoveHead());
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_REMOVE, head, head);
    return head;
}

void OrvFolderObList::RemoveAll() {
    m_ObList.RemoveAll();
    if (m_pFolderManager)
        m_pFolderManager->Update(ORV_OB_REMOVE_ALL, nullptr, nullptr);
}

int OrvFolderObList::RemoveFolder(OrvBaseFolder* folder) {
    if (!folder)
        return 0;
    CObList objects;
    folder->GetAllChilds(objects);
    for (POSITION pos = objects.GetHeadPosition(); pos;)
        if (const POSITION at = m_ObList.Find(objects.GetNext(pos)))
            m_ObList.RemoveAt(at);
    return m_pFolderManager ? m_pFolderManager->RemoveFolder(folder) : 1;
}

int OrvFolderObList::DeleteFolderObject(OrvBaseFolder* folder) {
    return m_pFolderManager ? m_pFolderManager->DeleteFolder(folder) : 0;
}

void OrvFolderObList::Append(OrvObject* object, int folderId) {
    m_ObList.AddTail(object);
    if (m_pFolderManager)
        m_pFolderManager->Append(object, folderId);
}

void OrvFolderObList::AddNewFolder(OrvBaseFolder* folder, OrvObject* ignored, int folderId) {
    if (m_pFolderManager)
        m_pFolderManager->AddNewFolder(folder, ignored, folderId);
}

int OrvFolderObList::AddToNewFolder(CObList& objects, OrvBaseFolder* folder, OrvObject* owner) {
    return m_pFolderManager ? m_pFolderManager->AddToNewFolder(objects, folder, owner) : 0;
}

int OrvFolderObList::CreateNewFolder(OrvObject* anchor, OrvBaseFolder* folder, OrvObject* owner) {
    return m_pFolderManager ? m_pFolderManager->CreateNewFolder(anchor, folder, owner) : 0;
}

int OrvFolderObList::InsertObjectInFolder(OrvObject* object, OrvBaseFolder* folder, int atHead) {
    if (m_pFolderManager) {
        m_pFolderManager->InsertObjectInFolder(object, folder, atHead);
        UpdateObListAsPerFolderManager();
    }
    return 1;
}

int OrvFolderObList::InsertObjectAfterFolder(OrvObject* object, OrvBaseFolder* folder) {
    if (m_pFolderManager) {
        m_pFolderManager->InsertObjectAfterFolder(object, folder);
        UpdateObListAsPerFolderManager();
    }
    return 1;
}

int OrvFolderObList::InsertFolderAfterObject(OrvBaseFolder* folder, OrvObject* object) {
    if (m_pFolderManager) {
        m_pFolderManager->InsertFolderAfterObject(folder, object);
        UpdateObListAsPerFolderManager();
    }
    return 1;
}

int OrvFolderObList::InsertFolderBeforeObject(OrvBaseFolder* folder, OrvObject* object) {
    if (m_pFolderManager) {
        m_pFolderManager->InsertFolderBeforeObject(folder, object);
        UpdateObListAsPerFolderManager();
    }
    return 1;
}

int OrvFolderObList::InsertFolderInFolderObject(OrvBaseFolder* child, OrvBaseFolder* folder,
                                                int atHead) {
    if (m_pFolderManager) {
        m_pFolderManager->InsertFolderInFolderObject(child, folder, atHead);
        UpdateObListAsPerFolderManager();
    }
    return 1;
}

void OrvFolderObList::UpdateObListAsPerFolderManager() {
    if (!m_pFolderManager)
        return;
    m_ObList.RemoveAll();
    m_pFolderManager->GetAllChilds(m_ObList);
}

void OrvFolderObList::GetAllObjectsWithFolders(CObList* objects) const {
    if (m_pFolderManager)
        m_pFolderManager->GetAllObjectsWithFolders(objects);
}

OrvBaseFolder* OrvFolderObList::GetParentFolderOfObject(OrvObject* object) const {
    if (!object || !m_pFolderManager)
        return nullptr;
    return m_pFolderManager->GetParentFolder(object);
}

int OrvFolderObList::AreObjectsInSameFolder(CObList& objects) const {
    POSITION pos = objects.GetHeadPosition();
    if (!pos)
        return 1;
    const OrvBaseFolder* first =
        GetParentFolderOfObject(DYNAMIC_DOWNCAST(OrvObject, objects.GetNext(pos)));
    while (pos)
        if (GetParentFolderOfObject(DYNAMIC_DOWNCAST(OrvObject, objects.GetNext(pos))) != first)
            return 0;
    return 1;
}

int OrvFolderObList::AreObjectsInSequenceAndSameFolder(CObList& objects) const {
    return AreObjectsInSameFolder(objects) && AreObjectsInSequence(objects, m_ObList) ? 1 : 0;
}

int OrvFolderObList::RemoveEmptyFolders() {
    return m_pFolderManager ? m_pFolderManager->RemoveEmptyFolders() : 0;
}

int OrvFolderObList::IsAnyObjectPresnentInBetween(OrvBaseFolder* folder, OrvObject* object) {
    return m_pFolderManager ? m_pFolderManager->IsAnyObjectPresnentInBetween(folder, object) : 0;
}

int OrvFolderObList::IsAnyObjectPresnentInBetween(OrvBaseFolder* first, OrvBaseFolder* second) {
    return m_pFolderManager ? m_pFolderManager->IsAnyObjectPresnentInBetween(first, second) : 0;
}

void OrvFolderObList::GenerateFolderIds() {
    if (m_pFolderManager)
        m_pFolderManager->GenerateFolderIds();
}

void OrvFolderObList::SetOwner(OrvObject* owner) {
    if (m_pFolderManager) {
        m_pFolderManager->SetOwner(owner);
        return;
    }
    for (POSITION pos = m_ObList.GetHeadPosition(); pos;)
        if (OrvObject* object = Entry(m_ObList.GetNext(pos)))
            object->OrvObject::SetOwner(owner);
}

void OrvFolderObList::RemoveDuplicates() {
    std::unordered_set<const CObject*> seen;
    for (POSITION pos = m_ObList.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        if (!seen.insert(m_ObList.GetNext(pos)).second)
            m_ObList.RemoveAt(at);
    }
}
