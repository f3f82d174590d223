#include "geometry/FRPosition.h"

#include "geometry/FRConstants.h"
#include "geometry/FRUnitVector.h"

FRPosition& FRPosition::operator+=(const FRVector& v) {
    return *this = *this + v;
}
FRPosition& FRPosition::operator-=(const FRVector& v) {
    return *this = *this - v;
}

bool operator==(const FRPosition& a, const FRPosition& b) {
    return distance(a, b) < RESABS;
}

double distance(const FRPosition& a, const FRPosition& b) {
    return (a - b).length();
}

FRPosition project_on_plane(const FRPosition& p, const FRPosition& planePoint,
                            const FRUnitVector& normal) {
    const FRVector n = normal;
    return p - n * ((p - planePoint) % n);
}
