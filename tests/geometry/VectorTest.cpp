#include <gtest/gtest.h>

#include "geometry/FRConstants.h"
#include "geometry/FRPosition.h"
#include "geometry/FRUnitVector.h"
#include "support/GeometryExpect.h"

TEST(FRVectorTest, CrossAndDotProducts) {
    ExpectNear(FRVector(1, 0, 0) * FRVector(0, 1, 0), FRVector(0, 0, 1));
    ExpectNear(FRVector(0, 1, 0) * FRVector(1, 0, 0), FRVector(0, 0, -1));
    ExpectNear(FRVector(1, 2, 3) * FRVector(4, 5, 6), FRVector(-3, 6, -3));
    EXPECT_DOUBLE_EQ(FRVector(1, 2, 3) % FRVector(4, 5, 6), 32.0);
    EXPECT_DOUBLE_EQ(FRVector(3, 0, 4).length(), 5.0);
    ExpectNear(FRVector(2, 4, 6) / 2.0, FRVector(1, 2, 3));
    ExpectNear(2.0 * FRVector(1, -1, 0.5), FRVector(2, -2, 1));
}

TEST(FRPositionTest, AffineArithmeticAndTolerantEquality) {
    const FRPosition a(1, 2, 3);
    const FRPosition b(4, 6, 3);
    ExpectNear(b - a, FRVector(3, 4, 0));
    ExpectNear(a + FRVector(1, 1, 1), FRPosition(2, 3, 4));
    ExpectNear(a / 2.0, FRPosition(0.5, 1, 1.5));
    EXPECT_DOUBLE_EQ(distance(a, b), 5.0);
    EXPECT_TRUE(FRPosition() == FRPosition(0.9e-6, 0, 0));
    EXPECT_FALSE(FRPosition() == FRPosition(1.1e-6, 0, 0));
}

TEST(FRPositionTest, ProjectOnPlaneDropsTheNormalComponent) {
    ExpectNear(project_on_plane(FRPosition(1, 2, 3), FRPosition(0, 0, 1), FRZAxis),
               FRPosition(1, 2, 1));
    // Plane x + y = 2 through (1, 1, 0): (3, 3, 5) is 2 x sqrt 2 above it along (1, 1, 0) / sqrt 2.
    ExpectNear(project_on_plane(FRPosition(3, 3, 5), FRPosition(1, 1, 0), FRUnitVector(1, 1, 0)),
               FRPosition(1, 1, 5));
    ExpectNear(project_on_plane(FRPosition(3, 3, 5), FRPosition(), FRUnitVector()),
               FRPosition(3, 3, 5));
}

TEST(FRUnitVectorTest, AlwaysNormalisedOrNull) {
    const FRUnitVector u(3, 0, 4);
    EXPECT_DOUBLE_EQ(u.x(), 0.6);
    EXPECT_DOUBLE_EQ(u.z(), 0.8);
    const FRUnitVector fromVector = FRVector(0, -7, 0);
    ExpectNear(fromVector, FRVector(0, -1, 0));
    EXPECT_TRUE(FRUnitVector(0, 0, 0).is_null());
    EXPECT_TRUE(FRUnitVector().is_null());
    EXPECT_TRUE(normalize(FRVector(1e300, 1e300, 1e300) * 1e300).is_null());
    ExpectNear(normalize(FRVector(1e-200, 0, 0)), FRVector(1, 0, 0));
}

TEST(ParallelTest, SameOppositeOrNeitherAndEqualityWithinRESNOR) {
    EXPECT_EQ(parallel(FRVector(1, 0, 0), FRVector(2, 0, 0)), 1);
    EXPECT_EQ(parallel(FRVector(1, 0, 0), FRVector(-3, 0, 0)), -1);
    EXPECT_EQ(parallel(FRVector(1, 0, 0), FRVector(0, 1, 0)), 0);
    // The sine between them against RESNOR (1e-10).
    EXPECT_EQ(parallel(FRVector(1, 0, 0), FRVector(1, 1e-11, 0)), 1);
    EXPECT_EQ(parallel(FRVector(1, 0, 0), FRVector(1, 1e-9, 0)), 0);
    EXPECT_EQ(parallel(FRVector(), FRVector(1, 0, 0)), 0);
    EXPECT_TRUE(FRXAxis == FRUnitVector(1, 1e-11, 0));
    EXPECT_FALSE(FRXAxis == FRUnitVector(1, 1e-9, 0));
    EXPECT_TRUE(-FRXAxis == FRUnitVector(-1, 0, 0));
}
