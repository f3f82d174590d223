// FRVector: a free vector of three doubles (a direction with a length).
#pragma once

#include "port/Export.h"

class ORV_API FRVector {
public:
    constexpr FRVector() = default;
    constexpr FRVector(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    constexpr double z() const { return m_z; }
    void set_x(double v) { m_x = v; }
    void set_y(double v) { m_y = v; }
    void set_z(double v) { m_z = v; }

    // Euclidean length.
    double length() const;

    constexpr FRVector operator-() const { return {-m_x, -m_y, -m_z}; }
    FRVector& operator+=(const FRVector& o);
    FRVector& operator-=(const FRVector& o);
    FRVector& operator*=(double s);
    FRVector& operator/=(double s);

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

constexpr FRVector operator+(const FRVector& a, const FRVector& b) {
    return {a.x() + b.x(), a.y() + b.y(), a.z() + b.z()};
}
constexpr FRVector operator-(const FRVector& a, const FRVector& b) {
    return {a.x() - b.x(), a.y() - b.y(), a.z() - b.z()};
}
constexpr FRVector operator*(const FRVector& v, double s) {
    return {v.x() * s, v.y() * s, v.z() * s};
}
constexpr FRVector operator*(double s, const FRVector& v) {
    return v * s;
}
constexpr FRVector operator/(const FRVector& v, double s) {
    return {v.x() / s, v.y() / s, v.z() / s};
}

// Cross product.
constexpr FRVector operator*(const FRVector& a, const FRVector& b) {
    return {a.y() * b.z() - a.z() * b.y(), a.z() * b.x() - a.x() * b.z(),
            a.x() * b.y() - a.y() * b.x()};
}

// Dot product.
constexpr double operator%(const FRVector& a, const FRVector& b) {
    return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

// Equal when the difference is shorter than RESABS.
ORV_API bool operator==(const FRVector& a, const FRVector& b);

// 1 when a and b point the same way, -1 when opposite, 0 otherwise or when either is null. The test
// is on the sine of the angle between them, against RESNOR.
ORV_API int parallel(const FRVector& a, const FRVector& b);
