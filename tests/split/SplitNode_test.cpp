#include "ravelin/split/SplitNode.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

namespace ravelin {
namespace {

using testing_support::ExpectVerticesNear;
using testing_support::HasValues;
using testing_support::Ring;
using testing_support::SameVertices;

// Nodes of type 0 at the given points, with their place in the list as index.
SplitNodes NodesAt(std::initializer_list<RvPoint2D> points) {
    SplitNodes nodes;
    int index = 0;
    for (const RvPoint2D& p : points) {
        AddSplitNode(nodes, 0, p, index++);
    }
    return nodes;
}

// The indices of the nodes, in list order: which node ended where.
std::vector<int> IndicesOf(const SplitNodes& nodes) {
    std::vector<int> indices;
    for (const auto& node : nodes) {
        indices.push_back(node->index);
    }
    return indices;
}

// ---- The node record and its list --------------------------------------------------------------

TEST(SplitNodeTest, DefaultNodeIsARingVertexWithoutLinksOrIndex) {
    const SplitNode node;
    EXPECT_EQ(node.type, 0);
    EXPECT_TRUE(node.links.empty());
    EXPECT_EQ(node.index, -1);
}

TEST(AddSplitNodeTest, AppendsANodeWithTheGivenValuesAndReturnsIt) {
    SplitNodes nodes;
    SplitNode* first = AddSplitNode(nodes, 2, RvPoint2D(7.0, 8.0, 9.0, 1.5, 2.5), 4);
    SplitNode* second = AddSplitNode(nodes, 1, RvPoint2D(3.0, 4.0), 0);
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(nodes[0].get(), first);
    EXPECT_EQ(nodes[1].get(), second);
    EXPECT_EQ(first->type, 2);
    EXPECT_EQ(first->index, 4);
    EXPECT_TRUE(HasValues(first->point, 9.0, 1.5, 2.5, 7.0, 8.0));
    EXPECT_TRUE(first->links.empty());
    EXPECT_EQ(second->type, 1);
    EXPECT_EQ(second->index, 0);
    EXPECT_TRUE(HasValues(second->point, 3.0, 4.0, 0.0, 3.0, 4.0));
}

TEST(AddSplitNodeTest, TheListOwnsItsNodesAndLinksDoNot) {
    // Links are plain pointers and form cycles; the nodes go with the list alone (the sanitizer
    // build reports a node that outlives it).
    SplitNodes nodes;
    SplitNode* a = AddSplitNode(nodes, 0, RvPoint2D(0.0, 0.0), 0);
    SplitNode* b = AddSplitNode(nodes, 2, RvPoint2D(1.0, 0.0), 1);
    a->links.push_back(b);
    b->links.push_back(a);
    b->links.push_front(b);
    EXPECT_EQ(nodes.front().get(), a);
    EXPECT_EQ(nodes.back().get(), b);
    nodes.clear();
    EXPECT_TRUE(nodes.empty());
}

// ---- The crossing queue ------------------------------------------------------------------------

TEST(SplitCrossingQueueTest, GivesTheCrossingNearestToThePathStartFirst) {
    SplitNodes nodes;
    SplitCrossingQueue queue;
    const double keys[] = {7.5, 1.25, 30.0, 3.0, 1.5};
    for (int k = 0; k < 5; ++k) {
        SplitNode* node = AddSplitNode(nodes, 2, RvPoint2D(k, 0.0), k);
        queue.push(SplitCrossing{node, 10 + k, keys[k]});
    }
    // Ascending keys: 1.25 (k 1), 1.5 (k 4), 3.0 (k 3), 7.5 (k 0), 30.0 (k 2).
    const int order[] = {1, 4, 3, 0, 2};
    for (const int k : order) {
        ASSERT_FALSE(queue.empty());
        const SplitCrossing c = queue.top();
        queue.pop();
        EXPECT_EQ(c.node, nodes[static_cast<std::size_t>(k)].get());
        EXPECT_EQ(c.edge, 10 + k);
        EXPECT_EQ(c.key, keys[k]);
    }
    EXPECT_TRUE(queue.empty());
}

TEST(SplitCrossingQueueTest, OrdersByTheKeyAloneWithoutBand) {
    // Keys closer than any tolerance still come out in order: the comparison is plain.
    SplitCrossingQueue queue;
    queue.push(SplitCrossing{nullptr, 0, 2.0 + 1e-12});
    queue.push(SplitCrossing{nullptr, 1, 2.0});
    EXPECT_EQ(queue.top().edge, 1);
    EXPECT_TRUE(SplitCrossing({nullptr, 5, 2.0 + 1e-12}) > SplitCrossing({nullptr, 0, 2.0}));
    EXPECT_FALSE(SplitCrossing({nullptr, 0, 2.0}) > SplitCrossing({nullptr, 5, 2.0}));
}

// ---- Sorting by distance -----------------------------------------------------------------------

TEST(SortSplitNodesByDistanceTest, SortsTheNodesFromTheGivenPlaceNearestFirst) {
    // Distances from the origin: 9, 5, 1, 3, 4. Place 0 stays where it is.
    SplitNodes nodes = NodesAt({{9, 0}, {0, 5}, {-1, 0}, {0, -3}, {4, 0}});
    SortSplitNodesByDistance(nodes, 1, RvPoint3D(0, 0, 0));
    EXPECT_EQ(IndicesOf(nodes), (std::vector<int>{0, 2, 3, 4, 1}));
}

TEST(SortSplitNodesByDistanceTest, FromPlaceZeroSortsTheWholeList) {
    SplitNodes nodes = NodesAt({{4, 0}, {3, 0}, {1, 0}, {2, 0}});
    SortSplitNodesByDistance(nodes, 0, RvPoint3D(0, 0, 0));
    EXPECT_EQ(IndicesOf(nodes), (std::vector<int>{2, 3, 1, 0}));
}

TEST(SortSplitNodesByDistanceTest, AFirstPlaceAtOrPastTheEndChangesNothing) {
    SplitNodes nodes = NodesAt({{4, 0}, {1, 0}});
    SortSplitNodesByDistance(nodes, 2, RvPoint3D(0, 0, 0));
    SortSplitNodesByDistance(nodes, 7, RvPoint3D(0, 0, 0));
    EXPECT_EQ(IndicesOf(nodes), (std::vector<int>{0, 1}));
    SplitNodes none;
    SortSplitNodesByDistance(none, 0, RvPoint3D(0, 0, 0));
    EXPECT_TRUE(none.empty());
}

TEST(SortSplitNodesByDistanceTest, MeasuresInThePlaneIgnoringZ) {
    // (3, 0, 100) is 3 away in the plane and far away in space; the origin's own z is ignored
    // as well.
    SplitNodes nodes = NodesAt({{5, 0, 0}, {3, 0, 100}});
    SortSplitNodesByDistance(nodes, 0, RvPoint3D(0, 0, -50));
    EXPECT_EQ(IndicesOf(nodes), (std::vector<int>{1, 0}));
}

TEST(SortSplitNodesByDistanceTest, MovesANodeOnlyWhenNearerByTheBand) {
    // 4e-07 nearer is a tie under the band of 5e-07: the order stays.
    SplitNodes tie = NodesAt({{10, 0}, {10 - 4e-07, 0}});
    SortSplitNodesByDistance(tie, 0, RvPoint3D(0, 0, 0));
    EXPECT_EQ(IndicesOf(tie), (std::vector<int>{0, 1}));
    // 6e-07 nearer is nearer.
    SplitNodes nearer = NodesAt({{10, 0}, {10 - 6e-07, 0}});
    SortSplitNodesByDistance(nearer, 0, RvPoint3D(0, 0, 0));
    EXPECT_EQ(IndicesOf(nearer), (std::vector<int>{1, 0}));
}

TEST(SortSplitNodesByDistanceTest, ExchangesPlacesSoEqualDistancesMayChangeOrder) {
    // A at 5, B at 5, C at 1. Place 0: B is not nearer than A; C is, and changes places with A:
    // C, B, A. Place 1: A is not nearer than B. A selection exchange, not a stable sort, which
    // would give C, A, B.
    SplitNodes nodes = NodesAt({{5, 0}, {0, 5}, {1, 0}});
    SortSplitNodesByDistance(nodes, 0, RvPoint3D(0, 0, 0));
    EXPECT_EQ(IndicesOf(nodes), (std::vector<int>{2, 1, 0}));
}

TEST(SortSplitNodesByDistanceTest, KeepsTheNodesThemselves) {
    SplitNodes nodes = NodesAt({{2, 0}, {1, 0}});
    SplitNode* far = nodes[0].get();
    SplitNode* near = nodes[1].get();
    SortSplitNodesByDistance(nodes, 0, RvPoint3D(0, 0, 0));
    EXPECT_EQ(nodes[0].get(), near);
    EXPECT_EQ(nodes[1].get(), far);
}

// ---- Linking the ring --------------------------------------------------------------------------

TEST(LinkSplitRingTest, LinksEachNodeToTheNextAndTheLastToTheFirst) {
    SplitNodes nodes = NodesAt({{0, 0}, {1, 0}, {1, 1}});
    LinkSplitRing(nodes);
    for (std::size_t i = 0; i < 3; ++i) {
        ASSERT_EQ(nodes[i]->links.size(), 1u) << "node " << i;
        EXPECT_EQ(nodes[i]->links.back(), nodes[(i + 1) % 3].get()) << "node " << i;
    }
}

TEST(LinkSplitRingTest, ASingleNodeLinksToItself) {
    SplitNodes nodes = NodesAt({{0, 0}});
    LinkSplitRing(nodes);
    ASSERT_EQ(nodes[0]->links.size(), 1u);
    EXPECT_EQ(nodes[0]->links.front(), nodes[0].get());
}

TEST(LinkSplitRingTest, AnEmptyListStaysEmpty) {
    SplitNodes nodes;
    LinkSplitRing(nodes);
    EXPECT_TRUE(nodes.empty());
}

TEST(LinkSplitRingTest, AddsTheRingLinkBehindLinksAlreadyThere) {
    SplitNodes nodes = NodesAt({{0, 0}, {1, 0}});
    nodes[0]->links.push_back(nodes[0].get());
    LinkSplitRing(nodes);
    ASSERT_EQ(nodes[0]->links.size(), 2u);
    EXPECT_EQ(nodes[0]->links.front(), nodes[0].get());
    EXPECT_EQ(nodes[0]->links.back(), nodes[1].get());
}

// ---- Appending a traced ring -------------------------------------------------------------------

TEST(AppendTracedRingTest, AppendsACleanRingAsItIsAfterWhatIsThere) {
    std::vector<RvPolygon2D> result{Ring({{50, 50}, {60, 50}, {60, 60}})};
    RvPolygon2D ring = Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    const RvPolygon2D copy = ring;
    AppendTracedRing(ring, result);
    ASSERT_EQ(result.size(), 2u);
    ExpectVerticesNear(result[0], {{50, 50}, {60, 50}, {60, 60}});
    EXPECT_TRUE(SameVertices(result[1], copy));
}

TEST(AppendTracedRingTest, RemovesALastVertexLyingInsideTheSeam) {
    // (0, 5) lies strictly between the second last (0, 10) and the first (0, 0).
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}});
    AppendTracedRing(ring, result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(AppendTracedRingTest, RemovesAFirstVertexLyingInsideTheSeam) {
    // (0, 5) lies strictly between the second (0, 0) and the last (0, 10).
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{0, 5}, {0, 0}, {10, 0}, {10, 10}, {0, 10}});
    AppendTracedRing(ring, result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(AppendTracedRingTest, RemovesTheLastAndThenTheFirstVertex) {
    // (0, 6) lies between (0, 10) and the first (0, 3); once it is gone, (0, 3) lies between
    // (0, 0) and the new last (0, 10).
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{0, 3}, {0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 6}});
    AppendTracedRing(ring, result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

TEST(AppendTracedRingTest, AVertexOnTheSeamButNotStrictlyInsideStays) {
    // A ring stored closed: its last vertex repeats the first, which is an end of the seam
    // segment and so not inside it; the first is not inside its segment either.
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    AppendTracedRing(ring, result);
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
}

TEST(AppendTracedRingTest, DropsARingLeftWithTwoVerticesAfterRemovingTheLast) {
    // (5, 0) lies between (10, 0) and (0, 0).
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{0, 0}, {10, 0}, {5, 0}});
    AppendTracedRing(ring, result);
    EXPECT_TRUE(result.empty());
}

TEST(AppendTracedRingTest, DropsARingLeftWithTwoVerticesAfterRemovingTheFirst) {
    // The last (0, 0) is an end of its seam segment; the first (5, 0) lies between (10, 0) and
    // (0, 0).
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{5, 0}, {10, 0}, {0, 0}});
    AppendTracedRing(ring, result);
    EXPECT_TRUE(result.empty());
}

TEST(AppendTracedRingTest, DropsARingThatBothRemovalsBringToTwoVertices) {
    // (2, 0) lies between (0, 0) and the first (5, 0): three remain. Then (5, 0) lies between
    // (10, 0) and (0, 0): two remain.
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{5, 0}, {10, 0}, {0, 0}, {2, 0}});
    AppendTracedRing(ring, result);
    EXPECT_TRUE(result.empty());
}

TEST(AppendTracedRingTest, TheInsideTestInSpaceAcceptsCancellingComponents) {
    // From L = (0, 0, 0) the unit vectors to M = (1, 0, 0) and to F = (-1, 1, 1) have the vector
    // product (0, -1, 1)/sqrt(3), whose components sum to zero, and a negative dot product: L
    // counts as inside the segment from M to F though the three make a corner, so it goes and
    // the ring is dropped.
    std::vector<RvPolygon2D> result;
    RvPolygon2D ring = Ring({{-1, 1, 1}, {1, 0, 0}, {0, 0, 0}});
    AppendTracedRing(ring, result);
    EXPECT_TRUE(result.empty());
    // In the plane the product is (0, 0, 1)/sqrt(2): a corner, and the ring stays.
    RvPolygon2D flat = Ring({{-1, 1, 0}, {1, 0, 0}, {0, 0, 0}});
    AppendTracedRing(flat, result);
    ASSERT_EQ(result.size(), 1u);
    EXPECT_EQ(result[0].size(), 3u);
}

TEST(AppendTracedRingTest, AppendsRingsOfTwoVerticesOrFewerAsTheyCame) {
    std::vector<RvPolygon2D> result;
    RvPolygon2D two = Ring({{0, 0}, {10, 0}});
    RvPolygon2D one = Ring({{3, 4}});
    RvPolygon2D none;
    AppendTracedRing(two, result);
    AppendTracedRing(one, result);
    AppendTracedRing(none, result);
    ASSERT_EQ(result.size(), 3u);
    ExpectVerticesNear(result[0], {{0, 0}, {10, 0}});
    ExpectVerticesNear(result[1], {{3, 4}});
    EXPECT_TRUE(result[2].empty());
}

// ---- Meeting a path segment with an edge's line ------------------------------------------------

// The line x = 0 of an edge ending at (0, 0, 3), with its normal (1, 0, 0).
const RvPoint3D kNormal(1, 0, 0);
const RvPoint2D kEnd(0, 0, 3);

// The outcome for a segment of direction (1, 0) that meets the line x = 0 at parameter `t`:
// from (-t, 0) to (1 - t, 0).
PathSegmentHit HitAt(double t, bool lastSegment, RvPoint2D& x) {
    return CrossPathSegment(kNormal, kEnd, RvPoint2D(-t, 0), RvPoint2D(1 - t, 0), lastSegment, x);
}

PathSegmentHit HitAt(double t, bool lastSegment) {
    RvPoint2D x;
    return HitAt(t, lastSegment, x);
}

TEST(CrossPathSegmentTest, ACrossingTakesXYFromTheSegmentAndZFromTheEdgeEnd) {
    // From (-2, -1, 7) to (2, 3, -7): t = 2/4 = 0.5, at (0, 1).
    RvPoint2D x;
    EXPECT_EQ(CrossPathSegment(kNormal, kEnd, RvPoint2D(-2, -1, 7), RvPoint2D(2, 3, -7), false, x),
              PathSegmentHit::Crossing);
    EXPECT_NEAR(x.x, 0.0, 1e-12);
    EXPECT_NEAR(x.y, 1.0, 1e-12);
    EXPECT_EQ(x.z, 3.0);
    EXPECT_EQ(x.x2D, x.x);
    EXPECT_EQ(x.y2D, x.y);
}

TEST(CrossPathSegmentTest, ACrossingBeyondTheEdgeIsLeftToTheCaller) {
    // The line is met far from the edge's end vertex: still a crossing.
    RvPoint2D x;
    EXPECT_EQ(CrossPathSegment(kNormal, kEnd, RvPoint2D(-1, 500), RvPoint2D(1, 500), true, x),
              PathSegmentHit::Crossing);
    EXPECT_NEAR(x.x, 0.0, 1e-12);
    EXPECT_NEAR(x.y, 500.0, 1e-12);
}

TEST(CrossPathSegmentTest, TheLineIsMetOnXAndYAlone) {
    // The edge end's z and the segment's z do not move the line: c = 0 from x and y.
    RvPoint2D x;
    EXPECT_EQ(CrossPathSegment(kNormal, RvPoint2D(0, 0, 1000), RvPoint2D(-1, 0, 400),
                               RvPoint2D(3, 0, 400), false, x),
              PathSegmentHit::Crossing);
    EXPECT_NEAR(x.x, 0.0, 1e-12);
    EXPECT_EQ(x.z, 1000.0);
}

TEST(CrossPathSegmentTest, AParallelSegmentApartIsNone) {
    RvPoint2D x(9, 9);
    EXPECT_EQ(CrossPathSegment(kNormal, kEnd, RvPoint2D(1, 0), RvPoint2D(1, 5), true, x),
              PathSegmentHit::None);
    // Within the band of parallel: the direction's x of 4e-07 gives a dot product of 4e-07.
    EXPECT_EQ(CrossPathSegment(kNormal, kEnd, RvPoint2D(-1, -1), RvPoint2D(-1 + 4e-07, 1), true, x),
              PathSegmentHit::None);
}

TEST(CrossPathSegmentTest, ACollinearSegmentGivesItsStartWhereverItLies) {
    // On the line x = 0, whether or not its start is on the edge: the start, all five values.
    RvPoint2D x;
    EXPECT_EQ(
        CrossPathSegment(kNormal, kEnd, RvPoint2D(8, 9, 0, 5, -4), RvPoint2D(0, 6, 1), false, x),
        PathSegmentHit::Collinear);
    EXPECT_TRUE(HasValues(x, 0, 5, -4, 8, 9));
    EXPECT_EQ(CrossPathSegment(kNormal, kEnd, RvPoint2D(0, 100), RvPoint2D(0, 200), true, x),
              PathSegmentHit::Collinear);
    EXPECT_TRUE(HasValues(x, 0, 100, 0, 0, 100));
}

TEST(CrossPathSegmentTest, CollinearAndParallelCarryTheBand) {
    // Both products within 5e-07 of zero: collinear.
    RvPoint2D x;
    EXPECT_EQ(CrossPathSegment(kNormal, kEnd, RvPoint2D(-3e-07, -1), RvPoint2D(1e-07, 1), false, x),
              PathSegmentHit::Collinear);
    // A direction's x of 6e-07 is no longer parallel: met at t = 3e-07 / 6e-07 = 0.5.
    EXPECT_EQ(CrossPathSegment(kNormal, kEnd, RvPoint2D(-3e-07, -1), RvPoint2D(3e-07, 1), false, x),
              PathSegmentHit::Crossing);
    EXPECT_NEAR(x.y, 0.0, 1e-6);
}

TEST(CrossPathSegmentTest, AcceptsTheParameterWithinTheBandOfTheStart) {
    RvPoint2D x;
    EXPECT_EQ(HitAt(0.0, false, x), PathSegmentHit::Crossing);
    EXPECT_NEAR(x.x, 0.0, 1e-12);
    EXPECT_EQ(HitAt(-4e-07, false), PathSegmentHit::Crossing);
    EXPECT_EQ(HitAt(-6e-07, false), PathSegmentHit::None);
    EXPECT_EQ(HitAt(-6e-07, true), PathSegmentHit::None);
    EXPECT_EQ(HitAt(-0.5, true), PathSegmentHit::None);
}

TEST(CrossPathSegmentTest, AcceptsTheInsideShortOfTheEndByTheBand) {
    EXPECT_EQ(HitAt(0.5, false), PathSegmentHit::Crossing);
    EXPECT_EQ(HitAt(1 - 6e-07, false), PathSegmentHit::Crossing);
    EXPECT_EQ(HitAt(1 - 4e-07, false), PathSegmentHit::None);
    EXPECT_EQ(HitAt(1.0, false), PathSegmentHit::None);
    EXPECT_EQ(HitAt(1.5, false), PathSegmentHit::None);
}

TEST(CrossPathSegmentTest, AcceptsTheEndOnlyOnTheLastSegment) {
    RvPoint2D x;
    EXPECT_EQ(HitAt(1.0, true, x), PathSegmentHit::Crossing);
    EXPECT_NEAR(x.x, 0.0, 1e-12);
    EXPECT_EQ(HitAt(1 - 4e-07, true), PathSegmentHit::Crossing);
    EXPECT_EQ(HitAt(1 + 4e-07, true), PathSegmentHit::Crossing);
    EXPECT_EQ(HitAt(1 + 6e-07, true), PathSegmentHit::None);
    EXPECT_EQ(HitAt(1 - 6e-07, true), PathSegmentHit::Crossing);
}

}  // namespace
}  // namespace ravelin
