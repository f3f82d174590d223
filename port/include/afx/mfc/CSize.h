// CSize: MFC's extent, a SIZE with arithmetic.
#pragma once

#include "port/Export.h"

#include "win/rect.h"

class CArchive;

class ORV_API CSize : public SIZE {
public:
    CSize() noexcept : SIZE{0, 0} {}
    CSize(int x, int y) noexcept : SIZE{x, y} {}
    CSize(SIZE size) noexcept : SIZE(size) {}

    BOOL operator==(SIZE other) const noexcept { return cx == other.cx && cy == other.cy; }
    BOOL operator!=(SIZE other) const noexcept { return !(*this == other); }
    void operator+=(SIZE other) noexcept {
        cx += other.cx;
        cy += other.cy;
    }
    void operator-=(SIZE other) noexcept {
        cx -= other.cx;
        cy -= other.cy;
    }
    void SetSize(int x, int y) noexcept {
        cx = x;
        cy = y;
    }
    CSize operator+(SIZE other) const noexcept { return CSize(cx + other.cx, cy + other.cy); }
    CSize operator-(SIZE other) const noexcept { return CSize(cx - other.cx, cy - other.cy); }
    CSize operator-() const noexcept { return CSize(-cx, -cy); }
};

// A SIZE travels as its raw structure: cx then cy, 4 bytes each.
ORV_API CArchive& operator<<(CArchive& ar, SIZE size);
ORV_API CArchive& operator>>(CArchive& ar, SIZE& size);
