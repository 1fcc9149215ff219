#include "ravelin/polygon/RvPolyPolygon2D.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <stdexcept>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/skeleton/RvSkeleton.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::ExpectThrowWithMessage;
using ravelin::testing_support::HasValues;
using ravelin::testing_support::MessageBoxRecorder;
using ravelin::testing_support::PlanarIs;

namespace {

// Appends `points` as one ring and records its count.
void AddRing(RvPolyPolygon2D& pp, std::initializer_list<RvPoint2D> points) {
    for (const RvPoint2D& p : points) {
        pp.push_backA(p);
    }
    pp.AddCount(static_cast<int>(points.size()));
}

// The square from (0, 0) to (10, 0) to (10, 10) to (0, 10), counterclockwise, with a hole from
// (2, 2) to (8, 8); with `closed` each ring repeats its first vertex at its end.
RvPolyPolygon2D SquareWithHole(bool closed) {
    RvPolyPolygon2D pp;
    if (closed) {
        AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
        AddRing(pp, {{2, 2}, {8, 2}, {8, 8}, {2, 8}, {2, 2}});
    } else {
        AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
        AddRing(pp, {{2, 2}, {8, 2}, {8, 8}, {2, 8}});
    }
    return pp;
}

// The open square and hole of SquareWithHole(false), with `counts` in place of its counts.
RvPolyPolygon2D SquareWithHoleCounted(std::initializer_list<int> counts) {
    RvPolyPolygon2D pp = SquareWithHole(false);
    pp.GetCounts()->clear();
    for (const int c : counts) {
        pp.AddCount(c);
    }
    return pp;
}

// The index of the vertex that GetPrevPoint(i) names.
long PrevIndex(const RvPolyPolygon2D& pp, int i) {
    return static_cast<long>(pp.GetPrevPoint(i) - pp.begin());
}

// All records of `q`, nearest first; `q` is emptied.
std::vector<RvPolygon2D::Intersection2D> Drain(RvPolygon2D::HitQueue& q) {
    std::vector<RvPolygon2D::Intersection2D> out;
    while (!q.empty()) {
        out.push_back(q.top());
        q.pop();
    }
    return out;
}

}  // namespace

// --- Construction, copy and counts ------------------------------------------------------------

TEST(RvPolyPolygon2DConstruct, DefaultIsEmptyWithTypeTen) {
    const RvPolyPolygon2D pp;
    EXPECT_TRUE(pp.empty());
    EXPECT_TRUE(pp.m_Counts.empty());
    EXPECT_EQ(pp.GetType(), 10u);
    EXPECT_EQ(pp.m_pSkeleton, nullptr);
    EXPECT_FALSE(pp.m_bDrawEdges);
}

TEST(RvPolyPolygon2DConstruct, AddCountAppendsAndGetCountsIsTheMember) {
    RvPolyPolygon2D pp;
    pp.AddCount(5);
    pp.AddCount(-1);
    pp.AddCount(3);
    EXPECT_EQ(pp.GetCounts(), &pp.m_Counts);
    EXPECT_EQ(pp.m_Counts, (std::vector<int>{5, -1, 3}));
}

TEST(RvPolyPolygon2DConstruct, CopyHasItsOwnCountsAndNoSkeleton) {
    RvPolyPolygon2D original = SquareWithHole(true);
    original.m_pSkeleton = new RvSkeleton();
    RvPolyPolygon2D copy(original);
    EXPECT_EQ(copy.GetType(), 10u);
    EXPECT_EQ(copy.m_pSkeleton, nullptr);
    EXPECT_EQ(copy.size(), 10u);
    EXPECT_EQ(copy.m_Counts, (std::vector<int>{5, 5}));
    EXPECT_NE(copy.GetCounts(), original.GetCounts());
    copy.AddCount(7);
    (*copy.GetCounts())[0] = 1;
    EXPECT_EQ(original.m_Counts, (std::vector<int>{5, 5}));
    EXPECT_NE(original.m_pSkeleton, nullptr);
}

TEST(RvPolyPolygon2DConstruct, AssignmentCopiesCountsAndDropsTheOwnSkeleton) {
    const RvPolyPolygon2D source = SquareWithHole(false);
    RvPolyPolygon2D target = SquareWithHole(true);
    target.AddCount(9);
    target.m_pSkeleton = new RvSkeleton();
    RvPolyPolygon2D& result = (target = source);
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.m_Counts, (std::vector<int>{4, 4}));
    EXPECT_EQ(target.size(), 8u);
    EXPECT_EQ(target.m_pSkeleton, nullptr);
    EXPECT_EQ(target.GetType(), 10u);
    target.AddCount(1);
    EXPECT_EQ(source.m_Counts.size(), 2u);
}

TEST(RvPolyPolygon2DConstruct, ReInitEmptiesCountsAndVerticesKeepsTypeTen) {
    RvPolyPolygon2D pp = SquareWithHole(true);
    std::vector<int>* counts = pp.GetCounts();
    pp.ReInit();
    EXPECT_EQ(pp.GetCounts(), counts);
    EXPECT_TRUE(pp.GetCounts()->empty());
    EXPECT_TRUE(pp.empty());
    EXPECT_EQ(pp.GetType(), 10u);
}

TEST(RvPolyPolygon2DConstruct, ReInitLeavesTheSkeletonPointerAlone) {
    RvPolyPolygon2D pp = SquareWithHole(true);
    auto* skeleton = new RvSkeleton();
    pp.m_pSkeleton = skeleton;
    pp.ReInit();
    // Unlike RvPolygon2D::ReInit, the pointer is neither cleared nor destroyed; the
    // destructor frees it.
    EXPECT_EQ(pp.m_pSkeleton, skeleton);
}

// --- PointInsidePolyPolygonEx2D -----------------------------------------------------------------

TEST(RvPolyPolygon2DInside, ClosedSquareWithHole) {
    const RvPolyPolygon2D pp = SquareWithHole(true);
    // (1, 1): the leftward half-line crosses the outer left side only.
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(1, 1)), 1);
    // (5, 5): the outer left side and the hole's left side, two crossings.
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(5, 5)), 0);
    // (20, 5): both sides of both rings, four crossings.
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(20, 5)), 0);
}

TEST(RvPolyPolygon2DInside, OpenRingsLoseTheirClosingEdges) {
    const RvPolyPolygon2D closed = SquareWithHole(true);
    const RvPolyPolygon2D open = SquareWithHole(false);
    // The left sides are the closing edges of the open rings: (1, 5) crosses nothing there.
    EXPECT_EQ(closed.PointInsidePolyPolygonEx2D(RvPoint2D(1, 5)), 1);
    EXPECT_EQ(open.PointInsidePolyPolygonEx2D(RvPoint2D(1, 5)), 0);
    // (9, 5) gives 1 either way: open, only the hole's right side is crossed; closed, the
    // outer left side and both sides of the hole, three crossings.
    EXPECT_EQ(open.PointInsidePolyPolygonEx2D(RvPoint2D(9, 5)), 1);
    EXPECT_EQ(closed.PointInsidePolyPolygonEx2D(RvPoint2D(9, 5)), 1);
    // (20, 5): the two right sides, an even count, outside either way.
    EXPECT_EQ(open.PointInsidePolyPolygonEx2D(RvPoint2D(20, 5)), 0);
}

TEST(RvPolyPolygon2DInside, PointOnOneRingStillCountsTheOthers) {
    const RvPolyPolygon2D pp = SquareWithHole(true);
    // (2, 5) lies on the hole's left side: the hole adds nothing, the outer left side one.
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(2, 5)), 1);
    // (10, 5) lies on the outer right side: the outer ring adds nothing, the hole's two sides
    // make the count even.
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(10, 5)), 0);
}

TEST(RvPolyPolygon2DInside, NoCountsGiveOutside) {
    RvPolyPolygon2D pp = SquareWithHole(true);
    pp.GetCounts()->clear();
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(1, 1)), 0);
    const RvPolyPolygon2D empty;
    EXPECT_EQ(empty.PointInsidePolyPolygonEx2D(RvPoint2D(1, 1)), 0);
}

TEST(RvPolyPolygon2DInside, CountsPastTheVerticesAreCutAtTheLast) {
    // The second ring claims ten vertices where four are left; it is read as those four.
    const RvPolyPolygon2D pp = SquareWithHoleCounted({4, 10});
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(9, 5)), 1);
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(20, 5)), 0);
    // One ring claiming everything and more: the eight vertices as one open chain. (9, 5)
    // crosses the hole's right side, and the joining segment (0, 10)-(2, 2) lies left of it
    // too: two crossings.
    const RvPolyPolygon2D one = SquareWithHoleCounted({50});
    EXPECT_EQ(one.PointInsidePolyPolygonEx2D(RvPoint2D(9, 5)), 0);
}

TEST(RvPolyPolygon2DInside, NegativeCountIsAnEmptyRing) {
    const RvPolyPolygon2D pp = SquareWithHoleCounted({-3, 4, 4});
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(9, 5)), 1);
    EXPECT_EQ(pp.PointInsidePolyPolygonEx2D(RvPoint2D(5, 5)), 0);
}

// --- GetPrevPoint -------------------------------------------------------------------------------

TEST(RvPolyPolygon2DPrevPoint, FirstVertexOfRingOneGivesLastOfRingOne) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    EXPECT_EQ(PrevIndex(pp, 4), 7);
    EXPECT_TRUE(PlanarIs(*pp.GetPrevPoint(4), 2, 8));
}

TEST(RvPolyPolygon2DPrevPoint, FirstVertexOfRingZeroGivesLastOfRingZero) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    EXPECT_EQ(PrevIndex(pp, 0), 3);
}

TEST(RvPolyPolygon2DPrevPoint, InnerVertexGivesThePreviousIndex) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    EXPECT_EQ(PrevIndex(pp, 1), 0);
    EXPECT_EQ(PrevIndex(pp, 3), 2);
    EXPECT_EQ(PrevIndex(pp, 5), 4);
    EXPECT_EQ(PrevIndex(pp, 7), 6);
}

TEST(RvPolyPolygon2DPrevPoint, WithoutCountsTheFirstVertexHasNoPredecessor) {
    RvPolyPolygon2D pp = SquareWithHole(false);
    pp.GetCounts()->clear();
    // No ring starts anywhere: the vertex before i is i - 1, and for 0 there is none.
    EXPECT_EQ(PrevIndex(pp, 4), 3);
    ExpectThrowWithMessage<std::out_of_range>([&pp] { (void)pp.GetPrevPoint(0); },
                                              "invalid vector<T> subscript");
}

TEST(RvPolyPolygon2DPrevPoint, IndicesOutsideTheVerticesRaise) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    ExpectThrowWithMessage<std::out_of_range>([&pp] { (void)pp.GetPrevPoint(-1); },
                                              "invalid vector<T> subscript");
    ExpectThrowWithMessage<std::out_of_range>([&pp] { (void)pp.GetPrevPoint(10); },
                                              "invalid vector<T> subscript");
    // Past the last ring, i - 1 is still a vertex for i = 8.
    EXPECT_EQ(PrevIndex(pp, 8), 7);
}

TEST(RvPolyPolygon2DPrevPoint, CountsPastTheVerticesStopAtTheLastVertex) {
    // Ring 1 claims ten vertices; its last is taken as the entity's last, index 7, not 13.
    const RvPolyPolygon2D pp = SquareWithHoleCounted({4, 10});
    EXPECT_EQ(PrevIndex(pp, 4), 7);
}

TEST(RvPolyPolygon2DPrevPoint, NegativeCountIsAnEmptyRing) {
    // {-3, 4, 4} is read as {0, 4, 4}: ring 2 still starts at 4.
    const RvPolyPolygon2D pp = SquareWithHoleCounted({-3, 4, 4});
    EXPECT_EQ(PrevIndex(pp, 4), 7);
    // The empty ring starts at 0 and stops the walk there: its "last" vertex is before the
    // first, so there is none.
    ExpectThrowWithMessage<std::out_of_range>([&pp] { (void)pp.GetPrevPoint(0); },
                                              "invalid vector<T> subscript");
}

// --- IntersectHalfLine2D ------------------------------------------------------------------------

TEST(RvPolyPolygon2DHalfLine, EmptyGivesFalseAndLeavesTheQueue) {
    const RvPolyPolygon2D pp;
    RvPolygon2D::HitQueue q;
    q.push({RvPoint2D(1, 1), 42, 3.0});
    EXPECT_FALSE(pp.IntersectHalfLine2D(RvPoint2D(0, 0), RvPoint2D(1, 0), q));
    EXPECT_EQ(q.size(), 1u);
}

TEST(RvPolyPolygon2DHalfLine, HitsOnAllRingsCarryRunningNumbers) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    RvPolygon2D::HitQueue q;
    // From (5, 5) to the right: the outer right side at (10, 5) is found first (hit 1), the
    // hole's right side at (8, 5) second (hit 2). The left sides lie behind the start.
    EXPECT_TRUE(pp.IntersectHalfLine2D(RvPoint2D(5, 5), RvPoint2D(1, 0), q));
    const auto hits = Drain(q);
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_TRUE(PlanarIs(hits[0].m_Point, 8, 5));
    EXPECT_EQ(hits[0].m_nEdge, 2);
    EXPECT_DOUBLE_EQ(hits[0].m_dDistance, 3.0);
    EXPECT_TRUE(PlanarIs(hits[1].m_Point, 10, 5));
    EXPECT_EQ(hits[1].m_nEdge, 1);
    EXPECT_DOUBLE_EQ(hits[1].m_dDistance, 5.0);
}

TEST(RvPolyPolygon2DHalfLine, NumbersContinueFromTheQueueSize) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    RvPolygon2D::HitQueue q;
    q.push({RvPoint2D(0, 0), 0, 100.0});
    q.push({RvPoint2D(0, 0), 0, 200.0});
    EXPECT_TRUE(pp.IntersectHalfLine2D(RvPoint2D(5, 5), RvPoint2D(1, 0), q));
    const auto hits = Drain(q);
    ASSERT_EQ(hits.size(), 4u);
    EXPECT_EQ(hits[0].m_nEdge, 4);  // (8, 5), pushed onto three records
    EXPECT_EQ(hits[1].m_nEdge, 3);  // (10, 5), pushed onto two
}

TEST(RvPolyPolygon2DHalfLine, HitAtTheStartCounts) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    RvPolygon2D::HitQueue q;
    // Starting on the right side: u = 0 there, which passes u > -1e-08.
    EXPECT_TRUE(pp.IntersectHalfLine2D(RvPoint2D(10, 5), RvPoint2D(1, 0), q));
    const auto hits = Drain(q);
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_TRUE(PlanarIs(hits[0].m_Point, 10, 5));
    EXPECT_DOUBLE_EQ(hits[0].m_dDistance, 0.0);
}

TEST(RvPolyPolygon2DHalfLine, HitJustBehindTheStartIsPlainlyCompared) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    // The right side lies 5e-09 behind the start: u = -5e-09, above -1e-08.
    RvPolygon2D::HitQueue near;
    EXPECT_TRUE(pp.IntersectHalfLine2D(RvPoint2D(10 + 5e-09, 5), RvPoint2D(1, 0), near));
    EXPECT_EQ(near.size(), 1u);
    // 2e-08 behind: u = -2e-08, refused.
    RvPolygon2D::HitQueue far;
    EXPECT_FALSE(pp.IntersectHalfLine2D(RvPoint2D(10 + 2e-08, 5), RvPoint2D(1, 0), far));
    EXPECT_TRUE(far.empty());
}

TEST(RvPolyPolygon2DHalfLine, EdgeParameterHasTheBandBeyondBothEnds) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    // The right side runs from cur (10, 10) back to prev (10, 0): t = (10 - y0) / 10 for the
    // half-line from (5, y0) to the right. y0 = -4e-06 gives t = 1 + 4e-07, inside the band;
    // the left side's hit lies behind the start.
    RvPolygon2D::HitQueue in;
    EXPECT_TRUE(pp.IntersectHalfLine2D(RvPoint2D(5, -4e-06), RvPoint2D(1, 0), in));
    ASSERT_EQ(in.size(), 1u);
    EXPECT_NEAR(in.top().m_Point.x2D, 10.0, 1e-12);
    EXPECT_NEAR(in.top().m_Point.y2D, -4e-06, 1e-12);
    // y0 = -6e-06: t = 1 + 6e-07, beyond the band.
    RvPolygon2D::HitQueue out;
    EXPECT_FALSE(pp.IntersectHalfLine2D(RvPoint2D(5, -6e-06), RvPoint2D(1, 0), out));
    // At the other end, t = (10 - y0) / 10 near 0: y0 = 10 + 4e-06 gives t = -4e-07, inside.
    RvPolygon2D::HitQueue top;
    EXPECT_TRUE(pp.IntersectHalfLine2D(RvPoint2D(5, 10 + 4e-06), RvPoint2D(1, 0), top));
    EXPECT_EQ(top.size(), 1u);
    RvPolygon2D::HitQueue above;
    EXPECT_FALSE(pp.IntersectHalfLine2D(RvPoint2D(5, 10 + 6e-06), RvPoint2D(1, 0), above));
}

TEST(RvPolyPolygon2DHalfLine, NearlyParallelEdgeIsSkippedWithinTheBand) {
    // A two-vertex ring is walked twice, once each way. For the half-line to the right,
    // det = e.y2D: 4e-07 lies within the band and the edge is skipped; with 6e-07 it is not,
    // and each walk hits the middle (t = 0.5), 10 from the start.
    RvPolyPolygon2D flat;
    AddRing(flat, {{10, 0}, {0, 4e-07}});
    RvPolygon2D::HitQueue none;
    EXPECT_FALSE(flat.IntersectHalfLine2D(RvPoint2D(-5, 2e-07), RvPoint2D(1, 0), none));
    EXPECT_TRUE(none.empty());

    RvPolyPolygon2D steeper;
    AddRing(steeper, {{10, 0}, {0, 6e-07}});
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(steeper.IntersectHalfLine2D(RvPoint2D(-5, 3e-07), RvPoint2D(1, 0), q));
    const auto hits = Drain(q);
    ASSERT_EQ(hits.size(), 2u);
    for (const auto& h : hits) {
        EXPECT_NEAR(h.m_Point.x2D, 5.0, 1e-9);
        EXPECT_NEAR(h.m_dDistance, 10.0, 1e-9);
    }
}

TEST(RvPolyPolygon2DHalfLine, CountsPastTheVerticesAreCutAtTheLast) {
    const RvPolyPolygon2D pp = SquareWithHoleCounted({4, 10});
    RvPolygon2D::HitQueue q;
    EXPECT_TRUE(pp.IntersectHalfLine2D(RvPoint2D(5, 5), RvPoint2D(1, 0), q));
    EXPECT_EQ(q.size(), 2u);
}

// --- GetNearestSegment2D ------------------------------------------------------------------------

TEST(RvPolyPolygon2DNearest, FootOnTheNearestEdge) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    RvPoint2D foot(7, 7, 1, 2, 3);
    // (5, 1.5): the hole's lower side (from (2, 2) to (8, 2), ending at vertex 5) is 0.5 away,
    // the outer lower side 1.5.
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(5, 1.5), RvPoint2D(100, 100), foot), 5);
    EXPECT_TRUE(HasValues(foot, 5, 2, 0, 5, 2));
}

TEST(RvPolyPolygon2DNearest, FirstOfEqualDistancesWins) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    RvPoint2D foot;
    // (5, 1) is 1 from the outer lower side (ending at vertex 1) and 1 from the hole's lower
    // side: the later one is not nearer, so the earlier stays.
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(5, 1), RvPoint2D(), foot), 1);
    EXPECT_TRUE(HasValues(foot, 5, 0, 0, 5, 0));
}

TEST(RvPolyPolygon2DNearest, SecondPointIsNotRead) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    RvPoint2D foot1;
    RvPoint2D foot2;
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(5, 1.5), RvPoint2D(0, 0), foot1),
              pp.GetNearestSegment2D(RvPoint2D(5, 1.5), RvPoint2D(9, 9.5), foot2));
    EXPECT_TRUE(HasValues(foot2, foot1.x, foot1.y, foot1.z, foot1.x2D, foot1.y2D));
}

TEST(RvPolyPolygon2DNearest, EndOfAnEdgeCountsAndTheIndexIsTheEdgeEnd) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    RvPoint2D foot;
    // (-3, 14) lies beyond the corner (0, 10). The first edge walked, from (0, 10) (prev) to
    // (0, 0) (cur), offers its end (0, 10) at squared distance 25; later candidates at the same
    // distance do not replace it. The index is that of cur, vertex 0.
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(-3, 14), RvPoint2D(), foot), 0);
    EXPECT_TRUE(HasValues(foot, 0, 10, 0, 0, 10));
}

TEST(RvPolyPolygon2DNearest, NearerEndIsCurWhenPrevIsFarther) {
    const RvPolyPolygon2D pp = SquareWithHole(false);
    RvPoint2D foot;
    // (12, -3) beyond the corner (10, 0): the lower side, ending at vertex 1, offers its end
    // cur (10, 0) at squared distance 13, which the right side's prev end only equals.
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(12, -3), RvPoint2D(), foot), 1);
    EXPECT_TRUE(HasValues(foot, 10, 0, 0, 10, 0));
}

TEST(RvPolyPolygon2DNearest, FootTakesTheCandidatesSpatialValues) {
    // A ring at height 2: an end candidate carries its z, and the planar pair of the foot is
    // its x, y.
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0, 2}, {10, 0, 2}, {10, 10, 2}, {0, 10, 2}});
    RvPoint2D foot;
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(12, -3, 2), RvPoint2D(), foot), 1);
    EXPECT_TRUE(HasValues(foot, 10, 0, 2, 10, 0));
}

TEST(RvPolyPolygon2DNearest, DoubledVerticesAreSkipped) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}, {10, 0.005}, {10, 10}, {0, 10}});
    RvPoint2D foot;
    // (11, 0.001): the lower side offers its end (10, 0) at a squared distance of 1.000001, the
    // right side its start (10, 0.005) at 1.000016. The null edge from vertex 1 to vertex 2 is
    // passed over; measured, its foot (10, 0.001) at 1 would have won with index 2.
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(11, 0.001), RvPoint2D(), foot), 1);
    EXPECT_NEAR(foot.x, 10.0, 1e-12);
    EXPECT_NEAR(foot.y, 0.0, 1e-12);
}

TEST(RvPolyPolygon2DNearest, NoCountsOrNoVerticesGiveMinusOne) {
    RvPolyPolygon2D pp = SquareWithHole(false);
    pp.GetCounts()->clear();
    RvPoint2D foot(1, 2);
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(5, 1), RvPoint2D(), foot), -1);
    EXPECT_TRUE(HasValues(foot, 1, 2, 0, 1, 2));
    const RvPolyPolygon2D empty;
    EXPECT_EQ(empty.GetNearestSegment2D(RvPoint2D(5, 1), RvPoint2D(), foot), -1);
}

TEST(RvPolyPolygon2DNearest, SingleVertexHasNoEdge) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{3, 4}});
    RvPoint2D foot(1, 2);
    // The one vertex is its own predecessor, and equal vertices are passed over.
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(0, 0), RvPoint2D(), foot), -1);
    EXPECT_TRUE(HasValues(foot, 1, 2, 0, 1, 2));
}

TEST(RvPolyPolygon2DNearest, NullNormalOfTwoVerticesAborts) {
    MessageBoxRecorder boxes;
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}});
    RvPoint2D foot(1, 2);
    // Fewer than three vertices give a null normal, so the first edge's normal is null too.
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(5, 1), RvPoint2D(), foot), -1);
    EXPECT_TRUE(HasValues(foot, 1, 2, 0, 1, 2));
    EXPECT_TRUE(boxes.calls().empty());
}

TEST(RvPolyPolygon2DNearest, EdgeAlongTheNormalAbortsAfterEarlierCandidates) {
    MessageBoxRecorder boxes;
    // The normal is +z (from the corner at (10, 0)); the last edge rises straight up from
    // (0, 10, 0) to (0, 10, 5), along the normal, and is walked last.
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}, {0, 10, 5}});
    RvPoint2D foot;
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(5, 1), RvPoint2D(), foot), -1);
    // The lower side had already been taken as the best, and its foot stays written.
    EXPECT_TRUE(HasValues(foot, 5, 0, 0, 5, 0));
    EXPECT_TRUE(boxes.calls().empty());
}

TEST(RvPolyPolygon2DNearest, CountsPastTheVerticesAreCutAtTheLast) {
    const RvPolyPolygon2D pp = SquareWithHoleCounted({4, 10});
    RvPoint2D foot;
    EXPECT_EQ(pp.GetNearestSegment2D(RvPoint2D(5, 1.5), RvPoint2D(), foot), 5);
    EXPECT_TRUE(HasValues(foot, 5, 2, 0, 5, 2));
}
