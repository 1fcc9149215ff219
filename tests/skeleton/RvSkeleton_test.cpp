#include "ravelin/skeleton/RvSkeleton.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

namespace ravelin {
namespace {

using testing_support::Ring;
using testing_support::SameVertices;

using Contour = std::vector<Point>;
using Contours = std::vector<Contour>;

constexpr double kAngleTol = 1e-12;
constexpr double kCoordTol = 1e-9;

// A contour of the given points, appended one at a time.
Contour Pts(std::initializer_list<Point> points) {
    Contour c;
    for (const Point& p : points) {
        c.push_back(p);
    }
    return c;
}

// A set of contours, appended one at a time.
Contours Set(std::initializer_list<Contour> contours) {
    Contours s;
    for (const Contour& c : contours) {
        s.push_back(c);
    }
    return s;
}

// Clockwise square of side 10 (x to the right, y up): up, right, down, left.
Contour ClockwiseSquare() {
    return Pts({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
}

// The same square run counterclockwise.
Contour CounterclockwiseSquare() {
    return Pts({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// Clockwise right triangle with legs 10 along the axes.
Contour ClockwiseTriangle() {
    return Pts({{0, 0}, {0, 10}, {10, 0}});
}

// Counterclockwise square of side 2 in the middle of the square above: a hole.
Contour CounterclockwiseHole() {
    return Pts({{4, 4}, {6, 4}, {6, 6}, {4, 6}});
}

const SkeletonVertex& VertexAt(const RvSkeleton& s, std::size_t i) {
    return *std::next(s.Vertices().begin(), static_cast<std::ptrdiff_t>(i));
}

bool Near(const Point& p, double x, double y, double tol = 1e-6) {
    return std::abs(p.x - x) < tol && std::abs(p.y - y) < tol;
}

// Whether some line runs from a vertex at `from` up to a vertex at `to`.
bool HasLine(const RvSkeleton& s, Point from, Point to) {
    for (const SkeletonLine& line : s) {
        if (Near(line.lower.vertex->point, from.x, from.y) &&
            Near(line.higher.vertex->point, to.x, to.y)) {
            return true;
        }
    }
    return false;
}

// The same lines in the same order, between vertices of the same ids at the same places.
void ExpectSameLines(const RvSkeleton& a, const RvSkeleton& b) {
    ASSERT_EQ(a.size(), b.size());
    auto j = b.begin();
    for (auto i = a.begin(); i != a.end(); ++i, ++j) {
        EXPECT_EQ(i->lower.vertex->id, j->lower.vertex->id);
        EXPECT_EQ(i->higher.vertex->id, j->higher.vertex->id);
        EXPECT_DOUBLE_EQ(i->lower.vertex->point.x, j->lower.vertex->point.x);
        EXPECT_DOUBLE_EQ(i->lower.vertex->point.y, j->lower.vertex->point.y);
        EXPECT_DOUBLE_EQ(i->higher.vertex->point.x, j->higher.vertex->point.x);
        EXPECT_DOUBLE_EQ(i->higher.vertex->point.y, j->higher.vertex->point.y);
    }
}

void ExpectPointIs(const Point& p, double x, double y) {
    EXPECT_DOUBLE_EQ(p.x, x);
    EXPECT_DOUBLE_EQ(p.y, y);
}

// ---- Empty and too short input --------------------------------------------------------------

TEST(RvSkeletonConstructionTest, DefaultConstructedIsEmpty) {
    const RvSkeleton s;
    EXPECT_TRUE(s.empty());
    EXPECT_TRUE(s.Vertices().empty());
    EXPECT_EQ(s.BoundaryVertexCount(), 0);
}

TEST(RvSkeletonConstructionTest, EmptySetOfContoursGivesAnEmptySkeleton) {
    Contours contours;
    const RvSkeleton s(contours);
    EXPECT_TRUE(s.empty());
    EXPECT_TRUE(s.Vertices().empty());
    EXPECT_EQ(s.BoundaryVertexCount(), 0);
}

TEST(RvSkeletonConstructionTest, EmptyFirstContourStopsReadingAtOnce) {
    // The triangle after the empty contour is never read: its duplicate is not even erased.
    Contours contours = Set({Contour{}, Pts({{0, 0}, {0, 0}, {0, 10}, {10, 0}})});
    const RvSkeleton s(contours);
    EXPECT_TRUE(s.empty());
    EXPECT_TRUE(s.Vertices().empty());
    EXPECT_EQ(s.BoundaryVertexCount(), 0);
    EXPECT_EQ(contours[1].size(), 4u);
}

TEST(RvSkeletonConstructionTest, TwoPointsGiveNoLines) {
    Contours contours = Set({Pts({{0, 0}, {10, 0}})});
    const RvSkeleton s(contours);
    EXPECT_TRUE(s.empty());
    // The vertices are made before the count is checked, but the rings are never linked.
    EXPECT_EQ(s.BoundaryVertexCount(), 2);
    ASSERT_EQ(s.Vertices().size(), 2u);
    for (const SkeletonVertex& v : s.Vertices()) {
        EXPECT_EQ(v.prevVertex, nullptr);
        EXPECT_EQ(v.nextVertex, nullptr);
        EXPECT_EQ(v.leftParent, nullptr);
        EXPECT_EQ(v.rightParent, nullptr);
        EXPECT_FALSE(v.done);
    }
}

TEST(RvSkeletonConstructionTest, ThreePointsWithTwoWithinTheBandGiveNoLines) {
    // The third point lies 4e-07 from the second in both coordinates and is erased.
    Contours contours = Set({Pts({{0, 0}, {10, 0}, {10 + 4e-07, -4e-07}})});
    const RvSkeleton s(contours);
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.BoundaryVertexCount(), 2);
    EXPECT_EQ(s.Vertices().size(), 2u);
    ASSERT_EQ(contours[0].size(), 2u);
    ExpectPointIs(contours[0][1], 10, 0);
}

TEST(RvSkeletonConstructionTest, ShortBoundaryIgnoresWhatTheHolesHold) {
    // Two boundary points and a whole square as a hole: the count of the first contour decides.
    Contours contours = Set({Pts({{0, 0}, {10, 0}}), ClockwiseSquare()});
    const RvSkeleton s(contours);
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.BoundaryVertexCount(), 2);
    EXPECT_EQ(s.Vertices().size(), 6u);
}

// ---- Cleaning of the contours ----------------------------------------------------------------

TEST(RvSkeletonCleaningTest, CallerSeesItsContoursShortenedByTheDuplicates) {
    Contours contours = Set({Pts({{0, 0}, {0, 1e-07}, {0, 10}, {10, 0}, {10 + 2e-07, 0}}),
                             Pts({{2, 2}, {4, 2}, {4, 2}, {2, 4}})});
    const RvSkeleton s(contours);
    ASSERT_EQ(contours[0].size(), 3u);
    ExpectPointIs(contours[0][0], 0, 0);
    ExpectPointIs(contours[0][1], 0, 10);
    ExpectPointIs(contours[0][2], 10, 0);
    ASSERT_EQ(contours[1].size(), 3u);
    ExpectPointIs(contours[1][0], 2, 2);
    ExpectPointIs(contours[1][1], 4, 2);
    ExpectPointIs(contours[1][2], 2, 4);
    EXPECT_EQ(s.BoundaryVertexCount(), 3);
}

TEST(RvSkeletonCleaningTest, PointsExactlyTheBandApartAreNotDuplicates) {
    // Against zero the difference is the double 5e-07 exactly; 4e-07 is within the band.
    Contours inX = Set({Pts({{0, 0}, {5e-07, 0}})});
    const RvSkeleton sx(inX);
    EXPECT_EQ(inX[0].size(), 2u);
    EXPECT_EQ(sx.BoundaryVertexCount(), 2);

    Contours inY = Set({Pts({{0, 0}, {0, -5e-07}})});
    const RvSkeleton sy(inY);
    EXPECT_EQ(inY[0].size(), 2u);

    Contours within = Set({Pts({{0, 0}, {4e-07, 0}})});
    const RvSkeleton sw(within);
    EXPECT_EQ(within[0].size(), 1u);
    EXPECT_EQ(sw.BoundaryVertexCount(), 1);

    // Three points of which two are exactly the band apart make three vertices.
    Contours three = Set({Pts({{0, 0}, {0, 5e-07}, {10, 0}})});
    const RvSkeleton s3(three);
    EXPECT_EQ(three[0].size(), 3u);
    EXPECT_EQ(s3.BoundaryVertexCount(), 3);
}

TEST(RvSkeletonCleaningTest, DuplicatesAreComparedWithTheSurvivingEarlierPoint) {
    // A run creeping by 3e-07: the second point is within the band of the first and goes; the
    // third is 6e-07 from the first (the survivor), so it stays although it is only 3e-07 from
    // the erased second; the fourth is within the band of the third and goes.
    Contours contours = Set({Pts({{0, 0}, {3e-07, 0}, {6e-07, 0}, {9e-07, 0}})});
    const RvSkeleton s(contours);
    ASSERT_EQ(contours[0].size(), 2u);
    ExpectPointIs(contours[0][0], 0, 0);
    ExpectPointIs(contours[0][1], 6e-07, 0);
    EXPECT_EQ(s.BoundaryVertexCount(), 2);
    EXPECT_TRUE(s.empty());
}

TEST(RvSkeletonCleaningTest, OnlyAdjacentPointsAreCompared) {
    // The first and third points coincide but are not neighbours: both stay.
    Contours contours = Set({Pts({{0, 0}, {5, 5}, {0, 0}})});
    const RvSkeleton s(contours);
    EXPECT_EQ(contours[0].size(), 3u);
}

TEST(RvSkeletonCleaningTest, RepeatedFirstPointAtTheEndIsKeptAsAZeroLengthEdge) {
    Contour square = ClockwiseSquare();
    square.push_back(Point{0, 0});
    Contours contours = Set({square});
    const RvSkeleton s(contours);
    EXPECT_EQ(contours[0].size(), 5u);
    EXPECT_EQ(s.BoundaryVertexCount(), 5);

    // Vertex 0 at (0, 0): its previous point is the repeated (0, 0), so prevEdge has angle 0
    // (coincident points) and the bisector is that of directions 0 and pi/2, pi/4.
    const SkeletonVertex& v0 = VertexAt(s, 0);
    EXPECT_NEAR(v0.prevEdge.angle, 0.0, kAngleTol);
    EXPECT_NEAR(v0.nextEdge.angle, kPi / 2, kAngleTol);
    EXPECT_NEAR(v0.bisector.angle, kPi / 4, kAngleTol);
    // Vertex 4, the repeated point: towards (10, 0) at angle 0, towards the coincident first
    // point also at angle 0, so its bisector runs along the bottom edge at angle 0.
    const SkeletonVertex& v4 = VertexAt(s, 4);
    ExpectPointIs(v4.point, 0, 0);
    EXPECT_NEAR(v4.prevEdge.angle, 0.0, kAngleTol);
    EXPECT_NEAR(v4.nextEdge.angle, 0.0, kAngleTol);
    EXPECT_NEAR(v4.bisector.angle, 0.0, kAngleTol);

    // The bisectors of vertices 4 and 0 share their origin: they meet there at once, at height
    // 0. That event is pushed first, for vertex 0; the height-0 events of vertices 3 and 4 come
    // later and do not rise above an equal height, so it is the first taken. It makes vertex 5
    // at (0, 0) with the two lines from vertices 4 and 0, both of zero length.
    ASSERT_GE(s.size(), 2u);
    auto line = s.begin();
    EXPECT_EQ(line->lower.vertex->id, 4);
    EXPECT_EQ(line->higher.vertex->id, 5);
    ++line;
    EXPECT_EQ(line->lower.vertex->id, 0);
    EXPECT_EQ(line->higher.vertex->id, 5);
    const SkeletonVertex& v5 = VertexAt(s, 5);
    EXPECT_NEAR(v5.point.x, 0.0, kCoordTol);
    EXPECT_NEAR(v5.point.y, 0.0, kCoordTol);
    // Its edges (along the bottom and up the left side) meet at its own place, so it moves at
    // angle 0, along the bottom edge, and meets the corner (10, 0) at height 0 as well.
    EXPECT_NEAR(v5.bisector.angle, 0.0, kAngleTol);
    EXPECT_TRUE(HasLine(s, Point{0, 0}, Point{10, 0}));
    // So the corner (0, 0) never gets the diagonal towards the centre that the clean square has.
    EXPECT_FALSE(HasLine(s, Point{0, 0}, Point{5, 5}));
}

TEST(RvSkeletonCleaningTest, ContoursAfterAnEmptyOneAreIgnored) {
    // [A, B, C], [], [D, E, F]: the third contour is not read, its duplicate not erased.
    Contours withRest =
        Set({ClockwiseTriangle(), Contour{}, Pts({{1, 1}, {1, 1}, {2, 1}, {1, 2}})});
    const RvSkeleton s(withRest);
    EXPECT_EQ(s.BoundaryVertexCount(), 3);
    EXPECT_EQ(withRest[2].size(), 4u);

    Contours alone = Set({ClockwiseTriangle()});
    const RvSkeleton t(alone);
    EXPECT_FALSE(t.empty());
    EXPECT_EQ(s.Vertices().size(), t.Vertices().size());
    ExpectSameLines(s, t);
}

// ---- Vertices, ids and rings -----------------------------------------------------------------

TEST(RvSkeletonVertexTest, ContourVerticesComeFirstInContourOrderWithTheirIndexAsId) {
    Contours contours = Set({ClockwiseSquare(), CounterclockwiseHole()});
    const RvSkeleton s(contours);
    EXPECT_EQ(s.BoundaryVertexCount(), 4);
    ASSERT_GE(s.Vertices().size(), 8u);
    // Every vertex, event vertices too, has its position in the list as id.
    int index = 0;
    for (const SkeletonVertex& v : s.Vertices()) {
        EXPECT_EQ(v.id, index);
        ++index;
    }
    for (std::size_t i = 0; i < 4; ++i) {
        ExpectPointIs(VertexAt(s, i).point, contours[0][i].x, contours[0][i].y);
        ExpectPointIs(VertexAt(s, 4 + i).point, contours[1][i].x, contours[1][i].y);
    }
    // Contour vertices are their own parents, and no line arrives at them from below.
    for (std::size_t i = 0; i < 8; ++i) {
        const SkeletonVertex& v = VertexAt(s, i);
        EXPECT_EQ(v.leftParent, &v);
        EXPECT_EQ(v.rightParent, &v);
        EXPECT_EQ(v.leftLine, nullptr);
        EXPECT_EQ(v.rightLine, nullptr);
    }
    EXPECT_FALSE(s.empty());
}

TEST(RvSkeletonVertexTest, EachContourIsAClosedRingOfItsOwn) {
    // Both contours run counterclockwise, so neither is shrunk and no vertex is consumed: the
    // links stay as they were made.
    Contours contours = Set({CounterclockwiseSquare(), CounterclockwiseHole()});
    const RvSkeleton s(contours);
    ASSERT_TRUE(s.empty());
    ASSERT_EQ(s.Vertices().size(), 8u);
    const auto at = [&s](std::size_t i) { return &VertexAt(s, i); };
    for (std::size_t i = 0; i < 4; ++i) {
        // Boundary: 0 -> 1 -> 2 -> 3 -> 0.
        EXPECT_EQ(at(i)->nextVertex, at((i + 1) % 4));
        EXPECT_EQ(at(i)->prevVertex, at((i + 3) % 4));
        // Hole: 4 -> 5 -> 6 -> 7 -> 4, never linked to the boundary.
        EXPECT_EQ(at(4 + i)->nextVertex, at(4 + (i + 1) % 4));
        EXPECT_EQ(at(4 + i)->prevVertex, at(4 + (i + 3) % 4));
    }
    for (const SkeletonVertex& v : s.Vertices()) {
        EXPECT_EQ(v.leftParent, &v);
        EXPECT_EQ(v.rightParent, &v);
        EXPECT_FALSE(v.done);
        EXPECT_EQ(v.successor, nullptr);
        EXPECT_EQ(v.outLine, nullptr);
    }
}

TEST(RvSkeletonVertexTest, ClockwiseSquareCornerRays) {
    Contours contours = Set({ClockwiseSquare()});
    const RvSkeleton s(contours);
    ASSERT_GE(s.Vertices().size(), 4u);
    struct Expected {
        double prev, next, bisector;
    };
    // (0, 0): previous (10, 0) at 0, next (0, 10) at pi/2, the sweep 0 .. pi/2 halves at pi/4.
    // (0, 10): previous at -pi/2, next at 0, halving at -pi/4.
    // (10, 10): previous (0, 10) along the negative x axis at -pi, next at -pi/2: -3 pi/4.
    // (10, 0): previous at pi/2, next at -pi; pi/2 > -pi wraps to -3 pi/2, and the mean -5 pi/4
    // reduces to 3 pi/4.
    const Expected expected[4] = {{0.0, kPi / 2, kPi / 4},
                                  {-kPi / 2, 0.0, -kPi / 4},
                                  {-kPi, -kPi / 2, -3 * kPi / 4},
                                  {kPi / 2, -kPi, 3 * kPi / 4}};
    for (std::size_t i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        const SkeletonVertex& v = VertexAt(s, i);
        ExpectPointIs(v.bisector.origin, v.point.x, v.point.y);
        ExpectPointIs(v.prevEdge.origin, v.point.x, v.point.y);
        ExpectPointIs(v.nextEdge.origin, v.point.x, v.point.y);
        EXPECT_NEAR(v.prevEdge.angle, expected[i].prev, kAngleTol);
        EXPECT_NEAR(v.nextEdge.angle, expected[i].next, kAngleTol);
        EXPECT_NEAR(v.bisector.angle, expected[i].bisector, kAngleTol);
    }
    // The skeleton of a square: each corner joined to the centre.
    EXPECT_TRUE(HasLine(s, Point{0, 0}, Point{5, 5}));
    EXPECT_TRUE(HasLine(s, Point{0, 10}, Point{5, 5}));
    EXPECT_TRUE(HasLine(s, Point{10, 10}, Point{5, 5}));
    EXPECT_TRUE(HasLine(s, Point{10, 0}, Point{5, 5}));
}

TEST(RvSkeletonVertexTest, EveryNewLineHasAnInfiniteExtendPoint) {
    Contours contours = Set({ClockwiseSquare(), CounterclockwiseHole()});
    const RvSkeleton s(contours);
    ASSERT_FALSE(s.empty());
    for (const SkeletonLine& line : s) {
        EXPECT_TRUE(IsInfinite(line.extendPoint));
        EXPECT_NE(line.lower.vertex, nullptr);
        EXPECT_NE(line.higher.vertex, nullptr);
    }
}

TEST(RvSkeletonVertexTest, CounterclockwiseConvexContourGivesNoLines) {
    // Run counterclockwise, the bisectors point outwards: at (0, 0) the directions are pi/2 to
    // the previous point and 0 to the next, pi/2 > 0 wraps, and the axis is -3 pi/4.
    Contours square = Set({CounterclockwiseSquare()});
    const RvSkeleton s(square);
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.BoundaryVertexCount(), 4);
    ASSERT_EQ(s.Vertices().size(), 4u);
    EXPECT_NEAR(VertexAt(s, 0).bisector.angle, -3 * kPi / 4, kAngleTol);

    Contours triangle = Set({Pts({{0, 0}, {10, 0}, {0, 10}})});
    const RvSkeleton t(triangle);
    EXPECT_TRUE(t.empty());
    EXPECT_EQ(t.Vertices().size(), 3u);
}

TEST(RvSkeletonVertexTest, OnePointHoleIsAcceptedWithDegenerateRays) {
    Contours contours = Set({ClockwiseTriangle(), Pts({{3, 3}})});
    const RvSkeleton s(contours);
    EXPECT_EQ(s.BoundaryVertexCount(), 3);
    ASSERT_GE(s.Vertices().size(), 4u);
    // The single point is its own previous and next point: every direction is angle 0.
    const SkeletonVertex& h = VertexAt(s, 3);
    ExpectPointIs(h.point, 3, 3);
    EXPECT_DOUBLE_EQ(h.prevEdge.angle, 0.0);
    EXPECT_DOUBLE_EQ(h.nextEdge.angle, 0.0);
    EXPECT_DOUBLE_EQ(h.bisector.angle, 0.0);
    EXPECT_EQ(h.prevVertex, &h);
    EXPECT_EQ(h.nextVertex, &h);
    // Its bisector meets itself at once (height 0), and the ring of one closes at (3, 3) with
    // three zero-length lines.
    int fromHole = 0;
    for (const SkeletonLine& line : s) {
        if (line.lower.vertex == &h) {
            ++fromHole;
            EXPECT_TRUE(Near(line.higher.vertex->point, 3, 3));
        }
    }
    EXPECT_EQ(fromHole, 3);
    // The triangle's own skeleton: each corner to the incentre (r, r), r = 10 - 5 sqrt 2.
    const double r = 10 - 5 * std::sqrt(2.0);
    EXPECT_TRUE(HasLine(s, Point{0, 0}, Point{r, r}));
    EXPECT_TRUE(HasLine(s, Point{0, 10}, Point{r, r}));
    EXPECT_TRUE(HasLine(s, Point{10, 0}, Point{r, r}));
}

TEST(RvSkeletonVertexTest, TwoPointHoleIsAcceptedWithDegenerateRays) {
    Contours contours = Set({ClockwiseTriangle(), Pts({{3, 3}, {5, 3}})});
    const RvSkeleton s(contours);
    EXPECT_EQ(s.BoundaryVertexCount(), 3);
    ASSERT_GE(s.Vertices().size(), 5u);
    // (3, 3) sees (5, 3) on both sides: both edges and the bisector at angle 0.
    const SkeletonVertex& a = VertexAt(s, 3);
    EXPECT_NEAR(a.prevEdge.angle, 0.0, kAngleTol);
    EXPECT_NEAR(a.nextEdge.angle, 0.0, kAngleTol);
    EXPECT_NEAR(a.bisector.angle, 0.0, kAngleTol);
    // (5, 3) sees (3, 3) on both sides: everything at -pi.
    const SkeletonVertex& b = VertexAt(s, 4);
    EXPECT_DOUBLE_EQ(b.prevEdge.angle, -kPi);
    EXPECT_DOUBLE_EQ(b.nextEdge.angle, -kPi);
    EXPECT_NEAR(b.bisector.angle, -kPi, kAngleTol);
    // A ring of two.
    EXPECT_EQ(a.nextVertex, &b);
    EXPECT_EQ(a.prevVertex, &b);
    EXPECT_EQ(b.nextVertex, &a);
    EXPECT_EQ(b.prevVertex, &a);
    // The two bisectors face each other on one line, which is not an event, and neither vertex
    // is reflex: the hole stays as it is. The triangle closes in three lines at its incentre.
    EXPECT_FALSE(a.done);
    EXPECT_FALSE(b.done);
    EXPECT_EQ(s.size(), 3u);
    const double r = 10 - 5 * std::sqrt(2.0);
    EXPECT_TRUE(HasLine(s, Point{0, 0}, Point{r, r}));
    EXPECT_TRUE(HasLine(s, Point{0, 10}, Point{r, r}));
    EXPECT_TRUE(HasLine(s, Point{10, 0}, Point{r, r}));
}

// ---- Constructors on polygons ----------------------------------------------------------------

TEST(RvSkeletonPolygonTest, ReadsThePlanarPairAndLeavesThePolygonAlone) {
    // The planar pair runs clockwise round the square; the spatial x, y are the planar pair
    // swapped and shifted, which runs counterclockwise and would give no lines. A duplicate of
    // the last corner is erased from the skeleton's copy only.
    RvPolygon2D polygon = Ring({RvPoint2D(0, 0, 100, 100, 1), RvPoint2D(0, 10, 110, 100, 2),
                                RvPoint2D(10, 10, 110, 110, 3), RvPoint2D(10, 0, 100, 110, 4),
                                RvPoint2D(10, 0, 100, 110, 5)});
    const RvPolygon2D before(polygon);
    const RvSkeleton s(polygon);
    EXPECT_TRUE(SameVertices(polygon, before));
    EXPECT_EQ(polygon.size(), 5u);
    EXPECT_EQ(s.BoundaryVertexCount(), 4);
    ASSERT_GE(s.Vertices().size(), 4u);
    ExpectPointIs(VertexAt(s, 0).point, 0, 0);
    ExpectPointIs(VertexAt(s, 1).point, 0, 10);
    ExpectPointIs(VertexAt(s, 2).point, 10, 10);
    ExpectPointIs(VertexAt(s, 3).point, 10, 0);
    EXPECT_TRUE(HasLine(s, Point{0, 0}, Point{5, 5}));
    EXPECT_TRUE(HasLine(s, Point{10, 10}, Point{5, 5}));
}

TEST(RvSkeletonPolygonTest, DoesNotReorientThePolygon) {
    RvPolygon2D polygon =
        Ring({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    const RvSkeleton s(polygon);
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.BoundaryVertexCount(), 4);
    ExpectPointIs(VertexAt(s, 1).point, 10, 0);
}

TEST(RvSkeletonPolygonTest, VectorOfPolygonsIsABoundaryWithHoles) {
    // The hole repeats one corner, which the skeleton's copy loses and the polygon keeps.
    std::vector<RvPolygon2D> polygons;
    polygons.push_back(
        Ring({RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(10, 10), RvPoint2D(10, 0)}));
    polygons.push_back(Ring(
        {RvPoint2D(4, 4), RvPoint2D(6, 4), RvPoint2D(6, 4), RvPoint2D(6, 6), RvPoint2D(4, 6)}));
    const std::vector<RvPolygon2D> before = polygons;
    const RvSkeleton s(polygons);
    ASSERT_EQ(polygons.size(), 2u);
    EXPECT_TRUE(SameVertices(polygons[0], before[0]));
    EXPECT_TRUE(SameVertices(polygons[1], before[1]));

    EXPECT_EQ(s.BoundaryVertexCount(), 4);
    ASSERT_GT(s.Vertices().size(), 8u);
    ExpectPointIs(VertexAt(s, 4).point, 4, 4);
    ExpectPointIs(VertexAt(s, 5).point, 6, 4);
    ExpectPointIs(VertexAt(s, 6).point, 6, 6);
    ExpectPointIs(VertexAt(s, 7).point, 4, 6);
    // Vertex 8 is the first made by an event, not a ninth contour vertex.
    EXPECT_NE(VertexAt(s, 8).leftParent, &VertexAt(s, 8));
    EXPECT_FALSE(s.empty());

    // The same contours given as points build the same skeleton.
    Contours contours = Set({ClockwiseSquare(), CounterclockwiseHole()});
    const RvSkeleton t(contours);
    EXPECT_EQ(s.Vertices().size(), t.Vertices().size());
    ExpectSameLines(s, t);
}

// ---- Event vertices --------------------------------------------------------------------------

void ExpectFreshEventVertex(const SkeletonVertex& n, const SkeletonVertex& left,
                            const SkeletonVertex& right) {
    EXPECT_EQ(n.leftParent, &left);
    EXPECT_EQ(n.rightParent, &right);
    ExpectPointIs(n.prevEdge.origin, left.prevEdge.origin.x, left.prevEdge.origin.y);
    EXPECT_DOUBLE_EQ(n.prevEdge.angle, left.prevEdge.angle);
    ExpectPointIs(n.nextEdge.origin, right.nextEdge.origin.x, right.nextEdge.origin.y);
    EXPECT_DOUBLE_EQ(n.nextEdge.angle, right.nextEdge.angle);
    EXPECT_EQ(n.nextVertex, nullptr);
    EXPECT_EQ(n.prevVertex, nullptr);
    EXPECT_EQ(n.successor, nullptr);
    EXPECT_EQ(n.leftLine, nullptr);
    EXPECT_EQ(n.rightLine, nullptr);
    EXPECT_EQ(n.outLine, nullptr);
    EXPECT_FALSE(n.done);
    EXPECT_EQ(n.id, -1);
}

TEST(SkeletonVertexTest, ContourVertexStartsUnlinked) {
    const SkeletonVertex v(Point{1, 2}, Point{1, 5}, Point{4, 2});
    ExpectPointIs(v.point, 1, 2);
    EXPECT_NEAR(v.prevEdge.angle, kPi / 2, kAngleTol);
    EXPECT_NEAR(v.nextEdge.angle, 0.0, kAngleTol);
    // The sweep from pi/2 counterclockwise to 0 is 3 pi/2 wide; its middle is -3 pi/4.
    EXPECT_NEAR(v.bisector.angle, -3 * kPi / 4, kAngleTol);
    EXPECT_EQ(v.leftParent, nullptr);
    EXPECT_EQ(v.rightParent, nullptr);
    EXPECT_EQ(v.nextVertex, nullptr);
    EXPECT_EQ(v.prevVertex, nullptr);
    EXPECT_EQ(v.successor, nullptr);
    EXPECT_FALSE(v.done);
    EXPECT_EQ(v.id, -1);
}

TEST(SkeletonVertexTest, ConvergingEdgesSendTheEventVertexTowardsTheirMeeting) {
    // left's previous edge runs up the y axis from (0, 0); right's next edge runs from (10, 0)
    // towards (0, 10). The rays meet at (0, 10), ahead of both.
    SkeletonVertex left(Point{0, 0}, Point{0, 10}, Point{10, 0});
    SkeletonVertex right(Point{10, 0}, Point{0, 0}, Point{0, 10});
    const SkeletonVertex n(Point{3, 4}, left, right);
    ExpectFreshEventVertex(n, left, right);
    ExpectPointIs(n.point, 3, 4);
    ExpectPointIs(n.bisector.origin, 3, 4);
    // From (3, 4) towards (0, 10).
    EXPECT_NEAR(n.bisector.angle, std::atan2(6.0, -3.0), 1e-9);
}

TEST(SkeletonVertexTest, ParallelEdgesSendTheEventVertexAlongThePreviousEdge) {
    // Both edges point straight down, from (0, 10) and from (10, 10): no meeting as rays or as
    // lines.
    SkeletonVertex left(Point{0, 10}, Point{0, 0}, Point{10, 10});
    SkeletonVertex right(Point{10, 10}, Point{0, 10}, Point{10, 0});
    const SkeletonVertex n(Point{5, 5}, left, right);
    ExpectFreshEventVertex(n, left, right);
    ExpectPointIs(n.bisector.origin, 5, 5);
    EXPECT_NEAR(n.bisector.angle, -kPi / 2, kAngleTol);

    // Opposite parallel edges: up from (0, 0) and down from (10, 10). The previous edge's angle
    // is taken, not the next one's.
    SkeletonVertex up(Point{0, 0}, Point{0, 10}, Point{10, 0});
    SkeletonVertex down(Point{10, 10}, Point{0, 10}, Point{10, 0});
    const SkeletonVertex m(Point{5, 5}, up, down);
    EXPECT_NEAR(m.bisector.angle, kPi / 2, kAngleTol);
    // Swapped, the previous edge is down's, from (10, 10) towards (0, 10), and up's next edge
    // runs along the x axis: again parallel, at the previous edge's angle -pi.
    const SkeletonVertex k(Point{5, 5}, down, up);
    EXPECT_NEAR(k.bisector.angle, -kPi, kAngleTol);
}

TEST(SkeletonVertexTest, DivergingEdgesSendTheEventVertexAwayFromTheirLinesMeeting) {
    // left's previous edge runs down from (0, 0); right's next edge runs from (10, 0) towards
    // (20, -10). As rays they do not meet; their lines cross at (0, 10), behind both.
    SkeletonVertex left(Point{0, 0}, Point{0, -10}, Point{10, 0});
    SkeletonVertex right(Point{10, 0}, Point{0, 0}, Point{20, -10});
    const SkeletonVertex n(Point{3, 4}, left, right);
    ExpectFreshEventVertex(n, left, right);
    ExpectPointIs(n.bisector.origin, 3, 4);
    // The direction from (3, 4) to (0, 10), turned by pi: towards (6, -2).
    EXPECT_NEAR(n.bisector.angle, std::atan2(-6.0, 3.0), 1e-9);
}

TEST(SkeletonVertexTest, HighestFollowsTheSuccessorsToTheEnd) {
    SkeletonVertex a(Point{0, 0}, Point{0, 1}, Point{1, 0});
    SkeletonVertex b(Point{1, 1}, Point{0, 1}, Point{1, 0});
    SkeletonVertex c(Point{2, 2}, Point{0, 1}, Point{1, 0});
    EXPECT_EQ(Highest(&a), &a);
    a.successor = &b;
    b.successor = &c;
    EXPECT_EQ(Highest(&a), &c);
    EXPECT_EQ(Highest(&b), &c);
    EXPECT_EQ(Highest(&c), &c);
}

}  // namespace
}  // namespace ravelin
