// OrvObjectIndexer: the register of one class name: the ids of the objects ever numbered in that
// class, in order, and how many of them still exist. An object's number is its position.
#pragma once

#include "port/Export.h"

#include <cstdio>

#include "core/OrvBaseObject.h"
#include "mfc/CList.h"

class ORV_API OrvObjectIndexer : public OrvBaseObject {
    DECLARE_SERIAL(OrvObjectIndexer)
public:
    OrvObjectIndexer() = default;
    explicit OrvObjectIndexer(const CString& className);

    // Class tag, the OrvBaseObject part, class name, id count and ids (32 bits each), and the
    // references (schema 2; an older register counts one reference per id).
    void Serialize(CArchive& ar) override;
    CString GetClassNameW() override;
    void DumpData(FILE* file) override;

    const CString& GetIndexClassName() const { return m_className; }
    CList<unsigned long, unsigned long>& GetIdList() { return m_IdList; }
    const CList<unsigned long, unsigned long>& GetIdList() const { return m_IdList; }
    void AddId(unsigned long id) { m_IdList.AddTail(id); }
    void AddReference() { ++m_nIndexReferences; }
    // Lowers the references by 1; at 0 they stay 0.
    void ReleaseReference();
    DWORD GetReferences() const { return m_nIndexReferences; }
    void SetReferences(DWORD references) { m_nIndexReferences = references; }
    // Empties the ids and sets the references to 0.
    void Clear();

private:
    CString m_className;
    CList<unsigned long, unsigned long> m_IdList{10};
    DWORD m_nIndexReferences = 0;
};
