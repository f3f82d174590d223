#include "objects/OrvObjectIndexer.h"

#include "core/OrvDumpBanner.h"

IMPLEMENT_SERIAL(OrvObjectIndexer, OrvBaseObject, VERSIONABLE_SCHEMA | 2)

OrvObjectIndexer::OrvObjectIndexer(const CString& className) : m_className(className) {}

void OrvObjectIndexer::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(OrvObjectIndexer));
    if (ar.IsStoring()) {
        OrvBaseObject::Serialize(ar);
        ar << m_className << static_cast<DWORD>(m_IdList.GetCount());
        for (POSITION pos = m_IdList.GetHeadPosition(); pos;)
            ar << static_cast<DWORD>(m_IdList.GetNext(pos));
        ar << static_cast<int>(m_nIndexReferences);
        return;
    }
    const UINT schema = ar.GetObjectSchema();
    OrvBaseObject::Serialize(ar);
    CString className;
    DWORD count = 0;
    ar >> className >> count;
    // Read into a list of our own, so that a damaged register keeps what it held. Each id is
    // read before it is stored: a count larger than the file ends at the end of the data.
    CList<unsigned long, unsigned long> ids(10);
    for (DWORD left = count; left > 0; --left) {
        DWORD id = 0;
        ar >> id;
        ids.AddTail(id);
    }
    int references = static_cast<int>(count);
    if (schema >= 2)
        ar >> references;
    m_className = className;
    m_IdList.RemoveAll();
    m_IdList.AddTail(&ids);
    m_nIndexReferences = static_cast<DWORD>(references);
}

CString OrvObjectIndexer::GetClassNameW() {
    return L"OrvObjectIndexer";
}

void OrvObjectIndexer::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvObjectIndexer", L"Start");
    port::FilePrintf(file, L"\n m_className: %s", m_className.GetString());
    port::FilePrintf(file, L"\n m_nIndexReferences: %d", static_cast<int>(m_nIndexReferences));
    OrvDumpBanner(file, L"OrvObjectIndexer", L"End");
}

void OrvObjectIndexer::ReleaseReference() {
    if (m_nIndexReferences > 0)
        --m_nIndexReferences;
}

void OrvObjectIndexer::Clear() {
    m_IdList.RemoveAll();
    m_nIndexReferences = 0;
}
