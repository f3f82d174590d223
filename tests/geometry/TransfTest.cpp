#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "geometry/FRConstants.h"
#include "geometry/FRTransf.h"
#include "support/GeometryExpect.h"

namespace {

FRMatrix Rows(FRVector a, FRVector b, FRVector c) {
    return {a, b, c};
}

} // namespace

TEST(FRTransfTest, QuarterTurnsAreRightHanded) {
    ExpectMaps(GetRotateTransf(PI / 2, FRXAxis), {{{0, 1, 0}, {0, 0, 1}}, {{0, 0, 1}, {0, -1, 0}}});
    ExpectMaps(GetRotateTransf(PI / 2, FRYAxis), {{{0, 0, 1}, {1, 0, 0}}, {{1, 0, 0}, {0, 0, -1}}});
    const FRTransf aboutZ = GetRotateTransf(PI / 2, FRZAxis);
    ExpectMaps(aboutZ, {{{1, 0, 0}, {0, 1, 0}}, {{1, 2, 3}, {-2, 1, 3}}});
    // Rows of the affine part are the images of the axes.
    ExpectNear(aboutZ.affine(), Rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}));
    // A third of a turn about (1, 1, 1) cycles the axes.
    ExpectMaps(GetRotateTransf(PI_2 / 3, FRUnitVector(1, 1, 1)),
               {{{1, 0, 0}, {0, 1, 0}}, {{0, 0, 1}, {1, 0, 0}}});
    // A null axis gives the identity.
    ExpectMaps(GetRotateTransf(1.0, FRUnitVector()), {{{1, 2, 3}, {1, 2, 3}}});
}

TEST(FRTransfTest, CompositionAppliesLeftFirst) {
    const FRTransf shift = GetTranslateTransf(FRVector(1, 0, 0));
    const FRTransf turn = GetRotateTransf(PI / 2, FRZAxis);
    ExpectMaps(shift * turn, {{{0, 0, 0}, {0, 1, 0}}});
    ExpectMaps(turn * shift, {{{0, 0, 0}, {1, 0, 0}}});
    FRTransf accumulated = shift;
    accumulated *= turn;
    ExpectMaps(accumulated, {{{0, 0, 0}, {0, 1, 0}}});
    // Scale, then translate: (1, 1, 1) -> (2, 2, 2) -> (3, 4, 5); the other way, (2, 3, 4) -> (4,
    // 6, 8).
    ExpectMaps(GetScaleTransf(2) * GetTranslateTransf(FRVector(1, 2, 3)), {{{1, 1, 1}, {3, 4, 5}}});
    ExpectMaps(GetTranslateTransf(FRVector(1, 2, 3)) * GetScaleTransf(2), {{{1, 1, 1}, {4, 6, 8}}});
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
    ExpectMaps(t, {{{1, 0, 0}, {1, 2, 0}}});
    const FRTransf inv = t.inverse();
    ExpectMaps(inv, {{{1, 2, 0}, {1, 0, 0}}});
    EXPECT_DOUBLE_EQ(inv.scaling(), 0.5);
    ExpectNear(inv.affine(), Rows({0, -1, 0}, {1, 0, 0}, {0, 0, 1}));
    ExpectNear(inv.translation(), FRVector(0, 0.5, 0));
}

TEST(FRTransfTest, EqualityScalingAndFlagsFollowTheMap) {
    EXPECT_TRUE(GetScaleTransf(1.0) == FRTransf());
    const FRMatrix twice = Rows({2, 0, 0}, {0, 2, 0}, {0, 0, 2});
    EXPECT_TRUE(FRTransf(twice, FRVector(), 1.0, 0, 0, 0) == GetScaleTransf(2.0));
    EXPECT_FALSE(GetTranslateTransf(FRVector(2e-6, 0, 0)) == FRTransf());
    EXPECT_TRUE(GetTranslateTransf(FRVector(0.5e-6, 0, 0)) == FRTransf());
    EXPECT_FALSE(GetRotateTransf(1e-9, FRZAxis) == FRTransf());

    EXPECT_DOUBLE_EQ(GetScaleTransf(2.5).GetScalingMatrix(), 2.5);
    EXPECT_NEAR(GetRotateTransf(0.7, FRUnitVector(1, 2, 3)).GetScalingMatrix(), 1.0, 1e-14);
    const FRMatrix thrice = Rows({3, 0, 0}, {0, 3, 0}, {0, 0, 3});
    EXPECT_NEAR(FRTransf(thrice, FRVector(), 2.0, 0, 0, 0).GetScalingMatrix(), 6.0, 1e-14);

    const FRTransf turn = GetRotateTransf(0.3, FRZAxis);
    EXPECT_EQ(std::tuple(turn.rotate(), turn.reflect(), turn.shear()), std::tuple(1, 0, 0));
    EXPECT_EQ(GetScaleTransf(4).rotate(), 0);
    FRTransf mirror;
    mirror.set_affine_part(Rows({1, 0, 0}, {0, 1, 0}, {0, 0, -1}));
    EXPECT_EQ(std::tuple(mirror.reflect(), mirror.shear()), std::tuple(1, 0));
    FRTransf sheared;
    sheared.set_affine_part(Rows({1, 1, 0}, {0, 1, 0}, {0, 0, 1}));
    EXPECT_EQ(sheared.shear(), 1);
}

TEST(GetTransformToXYPlaneTest, MovesOriginAndTurnsNormalOntoZ) {
    ExpectMaps(get_transform_to_xy_plane(FRZAxis, FRPosition(1, 2, 3)),
               {{{1, 2, 3}, {0, 0, 0}}, {{2, 2, 3}, {1, 0, 0}}});
    // -Z: a half turn about X.
    ExpectMaps(get_transform_to_xy_plane(-FRZAxis, FRPosition()), {{{1, 2, 3}, {1, -2, -3}}});
    // The plane through (1, 1, 1) with normal (0, -1, 1) / sqrt 2 is turned by 45 degrees about -X.
    const double r = std::sqrt(2.0);
    const FRTransf tilted = get_transform_to_xy_plane(FRUnitVector(0, -1, 1), FRPosition(1, 1, 1));
    ExpectMaps(tilted, {{{1, 1, 1}, {0, 0, 0}},
                        {{2, 1, 1}, {1, 0, 0}},
                        {{1, 2, 2}, {0, r, 0}},
                        {{1, 1 - r, 1 + r}, {0, 0, 2}}});
    EXPECT_EQ(tilted.reflect(), 0);
}
