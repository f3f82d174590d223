// CStringArray: an array of CString values; archived as the count, then each string.
#pragma once

#include "port/Export.h"

#include "mfc/CArray.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

class ORV_API CStringArray : public CArray<CString, const CString&> {
    DECLARE_SERIAL(CStringArray)
};
