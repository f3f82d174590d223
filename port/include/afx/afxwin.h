// The window side: points, sizes, rectangles and the application and thread objects.
#pragma once

#include "afx.h"
#include "mfc/CPoint.h"
#include "mfc/CRect.h"
#include "mfc/CSize.h"
#include "mfc/CWinApp.h"
#include "win/rect.h"
