#include "objects/OrvObjectIndexerHelper.h"

#include "core/OrvDumpBanner.h"
#include "core/OrvLoadTracker.h"
#include "objects/ObjectListHelpers.h"
#include "objects/OrvObject.h"
#include "objects/OrvObjectIndexer.h"

IMPLEMENT_SERIAL(OrvObjectIndexerHelper, OrvBaseObject, VERSIONABLE_SCHEMA | 2)

namespace {

OrvObjectIndexer* AsIndexer(CObject* object) {
    return static_cast<OrvObjectIndexer*>(object);
}

} // namespace

OrvObjectIndexerHelper::~OrvObjectIndexerHelper() {
    RemoveAll();
}

void OrvObjectIndexerHelper::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(OrvObjectIndexerHelper));
    if (ar.IsStoring()) {
        OrvBaseObject::Serialize(ar);
        m_ObjIndexerList.Serialize(ar);
        return;
    }
    const UINT schema = ar.GetObjectSchema();
    OrvBaseObject::Serialize(ar);
    // The list owns its registers, so it takes only registers that this load made for it; it is
    // read element by element so that no other class can stand in it.
    CObList loaded(10);
    OrvLoadTracker tracker(this);
    try {
        for (DWORD_PTR left = ar.ReadCount(); left > 0; --left) {
            CObject* indexer = ar.ReadObject(RUNTIME_CLASS(OrvObjectIndexer));
            if (indexer && !tracker.Claim(indexer))
                AfxThrowArchiveException(CArchiveException::badIndex);
            if (indexer)
                loaded.AddTail(indexer);
        }
    } catch (...) { // the registers loaded so far are freed before the failure goes on
        DeleteAllElements_CObList(loaded);
        throw;
    }
    RemoveAll();
    m_ObjIndexerList.AddTail(&loaded);
    m_nObjectSchemaNumber = schema;
}

CString OrvObjectIndexerHelper::GetClassNameW() {
    return L"OrvObjectIndexerHelper";
}

void OrvObjectIndexerHelper::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvObjectIndexerHelper", L"Start");
    port::FilePrintf(file, L"\nDumping for m_ObjIndexerList Start\n");
    port::FilePrintf(file, L"\n m_ObjIndexerList Total Items : %d\n",
                     static_cast<int>(m_ObjIndexerList.GetCount()));
    int counter = 0;
    for (POSITION pos = m_ObjIndexerList.GetHeadPosition(); pos;) {
        port::FilePrintf(file, L"\n m_ObjIndexerList count: %d\n", counter++);
        AsIndexer(m_ObjIndexerList.GetNext(pos))->DumpData(file);
    }
    port::FilePrintf(file, L"\nDumping for m_ObjIndexerList End\n");
    port::FilePrintf(file, L"\n m_nObjectSchemaNumber: %d",
                     static_cast<int>(m_nObjectSchemaNumber));
    OrvDumpBanner(file, L"OrvObjectIndexerHelper", L"End");
}

CString OrvObjectIndexerHelper::ClassKey(OrvObject* object) {
    CRuntimeClass* indexClass = object->GetRuntimeClassForAutoIndexing();
    CString key = indexClass ? CString(indexClass->m_lpszClassName) : CString();
    const CString registered = object->GetRegisterNodeName();
    if (!registered.IsEmpty())
        key = registered;
    return key;
}

bool OrvObjectIndexerHelper::IsNonNodeIndexerClass(const CString& className) {
    return className == L"OrvActiveToolSet" || className == L"OrvToolStation";
}

OrvObjectIndexer* OrvObjectIndexerHelper::FindIndexer(const CString& className) {
    for (POSITION pos = m_ObjIndexerList.GetHeadPosition(); pos;) {
        OrvObjectIndexer* indexer = AsIndexer(m_ObjIndexerList.GetNext(pos));
        if (indexer->GetIndexClassName() == className)
            return indexer;
    }
    return nullptr;
}

void OrvObjectIndexerHelper::AddObj(OrvObject* object) {
    const CString key = ClassKey(object);
    OrvObjectIndexer* indexer = FindIndexer(key);
    if (!indexer) {
        indexer = new OrvObjectIndexer(key);
        m_ObjIndexerList.AddTail(indexer);
    }
    indexer->AddReference();
    indexer->AddId(object->GetObjectId());
    object->SetRegNameForAutoIndexing(key);
}

void OrvObjectIndexerHelper::ReplaceObj(OrvObject* old, OrvObject* replacement) {
    const CString key = ClassKey(old);
    const unsigned long oldId = old->GetObjectId();
    for (POSITION pos = m_ObjIndexerList.GetHeadPosition(); pos;) {
        OrvObjectIndexer* indexer = AsIndexer(m_ObjIndexerList.GetNext(pos));
        if (indexer->GetIndexClassName() != key)
            continue;
        auto& ids = indexer->GetIdList();
        if (POSITION at = ids.Find(oldId)) {
            ids.SetAt(at, replacement->GetObjectId());
            replacement->SetRegNameForAutoIndexing(key);
        }
    }
}

void OrvObjectIndexerHelper::RemoveAll() {
    DeleteAllElements_CObList(m_ObjIndexerList);
}

int OrvObjectIndexerHelper::FindIndex(OrvObject* object) {
    const CString key = ClassKey(object);
    const unsigned long id = object->GetObjectId();
    for (POSITION pos = m_ObjIndexerList.GetHeadPosition(); pos;) {
        OrvObjectIndexer* indexer = AsIndexer(m_ObjIndexerList.GetNext(pos));
        if (indexer->GetIndexClassName() != key)
            continue;
        int counter = 0;
        const auto& ids = indexer->GetIdList();
        for (POSITION at = ids.GetHeadPosition(); at; ++counter)
            if (ids.GetNext(at) == id)
                return counter;
    }
    return -1;
}

void OrvObjectIndexerHelper::ReleaseIndexer(OrvObject* object) {
    if (!object)
        return;
    const CString& name = object->GetRegNameForAutoIndexing();
    for (POSITION pos = m_ObjIndexerList.GetHeadPosition(); pos;) {
        OrvObjectIndexer* indexer = AsIndexer(m_ObjIndexerList.GetNext(pos));
        if (indexer->GetIndexClassName() == name)
            indexer->ReleaseReference();
    }
}

void OrvObjectIndexerHelper::ClearUnusedIndexers() {
    for (POSITION pos = m_ObjIndexerList.GetHeadPosition(); pos;) {
        OrvObjectIndexer* indexer = AsIndexer(m_ObjIndexerList.GetNext(pos));
        if (!indexer->GetIdList().IsEmpty() && indexer->GetReferences() == 0)
            indexer->Clear();
    }
}

void OrvObjectIndexerHelper::CorrectIndexersReferences(std::map<CString, unsigned int>& counts) {
    if (counts.empty())
        return;
    for (POSITION pos = m_ObjIndexerList.GetHeadPosition(); pos;) {
        OrvObjectIndexer* indexer = AsIndexer(m_ObjIndexerList.GetNext(pos));
        const CString& name = indexer->GetIndexClassName();
        if (name.IsEmpty() || IsNonNodeIndexerClass(name))
            continue;
        indexer->SetReferences(counts[name]);
    }
}
