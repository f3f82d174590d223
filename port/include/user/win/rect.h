// The Win32 geometry structures and the rectangle functions of USER32 that work on them.
#pragma once

#include "win/types.h"

struct POINT {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};

struct RECT {
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
BOOL SetRect(LPRECT rect, int left, int top, int right, int bottom);
BOOL SetRectEmpty(LPRECT rect);
BOOL CopyRect(LPRECT dest, const RECT* src);
BOOL IsRectEmpty(const RECT* rect);
BOOL EqualRect(const RECT* a, const RECT* b);
BOOL PtInRect(const RECT* rect, POINT pt);
BOOL OffsetRect(LPRECT rect, int dx, int dy);
BOOL InflateRect(LPRECT rect, int dx, int dy);
// An empty result is stored as the rectangle (0, 0, 0, 0) and answers FALSE.
BOOL IntersectRect(LPRECT dest, const RECT* a, const RECT* b);
BOOL UnionRect(LPRECT dest, const RECT* a, const RECT* b);
