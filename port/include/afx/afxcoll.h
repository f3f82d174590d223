// MFC's collection classes, and the time classes that afx.h brings in with them.
#pragma once

#include "mfc/CMapPtrToPtr.h"
#include "mfc/CMapStringToPtr.h"
#include "mfc/CObArray.h"
#include "mfc/CObList.h"
#include "mfc/CPtrArray.h"
#include "mfc/CPtrList.h"
#include "mfc/CStringArray.h"
#include "mfc/CStringList.h"
#include "mfc/CTime.h"
#include "mfc/CTimeSpan.h"
