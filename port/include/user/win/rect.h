// The Win32 geometry structures and the rectangle functions of USER32 that work on them.
#pragma once

#include "port/Export.h"

#include "win/types.h"

struct ORV_API POINT {
    LONG x;
    LONG y;
};

struct ORV_API SIZE {
    LONG cx;
    LONG cy;
};

struct ORV_API RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

using LPPOINT = POINT*;
using LPSIZE = SIZE*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

static_assert(sizeof(POINT) == 8 && sizeof(SIZE) == 8 && sizeof(RECT) == 16);

// Each function answers FALSE (and does nothing) when given a null pointer, as USER32 does; a null
// rectangle counts as empty for IsRectEmpty.
ORV_API BOOL SetRect(LPRECT rect, int left, int top, int right, int bottom);
ORV_API BOOL SetRectEmpty(LPRECT rect);
ORV_API BOOL CopyRect(LPRECT dest, const RECT* src);
ORV_API BOOL IsRectEmpty(const RECT* rect);
ORV_API BOOL EqualRect(const RECT* a, const RECT* b);
ORV_API BOOL PtInRect(const RECT* rect, POINT pt);
ORV_API BOOL OffsetRect(LPRECT rect, int dx, int dy);
ORV_API BOOL InflateRect(LPRECT rect, int dx, int dy);
// An empty result is stored as the rectangle (0, 0, 0, 0) and answers FALSE.
ORV_API BOOL IntersectRect(LPRECT dest, const RECT* a, const RECT* b);
ORV_API BOOL UnionRect(LPRECT dest, const RECT* a, const RECT* b);
