// ATL's string header: CString, CStringA and CStringW with their formatting.
#pragma once

#include <windows.h>

#include "mfc/CString.h"
#include "mfc/StringFormat.h"
#include "mfc/StringResources.h"
