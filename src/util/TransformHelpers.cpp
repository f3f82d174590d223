#include "util/TransformHelpers.h"

#include <algorithm>
#include <cmath>

#include "geometry/FRConstants.h"
#include "util/GeometryHelpers.h"

namespace {

const FRUnitVector kMinusZ(0.0, 0.0, -1.0);

// acos of a cosine that is taken as exactly 1 or -1 within RESABS.
double SnappedAngle(double cosine) {
    if (std::fabs(cosine - 1.0) < RESABS) {
        cosine = 1.0;
    } else if (std::fabs(cosine + 1.0) < RESABS) {
        cosine = -1.0;
    }
    return std::acos(std::clamp(cosine, -1.0, 1.0));
}

} // namespace

FRTransf GetXYTransform(FRUnitVector normal, FRPosition origin, double angle) {
    FRTransf toXY = get_transform_to_xy_plane(-normal, FRPosition());
    toXY *= GetRotateTransf(angle, kMinusZ);
    return GetTranslateTransf(FRPosition() - origin) * toXY;
}

FRTransf GetXYTransform(FRUnitVector normal, FRPosition origin, FRUnitVector xDir) {
    // Where xDir lies after the plane is turned, measured anticlockwise from +X; a turn by that
    // angle about -Z brings it back onto +X.
    FRUnitVector turnedX = xDir * get_transform_to_xy_plane(-normal, FRPosition());
    FRUnitVector x = FRXAxis;
    const double angle = CalculateAngle(x, turnedX, FRZAxis);
    return GetXYTransform(normal, origin, angle);
}

FRTransf GetTransformToTurnXY(FRUnitVector z, FRPosition origin, FRUnitVector x) {
    const FRVector a(1.0, 0.0, 0.0);
    const FRVector c(0.0, 0.0, 1.0);
    double angle1 = PI;
    FRUnitVector axis1 = FRYAxis;
    if (!(FRUnitVector(c) == -z)) {
        angle1 = SnappedAngle(c % FRVector(z));
        axis1 = c * FRVector(z);
    }
    const FRTransf first = GetRotateTransf(-angle1, axis1);
    const FRVector turnedX = FRVector(x) * first;

    double angle2 = PI;
    FRUnitVector axis2 = FRZAxis;
    if (!(FRUnitVector(a) == -FRUnitVector(turnedX))) {
        angle2 = SnappedAngle(a % FRVector(FRUnitVector(turnedX)));
        axis2 = a * turnedX;
    }
    return GetTranslateTransf(FRPosition() - origin) * first * GetRotateTransf(angle2, axis2);
}

int IsPureRotationMatrix(FRMatrix m) {
    const FRVector& r0 = m.row(0);
    const FRVector& r1 = m.row(1);
    const FRVector& r2 = m.row(2);
    if (std::fabs(r0 % r1) > RESABS || std::fabs(r0 % r2) > RESABS || std::fabs(r1 % r2) > RESABS) {
        return 0;
    }
    if (std::fabs(r0 % r0 - 1.0) > RESABS || std::fabs(r1 % r1 - 1.0) > RESABS ||
        std::fabs(r2 % r2 - 1.0) > RESABS) {
        return 0;
    }
    return std::fabs(m.determinant() - 1.0) < RESABS ? 1 : 0;
}

FRUnitVector GetRotationAxisForPIRotation(FRMatrix m) {
    if (!IsPureRotationMatrix(m)) {
        return {};
    }
    const auto small = [](double v) { return std::fabs(v) < RESABS; };
    const double d0 = m(0, 1) - m(1, 0);
    const double d1 = m(0, 2) - m(2, 0);
    const double d2 = m(1, 2) - m(2, 1);
    if (!(small(d0) && small(d1) && small(d2))) {
        double s = std::sqrt(d2 * d2 + d1 * d1 + d0 * d0);
        if (s < RESABS) {
            s = 1.0;
        }
        return FRUnitVector(d2 / s, d1 / s, d0 / s);
    }
    if (small(m(0, 1) + m(1, 0)) && small(m(0, 2) + m(2, 0)) && small(m(1, 2) + m(2, 1)) &&
        small(m.trace() - 3.0)) {
        return FRXAxis;
    }
    // A symmetric rotation other than the identity is a half turn: m = 2 a a^T - I.
    const double xx = (m(0, 0) + 1.0) / 2.0;
    const double yy = (m(1, 1) + 1.0) / 2.0;
    const double zz = (m(2, 2) + 1.0) / 2.0;
    const double xy = (m(0, 1) + m(1, 0)) / 4.0;
    const double xz = (m(0, 2) + m(2, 0)) / 4.0;
    const double yz = (m(1, 2) + m(2, 1)) / 4.0;
    if (xx > yy && xx > zz) {
        if (xx < RESABS) {
            return FRUnitVector(0.0, PI / 4.0, PI / 4.0);
        }
        const double x = std::sqrt(xx);
        return FRUnitVector(x, xy / x, xz / x);
    }
    if (yy > zz) {
        if (yy < RESABS) {
            return FRUnitVector(PI / 4.0, 0.0, PI / 4.0);
        }
        const double y = std::sqrt(yy);
        return FRUnitVector(xy / y, y, yz / y);
    }
    if (zz < RESABS) {
        return FRUnitVector(PI / 4.0, PI / 4.0, 0.0);
    }
    const double z = std::sqrt(zz);
    return FRUnitVector(xz / z, yz / z, z);
}

FRTransf ExtractTransformComponents(FRTransf& t, FRUnitVector& axis, double& angle,
                                    FRVector& translation) {
    const FRMatrix& a = t.affine();
    const FRMatrix identity;
    angle = std::acos(std::clamp((a.trace() - 1.0) / 2.0, -1.0, 1.0));

    // The Cayley transform (A - I)(A + I)^-1 of a rotation is antisymmetric and holds
    // tan(angle / 2) times the axis; at a half turn A + I is singular and k comes out null.
    const FRMatrix skew = (a - identity) * (a + identity).inverse();
    const FRVector k(skew(1, 2), -skew(0, 2), skew(0, 1));

    if (std::fabs(angle) < RESNOR) {
        axis = k;
    } else if (std::fabs(k.length() * 1000.0) < RESABS) {
        const FRUnitVector xImage = FRVector(FRXAxis) * a;
        const FRUnitVector yImage = FRVector(FRYAxis) * a;
        const FRUnitVector zImage = FRVector(FRZAxis) * a;
        const bool xFlipped = xImage == -FRXAxis;
        const bool yFlipped = yImage == -FRYAxis;
        const bool zFlipped = zImage == -FRZAxis;
        if (xFlipped && yFlipped) {
            axis = FRZAxis;
        } else if (xFlipped && zFlipped) {
            axis = FRYAxis;
        } else if (yFlipped && zFlipped) {
            axis = FRXAxis;
        } else if (std::fabs(angle - PI) < RESNOR) {
            axis = GetRotationAxisForPIRotation(a);
        } else {
            axis = k;
        }
    } else {
        axis = k;
    }
    translation = t.translation();
    return t;
}
