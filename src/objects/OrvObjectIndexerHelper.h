// OrvObjectIndexerHelper: a document's register of automatic numbers, one OrvObjectIndexer per
// class name. New nodes enter it from OrvObject::onCreate; a number stays its object's while
// other objects of the class are deleted, replaced or reloaded.
#pragma once

#include "port/Export.h"

#include <cstdio>
#include <map>

#include "core/OrvBaseObject.h"
#include "mfc/CObList.h"

class OrvObject;
class OrvObjectIndexer;

class ORV_API OrvObjectIndexerHelper : public OrvBaseObject {
    DECLARE_SERIAL(OrvObjectIndexerHelper)
public:
    OrvObjectIndexerHelper() = default;
    // Deletes the registers.
    ~OrvObjectIndexerHelper() override;

    // Class tag (its loaded schema is kept), the OrvBaseObject part, the registers as a CObList.
    void Serialize(CArchive& ar) override;
    CString GetClassNameW() override;
    void DumpData(FILE* file) override;

    // Numbers the object in its class: one more reference, its id at the end of the list, and
    // its registered name set to the class key.
    void AddObj(OrvObject* object);
    // Gives the position of `old` to `replacement`; the references stay.
    void ReplaceObj(OrvObject* old, OrvObject* replacement);
    // Deletes all registers.
    void RemoveAll();
    // The object's position in its class, or -1.
    int FindIndex(OrvObject* object);
    // One reference less in the object's registered class; its id stays listed.
    void ReleaseIndexer(OrvObject* object);
    // Registers with ids and no references start numbering again from the beginning.
    void ClearUnusedIndexers();
    // After a load: the references of each node class from the caller's count of live objects.
    void CorrectIndexersReferences(std::map<CString, unsigned int>& counts);
    DWORD GetObjectSchemaNumber() const { return m_nObjectSchemaNumber; }

    const CObList& GetIndexers() const { return m_ObjIndexerList; }

private:
    // The class of the object's GetRuntimeClassForAutoIndexing, or its GetRegisterNodeName when
    // that is not empty.
    static CString ClassKey(OrvObject* object);
    static bool IsNonNodeIndexerClass(const CString& className);
    OrvObjectIndexer* FindIndexer(const CString& className);

    CObList m_ObjIndexerList{10};
    DWORD m_nObjectSchemaNumber = 2;
};
