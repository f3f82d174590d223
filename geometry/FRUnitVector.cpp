#include "geometry/FRUnitVector.h"

#include <algorithm>
#include <cmath>

#include "geometry/FRConstants.h"
#include "geometry/FRTransf.h"

FRUnitVector::FRUnitVector(double x, double y, double z) {
    // Scaled by the largest component first, so that tiny and huge vectors neither underflow nor
    // overflow on the way.
    const double largest = std::max({std::fabs(x), std::fabs(y), std::fabs(z)});
    if (!(largest > 0.0) || !std::isfinite(largest)) {
        return;
    }
    x /= largest;
    y /= largest;
    z /= largest;
    const double length = std::sqrt(x * x + y * y + z * z);
    m_x = x / length;
    m_y = y / length;
    m_z = z / length;
}

FRUnitVector::FRUnitVector(const FRVector& v) : FRUnitVector(v.x(), v.y(), v.z()) {}

FRUnitVector& FRUnitVector::operator*=(const FRTransf& t) {
    return *this = FRUnitVector(FRVector(*this) * t);
}

bool operator==(const FRUnitVector& a, const FRUnitVector& b) {
    return (FRVector(a) - FRVector(b)).length() < RESNOR;
}

FRUnitVector normalize(const FRVector& v) {
    return FRUnitVector(v);
}
