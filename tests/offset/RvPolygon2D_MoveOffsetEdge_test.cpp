#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"
#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private steps of the per-edge offsets.
struct RvPolygon2DTestAccess {
    static std::map<int, RvPoint3D> CopyOffsetRing(RvPolygon2D& work, const RvPolygon2D& source,
                                                   const RvPoint3D& normal) {
        return work.CopyOffsetRing(source, normal);
    }
    static void FillEdgeIndices(const RvPolygon2D& ring, std::vector<int>& edgeIndices) {
        ring.FillEdgeIndices(edgeIndices);
    }
    static void MoveOffsetEdges(RvPolygon2D& ring, std::map<int, RvPoint3D>& edgeDirections,
                                std::vector<double>& distances, std::vector<int>& edgeIndices,
                                const RvPoint3D& normal, bool useEx2, bool chain) {
        ring.MoveOffsetEdges(edgeDirections, distances, edgeIndices, normal, useEx2, chain);
    }
    static bool MoveOffsetEdge(RvPolygon2D& ring, int edge,
                               std::map<int, RvPoint3D>& edgeDirections,
                               std::vector<double>& distances, const RvPoint3D& normal,
                               RvPoint2D* before, RvPoint2D* after, bool limited) {
        return ring.MoveOffsetEdge(edge, edgeDirections, distances, normal, before, after, limited);
    }
    static bool MoveOffsetEdge2(RvPolygon2D& ring, int edge,
                                std::map<int, RvPoint3D>& edgeDirections,
                                std::vector<double>& distances, std::vector<int>& edgeIndices,
                                const RvPoint3D& normal, RvPoint2D* before, RvPoint2D* after) {
        return ring.MoveOffsetEdge2(edge, edgeDirections, distances, edgeIndices, normal, before,
                                    after);
    }
    static void FindEdgeCrossings(const RvPolygon2D& ring, std::size_t position,
                                  const std::vector<int>& edgeIndices, const RvPoint3D& normal,
                                  SplitNodes& nodes, std::vector<SplitNode*>& edgeNodes) {
        ring.FindEdgeCrossings(position, edgeIndices, normal, nodes, edgeNodes);
    }
    static void TraceOffsetGraph(const RvPolygon2D& ring, const std::vector<int>& edgeIndices,
                                 const RvPoint3D& normal, std::vector<RvPolygon2D>& result) {
        ring.TraceOffsetGraph(edgeIndices, normal, result);
    }
    static void TraceOffsetLoops(SplitNode* start, std::vector<RvPolygon2D>& result) {
        RvPolygon2D::TraceOffsetLoops(start, result);
    }
};

namespace {

using Access = RvPolygon2DTestAccess;
using testing_support::ExpectVerticesNear;
using testing_support::ExpectXyzNear;
using testing_support::Ring;
using testing_support::SameVertices;

// The normal of a counterclockwise ring in z = 0, and of a clockwise one.
const RvPoint3D kUp(0, 0, 1);
const RvPoint3D kDown(0, 0, -1);

// Half the diagonal of the unit square: the coordinates of a unit vector at 45 degrees.
const double kH = std::sqrt(0.5);

RvPolygon2D Square() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// Vertex `i` of `ring`, brought round the ring.
RvPoint2D* VertexPtr(RvPolygon2D& ring, int i) {
    const int n = static_cast<int>(ring.size());
    return &ring[static_cast<std::size_t>(((i % n) + n) % n)];
}

// The entry of `directions` for `edge` is the unit vector (x, y, 0).
void ExpectDirection(const std::map<int, RvPoint3D>& directions, int edge, double x, double y) {
    SCOPED_TRACE("edge " + std::to_string(edge));
    const auto found = directions.find(edge);
    ASSERT_NE(found, directions.end());
    ExpectXyzNear(found->second, x, y, 0.0, 1e-12);
}

// The keys of `directions`, in order.
std::vector<int> KeysOf(const std::map<int, RvPoint3D>& directions) {
    std::vector<int> keys;
    for (const auto& entry : directions) {
        keys.push_back(entry.first);
    }
    return keys;
}

// Moves `edge` of `ring` by its entry of `distances` with the walk bounds of an edge among all
// edges of the ring: the start of the previous edge and the end of the next one.
bool MoveAmongAll(RvPolygon2D& ring, int edge, std::map<int, RvPoint3D>& directions,
                  std::vector<double>& distances, bool limited) {
    return Access::MoveOffsetEdge(ring, edge, directions, distances, kUp, VertexPtr(ring, edge - 2),
                                  VertexPtr(ring, edge + 1), limited);
}

// Runs the moving passes over every edge of `work`, as the offsets do.
void RunPasses(RvPolygon2D& work, std::map<int, RvPoint3D>& directions,
               std::vector<double>& distances, bool useEx2, bool chain) {
    std::vector<int> edgeIndices;
    Access::FillEdgeIndices(work, edgeIndices);
    Access::MoveOffsetEdges(work, directions, distances, edgeIndices, kUp, useEx2, chain);
}

// ---- CopyOffsetRing ---------------------------------------------------------------------------

TEST(RvPolygon2DCopyOffsetRing, CounterclockwiseSquareGetsUnitOuterNormals) {
    RvPolygon2D work;
    const std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
    ExpectVerticesNear(work, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_EQ(KeysOf(directions), (std::vector<int>{0, 1, 2, 3}));
    // Entry i is the edge ending at vertex i: the closing edge down the left side, then the
    // bottom, the right side and the top.
    ExpectDirection(directions, 0, -1, 0);
    ExpectDirection(directions, 1, 0, -1);
    ExpectDirection(directions, 2, 1, 0);
    ExpectDirection(directions, 3, 0, 1);
}

TEST(RvPolygon2DCopyOffsetRing, DropsDoubledAndCollinearVerticesWithOneEntryPerVertex) {
    // (5, 0) lies on the bottom edge, and (10, 0.005) doubles (10, 0) within 0.01.
    const RvPolygon2D source = Ring({{0, 0}, {5, 0}, {10, 0}, {10, 0.005}, {10, 10}, {0, 10}});
    RvPolygon2D work;
    const std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, source, kUp);
    ExpectVerticesNear(work, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_EQ(KeysOf(directions), (std::vector<int>{0, 1, 2, 3}));
    ExpectDirection(directions, 0, -1, 0);
    ExpectDirection(directions, 1, 0, -1);
    ExpectDirection(directions, 2, 1, 0);
    ExpectDirection(directions, 3, 0, 1);
}

TEST(RvPolygon2DCopyOffsetRing, SpikeThatFoldsBackLeavesWithItsEdge) {
    // A spike out to (15, 5) and straight back: the fold takes its tip away, and the rest of
    // the right side joins up into one straight edge.
    const RvPolygon2D source =
        Ring({{0, 0}, {10, 0}, {10, 5}, {15, 5}, {10, 5}, {10, 10}, {0, 10}});
    RvPolygon2D work;
    const std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, source, kUp);
    ExpectVerticesNear(work, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_EQ(KeysOf(directions), (std::vector<int>{0, 1, 2, 3}));
    ExpectDirection(directions, 2, 1, 0);
    ExpectDirection(directions, 3, 0, 1);
}

TEST(RvPolygon2DCopyOffsetRing, SkipsVertexWithNullBackwardVectorOfClosedRing) {
    // Stored closed: vertex 0 repeats the last vertex, so its backward vector is null and the
    // copy starts at (10, 0). The keys follow the copy, not the source.
    const RvPolygon2D source = Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    RvPolygon2D work;
    const std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, source, kUp);
    ExpectVerticesNear(work, {{10, 0}, {10, 10}, {0, 10}, {0, 0}});
    EXPECT_EQ(KeysOf(directions), (std::vector<int>{0, 1, 2, 3}));
    ExpectDirection(directions, 0, 0, -1);
    ExpectDirection(directions, 1, 1, 0);
    ExpectDirection(directions, 2, 0, 1);
    ExpectDirection(directions, 3, -1, 0);
}

TEST(RvPolygon2DCopyOffsetRing, StraightVertexAtTheSeamIsDropped) {
    // AddPolygonPoint judges a vertex by the ones before it only: a straight vertex 0, or a
    // straight last vertex, is left for the seam cleaning, which drops it. The edge that loses
    // its start keeps the same line's direction; after a dropped vertex 0 the keys fall by one.
    {
        RvPolygon2D work;
        const std::map<int, RvPoint3D> directions =
            Access::CopyOffsetRing(work, Ring({{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}), kUp);
        ExpectVerticesNear(work, {{10, 0}, {10, 10}, {0, 10}, {0, 0}});
        EXPECT_EQ(KeysOf(directions), (std::vector<int>{0, 1, 2, 3}));
        ExpectDirection(directions, 0, 0, -1);
        ExpectDirection(directions, 1, 1, 0);
        ExpectDirection(directions, 3, -1, 0);
    }
    {
        RvPolygon2D work;
        const std::map<int, RvPoint3D> directions =
            Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}}), kUp);
        ExpectVerticesNear(work, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
        EXPECT_EQ(KeysOf(directions), (std::vector<int>{0, 1, 2, 3}));
        ExpectDirection(directions, 0, -1, 0);
    }
}

TEST(RvPolygon2DCopyOffsetRing, FoldPastTheVertexBeforeTakesTheReversedEdgesNormal) {
    // (10, -5) runs back down the right side past (10, 0): AddPolygonPoint puts it in place of
    // (10, 10), and the edge from (10, 0) now runs down, its outer normal pointing to -x.
    RvPolygon2D work;
    const std::map<int, RvPoint3D> directions =
        Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {10, 10}, {10, -5}, {-5, -5}}), kUp);
    ASSERT_GE(work.size(), 3u);
    testing_support::ExpectPlanarNear(work[2], 10, -5, 1e-12);
    ExpectDirection(directions, 2, -1, 0);
}

TEST(RvPolygon2DCopyOffsetRing, ClockwiseRingWithItsOwnNormalGetsOutwardNormals) {
    const RvPolygon2D source = Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
    ExpectXyzNear(source.GetNormalVector(), 0, 0, -1, 1e-12);
    RvPolygon2D work;
    const std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, source, kDown);
    EXPECT_EQ(KeysOf(directions), (std::vector<int>{0, 1, 2, 3}));
    // The closing edge runs along the bottom, then the left side, the top and the right side.
    ExpectDirection(directions, 0, 0, -1);
    ExpectDirection(directions, 1, -1, 0);
    ExpectDirection(directions, 2, 0, 1);
    ExpectDirection(directions, 3, 1, 0);
}

// ---- FillEdgeIndices --------------------------------------------------------------------------

TEST(RvPolygon2DFillEdgeIndices, OverwritesWithEveryVertexIndexInOrder) {
    const RvPolygon2D pentagon = Ring({{0, 0}, {10, 0}, {12, 6}, {5, 10}, {-2, 6}});
    std::vector<int> edgeIndices{7, 7, 7};
    Access::FillEdgeIndices(pentagon, edgeIndices);
    EXPECT_EQ(edgeIndices, (std::vector<int>{0, 1, 2, 3, 4}));

    std::vector<int> emptied{3, 1};
    Access::FillEdgeIndices(RvPolygon2D(), emptied);
    EXPECT_TRUE(emptied.empty());
}

// ---- MoveOffsetEdge ---------------------------------------------------------------------------

TEST(RvPolygon2DMoveOffsetEdge, UnlimitedMoveOnSquareTakesTheWholeDistance) {
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
    std::vector<double> distances{0, 2, 0, 0};
    EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, false));
    // The bottom edge moves down by 2, its ends sliding down the two sides.
    ExpectVerticesNear(work, {{0, -2}, {10, -2}, {10, 10}, {0, 10}});
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
    EXPECT_NEAR(distances[0], 0.0, 0.0);
}

TEST(RvPolygon2DMoveOffsetEdge, EndsSlideAlongSlantedNeighbourLines) {
    // Legs of slope 4/3: moving the base down by 2 takes each end 1.5 outward along its leg.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions =
        Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {7, 4}, {3, 4}}), kUp);
    std::vector<double> distances{0, 2, 0, 0};
    EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, true));
    ExpectVerticesNear(work, {{-1.5, -2}, {11.5, -2}, {7, 4}, {3, 4}});
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
}

TEST(RvPolygon2DMoveOffsetEdge, UnlimitedMoveRunsPastShrinkingNeighbours) {
    // Inward by 10: the legs are 5 long and their lines meet at height 20/3, yet without the
    // limits the base goes all the way, its ends running along the legs' lines and crossing.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions =
        Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {7, 4}, {3, 4}}), kUp);
    std::vector<double> distances{0, -10, 0, 0};
    EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, false));
    ExpectVerticesNear(work, {{7.5, 10}, {2.5, 10}, {7, 4}, {3, 4}});
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
}

TEST(RvPolygon2DMoveOffsetEdge, ShrinkingNeighbourAtStartStopsWhereItVanishes) {
    // The bottom edge 2 moves up by 5. Its start slides up the left neighbour, which is 2 long
    // (d·c1 = -5 < 0: it shrinks); its end slides along the edge going down and to the right,
    // which grows (d·c2 < 0). The move stops after 2, where the neighbour is gone.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(
        work, Ring({{0, 2}, {0, 0}, {10, 0}, {14, -4}, {14, 10}, {-4, 10}, {-4, 2}}), kUp);
    ASSERT_EQ(work.size(), 7u);
    std::vector<double> distances(7, 0.0);
    distances[2] = -5;
    EXPECT_TRUE(MoveAmongAll(work, 2, directions, distances, true));
    ExpectVerticesNear(work, {{0, 2}, {0, 2}, {8, 2}, {14, -4}, {14, 10}, {-4, 10}, {-4, 2}}, 1e-9);
    EXPECT_NEAR(distances[2], -3.0, 1e-9);
}

TEST(RvPolygon2DMoveOffsetEdge, ShrinkingNeighbourAtEndStopsWhereItVanishes) {
    // The mirror image: the end slides up a right neighbour 2 long (d·c2 = 5 > 0: it shrinks),
    // the start along an edge coming up from the lower left, which grows (d·c1 > 0).
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(
        work, Ring({{-4, -4}, {0, 0}, {10, 0}, {10, 2}, {14, 2}, {14, 10}, {-4, 10}}), kUp);
    ASSERT_EQ(work.size(), 7u);
    std::vector<double> distances(7, 0.0);
    distances[2] = -5;
    EXPECT_TRUE(MoveAmongAll(work, 2, directions, distances, true));
    ExpectVerticesNear(work, {{-4, -4}, {2, 2}, {10, 2}, {10, 2}, {14, 2}, {14, 10}, {-4, 10}},
                       1e-9);
    EXPECT_NEAR(distances[2], -3.0, 1e-9);
}

TEST(RvPolygon2DMoveOffsetEdge, TrapezoidLegsStopTheBaseAtTheTopEdge) {
    // Both legs (5 long, c = ±0.8) shrink as the base moves up by 6: each allows 5 · 0.8 = 4,
    // below the height 20/3 at which the legs' lines meet. The base stops on the top edge.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions =
        Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {7, 4}, {3, 4}}), kUp);
    std::vector<double> distances{0, -6, 0, 0};
    EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, true));
    ExpectVerticesNear(work, {{3, 4}, {7, 4}, {7, 4}, {3, 4}}, 1e-9);
    EXPECT_NEAR(distances[1], -2.0, 1e-9);
}

TEST(RvPolygon2DMoveOffsetEdge, MeetingPointOfNeighbourLinesStopsTheMove) {
    // The neighbours of the bottom edge cross each other at (5, 5), before either has run out
    // (each allows 11.31 · 0.707 = 8): moving up by 8 stops at height 5, both ends on (5, 5).
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions =
        Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {2, 8}, {8, 8}}), kUp);
    ASSERT_EQ(work.size(), 4u);
    std::vector<double> distances{0, -8, 0, 0};
    EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, true));
    ExpectVerticesNear(work, {{5, 5}, {5, 5}, {2, 8}, {8, 8}}, 1e-9);
    EXPECT_NEAR(distances[1], -3.0, 1e-9);
}

TEST(RvPolygon2DMoveOffsetEdge, MeetingPointBehindTheEdgeDoesNotHoldItBack) {
    // The top of the trapezoid (0,0), (10,0), (7,4), (3,4) moves down by 3. Both legs shrink
    // (each allows 5 · 0.8 = 4), and their lines meet at (5, 6.67), above the top: behind the
    // move, so no limit. The ends slide 3.75 down the legs.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions =
        Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {7, 4}, {3, 4}}), kUp);
    std::vector<double> distances{0, 0, 0, -3};
    EXPECT_TRUE(MoveAmongAll(work, 3, directions, distances, true));
    ExpectVerticesNear(work, {{0, 0}, {10, 0}, {9.25, 1}, {0.75, 1}}, 1e-9);
    EXPECT_NEAR(distances[3], 0.0, 1e-12);
}

TEST(RvPolygon2DMoveOffsetEdge, ParallelNeighboursGiveNoMeetingLimit) {
    // A 10 x 4 rectangle: the sides never meet, so only their length of 4 limits the bottom.
    const RvPolygon2D rectangle = Ring({{0, 0}, {10, 0}, {10, 4}, {0, 4}});
    {
        RvPolygon2D work;
        std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, rectangle, kUp);
        std::vector<double> distances{0, -3, 0, 0};
        EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, true));
        ExpectVerticesNear(work, {{0, 3}, {10, 3}, {10, 4}, {0, 4}});
        EXPECT_NEAR(distances[1], 0.0, 1e-12);
    }
    {
        RvPolygon2D work;
        std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, rectangle, kUp);
        std::vector<double> distances{0, -5, 0, 0};
        EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, true));
        ExpectVerticesNear(work, {{0, 4}, {10, 4}, {10, 4}, {0, 4}});
        EXPECT_NEAR(distances[1], -1.0, 1e-12);
    }
}

TEST(RvPolygon2DMoveOffsetEdge, GrowingNeighboursGiveNoLimit) {
    // Outward by 20, twice the sides' length: growing neighbours never hold the edge back.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
    std::vector<double> distances{0, 20, 0, 0};
    EXPECT_TRUE(MoveAmongAll(work, 1, directions, distances, true));
    ExpectVerticesNear(work, {{0, -20}, {10, -20}, {10, 10}, {0, 10}});
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
}

TEST(RvPolygon2DMoveOffsetEdge, EdgeMissingFromTheMapMovesNothing) {
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
    directions.erase(1);
    const RvPolygon2D unmoved = work;
    std::vector<double> distances{0, 2, 0, 0};
    for (const bool limited : {true, false}) {
        SCOPED_TRACE(limited ? "limited" : "unlimited");
        EXPECT_FALSE(MoveAmongAll(work, 1, directions, distances, limited));
        EXPECT_TRUE(SameVertices(work, unmoved));
        EXPECT_NEAR(distances[1], 2.0, 0.0);
    }
}

TEST(RvPolygon2DMoveOffsetEdge, NullDirectionMovesNothing) {
    int checked = 0;
    // The edge's own direction, and each neighbour's.
    for (const int nulled : {1, 0, 2}) {
        SCOPED_TRACE("null entry " + std::to_string(nulled));
        RvPolygon2D work;
        std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
        directions[nulled] = RvPoint3D(0, 0, 0);
        const RvPolygon2D unmoved = work;
        std::vector<double> distances{0, 2, 0, 0};
        EXPECT_FALSE(MoveAmongAll(work, 1, directions, distances, false));
        EXPECT_TRUE(SameVertices(work, unmoved));
        EXPECT_NEAR(distances[1], 2.0, 0.0);
        ++checked;
    }
    EXPECT_EQ(checked, 3);
}

// A square whose vertex 0 sits on the bottom edge, dented up by 1e-06, so edges 0 and 1 turn by
// only 4e-07 at it. CopyOffsetRing would drop that vertex as straight, so the tests take the
// ring as it stands, with the unit outer normal of each edge worked out here: the edge ending
// at vertex i runs from vertex i - 1, and its outer normal is the backward vector turned by the
// up normal.
RvPolygon2D DentedSquare() {
    return Ring({{5, 1e-06}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
}

std::map<int, RvPoint3D> DentedSquareAsItStands(RvPolygon2D& work) {
    work = DentedSquare();
    std::map<int, RvPoint3D> directions;
    for (int i = 0; i < static_cast<int>(work.size()); ++i) {
        const RvPoint3D& vertex = work[static_cast<std::size_t>(i)];
        RvPoint3D back = static_cast<const RvPoint3D&>(*work.GetPrevPoint(i)) - vertex;
        back.Normalize();
        directions[i] = kUp.GetVektorovySucin(back);
    }
    return directions;
}

TEST(RvPolygon2DMoveOffsetEdge, ShrinkingStartNeighbourAlongTheEdgeMovesNothing) {
    // Edge 1 moves out by 1. Its start's neighbour, edge 0, runs along it (|c1| = 4e-07) and
    // shrinks (d·c1 < 0): the start cannot slide on it. The end's neighbour grows.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = DentedSquareAsItStands(work);
    ASSERT_EQ(work.size(), 5u);
    const RvPolygon2D unmoved = work;
    std::vector<double> distances{0, 1, 0, 0, 0};
    EXPECT_FALSE(MoveAmongAll(work, 1, directions, distances, true));
    EXPECT_TRUE(SameVertices(work, unmoved));
    EXPECT_NEAR(distances[1], 1.0, 0.0);
}

TEST(RvPolygon2DMoveOffsetEdge, ShrinkingEndNeighbourAlongTheEdgeMovesNothing) {
    // Edge 0 moves out by 1: its end's neighbour, edge 1, runs along it and shrinks
    // (d·c2 > 0); its start's neighbour, the left side, grows.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = DentedSquareAsItStands(work);
    ASSERT_EQ(work.size(), 5u);
    const RvPolygon2D unmoved = work;
    std::vector<double> distances{1, 0, 0, 0, 0};
    EXPECT_FALSE(MoveAmongAll(work, 0, directions, distances, true));
    EXPECT_TRUE(SameVertices(work, unmoved));
    EXPECT_NEAR(distances[0], 1.0, 0.0);
}

// A square whose lower corners each carry a collapsed edge: vertex 5 sits on vertex 0 and
// vertex 2 on vertex 1. The directions keep the lines those edges had, two 45-degree chamfers.
RvPolygon2D CollapsedCornersSquare() {
    return Ring({{0, 0}, {10, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
}
std::map<int, RvPoint3D> CollapsedCornersDirections() {
    return {{0, RvPoint3D(-kH, -kH, 0)}, {1, RvPoint3D(0, -1, 0)}, {2, RvPoint3D(kH, -kH, 0)},
            {3, RvPoint3D(1, 0, 0)},     {4, RvPoint3D(0, 1, 0)},  {5, RvPoint3D(-1, 0, 0)}};
}

TEST(RvPolygon2DMoveOffsetEdge, CollapsedVerticesMoveWithTheEnds) {
    // Out by 2: the ends slide along the chamfers' lines to (2, -2) and (8, -2), and the
    // vertices sitting on them come along, up to the bounds 4 and 3.
    RvPolygon2D work = CollapsedCornersSquare();
    std::map<int, RvPoint3D> directions = CollapsedCornersDirections();
    std::vector<double> distances{0, 2, 0, 0, 0, 0};
    EXPECT_TRUE(Access::MoveOffsetEdge(work, 1, directions, distances, kUp, VertexPtr(work, 4),
                                       VertexPtr(work, 3), false));
    ExpectVerticesNear(work, {{2, -2}, {8, -2}, {8, -2}, {10, 10}, {0, 10}, {2, -2}}, 1e-9);
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
}

TEST(RvPolygon2DMoveOffsetEdge, BoundVerticesStayEvenWhenCollapsed) {
    // The same move with the collapsed vertices themselves as the bounds: they stay put.
    RvPolygon2D work = CollapsedCornersSquare();
    std::map<int, RvPoint3D> directions = CollapsedCornersDirections();
    std::vector<double> distances{0, 2, 0, 0, 0, 0};
    EXPECT_TRUE(Access::MoveOffsetEdge(work, 1, directions, distances, kUp, VertexPtr(work, 5),
                                       VertexPtr(work, 2), false));
    ExpectVerticesNear(work, {{2, -2}, {8, -2}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}, 1e-9);
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
}

// ---- MoveOffsetEdge2 --------------------------------------------------------------------------

TEST(RvPolygon2DMoveOffsetEdge2, FollowsTheRecordedLinesOfCollapsedNeighbours) {
    // The null edges at the lower corners still lend the chamfer lines the directions keep:
    // out by 2, the ends go to (2, -2) and (8, -2), not down the sides, and the collapsed
    // vertices come along.
    RvPolygon2D work = CollapsedCornersSquare();
    std::map<int, RvPoint3D> directions = CollapsedCornersDirections();
    std::vector<int> edgeIndices{0, 1, 2, 3, 4, 5};
    std::vector<double> distances{0, 2, 0, 0, 0, 0};
    EXPECT_TRUE(Access::MoveOffsetEdge2(work, 1, directions, distances, edgeIndices, kUp,
                                        VertexPtr(work, 4), VertexPtr(work, 3)));
    ExpectVerticesNear(work, {{2, -2}, {8, -2}, {8, -2}, {10, 10}, {0, 10}, {2, -2}}, 1e-9);
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
}

TEST(RvPolygon2DMoveOffsetEdge2, LimitsApplyWithoutBeingAsked) {
    // Up by 6 in a 10 x 4 rectangle: the sides allow 4, and 2 is left.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions =
        Access::CopyOffsetRing(work, Ring({{0, 0}, {10, 0}, {10, 4}, {0, 4}}), kUp);
    std::vector<int> edgeIndices{0, 1, 2, 3};
    std::vector<double> distances{0, -6, 0, 0};
    EXPECT_TRUE(Access::MoveOffsetEdge2(work, 1, directions, distances, edgeIndices, kUp,
                                        VertexPtr(work, 3), VertexPtr(work, 2)));
    ExpectVerticesNear(work, {{0, 4}, {10, 4}, {10, 4}, {0, 4}}, 1e-9);
    EXPECT_NEAR(distances[1], -2.0, 1e-12);
}

TEST(RvPolygon2DMoveOffsetEdge2, EdgeOutOfTheListOrWithoutDirectionsMovesNothing) {
    int checked = 0;
    for (const int variant : {0, 1, 2}) {
        SCOPED_TRACE("variant " + std::to_string(variant));
        RvPolygon2D work;
        std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
        std::vector<int> edgeIndices{0, 1, 2, 3};
        if (variant == 0) {
            // Left out of the list, though the directions know it.
            edgeIndices = {0, 2, 3};
        } else if (variant == 1) {
            directions.erase(1);
        } else {
            directions[2] = RvPoint3D(0, 0, 0);
        }
        const RvPolygon2D unmoved = work;
        std::vector<double> distances{0, 2, 0, 0};
        EXPECT_FALSE(Access::MoveOffsetEdge2(work, 1, directions, distances, edgeIndices, kUp,
                                             VertexPtr(work, 3), VertexPtr(work, 2)));
        EXPECT_TRUE(SameVertices(work, unmoved));
        EXPECT_NEAR(distances[1], 2.0, 0.0);
        ++checked;
    }
    EXPECT_EQ(checked, 3);
}

// ---- MoveOffsetEdges --------------------------------------------------------------------------

TEST(RvPolygon2DMoveOffsetEdges, CleanSquareFinishesEveryEdge) {
    int checked = 0;
    for (const bool useEx2 : {false, true}) {
        for (const double distance : {2.0, -2.0}) {
            SCOPED_TRACE(std::string(useEx2 ? "Ex2 " : "Ex ") + std::to_string(distance));
            RvPolygon2D work;
            std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
            std::vector<int> edgeIndices;
            Access::FillEdgeIndices(work, edgeIndices);
            std::vector<double> distances(4, distance);
            Access::MoveOffsetEdges(work, directions, distances, edgeIndices, kUp, useEx2, false);
            if (distance > 0) {
                ExpectVerticesNear(work, {{-2, -2}, {12, -2}, {12, 12}, {-2, 12}}, 1e-9);
            } else {
                ExpectVerticesNear(work, {{2, 2}, {8, 2}, {8, 8}, {2, 8}}, 1e-9);
            }
            for (const double remainder : distances) {
                EXPECT_NEAR(remainder, 0.0, 1e-12);
            }
            EXPECT_EQ(edgeIndices, (std::vector<int>{0, 1, 2, 3}));
            ++checked;
        }
    }
    EXPECT_EQ(checked, 4);
}

TEST(RvPolygon2DMoveOffsetEdges, EachDistanceBelongsToTheEdgeEndingAtItsVertex) {
    // Left side by 1, bottom by 2, right side by 3, top by 4: each vertex is where the two
    // moved lines meet.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, Square(), kUp);
    std::vector<double> distances{1, 2, 3, 4};
    RunPasses(work, directions, distances, false, false);
    ExpectVerticesNear(work, {{-1, -2}, {13, -2}, {13, 14}, {-1, 14}}, 1e-9);
    for (const double remainder : distances) {
        EXPECT_NEAR(remainder, 0.0, 1e-12);
    }
}

// The ring whose bottom edge's neighbours cross at (5, 5), with the bottom to move up by 8.
RvPolygon2D CrossedNeighbours() {
    return Ring({{0, 0}, {10, 0}, {2, 8}, {8, 8}});
}

TEST(RvPolygon2DMoveOffsetEdges, LastPassMovesTheStuckEdgeWithoutLimits) {
    // The first pass stops the bottom at the meeting point (5, 5) with 3 to go; there the
    // neighbours' lines meet at height 0, so each later limited pass moves it by nothing. The
    // last pass lifts the limits: the edge runs on along the neighbours' lines and flips.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, CrossedNeighbours(), kUp);
    std::vector<double> distances{0, -8, 0, 0};
    RunPasses(work, directions, distances, false, false);
    ExpectVerticesNear(work, {{8, 8}, {2, 8}, {2, 8}, {8, 8}}, 1e-9);
    EXPECT_NEAR(distances[1], 0.0, 1e-9);
}

TEST(RvPolygon2DMoveOffsetEdges, Ex2KeepsTheRemainderOfAnEdgeThatCannotGoOn) {
    // The same move by MoveOffsetEdge2, limited in every pass: from the meeting point (5, 5)
    // each pass allows nothing more, so the passes run out with 3 still to go and the ring
    // stays where it got to.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, CrossedNeighbours(), kUp);
    std::vector<double> distances{0, -8, 0, 0};
    RunPasses(work, directions, distances, true, false);
    ExpectVerticesNear(work, {{5, 5}, {5, 5}, {2, 8}, {8, 8}}, 1e-9);
    EXPECT_NEAR(distances[1], -3.0, 1e-9);
    EXPECT_NEAR(distances[0], 0.0, 0.0);
    EXPECT_NEAR(distances[2], 0.0, 0.0);
}

TEST(RvPolygon2DMoveOffsetEdges, EdgeWhoseMoveFailsKeepsItsRemainder) {
    int checked = 0;
    for (const bool useEx2 : {false, true}) {
        SCOPED_TRACE(useEx2 ? "Ex2" : "Ex");
        RvPolygon2D work;
        std::vector<double> distances{0, 1, 0, 0, 0};
        std::map<int, RvPoint3D> directions = DentedSquareAsItStands(work);
        if (!useEx2) {
            // Without its entry the edge fails in every pass, the last one too.
            directions.erase(1);
        }
        // MoveOffsetEdge2, limited in every pass, fails on its own: the edge's start neighbour
        // runs along it and shrinks.
        const RvPolygon2D unmoved = work;
        RunPasses(work, directions, distances, useEx2, false);
        EXPECT_TRUE(SameVertices(work, unmoved));
        EXPECT_NEAR(distances[1], 1.0, 0.0);
        ++checked;
    }
    EXPECT_EQ(checked, 2);
}

TEST(RvPolygon2DMoveOffsetEdges, LimitedPassesWaitForTheLastOneOnAStraightVertex) {
    // Edge 1 of the dented square: every limited pass of MoveOffsetEdge refuses it (its start
    // neighbour runs along it); the last pass moves it out by 1, the start going straight out
    // along the edge's normal.
    RvPolygon2D work;
    std::map<int, RvPoint3D> directions = DentedSquareAsItStands(work);
    std::vector<double> distances{0, 1, 0, 0, 0};
    RunPasses(work, directions, distances, false, false);
    ExpectVerticesNear(work, {{5, -1}, {10, -1}, {10, 10}, {0, 10}, {0, 0}}, 1e-5);
    EXPECT_NEAR(distances[1], 0.0, 1e-12);
}

// The copy of `source` after the passes with `distances`, moved once as a ring and once as a
// chain; in both, edge `moved` must have gone its whole way.
std::pair<RvPolygon2D, RvPolygon2D> MovedAsRingAndChain(const RvPolygon2D& source,
                                                        const std::vector<double>& distances,
                                                        int moved) {
    std::pair<RvPolygon2D, RvPolygon2D> result;
    for (const bool chain : {false, true}) {
        SCOPED_TRACE(chain ? "chain" : "ring");
        RvPolygon2D& work = chain ? result.second : result.first;
        std::map<int, RvPoint3D> directions = Access::CopyOffsetRing(work, source, kUp);
        std::vector<double> remainders = distances;
        RunPasses(work, directions, remainders, false, chain);
        EXPECT_NEAR(remainders[static_cast<std::size_t>(moved)], 0.0, 1e-12);
    }
    return result;
}

TEST(RvPolygon2DMoveOffsetEdges, ChainHasNoEdgeBeforeItsFirstEdge) {
    // Edge 0, the left side, moves right by 8. In a ring its start's neighbour, the top edge
    // only 5 long, holds it at 5 in the first pass; the next pass takes it on, the collapsed
    // top vertex dragged along. In a chain edge 0 is the first edge: nothing before it limits
    // it, it goes all the way at once and the top's far vertex stays.
    const auto [ring, chain] =
        MovedAsRingAndChain(Ring({{0, 0}, {30, 0}, {5, 4}, {0, 4}}), {-8, 0, 0, 0}, 0);
    ExpectVerticesNear(ring, {{8, 0}, {30, 0}, {8, 4}, {8, 4}}, 1e-9);
    ExpectVerticesNear(chain, {{8, 0}, {30, 0}, {5, 4}, {8, 4}}, 1e-9);
}

TEST(RvPolygon2DMoveOffsetEdges, ChainCutStopsTheWalkOverCollapsedVertices) {
    // Vertex 4 doubles vertex 3, so edge 4 is collapsed. Edge 0 runs from vertex 4 to vertex 0
    // and moves out (to -x) by 2. In a ring the walk back from its start stops at the start of
    // edge 4, the previous active edge, which leaves vertex 3; in a chain the walk may not pass
    // the cut, vertex 4 itself. Either way vertex 3 stays.
    int checked = 0;
    for (const bool chain : {false, true}) {
        SCOPED_TRACE(chain ? "chain" : "ring");
        RvPolygon2D work = Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 10}});
        std::map<int, RvPoint3D> directions{{0, RvPoint3D(-1, 0, 0)},
                                            {1, RvPoint3D(0, -1, 0)},
                                            {2, RvPoint3D(1, 0, 0)},
                                            {3, RvPoint3D(0, 1, 0)},
                                            {4, RvPoint3D(0, 1, 0)}};
        std::vector<double> distances{2, 0, 0, 0, 0};
        RunPasses(work, directions, distances, false, chain);
        ExpectVerticesNear(work, {{-2, 0}, {10, 0}, {10, 10}, {0, 10}, {-2, 10}}, 1e-9);
        EXPECT_NEAR(distances[0], 0.0, 1e-12);
        ++checked;
    }
    EXPECT_EQ(checked, 2);
}

TEST(RvPolygon2DMoveOffsetEdges, ChainEndsStayAtTheCutWhenTheFirstEdgeIsDone) {
    // (0,4), (0,0), (30,0), (5,4): edge 0, the top, runs from vertex 3 (5,4) to vertex 0
    // (0,4), so the chain is cut at vertex 3. The top has distance 0 and is done at once; then
    // edge 1, the left side, moves in by 8, its start sliding along the top. In a ring the top,
    // only 5 long, collapses and its far vertex (5,4) is dragged along to (8,4); in a chain the
    // walk back from vertex 0 may not pass the cut, so (5,4) stays and the top flips.
    const auto [ring, chain] =
        MovedAsRingAndChain(Ring({{0, 4}, {0, 0}, {30, 0}, {5, 4}}), {0, -8, 0, 0}, 1);
    ExpectVerticesNear(ring, {{8, 4}, {8, 0}, {30, 0}, {8, 4}}, 1e-9);
    ExpectVerticesNear(chain, {{8, 4}, {8, 0}, {30, 0}, {5, 4}}, 1e-9);
}

// ---- FindEdgeCrossings ------------------------------------------------------------------------

TEST(RvPolygon2DFindEdgeCrossings, CrossingEdgesGiveOneNodeIndexedByTheLaterEdge) {
    // A bow-tie: edge 1, from (0, 0) to (10, 10), crosses edge 3, from (10, 0) to (0, 10).
    const RvPolygon2D bowTie = Ring({{0, 0}, {10, 10}, {10, 0}, {0, 10}});
    const std::vector<int> edgeIndices{0, 1, 2, 3};
    SplitNodes nodes;
    AddSplitNode(nodes, 0, RvPoint2D(-1, -1), 9);
    std::vector<SplitNode*> edgeNodes{nodes.front().get()};
    Access::FindEdgeCrossings(bowTie, 1, edgeIndices, kUp, nodes, edgeNodes);
    ASSERT_EQ(nodes.size(), 2u);
    ASSERT_EQ(edgeNodes.size(), 2u);
    const SplitNode* node = nodes[1].get();
    EXPECT_EQ(edgeNodes[0], nodes[0].get());
    EXPECT_EQ(edgeNodes[1], node);
    EXPECT_EQ(node->type, 2);
    EXPECT_EQ(node->index, 3);
    EXPECT_TRUE(node->links.empty());
    ExpectXyzNear(node->point, 5, 5, 0, 1e-9);
    EXPECT_NEAR(node->point.x2D, 5.0, 1e-9);
    EXPECT_NEAR(node->point.y2D, 5.0, 1e-9);
}

TEST(RvPolygon2DFindEdgeCrossings, CrossingOnBridgedEdgeTakesTheIndexOfItsEnd) {
    // Vertex 3 is left out of the list: the edge of place 3 runs from vertex 2 straight to
    // vertex 4, across edge 1, and the node takes index 4.
    const RvPolygon2D ring = Ring({{0, 0}, {10, 10}, {10, 0}, {20, 20}, {0, 10}});
    const std::vector<int> edgeIndices{0, 1, 2, 4};
    SplitNodes nodes;
    std::vector<SplitNode*> edgeNodes;
    Access::FindEdgeCrossings(ring, 1, edgeIndices, kUp, nodes, edgeNodes);
    ASSERT_EQ(nodes.size(), 1u);
    ASSERT_EQ(edgeNodes.size(), 1u);
    EXPECT_EQ(edgeNodes[0], nodes[0].get());
    EXPECT_EQ(nodes[0]->type, 2);
    EXPECT_EQ(nodes[0]->index, 4);
    ExpectXyzNear(nodes[0]->point, 5, 5, 0, 1e-9);
}

TEST(RvPolygon2DFindEdgeCrossings, NeighbouringEdgesAreNotTested) {
    // Edge 2 folds back from (10, 0) to (5, 0) over edge 1, its neighbour: the two overlap at
    // (5, 0), yet the search from edge 1 starts two places on and meets edge 3 alone, which
    // starts at (5, 0). One node, indexed by edge 3; none by edge 2.
    const RvPolygon2D ring = Ring({{0, 0}, {10, 0}, {5, 0}, {5, 5}});
    RvPoint2D overlap;
    ASSERT_TRUE(RvPolygon2D::FindOverlapPoint(ring[0], ring[1], ring[1], ring[2], overlap));
    ExpectXyzNear(overlap, 5, 0, 0, 1e-12);
    const std::vector<int> edgeIndices{0, 1, 2, 3};
    SplitNodes nodes;
    std::vector<SplitNode*> edgeNodes;
    Access::FindEdgeCrossings(ring, 1, edgeIndices, kUp, nodes, edgeNodes);
    ASSERT_EQ(nodes.size(), 1u);
    ASSERT_EQ(edgeNodes.size(), 1u);
    EXPECT_EQ(nodes[0]->index, 3);
    ExpectXyzNear(nodes[0]->point, 5, 0, 0, 1e-9);
}

TEST(RvPolygon2DFindEdgeCrossings, FirstEdgeMeetsTheLastEdge) {
    // The closing edge 0 runs back from (10, 0) to (4, 0) over edge 3, the last edge, which
    // runs from (0, 0) to (10, 0). They share (10, 0), yet they are tested: the overlap gives
    // the end of edge 0.
    const RvPolygon2D ring = Ring({{4, 0}, {2, -5}, {0, 0}, {10, 0}});
    const std::vector<int> edgeIndices{0, 1, 2, 3};
    SplitNodes nodes;
    std::vector<SplitNode*> edgeNodes;
    Access::FindEdgeCrossings(ring, 0, edgeIndices, kUp, nodes, edgeNodes);
    ASSERT_EQ(nodes.size(), 1u);
    ASSERT_EQ(edgeNodes.size(), 1u);
    EXPECT_EQ(nodes[0]->type, 2);
    EXPECT_EQ(nodes[0]->index, 3);
    ExpectXyzNear(nodes[0]->point, 4, 0, 0, 1e-9);
}

// The nodes that edge 1 of the ring iStart, iEnd, jStart, jEnd finds: it is tested against
// edge 3, from jStart to jEnd, alone.
SplitNodes CrossingsOfTwoEdges(const RvPoint2D& iStart, const RvPoint2D& iEnd,
                               const RvPoint2D& jStart, const RvPoint2D& jEnd) {
    const RvPolygon2D ring = Ring({iStart, iEnd, jStart, jEnd});
    SplitNodes nodes;
    std::vector<SplitNode*> edgeNodes;
    Access::FindEdgeCrossings(ring, 1, {0, 1, 2, 3}, kUp, nodes, edgeNodes);
    EXPECT_EQ(edgeNodes.size(), nodes.size());
    for (const auto& node : nodes) {
        EXPECT_EQ(node->type, 2);
        EXPECT_EQ(node->index, 3);
    }
    return nodes;
}

struct TwoEdgeCase {
    const char* name;
    RvPoint2D jStart;
    RvPoint2D jEnd;
    bool found;
    double x;
    double y;
};

// Runs the cases against the edge from (0, 0) to (10, 0); returns how many were checked.
int CheckTwoEdgeCases(std::initializer_list<TwoEdgeCase> cases) {
    int checked = 0;
    for (const TwoEdgeCase& c : cases) {
        SCOPED_TRACE(c.name);
        const SplitNodes nodes =
            CrossingsOfTwoEdges(RvPoint2D(0, 0), RvPoint2D(10, 0), c.jStart, c.jEnd);
        if (c.found) {
            EXPECT_EQ(nodes.size(), 1u);
            if (nodes.size() == 1) {
                ExpectXyzNear(nodes[0]->point, c.x, c.y, 0, 1e-9);
            }
        } else {
            EXPECT_TRUE(nodes.empty());
        }
        ++checked;
    }
    return checked;
}

TEST(RvPolygon2DFindEdgeCrossings, LaterEdgeCountsAtItsStartNotItsEnd) {
    const int checked = CheckTwoEdgeCases({
        {"ends on the edge", RvPoint2D(5, 8), RvPoint2D(5, 0), false, 0, 0},
        {"starts on the edge", RvPoint2D(5, 0), RvPoint2D(5, 8), true, 5, 0},
        {"crosses inside", RvPoint2D(5, -5), RvPoint2D(5, 5), true, 5, 0},
        {"crosses at the end vertex", RvPoint2D(10, -5), RvPoint2D(10, 5), false, 0, 0},
        {"crosses at the start vertex", RvPoint2D(0, -5), RvPoint2D(0, 5), false, 0, 0},
        {"crosses the line beyond", RvPoint2D(12, -5), RvPoint2D(12, 5), false, 0, 0},
        {"stops short of the line", RvPoint2D(5, 8), RvPoint2D(5, 1), false, 0, 0},
    });
    EXPECT_EQ(checked, 7);
}

TEST(RvPolygon2DFindEdgeCrossings, ParallelEdgesApartGiveNothing) {
    // Every pair the square's edges are tested in is parallel and apart, or shares a vertex.
    const RvPolygon2D square = Square();
    const std::vector<int> edgeIndices{0, 1, 2, 3};
    SplitNodes nodes;
    std::vector<SplitNode*> edgeNodes;
    for (std::size_t position = 0; position < 4; ++position) {
        Access::FindEdgeCrossings(square, position, edgeIndices, kUp, nodes, edgeNodes);
    }
    EXPECT_TRUE(nodes.empty());
    EXPECT_TRUE(edgeNodes.empty());
    EXPECT_TRUE(CrossingsOfTwoEdges(RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(2, 0.001),
                                    RvPoint2D(8, 0.001))
                    .empty());
}

TEST(RvPolygon2DFindEdgeCrossings, CollinearOverlapGivesThePointInTheOverlapOrder) {
    // The order: the edge's end inside the later edge; nothing if its start is inside it; the
    // later edge's end inside the edge; its start.
    const int checked = CheckTwoEdgeCases({
        {"end inside, later edge backwards", RvPoint2D(15, 0), RvPoint2D(5, 0), true, 10, 0},
        {"end inside, later edge forwards", RvPoint2D(5, 0), RvPoint2D(15, 0), true, 10, 0},
        {"edge inside the later edge", RvPoint2D(-5, 0), RvPoint2D(15, 0), true, 10, 0},
        {"start inside", RvPoint2D(-5, 0), RvPoint2D(5, 0), false, 0, 0},
        {"later edge inside", RvPoint2D(2, 0), RvPoint2D(8, 0), true, 8, 0},
        {"later edge inside backwards", RvPoint2D(8, 0), RvPoint2D(2, 0), true, 2, 0},
        {"later edge starts inside, shares the end", RvPoint2D(5, 0), RvPoint2D(10, 0), true, 5, 0},
        {"touch at the end", RvPoint2D(10, 0), RvPoint2D(20, 0), false, 0, 0},
        {"apart on the line", RvPoint2D(15, 0), RvPoint2D(20, 0), false, 0, 0},
    });
    EXPECT_EQ(checked, 9);
}

// ---- TraceOffsetGraph -------------------------------------------------------------------------

TEST(RvPolygon2DTraceOffsetGraph, SimpleRingComesBackAsItIs) {
    const RvPolygon2D ring = Ring({{0, 0}, {10, 0}, {12, 6}, {5, 10}, {-2, 6}});
    std::vector<RvPolygon2D> result(1, Square());
    Access::TraceOffsetGraph(ring, {0, 1, 2, 3, 4}, kUp, result);
    ASSERT_EQ(result.size(), 2u);
    EXPECT_TRUE(SameVertices(result[0], Square()));
    ExpectVerticesNear(result[1], {{0, 0}, {10, 0}, {12, 6}, {5, 10}, {-2, 6}});
}

TEST(RvPolygon2DTraceOffsetGraph, FigureEightGivesTwoTrianglesInnerFirst) {
    const RvPolygon2D bowTie = Ring({{0, 0}, {10, 10}, {10, 0}, {0, 10}});
    std::vector<RvPolygon2D> result;
    Access::TraceOffsetGraph(bowTie, {0, 1, 2, 3}, kUp, result);
    ASSERT_EQ(result.size(), 2u);
    // The loop beyond the crossing first, then the one through vertex 0.
    ExpectVerticesNear(result[0], {{5, 5}, {10, 10}, {10, 0}}, 1e-9);
    ExpectVerticesNear(result[1], {{0, 0}, {5, 5}, {0, 10}}, 1e-9);
}

TEST(RvPolygon2DTraceOffsetGraph, TwoSelfCrossingsGiveThreeLoops) {
    // A band twisted twice: crossings at (5, 5) and (15, 5). The loops nest as they are
    // reached: the far triangle, the middle square, then the loop through vertex 0.
    const RvPolygon2D twisted = Ring({{0, 0}, {10, 10}, {20, 0}, {20, 10}, {10, 0}, {0, 10}});
    std::vector<RvPolygon2D> result;
    Access::TraceOffsetGraph(twisted, {0, 1, 2, 3, 4, 5}, kUp, result);
    ASSERT_EQ(result.size(), 3u);
    ExpectVerticesNear(result[0], {{15, 5}, {20, 0}, {20, 10}}, 1e-9);
    ExpectVerticesNear(result[1], {{5, 5}, {10, 10}, {15, 5}, {10, 0}}, 1e-9);
    ExpectVerticesNear(result[2], {{0, 0}, {5, 5}, {0, 10}}, 1e-9);
}

TEST(RvPolygon2DTraceOffsetGraph, EdgeLeftOutOfTheListIsBridged) {
    // Vertex 2 lies off the square; without it in the list the ring runs straight from
    // (10, 0) to (10, 10).
    const RvPolygon2D ring = Ring({{0, 0}, {10, 0}, {20, 5}, {10, 10}, {0, 10}});
    std::vector<RvPolygon2D> result;
    Access::TraceOffsetGraph(ring, {0, 1, 3, 4}, kUp, result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// ---- TraceOffsetLoops -------------------------------------------------------------------------

TEST(RvPolygon2DTraceOffsetLoops, NodeWithoutLinksAppendsNothing) {
    SplitNode lone;
    lone.point = RvPoint2D(1, 2);
    std::vector<RvPolygon2D> result(1, Square());
    Access::TraceOffsetLoops(&lone, result);
    ASSERT_EQ(result.size(), 1u);
    EXPECT_TRUE(SameVertices(result[0], Square()));
}

}  // namespace

}  // namespace ravelin
