// Helpers over transforms: transforms that bring a plane to XY, and tests and decompositions of
// rotations.
#pragma once

#include "port/Export.h"

#include "geometry/FRMatrix.h"
#include "geometry/FRPosition.h"
#include "geometry/FRTransf.h"
#include "geometry/FRUnitVector.h"
#include "geometry/FRVector.h"

// The translation by -origin, then get_transform_to_xy_plane(-normal) (which turns normal onto -Z),
// then a rotation by angle about -Z.
ORV_API FRTransf GetXYTransform(FRUnitVector normal, FRPosition origin, double angle);

// As above, with the angle chosen so that xDir (taken in the plane) ends on +X.
ORV_API FRTransf GetXYTransform(FRUnitVector normal, FRPosition origin, FRUnitVector xDir);

// The translation by -origin, then the rotation that turns z onto +Z, then the rotation that turns
// +X onto the image x' of x under the first rotation.
ORV_API FRTransf GetTransformToTurnXY(FRUnitVector z, FRPosition origin, FRUnitVector x);

// 1 when the rows of m are orthonormal and det m is 1, all within RESABS; a reflection fails only
// by its determinant.
ORV_API int IsPureRotationMatrix(FRMatrix m);

// The axis of a rotation matrix, meant for half turns, where the skew part vanishes; the null
// vector for a matrix that is not a pure rotation, +X for the identity. For other rotations the
// components are the differences (m12 - m21, m02 - m20, m01 - m10) as they stand, normalised.
ORV_API FRUnitVector GetRotationAxisForPIRotation(FRMatrix m);

// Splits the affine part of t into a rotation angle in [0, PI] and its axis, and hands back the
// translation of t. Returns t.
ORV_API FRTransf ExtractTransformComponents(FRTransf& t, FRUnitVector& axis, double& angle,
                                            FRVector& translation);
