// The runtime classes of the array classes and CObArray's archive form.
#include "mfc/CObArray.h"

#include "mfc/CPtrArray.h"
#include "mfc/CStringArray.h"

IMPLEMENT_SERIAL(CObArray, CObject, 0)
IMPLEMENT_DYNAMIC(CPtrArray, CObject)
IMPLEMENT_SERIAL(CStringArray, CObject, 0)

void CObArray::Serialize(CArchive& ar) {
    CObject::Serialize(ar);
    if (ar.IsStoring()) {
        ar.WriteCount(static_cast<DWORD_PTR>(GetSize()));
        for (INT_PTR i = 0; i < GetSize(); ++i)
            ar.WriteObject(GetAt(i));
        return;
    }
    RemoveAll();
    for (DWORD_PTR left = ar.ReadCount(); left > 0; --left)
        Add(ar.ReadObject(nullptr));
}
