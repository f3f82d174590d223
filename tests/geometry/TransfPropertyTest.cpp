// Properties checked over many random transforms (fixed seed).
#include <gtest/gtest.h>

#include <random>

#include "geometry/FRConstants.h"
#include "geometry/FRTransf.h"
#include "support/GeometryExpect.h"

namespace {

class RandomTransforms : public ::testing::Test {
protected:
    double Uniform(double lo, double hi) { return std::uniform_real_distribution<>(lo, hi)(m_rng); }
    FRPosition Point() { return {Uniform(-10, 10), Uniform(-10, 10), Uniform(-10, 10)}; }
    FRUnitVector Axis() { return FRUnitVector(Uniform(-1, 1), Uniform(-1, 1), Uniform(-1, 1)); }
    FRTransf Rigid() {
        return GetRotateTransf(Uniform(-PI_2, PI_2), Axis()) *
               GetTranslateTransf(Point() - FRPosition());
    }

    std::mt19937 m_rng{20240611};
};

} // namespace

TEST_F(RandomTransforms, InverseUndoesAndCompositionAppliesInOrder) {
    for (int i = 0; i < 500; ++i) {
        const FRTransf t = GetScaleTransf(Uniform(0.2, 5)) * Rigid() * Rigid();
        const FRTransf b = Rigid();
        const FRTransf inv = t.inverse();
        EXPECT_TRUE(t * inv == FRTransf());
        EXPECT_TRUE(inv * t == FRTransf());
        const FRPosition p = Point();
        ExpectNear(p * t * inv, p, 1e-9);
        ExpectNear(p * (t * b), (p * t) * b, 1e-9);
    }
}

TEST_F(RandomTransforms, RigidTransformsKeepDistancesAndOrientation) {
    for (int i = 0; i < 500; ++i) {
        const FRTransf t = Rigid();
        const FRPosition p = Point();
        const FRPosition q = Point();
        EXPECT_NEAR(distance(p * t, q * t), distance(p, q), 1e-9);
        ExpectNear(t.affine() * t.affine().transpose(), FRMatrix(), 1e-12);
        EXPECT_NEAR(t.affine().determinant(), 1.0, 1e-12);
        EXPECT_EQ(t.reflect() + t.shear(), 0);
    }
}

TEST_F(RandomTransforms, TransformToXYPlaneSendsNormalToZ) {
    for (int i = 0; i < 500; ++i) {
        const FRUnitVector n = Axis();
        const FRPosition origin = Point();
        const FRTransf t = get_transform_to_xy_plane(n, origin);
        ExpectNear(FRVector(n) * t, FRVector(0, 0, 1), 1e-12);
        ExpectNear(origin * t, FRPosition(), 1e-9);
        // The smallest rotation leaves n x Z where it was.
        ExpectNear(FRVector(n * FRZAxis) * t, n * FRZAxis, 1e-12);
    }
}
