// OrvBaseObject: the serialisable root of everything that goes into a document.
#pragma once

#include "port/Export.h"

#include <cstdio>

#include "mfc/CArchive.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

class ORV_API OrvBaseObject : public CObject {
    DECLARE_SERIAL(OrvBaseObject)
public:
    OrvBaseObject();
    ~OrvBaseObject() override;

    // Storing writes this class's tag. Loading reads it only when the active document's read
    // storage version is above 6.1 (less RESABS); older documents have no tag here and the
    // schema counts as 1. No data follows.
    void Serialize(CArchive& ar) override;

    virtual CString GetClassNameW();
    virtual void DumpData(FILE* file);
    virtual void OnPostLoadFromStorageNotify();
    virtual CRuntimeClass* GetRuntimeClassForAutoIndexing();
};
