#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "ravelin/platform/CPoint.h"
#include "ravelin/platform/CRect.h"

using namespace ravelin;

namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

void ExpectSides(const tagRECT& r, std::int32_t left, std::int32_t top, std::int32_t right,
                 std::int32_t bottom) {
    EXPECT_EQ(r.left, left);
    EXPECT_EQ(r.top, top);
    EXPECT_EQ(r.right, right);
    EXPECT_EQ(r.bottom, bottom);
}

}  // namespace

// --- CPoint -------------------------------------------------------------------------------

TEST(CPoint, DefaultIsTheOrigin) {
    const CPoint p;
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 0);
}

TEST(CPoint, ConstructsFromCoordinatesAndFromAPoint) {
    const CPoint p(3, -4);
    EXPECT_EQ(p.x, 3);
    EXPECT_EQ(p.y, -4);
    const tagPOINT raw{-7, 8};
    const CPoint q(raw);
    EXPECT_EQ(q.x, -7);
    EXPECT_EQ(q.y, 8);
}

TEST(CPoint, Arithmetic) {
    const CPoint a(3, -4);
    const CPoint b(10, 20);
    EXPECT_TRUE(a + b == CPoint(13, 16));
    EXPECT_TRUE(b - a == CPoint(7, 24));
    EXPECT_TRUE(-a == CPoint(-3, 4));
    CPoint c = a;
    c += b;
    EXPECT_TRUE(c == CPoint(13, 16));
    c -= b;
    EXPECT_TRUE(c == a);
    c.Offset(1, 2);
    EXPECT_TRUE(c == CPoint(4, -2));
}

TEST(CPoint, EqualityComparesBothCoordinates) {
    EXPECT_TRUE(CPoint(1, 2) == CPoint(1, 2));
    EXPECT_FALSE(CPoint(1, 2) == CPoint(1, 3));
    EXPECT_FALSE(CPoint(1, 2) == CPoint(0, 2));
    static_assert(CPoint(1, 2) + CPoint(3, 4) == CPoint(4, 6));
}

// --- Free functions -----------------------------------------------------------------------

TEST(SetRect, SetsTheFourSidesAndReturnsTrue) {
    tagRECT r{9, 9, 9, 9};
    EXPECT_TRUE(SetRect(&r, 1, 2, 30, 40));
    ExpectSides(r, 1, 2, 30, 40);
    EXPECT_TRUE(SetRect(&r, 5, 6, -1, -2));
    ExpectSides(r, 5, 6, -1, -2);
}

TEST(IsRectEmpty, RectangleWithAreaIsNotEmpty) {
    const tagRECT r{0, 0, 10, 20};
    EXPECT_FALSE(IsRectEmpty(&r));
    const tagRECT pixel{-3, -3, -2, -2};
    EXPECT_FALSE(IsRectEmpty(&pixel));
}

TEST(IsRectEmpty, ZeroOrNegativeWidthOrHeightIsEmpty) {
    const tagRECT cases[] = {
        {0, 0, 0, 10},    // zero width
        {0, 0, 10, 0},    // zero height
        {5, 0, 4, 10},    // negative width
        {0, 5, 10, 4},    // negative height
        {10, 10, 0, 0},   // both negative
        {0, 0, 0, 0},     // nothing at all
        {-5, 3, -5, 100}  // zero width away from the origin
    };
    for (const tagRECT& r : cases) {
        SCOPED_TRACE(testing::Message() << "(" << r.left << ", " << r.top << ", " << r.right << ", "
                                        << r.bottom << ")");
        EXPECT_TRUE(IsRectEmpty(&r));
    }
}

TEST(PtInRect, LeftAndTopIncludedRightAndBottomExcluded) {
    const tagRECT r{10, 20, 30, 40};
    struct Case {
        std::int32_t x;
        std::int32_t y;
        bool inside;
    };
    const Case cases[] = {
        {10, 20, true},   // top-left corner
        {29, 39, true},   // last pixel
        {20, 30, true},   // middle
        {30, 20, false},  // right side
        {10, 40, false},  // bottom side
        {30, 40, false},  // bottom-right corner
        {9, 25, false},   // left of the left side
        {15, 19, false},  // above the top
        {29, 40, false},  // below the last row
        {-20, -30, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "(" << c.x << ", " << c.y << ")");
        EXPECT_EQ(PtInRect(&r, tagPOINT{c.x, c.y}), c.inside);
    }
}

TEST(PtInRect, EmptyRectangleHoldsNoPoint) {
    const tagRECT zeroWidth{5, 5, 5, 10};
    EXPECT_FALSE(PtInRect(&zeroWidth, tagPOINT{5, 5}));
    const tagRECT inverted{10, 10, 5, 5};
    EXPECT_FALSE(PtInRect(&inverted, tagPOINT{7, 7}));
    EXPECT_FALSE(PtInRect(&inverted, tagPOINT{10, 10}));
}

// --- CRect --------------------------------------------------------------------------------

TEST(CRect, DefaultIsEmptyAtTheOrigin) {
    const CRect r;
    ExpectSides(r, 0, 0, 0, 0);
    EXPECT_TRUE(r.IsRectNull());
    EXPECT_TRUE(r.IsRectEmpty());
}

TEST(CRect, Constructors) {
    ExpectSides(CRect(1, 2, 3, 4), 1, 2, 3, 4);
    ExpectSides(CRect(tagRECT{-1, -2, 5, 6}), -1, -2, 5, 6);
    ExpectSides(CRect(CPoint(7, 8), CPoint(17, 28)), 7, 8, 17, 28);
}

TEST(CRect, WidthHeightAndCorners) {
    const CRect r(10, 20, 35, 60);
    EXPECT_EQ(r.Width(), 25);
    EXPECT_EQ(r.Height(), 40);
    EXPECT_TRUE(r.TopLeft() == CPoint(10, 20));
    EXPECT_TRUE(r.BottomRight() == CPoint(35, 60));
    const CRect inverted(10, 20, 4, 5);
    EXPECT_EQ(inverted.Width(), -6);
    EXPECT_EQ(inverted.Height(), -15);
}

TEST(CRect, EmptyAndNullAreDifferentQuestions) {
    const CRect flat(5, 5, 5, 10);
    EXPECT_TRUE(flat.IsRectEmpty());
    EXPECT_FALSE(flat.IsRectNull());
    const CRect inverted(10, 10, 0, 0);
    EXPECT_TRUE(inverted.IsRectEmpty());
    EXPECT_FALSE(CRect(0, 0, 1, 1).IsRectEmpty());
}

TEST(CRect, PtInRectMatchesTheFreeFunction) {
    const CRect r(10, 20, 30, 40);
    EXPECT_TRUE(r.PtInRect(CPoint(10, 20)));
    EXPECT_TRUE(r.PtInRect(CPoint(29, 39)));
    EXPECT_FALSE(r.PtInRect(CPoint(30, 39)));
    EXPECT_FALSE(r.PtInRect(CPoint(29, 40)));
}

TEST(CRect, SetRectAndSetRectEmpty) {
    CRect r;
    r.SetRect(1, 2, 3, 4);
    ExpectSides(r, 1, 2, 3, 4);
    r.SetRectEmpty();
    ExpectSides(r, 0, 0, 0, 0);
    EXPECT_TRUE(r.IsRectNull());
}

TEST(CRect, NormalizeRectOrdersTheSides) {
    CRect r(30, 40, 10, 20);
    r.NormalizeRect();
    ExpectSides(r, 10, 20, 30, 40);
    CRect onlyWidth(30, 20, 10, 40);
    onlyWidth.NormalizeRect();
    ExpectSides(onlyWidth, 10, 20, 30, 40);
    CRect onlyHeight(10, 40, 30, 20);
    onlyHeight.NormalizeRect();
    ExpectSides(onlyHeight, 10, 20, 30, 40);
    CRect ordered(1, 2, 3, 4);
    ordered.NormalizeRect();
    ExpectSides(ordered, 1, 2, 3, 4);
}

TEST(CRect, OffsetRectMovesAllSides) {
    CRect r(1, 2, 11, 22);
    r.OffsetRect(5, -3);
    ExpectSides(r, 6, -1, 16, 19);
    EXPECT_EQ(r.Width(), 10);
    EXPECT_EQ(r.Height(), 20);
}

TEST(CRect, InflateRectGrowsOnBothSides) {
    CRect r(10, 20, 30, 40);
    r.InflateRect(2, 3);
    ExpectSides(r, 8, 17, 32, 43);
    r.InflateRect(-4, -5);
    ExpectSides(r, 12, 22, 28, 38);
}

TEST(CRect, EqualityComparesAllSides) {
    EXPECT_TRUE((CRect(1, 2, 3, 4) == tagRECT{1, 2, 3, 4}));
    EXPECT_FALSE((CRect(1, 2, 3, 4) == tagRECT{0, 2, 3, 4}));
    EXPECT_FALSE((CRect(1, 2, 3, 4) == tagRECT{1, 0, 3, 4}));
    EXPECT_FALSE((CRect(1, 2, 3, 4) == tagRECT{1, 2, 0, 4}));
    EXPECT_FALSE((CRect(1, 2, 3, 4) == tagRECT{1, 2, 3, 0}));
}

// --- RoundToPixel -------------------------------------------------------------------------

TEST(RoundToPixel, HalvesGoAwayFromZero) {
    struct Case {
        double value;
        std::int32_t pixel;
    };
    const Case cases[] = {
        {0.0, 0},    {-0.0, 0}, {0.4, 0},   {-0.4, 0},   {0.5, 1},     {-0.5, -1},
        {1.49, 1},   {1.5, 2},  {-1.5, -2}, {2.5, 3},    {-2.5, -3},   {2.4999, 2},
        {-2.51, -3}, {7.0, 7},  {-7.0, -7}, {1e-300, 0}, {-1e-300, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "value " << c.value);
        EXPECT_EQ(RoundToPixel(c.value), c.pixel);
    }
}

TEST(RoundToPixel, EndsOfTheRangeAreReached) {
    EXPECT_EQ(RoundToPixel(2147483647.0), kMax);
    EXPECT_EQ(RoundToPixel(2147483647.4), kMax);
    EXPECT_EQ(RoundToPixel(-2147483648.0), kMin);
    EXPECT_EQ(RoundToPixel(-2147483648.4), kMin);
    EXPECT_EQ(RoundToPixel(2147483646.5), kMax);
}

TEST(RoundToPixel, ValuesBeyondTheRangeSaturate) {
    EXPECT_EQ(RoundToPixel(2147483647.5), kMax);
    EXPECT_EQ(RoundToPixel(2147483648.0), kMax);
    EXPECT_EQ(RoundToPixel(3e9), kMax);
    EXPECT_EQ(RoundToPixel(1e300), kMax);
    EXPECT_EQ(RoundToPixel(std::numeric_limits<double>::infinity()), kMax);
    EXPECT_EQ(RoundToPixel(-2147483648.5), kMin);
    EXPECT_EQ(RoundToPixel(-2147483649.0), kMin);
    EXPECT_EQ(RoundToPixel(-3e9), kMin);
    EXPECT_EQ(RoundToPixel(-1e300), kMin);
    EXPECT_EQ(RoundToPixel(-std::numeric_limits<double>::infinity()), kMin);
}

TEST(RoundToPixel, NotANumberGivesZero) {
    EXPECT_EQ(RoundToPixel(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(RoundToPixel(-std::numeric_limits<double>::quiet_NaN()), 0);
}
