#include <gtest/gtest.h>
#include <pthread.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private loop walk of the offset.
struct RvPolygon2DTestAccess {
    static void CollectLoops(RvPolygon2D& acc, RvPolygon2D::iterator& cursor,
                             RvPolygon2D::iterator end, std::vector<RvPolygon2D>& result,
                             bool top) {
        acc.CollectLoops(cursor, end, result, top);
    }
};

namespace {

using testing_support::Ring;
using testing_support::SameVertices;

using XY = std::pair<double, double>;

// The vertices of `p`, in order, each within `tol` of the planar pair expected, with z = 0.
void ExpectRing(const RvPolygon2D& p, std::initializer_list<XY> expected, double tol = 1e-9) {
    ASSERT_EQ(p.size(), expected.size());
    std::size_t k = 0;
    for (const XY& xy : expected) {
        EXPECT_NEAR(p[k].x, xy.first, tol) << "vertex " << k;
        EXPECT_NEAR(p[k].y, xy.second, tol) << "vertex " << k;
        EXPECT_NEAR(p[k].z, 0.0, tol) << "vertex " << k;
        ++k;
    }
}

// The offset of `p` by `distance` into a fresh vector.
std::vector<RvPolygon2D> Offset(RvPolygon2D p, double distance) {
    std::vector<RvPolygon2D> result;
    p.GetExtend(distance, result);
    return result;
}

// Runs `body` on a thread whose stack is 256 KiB.
template <class Body>
void RunOnSmallStack(Body& body) {
    pthread_attr_t attr;
    ASSERT_EQ(pthread_attr_init(&attr), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attr, 256 * 1024), 0);
    pthread_t thread;
    auto run = [](void* arg) -> void* {
        (*static_cast<Body*>(arg))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attr, run, &body), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attr);
}

// ---- Trivial ways out ------------------------------------------------------------------------

TEST(RvPolygon2DGetExtend, FewerThanThreeVerticesYieldNothing) {
    EXPECT_TRUE(Offset(Ring({{0, 0}, {10, 0}}), 1.0).empty());
    EXPECT_TRUE(Offset(RvPolygon2D(), -1.0).empty());
}

TEST(RvPolygon2DGetExtend, FlatRingWithNullNormalYieldsNothing) {
    // Three vertices on one line: the normal is the null cross product.
    EXPECT_TRUE(Offset(Ring({{0, 0}, {5, 0}, {10, 0}}), 1.0).empty());
}

TEST(RvPolygon2DGetExtend, LeavesThePolygonUnchanged) {
    RvPolygon2D p = Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    const RvPolygon2D before(p);
    std::vector<RvPolygon2D> result;
    p.GetExtend(-2.0, result);
    EXPECT_TRUE(SameVertices(p, before));
}

TEST(RvPolygon2DGetExtend, PolygonHeldInTheResultCanBeOffsetIntoIt) {
    // Appending may move the vector's storage; the offset must still read the polygon as it was.
    std::vector<RvPolygon2D> polys;
    polys.push_back(Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
    polys[0].GetExtend(1.0, polys);
    ASSERT_EQ(polys.size(), 2u);
    ExpectRing(polys[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    ExpectRing(polys[1], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}});
}

// ---- Growing -----------------------------------------------------------------------------------

TEST(RvPolygon2DGetExtend, GrowingAConvexPolygonKeepsEveryCornerAndSkipsTheFilter) {
    // Each right-angled corner moves by (1, 1) along its bisector, away from the inside. No edge
    // flips or crosses, the cleaning finds no straight corner, and the ring, lying outside the
    // input, would be dropped by the filter if that ran for a growing.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), 1.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}});
}

TEST(RvPolygon2DGetExtend, GrowingAClockwiseSquareGivesTheSameCornersInItsOwnOrder) {
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}}), 1.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{-1, -1}, {-1, 11}, {11, 11}, {11, -1}});
}

TEST(RvPolygon2DGetExtend, GrowingATriangleKeepsItsThreeCorners) {
    // Right triangle with legs 6 and 8 grown by 1: the legs move to x = -1 and y = -1 and the
    // hypotenuse 3x + 4y = 24 to 3x + 4y = 29. Corners: (-1, -1); (11, -1) where 3x = 33;
    // (-1, 8) where 4y = 32.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {8, 0}, {0, 6}}), 1.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{-1, -1}, {11, -1}, {-1, 8}});
}

// ---- A vertex on a straight line ---------------------------------------------------------------

TEST(RvPolygon2DGetExtend, StraightVertexStaysBehindAndIsKeptOnceOffTheNewLine) {
    // (5, 0) lies on the bottom edge: its arms cancel and it does not move, while its
    // neighbours go to (-1, -1) and (11, -1). At (5, 0) the arms (-6, -1) and (6, -1) give
    // |A.B| = 35 against |A||B| = 37: not straight any more, so the kink stays.
    std::vector<RvPolygon2D> result =
        Offset(Ring({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}), 1.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{-1, -1}, {5, 0}, {11, -1}, {11, 11}, {-1, 11}});
}

TEST(RvPolygon2DGetExtend, StraightVertexIsRemovedWhileStillOnTheLine) {
    // With distance 0 nothing moves, (5, 0) is still straight between its neighbours and the
    // cleaning removes it; the filter then keeps the square, which lies on the input's boundary.
    std::vector<RvPolygon2D> result =
        Offset(Ring({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}), 0.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// ---- Inverted rings ---------------------------------------------------------------------------

TEST(RvPolygon2DGetExtend, SquareShrunkBySixIsInvertedButKept) {
    // Each corner moves 6 along both axes: (0, 0) to (6, 6), (10, 0) to (4, 6) and so on. Every
    // edge has flipped, so both flags agree at every vertex; opposite edges are parallel and
    // apart, neighbours meet only at their ends. The ring runs counterclockwise like the input
    // and lies inside it, so the filter keeps it.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), -6.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{6, 6}, {4, 6}, {4, 4}, {6, 4}});
}

TEST(RvPolygon2DGetExtend, RingTurnedAgainstTheInputIsDropped) {
    // Rectangle 10 by 2 shrunk by 1.5: corners (1.5, 1.5), (8.5, 1.5), (8.5, 0.5), (1.5, 0.5).
    // The short edges flip; a bypass would need the line of the opposite long edge, which is
    // parallel to the kept one (U.V = 0), so no cut is made. The ring runs clockwise and the
    // filter removes it.
    EXPECT_TRUE(Offset(Ring({{0, 0}, {10, 0}, {10, 2}, {0, 2}}), -1.5).empty());
}

// ---- Distance zero and the filter ---------------------------------------------------------------

// The square from (10, 10) to (20, 20) with its first vertex given twice. Neither copy has two
// edges, so both take the default corner (0, 0). With no cut (the two bypass candidates fall at
// t = 0, the crossings at edge ends), the cleaning drops vertex 0 for its null edge and keeps
// (0, 0), (20, 10), (20, 20), (10, 20): a counterclockwise ring reaching outside the input.
RvPolygon2D SquareWithDoubledFirstVertex() {
    return Ring({{10, 10}, {10, 10}, {20, 10}, {20, 20}, {10, 20}});
}

TEST(RvPolygon2DGetExtend, DistanceZeroAppliesTheFilter) {
    // 0.0 is below 1e-06: the filter runs and (0, 0) lies outside the input.
    EXPECT_TRUE(Offset(SquareWithDoubledFirstVertex(), 0.0).empty());
}

TEST(RvPolygon2DGetExtend, DistanceOfOneMillionthSkipsTheFilter) {
    // 1e-06 is not below 1e-06: the same ring, its corners shifted by 1e-06, is kept.
    std::vector<RvPolygon2D> result = Offset(SquareWithDoubledFirstVertex(), 1e-06);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0, 0}, {20, 10}, {20, 20}, {10, 20}}, 1e-05);
}

TEST(RvPolygon2DGetExtend, PolygonsAlreadyInTheResultAreKept) {
    std::vector<RvPolygon2D> result;
    result.push_back(Ring({{1, 2}, {3, 4}}));
    result.push_back(RvPolygon2D());
    const RvPolygon2D first = result[0];
    SquareWithDoubledFirstVertex().GetExtend(0.0, result);
    ASSERT_EQ(result.size(), 2u);
    EXPECT_TRUE(SameVertices(result[0], first));
    EXPECT_TRUE(result[1].empty());

    // New polygons go behind the old ones.
    Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}}).GetExtend(1.0, result);
    ASSERT_EQ(result.size(), 3u);
    EXPECT_TRUE(SameVertices(result[0], first));
    ExpectRing(result[2], {{-1, -1}, {11, -1}, {11, 11}, {-1, 11}});
}

// ---- Building the ring ------------------------------------------------------------------------

TEST(RvPolygon2DGetExtend, DoubledVertexRepeatsTheCornerBeforeIt) {
    // Square shrunk by 1 with (10, 10) given twice: neither copy has two edges, so both repeat
    // the corner before them, (9, 1), and the corner (9, 9) is lost. No cut is found; the
    // cleaning removes the two repeated (9, 1) for their null edges, leaving a triangle.
    std::vector<RvPolygon2D> result =
        Offset(Ring({{0, 0}, {10, 0}, {10, 10}, {10, 10}, {0, 10}}), -1.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{1, 1}, {9, 1}, {1, 9}});
}

// ---- Bypassing flipped edges
// ---------------------------------------------------------------------

// A dart: bottom (0,0)-(38,0), then (38,0)-(6,24) along (-4,3), the reflex vertex (6,24), the
// tip (0,32) reached along (-3,4), and the left side x = 0. Shrunk by 5 the edge lines are
// y = 5, 3x + 4y = 89, 4x + 3y = 71 and x = 5, giving the ring (5, 5), (23, 5),
// (17/7, 143/7), (5, 17). The edge from (6,24) to the tip has flipped.
TEST(RvPolygon2DGetExtend, FlippedEdgeAfterAVertexIsBypassed) {
    // At vertex 2 the edge before is kept and the edge after flipped. Its edge back to (23, 5)
    // meets the line x = 5 of the left side at X = (5, 18.5), t = 0.125; X lies beyond the
    // offset left side (from (5, 17) to (5, 5)) and keeps 5 from every input edge, so X is
    // entered on edges 2 and 0. At vertex 3 the mirror case gives t = -0.125 and nothing.
    // Sorted, the first record is X on edge 0; X sits past the edge's start and edge 0 - 2
    // wraps to 2, the partner's edge, so the walk starts dropped: it takes X, then (5, 5),
    // (23, 5) and X again, a loop split off as one triangle.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {38, 0}, {6, 24}, {0, 32}}), -5.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{5, 18.5}, {5, 5}, {23, 5}});
}

// The dart mirrored in the diagonal, with the corner at the origin chamfered by the edge from
// (0,4) to (4,0). Shrunk by 5 the chamfer's line is x + y = 4 + 5 * sqrt(2), so the ring is
// (5 sqrt2 - 1, 5), (17, 5), (143/7, 17/7), (5, 23), (5, 5 sqrt2 - 1); the edge from the tip
// (32,0) to the reflex vertex (24,6) has flipped.
TEST(RvPolygon2DGetExtend, FlippedEdgeBeforeAVertexIsBypassed) {
    // At vertex 2 the edge before has flipped and the edge after is kept. That edge, from
    // (143/7, 17/7) towards (5, 23), meets the line y = 5 of the bottom at X = (18.5, 5),
    // t = 0.125, beyond the offset bottom's end (17, 5): X goes on edges 3 and 1. Sorted, X on
    // edge 1 comes first, past that edge's end; 1 - 2 wraps to 4, not the partner's 3, so the
    // walk starts kept: the last and first vertices, X, then after X on edge 3 the vertex
    // (5, 23). The doubled X is dropped when the points are strung together.
    const double c = 5.0 * std::sqrt(2.0) - 1.0;
    std::vector<RvPolygon2D> result =
        Offset(Ring({{4, 0}, {32, 0}, {24, 6}, {0, 38}, {0, 4}}), -5.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{5, c}, {c, 5}, {18.5, 5}, {5, 23}});
}

TEST(RvPolygon2DGetExtend, BypassAtTheFirstVertexWrapsItsIndices) {
    // The same pentagon from the reflex vertex on: the flipped edge now ends at vertex 0, so the
    // previous indices wrap to 4 and 3 and X = (18.5, 5) is entered on edges 1 and 4 (0 - 1
    // wrapped). X lies inside edge 1 (from (143/7, 17/7) to (5, 23)); the unit vector from X
    // to that edge's end, (-0.6, 0.8), has -0.8 on the outer normal (0, -1) of the bottom, so the
    // walk starts dropped and keeps X, (5, 23), the chamfer's two corners, up to X on edge 4.
    const double c = 5.0 * std::sqrt(2.0) - 1.0;
    std::vector<RvPolygon2D> result =
        Offset(Ring({{24, 6}, {0, 38}, {0, 4}, {4, 0}, {32, 0}}), -5.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{18.5, 5}, {5, 23}, {5, c}, {c, 5}});
}

TEST(RvPolygon2DGetExtend, MirroredQuadrilateralDartKeepsTheLoopOfTheFlippedEdge) {
    // The mirrored dart without the chamfer: ring (5, 5), (17, 5), (143/7, 17/7), (5, 23), and
    // X = (18.5, 5) on edges 3 and 1 as above. With four vertices 1 - 2 wraps to 3, the
    // partner's edge, so the walk starts dropped and keeps the stretch from X through (17, 5)
    // and (143/7, 17/7) back to X: the loop of the flipped edge, which runs counterclockwise
    // inside the input and passes the filter.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {32, 0}, {24, 6}, {0, 38}}), -5.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{18.5, 5}, {17, 5}, {143.0 / 7.0, 17.0 / 7.0}});
}

TEST(RvPolygon2DGetExtend, BypassOntoTheFarEdgeItselfIsLeftToTheCrossing) {
    // Triangle (0,0), (24,0), apex (12,16), cut off at y = 14: top edge from (13.5,14) to
    // (10.5,14). Shrunk by 4.5 the lines are y = 4.5, 4x + 3y = 73.5, y = 9.5 and
    // 4x - 3y = 22.5: ring (9, 4.5), (15, 4.5), (11.25, 9.5), (12.75, 9.5), the top flipped.
    // Both bypass candidates are X = (12, 8.5), t = 0.2, which lies on the far side edge itself
    // ((raw[i-1] - X).(raw[i-2] - X) = -6.25), so neither is entered. The two sides cross at X
    // inside both and run forward there: that crossing cuts off the triangle. X lies inside
    // edge 0, and the unit vector (-0.6, -0.8) from X to its end has -0.96 on the outer normal
    // (0.8, 0.6) of edge 2, so the walk starts dropped.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {24, 0}, {13.5, 14}, {10.5, 14}}), -4.5);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{12, 8.5}, {9, 4.5}, {15, 4.5}});
}

TEST(RvPolygon2DGetExtend, BypassTooNearAnInputEdgeIsRefused) {
    // Square shrunk by 1 with the straight vertex (10, 9.5), which stays where it is: ring
    // (1,1), (9,1), (10,9.5), (9,9), (1,9). The edge from (10,9.5) to (9,9) has flipped. At
    // vertex 2 the edge back to (9,1) meets the top's line y = 9 at (9.94, 9), t = 1/17, beyond
    // the offset top; but that point is 0.06 from the right input edge, nearer than 1, so it is
    // refused. At vertex 3 the mirror case gives t = -0.125. No edges cross, no corner is
    // straight, and the ring lies inside the input running its way: it stays as it is.
    std::vector<RvPolygon2D> result =
        Offset(Ring({{0, 0}, {10, 0}, {10, 9.5}, {10, 10}, {0, 10}}), -1.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{1, 1}, {9, 1}, {10, 9.5}, {9, 9}, {1, 9}});
}

// ---- Crossing edges ------------------------------------------------------------------------

TEST(RvPolygon2DGetExtend, HourglassShrunkPastItsWaistSplitsInTwo) {
    // Hourglass (0,0), (24,0), (15,12), (24,24), (0,24), (9,12), sides along (3,4) and (-3,4).
    // Shrunk by 4 the lines are y = 4, 4x + 3y = 76, -4x + 3y = -4, y = 20, 4x + 3y = 92 and
    // 4x - 3y = 20: ring (8,4), (16,4), (10,12), (16,20), (8,20), (14,12). No edge flips. The
    // lower sides (edges 0 and 2) cross at A = (12, 28/3), the upper ones (3 and 5) at
    // B = (12, 44/3). A lies inside edge 0 and the unit vector (-0.6, -0.8) towards its end has
    // -0.96 on the outer normal (0.8, 0.6) of edge 2: the walk starts dropped, keeps A, (8,4),
    // (16,4), drops up to B, keeps B, (16,20), (8,20). Each stretch closes at its repeated
    // point and becomes a triangle of its own.
    std::vector<RvPolygon2D> result =
        Offset(Ring({{0, 0}, {24, 0}, {15, 12}, {24, 24}, {0, 24}, {9, 12}}), -4.0);
    ASSERT_EQ(result.size(), 2u);
    ExpectRing(result[0], {{12, 28.0 / 3.0}, {8, 4}, {16, 4}});
    ExpectRing(result[1], {{12, 44.0 / 3.0}, {16, 20}, {8, 20}});
}

TEST(RvPolygon2DGetExtend, SelfCrossingInputKeepsTheLobeThatRunsItsWay) {
    // The bow tie (0,0), (10,10), (10,0), (0,10) taken by 0: the ring is the input and edges 1
    // and 3 cross at (5,5). The unit vector from (5,5) to the end of edge 1 is (0.71, 0.71),
    // with 1 on the outer normal of edge 3: the walk starts kept, takes (0,10), (0,0), (5,5)
    // and drops the clockwise lobe up to the second record.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 0}, {10, 10}, {10, 0}, {0, 10}}), 0.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0, 10}, {0, 0}, {5, 5}});
}

TEST(RvPolygon2DGetExtend, CrossingOfFlippedEdgesIsNoCut) {
    // Trapezoid (0,3), (4,0), (9,0), (13,3), 3 high, shrunk by 3: lines y = 0 (top),
    // 3x + 4y = 27, y = 3 (bottom) and 3x - 4y = 12, ring (9,0), (5,3), (8,3), (4,0). Both
    // slanted edges have flipped and they cross at (6.5, 1.875); from there to their ends they
    // run against the input edges, so no cut is made (the bypasses meet parallel lines). The
    // ring is kept whole, crossing itself, its first lobe counterclockwise, its corners on the
    // input's boundary.
    std::vector<RvPolygon2D> result = Offset(Ring({{0, 3}, {4, 0}, {9, 0}, {13, 3}}), -3.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{9, 0}, {5, 3}, {8, 3}, {4, 0}});
}

// A 20 by 10 block with a tab 2 wide and 10 high on top, shrunk by 2: the tab's sides move
// past each other and the offset top of the block comes as two collinear edges on y = 8.

TEST(RvPolygon2DGetExtend, CollinearOverlapCutsAtTheEndOfTheEarlierEdge) {
    // Tab from x = 9 to 11. Ring (2,2), (18,2), (18,8), (9,8), (9,18), (11,18), (11,8), (2,8).
    // Edge 3 from (18,8) to (9,8) and edge 7 from (11,8) to (2,8) overlap; the end (9,8) of
    // edge 3 lies inside edge 7 and becomes the cut. It sits on a vertex, and 3 - 2 = 1 is not
    // 7: the walk starts kept and takes (2,8), (2,2), (18,2), (18,8), (9,8), dropping the tab.
    std::vector<RvPolygon2D> result = Offset(
        Ring({{0, 0}, {20, 0}, {20, 10}, {11, 10}, {11, 20}, {9, 20}, {9, 10}, {0, 10}}), -2.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{2, 8}, {2, 2}, {18, 2}, {18, 8}, {9, 8}});
}

TEST(RvPolygon2DGetExtend, CollinearOverlapFromInsideTheLaterEdgeIsNoCut) {
    // The same block started at (0,10): edge 0 from (11,8) to (2,8) now comes before edge 4
    // from (18,8) to (9,8). The start (11,8) of edge 0 lies inside edge 4, and that makes no
    // cut. The only cut is (9,8), where the tab's side (edge 5, from (9,8) up) reaches edge 0 at
    // t = 1. It lies inside edge 0, and the unit vector (-1, 0) towards that edge's end has -1 on
    // the outer normal (1, 0) of the tab's side: the walk starts dropped, then takes (9,8),
    // (2,8), (2,2), (18,2), (18,8) up to the second record. That stretch closes at (9,8) and
    // goes out as a loop; the last (9,8) is left alone as a polygon of one vertex, which the
    // filter keeps (it is not empty, lies inside and has no normal to turn against the input).
    std::vector<RvPolygon2D> result = Offset(
        Ring({{0, 10}, {0, 0}, {20, 0}, {20, 10}, {11, 10}, {11, 20}, {9, 20}, {9, 10}}), -2.0);
    ASSERT_EQ(result.size(), 2u);
    ExpectRing(result[0], {{9, 8}, {2, 8}, {2, 2}, {18, 2}, {18, 8}});
    ExpectRing(result[1], {{9, 8}});
}

TEST(RvPolygon2DGetExtend, CollinearOverlapCutsAtTheEndOfAContainedLaterEdge) {
    // Tab from x = 17 to 19, started at (17,10): ring (19,8), (2,8), (2,2), (18,2), (18,8),
    // (17,8), (17,18), (19,18). Edge 5 from (18,8) to (17,8) lies inside edge 1 from (19,8) to
    // (2,8): neither end of edge 1 lies inside edge 5, the end (17,8) of edge 5 lies inside
    // edge 1 and is the cut. The tab's side (edge 6) reaches edge 1 at the same point at t = 1,
    // a second cut there. Four records at (17,8): on edges 1, 1, 5 and 6. The first's partner is
    // the other record on edge 1, whose direction (-1, 0) has 0 on the outer normal (0, 1) of
    // that same edge: the walk starts dropped, and every stretch it keeps lies between records
    // at one point. Five times (17,8) in a row close one empty loop and leave one point.
    std::vector<RvPolygon2D> result = Offset(
        Ring({{17, 10}, {0, 10}, {0, 0}, {20, 0}, {20, 10}, {19, 10}, {19, 20}, {17, 20}}), -2.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{17, 8}});
}

TEST(RvPolygon2DGetExtend, CollinearOverlapCutsAtTheStartOfALaterEdgeSharingTheEnd) {
    // Tab from x = 2 to 4, two units from the block's left side: ring (2,2), (18,2), (18,8),
    // (2,8), (2,18), (4,18), (4,8), (2,8). Edge 7 from (4,8) to (2,8) lies inside edge 3 from
    // (18,8) to (2,8) and shares its end: no end of edge 3 lies strictly inside edge 7, nor the
    // end of edge 7 inside edge 3, but its start (4,8) does, and is the cut. It lies inside
    // edge 3, and the unit vector (-1, 0) towards that edge's end has 0 on the outer normal
    // (0, 1) of edge 7: the walk starts dropped and keeps (4,8), (2,8), (2,18), (4,18) up to the
    // second record. That loop runs clockwise and the filter drops it; the last (4,8) stays as
    // a polygon of one vertex.
    std::vector<RvPolygon2D> result = Offset(
        Ring({{0, 0}, {20, 0}, {20, 10}, {4, 10}, {4, 20}, {2, 20}, {2, 10}, {0, 10}}), -2.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{4, 8}});
}

// ---- Cleaning when nothing is cut ------------------------------------------------------------

TEST(RvPolygon2DGetExtend, FoldedAndNullEdgeVerticesAreRemovedWithoutLookingBack) {
    // The square with a needle from (10,3) to (20,3) and back, taken by 0: the ring is the
    // input. The tip folds (both arms point to (10,3)) and is removed; the second (10,3) then
    // follows the first with a null edge and is removed too. The first (10,3), now straight
    // between (10,0) and (10,10), was judged before and is not looked at again.
    std::vector<RvPolygon2D> result =
        Offset(Ring({{0, 0}, {10, 0}, {10, 3}, {20, 3}, {10, 3}, {10, 10}, {0, 10}}), 0.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0, 0}, {10, 0}, {10, 3}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DGetExtend, AfterRemovingVertexZeroTheLastVertexPrecedesTheNewFirst) {
    // Square with (0,0) given twice, taken by 0: both copies land on (0,0). Vertex 0 has a null
    // edge to vertex 1 and is removed. The new vertex 0 is judged against the last vertex
    // (0,10), a right angle, and stays; judged against the removed copy it would have had a
    // null edge as well.
    std::vector<RvPolygon2D> result =
        Offset(Ring({{0, 0}, {0, 0}, {10, 0}, {10, 10}, {0, 10}}), 0.0);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// ---- Ordering, walking and collecting ----------------------------------------------------------

// A block 10 (dents + 1) wide and 10 high with `dents` V-shaped dents from its top: dent q has
// its tip at (10q, 6) and its rim at (10q + 3, 10) and (10q - 3, 10).
RvPolygon2D DentedBlock(int dents) {
    const double width = 10.0 * (dents + 1);
    RvPolygon2D p;
    p.push_back(RvPoint2D(0, 0));
    p.push_back(RvPoint2D(width, 0));
    p.push_back(RvPoint2D(width, 10));
    for (int q = dents; q >= 1; --q) {
        p.push_back(RvPoint2D(10.0 * q + 3, 10));
        p.push_back(RvPoint2D(10.0 * q, 6));
        p.push_back(RvPoint2D(10.0 * q - 3, 10));
    }
    p.push_back(RvPoint2D(0, 10));
    return p;
}

TEST(RvPolygon2DGetExtend, CutsOnOneEdgeAreWalkedFromItsStart) {
    // Two dents shrunk by 3. The dent walls move to 4x - 3y = 37 + 40(q - 1) and
    // 4x + 3y = 43 + 40(q - 1); their offset tips (10q, 1) fall below the offset bottom y = 3,
    // which the walls cross at 10q - 1.5 and 10q + 1.5. All four cuts lie on edge 1, from (3,3)
    // to (27,3), and are entered from its end backwards; ordered from the edge's start they
    // run 8.5, 11.5, 18.5, 21.5. The first lies inside edge 1 and the way on, (1, 0), has 0.8 on
    // the outer normal of its partner's wall: the walk starts kept. Along edge 1 it strings all
    // four points, then the right end of the block, then the points again in reverse between
    // the pieces of the top. The repeats nest: the right piece closes first (four vertices);
    // the middle piece comes next, without (18.5, 3), which its inner loop took and stepped
    // over; the loop at 18.5 itself is a single point, emptied when its closing point is
    // dropped, and the filter removes it. The left piece stays in the walk's own polygon and
    // comes last.
    std::vector<RvPolygon2D> result = Offset(DentedBlock(2), -3.0);
    ASSERT_EQ(result.size(), 3u);
    ExpectRing(result[0], {{21.5, 3}, {27, 3}, {27, 7}, {24.5, 7}});
    ExpectRing(result[1], {{11.5, 3}, {15.5, 7}, {14.5, 7}});
    ExpectRing(result[2], {{3, 7}, {3, 3}, {8.5, 3}, {5.5, 7}});
}

TEST(RvPolygon2DGetExtend, HundredsOfDentsNestDeeplyOnASmallStack) {
    // The same with 600 dents: the walk strings 2400 cut points whose repeats nest 1200 deep.
    // The pieces come out as above: the rightmost first, then the middle ones from right to
    // left, each without its lower right corner, then the leftmost.
    constexpr int kDents = 600;
    std::vector<RvPolygon2D> result;
    auto body = [&result] { DentedBlock(kDents).GetExtend(-3.0, result); };
    RunOnSmallStack(body);
    ASSERT_EQ(result.size(), static_cast<std::size_t>(kDents + 1));
    const double right = 10.0 * kDents;
    ExpectRing(result[0], {{right + 1.5, 3}, {right + 7, 3}, {right + 7, 7}, {right + 4.5, 7}});
    for (int q = kDents - 1; q >= 1; --q) {
        const RvPolygon2D& piece = result[static_cast<std::size_t>(kDents - q)];
        ExpectRing(piece, {{10.0 * q + 1.5, 3}, {10.0 * q + 5.5, 7}, {10.0 * q + 4.5, 7}}, 1e-8);
        if (HasFailure()) {
            break;
        }
    }
    ExpectRing(result[kDents], {{3, 7}, {3, 3}, {8.5, 3}, {5.5, 7}});
}

// ---- The loop walk ---------------------------------------------------------------------------

// The walk as a plain recursion, for comparison.
void RecursiveLoops(RvPolygon2D& acc, RvPolygon2D::iterator& cursor, RvPolygon2D::iterator end,
                    std::vector<RvPolygon2D>& result, bool top) {
    RvPolygon2D inner;
    while (cursor != end) {
        RvPolygon2D::iterator found = cursor + 1;
        if (found != end) {
            ++found;
        }
        while (found != end && !(*found == *cursor)) {
            ++found;
        }
        if (found == end) {
            acc.AddPolygonPoint(*cursor);
        } else if (top && !acc.empty()) {
            RecursiveLoops(acc, cursor, found, result, false);
        } else {
            inner.clear();
            RecursiveLoops(inner, cursor, found, result, false);
            if (!inner.empty() && inner[0] == inner[inner.size() - 1]) {
                inner.pop_back();
            }
            result.push_back(inner);
        }
        ++cursor;
    }
}

// Six points, no three of them on one line.
RvPoint2D LoopPoint(int k) {
    static const double xs[] = {0, 10, 3, -7, 5, 12};
    static const double ys[] = {0, 1, 9, 4, -6, 13};
    return RvPoint2D(xs[k], ys[k]);
}

struct LoopRun {
    RvPolygon2D acc;
    std::vector<RvPolygon2D> result;
    std::ptrdiff_t stop = -1;
};

// Walks `points` (indices into LoopPoint) from the start, into an `acc` that holds `seed` first.
template <class Walk>
LoopRun WalkLoops(const std::vector<int>& points, bool top, bool seed, Walk walk) {
    RvPolygon2D sequence;
    for (const int k : points) {
        sequence.push_back(LoopPoint(k));
    }
    LoopRun run;
    if (seed) {
        run.acc.push_back(RvPoint2D(-20, -20));
    }
    RvPolygon2D::iterator cursor = sequence.begin();
    walk(run.acc, cursor, sequence.end(), run.result, top);
    run.stop = cursor - sequence.begin();
    return run;
}

LoopRun Collect(const std::vector<int>& points, bool top, bool seed = false) {
    return WalkLoops(points, top, seed, RvPolygon2DTestAccess::CollectLoops);
}

void ExpectLoopPoints(const RvPolygon2D& p, const std::vector<int>& points) {
    ASSERT_EQ(p.size(), points.size());
    for (std::size_t k = 0; k < points.size(); ++k) {
        EXPECT_TRUE(SameVertices(Ring({p[k]}), Ring({LoopPoint(points[k])}))) << "vertex " << k;
    }
}

TEST(RvPolygon2DCollectLoops, PointsWithoutRepeatsStayInTheWalksPolygon) {
    LoopRun run = Collect({0, 1, 2, 3}, true);
    EXPECT_EQ(run.stop, 4);
    EXPECT_TRUE(run.result.empty());
    ExpectLoopPoints(run.acc, {0, 1, 2, 3});
}

TEST(RvPolygon2DCollectLoops, LoopOpenedOnAnEmptyPolygonGoesOut) {
    // 0 repeats at position 3: positions 0 to 2 form a loop of their own; the repeat is stepped
    // over and 4 stays.
    LoopRun run = Collect({0, 1, 2, 0, 4}, true);
    EXPECT_EQ(run.stop, 5);
    ASSERT_EQ(run.result.size(), 1u);
    ExpectLoopPoints(run.result[0], {0, 1, 2});
    ExpectLoopPoints(run.acc, {4});
}

TEST(RvPolygon2DCollectLoops, LoopOpenedAtTheTopOnAFilledPolygonStaysInIt) {
    LoopRun run = Collect({5, 0, 1, 2, 0, 4}, true);
    EXPECT_TRUE(run.result.empty());
    ExpectLoopPoints(run.acc, {5, 0, 1, 2, 4});
}

TEST(RvPolygon2DCollectLoops, BelowTheTopEveryLoopGoesOut) {
    LoopRun run = Collect({5, 0, 1, 2, 0, 4}, false);
    ASSERT_EQ(run.result.size(), 1u);
    ExpectLoopPoints(run.result[0], {0, 1, 2});
    ExpectLoopPoints(run.acc, {5, 4});
}

TEST(RvPolygon2DCollectLoops, PointRepeatedAtOnceClosesNoLoop) {
    // The second 0 is not searched from the first; as a point it is a duplicate and is dropped.
    LoopRun run = Collect({0, 0, 1}, true);
    EXPECT_TRUE(run.result.empty());
    ExpectLoopPoints(run.acc, {0, 1});
}

TEST(RvPolygon2DCollectLoops, InnerLoopsComeFirstAndKeepTheirSharedPoint) {
    // 0 opens at position 0 and closes at 6; inside it, 1 opens at 1 and closes at 4. The inner
    // loop 1, 2, 3 goes out first; the outer one gets 0 and 4, not the 1 its inner loop took.
    LoopRun run = Collect({0, 1, 2, 3, 1, 4, 0, 5}, true);
    ASSERT_EQ(run.result.size(), 2u);
    ExpectLoopPoints(run.result[0], {1, 2, 3});
    ExpectLoopPoints(run.result[1], {0, 4});
    ExpectLoopPoints(run.acc, {5});
}

TEST(RvPolygon2DCollectLoops, LoopOfOnePointIsEmptied) {
    // 0, 0, 0: the first 0 finds its repeat at position 2. The loop holds 0 and a dropped
    // duplicate; its only vertex is first and last at once and is removed, so an empty polygon
    // goes out. The repeat at position 2 is stepped over and nothing stays.
    LoopRun run = Collect({0, 0, 0}, true);
    EXPECT_EQ(run.stop, 3);
    ASSERT_EQ(run.result.size(), 1u);
    EXPECT_TRUE(run.result[0].empty());
    EXPECT_TRUE(run.acc.empty());
}

TEST(RvPolygon2DCollectLoops, PointsWithinTheToleranceCountAsRepeats) {
    RvPolygon2D sequence = Ring({{0, 0}, {10, 1}, {3, 9}, {0.005, -0.005}, {5, -6}});
    RvPolygon2D acc;
    std::vector<RvPolygon2D> result;
    RvPolygon2D::iterator cursor = sequence.begin();
    RvPolygon2DTestAccess::CollectLoops(acc, cursor, sequence.end(), result, true);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {{0, 0}, {10, 1}, {3, 9}});
    ExpectRing(acc, {{5, -6}});
}

TEST(RvPolygon2DCollectLoops, EmptyRangeChangesNothing) {
    LoopRun run = Collect({}, true, true);
    EXPECT_EQ(run.stop, 0);
    EXPECT_TRUE(run.result.empty());
    ASSERT_EQ(run.acc.size(), 1u);
}

TEST(RvPolygon2DCollectLoops, MatchesTheRecursiveWalk) {
    // Pseudo-random sequences over six points, short enough for the recursion.
    std::uint32_t state = 12345;
    auto next = [&state](std::uint32_t bound) {
        state = state * 1664525u + 1013904223u;
        return static_cast<int>((state >> 8) % bound);
    };
    for (int round = 0; round < 3000; ++round) {
        std::vector<int> points;
        const int length = next(25);
        for (int k = 0; k < length; ++k) {
            points.push_back(next(6));
        }
        const bool top = next(4) != 0;
        const bool seed = next(2) != 0;
        LoopRun got = Collect(points, top, seed);
        LoopRun want = WalkLoops(points, top, seed, RecursiveLoops);
        ASSERT_EQ(got.stop, want.stop) << "round " << round;
        ASSERT_TRUE(SameVertices(got.acc, want.acc)) << "round " << round;
        ASSERT_EQ(got.result.size(), want.result.size()) << "round " << round;
        for (std::size_t k = 0; k < got.result.size(); ++k) {
            ASSERT_TRUE(SameVertices(got.result[k], want.result[k]))
                << "round " << round << ", polygon " << k;
        }
    }
}

TEST(RvPolygon2DCollectLoops, DeepNestingRunsOnASmallStack) {
    // Level m (from 0) opens at A_m and closes at its repeat, after the deeper levels: the
    // sequence is A_0 B_0 ... A_{k-1} B_{k-1} C, then A_{k-1} D_{k-1} A_{k-2} D_{k-2} ... A_0 D_0.
    // The innermost loop is A_{k-1} B_{k-1} C; each level above holds A_m B_m and the D that
    // follows the repeat closing the level below; D_0 stays in the walk's polygon.
    constexpr int kDepth = 5000;
    auto a = [](int m) { return RvPoint2D(10.0 * m, 0); };
    auto b = [](int m) { return RvPoint2D(10.0 * m + 3, 5); };
    auto d = [](int m) { return RvPoint2D(10.0 * m + 5, -5); };
    const RvPoint2D c(10.0 * kDepth, 20);
    RvPolygon2D sequence;
    for (int m = 0; m < kDepth; ++m) {
        sequence.push_back(a(m));
        sequence.push_back(b(m));
    }
    sequence.push_back(c);
    for (int m = kDepth - 1; m >= 0; --m) {
        sequence.push_back(a(m));
        sequence.push_back(d(m));
    }
    RvPolygon2D acc;
    std::vector<RvPolygon2D> result;
    std::ptrdiff_t stop = -1;
    auto body = [&] {
        RvPolygon2D::iterator cursor = sequence.begin();
        RvPolygon2DTestAccess::CollectLoops(acc, cursor, sequence.end(), result, true);
        stop = cursor - sequence.begin();
    };
    RunOnSmallStack(body);
    EXPECT_EQ(stop, static_cast<std::ptrdiff_t>(sequence.size()));
    ASSERT_EQ(result.size(), static_cast<std::size_t>(kDepth));
    EXPECT_TRUE(SameVertices(result[0], Ring({a(kDepth - 1), b(kDepth - 1), c})));
    for (int m = kDepth - 2; m >= 0; --m) {
        const RvPolygon2D& loop = result[static_cast<std::size_t>(kDepth - 1 - m)];
        ASSERT_TRUE(SameVertices(loop, Ring({a(m), b(m), d(m + 1)}))) << "level " << m;
    }
    EXPECT_TRUE(SameVertices(acc, Ring({d(0)})));
}

}  // namespace
}  // namespace ravelin
