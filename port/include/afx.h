// MFC's core: strings, runtime classes, exceptions, files and archives, collections, time.
#pragma once

#include <windows.h>

#include "afxcoll.h"
#include "afxcore.h"
#include "mfc/CString.h"
