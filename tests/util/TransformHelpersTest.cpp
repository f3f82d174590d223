#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "geometry/FRConstants.h"
#include "support/GeometryExpect.h"
#include "util/OrvCorrectionForRESNOR.h"
#include "util/TransformHelpers.h"

namespace {

struct Components {
    FRUnitVector axis;
    double angle = 0;
    FRVector translation;
    FRTransf rebuilt;
};

Components Extract(FRTransf t) {
    Components c;
    c.rebuilt = ExtractTransformComponents(t, c.axis, c.angle, c.translation);
    return c;
}

FRMatrix Rows(FRVector a, FRVector b, FRVector c) {
    return {a, b, c};
}

} // namespace

TEST(IsPureRotationMatrixTest, RotationsPassMirrorsFailOnDeterminant) {
    EXPECT_EQ(IsPureRotationMatrix(FRMatrix()), 1);
    EXPECT_EQ(IsPureRotationMatrix(GetRotateTransf(0.8, FRUnitVector(1, -2, 3)).affine()), 1);
    // A mirror has orthonormal rows: only its determinant (-1) fails it.
    EXPECT_EQ(IsPureRotationMatrix(Rows({1, 0, 0}, {0, 1, 0}, {0, 0, -1})), 0);
    EXPECT_EQ(IsPureRotationMatrix(Rows({2, 0, 0}, {0, 2, 0}, {0, 0, 2})), 0);
    EXPECT_EQ(IsPureRotationMatrix(Rows({1, 0.01, 0}, {0, 1, 0}, {0, 0, 1})), 0);
}

TEST(GetRotationAxisForPIRotationTest, HalfTurnsIdentityAndNonRotations) {
    ExpectNear(GetRotationAxisForPIRotation(Rows({-1, 0, 0}, {0, -1, 0}, {0, 0, 1})),
               FRVector(0, 0, 1));
    ExpectNear(GetRotationAxisForPIRotation(Rows({1, 0, 0}, {0, -1, 0}, {0, 0, -1})),
               FRVector(1, 0, 0));
    // Half turn about (1, 1, 0) / sqrt 2: 2 a a^T - I. xx and yy tie, so the y branch is taken.
    const double h = std::sqrt(0.5);
    ExpectNear(GetRotationAxisForPIRotation(Rows({0, 1, 0}, {1, 0, 0}, {0, 0, -1})),
               FRVector(h, h, 0));
    ExpectNear(GetRotationAxisForPIRotation(FRMatrix()), FRVector(1, 0, 0));
    EXPECT_TRUE(GetRotationAxisForPIRotation(Rows({1, 0, 0}, {0, 1, 0}, {0, 0, -1})).is_null());
    // Not symmetric: the normalised differences (m12 - m21, m02 - m20, m01 - m10).
    ExpectNear(GetRotationAxisForPIRotation(Rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1})),
               FRVector(0, 0, 1));
    ExpectNear(GetRotationAxisForPIRotation(Rows({1, 0, 0}, {0, 0, 1}, {0, -1, 0})),
               FRVector(1, 0, 0));
}

TEST(ExtractTransformComponentsTest, HalfTurnsAboutTheAxesAndTheIdentity) {
    for (const FRUnitVector& axisIn : {FRXAxis, FRYAxis, FRZAxis}) {
        const FRTransf t = GetRotateTransf(PI, axisIn) * GetTranslateTransf(FRVector(1, 2, 3));
        const Components c = Extract(t);
        EXPECT_NEAR(c.angle, PI, 1e-7);
        ExpectNear(c.axis, axisIn);
        ExpectNear(c.translation, FRVector(1, 2, 3));
        EXPECT_TRUE(c.rebuilt == t);
    }
    FRUnitVector axis = FRXAxis;
    double angle = 1;
    FRVector translation(1, 1, 1);
    FRTransf identity;
    ExtractTransformComponents(identity, axis, angle, translation);
    EXPECT_DOUBLE_EQ(angle, 0.0);
    EXPECT_TRUE(axis.is_null());
    ExpectNear(translation, FRVector());
}

TEST(ExtractTransformComponentsTest, RecoversRandomRotations) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<> unit(-1, 1);
    std::uniform_real_distribution<> turn(0.001, PI_2 - 0.001);
    for (int i = 0; i < 1000; ++i) {
        const FRUnitVector axisIn(unit(rng), unit(rng), unit(rng));
        const double angleIn = turn(rng);
        const Components c = Extract(GetRotateTransf(angleIn, axisIn));
        // The angle comes back in [0, PI]; beyond a half turn the axis turns round.
        const bool beyondHalf = angleIn > PI;
        EXPECT_NEAR(c.angle, beyondHalf ? PI_2 - angleIn : angleIn, 1e-7);
        ExpectNear(c.axis, beyondHalf ? -FRVector(axisIn) : FRVector(axisIn), 1e-6);
    }
}

TEST(ExtractTransformComponentsTest, RecoversGenericHalfTurnsUnderALooserRESNOR) {
    // acos near -1 turns a rounding error of 1e-16 in the trace into 1e-8 in the angle, so the
    // comparison with PI needs a looser RESNOR than the default.
    OrvCorrectionForRESNOR looser(1e-7, 1);
    std::mt19937 rng(11);
    std::uniform_real_distribution<> unit(-1, 1);
    for (int i = 0; i < 200; ++i) {
        const FRUnitVector axisIn(unit(rng), unit(rng), unit(rng));
        const Components c = Extract(GetRotateTransf(PI, axisIn));
        EXPECT_NEAR(c.angle, PI, 1e-7);
        // A half turn about a is one about -a too.
        EXPECT_NEAR(std::fabs(FRVector(c.axis) % FRVector(axisIn)), 1.0, 1e-9);
    }
}

TEST(GetXYTransformTest, AngleForm) {
    // -normal is -Z: a half turn about X after moving (1, 2, 3) to the origin.
    ExpectMaps(GetXYTransform(FRZAxis, FRPosition(1, 2, 3), 0.0), {{{1, 2, 3}, {0, 0, 0}},
                                                                   {{2, 2, 3}, {1, 0, 0}},
                                                                   {{1, 3, 3}, {0, -1, 0}},
                                                                   {{1, 2, 4}, {0, 0, -1}}});
    // Then a quarter turn about -Z: X -> -Y, -Y -> -X.
    ExpectMaps(GetXYTransform(FRZAxis, FRPosition(1, 2, 3), PI / 2),
               {{{2, 2, 3}, {0, -1, 0}}, {{1, 3, 3}, {-1, 0, 0}}});
}

TEST(GetXYTransformTest, DirectionFormPutsXDirOnX) {
    ExpectMaps(GetXYTransform(FRZAxis, FRPosition(1, 2, 3), FRYAxis),
               {{{1, 3, 3}, {1, 0, 0}}, {{1, 2, 3}, {0, 0, 0}}});
    EXPECT_TRUE(GetXYTransform(FRZAxis, FRPosition(1, 2, 3), FRXAxis) ==
                GetXYTransform(FRZAxis, FRPosition(1, 2, 3), 0.0));
    // A tilted plane: normal (1, 0, 1) / sqrt 2 with xDir (1, 0, -1) / sqrt 2.
    const FRUnitVector n(1, 0, 1);
    const FRUnitVector xDir(1, 0, -1);
    const FRTransf tilted = GetXYTransform(n, FRPosition(), xDir);
    ExpectNear(FRVector(xDir) * tilted, FRVector(1, 0, 0));
    ExpectNear(FRVector(n) * tilted, FRVector(0, 0, -1));
}

TEST(GetTransformToTurnXYTest, WorkedCases) {
    // z already +Z, x = Y: the second rotation is a quarter turn about Z (X onto Y).
    ExpectMaps(GetTransformToTurnXY(FRZAxis, FRPosition(1, 0, 0), FRYAxis),
               {{{2, 0, 0}, {0, 1, 0}}, {{1, 1, 0}, {-1, 0, 0}}});
    // z = -Z: a half turn about Y, then x' = -X gives a half turn about Z.
    ExpectMaps(GetTransformToTurnXY(-FRZAxis, FRPosition(), FRXAxis), {{{1, 2, 3}, {1, -2, -3}}});
}
