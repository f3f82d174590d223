#include <gtest/gtest.h>

#include <climits>

#include "util/RoundOff.h"

TEST(RoundOffDoubleTest, FiveDecimalsHalfDownInTwoStages) {
    EXPECT_DOUBLE_EQ(RoundOffDouble(1.234567), 1.23457);
    EXPECT_DOUBLE_EQ(RoundOffDouble(-1.234567), -1.23457);
    EXPECT_DOUBLE_EQ(RoundOffDouble(-2.5), -2.5);
    EXPECT_DOUBLE_EQ(RoundOffDouble(0.0), 0.0);
    // 15 steps of RESABS are 1.5 steps of 1e-5: exactly half stays down.
    EXPECT_DOUBLE_EQ(RoundOffDouble(0.000015), 0.00001);
    EXPECT_DOUBLE_EQ(RoundOffDouble(0.0000156), 0.00002);
    // 1000005.1 -> 1000005 -> 100000.5 -> 100000: the first stage hides the .1.
    EXPECT_DOUBLE_EQ(RoundOffDouble(1.0000051), 1.0);
    EXPECT_DOUBLE_EQ(RoundOffDouble(1.0000061), 1.00001);
}

TEST(RoundOffDoubleTest, LargeValuesLoseTheirSign) {
    EXPECT_DOUBLE_EQ(RoundOffDouble(3e9), 3e9);
    EXPECT_DOUBLE_EQ(RoundOffDouble(-3e9), 3e9);
    EXPECT_DOUBLE_EQ(RoundOffDouble(-12345.678904), -12345.6789);
}

TEST(RoundOffDoubleWithPrecisionTest, NineDecimalsAwayFromZero) {
    EXPECT_DOUBLE_EQ(RoundOffDoubleWithPrecision(1.0000000001), 1.000000001);
    EXPECT_DOUBLE_EQ(RoundOffDoubleWithPrecision(2.5), 2.5);
    EXPECT_DOUBLE_EQ(RoundOffDoubleWithPrecision(1.1234567891), 1.12345679);
    EXPECT_DOUBLE_EQ(RoundOffDoubleWithPrecision(-0.1234567891), -0.12345679);
    EXPECT_DOUBLE_EQ(RoundOffDoubleWithPrecision(3.00000000005), 3.0);
    EXPECT_DOUBLE_EQ(RoundOffDoubleWithPrecision(-7.00000000005), -7.0);
}

TEST(SizeT2IntTest, ClampsAtTheLargestInt) {
    EXPECT_EQ(size_t2int(5), 5);
    EXPECT_EQ(size_t2int(2147483647ULL), INT_MAX);
    EXPECT_EQ(size_t2int(2147483648ULL), INT_MAX);
    EXPECT_EQ(size_t2int(1ULL << 40), INT_MAX);
}
