#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <sstream>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private collision search of the single-result offsets.
struct RvPolygon2DTestAccess {
    static RvPolygon2D::iterator FindOffsetCollision(const RvPoint3D& from, const RvPoint3D& to,
                                                     double distance, const RvPoint3D& normal,
                                                     RvPolygon2D::iterator first,
                                                     RvPolygon2D::iterator last) {
        return RvPolygon2D::FindOffsetCollision(from, to, distance, normal, first, last);
    }
};

namespace {

using testing_support::kNormalizeWarning;
using testing_support::MessageBoxRecorder;
using testing_support::Ring;

constexpr double kTol = 1e-9;

struct Xy {
    double x;
    double y;
};

// Whether `r` holds exactly the vertices `expected`, in order: x and y within `kTol`, z zero, and
// the planar pair equal to x and y.
testing::AssertionResult HasVertices(const RvPolygon2D& r, std::initializer_list<Xy> expected) {
    std::ostringstream got;
    for (const RvPoint2D& p : r) {
        got << " (" << p.x << ", " << p.y << ")";
    }
    if (r.size() != expected.size()) {
        return testing::AssertionFailure()
               << r.size() << " vertices instead of " << expected.size() << ":" << got.str();
    }
    std::size_t i = 0;
    for (const Xy& e : expected) {
        const RvPoint2D& p = r[i];
        if (std::fabs(p.x - e.x) > kTol || std::fabs(p.y - e.y) > kTol || p.z != 0.0 ||
            std::fabs(p.x2D - p.x) > kTol || std::fabs(p.y2D - p.y) > kTol) {
            return testing::AssertionFailure()
                   << "vertex " << i << " is not (" << e.x << ", " << e.y << "):" << got.str();
        }
        ++i;
    }
    return testing::AssertionSuccess();
}

// ---------------------------------------------------------------------------------------------
// The collision search. The normal is +z throughout, so for an edge W = prev - cur the vector
// M = N x W points to the left of the edge's own direction (from prev to cur): the inner side
// of a counterclockwise ring.

const RvPoint3D kUp(0, 0, 1);

// The square (0,0), (10,0), (10,10), (0,10): vertex 1 stands for the bottom edge from (0,0) to
// (10,0), vertex 2 for the right edge from (10,0) to (10,10).
RvPolygon2D Square() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// Runs the search over the vertices first .. last - 1 of `chain` and returns the index found.
std::ptrdiff_t Find(RvPolygon2D& chain, const RvPoint3D& from, const RvPoint3D& to, double distance,
                    std::ptrdiff_t first, std::ptrdiff_t last) {
    const RvPolygon2D::iterator found = RvPolygon2DTestAccess::FindOffsetCollision(
        from, to, distance, kUp, chain.begin() + first, chain.begin() + last);
    return found - chain.begin();
}

TEST(RvPolygon2DFindOffsetCollision, SkipsANullEdgeThatTheSegmentWouldCross) {
    // The edge from (5e-07,0) to (0,0) is null (every coordinate below 9e-07). Taken as an edge,
    // the segment (2.5e-07,1)-(2.5e-07,-2) would cross it in its middle: S = (-1,0,0),
    // W.S = -5e-07, t = 0.5, and (from - X).(to - X) = -2. Skipped, nothing is found.
    RvPolygon2D chain = Ring({{5e-07, 0}, {0, 0}, {100, 100}});
    RvPolygon2D::m_nOffsetCrossing = 1;
    EXPECT_EQ(Find(chain, RvPoint3D(2.5e-07, 1, 0), RvPoint3D(2.5e-07, -2, 0), 3.0, 1, 2), 2);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);
}

TEST(RvPolygon2DFindOffsetCollision, ReportsACrossingInsideTheSegmentAsATrueCrossing) {
    // Segment (5,-5)-(5,5) against the bottom edge: S = (1,0,0), W = (-10,0), t = 0.5,
    // X = (5,0), (from - X).(to - X) = (0,-5).(0,5) = -25.
    RvPolygon2D chain = Square();
    RvPolygon2D::m_nOffsetCrossing = 0;
    EXPECT_EQ(Find(chain, RvPoint3D(5, -5, 0), RvPoint3D(5, 5, 0), 1.0, 1, 3), 1);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 1);
}

TEST(RvPolygon2DFindOffsetCollision, LeavesOutTheCrossingTestForAnEdgeParallelToTheSegment) {
    // Segment (0,-1)-(0,1): S = (1,0,0). The edge from (5e-10,4) to (-5e-10,-4) has
    // W = (1e-09,8), so |W.S| = 1e-09, at most the limit: no crossing test, though t would be
    // 0.5 with X = (0,0) right between the ends. The nearness test finds `to` at 1.25e-10 from
    // the edge, not nearer than |0| - 1e-07, so nothing is found.
    RvPolygon2D nearlyParallel = Ring({{5e-10, 4}, {-5e-10, -4}, {100, 100}});
    EXPECT_EQ(Find(nearlyParallel, RvPoint3D(0, -1, 0), RvPoint3D(0, 1, 0), 0.0, 1, 2), 2);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);

    // With W = (2e-09,8) the product 2e-09 is above the limit and the same crossing counts.
    RvPolygon2D tilted = Ring({{1e-09, 4}, {-1e-09, -4}, {100, 100}});
    EXPECT_EQ(Find(tilted, RvPoint3D(0, -1, 0), RvPoint3D(0, 1, 0), 0.0, 1, 2), 1);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 1);
}

TEST(RvPolygon2DFindOffsetCollision, PassesAnEdgeWhoseFootOfTheEndLiesBeyondIt) {
    // to = (12,0.5) is 0.5 inside the line of the bottom edge, nearer than the distance 1, but
    // its foot lies beyond (10,0): u = ((2,0.5).(-10,0)) / 100 = -0.2. The segment from (12,5)
    // does not cross the edge (t = -0.2 too).
    RvPolygon2D chain = Square();
    EXPECT_EQ(Find(chain, RvPoint3D(12, 5, 0), RvPoint3D(12, 0.5, 0), 1.0, 1, 2), 2);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);
}

TEST(RvPolygon2DFindOffsetCollision, PassesAnEdgeWhenTheEndLiesOnItsGoodSide) {
    // to = (9,-0.5): u = 0.1, Y = (0,-0.5), M = N x (-10,0) = (0,-10,0), Y.M = 5, not below
    // -1e-07: outside the square, though only 0.5 from the edge. Segment from (9,-5) stays
    // below the edge: X = (9,0), (from - X).(to - X) = 2.5.
    RvPolygon2D chain = Square();
    EXPECT_EQ(Find(chain, RvPoint3D(9, -5, 0), RvPoint3D(9, -0.5, 0), 1.0, 1, 2), 2);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);
}

TEST(RvPolygon2DFindOffsetCollision, ReturnsTheLastEdgeOfTheRangeAsSoonAsItIsTooNear) {
    // to = (9,0.5): u = 0.1, Y = (0,0.5), Y.M = -5 (inner side), |Y| = 0.5 < 1 - 1e-07; the
    // segment from (9,5) stays above the edge ((0,5).(0,0.5) = 2.5, no crossing).
    RvPolygon2D chain = Square();
    EXPECT_EQ(Find(chain, RvPoint3D(9, 5, 0), RvPoint3D(9, 0.5, 0), 1.0, 1, 2), 1);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);
}

TEST(RvPolygon2DFindOffsetCollision, ReturnsAnEarlierTooNearEdgeWhenTheVertexLiesAheadOfTheEnd) {
    // As above, with the right edge still to come: (cur - to).M = (1,-0.5).(0,-10) = 5 > 1e-07.
    RvPolygon2D chain = Square();
    EXPECT_EQ(Find(chain, RvPoint3D(9, 5, 0), RvPoint3D(9, 0.5, 0), 1.0, 1, 3), 1);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);
}

TEST(RvPolygon2DFindOffsetCollision, GoesOnPastAnEarlierEdgeWhoseLineCarriesTheEnd) {
    // to = (9,0) lies on the bottom edge: Y is null, so it counts as the inner side, and |Y| = 0
    // is too near; but (cur - to).M = (1,0).(0,-10) = 0 is not above 1e-07, so the search goes
    // on. The right edge: u = ((-1,-10).(0,-10)) / 100 = 1, Y = (-1,0), |Y| = 1 is not below
    // 1 - 1e-07. Nothing is found.
    RvPolygon2D chain = Square();
    EXPECT_EQ(Find(chain, RvPoint3D(9, 5, 0), RvPoint3D(9, 0, 0), 1.0, 1, 3), 3);
    // As the last edge of the range the same bottom edge is returned at once.
    EXPECT_EQ(Find(chain, RvPoint3D(9, 5, 0), RvPoint3D(9, 0, 0), 1.0, 1, 2), 1);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);
}

TEST(RvPolygon2DFindOffsetCollision, ReturnsTheEndOfTheRangeAndClearsTheFlagWhenNothingIsHit) {
    // Segment (40,50)-(50,50), far outside: every foot falls off its edge (u = -4, -4, 5).
    RvPolygon2D chain = Square();
    RvPolygon2D::m_nOffsetCrossing = 1;
    EXPECT_EQ(Find(chain, RvPoint3D(40, 50, 0), RvPoint3D(50, 50, 0), 1.0, 1, 4), 4);
    EXPECT_EQ(RvPolygon2D::m_nOffsetCrossing, 0);
}

// ---------------------------------------------------------------------------------------------
// GetOffset. All polygons below run counterclockwise, so the normal is +z, D = N x B turns the
// backward direction B to the outside, and a convex right-angled corner with arms A and B
// moves to C - (A + B) * distance.

TEST(RvPolygon2DGetOffset, KeepsTheFirstVertexAndLeavesTheClosingEdgeOfASquare) {
    // B = (-1,0), D = (0,-1): the first vertex stays and (0,-1) follows. The corners (10,0) and
    // (10,10) move to (11,-1) and (11,11); the last vertex (0,10) moves along the top edge's
    // normal (0,1) to (0,11). No search finds anything (each foot falls off its edge, or the
    // end lies 11 from the bottom edge).
    RvPolygon2D square = Square();
    const RvPolygon2D before = square;
    const RvPolygon2D r = square.GetOffset(1.0);
    EXPECT_TRUE(HasVertices(r, {{0, 0}, {0, -1}, {11, -1}, {11, 11}, {0, 11}}));
    EXPECT_TRUE(testing_support::SameVertices(square, before));
}

TEST(RvPolygon2DGetOffset, GivesNothingForFewerThanThreeVertices) {
    EXPECT_TRUE(RvPolygon2D().GetOffset(1.0).empty());
    EXPECT_TRUE(Ring({{0, 0}, {10, 0}}).GetOffset(1.0).empty());
}

TEST(RvPolygon2DGetOffset, GivesNothingForAFlatPolygon) {
    // All corners are straight: the normal is the null vector.
    EXPECT_TRUE(Ring({{0, 0}, {5, 0}, {10, 0}}).GetOffset(1.0).empty());
}

TEST(RvPolygon2DGetOffset, StartsAfterLeadingNullEdges) {
    // The doubled first vertex gives a null backward vector at vertex 1; the walk starts at
    // (10,0) instead and runs as on the square.
    const MessageBoxRecorder recorder;
    RvPolygon2D poly = Ring({{0, 0}, {0, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_TRUE(HasVertices(poly.GetOffset(1.0), {{0, 0}, {0, -1}, {11, -1}, {11, 11}, {0, 11}}));
    EXPECT_TRUE(recorder.calls().empty());
}

TEST(RvPolygon2DGetOffset, GivesNothingWhenEveryEdgeBeforeTheLastVertexIsNull) {
    // Vertices 1 and 2 lie 8e-07 from their predecessors (null), so the start reaches the last
    // vertex. The normal exists: at vertex 0 the arms (100,0) and (0,8e-07) give a cross product
    // of length 8e-05, and the probe (1,1) lies outside the sliver, so N = +z.
    RvPolygon2D poly = Ring({{0, 0}, {0, 8e-07}, {0, 0}, {100, 0}});
    EXPECT_NEAR(poly.GetNormalVector().z, 1.0, kTol);
    EXPECT_TRUE(poly.GetOffset(1.0).empty());
}

// (0,0), (4,0), (4,5), (5,5), (5,4), (10,4), (10,10), (0,10): an L whose missing block, right of
// x = 4 and below y = 4, reaches one unit further up in a notch from x = 4 to 5.
RvPolygon2D StepSlot() {
    return Ring({{0, 0}, {4, 0}, {4, 5}, {5, 5}, {5, 4}, {10, 4}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DGetOffset, EndsTheWalkWhenTheNewSegmentRunsBackAcrossTheNextEdge) {
    // Distance 1.5. (0,-1.5) and the corner (5.5,-1.5) at (4,0) are added; the reflex corner
    // (4,5) with A = (1,0), B = (0,-1) moves to (4,5) + (1,-1) * 1.5 = (5.5,3.5) (no edge within
    // reach on its inner side). At (5,5), A = (0,-1), B = (-1,0): P = (5,5) + (-1,-1) * 1.5 =
    // (3.5,3.5). From the last vertex L = (5.5,3.5), (P - L).B = 2 > 1e-08: the segment runs
    // back. M = N x A = (1,0,0), Z = (-2,0), C - L = (-0.5,1.5), s = ((C - L).M) / (Z.M) =
    // -0.5 / -2 = 0.25, inside the range, so L is removed and the walk ends there.
    RvPolygon2D poly = StepSlot();
    EXPECT_TRUE(HasVertices(poly.GetOffset(1.5), {{0, 0}, {0, -1.5}, {5.5, -1.5}}));
}

TEST(RvPolygon2DGetOffset, PassesOverAVertexWhoseSegmentRunsBackWithoutCrossingTheNextEdge) {
    // Distance 0.8. (0,-0.8), (4.8,-0.8) and (4.8,4.2) are added as above. At (5,5)
    // P = (4.2,4.2) runs back from L = (4.8,4.2) by 0.6, but s = ((0.2,0.8).(1,0)) / -0.6 = -1/3
    // is out of range: the vertex is passed over, B = (-1,0) and D = (0,-1) stay. (5,4) is then
    // collinear with B (A.D = 0). At (10,4), A = (0,1): C moves along the old line to
    // (10,4) + A * (((5,5) - (10,4)).D / A.D) = (10,5), P = (10,5) + (0.8,-0.8) = (10.8,4.2).
    // (10,10) goes to (10.8,10.8) and the last vertex to (0,10.8); no search finds anything.
    RvPolygon2D poly = StepSlot();
    EXPECT_TRUE(HasVertices(
        poly.GetOffset(0.8),
        {{0, 0}, {0, -0.8}, {4.8, -0.8}, {4.8, 4.2}, {10.8, 4.2}, {10.8, 10.8}, {0, 10.8}}));
}

TEST(RvPolygon2DGetOffset, JumpsOverAnEdgeThatTheNewPointComesTooNear) {
    // A slot one unit wide from (4,0) up to (4,5), (5,5) and down to (5,0); distance 1.5.
    // (0,-1.5) and (5.5,-1.5) are added. At (4,5), P = (5.5,3.5) lies 0.5 inside the wall from
    // (5,5) to (5,0): u = 0.7, Y = (0.5,0), M = (-5,0,0), Y.M = -2.5, |Y| < 1.5, and
    // (cur - to).M = (-0.5,-3.5).(-5,0) = 2.5 > 1e-07. The wall is found (no crossing), so `v`
    // becomes its end (5,0) less 2, the advance brings it to (5,5): collinear with B = (0,-1).
    // At (5,0), A = (1,0): C = (5,0) + A * (((4,5) - (5,0)).(1,0)) = (4,0), P = (4,0) +
    // (1,-1) * 1.5 = (5.5,-1.5), the last vertex again, which AddPolygonPoint refuses. At
    // (10,0), P = (11.5,-1.5) is collinear with the bottom run and replaces (5.5,-1.5); then
    // (11.5,11.5) and the last vertex (0,11.5) as on a square.
    RvPolygon2D poly = Ring({{0, 0}, {4, 0}, {4, 5}, {5, 5}, {5, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_TRUE(HasVertices(poly.GetOffset(1.5),
                            {{0, 0}, {0, -1.5}, {11.5, -1.5}, {11.5, 11.5}, {0, 11.5}}));
}

TEST(RvPolygon2DGetOffset, HalvesACrossingCornerAndJumpsWhenTheHalfStillCollides) {
    // A hook: the wall from (12,5) down to (12,-5) reaches below the bottom edge's offset.
    // Distance 4: the corner (10,0) goes to P = (14,-4), and the segment from (0,-4) crosses the
    // wall at (12,-4) (t = 0.1, (from - X).(to - X) = (-12,0).(2,0) = -24). The bisector A + B =
    // (-1,1) is not parallel to the wall (its product with M2 = (-10,0,0) is 10), so nothing is
    // thrown; P becomes ((10,0) + (14,-4)) / 2 = (12,-2). Searched again, the bottom of the hook
    // from (12,-5) to (20,-5) is too near: u = 1, Y = (0,3), |Y| = 3 < 4, and (cur - to).M =
    // (8,-3).(0,-8) = 24. The walk resumes at (12,-5), collinear with B = (-1,0); at (20,-5),
    // A = (0,1), C = (20,-5) + A * (((10,0) - (20,-5)).(0,-1) / -1) = (20,0) and P = (24,-4),
    // which joins the bottom run. Then (24,14) and the last vertex (0,14).
    RvPolygon2D hook =
        Ring({{0, 0}, {10, 0}, {10, 5}, {12, 5}, {12, -5}, {20, -5}, {20, 10}, {0, 10}});
    EXPECT_TRUE(HasVertices(hook.GetOffset(4.0), {{0, 0}, {0, -4}, {24, -4}, {24, 14}, {0, 14}}));
}

TEST(RvPolygon2DGetOffset, ResumesTheWalkAtTheStartOfTheEdgeFoundTooNear) {
    // (0,0), (10,0), (10,10), (7,10), (7,9), (0,9): a one-unit step in the top; distance -4.
    // - (0,0), (0,4); (10,0) goes to (6,4), 5 below the edge (7,9)-(0,9), not too near.
    // - (10,10) goes to P = (6,6): 3 below that edge (u = 42/49, Y = (0,-3), M = (0,7,0),
    //   Y.M = -21), nearer than 4, and it is the last edge searched. `v` becomes (0,9) less 2,
    //   and the advance brings it to (7,9), the start of that edge, with B = (0,-1),
    //   D = (1,0) and C = (10,10) kept: A = (-1,0), C = (7,9) + A * (((10,10) - (7,9)).D / -1)
    //   = (10,9), P = (10,9) + (-1,-1) * 4 = (6,5). As the vertex before the last it is searched
    //   against the whole chain: 5 from the bottom, exactly 4 from the right side and the top
    //   step's line, nothing nearer, so it is added.
    // - The last vertex moves along D = (0,1): (0,9) + (0,1) * -4 = (0,5), appended.
    RvPolygon2D poly = Ring({{0, 0}, {10, 0}, {10, 10}, {7, 10}, {7, 9}, {0, 9}});
    EXPECT_TRUE(HasVertices(poly.GetOffset(-4.0), {{0, 0}, {0, 4}, {6, 4}, {6, 5}, {0, 5}}));
}

TEST(RvPolygon2DGetOffset, ResumesAtTheVertexBeforeTheCollidingEdge) {
    // A slot from the top, (6,10) down to (6,1), across to (4,1) and up to (4,10); distance -2.
    // - (0,0), (0,2). At (10,0), P = (8,2): the segment from (0,2) crosses the wall x = 6 at
    //   (6,2). The halved P = (9,1) still crosses it (at (6,4/3)), so `v` becomes the wall's
    //   end (6,1) less 2 and the advance brings it to (6,10), the wall's start, not collinear:
    //   A = (0,-1), C = (6,10) + A * (((10,0) - (6,10)).(0,-1)) = (6,0), P = (6,0) +
    //   (-1,-1) * -2 = (8,2).
    // - That segment from (0,2) crosses the other wall x = 4 at (4,2); halved, P = (7,1) still
    //   crosses it, so the walk resumes at (4,1), that wall's start: C = (4,1) + (0,1) *
    //   (((6,0) - (4,1)).(0,-1) / -1) = (4,0), P = (4,0) + (-1,1) * 2 = (2,2), added.
    // - (4,10), the vertex before the last: P = (2,8), 2 from the wall x = 4 and from the top,
    //   not nearer, so it is added; the last vertex gives (0,10) + (0,-1) * -2 = (0,8).
    RvPolygon2D poly = Ring({{0, 0}, {10, 0}, {10, 10}, {6, 10}, {6, 1}, {4, 1}, {4, 10}, {0, 10}});
    EXPECT_TRUE(HasVertices(poly.GetOffset(-2.0), {{0, 0}, {0, 2}, {2, 2}, {2, 8}, {0, 8}}));
}

TEST(RvPolygon2DGetOffset, JumpsFromTheFirstVertexWhenItsOffsetComesTooNearALaterEdge) {
    // A U with walls 1.2 thick; distance -1.5. The first vertex's offset (0,1.5) lies 1.2 from
    // the inner side of the left wall from (1.2,1.2) up to (1.2,10), the last edge searched:
    // u = 74.8/77.44, Y = (-1.2,0), M = (8.8,0,0), Y.M < 0, |Y| < 1.5. So (0,1.5) is not added
    // and the walk goes on from (1.2,10), whose next edge runs along B = (-1,0) (A.D = 0).
    // The last vertex gives (0,10) + (0,-1) * -1.5 = (0,11.5), which meets nothing.
    RvPolygon2D u =
        Ring({{0, 0}, {10, 0}, {10, 10}, {8.8, 10}, {8.8, 1.2}, {1.2, 1.2}, {1.2, 10}, {0, 10}});
    EXPECT_TRUE(HasVertices(u.GetOffset(-1.5), {{0, 0}, {0, 11.5}}));
}

TEST(RvPolygon2DGetOffset, HalvesACrossingCornerAndKeepsTheHalfWhenItIsClear) {
    // A slot from the top, (10.5,10) down to (10.5,1.8), across to (9.5,1.8) and up to (9.5,10),
    // the last vertex; distance -2 (inwards).
    // - Start: (0,0), then (0,0) + (0,-1) * -2 = (0,2).
    // - (20,0): P = (18,2); the segment from (0,2) crosses the slot's wall x = 10.5 at
    //   (10.5,2) (t = 0.2/8.2). A + B = (-1,1) against M2 = (-8.2,0,0) gives 8.2: no failure.
    //   P = ((20,0) + (18,2)) / 2 = (19,1); the segment from (0,2) to (19,1) passes below the
    //   slot (y = 1.45 at x = 10.5) and nothing is near, so (19,1) is added.
    // - (20,10): P = (20,10) + (-1,-1) * 2 = (18,8). (10.5,10): P = (12.5,8). (10.5,1.8), reflex:
    //   P = (10.5,1.8) + (-1,1) * -2 = (12.5,-0.2). (9.5,1.8), the vertex before the last:
    //   P = (9.5,1.8) + (1,1) * -2 = (7.5,-0.2), searched over the whole chain; it lies outside
    //   the bottom edge (its good side), so it is added.
    // - Closing: (9.5,10) + (1,0) * -2 = (7.5,10); the segment from (7.5,-0.2) crosses the bottom
    //   edge at (7.5,0) ((0,-0.2).(0,10) = -2), so it is not appended.
    RvPolygon2D poly =
        Ring({{0, 0}, {20, 0}, {20, 10}, {10.5, 10}, {10.5, 1.8}, {9.5, 1.8}, {9.5, 10}});
    EXPECT_TRUE(
        HasVertices(poly.GetOffset(-2.0),
                    {{0, 0}, {0, 2}, {19, 1}, {18, 8}, {12.5, 8}, {12.5, -0.2}, {7.5, -0.2}}));
}

TEST(RvPolygon2DGetOffset, PassesOnTheFailureOfABisectorParallelToTheCrossedEdge) {
    // A wedge cut from the top: (5,10) down to (14,1) and back up to (3,10). Distance -2: the
    // corner (20,0) goes to (18,2), and the segment from (0,2) crosses the wedge's first side at
    // (13,2). That side runs along (-9,9), parallel to the bisector A + B = (0,1) + (-1,0), so
    // with M2 = N x ((5,10) - (14,1)) = (-9,-9,0) the intersection has no denominator. The
    // double thrown is q.M2 - C.M2 = (14,1).(-9,-9) - (20,0).(-9,-9) = -135 + 180 = 45.
    RvPolygon2D wedge = Ring({{0, 0}, {20, 0}, {20, 10}, {5, 10}, {14, 1}, {3, 10}, {0, 10}});
    bool thrown = false;
    try {
        static_cast<void>(wedge.GetOffset(-2.0));
    } catch (double num) {
        thrown = true;
        EXPECT_NEAR(num, 45.0, kTol);
    }
    EXPECT_TRUE(thrown);
}

TEST(RvPolygon2DGetOffset, LeavesOutTheCornerBeforeTheLastVertexWhenItCrossesAnEarlierEdge) {
    // A pentagon with a V from (10,6) down to (5,1) and up to (0,6); distance -0.8.
    // - (0,0), (0,0.8); (10,0) goes to (9.2,0.8).
    // - (10,6): arms A = (-1,-1)/sqrt2 and B = (0,-1), 45 degrees apart, sign -1, so
    //   P = (10,6) + (A + B) * 0.8 * sqrt2 = (9.2, 5.2 - 0.8 * sqrt2).
    // - (5,1), the vertex before the last: right angle, P = (5,1) + (0,sqrt2) * -0.8 =
    //   (5, 1 - 0.8 * sqrt2), below the bottom edge. The segment from the last vertex crosses the
    //   bottom edge near (5.13,0), so P is not added.
    // - Closing: D = N x (1,-1)/sqrt2, P = (0,6) + (1,1)/sqrt2 * -0.8; the segment from
    //   (9.2, 4.07) to it crosses the side from (10,6) to (5,1) near (8.2,4.2): not appended.
    RvPolygon2D poly = Ring({{0, 0}, {10, 0}, {10, 6}, {5, 1}, {0, 6}});
    const double s2 = std::sqrt(2.0);
    EXPECT_TRUE(
        HasVertices(poly.GetOffset(-0.8), {{0, 0}, {0, 0.8}, {9.2, 0.8}, {9.2, 5.2 - 0.8 * s2}}));
}

// ---------------------------------------------------------------------------------------------
// GetExtendXX. Each edge from `prev` to `cur` is offset to S-E along D = N x B, B = prev - cur
// normalised; the line through E trims the result built so far.

TEST(RvPolygon2DGetExtendXX, GivesTheFullOffsetSquare) {
    // The closing edge comes first: S = (-1,10), E = (-1,0). The bottom edge trims (-1,0) to
    // (-1,-1) (t = 11) and appends (10,-1); the right edge trims that to (11,-1) and appends
    // (11,10); the top edge trims it to (11,11) and, being the last, replaces the first vertex
    // by (-1,11), where the line of the first segment meets y = 11.
    RvPolygon2D square = Square();
    const RvPolygon2D before = square;
    EXPECT_TRUE(HasVertices(square.GetExtendXX(1.0), {{-1, 11}, {-1, -1}, {11, -1}, {11, 11}}));
    EXPECT_TRUE(testing_support::SameVertices(square, before));
}

TEST(RvPolygon2DGetExtendXX, GivesNothingForFewerThanThreeVerticesOrAFlatPolygon) {
    EXPECT_TRUE(RvPolygon2D().GetExtendXX(1.0).empty());
    EXPECT_TRUE(Ring({{0, 0}, {10, 0}}).GetExtendXX(1.0).empty());
    EXPECT_TRUE(Ring({{0, 0}, {5, 0}, {10, 0}}).GetExtendXX(1.0).empty());
}

TEST(RvPolygon2DGetExtendXX, PassesOverAParallelSegmentWhenWalkingBack) {
    // (5,0) splits the bottom edge. After (0,0)-(5,0) the result is (-1,10), (-1,-1), (5,-1).
    // The edge (5,0)-(10,0) has D = (0,-1): the segment (-1,-1)-(5,-1) is parallel (V.D = 0) and
    // passed over; the segment from (-1,10) to (5,-1) meets y = -1 at (5,-1) itself, so the last
    // vertex stays where it is and (10,-1) is appended. The rest runs as on the square.
    RvPolygon2D poly = Ring({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_TRUE(
        HasVertices(poly.GetExtendXX(1.0), {{-1, 11}, {-1, -1}, {5, -1}, {11, -1}, {11, 11}}));
}

// (0,0), (4,0), (4,5), (5,5), (5,0), (10,0), (10,10), (0,10): a slot one unit wide and five deep.
RvPolygon2D Slot() {
    return Ring({{0, 0}, {4, 0}, {4, 5}, {5, 5}, {5, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DGetExtendXX, ReplacesTheLastVertexWhenTheLinesMeetBehindItOnTheOffsetSide) {
    // Distance 0.8. The slot's left wall and top give (-0.8,10), (-0.8,-0.8), (4.8,-0.8),
    // (4.8,4.2), (5,4.2). The right wall (5,5)-(5,0): B = (0,1), D = (-1,0), E = (4.2,0). The
    // segment from (4.8,4.2) along (1,0) meets x = 4.2 at t = -0.6, behind it;
    // g = ((4.2,4.2) - E).B = 4.2, and g * 0.8 > 0, so (5,4.2) becomes (4.2,4.2).
    // The next edge (5,0)-(10,0) has D = (0,-1): the segment (4.8,4.2)-(4.2,4.2) is parallel and
    // passed over; the one from (4.8,-0.8) meets y = -0.8 at (4.8,-0.8) (t = 0), which replaces
    // (4.2,4.2), and (10,-0.8) follows. The right side and the top close as on a square.
    RvPolygon2D slot = Slot();
    EXPECT_TRUE(HasVertices(slot.GetExtendXX(0.8), {{-0.8, 10.8},
                                                    {-0.8, -0.8},
                                                    {4.8, -0.8},
                                                    {4.8, 4.2},
                                                    {4.8, -0.8},
                                                    {10.8, -0.8},
                                                    {10.8, 10.8}}));
}

TEST(RvPolygon2DGetExtendXX, RemovesVerticesLeftBehindAndStartsAfreshFromALoneVertex) {
    // A 10 by 2 rectangle shrunk by 3. The closing edge gives S = (3,2), E = (3,0). The bottom
    // edge, E = (10,3): the segment from (3,2) down to (3,0) meets y = 3 at t = -1, behind (3,2);
    // g = ((3,3) - (10,3)).(-1,0) = 7 and 7 * -3 <= 0, so (3,0) is removed. One vertex is left,
    // and it goes too. The right edge starts afresh with (7,0), (7,2); the top edge, E = (0,-1),
    // again meets at t = -1 with g = 7, removes (7,2), and the lone (7,0) goes. Nothing remains.
    RvPolygon2D rect = Ring({{0, 0}, {10, 0}, {10, 2}, {0, 2}});
    EXPECT_TRUE(rect.GetExtendXX(-3.0).empty());
}

TEST(RvPolygon2DGetExtendXX, DiscardsAnEdgeThatEndsAtTheTrimPoint) {
    // The step slot, distance 1: (-1,10), (-1,-1), (5,-1), (5,5) after the slot's left wall.
    // The step top (4,5)-(5,5): D = (0,-1), E = (5,4); the segment from (5,-1) up along (0,1)
    // meets y = 4 at (5,4) = E: (T - E).B = 0 is not above 0, so this edge is discarded. The
    // step side (5,5)-(5,4): D = (-1,0), E = (4,4); the segment (5,-1)-(5,5) is parallel and
    // passed over, the one from (-1,-1) to (5,5) meets x = 4 at (4,4) = E: discarded again.
    // (5,4)-(10,4): E = (10,3), (5,5) is trimmed to (5,3) and (10,3) follows; then (11,3),
    // (11,11) and the first vertex (-1,11).
    RvPolygon2D poly = StepSlot();
    EXPECT_TRUE(HasVertices(poly.GetExtendXX(1.0),
                            {{-1, 11}, {-1, -1}, {5, -1}, {5, 3}, {11, 3}, {11, 11}}));
}

TEST(RvPolygon2DGetExtendXX, TrimsTheStartByRemovingVerticesAndStopsAtAParallelSegment) {
    // The slot shrunk by 3.
    // - (3,10), (3,0); the bottom edge trims to (3,3) and appends (4,3).
    // - Left wall (4,0)-(4,5), E = (1,5): the segment from (3,3) meets x = 1 at t = -2, g = 2,
    //   g * -3 <= 0: (4,3) is removed; (3,10)-(3,3) is parallel, and the walk ends: no edge.
    // - Slot top, E = (5,8): (3,3) becomes (3,8), then (5,8). Right wall, E = (8,0): (8,8), (8,0).
    //   Bottom, E = (10,3): (8,3), (10,3).
    // - Right side, E = (7,10): from (8,3) t = -1, g = 7: (10,3) removed; (8,8)-(8,3) parallel;
    //   the segment from (3,8) along (1,-1)/sqrt2 meets x = 7 at (7,4), replacing (8,3); (7,10).
    // - Top, the last edge, S = (10,7), E = (0,7): (7,10) becomes (7,7). Trimming the start: the
    //   segment (3,8)-(3,10) meets y = 7 at t = -1, behind it, so (3,10) is removed; the next
    //   segment (8,8)-(3,8) is parallel to the top (V.D = 0), which stops the trimming.
    RvPolygon2D slot = Slot();
    EXPECT_TRUE(HasVertices(slot.GetExtendXX(-3.0), {{3, 8}, {8, 8}, {7, 4}, {7, 7}}));
}

TEST(RvPolygon2DGetExtendXX, TrimsTheStartUpToTheLastVertex) {
    // A 10 by 2 rectangle shrunk by 1.5. (1.5,2), (1.5,1.5), (10,1.5) after the bottom edge;
    // the right edge trims to (8.5,1.5) and appends (8.5,2). The top edge, S = (10,0.5),
    // E = (0,0.5): (8.5,2) lies behind (t = -1, g = 8.5, g * -1.5 <= 0) and goes;
    // (1.5,1.5)-(8.5,1.5) is parallel; the segment from (1.5,2) along (7,-0.5) meets y = 0.5 at
    // (1.5,2) + (7,-0.5) * 3 = (22.5,0.5), which replaces (8.5,1.5). Trimming the start:
    // (1.5,1.5)-(1.5,2) meets y = 0.5 at t = -1, so (1.5,2) is removed; the segment from
    // (22.5,0.5), the last vertex, meets the line at t = 0, T = (22.5,0.5), with
    // (T - S).B = 12.5 not below 0, and the trimming ends there.
    RvPolygon2D rect = Ring({{0, 0}, {10, 0}, {10, 2}, {0, 2}});
    EXPECT_TRUE(HasVertices(rect.GetExtendXX(-1.5), {{1.5, 1.5}, {22.5, 0.5}}));
}

TEST(RvPolygon2DGetExtendXX, ShrinksAConcavePolygon) {
    // The slot shrunk by 0.8: every new line meets the last result segment ahead of its start
    // (t = 9.2, 2.4, 5, 2.6, 5, 3.4, 8.4), trims the last vertex there and appends its E, and the
    // top edge, the last, replaces the first vertex by (0.8,9.2). Each corner ends 0.8 from both
    // its edges: (0,0) at (0.8,0.8), the reflex (4,0) at (3.2,0.8), the slot's top corners (4,5)
    // and (5,5) at (3.2,5.8) and (5.8,5.8), the reflex (5,0) at (5.8,0.8), and so on.
    RvPolygon2D slot = Slot();
    EXPECT_TRUE(HasVertices(slot.GetExtendXX(-0.8), {{0.8, 9.2},
                                                     {0.8, 0.8},
                                                     {3.2, 0.8},
                                                     {3.2, 5.8},
                                                     {5.8, 5.8},
                                                     {5.8, 0.8},
                                                     {9.2, 0.8},
                                                     {9.2, 9.2}}));
}

TEST(RvPolygon2DGetExtendXX, ReportsANullEdgeOnceAndLetsItTrimNothing) {
    // The doubled (10,0) makes a null edge: Normalize leaves B null and warns once, D = N x B is
    // null too, so every segment is parallel to it and the edge adds nothing. The result is that
    // of the square.
    const MessageBoxRecorder recorder;
    RvPolygon2D poly = Ring({{0, 0}, {10, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_TRUE(HasVertices(poly.GetExtendXX(1.0), {{-1, 11}, {-1, -1}, {11, -1}, {11, 11}}));
    ASSERT_EQ(recorder.calls().size(), 1U);
    EXPECT_EQ(recorder.calls()[0].text, kNormalizeWarning);
}

}  // namespace
}  // namespace ravelin
