#include "ravelin/polygon/RvCombineGraph.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvIntersection.h"
#include "ravelin/polygon/RvPolygon2D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

constexpr int kPlain = _RvIntersection::kKindPlain;
constexpr int kTouching = _RvIntersection::kKindTouching;

// The axis-aligned rectangle with corners (x0, y0) and (x1, y1), counterclockwise from
// (x0, y0), stored open.
RvPolygon2D Rect(double x0, double y0, double x1, double y1) {
    return Ring({RvPoint2D(x0, y0), RvPoint2D(x1, y0), RvPoint2D(x1, y1), RvPoint2D(x0, y1)});
}

// The same ring with its first vertex repeated at the end.
RvPolygon2D Closed(const RvPolygon2D& open) {
    RvPolygon2D ring = open;
    ring.push_backA(open.front());
    return ring;
}

// Two operands and their graph. The graph refers to the operands, so they live here beside it;
// each phase is run on request.
class Combination {
public:
    Combination(const RvPolygon2D& a, const RvPolygon2D& b) : m_a(a), m_b(b), m_graph(m_a, m_b) {}
    Combination(const Combination&) = delete;
    Combination& operator=(const Combination&) = delete;

    // Phase 2, nodes only.
    Combination& Nodes() {
        m_graph.BuildNodes();
        return *this;
    }
    // Phase 2 complete.
    Combination& Linked() {
        m_graph.BuildNodes();
        m_graph.BuildLinks();
        return *this;
    }
    // Phases 2 and 3.
    Combination& Classified() {
        Linked();
        m_graph.Classify();
        return *this;
    }

    RvCombineGraph& graph() { return m_graph; }
    const RvPolygon2D& a() const { return m_a; }
    const RvPolygon2D& b() const { return m_b; }
    int size() const { return m_graph.Nodes().GetSize(); }
    const _RvIntersection& node(int i) const { return m_graph.Nodes().GetAt(i); }

private:
    RvPolygon2D m_a;
    RvPolygon2D m_b;
    RvCombineGraph m_graph;
};

std::array<int, 4> Indices(const _RvIntersection& n) {
    return {n.m_nIndexA, n.m_nPrevA, n.m_nIndexB, n.m_nPrevB};
}

std::array<int, 4> Links(const _RvIntersection& n) {
    return {n.m_aLink[0], n.m_aLink[1], n.m_aLink[2], n.m_aLink[3]};
}

std::array<int, 4> Classes(const _RvIntersection& n) {
    return {n.m_aClass[0], n.m_aClass[1], n.m_aClass[2], n.m_aClass[3]};
}

using Four = std::array<int, 4>;

// Every field of the two node arrays agrees; positions to within rounding.
void ExpectSameNodes(const Combination& x, const Combination& y) {
    ASSERT_EQ(x.size(), y.size());
    for (int i = 0; i < x.size(); ++i) {
        SCOPED_TRACE(i);
        const _RvIntersection& p = x.node(i);
        const _RvIntersection& q = y.node(i);
        EXPECT_EQ(Indices(p), Indices(q));
        EXPECT_EQ(Links(p), Links(q));
        EXPECT_EQ(Classes(p), Classes(q));
        EXPECT_EQ(p.m_nKind, q.m_nKind);
        EXPECT_EQ(p.m_nIndex, q.m_nIndex);
        ExpectPlanarNear(p.m_Point, q.m_Point.x2D, q.m_Point.y2D, 1e-12);
    }
}

// ---- The node record -----------------------------------------------------------------------

TEST(RvIntersectionNode, DefaultNodeHasNoLinksClassesOrTrace) {
    const _RvIntersection n;
    EXPECT_EQ(n.m_nNext, -1);
    EXPECT_FALSE(n.m_bTraceStart);
    EXPECT_FALSE(n.m_bVisited);
    EXPECT_EQ(Indices(n), (Four{0, 0, 0, 0}));
    EXPECT_EQ(Links(n), (Four{-1, -1, -1, -1}));
    EXPECT_EQ(Classes(n), (Four{0, 0, 0, 0}));
    for (int k = 0; k < 4; ++k) {
        EXPECT_FALSE(n.m_aUsed[k]);
    }
}

TEST(RvIntersectionNode, IndexConstructorSetsTheNamedFieldsAndLeavesTheRestAsDefault) {
    const _RvIntersection n(3, 2, -1, -1, RvPoint2D(4, 5), kTouching);
    EXPECT_EQ(Indices(n), (Four{3, 2, -1, -1}));
    EXPECT_TRUE(PlanarIs(n.m_Point, 4, 5));
    EXPECT_EQ(n.m_nKind, kTouching);
    EXPECT_EQ(n.m_nNext, -1);
    EXPECT_EQ(Links(n), (Four{-1, -1, -1, -1}));
    EXPECT_EQ(Classes(n), (Four{0, 0, 0, 0}));
}

// ---- Phase 1: preparation --------------------------------------------------------------------

TEST(RvCombineGraphPreparation, ZeroesZOfBothOperands) {
    RvPolygon2D a =
        Ring({RvPoint2D(0, 0, 5), RvPoint2D(10, 0, 6), RvPoint2D(10, 10, 7), RvPoint2D(0, 10, 8)});
    RvPolygon2D b = Ring({RvPoint2D(20, 0, -1), RvPoint2D(30, 0, -2), RvPoint2D(30, 10, -3)});
    RvCombineGraph graph(a, b);
    EXPECT_EQ(graph.CountA(), 4);
    EXPECT_EQ(graph.CountB(), 3);
    for (const RvPoint2D& v : a) {
        EXPECT_EQ(v.z, 0.0);
    }
    for (const RvPoint2D& v : b) {
        EXPECT_EQ(v.z, 0.0);
    }
}

TEST(RvCombineGraphPreparation, ErasesAVertexWithin001OfTheOneBefore) {
    // (10.004, 0.003) lies within 0.01 of (10, 0) in both coordinates: it goes, the first stays.
    RvPolygon2D a = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10.004, 0.003),
                          RvPoint2D(10, 10), RvPoint2D(0, 10)});
    RvPolygon2D b = Rect(20, 0, 30, 10);
    RvCombineGraph graph(a, b);
    ASSERT_EQ(a.size(), 4u);
    EXPECT_EQ(graph.CountA(), 4);
    EXPECT_TRUE(PlanarIs(a[1], 10, 0));
    EXPECT_TRUE(PlanarIs(a[2], 10, 10));
}

TEST(RvCombineGraphPreparation, CreepingRunIsKeptAtStepsFromTheLastKeptVertex) {
    // Steps of 0.006: each is within 0.01 of its predecessor, but the comparison is against the
    // last vertex kept, so 0.012 (0.012 from 0) and 0.024 (0.012 from 0.012) stay.
    RvPolygon2D a =
        Ring({RvPoint2D(0, 0), RvPoint2D(0.006, 0), RvPoint2D(0.012, 0), RvPoint2D(0.018, 0),
              RvPoint2D(0.024, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    RvPolygon2D b = Rect(20, 0, 30, 10);
    RvCombineGraph graph(a, b);
    ASSERT_EQ(a.size(), 6u);
    EXPECT_EQ(graph.CountA(), 6);
    EXPECT_DOUBLE_EQ(a[0].x, 0.0);
    EXPECT_DOUBLE_EQ(a[1].x, 0.012);
    EXPECT_DOUBLE_EQ(a[2].x, 0.024);
    EXPECT_DOUBLE_EQ(a[3].x, 10.0);
}

TEST(RvCombineGraphPreparation, ClosingVertexStaysStoredButIsLeftOutOfTheCount) {
    RvPolygon2D a = Closed(Rect(0, 0, 10, 10));
    RvPolygon2D b = Closed(Rect(5, 5, 15, 15));
    RvCombineGraph graph(a, b);
    EXPECT_EQ(a.size(), 5u);
    EXPECT_EQ(b.size(), 5u);
    EXPECT_EQ(graph.CountA(), 4);
    EXPECT_EQ(graph.CountB(), 4);
}

TEST(RvCombineGraphPreparation, LastVertexWithin001OfTheFirstCountsAsClosing) {
    // The last vertex is compared with the vertex before it, not with the first, so it stays;
    // then, being == the first, it is the closing vertex.
    RvPolygon2D a = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10),
                          RvPoint2D(0.004, 0.003)});
    RvPolygon2D b = Rect(20, 0, 30, 10);
    RvCombineGraph graph(a, b);
    EXPECT_EQ(a.size(), 5u);
    EXPECT_EQ(graph.CountA(), 4);
}

// ---- Phase 2: nodes --------------------------------------------------------------------------

// A = (0,0)-(10,10) and B = (5,5)-(15,15) overlap at a corner. No vertex lies on the other's
// boundary, so all eight vertex nodes are plain; the right edge of A (edge 1) crosses the bottom
// edge of B (edge 0) at (10,5), and the top edge of A (edge 2) crosses the left edge of B
// (edge 3, from (5,15) to (5,5)) at (5,10).
TEST(RvCombineGraphNodes, CornerOverlapHasEightPlainVertexNodesThenTwoCrossings) {
    Combination c(Rect(0, 0, 10, 10), Rect(5, 5, 15, 15));
    c.Nodes();
    ASSERT_EQ(c.size(), 10);
    // Vertices of A, with the previous index wrapping to 3 at vertex 0.
    EXPECT_EQ(Indices(c.node(0)), (Four{0, 3, -1, -1}));
    EXPECT_EQ(Indices(c.node(1)), (Four{1, 0, -1, -1}));
    EXPECT_EQ(Indices(c.node(2)), (Four{2, 1, -1, -1}));
    EXPECT_EQ(Indices(c.node(3)), (Four{3, 2, -1, -1}));
    EXPECT_TRUE(PlanarIs(c.node(0).m_Point, 0, 0));
    EXPECT_TRUE(PlanarIs(c.node(2).m_Point, 10, 10));
    // Vertices of B.
    EXPECT_EQ(Indices(c.node(4)), (Four{-1, -1, 0, 3}));
    EXPECT_EQ(Indices(c.node(5)), (Four{-1, -1, 1, 0}));
    EXPECT_EQ(Indices(c.node(6)), (Four{-1, -1, 2, 1}));
    EXPECT_EQ(Indices(c.node(7)), (Four{-1, -1, 3, 2}));
    EXPECT_TRUE(PlanarIs(c.node(4).m_Point, 5, 5));
    EXPECT_TRUE(PlanarIs(c.node(7).m_Point, 5, 15));
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(c.node(i).m_nKind, kPlain) << i;
    }
    // Crossings, in the order of A's edges: each has index == prev on both polygons.
    EXPECT_EQ(Indices(c.node(8)), (Four{1, 1, 0, 0}));
    ExpectPlanarNear(c.node(8).m_Point, 10, 5, 1e-12);
    EXPECT_EQ(c.node(8).m_nKind, kPlain);
    EXPECT_EQ(Indices(c.node(9)), (Four{2, 2, 3, 3}));
    ExpectPlanarNear(c.node(9).m_Point, 5, 10, 1e-12);
    EXPECT_EQ(c.node(9).m_nKind, kPlain);
}

TEST(RvCombineGraphNodes, CornerOverlapCrossingsHaveFourLinks) {
    Combination c(Rect(0, 0, 10, 10), Rect(5, 5, 15, 15));
    c.Linked();
    ASSERT_EQ(c.size(), 10);
    // (10,5) on A's edge 1 between (10,0) [node 1] and (10,10) [node 2], on B's edge 0 between
    // (5,5) [node 4] and (15,5) [node 5]. Backward candidates come first in array order and
    // take their preferred slots 1 and 3; the forward ones then fill 0 and 2.
    EXPECT_EQ(Links(c.node(8)), (Four{2, 1, 5, 4}));
    // (5,10) on A's edge 2 between (10,10) [2] and (0,10) [3], on B's edge 3 between (5,15) [7]
    // and (5,5) [4]; node 4 (B's vertex 0, whose previous is 3) is a forward candidate.
    EXPECT_EQ(Links(c.node(9)), (Four{3, 2, 4, 7}));
}

// B's vertex (10,5) lies inside A's right edge (edge 1), and B's two edges at it go to (13,2)
// outside A and to (7,9) inside it. The segment test that finds crossings ignores hits within
// 0.01 of either segment's ends, and the hit of both incident edges with A's edge is that very
// vertex, so neither gets as far as the run-together test: no crossing node at (10,5). B's top
// edge from (13,9) to (7,9) crosses A's edge 1 at (10,9) in the ordinary way.
TEST(RvCombineGraphNodes, VertexInsideAnEdgeIsOneTouchingNodeWithNoCrossingAtIt) {
    const RvPolygon2D b =
        Ring({RvPoint2D(10, 5), RvPoint2D(13, 2), RvPoint2D(13, 9), RvPoint2D(7, 9)});
    Combination c(Rect(0, 0, 10, 10), b);
    c.Nodes();
    ASSERT_EQ(c.size(), 9);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(c.node(i).m_nKind, kPlain) << i;
    }
    // On the interior of A's edge 1: a == b == 1.
    EXPECT_EQ(Indices(c.node(4)), (Four{1, 1, 0, 3}));
    EXPECT_EQ(c.node(4).m_nKind, kTouching);
    EXPECT_TRUE(PlanarIs(c.node(4).m_Point, 10, 5));
    EXPECT_EQ(Indices(c.node(5)), (Four{-1, -1, 1, 0}));
    EXPECT_EQ(Indices(c.node(6)), (Four{-1, -1, 2, 1}));
    EXPECT_EQ(Indices(c.node(7)), (Four{-1, -1, 3, 2}));
    // The only crossing.
    EXPECT_EQ(Indices(c.node(8)), (Four{1, 1, 2, 2}));
    ExpectPlanarNear(c.node(8).m_Point, 10, 9, 1e-12);
}

// B, a square standing on its corner, has its vertex (10,5) inside A's right edge and lies
// outside A. The hit of both edges at that vertex with A's edge is the vertex itself, which the
// crossing search ignores: one touching node and no crossing at all.
TEST(RvCombineGraphNodes, SquareOnItsCornerInsideAnEdgeIsOneTouchingNode) {
    const RvPolygon2D b =
        Ring({RvPoint2D(10, 5), RvPoint2D(15, 0), RvPoint2D(20, 5), RvPoint2D(15, 10)});
    Combination c(Rect(0, 0, 10, 10), b);
    c.Linked();
    ASSERT_EQ(c.size(), 8);
    EXPECT_EQ(Indices(c.node(4)), (Four{1, 1, 0, 3}));
    EXPECT_EQ(c.node(4).m_nKind, kTouching);
    for (int i = 0; i < 8; ++i) {
        if (i != 4) {
            EXPECT_EQ(c.node(i).m_nKind, kPlain) << i;
        }
    }
    // Along A between (10,10) [2] and (10,0) [1]; along B to (15,0) [5] and (15,10) [7].
    EXPECT_EQ(Links(c.node(4)), (Four{2, 1, 5, 7}));
    // A's vertices at the ends of that edge now reach it instead of each other.
    EXPECT_EQ(Links(c.node(1)), (Four{4, 0, -1, -1}));
    EXPECT_EQ(Links(c.node(2)), (Four{3, 4, -1, -1}));
}

// B's vertex (10.005, 5) is 0.005 off A's right edge: a touching node on edge 1. Its edge to
// (9.995, 3) runs across A's edge so flatly that it meets it at (10, 4), a whole unit from the
// vertex: the hit counts, and since no end of A's edge lies on B's edge, the edges are taken to
// cross. The same edge thus has a touching node at its end and a crossing node of its own.
TEST(RvCombineGraphNodes, FlatEdgeFromATouchingVertexAlsoCrosses) {
    const RvPolygon2D b = Ring({RvPoint2D(10.005, 5), RvPoint2D(9.995, 3), RvPoint2D(20, 4)});
    Combination c(Rect(0, 0, 10, 10), b);
    c.Nodes();
    ASSERT_EQ(c.size(), 8);
    EXPECT_EQ(Indices(c.node(4)), (Four{1, 1, 0, 2}));
    EXPECT_EQ(c.node(4).m_nKind, kTouching);
    // (9.995, 3) is within 0.01 of the edge as well, 0.005 on the inner side.
    EXPECT_EQ(Indices(c.node(5)), (Four{1, 1, 1, 0}));
    EXPECT_EQ(c.node(5).m_nKind, kTouching);
    EXPECT_EQ(Indices(c.node(6)), (Four{-1, -1, 2, 1}));
    EXPECT_EQ(c.node(6).m_nKind, kPlain);
    EXPECT_EQ(Indices(c.node(7)), (Four{1, 1, 0, 0}));
    EXPECT_EQ(c.node(7).m_nKind, kPlain);
    ExpectPlanarNear(c.node(7).m_Point, 10, 4, 1e-9);
}

// B = (10.005, 10.005)-(20, 20) has its vertex 0 within 0.01 of A's vertex 2 at (10, 10).
TEST(RvCombineGraphNodes, VertexOnVertexWithin001IsOneTouchingNodeAndNoCrossing) {
    Combination c(Rect(0, 0, 10, 10), Rect(10.005, 10.005, 20, 20));
    c.Nodes();
    // Four nodes of A, three of B (B's vertex 0 is A's node 2), no crossing: the edges that meet
    // near the corner end 0.005 short of each other's lines, or run parallel.
    ASSERT_EQ(c.size(), 7);
    // At a vertex of B: a = 0 and b = its previous, 3.
    EXPECT_EQ(Indices(c.node(2)), (Four{2, 1, 0, 3}));
    EXPECT_EQ(c.node(2).m_nKind, kTouching);
    EXPECT_TRUE(PlanarIs(c.node(2).m_Point, 10, 10));
    int touching = 0;
    for (int i = 0; i < c.size(); ++i) {
        touching += c.node(i).m_nKind == kTouching ? 1 : 0;
    }
    EXPECT_EQ(touching, 1);
    EXPECT_EQ(Indices(c.node(4)), (Four{-1, -1, 1, 0}));
    EXPECT_EQ(Indices(c.node(5)), (Four{-1, -1, 2, 1}));
    EXPECT_EQ(Indices(c.node(6)), (Four{-1, -1, 3, 2}));
}

TEST(RvCombineGraphLinks, VertexOnVertexNodeIsLinkedAlongBothPolygons) {
    Combination c(Rect(0, 0, 10, 10), Rect(10.005, 10.005, 20, 20));
    c.Linked();
    ASSERT_EQ(c.size(), 7);
    // Along A to (0,10) and (10,0); along B to (20,10.005) [node 4, B's vertex 1] and
    // (10.005,20) [node 6, B's vertex 3].
    EXPECT_EQ(Links(c.node(2)), (Four{3, 1, 4, 6}));
    EXPECT_EQ(Links(c.node(4)), (Four{-1, -1, 5, 2}));
    EXPECT_EQ(Links(c.node(6)), (Four{-1, -1, 2, 5}));
}

TEST(RvCombineGraphNodes, IdenticalSquaresGiveFourTouchingNodes) {
    Combination c(Rect(0, 0, 10, 10), Rect(0, 0, 10, 10));
    c.Nodes();
    ASSERT_EQ(c.size(), 4);
    for (int i = 0; i < 4; ++i) {
        const int prev = i == 0 ? 3 : i - 1;
        EXPECT_EQ(Indices(c.node(i)), (Four{i, prev, i, prev})) << i;
        EXPECT_EQ(c.node(i).m_nKind, kTouching) << i;
    }
}

TEST(RvCombineGraphLinks, IdenticalSquaresLinkTheSameTwoNeighboursAlongBothPolygons) {
    Combination c(Rect(0, 0, 10, 10), Rect(0, 0, 10, 10));
    c.Linked();
    ASSERT_EQ(c.size(), 4);
    for (int i = 0; i < 4; ++i) {
        const int next = (i + 1) % 4;
        const int prev = (i + 3) % 4;
        EXPECT_EQ(Links(c.node(i)), (Four{next, prev, next, prev})) << i;
        EXPECT_EQ(c.node(i).m_nIndex, i);
    }
}

TEST(RvCombineGraphNodes, ClosedStoredOperandsGiveTheSameGraphAsOpenOnes) {
    Combination open(Rect(0, 0, 10, 10), Rect(5, 5, 15, 15));
    Combination closed(Closed(Rect(0, 0, 10, 10)), Closed(Rect(5, 5, 15, 15)));
    open.Classified();
    closed.Classified();
    ExpectSameNodes(closed, open);
}

TEST(RvCombineGraphNodes, ClosedStoredIdenticalSquaresGiveTheSameGraphAsOpenOnes) {
    Combination open(Rect(0, 0, 10, 10), Rect(0, 0, 10, 10));
    Combination closed(Closed(Rect(0, 0, 10, 10)), Rect(0, 0, 10, 10));
    open.Classified();
    closed.Classified();
    ExpectSameNodes(closed, open);
}

TEST(RvCombineGraphNodes, DoubledVertexWithin001BehavesAsIfAbsent) {
    const RvPolygon2D a = Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10.004, 0.003),
                                RvPoint2D(10, 10), RvPoint2D(0, 10)});
    const RvPolygon2D b = Ring({RvPoint2D(5, 5), RvPoint2D(15, 5), RvPoint2D(15, 15),
                                RvPoint2D(5, 15), RvPoint2D(5.006, 15.002)});
    Combination doubled(a, b);
    Combination plain(Rect(0, 0, 10, 10), Rect(5, 5, 15, 15));
    doubled.Classified();
    plain.Classified();
    EXPECT_EQ(doubled.graph().CountA(), 4);
    EXPECT_EQ(doubled.graph().CountB(), 4);
    ExpectSameNodes(doubled, plain);
}

// ---- Phase 2: links --------------------------------------------------------------------------

TEST(RvCombineGraphLinks, EachNodeGetsItsOwnIndex) {
    Combination c(Rect(0, 0, 10, 10), Rect(5, 5, 15, 15));
    c.Nodes();
    c.graph().BuildLinks();
    for (int i = 0; i < c.size(); ++i) {
        EXPECT_EQ(c.node(i).m_nIndex, i);
    }
}

TEST(RvCombineGraphLinks, CornerOverlapVertexLinksGoToTheNearestNodeAlongEachEdge) {
    Combination c(Rect(0, 0, 10, 10), Rect(5, 5, 15, 15));
    c.Linked();
    ASSERT_EQ(c.size(), 10);
    // A's vertices: (10,0) [1] first meets (10,10) [2] forward, which the crossing (10,5) [8]
    // then replaces as nearer; (10,10) is reached by both crossings.
    EXPECT_EQ(Links(c.node(0)), (Four{1, 3, -1, -1}));
    EXPECT_EQ(Links(c.node(1)), (Four{8, 0, -1, -1}));
    EXPECT_EQ(Links(c.node(2)), (Four{9, 8, -1, -1}));
    EXPECT_EQ(Links(c.node(3)), (Four{0, 9, -1, -1}));
    // B's vertices.
    EXPECT_EQ(Links(c.node(4)), (Four{-1, -1, 8, 9}));
    EXPECT_EQ(Links(c.node(5)), (Four{-1, -1, 6, 8}));
    EXPECT_EQ(Links(c.node(6)), (Four{-1, -1, 7, 5}));
    EXPECT_EQ(Links(c.node(7)), (Four{-1, -1, 9, 6}));
}

// A node whose index equals its previous index (a crossing, or a vertex inside an edge of the
// other polygon) meets its own forward and backward tests. Were it not passed over, it would be
// offered to itself at distance 0 and, through the other slot, replace a real neighbour.
TEST(RvCombineGraphLinks, NodeIsNeverLinkedToItself) {
    const RvPolygon2D b =
        Ring({RvPoint2D(10, 5), RvPoint2D(13, 2), RvPoint2D(13, 9), RvPoint2D(7, 9)});
    Combination c(Rect(0, 0, 10, 10), b);
    c.Linked();
    ASSERT_EQ(c.size(), 9);
    // (10,5): along A between (10,0) [1] and the crossing (10,9) [8]; along B to (13,2) [5]
    // forward and (7,9) [7] backward.
    EXPECT_EQ(Links(c.node(4)), (Four{8, 1, 5, 7}));
    // The crossing (10,9): along A between (10,5) [4] and (10,10) [2]; along B between (13,9)
    // [6] and (7,9) [7].
    EXPECT_EQ(Links(c.node(8)), (Four{2, 4, 7, 6}));
    for (int i = 0; i < c.size(); ++i) {
        for (int k = 0; k < 4; ++k) {
            EXPECT_NE(c.node(i).m_aLink[k], i) << i << " slot " << k;
        }
    }
}

// B = (2,-5)-(8,5) crosses A's bottom edge at (8,0) [node 8, from B's edge 1] and (2,0)
// [node 9, from B's edge 3]. Along that edge the nodes lie (0,0) [0], (2,0) [9], (8,0) [8],
// (10,0) [1], and each ends up linked to its neighbours in this order only.
TEST(RvCombineGraphLinks, SeveralNodesOnOneEdgeLinkToTheirNearestNeighbours) {
    Combination c(Rect(0, 0, 10, 10), Rect(2, -5, 8, 5));
    c.Linked();
    ASSERT_EQ(c.size(), 10);
    EXPECT_TRUE(PlanarIs(c.node(8).m_Point, 8, 0));
    EXPECT_TRUE(PlanarIs(c.node(9).m_Point, 2, 0));
    // (0,0): offered (10,0), then (8,0), then (2,0) forward; each nearer one replaces the last.
    EXPECT_EQ(Links(c.node(0)), (Four{9, 3, -1, -1}));
    // (10,0): (10,10) forward; backward (0,0), then (8,0) replaces it; (2,0) is farther.
    EXPECT_EQ(Links(c.node(1)), (Four{2, 8, -1, -1}));
    // (8,0): (0,0) backward, (10,0) forward; (2,0) lies the other way from (10,0), so it
    // competes for the other slot and wins it from (0,0).
    EXPECT_EQ(Links(c.node(8)), (Four{1, 9, 6, 5}));
    // (2,0): (0,0) backward, (10,0) forward, then (8,0) replaces (10,0) as nearer.
    EXPECT_EQ(Links(c.node(9)), (Four{8, 0, 4, 7}));
}

// A = (10,8)-(20,12) against B = (0,0)-(20,20): A's right edge lies inside B's right edge, so
// A's vertices (20,8) [node 1] and (20,12) [node 2] both touch B's edge 1 and are each other's
// forward and backward candidates along B. The first offer of the other node fills the forward
// slot; its second offer, to the empty backward slot, competes with the node already held in
// that direction instead of filling the slot with it again. So the backward slot stays free for
// B's vertex on the far side: (20,0) [5] for (20,8), and (20,20) [6] for (20,12).
TEST(RvCombineGraphLinks, TwoNodesInsideOneEdgeKeepTheirNeighboursOnBothSides) {
    Combination c(Rect(10, 8, 20, 12), Rect(0, 0, 20, 20));
    c.Linked();
    ASSERT_EQ(c.size(), 8);
    EXPECT_EQ(Indices(c.node(1)), (Four{1, 0, 1, 1}));
    EXPECT_EQ(Indices(c.node(2)), (Four{2, 1, 1, 1}));
    EXPECT_EQ(c.node(1).m_nKind, kTouching);
    EXPECT_EQ(c.node(2).m_nKind, kTouching);
    EXPECT_EQ(Links(c.node(1)), (Four{2, 0, 2, 5}));
    EXPECT_EQ(Links(c.node(2)), (Four{3, 1, 1, 6}));
    // B's vertices beside them see the nearer of the two.
    EXPECT_EQ(Links(c.node(5)), (Four{-1, -1, 1, 4}));
    EXPECT_EQ(Links(c.node(6)), (Four{-1, -1, 7, 2}));
}

// A thin spike: from (0,0) the vertices (10000,-5) and (10000,5) lie in directions 0.001 rad
// apart, which counts as one direction (cosine above 0.999999). At a vertex the two slots face
// two different edges, so the backward neighbour still takes the empty slot 1.
TEST(RvCombineGraphLinks, NarrowCornerKeepsBothNeighbours) {
    const RvPolygon2D a = Ring({RvPoint2D(0, 0), RvPoint2D(10000, -5), RvPoint2D(10000, 5)});
    Combination c(a, Rect(-100, -100, -90, -90));
    c.Linked();
    ASSERT_EQ(c.size(), 7);
    EXPECT_EQ(Links(c.node(0)), (Four{1, 2, -1, -1}));
    EXPECT_EQ(Links(c.node(1)), (Four{2, 0, -1, -1}));
    EXPECT_EQ(Links(c.node(2)), (Four{0, 1, -1, -1}));
}

// ---- Phase 3: classification ----------------------------------------------------------------

TEST(RvCombineGraphClassify, CornerOverlapLinksGetInsideAndOutsideClasses) {
    Combination c(Rect(0, 0, 10, 10), Rect(5, 5, 15, 15));
    c.Classified();
    ASSERT_EQ(c.size(), 10);
    // (0,0)-(10,0): midpoint (5,0) is outside B.
    EXPECT_EQ(Classes(c.node(0)), (Four{LinkAOutsideB, LinkAOutsideB, 0, 0}));
    // (10,10)-(5,10) and (10,10)-(10,5): midpoints (7.5,10) and (10,7.5) strictly inside B.
    EXPECT_EQ(Classes(c.node(2)), (Four{LinkAInsideB, LinkAInsideB, 0, 0}));
    // (5,5)-(10,5) and (5,5)-(5,10): midpoints (7.5,5) and (5,7.5) strictly inside A.
    EXPECT_EQ(Classes(c.node(4)), (Four{0, 0, LinkBInsideA, LinkBInsideA}));
    // (15,5)-(15,15) and (15,5)-(10,5): midpoints (15,10) and (12.5,5) outside A.
    EXPECT_EQ(Classes(c.node(5)), (Four{0, 0, LinkBOutsideA, LinkBOutsideA}));
    // The crossing (10,5) has one link of each class: to (10,10) in B, to (10,0) out of B, to
    // (15,5) out of A, to (5,5) in A.
    EXPECT_EQ(Classes(c.node(8)), (Four{LinkAInsideB, LinkAOutsideB, LinkBOutsideA, LinkBInsideA}));
    EXPECT_EQ(Classes(c.node(9)), (Four{LinkAOutsideB, LinkAInsideB, LinkBInsideA, LinkBOutsideA}));
}

TEST(RvCombineGraphClassify, IdenticalSquaresHaveOnlySharedSameSideLinks) {
    Combination c(Rect(0, 0, 10, 10), Rect(0, 0, 10, 10));
    c.Classified();
    ASSERT_EQ(c.size(), 4);
    // The midpoints lie on both boundaries, so all four links per node are shared edges; the
    // probe 5 to the left of each lies in both squares or in neither.
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Classes(c.node(i)), (Four{LinkSharedSameSide, LinkSharedSameSide,
                                            LinkSharedSameSide, LinkSharedSameSide}))
            << i;
    }
}

// A = (0,0)-(10,10) and B = (10,0)-(20,10) share the edge from (10,0) [node 1] to (10,10)
// [node 2]. From node 1 the probe 5 to the left of the link lies at (5,5), in A only; from
// node 2 at (15,5), in B only: the interiors lie on opposite sides.
TEST(RvCombineGraphClassify, SharedEdgeBetweenSideBySideSquaresIsOppositeSide) {
    Combination c(Rect(0, 0, 10, 10), Rect(10, 0, 20, 10));
    c.Classified();
    ASSERT_EQ(c.size(), 6);
    EXPECT_EQ(Indices(c.node(1)), (Four{1, 0, 0, 3}));
    EXPECT_EQ(Indices(c.node(2)), (Four{2, 1, 3, 2}));
    EXPECT_EQ(Links(c.node(1)), (Four{2, 0, 4, 2}));
    EXPECT_EQ(Links(c.node(2)), (Four{3, 1, 1, 5}));
    EXPECT_EQ(Classes(c.node(1)),
              (Four{LinkSharedOppositeSide, LinkAOutsideB, LinkBOutsideA, LinkSharedOppositeSide}));
    EXPECT_EQ(Classes(c.node(2)),
              (Four{LinkAOutsideB, LinkSharedOppositeSide, LinkSharedOppositeSide, LinkBOutsideA}));
}

// The same shared edge with B only 3 wide: B = (10,0)-(13,10). From node 2, the probe 5 to the
// left of the link down to node 1 lands at (15,5), past B's far side, so neither polygon holds
// it and the link reads as same-side. From node 1 the probe (5,5) still lies in A alone. The
// two ends of one shared edge thus disagree.
TEST(RvCombineGraphClassify, SharedEdgeOfAPolygonNarrowerThanTheProbeIsMisjudgedFromOneEnd) {
    Combination c(Rect(0, 0, 10, 10), Rect(10, 0, 13, 10));
    c.Classified();
    ASSERT_EQ(c.size(), 6);
    EXPECT_EQ(Links(c.node(1)), (Four{2, 0, 4, 2}));
    EXPECT_EQ(Links(c.node(2)), (Four{3, 1, 1, 5}));
    EXPECT_EQ(c.node(1).m_aClass[0], LinkSharedOppositeSide);
    EXPECT_EQ(c.node(1).m_aClass[3], LinkSharedOppositeSide);
    EXPECT_EQ(c.node(2).m_aClass[1], LinkSharedSameSide);
    EXPECT_EQ(c.node(2).m_aClass[2], LinkSharedSameSide);
}

// A = (10,8)-(20,12) inside B = (0,0)-(20,20), A's right edge lying on B's. The touching nodes
// (20,8) and (20,12) are neighbours along both polygons: a shared edge, judged by the probe. Their
// other links are ordinary inside or outside links.
TEST(RvCombineGraphClassify, OverlappingEdgesGiveSharedLinksAndOrdinaryOnesBeside) {
    Combination c(Rect(10, 8, 20, 12), Rect(0, 0, 20, 20));
    c.Classified();
    ASSERT_EQ(c.size(), 8);
    // (20,8): to (20,12) along A and B, probe (15,10) in both: same side. To (10,8): midpoint
    // (15,8) inside B. To (20,0): midpoint (20,4) outside A.
    EXPECT_EQ(Classes(c.node(1)),
              (Four{LinkSharedSameSide, LinkAInsideB, LinkSharedSameSide, LinkBOutsideA}));
    // (20,12): probe (25,10) in neither: same side as well.
    EXPECT_EQ(Classes(c.node(2)),
              (Four{LinkAInsideB, LinkSharedSameSide, LinkSharedSameSide, LinkBOutsideA}));
}

TEST(RvCombineGraphClassify, EmptySlotsStayUnclassified) {
    Combination c(Rect(0, 0, 10, 10), Rect(20, 0, 30, 10));
    c.Classified();
    ASSERT_EQ(c.size(), 8);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Classes(c.node(i)), (Four{LinkAOutsideB, LinkAOutsideB, 0, 0})) << i;
    }
    for (int i = 4; i < 8; ++i) {
        EXPECT_EQ(Classes(c.node(i)), (Four{0, 0, LinkBOutsideA, LinkBOutsideA})) << i;
    }
}

// ---- Phase 4: the mode table and tracing ------------------------------------------------------

TEST(RvCombineGraphAllowedClasses, DifferenceFollowsAOutsideAndBInsideThenOppositeSharedEdges) {
    int allowed[4] = {0, 0, 0, 0};
    RvCombineGraph::AllowedClasses(CombineDifference, allowed);
    EXPECT_EQ(allowed[0], LinkAOutsideB);
    EXPECT_EQ(allowed[1], LinkBInsideA);
    EXPECT_EQ(allowed[2], LinkSharedOppositeSide);
    EXPECT_EQ(allowed[3], LinkNoClass);
}

TEST(RvCombineGraphAllowedClasses, IntersectionFollowsInsideLinksThenSameSideSharedEdges) {
    int allowed[4] = {0, 0, 0, 0};
    RvCombineGraph::AllowedClasses(CombineIntersection, allowed);
    EXPECT_EQ(allowed[0], LinkAInsideB);
    EXPECT_EQ(allowed[1], LinkBInsideA);
    EXPECT_EQ(allowed[2], LinkSharedSameSide);
    EXPECT_EQ(allowed[3], LinkNoClass);
}

TEST(RvCombineGraphAllowedClasses, UnionFollowsOutsideLinksThenEverySharedEdge) {
    int allowed[4] = {0, 0, 0, 0};
    RvCombineGraph::AllowedClasses(CombineUnion, allowed);
    EXPECT_EQ(allowed[0], LinkAOutsideB);
    EXPECT_EQ(allowed[1], LinkBOutsideA);
    EXPECT_EQ(allowed[2], LinkSharedSameSide);
    EXPECT_EQ(allowed[3], LinkSharedOppositeSide);
}

TEST(RvCombineGraphAllowedClasses, UnknownModeAllowsNothing) {
    int allowed[4] = {0, 0, 0, 0};
    RvCombineGraph::AllowedClasses(static_cast<_RvCombineMode>(3), allowed);
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(allowed[k], LinkNoClass) << k;
    }
}

// The union of side-by-side squares: the outer links are primary and make one ring; the
// shared edge is secondary, is traced afterwards from the last node that has it (node 2,
// (10,10)), gives two points and is dropped. Both its links end up used.
TEST(RvCombineGraphTrace, SharedEdgeOfAUnionIsTracedLastAndDropped) {
    Combination c(Rect(0, 0, 10, 10), Rect(10, 0, 20, 10));
    c.Classified();
    std::vector<RvPolygon2D> result;
    c.graph().TraceRings(CombineUnion, result);
    ASSERT_EQ(result.size(), 1u);
    EXPECT_EQ(result[0].size(), 6u);
    for (int k = 0; k < 4; ++k) {
        EXPECT_TRUE(c.node(1).m_aUsed[k]) << k;
        EXPECT_TRUE(c.node(2).m_aUsed[k]) << k;
    }
    // The trace flags are reset after each ring.
    for (int i = 0; i < c.size(); ++i) {
        EXPECT_FALSE(c.node(i).m_bVisited) << i;
        EXPECT_FALSE(c.node(i).m_bTraceStart) << i;
    }
}

// The difference of disjoint squares follows only A's links: B's stay unused.
TEST(RvCombineGraphTrace, LinksOfClassesTheModeDoesNotFollowStayUnused) {
    Combination c(Rect(0, 0, 10, 10), Rect(20, 0, 30, 10));
    c.Classified();
    std::vector<RvPolygon2D> result;
    c.graph().TraceRings(CombineDifference, result);
    ASSERT_EQ(result.size(), 1u);
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(c.node(i).m_aUsed[0] && c.node(i).m_aUsed[1]) << i;
    }
    for (int i = 4; i < 8; ++i) {
        EXPECT_FALSE(c.node(i).m_aUsed[2] || c.node(i).m_aUsed[3]) << i;
    }
}

}  // namespace
