// FRPosition: a point in space, three doubles.
#pragma once

#include "port/Export.h"

#include "geometry/FRVector.h"

class FRUnitVector;

class ORV_API FRPosition {
public:
    constexpr FRPosition() = default;
    constexpr FRPosition(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}
    // The point at the tip of v from the origin.
    constexpr explicit FRPosition(const FRVector& v) : m_x(v.x()), m_y(v.y()), m_z(v.z()) {}

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    constexpr double z() const { return m_z; }
    void set_x(double v) { m_x = v; }
    void set_y(double v) { m_y = v; }
    void set_z(double v) { m_z = v; }

    // The vector from the origin to this point.
    constexpr FRVector to_vector() const { return {m_x, m_y, m_z}; }

    FRPosition& operator+=(const FRVector& v);
    FRPosition& operator-=(const FRVector& v);

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

constexpr FRVector operator-(const FRPosition& a, const FRPosition& b) {
    return {a.x() - b.x(), a.y() - b.y(), a.z() - b.z()};
}
constexpr FRPosition operator+(const FRPosition& p, const FRVector& v) {
    return {p.x() + v.x(), p.y() + v.y(), p.z() + v.z()};
}
constexpr FRPosition operator-(const FRPosition& p, const FRVector& v) {
    return {p.x() - v.x(), p.y() - v.y(), p.z() - v.z()};
}
// Scaling about the origin; division is how scaled point lists are read back.
constexpr FRPosition operator*(const FRPosition& p, double s) {
    return {p.x() * s, p.y() * s, p.z() * s};
}
constexpr FRPosition operator/(const FRPosition& p, double s) {
    return {p.x() / s, p.y() / s, p.z() / s};
}

// Equal when the points are closer than RESABS.
ORV_API bool operator==(const FRPosition& a, const FRPosition& b);

ORV_API double distance(const FRPosition& a, const FRPosition& b);

// The foot of p on the plane through planePoint with the given normal; p itself when the normal is
// null.
ORV_API FRPosition project_on_plane(const FRPosition& p, const FRPosition& planePoint,
                                    const FRUnitVector& normal);
