// The USER32 rectangle functions.
#include <algorithm>

#include "win/rect.h"

BOOL SetRect(LPRECT rect, int left, int top, int right, int bottom) {
    if (!rect)
        return FALSE;
    *rect = RECT{left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(LPRECT rect) {
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL CopyRect(LPRECT dest, const RECT* src) {
    if (!dest || !src)
        return FALSE;
    *dest = *src;
    return TRUE;
}

BOOL IsRectEmpty(const RECT* rect) {
    return !rect || rect->right <= rect->left || rect->bottom <= rect->top;
}

BOOL EqualRect(const RECT* a, const RECT* b) {
    if (!a || !b)
        return FALSE;
    return a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL PtInRect(const RECT* rect, POINT pt) {
    if (!rect)
        return FALSE;
    return pt.x >= rect->left && pt.x < rect->right && pt.y >= rect->top && pt.y < rect->bottom;
}

BOOL OffsetRect(LPRECT rect, int dx, int dy) {
    if (!rect)
        return FALSE;
    rect->left += dx;
    rect->right += dx;
    rect->top += dy;
    rect->bottom += dy;
    return TRUE;
}

BOOL InflateRect(LPRECT rect, int dx, int dy) {
    if (!rect)
        return FALSE;
    rect->left -= dx;
    rect->right += dx;
    rect->top -= dy;
    rect->bottom += dy;
    return TRUE;
}

BOOL IntersectRect(LPRECT dest, const RECT* a, const RECT* b) {
    if (!dest || !a || !b)
        return FALSE;
    const RECT both{std::max(a->left, b->left), std::max(a->top, b->top),
                    std::min(a->right, b->right), std::min(a->bottom, b->bottom)};
    if (IsRectEmpty(a) || IsRectEmpty(b) || IsRectEmpty(&both)) {
        SetRectEmpty(dest);
        return FALSE;
    }
    *dest = both;
    return TRUE;
}

BOOL UnionRect(LPRECT dest, const RECT* a, const RECT* b) {
    if (!dest || !a || !b)
        return FALSE;
    const bool aEmpty = IsRectEmpty(a);
    const bool bEmpty = IsRectEmpty(b);
    if (aEmpty && bEmpty) {
        SetRectEmpty(dest);
        return FALSE;
    }
    if (aEmpty)
        *dest = *b;
    else if (bEmpty)
        *dest = *a;
    else
        *dest = RECT{std::min(a->left, b->left), std::min(a->top, b->top),
                     std::max(a->right, b->right), std::max(a->bottom, b->bottom)};
    return TRUE;
}
