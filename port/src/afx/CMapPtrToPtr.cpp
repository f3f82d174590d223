// The runtime classes of the non-template maps.
#include "mfc/CMapPtrToPtr.h"

#include "mfc/CMapStringToPtr.h"

IMPLEMENT_DYNAMIC(CMapPtrToPtr, CObject)
IMPLEMENT_DYNAMIC(CMapStringToPtr, CObject)
