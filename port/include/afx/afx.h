// MFC's core: strings, runtime classes, exceptions, files and archives, collections, time.
#pragma once

// The kernel and user parts of windows.h; the registry comes with <windows.h> itself.
#include "win/error.h"
#include "win/files.h"
#include "win/msgbox.h"
#include "win/rect.h"
#include "win/threads.h"
#include "win/time.h"
#include "win/types.h"

#include "afxcoll.h"
#include "afxcore.h"
#include "mfc/CString.h"
