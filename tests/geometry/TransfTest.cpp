#include <gtest/gtest.h>

#include <cmath>

#include "geometry/FRConstants.h"
#include "geometry/FRTransf.h"
#include "support/GeometryExpect.h"

namespace {

FRPosition Map(double x, double y, double z, const FRTransf& t) {
    return FRPosition(x, y, z) * t;
}

} // namespace

TEST(FRTransfTest, QuarterTurnsAreRightHanded) {
    const FRTransf aboutX = GetRotateTransf(PI / 2, FRXAxis);
    ExpectNear(Map(0, 1, 0, aboutX), FRPosition(0, 0, 1));
    ExpectNear(Map(0, 0, 1, aboutX), FRPosition(0, -1, 0));
    const FRTransf aboutY = GetRotateTransf(PI / 2, FRYAxis);
    ExpectNear(Map(0, 0, 1, aboutY), FRPosition(1, 0, 0));
    ExpectNear(Map(1, 0, 0, aboutY), FRPosition(0, 0, -1));
    const FRTransf aboutZ = GetRotateTransf(PI / 2, FRZAxis);
    ExpectNear(Map(1, 0, 0, aboutZ), FRPosition(0, 1, 0));
    ExpectNear(Map(1, 2, 3, aboutZ), FRPosition(-2, 1, 3));
    // Rows of the affine part are the images of the axes.
    ExpectNear(aboutZ.affine().row(0), FRVector(0, 1, 0));
    ExpectNear(aboutZ.affine().row(1), FRVector(-1, 0, 0));
    // A third of a turn about (1, 1, 1) cycles the axes.
    const FRTransf third = GetRotateTransf(PI_2 / 3, FRUnitVector(1, 1, 1));
    ExpectNear(Map(1, 0, 0, third), FRPosition(0, 1, 0));
    ExpectNear(Map(0, 0, 1, third), FRPosition(1, 0, 0));
    // A null axis gives the identity.
    ExpectNear(Map(1, 2, 3, GetRotateTransf(1.0, FRUnitVector())), FRPosition(1, 2, 3));
}

TEST(FRTransfTest, CompositionAppliesLeftFirst) {
    const FRTransf shift = GetTranslateTransf(FRVector(1, 0, 0));
    const FRTransf turn = GetRotateTransf(PI / 2, FRZAxis);
    ExpectNear(Map(0, 0, 0, shift * turn), FRPosition(0, 1, 0));
    ExpectNear(Map(0, 0, 0, turn * shift), FRPosition(1, 0, 0));
    FRTransf accumulated = shift;
    accumulated *= turn;
    ExpectNear(Map(0, 0, 0, accumulated), FRPosition(0, 1, 0));
    // Scale, then translate: (1, 1, 1) -> (2, 2, 2) -> (3, 4, 5).
    ExpectNear(Map(1, 1, 1, GetScaleTransf(2) * GetTranslateTransf(FRVector(1, 2, 3))),
               FRPosition(3, 4, 5));
    // Translate, then scale: (1, 1, 1) -> (2, 3, 4) -> (4, 6, 8).
    ExpectNear(Map(1, 1, 1, GetTranslateTransf(FRVector(1, 2, 3)) * GetScaleTransf(2)),
               FRPosition(4, 6, 8));
}

TEST(FRTransfTest, VectorsIgnoreTranslationAndUnitVectorsStayUnit) {
    const FRTransf t = GetScaleTransf(3) * GetRotateTransf(PI / 2, FRXAxis) *
                       GetTranslateTransf(FRVector(5, 5, 5));
    ExpectNear(FRVector(0, 0, 1) * t, FRVector(0, -3, 0));
    FRUnitVector z = FRZAxis;
    z *= t;
    ExpectNear(z, FRVector(0, -1, 0));
    // A negative scale turns a direction round.
    ExpectNear(FRXAxis * GetScaleTransf(-2), FRVector(-1, 0, 0));
}

TEST(FRTransfTest, InverseOfScaledRotatedTranslated) {
    // p -> 2p -> quarter turn about Z -> + (1, 0, 0): (1, 0, 0) -> (1, 2, 0).
    const FRTransf t = GetScaleTransf(2) * GetRotateTransf(PI / 2, FRZAxis) *
                       GetTranslateTransf(FRVector(1, 0, 0));
    ExpectNear(Map(1, 0, 0, t), FRPosition(1, 2, 0));
    const FRTransf inv = t.inverse();
    ExpectNear(Map(1, 2, 0, inv), FRPosition(1, 0, 0));
    EXPECT_DOUBLE_EQ(inv.scaling(), 0.5);
    ExpectNear(inv.affine(), FRMatrix(FRVector(0, -1, 0), FRVector(1, 0, 0), FRVector(0, 0, 1)));
    ExpectNear(inv.translation(), FRVector(0, 0.5, 0));
}

TEST(FRTransfTest, EqualityComparesTheMap) {
    EXPECT_TRUE(GetScaleTransf(1.0) == FRTransf());
    const FRMatrix twice(FRVector(2, 0, 0), FRVector(0, 2, 0), FRVector(0, 0, 2));
    EXPECT_TRUE(FRTransf(twice, FRVector(), 1.0, 0, 0, 0) == GetScaleTransf(2.0));
    EXPECT_FALSE(GetTranslateTransf(FRVector(2e-6, 0, 0)) == FRTransf());
    EXPECT_TRUE(GetTranslateTransf(FRVector(0.5e-6, 0, 0)) == FRTransf());
    EXPECT_FALSE(GetRotateTransf(1e-9, FRZAxis) == FRTransf());
}

TEST(FRTransfTest, ScalingFactorCountsScaleAndAffineSize) {
    EXPECT_DOUBLE_EQ(GetScaleTransf(2.5).GetScalingMatrix(), 2.5);
    EXPECT_NEAR(GetRotateTransf(0.7, FRUnitVector(1, 2, 3)).GetScalingMatrix(), 1.0, 1e-14);
    const FRMatrix thrice(FRVector(3, 0, 0), FRVector(0, 3, 0), FRVector(0, 0, 3));
    EXPECT_NEAR(FRTransf(thrice, FRVector(), 2.0, 0, 0, 0).GetScalingMatrix(), 6.0, 1e-14);
}

TEST(FRTransfTest, FlagsFollowTheAffinePart) {
    const FRTransf turn = GetRotateTransf(0.3, FRZAxis);
    EXPECT_EQ(turn.rotate(), 1);
    EXPECT_EQ(turn.reflect(), 0);
    EXPECT_EQ(turn.shear(), 0);
    EXPECT_EQ(GetScaleTransf(4).rotate(), 0);
    FRTransf mirror;
    mirror.set_affine_part(FRMatrix(FRVector(1, 0, 0), FRVector(0, 1, 0), FRVector(0, 0, -1)));
    EXPECT_EQ(mirror.reflect(), 1);
    EXPECT_EQ(mirror.shear(), 0);
    FRTransf sheared;
    sheared.set_affine_part(FRMatrix(FRVector(1, 1, 0), FRVector(0, 1, 0), FRVector(0, 0, 1)));
    EXPECT_EQ(sheared.shear(), 1);
    // The constructor keeps the flags it is given.
    const FRTransf given(FRMatrix(), FRVector(), 1.0, 1, 0, 0);
    EXPECT_EQ(given.rotate(), 1);
}

TEST(GetTransformToXYPlaneTest, MovesOriginAndTurnsNormalOntoZ) {
    const FRTransf flat = get_transform_to_xy_plane(FRZAxis, FRPosition(1, 2, 3));
    ExpectNear(Map(1, 2, 3, flat), FRPosition(0, 0, 0));
    ExpectNear(Map(2, 2, 3, flat), FRPosition(1, 0, 0));
    // -Z: a half turn about X.
    const FRTransf flipped = get_transform_to_xy_plane(-FRZAxis, FRPosition());
    ExpectNear(Map(1, 2, 3, flipped), FRPosition(1, -2, -3));

    // The plane through (1, 1, 1) with normal (0, -1, 1) / sqrt 2 is turned by 45 degrees about -X.
    const FRTransf tilted = get_transform_to_xy_plane(FRUnitVector(0, -1, 1), FRPosition(1, 1, 1));
    ExpectNear(Map(1, 1, 1, tilted), FRPosition(0, 0, 0));
    ExpectNear(Map(2, 1, 1, tilted), FRPosition(1, 0, 0));
    ExpectNear(Map(1, 2, 2, tilted), FRPosition(0, std::sqrt(2.0), 0));
    ExpectNear(Map(1, 1 - std::sqrt(2.0), 1 + std::sqrt(2.0), tilted), FRPosition(0, 0, 2));
    EXPECT_EQ(tilted.reflect(), 0);
}
