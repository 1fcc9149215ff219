#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"

#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private point test of the offsets.
struct RvPolygon2DTestAccess {
    static bool TestOffsetPoint(RvPolygon2D& polygon, RvPoint3D& point, double distance,
                                int& index) {
        return polygon.TestOffsetPoint(point, distance, index);
    }
};

}  // namespace ravelin

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// 1/sqrt(2): the length of each coordinate of a unit vector at 45 degrees.
const double kH = std::sqrt(0.5);

// An index value that no member writes, to see whether the point test left it alone.
constexpr int kUnwritten = -7;

// A vertex expected in the plane z = 0 with both positions equal.
struct Expected {
    double x;
    double y;
};

// The vertices of `ring`, in order, each within `tol` of `expected` in x and y, with z = 0 and
// the planar pair following x and y.
void ExpectFlatRing(const RvPolygon2D& ring, std::initializer_list<Expected> expected, double tol) {
    ASSERT_EQ(ring.size(), expected.size());
    std::size_t i = 0;
    for (const Expected& e : expected) {
        SCOPED_TRACE(testing::Message() << "vertex " << i);
        const RvPoint2D& p = ring[i];
        EXPECT_NEAR(p.x, e.x, tol);
        EXPECT_NEAR(p.y, e.y, tol);
        EXPECT_NEAR(p.z, 0.0, tol);
        EXPECT_NEAR(p.x2D, e.x, tol);
        EXPECT_NEAR(p.y2D, e.y, tol);
        ++i;
    }
}

// The counterclockwise square (0,0)-(10,10).
RvPolygon2D Square() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

// The same square walked clockwise.
RvPolygon2D ClockwiseSquare() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(10, 10), RvPoint2D(10, 0)});
}

// The square with its first vertex repeated at the end.
RvPolygon2D ClosedSquare() {
    RvPolygon2D ring = Square();
    ring.push_backA(RvPoint2D(0, 0));
    return ring;
}

// A counterclockwise L: a foot 10 wide and 4 high, and a leg 4 wide up to y = 10. Its only
// reflex corner is (4,4), vertex 3.
RvPolygon2D LShape() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 4), RvPoint2D(4, 4),
                 RvPoint2D(4, 10), RvPoint2D(0, 10)});
}

// A counterclockwise pentagon whose corner at (10,0), vertex 1, is obtuse (135 degrees): the
// bottom edge runs along +x, the next one along (1,1).
RvPolygon2D ObtuseCornered() {
    return Ring(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(15, 5), RvPoint2D(15, 20), RvPoint2D(0, 20)});
}

// A counterclockwise house, listed from its roof top (5,11): left eave (0,6), bottom corners
// (0,0) and (10,0), right eave (10,6).
RvPolygon2D House() {
    return Ring(
        {RvPoint2D(5, 11), RvPoint2D(0, 6), RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 6)});
}

// Three vertices on one line: no corner spans a plane, so the ring has no normal.
RvPolygon2D CollinearRing() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(10, 0)});
}

bool TestOffsetPoint(RvPolygon2D& polygon, RvPoint3D& point, double distance, int& index) {
    return RvPolygon2DTestAccess::TestOffsetPoint(polygon, point, distance, index);
}

// ---- Extend ---------------------------------------------------------------------------------

// Each corner of the square is a right angle with unit arms A and B; A + B has length sqrt(2)
// and sin(90 degrees) is 1, so the corner moves by -(A + B) * distance: diagonally out by 1.
TEST(RvPolygon2DExtend, SquareGrowsByOneOnEveryCorner) {
    RvPolygon2D ring = Square();
    ring.Extend(1.0);
    ExpectFlatRing(ring, {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}, 1e-12);
}

// Walked clockwise the normal points to -z, and the sign of (A x B).N flips with both: the
// corners move out all the same, listed in the ring's own order.
TEST(RvPolygon2DExtend, ClockwiseSquareGrowsOutwardsToo) {
    RvPolygon2D ring = ClockwiseSquare();
    ring.Extend(1.0);
    ExpectFlatRing(ring, {{-1, -1}, {-1, 11}, {11, 11}, {11, -1}}, 1e-12);
}

// A shrinking by 6 moves each corner 6 along each axis towards the inside, past the centre
// (5,5): (0,0) lands on (6,6), (10,0) on (4,6), and the ring comes out inverted.
TEST(RvPolygon2DExtend, ShrinkingPastTheCentreInvertsTheSquare) {
    RvPolygon2D ring = Square();
    ring.Extend(-6.0);
    ExpectFlatRing(ring, {{6, 6}, {4, 6}, {4, 4}, {6, 4}}, 1e-12);
}

// (5,0) lies on the bottom edge: its arms are (1,0) and (-1,0), A + B is the null vector, and
// the vertex stays while the corners on both sides move down by 1: the edge gets a kink.
TEST(RvPolygon2DExtend, CollinearVertexStaysAndLeavesAKink) {
    RvPolygon2D ring = Ring(
        {RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    ring.Extend(1.0);
    ExpectFlatRing(ring, {{-1, -1}, {5, 0}, {11, -1}, {11, 11}, {-1, 11}}, 1e-12);
}

// The spike (-5,5) has both neighbours at (0,5): A = B = (1,0), the angle is 0, and the tip
// moves by N x A = (0,0,1) x (1,0,0) = (0,1,0) times the distance, across the spike. The root
// vertices (0,5) are reflex: (A x B).N = -1 gives the sign +1, so (0,5) with arms (-1,0), (0,1)
// moves by (-1,1), and its twin with arms (0,-1), (-1,0) by (-1,-1).
TEST(RvPolygon2DExtend, SpikeTipMovesSidewaysByTheDistance) {
    RvPolygon2D ring = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10),
                             RvPoint2D(0, 5), RvPoint2D(-5, 5), RvPoint2D(0, 5)});
    ring.Extend(1.0);
    ExpectFlatRing(ring, {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}, {-1, 6}, {-5, 6}, {-1, 4}},
                   1e-12);
}

TEST(RvPolygon2DExtend, FewerThanThreeVerticesStayAsTheyAre) {
    RvPolygon2D two = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0)});
    const RvPolygon2D twoBefore = two;
    two.Extend(1.0);
    EXPECT_TRUE(SameVertices(two, twoBefore));

    RvPolygon2D none;
    none.Extend(1.0);
    EXPECT_TRUE(none.empty());
}

// A ring along one line has a null normal, and nothing moves.
TEST(RvPolygon2DExtend, RingWithoutNormalStaysAsItIs) {
    RvPolygon2D ring = Ring({RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(10, 0), RvPoint2D(15, 0)});
    const RvPolygon2D before = ring;
    ring.Extend(1.0);
    EXPECT_TRUE(SameVertices(ring, before));
}

// Vertex 1 has its twin as next neighbour: A is null, it stays at (10,0), and the twin still
// sees the unshifted (0,0) as its previous neighbour. Its arms are then (0,1) and (-1,0), a
// right angle turning left, so it moves by (1,-1) to (11,-1).
TEST(RvPolygon2DExtend, DuplicatedVertexStaysWhileItsTwinMoves) {
    RvPolygon2D ring = Ring(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    ring.Extend(1.0);
    ExpectFlatRing(ring, {{-1, -1}, {10, 0}, {11, -1}, {11, 11}, {-1, 11}}, 1e-12);
}

// Stored closed, the first vertex has its copy as previous neighbour, and the last vertex has
// the first (unshifted) as next neighbour: both copies of (0,0) stay. (10,0) sees the last
// vertex (0,0) as previous and moves normally.
TEST(RvPolygon2DExtend, RingStoredClosedKeepsBothCopiesOfItsFirstVertex) {
    RvPolygon2D ring = ClosedSquare();
    ring.Extend(1.0);
    ExpectFlatRing(ring, {{0, 0}, {11, -1}, {11, 11}, {-1, 11}, {0, 0}}, 1e-12);
}

// A rectangle 10*sqrt(2) by 10 in the plane z = x, with its planar pair set apart from x, y by
// (0.5, 0.25). Its normal is (-h, 0, h) with h = 1/sqrt(2). Each corner is a right angle, and
// moves by -(A + B): at (0,0,0), A = (h,0,h) and B = (0,1,0), so the shift is (-h,-1,-h). The
// planar pair moves by the same x and y amounts, and keeps its distance (0.5, 0.25) from them.
TEST(RvPolygon2DExtend, AllFiveCoordinatesMoveByTheSameAmounts) {
    RvPolygon2D ring = Ring({RvPoint2D(0.5, 0.25, 0, 0, 0), RvPoint2D(10.5, 0.25, 10, 0, 10),
                             RvPoint2D(10.5, 10.25, 10, 10, 10), RvPoint2D(0.5, 10.25, 0, 10, 0)});
    ExpectXyzNear(ring.GetNormalVector(), -kH, 0.0, kH, 1e-12);
    ring.Extend(1.0);

    const double tol = 1e-12;
    // (dx, dy, dz) of each corner: (-h,-1,-h), (h,-1,h), (h,1,h), (-h,1,-h).
    ExpectXyzNear(ring[0], -kH, -1, -kH, tol);
    ExpectPlanarNear(ring[0], 0.5 - kH, 0.25 - 1, tol);
    ExpectXyzNear(ring[1], 10 + kH, -1, 10 + kH, tol);
    ExpectPlanarNear(ring[1], 10.5 + kH, 0.25 - 1, tol);
    ExpectXyzNear(ring[2], 10 + kH, 11, 10 + kH, tol);
    ExpectPlanarNear(ring[2], 10.5 + kH, 10.25 + 1, tol);
    ExpectXyzNear(ring[3], -kH, 11, -kH, tol);
    ExpectPlanarNear(ring[3], 0.5 - kH, 10.25 + 1, tol);
}

// (5,e) on the bottom of the square, with e = 1e-06, bends the edge inwards: a reflex turn.
// With arms (5,-e) and (-5,-e) over 5, (A x B).N = -10e/25 = -4e-07, above -5e-07, so the sign
// is -1 as for a convex corner. A + B is (0, -2e/5) and sin of the angle is also about 2e/5,
// so the vertex moves by (0, +1): into the square, where its neighbours' edge moves out.
TEST(RvPolygon2DExtend, TinyReflexTurnMovesAsIfConvex) {
    RvPolygon2D ring = Ring({RvPoint2D(0, 0), RvPoint2D(5, 1e-06), RvPoint2D(10, 0),
                             RvPoint2D(10, 10), RvPoint2D(0, 10)});
    ring.Extend(1.0);
    EXPECT_NEAR(ring[1].x, 5.0, 1e-09);
    EXPECT_NEAR(ring[1].y, 1.0, 0.01);
    EXPECT_NEAR(ring[1].y2D, 1.0, 0.01);
}

// With e = 1e-05 the same product is -4e-06, tolerantly below 0: the sign is +1 and the
// reflex vertex moves out with the edge, by (0,-1).
TEST(RvPolygon2DExtend, ClearReflexTurnMovesOutwards) {
    RvPolygon2D ring = Ring({RvPoint2D(0, 0), RvPoint2D(5, 1e-05), RvPoint2D(10, 0),
                             RvPoint2D(10, 10), RvPoint2D(0, 10)});
    ring.Extend(1.0);
    EXPECT_NEAR(ring[1].x, 5.0, 1e-09);
    EXPECT_NEAR(ring[1].y, -1.0, 0.01);
}

// A tiny convex turn, (5,-1e-06), has (A x B).N = +4e-07: sign -1, A + B = (0, 2e/5) and the
// vertex moves by (0,-1), out with the edge.
TEST(RvPolygon2DExtend, TinyConvexTurnMovesOutwards) {
    RvPolygon2D ring = Ring({RvPoint2D(0, 0), RvPoint2D(5, -1e-06), RvPoint2D(10, 0),
                             RvPoint2D(10, 10), RvPoint2D(0, 10)});
    ring.Extend(1.0);
    EXPECT_NEAR(ring[1].x, 5.0, 1e-09);
    EXPECT_NEAR(ring[1].y, -1.0, 0.01);
}

// ---- TestOffsetPoint -------------------------------------------------------------------------

TEST(RvPolygon2DTestOffsetPoint, PointOutsideFailsWithoutIndex) {
    RvPolygon2D ring = Square();
    RvPoint3D p(20, 5, 0);
    int index = kUnwritten;
    EXPECT_FALSE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, kUnwritten);
}

// (5,0.5): the first edge tested, (0,10)->(0,0), is 5 away; the next, (0,0)->(10,0), has the
// foot at t = 0.5 and is 0.5 away, nearer than 1: its end vertex is 1. Only |distance| counts,
// so a growing distance gives the same answer.
TEST(RvPolygon2DTestOffsetPoint, PointNearAnEdgeFailsWithTheEdgesEndVertex) {
    RvPolygon2D ring = Square();
    RvPoint3D p(5, 0.5, 0);
    int index = kUnwritten;
    EXPECT_FALSE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, 1);
    EXPECT_TRUE(PointIs(p, 5, 0.5, 0));

    index = kUnwritten;
    EXPECT_FALSE(TestOffsetPoint(ring, p, 1.0, index));
    EXPECT_EQ(index, 1);
}

// (5,5) is 5 from every edge, each foot at t = 0.5: no corner is tested, and the point passes.
TEST(RvPolygon2DTestOffsetPoint, PointInsideAndFarPasses) {
    RvPolygon2D ring = Square();
    RvPoint3D p(5, 5, 0);
    int index = kUnwritten;
    EXPECT_TRUE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, kUnwritten);
    EXPECT_TRUE(PointIs(p, 5, 5, 0));
}

// At the obtuse corner (10,0) the offset corner for -1 is R = (10,0) + (h-1, h) / h =
// (11 - sqrt(2), 1). X = (sqrt(2) - 1, -1), |X| = 1.0824, c = 1 / |X| = 0.9239, and the cone
// admits cosines above sqrt(1 - c^2) = 0.3827. (10.5,0.8) lies past the end of the bottom
// edge (t = -0.05), so the corner is tested: Y = (0.9142, -0.2), cosine 0.5713, inside the
// cone. The point fails there, before the slanted edge (0.21 away) could write an index.
TEST(RvPolygon2DTestOffsetPoint, PointInTheCornerConeFailsWithoutIndex) {
    RvPolygon2D ring = ObtuseCornered();
    RvPoint3D p(10.5, 0.8, 0);
    int index = kUnwritten;
    EXPECT_FALSE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, kUnwritten);
}

// (10.2,1.7) also lies past the end of the bottom edge, but Y = (0.6142, 0.7) makes a negative
// cosine with X: outside the cone. The slanted edge is 1.06 away (foot at t = 0.81), the others
// farther or beside the point, so it passes.
TEST(RvPolygon2DTestOffsetPoint, PointBesideTheCornerConePasses) {
    RvPolygon2D ring = ObtuseCornered();
    RvPoint3D p(10.2, 1.7, 0);
    int index = kUnwritten;
    EXPECT_TRUE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, kUnwritten);
}

// The edge (10,4)->(4,4) of the L, 0.5 above the points below, ends at the reflex corner (4,4),
// vertex 3; t = (x - 4) / 6. At x = 4 the foot is at t = 0 and the corner is tested: R =
// (3,3), X = (1,1), Y = (1,0.5), cosine 0.9487 above sqrt(0.5): fails, index unwritten.
TEST(RvPolygon2DTestOffsetPoint, FootAtTheEdgeEndTestsTheCorner) {
    RvPolygon2D ring = LShape();
    RvPoint3D p(4, 3.5, 0);
    int index = kUnwritten;
    EXPECT_FALSE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, kUnwritten);
}

// At x = 4 + 3e-07, t = 5e-08 lies in the gap from 1e-08 to 1e-07: neither the edge nor the
// corner is tested. The edge up from (4,4) has its foot beyond its start (t = 1.08) and the
// top edge at t = 1.000000075; all other edges are farther than 1. The point passes.
TEST(RvPolygon2DTestOffsetPoint, FootInTheNarrowGapIsNotTested) {
    RvPolygon2D ring = LShape();
    RvPoint3D p(4 + 3e-07, 3.5, 0);
    int index = kUnwritten;
    EXPECT_TRUE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, kUnwritten);
}

// At x = 4 + 1.2e-06, t = 2e-07 is on the edge, and the point 0.5 from it fails with the
// edge's end vertex 3.
TEST(RvPolygon2DTestOffsetPoint, FootJustPastTheGapTestsTheEdge) {
    RvPolygon2D ring = LShape();
    RvPoint3D p(4 + 1.2e-06, 3.5, 0);
    int index = kUnwritten;
    EXPECT_FALSE(TestOffsetPoint(ring, p, -1.0, index));
    EXPECT_EQ(index, 3);
}

// ---- IsExtendable ----------------------------------------------------------------------------

TEST(RvPolygon2DIsExtendable, SmallDistancesAreAlwaysPossible) {
    RvPolygon2D square = Square();
    EXPECT_TRUE(square.IsExtendable(0.0));
    EXPECT_TRUE(square.IsExtendable(-0.000001));
    EXPECT_TRUE(square.IsExtendable(100.0));

    RvPolygon2D triangle = Ring({RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(0, 1)});
    EXPECT_TRUE(triangle.IsExtendable(0.0));
    EXPECT_TRUE(triangle.IsExtendable(-0.000001));

    // Three vertices suffice, whatever their shape.
    RvPolygon2D line = CollinearRing();
    EXPECT_TRUE(line.IsExtendable(0.0));
    EXPECT_TRUE(line.IsExtendable(-0.000001));
}

TEST(RvPolygon2DIsExtendable, TwoVerticesAreNeverExtendable) {
    RvPolygon2D two = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0)});
    EXPECT_FALSE(two.IsExtendable(0.0));
    EXPECT_FALSE(two.IsExtendable(-0.000001));
    EXPECT_FALSE(two.IsExtendable(5.0));
    EXPECT_FALSE(two.IsExtendable(-5.0));
}

// For -4.9 the first corner's offset is (4.9,4.9): 4.9 from two edges, 5.1 from the others,
// and it passes. For -5.1 every offset corner is 4.9 from the two far edges, nearer than 5.1.
TEST(RvPolygon2DIsExtendable, SquareOfSideTenShrinksByLessThanFive) {
    RvPolygon2D square = Square();
    EXPECT_TRUE(square.IsExtendable(-4.9));
    EXPECT_FALSE(square.IsExtendable(-5.1));
}

// (2,0) and (6,0) continue the bottom edge: their A is parallel to B and they are skipped. The
// first corner is (10,0), whose offset for -4.9 is (5.1,4.9): 4.9 from the bottom and the right
// edge, and it passes. For -5.1 every corner's offset is 4.9 from some edge.
TEST(RvPolygon2DIsExtendable, CollinearVerticesAtTheStartAreSkipped) {
    RvPolygon2D ring = Ring({RvPoint2D(2, 0), RvPoint2D(6, 0), RvPoint2D(10, 0), RvPoint2D(10, 10),
                             RvPoint2D(0, 10), RvPoint2D(0, 0)});
    EXPECT_TRUE(ring.IsExtendable(-4.9));
    EXPECT_FALSE(ring.IsExtendable(-5.1));
}

// Three copies of one point: no backward vector is not null, so no shrinking is possible.
// Above -1e-05 (a plain comparison) the answer comes before any vertex is looked at.
TEST(RvPolygon2DIsExtendable, RingWithOnlyNullEdgesIsNotShrinkable) {
    RvPolygon2D ring = Ring({RvPoint2D(2, 2), RvPoint2D(2, 2), RvPoint2D(2, 2)});
    EXPECT_FALSE(ring.IsExtendable(-1.0));
    EXPECT_FALSE(ring.IsExtendable(-1e-05));
    EXPECT_TRUE(ring.IsExtendable(-9.9e-06));
    EXPECT_TRUE(ring.IsExtendable(0.0));
}

// Shrunk by 4.5, only the roof top survives: its offset (5, 11 - 4.5 sqrt(2)) = (5, 4.64) is
// 4.5 from both roof edges, 5 from the walls and 4.64 from the bottom. The eaves land at
// (4.5, 4.14) and (5.5, 4.14), 4.14 from the bottom; the bottom corners at (4.5,4.5) and
// (5.5,4.5), 4.24 from the roof edge across. By 4.9 the roof top lands at (5, 4.07), too near
// the bottom, and nothing survives.
TEST(RvPolygon2DIsExtendable, OneSurvivingCornerIsEnough) {
    RvPolygon2D house = House();
    EXPECT_TRUE(house.IsExtendable(-4.5));
    EXPECT_FALSE(house.IsExtendable(-4.9));
}

// Stored closed, the roof top's backward vector is null (its copy precedes it), so the walk
// starts at vertex 1 and runs to the end, where the copy's forward vector is null: the only
// corner that would survive is never tried.
TEST(RvPolygon2DIsExtendable, RingStoredClosedNeverTriesItsFirstCorner) {
    RvPolygon2D house = House();
    house.push_backA(RvPoint2D(5, 11));
    EXPECT_FALSE(house.IsExtendable(-4.5));
}

// ---- _GetReducedPolygon --------------------------------------------------------------------

TEST(RvPolygon2DReducedPolygon, GrowingGivesAnEqualCopy) {
    RvPolygon2D square = Square();
    EXPECT_TRUE(SameVertices(square._GetReducedPolygon(1.0), square));
    EXPECT_TRUE(SameVertices(square._GetReducedPolygon(0.0), square));
    // Above -1e-07 the operation is no shrinking either.
    EXPECT_TRUE(SameVertices(square._GetReducedPolygon(-5e-08), square));
}

TEST(RvPolygon2DReducedPolygon, FewerThanThreeVerticesGiveACopy) {
    RvPolygon2D two = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0)});
    EXPECT_TRUE(SameVertices(two._GetReducedPolygon(-1.0), two));
}

TEST(RvPolygon2DReducedPolygon, RingWithoutNormalGivesNothing) {
    RvPolygon2D line = CollinearRing();
    EXPECT_TRUE(line._GetReducedPolygon(-1.0).empty());
    EXPECT_EQ(line.size(), 3u);
}

// Rectangle 10 by 2 shrunk by 1.5: the long edges' offset ends are (1.5,1.5) and (8.5,1.5)
// (and (1.5,0.5), (8.5,0.5) above), 7 apart in the edge's direction. The short edges' ends
// cross: (1.5,1.5) and (1.5,0.5) on the left edge lie 1 apart against its direction. The
// bottom edge enters (0,0), (10,0), the top edge (10,2), (0,2): the same four vertices.
TEST(RvPolygon2DReducedPolygon, RectangleKeepsItsLongEdges) {
    RvPolygon2D rect = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 2), RvPoint2D(0, 2)});
    const RvPolygon2D before = rect;
    const RvPolygon2D reduced = rect._GetReducedPolygon(-1.5);
    ExpectFlatRing(reduced, {{0, 0}, {10, 0}, {10, 2}, {0, 2}}, 0.0);
    EXPECT_TRUE(SameVertices(rect, before));
}

// By 6 the bottom edge's ends land at (6,6) and (4,6), flipped, and the short edges' at
// (6,6) and (6,-4): every edge vanishes.
TEST(RvPolygon2DReducedPolygon, RectangleShrunkPastItsSizeVanishes) {
    RvPolygon2D rect = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 2), RvPoint2D(0, 2)});
    EXPECT_TRUE(rect._GetReducedPolygon(-6.0).empty());
}

// Every edge of the square survives a shrinking by 1. The first, (0,10)->(0,0), enters both
// its ends, each later edge its end alone, and the last one brings (0,10) back: that closing
// copy is removed, and the ring starts at (0,10).
TEST(RvPolygon2DReducedPolygon, ClosingRepeatOfTheFirstVertexIsRemoved) {
    RvPolygon2D square = Square();
    ExpectFlatRing(square._GetReducedPolygon(-1.0), {{0, 10}, {0, 0}, {10, 0}, {10, 10}}, 0.0);
    // Just past -1e-07 the operation already rebuilds the ring in that order.
    ExpectFlatRing(square._GetReducedPolygon(-2e-07), {{0, 10}, {0, 0}, {10, 0}, {10, 10}}, 0.0);
}

// An L with a foot 10 wide and 2 high, and a leg 4 wide up to y = 10, listed from (10,2) so
// that the foot's end (10,0)->(10,2) is the closing edge, shrunk by 1.5. That edge, 2 long
// between two convex corners, has its offset ends at (8.5,1.5) and (8.5,0.5): flipped, it
// vanishes. The top (4,10)->(0,10), 4 long, keeps 1 between (2.5,8.5) and (1.5,8.5); the
// edges at the reflex corner (4,2) keep their full length. So the ring starts with the next
// edge, (10,2)->(4,2), and ends with the bottom (0,0)->(10,0): the same six vertices, with no
// closing repeat. Had the closing edge survived, it would have entered (10,0), (10,2) first.
TEST(RvPolygon2DReducedPolygon, ShortEdgeOfAnLVanishes) {
    RvPolygon2D ring = Ring({RvPoint2D(10, 2), RvPoint2D(4, 2), RvPoint2D(4, 10), RvPoint2D(0, 10),
                             RvPoint2D(0, 0), RvPoint2D(10, 0)});
    ExpectFlatRing(ring._GetReducedPolygon(-1.5),
                   {{10, 2}, {4, 2}, {4, 10}, {0, 10}, {0, 0}, {10, 0}}, 0.0);
    // Shrunk by 0.5 the same edge keeps 1 of its length, and the ring starts with it.
    ExpectFlatRing(ring._GetReducedPolygon(-0.5),
                   {{10, 0}, {10, 2}, {4, 2}, {4, 10}, {0, 10}, {0, 0}}, 0.0);
}

}  // namespace
