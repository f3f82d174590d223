#include "ArchiveTestSupport.h"

#include <gtest/gtest.h>

#include <sstream>

IMPLEMENT_SERIAL(CNode, CObject, 1)
IMPLEMENT_SERIAL(CLeaf, CNode, 1)
IMPLEMENT_SERIAL(COther, CObject, 1)
IMPLEMENT_SERIAL(CVersioned, CObject, VERSIONABLE_SCHEMA | 3)
IMPLEMENT_DYNAMIC(CDynamicOnly, CObject)

Bytes Hex(const std::string& text) {
    Bytes bytes;
    std::istringstream in(text);
    std::string item;
    while (in >> item)
        bytes.push_back(static_cast<BYTE>(std::stoul(item, nullptr, 16)));
    return bytes;
}

Bytes Stored(const std::function<void(CArchive&)>& write) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    write(ar);
    ar.Close();
    Bytes bytes(static_cast<size_t>(file.GetLength()));
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

void Load(const Bytes& bytes, const std::function<void(CArchive&)>& read) {
    CMemFile file;
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load);
    read(ar);
    ar.Close();
}

int LoadFailure(const Bytes& bytes, const std::function<void(CArchive&)>& read) {
    try {
        Load(bytes, read);
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    } catch (CException* e) {
        e->Delete();
        return -2;
    }
    return -1;
}

std::set<CNode*>& CNode::Live() {
    static std::set<CNode*> live;
    return live;
}

void CNode::DeleteAll() {
    while (!Live().empty())
        delete *Live().begin();
}

void CNode::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << m_n << m_str << m_pNext;
    } else {
        ar >> m_n >> m_str >> m_pNext;
    }
}

void CVersioned::Serialize(CArchive& ar) {
    if (ar.IsLoading()) {
        m_firstSchema = ar.GetObjectSchema();
        m_secondSchema = ar.GetObjectSchema();
    }
}
