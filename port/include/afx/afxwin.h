// The window-side value types: points, sizes and rectangles.
#pragma once

#include "afx.h"
#include "mfc/CPoint.h"
#include "mfc/CRect.h"
#include "mfc/CSize.h"
#include "win/rect.h"
