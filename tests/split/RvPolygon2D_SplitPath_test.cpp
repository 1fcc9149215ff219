#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"
#include "support/RandomPolygons.h"
#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private steps of the split by a path.
struct RvPolygon2DTestAccess {
    static void FindPathCrossings(const RvPolygon2D& polygon, const RvPoint3D& edgeNormal, int edge,
                                  const RvDrawEntity& path, SplitNodes& nodes,
                                  SplitCrossingQueue& crossings) {
        polygon.FindPathCrossings(edgeNormal, edge, path.begin(), path.end(), nodes, crossings);
    }
    static void TraceSplitLoop(SplitNode* start, std::vector<RvPolygon2D>& result) {
        RvPolygon2D::TraceSplitLoop(start, result);
    }
};

namespace {

using testing_support::ExpectVerticesNear;
using testing_support::ExpectXyzNear;
using testing_support::Path;
using testing_support::Ring;
using testing_support::SameVertices;

// The square from (0, 0) to (10, 10), counterclockwise. Its edge i ends at vertex i, so edge 0
// runs from (0, 10) down to (0, 0), and the ring of the split starts at (0, 10).
RvPolygon2D Square() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// Inward normals of the square's edges as the split forms them, N x (end - start) with
// N = (0, 0, 1): edge 0 (x = 0), edge 1 (y = 0), edge 2 (x = 10), edge 3 (y = 10).
const RvPoint3D kSquareEdgeNormal[] = {{10, 0, 0}, {0, 10, 0}, {-10, 0, 0}, {0, -10, 0}};

// The crossings that FindPathCrossings adds for edge `edge` of `polygon`, in the order added,
// and the queue it fills.
struct Crossings {
    SplitNodes nodes;
    SplitCrossingQueue queue;
};

Crossings CrossingsOf(const RvPolygon2D& polygon, int edge, const RvDrawEntity& path,
                      const RvPoint3D& edgeNormal) {
    Crossings c;
    RvPolygon2DTestAccess::FindPathCrossings(polygon, edgeNormal, edge, path, c.nodes, c.queue);
    return c;
}

Crossings SquareCrossingsOf(int edge, const RvDrawEntity& path) {
    return CrossingsOf(Square(), edge, path, kSquareEdgeNormal[edge]);
}

// The crossing on top of the queue, taken off it.
SplitCrossing Take(SplitCrossingQueue& queue) {
    const SplitCrossing c = queue.top();
    queue.pop();
    return c;
}

// ================================================================================================
// FindPathCrossings

TEST(RvPolygon2DFindPathCrossingsTest, AddsCrossingNodesInPathOrderWithSegmentEndKeyAndEdgeZ) {
    // The edge from (0, 0, 2) to (10, 0, 4). The path goes up through x = 8, along y = 5 and down
    // through x = 3; its z is left to it and does not count.
    const RvPolygon2D ring = Ring({{0, 0, 2}, {10, 0, 4}, {10, 10, 6}, {0, 10, 8}});
    const RvPolyLine2D path = Path({{8, -5, 100}, {8, 5, -100}, {3, 5, 0}, {3, -5, 50}});
    Crossings c = CrossingsOf(ring, 1, path, RvPoint3D(0, 10, 0));
    ASSERT_EQ(c.nodes.size(), 2u);
    // The first segment meets y = 0 halfway, at (8, 0), 5 along the path; the third halfway
    // too, at (3, 0), after 10 + 5 + 5 in the plane. Both take z from the edge's end vertex.
    const SplitNode& first = *c.nodes[0];
    EXPECT_EQ(first.type, 2);
    EXPECT_EQ(first.index, 1);
    ExpectXyzNear(first.point, 8, 0, 4, 1e-12);
    EXPECT_NEAR(first.point.x2D, 8, 1e-12);
    EXPECT_NEAR(first.point.y2D, 0, 1e-12);
    EXPECT_TRUE(first.links.empty());
    const SplitNode& second = *c.nodes[1];
    EXPECT_EQ(second.type, 2);
    EXPECT_EQ(second.index, 3);
    ExpectXyzNear(second.point, 3, 0, 4, 1e-12);

    ASSERT_EQ(c.queue.size(), 2u);
    const SplitCrossing a = Take(c.queue);
    EXPECT_EQ(a.node, c.nodes[0].get());
    EXPECT_EQ(a.edge, 1);
    EXPECT_NEAR(a.key, 5.0, 1e-12);
    const SplitCrossing b = Take(c.queue);
    EXPECT_EQ(b.node, c.nodes[1].get());
    EXPECT_EQ(b.edge, 1);
    EXPECT_NEAR(b.key, 20.0, 1e-12);
}

TEST(RvPolygon2DFindPathCrossingsTest, TheEdgeStartAndItsCrossingsSortAlongTheEdge) {
    // The split puts the edge's start vertex behind the crossings and sorts the lot by the
    // distance from it: (0, 0), then (3, 0), then (8, 0), though the path met (8, 0) first.
    const RvPolygon2D ring = Square();
    const RvPolyLine2D path = Path({{8, -5}, {8, 5}, {3, 5}, {3, -5}});
    Crossings c = SquareCrossingsOf(1, path);
    ASSERT_EQ(c.nodes.size(), 2u);
    AddSplitNode(c.nodes, 0, ring[0], 1);
    SortSplitNodesByDistance(c.nodes, 0, ring[0]);
    ASSERT_EQ(c.nodes.size(), 3u);
    EXPECT_EQ(c.nodes[0]->type, 0);
    EXPECT_NEAR(c.nodes[1]->point.x, 3, 1e-12);
    EXPECT_NEAR(c.nodes[2]->point.x, 8, 1e-12);
    // The queue still gives them in the order of the path.
    EXPECT_NEAR(c.queue.top().node->point.x, 8, 1e-12);
}

TEST(RvPolygon2DFindPathCrossingsTest, APathVertexOnTheEdgeCountsOnceAtTheStartOfTheNextSegment) {
    // (0, 5) ends the first segment at t = 1, which is not its last segment, and starts the
    // second at t = 0: one crossing, of index 2, 5 along the path.
    const Crossings c = SquareCrossingsOf(0, Path({{-5, 5}, {0, 5}, {15, 5}}));
    ASSERT_EQ(c.nodes.size(), 1u);
    EXPECT_EQ(c.nodes[0]->type, 2);
    EXPECT_EQ(c.nodes[0]->index, 2);
    ExpectXyzNear(c.nodes[0]->point, 0, 5, 0, 1e-12);
    EXPECT_NEAR(c.queue.top().key, 5.0, 1e-12);
}

TEST(RvPolygon2DFindPathCrossingsTest, APathVertexWithinTheBandOfTheEdgeCountsOnce) {
    // 2e-06 past x = 0 the first segment meets it at t = 5 / 5.000002, about 1 - 4e-07: too near
    // the end of a segment that is not the last. The second meets it at t of about -1.3e-07,
    // within the band of its start.
    const Crossings past = SquareCrossingsOf(0, Path({{-5, 5}, {2e-06, 5}, {15, 5}}));
    ASSERT_EQ(past.nodes.size(), 1u);
    EXPECT_EQ(past.nodes[0]->index, 2);
    ExpectXyzNear(past.nodes[0]->point, 0, 5, 0, 1e-9);
    // The key is the length walked to (2e-06, 5) and back from there to the crossing.
    EXPECT_NEAR(past.queue.top().key, 5.000004, 1e-9);
    // 2e-06 short of it: t of about 1 + 4e-07 on the first segment, beyond it; about 1.3e-07 on
    // the second.
    const Crossings shortOf = SquareCrossingsOf(0, Path({{-5, 5}, {-2e-06, 5}, {15, 5}}));
    ASSERT_EQ(shortOf.nodes.size(), 1u);
    EXPECT_EQ(shortOf.nodes[0]->index, 2);
    ExpectXyzNear(shortOf.nodes[0]->point, 0, 5, 0, 1e-9);
    EXPECT_NEAR(shortOf.queue.top().key, 5.0, 1e-9);
}

TEST(RvPolygon2DFindPathCrossingsTest, APathEndingOnTheEdgeCountsOnItsLastSegment) {
    const Crossings c = SquareCrossingsOf(0, Path({{-5, 5}, {0, 5}}));
    ASSERT_EQ(c.nodes.size(), 1u);
    EXPECT_EQ(c.nodes[0]->index, 1);
    ExpectXyzNear(c.nodes[0]->point, 0, 5, 0, 1e-12);
    EXPECT_NEAR(c.queue.top().key, 5.0, 1e-12);
}

TEST(RvPolygon2DFindPathCrossingsTest, APathStartingOnTheEdgeCountsWithKeyZero) {
    const Crossings c = SquareCrossingsOf(0, Path({{0, 5}, {15, 5}}));
    ASSERT_EQ(c.nodes.size(), 1u);
    EXPECT_EQ(c.nodes[0]->index, 1);
    ExpectXyzNear(c.nodes[0]->point, 0, 5, 0, 1e-12);
    EXPECT_NEAR(c.queue.top().key, 0.0, 1e-12);
}

TEST(RvPolygon2DFindPathCrossingsTest, ACrossingCountsAtTheEdgesEndVertexButNotAtItsStart) {
    // Edge 1 runs from (0, 0) to (10, 0).
    const Crossings atEnd = SquareCrossingsOf(1, Path({{10, -5}, {10, 5}}));
    ASSERT_EQ(atEnd.nodes.size(), 1u);
    ExpectXyzNear(atEnd.nodes[0]->point, 10, 0, 0, 1e-12);
    EXPECT_TRUE(SquareCrossingsOf(1, Path({{0, -5}, {0, 5}})).nodes.empty());
}

TEST(RvPolygon2DFindPathCrossingsTest, ACrossingWithin001BeyondTheEndVertexCounts) {
    // (10.005, 0) lies beyond the edge but within 0.01 of its end vertex (10, 0); the crossing
    // keeps its own position.
    const Crossings near = SquareCrossingsOf(1, Path({{10.005, -5}, {10.005, 5}}));
    ASSERT_EQ(near.nodes.size(), 1u);
    ExpectXyzNear(near.nodes[0]->point, 10.005, 0, 0, 1e-12);
    // 0.02 beyond is too far, and the same 0.005 before the start vertex does not count.
    EXPECT_TRUE(SquareCrossingsOf(1, Path({{10.02, -5}, {10.02, 5}})).nodes.empty());
    EXPECT_TRUE(SquareCrossingsOf(1, Path({{-0.005, -5}, {-0.005, 5}})).nodes.empty());
}

TEST(RvPolygon2DFindPathCrossingsTest, ACollinearSegmentCountsByItsStartStrictlyInsideTheEdge) {
    // Along y = 0 from (2, 0, 7): its start, with its own z, of index 1 and key 0.
    const Crossings inside = SquareCrossingsOf(1, Path({{2, 0, 7}, {8, 0}}));
    ASSERT_EQ(inside.nodes.size(), 1u);
    EXPECT_EQ(inside.nodes[0]->type, 2);
    EXPECT_EQ(inside.nodes[0]->index, 1);
    ExpectXyzNear(inside.nodes[0]->point, 2, 0, 7, 0.0);
    EXPECT_EQ(inside.queue.top().key, 0.0);
    // Down to (2, 0), then along the edge: the end of the first segment is no crossing at t = 1
    // there, and the collinear second segment counts by its start, 5 along the path.
    const Crossings later = SquareCrossingsOf(1, Path({{2, 5}, {2, 0}, {8, 0}}));
    ASSERT_EQ(later.nodes.size(), 1u);
    EXPECT_EQ(later.nodes[0]->index, 2);
    EXPECT_NEAR(later.queue.top().key, 5.0, 1e-12);
}

TEST(RvPolygon2DFindPathCrossingsTest, ACollinearSegmentStartingOffTheEdgeInteriorCountsNot) {
    // Overlapping the edge from outside, or starting at either of its vertices: no crossing,
    // the end vertex included.
    EXPECT_TRUE(SquareCrossingsOf(1, Path({{-5, 0}, {5, 0}})).nodes.empty());
    EXPECT_TRUE(SquareCrossingsOf(1, Path({{0, 0}, {5, 0}})).nodes.empty());
    EXPECT_TRUE(SquareCrossingsOf(1, Path({{10, 0}, {5, 0}})).nodes.empty());
    EXPECT_TRUE(SquareCrossingsOf(1, Path({{12, 0}, {20, 0}})).nodes.empty());
}

TEST(RvPolygon2DFindPathCrossingsTest, ACrossingOfTheEdgesLineOffTheEdgeCountsNot) {
    // x = 0 is met at (0, 20), beyond edge 0 from (0, 10) to (0, 0).
    const Crossings c = SquareCrossingsOf(0, Path({{-5, 20}, {5, 20}}));
    EXPECT_TRUE(c.nodes.empty());
    EXPECT_TRUE(c.queue.empty());
}

TEST(RvPolygon2DFindPathCrossingsTest, APathWithoutSegmentsAddsNothing) {
    EXPECT_TRUE(SquareCrossingsOf(0, RvPolyLine2D()).nodes.empty());
    EXPECT_TRUE(SquareCrossingsOf(0, Path({{0, 5}})).nodes.empty());
}

// ================================================================================================
// TraceSplitLoop

TEST(RvPolygon2DTraceSplitLoopTest, TakesTheLastLinkRemovesItAndStopsAtANodeWithoutLinks) {
    // A links to B, then C; the walk takes C, and stops at D, which has no links, without
    // adding D. A keeps its link to B.
    SplitNodes nodes;
    SplitNode* a = AddSplitNode(nodes, 0, RvPoint2D(0, 0), 0);
    SplitNode* b = AddSplitNode(nodes, 0, RvPoint2D(0, 10), 1);
    SplitNode* c = AddSplitNode(nodes, 0, RvPoint2D(10, 0), 2);
    SplitNode* d = AddSplitNode(nodes, 0, RvPoint2D(10, 10), 3);
    a->links = {b, c};
    c->links = {d};
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceSplitLoop(a, result);
    ASSERT_EQ(result.size(), 1u);
    // Two vertices: appended as they came.
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}});
    ASSERT_EQ(a->links.size(), 1u);
    EXPECT_EQ(a->links.front(), b);
    EXPECT_TRUE(c->links.empty());
}

TEST(RvPolygon2DTraceSplitLoopTest, AppendsAPieceOfTwoVerticesAsItStands) {
    // There and back between two nodes: the ring (0, 0), (10, 0), both links used.
    SplitNodes nodes;
    SplitNode* a = AddSplitNode(nodes, 2, RvPoint2D(0, 0), 1);
    SplitNode* b = AddSplitNode(nodes, 1, RvPoint2D(10, 0), 1);
    a->links.push_back(b);
    b->links.push_back(a);
    std::vector<RvPolygon2D> result{Square()};
    RvPolygon2DTestAccess::TraceSplitLoop(a, result);
    ASSERT_EQ(result.size(), 2u);
    EXPECT_TRUE(SameVertices(result[0], Square()));
    ExpectVerticesNear(result[1], {{0, 0}, {10, 0}});
    EXPECT_TRUE(a->links.empty());
    EXPECT_TRUE(b->links.empty());
}

TEST(RvPolygon2DTraceSplitLoopTest, AppendsOneVertexAndNoVertexAsTheyStand) {
    // A node linked to itself gives a ring of its one point; a node without links an empty one.
    SplitNodes nodes;
    SplitNode* self = AddSplitNode(nodes, 0, RvPoint2D(3, 4), 0);
    self->links.push_back(self);
    SplitNode* alone = AddSplitNode(nodes, 0, RvPoint2D(5, 6), 1);
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceSplitLoop(self, result);
    RvPolygon2DTestAccess::TraceSplitLoop(alone, result);
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{3, 4}});
    EXPECT_TRUE(result[1].empty());
}

// A ring of nodes at the given points, linked in order and closed.
SplitNodes LinkedRing(std::initializer_list<RvPoint2D> points) {
    SplitNodes nodes;
    for (const RvPoint2D& p : points) {
        AddSplitNode(nodes, 0, p, static_cast<int>(nodes.size()));
    }
    LinkSplitRing(nodes);
    return nodes;
}

TEST(RvPolygon2DTraceSplitLoopTest, RemovesALastVertexInsideTheSeam) {
    // The walk ends on (0, 5), between (0, 10) and the first vertex (0, 0).
    SplitNodes nodes = LinkedRing({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}});
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceSplitLoop(nodes[0].get(), result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DTraceSplitLoopTest, RemovesAFirstVertexInsideTheSeam) {
    // The walk starts on (0, 5), between the second vertex (0, 0) and the last (0, 10).
    SplitNodes nodes = LinkedRing({{0, 5}, {0, 0}, {10, 0}, {10, 10}, {0, 10}});
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceSplitLoop(nodes[0].get(), result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DTraceSplitLoopTest, RemovesBothSeamVertices) {
    // (0, 6) goes first, then (0, 3), which then lies between (0, 0) and (0, 10).
    SplitNodes nodes = LinkedRing({{0, 3}, {0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 6}});
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceSplitLoop(nodes[0].get(), result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(RvPolygon2DTraceSplitLoopTest, DropsAPieceThatFallsBelowThreeVertices) {
    // The three points make a corner, so the walk keeps all three. In space, the last one,
    // (0, 0, 0), passes for inside the segment from (1, 0, 0) to (-1, 1, 1): the unit vectors
    // to them have the vector product (0, -1, 1)/sqrt(3), whose components sum to zero, and a
    // negative dot product. It goes, two remain, and the piece is dropped.
    SplitNodes nodes = LinkedRing({{-1, 1, 1}, {1, 0, 0}, {0, 0, 0}});
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceSplitLoop(nodes[0].get(), result);
    EXPECT_TRUE(result.empty());
    for (const auto& node : nodes) {
        EXPECT_TRUE(node->links.empty());
    }
}

TEST(RvPolygon2DTraceSplitLoopTest, MergesCollinearAndRepeatedPointsOnTheWay) {
    // (5, 0) lies on the way from (0, 0) to (10, 0), and (10, 0) comes twice.
    SplitNodes nodes = LinkedRing({{0, 0}, {5, 0}, {10, 0}, {10, 0}, {10, 10}});
    std::vector<RvPolygon2D> result;
    RvPolygon2DTestAccess::TraceSplitLoop(nodes[0].get(), result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}});
}

// ================================================================================================
// SplitWithPolyLine: the outcomes

TEST(RvPolygon2DSplitWithPolyLineTest, SquareCutStraightAcrossGivesTwoPiecesTopFirst) {
    // Crossings (0, 5) on edge 0 and (10, 5) on edge 2. The ring runs (0, 10), (0, 5), (0, 0),
    // (10, 0), (10, 5), (10, 10); the chain links (0, 5) to (10, 5) and back. The first walk
    // starts at (0, 10), turns into the chain at (0, 5) and comes back along the ring from
    // (10, 5); the second starts at (0, 5).
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {15, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 5}, {10, 5}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 5}, {0, 0}, {10, 0}, {10, 5}});
}

TEST(RvPolygon2DSplitWithPolyLineTest,
     PathEndingInsideWithOneCrossingAddsTheSquareFromItsLastVertex) {
    // One crossing at (0, 5): nothing to pair. The ring is traced as it stands, from (0, 10),
    // the start of edge 0; (0, 5) lies on the way from (0, 10) to (0, 0) and is merged away. The
    // polygon comes back unchanged in shape, started at its last vertex.
    std::vector<RvPolygon2D> result;
    EXPECT_FALSE(Square().SplitWithPolyLine(Path({{-5, 5}, {5, 5}}), result));
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 0}, {10, 0}, {10, 10}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, PathMissingThePolygonAddsThePolygonItself) {
    std::vector<RvPolygon2D> result;
    EXPECT_FALSE(Square().SplitWithPolyLine(Path({{20, 0}, {30, 10}, {20, 20}}), result));
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 0}, {10, 0}, {10, 10}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, EmptyPathAddsThePolygonItself) {
    std::vector<RvPolygon2D> result;
    EXPECT_FALSE(Square().SplitWithPolyLine(RvPolyLine2D(), result));
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 0}, {10, 0}, {10, 10}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, DegenerateNormalAddsNothing) {
    const RvPolygon2D marker = Ring({{50, 50}, {60, 50}, {60, 60}});
    std::vector<RvPolygon2D> result{marker};
    const RvPolyLine2D path = Path({{-5, 5}, {15, 5}});
    EXPECT_FALSE(Ring({{0, 0}, {5, 0}, {10, 0}}).SplitWithPolyLine(path, result));
    EXPECT_FALSE(Ring({{0, 0}, {10, 10}}).SplitWithPolyLine(path, result));
    EXPECT_FALSE(RvPolygon2D().SplitWithPolyLine(path, result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_TRUE(SameVertices(result[0], marker));
}

TEST(RvPolygon2DSplitWithPolyLineTest, OddCrossingsLeaveTheLastAsARingNodeThatIsMergedAway) {
    // In at (0, 5), out at (10, 5), back in at (10, 8), ending inside. The first two pair; (10, 8)
    // stays a node of edge 2 between (10, 5) and (10, 10), and the walk merges it on the way.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {15, 5}, {15, 8}, {5, 8}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 5}, {10, 5}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 5}, {0, 0}, {10, 0}, {10, 5}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, AppendsAfterWhatIsThereAndCountsOnlyWhatItAdds) {
    const RvPolygon2D marker = Ring({{50, 50}, {60, 50}, {60, 60}});
    std::vector<RvPolygon2D> result{marker};
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {15, 5}}), result));
    ASSERT_EQ(result.size(), 3u);
    EXPECT_TRUE(SameVertices(result[0], marker));
    ExpectVerticesNear(result[1], {{0, 10}, {0, 5}, {10, 5}, {10, 10}});
    ExpectVerticesNear(result[2], {{0, 5}, {0, 0}, {10, 0}, {10, 5}});
    // One polygon added to three already there: false.
    EXPECT_FALSE(Square().SplitWithPolyLine(Path({{20, 0}, {30, 0}}), result));
    ASSERT_EQ(result.size(), 4u);
    ExpectVerticesNear(result[3], {{0, 10}, {0, 0}, {10, 0}, {10, 10}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, TheInputStaysAsItWas) {
    const RvPolygon2D square = Square();
    std::vector<RvPolygon2D> result;
    square.SplitWithPolyLine(Path({{-5, 5}, {15, 5}}), result);
    EXPECT_TRUE(SameVertices(square, Square()));
}

// ================================================================================================
// SplitWithPolyLine: where the crossings lie

TEST(RvPolygon2DSplitWithPolyLineTest, PathVertexOnAnEdgeCutsLikeAStraightPath) {
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {0, 5}, {15, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 5}, {10, 5}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 5}, {0, 0}, {10, 0}, {10, 5}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, PathEndingExactlyOnTheFarEdgeCuts) {
    // (10, 5) is met at t = 1 of the last segment, which counts: two crossings.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {10, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 5}, {10, 5}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 5}, {0, 0}, {10, 0}, {10, 5}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, DiagonalThroughTwoVerticesCountsEachOnceAndGivesTriangles) {
    // (0, 0) counts on edge 0, which ends there, and not on edge 1, which starts there; (10, 10)
    // on edge 2 and not on edge 3. The crossing (0, 0) stands after the ring node (0, 10) and
    // before the vertex node (0, 0), and the walk drops the repeats.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, -5}, {15, 15}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 0}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 0}, {10, 0}, {10, 10}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, CollinearLastSegmentCrossesAtItsStart) {
    // In at (0, 5), down to (5, 0) (t = 1 on y = 0, not the last segment: no crossing), then
    // along the bottom edge: the collinear segment counts by its start (5, 0). The chain runs
    // through the path vertices (5, 5) and (5, 0); the latter repeats the crossing and is
    // dropped by the walk.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {5, 5}, {5, 0}, {8, 0}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 5}, {5, 5}, {5, 0}, {10, 0}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 5}, {0, 0}, {5, 0}, {5, 5}});
}

// ================================================================================================
// SplitWithPolyLine: pairing and chains

TEST(RvPolygon2DSplitWithPolyLineTest, ChainLaidForwardWhenTheCrossingsComeInRingOrder) {
    // In at (0, 3.125) on edge 0 (node 1), out at (10, 3.125) on edge 2 (node 4): the chain goes
    // from the first through path vertices 1 and 2.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {3, 2}, {7, 2}, {15, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 3.125}, {3, 2}, {7, 2}, {10, 3.125}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 3.125}, {0, 0}, {10, 0}, {10, 3.125}, {7, 2}, {3, 2}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, ChainLaidBackwardWhenTheCrossingsComeInReverseRingOrder) {
    // The same cut walked from the right: in at (10, 3.125), node 4, index 1; out at (0, 3.125),
    // node 1, index 3. The chain starts at the later crossing, (0, 3.125), and adds path vertex
    // k - 1 for k = 3, 2: (3, 2), then (7, 2). The pieces are the same as walked from the left.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{15, 5}, {7, 2}, {3, 2}, {-5, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 3.125}, {3, 2}, {7, 2}, {10, 3.125}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 3.125}, {0, 0}, {10, 0}, {10, 3.125}, {7, 2}, {3, 2}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, ZigzagAcrossARectangleGivesFourPieces) {
    // Down-up strokes at x = 5, 15, 25 with the turns outside: crossings (5, 0), (5, 10),
    // (15, 10), (15, 0), (25, 0), (25, 10) along the path, paired in that order. The second pair
    // comes against the ring order and is linked from (15, 0).
    const RvPolygon2D rectangle = Ring({{0, 0}, {30, 0}, {30, 10}, {0, 10}});
    const RvPolyLine2D path = Path({{5, -5}, {5, 15}, {15, 15}, {15, -5}, {25, -5}, {25, 15}});
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(rectangle.SplitWithPolyLine(path, result));
    ASSERT_EQ(result.size(), 4u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 0}, {5, 0}, {5, 10}});
    ExpectVerticesNear(result[1], {{5, 0}, {15, 0}, {15, 10}, {5, 10}});
    ExpectVerticesNear(result[2], {{15, 0}, {25, 0}, {25, 10}, {15, 10}});
    ExpectVerticesNear(result[3], {{25, 0}, {30, 0}, {30, 10}, {25, 10}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, TwoCrossingsOnOneSegmentJudgeTheStretchBetweenThem) {
    // Both crossings lie on the one segment, whose end (45, 5) is far out: the stretch is judged
    // by the middle of the crossings, (5, 5), inside. The middle of (0, 5) and (45, 5) would lie
    // outside and leave nothing to pair.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{-5, 5}, {45, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 5}, {10, 5}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 5}, {0, 0}, {10, 0}, {10, 5}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, PathStartingInsideDropsItsFirstCrossing) {
    // From inside, out at (10, 5), in at (10, 8), out at (0, 8). The middle of the stretch after
    // (10, 5), (12.5, 5), lies outside, so the pairing starts at (10, 8) with (0, 8). (10, 5)
    // stays a ring node, merged away by the walk.
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(Square().SplitWithPolyLine(Path({{5, 5}, {15, 5}, {15, 8}, {-5, 8}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 10}, {0, 8}, {10, 8}, {10, 10}});
    ExpectVerticesNear(result[1], {{0, 8}, {0, 0}, {10, 0}, {10, 8}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, PathStartingInsideWithTwoCrossingsAddsNothing) {
    // Out at (10, 5) and back in at (10, 8): the first crossing is dropped and the second has
    // nothing to pair with. The split ends there, with no walk: not even the polygon itself is
    // added.
    const RvPolygon2D marker = Ring({{50, 50}, {60, 50}, {60, 60}});
    std::vector<RvPolygon2D> result{marker};
    EXPECT_FALSE(Square().SplitWithPolyLine(Path({{5, 5}, {15, 5}, {15, 8}, {5, 8}}), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_TRUE(SameVertices(result[0], marker));
}

// ================================================================================================
// SplitWithPolyLine: other rings and paths

TEST(RvPolygon2DSplitWithPolyLineTest, ClockwiseSquareGivesClockwisePiecesBottomFirst) {
    // (0, 0), (0, 10), (10, 10), (10, 0): the ring starts at (10, 0), crossings (0, 5) on edge 1
    // and (10, 5) on edge 3.
    const RvPolygon2D square = Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(square.SplitWithPolyLine(Path({{-5, 5}, {15, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{10, 0}, {0, 0}, {0, 5}, {10, 5}});
    ExpectVerticesNear(result[1], {{0, 5}, {0, 10}, {10, 10}, {10, 5}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, RingStoredClosedSkipsItsEmptyClosingEdge) {
    // Edge 0 runs from the repeated (0, 0) to (0, 0) and is skipped, so the ring starts at
    // (0, 0). The crossing on edge 4, (0, 5), stands after (10, 5) on edge 2: the chain is laid
    // from (10, 5), and the first walk gives the bottom half.
    const RvPolygon2D square = Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(square.SplitWithPolyLine(Path({{-5, 5}, {15, 5}}), result));
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 5}, {0, 5}});
    ExpectVerticesNear(result[1], {{10, 5}, {10, 10}, {0, 10}, {0, 5}});
}

TEST(RvPolygon2DSplitWithPolyLineTest, PathMayBeAPolygonWhoseVerticesAreTakenAsAnOpenPath) {
    // As a closed ring its closing edge from (15, 20) to (-5, 5) would cross the square too; as
    // a path it is not there.
    const RvPolygon2D asPolygon = Ring({{-5, 5}, {15, 5}, {15, 20}});
    const RvPolyLine2D asPolyline = Path({{-5, 5}, {15, 5}, {15, 20}});
    std::vector<RvPolygon2D> fromPolygon;
    std::vector<RvPolygon2D> fromPolyline;
    EXPECT_TRUE(Square().SplitWithPolyLine(asPolygon, fromPolygon));
    EXPECT_TRUE(Square().SplitWithPolyLine(asPolyline, fromPolyline));
    ASSERT_EQ(fromPolygon.size(), 2u);
    ASSERT_EQ(fromPolyline.size(), 2u);
    ExpectVerticesNear(fromPolygon[0], {{0, 10}, {0, 5}, {10, 5}, {10, 10}});
    ExpectVerticesNear(fromPolygon[1], {{0, 5}, {0, 0}, {10, 0}, {10, 5}});
    EXPECT_TRUE(SameVertices(fromPolygon[0], fromPolyline[0]));
    EXPECT_TRUE(SameVertices(fromPolygon[1], fromPolyline[1]));
}

// ================================================================================================
// SplitWithPolyLine: random polygons cut by a straight path

using testing_support::CorpusRandom;
using testing_support::Dot;
using testing_support::IsWellFormed;
using testing_support::Length;
using testing_support::Outline;
using testing_support::Perimeter;
using testing_support::Pt;
using testing_support::RandomCentre;
using testing_support::RandomConvex;
using testing_support::RandomStar;
using testing_support::Reseated;
using testing_support::SignedArea2;
using testing_support::Sub;
using testing_support::ToOutline;
using testing_support::ToRavelin;

// A line across a ring: unit direction `d`, unit normal `n`, and the line n.p = `s`.
struct CutLine {
    Pt d;
    Pt n;
    double s;
};

// Draws a line through the ring's extent in general position to it: every vertex at least 1
// from the line and every edge that it crosses at an angle whose sine is at least 0.05. Gives
// false if none was found.
bool DrawCutLine(CorpusRandom& rng, const Outline& ring, CutLine& line) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        const double angle = rng.Uniform(0.0, 2.0 * kPi);
        line.d = {std::cos(angle), std::sin(angle)};
        line.n = {-line.d.y, line.d.x};
        double lo = HUGE_VAL;
        double hi = -HUGE_VAL;
        for (const Pt& p : ring) {
            lo = std::min(lo, Dot(line.n, p));
            hi = std::max(hi, Dot(line.n, p));
        }
        line.s = rng.Uniform(lo, hi);
        bool ok = true;
        for (std::size_t i = 0; i < ring.size() && ok; ++i) {
            const Pt a = ring[i];
            const Pt b = ring[(i + 1) % ring.size()];
            const double da = Dot(line.n, a) - line.s;
            const double db = Dot(line.n, b) - line.s;
            if (std::fabs(da) < 1.0) {
                ok = false;
            } else if ((da < 0.0) != (db < 0.0)) {
                const Pt e = Sub(b, a);
                ok = std::fabs(Dot(line.n, e)) / Length(e) >= 0.05;
            }
        }
        if (ok) {
            return true;
        }
    }
    return false;
}

// The number of edges of `ring` with their ends on either side of the line.
int CrossingCount(const Outline& ring, const CutLine& line) {
    int count = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const double da = Dot(line.n, ring[i]) - line.s;
        const double db = Dot(line.n, ring[(i + 1) % ring.size()]) - line.s;
        if ((da < 0.0) != (db < 0.0)) {
            ++count;
        }
    }
    return count;
}

// What the property runs counted.
struct CutTally {
    int cases = 0;    // polygons cut by a line in general position
    int manyCut = 0;  // of them, lines crossing four times or more
};

// Cuts `ring` by a straight two-point path along `line`, both ends 50 beyond the ring, and
// checks the pieces: as many as the crossings make, each of three vertices or more, of the
// ring's orientation, on one side of the line within the snapping band of 0.01, with the areas
// adding up to the ring's.
void CheckStraightCut(const Outline& ring, const CutLine& line, CutTally& tally) {
    double lo = HUGE_VAL;
    double hi = -HUGE_VAL;
    for (const Pt& p : ring) {
        lo = std::min(lo, Dot(line.d, p));
        hi = std::max(hi, Dot(line.d, p));
    }
    const Pt base{line.n.x * line.s, line.n.y * line.s};
    const Pt from{base.x + line.d.x * (lo - 50.0), base.y + line.d.y * (lo - 50.0)};
    const Pt to{base.x + line.d.x * (hi + 50.0), base.y + line.d.y * (hi + 50.0)};

    std::vector<RvPolygon2D> pieces;
    const bool split = ToRavelin(ring).SplitWithPolyLine(
        Path(RvPoint2D(from.x, from.y), RvPoint2D(to.x, to.y)), pieces);
    const int crossings = CrossingCount(ring, line);
    ASSERT_EQ(crossings % 2, 0);
    ASSERT_GE(crossings, 2);
    ++tally.cases;
    if (crossings >= 4) {
        ++tally.manyCut;
    }
    // Each chord between a pair of crossings divides one region in two.
    EXPECT_EQ(pieces.size(), static_cast<std::size_t>(crossings / 2 + 1));
    EXPECT_EQ(split, pieces.size() > 1);

    const double area2 = SignedArea2(ring);
    double sum2 = 0.0;
    for (std::size_t k = 0; k < pieces.size(); ++k) {
        SCOPED_TRACE(::testing::Message() << "piece " << k);
        const Outline piece = ToOutline(pieces[k]);
        ASSERT_GE(piece.size(), 3u);
        const double pieceArea2 = SignedArea2(piece);
        EXPECT_GT(pieceArea2 * area2, 0.0) << "the piece turns the other way";
        sum2 += pieceArea2;
        double below = 0.0;
        double above = 0.0;
        for (const Pt& p : piece) {
            const double side = Dot(line.n, p) - line.s;
            below = std::min(below, side);
            above = std::max(above, side);
        }
        EXPECT_TRUE(below >= -0.01 || above <= 0.01)
            << "the piece reaches " << below << " and " << above << " from the line";
    }
    // Every vertex of a piece is a vertex of the ring, a crossing or an end of the path, each
    // off by no more than the snapping band of 0.01 should it be snapped; moving the boundary of
    // the pieces by 0.01 changes their area by at most 0.01 times their boundary, which is the
    // ring's perimeter plus each chord twice, and the chords together are shorter than the
    // path.
    const double chords = (hi - lo) + 100.0;
    const double tolerance = 0.01 * (Perimeter(ring) + 2.0 * chords);
    EXPECT_NEAR(0.5 * sum2, 0.5 * area2, tolerance);
}

TEST(RvPolygon2DSplitWithPolyLineTest, StraightCutsOfRandomConvexPolygonsKeepTheArea) {
    CutTally tally;
    const int kSeeds = 150;
    for (std::uint32_t seed = 1; seed <= static_cast<std::uint32_t>(kSeeds); ++seed) {
        SCOPED_TRACE(::testing::Message() << "convex seed " << seed);
        CorpusRandom rng(seed);
        Outline ring;
        for (int attempt = 0; attempt < 100 && !IsWellFormed(ring, 10.0); ++attempt) {
            const Pt centre = RandomCentre(rng);
            ring = RandomConvex(rng, centre, 280.0);
        }
        if (!IsWellFormed(ring, 10.0)) {
            continue;
        }
        ring = Reseated(rng, ring);
        CutLine line;
        if (!DrawCutLine(rng, ring, line)) {
            continue;
        }
        CheckStraightCut(ring, line, tally);
    }
    // A line through a convex polygon crosses it twice: two pieces each time.
    EXPECT_GE(tally.cases, kSeeds * 9 / 10);
    EXPECT_EQ(tally.manyCut, 0);
}

TEST(RvPolygon2DSplitWithPolyLineTest, StraightCutsOfRandomStarPolygonsKeepTheArea) {
    CutTally tally;
    const int kSeeds = 300;
    for (std::uint32_t seed = 1; seed <= static_cast<std::uint32_t>(kSeeds); ++seed) {
        SCOPED_TRACE(::testing::Message() << "star seed " << seed);
        CorpusRandom rng(1000 + seed);
        Outline ring;
        for (int attempt = 0; attempt < 100 && !IsWellFormed(ring, 10.0); ++attempt) {
            const Pt centre = RandomCentre(rng);
            ring = RandomStar(rng, centre, 30.0, 280.0, 7, 16);
        }
        if (!IsWellFormed(ring, 10.0)) {
            continue;
        }
        ring = Reseated(rng, ring);
        CutLine line;
        if (!DrawCutLine(rng, ring, line)) {
            continue;
        }
        CheckStraightCut(ring, line, tally);
    }
    EXPECT_GE(tally.cases, kSeeds * 9 / 10);
    // Stars are cut into three pieces or more often enough for the pairing to be tried.
    EXPECT_GE(tally.manyCut, kSeeds / 10);
}

}  // namespace
}  // namespace ravelin
