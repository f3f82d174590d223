// CRect: MFC's rectangle, a RECT with the USER32 rectangle operations as members.
#pragma once

#include "port/Export.h"

#include "mfc/CPoint.h"
#include "mfc/CSize.h"
#include "win/rect.h"

class CArchive;

class ORV_API CRect : public RECT {
public:
    CRect() noexcept : RECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) noexcept : RECT{l, t, r, b} {}
    CRect(const RECT& src) noexcept : RECT(src) {}
    CRect(const RECT* src) noexcept : RECT(src ? *src : RECT{0, 0, 0, 0}) {}
    CRect(POINT pt, SIZE size) noexcept : RECT{pt.x, pt.y, pt.x + size.cx, pt.y + size.cy} {}
    CRect(POINT topLeft, POINT bottomRight) noexcept
        : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

    int Width() const noexcept { return right - left; }
    int Height() const noexcept { return bottom - top; }
    CSize Size() const noexcept { return CSize(Width(), Height()); }
    CPoint TopLeft() const noexcept { return CPoint(left, top); }
    CPoint BottomRight() const noexcept { return CPoint(right, bottom); }
    CPoint CenterPoint() const noexcept { return CPoint((left + right) / 2, (top + bottom) / 2); }

    operator LPRECT() noexcept { return this; }
    operator LPCRECT() const noexcept { return this; }

    BOOL IsRectEmpty() const noexcept { return ::IsRectEmpty(this); }
    BOOL IsRectNull() const noexcept { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    BOOL PtInRect(POINT pt) const noexcept { return ::PtInRect(this, pt); }
    BOOL EqualRect(LPCRECT other) const noexcept { return ::EqualRect(this, other); }

    void SetRect(int l, int t, int r, int b) noexcept { ::SetRect(this, l, t, r, b); }
    void SetRect(POINT topLeft, POINT bottomRight) noexcept {
        ::SetRect(this, topLeft.x, topLeft.y, bottomRight.x, bottomRight.y);
    }
    void SetRectEmpty() noexcept { ::SetRectEmpty(this); }
    void CopyRect(LPCRECT src) noexcept { ::CopyRect(this, src); }

    void InflateRect(int x, int y) noexcept { ::InflateRect(this, x, y); }
    void InflateRect(SIZE size) noexcept { InflateRect(size.cx, size.cy); }
    void InflateRect(LPCRECT by) noexcept { InflateRect(by->left, by->top, by->right, by->bottom); }
    void InflateRect(int l, int t, int r, int b) noexcept;
    void DeflateRect(int x, int y) noexcept { InflateRect(-x, -y); }
    void DeflateRect(SIZE size) noexcept { InflateRect(-size.cx, -size.cy); }
    void DeflateRect(LPCRECT by) noexcept { DeflateRect(by->left, by->top, by->right, by->bottom); }
    void DeflateRect(int l, int t, int r, int b) noexcept { InflateRect(-l, -t, -r, -b); }

    void OffsetRect(int x, int y) noexcept { ::OffsetRect(this, x, y); }
    void OffsetRect(POINT pt) noexcept { OffsetRect(pt.x, pt.y); }
    void OffsetRect(SIZE size) noexcept { OffsetRect(size.cx, size.cy); }
    void MoveToX(int x) noexcept;
    void MoveToY(int y) noexcept;
    void MoveToXY(int x, int y) noexcept {
        MoveToX(x);
        MoveToY(y);
    }
    void MoveToXY(POINT pt) noexcept { MoveToXY(pt.x, pt.y); }
    // Swaps the sides where needed so that left <= right and top <= bottom.
    void NormalizeRect() noexcept;

    BOOL IntersectRect(LPCRECT a, LPCRECT b) noexcept { return ::IntersectRect(this, a, b); }
    BOOL UnionRect(LPCRECT a, LPCRECT b) noexcept { return ::UnionRect(this, a, b); }

    CRect& operator=(const RECT& src) noexcept {
        RECT::operator=(src);
        return *this;
    }
    BOOL operator==(const RECT& other) const noexcept { return ::EqualRect(this, &other); }
    BOOL operator!=(const RECT& other) const noexcept { return !::EqualRect(this, &other); }
    void operator+=(POINT pt) noexcept { OffsetRect(pt); }
    void operator+=(SIZE size) noexcept { OffsetRect(size); }
    void operator+=(LPCRECT by) noexcept { InflateRect(by); }
    void operator-=(POINT pt) noexcept { OffsetRect(-pt.x, -pt.y); }
    void operator-=(SIZE size) noexcept { OffsetRect(-size.cx, -size.cy); }
    void operator-=(LPCRECT by) noexcept { DeflateRect(by); }
    void operator&=(const RECT& other) noexcept { ::IntersectRect(this, this, &other); }
    void operator|=(const RECT& other) noexcept { ::UnionRect(this, this, &other); }

    CRect operator+(POINT pt) const noexcept { return Moved(pt.x, pt.y); }
    CRect operator+(SIZE size) const noexcept { return Moved(size.cx, size.cy); }
    CRect operator-(POINT pt) const noexcept { return Moved(-pt.x, -pt.y); }
    CRect operator-(SIZE size) const noexcept { return Moved(-size.cx, -size.cy); }
    CRect operator&(const RECT& other) const noexcept;
    CRect operator|(const RECT& other) const noexcept;

private:
    CRect Moved(int dx, int dy) const noexcept {
        return CRect(left + dx, top + dy, right + dx, bottom + dy);
    }
};

// A RECT travels as its raw structure: left, top, right, bottom, 4 bytes each.
ORV_API CArchive& operator<<(CArchive& ar, const RECT& rect);
ORV_API CArchive& operator>>(CArchive& ar, RECT& rect);
