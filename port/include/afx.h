// MFC's core: strings, runtime classes, exceptions, files and archives, collections, time.
#pragma once

#include <windows.h>

#include "afxcore.h"
#include "afxcoll.h"
#include "mfc/CString.h"
