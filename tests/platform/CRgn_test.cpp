#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>

#include "ravelin/platform/CRgn.h"

using namespace ravelin;

namespace {

constexpr std::int32_t kIntMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kIntMin = std::numeric_limits<std::int32_t>::min();

// Whether pixel (x, y) lies in the rectangle from (left, top) to (right, bottom): left and top
// sides included, right and bottom sides excluded.
bool InRect(int x, int y, int left, int top, int right, int bottom) {
    return x >= left && x < right && y >= top && y < bottom;
}

// Compares `region` with `expected` on every pixel of the square from (lo, lo) to (hi, hi),
// both inclusive, and reports the first few pixels that differ.
testing::AssertionResult HoldsExactly(const CRgn& region, int lo, int hi,
                                      const std::function<bool(int, int)>& expected) {
    int mismatches = 0;
    testing::AssertionResult result = testing::AssertionSuccess();
    for (int y = lo; y <= hi; ++y) {
        for (int x = lo; x <= hi; ++x) {
            const bool got = region.PtInRegion(x, y);
            if (got != expected(x, y)) {
                if (mismatches == 0) {
                    result = testing::AssertionFailure();
                }
                if (mismatches < 8) {
                    result << "pixel (" << x << ", " << y << ") is " << (got ? "in" : "out")
                           << "; ";
                }
                ++mismatches;
            }
        }
    }
    if (mismatches > 0) {
        result << mismatches << " pixels differ";
    }
    return result;
}

// Whether no pixel of the square from (lo, lo) to (hi, hi) lies in `region`.
testing::AssertionResult HoldsNothing(const CRgn& region, int lo, int hi) {
    return HoldsExactly(region, lo, hi, [](int, int) { return false; });
}

// The two overlapping rectangles that the combination tests use: A from (0, 0) to (10, 10) and
// B from (5, 5) to (15, 15); they share the pixels 5..9 in each direction.
bool InA(int x, int y) {
    return InRect(x, y, 0, 0, 10, 10);
}
bool InB(int x, int y) {
    return InRect(x, y, 5, 5, 15, 15);
}

void MakeA(CRgn& r) {
    ASSERT_TRUE(r.CreateRectRgn(0, 0, 10, 10));
}
void MakeB(CRgn& r) {
    ASSERT_TRUE(r.CreateRectRgn(5, 5, 15, 15));
}

// A five-pointed star drawn in one stroke, each vertex joined to the next but one, y downward:
// top (50, 0), lower right (80, 100), left (0, 35), right (100, 35), lower left (20, 100). The
// central pentagon is passed twice in the same direction.
const POINT kStar[5] = {{50, 0}, {80, 100}, {0, 35}, {100, 35}, {20, 100}};

}  // namespace

// --- Empty regions -----------------------------------------------------------------------

TEST(CRgnEmpty, NewRegionHoldsNoPixel) {
    const CRgn r;
    EXPECT_FALSE(r.IsCreated());
    EXPECT_FALSE(r.PtInRegion(0, 0));
    EXPECT_FALSE(r.PtInRegion(-1, -1));
    EXPECT_FALSE(r.PtInRegion(POINT{5, 5}));
    EXPECT_TRUE(HoldsNothing(r, -3, 3));
}

TEST(CRgnEmpty, NewRegionHasAnEmptyBox) {
    const CRgn r;
    EXPECT_TRUE(r.GetRgnBox().IsRectEmpty());
}

TEST(CRgnEmpty, DeletedRegionHoldsNoPixelAndHasAnEmptyBox) {
    CRgn r;
    MakeA(r);
    ASSERT_TRUE(r.PtInRegion(5, 5));
    EXPECT_TRUE(r.DeleteObject());
    EXPECT_FALSE(r.IsCreated());
    EXPECT_FALSE(r.PtInRegion(5, 5));
    EXPECT_TRUE(r.GetRgnBox().IsRectEmpty());
}

TEST(CRgnEmpty, DeletedRegionCanBeCreatedAgain) {
    CRgn r;
    MakeA(r);
    r.DeleteObject();
    ASSERT_TRUE(r.CreateRectRgn(20, 20, 22, 22));
    EXPECT_TRUE(r.IsCreated());
    EXPECT_TRUE(HoldsExactly(r, -2, 25, [](int x, int y) { return InRect(x, y, 20, 20, 22, 22); }));
}

// --- Rectangles and the top-left rule ----------------------------------------------------

TEST(CRgnRect, CreationSucceedsAndMarksTheRegionCreated) {
    CRgn r;
    EXPECT_TRUE(r.CreateRectRgn(0, 0, 10, 10));
    EXPECT_TRUE(r.IsCreated());
}

// Left and top sides are in, right and bottom sides out: pixels 0..9, not -1, not 10.
TEST(CRgnRect, HoldsPixelsFromLeftTopUpToButNotIncludingRightBottom) {
    CRgn r;
    MakeA(r);
    EXPECT_TRUE(r.PtInRegion(0, 0));
    EXPECT_TRUE(r.PtInRegion(9, 0));
    EXPECT_TRUE(r.PtInRegion(0, 9));
    EXPECT_TRUE(r.PtInRegion(9, 9));
    EXPECT_FALSE(r.PtInRegion(10, 0));
    EXPECT_FALSE(r.PtInRegion(0, 10));
    EXPECT_FALSE(r.PtInRegion(10, 10));
    EXPECT_FALSE(r.PtInRegion(-1, 0));
    EXPECT_FALSE(r.PtInRegion(0, -1));
    EXPECT_FALSE(r.PtInRegion(-1, -1));
    EXPECT_FALSE(r.PtInRegion(9, 10));
    EXPECT_FALSE(r.PtInRegion(10, 9));
}

TEST(CRgnRect, HoldsExactlyTheHundredPixels) {
    CRgn r;
    MakeA(r);
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
}

TEST(CRgnRect, PointOverloadAgreesWithCoordinates) {
    CRgn r;
    MakeA(r);
    EXPECT_TRUE(r.PtInRegion(POINT{0, 0}));
    EXPECT_TRUE(r.PtInRegion(CPoint(9, 9)));
    EXPECT_FALSE(r.PtInRegion(POINT{10, 5}));
    EXPECT_FALSE(r.PtInRegion(CPoint(5, -1)));
}

TEST(CRgnRect, OffsetRectangleWithNegativeCorner) {
    CRgn r;
    ASSERT_TRUE(r.CreateRectRgn(-4, -2, 3, 1));
    EXPECT_TRUE(HoldsExactly(r, -8, 8, [](int x, int y) { return InRect(x, y, -4, -2, 3, 1); }));
}

TEST(CRgnRect, OnePixelRectangleHoldsOnePixel) {
    CRgn r;
    ASSERT_TRUE(r.CreateRectRgn(3, 4, 4, 5));
    EXPECT_TRUE(HoldsExactly(r, 0, 8, [](int x, int y) { return x == 3 && y == 4; }));
}

// A rectangle of no width or no height covers no pixel centre.
TEST(CRgnRect, FlatRectangleHoldsNoPixel) {
    CRgn wide;
    wide.CreateRectRgn(0, 5, 10, 5);
    EXPECT_TRUE(HoldsNothing(wide, -2, 12));
    CRgn tall;
    tall.CreateRectRgn(5, 0, 5, 10);
    EXPECT_TRUE(HoldsNothing(tall, -2, 12));
}

// The corners given the other way round describe the same point set, and the even-odd rule
// does not depend on the direction in which the outline runs.
TEST(CRgnRect, SwappedCornersHoldTheSamePixels) {
    CRgn r;
    ASSERT_TRUE(r.CreateRectRgn(10, 10, 0, 0));
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
}

TEST(CRgnRect, CreatingAgainReplacesTheRegion) {
    CRgn r;
    MakeA(r);
    ASSERT_TRUE(r.CreateRectRgn(20, 0, 25, 5));
    EXPECT_FALSE(r.PtInRegion(5, 5));
    EXPECT_TRUE(r.PtInRegion(20, 0));
    EXPECT_TRUE(r.PtInRegion(24, 4));
    EXPECT_FALSE(r.PtInRegion(25, 4));
}

// --- Polygons ----------------------------------------------------------------------------

TEST(CRgnPolygon, SquareOutlineHoldsTheSamePixelsAsTheRectangle) {
    const POINT square[4] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    CRgn alternate;
    ASSERT_TRUE(alternate.CreatePolygonRgn(square, 4, ALTERNATE));
    EXPECT_TRUE(HoldsExactly(alternate, -3, 13, InA));
    CRgn winding;
    ASSERT_TRUE(winding.CreatePolygonRgn(square, 4, WINDING));
    EXPECT_TRUE(HoldsExactly(winding, -3, 13, InA));
}

// The outline is closed from the last point back to the first: a triangle needs only its
// three corners.
TEST(CRgnPolygon, OutlineIsClosedFromLastPointToFirst) {
    const POINT triangle[3] = {{0, 0}, {10, 0}, {0, 10}};
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(triangle, 3, ALTERNATE));
    EXPECT_TRUE(r.PtInRegion(0, 0));
    EXPECT_TRUE(r.PtInRegion(0, 8));  // next to the closing side x = 0
    EXPECT_TRUE(r.PtInRegion(8, 0));
    EXPECT_FALSE(r.PtInRegion(-1, 5));
}

// Triangle (0, 0), (10, 0), (0, 10): the diagonal x + y = 10 is its right/lower side. The centre
// of pixel (x, y) is (x + 0.5, y + 0.5), so x + y <= 8 puts it strictly inside, x + y = 9 puts it
// exactly on the diagonal, which as a right border leaves it out, and x + y >= 10 outside.
TEST(CRgnPolygon, CentresOnARightDiagonalBorderAreOutside) {
    const POINT triangle[3] = {{0, 0}, {10, 0}, {0, 10}};
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(triangle, 3, ALTERNATE));
    EXPECT_TRUE(r.PtInRegion(4, 4));   // centre (4.5, 4.5), sum 9 < 10
    EXPECT_FALSE(r.PtInRegion(4, 5));  // centre (4.5, 5.5) on the diagonal
    EXPECT_FALSE(r.PtInRegion(0, 9));  // centre (0.5, 9.5) on the diagonal
    EXPECT_FALSE(r.PtInRegion(9, 0));  // centre (9.5, 0.5) on the diagonal
    EXPECT_TRUE(r.PtInRegion(8, 0));
    EXPECT_TRUE(r.PtInRegion(0, 8));
    EXPECT_TRUE(
        HoldsExactly(r, -3, 13, [](int x, int y) { return x >= 0 && y >= 0 && x + y <= 8; }));
}

// Triangle (0, 0), (10, 0), (10, 10): the diagonal y = x is its left side (the triangle lies to
// the right of it). Pixel (x, x) has its centre (x + 0.5, x + 0.5) on the diagonal, and a left
// border keeps it in; pixel (x, x + 1) lies left of the diagonal, outside.
TEST(CRgnPolygon, CentresOnALeftDiagonalBorderAreInside) {
    const POINT triangle[3] = {{0, 0}, {10, 0}, {10, 10}};
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(triangle, 3, ALTERNATE));
    EXPECT_TRUE(r.PtInRegion(0, 0));
    EXPECT_TRUE(r.PtInRegion(3, 3));
    EXPECT_TRUE(r.PtInRegion(9, 9));
    EXPECT_FALSE(r.PtInRegion(3, 4));
    EXPECT_FALSE(r.PtInRegion(10, 9));  // beyond the right side x = 10
    EXPECT_TRUE(HoldsExactly(r, -3, 13, [](int x, int y) { return y >= 0 && x < 10 && y <= x; }));
}

// The same triangle under the non-zero rule, and traced in the opposite direction, holds the
// same pixels: a simple outline has winding number +1 or -1 inside and 0 outside.
TEST(CRgnPolygon, SimpleOutlineHoldsTheSamePixelsUnderBothRulesAndDirections) {
    const POINT forward[3] = {{0, 0}, {10, 0}, {0, 10}};
    const POINT backward[3] = {{0, 10}, {10, 0}, {0, 0}};
    const auto expected = [](int x, int y) { return x >= 0 && y >= 0 && x + y <= 8; };
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(forward, 3, WINDING));
    EXPECT_TRUE(HoldsExactly(r, -3, 13, expected));
    ASSERT_TRUE(r.CreatePolygonRgn(backward, 3, ALTERNATE));
    EXPECT_TRUE(HoldsExactly(r, -3, 13, expected));
    ASSERT_TRUE(r.CreatePolygonRgn(backward, 3, WINDING));
    EXPECT_TRUE(HoldsExactly(r, -3, 13, expected));
}

// Two points make an outline that runs out and back: it is accepted but encloses nothing.
TEST(CRgnPolygon, TwoPointsAreAcceptedAndHoldNoPixel) {
    const POINT segment[2] = {{0, 0}, {10, 10}};
    CRgn r;
    EXPECT_TRUE(r.CreatePolygonRgn(segment, 2, ALTERNATE));
    EXPECT_TRUE(r.IsCreated());
    EXPECT_TRUE(HoldsNothing(r, -2, 12));
}

// Rightward rays at the centres' heights, y = 55.5 for pixel (50, 55):
//   (50,0)-(80,100) crosses at x = 50 + 55.5 * 30 / 100 = 66.65, right of 50.5, going down;
//   (80,100)-(0,35) crosses at x = 80 - 44.5 * 80 / 65 = 25.2, left;
//   (0,35)-(100,35) is horizontal;
//   (100,35)-(20,100) crosses at x = 100 - 20.5 * 80 / 65 = 74.8, right, going down;
//   (20,100)-(50,0) crosses at x = 20 + 44.5 * 30 / 100 = 33.35, left.
// Two crossings in the same direction: winding number 2, even parity.
TEST(CRgnPolygon, AlternateLeavesOutTheCentreOfASelfOverlappingStar) {
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(kStar, 5, ALTERNATE));
    EXPECT_FALSE(r.PtInRegion(50, 55));
    EXPECT_FALSE(r.PtInRegion(45, 50));
}

TEST(CRgnPolygon, WindingKeepsTheCentreOfASelfOverlappingStar) {
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(kStar, 5, WINDING));
    EXPECT_TRUE(r.PtInRegion(50, 55));
    EXPECT_TRUE(r.PtInRegion(45, 50));
}

// Pixel (50, 10), centre (50.5, 10.5), lies in the top point of the star: only (50,0)-(80,100)
// crosses to its right (at 53.15); (20,100)-(50,0) crosses at 46.85, to its left. The points are
// covered once and belong to the region under both rules.
TEST(CRgnPolygon, BothRulesKeepThePointsOfTheStar) {
    CRgn alternate;
    ASSERT_TRUE(alternate.CreatePolygonRgn(kStar, 5, ALTERNATE));
    CRgn winding;
    ASSERT_TRUE(winding.CreatePolygonRgn(kStar, 5, WINDING));
    for (const CRgn* r : {&alternate, &winding}) {
        EXPECT_TRUE(r->PtInRegion(50, 10));   // top point
        EXPECT_TRUE(r->PtInRegion(5, 37));    // left point
        EXPECT_TRUE(r->PtInRegion(95, 37));   // right point
        EXPECT_FALSE(r->PtInRegion(5, 5));    // outside the star
        EXPECT_FALSE(r->PtInRegion(50, 95));  // between the two lower points
    }
}

// A square traced twice in the same direction: every pixel inside is enclosed twice.
TEST(CRgnPolygon, RingDrawnTwiceIsEmptyUnderAlternateAndFullUnderWinding) {
    const POINT twice[8] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 10}, {0, 10}};
    CRgn alternate;
    ASSERT_TRUE(alternate.CreatePolygonRgn(twice, 8, ALTERNATE));
    EXPECT_TRUE(HoldsNothing(alternate, -3, 13));
    CRgn winding;
    ASSERT_TRUE(winding.CreatePolygonRgn(twice, 8, WINDING));
    EXPECT_TRUE(HoldsExactly(winding, -3, 13, InA));
}

// A square traced once one way and once the other: the windings cancel, so neither rule keeps
// anything.
TEST(CRgnPolygon, RingTracedBothWaysIsEmptyUnderBothRules) {
    const POINT there_and_back[8] = {{0, 0}, {10, 0}, {10, 10}, {0, 10},
                                     {0, 0}, {0, 10}, {10, 10}, {10, 0}};
    CRgn alternate;
    ASSERT_TRUE(alternate.CreatePolygonRgn(there_and_back, 8, ALTERNATE));
    EXPECT_TRUE(HoldsNothing(alternate, -3, 13));
    CRgn winding;
    ASSERT_TRUE(winding.CreatePolygonRgn(there_and_back, 8, WINDING));
    EXPECT_TRUE(HoldsNothing(winding, -3, 13));
}

// Two squares in one outline joined at their shared corner (0, 0) and traced in the same
// direction: the big one from (0, 0) to (10, 10), the small one from (0, 0) to (4, 4) inside it.
// The small square is enclosed twice: its pixels see the right sides x = 4 and x = 10.
TEST(CRgnPolygon, NestedSquaresInOneOutlineDifferByRule) {
    const POINT nested[8] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {4, 0}, {4, 4}, {0, 4}};
    const auto inSmall = [](int x, int y) { return InRect(x, y, 0, 0, 4, 4); };
    CRgn alternate;
    ASSERT_TRUE(alternate.CreatePolygonRgn(nested, 8, ALTERNATE));
    EXPECT_TRUE(
        HoldsExactly(alternate, -3, 13, [&](int x, int y) { return InA(x, y) && !inSmall(x, y); }));
    CRgn winding;
    ASSERT_TRUE(winding.CreatePolygonRgn(nested, 8, WINDING));
    EXPECT_TRUE(HoldsExactly(winding, -3, 13, InA));
}

// --- Refusals ----------------------------------------------------------------------------

TEST(CRgnRefusal, NullArrayIsRefused) {
    CRgn r;
    EXPECT_FALSE(r.CreatePolygonRgn(nullptr, 4, ALTERNATE));
    EXPECT_FALSE(r.IsCreated());
    EXPECT_FALSE(r.PtInRegion(0, 0));
}

TEST(CRgnRefusal, FewerThanTwoPointsAreRefused) {
    const POINT one[1] = {{5, 5}};
    CRgn r;
    EXPECT_FALSE(r.CreatePolygonRgn(one, 1, ALTERNATE));
    EXPECT_FALSE(r.CreatePolygonRgn(one, 0, WINDING));
    EXPECT_FALSE(r.CreatePolygonRgn(one, -3, ALTERNATE));
    EXPECT_FALSE(r.IsCreated());
}

TEST(CRgnRefusal, UnknownModeIsRefused) {
    const POINT square[4] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    CRgn r;
    EXPECT_FALSE(r.CreatePolygonRgn(square, 4, 0));
    EXPECT_FALSE(r.CreatePolygonRgn(square, 4, 3));
    EXPECT_FALSE(r.CreatePolygonRgn(square, 4, -1));
    EXPECT_FALSE(r.IsCreated());
    EXPECT_FALSE(r.PtInRegion(5, 5));
}

// A refused creation keeps the pixels and the box the region had.
TEST(CRgnRefusal, RefusalLeavesAnExistingRegionAsItWas) {
    const POINT square[4] = {{20, 20}, {30, 20}, {30, 30}, {20, 30}};
    CRgn r;
    MakeA(r);
    EXPECT_FALSE(r.CreatePolygonRgn(nullptr, 4, ALTERNATE));
    EXPECT_FALSE(r.CreatePolygonRgn(square, 1, ALTERNATE));
    EXPECT_FALSE(r.CreatePolygonRgn(square, 4, 7));
    EXPECT_TRUE(r.IsCreated());
    EXPECT_TRUE(HoldsExactly(r, -3, 33, InA));
    EXPECT_TRUE(r.GetRgnBox() == CRect(0, 0, 10, 10));
}

// --- Bounding box ------------------------------------------------------------------------

TEST(CRgnBox, RectangleBoxIsTheRectangle) {
    CRgn r;
    ASSERT_TRUE(r.CreateRectRgn(2, 3, 12, 8));
    const CRect box = r.GetRgnBox();
    EXPECT_EQ(box.left, 2);
    EXPECT_EQ(box.top, 3);
    EXPECT_EQ(box.right, 12);
    EXPECT_EQ(box.bottom, 8);
}

// The box holds every pixel of the region and reaches no further than the outline's corners.
TEST(CRgnBox, PolygonBoxHoldsItsPixelsWithinItsCorners) {
    const POINT triangle[3] = {{-3, 4}, {7, -2}, {1, 9}};
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(triangle, 3, ALTERNATE));
    const CRect box = r.GetRgnBox();
    EXPECT_GE(box.left, -3);
    EXPECT_GE(box.top, -2);
    EXPECT_LE(box.right, 7);
    EXPECT_LE(box.bottom, 9);
    EXPECT_TRUE(HoldsExactly(
        r, -6, 12, [&](int x, int y) { return r.PtInRegion(x, y) && box.PtInRect(CPoint(x, y)); }));
    EXPECT_TRUE(r.PtInRegion(1, 4));
}

TEST(CRgnBox, StarBoxHoldsEveryPixelOfTheStar) {
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(kStar, 5, WINDING));
    const CRect box = r.GetRgnBox();
    int inside = 0;
    for (int y = -5; y <= 105; ++y) {
        for (int x = -5; x <= 105; ++x) {
            if (r.PtInRegion(x, y)) {
                ++inside;
                EXPECT_TRUE(box.PtInRect(CPoint(x, y))) << x << ", " << y;
            }
        }
    }
    EXPECT_GT(inside, 0);
}

// --- Combining ---------------------------------------------------------------------------

TEST(CRgnCombine, AndKeepsTheOverlap) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&a, &b, RGN_AND), COMPLEXREGION);
    EXPECT_TRUE(r.IsCreated());
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) && InB(x, y); }));
    EXPECT_TRUE(r.GetRgnBox() == CRect(5, 5, 10, 10));
}

TEST(CRgnCombine, OrKeepsBoth) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&a, &b, RGN_OR), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) || InB(x, y); }));
    EXPECT_TRUE(r.GetRgnBox() == CRect(0, 0, 15, 15));
}

TEST(CRgnCombine, XorLeavesOutTheOverlap) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&a, &b, RGN_XOR), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) != InB(x, y); }));
    EXPECT_TRUE(r.GetRgnBox() == CRect(0, 0, 15, 15));
}

TEST(CRgnCombine, DiffKeepsWhatOnlyTheFirstHolds) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&a, &b, RGN_DIFF), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) && !InB(x, y); }));
}

TEST(CRgnCombine, DiffIsNotSymmetric) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&b, &a, RGN_DIFF), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InB(x, y) && !InA(x, y); }));
}

TEST(CRgnCombine, CopyTakesTheFirstAndIgnoresTheSecond) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&a, &b, RGN_COPY), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, InA));
    EXPECT_TRUE(r.GetRgnBox() == CRect(0, 0, 10, 10));
}

TEST(CRgnCombine, CopyDoesNotNeedASecondRegion) {
    CRgn a, empty, r;
    MakeA(a);
    EXPECT_EQ(r.CombineRgn(&a, nullptr, RGN_COPY), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
    CRgn s;
    EXPECT_EQ(s.CombineRgn(&a, &empty, RGN_COPY), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(s, -3, 13, InA));
}

// The result replaces what the destination held before.
TEST(CRgnCombine, ResultReplacesTheDestination) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    ASSERT_TRUE(r.CreateRectRgn(30, 30, 40, 40));
    ASSERT_EQ(r.CombineRgn(&a, &b, RGN_AND), COMPLEXREGION);
    EXPECT_FALSE(r.PtInRegion(35, 35));
    EXPECT_TRUE(r.PtInRegion(7, 7));
}

// The result keeps its pixels when its operands are later replaced or deleted.
TEST(CRgnCombine, ResultDoesNotFollowLaterChangesOfItsOperands) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    ASSERT_EQ(r.CombineRgn(&a, &b, RGN_OR), COMPLEXREGION);
    ASSERT_TRUE(a.CreateRectRgn(100, 100, 110, 110));
    b.DeleteObject();
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) || InB(x, y); }));
    EXPECT_FALSE(r.PtInRegion(105, 105));
}

// Combinations nest: (A xor B) and A is A without the overlap.
TEST(CRgnCombine, CombinedRegionsCombineFurther) {
    CRgn a, b, x, r;
    MakeA(a);
    MakeB(b);
    ASSERT_EQ(x.CombineRgn(&a, &b, RGN_XOR), COMPLEXREGION);
    ASSERT_EQ(r.CombineRgn(&x, &a, RGN_AND), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) && !InB(x, y); }));
}

// Region combined with a polygon of another fill rule: each operand keeps its own rule.
TEST(CRgnCombine, OperandsKeepTheirOwnFillRules) {
    const POINT twice[8] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 10}, {0, 10}};
    CRgn emptyRing, fullRing, r;
    ASSERT_TRUE(emptyRing.CreatePolygonRgn(twice, 8, ALTERNATE));
    ASSERT_TRUE(fullRing.CreatePolygonRgn(twice, 8, WINDING));
    r.CombineRgn(&emptyRing, &fullRing, RGN_OR);
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
    r.CombineRgn(&emptyRing, &fullRing, RGN_AND);
    EXPECT_TRUE(HoldsNothing(r, -3, 13));
}

// --- Combining a region with itself ------------------------------------------------------

TEST(CRgnCombineSelf, DestinationAsFirstOperand) {
    CRgn r, b;
    MakeA(r);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&r, &b, RGN_OR), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) || InB(x, y); }));
}

TEST(CRgnCombineSelf, DestinationAsSecondOperand) {
    CRgn a, r;
    MakeA(a);
    MakeB(r);
    EXPECT_EQ(r.CombineRgn(&a, &r, RGN_DIFF), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 18, [](int x, int y) { return InA(x, y) && !InB(x, y); }));
}

TEST(CRgnCombineSelf, AndWithItselfKeepsTheRegion) {
    CRgn r;
    MakeA(r);
    EXPECT_EQ(r.CombineRgn(&r, &r, RGN_AND), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
}

TEST(CRgnCombineSelf, OrWithItselfKeepsTheRegion) {
    CRgn r;
    MakeA(r);
    EXPECT_EQ(r.CombineRgn(&r, &r, RGN_OR), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
}

TEST(CRgnCombineSelf, XorWithItselfHoldsNoPixel) {
    CRgn r;
    MakeA(r);
    EXPECT_NE(r.CombineRgn(&r, &r, RGN_XOR), RGN_ERROR);
    EXPECT_TRUE(HoldsNothing(r, -3, 13));
}

TEST(CRgnCombineSelf, DiffWithItselfHoldsNoPixel) {
    CRgn r;
    MakeA(r);
    EXPECT_NE(r.CombineRgn(&r, &r, RGN_DIFF), RGN_ERROR);
    EXPECT_TRUE(HoldsNothing(r, -3, 13));
}

TEST(CRgnCombineSelf, CopyOfItselfKeepsTheRegion) {
    CRgn r;
    MakeA(r);
    EXPECT_EQ(r.CombineRgn(&r, nullptr, RGN_COPY), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
    EXPECT_TRUE(r.GetRgnBox() == CRect(0, 0, 10, 10));
}

// --- Return codes and errors -------------------------------------------------------------

TEST(CRgnCombineResult, DisjointAndIsANullRegion) {
    CRgn a, far, r;
    MakeA(a);
    ASSERT_TRUE(far.CreateRectRgn(20, 20, 30, 30));
    EXPECT_EQ(r.CombineRgn(&a, &far, RGN_AND), NULLREGION);
    EXPECT_TRUE(HoldsNothing(r, -3, 33));
    EXPECT_TRUE(r.GetRgnBox().IsRectEmpty());
}

// Rectangles that only share the side x = 10 have no pixel in common: A's pixels end at 9.
TEST(CRgnCombineResult, AndOfRectanglesSharingASideIsANullRegion) {
    CRgn a, beside, r;
    MakeA(a);
    ASSERT_TRUE(beside.CreateRectRgn(10, 0, 20, 10));
    EXPECT_EQ(r.CombineRgn(&a, &beside, RGN_AND), NULLREGION);
    EXPECT_TRUE(HoldsNothing(r, -3, 23));
}

// One column of overlap is enough for a non-empty result.
TEST(CRgnCombineResult, AndOfRectanglesOverlappingByOnePixelIsComplex) {
    CRgn a, beside, r;
    MakeA(a);
    ASSERT_TRUE(beside.CreateRectRgn(9, 0, 20, 10));
    EXPECT_EQ(r.CombineRgn(&a, &beside, RGN_AND), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 23, [](int x, int y) { return x == 9 && y >= 0 && y < 10; }));
}

TEST(CRgnCombineResult, DisjointOrXorDiffAreComplex) {
    CRgn a, far, r;
    MakeA(a);
    ASSERT_TRUE(far.CreateRectRgn(20, 20, 30, 30));
    EXPECT_EQ(r.CombineRgn(&a, &far, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(r.CombineRgn(&a, &far, RGN_XOR), COMPLEXREGION);
    EXPECT_EQ(r.CombineRgn(&a, &far, RGN_DIFF), COMPLEXREGION);
    EXPECT_TRUE(HoldsExactly(r, -3, 33, InA));
}

TEST(CRgnCombineResult, EmptyFirstOperandIsAnError) {
    CRgn empty, b, r;
    MakeB(b);
    for (const int mode : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY}) {
        SCOPED_TRACE(testing::Message() << "mode " << mode);
        EXPECT_EQ(r.CombineRgn(&empty, &b, mode), RGN_ERROR);
        EXPECT_FALSE(r.IsCreated());
    }
}

TEST(CRgnCombineResult, EmptySecondOperandIsAnError) {
    CRgn a, empty, r;
    MakeA(a);
    for (const int mode : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF}) {
        SCOPED_TRACE(testing::Message() << "mode " << mode);
        EXPECT_EQ(r.CombineRgn(&a, &empty, mode), RGN_ERROR);
        EXPECT_FALSE(r.IsCreated());
    }
}

TEST(CRgnCombineResult, MissingOperandIsAnError) {
    CRgn a, r;
    MakeA(a);
    EXPECT_EQ(r.CombineRgn(nullptr, &a, RGN_OR), RGN_ERROR);
    EXPECT_EQ(r.CombineRgn(&a, nullptr, RGN_AND), RGN_ERROR);
    EXPECT_FALSE(r.IsCreated());
}

TEST(CRgnCombineResult, DeletedOperandIsAnError) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    b.DeleteObject();
    EXPECT_EQ(r.CombineRgn(&a, &b, RGN_OR), RGN_ERROR);
    EXPECT_EQ(r.CombineRgn(&b, &a, RGN_OR), RGN_ERROR);
}

TEST(CRgnCombineResult, UnknownModeIsAnError) {
    CRgn a, b, r;
    MakeA(a);
    MakeB(b);
    EXPECT_EQ(r.CombineRgn(&a, &b, 0), RGN_ERROR);
    EXPECT_EQ(r.CombineRgn(&a, &b, 6), RGN_ERROR);
    EXPECT_EQ(r.CombineRgn(&a, &b, -1), RGN_ERROR);
    EXPECT_FALSE(r.IsCreated());
}

// A failed combination keeps the pixels and the box the destination had.
TEST(CRgnCombineResult, ErrorLeavesTheDestinationAsItWas) {
    CRgn a, empty, r;
    MakeA(a);
    ASSERT_TRUE(r.CreateRectRgn(20, 20, 30, 30));
    EXPECT_EQ(r.CombineRgn(&a, &empty, RGN_OR), RGN_ERROR);
    EXPECT_EQ(r.CombineRgn(&empty, &a, RGN_AND), RGN_ERROR);
    EXPECT_EQ(r.CombineRgn(&a, &a, 9), RGN_ERROR);
    EXPECT_TRUE(r.IsCreated());
    EXPECT_TRUE(HoldsExactly(r, -3, 33, [](int x, int y) { return InRect(x, y, 20, 20, 30, 30); }));
    EXPECT_TRUE(r.GetRgnBox() == CRect(20, 20, 30, 30));
}

TEST(CRgnCombineResult, ErrorWithItselfAsOperandLeavesItAsItWas) {
    CRgn r, empty;
    MakeA(r);
    EXPECT_EQ(r.CombineRgn(&r, &empty, RGN_XOR), RGN_ERROR);
    EXPECT_EQ(r.CombineRgn(&r, &r, 0), RGN_ERROR);
    EXPECT_TRUE(HoldsExactly(r, -3, 13, InA));
}

// --- Large coordinates -------------------------------------------------------------------

// Sides at +-2e9 are within 32 bits, but their differences are not: nothing may wrap round.
TEST(CRgnLarge, HugeRectangleHoldsItsCornersAndNothingBeyond) {
    constexpr int kFar = 2000000000;
    CRgn r;
    ASSERT_TRUE(r.CreateRectRgn(-kFar, -kFar, kFar, kFar));
    EXPECT_TRUE(r.PtInRegion(0, 0));
    EXPECT_TRUE(r.PtInRegion(-kFar, -kFar));
    EXPECT_TRUE(r.PtInRegion(kFar - 1, kFar - 1));
    EXPECT_TRUE(r.PtInRegion(-kFar, kFar - 1));
    EXPECT_FALSE(r.PtInRegion(kFar, 0));
    EXPECT_FALSE(r.PtInRegion(0, kFar));
    EXPECT_FALSE(r.PtInRegion(-kFar - 1, 0));
    EXPECT_FALSE(r.PtInRegion(0, -kFar - 1));
    EXPECT_FALSE(r.PtInRegion(kIntMax, kIntMax));
    EXPECT_FALSE(r.PtInRegion(kIntMin, kIntMin));
    EXPECT_TRUE(r.GetRgnBox() == CRect(-kFar, -kFar, kFar, kFar));
}

TEST(CRgnLarge, RectangleReachingTheEndsOfTheRange) {
    CRgn r;
    ASSERT_TRUE(r.CreateRectRgn(kIntMin, kIntMin, kIntMax, kIntMax));
    EXPECT_TRUE(r.PtInRegion(kIntMin, kIntMin));
    EXPECT_TRUE(r.PtInRegion(kIntMax - 1, kIntMax - 1));
    EXPECT_TRUE(r.PtInRegion(0, 0));
    EXPECT_FALSE(r.PtInRegion(kIntMax, 0));
    EXPECT_FALSE(r.PtInRegion(0, kIntMax));
}

// Triangle (-2e9, -2e9), (2e9, -2e9), (-2e9, 2e9): its diagonal is x + y = 0, a right/lower
// side. Pixel (-1, -1) has its centre sum -1 (inside); pixels (0, -1) and (-1, 0) have their
// centres on the diagonal (outside); pixel (0, 0) has sum 1 (outside).
TEST(CRgnLarge, HugeTriangleKeepsItsDiagonalBorder) {
    constexpr int kFar = 2000000000;
    const POINT triangle[3] = {{-kFar, -kFar}, {kFar, -kFar}, {-kFar, kFar}};
    CRgn r;
    ASSERT_TRUE(r.CreatePolygonRgn(triangle, 3, ALTERNATE));
    EXPECT_TRUE(r.PtInRegion(-1, -1));
    EXPECT_FALSE(r.PtInRegion(0, -1));
    EXPECT_FALSE(r.PtInRegion(-1, 0));
    EXPECT_FALSE(r.PtInRegion(0, 0));
    EXPECT_TRUE(r.PtInRegion(-kFar, -kFar));
    EXPECT_TRUE(r.PtInRegion(kFar - 2, -kFar));   // centre sum -1
    EXPECT_FALSE(r.PtInRegion(kFar - 1, -kFar));  // centre on the diagonal
    EXPECT_FALSE(r.PtInRegion(-kFar - 1, 0));
    EXPECT_TRUE(r.GetRgnBox() == CRect(-kFar, -kFar, kFar, kFar));
}

TEST(CRgnLarge, CombiningHugeRectangles) {
    constexpr int kFar = 2000000000;
    CRgn left, right, r;
    ASSERT_TRUE(left.CreateRectRgn(-kFar, -kFar, 10, kFar));
    ASSERT_TRUE(right.CreateRectRgn(-10, -kFar, kFar, kFar));
    EXPECT_EQ(r.CombineRgn(&left, &right, RGN_AND), COMPLEXREGION);
    EXPECT_TRUE(r.PtInRegion(-10, kFar - 1));
    EXPECT_TRUE(r.PtInRegion(9, -kFar));
    EXPECT_FALSE(r.PtInRegion(10, 0));
    EXPECT_FALSE(r.PtInRegion(-11, 0));
    EXPECT_TRUE(r.GetRgnBox() == CRect(-10, -kFar, 10, kFar));
    EXPECT_EQ(r.CombineRgn(&left, &right, RGN_XOR), COMPLEXREGION);
    EXPECT_TRUE(r.PtInRegion(-kFar, 0));
    EXPECT_TRUE(r.PtInRegion(kFar - 1, 0));
    EXPECT_FALSE(r.PtInRegion(0, 0));
    EXPECT_TRUE(r.GetRgnBox() == CRect(-kFar, -kFar, kFar, kFar));
}
