// CObArray: an array of CObject pointers. The array does not own its objects.
#pragma once

#include "port/Export.h"

#include "mfc/CArray.h"
#include "mfc/CObject.h"

class ORV_API CObArray : public CArray<CObject*, CObject*> {
    DECLARE_SERIAL(CObArray)
public:
    // The count, then each object through the object protocol; loading replaces the contents.
    void Serialize(CArchive& ar) override;
};
