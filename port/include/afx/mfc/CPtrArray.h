// CPtrArray: an array of untyped pointers, which it does not own.
#pragma once

#include "port/Export.h"

#include "mfc/CArray.h"
#include "mfc/CObject.h"

class ORV_API CPtrArray : public CArray<void*, void*> {
    DECLARE_DYNAMIC(CPtrArray)
public:
    // Addresses mean nothing in a file: CNotSupportedException.
    void Serialize(CArchive&) override { AfxThrowNotSupportedException(); }
};
