// CStringList: a list of CString values; archived as the count, then each string.
#pragma once

#include "port/Export.h"

#include "mfc/CList.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

class ORV_API CStringList : public CList<CString, const CString&> {
    DECLARE_SERIAL(CStringList)
public:
    explicit CStringList(INT_PTR nBlockSize = 10) : CList(nBlockSize) {}
};
