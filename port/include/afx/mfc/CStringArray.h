// CStringArray: an array of CString values; archived as the count, then each string.
#pragma once

#include "mfc/CArray.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

class CStringArray : public CArray<CString, const CString&> {
    DECLARE_SERIAL(CStringArray)
};
