#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private choice of distances by an outline.
struct RvPolygon2DTestAccess {
    static std::vector<double> GetOutlineDistances(const RvPolygon2D& polygon, double first,
                                                   double second, const RvPolyLine2D& outline) {
        return polygon.GetOutlineDistances(first, second, outline);
    }
};

namespace {

using testing_support::ExpectThrowWithMessage;
using testing_support::ExpectVerticesNear;
using testing_support::Path;
using testing_support::Ring;
using testing_support::SameVertices;

const RvPoint3D kUp(0, 0, 1);
const RvPoint3D kDown(0, 0, -1);

// The counterclockwise 10 x 10 square at the origin.
RvPolygon2D Square() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// The counterclockwise 20 x 6 rectangle at the origin.
RvPolygon2D Rectangle() {
    return Ring({{0, 0}, {20, 0}, {20, 6}, {0, 6}});
}

// A U standing on its base: two arms 4 wide either side of a slot 2 wide that reaches down to
// y = 2, over a base 2 thick.
RvPolygon2D UShape() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {6, 10}, {6, 2}, {4, 2}, {4, 10}, {0, 10}});
}

// The 10 x 10 square with its lower left corner notched out, 3 wide and 2 high. The ring starts
// so that edge 0 is the bottom (3, 0)-(10, 0) and the last edge the short step (3, 2)-(3, 0).
RvPolygon2D NotchedSquare() {
    return Ring({{10, 0}, {10, 10}, {0, 10}, {0, 2}, {3, 2}, {3, 0}});
}

// The outline along the x axis, running +x.
RvPolyLine2D OutlineAlongX() {
    return Path({RvPoint2D(-100, 0), RvPoint2D(100, 0)});
}

// Each entry of `distances` within 1e-9 of the one expected.
void ExpectDistances(const std::vector<double>& distances, std::initializer_list<double> expected) {
    ASSERT_EQ(distances.size(), expected.size());
    std::size_t k = 0;
    for (const double d : expected) {
        EXPECT_NEAR(distances[k], d, 1e-9) << "entry " << k;
        ++k;
    }
}

// ---- Ways out before any moving --------------------------------------------------------------

TEST(RvPolygon2DGetOffsetEx, OneDistanceGivesACopyWhateverItsValue) {
    RvPolygon2D p = Square();
    const RvPolygon2D before(p);
    int checked = 0;
    for (const double d : {0.0, 5.0, -100.0}) {
        SCOPED_TRACE("distance " + std::to_string(d));
        std::vector<double> distances{d};
        EXPECT_TRUE(SameVertices(p.GetOffsetEx(distances, kUp), before));
        ExpectDistances(distances, {d});
        std::vector<double> distances2{d};
        EXPECT_TRUE(SameVertices(p.GetOffsetEx2(distances2, kUp), before));
        ExpectDistances(distances2, {d});
        ++checked;
    }
    EXPECT_EQ(checked, 3);
    EXPECT_TRUE(SameVertices(p, before));
}

TEST(RvPolygon2DGetOffsetEx, NoDistancesGiveACopy) {
    RvPolygon2D p = Square();
    std::vector<double> distances;
    EXPECT_TRUE(SameVertices(p.GetOffsetEx(distances, kUp), Square()));
    EXPECT_TRUE(SameVertices(p.GetOffsetEx2(distances, kUp), Square()));
    EXPECT_TRUE(distances.empty());
}

TEST(RvPolygon2DGetOffsetEx, NullNormalGivesAnEmptyPolygon) {
    RvPolygon2D p = Square();
    std::vector<double> distances{1, 2, 3, 4};
    EXPECT_TRUE(p.GetOffsetEx(distances, RvPoint3D(0, 0, 0)).empty());
    EXPECT_TRUE(p.GetOffsetEx2(distances, RvPoint3D(0, 0, 0)).empty());
    // Nothing moved, so nothing of the distances was used up.
    ExpectDistances(distances, {1, 2, 3, 4});
    EXPECT_TRUE(SameVertices(p, Square()));
}

TEST(RvPolygon2DGetOffsetEx, TooFewDistancesForTheEdgesThrow) {
    // Four edges read entries 0 to 3; entry 3 is missing.
    RvPolygon2D p = Square();
    std::vector<double> distances{1, 1, 1};
    ExpectThrowWithMessage<std::out_of_range>([&] { (void)p.GetOffsetEx(distances, kUp); },
                                              "invalid vector<T> subscript");
    std::vector<double> distances2{1, 1, 1};
    ExpectThrowWithMessage<std::out_of_range>([&] { (void)p.GetOffsetEx2(distances2, kUp); },
                                              "invalid vector<T> subscript");
}

// ---- Mitred per-edge offsets -----------------------------------------------------------------

TEST(RvPolygon2DGetOffsetEx, SquareGrowsEachEdgeByItsOwnDistance) {
    // Entry i moves the edge that ends at vertex i: entry 0 the left edge (closing edge from
    // (0, 10) to (0, 0)) to x = -1, entry 1 the bottom to y = -2, entry 2 the right edge to
    // x = 13, entry 3 the top to y = 14. Vertex i is where edge i meets edge i + 1.
    const RvPolygon2D p = Square();
    std::vector<double> distances{1, 2, 3, 4};
    const RvPolygon2D result = p.GetOffsetEx(distances, kUp);
    ExpectVerticesNear(result, {{-1, -2}, {13, -2}, {13, 14}, {-1, 14}});
    ExpectDistances(distances, {0, 0, 0, 0});
}

TEST(RvPolygon2DGetOffsetEx, StraightVertexWhereTheRingClosesMovesOnce) {
    // A straight vertex at the start or the end of the ring is dropped by the working copy, so
    // it is not moved once by each of the two edges along its line into a spike.
    for (const RvPolygon2D& ring : {Ring({{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}),
                                    Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}})}) {
        for (const int useEx2 : {0, 1}) {
            SCOPED_TRACE(useEx2);
            RvPolygon2D copy = ring;
            const RvPolygon2D result = copy.GetOffsetEx(1.0, kUp, useEx2);
            ASSERT_EQ(result.size(), 4u);
            EXPECT_TRUE(result == Ring({{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}));
        }
    }
}

TEST(RvPolygon2DGetOffsetEx, RectangleMovesEdgesInAndOutByTheirOwnDistances) {
    // Left edge in by 1 to x = 1, bottom in by 0.5 to y = 0.5, right edge in by 2 to x = 18, top
    // out by 1 to y = 7. Every neighbour stays longer than any move, so nothing is limited.
    const RvPolygon2D p = Rectangle();
    std::vector<double> distances{-1, -0.5, -2, 1};
    const RvPolygon2D result = p.GetOffsetEx(distances, kUp);
    ExpectVerticesNear(result, {{1, 0.5}, {18, 0.5}, {18, 7}, {1, 7}});
    ExpectDistances(distances, {0, 0, 0, 0});
}

TEST(RvPolygon2DGetOffsetEx2, SquareGrowsEachEdgeByItsOwnDistance) {
    RvPolygon2D p = Square();
    std::vector<double> distances{1, 2, 3, 4};
    const RvPolygon2D result = p.GetOffsetEx2(distances, kUp);
    ExpectVerticesNear(result, {{-1, -2}, {13, -2}, {13, 14}, {-1, 14}});
    ExpectDistances(distances, {0, 0, 0, 0});
    // The polygon itself is only read.
    EXPECT_TRUE(SameVertices(p, Square()));
}

TEST(RvPolygon2DGetOffsetEx2, RectangleMovesEdgesInAndOutByTheirOwnDistances) {
    RvPolygon2D p = Rectangle();
    std::vector<double> distances{-1, -0.5, -2, 1};
    const RvPolygon2D result = p.GetOffsetEx2(distances, kUp);
    ExpectVerticesNear(result, {{1, 0.5}, {18, 0.5}, {18, 7}, {1, 7}});
    ExpectDistances(distances, {0, 0, 0, 0});
}

// ---- The caller's normal -----------------------------------------------------------------------

TEST(RvPolygon2DGetOffsetEx, ClockwiseRingAboutUpNormalMovesPositiveDistancesInward) {
    // The outer normal is N x B. For the edge from (0, 0) up to (0, 10), B = (0, -1) and
    // (0, 0, 1) x (0, -1, 0) = (1, 0, 0): into the clockwise square. So a positive distance
    // shrinks it: bottom (entry 0) to y = 1, left (entry 1) to x = 2, top to y = 9, right to
    // x = 8.
    RvPolygon2D p = Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
    int checked = 0;
    for (const bool ex2 : {false, true}) {
        SCOPED_TRACE(ex2 ? "GetOffsetEx2" : "GetOffsetEx");
        std::vector<double> distances{1, 2, 1, 2};
        const RvPolygon2D result =
            ex2 ? p.GetOffsetEx2(distances, kUp) : p.GetOffsetEx(distances, kUp);
        ExpectVerticesNear(result, {{2, 1}, {2, 9}, {8, 9}, {8, 1}});
        ExpectDistances(distances, {0, 0, 0, 0});
        ++checked;
    }
    EXPECT_EQ(checked, 2);
}

TEST(RvPolygon2DGetOffsetEx, CounterclockwiseRingAboutDownNormalMovesPositiveDistancesInward) {
    // For the bottom edge B = (-1, 0) and (0, 0, -1) x (-1, 0, 0) = (0, 1, 0): inward. Left edge
    // to x = 1, bottom to y = 2, right to x = 7, top to y = 6.
    RvPolygon2D p = Square();
    int checked = 0;
    for (const bool ex2 : {false, true}) {
        SCOPED_TRACE(ex2 ? "GetOffsetEx2" : "GetOffsetEx");
        std::vector<double> distances{1, 2, 3, 4};
        const RvPolygon2D result =
            ex2 ? p.GetOffsetEx2(distances, kDown) : p.GetOffsetEx(distances, kDown);
        ExpectVerticesNear(result, {{1, 2}, {7, 2}, {7, 6}, {1, 6}});
        ExpectDistances(distances, {0, 0, 0, 0});
        ++checked;
    }
    EXPECT_EQ(checked, 2);
}

// ---- Straight vertices -------------------------------------------------------------------------

TEST(RvPolygon2DGetOffsetEx, CollinearInputVertexIsDroppedAndLaterEntriesShift) {
    // (5, 0) lies on the bottom edge, so the working copy holds four vertices: entry 0 is the
    // left edge, entry 1 the whole bottom, entry 2 the right edge (it ends at the copy's vertex
    // 2, (10, 10)), entry 3 the top; entry 4 belongs to no edge and is left as it was.
    const RvPolygon2D p = Ring({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}});
    std::vector<double> distances{1, 2, 3, 4, 5};
    const RvPolygon2D result = p.GetOffsetEx(distances, kUp);
    ExpectVerticesNear(result, {{-1, -2}, {13, -2}, {13, 14}, {-1, 14}});
    ExpectDistances(distances, {0, 0, 0, 0, 5});
}

TEST(RvPolygon2DGetOffsetEx, CollapsedStepLeavesNoStraightVertex) {
    // The top steps up by 2 at x = 5. Raising the lower top (10, 10)-(5, 10) by 2 shrinks the
    // step to nothing: it is dropped as a null edge, and (5, 12) is left straight between
    // (10, 12) and (0, 12), so it goes too.
    RvPolygon2D p = Ring({{0, 0}, {10, 0}, {10, 10}, {5, 10}, {5, 12}, {0, 12}});
    int checked = 0;
    for (const bool ex2 : {false, true}) {
        SCOPED_TRACE(ex2 ? "GetOffsetEx2" : "GetOffsetEx");
        std::vector<double> distances{0, 0, 0, 2, 0, 0};
        const RvPolygon2D result =
            ex2 ? p.GetOffsetEx2(distances, kUp) : p.GetOffsetEx(distances, kUp);
        ExpectVerticesNear(result, {{0, 0}, {10, 0}, {10, 12}, {0, 12}});
        ExpectDistances(distances, {0, 0, 0, 0, 0, 0});
        ++checked;
    }
    EXPECT_EQ(checked, 2);
}

// ---- A ring that crosses itself ---------------------------------------------------------------

TEST(RvPolygon2DGetOffsetEx, SelfCrossingOffsetKeepsTheLastTracedLoop) {
    // Shrunk by 1.5 the U's edges meet at (1.5, 1.5), (8.5, 1.5), (8.5, 8.5), (7.5, 8.5),
    // (7.5, 0.5), (2.5, 0.5), (2.5, 8.5), (1.5, 8.5): the slot bottom drops to y = 0.5, below
    // the base raised to y = 1.5, and the base crosses the slot's sides at (2.5, 1.5) and
    // (7.5, 1.5). The tracing starts at vertex 0 and turns off at (2.5, 1.5) up the left arm;
    // before closing that loop it traces what is left at (2.5, 1.5), and within that what is
    // left at (7.5, 1.5): the right arm is appended first, then the strip below the base, and
    // the left arm, the loop the tracing started with, last. That one is the result.
    const RvPolygon2D p = UShape();
    std::vector<double> distances(8, -1.5);
    const RvPolygon2D result = p.GetOffsetEx(distances, kUp);
    ExpectVerticesNear(result, {{1.5, 1.5}, {2.5, 1.5}, {2.5, 8.5}, {1.5, 8.5}});
    ExpectDistances(distances, {0, 0, 0, 0, 0, 0, 0, 0});
}

TEST(RvPolygon2DGetOffsetEx2, SelfCrossingOffsetKeepsTheLastTracedLoop) {
    // No neighbour runs out before its edge is done, so the moved ring is the same as by
    // GetOffsetEx, and so is its tracing.
    RvPolygon2D p = UShape();
    std::vector<double> distances(8, -1.5);
    const RvPolygon2D result = p.GetOffsetEx2(distances, kUp);
    ExpectVerticesNear(result, {{1.5, 1.5}, {2.5, 1.5}, {2.5, 8.5}, {1.5, 8.5}});
    ExpectDistances(distances, {0, 0, 0, 0, 0, 0, 0, 0});
}

// ---- Limits ------------------------------------------------------------------------------------

TEST(RvPolygon2DGetOffsetEx, EdgesWithNothingDoneBeforeThemMoveWithoutLimit) {
    // The ring counts as a chain: the edge first in the list of edges still moving has no edge
    // before it to be limited by. Edge 0, the bottom, moves first, up by 2.5 past the end of its
    // 2 long neighbour (the step); each later edge is first once the ones before it are done.
    // So every edge gets its full distance and the corners are the mitred ones: bottom y = 2.5,
    // right x = 7.5, top y = 7.5, left x = 2.5, notch top y = 4.5, step x = 5.5.
    const RvPolygon2D p = NotchedSquare();
    std::vector<double> distances(6, -2.5);
    const RvPolygon2D result = p.GetOffsetEx(distances, kUp);
    ExpectVerticesNear(result,
                       {{7.5, 2.5}, {7.5, 7.5}, {2.5, 7.5}, {2.5, 4.5}, {5.5, 4.5}, {5.5, 2.5}});
    ExpectDistances(distances, {0, 0, 0, 0, 0, 0});
}

TEST(RvPolygon2DGetOffsetEx2, EdgesWithNothingDoneBeforeThemMoveWithoutLimit) {
    // The limits apply in every pass here, but the bottom, first in the list, still has no edge
    // before it to be held back by, and each later edge is first in turn: the same mitred
    // corners as by GetOffsetEx.
    RvPolygon2D p = NotchedSquare();
    std::vector<double> distances(6, -2.5);
    const RvPolygon2D result = p.GetOffsetEx2(distances, kUp);
    ExpectVerticesNear(result,
                       {{7.5, 2.5}, {7.5, 7.5}, {2.5, 7.5}, {2.5, 4.5}, {5.5, 4.5}, {5.5, 2.5}});
    ExpectDistances(distances, {0, 0, 0, 0, 0, 0});
}

// ---- Every edge at one distance -------------------------------------------------------------

TEST(RvPolygon2DGetOffsetExScalar, EveryEdgeMovesByTheDistance) {
    RvPolygon2D p = Square();
    int checked = 0;
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE("useEx2 " + std::to_string(useEx2));
        ExpectVerticesNear(p.GetOffsetEx(-2.0, kUp, useEx2), {{2, 2}, {8, 2}, {8, 8}, {2, 8}});
        ExpectVerticesNear(p.GetOffsetEx(1.0, kUp, useEx2),
                           {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}});
        ++checked;
    }
    EXPECT_EQ(checked, 2);
    EXPECT_TRUE(SameVertices(p, Square()));
}

TEST(RvPolygon2DGetOffsetExScalar, ZeroPicksGetOffsetExAndAnyOtherValueGetOffsetEx2) {
    // The trapezoid is 3 high and every edge moves in by 3, so it collapses. GetOffsetEx moves
    // what is left in its last pass without limits, so every remainder ends used up; GetOffsetEx2
    // keeps its limits to the end. The two come out different, and the scalar overload must give
    // the one its flag picks.
    RvPolygon2D p = Ring({{0, 0}, {10, 0}, {7, 3}, {3, 3}});
    std::vector<double> distances(4, -3.0);
    std::vector<double> distances2(4, -3.0);
    const RvPolygon2D ex = p.GetOffsetEx(distances, kUp);
    const RvPolygon2D ex2 = p.GetOffsetEx2(distances2, kUp);
    ExpectDistances(distances, {0, 0, 0, 0});
    ASSERT_FALSE(SameVertices(ex, ex2));
    EXPECT_TRUE(SameVertices(p.GetOffsetEx(-3.0, kUp, 0), ex));
    int checked = 0;
    for (const int useEx2 : {1, 2, -1}) {
        SCOPED_TRACE("useEx2 " + std::to_string(useEx2));
        EXPECT_TRUE(SameVertices(p.GetOffsetEx(-3.0, kUp, useEx2), ex2));
        ++checked;
    }
    EXPECT_EQ(checked, 3);
}

TEST(RvPolygon2DGetOffsetExScalar, OneVertexPolygonComesBackAsACopy) {
    // One vertex gives one distance, too few to move anything.
    RvPolygon2D p = Ring({{3, 4}});
    int checked = 0;
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE("useEx2 " + std::to_string(useEx2));
        EXPECT_TRUE(SameVertices(p.GetOffsetEx(5.0, kUp, useEx2), Ring({{3, 4}})));
        ++checked;
    }
    EXPECT_EQ(checked, 2);
    RvPolygon2D empty;
    EXPECT_TRUE(empty.GetOffsetEx(5.0, kUp, 0).empty());
}

// ---- Distances chosen by an outline ------------------------------------------------------------

// For the outline from p = (-100, 0) to q = (100, 0), the cross product (p - q) x (v - q) is
// (-200, 0) x (vx - 100, vy) = -200 vy: positive for a vertex below the outline (on its right),
// negative above it (on its left). A vertex below, or one whose previous vertex is below, takes
// `first`; an edge wholly above takes `second`.

TEST(RvPolygon2DGetOutlineDistances, EdgeWithAnEndBelowTakesFirst) {
    // (0, -5) and (10, -5) are below: first. (10, 5) is above but follows (10, -5): first.
    // (0, 5) is above and follows (10, 5), also above: second.
    const RvPolygon2D p = Ring({{0, -5}, {10, -5}, {10, 5}, {0, 5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(p, 1, 2, OutlineAlongX()),
                    {1, 1, 1, 2});
}

TEST(RvPolygon2DGetOutlineDistances, PolygonWhollyAboveTakesSecondAndWhollyBelowFirst) {
    // Above the outline every cross product is negative: second everywhere. Below it every one
    // is positive: first everywhere.
    const RvPolygon2D above = Ring({{0, 1}, {4, 1}, {4, 5}, {0, 5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(above, 1, 2, OutlineAlongX()),
                    {2, 2, 2, 2});
    const RvPolygon2D below = Ring({{0, -5}, {4, -5}, {4, -1}, {0, -1}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(below, 1, 2, OutlineAlongX()),
                    {1, 1, 1, 1});
}

TEST(RvPolygon2DGetOutlineDistances, OutlineRunningBackwardsSwapsTheSides) {
    // From (100, 0) to (-100, 0) the product is (200, 0) x (vx + 100, vy) = 200 vy: now a vertex
    // above is on the positive side.
    const RvPolygon2D above = Ring({{0, 1}, {4, 1}, {4, 5}, {0, 5}});
    const RvPolyLine2D backwards = Path({RvPoint2D(100, 0), RvPoint2D(-100, 0)});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(above, 1, 2, backwards),
                    {1, 1, 1, 1});
}

TEST(RvPolygon2DGetOutlineDistances, VertexZeroTakesTheLastVertexAsItsPrevious) {
    // (5, 5) is above, but the vertex before it, round the ring, is (10, -5), below: first.
    const RvPolygon2D p = Ring({{5, 5}, {0, -5}, {10, -5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(p, 1, 2, OutlineAlongX()),
                    {1, 1, 1});
    // Turned round, the vertex before (5, 5) is (0, 5), above: second. (10, -5) and (0, -5)
    // below and (0, 5) after (0, -5): first.
    const RvPolygon2D q = Ring({{5, 5}, {10, -5}, {0, -5}, {0, 5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(q, 1, 2, OutlineAlongX()),
                    {2, 1, 1, 1});
}

TEST(RvPolygon2DGetOutlineDistances, OutlineWithoutVerticesGivesFirstEverywhere) {
    const RvPolygon2D p = Ring({{0, 1}, {4, 1}, {4, 5}, {0, 5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(p, 1, 2, RvPolyLine2D()),
                    {1, 1, 1, 1});
}

TEST(RvPolygon2DGetOutlineDistances, VertexOnTheOutlinesLineIsNotOnThePositiveSide) {
    // (0, 0) and (10, 0) give a product of 0, which is not above 0: every vertex is on the line
    // or above it, and every edge takes second.
    const RvPolygon2D on = Ring({{0, 0}, {10, 0}, {10, 5}, {0, 5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(on, 1, 2, OutlineAlongX()),
                    {2, 2, 2, 2});
    // 2e-9 below the line gives 4e-7, within the band of 5e-7: still not positive. 1e-8 below
    // gives 2e-6, beyond the band: positive, and the edges at those vertices take first.
    const RvPolygon2D nearly = Ring({{0, -2e-9}, {10, -2e-9}, {10, 5}, {0, 5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(nearly, 1, 2, OutlineAlongX()),
                    {2, 2, 2, 2});
    const RvPolygon2D below = Ring({{0, -1e-8}, {10, -1e-8}, {10, 5}, {0, 5}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(below, 1, 2, OutlineAlongX()),
                    {1, 1, 1, 2});
}

TEST(RvPolygon2DGetOutlineDistances, NearestSegmentDecides) {
    // The outline runs +x to (100, 0) and then +y to (100, 100). The vertices lie right of the
    // upright segment, nearer to it than to the first: there p - q = (0, -100) and the product
    // is 100 (vx - 100) > 0, so first, although they lie above the first segment.
    const RvPolyLine2D outline = Path({RvPoint2D(0, 0), RvPoint2D(100, 0), RvPoint2D(100, 100)});
    const RvPolygon2D right = Ring({{105, 40}, {110, 50}, {105, 60}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(right, 1, 2, outline), {1, 1, 1});
    // Left of the upright segment, inside the turn, the product is negative: second.
    const RvPolygon2D left = Ring({{95, 40}, {95, 60}, {90, 50}});
    ExpectDistances(RvPolygon2DTestAccess::GetOutlineDistances(left, 1, 2, outline), {2, 2, 2});
}

TEST(RvPolygon2DGetOffsetExOutline, EdgesWithAnEndBelowMoveByFirst) {
    // Distances {1, 1, 1, 2} (see EdgeWithAnEndBelowTakesFirst): left edge to x = -1, bottom to
    // y = -6, right edge to x = 11, and the top, wholly above, by 2 to y = 7.
    RvPolygon2D p = Ring({{0, -5}, {10, -5}, {10, 5}, {0, 5}});
    int checked = 0;
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE("useEx2 " + std::to_string(useEx2));
        ExpectVerticesNear(p.GetOffsetEx(1.0, 2.0, OutlineAlongX(), kUp, useEx2),
                           {{-1, -6}, {11, -6}, {11, 7}, {-1, 7}});
        ++checked;
    }
    EXPECT_EQ(checked, 2);
}

TEST(RvPolygon2DGetOffsetExOutline, PolygonWhollyAboveMovesBySecond) {
    // Every edge lies above the outline, on the side where the product is negative: all move by
    // `second`, here inward by 1.
    RvPolygon2D p = Ring({{0, 1}, {4, 1}, {4, 5}, {0, 5}});
    ExpectVerticesNear(p.GetOffsetEx(3.0, -1.0, OutlineAlongX(), kUp, 0),
                       {{1, 2}, {3, 2}, {3, 4}, {1, 4}});
}

TEST(RvPolygon2DGetOffsetExOutline, OutlineWithoutVerticesMovesEveryEdgeByFirst) {
    RvPolygon2D p = Square();
    int checked = 0;
    for (const int useEx2 : {0, 1}) {
        SCOPED_TRACE("useEx2 " + std::to_string(useEx2));
        ExpectVerticesNear(p.GetOffsetEx(-1.0, 3.0, RvPolyLine2D(), kUp, useEx2),
                           {{1, 1}, {9, 1}, {9, 9}, {1, 9}});
        ++checked;
    }
    EXPECT_EQ(checked, 2);
}

}  // namespace

}  // namespace ravelin
