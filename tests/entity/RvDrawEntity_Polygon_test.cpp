#include <gtest/gtest.h>

#include <initializer_list>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvInterPoint.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// The counterclockwise square (0,0), (10,0), (10,10), (0,10), stored open. Edge i runs from the
// vertex before i to vertex i: edge 0 the left side, 1 the bottom, 2 the right side, 3 the top.
RvPolyLine2D Square() {
    return Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

int Crossings(const RvPolyLine2D& e, const RvPoint2D& p, bool close) {
    return e.CountHalfLineCrossings(p, e.begin(), e.end(), close);
}

// ---- CountHalfLineCrossings ---------------------------------------------------------------------

TEST(RvDrawEntityHalfLineCrossings, EmptyEntityGivesZero) {
    const RvPolyLine2D empty;
    EXPECT_EQ(Crossings(empty, RvPoint2D(0, 0), true), 0);
}

TEST(RvDrawEntityHalfLineCrossings, EmptyRangeGivesZero) {
    const RvPolyLine2D square = Square();
    EXPECT_EQ(square.CountHalfLineCrossings(RvPoint2D(5, 5), square.begin(), square.begin(), true),
              0);
}

TEST(RvDrawEntityHalfLineCrossings, PointInsideCrossesTheLeftSideOnce) {
    // Only the closing edge (0,0)-(0,10) lies to the left of (5,5).
    EXPECT_EQ(Crossings(Square(), RvPoint2D(5, 5), true), 1);
}

TEST(RvDrawEntityHalfLineCrossings, PointRightOfTheSquareCrossesBothSides) {
    EXPECT_EQ(Crossings(Square(), RvPoint2D(15, 5), true), 2);
}

TEST(RvDrawEntityHalfLineCrossings, PointLeftOfTheSquareCrossesNothing) {
    EXPECT_EQ(Crossings(Square(), RvPoint2D(-5, 5), true), 0);
}

TEST(RvDrawEntityHalfLineCrossings, WithoutCloseTheClosingEdgeIsNotCounted) {
    EXPECT_EQ(Crossings(Square(), RvPoint2D(5, 5), false), 0);
    EXPECT_EQ(Crossings(Square(), RvPoint2D(15, 5), false), 1);
}

TEST(RvDrawEntityHalfLineCrossings, ClosedStorageNeedsNoClosingEdge) {
    // The repeated first vertex makes (0,10)-(0,0) an ordinary edge; the closing one is skipped.
    const RvPolyLine2D closed = Path(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 0)});
    EXPECT_EQ(Crossings(closed, RvPoint2D(5, 5), true), 1);
    EXPECT_EQ(Crossings(closed, RvPoint2D(5, 5), false), 1);
}

TEST(RvDrawEntityHalfLineCrossings, SpanIncludesTheLowerEndAndExcludesTheUpper) {
    // One upward edge from (0,0) to (0,10), no closing edge.
    const RvPolyLine2D up = Path({RvPoint2D(0, 0), RvPoint2D(0, 10)});
    EXPECT_EQ(Crossings(up, RvPoint2D(5, 0), false), 1);
    EXPECT_EQ(Crossings(up, RvPoint2D(5, 5), false), 1);
    EXPECT_EQ(Crossings(up, RvPoint2D(5, 10), false), 0);
    EXPECT_EQ(Crossings(up, RvPoint2D(5, -1), false), 0);
    EXPECT_EQ(Crossings(up, RvPoint2D(5, 11), false), 0);
}

TEST(RvDrawEntityHalfLineCrossings, SpanRuleHoldsForADownwardEdge) {
    const RvPolyLine2D down = Path({RvPoint2D(0, 10), RvPoint2D(0, 0)});
    EXPECT_EQ(Crossings(down, RvPoint2D(5, 0), false), 1);
    EXPECT_EQ(Crossings(down, RvPoint2D(5, 5), false), 1);
    EXPECT_EQ(Crossings(down, RvPoint2D(5, 10), false), 0);
}

TEST(RvDrawEntityHalfLineCrossings, UpperEndIsMatchedWithinTheBand) {
    const RvPolyLine2D up = Path({RvPoint2D(0, 0), RvPoint2D(0, 10)});
    // 1e-07 below the upper end is on it within 5e-07: excluded.
    EXPECT_EQ(Crossings(up, RvPoint2D(5, 10 - 1e-07), false), 0);
    // 1e-05 below is inside the span.
    EXPECT_EQ(Crossings(up, RvPoint2D(5, 10 - 1e-05), false), 1);
    // 1e-07 above the lower end still counts as the lower end.
    EXPECT_EQ(Crossings(up, RvPoint2D(5, -1e-07), false), 1);
}

TEST(RvDrawEntityHalfLineCrossings, EdgeRightOfThePointIsNotCounted) {
    const RvPolyLine2D up = Path({RvPoint2D(0, 0), RvPoint2D(0, 10)});
    EXPECT_EQ(Crossings(up, RvPoint2D(-5, 5), false), 0);
}

TEST(RvDrawEntityHalfLineCrossings, VertexSharedAsLowerEndCountsForBothEdges) {
    // (15,0) lies level with the bottom; the right side and the closing side both start there
    // at their lower end, and the bottom itself is horizontal with (15,0) beyond its end.
    EXPECT_EQ(Crossings(Square(), RvPoint2D(15, 0), true), 2);
    // Level with the top, every side has (15,10) at its upper end or is horizontal.
    EXPECT_EQ(Crossings(Square(), RvPoint2D(15, 10), true), 0);
}

TEST(RvDrawEntityHalfLineCrossings, PointOnAnOrdinaryEdgeGivesZero) {
    EXPECT_EQ(Crossings(Square(), RvPoint2D(10, 5), true), 0);  // right side
    EXPECT_EQ(Crossings(Square(), RvPoint2D(5, 0), true), 0);   // bottom, horizontal
}

TEST(RvDrawEntityHalfLineCrossings, PointOnTheClosingEdgeGivesZeroWhateverTheCount) {
    // The left side (0,0)-(0,10) counts one crossing for (10,5); the closing edge
    // (10,0)-(10,10) then finds the point on it and the result is 0, not 1.
    const RvPolyLine2D ring =
        Path({RvPoint2D(10, 0), RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(10, 10)});
    EXPECT_EQ(Crossings(ring, RvPoint2D(10, 5), true), 0);
    EXPECT_EQ(Crossings(ring, RvPoint2D(10, 5), false), 1);
}

TEST(RvDrawEntityHalfLineCrossings, HorizontalClosingEdgeClaimsPointsBeyondItsEnds) {
    // Ring (0,0) (0,10) (30,10) (30,-10) (10,-10) (10,0); the closing edge is (0,0)-(10,0).
    // For (20,0) the edges give one crossing (the left side, from its lower end); the closing
    // edge then finds (20,0) on its line within its span and returns 0.
    const RvPolyLine2D ring = Path({RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(30, 10),
                                    RvPoint2D(30, -10), RvPoint2D(10, -10), RvPoint2D(10, 0)});
    EXPECT_EQ(Crossings(ring, RvPoint2D(20, 0), false), 1);
    EXPECT_EQ(Crossings(ring, RvPoint2D(20, 0), true), 0);
}

TEST(RvDrawEntityHalfLineCrossings, HorizontalOrdinaryEdgeDoesNotClaimPointsBeyondItsEnds) {
    // The same ring started at (10,0): (10,0)-(0,0) is an ordinary edge, and (20,0) beyond its
    // end is not on it. The closing edge (10,0)-(10,-10) has (20,0) at its upper end.
    const RvPolyLine2D ring = Path({RvPoint2D(10, 0), RvPoint2D(0, 0), RvPoint2D(0, 10),
                                    RvPoint2D(30, 10), RvPoint2D(30, -10), RvPoint2D(10, -10)});
    EXPECT_EQ(Crossings(ring, RvPoint2D(20, 0), true), 1);
}

TEST(RvDrawEntityHalfLineCrossings, SubrangeIsReadAsItsOwnRing) {
    // Vertices 1..3 of the square: (10,0) (10,10) (0,10), closed by (10,0)-(0,10).
    const RvPolyLine2D square = Square();
    // (9,5): the right side is to its right; the diagonal x + y = 10 passes x = 5 at y = 5,
    // left of it: one crossing.
    EXPECT_EQ(
        square.CountHalfLineCrossings(RvPoint2D(9, 5), square.begin() + 1, square.end(), true), 1);
    // (2,5) is left of the diagonal: nothing.
    EXPECT_EQ(
        square.CountHalfLineCrossings(RvPoint2D(2, 5), square.begin() + 1, square.end(), true), 0);
}

// ---- Intersection2D_HalfLineSegmentBreak
// ---------------------------------------------------------

TEST(RvDrawEntitySegmentBreak, HitOnTheBottomTakesPointAndEdge) {
    RvPolyLine2D square = Square();
    _RvInterPoint out;
    EXPECT_TRUE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(5, -5), RvPoint2D(0, 1), 1, out));
    EXPECT_TRUE(HasValues(out, 5, 0, 0, 5, 0));
    EXPECT_EQ(out.m_nEdge, 1);
}

TEST(RvDrawEntitySegmentBreak, SegmentZeroRunsBackToTheLastVertex) {
    // Segment 0 runs from vertex 0 back to vertex 3: the left side, not the bottom.
    RvPolyLine2D square = Square();
    _RvInterPoint out;
    EXPECT_TRUE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(-5, 5), RvPoint2D(1, 0), 0, out));
    EXPECT_TRUE(HasValues(out, 0, 5, 0, 0, 5));
    EXPECT_EQ(out.m_nEdge, 0);
    // Parallel to the bottom: no hit on segment 0.
    _RvInterPoint miss(RvPoint2D(99, 99), 7);
    EXPECT_FALSE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(5, -5), RvPoint2D(0, 1), 0, miss));
}

TEST(RvDrawEntitySegmentBreak, BothEndsOfTheSegmentCount) {
    RvPolyLine2D square = Square();
    _RvInterPoint out;
    // u = 0 at vertex 1 (10,0).
    EXPECT_TRUE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(10, -5), RvPoint2D(0, 1), 1, out));
    EXPECT_TRUE(HasValues(out, 10, 0, 0, 10, 0));
    // u = 1 at vertex 0 (0,0).
    EXPECT_TRUE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(0, -5), RvPoint2D(0, 1), 1, out));
    EXPECT_TRUE(HasValues(out, 0, 0, 0, 0, 0));
}

TEST(RvDrawEntitySegmentBreak, BeyondAnEndMissesAndLeavesOutUntouched) {
    RvPolyLine2D square = Square();
    _RvInterPoint out(RvPoint2D(99, 98), 7, 3);
    // u = 1.0001 past vertex 0, and u = -0.5 before vertex 1.
    EXPECT_FALSE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(-0.001, -5), RvPoint2D(0, 1), 1, out));
    EXPECT_FALSE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(15, -5), RvPoint2D(0, 1), 1, out));
    EXPECT_TRUE(HasValues(out, 99, 98, 0, 99, 98));
    EXPECT_EQ(out.m_nEdge, 7);
    EXPECT_EQ(out.m_nAux, 3);
}

TEST(RvDrawEntitySegmentBreak, StartOnTheSegmentReportsNothing) {
    RvPolyLine2D square = Square();
    _RvInterPoint out(RvPoint2D(99, 98), 7);
    EXPECT_FALSE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(5, 0), RvPoint2D(0, 1), 1, out));
    EXPECT_FALSE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(5, 0), RvPoint2D(0, -1), 1, out));
    EXPECT_TRUE(HasValues(out, 99, 98, 0, 99, 98));
    EXPECT_EQ(out.m_nEdge, 7);
}

TEST(RvDrawEntitySegmentBreak, SegmentBehindTheStartMisses) {
    RvPolyLine2D square = Square();
    _RvInterPoint out(RvPoint2D(99, 98), 7);
    EXPECT_FALSE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(5, 5), RvPoint2D(0, 1), 1, out));
    EXPECT_EQ(out.m_nEdge, 7);
}

TEST(RvDrawEntitySegmentBreak, ParallelHalfLineMisses) {
    RvPolyLine2D square = Square();
    _RvInterPoint out(RvPoint2D(99, 98), 7);
    EXPECT_FALSE(
        square.Intersection2D_HalfLineSegmentBreak(RvPoint2D(-5, 0), RvPoint2D(1, 0), 1, out));
    EXPECT_EQ(out.m_nEdge, 7);
}

TEST(RvDrawEntitySegmentBreak, ParameterReadsTheSpatialAbscissaOfTheVertex) {
    // Vertex 1 has x2D = 10 but x = 12. den = 10, u = (12 - 5) / 10 = 0.7 rather than 0.5, so
    // the planar hit is 10 - 0.7 * 10 = 3.
    RvPolyLine2D e = Path({RvPoint2D(0, 0, 0, 0, 0), RvPoint2D(10, 0, 12, 0, 0)});
    _RvInterPoint out;
    EXPECT_TRUE(e.Intersection2D_HalfLineSegmentBreak(RvPoint2D(5, -5), RvPoint2D(0, 1), 1, out));
    EXPECT_NEAR(out.x2D, 3.0, 1e-12);
    EXPECT_NEAR(out.y2D, 0.0, 1e-12);
    EXPECT_EQ(out.m_nEdge, 1);
}

// ---- AddPolygonPoints ---------------------------------------------------------------------------

TEST(RvDrawEntityAddPolygonPoints, WalksFromTheEdgeOfAToTheEdgeOfB) {
    // a on the bottom (edge 1), b on the right side (edge 2): only vertex 1 lies between.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPoints(_RvInterPoint(RvPoint2D(5, 0), 1), _RvInterPoint(RvPoint2D(10, 5), 2),
                         src);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], 5, 0, 0, 5, 0));
    EXPECT_TRUE(HasValues(out[1], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(out[2], 10, 5, 0, 10, 5));
}

TEST(RvDrawEntityAddPolygonPoints, WrapsPastTheLastVertex) {
    // From the top (edge 3) to the bottom (edge 1): vertices 3 and 0.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPoints(_RvInterPoint(RvPoint2D(5, 10), 3), _RvInterPoint(RvPoint2D(5, 0), 1),
                         src);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(HasValues(out[0], 5, 10, 0, 5, 10));
    EXPECT_TRUE(HasValues(out[1], 0, 10, 0, 0, 10));
    EXPECT_TRUE(HasValues(out[2], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(out[3], 5, 0, 0, 5, 0));
}

TEST(RvDrawEntityAddPolygonPoints, SameEdgeAddsOnlyAAndB) {
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPoints(_RvInterPoint(RvPoint2D(2, 0), 1), _RvInterPoint(RvPoint2D(8, 0), 1), src);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 2, 0, 0, 2, 0));
    EXPECT_TRUE(HasValues(out[1], 8, 0, 0, 8, 0));
}

TEST(RvDrawEntityAddPolygonPoints, WalkedVerticesAreAppendedWithoutTests) {
    // (5,0) lies on the line from (2,0) to (10,0); appended plainly it stays.
    RvPolyLine2D src = Path(
        {RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    RvPolyLine2D out;
    out.AddPolygonPoints(_RvInterPoint(RvPoint2D(2, 0), 1), _RvInterPoint(RvPoint2D(10, 5), 3),
                         src);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(HasValues(out[0], 2, 0, 0, 2, 0));
    EXPECT_TRUE(HasValues(out[1], 5, 0, 0, 5, 0));
    EXPECT_TRUE(HasValues(out[2], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(out[3], 10, 5, 0, 10, 5));
}

TEST(RvDrawEntityAddPolygonPoints, BOnTheLastWalkedVertexIsNotDoubled) {
    // b is vertex 1 itself, reported on edge 2: AddPolygonPoint refuses the repeat.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPoints(_RvInterPoint(RvPoint2D(5, 0), 1), _RvInterPoint(RvPoint2D(10, 0), 2),
                         src);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 5, 0, 0, 5, 0));
    EXPECT_TRUE(HasValues(out[1], 10, 0, 0, 10, 0));
}

TEST(RvDrawEntityAddPolygonPoints, EdgeOfBNeverMetEndsAfterOneRound) {
    // Edge 5 of a four-vertex ring is never reached: vertices 1, 2, 3, 0 once each, then b.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPoints(_RvInterPoint(RvPoint2D(5, 0), 1), _RvInterPoint(RvPoint2D(20, 20), 5),
                         src);
    ASSERT_EQ(out.size(), 6u);
    EXPECT_TRUE(HasValues(out[0], 5, 0, 0, 5, 0));
    EXPECT_TRUE(HasValues(out[1], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(out[2], 10, 10, 0, 10, 10));
    EXPECT_TRUE(HasValues(out[3], 0, 10, 0, 0, 10));
    EXPECT_TRUE(HasValues(out[4], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(out[5], 20, 20, 0, 20, 20));
}

// ---- AddPolygonPointsBackward -----------------------------------------------------------------

TEST(RvDrawEntityAddPolygonPointsBackward, WalksDownFromBeforeTheEdgeOfA) {
    // From the top (edge 3) back to the bottom (edge 1): i = 2, 1; stop at e = 0.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPointsBackward(_RvInterPoint(RvPoint2D(5, 10), 3),
                                 _RvInterPoint(RvPoint2D(5, 0), 1), src);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(HasValues(out[0], 5, 10, 0, 5, 10));
    EXPECT_TRUE(HasValues(out[1], 10, 10, 0, 10, 10));
    EXPECT_TRUE(HasValues(out[2], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(out[3], 5, 0, 0, 5, 0));
}

TEST(RvDrawEntityAddPolygonPointsBackward, WrapsBelowTheFirstVertex) {
    // From the bottom (edge 1) back to the top (edge 3): i = 0, then 3; stop at e = 2.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPointsBackward(_RvInterPoint(RvPoint2D(5, 0), 1),
                                 _RvInterPoint(RvPoint2D(5, 10), 3), src);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(HasValues(out[0], 5, 0, 0, 5, 0));
    EXPECT_TRUE(HasValues(out[1], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(out[2], 0, 10, 0, 0, 10));
    EXPECT_TRUE(HasValues(out[3], 5, 10, 0, 5, 10));
}

TEST(RvDrawEntityAddPolygonPointsBackward, EdgeZeroStartsAtTheLastVertex) {
    // a on the left side (edge 0): i = -1 wraps to 3; b on the right side: e = 1.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPointsBackward(_RvInterPoint(RvPoint2D(0, 5), 0),
                                 _RvInterPoint(RvPoint2D(10, 5), 2), src);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(HasValues(out[0], 0, 5, 0, 0, 5));
    EXPECT_TRUE(HasValues(out[1], 0, 10, 0, 0, 10));
    EXPECT_TRUE(HasValues(out[2], 10, 10, 0, 10, 10));
    EXPECT_TRUE(HasValues(out[3], 10, 5, 0, 10, 5));
}

TEST(RvDrawEntityAddPolygonPointsBackward, SameEdgeAddsOnlyAAndB) {
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPointsBackward(_RvInterPoint(RvPoint2D(8, 0), 1),
                                 _RvInterPoint(RvPoint2D(2, 0), 1), src);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 8, 0, 0, 8, 0));
    EXPECT_TRUE(HasValues(out[1], 2, 0, 0, 2, 0));
}

TEST(RvDrawEntityAddPolygonPointsBackward, EdgeOfBBeyondTheCountIsWrapped) {
    // b.m_nEdge 5 gives e = 4, wrapped to 0: the same walk as for edge 1.
    RvPolyLine2D src = Square();
    RvPolyLine2D out;
    out.AddPolygonPointsBackward(_RvInterPoint(RvPoint2D(5, 10), 3),
                                 _RvInterPoint(RvPoint2D(5, 0), 5), src);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(HasValues(out[1], 10, 10, 0, 10, 10));
    EXPECT_TRUE(HasValues(out[2], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(out[3], 5, 0, 0, 5, 0));
}

}  // namespace
