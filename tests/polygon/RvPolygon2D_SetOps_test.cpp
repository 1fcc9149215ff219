#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvInterPoint.h"
#include "ravelin/polygon/RvIntersection.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::ExpectPlanarNear;
using ravelin::testing_support::PlanarIs;
using ravelin::testing_support::PointIs;
using ravelin::testing_support::Ring;
using ravelin::testing_support::SameVertices;

namespace {

using Rings = std::vector<RvPolygon2D>;

// The axis-parallel rectangle from (x0, y0) to (x1, y1), counterclockwise, stored open.
RvPolygon2D Box(double x0, double y0, double x1, double y1) {
    return Ring({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

// The square from (0, 0) to (10, 10): v0 (0, 0), v1 (10, 0), v2 (10, 10), v3 (0, 10). Edge i
// runs from the vertex before i to vertex i: edge 0 is the left side, 1 the bottom, 2 the right
// side, 3 the top.
RvPolygon2D Square() {
    return Box(0, 0, 10, 10);
}

bool Near(const RvPoint2D& p, const RvPoint2D& q) {
    const double tol = 1e-9;
    return std::fabs(p.x2D - q.x2D) < tol && std::fabs(p.y2D - q.y2D) < tol &&
           std::fabs(p.x - q.x) < tol && std::fabs(p.y - q.y) < tol;
}

// Whether `ring` is `expected` read from some start vertex, in either direction. Combination
// gives its rings in the orientation and from the start at which the trace found them.
testing::AssertionResult SameRing(const RvPolygon2D& ring, const RvPolygon2D& expected) {
    const int n = static_cast<int>(expected.size());
    if (static_cast<int>(ring.size()) == n && n > 0) {
        for (int start = 0; start < n; ++start) {
            for (const int dir : {1, -1}) {
                bool all = true;
                for (int i = 0; i < n && all; ++i) {
                    const int k = ((start + dir * i) % n + n) % n;
                    all = Near(ring[static_cast<std::size_t>(k)],
                               expected[static_cast<std::size_t>(i)]);
                }
                if (all) {
                    return testing::AssertionSuccess();
                }
            }
        }
    }
    testing::AssertionResult failure = testing::AssertionFailure();
    failure << "ring";
    for (const RvPoint2D& p : ring) {
        failure << " (" << p.x2D << ", " << p.y2D << ")";
    }
    failure << " is not";
    for (const RvPoint2D& p : expected) {
        failure << " (" << p.x2D << ", " << p.y2D << ")";
    }
    return failure;
}

// Whether `rings` holds exactly the `expected` rings, each once, in any order.
testing::AssertionResult SameRings(const Rings& rings, const Rings& expected) {
    if (rings.size() != expected.size()) {
        return testing::AssertionFailure()
               << rings.size() << " rings instead of " << expected.size();
    }
    std::vector<bool> used(rings.size(), false);
    for (std::size_t e = 0; e < expected.size(); ++e) {
        bool found = false;
        for (std::size_t r = 0; r < rings.size() && !found; ++r) {
            if (!used[r] && SameRing(rings[r], expected[e])) {
                used[r] = true;
                found = true;
            }
        }
        if (!found) {
            return testing::AssertionFailure() << "expected ring " << e << " is missing";
        }
    }
    return testing::AssertionSuccess();
}

// =============================================================================================
// RemovePolygons

// With nothing to subtract the polygon is appended as it stands: its z values and its
// near-double vertex, which a combination would have zeroed and dropped, are kept.
TEST(RvPolygon2DRemovePolygons, WithNothingToRemoveAppendsThisPolygonUnchanged) {
    RvPolygon2D a;
    a.push_backA(RvPoint2D(0, 0, 3));
    a.push_backA(RvPoint2D(10, 0, 3));
    a.push_backA(RvPoint2D(10.001, 0, 3));
    a.push_backA(RvPoint2D(10, 10, 3));
    a.push_backA(RvPoint2D(0, 10, 3));
    Rings removed;
    Rings out;
    a.RemovePolygons(removed, out);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(SameVertices(out[0], a));
}

// The square lies wholly inside the polygon removed: every link of the square is inside the
// other and every link of the other outside the square, so the difference has no ring.
TEST(RvPolygon2DRemovePolygons, ACoveringPolygonLeavesNothing) {
    RvPolygon2D a = Square();
    Rings removed{Box(-5, -5, 15, 15)};
    Rings out;
    a.RemovePolygons(removed, out);
    EXPECT_TRUE(out.empty());
}

TEST(RvPolygon2DRemovePolygons, AnEqualPolygonLeavesNothing) {
    RvPolygon2D a = Square();
    Rings removed{Square()};
    Rings out;
    a.RemovePolygons(removed, out);
    EXPECT_TRUE(out.empty());
}

// Removing a polygon that overlaps the lower right corner leaves an L of six corners.
TEST(RvPolygon2DRemovePolygons, ABiteLeavesTheRestOfThePolygon) {
    RvPolygon2D a = Square();
    Rings removed{Box(5, -5, 15, 5)};
    Rings out;
    a.RemovePolygons(removed, out);
    EXPECT_TRUE(SameRings(out, {Ring({{0, 0}, {5, 0}, {5, 5}, {10, 5}, {10, 10}, {0, 10}})}));
}

// `out` is not cleared: P, the square from (20, 0) to (30, 10) that it held, is subtracted
// from as well and comes first, since the pieces follow the order of `out`. The polygon
// removed covers the right half of P and misses this square, which comes back whole.
TEST(RvPolygon2DRemovePolygons, SubtractsFromWhatOutHeldBeforeToo) {
    RvPolygon2D a = Square();
    Rings removed{Box(25, -5, 35, 15)};
    Rings out{Box(20, 0, 30, 10)};
    a.RemovePolygons(removed, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(SameRing(out[0], Box(20, 0, 25, 10)));
    EXPECT_TRUE(SameRing(out[1], Square()));
}

// The polygon removed first, from (2, 2) to (8, 8), lies inside: the difference is the outer
// square and the hole, as two plain rings. The second, from (5, -5) to (15, 5), is then
// subtracted from both, the hole being treated as a ring of its own: the square loses its lower
// right corner and so does the hole, giving two L-shaped rings.
TEST(RvPolygon2DRemovePolygons, SubtractsEachPolygonFromEveryRingLeftByTheOnesBefore) {
    RvPolygon2D a = Square();
    Rings removed{Box(2, 2, 8, 8), Box(5, -5, 15, 5)};
    Rings out;
    a.RemovePolygons(removed, out);
    EXPECT_TRUE(SameRings(out, {Ring({{0, 0}, {5, 0}, {5, 5}, {10, 5}, {10, 10}, {0, 10}}),
                                Ring({{2, 2}, {5, 2}, {5, 5}, {8, 5}, {8, 8}, {2, 8}})}));
}

TEST(RvPolygon2DRemovePolygons, AHoleAloneComesBackAsASecondRing) {
    RvPolygon2D a = Square();
    Rings removed{Box(2, 2, 8, 8)};
    Rings out;
    a.RemovePolygons(removed, out);
    EXPECT_TRUE(SameRings(out, {Square(), Box(2, 2, 8, 8)}));
}

// The combination refuses an empty operand and leaves the work vector as the last combination
// left it: after the hole that is the two rings {square, hole}. Each of the two rings in `out`
// then appends these two again, so `out` holds them twice, as identical copies.
TEST(RvPolygon2DRemovePolygons, AnEmptyPolygonRemovedAppendsTheLastRingsAgainPerRing) {
    RvPolygon2D a = Square();
    Rings removed{Box(2, 2, 8, 8), RvPolygon2D()};
    Rings out;
    a.RemovePolygons(removed, out);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(SameRings(Rings{out[0], out[1]}, {Square(), Box(2, 2, 8, 8)}));
    EXPECT_TRUE(SameVertices(out[2], out[0]));
    EXPECT_TRUE(SameVertices(out[3], out[1]));
}

// An empty polygon removed first finds the work vector still empty: nothing is appended for
// the polygon, and `out` is left with nothing.
TEST(RvPolygon2DRemovePolygons, AnEmptyPolygonRemovedFirstEmptiesOut) {
    RvPolygon2D a = Square();
    Rings removed{RvPolygon2D(), Box(5, -5, 15, 5)};
    Rings out;
    a.RemovePolygons(removed, out);
    EXPECT_TRUE(out.empty());
}

// An empty polygon held in `out`: its combination is refused, and the rings of the one before
// it (P less the polygon removed) are appended a second time. `out` is {P, empty, this square},
// so the pieces are P's, P's again, then the square's, untouched by the polygon removed.
TEST(RvPolygon2DRemovePolygons, AnEmptyPolygonInOutRepeatsTheRingsOfTheOneBefore) {
    RvPolygon2D a = Square();
    Rings removed{Box(25, -5, 35, 15)};
    Rings out{Box(20, 0, 30, 10), RvPolygon2D()};
    a.RemovePolygons(removed, out);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(SameRing(out[0], Box(20, 0, 25, 10)));
    EXPECT_TRUE(SameVertices(out[1], out[0]));
    EXPECT_TRUE(SameRing(out[2], Square()));
}

// =============================================================================================
// IntersectPolygons

// The polygon inside is copied as given: stored closed, with z = 7. A combination would have
// dropped the closing vertex and zeroed z.
TEST(RvPolygon2DIntersectPolygons, APolygonInsideIsCopiedAsItIs) {
    RvPolygon2D a = Square();
    RvPolygon2D inner;
    inner.push_backA(RvPoint2D(2, 2, 7));
    inner.push_backA(RvPoint2D(8, 2, 7));
    inner.push_backA(RvPoint2D(8, 8, 7));
    inner.push_backA(RvPoint2D(2, 8, 7));
    inner.push_backA(RvPoint2D(2, 2, 7));
    Rings out;
    a.IntersectPolygons(Rings{inner}, out);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(SameVertices(out[0], inner));

    Rings combined;
    ASSERT_TRUE(a.Combine(inner, CombineIntersection, combined));
    ASSERT_EQ(combined.size(), 1u);
    EXPECT_TRUE(SameRing(combined[0], Box(2, 2, 8, 8)));
    EXPECT_FALSE(SameVertices(combined[0], inner));
}

TEST(RvPolygon2DIntersectPolygons, AnOverlappingPolygonGivesTheCommonPart) {
    RvPolygon2D a = Square();
    Rings out;
    a.IntersectPolygons(Rings{Box(5, 5, 15, 15)}, out);
    EXPECT_TRUE(SameRings(out, {Box(5, 5, 10, 10)}));
}

TEST(RvPolygon2DIntersectPolygons, ADisjointPolygonAddsNothing) {
    RvPolygon2D a = Square();
    Rings out;
    a.IntersectPolygons(Rings{Box(20, 0, 30, 10)}, out);
    EXPECT_TRUE(out.empty());
}

// The overlap gives R = {S}, S the square from (5, 5) to (10, 10), and S goes to `out`. The
// polygon inside is added to R without clearing it: R = {S, inner}, and both go to `out`.
TEST(RvPolygon2DIntersectPolygons, APolygonInsideAfterAnOverlapAppendsTheFirstResultAgain) {
    RvPolygon2D a = Square();
    RvPolygon2D inner = Box(2, 2, 4, 4);
    Rings out;
    a.IntersectPolygons(Rings{Box(5, 5, 15, 15), inner}, out);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(SameRing(out[0], Box(5, 5, 10, 10)));
    EXPECT_TRUE(SameVertices(out[1], out[0]));
    EXPECT_TRUE(SameVertices(out[2], inner));
}

// In the other order the combination clears R first: {inner}, then {S}, with no repetition.
TEST(RvPolygon2DIntersectPolygons, AnOverlapAfterAPolygonInsideRepeatsNothing) {
    RvPolygon2D a = Square();
    RvPolygon2D inner = Box(2, 2, 4, 4);
    Rings out;
    a.IntersectPolygons(Rings{inner, Box(5, 5, 15, 15)}, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(SameVertices(out[0], inner));
    EXPECT_TRUE(SameRing(out[1], Box(5, 5, 10, 10)));
}

// Two polygons inside: R = {first}, then {first, second}: the first stands twice.
TEST(RvPolygon2DIntersectPolygons, TwoPolygonsInsideGiveTheFirstTwice) {
    RvPolygon2D a = Square();
    RvPolygon2D first = Box(1, 1, 3, 3);
    RvPolygon2D second = Box(6, 6, 9, 9);
    Rings out;
    a.IntersectPolygons(Rings{first, second}, out);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(SameVertices(out[0], first));
    EXPECT_TRUE(SameVertices(out[1], first));
    EXPECT_TRUE(SameVertices(out[2], second));
}

TEST(RvPolygon2DIntersectPolygons, NeverClearsOut) {
    RvPolygon2D a = Square();
    RvPolygon2D before = Box(100, 100, 101, 101);
    RvPolygon2D inner = Box(2, 2, 4, 4);
    Rings out{before};
    a.IntersectPolygons(Rings{inner}, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(SameVertices(out[0], before));
    EXPECT_TRUE(SameVertices(out[1], inner));

    // A disjoint polygon adds nothing and takes nothing away either.
    a.IntersectPolygons(Rings{Box(20, 0, 30, 10)}, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(SameVertices(out[0], before));
}

// A polygon that touches the boundary from inside at one vertex is not inside; it goes through
// the combination, which gives it back as a ring of its own (a clean copy has its vertices in
// their order, the traced ring need not).
TEST(RvPolygon2DIntersectPolygons, APolygonTouchingTheBoundaryGoesThroughTheCombination) {
    RvPolygon2D a = Square();
    RvPolygon2D touching = Ring({{0, 5}, {4, 3}, {4, 7}});
    ASSERT_FALSE(a.IsInside(touching));
    Rings out;
    a.IntersectPolygons(Rings{touching}, out);
    EXPECT_TRUE(SameRings(out, {touching}));
}

// =============================================================================================
// GetClosedInterPolygon

// From (5, 0) on the bottom edge (edge 1) straight up, walking +1: edge 2 (the right side) is
// parallel; edge 3, the top from v2 to v3, is hit at u = 0.5, at (5, 10), distance 10; edge 0
// is parallel. The ring then starts at the hit, k = 3 - 1 = 2 and e = 1 - 1 = 0: v2, v1, and
// ends at the start: the right half of the square.
TEST(RvPolygon2DGetClosedInterPolygon, FromAnEdgeAcrossTheSquareWalkingUp) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 3);
    ExpectPlanarNear(hit, 5, 10, 1e-12);
    ASSERT_EQ(out.size(), 4u);
    ExpectPlanarNear(out[0], 5, 10, 1e-12);
    EXPECT_TRUE(PointIs(out[1], 10, 10, 0));
    EXPECT_TRUE(PointIs(out[2], 10, 0, 0));
    EXPECT_TRUE(PointIs(out[3], 5, 0, 0));
}

// The same start walking -1 scans edges 0, 3, 2 and hits edge 3 at the same place. The ring
// goes from the hit with k = 3 and e = 1, k rising against the step: v3, v0, then the start:
// the left half.
TEST(RvPolygon2DGetClosedInterPolygon, FromAnEdgeAcrossTheSquareWalkingDown) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), -1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 3);
    ExpectPlanarNear(hit, 5, 10, 1e-12);
    ASSERT_EQ(out.size(), 4u);
    ExpectPlanarNear(out[0], 5, 10, 1e-12);
    EXPECT_TRUE(PointIs(out[1], 0, 10, 0));
    EXPECT_TRUE(PointIs(out[2], 0, 0, 0));
    EXPECT_TRUE(PointIs(out[3], 5, 0, 0));
}

// (5, 0) plus the unit of (0, -3) is (5, -1), outside: the direction is reversed to (0, 3) and
// the result is that of the upward half-line.
TEST(RvPolygon2DGetClosedInterPolygon, ADirectionPointingOutIsReversed) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(0, -3, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 3);
    ExpectPlanarNear(hit, 5, 10, 1e-12);
    ASSERT_EQ(out.size(), 4u);
    ExpectPlanarNear(out[0], 5, 10, 1e-12);
    EXPECT_TRUE(PointIs(out[1], 10, 10, 0));
    EXPECT_TRUE(PointIs(out[2], 10, 0, 0));
    EXPECT_TRUE(PointIs(out[3], 5, 0, 0));
}

// From (2, 0) along (1, 1) the half-line meets the right side (edge 2) at u = 0.2, at (10, 8);
// the top is met beyond its end (u = 1.2), the left side behind the start. Walking -1 the ring
// takes the long way back: the hit, v2, v3, v0, the start: five points.
TEST(RvPolygon2DGetClosedInterPolygon, ToAnAdjacentEdgeTheLongWayGivesFivePoints) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(2, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(1, 1, 0), -1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 2);
    ExpectPlanarNear(hit, 10, 8, 1e-12);
    ASSERT_EQ(out.size(), 5u);
    ExpectPlanarNear(out[0], 10, 8, 1e-12);
    EXPECT_TRUE(PointIs(out[1], 10, 10, 0));
    EXPECT_TRUE(PointIs(out[2], 0, 10, 0));
    EXPECT_TRUE(PointIs(out[3], 0, 0, 0));
    EXPECT_TRUE(PointIs(out[4], 2, 0, 0));
}

// The same half-line walking +1: k = 2 - 1 = 1 and e = 1 - 1 = 0, so only v1 lies between the
// hit and the start: the corner triangle of three points.
TEST(RvPolygon2DGetClosedInterPolygon, ToAnAdjacentEdgeTheShortWayGivesThreePoints) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(2, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(1, 1, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 2);
    ASSERT_EQ(out.size(), 3u);
    ExpectPlanarNear(out[0], 10, 8, 1e-12);
    EXPECT_TRUE(PointIs(out[1], 10, 0, 0));
    EXPECT_TRUE(PointIs(out[2], 2, 0, 0));
}

// The hit record is the edge's record: its point, its edge, and the second integer of a fresh
// record (0), whatever `hit` held. `out` is cleared first.
TEST(RvPolygon2DGetClosedInterPolygon, OverwritesHitAndClearsOut) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit(RvPoint2D(-7, -7), 9, 4);
    RvPolygon2D out = Box(50, 50, 60, 60);
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 3);
    EXPECT_EQ(hit.m_nAux, 0);
    ExpectPlanarNear(hit, 5, 10, 1e-12);
    EXPECT_NEAR(hit.x, 5, 1e-12);
    EXPECT_NEAR(hit.y, 10, 1e-12);
    EXPECT_EQ(out.size(), 4u);
}

// A C shape open to the left: v0 (0, 0), v1 (10, 0), v2 (10, 20), v3 (0, 20), v4 (0, hi),
// v5 (8, hi), v6 (8, lo), v7 (0, lo). Going up from (5, 0) on edge 1 the half-line crosses
// edge 7 (y = lo), edge 5 (y = hi) and edge 3 (y = 20); the other edges are vertical.
RvPolygon2D CShape(double lo, double hi) {
    return Ring({{0, 0}, {10, 0}, {10, 20}, {0, 20}, {0, hi}, {8, hi}, {8, lo}, {0, lo}});
}

// Walking +1 the edges come in the order 2 .. 7, 0: edge 3 at distance 20 is taken first, then
// edge 5 at 12 and edge 7 at 8, each nearer. The ring runs from (5, 8) on edge 7 back over
// v6 .. v1 to the start.
TEST(RvPolygon2DGetClosedInterPolygon, TakesTheNearestOfSeveralHitsOfAConcavePolygon) {
    RvPolygon2D c = CShape(8, 12);
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(c.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 7);
    ExpectPlanarNear(hit, 5, 8, 1e-12);
    ASSERT_EQ(out.size(), 8u);
    ExpectPlanarNear(out[0], 5, 8, 1e-12);
    EXPECT_TRUE(PlanarIs(out[1], 8, 8));
    EXPECT_TRUE(PlanarIs(out[2], 8, 12));
    EXPECT_TRUE(PlanarIs(out[3], 0, 12));
    EXPECT_TRUE(PlanarIs(out[4], 0, 20));
    EXPECT_TRUE(PlanarIs(out[5], 10, 20));
    EXPECT_TRUE(PlanarIs(out[6], 10, 0));
    EXPECT_TRUE(PlanarIs(out[7], 5, 0));
}

// Walking -1 edge 7 is the first hit (edges 0, 7, ...); the farther ones do not replace it.
// The ring is the hit, v7, v0 and the start.
TEST(RvPolygon2DGetClosedInterPolygon, WalkingDownTheConcavePolygonFindsTheNearestFirst) {
    RvPolygon2D c = CShape(8, 12);
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(c.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), -1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 7);
    ASSERT_EQ(out.size(), 4u);
    ExpectPlanarNear(out[0], 5, 8, 1e-12);
    EXPECT_TRUE(PlanarIs(out[1], 0, 8));
    EXPECT_TRUE(PlanarIs(out[2], 0, 0));
    EXPECT_TRUE(PlanarIs(out[3], 5, 0));
}

// With a slit of 3e-07 between y = lo and y = 10, edge 7 lies nearer than edge 5 by less than
// 5e-07: walking +1, edge 5 at distance 10 is taken (it is nearer than edge 3 at 20 by far), and
// edge 7, found after it, counts as no nearer and is not taken. The ring runs from (5, 10) on
// edge 5 over v4, v3, v2, v1 to the start.
TEST(RvPolygon2DGetClosedInterPolygon, AHitNearerByLessThanTheBandDoesNotReplaceTheFirst) {
    const double lo = 10 - 3e-07;
    RvPolygon2D c = CShape(lo, 10);
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(c.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 5);
    ExpectPlanarNear(hit, 5, 10, 1e-12);
    ASSERT_EQ(out.size(), 6u);
    ExpectPlanarNear(out[0], 5, 10, 1e-12);
    EXPECT_TRUE(PlanarIs(out[1], 0, 10));
    EXPECT_TRUE(PlanarIs(out[2], 0, 20));
    EXPECT_TRUE(PlanarIs(out[3], 10, 20));
    EXPECT_TRUE(PlanarIs(out[4], 10, 0));
    EXPECT_TRUE(PlanarIs(out[5], 5, 0));

    // Walking -1 edge 7 comes first and keeps its place: edge 5 is farther.
    ASSERT_TRUE(c.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), -1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 7);
    ExpectPlanarNear(hit, 5, lo, 1e-12);
}

// With a slit of 1e-06, beyond the band, edge 7 replaces edge 5 walking +1.
TEST(RvPolygon2DGetClosedInterPolygon, AHitNearerByMoreThanTheBandReplacesTheFirst) {
    const double lo = 10 - 1e-06;
    RvPolygon2D c = CShape(lo, 10);
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(c.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 7);
    ExpectPlanarNear(hit, 5, lo, 1e-12);
    EXPECT_EQ(out.size(), 8u);
}

// A half-line through a vertex hits both edges there at the same distance; the first found is
// kept. From (5, 0) along (1, 2) the half-line reaches v2 (10, 10), the end of edge 2 and the
// start of edge 3. Walking +1 edge 2 is tested first; walking -1, edge 3.
TEST(RvPolygon2DGetClosedInterPolygon, AtAVertexTheEdgeFoundFirstIsKept) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(1, 2, 0), 1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 2);
    ExpectPlanarNear(hit, 10, 10, 1e-12);
    // k = 2 - 1 = 1, e = 0: the ring is the hit, v1 and the start.
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(PointIs(out[1], 10, 0, 0));

    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(1, 2, 0), -1, hit, out));
    EXPECT_EQ(hit.m_nEdge, 3);
    ExpectPlanarNear(hit, 10, 10, 1e-12);
    // k = 3, e = 1: the ring is the hit, v3, v0 and the start.
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(PointIs(out[1], 0, 10, 0));
    EXPECT_TRUE(PointIs(out[2], 0, 0, 0));
}

// From (20, 5), outside to the right of the square and said to be on edge 2, with (0, 1): the
// probe (20, 6) is outside, so the half-line is turned down, and going down from (20, 5) it
// meets no edge of the square (edge 3 lies behind it, edge 1 is met beyond its end). The result
// is false, `out` is empty and `hit` keeps its point and second integer with the edge -1.
TEST(RvPolygon2DGetClosedInterPolygon, NoEdgeHitGivesFalseAndAnEmptyRing) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(20, 5), 2);
    _RvInterPoint hit(RvPoint2D(-7, -6), 9, 4);
    RvPolygon2D out = Box(50, 50, 60, 60);
    EXPECT_FALSE(square.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 1, hit, out));
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(hit.m_nEdge, -1);
    EXPECT_EQ(hit.m_nAux, 4);
    EXPECT_TRUE(PlanarIs(hit, -7, -6));
}

// With step 0 the walk begins on the start's own edge and tests nothing: no hit.
TEST(RvPolygon2DGetClosedInterPolygon, StepZeroTestsNoEdge) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out = Box(50, 50, 60, 60);
    EXPECT_FALSE(square.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 0, hit, out));
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(hit.m_nEdge, -1);
}

// With step 2 on the square from edge 1 only edge 3 is tested; it is hit at (5, 10). The ring
// walk has k = 3 - 2 = 1 and e = 1 - 2 = -1, brought to 3: v1 is added, k goes to -1, that is 3,
// and the start closes the ring.
TEST(RvPolygon2DGetClosedInterPolygon, StepTwoOnAnEvenRingVisitsEveryOtherEdge) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), 2, hit, out));
    EXPECT_EQ(hit.m_nEdge, 3);
    ASSERT_EQ(out.size(), 3u);
    ExpectPlanarNear(out[0], 5, 10, 1e-12);
    EXPECT_TRUE(PointIs(out[1], 10, 0, 0));
    EXPECT_TRUE(PointIs(out[2], 5, 0, 0));
}

// A start whose edge index lies outside the vertices is never met again by the walk; the
// operation must still come back. What it returns is not defined, only that the ring holds at
// most the hit, each vertex once and the start.
TEST(RvPolygon2DGetClosedInterPolygon, AStartEdgeOutOfRangeDoesNotHang) {
    RvPolygon2D square = Square();
    for (const int edge : {7, -1, 4}) {
        for (const int step : {1, -1, 2}) {
            _RvInterPoint start(RvPoint2D(5, 0), edge);
            _RvInterPoint hit;
            RvPolygon2D out;
            const bool found =
                square.GetClosedInterPolygon(start, RvPoint3D(0, 1, 0), step, hit, out);
            EXPECT_LE(out.size(), square.size() + 2) << "edge " << edge << " step " << step;
            EXPECT_EQ(found, !out.empty()) << "edge " << edge << " step " << step;
        }
    }
}

// The polygon itself is not changed by the query.
TEST(RvPolygon2DGetClosedInterPolygon, LeavesThePolygonUnchanged) {
    RvPolygon2D square = Square();
    _RvInterPoint start(RvPoint2D(5, 0), 1);
    _RvInterPoint hit;
    RvPolygon2D out;
    ASSERT_TRUE(square.GetClosedInterPolygon(start, RvPoint3D(0, -1, 0), 1, hit, out));
    EXPECT_TRUE(SameVertices(square, Square()));
}

}  // namespace
