#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

// Intersection of an entity's segments with segments and lines in space, on x, y, z. Most
// cases put this entity's segment on the x axis, from (0, 0, 0) to (10, 0, 0), and the other
// segment across it in the y direction; the triple product d . (s x e) then works out by hand.

namespace {

RvPoint2D V(double x, double y, double z) {
    return RvPoint2D(x, y, z);
}

// The x axis from 0 to `length`.
RvPolyLine2D XAxis(double length = 10) {
    return Path(V(0, 0, 0), V(length, 0, 0));
}

RvPoint3D Untouched3D() {
    return RvPoint3D(-777, -888, -999);
}

bool IsUntouched(const RvPoint3D& p) {
    return PointIs(p, -777, -888, -999);
}

RvPoint2D Untouched2D() {
    return RvPoint2D(-777, -888, 111, 222, 333);
}

bool IsUntouched(const RvPoint2D& p) {
    return HasValues(p, 111, 222, 333, -777, -888);
}

constexpr int kUnset = 7;  // a status none of the operations writes

}  // namespace

// ---------------------------------------------------------------------------------------------
// IntersectSegment3D with one segment

TEST(RvDrawEntityIntersect3D, CrossingSegmentsInOnePlaneMeet) {
    // The path runs from (0, 0, 0) to (10, 0, 10) in the plane x = z; a-b crosses it at (5, 0, 5):
    // d = (0, 10, 0), s = (10, 0, 10), e = (-5, -5, -5); s x e = (50, 0, -50), so det = 0.
    // c = d x s = (100, 0, -100), m = c x d = (1000, 0, 1000), t = 10000 / 20000 = 0.5.
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 10));
    RvPoint3D a(5, -5, 5);
    RvPoint3D b(5, 5, 5);
    RvPoint3D out = Untouched3D();
    ASSERT_TRUE(path.IntersectSegment3D(a, b, out, 0));
    ExpectXyzNear(out, 5, 0, 5, 1e-12);
}

TEST(RvDrawEntityIntersect3D, SegmentHitWritesOnlyTheSpacePosition) {
    // An RvPoint2D passed as `out` keeps its planar pair.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, -5, 0);
    RvPoint3D b(5, 5, 0);
    RvPoint2D out = Untouched2D();
    ASSERT_TRUE(path.IntersectSegment3D(a, b, out, 0));
    ExpectXyzNear(out, 5, 0, 0, 1e-12);
    EXPECT_EQ(out.x2D, -777);
    EXPECT_EQ(out.y2D, -888);
}

TEST(RvDrawEntityIntersect3D, SegmentLastIndexIsTheClosingSegment) {
    // Index 2 of three vertices runs from (10, 10, 0) back to (0, 0, 0); a-b meets it at (3, 3, 0).
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 0), V(10, 10, 0));
    RvPoint3D a(2, 4, 0);
    RvPoint3D b(4, 2, 0);
    RvPoint3D out = Untouched3D();
    ASSERT_TRUE(path.IntersectSegment3D(a, b, out, 2));
    ExpectXyzNear(out, 3, 3, 0, 1e-12);
}

TEST(RvDrawEntityIntersect3D, SegmentIndexBeyondLastIsFalse) {
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 0), V(10, 10, 0));
    RvPoint3D a(2, 4, 0);
    RvPoint3D b(4, 2, 0);
    RvPoint3D out = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 3));
    EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 50));
    RvPolyLine2D empty;
    EXPECT_FALSE(empty.IntersectSegment3D(a, b, out, 0));
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, SegmentLiftedByAMillimetreIsSkew) {
    // a-b at height 1e-03 over the axis: det = 100 * 1e-03 = 0.1, far above 1e-06.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, -5, 1e-03);
    RvPoint3D b(5, 5, 1e-03);
    RvPoint3D out = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 0));
    EXPECT_TRUE(IsUntouched(out));
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, SegmentCoplanarityToleranceIs1e06) {
    // a = (5, -5, h), b = (5, 5, h): d = (0, 10, 0), s = (10, 0, 0), e = (-5, -5, -h),
    // s x e = (0, 10 h, -50), det = 100 h.
    RvPolyLine2D path = XAxis();
    {
        RvPoint3D a(5, -5, 0.9e-08);  // det = 0.9e-06
        RvPoint3D b(5, 5, 0.9e-08);
        RvPoint3D out = Untouched3D();
        EXPECT_TRUE(path.IntersectSegment3D(a, b, out, 0));
        ExpectXyzNear(out, 5, 0, 0, 1e-12);
    }
    {
        RvPoint3D a(5, -5, 1.1e-08);  // det = 1.1e-06
        RvPoint3D b(5, 5, 1.1e-08);
        RvPoint3D out = Untouched3D();
        EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 0));
        EXPECT_TRUE(IsUntouched(out));
    }
}

TEST(RvDrawEntityIntersect3D, SegmentCoplanarityToleranceTightensWithLength) {
    // The same lift of 0.9e-08 on segments ten times as long: d = (0, 100, 0), s = (100, 0, 0),
    // e = (-50, -50, -h), det = 100 * 100 h = 0.9e-04: skew.
    RvPolyLine2D path = XAxis(100);
    RvPoint3D a(50, -50, 0.9e-08);
    RvPoint3D b(50, 50, 0.9e-08);
    RvPoint3D out = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 0));
}

TEST(RvDrawEntityIntersect3D, SegmentParallelPairIsFalse) {
    RvPolyLine2D path = XAxis();
    RvPoint3D a(2, 3, 0);
    RvPoint3D b(8, 3, 0);
    RvPoint3D out = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 0));
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, SegmentParallelToleranceIsOnCrossProductWithBand) {
    // a = (0, -delta/2, 0), b = (10, delta/2, 0) crosses the axis at (5, 0, 0), nearly along
    // it: c = d x s = (0, 0, -10 delta), |c| = 10 delta. The pair is parallel unless
    // Number(|c|) > 1e-05, i.e. unless |c| exceeds 1e-05 by the band 5e-07.
    RvPolyLine2D path = XAxis();
    struct Case {
        double delta;
        bool hit;
    };
    const Case cases[] = {
        {0.9e-06, false},   // |c| = 9e-06
        {1.04e-06, false},  // |c| = 1.04e-05: above 1e-05, but within the band
        {2e-06, true},      // |c| = 2e-05
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.delta);
        RvPoint3D a(0, -c.delta / 2, 0);
        RvPoint3D b(10, c.delta / 2, 0);
        RvPoint3D out = Untouched3D();
        EXPECT_EQ(path.IntersectSegment3D(a, b, out, 0), c.hit);
        path.intersectStatus = kUnset;
        RvPoint3D lineOut = Untouched3D();
        EXPECT_EQ(path.IntersectSegmentAndLine3D(a, b, lineOut, 0), c.hit);
        EXPECT_EQ(path.intersectStatus, c.hit ? 0 : 2);
        if (c.hit) {
            ExpectXyzNear(out, 5, 0, 0, 1e-06);
            ExpectXyzNear(lineOut, 5, 0, 0, 1e-06);
        }
    }
}

TEST(RvDrawEntityIntersect3D, ShortSegmentsAreRefusedWhateverTheyCross) {
    RvPolyLine2D path = XAxis();
    RvPoint3D out = Untouched3D();
    // a-b of length 0.00005 straddling the axis at x = 5.
    RvPoint3D a(5, -0.000025, 0);
    RvPoint3D b(5, 0.000025, 0);
    EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 0));
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    // A path segment of length 0.00005 crossed by a long a-b.
    RvPolyLine2D tiny = Path(V(5, -0.000025, 0), V(5, 0.000025, 0));
    RvPoint3D c(0, 0, 0);
    RvPoint3D d(10, 0, 0);
    EXPECT_FALSE(tiny.IntersectSegment3D(c, d, out, 0));
    EXPECT_FALSE(tiny.IntersectSegmentAndLine3D(c, d, out, 0));
    EXPECT_FALSE(tiny.IntersectLine3D(c, d, out, 0));
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, SegmentLengthBoundIsNumber00001) {
    // Lengths 0.00009 (refused), 0.0000998 (below 0.0001 by less than the band: kept) and
    // 0.00011 (kept), for both the path segment and a-b. The crossing is at the middle of the
    // short one.
    struct Case {
        double length;
        bool hit;
    };
    const Case cases[] = {{0.00009, false}, {0.0000998, true}, {0.00011, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.length);
        const double h = c.length / 2;
        RvPolyLine2D path = XAxis();
        RvPoint3D a(5, -h, 0);
        RvPoint3D b(5, h, 0);
        RvPoint3D out = Untouched3D();
        EXPECT_EQ(path.IntersectSegment3D(a, b, out, 0), c.hit);
        RvPolyLine2D shortPath = Path(V(5, -h, 0), V(5, h, 0));
        RvPoint3D p(0, 0, 0);
        RvPoint3D q(10, 0, 0);
        RvPoint3D shortOut = Untouched3D();
        EXPECT_EQ(shortPath.IntersectSegment3D(p, q, shortOut, 0), c.hit);
        if (c.hit) {
            ExpectXyzNear(out, 5, 0, 0, 1e-09);
            ExpectXyzNear(shortOut, 5, 0, 0, 1e-09);
        }
    }
}

TEST(RvDrawEntityIntersect3D, SegmentParameterBoundsOnThePath) {
    // Path from (0, 0, 0) to (1, 0, 0); a-b the vertical from (X, -5, 0) to (X, 5, 0):
    // c = (0, 0, -10), m = (100, 0, 0), t = 100 X / 100 = X.
    RvPolyLine2D path = XAxis(1);
    struct Case {
        double t;
        bool hit;
    };
    const Case cases[] = {{-2e-06, false}, {-5e-07, true},    {0.0, true},
                          {1.0, true},     {1.0000005, true}, {1.000002, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.t);
        RvPoint3D a(c.t, -5, 0);
        RvPoint3D b(c.t, 5, 0);
        RvPoint3D out = Untouched3D();
        EXPECT_EQ(path.IntersectSegment3D(a, b, out, 0), c.hit);
        RvPoint3D lineOut = Untouched3D();
        path.intersectStatus = kUnset;
        EXPECT_EQ(path.IntersectSegmentAndLine3D(a, b, lineOut, 0), c.hit);
        EXPECT_EQ(path.intersectStatus, c.hit ? 0 : 1);
        if (c.hit) {
            ExpectXyzNear(out, c.t, 0, 0, 1e-12);
            ExpectXyzNear(lineOut, c.t, 0, 0, 1e-12);
        } else {
            EXPECT_TRUE(IsUntouched(out));
            EXPECT_TRUE(IsUntouched(lineOut));
        }
    }
}

TEST(RvDrawEntityIntersect3D, SegmentCrossingBeyondBWritesOutAndIsFalse) {
    // The line of a-b meets the axis at (5, 0, 0), beyond b: (out - a) . (out - b) =
    // (0, -3, 0) . (0, -1, 0) = 3.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, 3, 0);
    RvPoint3D b(5, 1, 0);
    RvPoint3D out = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(a, b, out, 0));
    ExpectXyzNear(out, 5, 0, 0, 1e-12);
    // Beyond a likewise.
    RvPoint3D out2 = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(b, a, out2, 0));
    ExpectXyzNear(out2, 5, 0, 0, 1e-12);
}

TEST(RvDrawEntityIntersect3D, SegmentEndTestIsStrictlyBelow1e06) {
    // a = (5, 5, 0), b = (5, g, 0), crossing at (5, 0, 0) a distance g beyond b:
    // (out - a) . (out - b) = (-5)(-g) = 5 g.
    RvPolyLine2D path = XAxis();
    struct Case {
        double gap;
        bool hit;
    };
    const Case cases[] = {
        {0.0, true},     // the crossing is b itself: 0
        {1e-07, true},   // 5e-07
        {3e-07, false},  // 1.5e-06
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.gap);
        RvPoint3D a(5, 5, 0);
        RvPoint3D b(5, c.gap, 0);
        RvPoint3D out = Untouched3D();
        EXPECT_EQ(path.IntersectSegment3D(a, b, out, 0), c.hit);
        ExpectXyzNear(out, 5, 0, 0, 1e-12);
    }
}

// ---------------------------------------------------------------------------------------------
// IntersectSegment3D over all segments

TEST(RvDrawEntityIntersect3D, AllSegmentsIncludeTheClosingOne) {
    // a-b crosses only the closing segment from (10, 10, 0) to (0, 0, 0), at (3, 3, 0). Segment
    // 0's line is met at (6, 0, 0), beyond b; segment 1's at (10, -4, 0), before its start.
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 0), V(10, 10, 0));
    RvPoint3D a(2, 4, 0);
    RvPoint3D b(4, 2, 0);
    EXPECT_TRUE(path.IntersectSegment3D(a, b));
    RvPoint3D scratch;
    EXPECT_FALSE(path.IntersectSegment3D(a, b, scratch, 0));
    EXPECT_FALSE(path.IntersectSegment3D(a, b, scratch, 1));
}

TEST(RvDrawEntityIntersect3D, AllSegmentsFalseWithoutACrossing) {
    // a-b stops short of the diagonal, at (2.5, 3.5, 0).
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 0), V(10, 10, 0));
    RvPoint3D a(2, 4, 0);
    RvPoint3D b(2.5, 3.5, 0);
    EXPECT_FALSE(path.IntersectSegment3D(a, b));
}

TEST(RvDrawEntityIntersect3D, AllSegmentsOfEmptyOrSingleVertexEntityAreFalse) {
    RvPoint3D a(-1, -1, 0);
    RvPoint3D b(1, 1, 0);
    RvPolyLine2D empty;
    EXPECT_FALSE(empty.IntersectSegment3D(a, b));
    // One vertex: its only segment runs from the vertex to itself and is too short.
    RvPolyLine2D single = Path(V(0, 0, 0));
    EXPECT_FALSE(single.IntersectSegment3D(a, b));
}

// ---------------------------------------------------------------------------------------------
// IntersectSegmentAndLine3D

TEST(RvDrawEntityIntersect3D, SegmentAndLineResetsStatusOnHit) {
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 10));
    RvPoint3D a(5, -5, 5);
    RvPoint3D b(5, 5, 5);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 5, 0, 5, 1e-12);
}

TEST(RvDrawEntityIntersect3D, SegmentAndLineTakesLineBeyondItsPoints) {
    // The crossing lies beyond b, which IntersectSegment3D refuses; the line is infinite.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, 3, 0);
    RvPoint3D b(5, 1, 0);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 5, 0, 0, 1e-12);
}

TEST(RvDrawEntityIntersect3D, SegmentAndLineParallelSetsStatus2) {
    RvPolyLine2D path = XAxis();
    RvPoint3D a(2, 3, 0);
    RvPoint3D b(8, 3, 0);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 2);
    EXPECT_TRUE(IsUntouched(out));
    // On the same line, too.
    RvPoint3D c(20, 0, 0);
    RvPoint3D d(30, 0, 0);
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectSegmentAndLine3D(c, d, out, 0));
    EXPECT_EQ(path.intersectStatus, 2);
}

TEST(RvDrawEntityIntersect3D, SegmentAndLineCrossingOffTheSegmentSetsStatus1) {
    RvPolyLine2D path = XAxis();
    RvPoint3D a(12, -5, 0);
    RvPoint3D b(12, 5, 0);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, SegmentAndLineIgnoresNoiseUpTo1e06InThirdVector) {
    // a-b at height h = 1e-06: e = v - b = (-5, -5, -1e-06) loses its z, so det = 0 and the
    // pair counts as coplanar. IntersectSegment3D, with det = 100 h = 1e-04, finds it skew.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, -5, 1e-06);
    RvPoint3D b(5, 5, 1e-06);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 5, 0, 0, 1e-12);
    RvPoint3D segOut = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(a, b, segOut, 0));
}

TEST(RvDrawEntityIntersect3D, SegmentAndLineKeepsNoiseAbove1e06) {
    // h = 1.1e-06 stays: det = 1.1e-04, skew.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, -5, 1.1e-06);
    RvPoint3D b(5, 5, 1.1e-06);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectSegmentAndLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, SegmentAndLineIndexBeyondLastIsFalseWithStatus0) {
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, -5, 0);
    RvPoint3D b(5, 5, 0);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectSegmentAndLine3D(a, b, out, 2));
    EXPECT_EQ(path.intersectStatus, 0);
    EXPECT_TRUE(IsUntouched(out));
    // Index 1 is the closing segment, back along the axis.
    ASSERT_TRUE(path.IntersectSegmentAndLine3D(a, b, out, 1));
    ExpectXyzNear(out, 5, 0, 0, 1e-12);
}

// ---------------------------------------------------------------------------------------------
// IntersectLine3D

TEST(RvDrawEntityIntersect3D, LinesMeetBeyondBothSegments) {
    // The path segment from (0, 0, 0) to (1, 0, 0) and the line through (5, 1, 0) and (5, 2, 0)
    // meet at (5, 0, 0): t = 5 on the segment, beyond b on the other line.
    RvPolyLine2D path = XAxis(1);
    RvPoint3D a(5, 1, 0);
    RvPoint3D b(5, 2, 0);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 5, 0, 0, 1e-12);
    // Before the segment's start, t = -3.
    RvPoint3D c(-3, 2, 0);
    RvPoint3D d(-3, 1, 0);
    ASSERT_TRUE(path.IntersectLine3D(c, d, out, 0));
    ExpectXyzNear(out, -3, 0, 0, 1e-12);
}

TEST(RvDrawEntityIntersect3D, LinesInTiltedPlaneMeet) {
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 10));
    RvPoint3D a(5, -5, 5);
    RvPoint3D b(5, 5, 5);
    RvPoint3D out = Untouched3D();
    ASSERT_TRUE(path.IntersectLine3D(a, b, out, 0));
    ExpectXyzNear(out, 5, 0, 5, 1e-12);
}

TEST(RvDrawEntityIntersect3D, LinesNearlyCoplanarAreAcceptedByProjection) {
    // a = (5, -5, 0), b = (5, 5, 0.0005): d = (0, 10, 0.0005), s = (10, 0, 0),
    // e = (-5, -5, -0.0005), s x e = (0, 0.005, -50), det = 0.05 - 0.025 = 0.025: not coplanar.
    // The plane through the axis and a is z = 0; b projects onto (5, 5, 0), 0.0005 away,
    // within 0.001: accepted. c = (0, 0.005, -100), m = (1000.0000025, 0, 0), t = 0.5.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, -5, 0);
    RvPoint3D b(5, 5, 0.0005);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 5, 0, 0, 1e-09);
    // IntersectSegment3D has no such second chance.
    RvPoint3D segOut = Untouched3D();
    EXPECT_FALSE(path.IntersectSegment3D(a, b, segOut, 0));
}

TEST(RvDrawEntityIntersect3D, LinesProjectionDistanceBoundIsNumber0001) {
    // b's height over the plane z = 0 is the distance of its projection.
    RvPolyLine2D path = XAxis();
    struct Case {
        double height;
        bool hit;
    };
    const Case cases[] = {
        {0.0009, true},
        {0.0009997, false},  // below 0.001 by less than the band
        {0.0011, false},
        {0.002, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.height);
        RvPoint3D a(5, -5, 0);
        RvPoint3D b(5, 5, c.height);
        RvPoint3D out = Untouched3D();
        path.intersectStatus = kUnset;
        EXPECT_EQ(path.IntersectLine3D(a, b, out, 0), c.hit);
        EXPECT_EQ(path.intersectStatus, c.hit ? 0 : 1);
        if (c.hit) {
            ExpectXyzNear(out, 5, 0, 0, 1e-09);
        } else {
            EXPECT_TRUE(IsUntouched(out));
        }
    }
}

TEST(RvDrawEntityIntersect3D, LinesSkewIsRefusedWhenProjectionFailsNearAVertex) {
    // a lies 0.07 from vertex 0, too close for the projection, though b is only 0.0005 off the
    // plane z = 0. d = (4.95, 5.05, 0.0005), s x e = (0, 0.005, -50), det = 0.00025: skew.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(0.05, -0.05, 0);
    RvPoint3D b(5, 5, 0.0005);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, LinesSkewIsAcceptedWhenAIsFarEnoughForProjection) {
    // a at 0.7 from vertex 0: d = (4.5, 5.5, 0.0005), det = 0.0275 - 0.025 = 0.0025, skew; the
    // projection succeeds and b is 0.0005 off. c = (0, 0.005, -55),
    // m = (302.5000025, -247.5, -0.0225), t = 275.00000125 / 3025.000025 = 1/11 very nearly:
    // out is about (10/11, 0, 0), where y = 0 meets the line in the plane.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(0.5, -0.5, 0);
    RvPoint3D b(5, 5, 0.0005);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 10.0 / 11.0, 0, 0, 1e-06);
}

TEST(RvDrawEntityIntersect3D, LinesSkewIsRefusedWhenSegmentTooShortForProjection) {
    // A segment of length 0.05 passes the length test of 0.0001 but is too short to project on.
    // d = (0, 10, 0.0005), s = (0.05, 0, 0), e = (-0.025, -5, -0.0005),
    // s x e = (0, 0.000025, -0.25), det = 0.00025 - 0.000125 = 0.000125: skew.
    RvPolyLine2D path = XAxis(0.05);
    RvPoint3D a(0.025, -5, 0);
    RvPoint3D b(0.025, 5, 0.0005);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, LinesWithATouchingVertexSkipCoplanarityTest) {
    // a lies 7.1e-05 from vertex 0, below 0.0001: the pair is taken as meeting there. The
    // product alone says skew: d = (-5e-05, 10, 0.99995), s x e = (0, 10, -100), det = 0.005,
    // and the projection would fail with a so near the vertex. The result is the foot on the
    // axis nearest to the line a-b, about (5e-05, 0, 0).
    RvPolyLine2D path = XAxis();
    RvPoint3D a(0.00005, 0, 0.00005);
    RvPoint3D b(0, 10, 1);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 0, 0, 0, 1e-04);
}

TEST(RvDrawEntityIntersect3D, LinesWithAJustAwayFromVertexAreSkew) {
    // As above with a at 2.8e-04 from vertex 0: the coplanarity test runs and fails, and the
    // projection fails with a within 0.1 of the vertex.
    RvPolyLine2D path = XAxis();
    RvPoint3D a(0.0002, 0, 0.0002);
    RvPoint3D b(0, 10, 1);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, LinesWithBTouchingTheOtherVertexSkipCoplanarityTest) {
    // Path from (0, 0, 0) to (0.05, 0, 0), too short to project on; b lies 7.1e-05 from vertex
    // 1. d = (0, 10.00005, -4.99995), s x e = (0, 2.5e-06, -2.5e-06), det = 3.75e-05: skew by
    // the product. The line a-b stays at x = 0.05, so its nearest point on the axis is vertex
    // 1: c = (0, -0.2499975, -0.5000025), m = (M, 0, 0), t = 0.05 M / (0.05 M) = 1.
    RvPolyLine2D path = XAxis(0.05);
    RvPoint3D a(0.05, -10, 5);
    RvPoint3D b(0.05, 0.00005, 0.00005);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 0);
    ExpectXyzNear(out, 0.05, 0, 0, 1e-09);
    // b at 2.8e-04 from the vertex: tested, skew, and refused.
    RvPoint3D far(0.05, 0.0002, 0.0002);
    RvPoint3D farOut = Untouched3D();
    EXPECT_FALSE(path.IntersectLine3D(a, far, farOut, 0));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(IsUntouched(farOut));
}

TEST(RvDrawEntityIntersect3D, LinesParallelSetStatus2) {
    RvPolyLine2D path = XAxis();
    RvPoint3D a(2, 3, 0);
    RvPoint3D b(8, 3, 0);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectLine3D(a, b, out, 0));
    EXPECT_EQ(path.intersectStatus, 2);
    // The same line: a touches vertex 0, c = 0.
    RvPoint3D c(0, 0, 0);
    RvPoint3D d(20, 0, 0);
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectLine3D(c, d, out, 0));
    EXPECT_EQ(path.intersectStatus, 2);
    EXPECT_TRUE(IsUntouched(out));
}

TEST(RvDrawEntityIntersect3D, LinesIndexBeyondLastIsFalseWithStatus0) {
    RvPolyLine2D path = XAxis();
    RvPoint3D a(5, -5, 0);
    RvPoint3D b(5, 5, 0);
    RvPoint3D out = Untouched3D();
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.IntersectLine3D(a, b, out, 2));
    EXPECT_EQ(path.intersectStatus, 0);
    EXPECT_TRUE(IsUntouched(out));
}

// ---------------------------------------------------------------------------------------------
// Intersect3D

TEST(RvDrawEntityIntersect3D, Intersect3DFindsCrossingOnEverySegmentIncludingClosing) {
    // This entity's segments 0 and 1 (the closing one) lie on the same line, in the plane
    // x = z; both meet the other's segment at (5, 0, 5). The appended points take their
    // planar pair from x, y, whatever this entity's vertices hold there.
    RvPolyLine2D path = Path(RvPoint2D(100, 100, 0, 0, 0), RvPoint2D(200, 100, 10, 0, 10));
    RvPolyLine2D other = Path(V(5, -5, 5), V(5, 5, 5));
    std::vector<RvPoint2D> out;
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.Intersect3D(other, out));
    EXPECT_EQ(path.intersectStatus, 0);
    ASSERT_EQ(out.size(), 2u);
    for (const RvPoint2D& p : out) {
        ExpectXyzNear(p, 5, 0, 5, 1e-12);
        EXPECT_EQ(p.x2D, p.x);
        EXPECT_EQ(p.y2D, p.y);
    }
}

TEST(RvDrawEntityIntersect3D, Intersect3DHasNoBoundOnTheParameter) {
    // The other segment from (20, -5, 0) to (20, -1, 0) reaches neither the axis segment nor
    // y = 0; their lines meet at (20, 0, 0) (t = 2 on segment 0, t = -1 on the closing one).
    RvPolyLine2D path = XAxis();
    RvPolyLine2D other = Path(V(20, -5, 0), V(20, -1, 0));
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(path.Intersect3D(other, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectXyzNear(out[0], 20, 0, 0, 1e-12);
    ExpectXyzNear(out[1], 20, 0, 0, 1e-12);
}

TEST(RvDrawEntityIntersect3D, Intersect3DCoplanarityToleranceIs1e05) {
    // The other segment at height h over the axis: det = +-100 h on both segments.
    RvPolyLine2D path = XAxis();
    {
        // h = 5e-08: det = 5e-06, coplanar here though skew for IntersectSegment3D.
        RvPolyLine2D other = Path(V(5, -5, 5e-08), V(5, 5, 5e-08));
        std::vector<RvPoint2D> out;
        path.intersectStatus = kUnset;
        ASSERT_TRUE(path.Intersect3D(other, out));
        EXPECT_EQ(path.intersectStatus, 0);
        ASSERT_EQ(out.size(), 2u);
        ExpectXyzNear(out[0], 5, 0, 0, 1e-09);
        RvPoint3D a(5, -5, 5e-08);
        RvPoint3D b(5, 5, 5e-08);
        RvPoint3D segOut;
        EXPECT_FALSE(path.IntersectSegment3D(a, b, segOut, 0));
    }
    {
        // h = 2e-07: det = 2e-05, skew.
        RvPolyLine2D other = Path(V(5, -5, 2e-07), V(5, 5, 2e-07));
        std::vector<RvPoint2D> out;
        path.intersectStatus = kUnset;
        EXPECT_FALSE(path.Intersect3D(other, out));
        EXPECT_EQ(path.intersectStatus, 1);
        EXPECT_TRUE(out.empty());
    }
}

TEST(RvDrawEntityIntersect3D, Intersect3DSkewPairEndsWithFalseAfterAppending) {
    // The other path's first segment crosses the axis at (5, 0, 0) (appended for segments 0
    // and 1); its second, the vertical from (5, 5, 0) to (5, 5, 3), is skew to the axis:
    // det = 3 * (-50) = -150. The result is false, the appended points stay.
    RvPolyLine2D path = XAxis();
    RvPolyLine2D other = Path(V(5, -5, 0), V(5, 5, 0), V(5, 5, 3));
    std::vector<RvPoint2D> out;
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.Intersect3D(other, out));
    EXPECT_EQ(path.intersectStatus, 1);
    ASSERT_EQ(out.size(), 2u);
    ExpectXyzNear(out[0], 5, 0, 0, 1e-12);
    ExpectXyzNear(out[1], 5, 0, 0, 1e-12);
}

TEST(RvDrawEntityIntersect3D, Intersect3DSkewPairStopsBeforeLaterPairs) {
    // The other segment runs over (5, 0, 1). This entity's segment 0, the axis, is skew to it
    // and ends the operation; its closing segment from (10, 0, 2) to (0, 0, 0) would meet it
    // at (5, 0, 1).
    RvPolyLine2D path = Path(V(0, 0, 0), V(10, 0, 0), V(10, 0, 2));
    RvPolyLine2D other = Path(V(5, -5, 1), V(5, 5, 1));
    std::vector<RvPoint2D> out;
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.Intersect3D(other, out));
    EXPECT_EQ(path.intersectStatus, 1);
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersect3D, Intersect3DSkipsShortSegments) {
    // The other path's second segment has length 0.00005 and would be skew
    // (det = 0.00005 * (-50)); being short it is passed over.
    RvPolyLine2D path = XAxis();
    RvPolyLine2D other = Path(V(5, -5, 0), V(5, 5, 0), V(5, 5, 0.00005));
    std::vector<RvPoint2D> out;
    path.intersectStatus = kUnset;
    ASSERT_TRUE(path.Intersect3D(other, out));
    EXPECT_EQ(path.intersectStatus, 0);
    EXPECT_EQ(out.size(), 2u);
}

TEST(RvDrawEntityIntersect3D, Intersect3DSkipsParallelPairsWithoutStatus) {
    RvPolyLine2D path = XAxis();
    {
        RvPolyLine2D other = Path(V(0, 1, 0), V(10, 1, 0));
        std::vector<RvPoint2D> out;
        path.intersectStatus = kUnset;
        EXPECT_FALSE(path.Intersect3D(other, out));
        EXPECT_EQ(path.intersectStatus, 0);
        EXPECT_TRUE(out.empty());
    }
    {
        // A parallel segment, then one from (10, 1, 0) to (5, -5, 0), which meets y = 0 a sixth
        // of the way along: x = 10 - 5/6.
        RvPolyLine2D other = Path(V(0, 1, 0), V(10, 1, 0), V(5, -5, 0));
        std::vector<RvPoint2D> out;
        path.intersectStatus = kUnset;
        ASSERT_TRUE(path.Intersect3D(other, out));
        EXPECT_EQ(path.intersectStatus, 0);
        ASSERT_EQ(out.size(), 2u);
        ExpectXyzNear(out[0], 10 - 5.0 / 6.0, 0, 0, 1e-09);
        ExpectXyzNear(out[1], 10 - 5.0 / 6.0, 0, 0, 1e-09);
    }
}

TEST(RvDrawEntityIntersect3D, Intersect3DWithTooFewVerticesIsFalse) {
    RvPolyLine2D path = XAxis();
    RvPolyLine2D single = Path(V(5, 0, 0));
    RvPolyLine2D empty;
    std::vector<RvPoint2D> out;
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.Intersect3D(single, out));
    EXPECT_EQ(path.intersectStatus, 0);
    path.intersectStatus = kUnset;
    EXPECT_FALSE(path.Intersect3D(empty, out));
    EXPECT_EQ(path.intersectStatus, 0);
    // Fewer than two vertices here: the inner loop does not run, not even against a skew
    // segment.
    RvPolyLine2D other = Path(V(5, -5, 3), V(5, 5, 7));
    RvPolyLine2D onePoint = Path(V(0, 0, 0));
    onePoint.intersectStatus = kUnset;
    EXPECT_FALSE(onePoint.Intersect3D(other, out));
    EXPECT_EQ(onePoint.intersectStatus, 0);
    EXPECT_FALSE(empty.Intersect3D(other, out));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersect3D, Intersect3DAppendsToOutput) {
    RvPolyLine2D path = XAxis();
    RvPolyLine2D other = Path(V(5, -5, 0), V(5, 5, 0));
    std::vector<RvPoint2D> out;
    out.push_back(Untouched2D());
    ASSERT_TRUE(path.Intersect3D(other, out));
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(IsUntouched(out[0]));
    // Nothing appended: false, even though the vector is not empty.
    RvPolyLine2D parallel = Path(V(0, 1, 0), V(10, 1, 0));
    EXPECT_FALSE(path.Intersect3D(parallel, out));
    EXPECT_EQ(out.size(), 3u);
}

// ---------------------------------------------------------------------------------------------
// IntersectPlane

TEST(RvDrawEntityIntersect3D, PlaneNeedsThreeVerticesOnBothSides) {
    RvPolyLine2D three = Path(V(0, 0, 0), V(1, 0, 0), V(0, 1, 0));
    RvPolyLine2D two = Path(V(2, 0, -1), V(2, 0, 1));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    EXPECT_FALSE(two.IntersectPlane(three, p1, p2));
    EXPECT_FALSE(three.IntersectPlane(two, p1, p2));
    EXPECT_TRUE(IsUntouched(p1));
    EXPECT_TRUE(IsUntouched(p2));
}

TEST(RvDrawEntityIntersect3D, PlaneLineFromFirstEdge) {
    // e in z = 0: ne = (0, 1, 0) x (1, 0, 0) = (0, 0, -1). This entity in x = 2:
    // nv = (0, 1, 1) x (0, 0, 2) = (2, 0, 0), normalised (1, 0, 0). p2 = ne x nv = (0, -1, 0).
    // w = v1 - v0 = space (0, 0, 2), planar (0, 4); den = w . ne = -2;
    // t = (0 - v0 . ne) / den = (0 - 1) / -2 = 0.5; p1 = v0 + w t: space (2, 0, 0), planar
    // (20, 2).
    RvPolyLine2D e = Path(V(0, 0, 0), V(1, 0, 0), V(0, 1, 0));
    RvPolyLine2D path =
        Path(RvPoint2D(20, 0, 2, 0, -1), RvPoint2D(20, 4, 2, 0, 1), RvPoint2D(20, 0, 2, 1, 0));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    ASSERT_TRUE(path.IntersectPlane(e, p1, p2));
    EXPECT_TRUE(HasValues(p1, 2, 0, 0, 20, 2));
    EXPECT_TRUE(HasValues(p2, 0, -1, 0, 0, -1));
}

TEST(RvDrawEntityIntersect3D, PlaneLineFromSecondEdgeWhenFirstIsParallel) {
    // v1 - v0 = (0, 1, 0) lies in e's plane z = 0: den = 0, so the edge to v2 is used.
    // nv = (0, 0, 2) x (0, 1, 0) = (-2, 0, 0) -> (-1, 0, 0); p2 = (0, 0, -1) x (-1, 0, 0) =
    // (0, 1, 0). w = v2 - v0 = space (0, 0, 2), planar (0, 8); t = 0.5; p1 = space (2, 0, 0),
    // planar (20, 4).
    RvPolyLine2D e = Path(V(0, 0, 0), V(1, 0, 0), V(0, 1, 0));
    RvPolyLine2D path =
        Path(RvPoint2D(20, 0, 2, 0, -1), RvPoint2D(2, 1, -1), RvPoint2D(20, 8, 2, 0, 1));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    ASSERT_TRUE(path.IntersectPlane(e, p1, p2));
    EXPECT_TRUE(HasValues(p1, 2, 0, 0, 20, 4));
    EXPECT_TRUE(HasValues(p2, 0, 1, 0, 0, 1));
}

TEST(RvDrawEntityIntersect3D, PlaneFirstEdgeNeedsDenominatorStrictlyAbove1e06) {
    // e in z = 1, ne = (0, 0, -1), e0 . ne = -1. This entity in x = 2 with v0 = (2, 0, 0),
    // v2 = (2, 0, 2) and v1 = (2, 1, k): the first edge gives den = -k.
    RvPolyLine2D e = Path(V(0, 0, 1), V(1, 0, 1), V(0, 1, 1));
    {
        // k = 2e-06: the first edge is used, t = -1 / -2e-06 = 5e5, far outside the entity:
        // p1 = (2, 5e5, 1).
        RvPolyLine2D path = Path(V(2, 0, 0), V(2, 1, 2e-06), V(2, 0, 2));
        RvPoint2D p1 = Untouched2D();
        RvPoint2D p2 = Untouched2D();
        ASSERT_TRUE(path.IntersectPlane(e, p1, p2));
        ExpectXyzNear(p1, 2, 5e5, 1, 1e-06);
        ExpectXyzNear(p2, 0, 1, 0, 1e-12);
    }
    for (const double k : {1e-06, 5e-07}) {
        // den = -1e-06 or less in magnitude: the second edge, w = (0, 0, 2), t = 0.5:
        // p1 = (2, 0, 1).
        SCOPED_TRACE(k);
        RvPolyLine2D path = Path(V(2, 0, 0), V(2, 1, k), V(2, 0, 2));
        RvPoint2D p1 = Untouched2D();
        RvPoint2D p2 = Untouched2D();
        ASSERT_TRUE(path.IntersectPlane(e, p1, p2));
        ExpectXyzNear(p1, 2, 0, 1, 1e-12);
        EXPECT_NEAR(p1.x2D, 2, 1e-12);
        EXPECT_NEAR(p1.y2D, 0, 1e-12);
    }
}

TEST(RvDrawEntityIntersect3D, PlaneFailsWhenNeitherEdgeLeavesOtherPlane) {
    // e in z = 1, ne = (0, 0, -1). This entity: v0 = (0, 0, 0), v1 = (1, 0, 0),
    // v2 = (0, 1, 1e-06), tilted so slightly that nv is (0, 1e-06, -1) nearly and
    // p2 = ne x nv = (1e-06, 0, 0), just not null. The first edge (1, 0, 0) gives den = 0, the
    // second (0, 1, 1e-06) den = -1e-06: neither strictly above 1e-06. p2 has been written
    // and normalised, p1 not.
    RvPolyLine2D e = Path(V(0, 0, 1), V(1, 0, 1), V(0, 1, 1));
    RvPolyLine2D path = Path(V(0, 0, 0), V(1, 0, 0), V(0, 1, 1e-06));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    EXPECT_FALSE(path.IntersectPlane(e, p1, p2));
    EXPECT_TRUE(IsUntouched(p1));
    ExpectXyzNear(p2, 1, 0, 0, 1e-09);
    EXPECT_NEAR(p2.x2D, 1, 1e-09);
    EXPECT_NEAR(p2.y2D, 0, 1e-09);
    // Tilted twice as much, the second edge gives den = -2e-06 and
    // t = (-1 - 0) / -2e-06 = 5e5: p1 = (0, 5e5, 1).
    RvPolyLine2D steeper = Path(V(0, 0, 0), V(1, 0, 0), V(0, 1, 2e-06));
    ASSERT_TRUE(steeper.IntersectPlane(e, p1, p2));
    ExpectXyzNear(p1, 0, 5e5, 1, 1e-06);
}

TEST(RvDrawEntityIntersect3D, PlaneParallelPlanesAreFalseWithNullDirection) {
    RvPolyLine2D e = Path(V(0, 0, 0), V(1, 0, 0), V(0, 1, 0));
    RvPolyLine2D above = Path(V(0, 0, 5), V(1, 0, 5), V(0, 1, 5));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    EXPECT_FALSE(above.IntersectPlane(e, p1, p2));
    EXPECT_TRUE(IsUntouched(p1));
    EXPECT_TRUE(HasValues(p2, 0, 0, 0, 0, 0));
    // The normal the other way round, by the order of the vertices.
    RvPolyLine2D reversed = Path(V(0, 0, 5), V(0, 1, 5), V(1, 0, 5));
    p2 = Untouched2D();
    EXPECT_FALSE(reversed.IntersectPlane(e, p1, p2));
    EXPECT_TRUE(IsUntouched(p1));
    EXPECT_TRUE(HasValues(p2, 0, 0, 0, 0, 0));
}

TEST(RvDrawEntityIntersect3D, PlaneOfCollinearVerticesHasNoDirection) {
    // e's first three vertices lie on one line: ne is null and cannot be normalised (one
    // warning), so the direction is null too.
    MessageBoxRecorder boxes;
    RvPolyLine2D e = Path(V(0, 0, 0), V(1, 0, 0), V(2, 0, 0));
    RvPolyLine2D path = Path(V(2, 0, -1), V(2, 0, 1), V(2, 1, 0));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    EXPECT_FALSE(path.IntersectPlane(e, p1, p2));
    EXPECT_TRUE(IsUntouched(p1));
    EXPECT_TRUE(HasValues(p2, 0, 0, 0, 0, 0));
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, kNormalizeWarning);
}

TEST(RvDrawEntityIntersect3D, PlaneDirectionPlanarPairIsNormalisedOnItsOwn) {
    // e in y = 0: ne = (0, 0, 1) x (1, 0, 0) = (0, 1, 0). This entity in x = z:
    // nv = (1, 1, 1) x (0, 2, 0) = (-2, 0, 2) -> (-r, 0, r) with r = 1/sqrt(2).
    // ne x nv = (r, 0, r); its planar pair (r, 0) is normalised to (1, 0) in the plane, the
    // space vector keeps unit length. p1: w = (0, 2, 0), den = 2, t = (0 - (-1)) / 2 = 0.5,
    // p1 = (0, 0, 0).
    const double r = 1 / std::sqrt(2.0);
    RvPolyLine2D e = Path(V(0, 0, 0), V(1, 0, 0), V(0, 0, 1));
    RvPolyLine2D path = Path(V(0, -1, 0), V(0, 1, 0), V(1, 0, 1));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    ASSERT_TRUE(path.IntersectPlane(e, p1, p2));
    ExpectXyzNear(p2, r, 0, r, 1e-12);
    EXPECT_NEAR(p2.x2D, 1, 1e-12);
    EXPECT_NEAR(p2.y2D, 0, 1e-12);
    ExpectXyzNear(p1, 0, 0, 0, 1e-12);
    EXPECT_NEAR(p1.x2D, 0, 1e-12);
    EXPECT_NEAR(p1.y2D, 0, 1e-12);
}

TEST(RvDrawEntityIntersect3D, PlaneDiagonalDirection) {
    // e in z = 0, ne = (0, 0, -1); this entity in the vertical plane x = y:
    // nv = (1, 1, 1) x (0, 0, 2) = (2, -2, 0) -> (r, -r, 0); p2 = ne x nv = (-r, -r, 0),
    // planar pair equal. p1: w = (0, 0, 2), den = -2, t = (0 - 1) / -2 = 0.5, p1 = (0, 0, 0).
    const double r = 1 / std::sqrt(2.0);
    RvPolyLine2D e = Path(V(0, 0, 0), V(1, 0, 0), V(0, 1, 0));
    RvPolyLine2D path = Path(V(0, 0, -1), V(0, 0, 1), V(1, 1, 0));
    RvPoint2D p1 = Untouched2D();
    RvPoint2D p2 = Untouched2D();
    ASSERT_TRUE(path.IntersectPlane(e, p1, p2));
    ExpectXyzNear(p2, -r, -r, 0, 1e-12);
    EXPECT_NEAR(p2.x2D, -r, 1e-12);
    EXPECT_NEAR(p2.y2D, -r, 1e-12);
    ExpectXyzNear(p1, 0, 0, 0, 1e-12);
}
