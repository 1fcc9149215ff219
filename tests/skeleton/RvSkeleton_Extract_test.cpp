#include <gtest/gtest.h>

#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/skeleton/RvSkeleton.h"
#include "ravelin/skeleton/SkeletonGeometry.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

// Reading offsets and arcs out of a finished skeleton, and the polygon's own skeleton.
//
// An offset point: on each arc, the point of its lower vertex's bisector at height -offset, kept
// if it lies on the arc short of its upper end (and, above a contour vertex, ahead of the lower
// vertex). The ring of points is walked from the first arc in list order that carries one: up
// to the arc beside its upper end on the left; on along that arc's upper end while the upper
// vertex changes, else back down through the lower left neighbours. The walk's points are then
// reversed. The skeletons used here are those worked out by hand in the event tests:
//
// Square (0,0), (0,10), (10,10), (10,0): lines 0 (v3 -> v4), 1 (v0 -> v4), 2 (v1 -> v5),
// 3 (v2 -> v5), 4 (v4 -> v5), v4 and v5 at (5,5); line 0's upper left neighbour is line 4, line
// 4's are line 3 (upper) and line 1 (lower), line 3's upper left is line 2, line 2's is line 4,
// line 1's is line 0.

namespace {

constexpr double kTol = 1e-9;

using Contours = std::vector<std::vector<Point>>;
using XY = std::pair<double, double>;

Contours OneContour(std::initializer_list<XY> points) {
    std::vector<Point> contour;
    for (const auto& [x, y] : points) {
        contour.push_back(Point{x, y});
    }
    Contours contours;
    contours.push_back(contour);
    return contours;
}

Contours Square() {
    return OneContour({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
}

Contours LShape() {
    return OneContour({{0, 0}, {0, 10}, {4, 10}, {4, 4}, {10, 4}, {10, 0}});
}

// The polygon holds exactly `points`, in this order, each at height `z` with its planar pair
// equal to its x and y.
void ExpectRing(const RvPolygon2D& polygon, std::initializer_list<XY> points, double z) {
    ASSERT_EQ(polygon.size(), points.size());
    std::size_t k = 0;
    for (const auto& [x, y] : points) {
        const RvPoint2D& p = polygon[k];
        EXPECT_NEAR(p.x, x, kTol) << "point " << k;
        EXPECT_NEAR(p.y, y, kTol) << "point " << k;
        EXPECT_DOUBLE_EQ(p.z, z) << "point " << k;
        EXPECT_DOUBLE_EQ(p.x2D, p.x) << "point " << k;
        EXPECT_DOUBLE_EQ(p.y2D, p.y) << "point " << k;
        ++k;
    }
}

bool AllExtendPointsInfinite(const RvSkeleton& s) {
    for (const SkeletonLine& line : s) {
        if (!IsInfinite(line.extendPoint)) {
            return false;
        }
    }
    return true;
}

RvPolygon2D CwSquarePolygon(double z = 0.0) {
    return Ring({RvPoint2D(0, 0, 0, 0, z), RvPoint2D(0, 10, 0, 10, z), RvPoint2D(10, 10, 10, 10, z),
                 RvPoint2D(10, 0, 10, 0, z)});
}

RvPolygon2D CcwSquarePolygon() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

// ---- The square -----------------------------------------------------------------------------

// At -2 each contour corner's bisector reaches height 2 at 2 * sqrt(2) from the corner: line 0
// (from (10,0)) gives (8,2), line 1 (from (0,0)) gives (2,2), line 2 (from (0,10)) (2,8),
// line 3 (from (10,10)) (8,8). Line 4 rises from v4, whose bisector runs along its previous edge,
// so no height is ever reached on it. The walk starts at line 0 (8,2); its upper left neighbour
// is line 4, whose upper vertex (v5) differs from line 0's (v4), so it goes on forward: line 4
// has no point, its upper left neighbour line 3 shares its upper vertex, so the walk turns and
// takes (8,8); from line 3 to line 2 (2,8); from line 2 to line 4, down to its lower left
// neighbour line 1 (2,2); then line 0 again, where it ends. Reversed: (2,2), (2,8), (8,8), (8,2).
TEST(RvSkeletonExtract, SquareAtMinusTwoGivesTheSquareOfSideSix) {
    Contours c = Square();
    RvSkeleton s(c);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(-2, 0, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 2}, {2, 8}, {8, 8}, {8, 2}}, 0);
    EXPECT_TRUE(AllExtendPointsInfinite(s));
}

// At -5 every corner's point is (5,5), exactly the upper end of its arc, which belongs to the
// arcs above and is refused; beyond, the points fall outside the arcs. Nothing is appended.
TEST(RvSkeletonExtract, SquareAtMinusFiveOrBeyondGivesNothing) {
    Contours c = Square();
    RvSkeleton s(c);
    for (double offset : {-5.0, -6.0, -20.0}) {
        std::vector<RvPolygon2D> result(1);
        EXPECT_TRUE(s.GetExtendPolygons(offset, 0, result));
        EXPECT_EQ(result.size(), 1u) << "offset " << offset;
        EXPECT_TRUE(result[0].empty());
        EXPECT_TRUE(AllExtendPointsInfinite(s));
    }
}

// At 0 each point is its arc's contour corner, and the same walk gives the contour back in its
// own order.
TEST(RvSkeletonExtract, SquareAtZeroGivesTheContourItself) {
    Contours c = Square();
    RvSkeleton s(c);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(0, 0, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0, 0}, {0, 10}, {10, 10}, {10, 0}}, 0);
}

// At +2 the points lie behind the contour corners, 2 * sqrt(2) outwards on the bisectors' lines:
// accepted, since nothing bounds a contour vertex's arc from below. Mitred corners, side 14.
TEST(RvSkeletonExtract, SquareAtPlusTwoGrowsToTheSquareOfSideFourteen) {
    Contours c = Square();
    RvSkeleton s(c);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(2, 0, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{-2, -2}, {-2, 12}, {12, 12}, {12, -2}}, 0);
}

TEST(RvSkeletonExtract, EveryPointTakesTheGivenHeightAsItsThirdCoordinate) {
    Contours c = Square();
    RvSkeleton s(c);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(-2, 4.5, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 2}, {2, 8}, {8, 8}, {8, 2}}, 4.5);
}

// Each call computes its own points and resets them all afterwards.
TEST(RvSkeletonExtract, TwoCallsOnOneSkeletonGiveTwoIndependentResults) {
    Contours c = Square();
    RvSkeleton s(c);
    std::vector<RvPolygon2D> first;
    EXPECT_TRUE(s.GetExtendPolygons(-2, 0, first));
    EXPECT_TRUE(AllExtendPointsInfinite(s));
    std::vector<RvPolygon2D> second;
    EXPECT_TRUE(s.GetExtendPolygons(-3, 0, second));
    EXPECT_TRUE(AllExtendPointsInfinite(s));
    ASSERT_EQ(first.size(), 1u);
    ASSERT_EQ(second.size(), 1u);
    ExpectRing(first[0], {{2, 2}, {2, 8}, {8, 8}, {8, 2}}, 0);
    ExpectRing(second[0], {{3, 3}, {3, 7}, {7, 7}, {7, 3}}, 0);
}

// ---- The L shape and the rectangle ------------------------------------------------------------

// The L (0,0), (0,10), (4,10), (4,4), (10,4), (10,0) has lines 0 (v1 -> v6 (2,8)), 1 (v2 -> v6),
// 2 (v4 -> v7 (8,2)), 3 (v5 -> v7), 4 (v0 -> v8 (2,2)), 5 (v6 -> v8), 6 (v3 -> v9 (2,2)),
// 7 (v7 -> v9), 8 (v8 -> v9). At -1 the contour corners give (1,9), (3,9), (9,3), (9,1), (1,1),
// and (3,3) from (4,4) on line 6. Lines 5 and 7 rise from vertices moving along their previous
// edge (no height is reached), and line 8 has zero length, pointing nowhere near (3,1).
// Walk: line 0 (1,9); up to line 5 (upper vertex v8, not v6: forward), which shares v8 with
// line 4: turn, (1,1); line 4's upper left is line 8 (v9): forward; line 8 to line 7 (shares v9):
// turn, down line 7's lower left to line 3, (9,1); line 3 to line 2 (same v7), (9,3); line 2 to
// line 7 (v9, not v7): forward; to line 6 (same v9): turn, (3,3); line 6 to line 8, down to line
// 5, down to line 1, (3,9); then line 0 again. Reversed, the six points below.
TEST(RvSkeletonExtract, LShapeAtMinusOneGivesSixPointsAndAtMinusTwoNothing) {
    Contours c = LShape();
    RvSkeleton s(c);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(-1, 0, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{3, 9}, {3, 3}, {9, 3}, {9, 1}, {1, 1}, {1, 9}}, 0);

    // At -2 every corner point is the upper end of its arc ((2,8), (8,2), (2,2)), and the lines
    // from moving vertices give no point.
    std::vector<RvPolygon2D> none;
    EXPECT_TRUE(s.GetExtendPolygons(-2, 0, none));
    EXPECT_TRUE(none.empty());
    EXPECT_TRUE(AllExtendPointsInfinite(s));
}

// The rectangle (0,0), (0,2), (4,2), (4,0): lines 0 (v0 -> v4 (1,1)), 1 (v1 -> v4), 2 (v2 -> v5
// (3,1)), 3 (v3 -> v5), 4 (v4 -> v5, the ridge). At -0.5 the corners give (0.5,0.5),
// (0.5,1.5), (3.5,1.5), (3.5,0.5); the ridge rises from v4, which moves along its edges, and
// carries nothing. Walk: line 0; up to line 4 (v5, not v4: forward); to line 3 (same v5): turn,
// (3.5,0.5); line 2 (3.5,1.5); line 4 again, down to line 1 (0.5,1.5); line 0. Reversed.
//
// At -1, the ridge's own height, the four corner points are the ridge's two ends, each the upper
// end of its arc and refused, and the ridge itself has no point: nothing, not even a degenerate
// ring along the ridge.
TEST(RvSkeletonExtract, RectangleAtMinusHalfGivesARingAndAtTheRidgeHeightNothing) {
    Contours c = OneContour({{0, 0}, {0, 2}, {4, 2}, {4, 0}});
    RvSkeleton s(c);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(-0.5, 0, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0.5, 1.5}, {3.5, 1.5}, {3.5, 0.5}, {0.5, 0.5}}, 0);

    std::vector<RvPolygon2D> atRidge;
    EXPECT_TRUE(s.GetExtendPolygons(-1, 0, atRidge));
    EXPECT_TRUE(atRidge.empty());
    EXPECT_TRUE(AllExtendPointsInfinite(s));
}

// ---- Rings through splits and closures --------------------------------------------------------

// The notched rectangle (0,0), (0,12), (7,12), (10,8), (13,12), (20,12), (20,0) splits at (10,3)
// (height 3) into two rings. Its lines: 0 (v3 -> v7), 1 (v7 -> v8), 2 (v8 -> v7), 3 (v1 -> v9),
// 4 (v2 -> v9), 5 (v4 -> v10), 6 (v5 -> v10), 7 (v6 -> v11), 8 (v7 -> v11), 9 (v10 -> v11),
// 10 (v0 -> v12), 11 (v9 -> v12), 12 (v8 -> v12). At -4 (height 4): (4,8) on line 3, (5,8) on
// line 4 (the bisector of (7,12) runs along (-1,-2)), (15,8) and (16,8) on lines 5 and 6, (16,4)
// on line 7, (12,4) on line 8 (from (10,3) along (2,1), one up), (4,4) on line 10 and (8,4) on
// line 12 (from (10,3) along (-2,1)). The apex's line ends at height 3; lines 9 and 11 start
// above height 4 (the point lies behind their lower vertex); the zero-length pair points nowhere.
// First ring from line 3: (4,8); line 11 turns to line 10, (4,4); line 12, (8,4); back by
// line 11's lower left, line 4, (5,8); line 3. Second ring from line 5: (15,8); line 9 turns to
// line 8, (12,4); line 7, (16,4); line 9's lower left, line 6, (16,8); line 5. Each reversed.
TEST(RvSkeletonExtract, NotchedRectangleBelowItsSplitGivesOneRingOnEachSide) {
    Contours c = OneContour({{0, 0}, {0, 12}, {7, 12}, {10, 8}, {13, 12}, {20, 12}, {20, 0}});
    RvSkeleton s(c);
    ASSERT_EQ(s.size(), 13u);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(-4, 0, result));
    ASSERT_EQ(result.size(), 2u);
    ExpectRing(result[0], {{5, 8}, {8, 4}, {4, 4}, {4, 8}}, 0);
    ExpectRing(result[1], {{16, 8}, {16, 4}, {12, 4}, {15, 8}}, 0);
    EXPECT_TRUE(AllExtendPointsInfinite(s));
}

// The thin arm (0,0), (0,1), (8,1), (8,3), (10,3), (10,0): lines 0 (v0 -> v6 (0.5,0.5)),
// 1 (v1 -> v6), 2 (v2 -> v7 (8.5,0.5)), 3 (v7 -> v8), 4 (v8 -> v7), 5 (v8 -> v6, the arc closing
// the two-vertex ring), 6 (v5 -> v9 (9,1)), 7 (v7 -> v9), 8 (v3 -> v10 (9,2)), 9 (v4 -> v10),
// 10 (v9 -> v10). At -0.25 the contour corners give (0.25,0.25), (0.25,0.75), (8.25,0.75),
// (9.75,0.25), (8.25,2.75), (9.75,2.75); line 7's point (8.25,0.25) lies behind v7 and is
// refused. Walk from line 0: its upper left neighbour line 5 ends at the same v6, so back down:
// line 5's lower left line 4, then line 3, which has none: forward again from line 3 to line 7,
// which shares v9 with line 6: (9.75,0.25); line 10 (v10, not v9: forward) to line 9, (9.75,2.75);
// line 8, (8.25,2.75); line 10, down to line 7, down to line 2, (8.25,0.75); line 2's upper left
// is line 5 (v6, not v7: forward), whose upper left line 1 shares v6: (0.25,0.75); line 0.
TEST(RvSkeletonExtract, ThinArmRingRunsThroughTheSplitArcsAndTheClosingArc) {
    Contours c = OneContour({{0, 0}, {0, 1}, {8, 1}, {8, 3}, {10, 3}, {10, 0}});
    RvSkeleton s(c);
    ASSERT_EQ(s.size(), 11u);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(-0.25, 0, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0],
               {{0.25, 0.75}, {8.25, 0.75}, {8.25, 2.75}, {9.75, 2.75}, {9.75, 0.25}, {0.25, 0.25}},
               0);
    EXPECT_TRUE(AllExtendPointsInfinite(s));
}

// A single arc from a contour corner at (0,0) (bisector pi/4) up to a vertex at (5,5), with no
// neighbours at all. At -2 it carries (2,2). The walk starts there and has no upper left
// neighbour to go to: the missing arc counts as a vertex id of -1, and the walk ends with a ring
// of one point.
TEST(RvSkeletonExtract, ArcWithoutUpperLeftNeighbourEndsTheWalk) {
    SkeletonVertex bottom(Point{0, 0}, Point{10, 0}, Point{0, 10});
    bottom.id = 0;
    bottom.leftParent = &bottom;
    bottom.rightParent = &bottom;
    SkeletonVertex top(Point{5, 5}, Point{0, 0}, Point{10, 0});
    top.id = 1;
    RvSkeleton s;
    SkeletonLine& line = s.emplace_back();
    line.lower.vertex = &bottom;
    line.higher.vertex = &top;

    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s.GetExtendPolygons(-2, 1, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 2}}, 1);
    EXPECT_TRUE(IsInfinite(line.extendPoint));
}

// ---- Empty skeletons and the arcs as polylines --------------------------------------------------

TEST(RvSkeletonExtract, EmptySkeletonGivesNothingAndReportsSuccess) {
    RvSkeleton empty;
    std::vector<RvPolygon2D> polygons(1);
    std::vector<RvPolyLine2D> lines(1);
    EXPECT_TRUE(empty.GetExtendPolygons(-1, 0, polygons));
    EXPECT_TRUE(empty.GetSkeletonPolygons(0, lines));
    EXPECT_EQ(polygons.size(), 1u);
    EXPECT_EQ(lines.size(), 1u);

    // Two points make no skeleton either.
    Contours c = OneContour({{0, 0}, {5, 5}});
    RvSkeleton twoPoints(c);
    EXPECT_TRUE(twoPoints.empty());
    EXPECT_TRUE(twoPoints.GetExtendPolygons(-1, 0, polygons));
    EXPECT_EQ(polygons.size(), 1u);
}

// One two-point polyline per line, in list order, from the lower vertex to the upper one, at the
// given height; the notch's zero-length pair of split arcs is among them.
TEST(RvSkeletonExtract, SkeletonPolygonsAreOneTwoPointPolylinePerLineAtTheGivenHeight) {
    Contours c = OneContour({{0, 0}, {0, 12}, {7, 12}, {10, 8}, {13, 12}, {20, 12}, {20, 0}});
    RvSkeleton s(c);
    std::vector<RvPolyLine2D> result(1);  // appended to
    EXPECT_TRUE(s.GetSkeletonPolygons(2.5, result));
    ASSERT_EQ(result.size(), 14u);
    EXPECT_TRUE(result[0].empty());
    const double t = 1.0 / 3;
    const std::vector<std::pair<XY, XY>> expected = {
        {{10, 8}, {10, 3}},           {{10, 3}, {10, 3}},
        {{10, 3}, {10, 3}},           {{0, 12}, {14 * t, 22 * t}},
        {{7, 12}, {14 * t, 22 * t}},  {{13, 12}, {46 * t, 22 * t}},
        {{20, 12}, {46 * t, 22 * t}}, {{20, 0}, {44 * t, 16 * t}},
        {{10, 3}, {44 * t, 16 * t}},  {{46 * t, 22 * t}, {44 * t, 16 * t}},
        {{0, 0}, {16 * t, 16 * t}},   {{14 * t, 22 * t}, {16 * t, 16 * t}},
        {{10, 3}, {16 * t, 16 * t}}};
    for (std::size_t k = 0; k < expected.size(); ++k) {
        const RvPolyLine2D& path = result[k + 1];
        ASSERT_EQ(path.size(), 2u) << "line " << k;
        ExpectXyzNear(path[0], expected[k].first.first, expected[k].first.second, 2.5, kTol);
        ExpectXyzNear(path[1], expected[k].second.first, expected[k].second.second, 2.5, kTol);
        EXPECT_DOUBLE_EQ(path[0].x2D, path[0].x);
        EXPECT_DOUBLE_EQ(path[1].y2D, path[1].y);
    }
}

// ---- The polygon's own skeleton ---------------------------------------------------------------

TEST(RvPolygon2DSkeletonOffset, EmptyPolygonGivesNothingAndMakesNoSkeleton) {
    RvPolygon2D p;
    std::vector<RvPolygon2D> result(1);
    p.GetExtendSKELET(-1, result);
    EXPECT_EQ(result.size(), 1u);
    EXPECT_EQ(p.m_pSkeleton, nullptr);
}

TEST(RvPolygon2DSkeletonOffset, ClockwisePolygonKeepsItsPointsAndItsSkeletonIsMadeOnce) {
    RvPolygon2D p = CwSquarePolygon();
    RvSkeleton* s = p.GetSkelet();
    ASSERT_NE(s, nullptr);
    EXPECT_EQ(p.m_pSkeleton, s);
    EXPECT_EQ(s->size(), 5u);
    EXPECT_TRUE(PlanarIs(p[0], 0, 0));
    EXPECT_TRUE(PlanarIs(p[1], 0, 10));
    EXPECT_TRUE(PlanarIs(p[2], 10, 10));
    EXPECT_TRUE(PlanarIs(p[3], 10, 0));
    EXPECT_EQ(p.GetSkelet(), s);
}

// A counterclockwise square is reversed in place before its skeleton is made, and stays so: the
// points become (0,10), (10,10), (10,0), (0,0), a clockwise square whose run is the square's run
// turned a quarter about (5,5), so its offset at -2 starts at the corner of (0,10).
TEST(RvPolygon2DSkeletonOffset, CounterclockwisePolygonIsReversedForEveryLaterUser) {
    RvPolygon2D p = CcwSquarePolygon();
    ASSERT_GT(static_cast<double>(p.GetOrientation()), 0.0);
    RvSkeleton* s = p.GetSkelet();
    ASSERT_NE(s, nullptr);
    EXPECT_EQ(s->size(), 5u);
    ASSERT_EQ(p.size(), 4u);
    EXPECT_TRUE(PlanarIs(p[0], 0, 10));
    EXPECT_TRUE(PlanarIs(p[1], 10, 10));
    EXPECT_TRUE(PlanarIs(p[2], 10, 0));
    EXPECT_TRUE(PlanarIs(p[3], 0, 0));
    EXPECT_LT(static_cast<double>(p.GetOrientation()), 0.0);
    // A later request serves the same skeleton and does not turn the points back.
    EXPECT_EQ(p.GetSkelet(), s);
    EXPECT_TRUE(PlanarIs(p[0], 0, 10));
    const RvPolygon2D later(p);
    EXPECT_TRUE(PlanarIs(later[0], 0, 10));

    std::vector<RvPolygon2D> result;
    p.GetExtendSKELET(-2, result);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 8}, {8, 8}, {8, 2}, {2, 2}}, 0);
}

// The height of the offset is that of the polygon's first point before any reversal: 3 here,
// although after the reversal the first point is the old last one, at 9.
TEST(RvPolygon2DSkeletonOffset, OffsetTakesTheHeightOfTheFirstPointReadBeforeReversing) {
    RvPolygon2D p = Ring({RvPoint2D(0, 0, 0, 0, 3), RvPoint2D(10, 0, 10, 0, 5),
                          RvPoint2D(10, 10, 10, 10, 7), RvPoint2D(0, 10, 0, 10, 9)});
    std::vector<RvPolygon2D> result;
    p.GetExtendSKELET(-2, result);
    EXPECT_DOUBLE_EQ(p[0].z, 9.0);  // reversed
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 8}, {8, 8}, {8, 2}, {2, 2}}, 3);
}

TEST(RvPolygon2DSkeletonOffset, CopyStartsWithoutTheSkeletonAndBuildsItsOwn) {
    RvPolygon2D p = CwSquarePolygon();
    RvSkeleton* original = p.GetSkelet();
    RvPolygon2D copy(p);
    EXPECT_EQ(copy.m_pSkeleton, nullptr);
    RvSkeleton* own = copy.GetSkelet();
    ASSERT_NE(own, nullptr);
    EXPECT_NE(own, original);
    EXPECT_EQ(own->size(), 5u);
    EXPECT_EQ(p.m_pSkeleton, original);
}

// The skeleton once made is kept when the points move: the offset still reads the old square,
// only its height comes from the current first point.
TEST(RvPolygon2DSkeletonOffset, SkeletonIsServedAgainAfterThePointsChange) {
    RvPolygon2D p = CwSquarePolygon();
    RvSkeleton* s = p.GetSkelet();
    p[2] = RvPoint2D(30, 30, 30, 30, 0);
    p.Locate(7);
    EXPECT_EQ(p.GetSkelet(), s);
    std::vector<RvPolygon2D> result;
    p.GetExtendSKELET(-2, result);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 2}, {2, 8}, {8, 8}, {8, 2}}, 7);
}

// Assignment drops the target's skeleton (the sanitizer build would report it if it were not
// freed); the next request builds one from the new points: the 4 by 2 rectangle's, whose last
// line is the ridge from (1,1) to (3,1).
TEST(RvPolygon2DSkeletonOffset, AssignmentDropsTheSkeletonAndTheNextOneFollowsTheNewPoints) {
    RvPolygon2D target = CwSquarePolygon();
    ASSERT_NE(target.GetSkelet(), nullptr);
    const RvPolygon2D source =
        Ring({RvPoint2D(0, 0), RvPoint2D(0, 2), RvPoint2D(4, 2), RvPoint2D(4, 0)});
    target = source;
    EXPECT_EQ(target.m_pSkeleton, nullptr);
    EXPECT_EQ(source.m_pSkeleton, nullptr);
    RvSkeleton* rebuilt = target.GetSkelet();
    ASSERT_NE(rebuilt, nullptr);
    ASSERT_EQ(rebuilt->size(), 5u);
    const SkeletonLine& ridge = rebuilt->back();
    EXPECT_NEAR(ridge.lower.vertex->point.x, 1, kTol);
    EXPECT_NEAR(ridge.lower.vertex->point.y, 1, kTol);
    EXPECT_NEAR(ridge.higher.vertex->point.x, 3, kTol);
    EXPECT_NEAR(ridge.higher.vertex->point.y, 1, kTol);
}

// ReInit forgets the skeleton without destroying it: the object stays whole and usable. The
// polygon no longer owns it, so the test frees it.
TEST(RvPolygon2DSkeletonOffset, ReInitForgetsABuiltSkeletonWhichStaysUsable) {
    RvPolygon2D p = CwSquarePolygon();
    RvSkeleton* s = p.GetSkelet();
    ASSERT_NE(s, nullptr);
    p.ReInit();
    EXPECT_EQ(p.m_pSkeleton, nullptr);
    EXPECT_TRUE(p.empty());
    ASSERT_EQ(s->size(), 5u);
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(s->GetExtendPolygons(-2, 0, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 2}, {2, 8}, {8, 8}, {8, 2}}, 0);
    delete s;
}

}  // namespace
