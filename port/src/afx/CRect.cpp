// The CRect members built on the USER32 rectangle functions.
#include <utility>

#include "mfc/CRect.h"

void CRect::InflateRect(int l, int t, int r, int b) noexcept {
    left -= l;
    top -= t;
    right += r;
    bottom += b;
}

void CRect::MoveToX(int x) noexcept {
    right = Width() + x;
    left = x;
}

void CRect::MoveToY(int y) noexcept {
    bottom = Height() + y;
    top = y;
}

void CRect::NormalizeRect() noexcept {
    if (left > right)
        std::swap(left, right);
    if (top > bottom)
        std::swap(top, bottom);
}

CRect CRect::operator&(const RECT& other) const noexcept {
    CRect result;
    ::IntersectRect(&result, this, &other);
    return result;
}

CRect CRect::operator|(const RECT& other) const noexcept {
    CRect result;
    ::UnionRect(&result, this, &other);
    return result;
}
