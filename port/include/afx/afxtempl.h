// MFC's collection templates and their element helpers.
#pragma once

#include "afx.h"
#include "mfc/CArray.h"
#include "mfc/CList.h"
#include "mfc/CMap.h"
#include "mfc/CollectionCore.h"
