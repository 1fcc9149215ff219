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
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"
#include "support/RandomPolygons.h"
#include "support/RavelinTesting.h"

namespace ravelin {

// Reaches the private search for the crossings of a polyline with the ring.
struct RvPolygon2DTestAccess {
    static void FindPolylineCrossings(const RvPolygon2D& polygon, const RvPolyLine2D& line,
                                      SplitPolylineQueue& points) {
        polygon.FindPolylineCrossings(line, points);
    }
};

namespace {

using testing_support::ExpectVerticesNear;
using testing_support::Path;
using testing_support::Ring;
using testing_support::SameVertices;

// The square from (0, 0) to (10, 10), counterclockwise.
RvPolygon2D Square() {
    return Ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
}

// What one call of SplitPolyline gave.
struct Split {
    bool added;
    std::vector<RvPolyLine2D> pieces;
};

Split SplitOf(const RvPolygon2D& polygon, const RvPolyLine2D& line, bool inside) {
    Split s{false, {}};
    s.added = polygon.SplitPolyline(line, s.pieces, inside);
    return s;
}

// The crossings that FindPolylineCrossings enters for `line`, in the order they leave the queue.
std::vector<SplitPolylinePoint> CrossingsOf(const RvPolygon2D& polygon, const RvPolyLine2D& line) {
    SplitPolylineQueue queue;
    RvPolygon2DTestAccess::FindPolylineCrossings(polygon, line, queue);
    std::vector<SplitPolylinePoint> out;
    while (!queue.empty()) {
        out.push_back(queue.top());
        queue.pop();
    }
    return out;
}

void ExpectCrossing(const SplitPolylinePoint& c, double x, double y, double z, double key,
                    int index) {
    EXPECT_NEAR(c.point.x, x, 1e-9);
    EXPECT_NEAR(c.point.y, y, 1e-9);
    EXPECT_NEAR(c.point.z, z, 1e-9);
    EXPECT_NEAR(c.point.x2D, x, 1e-9);
    EXPECT_NEAR(c.point.y2D, y, 1e-9);
    EXPECT_NEAR(c.key, key, 1e-9);
    EXPECT_EQ(c.index, index);
}

// ---------------------------------------------------------------------------------------------
// SplitPolyline

TEST(RvPolygon2DSplitPolylineTest, StraightLineThroughASquareKeepsTheChordBetweenItsCrossings) {
    // The line meets the left edge at (0, 5) and the right edge at (10, 5); of its three
    // stretches only the middle one has its midpoint inside. The last stretch, up to the
    // polyline's end, is classified like the others: it lies outside, so the piece stops at
    // (10, 5) instead of running on to (15, 5).
    const Split s = SplitOf(Square(), Path({{-5, 5}, {15, 5}}), true);
    EXPECT_TRUE(s.added);
    ASSERT_EQ(s.pieces.size(), 1u);
    ExpectVerticesNear(s.pieces[0], {{0, 5}, {10, 5}});
}

TEST(RvPolygon2DSplitPolylineTest, StraightLineThroughASquareKeepsBothEndsOutside) {
    const Split s = SplitOf(Square(), Path({{-5, 5}, {15, 5}}), false);
    EXPECT_TRUE(s.added);
    ASSERT_EQ(s.pieces.size(), 2u);
    ExpectVerticesNear(s.pieces[0], {{-5, 5}, {0, 5}});
    ExpectVerticesNear(s.pieces[1], {{10, 5}, {15, 5}});
}

TEST(RvPolygon2DSplitPolylineTest, ClockwiseSquareCutsTheLineAtTheSamePoints) {
    // Reversing the ring turns both its normal and the edge normals round; the parameter of a
    // crossing, a quotient of two products with the edge normal, stays the same.
    const RvPolygon2D clockwise = Ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
    const Split in = SplitOf(clockwise, Path({{-5, 5}, {15, 5}}), true);
    EXPECT_TRUE(in.added);
    ASSERT_EQ(in.pieces.size(), 1u);
    ExpectVerticesNear(in.pieces[0], {{0, 5}, {10, 5}});
    const Split out = SplitOf(clockwise, Path({{-5, 5}, {15, 5}}), false);
    ASSERT_EQ(out.pieces.size(), 2u);
    ExpectVerticesNear(out.pieces[0], {{-5, 5}, {0, 5}});
    ExpectVerticesNear(out.pieces[1], {{10, 5}, {15, 5}});
}

TEST(RvPolygon2DSplitPolylineTest, VertexLyingOnAnEdgeIsNotCutTwice) {
    // The vertex (5, 0) sits on the bottom edge. The first segment meets the edge at its end,
    // which is not taken on a segment other than the last; the second meets it at its start, so
    // one crossing equal to the vertex enters the walk and is dropped as a repeat of it.
    const RvPolyLine2D line = Path({{5, -5}, {5, 0}, {5, 5}});
    const Split in = SplitOf(Square(), line, true);
    EXPECT_TRUE(in.added);
    ASSERT_EQ(in.pieces.size(), 1u);
    ExpectVerticesNear(in.pieces[0], {{5, 0}, {5, 5}});

    const Split out = SplitOf(Square(), line, false);
    EXPECT_TRUE(out.added);
    ASSERT_EQ(out.pieces.size(), 1u);
    ExpectVerticesNear(out.pieces[0], {{5, -5}, {5, 0}});
}

TEST(RvPolygon2DSplitPolylineTest, PolylineWhollyInsideComesBackEqual) {
    const RvPolyLine2D line = Path({{2, 2}, {5, 7}, {8, 3}, {9, 9}});
    const Split in = SplitOf(Square(), line, true);
    EXPECT_TRUE(in.added);
    ASSERT_EQ(in.pieces.size(), 1u);
    // The vertices travel through the walk unchanged.
    EXPECT_TRUE(SameVertices(in.pieces[0], line));

    const Split out = SplitOf(Square(), line, false);
    EXPECT_FALSE(out.added);
    EXPECT_TRUE(out.pieces.empty());
}

TEST(RvPolygon2DSplitPolylineTest, PolylineNeverMeetingTheRingIsWholeOutsideAndAbsentInside) {
    // An L round the corner (10, 10), never touching the square.
    const RvPolyLine2D line = Path({{12, -3}, {12, 12}, {-3, 12}});
    const Split out = SplitOf(Square(), line, false);
    EXPECT_TRUE(out.added);
    ASSERT_EQ(out.pieces.size(), 1u);
    EXPECT_TRUE(SameVertices(out.pieces[0], line));

    const Split in = SplitOf(Square(), line, true);
    EXPECT_FALSE(in.added);
    EXPECT_TRUE(in.pieces.empty());
}

TEST(RvPolygon2DSplitPolylineTest, FewerThanTwoVerticesGiveFalseAndAddNothing) {
    std::vector<RvPolyLine2D> result{Path({{1, 1}, {2, 2}})};
    EXPECT_FALSE(Square().SplitPolyline(RvPolyLine2D(), result, true));
    EXPECT_FALSE(Square().SplitPolyline(RvPolyLine2D(), result, false));
    EXPECT_FALSE(Square().SplitPolyline(Path({{5, 5}}), result, true));
    EXPECT_FALSE(Square().SplitPolyline(Path({{-5, 5}}), result, false));
    ASSERT_EQ(result.size(), 1u);
    ExpectVerticesNear(result[0], {{1, 1}, {2, 2}});
}

TEST(RvPolygon2DSplitPolylineTest, PiecesAreAppendedAfterWhatTheResultHeld) {
    std::vector<RvPolyLine2D> result{Path({{100, 100}, {200, 200}})};
    EXPECT_TRUE(Square().SplitPolyline(Path({{-5, 5}, {15, 5}}), result, false));
    ASSERT_EQ(result.size(), 3u);
    ExpectVerticesNear(result[0], {{100, 100}, {200, 200}});
    ExpectVerticesNear(result[1], {{-5, 5}, {0, 5}});
    ExpectVerticesNear(result[2], {{10, 5}, {15, 5}});
}

TEST(RvPolygon2DSplitPolylineTest, ReturnsFalseWhenNothingIsAddedToAResultThatHeldPieces) {
    // The answer is whether the result grew, not whether it holds anything.
    std::vector<RvPolyLine2D> result{Path({{100, 100}, {200, 200}})};
    EXPECT_FALSE(Square().SplitPolyline(Path({{20, 0}, {20, 10}}), result, true));
    EXPECT_FALSE(Square().SplitPolyline(Path({{2, 2}, {8, 8}}), result, false));
    EXPECT_EQ(result.size(), 1u);
}

// A polyline that goes in and out of the square three times:
//   P0 (-2, 1) -> P1 (2, 1) -> P2 (2, 12) -> P3 (6, 12) -> P4 (6, 5) -> P5 (12, 5)
//   -> P6 (12, 3) -> P7 (8, 3)
// crossing the boundary at X1 (0, 1), X2 (2, 10), X3 (6, 10), X4 (10, 5) and X5 (10, 3). Along
// the walk: P0 out X1 in P1 in X2 out P2 out P3 out X3 in P4 in X4 out P5 out P6 out X5 in P7.
RvPolyLine2D Zigzag() {
    return Path({{-2, 1}, {2, 1}, {2, 12}, {6, 12}, {6, 5}, {12, 5}, {12, 3}, {8, 3}});
}

TEST(RvPolygon2DSplitPolylineTest, ZigzagKeepsTheInnerStretchesInTheirOrder) {
    const Split s = SplitOf(Square(), Zigzag(), true);
    EXPECT_TRUE(s.added);
    ASSERT_EQ(s.pieces.size(), 3u);
    ExpectVerticesNear(s.pieces[0], {{0, 1}, {2, 1}, {2, 10}});
    ExpectVerticesNear(s.pieces[1], {{6, 10}, {6, 5}, {10, 5}});
    // The polyline ends inside: its last vertex closes the last piece.
    ExpectVerticesNear(s.pieces[2], {{10, 3}, {8, 3}});
}

TEST(RvPolygon2DSplitPolylineTest, ZigzagKeepsTheOuterStretchesInTheirOrder) {
    const Split s = SplitOf(Square(), Zigzag(), false);
    EXPECT_TRUE(s.added);
    ASSERT_EQ(s.pieces.size(), 3u);
    ExpectVerticesNear(s.pieces[0], {{-2, 1}, {0, 1}});
    ExpectVerticesNear(s.pieces[1], {{2, 10}, {2, 12}, {6, 12}, {6, 10}});
    ExpectVerticesNear(s.pieces[2], {{10, 5}, {12, 5}, {12, 3}, {10, 3}});
}

TEST(RvPolygon2DSplitPolylineTest, StraightLineThroughANotchGivesTwoInnerAndThreeOuterPieces) {
    // A U open at the top: the notch from x = 10 to 20 reaches down to y = 10. The line at
    // y = 15 crosses the boundary at x = 0, 10, 20 and 30.
    const RvPolygon2D u =
        Ring({{0, 0}, {30, 0}, {30, 20}, {20, 20}, {20, 10}, {10, 10}, {10, 20}, {0, 20}});
    const RvPolyLine2D line = Path({{-5, 15}, {35, 15}});
    const Split in = SplitOf(u, line, true);
    EXPECT_TRUE(in.added);
    ASSERT_EQ(in.pieces.size(), 2u);
    ExpectVerticesNear(in.pieces[0], {{0, 15}, {10, 15}});
    ExpectVerticesNear(in.pieces[1], {{20, 15}, {30, 15}});

    const Split out = SplitOf(u, line, false);
    EXPECT_TRUE(out.added);
    ASSERT_EQ(out.pieces.size(), 3u);
    ExpectVerticesNear(out.pieces[0], {{-5, 15}, {0, 15}});
    ExpectVerticesNear(out.pieces[1], {{10, 15}, {20, 15}});
    ExpectVerticesNear(out.pieces[2], {{30, 15}, {35, 15}});
}

TEST(RvPolygon2DSplitPolylineTest, PolylineWhosePointsAreAllWithinTheMergeToleranceGivesNothing) {
    // All vertices, and the crossing with the left edge near (0, 5.0011), lie within 0.01 of
    // the first vertex on each coordinate: no second distinct point, so no stretch at all.
    const RvPolyLine2D line = Path({{-0.004, 5}, {0.003, 5.002}, {0.004, 4.999}});
    std::vector<RvPolyLine2D> result;
    EXPECT_FALSE(Square().SplitPolyline(line, result, true));
    EXPECT_FALSE(Square().SplitPolyline(line, result, false));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolygon2DSplitPolylineTest, VertexWithinTheMergeToleranceOfTheOneBeforeIsDropped) {
    const RvPolyLine2D line = Path({{2, 2}, {2.005, 2}, {8, 2}, {8.003, 2.004}, {8, 8}});
    const Split s = SplitOf(Square(), line, true);
    EXPECT_TRUE(s.added);
    ASSERT_EQ(s.pieces.size(), 1u);
    // The later of two equal points goes; the first of each pair stays exactly as given.
    ExpectVerticesNear(s.pieces[0], {{2, 2}, {8, 2}, {8, 8}}, 0.0);
}

TEST(RvPolygon2DSplitPolylineTest, StretchesAlongTheTopAndLeftEdgesAreNotInside) {
    // A stretch on an edge is classified by its midpoint's rightward ray: from (5, 10) on the
    // top edge it meets the right edge only at that edge's upper end, which does not count; from
    // (0, 5) on the left edge it meets the left edge at its start and the right edge, an even
    // count. Both midpoints come out 0, so the stretches are outside.
    for (const RvPolyLine2D& line : {Path({{2, 10}, {8, 10}}), Path({{0, 2}, {0, 8}})}) {
        SCOPED_TRACE(line[0].x);
        const Split in = SplitOf(Square(), line, true);
        EXPECT_FALSE(in.added);
        EXPECT_TRUE(in.pieces.empty());
        const Split out = SplitOf(Square(), line, false);
        EXPECT_TRUE(out.added);
        ASSERT_EQ(out.pieces.size(), 1u);
        EXPECT_TRUE(SameVertices(out.pieces[0], line));
    }
}

TEST(RvPolygon2DSplitPolylineTest, StretchesAlongTheBottomAndRightEdgesCountAsInside) {
    // The midpoint test makes no test on the edges: a point on the boundary gets the parity of
    // its rightward ray. From (5, 0) on the bottom edge the ray meets the right edge at its
    // lower end, which counts; from (10, 5) on the right edge it meets that edge at its own
    // start. One crossing each, so these stretches along the boundary count as inside.
    for (const RvPolyLine2D& line : {Path({{2, 0}, {8, 0}}), Path({{10, 2}, {10, 8}})}) {
        SCOPED_TRACE(line[0].x);
        const Split in = SplitOf(Square(), line, true);
        EXPECT_TRUE(in.added);
        ASSERT_EQ(in.pieces.size(), 1u);
        EXPECT_TRUE(SameVertices(in.pieces[0], line));
        const Split out = SplitOf(Square(), line, false);
        EXPECT_FALSE(out.added);
        EXPECT_TRUE(out.pieces.empty());
    }
}

TEST(RvPolygon2DSplitPolylineTest, DiagonalThroughTwoCornersIsNotCutAtTheCorners) {
    // A crossing must lie strictly inside its edge. The diagonal meets the boundary only at the
    // corners (0, 0) and (10, 10), each of which ends two edges and lies strictly inside none, so
    // no crossing is entered. The one stretch from (-5, -5) to (15, 15) has its midpoint (5, 5)
    // inside, and the whole polyline, ends outside the square included, counts as inside.
    const RvPolyLine2D line = Path({{-5, -5}, {15, 15}});
    const Split in = SplitOf(Square(), line, true);
    EXPECT_TRUE(in.added);
    ASSERT_EQ(in.pieces.size(), 1u);
    EXPECT_TRUE(SameVertices(in.pieces[0], line));

    const Split out = SplitOf(Square(), line, false);
    EXPECT_FALSE(out.added);
    EXPECT_TRUE(out.pieces.empty());
}

TEST(RvPolygon2DSplitPolylineTest, RingWithoutNormalOnlyClassifiesTheStretches) {
    // A flat ring along y = 0 has a null normal, so the polyline through it at (5, 0) is not cut
    // there; its one stretch has the midpoint (5, 1), outside.
    const RvPolygon2D flat = Ring({{0, 0}, {10, 0}, {20, 0}});
    ASSERT_TRUE(flat.GetNormalVector().IsNull());
    const RvPolyLine2D line = Path({{5, -5}, {5, 7}});
    const Split out = SplitOf(flat, line, false);
    EXPECT_TRUE(out.added);
    ASSERT_EQ(out.pieces.size(), 1u);
    EXPECT_TRUE(SameVertices(out.pieces[0], line));

    const Split in = SplitOf(flat, line, true);
    EXPECT_FALSE(in.added);
    EXPECT_TRUE(in.pieces.empty());
}

// ---------------------------------------------------------------------------------------------
// FindPolylineCrossings

TEST(RvPolygon2DFindPolylineCrossingsTest, KeysAreLengthsAlongThePolyline) {
    // (-5, 2) -> (5, 2) -> (5, 15): the left edge at (0, 2), 5 along the first segment; the top
    // edge at (5, 10), 10 + 8 along the polyline. Each carries the vertex that ends its segment.
    const std::vector<SplitPolylinePoint> c =
        CrossingsOf(Square(), Path({{-5, 2}, {5, 2}, {5, 15}}));
    ASSERT_EQ(c.size(), 2u);
    ExpectCrossing(c[0], 0, 2, 0, 5, 1);
    ExpectCrossing(c[1], 5, 10, 0, 18, 2);
}

TEST(RvPolygon2DFindPolylineCrossingsTest, KeysMeasureSlantedSegmentsByTheirLength) {
    // (-3, 1) -> (3, 9) is 10 long and meets the left edge at t = 0.5, so at 5; then
    // (3, 9) -> (3, 12) meets the top edge at (3, 10), at 10 + 1.
    const std::vector<SplitPolylinePoint> c =
        CrossingsOf(Square(), Path({{-3, 1}, {3, 9}, {3, 12}}));
    ASSERT_EQ(c.size(), 2u);
    ExpectCrossing(c[0], 0, 5, 0, 5, 1);
    ExpectCrossing(c[1], 3, 10, 0, 11, 2);
}

TEST(RvPolygon2DFindPolylineCrossingsTest, CrossingTakesTheHeightOfTheRing) {
    const RvPolygon2D raised = Ring({{0, 0, 2}, {10, 0, 2}, {10, 10, 2}, {0, 10, 2}});
    const std::vector<SplitPolylinePoint> c = CrossingsOf(raised, Path({{-5, 5}, {15, 5}}));
    ASSERT_EQ(c.size(), 2u);
    ExpectCrossing(c[0], 0, 5, 2, 5, 1);
    ExpectCrossing(c[1], 10, 5, 2, 15, 1);
}

TEST(RvPolygon2DFindPolylineCrossingsTest, CrossingAtTheEndOfASegmentCountsOnlyOnTheLastOne) {
    // Ending on the bottom edge: the last segment's end counts.
    const std::vector<SplitPolylinePoint> last = CrossingsOf(Square(), Path({{5, 5}, {5, 0}}));
    ASSERT_EQ(last.size(), 1u);
    ExpectCrossing(last[0], 5, 0, 0, 5, 1);

    // Passing through the same point at a vertex: the end of the first segment does not count,
    // the start of the second does, with the second segment's end vertex.
    const std::vector<SplitPolylinePoint> through =
        CrossingsOf(Square(), Path({{5, 5}, {5, 0}, {12, -7}}));
    ASSERT_EQ(through.size(), 1u);
    ExpectCrossing(through[0], 5, 0, 0, 5, 2);
}

TEST(RvPolygon2DFindPolylineCrossingsTest, PassingThroughRingVerticesMakesNoCrossing) {
    // The corners end two edges each and lie strictly inside neither.
    EXPECT_TRUE(CrossingsOf(Square(), Path({{-5, -5}, {15, 15}})).empty());
    EXPECT_TRUE(CrossingsOf(Square(), Path({{-5, 15}, {15, -5}})).empty());
}

TEST(RvPolygon2DFindPolylineCrossingsTest, SegmentOnAnEdgeCountsItsStartWhenInsideTheEdge) {
    // (-5, 10) -> (2, 10) lies on the top edge's line but starts off the edge; (2, 10) ->
    // (8, 10) starts strictly inside it, and that start is the crossing, 7 along. The first
    // segment meets the left edge only at the corner (0, 10).
    const std::vector<SplitPolylinePoint> c =
        CrossingsOf(Square(), Path({{-5, 10}, {2, 10}, {8, 10}}));
    ASSERT_EQ(c.size(), 1u);
    ExpectCrossing(c[0], 2, 10, 0, 7, 2);
}

TEST(RvPolygon2DFindPolylineCrossingsTest, RingWithoutNormalAddsNothing) {
    const RvPolygon2D flat = Ring({{0, 0}, {10, 0}, {20, 0}});
    EXPECT_TRUE(CrossingsOf(flat, Path({{5, -5}, {5, 7}})).empty());
}

TEST(RvPolygon2DFindPolylineCrossingsTest, AddsToTheQueueWithoutClearingIt) {
    SplitPolylineQueue queue;
    queue.push(SplitPolylinePoint{RvPoint2D(-5, 5), 0.0, 0});
    RvPolygon2DTestAccess::FindPolylineCrossings(Square(), Path({{-5, 5}, {15, 5}}), queue);
    ASSERT_EQ(queue.size(), 3u);
    EXPECT_NEAR(queue.top().key, 0.0, 0.0);
    EXPECT_EQ(queue.top().index, 0);
}

// ---------------------------------------------------------------------------------------------
// Property: the pieces share out the polyline

using testing_support::CorpusRandom;
using testing_support::DistanceToRing;
using testing_support::DistanceToSegment;
using testing_support::Outline;
using testing_support::Pt;

// The crossings of the open chain `line` with `ring`, as parameters along each segment, found
// independently of the library; false if the pair is not in general position: a vertex of
// either within 1 unit of the other, a crossing at an angle whose sine is below 0.05, or two
// crossings on one segment closer than 0.1.
bool CountCrossings(const Outline& ring, const std::vector<Pt>& line, int& crossings) {
    crossings = 0;
    for (const Pt& p : line) {
        if (DistanceToRing(p, ring) < 1.0) {
            return false;
        }
    }
    for (std::size_t k = 0; k + 1 < line.size(); ++k) {
        const Pt a = line[k];
        const Pt b = line[k + 1];
        if (testing_support::Length(testing_support::Sub(b, a)) < 1.0) {
            return false;
        }
        std::vector<double> along;
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Pt c = ring[i];
            const Pt d = ring[(i + 1) % ring.size()];
            if (DistanceToSegment(c, a, b) < 1.0) {
                return false;
            }
            double sine = 0.0;
            if (testing_support::SegmentsCross(a, b, c, d, sine)) {
                if (sine < 0.05) {
                    return false;
                }
                const Pt r = testing_support::Sub(b, a);
                const Pt s = testing_support::Sub(d, c);
                const double t = testing_support::Cross(testing_support::Sub(c, a), s) /
                                 testing_support::Cross(r, s);
                along.push_back(t * testing_support::Length(r));
            }
        }
        std::sort(along.begin(), along.end());
        for (std::size_t m = 0; m + 1 < along.size(); ++m) {
            if (along[m + 1] - along[m] < 0.1) {
                return false;
            }
        }
        crossings += static_cast<int>(along.size());
    }
    return true;
}

double PlanarLength(const RvPolyLine2D& line) {
    double sum = 0.0;
    for (std::size_t k = 1; k < line.size(); ++k) {
        sum += std::hypot(line[k].x2D - line[k - 1].x2D, line[k].y2D - line[k - 1].y2D);
    }
    return sum;
}

// Checks the pieces of one side: each of two vertices or more, each segment's midpoint on that
// side by the even-odd ray parity, and each end either an end of the polyline or on the
// boundary. Returns the pieces' total length.
double CheckSide(const std::vector<RvPolyLine2D>& pieces, const Outline& ring,
                 const std::vector<Pt>& line, bool inside) {
    SCOPED_TRACE(inside ? "inside pieces" : "outside pieces");
    const auto isPolylineEnd = [&line](const RvPoint2D& p) {
        for (const Pt& end : {line.front(), line.back()}) {
            if (std::fabs(p.x2D - end.x) < 1e-9 && std::fabs(p.y2D - end.y) < 1e-9) {
                return true;
            }
        }
        return false;
    };
    double total = 0.0;
    for (const RvPolyLine2D& piece : pieces) {
        EXPECT_GE(piece.size(), 2u);
        for (std::size_t k = 1; k < piece.size(); ++k) {
            const Pt mid{0.5 * (piece[k - 1].x2D + piece[k].x2D),
                         0.5 * (piece[k - 1].y2D + piece[k].y2D)};
            EXPECT_EQ(testing_support::RayParity(mid, ring), inside ? 1 : 0)
                << "midpoint (" << mid.x << ", " << mid.y << ")";
        }
        for (const RvPoint2D* end : {&piece.front(), &piece.back()}) {
            const bool onBoundary = DistanceToRing(Pt{end->x2D, end->y2D}, ring) < 1e-6;
            EXPECT_TRUE(onBoundary || isPolylineEnd(*end))
                << "piece end (" << end->x2D << ", " << end->y2D << ")";
        }
        total += PlanarLength(piece);
    }
    return total;
}

TEST(RvPolygon2DSplitPolylineProperty, InsideAndOutsidePiecesShareOutThePolyline) {
    constexpr int kCases = 300;
    int checked = 0;
    int bothSides = 0;
    for (int n = 0; n < kCases; ++n) {
        const auto seed = static_cast<std::uint32_t>(9100 + n);
        CorpusRandom rng(seed);
        const bool star = n % 2 == 1;
        Outline ring;
        std::vector<Pt> points;
        int crossings = 0;
        bool found = false;
        for (int attempt = 0; attempt < 200 && !found; ++attempt) {
            const Pt centre = testing_support::RandomCentre(rng);
            ring = star ? testing_support::RandomStar(rng, centre, 60.0, 280.0, 5, 14)
                        : testing_support::RandomConvex(rng, centre, 280.0);
            if (!testing_support::IsWellFormed(ring, 10.0)) {
                continue;
            }
            ring = testing_support::Reseated(rng, ring);
            points.clear();
            const int count = rng.Between(2, 6);
            for (int k = 0; k < count; ++k) {
                const double x = rng.Uniform(centre.x - 350.0, centre.x + 350.0);
                const double y = rng.Uniform(centre.y - 350.0, centre.y + 350.0);
                points.push_back({x, y});
            }
            found = CountCrossings(ring, points, crossings);
        }
        ASSERT_TRUE(found) << "seed " << seed;
        SCOPED_TRACE(testing::Message()
                     << (star ? "star" : "convex") << " seed " << seed << ", " << points.size()
                     << " vertices, " << crossings << " crossings");
        ++checked;

        const RvPolygon2D polygon = testing_support::ToRavelin(ring);
        RvPolyLine2D line;
        for (const Pt& p : points) {
            line.push_backA(RvPoint2D(p.x, p.y));
        }
        std::vector<RvPolyLine2D> in;
        std::vector<RvPolyLine2D> out;
        const bool addedIn = polygon.SplitPolyline(line, in, true);
        EXPECT_EQ(addedIn, !in.empty());
        const bool addedOut = polygon.SplitPolyline(line, out, false);
        EXPECT_EQ(addedOut, !out.empty());

        // In general position every crossing changes side, so the runs of one side alternate
        // with those of the other: one more run than crossings.
        EXPECT_EQ(static_cast<int>(in.size() + out.size()), crossings + 1);
        const bool startsInside = testing_support::RayParity(points.front(), ring) == 1;
        const std::size_t expectedIn =
            static_cast<std::size_t>(crossings + (startsInside ? 2 : 1)) / 2;
        EXPECT_EQ(in.size(), expectedIn);

        // Every stretch of the polyline lies in exactly one piece. Crossing points are computed
        // to within about 1e-13 of the coordinates (below 1000), while a stretch lost or taken
        // twice is at least 0.1 long against a polyline of at most about 5000, a relative change
        // above 2e-5: 1e-6 tells the two apart.
        const double length = PlanarLength(line);
        const double shared =
            CheckSide(in, ring, points, true) + CheckSide(out, ring, points, false);
        EXPECT_NEAR(shared, length, 1e-6 * length);

        if (!in.empty() && !out.empty()) {
            ++bothSides;
        }
    }
    EXPECT_EQ(checked, kCases);
    // Polylines spread over a box wider than the polygons cross them in most cases.
    EXPECT_GE(bothSides, kCases / 2);
}

}  // namespace
}  // namespace ravelin
