#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "ravelin/numeric/Number.h"
#include "ravelin/skeleton/RvSkeleton.h"
#include "ravelin/skeleton/SkeletonGeometry.h"

using namespace ravelin;

// The wavefront of the straight skeleton: which events a run takes, in which order, and what each
// leaves in the vertex list and the line list. Every expected value below is worked out by hand
// from the event rules: the bisectors of the corners, the meeting points of neighbouring
// bisectors, the split points (incentres), and the order in which the binary heap hands out
// events of equal height.
//
// About the heap. Events are compared on height with the 5e-07 band, so equal heights are
// equivalent and the heap's own moves decide. A push moves the new event up past its parent
// only while the parent is higher. A pop moves the last event to the root's place by taking, at
// each level, the right child unless the right child is higher than the left one, down to a leaf
// (with one left child taken at the end when the size is even and the hole is the last parent),
// then lets the moved event climb back up while its parent is higher.

namespace {

constexpr double kTol = 1e-9;

using Contours = std::vector<std::vector<Point>>;

// One contour, appended point by point.
Contours OneContour(std::initializer_list<std::pair<double, double>> points) {
    std::vector<Point> contour;
    for (const auto& [x, y] : points) {
        contour.push_back(Point{x, y});
    }
    Contours contours;
    contours.push_back(contour);
    return contours;
}

const SkeletonVertex& VertexAt(const RvSkeleton& s, int id) {
    return *std::next(s.Vertices().begin(), id);
}

const SkeletonVertex* VertexPtr(const RvSkeleton& s, int id) {
    return &VertexAt(s, id);
}

const SkeletonLine& LineAt(const RvSkeleton& s, int index) {
    return *std::next(s.begin(), index);
}

const SkeletonLine* LinePtr(const RvSkeleton& s, int index) {
    return &LineAt(s, index);
}

void ExpectPointNear(const Point& p, double x, double y) {
    EXPECT_NEAR(p.x, x, kTol);
    EXPECT_NEAR(p.y, y, kTol);
}

// Line `index` rises from vertex `lowerId` to vertex `higherId`.
void ExpectLine(const RvSkeleton& s, int index, int lowerId, int higherId) {
    const SkeletonLine& line = LineAt(s, index);
    ASSERT_NE(line.lower.vertex, nullptr) << "line " << index;
    ASSERT_NE(line.higher.vertex, nullptr) << "line " << index;
    EXPECT_EQ(line.lower.vertex->id, lowerId) << "line " << index;
    EXPECT_EQ(line.higher.vertex->id, higherId) << "line " << index;
}

// The rules that every finished run keeps:
// - each vertex's id is its position in the list;
// - every line rises from a consumed vertex;
// - a vertex's out-line starts at it, has the vertex's left line as its lower right neighbour and
//   its right line as its lower left neighbour, and those two point back up to it (the left line
//   by its upper left link, the right line by its upper right link);
// - a vertex made by an edge event has the lines from its two parents as left and right line,
//   both ending at it, the left one's upper right neighbour being the right one and back;
// - a vertex made by a closing event (no parents) has three lines ending at it, each one's upper
//   right neighbour's upper left neighbour being itself, and three steps to the right going round.
void ExpectWellFormed(const RvSkeleton& s) {
    int position = 0;
    for (const SkeletonVertex& v : s.Vertices()) {
        EXPECT_EQ(v.id, position);
        ++position;
    }
    for (const SkeletonLine& line : s) {
        ASSERT_NE(line.lower.vertex, nullptr);
        ASSERT_NE(line.higher.vertex, nullptr);
        EXPECT_TRUE(line.lower.vertex->done) << "vertex " << line.lower.vertex->id;
    }
    for (const SkeletonVertex& v : s.Vertices()) {
        if (v.outLine == nullptr) {
            continue;
        }
        const SkeletonLine& out = *v.outLine;
        EXPECT_EQ(out.lower.vertex, &v) << "vertex " << v.id;
        EXPECT_EQ(out.lower.right, v.leftLine) << "vertex " << v.id;
        EXPECT_EQ(out.lower.left, v.rightLine) << "vertex " << v.id;
        if (v.leftLine != nullptr) {
            EXPECT_EQ(v.leftLine->higher.left, &out) << "vertex " << v.id;
        }
        if (v.rightLine != nullptr) {
            EXPECT_EQ(v.rightLine->higher.right, &out) << "vertex " << v.id;
        }
    }
    for (const SkeletonVertex& v : s.Vertices()) {
        const bool byEdgeEvent =
            v.leftParent != nullptr && v.rightParent != nullptr && v.leftParent != &v &&
            v.leftLine != nullptr && v.rightLine != nullptr &&
            v.leftLine->lower.vertex == v.leftParent && v.rightLine->lower.vertex == v.rightParent;
        if (byEdgeEvent) {
            EXPECT_EQ(v.leftLine->higher.vertex, &v) << "vertex " << v.id;
            EXPECT_EQ(v.rightLine->higher.vertex, &v) << "vertex " << v.id;
            EXPECT_EQ(v.leftLine->higher.right, v.rightLine) << "vertex " << v.id;
            EXPECT_EQ(v.rightLine->higher.left, v.leftLine) << "vertex " << v.id;
            EXPECT_EQ(v.leftParent->successor, &v) << "vertex " << v.id;
            EXPECT_EQ(v.rightParent->successor, &v) << "vertex " << v.id;
        }
        if (v.leftParent == nullptr) {  // a closing vertex
            std::vector<const SkeletonLine*> in;
            for (const SkeletonLine& line : s) {
                if (line.higher.vertex == &v) {
                    in.push_back(&line);
                }
            }
            ASSERT_EQ(in.size(), 3u) << "vertex " << v.id;
            for (const SkeletonLine* line : in) {
                ASSERT_NE(line->higher.right, nullptr);
                EXPECT_EQ(line->higher.right->higher.left, line);
                EXPECT_EQ(line->higher.right->higher.right->higher.right, line);
            }
        }
    }
}

// How many lines rise from a vertex that has no out-line of its own (only the lines that a
// two-vertex ring closure adds, or that start at one of its two vertices).
int LinesFromVerticesWithoutOutLine(const RvSkeleton& s) {
    int count = 0;
    for (const SkeletonLine& line : s) {
        if (line.lower.vertex->outLine == nullptr) {
            ++count;
        }
    }
    return count;
}

bool AllDone(const RvSkeleton& s) {
    for (const SkeletonVertex& v : s.Vertices()) {
        if (!v.done) {
            return false;
        }
    }
    return true;
}

// The vertex at the top of the arcs from `v`: out-lines followed upwards until one is missing.
const SkeletonVertex* Top(const SkeletonVertex* v) {
    while (v->outLine != nullptr) {
        v = v->outLine->higher.vertex;
    }
    return v;
}

// The event of a vertex of a finished run, as the loop would compute it now. The vertex is stored
// non-const inside the skeleton; the event only reads it.
SkeletonEvent EventOf(RvSkeleton& s, int id) {
    return SkeletonEvent(s, const_cast<SkeletonVertex&>(VertexAt(s, id)));
}

// ---- The clockwise square ---------------------------------------------------------------------

// Square (0,0), (0,10), (10,10), (10,0), clockwise. The bisectors point inwards at pi/4, -pi/4,
// -3pi/4 and 3pi/4 and all meet at (5,5). Each vertex's meetings with both neighbours are 7.07
// away, so the tie goes to the previous neighbour: vertex k's event is (k-1, k) at height 5,
// and the four events E0..E3 are pushed in list order. Equal heights never move in a push, so
// the heap is [E0, E1, E2, E3]; E0 = (v3, v0) comes out first and E2 moves to the root.
//
// E0: v3 and v0 are not the last three of their ring, so an edge event makes v4 at (5,5) with
// v3's previous edge (up the side x = 10) and v0's next edge (up the side x = 0), parallel, so
// it moves at their angle pi/2. Lines 0 (v3 -> v4) and 1 (v0 -> v4). The ring is v4, v1, v2.
// v4's own event: both neighbours' bisectors pass through (5,5), so it meets them where it
// stands, (v2, v4) at height 5.
//
// E2 = (v1, v2): v1's predecessor v4 has v2 as its predecessor, so the three close: v5 at (5,5)
// with lines 2 (v1), 3 (v2), 4 (v4), in that order. The remaining events E1, E3 and (v2, v4) all
// name consumed vertices and are dropped.
TEST(RvSkeletonEvents, ClockwiseSquareTakesOneEdgeEventThenClosesAtTheCentre) {
    Contours c = OneContour({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
    const RvSkeleton s(c);
    ASSERT_EQ(s.size(), 5u);
    ASSERT_EQ(s.Vertices().size(), 6u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));

    // The two added vertices coincide at the centre.
    const SkeletonVertex& v4 = VertexAt(s, 4);
    const SkeletonVertex& v5 = VertexAt(s, 5);
    ExpectPointNear(v4.point, 5, 5);
    ExpectPointNear(v5.point, 5, 5);
    EXPECT_EQ(v4.leftParent, VertexPtr(s, 3));
    EXPECT_EQ(v4.rightParent, VertexPtr(s, 0));
    EXPECT_NEAR(v4.bisector.angle, kPi / 2, kTol);
    // After the edge event the ring was v4, v1, v2 (the closing event leaves the links).
    EXPECT_EQ(v4.prevVertex, VertexPtr(s, 2));
    EXPECT_EQ(v4.nextVertex, VertexPtr(s, 1));
    EXPECT_EQ(v5.leftParent, nullptr);  // made by the closing event
    EXPECT_EQ(v5.rightParent, nullptr);

    ExpectLine(s, 0, 3, 4);
    ExpectLine(s, 1, 0, 4);
    ExpectLine(s, 2, 1, 5);
    ExpectLine(s, 3, 2, 5);
    ExpectLine(s, 4, 4, 5);

    const SkeletonLine* l0 = LinePtr(s, 0);
    const SkeletonLine* l1 = LinePtr(s, 1);
    const SkeletonLine* l2 = LinePtr(s, 2);
    const SkeletonLine* l3 = LinePtr(s, 3);
    const SkeletonLine* l4 = LinePtr(s, 4);
    // The edge event: a.higher.right == b and b.higher.left == a.
    EXPECT_EQ(l0->higher.right, l1);
    EXPECT_EQ(l1->higher.left, l0);
    // Round the closing vertex, in the order a (v1), b (v2), c (v4).
    EXPECT_EQ(l2->higher.right, l3);
    EXPECT_EQ(l3->higher.right, l4);
    EXPECT_EQ(l4->higher.right, l2);
    EXPECT_EQ(l2->higher.left, l4);
    EXPECT_EQ(l3->higher.left, l2);
    EXPECT_EQ(l4->higher.left, l3);
    // The line from v4 takes v4's left line (0) as lower right and its right line (1) as lower
    // left; those two point up to it.
    EXPECT_EQ(l4->lower.right, l0);
    EXPECT_EQ(l4->lower.left, l1);
    EXPECT_EQ(l0->higher.left, l4);
    EXPECT_EQ(l1->higher.right, l4);
    // Contour vertices have no lines below them.
    for (const SkeletonLine* line : {l0, l1, l2, l3}) {
        EXPECT_EQ(line->lower.left, nullptr);
        EXPECT_EQ(line->lower.right, nullptr);
    }
    // Successors are set by the edge event only.
    EXPECT_EQ(VertexAt(s, 3).successor, &v4);
    EXPECT_EQ(VertexAt(s, 0).successor, &v4);
    EXPECT_EQ(VertexAt(s, 1).successor, nullptr);
    EXPECT_EQ(VertexAt(s, 2).successor, nullptr);
    EXPECT_EQ(v4.successor, nullptr);
    EXPECT_EQ(v4.outLine, l4);
    EXPECT_EQ(v5.outLine, nullptr);
    for (const SkeletonLine& line : s) {
        EXPECT_TRUE(IsInfinite(line.extendPoint));
    }
}

// Rectangle (0,0), (0,2), (4,2), (4,0), clockwise. v0 meets v1 at (1,1) (1.41 away) before v3
// at (2,2), and v1 meets v0 before v2 at (2,0): both events are (v0, v1) at height 1; likewise
// v2 and v3 both give (v2, v3) at (3,1). Heap [E0, E1, E2, E3]: E0 first makes v4 at (1,1)
// between the two long sides, parallel, so it moves along the previous edge's angle 0; its
// event meets v3 and v2 at (3,1). E2 then finds the ring v4, v2, v3 and closes it at (3,1).
TEST(RvSkeletonEvents, RectangleFourByTwoMeetsInPairsAtEachEndJoinedByTheRidge) {
    Contours c = OneContour({{0, 0}, {0, 2}, {4, 2}, {4, 0}});
    const RvSkeleton s(c);
    ASSERT_EQ(s.size(), 5u);
    ASSERT_EQ(s.Vertices().size(), 6u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));

    const SkeletonVertex& v4 = VertexAt(s, 4);
    const SkeletonVertex& v5 = VertexAt(s, 5);
    ExpectPointNear(v4.point, 1, 1);
    ExpectPointNear(v5.point, 3, 1);
    EXPECT_EQ(v4.leftParent, VertexPtr(s, 0));
    EXPECT_EQ(v4.rightParent, VertexPtr(s, 1));
    EXPECT_NEAR(v4.bisector.angle, 0.0, kTol);
    EXPECT_EQ(v5.leftParent, nullptr);

    ExpectLine(s, 0, 0, 4);
    ExpectLine(s, 1, 1, 4);
    ExpectLine(s, 2, 2, 5);
    ExpectLine(s, 3, 3, 5);
    ExpectLine(s, 4, 4, 5);  // the ridge from (1,1) to (3,1)
    EXPECT_NEAR(PointDistance(v4.point, v5.point), 2.0, kTol);
}

// ---- Single vertices --------------------------------------------------------------------------

// Rectangle 8 by 4 with an extra point (4,4) in the middle of its top side. At (4,4) the previous
// edge points at -pi and the next one at 0: their difference reduces to -pi, which is not
// positive, so no split is sought, and the bisector is the perpendicular -pi/2. Its event is the
// meeting with v1's bisector at (4,0), 4 along, height 4; a split test would have found the
// bottom side's midway point (4,2) at height 2 instead. The ends close first (height 2): v0, v1
// meet at (2,2) (v5, moving right between the long sides), v3, v4 at (6,2) (v6, moving left).
// v5's event meets v2's bisector at (4,2). v6 and v5 face each other on y = 2, which is not an
// event, so v6's event is with v2 at (4,2) too. Heap order: E0 (v0,v1), E3 (v3,v4), then
// (v5, v2) at height 2 finds the ring v5, v2, v6 and closes it at (4,2).
TEST(RvSkeletonEvents, CollinearVertexIsNotReflexAndMovesAlongThePerpendicular) {
    Contours c = OneContour({{0, 0}, {0, 4}, {4, 4}, {8, 4}, {8, 0}});
    const RvSkeleton s(c);
    const SkeletonVertex& v2 = VertexAt(s, 2);
    double turn = v2.prevEdge.angle - v2.nextEdge.angle;
    NormalizeAngle(turn);
    EXPECT_NEAR(turn, -kPi, kTol);
    EXPECT_NEAR(v2.bisector.angle, -kPi / 2, kTol);

    ASSERT_EQ(s.size(), 7u);
    ASSERT_EQ(s.Vertices().size(), 8u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));
    ExpectPointNear(VertexAt(s, 5).point, 2, 2);
    ExpectPointNear(VertexAt(s, 6).point, 6, 2);
    ExpectPointNear(VertexAt(s, 7).point, 4, 2);
    ExpectLine(s, 0, 0, 5);
    ExpectLine(s, 1, 1, 5);
    ExpectLine(s, 2, 3, 6);
    ExpectLine(s, 3, 4, 6);
    ExpectLine(s, 4, 5, 7);
    ExpectLine(s, 5, 2, 7);  // straight down from (4,4) to (4,2)
    ExpectLine(s, 6, 6, 7);
    EXPECT_EQ(v2.outLine, LinePtr(s, 5));
    EXPECT_EQ(VertexAt(s, 7).leftParent, nullptr);  // a closing vertex, not a split
}

// An event vertex between two parallel wavefront edges: the edges' rays never meet, nor do their
// lines, so the vertex moves along the previous edge.
TEST(RvSkeletonEvents, EventVertexBetweenParallelEdgesMovesAlongThePreviousEdge) {
    // A corner at (0,0) whose previous edge runs along +x, and one at (0,2) whose next edge runs
    // along +x: the two long sides of a corridor.
    SkeletonVertex left(Point{0, 0}, Point{4, 0}, Point{0, 2});
    SkeletonVertex right(Point{0, 2}, Point{0, 0}, Point{4, 2});
    ASSERT_NEAR(left.prevEdge.angle, 0.0, kTol);
    ASSERT_NEAR(right.nextEdge.angle, 0.0, kTol);
    const SkeletonVertex n(Point{1, 1}, left, right);
    EXPECT_TRUE(IsInfinite(IntersectRays(n.prevEdge, n.nextEdge)));
    ExpectPointNear(n.bisector.origin, 1, 1);
    EXPECT_NEAR(n.bisector.angle, 0.0, kTol);
    EXPECT_EQ(n.leftParent, &left);
    EXPECT_EQ(n.rightParent, &right);
    EXPECT_EQ(n.id, -1);
    EXPECT_FALSE(n.done);
    EXPECT_EQ(n.prevVertex, nullptr);
    EXPECT_EQ(n.nextVertex, nullptr);
    EXPECT_EQ(n.successor, nullptr);

    // Both edges pointing up (the two sides of the square): the vertex moves up.
    SkeletonVertex up1(Point{10, 0}, Point{10, 10}, Point{0, 0});
    SkeletonVertex up2(Point{0, 0}, Point{10, 0}, Point{0, 10});
    const SkeletonVertex m(Point{5, 5}, up1, up2);
    EXPECT_NEAR(m.bisector.angle, kPi / 2, kTol);
}

TEST(RvSkeletonEvents, EventVertexMovesTowardsConvergingEdgesAndAwayFromDivergingOnes) {
    // Previous edge from (0,0) along +x, next edge from (10,10) along -y: the rays meet at
    // (10,0), so a vertex at (5,5) moves towards it, at -pi/4.
    SkeletonVertex a(Point{0, 0}, Point{10, 0}, Point{0, 10});
    SkeletonVertex b(Point{10, 10}, Point{0, 10}, Point{10, 0});
    const SkeletonVertex converging(Point{5, 5}, a, b);
    EXPECT_NEAR(converging.bisector.angle, -kPi / 4, kTol);

    // Previous edge from (0,0) along -x, next edge from (10,10) along +y: the rays do not meet,
    // their lines do at (10,0), and the vertex moves away from that point, at 3pi/4.
    SkeletonVertex c(Point{0, 0}, Point{-10, 0}, Point{0, 10});
    SkeletonVertex d(Point{10, 10}, Point{0, 10}, Point{10, 20});
    const SkeletonVertex diverging(Point{5, 5}, c, d);
    EXPECT_TRUE(IsInfinite(IntersectRays(diverging.prevEdge, diverging.nextEdge)));
    EXPECT_NEAR(diverging.bisector.angle, 3 * kPi / 4, kTol);
}

// The square given counterclockwise: every corner bisector points outwards (v0 at -3pi/4), the
// neighbours' bisectors diverge, and although each corner counts as reflex, no edge lies ahead
// of it. The event is then the split row with nothing found: height SKELETON_INFINITY, the
// vertex as both ends, and the split point never computed, still (0,0). Nothing is queued, no
// line is made and every vertex stays on its ring.
TEST(RvSkeletonEvents, DivergingNeighboursWithoutSplitCandidateGiveAnInfiniteEventNotQueued) {
    Contours c = OneContour({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    RvSkeleton s(c);
    EXPECT_TRUE(s.empty());
    ASSERT_EQ(s.Vertices().size(), 4u);
    for (const SkeletonVertex& v : s.Vertices()) {
        EXPECT_FALSE(v.done);
        EXPECT_EQ(v.outLine, nullptr);
        EXPECT_EQ(v.successor, nullptr);
    }
    EXPECT_NEAR(VertexAt(s, 0).bisector.angle, -3 * kPi / 4, kTol);

    for (int id = 0; id < 4; ++id) {
        const SkeletonEvent e = EventOf(s, id);
        EXPECT_EQ(e.kind, SkeletonEvent::SplitEvent);
        // The height is the sentinel itself, assigned, not computed.
        EXPECT_EQ(e.height, SKELETON_INFINITY);
        EXPECT_EQ(e.leftVertex, VertexPtr(s, id));
        EXPECT_EQ(e.rightVertex, VertexPtr(s, id));
    }
    const SkeletonEvent e2 = EventOf(s, 2);
    EXPECT_EQ(e2.point.x, 0.0);
    EXPECT_EQ(e2.point.y, 0.0);
}

// ---- Equal heights: the L shape ---------------------------------------------------------------

// The clockwise L (0,0), (0,10), (4,10), (4,4), (10,4), (10,0), two arms 4 wide.
//
// Events at the start:
//   E0 = (v5, v0) at (5,5), height 5 (v0 meets both neighbours 7.07 away; the tie goes to the
//        previous one).
//   E1 = (v1, v2) at (2,8), height 2; E2 = (v1, v2), the same from v2 (v3's bisector runs
//        parallel to v2's).
//   E3 = split of the reflex v3 (4,4): its bisector (-1,-1) is parallel to both neighbours', and
//        it can hit the side x = 0 (edge v0 -> v1) and the side y = 0 (edge v5 -> v0), both at
//        (2,2), halfway from (4,4) to (0,0), 2.83 away; the first one found, v0 -> v1, stays.
//        Height 2. No other bisector meets v3's below height 2, so it is not blocked.
//   E4 = (v4, v5) at (8,2), height 2; E5 = (v4, v5), the same from v5.
//
// The heap, by pushes: [E0] -> E1 climbs past E0: [E1, E0] -> [E1, E0, E2] -> E3 climbs past E0
// but not past E1: [E1, E3, E2, E0] -> [E1, E3, E2, E0, E4] -> [E1, E3, E2, E0, E4, E5].
// Pop E1 (E5 moved down the right children: E2 to the root): [E2, E3, E5, E0, E4].
//   E1 makes v6 at (2,8) between the two sides of the upright arm, moving down (-pi/2). Its
//   event meets v0's bisector and v3's bisector both at (2,2), 6 away: E6 = (v0, v6), height 2,
//   pushed as a leaf: [E2, E3, E5, E0, E4, E6].
// Pop E2 (consumed): [E5, E3, E6, E0, E4]. Pop E5: [E6, E3, E4, E0].
//   E5 makes v7 at (8,2) moving left (-pi); its event meets v3 and v0 at (2,2): E7 = (v3, v7),
//   height 2: [E6, E3, E4, E0, E7].
// Pop E6: [E4, E3, E7, E0]. The split E3 still waits at the second place: the right child was
//   taken at every level because all these heights are equal within the band.
//   E6 is an edge event of v0 and v6 (the ring v0, v6, v3, v7 has four vertices): v8 at (2,2)
//   with v0's previous edge (y = 0) and v6's next edge (x = 4), moving towards (4,0). Its event
//   meets v7 where it stands: E8 = (v7, v8), height 2: [E4, E3, E7, E0, E8].
// Pop E4 (consumed): [E7, E3, E8, E0]. Pop E7 = (v3, v7): the ring is v8, v3, v7, and v3's
//   predecessor v8 has v7 as predecessor, so the closing event makes v9 at (2,2).
// Then E8, the split E3 (its vertex v3 is consumed), and E0 are all dropped.
//
// So the split never happens: 9 lines and 10 vertices, with no zero-length pair of split arcs.
TEST(RvSkeletonEvents, LShapeTakesEqualHeightsInHeapOrderAndClosesBeforeTheSplit) {
    Contours c = OneContour({{0, 0}, {0, 10}, {4, 10}, {4, 4}, {10, 4}, {10, 0}});
    const RvSkeleton s(c);
    ASSERT_EQ(s.size(), 9u);
    ASSERT_EQ(s.Vertices().size(), 10u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));
    EXPECT_EQ(LinesFromVerticesWithoutOutLine(s), 0);

    ExpectPointNear(VertexAt(s, 6).point, 2, 8);
    ExpectPointNear(VertexAt(s, 7).point, 8, 2);
    ExpectPointNear(VertexAt(s, 8).point, 2, 2);
    ExpectPointNear(VertexAt(s, 9).point, 2, 2);
    EXPECT_NEAR(VertexAt(s, 6).bisector.angle, -kPi / 2, kTol);
    EXPECT_NEAR(VertexAt(s, 7).bisector.angle, -kPi, kTol);
    EXPECT_NEAR(VertexAt(s, 8).bisector.angle, -kPi / 4, kTol);
    EXPECT_EQ(VertexAt(s, 8).leftParent, VertexPtr(s, 0));
    EXPECT_EQ(VertexAt(s, 8).rightParent, VertexPtr(s, 6));
    EXPECT_EQ(VertexAt(s, 9).leftParent, nullptr);

    ExpectLine(s, 0, 1, 6);  // (0,10) -> (2,8)
    ExpectLine(s, 1, 2, 6);  // (4,10) -> (2,8)
    ExpectLine(s, 2, 4, 7);  // (10,4) -> (8,2)
    ExpectLine(s, 3, 5, 7);  // (10,0) -> (8,2)
    ExpectLine(s, 4, 0, 8);  // (0,0) -> (2,2)
    ExpectLine(s, 5, 6, 8);  // (2,8) -> (2,2)
    ExpectLine(s, 6, 3, 9);  // (4,4) -> (2,2), by the closing event
    ExpectLine(s, 7, 7, 9);  // (8,2) -> (2,2)
    ExpectLine(s, 8, 8, 9);  // (2,2) -> (2,2)

    // The reflex corner was consumed by the closing event, never replaced by a split pair.
    const SkeletonVertex& v3 = VertexAt(s, 3);
    EXPECT_EQ(v3.outLine, LinePtr(s, 6));
    EXPECT_EQ(v3.successor, nullptr);
    // (0,0), (2,8), (4,4) and (8,2) all reach (2,2).
    for (int id : {0, 6, 3, 7}) {
        ExpectPointNear(VertexAt(s, id).outLine->higher.vertex->point, 2, 2);
    }
}

// ---- A split --------------------------------------------------------------------------------

// A 20 by 12 rectangle with a V notch from the top: (0,0), (0,12), (7,12), (10,8), (13,12),
// (20,12), (20,0), clockwise. The notch's sides run along (3,4) and (-3,4) from its apex (10,8),
// whose bisector points straight down.
//
// Split of v3 (10,8): the only edge ahead of its bisector is the bottom side v6 -> v0. The lines
// of the two notch sides meet y = 0 at (4,0) and (16,0); the triangle (4,0), (16,0), (10,8) has
// sides 10, 10, 12, area 48, inradius 3, so its incentre (10,3) is the split point, height 3.
// It lies within the bisectors of (20,0) and (0,0). The bisectors of (0,12) and (20,12) cross
// v3's at (10,2), at height 3.6 over the notch sides, not below 3: not blocked. v3's neighbours
// diverge from it, so E3 is the split, at height 3, the least: it is the first event taken.
//
// The split: vertexA (v7) takes the bottom side from v0 and the right notch side from v3; their
// rays do not meet, their lines meet at (4,0), so v7 moves away from it, along (2,1). vertexB
// (v8) takes the left notch side and the bottom side from v6, lines meeting at (16,0): it moves
// along (-2,1). The rings become v6 -> v7 -> v4 -> v5 and v0 -> v1 -> v2 -> v8. Lines 0 (v3 ->
// v7), 1 (v7 -> v8) and 2 (v8 -> v7), the last two of zero length.
//
// Each ring then closes on its own (symmetric, heights 14/3 then 16/3): on the left v1, v2 meet
// at (14/3, 22/3) (v9), and v0, v9, v8 at (16/3, 16/3) (v12); on the right v4, v5 at
// (46/3, 22/3) (v10), and v6, v7, v10 at (44/3, 16/3) (v11). In heap order the right ring's
// closing comes first.
TEST(RvSkeletonEvents, NotchApexSplitsTheOppositeEdgeAndTheRingInTwo) {
    Contours c = OneContour({{0, 0}, {0, 12}, {7, 12}, {10, 8}, {13, 12}, {20, 12}, {20, 0}});
    const RvSkeleton s(c);
    ASSERT_EQ(s.size(), 13u);
    ASSERT_EQ(s.Vertices().size(), 13u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));

    const SkeletonVertex& v3 = VertexAt(s, 3);
    const SkeletonVertex& v7 = VertexAt(s, 7);
    const SkeletonVertex& v8 = VertexAt(s, 8);
    // Two new vertices at the same point.
    ExpectPointNear(v7.point, 10, 3);
    ExpectPointNear(v8.point, 10, 3);
    EXPECT_EQ(v7.leftParent, VertexPtr(s, 0));
    EXPECT_EQ(v7.rightParent, &v3);
    EXPECT_EQ(v8.leftParent, &v3);
    EXPECT_EQ(v8.rightParent, VertexPtr(s, 6));
    EXPECT_NEAR(v7.bisector.angle, std::atan2(1.0, 2.0), kTol);
    EXPECT_NEAR(v8.bisector.angle, std::atan2(1.0, -2.0), kTol);
    EXPECT_EQ(v3.successor, &v8);  // set to vertexA first, then to vertexB
    // Their first neighbours on the two rings.
    EXPECT_EQ(v7.prevVertex, VertexPtr(s, 6));
    EXPECT_EQ(v8.nextVertex, VertexPtr(s, 0));

    // The arc from the apex and the zero-length pair between the two new vertices.
    ExpectLine(s, 0, 3, 7);
    ExpectLine(s, 1, 7, 8);
    ExpectLine(s, 2, 8, 7);
    const SkeletonLine* a = LinePtr(s, 0);
    const SkeletonLine* b = LinePtr(s, 1);
    const SkeletonLine* cc = LinePtr(s, 2);
    EXPECT_EQ(v3.outLine, a);
    EXPECT_EQ(v7.rightLine, a);
    EXPECT_EQ(v8.leftLine, a);
    EXPECT_EQ(v7.leftLine, b);
    EXPECT_EQ(v8.rightLine, cc);
    EXPECT_EQ(b->lower.right, cc);
    EXPECT_EQ(cc->lower.left, b);
    EXPECT_EQ(b->lower.left, nullptr);
    EXPECT_EQ(cc->lower.right, nullptr);

    ExpectLine(s, 3, 1, 9);
    ExpectLine(s, 4, 2, 9);
    ExpectLine(s, 5, 4, 10);
    ExpectLine(s, 6, 5, 10);
    ExpectLine(s, 7, 6, 11);
    ExpectLine(s, 8, 7, 11);
    ExpectLine(s, 9, 10, 11);
    ExpectLine(s, 10, 0, 12);
    ExpectLine(s, 11, 9, 12);
    ExpectLine(s, 12, 8, 12);
    ExpectPointNear(VertexAt(s, 9).point, 14.0 / 3, 22.0 / 3);
    ExpectPointNear(VertexAt(s, 10).point, 46.0 / 3, 22.0 / 3);
    ExpectPointNear(VertexAt(s, 11).point, 44.0 / 3, 16.0 / 3);
    ExpectPointNear(VertexAt(s, 12).point, 16.0 / 3, 16.0 / 3);

    // The ring was split in two: the arcs of the right side all end at v11, those of the left
    // side at v12.
    for (int id : {4, 5, 6, 7, 10}) {
        EXPECT_EQ(Top(VertexPtr(s, id)), VertexPtr(s, 11)) << "vertex " << id;
    }
    for (int id : {0, 1, 2, 8, 9}) {
        EXPECT_EQ(Top(VertexPtr(s, id)), VertexPtr(s, 12)) << "vertex " << id;
    }
}

// ---- A stale split --------------------------------------------------------------------------

// A 6 by 6 square with a bump 2 wide and 1 high on top: (0,0), (0,6), (1,6), (1,7), (3,7),
// (3,6), (6,6), (6,0), clockwise. The bump's two base corners v2 (1,6) and v5 (3,6) are reflex;
// their bisectors, (1,-1) and (-1,-1), cross at (2,5).
//
// v2's split: the bump's right side (v4 -> v5, x = 3) is met at the midpoint of (1,6) and (3,4),
// (2,5), height 1, within the bisectors of (3,7) and (3,6); the right side of the square gives
// (3.5,3.5), farther. v5's split, symmetrically: the bump's left side (v2 -> v3) at (2,5), height
// 1, nearer than the square's left side at (1.5,4.5). The bump's top corners meet at (2,6),
// height 1; the square's corners at (3,3), height 3.
//
// Heap by pushes: [E2 (split v2), E3, E5 (split v5), E1, E4, E0, E6, E7]; the split of v2 comes
// out first. It makes v8 (vertexA, moving up between the bump's sides) and v9 (vertexB, moving
// along (-1,-1)), both at (2,5); v8 closes the bump's ring v4, v8, v3; v9 sits on v5's
// bisector, so its event is the edge event (v9, v5) at (2,5), height 1.
//
// Then the split of v5 comes out and is computed again: the bump's left side now runs from v8,
// and the point (2,5) is v8 itself; from there the direction to it is the zero-length ray's
// angle 0, outside v8's wedge (between its edge and its bisector, both at pi/2). The nearest
// edge left is the square's left side, at (1.5,4.5): the point has moved, and the event is
// dropped with nothing in its place. v5 stays on the ring until the edge event (v9, v5) takes it.
TEST(RvSkeletonEvents, SplitWhosePointHasMovedIsDroppedAndTheVertexIsTakenByAnEdgeEvent) {
    Contours c = OneContour({{0, 0}, {0, 6}, {1, 6}, {1, 7}, {3, 7}, {3, 6}, {6, 6}, {6, 0}});
    const RvSkeleton s(c);
    ASSERT_EQ(s.size(), 15u);
    ASSERT_EQ(s.Vertices().size(), 15u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));

    // One split only, of v2: the pair v8, v9 at (2,5).
    ExpectPointNear(VertexAt(s, 8).point, 2, 5);
    ExpectPointNear(VertexAt(s, 9).point, 2, 5);
    EXPECT_EQ(VertexAt(s, 8).leftParent, VertexPtr(s, 5));
    EXPECT_EQ(VertexAt(s, 8).rightParent, VertexPtr(s, 2));
    EXPECT_EQ(VertexAt(s, 9).leftParent, VertexPtr(s, 2));
    EXPECT_EQ(VertexAt(s, 9).rightParent, VertexPtr(s, 4));
    ExpectLine(s, 0, 2, 8);
    ExpectLine(s, 1, 8, 9);
    ExpectLine(s, 2, 9, 8);

    // v5 was not split: it was consumed with v9 by an edge event, into v11 at (2,5).
    const SkeletonVertex& v5 = VertexAt(s, 5);
    const SkeletonVertex& v11 = VertexAt(s, 11);
    ExpectPointNear(v11.point, 2, 5);
    EXPECT_EQ(v11.leftParent, VertexPtr(s, 9));
    EXPECT_EQ(v11.rightParent, &v5);
    EXPECT_EQ(v5.successor, &v11);
    EXPECT_EQ(v5.outLine, LinePtr(s, 7));
    EXPECT_NEAR(v11.bisector.angle, -kPi / 2, kTol);
    for (const SkeletonVertex& v : s.Vertices()) {
        if (v.id > 9) {
            EXPECT_NE(v.leftParent, &v5) << "vertex " << v.id;  // no split pair from v5
        }
    }

    ExpectLine(s, 3, 3, 10);  // the bump's top corners and v8 close at (2,6)
    ExpectLine(s, 4, 4, 10);
    ExpectLine(s, 5, 8, 10);
    ExpectLine(s, 6, 9, 11);
    ExpectLine(s, 7, 5, 11);
    ExpectLine(s, 8, 1, 12);  // v1 and v11 meet at (2,4)
    ExpectLine(s, 9, 11, 12);
    ExpectLine(s, 10, 6, 13);  // v6 and v7 meet at (3,3)
    ExpectLine(s, 11, 7, 13);
    ExpectLine(s, 12, 0, 14);  // v0, v12 and v13 close at (3,3)
    ExpectLine(s, 13, 12, 14);
    ExpectLine(s, 14, 13, 14);
    ExpectPointNear(VertexAt(s, 10).point, 2, 6);
    ExpectPointNear(VertexAt(s, 12).point, 2, 4);
    ExpectPointNear(VertexAt(s, 13).point, 3, 3);
    ExpectPointNear(VertexAt(s, 14).point, 3, 3);
}

// ---- Two-vertex rings -------------------------------------------------------------------------

// A thin arm 8 long and 1 wide joined to a 2 by 3 block: (0,0), (0,1), (8,1), (8,3), (10,3),
// (10,0), clockwise. At height 0.5 three events tie: E0 and E1 (v0, v1), the arm's end, and E2,
// the split of the reflex v2 (8,1) into the bottom side at (8.5,0.5) (midway between y = 1 and
// y = 0 on its bisector). E0 comes out first and makes v6 at (0.5,0.5), moving right along the
// arm; its event meets v2 at (8.5,0.5), height 0.5.
//
// The split of v2 is then taken (the bottom side now runs from v5 to v6, same line, same point):
// v7 (vertexA) goes on the ring v5 -> v7 -> v3 -> v4; v8 (vertexB) gets v6 on both sides, since
// v6 is both the split edge's right end and v2's predecessor. That ring has two vertices, so it
// ends in one line from v8 to v6 (the arm's ridge), and both are consumed. Neither gets an
// out-line. Line 5's upper neighbours are v6's two lines, its lower ones v8's.
TEST(RvSkeletonEvents, SplitLeavingTwoVerticesBehindTheEdgeClosesThemWithOneArc) {
    Contours c = OneContour({{0, 0}, {0, 1}, {8, 1}, {8, 3}, {10, 3}, {10, 0}});
    const RvSkeleton s(c);
    ASSERT_EQ(s.size(), 11u);
    ASSERT_EQ(s.Vertices().size(), 11u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));

    ExpectPointNear(VertexAt(s, 6).point, 0.5, 0.5);
    ExpectPointNear(VertexAt(s, 7).point, 8.5, 0.5);
    ExpectPointNear(VertexAt(s, 8).point, 8.5, 0.5);
    EXPECT_NEAR(VertexAt(s, 6).bisector.angle, 0.0, kTol);
    EXPECT_NEAR(VertexAt(s, 8).bisector.angle, -kPi, kTol);

    ExpectLine(s, 0, 0, 6);
    ExpectLine(s, 1, 1, 6);
    ExpectLine(s, 2, 2, 7);
    ExpectLine(s, 3, 7, 8);
    ExpectLine(s, 4, 8, 7);
    ExpectLine(s, 5, 8, 6);  // the two-vertex ring's arc
    ExpectLine(s, 6, 5, 9);
    ExpectLine(s, 7, 7, 9);
    ExpectLine(s, 8, 3, 10);
    ExpectLine(s, 9, 4, 10);
    ExpectLine(s, 10, 9, 10);

    const SkeletonLine* z = LinePtr(s, 5);
    EXPECT_EQ(z->lower.right, LinePtr(s, 2));   // v8's left line
    EXPECT_EQ(z->lower.left, LinePtr(s, 4));    // v8's right line
    EXPECT_EQ(z->higher.right, LinePtr(s, 0));  // v6's left line
    EXPECT_EQ(z->higher.left, LinePtr(s, 1));   // v6's right line
    EXPECT_EQ(LineAt(s, 2).higher.left, z);
    EXPECT_EQ(LineAt(s, 4).higher.right, z);
    EXPECT_EQ(LineAt(s, 0).higher.left, z);
    EXPECT_EQ(LineAt(s, 1).higher.right, z);
    // The zero-length arc from v8 has no upper left neighbour.
    EXPECT_EQ(LineAt(s, 4).higher.left, nullptr);
    EXPECT_EQ(VertexAt(s, 6).outLine, nullptr);
    EXPECT_EQ(VertexAt(s, 8).outLine, nullptr);
    EXPECT_EQ(VertexAt(s, 8).prevVertex, VertexPtr(s, 6));
    EXPECT_EQ(VertexAt(s, 8).nextVertex, VertexPtr(s, 6));
    // Lines 4 and 5 start at v8, which has no out-line.
    EXPECT_EQ(LinesFromVerticesWithoutOutLine(s), 2);
}

// The same arm mirrored, with the list starting at the arm's end: (10,1), (10,0), (0,0), (0,3),
// (2,3), (2,1). The arm's end E0 = (v0, v1) at height 0.5 comes out before the split E5 of the
// reflex v5 (2,1); it makes v6 at (9.5,0.5), moving left. The split of v5 into the bottom side
// (now v6 -> v2) at (1.5,0.5) then finds v6 both as the split edge's left end and as v5's
// successor on the ring: vertexA (v7) and v6 are left alone and closed by one arc from v7 to v6.
// vertexB (v8) goes on with the block, meeting v2 at (1,1).
TEST(RvSkeletonEvents, SplitLeavingTwoVerticesAheadOfTheVertexClosesThemWithOneArc) {
    Contours c = OneContour({{10, 1}, {10, 0}, {0, 0}, {0, 3}, {2, 3}, {2, 1}});
    const RvSkeleton s(c);
    ASSERT_EQ(s.size(), 11u);
    ASSERT_EQ(s.Vertices().size(), 11u);
    ExpectWellFormed(s);
    EXPECT_TRUE(AllDone(s));

    ExpectPointNear(VertexAt(s, 6).point, 9.5, 0.5);
    ExpectPointNear(VertexAt(s, 7).point, 1.5, 0.5);
    ExpectPointNear(VertexAt(s, 8).point, 1.5, 0.5);
    ExpectPointNear(VertexAt(s, 9).point, 1, 1);
    ExpectPointNear(VertexAt(s, 10).point, 1, 2);
    EXPECT_NEAR(VertexAt(s, 7).bisector.angle, 0.0, kTol);
    EXPECT_NEAR(VertexAt(s, 8).bisector.angle, 3 * kPi / 4, kTol);

    ExpectLine(s, 0, 0, 6);
    ExpectLine(s, 1, 1, 6);
    ExpectLine(s, 2, 5, 7);
    ExpectLine(s, 3, 7, 8);
    ExpectLine(s, 4, 8, 7);
    ExpectLine(s, 5, 7, 6);  // the two-vertex ring's arc
    ExpectLine(s, 6, 8, 9);
    ExpectLine(s, 7, 2, 9);
    ExpectLine(s, 8, 3, 10);
    ExpectLine(s, 9, 4, 10);
    ExpectLine(s, 10, 9, 10);

    const SkeletonLine* z = LinePtr(s, 5);
    EXPECT_EQ(z->lower.right, LinePtr(s, 3));   // v7's left line
    EXPECT_EQ(z->lower.left, LinePtr(s, 2));    // v7's right line
    EXPECT_EQ(z->higher.right, LinePtr(s, 0));  // v6's left line
    EXPECT_EQ(z->higher.left, LinePtr(s, 1));   // v6's right line
    EXPECT_EQ(VertexAt(s, 7).prevVertex, VertexPtr(s, 6));
    EXPECT_EQ(VertexAt(s, 7).nextVertex, VertexPtr(s, 6));
    EXPECT_EQ(VertexAt(s, 7).outLine, nullptr);
    EXPECT_EQ(VertexAt(s, 6).outLine, nullptr);
    EXPECT_EQ(LinesFromVerticesWithoutOutLine(s), 2);  // lines 3 and 5 start at v7
}

}  // namespace
