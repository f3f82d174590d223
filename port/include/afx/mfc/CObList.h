// CObList: a list of CObject pointers. The list does not own its objects.
#pragma once

#include "port/Export.h"

#include "mfc/CList.h"
#include "mfc/CObject.h"

class ORV_API CObList : public CList<CObject*, CObject*> {
    DECLARE_SERIAL(CObList)
public:
    explicit CObList(INT_PTR nBlockSize = 10) : CList(nBlockSize) {}

    // The count, then each object through the object protocol; loading appends at the tail.
    void Serialize(CArchive& ar) override;
};
