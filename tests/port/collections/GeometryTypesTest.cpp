// Points, sizes and rectangles: arithmetic and the USER32 rectangle rules.
#include <afxwin.h>
#include <gtest/gtest.h>

TEST(CPointSizeTest, DifferenceOfPointsIsASize) {
    EXPECT_EQ(CPoint(5, 5) - CPoint(3, 4), CSize(2, 1));
    EXPECT_EQ(CPoint(3, 4) - CSize(10, 20), CPoint(-7, -16));
    EXPECT_EQ(CRect(CPoint(1, 2), CSize(3, 4)), CRect(1, 2, 4, 6));
    EXPECT_EQ(CRect(10, 20, 50, 80).CenterPoint(), CPoint(30, 50));
}

TEST(CRectTest, PointInsideExcludesRightAndBottomEdges) {
    CRect r(0, 0, 10, 10);
    EXPECT_TRUE(r.PtInRect(CPoint(0, 0)));
    EXPECT_TRUE(r.PtInRect(CPoint(9, 9)));
    EXPECT_FALSE(r.PtInRect(CPoint(10, 5)));
    EXPECT_FALSE(r.PtInRect(CPoint(5, 10)));
    EXPECT_FALSE(r.PtInRect(CPoint(-1, 5)));
}

TEST(CRectTest, EmptyAndNullAreDifferent) {
    EXPECT_TRUE(CRect().IsRectEmpty());
    EXPECT_TRUE(CRect().IsRectNull());
    EXPECT_TRUE(CRect(5, 5, 5, 9).IsRectEmpty());
    EXPECT_FALSE(CRect(5, 5, 5, 9).IsRectNull());
    // An inverted rectangle is empty until normalised.
    CRect inverted(10, 8, 2, 4);
    EXPECT_TRUE(inverted.IsRectEmpty());
    inverted.NormalizeRect();
    EXPECT_EQ(inverted, CRect(2, 4, 10, 8));
    EXPECT_FALSE(inverted.IsRectEmpty());
    CRect half(1, 9, 5, 3);
    half.NormalizeRect();
    EXPECT_EQ(half, CRect(1, 3, 5, 9));
}

TEST(CRectTest, InflateDeflateOffsetAndMove) {
    CRect r(10, 10, 20, 20);
    r.InflateRect(2, 3);
    EXPECT_EQ(r, CRect(8, 7, 22, 23));
    r.DeflateRect(CSize(2, 3));
    EXPECT_EQ(r, CRect(10, 10, 20, 20));
    r.InflateRect(1, 2, 3, 4);
    EXPECT_EQ(r, CRect(9, 8, 23, 24));
    r.DeflateRect(1, 2, 3, 4);
    r.OffsetRect(5, -5);
    EXPECT_EQ(r, CRect(15, 5, 25, 15));
    r.MoveToXY(0, 100);
    EXPECT_EQ(r, CRect(0, 100, 10, 110));
    EXPECT_EQ(r + CPoint(1, 1), CRect(1, 101, 11, 111));
    EXPECT_EQ(r - CSize(0, 100), CRect(0, 0, 10, 10));
    r += CPoint(1, 2);
    EXPECT_EQ(r, CRect(1, 102, 11, 112));
}

TEST(CRectTest, IntersectionAndUnionFollowUser32) {
    CRect a(0, 0, 10, 10);
    CRect b(5, 5, 15, 15);
    CRect out;
    EXPECT_TRUE(out.IntersectRect(a, b));
    EXPECT_EQ(out, CRect(5, 5, 10, 10));
    EXPECT_TRUE(out.UnionRect(a, b));
    EXPECT_EQ(out, CRect(0, 0, 15, 15));
    // Touching edges do not intersect: the result is the null rectangle.
    out = CRect(1, 1, 2, 2);
    EXPECT_FALSE(out.IntersectRect(a, CRect(10, 0, 20, 10)));
    EXPECT_TRUE(out.IsRectNull());
    // An empty operand does not stretch a union.
    EXPECT_TRUE(out.UnionRect(a, CRect(100, 100, 100, 200)));
    EXPECT_EQ(out, a);
    EXPECT_FALSE(out.UnionRect(CRect(), CRect(3, 3, 1, 1)));
    EXPECT_TRUE(out.IsRectNull());
    EXPECT_EQ(a & b, CRect(5, 5, 10, 10));
    EXPECT_EQ(a | b, CRect(0, 0, 15, 15));
    CRect c = a;
    c &= b;
    EXPECT_EQ(c, CRect(5, 5, 10, 10));
}

TEST(Win32RectTest, NullArgumentsAreRefused) {
    RECT r{1, 2, 3, 4};
    EXPECT_FALSE(SetRect(nullptr, 0, 0, 1, 1));
    EXPECT_FALSE(IntersectRect(nullptr, &r, &r));
    EXPECT_FALSE(UnionRect(&r, nullptr, &r));
    EXPECT_TRUE(IsRectEmpty(nullptr));
    EXPECT_FALSE(PtInRect(nullptr, POINT{0, 0}));
    EXPECT_FALSE(EqualRect(&r, nullptr));
    EXPECT_TRUE(EqualRect(&r, &r));
}
