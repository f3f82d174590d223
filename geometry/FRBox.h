// FRBox: an axis-aligned box, one FRInterval per axis.
#pragma once

#include "port/Export.h"

#include <vector>

#include "geometry/FRInterval.h"
#include "geometry/FRPosition.h"

class ORV_API FRBox {
public:
    // The box of the origin alone.
    constexpr FRBox() = default;
    constexpr FRBox(const FRInterval& x, const FRInterval& y, const FRInterval& z)
        : m_x(x), m_y(y), m_z(z) {}
    // From its low and high corners.
    constexpr FRBox(const FRPosition& low, const FRPosition& high)
        : m_x(low.x(), high.x()), m_y(low.y(), high.y()), m_z(low.z(), high.z()) {}

    constexpr const FRInterval& x_range() const { return m_x; }
    constexpr const FRInterval& y_range() const { return m_y; }
    constexpr const FRInterval& z_range() const { return m_z; }
    constexpr FRPosition low() const { return {m_x.start_pt(), m_y.start_pt(), m_z.start_pt()}; }
    constexpr FRPosition high() const { return {m_x.end_pt(), m_y.end_pt(), m_z.end_pt()}; }

    // Within the box, widened by RESABS.
    bool contains(const FRPosition& p) const;
    // Widens the box to hold p.
    void extend(const FRPosition& p);

private:
    FRInterval m_x;
    FRInterval m_y;
    FRInterval m_z;
};

// The smallest box that holds the points; the box of the origin alone when there are none.
ORV_API FRBox CreateBoxFromPoints(const std::vector<FRPosition>& points);
