// The runtime classes of the list classes and CObList's archive form.
#include "mfc/CObList.h"

#include "mfc/CPtrList.h"
#include "mfc/CStringList.h"

IMPLEMENT_SERIAL(CObList, CObject, 0)
IMPLEMENT_DYNAMIC(CPtrList, CObject)
IMPLEMENT_SERIAL(CStringList, CObject, 0)

void CObList::Serialize(CArchive& ar) {
    CObject::Serialize(ar);
    if (ar.IsStoring()) {
        ar.WriteCount(static_cast<DWORD_PTR>(GetCount()));
        for (POSITION pos = GetHeadPosition(); pos;)
            ar.WriteObject(GetNext(pos));
        return;
    }
    for (DWORD_PTR left = ar.ReadCount(); left > 0; --left)
        AddTail(ar.ReadObject(nullptr));
}
