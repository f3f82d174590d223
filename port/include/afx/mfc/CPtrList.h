// CPtrList: a list of untyped pointers, which it does not own.
#pragma once

#include "port/Export.h"

#include "mfc/CList.h"
#include "mfc/CObject.h"

class ORV_API CPtrList : public CList<void*, void*> {
    DECLARE_DYNAMIC(CPtrList)
public:
    explicit CPtrList(INT_PTR nBlockSize = 10) : CList(nBlockSize) {}

    // Addresses mean nothing in a file: CNotSupportedException.
    void Serialize(CArchive&) override { AfxThrowNotSupportedException(); }
};
