// CPoint: MFC's point, a POINT with arithmetic.
#pragma once

#include "port/Export.h"

#include "mfc/CSize.h"
#include "win/rect.h"

class CArchive;

class ORV_API CPoint : public POINT {
public:
    CPoint() noexcept : POINT{0, 0} {}
    CPoint(int initX, int initY) noexcept : POINT{initX, initY} {}
    CPoint(POINT pt) noexcept : POINT(pt) {}
    explicit CPoint(SIZE size) noexcept : POINT{size.cx, size.cy} {}

    void Offset(int dx, int dy) noexcept {
        x += dx;
        y += dy;
    }
    void Offset(POINT pt) noexcept { Offset(pt.x, pt.y); }
    void Offset(SIZE size) noexcept { Offset(size.cx, size.cy); }
    void SetPoint(int newX, int newY) noexcept {
        x = newX;
        y = newY;
    }

    BOOL operator==(POINT pt) const noexcept { return x == pt.x && y == pt.y; }
    BOOL operator!=(POINT pt) const noexcept { return !(*this == pt); }
    void operator+=(SIZE size) noexcept { Offset(size); }
    void operator-=(SIZE size) noexcept { Offset(-size.cx, -size.cy); }
    void operator+=(POINT pt) noexcept { Offset(pt); }
    void operator-=(POINT pt) noexcept { Offset(-pt.x, -pt.y); }

    CPoint operator+(SIZE size) const noexcept { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const noexcept { return CPoint(x - size.cx, y - size.cy); }
    CPoint operator+(POINT pt) const noexcept { return CPoint(x + pt.x, y + pt.y); }
    CSize operator-(POINT pt) const noexcept { return CSize(x - pt.x, y - pt.y); }
    CPoint operator-() const noexcept { return CPoint(-x, -y); }
};

// A POINT travels as its raw structure: x then y, 4 bytes each.
ORV_API CArchive& operator<<(CArchive& ar, POINT point);
ORV_API CArchive& operator>>(CArchive& ar, POINT& point);
