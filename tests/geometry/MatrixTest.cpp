#include <gtest/gtest.h>

#include <stdexcept>

#include "geometry/FRMatrix.h"
#include "support/GeometryExpect.h"

namespace {

// A classic integer matrix with determinant 1 and an integer inverse.
const FRMatrix kM(FRVector(1, 2, 3), FRVector(0, 1, 4), FRVector(5, 6, 0));

} // namespace

TEST(FRMatrixTest, DefaultIsIdentityAndRowsAreAsGiven) {
    ExpectNear(FRMatrix(), FRMatrix(FRVector(1, 0, 0), FRVector(0, 1, 0), FRVector(0, 0, 1)));
    EXPECT_DOUBLE_EQ(kM(0, 2), 3.0);
    EXPECT_DOUBLE_EQ(kM(2, 0), 5.0);
    EXPECT_THROW(static_cast<void>(kM(3, 0)), std::out_of_range);
    EXPECT_THROW(static_cast<void>(kM.row(-1)), std::out_of_range);
}

TEST(FRMatrixTest, DeterminantTransposeInverse) {
    EXPECT_DOUBLE_EQ(kM.determinant(), 1.0);
    EXPECT_DOUBLE_EQ(
        FRMatrix(FRVector(2, 0, 0), FRVector(0, 3, 0), FRVector(0, 0, 4)).determinant(), 24.0);
    ExpectNear(kM.transpose(), FRMatrix(FRVector(1, 0, 5), FRVector(2, 1, 6), FRVector(3, 4, 0)));
    ExpectNear(kM.inverse(),
               FRMatrix(FRVector(-24, 18, 5), FRVector(20, -15, -4), FRVector(-5, 4, 1)), 1e-12);
    ExpectNear(kM * kM.inverse(), FRMatrix(), 1e-12);
    EXPECT_DOUBLE_EQ(kM.trace(), 2.0);
}

TEST(FRMatrixTest, SingularInverseIsZero) {
    const FRMatrix singular(FRVector(1, 2, 3), FRVector(2, 4, 6), FRVector(0, 1, 0));
    ExpectNear(singular.inverse(), FRMatrix::Zero());
    // Very small but regular: the test is relative, not absolute.
    const FRMatrix tiny(FRVector(1e-8, 0, 0), FRVector(0, 1e-8, 0), FRVector(0, 0, 1e-8));
    EXPECT_NEAR(tiny.inverse()(1, 1), 1e8, 1e-4);
}

TEST(FRMatrixTest, RowVectorTimesMatrixSumsWeightedRows) {
    ExpectNear(FRVector(1, 1, 1) * kM, FRVector(6, 9, 7));
    ExpectNear(FRVector(0, 2, 0) * kM, FRVector(0, 2, 8));
    // (A B) applied to v is B applied to (v A).
    const FRMatrix b(FRVector(0, 1, 0), FRVector(-1, 0, 0), FRVector(0, 0, 2));
    ExpectNear(FRVector(1, 2, 3) * (kM * b), (FRVector(1, 2, 3) * kM) * b);
}
