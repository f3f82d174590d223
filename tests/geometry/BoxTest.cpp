#include <gtest/gtest.h>

#include <vector>

#include "geometry/AFR_Lin_List.h"
#include "geometry/FRBox.h"
#include "support/GeometryExpect.h"

TEST(FRBoxTest, CornersAndRanges) {
    const FRBox box(FRInterval(-1, 2), FRInterval(0, 5), FRInterval(3, 4));
    ExpectNear(box.low(), FRPosition(-1, 0, 3));
    ExpectNear(box.high(), FRPosition(2, 5, 4));
    EXPECT_DOUBLE_EQ(box.y_range().end_pt(), 5.0);
    EXPECT_DOUBLE_EQ(box.x_range().length(), 3.0);
    EXPECT_TRUE(box.contains(FRPosition(2 + 0.5e-6, 5, 4)));
    EXPECT_FALSE(box.contains(FRPosition(2 + 2e-6, 5, 4)));
}

TEST(FRBoxTest, CreateBoxFromPointsHoldsThemAll) {
    const FRBox box =
        CreateBoxFromPoints({FRPosition(1, 5, -2), FRPosition(-3, 2, 4), FRPosition(0, 0, 0)});
    ExpectNear(box.low(), FRPosition(-3, 0, -2));
    ExpectNear(box.high(), FRPosition(1, 5, 4));
    const FRBox single = CreateBoxFromPoints({FRPosition(7, 8, 9)});
    ExpectNear(single.low(), FRPosition(7, 8, 9));
    ExpectNear(single.high(), FRPosition(7, 8, 9));
    const FRBox none = CreateBoxFromPoints({});
    ExpectNear(none.low(), FRPosition());
    ExpectNear(none.high(), FRPosition());
}

TEST(AFR_Lin_ListTest, KeepsOrderAndReadsScaledPoints) {
    AFR_Lin_List list;
    EXPECT_TRUE(list.IsEmpty());
    list.AddPoint(FRPosition(10, 20, 30));
    list.AddPoint(FRPosition(-10, 0, 5));
    std::vector<FRPosition> read;
    for (const FRPosition& p : list)
        read.push_back(p / 10.0);
    ASSERT_EQ(read.size(), 2u);
    ExpectNear(read[0], FRPosition(1, 2, 3));
    ExpectNear(read[1], FRPosition(-1, 0, 0.5));
}
