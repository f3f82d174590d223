#include "core/OrvBaseObject.h"

#include <cmath>

#include "core/OrvDocAccessors.h"
#include "core/OrvLoadTracker.h"
#include "geometry/FRConstants.h"

IMPLEMENT_SERIAL(OrvBaseObject, CObject, VERSIONABLE_SCHEMA | 2)

OrvBaseObject::OrvBaseObject() {
    OrvLoadTracker::Created(this);
}

OrvBaseObject::~OrvBaseObject() {
    OrvLoadTracker::Destroyed(this);
}

void OrvBaseObject::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar.SerializeClass(RUNTIME_CLASS(OrvBaseObject));
        return;
    }
    if (std::fabs(GetActiveDocReadStorageUnits()) > 6.1 - RESABS)
        ar.SerializeClass(RUNTIME_CLASS(OrvBaseObject));
    else
        ar.SetObjectSchema(1);
}

CString OrvBaseObject::GetClassNameW() {
    return L"OrvBaseObject";
}

void OrvBaseObject::DumpData(FILE*) {}

void OrvBaseObject::OnPostLoadFromStorageNotify() {}

CRuntimeClass* OrvBaseObject::GetRuntimeClassForAutoIndexing() {
    return GetRuntimeClass();
}
