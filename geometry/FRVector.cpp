#include "geometry/FRVector.h"

#include <cmath>

#include "geometry/FRConstants.h"

double FRVector::length() const {
    return std::sqrt(*this % *this);
}

FRVector& FRVector::operator+=(const FRVector& o) {
    return *this = *this + o;
}
FRVector& FRVector::operator-=(const FRVector& o) {
    return *this = *this - o;
}
FRVector& FRVector::operator*=(double s) {
    return *this = *this * s;
}
FRVector& FRVector::operator/=(double s) {
    return *this = *this / s;
}

bool operator==(const FRVector& a, const FRVector& b) {
    return (a - b).length() < RESABS;
}

int parallel(const FRVector& a, const FRVector& b) {
    const double la = a.length();
    const double lb = b.length();
    if (la == 0.0 || lb == 0.0) {
        return 0;
    }
    const double sine = (a * b).length() / (la * lb);
    if (sine >= RESNOR) {
        return 0;
    }
    return (a % b) > 0.0 ? 1 : -1;
}
