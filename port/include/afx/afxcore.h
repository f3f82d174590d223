// Runtime classes, exceptions, files and archives.
#pragma once

#include "mfc/CArchive.h"
#include "mfc/CDumpContext.h"
#include "mfc/CException.h"
#include "mfc/CFile.h"
#include "mfc/CMemFile.h"
#include "mfc/CObject.h"
