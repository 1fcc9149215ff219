#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "ravelin/numeric/Number.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RandomPolygons.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

// The cut of a ring walks its edges from vertex 1 on, and the closing edge last, taken from the
// first vertex to the last. A hit h (the point of the edge, interpolated in all five values) goes
// to the current half, then to the other half with the edge's end vertex, and the other half
// becomes current; an edge without a hit gives its end vertex to the current half. The closing
// edge's hit goes to the second half and then to the first, whichever is current. A line meets a
// segment when its parameter u on the segment lies strictly between -1e-06 and 1.000001, and not
// when the two are parallel.
//
// Splitting a polygon by a line cuts its bounding rectangle grown by 100, whose corners run
// counterclockwise from the least one, and intersects each half with the polygon: the first
// half's pieces come first. The expected pieces below are worked out by hand from the trace of
// the intersection: the nodes are the half's vertices, then the polygon's vertices, then the
// crossings in the order of the half's edges; a trace starts at the first node with a free link
// of a primary class (along the half inside the polygon, or along the polygon inside the half),
// and at every node takes the first free primary link in slot order (0, 1 along the half, 2, 3
// along the polygon) to an unvisited node. Each node's slots hold its nearest neighbours along
// each polygon, the forward one in slot 0 (2) unless it lies on the other side of one already
// there.

namespace {

using testing_support::ExpectVerticesNear;

// The axis-aligned rectangle with corners (x0, y0) and (x1, y1), counterclockwise from
// (x0, y0), stored open.
RvPolygon2D Rect(double x0, double y0, double x1, double y1) {
    return Ring({RvPoint2D(x0, y0), RvPoint2D(x1, y0), RvPoint2D(x1, y1), RvPoint2D(x0, y1)});
}

// The square from (0, 0) to (10, 10).
RvPolygon2D Square() {
    return Rect(0, 0, 10, 10);
}

// The L of the square from (0, 0) to (20, 20) less the square from (10, 10) to (20, 20).
RvPolygon2D LShape() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(20, 0), RvPoint2D(20, 10), RvPoint2D(10, 10),
                 RvPoint2D(10, 20), RvPoint2D(0, 20)});
}

struct XY {
    double x;
    double y;
};

// The ring has these vertices, in this order from this start, on both positions, each within
// `tol`.
void ExpectVertices(const RvPolygon2D& ring, std::initializer_list<XY> expected,
                    double tol = 1e-9) {
    ASSERT_EQ(ring.size(), expected.size());
    std::size_t i = 0;
    for (const XY& e : expected) {
        SCOPED_TRACE(i);
        const RvPoint2D& v = ring[i];
        EXPECT_NEAR(v.x, e.x, tol);
        EXPECT_NEAR(v.y, e.y, tol);
        EXPECT_NEAR(v.x2D, e.x, tol);
        EXPECT_NEAR(v.y2D, e.y, tol);
        ++i;
    }
}

// The cut of `ring` by the line through `point` with direction `direction`.
struct Cut {
    bool met = false;
    RvPolygon2D first;
    RvPolygon2D second;
};

Cut CutBy(RvPolygon2D ring, RvPoint2D point, RvPoint2D direction) {
    Cut cut;
    cut.met = ring.CutBoundingRectangle(point, direction, cut.first, cut.second);
    return cut;
}

// The split of `polygon` by the line through `a` and `b`, into a fresh vector.
std::vector<RvPolygon2D> Split(RvPolygon2D polygon, RvPoint2D a, RvPoint2D b) {
    std::vector<RvPolygon2D> result;
    polygon.SplitWithLine(a, b, result);
    return result;
}

// ---- Cutting a ring -----------------------------------------------------------------------

TEST(RvPolygon2DCutBoundingRectangleTest, RectangleCutByTheLineXEquals5GivesItsTwoHalves) {
    // Edge 1 is hit at (5, 0) (u = 0.5): (5, 0) ends the first half and starts the second with
    // (10, 0). Edge 2 is parallel. Edge 3 is hit at (5, 10): it ends the second half and starts
    // the first again with (0, 10). The closing edge is parallel.
    const Cut cut = CutBy(Square(), RvPoint2D(5, 0), RvPoint2D(0, 1));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
    ExpectVertices(cut.second, {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, HalvesAreEmptiedBeforeTheyAreFilled) {
    RvPolygon2D ring = Square();
    RvPoint2D point(5, 0);
    RvPoint2D direction(0, 1);
    RvPolygon2D first = Rect(100, 100, 200, 200);
    RvPolygon2D second = Ring({RvPoint2D(-7, -7), RvPoint2D(-8, -8)});
    EXPECT_TRUE(ring.CutBoundingRectangle(point, direction, first, second));
    ExpectVertices(first, {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
    ExpectVertices(second, {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, HorizontalCutThroughTheClosingEdgeEndsBothHalvesWithIt) {
    // The line y = 5 is parallel to edges 1 and 3; it hits edge 2 at (10, 5) and the closing
    // edge at (0, 5). The closing hit goes to the second half and then to the first, so it is
    // the last vertex of both.
    const Cut cut = CutBy(Square(), RvPoint2D(0, 5), RvPoint2D(1, 0));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {10, 0}, {10, 5}, {0, 5}});
    ExpectVertices(cut.second, {{10, 5}, {10, 10}, {0, 10}, {0, 5}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, ObliqueCutPutsTheHitsOnTheCrossedEdges) {
    // The line through (2, 0) and (8, 10) meets edge 1 at u = 0.2 and edge 3 at u = 0.2; on edge
    // 2 (x = 10) it would be at y = 13.3, beyond the edge, and on the closing edge (x = 0) at
    // y = -3.3.
    const Cut cut = CutBy(Square(), RvPoint2D(2, 0), RvPoint2D(6, 10));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {2, 0}, {8, 10}, {0, 10}});
    ExpectVertices(cut.second, {{2, 0}, {10, 0}, {10, 10}, {8, 10}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, HitsCarryTheHeightInterpolatedAlongTheEdge) {
    const RvPolygon2D ring =
        Ring({RvPoint2D(0, 0, 0), RvPoint2D(10, 0, 2), RvPoint2D(10, 10, 4), RvPoint2D(0, 10, 6)});
    const Cut cut = CutBy(ring, RvPoint2D(5, 0), RvPoint2D(0, 1));
    ASSERT_TRUE(cut.met);
    ASSERT_EQ(cut.first.size(), 4u);
    ASSERT_EQ(cut.second.size(), 4u);
    // Halfway along edge 1 (z from 0 to 2) and along edge 3 (z from 4 to 6).
    EXPECT_NEAR(cut.first[1].z, 1.0, 1e-12);
    EXPECT_NEAR(cut.first[2].z, 5.0, 1e-12);
    EXPECT_NEAR(cut.second[0].z, 1.0, 1e-12);
    EXPECT_NEAR(cut.second[3].z, 5.0, 1e-12);
    // The vertices themselves are appended as they are.
    EXPECT_TRUE(HasValues(cut.first[3], 0, 10, 6, 0, 10));
    EXPECT_TRUE(HasValues(cut.second[2], 10, 10, 4, 10, 10));
}

TEST(RvPolygon2DCutBoundingRectangleTest, LineThroughAVertexIsHitOnBothEdgesThereAndTogglesTwice) {
    // The line through (10, 0) and (5, 10) hits edge 1 at its end (u = 1) and edge 2 at its
    // start (u = 0): each hit toggles the side, so after (10, 0) the walk is back in the first
    // half, which takes (10, 10). Edge 3 is hit at (5, 10) and hands (0, 10) to the second half.
    // The closing edge would be met at y = 20. The far corner (10, 10) ends up with (0, 0).
    const Cut cut = CutBy(Square(), RvPoint2D(10, 0), RvPoint2D(-5, 10));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {10, 0}, {10, 0}, {10, 10}, {5, 10}});
    ExpectVertices(cut.second, {{10, 0}, {10, 0}, {10, 0}, {5, 10}, {0, 10}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, DiagonalThroughTwoVerticesLeavesTheWholeRingInTheFirst) {
    // The line x + y = 10 hits edges 1 and 2 at (10, 0) and edge 3 and the closing edge at
    // (0, 10). The two hits at (10, 0) toggle twice, so (10, 10) stays in the first half; the
    // hit on edge 3 gives (0, 10) to the second half, and the closing hit ends both.
    const Cut cut = CutBy(Square(), RvPoint2D(10, 0), RvPoint2D(-1, 1));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {10, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 10}});
    ExpectVertices(cut.second, {{10, 0}, {10, 0}, {10, 0}, {0, 10}, {0, 10}, {0, 10}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, LineTouchingOnlyTheFirstVertexSendsTheRestToTheSecond) {
    // The line y = -x touches the square at (0, 0) alone. Edge 1 is hit at its start and
    // toggles to the second half, which takes all further vertices; the closing edge is hit at
    // its start too, but its hit only ends both halves and toggles nothing.
    const Cut cut = CutBy(Square(), RvPoint2D(0, 0), RvPoint2D(1, -1));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {0, 0}, {0, 0}});
    ExpectVertices(cut.second, {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, NonConvexRingMetFourTimesJoinsBothFarPiecesInTheSecond) {
    // The line x + y = 25 crosses the L at (20, 5) on edge 2, (15, 10) on edge 3, (10, 15) on
    // edge 4 and (5, 20) on edge 5; edge 1 and the closing edge would be met beyond their ends
    // (x = 25, y = 25). The side toggles at each hit, so the first half is the part below the
    // line, while the second half holds both corners beyond it in one ring, joined along the
    // line from (15, 10) to (10, 15) and back from (5, 20) to (20, 5).
    const Cut cut = CutBy(LShape(), RvPoint2D(20, 5), RvPoint2D(-5, 5));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first,
                   {{0, 0}, {20, 0}, {20, 5}, {15, 10}, {10, 10}, {10, 15}, {5, 20}, {0, 20}});
    ExpectVertices(cut.second, {{20, 5}, {20, 10}, {15, 10}, {10, 15}, {10, 20}, {5, 20}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, VerticesAreAppendedWithoutMergingDoublesOrStraightRuns) {
    // (10, 0) is doubled and (10, 5) lies on the straight run up the right side. The doubled
    // vertex makes an edge of no length, which nothing meets; both stay in the second half.
    const RvPolygon2D ring = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 0),
                                   RvPoint2D(10, 5), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    const Cut cut = CutBy(ring, RvPoint2D(5, 0), RvPoint2D(0, 1));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
    ExpectVertices(cut.second, {{5, 0}, {10, 0}, {10, 0}, {10, 5}, {10, 10}, {5, 10}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, RingStoredClosedKeepsItsClosingVertexInTheFirstHalf) {
    // The last edge, from (0, 10) to the repeated (0, 0), is parallel to the line; the closing
    // edge, from (0, 0) to (0, 0), has no length and is not met.
    const RvPolygon2D ring = Ring(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 0)});
    const Cut cut = CutBy(ring, RvPoint2D(5, 0), RvPoint2D(0, 1));
    EXPECT_TRUE(cut.met);
    ExpectVertices(cut.first, {{0, 0}, {5, 0}, {5, 10}, {0, 10}, {0, 0}});
    ExpectVertices(cut.second, {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
}

TEST(RvPolygon2DCutBoundingRectangleTest, LineMissingTheRingLeavesEverythingInTheFirstHalf) {
    RvPolygon2D ring =
        Ring({RvPoint2D(0, 0, 1), RvPoint2D(10, 0, 2), RvPoint2D(10, 10, 3), RvPoint2D(0, 10, 4)});
    RvPoint2D point(0, 20);
    RvPoint2D direction(1, 0);
    RvPolygon2D first = Rect(100, 100, 200, 200);
    RvPolygon2D second = Rect(300, 300, 400, 400);
    EXPECT_FALSE(ring.CutBoundingRectangle(point, direction, first, second));
    EXPECT_TRUE(SameVertices(first, ring));
    EXPECT_TRUE(second.empty());
}

TEST(RvPolygon2DCutBoundingRectangleTest, RingWithoutVerticesAnswersFalseAndTouchesNoHalf) {
    RvPolygon2D ring;
    RvPoint2D point(5, 0);
    RvPoint2D direction(0, 1);
    const RvPolygon2D firstBefore = Rect(100, 100, 200, 200);
    const RvPolygon2D secondBefore = Ring({RvPoint2D(-7, -7), RvPoint2D(-8, -8)});
    RvPolygon2D first = firstBefore;
    RvPolygon2D second = secondBefore;
    EXPECT_FALSE(ring.CutBoundingRectangle(point, direction, first, second));
    EXPECT_TRUE(SameVertices(first, firstBefore));
    EXPECT_TRUE(SameVertices(second, secondBefore));
}

// ---- Splitting a polygon by a line --------------------------------------------------------

TEST(RvPolygon2DSplitWithLineTest, SquareCutThroughItsMiddleGivesTheHalf1PieceFirst) {
    // The grown rectangle (-100, -100), (110, -100), (110, 110), (-100, 110) is cut by x = 5
    // into half1, (-100, -100), (5, -100), (5, 110), (-100, 110), the half of the least corner,
    // and half2, (5, -100), (110, -100), (110, 110), (5, 110).
    //
    // half1 with the square: nodes 0-3 the half's corners, 4-7 the square's corners, 8 the
    // crossing (5, 0) and 9 the crossing (5, 10), both on the half's edge 1. The first node
    // with a free primary link is (0, 0), whose slot 2 goes along the square to (5, 0) with
    // its midpoint (2.5, 0) inside half1; (5, 0) goes up the half's edge to (5, 10) (midpoint
    // inside the square), then along the square to (0, 10) and back to (0, 0).
    //
    // half2 with the square: the crossings lie on the half's closing edge. (0, 0) has no
    // primary link ((2.5, 0) and (0, 5) are outside half2); (10, 0) is the first node with one
    // and goes to (10, 10), then to (5, 10), down the cut to (5, 0), and home.
    const std::vector<RvPolygon2D> result = Split(Square(), RvPoint2D(5, -1), RvPoint2D(5, 1));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
    ExpectVerticesNear(result[1], {{10, 0}, {10, 10}, {5, 10}, {5, 0}});
}

TEST(RvPolygon2DSplitWithLineTest, SwappingThePointsOfTheLineKeepsThePiecesAndTheirOrder) {
    // The halves come from the rectangle's own order, and a hit is the point of the edge, so
    // the direction of the line changes nothing.
    const std::vector<RvPolygon2D> result = Split(Square(), RvPoint2D(5, 1), RvPoint2D(5, -1));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
    ExpectVerticesNear(result[1], {{10, 0}, {10, 10}, {5, 10}, {5, 0}});
}

TEST(RvPolygon2DSplitWithLineTest, PiecesAreAppendedAfterWhatTheResultHeld) {
    std::vector<RvPolygon2D> result;
    const RvPolygon2D held = Rect(100, 100, 200, 200);
    result.push_back(held);
    RvPolygon2D square = Square();
    square.SplitWithLine(RvPoint2D(5, -1), RvPoint2D(5, 1), result);
    ASSERT_EQ(result.size(), 3u);
    EXPECT_TRUE(SameVertices(result[0], held));
    ExpectVerticesNear(result[1], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
    ExpectVerticesNear(result[2], {{10, 0}, {10, 10}, {5, 10}, {5, 0}});
}

TEST(RvPolygon2DSplitWithLineTest, LineMissingThePolygonAppendsAnExactCopy) {
    // Heights that the intersection would zero show that the copy is the polygon itself.
    RvPolygon2D polygon =
        Ring({RvPoint2D(0, 0, 1), RvPoint2D(10, 0, 2), RvPoint2D(10, 10, 3), RvPoint2D(0, 10, 4)});
    std::vector<RvPolygon2D> result;
    const RvPolygon2D held = Rect(100, 100, 200, 200);
    result.push_back(held);
    polygon.SplitWithLine(RvPoint2D(-5, 20), RvPoint2D(5, 20), result);
    ASSERT_EQ(result.size(), 2u);
    EXPECT_TRUE(SameVertices(result[0], held));
    EXPECT_TRUE(SameVertices(result[1], polygon));
}

TEST(RvPolygon2DSplitWithLineTest, LineThroughTwoEqualPointsAppendsAnExactCopy) {
    // A null direction is parallel to every edge, so nothing is met.
    RvPolygon2D polygon =
        Ring({RvPoint2D(0, 0, 1), RvPoint2D(10, 0, 2), RvPoint2D(10, 10, 3), RvPoint2D(0, 10, 4)});
    const std::vector<RvPolygon2D> result = Split(polygon, RvPoint2D(5, 5), RvPoint2D(5, 5));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_TRUE(SameVertices(result[0], polygon));
}

TEST(RvPolygon2DSplitWithLineTest, PolygonWithoutVerticesIsAppendedAsAnEmptyCopy) {
    std::vector<RvPolygon2D> result;
    result.push_back(Square());
    RvPolygon2D empty;
    empty.SplitWithLine(RvPoint2D(5, -1), RvPoint2D(5, 1), result);
    ASSERT_EQ(result.size(), 2u);
    EXPECT_TRUE(SameVertices(result[0], Square()));
    EXPECT_TRUE(result[1].empty());
}

TEST(RvPolygon2DSplitWithLineTest, LineTouchingOnlyAVertexGivesThePolygonRebuiltAsOnePiece) {
    // The line y = x - 10 touches the square at (10, 0) alone. The first edge meets it at its
    // end, which counts, so the polygon is cut all the same: the grown rectangle is cut at
    // (-90, -100) and (110, 100) into half1, (-100, -100), (-90, -100), (110, 100), (110, 110),
    // (-100, 110), which holds the whole square, and half2, (-90, -100), (110, -100),
    // (110, 100), which holds none of it. half1 with the square is the square, traced from
    // (0, 0), its first node with a free primary link: the crossings at (10, 0) lie within
    // 0.01 of the edges' ends and do not count, so (10, 0) is the square's vertex (on the
    // half's edge). half2 with the square has no primary link: every midpoint along the
    // square lies beyond the line, every one along the half outside the square.
    // The heights of 3 show that the piece comes from the intersection, which zeroes them.
    const RvPolygon2D polygon =
        Ring({RvPoint2D(0, 0, 3), RvPoint2D(10, 0, 3), RvPoint2D(10, 10, 3), RvPoint2D(0, 10, 3)});
    const std::vector<RvPolygon2D> result = Split(polygon, RvPoint2D(10, 0), RvPoint2D(11, 1));
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithLineTest, SquareCutAlongItsDiagonalComesBackWhole) {
    // The diagonal y = x of the square is also the diagonal of its grown rectangle
    // (-100, -100), (110, -100), (110, 110), (-100, 110), and runs through two of its corners.
    // Edge 1 is hit at its start (-100, -100); edges 2 and 3 are both hit at (110, 110), which
    // toggles the side twice; the closing edge is hit at (-100, -100). So half1 is
    // (-100, -100), (-100, -100), (110, 110), (110, 110), (110, 110), (-100, -100): the
    // diagonal there and back, and half2 is the whole rectangle with (110, 110) doubled and
    // (-100, -100) repeated at the end.
    //
    // half1 with the square: without its doubles half1 is the segment from (-100, -100) to
    // (110, 110), on which the square's corners (0, 0) and (10, 10) lie. The links along it
    // whose midpoint (5, 5) lies inside the square are the only primary ones: the trace from
    // (-100, -100) to (110, 110) finds no way on, nor does the one from (0, 0) to (10, 10), and
    // rings of two points are dropped. half2 with the square is the square, traced from (0, 0).
    const std::vector<RvPolygon2D> result = Split(Square(), RvPoint2D(0, 0), RvPoint2D(10, 10));
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithLineTest, LShapeCutAcrossBothArmsGivesThreePiecesTwoFromHalf2) {
    // The L's grown rectangle (-100, -100), (120, -100), (120, 120), (-100, 120) is cut by
    // x + y = 25 at (120, -95) and (-95, 120): half1, (-100, -100), (120, -100), (120, -95),
    // (-95, 120), (-100, 120), lies below the line, half2, (120, -95), (120, 120), (-95, 120),
    // above it. Both halves have the cut as edge 2, crossed at (20, 5), (15, 10), (10, 15) and
    // (5, 20), in the order of the L's edges.
    //
    // half1 with the L: (0, 0) is the first node with a free primary link. The trace runs along
    // the L to (20, 0) and (20, 5), up the cut to (15, 10) (midpoint inside the L), along the L
    // to (10, 10) and (10, 15), up the cut to (5, 20), and along the L by (0, 20) home. The cut
    // from (15, 10) to (10, 15) lies outside the L, and its link is not taken.
    //
    // half2 with the L: the L's corners (0, 0) and (20, 0) have no primary link; (20, 10) is the
    // first, and goes to (15, 10), down the cut to (20, 5), and home. Then (10, 10) has none,
    // and (10, 20) goes to (5, 20), down the cut to (10, 15), and home.
    const std::vector<RvPolygon2D> result = Split(LShape(), RvPoint2D(20, 5), RvPoint2D(15, 10));
    ASSERT_EQ(result.size(), 3u);
    ExpectVerticesNear(result[0],
                       {{0, 0}, {20, 0}, {20, 5}, {15, 10}, {10, 10}, {10, 15}, {5, 20}, {0, 20}});
    ExpectVerticesNear(result[1], {{20, 10}, {15, 10}, {20, 5}});
    ExpectVerticesNear(result[2], {{10, 20}, {5, 20}, {10, 15}});
}

// ---- Random polygons cut by random lines ----------------------------------------------------

// One line through a polygon, in general position to it: every vertex of the polygon, and every
// corner of its bounding rectangle grown by 100, at least 1 unit from the line, and every edge
// that the line crosses crossed at an angle whose sine is at least 0.05.
struct CutLine {
    Pt point;
    Pt unit;             // the line's direction, of unit length
    double chordLength;  // the length of the line inside the polygon
    int chords;          // the stretches of the line inside the polygon
};

// The signed distance of `p` from the line: positive to the left of its direction.
double SideOf(const CutLine& line, Pt p) {
    return Cross(line.unit, Sub(p, line.point));
}

// Fills in the chords of `line` through `ring`; false if the line is not in general position.
bool MeasureChords(const Outline& ring, CutLine& line) {
    double minX = HUGE_VAL;
    double minY = HUGE_VAL;
    double maxX = -HUGE_VAL;
    double maxY = -HUGE_VAL;
    for (const Pt& p : ring) {
        if (std::fabs(SideOf(line, p)) < 1.0) {
            return false;
        }
        minX = std::min(minX, p.x);
        minY = std::min(minY, p.y);
        maxX = std::max(maxX, p.x);
        maxY = std::max(maxY, p.y);
    }
    for (const Pt corner : {Pt{minX - 100, minY - 100}, Pt{maxX + 100, minY - 100},
                            Pt{maxX + 100, maxY + 100}, Pt{minX - 100, maxY + 100}}) {
        if (std::fabs(SideOf(line, corner)) < 1.0) {
            return false;
        }
    }
    std::vector<double> along;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Pt a = ring[i];
        const Pt b = ring[(i + 1) % ring.size()];
        const double da = SideOf(line, a);
        const double db = SideOf(line, b);
        if ((da > 0.0) == (db > 0.0)) {
            continue;
        }
        const Pt edge = Sub(b, a);
        if (std::fabs(Cross(line.unit, edge)) / Length(edge) < 0.05) {
            return false;
        }
        const Pt at = Add(a, Scale(edge, da / (da - db)));
        along.push_back(Dot(Sub(at, line.point), line.unit));
    }
    std::sort(along.begin(), along.end());
    line.chords = static_cast<int>(along.size() / 2);
    line.chordLength = 0.0;
    for (std::size_t k = 0; k + 1 < along.size(); k += 2) {
        line.chordLength += along[k + 1] - along[k];
    }
    return line.chords > 0;
}

// Draws lines through points within `reach` of `centre` on either axis until one is in general
// position to `ring` and crosses it at least `wanted` times; up to 200 tries. If none does, the
// last line in general position that crosses the ring at all; false if there was none.
bool DrawLine(CorpusRandom& rng, const Outline& ring, Pt centre, double reach, int wanted,
              CutLine& line) {
    bool found = false;
    for (int attempt = 0; attempt < 200; ++attempt) {
        CutLine candidate{};
        const double dx = rng.Uniform(-reach, reach);
        const double dy = rng.Uniform(-reach, reach);
        const double angle = rng.Uniform(0.0, kPi);
        candidate.point = {centre.x + dx, centre.y + dy};
        candidate.unit = {std::cos(angle), std::sin(angle)};
        if (!MeasureChords(ring, candidate)) {
            continue;
        }
        line = candidate;
        found = true;
        if (candidate.chords >= wanted) {
            break;
        }
    }
    return found;
}

struct SplitTally {
    int cases = 0;
    int cut = 0;  // cases split into two pieces or more
};

// Splits `ring` by `line` and checks the pieces: one more than the chords, since each chord
// divides one piece in two; the polygon's area between them, up to the band of 0.01 along the
// cut on either side in which the intersection merges points; every piece on one side of the
// line, with 0.01 allowed for its vertices on the cut; and the pieces of the side that holds
// the grown rectangle's least corner first.
void CheckSplit(const Outline& ring, const CutLine& line, SplitTally& tally) {
    ++tally.cases;
    RvPolygon2D polygon = ToRavelin(ring);
    std::vector<RvPolygon2D> result;
    const RvPoint2D a(line.point.x, line.point.y);
    const RvPoint2D b(line.point.x + 10.0 * line.unit.x, line.point.y + 10.0 * line.unit.y);
    polygon.SplitWithLine(a, b, result);
    if (result.size() >= 2) {
        ++tally.cut;
    }
    EXPECT_EQ(result.size(), static_cast<std::size_t>(line.chords) + 1);

    const double area = std::fabs(SignedArea2(ring)) / 2.0;
    double pieces = 0.0;
    double minX = HUGE_VAL;
    double minY = HUGE_VAL;
    for (const Pt& p : ring) {
        minX = std::min(minX, p.x);
        minY = std::min(minY, p.y);
    }
    const double firstSide = SideOf(line, {minX - 100, minY - 100}) > 0.0 ? 1.0 : -1.0;
    bool onSecondSide = false;
    for (std::size_t k = 0; k < result.size(); ++k) {
        SCOPED_TRACE(::testing::Message() << "piece " << k);
        const Outline piece = ToOutline(result[k]);
        EXPECT_GE(piece.size(), 3u);
        pieces += std::fabs(SignedArea2(piece)) / 2.0;
        double lo = HUGE_VAL;
        double hi = -HUGE_VAL;
        for (const Pt& p : piece) {
            const double s = SideOf(line, p) * firstSide;
            lo = std::min(lo, s);
            hi = std::max(hi, s);
        }
        EXPECT_TRUE(lo >= -0.01 || hi <= 0.01) << "vertices from " << lo << " to " << hi;
        // Positive is the side of the least corner, whose pieces come first.
        if (hi <= 0.01) {
            onSecondSide = true;
        } else {
            EXPECT_FALSE(onSecondSide) << "a piece of the first half after one of the second";
        }
    }
    EXPECT_NEAR(pieces, area, 2.0 * 0.01 * line.chordLength + 1e-9 * area);
}

TEST(RvPolygon2DSplitWithLineTest, RandomConvexPolygonsSplitIntoTwoPiecesThatKeepTheArea) {
    SplitTally tally;
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        CorpusRandom rng(seed);
        const Pt centre = RandomCentre(rng);
        Outline ring = RandomConvex(rng, centre, 280.0);
        if (rng.Chance(0.5)) {
            std::reverse(ring.begin(), ring.end());
        }
        CutLine line{};
        if (!DrawLine(rng, ring, centre, 30.0, 1, line)) {
            continue;
        }
        SCOPED_TRACE(::testing::Message() << "convex seed " << seed);
        // A line crosses a convex polygon once.
        EXPECT_EQ(line.chords, 1);
        CheckSplit(ring, line, tally);
    }
    EXPECT_GE(tally.cases, 190);
    EXPECT_GE(tally.cut, tally.cases * 9 / 10);
}

TEST(RvPolygon2DSplitWithLineTest, RandomStarPolygonsSplitIntoOnePieceMoreThanChords) {
    SplitTally tally;
    int manyChords = 0;
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        CorpusRandom rng(seed);
        const Pt centre = RandomCentre(rng);
        Outline ring;
        for (int attempt = 0; attempt < 100 && ring.empty(); ++attempt) {
            Outline candidate = RandomStar(rng, centre, 60.0, 280.0, 5, 14);
            if (IsWellFormed(candidate, 10.0)) {
                ring = candidate;
            }
        }
        if (ring.empty()) {
            continue;
        }
        if (rng.Chance(0.5)) {
            std::reverse(ring.begin(), ring.end());
        }
        // A line through the centre crosses a star about it twice only; lines farther out
        // may cross its spikes, and for odd seeds a line that crosses it four times or more
        // is looked for.
        CutLine line{};
        if (!DrawLine(rng, ring, centre, 150.0, seed % 2 == 1 ? 2 : 1, line)) {
            continue;
        }
        SCOPED_TRACE(::testing::Message() << "star seed " << seed);
        if (line.chords >= 2) {
            ++manyChords;
        }
        CheckSplit(ring, line, tally);
    }
    EXPECT_GE(tally.cases, 160);
    EXPECT_GE(tally.cut, tally.cases * 9 / 10);
    // Many lines cross a star four times or more and cut it into three pieces or more.
    EXPECT_GE(manyChords, 50);
}

}  // namespace
