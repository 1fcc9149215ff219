// Cutting a polygon by a plane in space, whole or between two points of the plane: the ring of
// vertices and crossings, the chords between crossings paired along the line of cut, and the
// walk that traces the pieces, inner rings before the ring that led to them.

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"
#include "support/RandomPolygons.h"
#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private steps of the plane cut.
struct RvPolygon2DTestAccess {
    static int FindNearestChord(const SplitChords& chords, bool anyType) {
        return RvPolygon2D::FindNearestChord(chords, anyType);
    }
    static void TraceChordLoops(SplitNode* start, std::vector<RvPolygon2D>& result) {
        RvPolygon2D::TraceChordLoops(start, result);
    }
};

namespace {

using testing_support::CorpusRandom;
using testing_support::ExpectVerticesNear;
using testing_support::Outline;
using testing_support::Pt;
using testing_support::SameVertices;
using testing_support::VertexAt;

// A polygon of the given points in space.
RvPolygon2D Polygon(std::initializer_list<VertexAt> points) {
    RvPolygon2D p;
    for (const VertexAt& v : points) {
        p.push_backA(RvPoint2D(v.x, v.y, v.z));
    }
    return p;
}

// The pieces of `p` cut by the plane through `point` with normal `normal`, in a fresh vector.
std::vector<RvPolygon2D> CutByPlane(RvPolygon2D p, const RvPoint3D& point,
                                    const RvPoint3D& normal) {
    std::vector<RvPolygon2D> result;
    p.SplitWithPlane(point, normal, result);
    return result;
}

// The pieces of `p` cut by the plane through `first` with normal `normal`, between `first` and
// `second`, in a fresh vector.
std::vector<RvPolygon2D> CutBySegment(RvPolygon2D p, const RvPoint3D& first,
                                      const RvPoint3D& second, const RvPoint3D& normal) {
    std::vector<RvPolygon2D> result;
    p.SplitWithPlaneSegment(first, second, normal, result);
    return result;
}

// The planar area of a ring by the shoelace formula, unsigned.
double Area2D(const RvPolygon2D& p) {
    double twice = 0.0;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const RvPoint2D& a = p[i];
        const RvPoint2D& b = p[(i + 1) % p.size()];
        twice += a.x2D * b.y2D - b.x2D * a.y2D;
    }
    return std::fabs(twice) / 2.0;
}

double MinX(const RvPolygon2D& p) {
    double m = HUGE_VAL;
    for (const RvPoint2D& v : p) {
        m = std::min(m, v.x2D);
    }
    return m;
}

double MaxX(const RvPolygon2D& p) {
    double m = -HUGE_VAL;
    for (const RvPoint2D& v : p) {
        m = std::max(m, v.x2D);
    }
    return m;
}

const RvPoint3D kAlongX(1.0, 0.0, 0.0);
const RvPoint3D kAlongY(0.0, 1.0, 0.0);

// The square (0,0), (10,0), (10,10), (0,10), counterclockwise.
RvPolygon2D Square() {
    return Polygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// A U of width 30 and height 20 with a slot 10 wide and 10 deep from the top: two arms 10
// wide, x from 0 to 10 and from 20 to 30, on a base 10 high.
RvPolygon2D UShape() {
    return Polygon({{0, 0}, {30, 0}, {30, 20}, {20, 20}, {20, 10}, {10, 10}, {10, 20}, {0, 20}});
}

// A 20 by 20 square with a notch from its right side whose bottom is the edge from (10,5) to
// (10,15) and whose sides slant outwards to (20,2) and (20,18). Area 400 - 130 = 270.
RvPolygon2D NotchedSquare() {
    return Polygon({{0, 0}, {20, 0}, {20, 2}, {10, 5}, {10, 15}, {20, 18}, {20, 20}, {0, 20}});
}

// ---------------------------------------------------------------------------------------------
// SplitWithPlane

TEST(RvPolygon2DSplitWithPlaneTest, SquareCutThroughItsMiddleGivesTheRightHalfFirst) {
    // The ring is (0,0) (5,0)x (10,0) (10,10) (5,10)x (0,10), x the crossings; they sit at 0
    // and 10 along the line and are paired. The walk from (0,0) reaches (5,0), takes the chord
    // to (5,10) and moves on to (0,10); the ring still hanging from (5,0), the right half, is
    // traced and appended before the left half is closed.
    const std::vector<RvPolygon2D> result = CutByPlane(Square(), RvPoint3D(5, 0, 0), kAlongX);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
    ExpectVerticesNear(result[1], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithPlaneTest, PlaneTouchingTheRingInAVertexOnlyMakesNoCrossing) {
    // The plane x = 10 meets the diamond only in (10,5); both its neighbours lie on the side
    // x < 10, so no crossing is made and the ring comes back as it was.
    const RvPolygon2D diamond = Polygon({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    const std::vector<RvPolygon2D> result = CutByPlane(diamond, RvPoint3D(10, 0, 0), kAlongX);
    ASSERT_EQ(result.size(), 1U);
    ExpectVerticesNear(result[0], {{5, 0}, {10, 5}, {5, 10}, {0, 5}});
}

TEST(RvPolygon2DSplitWithPlaneTest, PlaneThroughTwoVerticesCutsAtEachOnceAsTheStartOfItsEdge) {
    // The plane x = 5 passes through (5,0) and (5,10). The edges ending there reach the plane at
    // t = 1, outside the window, and make nothing; the edges starting there meet it at t = 0,
    // with the neighbours on either side, and make one crossing each, at the vertex itself.
    // The ring is (5,0) (5,0)x (10,5) (5,10) (5,10)x (0,5); the repeated points merge as the
    // rings are assembled. The walk leaves (5,0) along the chord to (5,10) and traces the right
    // triangle from the crossing at (5,0) before it closes the left one.
    const RvPolygon2D diamond = Polygon({{5, 0}, {10, 5}, {5, 10}, {0, 5}});
    const std::vector<RvPolygon2D> result = CutByPlane(diamond, RvPoint3D(5, 0, 0), kAlongX);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{5, 0}, {10, 5}, {5, 10}});
    ExpectVerticesNear(result[1], {{5, 0}, {5, 10}, {0, 5}});
}

TEST(RvPolygon2DSplitWithPlaneTest, CrossingNearAVertexCountsOnlyWithinTheWindow) {
    // The trapezoid (-5,0), (5 + e,0), (15 + e,10), (-5,10) cut by x = 5: the bottom edge reaches
    // the plane at t = 10 / (10 + e), just short of 1, and the slanted edge after it at
    // t = -e / 10, just below 0; the top edge is crossed at (5,10) in its middle.
    //
    // With e = 5e-08 the bottom edge's t lies above 0.9999999 and makes nothing, but the slanted
    // edge's t = -5e-09 lies inside the window: (5 + e,0) counts as a vertex on the plane, with
    // its neighbours on either side, and the crossing is made at the start of the slanted edge,
    // (5, -5e-08). The two pieces are the triangle beyond the plane and the rectangle before it
    // (the crossing itself is merged into (5 + e,0) there, being nearer than the null band).
    {
        const double e = 5e-08;
        const RvPolygon2D p = Polygon({{-5, 0}, {5 + e, 0}, {15 + e, 10}, {-5, 10}});
        const std::vector<RvPolygon2D> result = CutByPlane(p, RvPoint3D(5, 0, 0), kAlongX);
        ASSERT_EQ(result.size(), 2U);
        ExpectVerticesNear(result[0], {{5, 0}, {15, 10}, {5, 10}}, 1e-6);
        ExpectVerticesNear(result[1], {{-5, 0}, {5, 0}, {5, 10}, {-5, 10}}, 1e-6);
    }
    // With e = 5e-07 the bottom edge's t, 1 - 5e-08, still lies above 0.9999999, and the slanted
    // edge's, -5e-08, lies below -1e-08: neither end of the window takes the crossing. The one
    // crossing left, on the top edge, finds no partner, and the trapezoid comes back whole.
    {
        const double e = 5e-07;
        const RvPolygon2D p = Polygon({{-5, 0}, {5 + e, 0}, {15 + e, 10}, {-5, 10}});
        const std::vector<RvPolygon2D> result = CutByPlane(p, RvPoint3D(5, 0, 0), kAlongX);
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(result[0], {{-5, 0}, {5 + e, 0}, {15 + e, 10}, {-5, 10}}, 1e-12);
    }
}

TEST(RvPolygon2DSplitWithPlaneTest, EdgeLyingInThePlaneMakesNoCrossing) {
    // The right side of the square lies in x = 10: it is parallel to the plane, the bottom edge
    // reaches the plane at t = 1, and (10,10), where the top edge starts, has its previous
    // neighbour in the plane, which counts as a touch.
    {
        const std::vector<RvPolygon2D> result = CutByPlane(Square(), RvPoint3D(10, 0, 0), kAlongX);
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    }
    // Two steps whose risers lie in x = 10: the ring runs from one side of the plane to the
    // other and back through them, yet neither riser nor its ends makes a crossing.
    {
        const RvPolygon2D steps =
            Polygon({{0, 0}, {10, 0}, {10, 5}, {20, 5}, {20, 10}, {10, 10}, {10, 15}, {0, 15}});
        const std::vector<RvPolygon2D> result = CutByPlane(steps, RvPoint3D(10, 0, 0), kAlongX);
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(
            result[0], {{0, 0}, {10, 0}, {10, 5}, {20, 5}, {20, 10}, {10, 10}, {10, 15}, {0, 15}});
    }
}

TEST(RvPolygon2DSplitWithPlaneTest, NotchWhoseBottomLiesInThePlaneGivesTwoPieces) {
    // Only the bottom and top edges are crossed, at (10,0) and (10,20); the bottom of the notch
    // lies in the plane and stays a side of the right piece.
    const std::vector<RvPolygon2D> result =
        CutByPlane(NotchedSquare(), RvPoint3D(10, 0, 0), kAlongX);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(
        result[0], {{10, 0}, {20, 0}, {20, 2}, {10, 5}, {10, 15}, {20, 18}, {20, 20}, {10, 20}});
    ExpectVerticesNear(result[1], {{0, 0}, {10, 0}, {10, 20}, {0, 20}});
}

TEST(RvPolygon2DSplitWithPlaneTest, PlaneMissingThePolygonGivesItBackCleaned) {
    // Without crossings the ring of vertices is traced as it stands, through AddPolygonPoint,
    // which drops a vertex in the middle of a straight run, and the seam is tidied: a first or
    // last vertex inside the segment between its neighbours goes.
    {
        const RvPolygon2D p = Polygon({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}});
        const std::vector<RvPolygon2D> result = CutByPlane(p, RvPoint3D(20, 0, 0), kAlongX);
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    }
    {
        const RvPolygon2D p = Polygon({{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
        const std::vector<RvPolygon2D> result = CutByPlane(p, RvPoint3D(20, 0, 0), kAlongX);
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(result[0], {{10, 0}, {10, 10}, {0, 10}, {0, 0}});
    }
    {
        const RvPolygon2D p = Polygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}});
        const std::vector<RvPolygon2D> result = CutByPlane(p, RvPoint3D(-3, 0, 0), kAlongX);
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    }
    // A plane parallel to the polygon's own: every edge is parallel to it.
    {
        const RvPolygon2D p = Polygon({{0, 0, 2}, {10, 0, 2}, {10, 10, 2}, {0, 10, 2}});
        const std::vector<RvPolygon2D> result =
            CutByPlane(p, RvPoint3D(0, 0, 5), RvPoint3D(0, 0, 1));
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(result[0], {{0, 0, 2}, {10, 0, 2}, {10, 10, 2}, {0, 10, 2}});
    }
}

TEST(RvPolygon2DSplitWithPlaneTest, SingleCrossingStaysUnpairedAndTheRingComesBackWhole) {
    // The riser from (10,0) to (10,5) lies in the plane, so the only crossing is (10,10) on the
    // top edge. Its record finds no partner and no pair came before it: it stays an ordinary
    // node of the ring, and AddPolygonPoint merges it into the top edge.
    const RvPolygon2D step = Polygon({{0, 0}, {10, 0}, {10, 5}, {20, 5}, {20, 10}, {0, 10}});
    const std::vector<RvPolygon2D> result = CutByPlane(step, RvPoint3D(10, 0, 0), kAlongX);
    ASSERT_EQ(result.size(), 1U);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 5}, {20, 5}, {20, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithPlaneTest, ThirdCrossingIsLinkedToThePartnerOfThePairBefore) {
    // The ring: (0,0) (10,0) (10,5) (20,5) (20,20) X1 (0,20) (0,15) X2 (15,15) (15,10) X3
    // (0,10), with the crossings X1 (10,20), X2 (10,15), X3 (10,10); the riser from (10,0) to
    // (10,5) lies in the plane and makes none. Along the line X1 is at 0, X2 at 5, X3 at 10.
    // X1 and X2 are paired; X3 finds no partner and is linked to X2, which the failed take
    // leaves as it was. So X2 holds its ring link, then X1, then X3.
    //
    // The walk: (0,0) .. (20,20), X1, chord to X2 (X1 keeps its ring link): add X2, move on
    // along X2's ring link to (15,15), and trace from X1:
    //   X1 (0,20) (0,15) X2, chord to X3 (X2 keeps X1): add X3, move on to (0,10), trace from
    //   X2: X2 takes its last link back to X1, which has none left: the ring of X2 alone.
    //   Then (0,10) leads to (0,0), used up: ring X1 (0,20) (0,15) X2 X3 (0,10).
    // Then (15,15) (15,10) X3, whose last link leads to X2, used up: the outer ring.
    // Nothing crashes, and every link is walked once.
    const RvPolygon2D p = Polygon({{0, 0},
                                   {10, 0},
                                   {10, 5},
                                   {20, 5},
                                   {20, 20},
                                   {0, 20},
                                   {0, 15},
                                   {15, 15},
                                   {15, 10},
                                   {0, 10}});
    const std::vector<RvPolygon2D> result = CutByPlane(p, RvPoint3D(10, 0, 0), kAlongX);
    ASSERT_EQ(result.size(), 3U);
    ExpectVerticesNear(result[0], {{10, 15}});
    ExpectVerticesNear(result[1], {{10, 20}, {0, 20}, {0, 15}, {10, 15}, {10, 10}, {0, 10}});
    ExpectVerticesNear(result[2], {{0, 0},
                                   {10, 0},
                                   {10, 5},
                                   {20, 5},
                                   {20, 20},
                                   {10, 20},
                                   {10, 15},
                                   {15, 15},
                                   {15, 10},
                                   {10, 10}});
}

TEST(RvPolygon2DSplitWithPlaneTest, UShapeCutAcrossBothArmsGivesThreePiecesPairedByPosition) {
    // The plane y = 15 crosses the right side of the right arm (30,15), its left side (20,15),
    // the right side of the left arm (10,15) and its left side (0,15), in that order round the
    // ring. Along the line they sit at 0, 10, 20 and 30 from (30,15); the nearest two are
    // paired, then the next two: each arm's two sides, not the first and last of the ring.
    // Each arm's top is traced from its first crossing as the walk passes it; the base, which
    // the walk started on, closes last.
    const std::vector<RvPolygon2D> result = CutByPlane(UShape(), RvPoint3D(0, 15, 0), kAlongY);
    ASSERT_EQ(result.size(), 3U);
    ExpectVerticesNear(result[0], {{30, 15}, {30, 20}, {20, 20}, {20, 15}});
    ExpectVerticesNear(result[1], {{10, 15}, {10, 20}, {0, 20}, {0, 15}});
    ExpectVerticesNear(
        result[2], {{0, 0}, {30, 0}, {30, 15}, {20, 15}, {20, 10}, {10, 10}, {10, 15}, {0, 15}});
    EXPECT_NEAR(Area2D(result[0]) + Area2D(result[1]) + Area2D(result[2]), 500.0, 1e-9);
}

TEST(RvPolygon2DSplitWithPlaneTest, CrossingsBehindTheFirstAlongTheLineHaveNegativePositions) {
    // The same U started at (20,20): the first crossing is (20,15), at 0; the second, (10,15),
    // sets the direction -x and is at 10; (0,15) is at 20; (30,15), found last, lies behind the
    // first and is at -10. Sorted: (30,15) -10, (20,15) 0, (10,15) 10, (0,15) 20, so each arm's
    // sides are paired. Measured without sign, (30,15) would tie with (10,15) at 10, and
    // (20,15) would be paired with (10,15), across the slot.
    //
    // The walk from (20,20) takes the chord from (20,15) to (30,15) and traces from (20,15)
    // down the slot, across the base and up to (30,15); on the way it meets (10,15) and traces
    // the left arm first. The right arm's top closes last, with the walk's start.
    const RvPolygon2D u =
        Polygon({{20, 20}, {20, 10}, {10, 10}, {10, 20}, {0, 20}, {0, 0}, {30, 0}, {30, 20}});
    const std::vector<RvPolygon2D> result = CutByPlane(u, RvPoint3D(0, 15, 0), kAlongY);
    ASSERT_EQ(result.size(), 3U);
    ExpectVerticesNear(result[0], {{10, 15}, {10, 20}, {0, 20}, {0, 15}});
    ExpectVerticesNear(
        result[1], {{20, 15}, {20, 10}, {10, 10}, {10, 15}, {0, 15}, {0, 0}, {30, 0}, {30, 15}});
    ExpectVerticesNear(result[2], {{20, 20}, {20, 15}, {30, 15}, {30, 20}});
}

TEST(RvPolygon2DSplitWithPlaneTest, TiltedPlaneCutsARampInSpace) {
    // The ramp z = y over the square, cut by the plane x + z = 12 (normal (1,0,1), through
    // (12,0,0)). The edge from (10,0,0) to (10,10,10) meets it at t = 0.2, (10,2,2); the edge
    // from (10,10,10) to (0,10,10) at t = 0.8, (2,10,10); the other two miss it within their
    // window (t = 1.2 and -0.2). The corner (10,10,10) is cut off as a triangle.
    const RvPolygon2D ramp = Polygon({{0, 0, 0}, {10, 0, 0}, {10, 10, 10}, {0, 10, 10}});
    const std::vector<RvPolygon2D> result =
        CutByPlane(ramp, RvPoint3D(12, 0, 0), RvPoint3D(1, 0, 1));
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{10, 2, 2}, {10, 10, 10}, {2, 10, 10}}, 1e-12);
    ExpectVerticesNear(result[1], {{0, 0, 0}, {10, 0, 0}, {10, 2, 2}, {2, 10, 10}, {0, 10, 10}},
                       1e-12);
}

TEST(RvPolygon2DSplitWithPlaneTest, PiecesAreAppendedAfterWhatTheListHeld) {
    const RvPolygon2D before = Polygon({{100, 100}, {101, 100}, {101, 101}});
    std::vector<RvPolygon2D> result{before};
    RvPolygon2D square = Square();
    square.SplitWithPlane(RvPoint3D(5, 0, 0), kAlongX, result);
    ASSERT_EQ(result.size(), 3U);
    EXPECT_TRUE(SameVertices(result[0], before));
    ExpectVerticesNear(result[1], {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
    ExpectVerticesNear(result[2], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});

    // Segment cut into the same list: appended again.
    square.SplitWithPlaneSegment(RvPoint3D(5, -1, 0), RvPoint3D(5, 11, 0), kAlongX, result);
    ASSERT_EQ(result.size(), 5U);
    EXPECT_TRUE(SameVertices(result[0], before));
    ExpectVerticesNear(result[3], {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
    ExpectVerticesNear(result[4], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
}

// ---------------------------------------------------------------------------------------------
// SplitWithPlaneSegment

TEST(RvPolygon2DSplitWithPlaneSegmentTest, BothPointsInsideTheSquareLeaveItUnsplit) {
    // The crossings (5,0) and (5,10) lie beyond (5,3) and (5,7): (X - first)·(X - second) is 21
    // for both, so neither is made.
    const std::vector<RvPolygon2D> result =
        CutBySegment(Square(), RvPoint3D(5, 3, 0), RvPoint3D(5, 7, 0), kAlongX);
    ASSERT_EQ(result.size(), 1U);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, SegmentAcrossTheWholeSquareCutsItLikeThePlane) {
    const std::vector<RvPolygon2D> result =
        CutBySegment(Square(), RvPoint3D(5, -1, 0), RvPoint3D(5, 11, 0), kAlongX);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
    ExpectVerticesNear(result[1], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, CrossingsAtTheEndPointsThemselvesAreNotMade) {
    // The points are the crossings (5,0) and (5,10): the product is 0 there, not below 1e-08 by
    // the band.
    const std::vector<RvPolygon2D> result =
        CutBySegment(Square(), RvPoint3D(5, 0, 0), RvPoint3D(5, 10, 0), kAlongX);
    ASSERT_EQ(result.size(), 1U);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, SegmentCoveringOneArmOfAUCutsOnlyThatArm) {
    // From (15,15) to (35,15) the segment holds the crossings (30,15) and (20,15) of the right
    // arm; (10,15) and (0,15) lie beyond (15,15) and are not made.
    const std::vector<RvPolygon2D> result =
        CutBySegment(UShape(), RvPoint3D(15, 15, 0), RvPoint3D(35, 15, 0), kAlongY);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{30, 15}, {30, 20}, {20, 20}, {20, 15}});
    ExpectVerticesNear(
        result[1], {{0, 0}, {30, 0}, {30, 15}, {20, 15}, {20, 10}, {10, 10}, {10, 20}, {0, 20}});
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, EdgeInThePlaneSeenFromOutsideMakesItsStartACrossing) {
    // The notch bottom from (10,5) to (10,15) lies in the plane x = 10. From (10,5), one unit
    // towards (20,2) and one along (10,15)-(20,18) leads to (11.92, 5.00), inside the notch,
    // outside the polygon; and (10,5) lies between (10,-5) and (10,10). So its node becomes a
    // crossing, at 5 along the line from the crossing (10,0) at 0, and the two are paired.
    // (10,15) ends the run of edges in the plane but lies beyond (10,10): it stays a vertex; so
    // does (10,20), beyond the segment.
    const std::vector<RvPolygon2D> result =
        CutBySegment(NotchedSquare(), RvPoint3D(10, -5, 0), RvPoint3D(10, 10, 0), kAlongX);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{10, 0}, {20, 0}, {20, 2}, {10, 5}});
    ExpectVerticesNear(result[1], {{0, 0}, {10, 0}, {10, 15}, {20, 18}, {20, 20}, {0, 20}});
    EXPECT_NEAR(Area2D(result[0]), 35.0, 1e-9);
    EXPECT_NEAR(Area2D(result[1]), 235.0, 1e-9);
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, VertexEndingARunOfEdgesInThePlaneBecomesACrossing) {
    // (10,15) lies on the plane (t = 0 on its edge to (20,18)), and the edge before it, the
    // notch bottom, lies in the plane: the vertex is not fresh. One unit back towards (10,5)
    // and one along its edge leads to (10.96, 14.29), inside the notch: its own node becomes a
    // crossing, and no new node is made. (10,5) lies below (10,10) and stays a vertex. Along the
    // line (10,15) is at 0 and (10,20) at 5; the two are paired and cut off the upper tongue.
    const std::vector<RvPolygon2D> result =
        CutBySegment(NotchedSquare(), RvPoint3D(10, 10, 0), RvPoint3D(10, 25, 0), kAlongX);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{10, 15}, {20, 18}, {20, 20}, {10, 20}});
    ExpectVerticesNear(result[1], {{0, 0}, {20, 0}, {20, 2}, {10, 5}, {10, 20}, {0, 20}});
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, SegmentAlongTheWholeNotchCutsOffBothTongues) {
    // Both ends of the notch bottom become crossings: the chords run from (10,0) to (10,5) and
    // from (10,15) to (10,20), paired by their places 0, 5, 15 and 20 along the line.
    const std::vector<RvPolygon2D> result =
        CutBySegment(NotchedSquare(), RvPoint3D(10, -5, 0), RvPoint3D(10, 25, 0), kAlongX);
    ASSERT_EQ(result.size(), 3U);
    ExpectVerticesNear(result[0], {{10, 0}, {20, 0}, {20, 2}, {10, 5}});
    ExpectVerticesNear(result[1], {{10, 15}, {20, 18}, {20, 20}, {10, 20}});
    ExpectVerticesNear(result[2], {{0, 0}, {10, 0}, {10, 20}, {0, 20}});
    EXPECT_NEAR(Area2D(result[0]) + Area2D(result[1]) + Area2D(result[2]), 270.0, 1e-9);
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, EdgeInThePlaneSeenFromInsideMakesNoCrossing) {
    // The left side of the square lies in x = 0. From (0,10), where it starts, one unit towards
    // (10,10) and one along the bottom edge lead to (2,10), on the boundary, which counts as
    // inside. (0,0), where it ends, lies on the plane and is not fresh, but one unit towards
    // (0,10) and one along the bottom edge lead to (1,1), inside. No node becomes a crossing,
    // and the square comes back whole.
    const std::vector<RvPolygon2D> result =
        CutBySegment(Square(), RvPoint3D(0, -5, 0), RvPoint3D(0, 15, 0), kAlongX);
    ASSERT_EQ(result.size(), 1U);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DSplitWithPlaneSegmentTest, TouchingVerticesBetweenThePointsAreMadeCrossings) {
    // The plane y = 10 touches the ring in (10,10) and (0,10), each with both neighbours below.
    // SplitWithPlane passes such touches over; the segment cut has no such test: a vertex on
    // the plane whose edge before it is not in the plane is fresh, and a crossing is made at it
    // when it lies between the points. The two touches pair up, and the chord between them
    // closes the notch: the notch triangle comes back as a piece, and the other piece is the
    // notch's hull, the square.
    const RvPolygon2D w = Polygon({{0, 0}, {10, 0}, {10, 10}, {5, 5}, {0, 10}});
    {
        const std::vector<RvPolygon2D> result = CutByPlane(w, RvPoint3D(-1, 10, 0), kAlongY);
        ASSERT_EQ(result.size(), 1U);
        ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {5, 5}, {0, 10}});
    }
    const std::vector<RvPolygon2D> result =
        CutBySegment(w, RvPoint3D(-1, 10, 0), RvPoint3D(11, 10, 0), kAlongY);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{10, 10}, {5, 5}, {0, 10}});
    ExpectVerticesNear(result[1], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// ---------------------------------------------------------------------------------------------
// FindNearestChord

// A node of the given type, kept alive by `nodes`.
SplitNode* NodeOfType(SplitNodes& nodes, int type) {
    return AddSplitNode(nodes, type, RvPoint2D(0, 0), -1);
}

TEST(RvPolygon2DFindNearestChordTest, EmptyListGivesZero) {
    const SplitChords chords;
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, false), 0);
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, true), 0);
}

TEST(RvPolygon2DFindNearestChordTest, OnlyRecordsOfOtherTypesGiveMinusOne) {
    SplitNodes nodes;
    const SplitChords chords{
        {NodeOfType(nodes, 1), 3.0}, {NodeOfType(nodes, 0), -2.0}, {NodeOfType(nodes, 1), 1.0}};
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, false), -1);
    // With any type the least position, -2, wins.
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, true), 1);
}

TEST(RvPolygon2DFindNearestChordTest, LeastPositionWinsAndTheFirstOfEquals) {
    SplitNodes nodes;
    const SplitChords chords{{NodeOfType(nodes, 2), 3.0},
                             {NodeOfType(nodes, 2), -2.5},
                             {NodeOfType(nodes, 2), 7.0},
                             {NodeOfType(nodes, 2), -2.5},
                             {NodeOfType(nodes, 2), 0.0}};
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, false), 1);
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, true), 1);
    // Positions are compared as they are: a difference far inside any tolerance still decides.
    const SplitChords close{{NodeOfType(nodes, 2), 1.0}, {NodeOfType(nodes, 2), 1.0 - 1e-12}};
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(close, false), 1);
}

TEST(RvPolygon2DFindNearestChordTest, AnyTypeAcceptsType1Records) {
    SplitNodes nodes;
    const SplitChords chords{{NodeOfType(nodes, 2), 4.0},
                             {NodeOfType(nodes, 1), -6.0},
                             {NodeOfType(nodes, 2), 2.0},
                             {NodeOfType(nodes, 0), -9.0}};
    // Type 2 only: the type 1 record at -6 and the type 0 at -9 are passed over.
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, false), 2);
    // Any type: -9 is least.
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(chords, true), 3);
    const SplitChords type1First{{NodeOfType(nodes, 1), -1.0}, {NodeOfType(nodes, 2), 0.0}};
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(type1First, true), 0);
    EXPECT_EQ(RvPolygon2DTestAccess::FindNearestChord(type1First, false), 1);
}

// ---------------------------------------------------------------------------------------------
// TraceChordLoops

// The walk written as plain recursion: from `start`, add each node's point and leave it by its
// last link; where the node left keeps links, count them once, and for each, add the point
// reached, move on by its first link, and trace again from the node left.
void ReferenceTrace(SplitNode* start, std::vector<RvPolygon2D>& result) {
    if (start->links.empty()) {
        return;
    }
    RvPolygon2D ring;
    SplitNode* node = start;
    while (!node->links.empty()) {
        ring.AddPolygonPoint(node->point);
        SplitNode* from = node;
        node = from->links.back();
        from->links.pop_back();
        if (!from->links.empty()) {
            const std::size_t rounds = from->links.size();
            for (std::size_t k = 0; k < rounds; ++k) {
                ring.AddPolygonPoint(node->point);
                if (!node->links.empty()) {
                    SplitNode* next = node->links.front();
                    node->links.pop_front();
                    node = next;
                }
                ReferenceTrace(from, result);
            }
        }
    }
    AppendTracedRing(ring, result);
}

// A graph by its points and, for each node, the indices its links lead to, in order.
struct GraphPlan {
    std::vector<RvPoint2D> points;
    std::vector<std::vector<int>> links;
    int start = 0;
};

SplitNodes BuildGraph(const GraphPlan& plan) {
    SplitNodes nodes;
    for (const RvPoint2D& p : plan.points) {
        AddSplitNode(nodes, 0, p, -1);
    }
    for (std::size_t i = 0; i < plan.links.size(); ++i) {
        for (const int to : plan.links[i]) {
            nodes[i]->links.push_back(nodes[static_cast<std::size_t>(to)].get());
        }
    }
    return nodes;
}

// The links left in the graph, as indices.
std::vector<std::vector<int>> LinksLeft(const SplitNodes& nodes) {
    std::map<const SplitNode*, int> index;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        index[nodes[i].get()] = static_cast<int>(i);
    }
    std::vector<std::vector<int>> left;
    for (const auto& node : nodes) {
        left.emplace_back();
        for (const SplitNode* to : node->links) {
            left.back().push_back(index.at(to));
        }
    }
    return left;
}

TEST(RvPolygon2DTraceChordLoopsTest, StartWithoutLinksAddsNothing) {
    SplitNodes nodes;
    SplitNode* lone = AddSplitNode(nodes, 0, RvPoint2D(1, 2), -1);
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceChordLoops(lone, result);
    EXPECT_TRUE(result.empty());
}

TEST(RvPolygon2DTraceChordLoopsTest, RoundsAreCountedOnceBeforeTheInnerRingsUseUpTheLinks) {
    // S(0,0) -> F(10,0); F -> A(10,10), X(0,10), B(20,0); A -> F; X -> F; B -> C(20,10);
    // C -> D(30,5), E(40,40); D -> S.
    //
    // S, then F, which leaves by B and keeps two links: two rounds.
    //   Round 1: add B (it extends S-F, so it replaces F), move on to C, trace from F:
    //     F leaves by X and keeps A: one round: add X, move on to F, trace from F:
    //       F leaves by A, A by F, which has none: ring F A.
    //     F has none: ring F X.
    //   Round 2: F has no links left, but the count stands: add C, move on by C's first link to
    //   D (C keeps E), and the trace from F adds nothing.
    // D leads to S, used up: ring S B C D.
    // Counting F's links again before round 2 would instead stop the rounds and leave C by E.
    GraphPlan plan;
    plan.points = {RvPoint2D(0, 0),  RvPoint2D(10, 0),  RvPoint2D(10, 10), RvPoint2D(0, 10),
                   RvPoint2D(20, 0), RvPoint2D(20, 10), RvPoint2D(30, 5),  RvPoint2D(40, 40)};
    enum { S, F, A, X, B, C, D, E };
    plan.links = {{F}, {A, X, B}, {F}, {F}, {C}, {D, E}, {S}, {}};
    SplitNodes nodes = BuildGraph(plan);
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceChordLoops(nodes[S].get(), result);
    ASSERT_EQ(result.size(), 3U);
    ExpectVerticesNear(result[0], {{10, 0}, {10, 10}});
    ExpectVerticesNear(result[1], {{10, 0}, {0, 10}});
    ExpectVerticesNear(result[2], {{0, 0}, {20, 0}, {20, 10}, {30, 5}});
    const std::vector<std::vector<int>> left = LinksLeft(nodes);
    EXPECT_EQ(left[C], std::vector<int>{E});
    for (const int n : {S, F, A, X, B, D, E}) {
        EXPECT_TRUE(left[static_cast<std::size_t>(n)].empty()) << "node " << n;
    }
}

TEST(RvPolygon2DTraceChordLoopsTest, ChordedSquareTracesTheFarRingFirst) {
    // The graph SplitWithPlane makes for the square cut at x = 5, built by hand: the ring
    // n0 c1 n1 n2 c2 n3 with the chord c1-c2 at the back of both.
    GraphPlan plan;
    plan.points = {RvPoint2D(0, 0),   RvPoint2D(5, 0),  RvPoint2D(10, 0),
                   RvPoint2D(10, 10), RvPoint2D(5, 10), RvPoint2D(0, 10)};
    plan.links = {{1}, {2, 4}, {3}, {4}, {5, 1}, {0}};
    SplitNodes nodes = BuildGraph(plan);
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceChordLoops(nodes[0].get(), result);
    ASSERT_EQ(result.size(), 2U);
    ExpectVerticesNear(result[0], {{5, 0}, {10, 0}, {10, 10}, {5, 10}});
    ExpectVerticesNear(result[1], {{0, 0}, {5, 0}, {5, 10}, {0, 10}});
    for (const std::vector<int>& l : LinksLeft(nodes)) {
        EXPECT_TRUE(l.empty());
    }
}

// A ring of 3 to 24 nodes, each linked to the next, with random chords laid both ways at the
// back of both ends (nodes may carry several), and now and then a few one-way links. Half the
// graphs take their points from a 5 by 5 grid, so that repeats, straight runs and folds back
// reach AddPolygonPoint and the seam tidying.
GraphPlan RandomGraph(CorpusRandom& rng) {
    GraphPlan plan;
    const int n = rng.Between(3, 24);
    const bool grid = rng.Chance(0.5);
    for (int i = 0; i < n; ++i) {
        if (grid) {
            const int x = rng.Between(0, 4);
            const int y = rng.Between(0, 4);
            plan.points.emplace_back(static_cast<double>(x), static_cast<double>(y));
        } else {
            const double x = rng.Uniform(0.0, 100.0);
            const double y = rng.Uniform(0.0, 100.0);
            plan.points.emplace_back(x, y);
        }
        plan.links.push_back({(i + 1) % n});
    }
    const int chords = rng.Between(0, n);
    for (int k = 0; k < chords; ++k) {
        const int a = rng.Between(0, n - 1);
        int b = rng.Between(0, n - 2);
        if (b >= a) {
            ++b;
        }
        plan.links[static_cast<std::size_t>(a)].push_back(b);
        plan.links[static_cast<std::size_t>(b)].push_back(a);
    }
    if (rng.Chance(0.3)) {
        const int extra = rng.Between(1, 3);
        for (int k = 0; k < extra; ++k) {
            const int a = rng.Between(0, n - 1);
            const int b = rng.Between(0, n - 1);
            plan.links[static_cast<std::size_t>(a)].push_back(b);
        }
    }
    plan.start = rng.Chance(0.5) ? 0 : rng.Between(0, n - 1);
    return plan;
}

TEST(RvPolygon2DTraceChordLoopsTest, RandomGraphsGiveTheRingsOfTheRecursiveWalk) {
    int withInnerRings = 0;
    int withShortRings = 0;
    int withLinksLeft = 0;
    constexpr int kGraphs = 1500;
    for (std::uint32_t seed = 1; seed <= kGraphs; ++seed) {
        SCOPED_TRACE("graph seed " + std::to_string(seed));
        CorpusRandom rng(seed);
        const GraphPlan plan = RandomGraph(rng);
        SplitNodes mine = BuildGraph(plan);
        SplitNodes theirs = BuildGraph(plan);
        const std::size_t start = static_cast<std::size_t>(plan.start);
        std::vector<RvPolygon2D> traced;
        std::vector<RvPolygon2D> expected;
        RvPolygon2DTestAccess::TraceChordLoops(mine[start].get(), traced);
        ReferenceTrace(theirs[start].get(), expected);
        ASSERT_EQ(traced.size(), expected.size());
        for (std::size_t k = 0; k < traced.size(); ++k) {
            EXPECT_TRUE(SameVertices(traced[k], expected[k])) << "ring " << k;
            if (traced[k].size() < 3) {
                ++withShortRings;
            }
        }
        const std::vector<std::vector<int>> left = LinksLeft(mine);
        EXPECT_EQ(left, LinksLeft(theirs));
        if (traced.size() > 1) {
            ++withInnerRings;
        }
        if (std::any_of(left.begin(), left.end(), [](const auto& l) { return !l.empty(); })) {
            ++withLinksLeft;
        }
    }
    // The graphs reach every branch: inner rings, rings too short to tidy, and links that the
    // walk from the start never reaches or that the rounds leave behind.
    EXPECT_GT(withInnerRings, kGraphs / 2);
    EXPECT_GT(withShortRings, kGraphs / 20);
    EXPECT_GT(withLinksLeft, kGraphs / 20);
}

// ---------------------------------------------------------------------------------------------
// Deep graphs on a small stack

constexpr std::size_t kSmallStack = 256 * 1024;

// Runs `body` on a thread whose whole stack is `kSmallStack`.
template <class Body>
void RunOnSmallStack(Body& body) {
    pthread_attr_t attr;
    ASSERT_EQ(pthread_attr_init(&attr), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attr, kSmallStack), 0);
    pthread_t thread;
    auto run = [](void* arg) -> void* {
        (*static_cast<Body*>(arg))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attr, run, &body), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attr);
}

constexpr int kTeeth = 2499;

// A comb of 5,000 vertices: the base from (0,0) to (2 * kTeeth, 0), then the teeth from right to
// left, tooth i a peak at (2i + 1, 3) between the valleys (2i + 2, 1) and (2i, 1); the leftmost
// tooth comes down to (0,0) itself. Counterclockwise.
RvPolygon2D Comb() {
    RvPolygon2D p;
    p.push_backA(RvPoint2D(0, 0));
    p.push_backA(RvPoint2D(2.0 * kTeeth, 0));
    for (int i = kTeeth - 1; i >= 0; --i) {
        p.push_backA(RvPoint2D(2.0 * i + 2.0, 1));
        p.push_backA(RvPoint2D(2.0 * i + 1.0, 3));
    }
    return p;
}

TEST(RvPolygon2DSplitWithPlaneDeepTest, CombCutAcrossAllTeethGivesEveryTipOnA256KiBStack) {
    // The plane y = 2 crosses both flanks of every tooth: 4,998 crossings. Along the line they
    // run leftwards from the first, (4997.5, 2), and the nearest two are always the flanks of
    // one tooth, so each tooth's tip is cut off: a triangle of base 1 and height 1, except the
    // leftmost, whose left flank runs from (1,3) to (0,0) and is crossed at (2/3, 2): base 5/6.
    // The walk passes the tips from right to left and traces each as it passes; the base, where
    // it started, closes last.
    RvPolygon2D comb = Comb();
    ASSERT_EQ(comb.size(), 5000U);
    std::vector<RvPolygon2D> result;
    auto body = [&] { comb.SplitWithPlane(RvPoint3D(0, 2, 0), kAlongY, result); };
    RunOnSmallStack(body);
    ASSERT_EQ(result.size(), static_cast<std::size_t>(kTeeth + 1));
    for (int k = 0; k + 1 < kTeeth; ++k) {
        const int tooth = kTeeth - 1 - k;
        SCOPED_TRACE("tooth " + std::to_string(tooth));
        ExpectVerticesNear(
            result[static_cast<std::size_t>(k)],
            {{2.0 * tooth + 1.5, 2}, {2.0 * tooth + 1.0, 3}, {2.0 * tooth + 0.5, 2}});
    }
    ExpectVerticesNear(result[kTeeth - 1], {{1.5, 2}, {1, 3}, {2.0 / 3.0, 2}}, 1e-12);
    const RvPolygon2D& base = result[kTeeth];
    ASSERT_GT(base.size(), 2U);
    EXPECT_NEAR(base[0].x2D, 0.0, 1e-12);
    EXPECT_NEAR(base[0].y2D, 0.0, 1e-12);
    // The comb is a base of 4998 by 1 with 2,499 teeth of area 2 above y = 1, less the sliver
    // of 0.5 that the edge from (1,3) to (0,0) leaves out at the left end.
    double total = 0.0;
    for (const RvPolygon2D& piece : result) {
        total += Area2D(piece);
    }
    EXPECT_NEAR(Area2D(comb), 4998.0 + 2.0 * kTeeth - 0.5, 1e-6);
    EXPECT_NEAR(total, Area2D(comb), 1e-6);
    EXPECT_NEAR(Area2D(base), Area2D(comb) - 0.5 * (kTeeth - 1) - 5.0 / 12.0, 1e-6);
}

constexpr int kStrokes = 1000;
constexpr double kStrokeHeight = 10.0;

// A serpentine band, the outline of a path of width 1 that runs up and down through kStrokes
// vertical strokes: stroke i covers x from 2i to 2i + 1 and y from 0 to kStrokeHeight, and
// strokes i and i + 1 are joined by a bar 3 wide and 1 high above the strokes for even i, below
// them for odd i. The ring starts at (0,0) on the free end of stroke 0, runs along the right-hand
// side of the path to its far end, crosses the free end of the last stroke and comes back
// along the left-hand side. 4 * kStrokes vertices, counterclockwise.
RvPolygon2D Serpentine() {
    const double h = kStrokeHeight;
    std::vector<RvPoint2D> right{RvPoint2D(1, 0)};
    std::vector<RvPoint2D> left{RvPoint2D(0, 0)};
    for (int i = 0; i + 1 < kStrokes; ++i) {
        const double x = 2.0 * i;
        if (i % 2 == 0) {
            right.emplace_back(x + 1, h);
            right.emplace_back(x + 2, h);
            left.emplace_back(x, h + 1);
            left.emplace_back(x + 3, h + 1);
        } else {
            right.emplace_back(x, -1);
            right.emplace_back(x + 3, -1);
            left.emplace_back(x + 1, 0);
            left.emplace_back(x + 2, 0);
        }
    }
    const double last = 2.0 * (kStrokes - 1);
    if ((kStrokes - 1) % 2 == 0) {
        right.emplace_back(last + 1, h);
        left.emplace_back(last, h);
    } else {
        right.emplace_back(last, 0);
        left.emplace_back(last + 1, 0);
    }
    RvPolygon2D p;
    p.push_backA(left.front());
    for (const RvPoint2D& v : right) {
        p.push_backA(v);
    }
    for (std::size_t k = left.size() - 1; k >= 1; --k) {
        p.push_backA(left[k]);
    }
    return p;
}

TEST(RvPolygon2DSplitWithPlaneDeepTest, SerpentineNestsOneLevelPerPieceOnA256KiBStack) {
    // The plane y = 5 crosses each stroke on its right-hand side R_i and its left-hand side
    // L_i, and nothing else. Round the ring the crossings come as R_0, R_1, ..., R_last and
    // then L_last, ..., L_0: the chords R_i-L_i lie one inside the other along the ring. Along
    // the line the sides of one stroke are neighbours (L_0 lies behind R_0, at -1), so every
    // stroke's sides are paired.
    //
    // Why it nests: the walk from (0,0) reaches R_0, takes the chord to L_0 and traces from
    // R_0 along the ring. That walk reaches R_1 before it can come back to L_0, takes its chord
    // and traces from R_1, and so on: the walk reaches the pieces one inside the other, one
    // level deeper for every stroke, 1,000 levels in all. The innermost piece, the free end of
    // the last stroke, is appended first; each level then closes its piece, the bar between
    // strokes i and i + 1 with the halves of the strokes it joins, on its way back out; the
    // start's piece, the free half of stroke 0, closes last.
    RvPolygon2D band = Serpentine();
    ASSERT_EQ(band.size(), static_cast<std::size_t>(4 * kStrokes));
    std::vector<RvPolygon2D> result;
    auto body = [&] { band.SplitWithPlane(RvPoint3D(0, 5, 0), kAlongY, result); };
    RunOnSmallStack(body);
    ASSERT_EQ(result.size(), static_cast<std::size_t>(kStrokes + 1));

    // The free end of the last stroke (odd, running down): x from 1998 to 1999, y from 0 to 5.
    const double last = 2.0 * (kStrokes - 1);
    EXPECT_NEAR(Area2D(result[0]), 5.0, 1e-9);
    EXPECT_NEAR(MinX(result[0]), last, 1e-9);
    EXPECT_NEAR(MaxX(result[0]), last + 1, 1e-9);
    // result[m] joins strokes kStrokes - 1 - m and kStrokes - m: two half strokes of 5 and a
    // bar of 3.
    int wrongBars = 0;
    for (int m = 1; m < kStrokes; ++m) {
        const RvPolygon2D& piece = result[static_cast<std::size_t>(m)];
        const double x = 2.0 * (kStrokes - 1 - m);
        if (std::fabs(Area2D(piece) - 13.0) > 1e-9 || std::fabs(MinX(piece) - x) > 1e-9 ||
            std::fabs(MaxX(piece) - (x + 3)) > 1e-9 || piece.size() != 8) {
            ++wrongBars;
            ADD_FAILURE() << "piece " << m << ": area " << Area2D(piece) << ", x from "
                          << MinX(piece) << " to " << MaxX(piece) << ", " << piece.size()
                          << " vertices";
            if (wrongBars > 5) {
                break;
            }
        }
    }
    EXPECT_EQ(wrongBars, 0);
    ExpectVerticesNear(result[kStrokes], {{0, 0}, {1, 0}, {1, 5}, {0, 5}});
    double total = 0.0;
    for (const RvPolygon2D& piece : result) {
        total += Area2D(piece);
    }
    EXPECT_NEAR(Area2D(band), kStrokes * kStrokeHeight + 3.0 * (kStrokes - 1), 1e-6);
    EXPECT_NEAR(total, Area2D(band), 1e-6);
}

// ---------------------------------------------------------------------------------------------
// Against SplitWithLine

// The line through `through` with direction (cos a, sin a) keeps clear of the ring: every
// vertex at least 1 from it, and every edge it crosses met at a sine of 0.05 or more. Returns
// the number of edges crossed.
int ClearCrossings(const Outline& ring, Pt through, double a, bool& clear) {
    const Pt d{std::cos(a), std::sin(a)};
    const auto side = [&](Pt p) {
        return testing_support::Cross(d, testing_support::Sub(p, through));
    };
    clear = true;
    int crossed = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Pt p = ring[i];
        const Pt q = ring[(i + 1) % ring.size()];
        if (std::fabs(side(p)) < 1.0) {
            clear = false;
        }
        if ((side(p) < 0.0) != (side(q) < 0.0)) {
            ++crossed;
            const Pt e = testing_support::Sub(q, p);
            const double sine =
                std::fabs(testing_support::Cross(d, e)) / testing_support::Length(e);
            if (sine < 0.05) {
                clear = false;
            }
        }
    }
    return crossed;
}

std::string Describe(const std::vector<RvPolygon2D>& rings) {
    std::ostringstream s;
    for (const RvPolygon2D& r : rings) {
        s << "[";
        for (const RvPoint2D& v : r) {
            s << " (" << v.x2D << ", " << v.y2D << ")";
        }
        s << " ]\n";
    }
    return s.str();
}

TEST(RvPolygon2DSplitWithPlanePropertyTest, UprightPlaneGivesThePiecesOfSplitWithLine) {
    // A plane standing upright on the polygon's plane, normal (nx, ny, 0), cuts it along its
    // trace line; SplitWithLine along that line must give the same set of rings, whatever their
    // start vertex, direction and order.
    int cut = 0;
    int cutInThreeOrMore = 0;
    constexpr int kCases = 160;
    for (std::uint32_t seed = 1; seed <= kCases; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        CorpusRandom rng(seed);
        const bool star = seed % 2 == 0;
        Outline ring;
        for (int attempt = 0; attempt < 100; ++attempt) {
            const Pt centre = testing_support::RandomCentre(rng);
            ring = star ? testing_support::RandomStar(rng, centre, 30.0, 280.0, 8, 20)
                        : testing_support::RandomConvex(rng, centre, 280.0);
            if (testing_support::IsWellFormed(ring, 10.0)) {
                break;
            }
            ring.clear();
        }
        ASSERT_FALSE(ring.empty());
        Pt mean{0.0, 0.0};
        for (const Pt& p : ring) {
            mean = testing_support::Add(mean, testing_support::Scale(p, 1.0 / ring.size()));
        }
        // Of up to 20 lines that keep clear of the ring, the one that crosses it most often, so
        // that stars are often cut into three pieces or more.
        Pt through{};
        double angle = 0.0;
        int crossed = 0;
        int candidates = 0;
        for (int attempt = 0; attempt < 400 && candidates < 20; ++attempt) {
            const Pt p = testing_support::NearbyCentre(rng, mean, 80.0);
            const double a = rng.Uniform(0.0, kPi);
            bool clear = false;
            const int n = ClearCrossings(ring, p, a, clear);
            if (clear) {
                ++candidates;
                if (n > crossed) {
                    through = p;
                    angle = a;
                    crossed = n;
                }
            }
        }
        ASSERT_GT(crossed, 0);
        const RvPolygon2D polygon = testing_support::ToRavelin(ring);
        // The plane's normal need not be of unit length.
        const double scale = rng.Uniform(0.5, 3.0);
        const RvPoint3D normal(-std::sin(angle) * scale, std::cos(angle) * scale, 0.0);
        const std::vector<RvPolygon2D> byPlane =
            CutByPlane(polygon, RvPoint3D(through.x, through.y, 0.0), normal);
        std::vector<RvPolygon2D> byLine;
        RvPolygon2D copy = polygon;
        copy.SplitWithLine(
            RvPoint2D(through.x, through.y),
            RvPoint2D(through.x + 50.0 * std::cos(angle), through.y + 50.0 * std::sin(angle)),
            byLine);
        // A simple ring crossed 2k times in general position falls into k + 1 pieces.
        EXPECT_EQ(byPlane.size(), static_cast<std::size_t>(crossed / 2 + 1));
        ASSERT_EQ(byPlane.size(), byLine.size()) << "plane:\n"
                                                 << Describe(byPlane) << "line:\n"
                                                 << Describe(byLine);
        std::vector<bool> used(byLine.size(), false);
        for (const RvPolygon2D& piece : byPlane) {
            bool found = false;
            for (std::size_t k = 0; k < byLine.size() && !found; ++k) {
                if (!used[k] && piece == byLine[k]) {
                    used[k] = true;
                    found = true;
                }
            }
            EXPECT_TRUE(found) << "plane:\n" << Describe(byPlane) << "line:\n" << Describe(byLine);
        }
        double total = 0.0;
        for (const RvPolygon2D& piece : byPlane) {
            total += Area2D(piece);
        }
        EXPECT_NEAR(total, Area2D(polygon), 1e-6 * Area2D(polygon));
        if (byPlane.size() >= 2) {
            ++cut;
        }
        if (byPlane.size() >= 3) {
            ++cutInThreeOrMore;
        }
    }
    EXPECT_GT(cut, kCases * 3 / 4);
    EXPECT_GT(cutInThreeOrMore, kCases / 4);
}

}  // namespace
}  // namespace ravelin
