#include <gtest/gtest.h>

#include <cmath>

#include "geometry/FRConstants.h"
#include "support/GeometryExpect.h"
#include "util/GeometryHelpers.h"
#include "util/OrvCorrectionForRESNOR.h"

namespace {
const double kHalfRoot2 = std::sqrt(0.5);
}

TEST(OrvCorrectionForRESNORTest, RestoresOnlyWhenAppliedAndAssignmentCopiesBoth) {
    const double before = RESNOR;
    {
        OrvCorrectionForRESNOR guard(1e-4, 1);
        EXPECT_DOUBLE_EQ(RESNOR, 1e-4);
        EXPECT_DOUBLE_EQ(guard.GetSavedValue(), before);
    }
    EXPECT_DOUBLE_EQ(RESNOR, before);
    {
        OrvCorrectionForRESNOR guard(1e-5, 0);
        EXPECT_DOUBLE_EQ(RESNOR, 1e-5);
    }
    EXPECT_DOUBLE_EQ(RESNOR, 1e-5);
    RESNOR = before;
    // Assignment copies the saved value and the flag.
    {
        OrvCorrectionForRESNOR outer(1e-3, 1); // saves before
        OrvCorrectionForRESNOR inner(1e-2, 0); // saves 1e-3, will not restore
        inner = outer;                         // now restores before
        EXPECT_EQ(inner.GetApply(), 1);
        EXPECT_DOUBLE_EQ(inner.GetSavedValue(), before);
    }
    EXPECT_DOUBLE_EQ(RESNOR, before);
}

TEST(CreateBoundingBoxTest, HalfSizePlusMarginAboutCentre) {
    double size[3] = {2, 4, 6};
    const FRBox box = CreateBoundingBox(size, FRPosition(1, 1, 1), 0.5);
    ExpectNear(box.low(), FRPosition(-0.5, -1.5, -2.5));
    ExpectNear(box.high(), FRPosition(2.5, 3.5, 4.5));
}

TEST(TransformBoxTest, HoldsTheTransformedCorners) {
    const FRBox box(FRPosition(0, 0, 0), FRPosition(1, 2, 3));
    FRBox result;
    // (x, y, z) -> (-y, x, z) -> + (10, 0, 0)
    TransformBox(box, GetRotateTransf(PI / 2, FRZAxis) * GetTranslateTransf(FRVector(10, 0, 0)),
                 result);
    ExpectNear(result.low(), FRPosition(8, 0, 0));
    ExpectNear(result.high(), FRPosition(10, 1, 3));
    // An eighth turn widens the box: the corners (1, 0) and (0, 2) reach furthest.
    TransformBox(box, GetRotateTransf(PI / 4, FRZAxis), result);
    EXPECT_NEAR(result.x_range().start_pt(), -2 * kHalfRoot2, 1e-12);
    EXPECT_NEAR(result.x_range().end_pt(), kHalfRoot2, 1e-12);
    EXPECT_NEAR(result.y_range().end_pt(), 3 * kHalfRoot2, 1e-12);
}

TEST(ProjectUvOnPlaneTest, ProjectsAndNormalises) {
    FRUnitVector normal = FRZAxis;
    FRUnitVector tilted(1, 0, 1);
    ExpectNear(project_uv_on_plane(tilted, normal), FRVector(1, 0, 0));
    FRUnitVector null;
    EXPECT_TRUE(project_uv_on_plane(null, normal).is_null());
    FRUnitVector along = FRZAxis;
    EXPECT_TRUE(project_uv_on_plane(along, normal).is_null());
}

TEST(CalculateAngleTest, AnticlockwiseAboutTheNormal) {
    FRUnitVector a = FRXAxis;
    FRUnitVector b = FRYAxis;
    EXPECT_NEAR(CalculateAngle(a, b, FRZAxis), PI / 2, 1e-12);
    EXPECT_NEAR(CalculateAngle(a, b, -FRZAxis), 3 * PI / 2, 1e-12);
    FRUnitVector opposite = -FRXAxis;
    EXPECT_NEAR(CalculateAngle(a, opposite, FRZAxis), PI, 1e-12);
    EXPECT_NEAR(CalculateAngle(a, opposite, -FRZAxis), PI, 1e-12);
    // Without a normal the angle is the unsigned one.
    EXPECT_NEAR(CalculateAngle(b, a, FRUnitVector()), PI / 2, 1e-12);
}

TEST(CalculateAngleTest, ProjectsTheCallersVectors) {
    FRUnitVector a(1, 0, 1);
    FRUnitVector b(0, -1, 5);
    EXPECT_NEAR(CalculateAngle(a, b, FRZAxis), 3 * PI / 2, 1e-12);
    ExpectNear(a, FRVector(1, 0, 0));
    ExpectNear(b, FRVector(0, -1, 0));
    FRUnitVector c(1, 0, 1);
    FRUnitVector d = FRYAxis;
    CalculateAngle(c, d, FRUnitVector());
    ExpectNear(c, FRVector(kHalfRoot2, 0, kHalfRoot2));
}

TEST(GetPerpendicularVectorTest, TwoPerpendicularUnitVectors) {
    FRUnitVector first;
    FRUnitVector second;
    FRUnitVector z = FRZAxis;
    ASSERT_EQ(GetPerpendicularVector(z, &first, &second), 1);
    ExpectNear(first, FRVector(kHalfRoot2, kHalfRoot2, 0));
    ExpectNear(second, FRVector(-kHalfRoot2, kHalfRoot2, 0));
    FRUnitVector x = FRXAxis;
    ASSERT_EQ(GetPerpendicularVector(x, &first, &second), 1);
    ExpectNear(first, FRVector(0, kHalfRoot2, kHalfRoot2));
    ExpectNear(second, FRVector(0, -kHalfRoot2, kHalfRoot2));
    FRUnitVector v(1, 2, 3);
    ASSERT_EQ(GetPerpendicularVector(v, &first, &second), 1);
    EXPECT_NEAR(FRVector(v) % FRVector(first), 0.0, 1e-12);
    EXPECT_NEAR(FRVector(v) % FRVector(second), 0.0, 1e-12);
    EXPECT_NEAR(FRVector(first) % FRVector(second), 0.0, 1e-12);
}

TEST(GetPerpendicularVectorTest, RefusesNullInput) {
    FRUnitVector first = FRXAxis;
    FRUnitVector second = FRXAxis;
    FRUnitVector null;
    EXPECT_EQ(GetPerpendicularVector(null, &first, &second), 0);
    ExpectNear(first, FRVector(1, 0, 0));
    FRUnitVector z = FRZAxis;
    EXPECT_EQ(GetPerpendicularVector(z, nullptr, &second), 0);
    EXPECT_EQ(GetPerpendicularVector(z, &first, nullptr), 0);
}
