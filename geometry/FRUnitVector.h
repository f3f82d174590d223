// FRUnitVector: a direction, always of length 1, or the null vector when there is no direction
// (normalising a null or non-finite vector).
#pragma once

#include "port/Export.h"

#include "geometry/FRVector.h"

class FRTransf;

class ORV_API FRUnitVector {
public:
    // The null vector.
    constexpr FRUnitVector() = default;
    // Normalises (x, y, z).
    FRUnitVector(double x, double y, double z);
    // Normalises v; implicit so that any vector expression can stand where a direction is asked.
    FRUnitVector(const FRVector& v);

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    constexpr double z() const { return m_z; }

    constexpr bool is_null() const { return m_x == 0.0 && m_y == 0.0 && m_z == 0.0; }
    constexpr operator FRVector() const { return {m_x, m_y, m_z}; }
    constexpr FRUnitVector operator-() const { return {-m_x, -m_y, -m_z, Exact{}}; }

    // Turns the direction by the transform's linear part and normalises again: translation has no
    // effect, and a scale only by its sign.
    FRUnitVector& operator*=(const FRTransf& t);

    // The axes; components taken as given.
    static constexpr FRUnitVector Axis(int index) {
        return {index == 0 ? 1.0 : 0.0, index == 1 ? 1.0 : 0.0, index == 2 ? 1.0 : 0.0, Exact{}};
    }

private:
    struct Exact {};
    constexpr FRUnitVector(double x, double y, double z, Exact) : m_x(x), m_y(y), m_z(z) {}

    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

inline constexpr FRUnitVector FRXAxis = FRUnitVector::Axis(0);
inline constexpr FRUnitVector FRYAxis = FRUnitVector::Axis(1);
inline constexpr FRUnitVector FRZAxis = FRUnitVector::Axis(2);

// Equal when the directions differ by less than RESNOR (the length of the difference).
ORV_API bool operator==(const FRUnitVector& a, const FRUnitVector& b);

// v divided by its length; the null vector when v has no direction.
ORV_API FRUnitVector normalize(const FRVector& v);
