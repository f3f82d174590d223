// Comparisons for the geometry tests.
#pragma once

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "geometry/FRMatrix.h"
#include "geometry/FRPosition.h"
#include "geometry/FRTransf.h"
#include "geometry/FRVector.h"

inline void ExpectNear(const FRVector& actual, const FRVector& expected, double tol = 1e-12) {
    EXPECT_NEAR(actual.x(), expected.x(), tol);
    EXPECT_NEAR(actual.y(), expected.y(), tol);
    EXPECT_NEAR(actual.z(), expected.z(), tol);
}

inline void ExpectNear(const FRPosition& actual, const FRPosition& expected, double tol = 1e-12) {
    ExpectNear(actual.to_vector(), expected.to_vector(), tol);
}

inline void ExpectNear(const FRMatrix& actual, const FRMatrix& expected, double tol = 1e-12) {
    for (int i = 0; i < 3; ++i) {
        ExpectNear(actual.row(i), expected.row(i), tol);
    }
}

// Each row: a point and where `t` must send it.
inline void ExpectMaps(const FRTransf& t,
                       const std::vector<std::pair<FRPosition, FRPosition>>& rows) {
    for (const auto& [from, to] : rows) {
        SCOPED_TRACE(testing::Message()
                     << "from " << from.x() << "," << from.y() << "," << from.z());
        ExpectNear(from * t, to);
    }
}
