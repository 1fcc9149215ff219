#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <stdexcept>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

const char* const kBadSubscript = "invalid vector<T> subscript";

// The square (0,0), (4,0), (4,4), (0,4). Segment 0 is its left side (from (0,4) down to
// (0,0)), segment 1 the bottom, 2 the right side, 3 the top.
RvPolyLine2D Square() {
    return Path({RvPoint2D(0, 0), RvPoint2D(4, 0), RvPoint2D(4, 4), RvPoint2D(0, 4)});
}

// The rectangle (0,0), (6,0), (6,2), (0,2), of perimeter 16; its sides differ, so a walk that
// takes the wrong side shows in the length.
RvPolyLine2D Rectangle() {
    return Path({RvPoint2D(0, 0), RvPoint2D(6, 0), RvPoint2D(6, 2), RvPoint2D(0, 2)});
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// GetDistancePoint2D

// Segment 0 of the square runs forward here, from (0,0) to (4,0): a = 0, b = 4, c = 0.
TEST(RvDrawEntityGetDistancePoint2D, MeasuresTheInfiniteLineThroughTheSegment) {
    RvPolyLine2D square = Square();
    EXPECT_EQ(square.GetDistancePoint2D(RvPoint2D(3, 1), 0), 1.0);
    EXPECT_EQ(square.GetDistancePoint2D(RvPoint2D(10, -2), 0), 2.0);
}

// (0,0)-(3,4): a = -4, b = 3, c = 0; |(-4)*4 + 3*(-3)| / 5 = 5.
TEST(RvDrawEntityGetDistancePoint2D, ObliqueLine) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(3, 4)});
    EXPECT_DOUBLE_EQ(path.GetDistancePoint2D(RvPoint2D(4, -3), 0), 5.0);
}

// Index 3 measures the line from vertex 3 (0,4) to vertex 0 (0,0): a = 4, b = 0, c = 0.
TEST(RvDrawEntityGetDistancePoint2D, LastIndexMeasuresTheClosingLine) {
    RvPolyLine2D square = Square();
    EXPECT_EQ(square.GetDistancePoint2D(RvPoint2D(3, 1), 3), 3.0);
    EXPECT_EQ(square.GetDistancePoint2D(RvPoint2D(-2, 9), 3), 2.0);
}

TEST(RvDrawEntityGetDistancePoint2D, IndexNotBelowTheCountGivesMinusOne) {
    RvPolyLine2D square = Square();
    EXPECT_EQ(square.GetDistancePoint2D(RvPoint2D(3, 1), 4), -1.0);
    EXPECT_EQ(square.GetDistancePoint2D(RvPoint2D(3, 1), 100), -1.0);
    RvPolyLine2D empty;
    EXPECT_EQ(empty.GetDistancePoint2D(RvPoint2D(3, 1), 0), -1.0);
}

TEST(RvDrawEntityGetDistancePoint2D, NullSegmentGivesZero) {
    RvPolyLine2D path = Path({RvPoint2D(1, 1), RvPoint2D(1, 1), RvPoint2D(5, 5)});
    EXPECT_EQ(path.GetDistancePoint2D(RvPoint2D(10, 0), 0), 0.0);
}

TEST(RvDrawEntityGetDistancePoint2D, ReadsThePlanarPairOnly) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 50, -50, 9), RvPoint2D(4, 0, -30, 20, 1)});
    const RvPoint2D p(3, 2, 100, 100, 100);
    EXPECT_EQ(path.GetDistancePoint2D(p, 0), 2.0);
    // A single vertex measures the null line from itself to itself.
    RvPolyLine2D single = Path({RvPoint2D(1, 1)});
    EXPECT_EQ(single.GetDistancePoint2D(p, 0), 0.0);
}

// ---------------------------------------------------------------------------------------------
// GetDistancePointSegment2D

TEST(RvDrawEntityGetDistancePointSegment2D, FootOnTheSegmentGivesTheLineDistance) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0)});
    RvPoint2D p(2, 3);
    int nearest = 5;
    EXPECT_EQ(path.GetDistancePointSegment2D(p, nearest, 0), 3.0);
    EXPECT_EQ(nearest, -1);
}

// The perpendicular through (4 + dx, 3) meets the segment at u = (4 + dx) / 4; the bound is
// u < 1.000001, that is dx < 4e-06.
TEST(RvDrawEntityGetDistancePointSegment2D, FootAtTheEndCountsWithinOneMillionth) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0)});
    int nearest = 5;
    RvPoint2D atEnd(4, 3);
    EXPECT_EQ(path.GetDistancePointSegment2D(atEnd, nearest, 0), 3.0);
    EXPECT_EQ(nearest, -1);

    RvPoint2D justInside(4.0000005, 3);
    EXPECT_DOUBLE_EQ(path.GetDistancePointSegment2D(justInside, nearest, 0), 3.0);
    EXPECT_EQ(nearest, -1);

    // Beyond: the distance from the end (4,0), by x and y.
    RvPoint2D justOutside(4.00001, 3);
    EXPECT_NEAR(path.GetDistancePointSegment2D(justOutside, nearest, 0), 3.0, 1e-09);
    EXPECT_EQ(nearest, 1);
}

TEST(RvDrawEntityGetDistancePointSegment2D, BeyondAnEndMeasuresTheNearerEnd) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0)});
    int nearest = -1;
    RvPoint2D pastEnd(7, 4);  // 5 from (4,0), sqrt(65) from (0,0)
    EXPECT_DOUBLE_EQ(path.GetDistancePointSegment2D(pastEnd, nearest, 0), 5.0);
    EXPECT_EQ(nearest, 1);

    RvPoint2D beforeStart(-3, -4);  // 5 from (0,0)
    EXPECT_DOUBLE_EQ(path.GetDistancePointSegment2D(beforeStart, nearest, 0), 5.0);
    EXPECT_EQ(nearest, 0);
}

// Index 3 of the square is the segment from (0,4) to vertex 0 (0,0).
TEST(RvDrawEntityGetDistancePointSegment2D, LastIndexWrapsToVertexZero) {
    RvPolyLine2D square = Square();
    int nearest = -1;
    RvPoint2D below(-3, -4);  // 5 from (0,0), sqrt(73) from (0,4)
    EXPECT_DOUBLE_EQ(square.GetDistancePointSegment2D(below, nearest, 3), 5.0);
    EXPECT_EQ(nearest, 0);

    RvPoint2D beside(-2, 1);
    EXPECT_EQ(square.GetDistancePointSegment2D(beside, nearest, 3), 2.0);
    EXPECT_EQ(nearest, -1);
}

// The foot is found on the planar pair, the end distances on x, y. Here the planar foot lies
// beyond (4,0) while in space p is equally far from both ends: the tie goes to the second end.
TEST(RvDrawEntityGetDistancePointSegment2D, TieOfTheEndsGoesToTheSecond) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0)});
    int nearest = -1;
    RvPoint2D p(10, 0, 2, 5, 0);
    EXPECT_DOUBLE_EQ(path.GetDistancePointSegment2D(p, nearest, 0), std::sqrt(29.0));
    EXPECT_EQ(nearest, 1);

    // The same for index 1, whose second end is vertex 0.
    RvPoint2D q(-10, 0, 2, 5, 0);
    EXPECT_DOUBLE_EQ(path.GetDistancePointSegment2D(q, nearest, 1), std::sqrt(29.0));
    EXPECT_EQ(nearest, 0);
}

TEST(RvDrawEntityGetDistancePointSegment2D, EndDistancesReadXYNotThePlanarPair) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0)});
    int nearest = -1;
    // Planar distance from (4,0) would be 6; in x, y it is |(4,3) - (4,0)| = 3.
    RvPoint2D p(10, 0, 4, 3, 0);
    EXPECT_EQ(path.GetDistancePointSegment2D(p, nearest, 0), 3.0);
    EXPECT_EQ(nearest, 1);
}

TEST(RvDrawEntityGetDistancePointSegment2D, BadIndexGivesMinusOneAndResetsNearest) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0)});
    RvPoint2D p(2, 3);
    int nearest = 5;
    EXPECT_EQ(path.GetDistancePointSegment2D(p, nearest, 2), -1.0);
    EXPECT_EQ(nearest, -1);
    RvPolyLine2D empty;
    nearest = 5;
    EXPECT_EQ(empty.GetDistancePointSegment2D(p, nearest, 0), -1.0);
    EXPECT_EQ(nearest, -1);
}

// A null segment has no perpendicular to meet: both ends are equally far, the second wins.
TEST(RvDrawEntityGetDistancePointSegment2D, NullSegmentMeasuresFromItsSecondEnd) {
    RvPolyLine2D path = Path({RvPoint2D(1, 1), RvPoint2D(1, 1)});
    RvPoint2D p(4, 5);
    int nearest = -1;
    EXPECT_DOUBLE_EQ(path.GetDistancePointSegment2D(p, nearest, 0), 5.0);
    EXPECT_EQ(nearest, 1);
}

// ---------------------------------------------------------------------------------------------
// GetDistFromSegment(i, p)

// Path (0,0,0), (2,0,0), (2,2,0): segment 1 runs from (0,0,0) to (2,0,0) and is measured as
// p.DistanceFromSegment(v[1], v[0]), so both sides beyond the segment measure from v[1].
TEST(RvDrawEntityGetDistFromSegment, InsideTheSegmentMeasuresTheFoot) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(1, 1, 0)), 1.0);
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(1, 0, 5)), 5.0);
}

TEST(RvDrawEntityGetDistFromSegment, BeyondTheEndVertexMeasuresFromIt) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(3, 1, 0)), std::sqrt(2.0));
}

// (-1,1,0) lies beyond the start vertex (0,0,0), yet it is measured from v[1] = (2,0,0).
TEST(RvDrawEntityGetDistFromSegment, BeyondTheStartVertexAlsoMeasuresFromTheEndVertex) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(-1, 1, 0)), std::sqrt(10.0));
}

// Segment 0 runs from the last vertex (2,2,0) to (0,0,0); the foot of (0,2,0) is (1,1,0).
TEST(RvDrawEntityGetDistFromSegment, SegmentZeroIsTheClosingOne) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(0, RvPoint3D(0, 2, 0)), std::sqrt(2.0));
}

TEST(RvDrawEntityGetDistFromSegment, BadIndexRaisesRangeError) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { path.GetDistFromSegment(3, RvPoint3D(0, 0, 0)); }, kBadSubscript);
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { path.GetDistFromSegment(-1, RvPoint3D(0, 0, 0)); }, kBadSubscript);
}

// Without vertices there is no vertex i: the checked subscript refuses it before any vertex is
// read.
TEST(RvDrawEntityGetDistFromSegment, EmptyEntityRaisesRangeError) {
    RvPolyLine2D empty;
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { empty.GetDistFromSegment(0, RvPoint3D(0, 0, 0)); }, kBadSubscript);
}

// ---------------------------------------------------------------------------------------------
// GetDistFromSegment(i, p, q)

// The segment (1,-1,0)-(1,1,0) crosses segment 1 at (1,0,0); each of the four ends is 1 away
// from the other segment.
TEST(RvDrawEntityGetDistFromSegmentPair, CrossingSegmentsDoNotGiveZero) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(1, -1, 0), RvPoint3D(1, 1, 0)), 1.0);
}

TEST(RvDrawEntityGetDistFromSegmentPair, EndOfTheOtherSegmentCanBeTheLeast) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    // p is 0.25 above the middle of segment 1; the other three numbers exceed 1.
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(1, 0.25, 0), RvPoint3D(1, 5, 0)), 0.25);
}

// The segment x = 2.5 from y = -1 to 1: its ends are sqrt(1.25) from v[1] = (2,0,0), while
// v[1] is 0.5 from it.
TEST(RvDrawEntityGetDistFromSegmentPair, EndVertexOfTheSegmentCanBeTheLeast) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(2.5, -1, 0), RvPoint3D(2.5, 1, 0)), 0.5);
}

// The segment x = -0.5 from y = -1 to 1: its ends lie beyond the start vertex and are measured
// from v[1] (about 2.69), but the start vertex is 0.5 from it.
TEST(RvDrawEntityGetDistFromSegmentPair, StartVertexOfTheSegmentCanBeTheLeast) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0), RvPoint2D(2, 2, 0)});
    EXPECT_DOUBLE_EQ(path.GetDistFromSegment(1, RvPoint3D(-0.5, -1, 0), RvPoint3D(-0.5, 1, 0)),
                     0.5);
}

TEST(RvDrawEntityGetDistFromSegmentPair, BadIndexRaisesRangeError) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(2, 0, 0)});
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { path.GetDistFromSegment(2, RvPoint3D(0, 0, 0), RvPoint3D(1, 1, 0)); }, kBadSubscript);
}

TEST(RvDrawEntityGetDistFromSegmentPair, EmptyEntityRaisesRangeError) {
    RvPolyLine2D empty;
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { empty.GetDistFromSegment(0, RvPoint3D(0, 0, 0), RvPoint3D(1, 1, 0)); },
        kBadSubscript);
}

// ---------------------------------------------------------------------------------------------
// GetNearestSegment

TEST(RvDrawEntityGetNearestSegment, EmptyEntityGivesMinusOne) {
    RvPolyLine2D empty;
    EXPECT_EQ(empty.GetNearestSegment(RvPoint3D(1, 1, 0), true), -1);
    EXPECT_EQ(empty.GetNearestSegment(RvPoint3D(1, 1, 0), false), -1);
}

TEST(RvDrawEntityGetNearestSegment, SingleVertexOpenRaisesRangeError) {
    RvPolyLine2D single = Path({RvPoint2D(1, 1)});
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { single.GetNearestSegment(RvPoint3D(0, 0, 0), false); }, kBadSubscript);
}

TEST(RvDrawEntityGetNearestSegment, SingleVertexClosedGivesSegmentZero) {
    RvPolyLine2D single = Path({RvPoint2D(1, 1)});
    EXPECT_EQ(single.GetNearestSegment(RvPoint3D(0, 0, 0), true), 0);
}

// (-1,2,0) is 1 from the left side (segment 0); the bottom measures 5 (from its start (0,0)),
// the right side 25 and the top 29, all squared.
TEST(RvDrawEntityGetNearestSegment, ClosedCanReturnTheClosingSegment) {
    RvPolyLine2D square = Square();
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(-1, 2, 0), true), 0);
}

TEST(RvDrawEntityGetNearestSegment, OpenNeverReturnsSegmentZero) {
    RvPolyLine2D square = Square();
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(-1, 2, 0), false), 1);
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(0, 2, 0), false), 1);
}

TEST(RvDrawEntityGetNearestSegment, NearestSideOfTheSquare) {
    RvPolyLine2D square = Square();
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(2, -1, 0), true), 1);
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(3.5, 2, 0), true), 2);
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(2, 3.5, 0), true), 3);
}

// Path (0,0), (10,0), (10,10), open. (5,12) lies beyond the end (10,10) of segment 2, which
// is therefore measured from its start (10,0): 25 + 144 = 169. Segment 1 has its foot (5,0)
// and measures 144, so it wins although segment 2's end is only sqrt(29) away.
TEST(RvDrawEntityGetNearestSegment, BeyondItsEndASegmentIsMeasuredFromItsStart) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(5, 12, 0), false), 1);
}

// Path (0,0), (4,0), (4,-10), open. For p = (4 - 4*dt, 1, 0) segment 1 has the parameter dt
// from its end (4,0). At dt = 1e-07, Number(t) > 0 fails and segment 1 measures from (0,0),
// about 17, so segment 2 (measured from (4,0), about 1) wins. At dt = 1e-06 segment 1 measures
// its foot, 1, and keeps the tie.
TEST(RvDrawEntityGetNearestSegment, ParameterWithinTheBandOfZeroCountsAsBeyond) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0), RvPoint2D(4, -10)});
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(4 - 4e-07, 1, 0), false), 2);
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(4 - 4e-06, 1, 0), false), 1);
}

TEST(RvDrawEntityGetNearestSegment, EquidistantSegmentsGoToTheLowerIndex) {
    RvPolyLine2D square = Square();
    // The centre is 2 from every side.
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(2, 2, 0), true), 0);
    EXPECT_EQ(square.GetNearestSegment(RvPoint3D(2, 2, 0), false), 1);
}

// Path (0,0), (4,0), (4,4), open; p = (2 + dx, 2, 0). Segment 1 measures 4, segment 2
// (2 - dx)^2, about 4 - 4*dx. dx = 1e-07 is a difference of 4e-07, inside the band: the earlier
// segment stays. dx = 2e-07 is 8e-07: the later one wins.
TEST(RvDrawEntityGetNearestSegment, TieWithinTheBandGoesToTheLowerIndex) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0), RvPoint2D(4, 4)});
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(2 + 1e-07, 2, 0), false), 1);
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(2 + 2e-07, 2, 0), false), 2);
}

// Path (0,0), (4,0), (4,0), (4,4), open; p = (6,-1,0). Segment 1 measures 37 (from (0,0)),
// segment 3 measures 5 (from its start (4,0)). The null segment 2 would also give 5 and, coming
// first, would keep it; it is skipped.
TEST(RvDrawEntityGetNearestSegment, NullSegmentIsSkipped) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0), RvPoint2D(4, 0), RvPoint2D(4, 4)});
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(6, -1, 0), false), 3);
}

// Path (0,0), (0,0), (4,0), open; p = (-1,0,0). The null first segment is measured all the
// same, from its start: 1. Segment 2 lies beyond its start (0,0) and measures 1 too: a tie.
TEST(RvDrawEntityGetNearestSegment, NullFirstSegmentIsStillMeasured) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(0, 0), RvPoint2D(4, 0)});
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(-1, 0, 0), false), 1);
}

TEST(RvDrawEntityGetNearestSegment, MeasuresInSpace) {
    // The planar pairs are all at the origin; only x, y, z decide.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0, 0, 0, 0), RvPoint2D(0, 0, 4, 0, 0), RvPoint2D(0, 0, 4, 0, 4)});
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(5, 0, 2), false), 2);
    EXPECT_EQ(path.GetNearestSegment(RvPoint3D(2, 0, -1), false), 1);
}

// ---------------------------------------------------------------------------------------------
// GetLength(a, b, step)

TEST(RvDrawEntityGetLengthAlong, SameSegmentAheadGivesTheirDistance) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(1, 0, 0), RvPoint3D(4, 0, 0), 1), 3.0);
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(1, 0, 0), RvPoint3D(4, 0, 0), -1), 3.0);
}

// a = (3,0), b = (1,0) on the bottom of the square (segment 1): len = 4 - 2 = 2, then the walk
// from vertex 2 round to vertex 1 adds 12.
TEST(RvDrawEntityGetLengthAlong, SameSegmentBehindGoesRoundTheSquare) {
    RvPolyLine2D square = Square();
    EXPECT_DOUBLE_EQ(square.GetLength(RvPoint3D(3, 0, 0), RvPoint3D(1, 0, 0), 1), 14.0);
}

// a = (4,0), b = (1,0) on the bottom of the rectangle: len = |sv| - 3 = 3; i becomes 2 and the
// walk goes from vertex 2 through 3 and 0 to 1, adding 6 + 2 + 6. The side from vertex 1 to
// vertex 2 is not counted and the bottom is counted whole, so the result, 17, is not the 13 of
// the way round.
TEST(RvDrawEntityGetLengthAlong, SameSegmentBehindWalksFromTheNextVertex) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(4, 0, 0), RvPoint3D(1, 0, 0), 1), 17.0);
}

// a = (2,2), b = (4,2) on the top (segment 3, from (6,2) to (0,2)): b is behind a. len = 6 - 2;
// i = 4 wraps to 0 and the walk from vertex 0 to 3 adds 6 + 2 + 6.
TEST(RvDrawEntityGetLengthAlong, SameSegmentBehindOnTheLastSegmentWrapsToZero) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(2, 2, 0), RvPoint3D(4, 2, 0), 1), 18.0);
}

// sv = (6,0,0); b 1e-09 behind a gives sv*ab = -6e-09, not below -1e-08: b counts as ahead.
// 1e-08 behind gives -6e-08: round the path, 6 - 1e-08 + 14.
TEST(RvDrawEntityGetLengthAlong, BehindMeansDotProductBelowMinusOneHundredMillionth) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_NEAR(rect.GetLength(RvPoint3D(3, 0, 0), RvPoint3D(3 - 1e-09, 0, 0), 1), 1e-09, 1e-12);
    EXPECT_NEAR(rect.GetLength(RvPoint3D(3, 0, 0), RvPoint3D(3 - 1e-08, 0, 0), 1), 20 - 1e-08,
                1e-12);
}

// a = (4,0) on segment 1, b = (3,2) on segment 3. Forward, j becomes 2:
// |v1 - a| + |v2 - b| = 2 + 3, then the walk from vertex 1 to 2 adds 2.
TEST(RvDrawEntityGetLengthAlong, DifferentSegmentsForward) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(4, 0, 0), RvPoint3D(3, 2, 0), 1), 7.0);
}

// a = (3,2) on segment 3, b = (4,0) on segment 1. Backward, i becomes 2:
// |v2 - a| + |v1 - b| = 3 + 2, then the walk from vertex 2 down to 1 adds 2.
TEST(RvDrawEntityGetLengthAlong, DifferentSegmentsBackward) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(3, 2, 0), RvPoint3D(4, 0, 0), -1), 7.0);
}

// a = (3,2) on segment 3, b = (4,0) on segment 1, forward: j = 0;
// |v3 - a| + |v0 - b| = 3 + 4, and the walk from 3 wraps to 0, adding 2.
TEST(RvDrawEntityGetLengthAlong, ForwardWalkWrapsPastTheLastVertex) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(3, 2, 0), RvPoint3D(4, 0, 0), 1), 9.0);
}

// a = (4,0) on segment 1, b = (3,2) on segment 3, backward: i = 0, and the walk toward j = 3
// steps to -1.
TEST(RvDrawEntityGetLengthAlong, BackwardWalkBelowZeroRaisesRangeError) {
    RvPolyLine2D rect = Rectangle();
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { rect.GetLength(RvPoint3D(4, 0, 0), RvPoint3D(3, 2, 0), -1); }, kBadSubscript);
}

// b behind a on segment 1, backward: i becomes 0 and the walk toward 1 steps to -1.
TEST(RvDrawEntityGetLengthAlong, BackwardRoundTheSameSegmentRaisesRangeError) {
    RvPolyLine2D rect = Rectangle();
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { rect.GetLength(RvPoint3D(4, 0, 0), RvPoint3D(1, 0, 0), -1); }, kBadSubscript);
}

// Step 2: a = (0,1) on segment 0, b = (3,2) on segment 3, so j = 2 and
// len = |v0 - a| + |v2 - b| = 1 + 3; one step from vertex 0 to 2 adds sqrt(40).
TEST(RvDrawEntityGetLengthAlong, StepTwoJumpsOverAVertex) {
    RvPolyLine2D rect = Rectangle();
    EXPECT_DOUBLE_EQ(rect.GetLength(RvPoint3D(0, 1, 0), RvPoint3D(3, 2, 0), 2),
                     4.0 + std::sqrt(40.0));
}

// Step 2: a = (0,1) on segment 0, b = (6,1) on segment 2, so j = 1, which a walk over the even
// vertices 0, 2, 0, ... never meets. The walk gives up instead of running forever; each of its
// steps adds sqrt(40) to len = |v0 - a| + |v1 - b| = 2.
TEST(RvDrawEntityGetLengthAlong, WalkThatNeverMeetsItsTargetReturns) {
    RvPolyLine2D rect = Rectangle();
    const double len = rect.GetLength(RvPoint3D(0, 1, 0), RvPoint3D(6, 1, 0), 2);
    EXPECT_TRUE(std::isfinite(len));
    EXPECT_GE(len, 2.0 + std::sqrt(40.0) - 1e-12);
    EXPECT_LE(len, 2.0 + 4 * std::sqrt(40.0) + 1e-12);
}

// One vertex: both points have segment 0, whose vector is null, so b never counts as behind
// and the length is their distance.
TEST(RvDrawEntityGetLengthAlong, SingleVertexGivesTheStraightDistance) {
    RvPolyLine2D single = Path({RvPoint2D(1, 1)});
    EXPECT_DOUBLE_EQ(single.GetLength(RvPoint3D(0, 0, 0), RvPoint3D(3, 4, 0), 1), 5.0);
}

// Without vertices both nearest segments are -1, and vertex -1 is refused.
TEST(RvDrawEntityGetLengthAlong, EmptyEntityRaisesRangeError) {
    RvPolyLine2D empty;
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { empty.GetLength(RvPoint3D(0, 0, 0), RvPoint3D(3, 4, 0), 1); }, kBadSubscript);
}

// ---------------------------------------------------------------------------------------------
// NanesDlzkuOdSpecial (toward the start of the path)

TEST(RvDrawEntityNanesDlzkuOdSpecial, StaysOnTheSegmentForAShortLength) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecial(p, i, 1.0));
    EXPECT_TRUE(PointIs(p, 3, 0, 0));
    EXPECT_EQ(i, 1);
}

// d = 4 is exactly the way to vertex 0: p lands on it, and the rest 0 is laid off on
// segment 0 (from (0,2) down to (0,0)), leaving p on the vertex.
TEST(RvDrawEntityNanesDlzkuOdSpecial, LengthEqualToTheWayToTheVertexEndsOnIt) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecial(p, i, 4.0));
    EXPECT_TRUE(PointIs(p, 0, 0, 0));
    EXPECT_EQ(i, 0);
}

// d = 5: 4 to vertex 0, then 1 up segment 0.
TEST(RvDrawEntityNanesDlzkuOdSpecial, RestContinuesOnThePreviousSegment) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecial(p, i, 5.0));
    EXPECT_TRUE(PointIs(p, 0, 1, 0));
    EXPECT_EQ(i, 0);
}

// d = 7: 4 to vertex 0, 2 to vertex 3 (i wraps from -1 to 3), then 1 along the top.
TEST(RvDrawEntityNanesDlzkuOdSpecial, IndexWrapsBelowZero) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecial(p, i, 7.0));
    EXPECT_TRUE(PointIs(p, 1, 2, 0));
    EXPECT_EQ(i, 3);
}

// d = 13: 4 + 2 + 6 = 12 to vertex 2; the next vertex (6,0) is 2 away, more than the rest 1.
TEST(RvDrawEntityNanesDlzkuOdSpecial, ThreeVerticesPassed) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecial(p, i, 13.0));
    EXPECT_TRUE(PointIs(p, 6, 1, 0));
    EXPECT_EQ(i, 2);
}

// All four vertices passed: false, with p on the last vertex reached and i after it.
TEST(RvDrawEntityNanesDlzkuOdSpecial, WalkRoundTheWholePathReturnsFalse) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_FALSE(rect.NanesDlzkuOdSpecial(p, i, 100.0));
    EXPECT_TRUE(PointIs(p, 6, 0, 0));
    EXPECT_EQ(i, 1);
}

TEST(RvDrawEntityNanesDlzkuOdSpecial, EmptyEntityReturnsFalse) {
    RvPolyLine2D empty;
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_FALSE(empty.NanesDlzkuOdSpecial(p, i, 1.0));
    EXPECT_TRUE(PointIs(p, 4, 0, 0));
    EXPECT_EQ(i, 1);
}

TEST(RvDrawEntityNanesDlzkuOdSpecial, WorksInSpace) {
    // Planar pairs far away; the walk reads x, y, z.
    RvPolyLine2D path = Path({RvPoint2D(100, 100, 0, 0, 0), RvPoint2D(-100, 7, 0, 0, 4)});
    RvPoint3D p(0, 0, 3);
    int i = 1;
    EXPECT_TRUE(path.NanesDlzkuOdSpecial(p, i, 1.0));
    EXPECT_TRUE(PointIs(p, 0, 0, 2));
    EXPECT_EQ(i, 1);
}

TEST(RvDrawEntityNanesDlzkuOdSpecial, NullSegmentWarnsThroughNormalize) {
    MessageBoxRecorder recorder;
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0), RvPoint2D(4, 0)});
    RvPoint3D p(10, 10, 0);
    int i = 2;
    EXPECT_TRUE(path.NanesDlzkuOdSpecial(p, i, 1.0));
    // The null direction stays null: p does not move.
    EXPECT_TRUE(PointIs(p, 10, 10, 0));
    EXPECT_EQ(i, 2);
    ASSERT_EQ(recorder.calls().size(), 1u);
    EXPECT_EQ(recorder.calls()[0].text, kNormalizeWarning);
}

// ---------------------------------------------------------------------------------------------
// NanesDlzkuOdSpecialOpacne (toward the end of the path)

TEST(RvDrawEntityNanesDlzkuOdSpecialOpacne, StaysOnTheSegmentForAShortLength) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecialOpacne(p, i, 1.0));
    EXPECT_TRUE(PointIs(p, 5, 0, 0));
    EXPECT_EQ(i, 1);
}

// d = 2.5 from (4,0): vertex 1 (2 away) and vertex 2 (2 from vertex 1) are both within d and
// passed at no cost; the full 2.5 is then laid off along the top from (6,2).
TEST(RvDrawEntityNanesDlzkuOdSpecialOpacne, VerticesWithinTheLengthArePassedAtNoCost) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecialOpacne(p, i, 2.5));
    EXPECT_TRUE(PointIs(p, 3.5, 2, 0));
    EXPECT_EQ(i, 3);
}

// A vertex exactly d away is passed too (dist > d fails).
TEST(RvDrawEntityNanesDlzkuOdSpecialOpacne, VertexExactlyTheLengthAwayIsPassed) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_TRUE(rect.NanesDlzkuOdSpecialOpacne(p, i, 2.0));
    EXPECT_TRUE(PointIs(p, 4, 2, 0));
    EXPECT_EQ(i, 3);
}

TEST(RvDrawEntityNanesDlzkuOdSpecialOpacne, LengthLongerThanEverySegmentWalksRoundAndFails) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_FALSE(rect.NanesDlzkuOdSpecialOpacne(p, i, 100.0));
    // Vertices 1, 2, 3, 0 passed: p on vertex 0, i back at 1.
    EXPECT_TRUE(PointIs(p, 0, 0, 0));
    EXPECT_EQ(i, 1);
}

TEST(RvDrawEntityNanesDlzkuOdSpecialOpacne, EmptyEntityReturnsFalse) {
    RvPolyLine2D empty;
    RvPoint3D p(4, 0, 0);
    int i = 1;
    EXPECT_FALSE(empty.NanesDlzkuOdSpecialOpacne(p, i, 1.0));
    EXPECT_TRUE(PointIs(p, 4, 0, 0));
    EXPECT_EQ(i, 1);
}

// Backward from (4,0) by 4.5 gives (0,0.5) on segment 0, the 4 to vertex 0 being deducted.
// Forward from there by 4.5 passes vertex 0 without deducting its 0.5 and ends at (4.5,0),
// not back at (4,0).
TEST(RvDrawEntityNanesDlzkuOdSpecialOpacne, IsNotTheInverseOfTheBackwardWalk) {
    RvPolyLine2D rect = Rectangle();
    RvPoint3D p(4, 0, 0);
    int i = 1;
    ASSERT_TRUE(rect.NanesDlzkuOdSpecial(p, i, 4.5));
    EXPECT_TRUE(PointIs(p, 0, 0.5, 0));
    EXPECT_EQ(i, 0);

    EXPECT_TRUE(rect.NanesDlzkuOdSpecialOpacne(p, i, 4.5));
    EXPECT_TRUE(PointIs(p, 4.5, 0, 0));
    EXPECT_EQ(i, 1);
}

TEST(RvDrawEntityNanesDlzkuOdSpecialOpacne, NullSegmentWarnsThroughNormalize) {
    MessageBoxRecorder recorder;
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(4, 0), RvPoint2D(4, 0)});
    RvPoint3D p(10, 10, 0);
    int i = 2;
    EXPECT_TRUE(path.NanesDlzkuOdSpecialOpacne(p, i, 1.0));
    EXPECT_TRUE(PointIs(p, 10, 10, 0));
    EXPECT_EQ(i, 2);
    ASSERT_EQ(recorder.calls().size(), 1u);
    EXPECT_EQ(recorder.calls()[0].text, kNormalizeWarning);
}

// ---------------------------------------------------------------------------------------------
// IsOnVertex

TEST(RvDrawEntityIsOnVertex, VertexAtTheCursorSetsTolToOne) {
    RvPolyLine2D path = Path({RvPoint2D(10, 10, 1, 2, 3)});
    RvPoint2D cursor(10, 10);
    RvPoint2D found;
    double tol = 3;
    EXPECT_TRUE(path.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 1, 2, 3, 10, 10));
    EXPECT_EQ(tol, 1.0);
}

// After the hit at the cursor the rectangle is (9,9)-(11,11). The vertex (9.5,10) rounds to
// the pixel (10,10), still inside, and replaces the first: tol = 0.5 + 1.
TEST(RvDrawEntityIsOnVertex, VertexHalfAPixelAwayMayStillReplace) {
    RvPolyLine2D path = Path({RvPoint2D(10, 10), RvPoint2D(9.5, 10)});
    RvPoint2D cursor(10, 10);
    RvPoint2D found;
    double tol = 3;
    EXPECT_TRUE(path.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 9.5, 10, 0, 9.5, 10));
    EXPECT_EQ(tol, 1.5);
}

TEST(RvDrawEntityIsOnVertex, FartherVertexAfterANearerOneDoesNotReplace) {
    RvPolyLine2D path = Path({RvPoint2D(10, 10), RvPoint2D(12, 10)});
    RvPoint2D cursor(10, 10);
    RvPoint2D found;
    double tol = 3;
    EXPECT_TRUE(path.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 10, 10, 0, 10, 10));
    EXPECT_EQ(tol, 1.0);
}

// (10,12) gives tol 3, (10,11) shrinks it to 2, the rectangle to (8,8)-(12,12), and the last
// (10,12) now lies on the excluded bottom edge.
TEST(RvDrawEntityIsOnVertex, RectangleShrinksWithEveryHit) {
    RvPolyLine2D path = Path({RvPoint2D(10, 12), RvPoint2D(10, 11), RvPoint2D(10, 12, 5, 5, 5)});
    RvPoint2D cursor(10, 10);
    RvPoint2D found;
    double tol = 3;
    EXPECT_TRUE(path.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 10, 11, 0, 10, 11));
    EXPECT_EQ(tol, 2.0);
}

TEST(RvDrawEntityIsOnVertex, LastOfEqualsWins) {
    RvPolyLine2D path = Path({RvPoint2D(11, 10, 1, 1, 1), RvPoint2D(9, 10, 2, 2, 2)});
    RvPoint2D cursor(10, 10);
    RvPoint2D found;
    double tol = 3;
    EXPECT_TRUE(path.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 2, 2, 2, 9, 10));
    EXPECT_EQ(tol, 2.0);
}

// Cursor (10,10), tol 3: the rectangle (7,7)-(13,13) holds its left and top edges only.
TEST(RvDrawEntityIsOnVertex, RightAndBottomEdgesAreExcluded) {
    RvPoint2D cursor(10, 10);
    RvPoint2D found;
    double tol = 3;
    RvPolyLine2D right = Path({RvPoint2D(13, 10)});
    EXPECT_FALSE(right.IsOnVertex(cursor, found, tol));
    RvPolyLine2D bottom = Path({RvPoint2D(10, 13)});
    EXPECT_FALSE(bottom.IsOnVertex(cursor, found, tol));
    EXPECT_EQ(tol, 3.0);

    RvPolyLine2D corner = Path({RvPoint2D(7, 7)});
    EXPECT_TRUE(corner.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 7, 7, 0, 7, 7));
    EXPECT_EQ(tol, 4.0);
}

TEST(RvDrawEntityIsOnVertex, NegativeTolIsPutInOrder) {
    RvPolyLine2D path = Path({RvPoint2D(12, 12)});
    RvPoint2D cursor(10, 10);
    RvPoint2D found;
    double tol = -3;
    EXPECT_TRUE(path.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 12, 12, 0, 12, 12));
    EXPECT_EQ(tol, 3.0);
}

// Cursor (-0.5,-0.5), tol 1: -1.5 and 0.5 truncate toward zero to -1 and 0, so the rectangle
// is (-1,-1)-(0,0). The pixel (-1,-1) is in it, (-2,-1) is not.
TEST(RvDrawEntityIsOnVertex, RectangleIsTruncatedTowardZero) {
    RvPoint2D cursor(-0.5, -0.5);
    RvPoint2D found;
    double tol = 1;
    RvPolyLine2D outside = Path({RvPoint2D(-2, -1)});
    EXPECT_FALSE(outside.IsOnVertex(cursor, found, tol));
    EXPECT_EQ(tol, 1.0);

    RvPolyLine2D inside = Path({RvPoint2D(-1, -1)});
    EXPECT_TRUE(inside.IsOnVertex(cursor, found, tol));
    EXPECT_EQ(tol, 1.5);
}

TEST(RvDrawEntityIsOnVertex, NoHitLeavesFoundAndTolAlone) {
    // In space the vertex sits at the cursor; in the plane it is far away.
    RvPolyLine2D path = Path({RvPoint2D(50, 50, 10, 10, 0)});
    RvPoint2D cursor(10, 10);
    RvPoint2D found(1, 2, 3, 4, 5);
    double tol = 3;
    EXPECT_FALSE(path.IsOnVertex(cursor, found, tol));
    EXPECT_TRUE(HasValues(found, 3, 4, 5, 1, 2));
    EXPECT_EQ(tol, 3.0);

    RvPolyLine2D empty;
    EXPECT_FALSE(empty.IsOnVertex(cursor, found, tol));
    EXPECT_EQ(tol, 3.0);
}
