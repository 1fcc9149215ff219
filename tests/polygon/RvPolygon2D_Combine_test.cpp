#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvIntersection.h"
#include "ravelin/polygon/RvPolygon2D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

// Every expected ring below is worked out by hand from the trace: the nodes are A's vertices,
// then B's vertices not at a vertex of A, then the crossings in the order of A's edges; a trace
// starts at the first node with a free link of a primary class, and at every node takes the
// first free primary link in slot order (0, 1 along A, 2, 3 along B) to an unvisited node, then
// the first secondary one. Each node's slots hold its nearest neighbours along each polygon.

namespace {

// The axis-aligned rectangle with corners (x0, y0) and (x1, y1), counterclockwise from
// (x0, y0), stored open.
RvPolygon2D Rect(double x0, double y0, double x1, double y1) {
    return Ring({RvPoint2D(x0, y0), RvPoint2D(x1, y0), RvPoint2D(x1, y1), RvPoint2D(x0, y1)});
}

// The square A that all cases below combine with.
RvPolygon2D SquareA() {
    return Rect(0, 0, 10, 10);
}

// The ring has exactly these vertices, in this order from this start; z is 0 throughout.
void ExpectRing(const RvPolygon2D& ring, std::initializer_list<RvPoint2D> expected) {
    ASSERT_EQ(ring.size(), expected.size());
    std::size_t i = 0;
    for (const RvPoint2D& e : expected) {
        SCOPED_TRACE(i);
        const RvPoint2D& v = ring[i];
        EXPECT_NEAR(v.x, e.x, 1e-9);
        EXPECT_NEAR(v.y, e.y, 1e-9);
        EXPECT_NEAR(v.x2D, e.x2D, 1e-9);
        EXPECT_NEAR(v.y2D, e.y2D, 1e-9);
        EXPECT_EQ(v.z, 0.0);
        ++i;
    }
}

// Combine of `a` with `b`, which must answer true.
std::vector<RvPolygon2D> Combined(const RvPolygon2D& a, const RvPolygon2D& b, _RvCombineMode mode) {
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(a.Combine(b, mode, result));
    return result;
}

// ---- Empty operands, the result vector, the operands themselves -------------------------------

TEST(RvPolygon2DCombine, EmptyThisAnswersFalseAndLeavesTheResultAsItWas) {
    std::vector<RvPolygon2D> result;
    result.push_back(Rect(1, 2, 3, 4));
    const RvPolygon2D empty;
    EXPECT_FALSE(empty.Combine(SquareA(), CombineUnion, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(1, 2), RvPoint2D(3, 2), RvPoint2D(3, 4), RvPoint2D(1, 4)});
}

TEST(RvPolygon2DCombine, EmptyOtherAnswersFalseAndLeavesTheResultAsItWas) {
    std::vector<RvPolygon2D> result;
    result.push_back(Rect(1, 2, 3, 4));
    EXPECT_FALSE(SquareA().Combine(RvPolygon2D(), CombineDifference, result));
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(1, 2), RvPoint2D(3, 2), RvPoint2D(3, 4), RvPoint2D(1, 4)});
}

TEST(RvPolygon2DCombine, EmptyOperandOfTheWorkerAnswersFalseToo) {
    std::vector<RvPolygon2D> result;
    result.push_back(Rect(1, 2, 3, 4));
    RvPolygon2D empty;
    EXPECT_FALSE(empty._Combine(SquareA(), CombineIntersection, result));
    RvPolygon2D a = SquareA();
    EXPECT_FALSE(a._Combine(RvPolygon2D(), CombineIntersection, result));
    EXPECT_EQ(result.size(), 1u);
}

TEST(RvPolygon2DCombine, ResultIsClearedFirstAndAnEmptyAnswerIsStillTrue) {
    std::vector<RvPolygon2D> result;
    result.push_back(Rect(1, 2, 3, 4));
    result.push_back(Rect(5, 6, 7, 8));
    // Disjoint squares have nothing in common.
    EXPECT_TRUE(SquareA().Combine(Rect(20, 0, 30, 10), CombineIntersection, result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolygon2DCombine, UnknownModeAnswersTrueWithNothing) {
    std::vector<RvPolygon2D> result;
    result.push_back(Rect(1, 2, 3, 4));
    EXPECT_TRUE(SquareA().Combine(Rect(5, 5, 15, 15), static_cast<_RvCombineMode>(3), result));
    EXPECT_TRUE(result.empty());
}

// A with z 5 and a vertex doubled within 0.01, B with z 3.
RvPolygon2D RaisedA() {
    return Ring({RvPoint2D(0, 0, 5), RvPoint2D(10, 0, 5), RvPoint2D(10.004, 0.003, 5),
                 RvPoint2D(10, 10, 5), RvPoint2D(0, 10, 5)});
}

RvPolygon2D RaisedB() {
    return Ring(
        {RvPoint2D(20, 0, 3), RvPoint2D(30, 0, 3), RvPoint2D(30, 10, 3), RvPoint2D(20, 10, 3)});
}

TEST(RvPolygon2DCombine, CombineLeavesBothOperandsUnchanged) {
    const RvPolygon2D a = RaisedA();
    const RvPolygon2D b = RaisedB();
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(a.Combine(b, CombineDifference, result));
    ASSERT_EQ(a.size(), 5u);
    EXPECT_TRUE(PointIs(a[2], 10.004, 0.003, 5));
    for (const RvPoint2D& v : a) {
        EXPECT_EQ(v.z, 5.0);
    }
    ASSERT_EQ(b.size(), 4u);
    for (const RvPoint2D& v : b) {
        EXPECT_EQ(v.z, 3.0);
    }
    // The difference of disjoint squares is A, from the prepared copy: flat, without the double.
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

TEST(RvPolygon2DCombine, WorkerPreparesThisPolygonInPlace) {
    RvPolygon2D a = RaisedA();
    const RvPolygon2D b = RaisedB();
    std::vector<RvPolygon2D> result;
    EXPECT_TRUE(a._Combine(b, CombineDifference, result));
    ASSERT_EQ(a.size(), 4u);
    EXPECT_TRUE(PointIs(a[0], 0, 0, 0));
    EXPECT_TRUE(PointIs(a[1], 10, 0, 0));
    EXPECT_TRUE(PointIs(a[2], 10, 10, 0));
    EXPECT_TRUE(PointIs(a[3], 0, 10, 0));
    // The other operand is taken by value.
    for (const RvPoint2D& v : b) {
        EXPECT_EQ(v.z, 3.0);
    }
    ASSERT_EQ(result.size(), 1u);
}

// ---- B = (20,0)-(30,10): disjoint ------------------------------------------------------------

// All of A's links lie outside B and all of B's outside A. Each ring is traced from its first
// vertex forward along slot 0.

TEST(RvPolygon2DCombineDisjoint, DifferenceIsA) {
    const auto result = Combined(SquareA(), Rect(20, 0, 30, 10), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

TEST(RvPolygon2DCombineDisjoint, IntersectionIsEmpty) {
    EXPECT_TRUE(Combined(SquareA(), Rect(20, 0, 30, 10), CombineIntersection).empty());
}

TEST(RvPolygon2DCombineDisjoint, UnionIsBothSquaresAFirst) {
    const auto result = Combined(SquareA(), Rect(20, 0, 30, 10), CombineUnion);
    ASSERT_EQ(result.size(), 2u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    ExpectRing(result[1],
               {RvPoint2D(20, 0), RvPoint2D(30, 0), RvPoint2D(30, 10), RvPoint2D(20, 10)});
}

// ---- B = (2,2)-(8,8): inside A ----------------------------------------------------------------

TEST(RvPolygon2DCombineInside, DifferenceGivesTheOuterRingAndTheHoleAsTwoPlainRings) {
    const auto result = Combined(SquareA(), Rect(2, 2, 8, 8), CombineDifference);
    ASSERT_EQ(result.size(), 2u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    // The hole runs the same way round as the outer ring: nothing marks it as a hole.
    ExpectRing(result[1], {RvPoint2D(2, 2), RvPoint2D(8, 2), RvPoint2D(8, 8), RvPoint2D(2, 8)});
}

TEST(RvPolygon2DCombineInside, IntersectionIsB) {
    const auto result = Combined(SquareA(), Rect(2, 2, 8, 8), CombineIntersection);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(2, 2), RvPoint2D(8, 2), RvPoint2D(8, 8), RvPoint2D(2, 8)});
}

TEST(RvPolygon2DCombineInside, UnionIsA) {
    const auto result = Combined(SquareA(), Rect(2, 2, 8, 8), CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

// ---- B = (5,5)-(15,15): overlap at a corner ---------------------------------------------------

// Nodes: 0-3 A's vertices, 4-7 B's, 8 the crossing (10,5), 9 the crossing (5,10). From (10,0)
// the trace reaches (10,5) and there takes the first free link of the mode: slot 3 to (5,5)
// inside A for the difference, slot 2 to (15,5) outside A for the union.

TEST(RvPolygon2DCombineCornerOverlap, DifferenceIsTheSixPointL) {
    const auto result = Combined(SquareA(), Rect(5, 5, 15, 15), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 5), RvPoint2D(5, 5),
                           RvPoint2D(5, 10), RvPoint2D(0, 10)});
}

TEST(RvPolygon2DCombineCornerOverlap, IntersectionIsTheCommonSquareFromAsCorner) {
    // The first link inside B belongs to A's vertex (10,10), whose slot 0 leads to (5,10).
    const auto result = Combined(SquareA(), Rect(5, 5, 15, 15), CombineIntersection);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(10, 10), RvPoint2D(5, 10), RvPoint2D(5, 5), RvPoint2D(10, 5)});
}

TEST(RvPolygon2DCombineCornerOverlap, UnionIsOneRingOfEightPoints) {
    const auto result = Combined(SquareA(), Rect(5, 5, 15, 15), CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0],
               {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 5), RvPoint2D(15, 5),
                RvPoint2D(15, 15), RvPoint2D(5, 15), RvPoint2D(5, 10), RvPoint2D(0, 10)});
}

TEST(RvPolygon2DCombineCornerOverlap, ClosedStoredOperandsGiveTheSameRings) {
    RvPolygon2D a = SquareA();
    a.push_backA(RvPoint2D(0, 0));
    RvPolygon2D b = Rect(5, 5, 15, 15);
    b.push_backA(RvPoint2D(5, 5));
    const auto result = Combined(a, b, CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0],
               {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 5), RvPoint2D(15, 5),
                RvPoint2D(15, 15), RvPoint2D(5, 15), RvPoint2D(5, 10), RvPoint2D(0, 10)});
}

// ---- B = (10,0)-(20,10): a shared edge ----------------------------------------------------------

// Nodes: 0 (0,0), 1 (10,0) and 2 (10,10) touching, 3 (0,10), 4 (20,0), 5 (20,10). The shared
// edge from node 1 to node 2 has the interiors on opposite sides.

TEST(RvPolygon2DCombineSharedEdge, UnionIsOneRingThatKeepsTheCollinearVertices) {
    // Primary links only: round from (0,0) by (10,0), B's outer side and back along A's top.
    // The points (10,0) and (10,10) are in the middle of straight runs and stay; only the seam
    // is tidied, and it is a corner here. The shared edge is traced last, over one link, and
    // dropped.
    const auto result = Combined(SquareA(), Rect(10, 0, 20, 10), CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(20, 0), RvPoint2D(20, 10),
                           RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

TEST(RvPolygon2DCombineSharedEdge, IntersectionIsEmpty) {
    EXPECT_TRUE(Combined(SquareA(), Rect(10, 0, 20, 10), CombineIntersection).empty());
}

TEST(RvPolygon2DCombineSharedEdge, DifferenceIsA) {
    // At (10,0) no primary link is left: the shared edge, secondary in a difference, leads on.
    const auto result = Combined(SquareA(), Rect(10, 0, 20, 10), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

// ---- B equal to A -------------------------------------------------------------------------------

// Every link is a shared edge with both interiors on one side: secondary for the intersection
// and the union, so the trace starts at the last node that has one, (0,10), and goes on along
// slot 0.

TEST(RvPolygon2DCombineEqual, IntersectionIsTheSquareFromItsLastVertex) {
    const auto result = Combined(SquareA(), SquareA(), CombineIntersection);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 10), RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
}

TEST(RvPolygon2DCombineEqual, UnionIsTheSquareFromItsLastVertex) {
    const auto result = Combined(SquareA(), SquareA(), CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 10), RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
}

TEST(RvPolygon2DCombineEqual, DifferenceIsEmpty) {
    EXPECT_TRUE(Combined(SquareA(), SquareA(), CombineDifference).empty());
}

// ---- B = (0,0)-(10,6): three shared edges -------------------------------------------------------

// Nodes: 0 (0,0) and 1 (10,0), touching at B's vertices; 2 (10,10); 3 (0,10); 4 (10,6) and
// 5 (0,6), B's vertices inside A's side edges. Every link of nodes 0 and 1 is a shared edge with
// the interiors on one side. B's top edge from (10,6) to (0,6) runs inside A.

TEST(RvPolygon2DCombineSharedBase, IntersectionStartsAtTheFirstPrimaryLinkNotTheFirstNode) {
    // Nodes 0 and 1 have only secondary links; the scan passes them and starts at node 4, whose
    // link along B's top edge is primary. From (0,6) the only way on is secondary, down the
    // shared edges.
    const auto result = Combined(SquareA(), Rect(0, 0, 10, 6), CombineIntersection);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(10, 6), RvPoint2D(0, 6), RvPoint2D(0, 0), RvPoint2D(10, 0)});
}

TEST(RvPolygon2DCombineSharedBase, DifferenceIsTheUpperPart) {
    // From (10,10), the first node with a link outside B, along A's top and down to (0,6).
    const auto result = Combined(SquareA(), Rect(0, 0, 10, 6), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 6), RvPoint2D(10, 6)});
}

TEST(RvPolygon2DCombineSharedBase, UnionDropsTheLastPointAtTheSeamAndKeepsTheOneMidway) {
    // Traced (10,10), (0,10), (0,6), (0,0), (10,0), (10,6): the last lies on the line from
    // (10,0) back to the first and goes; (0,6) lies on a straight run in the middle and stays.
    const auto result = Combined(SquareA(), Rect(0, 0, 10, 6), CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 6), RvPoint2D(0, 0),
                           RvPoint2D(10, 0)});
}

// ---- The seam ---------------------------------------------------------------------------------

// A with an extra vertex on one of its edges, against a disjoint B: the difference traces A's
// own vertices in order from its first.

TEST(RvPolygon2DCombineSeam, FirstPointOnTheLineFromTheLastToTheSecondIsErased) {
    const RvPolygon2D a = Ring(
        {RvPoint2D(5, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 0)});
    const auto result = Combined(a, Rect(20, 0, 30, 10), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 0)});
}

TEST(RvPolygon2DCombineSeam, LastPointOnTheLineFromTheLastButOneToTheFirstIsErased) {
    const RvPolygon2D a = Ring(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10), RvPoint2D(0, 5)});
    const auto result = Combined(a, Rect(20, 0, 30, 10), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
}

TEST(RvPolygon2DCombineSeam, CollinearPointInTheMiddleIsKept) {
    const RvPolygon2D a = Ring(
        {RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    const auto result = Combined(a, Rect(20, 0, 30, 10), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(10, 0), RvPoint2D(10, 10),
                           RvPoint2D(0, 10)});
}

// ---- A = (10,8)-(20,12) inside B = (0,0)-(20,20), right edges overlapping ----------------------

// Nodes: 0 (10,8), 1 (20,8) and 2 (20,12) touching inside B's right edge, 3 (10,12), 4-7 B's
// vertices. Each touching node is linked along B to the other and to B's vertex beyond it, and
// the link between them is a shared edge with the interiors on one side.

TEST(RvPolygon2DCombineOverlappingEdges, UnionIsBsOutlineWithBothSeamPointsErased) {
    // From (20,8), the first node with a link outside A, down to (20,0) and round B to (20,20),
    // (20,12), and back over the shared edge: (20,8), (20,0), (0,0), (0,20), (20,20), (20,12).
    // The first point lies between the last and the second and goes; then the last lies between
    // (20,20) and the new first, (20,0), and goes too.
    const auto result = Combined(Rect(10, 8, 20, 12), Rect(0, 0, 20, 20), CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(20, 0), RvPoint2D(0, 0), RvPoint2D(0, 20), RvPoint2D(20, 20)});
}

TEST(RvPolygon2DCombineOverlappingEdges, IntersectionIsA) {
    // From (10,8) to (20,8), up the shared edge (secondary, the only way on), and back along A.
    const auto result = Combined(Rect(10, 8, 20, 12), Rect(0, 0, 20, 20), CombineIntersection);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0],
               {RvPoint2D(10, 8), RvPoint2D(20, 8), RvPoint2D(20, 12), RvPoint2D(10, 12)});
}

TEST(RvPolygon2DCombineOverlappingEdges, DifferenceIsEmpty) {
    // A's links lie inside B or on the shared edge, B's outside A: none is followed.
    EXPECT_TRUE(Combined(Rect(10, 8, 20, 12), Rect(0, 0, 20, 20), CombineDifference).empty());
}

// The union is the same ring whichever way the equality of rings is read: B's outline.
TEST(RvPolygon2DCombineOverlappingEdges, UnionEqualsBAsARing) {
    const auto result = Combined(Rect(10, 8, 20, 12), Rect(0, 0, 20, 20), CombineUnion);
    ASSERT_EQ(result.size(), 1u);
    EXPECT_TRUE(result[0] == Rect(0, 0, 20, 20));
}

// ---- A sliver: its corner at (0,0) is narrower than the direction test can tell apart -------

// From (0,0) the other two vertices lie 0.0008 rad apart. Each still links to both neighbours,
// so the trace runs round the sliver: (0,0), (10000,-5), (5000,2.6), and no seam point is
// collinear.
RvPolygon2D Sliver() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(10000, -5), RvPoint2D(5000, 2.6)});
}

TEST(RvPolygon2DCombineSliver, DifferenceWithAFarPolygonIsTheSliver) {
    const auto result = Combined(Sliver(), Rect(-100, -100, -90, -90), CombineDifference);
    ASSERT_EQ(result.size(), 1u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10000, -5), RvPoint2D(5000, 2.6)});
}

TEST(RvPolygon2DCombineSliver, UnionWithAFarPolygonIsBoth) {
    const auto result = Combined(Sliver(), Rect(-100, -100, -90, -90), CombineUnion);
    ASSERT_EQ(result.size(), 2u);
    ExpectRing(result[0], {RvPoint2D(0, 0), RvPoint2D(10000, -5), RvPoint2D(5000, 2.6)});
    EXPECT_TRUE(result[1] == Rect(-100, -100, -90, -90));
}

}  // namespace
