#include "geometry/FRTransf.h"

#include <algorithm>
#include <cmath>

#include "geometry/FRConstants.h"

FRTransf::FRTransf(const FRMatrix& affine, const FRVector& translation, double scale, int rotate,
                   int reflect, int shear)
    : m_affine(affine), m_translation(translation), m_scale(scale), m_rotate(rotate),
      m_reflect(reflect), m_shear(shear) {}

void FRTransf::set_affine_part(const FRMatrix& affine) {
    m_affine = affine;
    ClassifyFlags();
}

void FRTransf::set_translation_part(const FRVector& translation) {
    m_translation = translation;
}

void FRTransf::ClassifyFlags() {
    const double det = m_affine.determinant();
    m_reflect = det < 0.0 ? 1 : 0;
    const double size = std::cbrt(std::fabs(det));
    m_shear = 0;
    for (int i = 0; i < 3 && size > 0.0; ++i) {
        const FRVector& a = m_affine.row(i);
        const FRVector& b = m_affine.row((i + 1) % 3);
        if (std::fabs(a % b) >= RESNOR * size * size ||
            std::fabs(a.length() - size) >= RESNOR * size) {
            m_shear = 1;
        }
    }
    m_rotate = (size > 0.0 && m_affine * (1.0 / size) == FRMatrix()) ? 0 : 1;
}

FRTransf FRTransf::inverse() const {
    FRTransf result;
    const FRMatrix inv = m_affine.inverse();
    if (m_scale == 0.0) {
        result.set_affine_part(FRMatrix::Zero());
        result.m_scale = 0.0;
        return result;
    }
    result.set_affine_part(inv);
    result.m_scale = 1.0 / m_scale;
    result.m_translation = -(m_translation * inv) / m_scale;
    return result;
}

double FRTransf::GetScalingMatrix() const {
    return m_scale * std::cbrt(std::fabs(m_affine.determinant()));
}

FRTransf& FRTransf::operator*=(const FRTransf& then) {
    return *this = *this * then;
}

FRTransf operator*(const FRTransf& a, const FRTransf& b) {
    // p * a * b = sb * ((sa * p * Ma + ta) * Mb) + tb
    FRTransf result(FRMatrix(), b.scaling() * (a.translation() * b.affine()) + b.translation(),
                    a.scaling() * b.scaling(), 0, 0, 0);
    result.set_affine_part(a.affine() * b.affine());
    return result;
}

FRVector operator*(const FRVector& v, const FRTransf& t) {
    return t.scaling() * (v * t.affine());
}

FRPosition operator*(const FRPosition& p, const FRTransf& t) {
    return FRPosition(p.to_vector() * t + t.translation());
}

FRUnitVector operator*(const FRUnitVector& v, const FRTransf& t) {
    FRUnitVector result = v;
    return result *= t;
}

FRPosition& operator*=(FRPosition& p, const FRTransf& t) {
    return p = p * t;
}

FRVector& operator*=(FRVector& v, const FRTransf& t) {
    return v = v * t;
}

bool operator==(const FRTransf& a, const FRTransf& b) {
    return a.affine() * a.scaling() == b.affine() * b.scaling() &&
           a.translation() == b.translation();
}

FRTransf GetRotateTransf(double angle, const FRUnitVector& axis) {
    FRTransf result;
    if (axis.is_null()) {
        return result;
    }
    // Rodrigues' formula, transposed for row vectors: each row is the image of an axis.
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    const double x = axis.x();
    const double y = axis.y();
    const double z = axis.z();
    result.set_affine_part(FRMatrix(FRVector(c + t * x * x, t * x * y + s * z, t * x * z - s * y),
                                    FRVector(t * x * y - s * z, c + t * y * y, t * y * z + s * x),
                                    FRVector(t * x * z + s * y, t * y * z - s * x, c + t * z * z)));
    return result;
}

FRTransf GetScaleTransf(double scale) {
    return FRTransf(FRMatrix(), FRVector(), scale, 0, 0, 0);
}

FRTransf GetTranslateTransf(const FRVector& v) {
    return FRTransf(FRMatrix(), v, 1.0, 0, 0, 0);
}

FRTransf get_transform_to_xy_plane(const FRUnitVector& normal, const FRPosition& origin) {
    const FRTransf shift = GetTranslateTransf(FRPosition() - origin);
    if (normal.is_null()) {
        return shift;
    }
    switch (parallel(normal, FRZAxis)) {
    case 1:
        return shift;
    case -1: {
        // The half turn about X, exactly.
        FRTransf halfTurn;
        halfTurn.set_affine_part(
            FRMatrix(FRVector(1.0, 0.0, 0.0), FRVector(0.0, -1.0, 0.0), FRVector(0.0, 0.0, -1.0)));
        return shift * halfTurn;
    }
    default: {
        const double cosine = std::clamp(FRVector(normal) % FRVector(FRZAxis), -1.0, 1.0);
        return shift * GetRotateTransf(std::acos(cosine), normal * FRZAxis);
    }
    }
}
