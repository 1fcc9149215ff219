#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <stdexcept>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvInterPoint.h"
#include "ravelin/polygon/RvPolygon2D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

const char* const kBadSubscript = "invalid vector<T> subscript";

// The counterclockwise square (0,0), (10,0), (10,10), (0,10), stored open. Edge i runs from the
// vertex before i to vertex i: edge 0 is the left side from (0,10) down to (0,0), edge 1 the
// bottom, edge 2 the right side, edge 3 the top. Perimeter 40.
RvPolygon2D Square() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

// The same square stored closed: vertex 4 repeats (0,0), so edge 0 has no length and edge 4 is
// the left side.
RvPolygon2D ClosedSquare() {
    return Ring(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 0)});
}

_RvInterPoint At(double x, double y, int edge, int aux = 0) {
    return _RvInterPoint(RvPoint2D(x, y), edge, aux);
}

_RvInterSegment Stretch(const _RvInterPoint& start, const _RvInterPoint& end, bool done = false) {
    _RvInterSegment s;
    s.m_Start = start;
    s.m_End = end;
    s.m_bDone = done;
    return s;
}

// A record at (x, y) in the plane z = 0, on `edge`, with `aux`; exact values.
testing::AssertionResult IsRecord(const _RvInterPoint& r, double x, double y, int edge,
                                  int aux = 0) {
    testing::AssertionResult values = HasValues(r, x, y, 0, x, y);
    if (!values) {
        return values;
    }
    if (r.m_nEdge != edge || r.m_nAux != aux) {
        return testing::AssertionFailure() << "edge " << r.m_nEdge << " aux " << r.m_nAux
                                           << ", expected edge " << edge << " aux " << aux;
    }
    return testing::AssertionSuccess();
}

std::vector<int> EdgesOf(const std::vector<_RvInterPoint>& records) {
    std::vector<int> edges;
    for (const _RvInterPoint& r : records) {
        edges.push_back(r.m_nEdge);
    }
    return edges;
}

// The sort context is process-wide: every test that sets it starts from null and leaves it
// null, with both origins back to a record on no edge.
class RvPolygon2DSortPredicates : public testing::Test {
protected:
    void SetUp() override { ResetContext(); }
    void TearDown() override { ResetContext(); }

    static void ResetContext() {
        RvPolygon2D::m_sortPolygon = nullptr;
        RvPolygon2D::m_sortOrigin = _RvInterPoint();
        RvPolygon2D::m_sortOriginEnd = _RvInterPoint();
    }

    // Arc lengths from (0,0) taken on edge 1: (x,0) on edge 1 is at x, (10,y) on edge 2 at
    // 10 + y, (x,10) on edge 3 at 30 - x, (0,y) on edge 0 at 40 - y.
    void UseSquareFromOrigin() {
        RvPolygon2D::m_sortPolygon = &square;
        RvPolygon2D::m_sortOrigin = At(0, 0, 1);
        // A different origin for the other family, so that a predicate reading the wrong one
        // gives another answer. From (10,0) on edge 2: (10,y) is at y, (x,10) at 20 - x,
        // (0,y) at 30 - y, (x,0) at 30 + x.
        RvPolygon2D::m_sortOriginEnd = At(10, 0, 2);
    }

    void UseSquareFromOriginEnd() {
        RvPolygon2D::m_sortPolygon = &square;
        RvPolygon2D::m_sortOriginEnd = At(0, 0, 1);
        RvPolygon2D::m_sortOrigin = At(10, 0, 2);
    }

    RvPolygon2D square = Square();
};

}  // namespace

// ---------------------------------------------------------------------------------------------
// Sort context

TEST(RvPolygon2DSortContext, StartsWithNoPolygonAndOriginsOnNoEdge) {
    EXPECT_EQ(RvPolygon2D::m_sortPolygon, nullptr);
    EXPECT_EQ(RvPolygon2D::m_sortOrigin.m_nEdge, -1);
    EXPECT_EQ(RvPolygon2D::m_sortOriginEnd.m_nEdge, -1);
}

// ---------------------------------------------------------------------------------------------
// GetLength

// u = (0,0) - (7,0), w = (2,0) - (7,0): c = 35 > 1e-06, so the way runs straight along the edge.
TEST(RvPolygon2DArcLength, AheadOnOneEdgeIsTheStraightDistance) {
    RvPolygon2D square = Square();
    EXPECT_EQ(square.GetLength(At(2, 0, 1), At(7, 0, 1)), 5.0);
}

// u = (0,0) - (2,0), w = (7,0) - (2,0): c = -10. The walk: 3 to (10,0), the edges 2, 3, 0
// (30), then 2 from (0,0): 35.
TEST(RvPolygon2DArcLength, BehindOnOneEdgeWalksRoundTheRing) {
    RvPolygon2D square = Square();
    EXPECT_EQ(square.GetLength(At(7, 0, 1), At(2, 0, 1)), 35.0);
}

// w is null, so c is 0: 6 + 30 + 4.
TEST(RvPolygon2DArcLength, FromAPointToItselfIsThePerimeter) {
    RvPolygon2D square = Square();
    EXPECT_EQ(square.GetLength(At(4, 0, 1), At(4, 0, 1)), 40.0);
}

// 8 from (2,0) to (10,0), then 3 up edge 2.
TEST(RvPolygon2DArcLength, ToTheNextEdge) {
    RvPolygon2D square = Square();
    EXPECT_EQ(square.GetLength(At(2, 0, 1), At(10, 3, 2)), 11.0);
}

// 5 up to (10,10), edge 3 (10), then 5 down edge 0 from (0,10): the index wraps from 3 to 0.
TEST(RvPolygon2DArcLength, AcrossTheWrapOfTheIndex) {
    RvPolygon2D square = Square();
    EXPECT_EQ(square.GetLength(At(10, 5, 2), At(0, 5, 0)), 20.0);
    // And from edge 0 onto edge 1: 5 down to (0,0), 3 along the bottom.
    EXPECT_EQ(square.GetLength(At(0, 5, 0), At(3, 0, 1)), 8.0);
}

// From edge 2 back to edge 1 the walk goes forward round the ring: 5 up to (10,10), edges 3
// and 0 (20), then 2 along the bottom: 27, the perimeter less the 13 from b to a.
TEST(RvPolygon2DArcLength, ToThePreviousEdgeGoesAllTheWayRound) {
    RvPolygon2D square = Square();
    EXPECT_EQ(square.GetLength(At(10, 5, 2), At(2, 0, 1)), 27.0);
}

// b = (2,0), a = (2 - d, 0): c = 2d. With d = 1e-06, c = 2e-06 passes the band; with
// d = 6e-07, c = 1.2e-06 is above 1e-06 but not by the band, so the walk goes round:
// (8 + d) + 30 + 2.
TEST(RvPolygon2DArcLength, StraightDistanceNeedsTheDotProductAboveTheBand) {
    RvPolygon2D square = Square();
    EXPECT_NEAR(square.GetLength(At(2 - 1e-06, 0, 1), At(2, 0, 1)), 1e-06, 1e-12);
    EXPECT_NEAR(square.GetLength(At(2 - 6e-07, 0, 1), At(2, 0, 1)), 40 + 6e-07, 1e-09);
}

// The planar pair is a tenth of the spatial position; the length is taken in space: 8 + 3.
TEST(RvPolygon2DArcLength, IsMeasuredInSpace) {
    RvPolygon2D ring = Ring({RvPoint2D(0, 0, 0, 0, 0), RvPoint2D(1, 0, 10, 0, 0),
                             RvPoint2D(1, 1, 10, 10, 0), RvPoint2D(0, 1, 0, 10, 0)});
    const _RvInterPoint a(RvPoint2D(0.2, 0, 2, 0, 0), 1);
    const _RvInterPoint b(RvPoint2D(1, 0.3, 10, 3, 0), 2);
    EXPECT_DOUBLE_EQ(ring.GetLength(a, b), 11.0);
}

TEST(RvPolygon2DArcLength, EdgeOfTheStartOutsideTheVerticesRaises) {
    RvPolygon2D square = Square();
    ExpectThrowWithMessage<std::out_of_range>([&] { square.GetLength(At(0, 0, -1), At(3, 0, 1)); },
                                              kBadSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { square.GetLength(At(0, 0, 4), At(3, 0, 1)); },
                                              kBadSubscript);
}

// The walk would never reach an edge that is not there: the range error comes instead.
TEST(RvPolygon2DArcLength, EdgeOfTheEndOutsideTheVerticesRaisesInsteadOfWalkingForever) {
    RvPolygon2D square = Square();
    ExpectThrowWithMessage<std::out_of_range>([&] { square.GetLength(At(3, 0, 1), At(0, 0, 4)); },
                                              kBadSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { square.GetLength(At(3, 0, 1), At(0, 0, -1)); },
                                              kBadSubscript);
}

TEST(RvPolygon2DArcLength, EmptyPolygonRaises) {
    RvPolygon2D empty;
    ExpectThrowWithMessage<std::out_of_range>([&] { empty.GetLength(At(0, 0, 0), At(0, 0, 0)); },
                                              kBadSubscript);
}

// ---------------------------------------------------------------------------------------------
// Sort predicates

TEST_F(RvPolygon2DSortPredicates, PointOrderWithoutPolygonIsFalseBothWays) {
    RvPolygon2D::m_sortOrigin = At(0, 0, 1);
    EXPECT_FALSE(RvPolygon2D::sort_RvInterPoint_less(At(2, 0, 1), At(10, 3, 2)));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterPoint_less(At(10, 3, 2), At(2, 0, 1)));
}

// From (0,0): (2,0) at 2, (10,3) at 13.
TEST_F(RvPolygon2DSortPredicates, PointOrderFollowsTheArcLengthFromTheOrigin) {
    UseSquareFromOrigin();
    EXPECT_TRUE(RvPolygon2D::sort_RvInterPoint_less(At(2, 0, 1), At(10, 3, 2)));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterPoint_less(At(10, 3, 2), At(2, 0, 1)));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterPoint_less(At(2, 0, 1), At(2, 0, 1)));
}

// Lengths 35, 13, 2, 25 from (0,0).
TEST_F(RvPolygon2DSortPredicates, PointsSortAlongTheBoundary) {
    UseSquareFromOrigin();
    std::vector<_RvInterPoint> points = {At(0, 5, 0), At(10, 3, 2), At(2, 0, 1), At(5, 10, 3)};
    std::sort(points.begin(), points.end(), RvPolygon2D::sort_RvInterPoint_less);
    EXPECT_EQ(EdgesOf(points), (std::vector<int>{1, 2, 3, 0}));
}

// The reference form asks for the polygon before the flags; the pointer form after them.
TEST_F(RvPolygon2DSortPredicates, WithoutPolygonReferenceFormIgnoresTheFlags) {
    _RvInterSegment l = Stretch(At(2, 0, 1), At(3, 0, 1));
    _RvInterSegment r = Stretch(At(4, 0, 1), At(5, 0, 1), true);
    EXPECT_FALSE(RvPolygon2D::sort_RvInterSegmentStart_less(l, r));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentStart_less(&l, &r));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&l, &r));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&l, &r));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentEnd_greater(&l, &r));
}

TEST_F(RvPolygon2DSortPredicates, WithoutPolygonAndNoFlagEveryFormIsFalse) {
    _RvInterSegment l = Stretch(At(5, 0, 1), At(2, 0, 1));
    _RvInterSegment r = Stretch(At(10, 3, 2), At(10, 4, 2));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterSegmentStart_less(l, r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_less(&l, &r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&l, &r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&l, &r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_greater(&l, &r));
    // Nothing was normalised.
    EXPECT_TRUE(IsRecord(l.m_Start, 5, 0, 1));
}

TEST_F(RvPolygon2DSortPredicates, WithoutPolygonPointerFormsPutTheLeftDoneRecordBehind) {
    _RvInterSegment l = Stretch(At(2, 0, 1), At(3, 0, 1), true);
    _RvInterSegment r = Stretch(At(4, 0, 1), At(5, 0, 1));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_less(&l, &r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&l, &r));
}

// With a polygon the flags decide before any length is taken: the records stay as they are.
TEST_F(RvPolygon2DSortPredicates, DoneRecordSortsBehindWithoutNormalising) {
    UseSquareFromOrigin();
    // Nearer end (2,0) at 2, stored as the end.
    _RvInterSegment open = Stretch(At(10, 5, 2), At(2, 0, 1));
    _RvInterSegment done = Stretch(At(9, 0, 1), At(1, 0, 1), true);
    EXPECT_TRUE(RvPolygon2D::sort_RvInterSegmentStart_less(open, done));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterSegmentStart_less(done, open));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentStart_less(&open, &done));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_less(&done, &open));
    // The reversed forms do not reverse the flags.
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&open, &done));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&done, &open));
    EXPECT_TRUE(IsRecord(open.m_Start, 10, 5, 2));
    EXPECT_TRUE(IsRecord(done.m_Start, 9, 0, 1));
}

TEST_F(RvPolygon2DSortPredicates, TwoDoneRecordsAreEquivalent) {
    UseSquareFromOrigin();
    _RvInterSegment l = Stretch(At(2, 0, 1), At(3, 0, 1), true);
    _RvInterSegment r = Stretch(At(4, 0, 1), At(5, 0, 1), true);
    EXPECT_FALSE(RvPolygon2D::sort_RvInterSegmentStart_less(l, r));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterSegmentStart_less(r, l));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&l, &r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&r, &l));
}

// l: (10,5) at 15, (2,0) at 2: swapped, 2. r: (10,3) at 13, (5,10) at 25: kept, 13. Read from
// m_sortOriginEnd instead, l would give 5 and r 3, and the answer would be false.
TEST_F(RvPolygon2DSortPredicates, StartFormsSwapTheNearerEndToTheStartInPlace) {
    UseSquareFromOrigin();
    _RvInterSegment l = Stretch(At(10, 5, 2, 7), At(2, 0, 1, 8));
    _RvInterSegment r = Stretch(At(10, 3, 2), At(5, 10, 3));
    EXPECT_TRUE(RvPolygon2D::sort_RvInterSegmentStart_less(l, r));
    EXPECT_TRUE(IsRecord(l.m_Start, 2, 0, 1, 8));
    EXPECT_TRUE(IsRecord(l.m_End, 10, 5, 2, 7));
    EXPECT_TRUE(IsRecord(r.m_Start, 10, 3, 2));
    EXPECT_TRUE(IsRecord(r.m_End, 5, 10, 3));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterSegmentStart_less(r, l));
}

TEST_F(RvPolygon2DSortPredicates, PointerStartFormsNormaliseBothRecords) {
    UseSquareFromOrigin();
    _RvInterSegment l = Stretch(At(10, 5, 2), At(2, 0, 1));
    _RvInterSegment r = Stretch(At(5, 10, 3), At(10, 3, 2));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentStart_less(&l, &r));
    EXPECT_TRUE(IsRecord(l.m_Start, 2, 0, 1));
    EXPECT_TRUE(IsRecord(r.m_Start, 10, 3, 2));

    _RvInterSegment l2 = Stretch(At(10, 5, 2), At(2, 0, 1));
    _RvInterSegment r2 = Stretch(At(5, 10, 3), At(10, 3, 2));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&l2, &r2));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&r2, &l2));
    EXPECT_TRUE(IsRecord(l2.m_Start, 2, 0, 1));
    EXPECT_TRUE(IsRecord(r2.m_Start, 10, 3, 2));
}

TEST_F(RvPolygon2DSortPredicates, EqualNearerEndsAreNotLess) {
    UseSquareFromOrigin();
    _RvInterSegment l = Stretch(At(4, 0, 1), At(10, 5, 2));
    _RvInterSegment r = Stretch(At(10, 9, 2), At(4, 0, 1));
    EXPECT_FALSE(RvPolygon2D::sort_RvInterSegmentStart_less(l, r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&l, &r));
    // r's nearer end was its end: swapped all the same.
    EXPECT_TRUE(IsRecord(r.m_Start, 4, 0, 1));
}

// Nearer ends 2 (a), 13 (b), 3 (d); c is done. Each record that took part in a comparison with
// a record not done has its nearer end as its start; the done one is never normalised.
TEST_F(RvPolygon2DSortPredicates, PointerSortOrdersByNearerEndWithDoneRecordsLast) {
    UseSquareFromOrigin();
    _RvInterSegment a = Stretch(At(10, 5, 2), At(2, 0, 1));
    _RvInterSegment b = Stretch(At(5, 10, 3), At(10, 3, 2));
    _RvInterSegment c = Stretch(At(0, 5, 0), At(0, 8, 0), true);
    _RvInterSegment d = Stretch(At(3, 0, 1), At(4, 0, 1));
    std::vector<_RvInterSegment*> records = {&c, &b, &a, &d};
    std::sort(records.begin(), records.end(), RvPolygon2D::sort_pRvInterSegmentStart_less);
    EXPECT_EQ(records, (std::vector<_RvInterSegment*>{&a, &d, &b, &c}));
    EXPECT_TRUE(IsRecord(a.m_Start, 2, 0, 1));
    EXPECT_TRUE(IsRecord(b.m_Start, 10, 3, 2));
    EXPECT_TRUE(IsRecord(c.m_Start, 0, 5, 0));
    EXPECT_TRUE(IsRecord(d.m_Start, 3, 0, 1));
}

TEST_F(RvPolygon2DSortPredicates, PointerSortDescendingKeepsDoneRecordsLast) {
    UseSquareFromOrigin();
    _RvInterSegment a = Stretch(At(10, 5, 2), At(2, 0, 1));
    _RvInterSegment b = Stretch(At(5, 10, 3), At(10, 3, 2));
    _RvInterSegment c = Stretch(At(0, 5, 0), At(0, 8, 0), true);
    _RvInterSegment d = Stretch(At(3, 0, 1), At(4, 0, 1));
    std::vector<_RvInterSegment*> records = {&c, &a, &d, &b};
    std::sort(records.begin(), records.end(), RvPolygon2D::sort_pRvInterSegmentStart_greater);
    EXPECT_EQ(records, (std::vector<_RvInterSegment*>{&b, &d, &a, &c}));
}

// From m_sortOriginEnd (0,0): l has (10,5) at 15 and (2,0) at 2, so its ends swap and it counts
// 15; r has (5,10) at 25 as its start and (10,3) at 13 as its end, so they swap and it counts
// 25. Read from m_sortOrigin instead, l would count 32 and r 15.
TEST_F(RvPolygon2DSortPredicates, EndFormsSwapTheFartherEndToTheEndInPlace) {
    UseSquareFromOriginEnd();
    _RvInterSegment l = Stretch(At(10, 5, 2, 4), At(2, 0, 1, 5));
    _RvInterSegment r = Stretch(At(5, 10, 3), At(10, 3, 2));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&l, &r));
    EXPECT_TRUE(IsRecord(l.m_Start, 2, 0, 1, 5));
    EXPECT_TRUE(IsRecord(l.m_End, 10, 5, 2, 4));
    EXPECT_TRUE(IsRecord(r.m_Start, 10, 3, 2));
    EXPECT_TRUE(IsRecord(r.m_End, 5, 10, 3));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&r, &l));
}

TEST_F(RvPolygon2DSortPredicates, EndGreaterReversesTheComparison) {
    UseSquareFromOriginEnd();
    _RvInterSegment l = Stretch(At(10, 5, 2), At(2, 0, 1));
    _RvInterSegment r = Stretch(At(5, 10, 3), At(10, 3, 2));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_greater(&l, &r));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentEnd_greater(&r, &l));
    EXPECT_TRUE(IsRecord(l.m_End, 10, 5, 2));
    EXPECT_TRUE(IsRecord(r.m_End, 5, 10, 3));
}

TEST_F(RvPolygon2DSortPredicates, EndFormsPutDoneRecordsBehind) {
    UseSquareFromOriginEnd();
    _RvInterSegment open = Stretch(At(10, 5, 2), At(2, 0, 1));
    _RvInterSegment done = Stretch(At(5, 10, 3), At(10, 3, 2), true);
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentEnd_less(&open, &done));
    EXPECT_TRUE(RvPolygon2D::sort_pRvInterSegmentEnd_greater(&open, &done));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_greater(&done, &open));
    EXPECT_TRUE(IsRecord(open.m_End, 2, 0, 1));
}

// A missing record cannot be compared: the answer is false and nothing is read.
TEST_F(RvPolygon2DSortPredicates, MissingRecordAnswersFalse) {
    UseSquareFromOrigin();
    _RvInterSegment r = Stretch(At(10, 5, 2), At(2, 0, 1));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_less(nullptr, &r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentStart_greater(&r, nullptr));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_less(nullptr, &r));
    EXPECT_FALSE(RvPolygon2D::sort_pRvInterSegmentEnd_greater(&r, nullptr));
    EXPECT_TRUE(IsRecord(r.m_Start, 10, 5, 2));
}

// ---------------------------------------------------------------------------------------------
// IntersectHalfLine2D and IntersectHalfLine2DBreak

TEST(RvPolygon2DHalfLine, EmptyPolygonHasNoHits) {
    RvPolygon2D empty;
    RvPolygon2D::HitQueue q;
    std::vector<_RvInterPoint> out = {At(1, 1, 9)};
    EXPECT_FALSE(empty.IntersectHalfLine2D(RvPoint2D(0, 0), RvPoint2D(1, 0), q));
    EXPECT_TRUE(q.empty());
    EXPECT_FALSE(empty.IntersectHalfLine2DBreak(RvPoint2D(0, 0), RvPoint2D(1, 0), out));
    EXPECT_EQ(out.size(), 1U);
}

// Edge 0 at t = 0.5, (0,5), 5 away; edge 2 at (10,5), 15 away; the top and bottom are parallel.
// The direction need not be of unit length.
TEST(RvPolygon2DHalfLine, QueueHasTheNearestHitOnTop) {
    RvPolygon2D square = Square();
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(square.IntersectHalfLine2D(RvPoint2D(-5, 5), RvPoint2D(2, 0), q));
    ASSERT_EQ(q.size(), 2U);
    EXPECT_TRUE(HasValues(q.top().m_Point, 0, 5, 0, 0, 5));
    EXPECT_EQ(q.top().m_nEdge, 0);
    EXPECT_EQ(q.top().m_dDistance, 5.0);
    q.pop();
    EXPECT_TRUE(HasValues(q.top().m_Point, 10, 5, 0, 10, 5));
    EXPECT_EQ(q.top().m_nEdge, 2);
    EXPECT_EQ(q.top().m_dDistance, 15.0);
}

// From inside, the hit on edge 0 lies behind the start: u = -5.
TEST(RvPolygon2DHalfLine, HitsBehindTheStartAreLeftOut) {
    RvPolygon2D square = Square();
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(square.IntersectHalfLine2D(RvPoint2D(5, 5), RvPoint2D(1, 0), q));
    ASSERT_EQ(q.size(), 1U);
    EXPECT_EQ(q.top().m_nEdge, 2);
    EXPECT_EQ(q.top().m_dDistance, 5.0);
}

// Through (0,0) and (10,10): t = 0 on edges 0 and 2, t = 1 on edges 1 and 3.
TEST(RvPolygon2DHalfLine, ThroughAVertexHitsBothEdgesThere) {
    RvPolygon2D square = Square();
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(square.IntersectHalfLine2D(RvPoint2D(-5, -5), RvPoint2D(1, 1), q));
    ASSERT_EQ(q.size(), 4U);
    std::vector<int> near;
    for (int k = 0; k < 2; ++k) {
        EXPECT_DOUBLE_EQ(q.top().m_dDistance, std::sqrt(50.0));
        near.push_back(q.top().m_nEdge);
        q.pop();
    }
    std::sort(near.begin(), near.end());
    EXPECT_EQ(near, (std::vector<int>{0, 1}));
    EXPECT_DOUBLE_EQ(q.top().m_dDistance, std::sqrt(450.0));

    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectHalfLine2DBreak(RvPoint2D(-5, -5), RvPoint2D(1, 1), out));
    EXPECT_EQ(EdgesOf(out), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_TRUE(IsRecord(out[0], 0, 0, 0));
    EXPECT_TRUE(IsRecord(out[1], 0, 0, 1));
}

// Starting at (10,5) on edge 2 and pointing inside: IntersectHalfLine2D keeps the hit at the
// start (u = 0 > -1e-08), IntersectHalfLine2DBreak refuses it (0 is not above -1e-08 by the
// band).
TEST(RvPolygon2DHalfLine, StartOnAnEdgeHitsAtDistanceZeroOnlyInTheQueue) {
    RvPolygon2D square = Square();
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(square.IntersectHalfLine2D(RvPoint2D(10, 5), RvPoint2D(-1, 0), q));
    ASSERT_EQ(q.size(), 2U);
    EXPECT_EQ(q.top().m_nEdge, 2);
    EXPECT_EQ(q.top().m_dDistance, 0.0);
    q.pop();
    EXPECT_EQ(q.top().m_nEdge, 0);
    EXPECT_EQ(q.top().m_dDistance, 10.0);

    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectHalfLine2DBreak(RvPoint2D(10, 5), RvPoint2D(-1, 0), out));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_TRUE(IsRecord(out[0], 0, 5, 0));
}

TEST(RvPolygon2DHalfLine, StartOnAnEdgePointingOutsideGivesNoBreak) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_FALSE(square.IntersectHalfLine2DBreak(RvPoint2D(10, 5), RvPoint2D(1, 0), out));
    EXPECT_TRUE(out.empty());
}

// The queue's test is plain: u = -5e-09 passes, u = -2e-08 does not.
TEST(RvPolygon2DHalfLine, QueueAcceptsAHitJustBehindTheStart) {
    RvPolygon2D square = Square();
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(square.IntersectHalfLine2D(RvPoint2D(10 + 5e-09, 5), RvPoint2D(1, 0), q));
    ASSERT_EQ(q.size(), 1U);
    EXPECT_EQ(q.top().m_nEdge, 2);
    EXPECT_NEAR(q.top().m_dDistance, 5e-09, 1e-12);

    RvPolygon2D::HitQueue none;
    EXPECT_FALSE(square.IntersectHalfLine2D(RvPoint2D(10 + 2e-08, 5), RvPoint2D(1, 0), none));
    EXPECT_TRUE(none.empty());
}

// The vector's test carries the band: u = 4e-07 is refused, u = 1e-06 accepted.
TEST(RvPolygon2DHalfLine, BreakNeedsTheHitAheadByTheBand) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_FALSE(square.IntersectHalfLine2DBreak(RvPoint2D(10 - 4e-07, 5), RvPoint2D(1, 0), out));
    EXPECT_TRUE(out.empty());
    EXPECT_TRUE(square.IntersectHalfLine2DBreak(RvPoint2D(10 - 1e-06, 5), RvPoint2D(1, 0), out));
    EXPECT_EQ(EdgesOf(out), (std::vector<int>{2}));
}

// Above the top by d: t = 1 + d/10 on edge 0 and -d/10 on edge 2. d = 5e-06 keeps both inside
// the widened range, d = 2e-05 puts both outside.
TEST(RvPolygon2DHalfLine, EdgeRangeIsWidenedAtBothEnds) {
    RvPolygon2D square = Square();
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(square.IntersectHalfLine2D(RvPoint2D(-5, 10 + 5e-06), RvPoint2D(1, 0), q));
    EXPECT_EQ(q.size(), 2U);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectHalfLine2DBreak(RvPoint2D(-5, 10 + 5e-06), RvPoint2D(1, 0), out));
    EXPECT_EQ(EdgesOf(out), (std::vector<int>{0, 2}));

    RvPolygon2D::HitQueue none;
    EXPECT_FALSE(square.IntersectHalfLine2D(RvPoint2D(-5, 10 + 2e-05), RvPoint2D(1, 0), none));
    EXPECT_TRUE(none.empty());
    std::vector<_RvInterPoint> nothing;
    EXPECT_FALSE(
        square.IntersectHalfLine2DBreak(RvPoint2D(-5, 10 + 2e-05), RvPoint2D(1, 0), nothing));
    EXPECT_TRUE(nothing.empty());
}

// From (15,5) leftward: (10,5) on edge 2 is nearer, but the vector lists edge 0 first.
TEST(RvPolygon2DHalfLine, BreakListsHitsInEdgeOrderAndAppends) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out = {At(1, 1, 9, 3)};
    EXPECT_TRUE(square.IntersectHalfLine2DBreak(RvPoint2D(15, 5), RvPoint2D(-1, 0), out));
    ASSERT_EQ(out.size(), 3U);
    EXPECT_TRUE(IsRecord(out[0], 1, 1, 9, 3));
    EXPECT_TRUE(IsRecord(out[1], 0, 5, 0));
    EXPECT_TRUE(IsRecord(out[2], 10, 5, 2));

    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(square.IntersectHalfLine2D(RvPoint2D(15, 5), RvPoint2D(-1, 0), q));
    EXPECT_EQ(q.top().m_nEdge, 2);
}

// Start planar (12,5) but at z = -5 in space, direction planar (1,0) but (1,0,1) in space. Edge
// 2's hit (10,5,0): planar u = -2, refused by the queue; spatial u = -2 + 5 = 3, accepted by the
// vector. Edge 0's hit: -12 in the plane, -12 + 5 = -7 in space.
TEST(RvPolygon2DHalfLine, BreakTestsTheDirectionInSpace) {
    RvPolygon2D square = Square();
    const RvPoint2D p(12, 5, 12, 5, -5);
    const RvPoint2D d(1, 0, 1, 0, 1);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectHalfLine2DBreak(p, d, out));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_TRUE(IsRecord(out[0], 10, 5, 2));

    RvPolygon2D::HitQueue q;
    EXPECT_FALSE(square.IntersectHalfLine2D(p, d, q));
    EXPECT_TRUE(q.empty());
}

// ---------------------------------------------------------------------------------------------
// IntersectLine2DBreak

TEST(RvPolygon2DLineBreak, EmptyPolygonHasNoRecords) {
    RvPolygon2D empty;
    std::vector<_RvInterPoint> out;
    EXPECT_FALSE(empty.IntersectLine2DBreak(RvPoint2D(0, 0), RvPoint2D(1, 0), out));
    EXPECT_TRUE(out.empty());
}

// The whole line: (0,5) lies behind (5,5) and counts all the same. The top and bottom are
// parallel and off the line: |w . e| = 0.707.
TEST(RvPolygon2DLineBreak, TheLineHasNoStart) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out = {At(1, 1, 9)};
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 5), RvPoint2D(1, 0), out));
    ASSERT_EQ(out.size(), 3U);
    EXPECT_TRUE(IsRecord(out[1], 0, 5, 0));
    EXPECT_TRUE(IsRecord(out[2], 10, 5, 2));
}

// The diagonal meets (0,0) at t = 0 of edge 0 and t = 1 of edge 1, and (10,10) at t = 0 of
// edge 2 and t = 1 of edge 3: only the t = 1 hits count.
TEST(RvPolygon2DLineBreak, HitAtAVertexCountsOnlyOnTheEdgeEndingThere) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 5), RvPoint2D(1, 1), out));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_TRUE(IsRecord(out[0], 0, 0, 1));
    EXPECT_TRUE(IsRecord(out[1], 10, 10, 3));
}

// Below the top by d: t = d/10 on edge 2 must exceed 1e-06: d = 2e-05 gives 2e-06, d = 5e-06
// gives 5e-07. Edge 0 (t = 1 - d/10) counts in both, and the top edge, parallel and within the
// angle tolerance of the line, is reported as lying on it.
TEST(RvPolygon2DLineBreak, LowerEndOfTheRangeIsOpenAboveZero) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 10 - 2e-05), RvPoint2D(1, 0), out));
    EXPECT_EQ(EdgesOf(out), (std::vector<int>{0, 2, 3}));
    std::vector<_RvInterPoint> out2;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 10 - 5e-06), RvPoint2D(1, 0), out2));
    EXPECT_EQ(EdgesOf(out2), (std::vector<int>{0, 3}));
}

// Above the top by d: t = 1 + d/10 on edge 0 must stay below 1.0000001. d = 5e-07 passes;
// d = 5e-06 (t = 1.0000005) would pass the half-line's range but not this one.
TEST(RvPolygon2DLineBreak, UpperEndOfTheRangeIsNarrowerThanTheHalfLines) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 10 + 5e-07), RvPoint2D(1, 0), out));
    EXPECT_EQ(EdgesOf(out), (std::vector<int>{0, 3}));
    std::vector<_RvInterPoint> out2;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 10 + 5e-06), RvPoint2D(1, 0), out2));
    EXPECT_EQ(EdgesOf(out2), (std::vector<int>{3}));
}

// Along the bottom: edge 1 lies on the line and is reported by its first vertex (0,0); edge 2
// ends there at t = 1 with (10,0); edge 0's hit at (0,0) has t = 0.
TEST(RvPolygon2DLineBreak, EdgeOnTheLineIsReportedByItsFirstVertex) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 0), RvPoint2D(1, 0), out));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_TRUE(IsRecord(out[0], 0, 0, 1));
    EXPECT_TRUE(IsRecord(out[1], 10, 0, 2));
}

// The line through vertex 1 itself: w is null, so the edge counts as on the line.
TEST(RvPolygon2DLineBreak, LineThroughTheEdgesEndVertexCountsTheEdge) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(10, 0), RvPoint2D(-3, 0), out));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_TRUE(IsRecord(out[0], 0, 0, 1));
    EXPECT_TRUE(IsRecord(out[1], 10, 0, 2));
}

// Parallel to the top at height 10 + h; w runs from (0,10) to (5, 10 + h), so
// |w . e| = 5 / sqrt(25 + h^2): about 1 - 2e-08 for h = 0.001 (on the line), about 1 - 2e-06
// for h = 0.01 (off it). Edges 0 and 2 are missed by t in both.
TEST(RvPolygon2DLineBreak, ParallelEdgeCountsWithinTheAngleTolerance) {
    RvPolygon2D square = Square();
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 10.001), RvPoint2D(1, 0), out));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_TRUE(IsRecord(out[0], 10, 10, 3));
    std::vector<_RvInterPoint> none;
    EXPECT_FALSE(square.IntersectLine2DBreak(RvPoint2D(5, 10.01), RvPoint2D(1, 0), none));
    EXPECT_TRUE(none.empty());
}

// The closing edge 0 of a ring stored closed has no length: it is taken as lying on any line.
TEST(RvPolygon2DLineBreak, ZeroLengthEdgeIsAlwaysReported) {
    RvPolygon2D square = ClosedSquare();
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectLine2DBreak(RvPoint2D(5, 5), RvPoint2D(1, 0), out));
    ASSERT_EQ(out.size(), 3U);
    EXPECT_TRUE(IsRecord(out[0], 0, 0, 0));
    EXPECT_TRUE(IsRecord(out[1], 10, 5, 2));
    EXPECT_TRUE(IsRecord(out[2], 0, 5, 4));
}

// ---------------------------------------------------------------------------------------------
// IntersectSegment2DBreak

TEST(RvPolygon2DSegmentBreak, EmptyPolygonLeavesTheOutputAlone) {
    RvPolygon2D empty;
    RvPoint2D a(-5, 5);
    RvPoint2D b(15, 5);
    std::vector<_RvInterPoint> out = {At(1, 1, 9)};
    EXPECT_FALSE(empty.IntersectSegment2DBreak(a, b, out));
    EXPECT_EQ(out.size(), 1U);
    std::vector<RvPoint2D> points = {RvPoint2D(1, 1)};
    EXPECT_FALSE(empty.IntersectSegment2DBreak(a, b, points));
    EXPECT_EQ(points.size(), 1U);
}

TEST(RvPolygon2DSegmentBreak, BothEndsInsideMeetNoEdge) {
    RvPolygon2D square = Square();
    RvPoint2D a(3, 3);
    RvPoint2D b(7, 7);
    std::vector<_RvInterPoint> out;
    EXPECT_FALSE(square.IntersectSegment2DBreak(a, b, out));
    EXPECT_TRUE(out.empty());
}

// s = 0.25 and 0.75, t = 0.5 on edges 0 and 2; both ends are outside, so nothing is removed.
TEST(RvPolygon2DSegmentBreak, CrossingThroughGivesBothCrossingsWithTheirEdges) {
    RvPolygon2D square = Square();
    RvPoint2D a(-5, 5);
    RvPoint2D b(15, 5);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectSegment2DBreak(a, b, out));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_TRUE(IsRecord(out[0], 0, 5, 0, 0));
    EXPECT_TRUE(IsRecord(out[1], 10, 5, 2, 0));
}

TEST(RvPolygon2DSegmentBreak, PointFormGivesTheSamePoints) {
    RvPolygon2D square = Square();
    RvPoint2D a(-5, 5);
    RvPoint2D b(15, 5);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(square.IntersectSegment2DBreak(a, b, out));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_TRUE(HasValues(out[0], 0, 5, 0, 0, 5));
    EXPECT_TRUE(HasValues(out[1], 10, 5, 0, 10, 5));
}

// The only crossing, (10,5), is the record nearest to the end (5,5) inside: it goes, and the
// result stays true.
TEST(RvPolygon2DSegmentBreak, OneEndInsideLosesItsOnlyCrossing) {
    RvPolygon2D square = Square();
    RvPoint2D inside(5, 5);
    RvPoint2D outside(15, 5);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectSegment2DBreak(inside, outside, out));
    EXPECT_TRUE(out.empty());
    std::vector<_RvInterPoint> reversed;
    EXPECT_TRUE(square.IntersectSegment2DBreak(outside, inside, reversed));
    EXPECT_TRUE(reversed.empty());
    std::vector<RvPoint2D> points;
    EXPECT_TRUE(square.IntersectSegment2DBreak(inside, outside, points));
    EXPECT_TRUE(points.empty());
}

// The caller's record (9,5) lies 4 from the end inside, the crossing (10,5) lies 5: the
// caller's record is the one removed.
TEST(RvPolygon2DSegmentBreak, RemovalReachesOverRecordsAlreadyThere) {
    RvPolygon2D square = Square();
    RvPoint2D inside(5, 5);
    RvPoint2D outside(15, 5);
    std::vector<_RvInterPoint> out = {At(9, 5, 7, 3)};
    EXPECT_TRUE(square.IntersectSegment2DBreak(inside, outside, out));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_TRUE(IsRecord(out[0], 10, 5, 2));

    std::vector<RvPoint2D> points = {RvPoint2D(9, 5)};
    EXPECT_TRUE(square.IntersectSegment2DBreak(inside, outside, points));
    ASSERT_EQ(points.size(), 1U);
    EXPECT_TRUE(HasValues(points[0], 10, 5, 0, 10, 5));
}

// No crossing, so the result is false; yet each end inside removes the record nearest to it:
// (3,5) takes (0,5), then (7,5) takes (10,5).
TEST(RvPolygon2DSegmentBreak, BothEndsInsideEachRemoveOneRecord) {
    RvPolygon2D square = Square();
    RvPoint2D a(3, 5);
    RvPoint2D b(7, 5);
    std::vector<_RvInterPoint> out = {At(0, 5, 0), At(10, 5, 2), At(5, 0, 1)};
    EXPECT_FALSE(square.IntersectSegment2DBreak(a, b, out));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_TRUE(IsRecord(out[0], 5, 0, 1));
}

// (5,10) and the crossing (10,5) are both 5 from (5,5): the first record stays the candidate.
TEST(RvPolygon2DSegmentBreak, TieGoesToTheFirstRecord) {
    RvPolygon2D square = Square();
    RvPoint2D inside(5, 5);
    RvPoint2D outside(15, 5);
    std::vector<_RvInterPoint> out = {At(5, 10, 3)};
    EXPECT_TRUE(square.IntersectSegment2DBreak(inside, outside, out));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_TRUE(IsRecord(out[0], 10, 5, 2));
}

// A later record replaces the candidate only when nearer by 5e-07 or more: 3e-07 nearer is not
// enough, 1e-06 nearer is.
TEST(RvPolygon2DSegmentBreak, LaterRecordMustBeNearerByTheBand) {
    RvPolygon2D square = Square();
    RvPoint2D inside(5, 5);
    RvPoint2D outside(15, 5);
    std::vector<_RvInterPoint> out = {At(5, 10, 3), At(5, 10 - 3e-07, 3, 1)};
    EXPECT_TRUE(square.IntersectSegment2DBreak(inside, outside, out));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_EQ(out[0].m_nAux, 1);
    EXPECT_EQ(out[1].m_nEdge, 2);

    std::vector<_RvInterPoint> out2 = {At(5, 10, 3), At(5, 10 - 1e-06, 3, 1)};
    EXPECT_TRUE(square.IntersectSegment2DBreak(inside, outside, out2));
    ASSERT_EQ(out2.size(), 2U);
    EXPECT_TRUE(IsRecord(out2[0], 5, 10, 3));
    EXPECT_EQ(out2[1].m_nEdge, 2);
}

// An end on an edge is not strictly inside: its crossing (s = 0) stays.
TEST(RvPolygon2DSegmentBreak, EndOnAnEdgeRemovesNothing) {
    RvPolygon2D square = Square();
    RvPoint2D onEdge(10, 5);
    RvPoint2D outside(15, 5);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectSegment2DBreak(onEdge, outside, out));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_TRUE(IsRecord(out[0], 10, 5, 2));
}

// Along the bottom: no record for edge 1 (parallel), only edge 0 at t = 0 and edge 2 at t = 1,
// where the segment passes the corners.
TEST(RvPolygon2DSegmentBreak, SegmentAlongAnEdgeGivesOnlyTheEdgesAtItsEnds) {
    RvPolygon2D square = Square();
    RvPoint2D a(-5, 0);
    RvPoint2D b(15, 0);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectSegment2DBreak(a, b, out));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_TRUE(IsRecord(out[0], 0, 0, 0));
    EXPECT_TRUE(IsRecord(out[1], 10, 0, 2));
}

// Above the top by d: t = 1 + d/10 on edge 0 and -d/10 on edge 2; inside the widened range for
// d = 5e-06, outside for d = 2e-05.
TEST(RvPolygon2DSegmentBreak, EdgeRangeIsWidenedAtBothEnds) {
    RvPolygon2D square = Square();
    RvPoint2D a(-5, 10 + 5e-06);
    RvPoint2D b(15, 10 + 5e-06);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectSegment2DBreak(a, b, out));
    EXPECT_EQ(EdgesOf(out), (std::vector<int>{0, 2}));

    RvPoint2D c(-5, 10 + 2e-05);
    RvPoint2D d(15, 10 + 2e-05);
    std::vector<_RvInterPoint> none;
    EXPECT_FALSE(square.IntersectSegment2DBreak(c, d, none));
    EXPECT_TRUE(none.empty());
}

// Ending short of edge 0 by e: s = 5 / (5 - e) along the segment from (-5,5). e = 2e-06 gives
// s = 1.0000004, inside the range; e = 1e-05 gives 1.000002, outside. An end that close to the
// edge lies on it for the point tests, so nothing is removed.
TEST(RvPolygon2DSegmentBreak, SegmentRangeIsWidenedAtItsEnd) {
    RvPolygon2D square = Square();
    RvPoint2D a(-5, 5);
    RvPoint2D near(-2e-06, 5);
    std::vector<_RvInterPoint> out;
    EXPECT_TRUE(square.IntersectSegment2DBreak(a, near, out));
    EXPECT_EQ(EdgesOf(out), (std::vector<int>{0}));

    RvPoint2D far(-1e-05, 5);
    std::vector<_RvInterPoint> none;
    EXPECT_FALSE(square.IntersectSegment2DBreak(a, far, none));
    EXPECT_TRUE(none.empty());
}

// ---------------------------------------------------------------------------------------------
// GetNearestSegment2D

// On the counterclockwise square the edge normals point outward: (-1,0) on edge 0, (0,-1) on
// edge 1, (1,0) on edge 2, (0,1) on edge 3.

TEST(RvPolygon2DNearestSegment, EmptyPolygonGivesMinusOne) {
    RvPolygon2D empty;
    RvPoint2D foot(7, 7);
    EXPECT_EQ(empty.GetNearestSegment2D(RvPoint2D(1, 1), RvPoint2D(1, 1), foot), -1);
    EXPECT_TRUE(HasValues(foot, 7, 7, 0, 7, 7));
}

// (5,2) lies 5, 2, 5, 8 from the edges' lines; the bottom wins with the foot (5,0).
TEST(RvPolygon2DNearestSegment, SamePointTwiceGivesThePlainNearestEdge) {
    RvPolygon2D square = Square();
    RvPoint2D foot;
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(5, 2), RvPoint2D(5, 2), foot), 1);
    EXPECT_TRUE(HasValues(foot, 5, 0, 0, 5, 0));
}

// q = (5,9) chooses the top (1 away); the foot is p's, (3,10), not q's (5,10).
TEST(RvPolygon2DNearestSegment, QChoosesTheEdgeAndTheFootIsP) {
    RvPolygon2D square = Square();
    RvPoint2D foot;
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(3, 2), RvPoint2D(5, 9), foot), 3);
    EXPECT_TRUE(HasValues(foot, 3, 10, 0, 3, 10));
}

// q = (5,9.5) is nearest the top, but p = (12,5) projects to (12,10), beyond its end; the
// first edge that qualified, edge 0 (5 from q, foot (0,5)), stays. Edge 2 is 5 from q as well
// and does not beat it.
TEST(RvPolygon2DNearestSegment, PMustProjectInsideTheEdgeThatQChooses) {
    RvPolygon2D square = Square();
    RvPoint2D foot;
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(12, 5), RvPoint2D(5, 9.5), foot), 0);
    EXPECT_TRUE(HasValues(foot, 0, 5, 0, 0, 5));
}

// Beyond the corner (10,10) every foot lies outside its edge: -1 and the foot untouched.
TEST(RvPolygon2DNearestSegment, NoFootInsideAnyEdgeGivesMinusOne) {
    RvPolygon2D square = Square();
    RvPoint2D foot(7, 7);
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(15, 15), RvPoint2D(15, 15), foot), -1);
    EXPECT_TRUE(HasValues(foot, 7, 7, 0, 7, 7));
}

// (0,-3): its foot on the bottom is the vertex (0,0), where c = 0: not strictly inside.
TEST(RvPolygon2DNearestSegment, FootOnAVertexDoesNotCount) {
    RvPolygon2D square = Square();
    RvPoint2D foot;
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(0, -3), RvPoint2D(0, -3), foot), -1);
}

// Foot (x,0) on the bottom: c = (x - 10) * x. x = 1e-07 gives about -1e-06, inside by the band;
// x = 4e-08 gives about -4e-07, which is below -1e-07 but not by the band.
TEST(RvPolygon2DNearestSegment, FootMustLieInsideByTheBand) {
    RvPolygon2D square = Square();
    RvPoint2D foot;
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(1e-07, -1), RvPoint2D(1e-07, -1), foot), 1);
    EXPECT_NEAR(foot.x2D, 1e-07, 1e-15);
    EXPECT_NEAR(foot.y2D, 0, 1e-15);
    RvPoint2D none;
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(4e-08, -1), RvPoint2D(4e-08, -1), none), -1);
}

// Edge 0 of the closed ring has no length and is skipped; (2,5) is 5 from the bottom (first to
// qualify) and 2 from the left side, edge 4.
TEST(RvPolygon2DNearestSegment, ZeroLengthEdgeIsSkipped) {
    RvPolygon2D square = ClosedSquare();
    RvPoint2D foot;
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(2, 5), RvPoint2D(2, 5), foot), 4);
    EXPECT_TRUE(HasValues(foot, 0, 5, 0, 0, 5));
}

// The clockwise square has the opposite normal, hence inward edge normals: the distances and
// the foot come out the same.
TEST(RvPolygon2DNearestSegment, ClockwiseRingGivesTheSameFoot) {
    RvPolygon2D square =
        Ring({RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(10, 10), RvPoint2D(10, 0)});
    RvPoint2D foot;
    // Edge 1 runs from (0,0) to (0,10): 2 from (2,5), the nearest.
    EXPECT_EQ(square.GetNearestSegment2D(RvPoint2D(2, 5), RvPoint2D(2, 5), foot), 1);
    ExpectXyzNear(foot, 0, 5, 0, 1e-12);
    EXPECT_NEAR(foot.x2D, 0, 1e-12);
    EXPECT_NEAR(foot.y2D, 5, 1e-12);
}
