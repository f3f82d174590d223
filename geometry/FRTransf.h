// FRTransf: an affine transform of points and vectors.
//
// It holds an affine part (a 3 x 3 matrix), a translation, a uniform scale and three flags that say
// whether the affine part rotates, reflects or shears. Points are row vectors:
//     p * T = scale * (p * affine) + translation
// and a vector is mapped the same way without the translation. A * B applies A first, then B.
#pragma once

#include "port/Export.h"

#include "geometry/FRMatrix.h"
#include "geometry/FRPosition.h"
#include "geometry/FRUnitVector.h"
#include "geometry/FRVector.h"

class ORV_API FRTransf {
public:
    // The identity.
    FRTransf() = default;
    // Takes the parts and flags as given.
    FRTransf(const FRMatrix& affine, const FRVector& translation, double scale, int rotate,
             int reflect, int shear);

    const FRMatrix& affine() const { return m_affine; }
    const FRVector& translation() const { return m_translation; }
    double scaling() const { return m_scale; }
    int rotate() const { return m_rotate; }
    int reflect() const { return m_reflect; }
    int shear() const { return m_shear; }

    // Replaces the affine part and sets the flags from it (see ClassifyFlags).
    void set_affine_part(const FRMatrix& affine);
    void set_translation_part(const FRVector& translation);

    // The transform that undoes this one. A transform that cannot be undone (zero scale or a
    // singular affine part) gives a transform whose linear part is zero.
    FRTransf inverse() const;

    // The transform's uniform scale factor: the scale times the cube root of the absolute
    // determinant of the affine part, so a uniform scale kept in either place counts.
    double GetScalingMatrix() const;

    FRTransf& operator*=(const FRTransf& then);

private:
    // Sets the flags from the affine part: rotate when its orthogonal directions differ from the
    // identity, reflect when its determinant is negative, shear when its rows are not mutually
    // perpendicular or not of one length (all within RESNOR).
    void ClassifyFlags();

    FRMatrix m_affine;
    FRVector m_translation;
    double m_scale = 1.0;
    int m_rotate = 0;
    int m_reflect = 0;
    int m_shear = 0;
};

// First a, then b.
ORV_API FRTransf operator*(const FRTransf& a, const FRTransf& b);
ORV_API FRPosition operator*(const FRPosition& p, const FRTransf& t);
ORV_API FRVector operator*(const FRVector& v, const FRTransf& t);
// Direction under the transform, normalised again (see FRUnitVector::operator*=).
ORV_API FRUnitVector operator*(const FRUnitVector& v, const FRTransf& t);
ORV_API FRPosition& operator*=(FRPosition& p, const FRTransf& t);
ORV_API FRVector& operator*=(FRVector& v, const FRTransf& t);

// The same map: scale x affine within RESNOR element by element, translations within RESABS.
ORV_API bool operator==(const FRTransf& a, const FRTransf& b);

// Right-handed rotation by angle (radians) about axis through the origin: looking down the axis
// towards the origin, the turn is anticlockwise. A null axis gives the identity.
ORV_API FRTransf GetRotateTransf(double angle, const FRUnitVector& axis);
// Uniform scaling about the origin.
ORV_API FRTransf GetScaleTransf(double scale);
ORV_API FRTransf GetTranslateTransf(const FRVector& v);

// The rigid transform that moves origin to the origin and turns normal onto +Z by the smallest
// rotation; a half turn about X when normal is -Z. A null normal gives the translation alone.
ORV_API FRTransf get_transform_to_xy_plane(const FRUnitVector& normal, const FRPosition& origin);
