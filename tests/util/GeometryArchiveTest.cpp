#include <gtest/gtest.h>

#include <vector>

#include "support/ArchiveRoundTrip.h"
#include "support/GeometryExpect.h"
#include "util/GeometryArchive.h"

namespace {

// Little-endian IEEE 754 doubles, by hand.
const Bytes kOne = {0, 0, 0, 0, 0, 0, 0xF0, 0x3F};
const Bytes kMinusTwo = {0, 0, 0, 0, 0, 0, 0, 0xC0};
const Bytes kHalf = {0, 0, 0, 0, 0, 0, 0xE0, 0x3F};
const Bytes kTwo = {0, 0, 0, 0, 0, 0, 0, 0x40};
const Bytes kZero = {0, 0, 0, 0, 0, 0, 0, 0};
const Bytes kMinusOne = {0, 0, 0, 0, 0, 0, 0xF0, 0xBF};

Bytes Cat(std::initializer_list<Bytes> parts) {
    Bytes out;
    for (const Bytes& p : parts)
        out.insert(out.end(), p.begin(), p.end());
    return out;
}

template <typename T> Bytes Store(const T& value) {
    return StoreBytes([&](CArchive& ar) { ar << value; });
}

template <typename T> T Load(const Bytes& bytes, T value) {
    LoadBytes(bytes, [&](CArchive& ar) { ar >> value; });
    return value;
}

} // namespace

TEST(GeometryArchiveTest, PointsAndVectorsAreThreeDoubles) {
    const Bytes expected = Cat({kOne, kMinusTwo, kHalf});
    EXPECT_EQ(Store(FRPosition(1, -2, 0.5)), expected);
    EXPECT_EQ(Store(FRVector(1, -2, 0.5)), expected);
    EXPECT_EQ(Store(FRUnitVector(0, -3, 0)), Cat({kZero, kMinusOne, kZero}));
    ExpectNear(Load(expected, FRPosition()), FRPosition(1, -2, 0.5), 0);
    ExpectNear(Load(expected, FRVector()), FRVector(1, -2, 0.5), 0);
    // A unit vector is normalised on reading.
    ExpectNear(Load(Cat({kZero, kMinusTwo, kZero}), FRUnitVector()), FRVector(0, -1, 0), 0);
}

TEST(GeometryArchiveTest, IntervalBoxAndMatrix) {
    EXPECT_EQ(Store(FRInterval(1, 2)), Cat({kOne, kTwo}));
    const FRBox box(FRInterval(-2, 1), FRInterval(0, 0.5), FRInterval(1, 2));
    const Bytes boxBytes = Cat({kMinusTwo, kOne, kZero, kHalf, kOne, kTwo});
    EXPECT_EQ(Store(box), boxBytes);
    const FRBox loaded = Load(boxBytes, FRBox());
    ExpectNear(loaded.low(), FRPosition(-2, 0, 1), 0);
    ExpectNear(loaded.high(), FRPosition(1, 0.5, 2), 0);
    const FRMatrix m(FRVector(1, 0, 0), FRVector(0, 2, 0), FRVector(0, 0, -1));
    const Bytes matrixBytes =
        Cat({kOne, kZero, kZero, kZero, kTwo, kZero, kZero, kZero, kMinusOne});
    EXPECT_EQ(Store(m), matrixBytes);
    EXPECT_TRUE(Load(matrixBytes, FRMatrix()) == m);
}

TEST(GeometryArchiveTest, TransformIsMatrixVectorScaleAndFlagBytes) {
    const FRTransf t(FRMatrix(), FRVector(1, -2, 0.5), 2.0, 1, 0, 1);
    const Bytes expected = Cat({kOne, kZero, kZero, kZero, kOne, kZero, kZero, kZero, kOne, kOne,
                                kMinusTwo, kHalf, kTwo, Bytes{1, 0, 1}});
    ASSERT_EQ(expected.size(), 107u);
    EXPECT_EQ(Store(t), expected);
    const FRTransf loaded = Load(expected, FRTransf());
    EXPECT_TRUE(loaded == t);
    EXPECT_DOUBLE_EQ(loaded.scaling(), 2.0);
    EXPECT_EQ(loaded.rotate(), 1);
    EXPECT_EQ(loaded.reflect(), 0);
    EXPECT_EQ(loaded.shear(), 1);
}

TEST(GeometryArchiveTest, ShortDataThrowsAndLeavesTheTargetAlone) {
    Bytes bytes = Cat({kOne, kMinusTwo, kHalf});
    bytes.resize(20);
    FRPosition p(7, 8, 9);
    EXPECT_EQ(LoadCause(bytes, [&](CArchive& ar) { ar >> p; }), CArchiveException::endOfFile);
    ExpectNear(p, FRPosition(7, 8, 9), 0);
}
