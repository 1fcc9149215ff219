#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

bool AllFinite(const std::vector<RvPoint2D>& points) {
    for (const RvPoint2D& p : points) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z) ||
            !std::isfinite(p.x2D) || !std::isfinite(p.y2D)) {
            return false;
        }
    }
    return true;
}

// The arc in space of the tests below: the plane z = 0, angle zero along +x.
const RvPoint2D kNormalZ(0, 0, 1);
const RvPoint2D kAlongX(1, 0, 0);

}  // namespace

// ---------------------------------------------------------------------------------------------
// IntersectCircle2D

// Segment (-2,0)-(2,0) against the unit circle: A = 16, B = -16, C = 3, D = 64, so
// u1 = (8 + 16) / 32 = 0.75 and u2 = (16 - 8) / 32 = 0.25.
TEST(RvDrawEntityIntersectCircle2D, CrossingSegmentGivesBothPointsFirstRootFirst) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, true, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(out[1], -1, 0, 0, -1, 0));
}

TEST(RvDrawEntityIntersectCircle2D, HitsCarryAllFiveValuesAndUseThePlanarPairOnly) {
    // The space positions run elsewhere; the planar pair decides and the rest is interpolated.
    RvPolyLine2D path = Path({RvPoint2D(-2, 0, 0, 0, 0), RvPoint2D(2, 0, 4, 8, 12)});
    RvPoint2D c(0, 0, 50, 50, 50);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, true, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 3, 6, 9, 1, 0));
    EXPECT_TRUE(HasValues(out[1], 1, 2, 3, -1, 0));
}

TEST(RvDrawEntityIntersectCircle2D, CentreIsReadOnThePlanarPair) {
    RvPolyLine2D path = Path({RvPoint2D(8, 10), RvPoint2D(12, 10)});
    RvPoint2D c(10, 10, -40, 0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, true, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 11, 10, 0, 11, 10));
    EXPECT_TRUE(HasValues(out[1], 9, 10, 0, 9, 10));
}

// Segment (-1,1)-(1,1): A = 4, B = -4, C = 1, D = 0, both roots 0.5.
TEST(RvDrawEntityIntersectCircle2D, TangentSegmentGivesOnePoint) {
    RvPolyLine2D path = Path({RvPoint2D(-1, 1), RvPoint2D(1, 1)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> bounded;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, bounded, true, false));
    ASSERT_EQ(bounded.size(), 1u);
    EXPECT_TRUE(HasValues(bounded[0], 0, 1, 0, 0, 1));

    std::vector<RvPoint2D> unbounded;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, unbounded, false, false));
    ASSERT_EQ(unbounded.size(), 1u);
    EXPECT_TRUE(HasValues(unbounded[0], 0, 1, 0, 0, 1));
}

// Segment (2,1)-(3,1): the line touches at u = -2, outside the segment.
TEST(RvDrawEntityIntersectCircle2D, TangentLineOutsideSegmentCountsOnlyUnbounded) {
    RvPolyLine2D path = Path({RvPoint2D(2, 1), RvPoint2D(3, 1)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, true, false));
    EXPECT_TRUE(out.empty());
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, false, false));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 0, 1, 0, 0, 1));
}

// For the segment (-1,y)-(1,y) and the unit circle, |u2 - u1| = sqrt(D) / A = sqrt(1 - y*y).
// y = 1 - 1.25e-13 gives 5e-07, y = 1 - 2e-12 gives 2e-06.
TEST(RvDrawEntityIntersectCircle2D, RootsWithinOneMillionthGiveOnePointBoundedOrNot) {
    const double y = 1 - 1.25e-13;
    RvPolyLine2D path = Path({RvPoint2D(-1, y), RvPoint2D(1, y)});
    RvPoint2D c(0, 0);
    for (const bool bounded : {true, false}) {
        std::vector<RvPoint2D> out;
        EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, bounded, false));
        ASSERT_EQ(out.size(), 1u) << "bounded " << bounded;
        ExpectPlanarNear(out[0], 0, 1, 1e-06);
    }
}

TEST(RvDrawEntityIntersectCircle2D, RootsFartherApartThanOneMillionthGiveTwoPoints) {
    const double y = 1 - 2e-12;
    RvPolyLine2D path = Path({RvPoint2D(-1, y), RvPoint2D(1, y)});
    RvPoint2D c(0, 0);
    for (const bool bounded : {true, false}) {
        std::vector<RvPoint2D> out;
        EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, bounded, false));
        ASSERT_EQ(out.size(), 2u) << "bounded " << bounded;
        // u1 is the larger root: its point lies right of the touching point.
        EXPECT_GT(out[0].x2D, out[1].x2D);
        ExpectPlanarNear(out[0], 2e-06, y, 1e-07);
        ExpectPlanarNear(out[1], -2e-06, y, 1e-07);
    }
}

// Segment (0,0)-(2,0): A = 4, B = 0, C = -1, D = 16: u1 = 0.5, u2 = -0.5.
TEST(RvDrawEntityIntersectCircle2D, SegmentEndingInsideGivesOnePointBoundedTwoUnbounded) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> bounded;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, bounded, true, false));
    ASSERT_EQ(bounded.size(), 1u);
    EXPECT_TRUE(HasValues(bounded[0], 1, 0, 0, 1, 0));

    std::vector<RvPoint2D> unbounded;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, unbounded, false, false));
    ASSERT_EQ(unbounded.size(), 2u);
    EXPECT_TRUE(HasValues(unbounded[0], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(unbounded[1], -1, 0, 0, -1, 0));
}

// Segment (-0.5,0)-(0.5,0): A = 1, B = -1, C = -0.75, D = 4: u1 = 1.5, u2 = -0.5.
TEST(RvDrawEntityIntersectCircle2D, SegmentWhollyInsideGivesNoneBoundedTwoUnbounded) {
    RvPolyLine2D path = Path({RvPoint2D(-0.5, 0), RvPoint2D(0.5, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> bounded;
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, bounded, true, false));
    EXPECT_TRUE(bounded.empty());

    std::vector<RvPoint2D> unbounded;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, unbounded, false, false));
    ASSERT_EQ(unbounded.size(), 2u);
    EXPECT_TRUE(HasValues(unbounded[0], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(unbounded[1], -1, 0, 0, -1, 0));
}

TEST(RvDrawEntityIntersectCircle2D, LineMissingTheCircleGivesNothing) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 2), RvPoint2D(2, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, true, false));
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, false, false));
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, false, true));
    EXPECT_TRUE(out.empty());
}

// Segment (0,0)-(1,0) and radius r: A = 1, B = 0, D = 4*r*r, so u1 = r exactly.
TEST(RvDrawEntityIntersectCircle2D, FirstRootUpperBoundIsOnePlusOneMillionth) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    RvPoint2D c(0, 0);

    std::vector<RvPoint2D> atEnd;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, atEnd, true, false));
    ASSERT_EQ(atEnd.size(), 1u);
    EXPECT_TRUE(HasValues(atEnd[0], 1, 0, 0, 1, 0));

    std::vector<RvPoint2D> justInside;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0000005, justInside, true, false));
    ASSERT_EQ(justInside.size(), 1u);
    ExpectPlanarNear(justInside[0], 1.0000005, 0, 1e-12);

    std::vector<RvPoint2D> justOutside;
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.000002, justOutside, true, false));
    EXPECT_TRUE(justOutside.empty());
}

// Segment (1,0)-(2,0): A = 1, B = 2, C = 1 - r*r, so u1 is about (r*r - 1) / 2 near r = 1,
// and u2 about -2 is never inside.
TEST(RvDrawEntityIntersectCircle2D, FirstRootLowerBoundIsMinusOneMillionth) {
    RvPolyLine2D path = Path({RvPoint2D(1, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);

    std::vector<RvPoint2D> atStart;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, atStart, true, false));
    ASSERT_EQ(atStart.size(), 1u);
    EXPECT_TRUE(HasValues(atStart[0], 1, 0, 0, 1, 0));

    // u1 about -5e-07.
    std::vector<RvPoint2D> justInside;
    EXPECT_TRUE(path.IntersectCircle2D(c, 0.9999995, justInside, true, false));
    ASSERT_EQ(justInside.size(), 1u);
    ExpectPlanarNear(justInside[0], 0.9999995, 0, 1e-10);

    // u1 about -2e-06.
    std::vector<RvPoint2D> justOutside;
    EXPECT_FALSE(path.IntersectCircle2D(c, 0.999998, justOutside, true, false));
    EXPECT_TRUE(justOutside.empty());
}

// Segment (-1,0)-(0,0): A = 1, B = -2, C = 0, D = 4: u1 = 2 is refused, u2 = 0 taken.
TEST(RvDrawEntityIntersectCircle2D, SecondRootIsBoundedOnItsOwn) {
    RvPolyLine2D path = Path({RvPoint2D(-1, 0), RvPoint2D(0, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, true, false));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], -1, 0, 0, -1, 0));
}

TEST(RvDrawEntityIntersectCircle2D, TestOnlyAnswersTrueAndLeavesOutAsItWas) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out{RvPoint2D(7, 7)};
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, true, true));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 7, 7, 0, 7, 7));
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, false, true));
    EXPECT_EQ(out.size(), 1u);
}

TEST(RvDrawEntityIntersectCircle2D, TestOnlyFollowsTheBoundsOfTheMode) {
    // Both roots of this segment lie outside it (1.5 and -0.5), but on its line.
    RvPolyLine2D path = Path({RvPoint2D(-0.5, 0), RvPoint2D(0.5, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, true, true));
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, false, true));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersectCircle2D, OutIsAppendedToNotCleared) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out{RvPoint2D(7, 7)};
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, true, false));
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], 7, 7, 0, 7, 7));
    EXPECT_TRUE(HasValues(out[1], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(out[2], -1, 0, 0, -1, 0));
}

TEST(RvDrawEntityIntersectCircle2D, FewerThanTwoVerticesHaveNoHit) {
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    RvPolyLine2D empty;
    EXPECT_FALSE(empty.IntersectCircle2D(c, 1.0, out, true, false));
    EXPECT_FALSE(empty.IntersectCircle2D(c, 1.0, out, false, false));
    // A single vertex on the circle is still no segment.
    RvPolyLine2D single = Path({RvPoint2D(1, 0)});
    EXPECT_FALSE(single.IntersectCircle2D(c, 1.0, out, true, false));
    EXPECT_FALSE(single.IntersectCircle2D(c, 1.0, out, false, true));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersectCircle2D, ClosingSegmentIsNotWalked) {
    // Only the segment from the last vertex back to the first, x = 0, crosses the circle.
    RvPolyLine2D path =
        Path({RvPoint2D(0, -2), RvPoint2D(2, -2), RvPoint2D(2, 2), RvPoint2D(0, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, true, false));
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, false, false));
    EXPECT_TRUE(out.empty());
}

// Segment (-2,0)-(0,0): A = 4, B = -8, C = 3, D = 16: u1 = 1.5, u2 = 0.5.
// Segment (0,0)-(0,2): A = 4, B = 0, C = -1, D = 16: u1 = 0.5, u2 = -0.5.
TEST(RvDrawEntityIntersectCircle2D, SegmentsAreWalkedInOrder) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(0, 0), RvPoint2D(0, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> bounded;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, bounded, true, false));
    ASSERT_EQ(bounded.size(), 2u);
    EXPECT_TRUE(HasValues(bounded[0], -1, 0, 0, -1, 0));
    EXPECT_TRUE(HasValues(bounded[1], 0, 1, 0, 0, 1));

    std::vector<RvPoint2D> unbounded;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, unbounded, false, false));
    ASSERT_EQ(unbounded.size(), 4u);
    EXPECT_TRUE(HasValues(unbounded[0], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(unbounded[1], -1, 0, 0, -1, 0));
    EXPECT_TRUE(HasValues(unbounded[2], 0, 1, 0, 0, 1));
    EXPECT_TRUE(HasValues(unbounded[3], 0, -1, 0, 0, -1));
}

TEST(RvDrawEntityIntersectCircle2D, DoubledVertexAddsNothingUnbounded) {
    // The null segment between the two copies of (0,0) has no line; only the two real
    // segments contribute, with the points of SegmentsAreWalkedInOrder.
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(0, 0), RvPoint2D(0, 0), RvPoint2D(0, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, false, false));
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(AllFinite(out));
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(out[1], -1, 0, 0, -1, 0));
    EXPECT_TRUE(HasValues(out[2], 0, 1, 0, 0, 1));
    EXPECT_TRUE(HasValues(out[3], 0, -1, 0, 0, -1));
}

TEST(RvDrawEntityIntersectCircle2D, DoubledVertexAddsNothingBounded) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(0, 0), RvPoint2D(0, 0), RvPoint2D(0, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, out, true, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], -1, 0, 0, -1, 0));
    EXPECT_TRUE(HasValues(out[1], 0, 1, 0, 0, 1));
}

TEST(RvDrawEntityIntersectCircle2D, PathOfOnlyADoubledVertexHasNoHit) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(0, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, false, false));
    EXPECT_FALSE(path.IntersectCircle2D(c, 1.0, out, false, true));
    EXPECT_TRUE(out.empty());
}

// ---------------------------------------------------------------------------------------------
// IntersectArc2D

// The segment (-2,0)-(2,0) meets the unit circle at angle 0 (u1) and pi (u2).
TEST(RvDrawEntityIntersectArc2D, KeepsOnlyTheRootsOnTheArc) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> upperToLower;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, kPi / 2, 3 * kPi / 2, upperToLower, false));
    ASSERT_EQ(upperToLower.size(), 1u);
    EXPECT_TRUE(HasValues(upperToLower[0], -1, 0, 0, -1, 0));

    std::vector<RvPoint2D> offArc;
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, 0.5, 1.0, offArc, false));
    EXPECT_TRUE(offArc.empty());
}

TEST(RvDrawEntityIntersectArc2D, FullArcKeepsBothRootsInOrder) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0, 0, 0, 0), RvPoint2D(2, 0, 4, 8, 12)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 0, kTwoPi, out, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 3, 6, 9, 1, 0));
    EXPECT_TRUE(HasValues(out[1], 1, 2, 3, -1, 0));
}

// a1 = pi/2 < a0 = 3pi/2 becomes 5pi/2. The hit at angle 0 is below a0 and the arc passes
// 2 pi, so it is measured as 2 pi and lies on the arc; the hit at pi becomes 3 pi and does not.
TEST(RvDrawEntityIntersectArc2D, EndBelowStartMakesTheArcAcrossDirectionZero) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 3 * kPi / 2, kPi / 2, out, false));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 1, 0));
}

// The vertical segment meets the circle at pi/2 (u1) and 3pi/2 (u2): both are the ends of the
// arc from 3pi/2 to pi/2, and the end pi/2 counts as 5pi/2 after the wrap.
TEST(RvDrawEntityIntersectArc2D, BothEndsOfAnArcAcrossZeroCount) {
    RvPolyLine2D path = Path({RvPoint2D(0, -2), RvPoint2D(0, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 3 * kPi / 2, kPi / 2, out, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 0, 1, 0, 0, 1));
    EXPECT_TRUE(HasValues(out[1], 0, -1, 0, 0, -1));
}

// The hit (1,0) lies at angle 0. Ending at 2 pi (within 1e-06) the arc passes the zero
// direction, and the hit is taken as 2 pi; ending 2e-06 short of it, the arc does not, and the
// hit stays at 0, below the start.
TEST(RvDrawEntityIntersectArc2D, WrapOfTheHitNeedsTheArcToReachTwoPi) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, kPi, kTwoPi, out, false));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 1, 0));

    out.clear();
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, kPi, kTwoPi - 5e-07, out, false));
    EXPECT_EQ(out.size(), 1u);

    out.clear();
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, kPi, kTwoPi - 2e-06, out, false));
    EXPECT_TRUE(out.empty());
}

// The hit (1,0) at angle exactly 0 against starts just around 1e-06.
TEST(RvDrawEntityIntersectArc2D, StartBoundIsStrictAtMinusOneMillionth) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 5e-07, 1.0, out, false));
    EXPECT_EQ(out.size(), 1u);

    out.clear();
    // a0 - 1e-06 is exactly 0, and 0 < 0 fails.
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, 1e-06, 1.0, out, false));
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, 2e-06, 1.0, out, false));
    EXPECT_TRUE(out.empty());
}

// The hit (0,1) lies at angle pi/2.
TEST(RvDrawEntityIntersectArc2D, EndBoundAllowsOneMillionthBeyond) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(0, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 0, kPi / 2, out, false));
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 0, kPi / 2 - 5e-07, out, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[1], 0, 1, 0, 0, 1));

    out.clear();
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, 0, kPi / 2 - 2e-06, out, false));
    EXPECT_TRUE(out.empty());
}

// Hit angles are brought into 0 to 2 pi; a start below zero is not. Of the arc from -pi/2 to
// pi/2 only the part from 0 on is found: the hit at 5pi/3 (that is -pi/3) is not below a0, so
// it is not wrapped, and it is above a1.
TEST(RvDrawEntityIntersectArc2D, NegativeStartKeepsOnlyTheNonNegativePart) {
    RvPolyLine2D vertical = Path({RvPoint2D(0.5, -2), RvPoint2D(0.5, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    // Hits at (0.5, +-sqrt(0.75)): angles pi/3 (u1) and 5pi/3 (u2).
    EXPECT_TRUE(vertical.IntersectArc2D(c, 1.0, -kPi / 2, kPi / 2, out, false));
    ASSERT_EQ(out.size(), 1u);
    ExpectPlanarNear(out[0], 0.5, std::sqrt(0.75), 1e-12);
}

TEST(RvDrawEntityIntersectArc2D, TangentGivesOnePoint) {
    RvPolyLine2D path = Path({RvPoint2D(-1, 1), RvPoint2D(1, 1)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 0, kPi, out, false));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 0, 1, 0, 0, 1));
}

TEST(RvDrawEntityIntersectArc2D, RootsOutsideTheSegmentDoNotCount) {
    // Roots 1.5 and -0.5: on the circle, but off the segment.
    RvPolyLine2D path = Path({RvPoint2D(-0.5, 0), RvPoint2D(0.5, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, 0, kTwoPi, out, false));
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, 0, kTwoPi, out, true));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersectArc2D, TestOnlyAnswersTrueAndLeavesOutAsItWas) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out{RvPoint2D(7, 7)};
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 0, kTwoPi, out, true));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 7, 7, 0, 7, 7));
}

TEST(RvDrawEntityIntersectArc2D, TestOnlyPassesOverRootsOffTheArc) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    // The first root (angle 0) is off the arc; the second (angle pi) answers.
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, kPi / 2, 3 * kPi / 2, out, true));
    // Neither root is on this arc.
    EXPECT_FALSE(path.IntersectArc2D(c, 1.0, 0.5, 1.0, out, true));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersectArc2D, AnglesAreMeasuredAroundThePlanarCentre) {
    RvPolyLine2D path = Path({RvPoint2D(8, 10), RvPoint2D(12, 10)});
    RvPoint2D c(10, 10, 0, 0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, kPi / 2, 3 * kPi / 2, out, false));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 9, 10, 0, 9, 10));
}

TEST(RvDrawEntityIntersectArc2D, OutIsAppendedToNotCleared) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(2, 0)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out{RvPoint2D(7, 7)};
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, kPi / 2, 3 * kPi / 2, out, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 7, 7, 0, 7, 7));
    EXPECT_TRUE(HasValues(out[1], -1, 0, 0, -1, 0));
}

TEST(RvDrawEntityIntersectArc2D, FewerThanTwoVerticesHaveNoHit) {
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    RvPolyLine2D empty;
    EXPECT_FALSE(empty.IntersectArc2D(c, 1.0, 0, kTwoPi, out, false));
    RvPolyLine2D single = Path({RvPoint2D(1, 0)});
    EXPECT_FALSE(single.IntersectArc2D(c, 1.0, 0, kTwoPi, out, false));
    EXPECT_FALSE(single.IntersectArc2D(c, 1.0, 0, kTwoPi, out, true));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersectArc2D, DoubledVertexAddsNothing) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0), RvPoint2D(0, 0), RvPoint2D(0, 0), RvPoint2D(0, 2)});
    RvPoint2D c(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc2D(c, 1.0, 0, kTwoPi, out, false));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(AllFinite(out));
    EXPECT_TRUE(HasValues(out[0], -1, 0, 0, -1, 0));
    EXPECT_TRUE(HasValues(out[1], 0, 1, 0, 0, 1));
}

// ---------------------------------------------------------------------------------------------
// IntersectArc

// Segment (-2,0,0)-(2,0,0): A = 16, e = -8, C = 3, D = 64, h = 4: t1 = 0.75, t2 = 0.25.
// With a0 = 0 the start direction g is w = (1,0,0); both hits lie along it or against it, so
// |d*g| = 1 and e2 = 0, below the arc's 2 radians.
TEST(RvDrawEntityIntersectArc, TwoRootsAreAppendedInOrder) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0, 0), RvPoint2D(2, 0, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(out[1], -1, 0, 0, -1, 0));
}

TEST(RvDrawEntityIntersectArc, QuadraticIsInSpaceAndHitsCarryAllFiveValues) {
    // The planar pair lies far from the circle; only x, y, z decide.
    RvPolyLine2D path = Path({RvPoint2D(10, 20, -2, 0, 0), RvPoint2D(14, 20, 2, 0, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 13, 20));
    EXPECT_TRUE(HasValues(out[1], -1, 0, 0, 11, 20));
}

// The arc runs from 0 to 0.5 rad; the hit (-1,0,0) lies opposite, at pi. |d*g| = 1 gives
// e2 = 0, so the far side is taken as if it were the near side.
TEST(RvDrawEntityIntersectArc, HitOppositeTheArcCountsThroughTheFoldedAngle) {
    // Segment (-2,0,0)-(0,0,0): A = 4, e = -4, C = 3, D = 16, h = 2: t1 = 1.5 (off), t2 = 0.5.
    RvPolyLine2D path = Path({RvPoint2D(-2, 0, 0), RvPoint2D(0, 0, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 0.5));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], -1, 0, 0, -1, 0));
}

// Segments from the centre outward to radius 2 meet the unit circle at t = 0.5, at the angle
// of the segment. For a0 = 0, e2 is the angle of the hit from the x axis, folded into 0 to
// pi/2, and the arc from 0 to 0.5 keeps it when e2 < 0.5.
TEST(RvDrawEntityIntersectArc, AngleIsFoldedIntoAQuarterTurn) {
    const auto hitsAt = [](double angle) {
        RvPolyLine2D path =
            Path({RvPoint2D(0, 0, 0), RvPoint2D(2 * std::cos(angle), 2 * std::sin(angle), 0)});
        std::vector<RvPoint2D> out;
        path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 0.5);
        return out.size();
    };
    EXPECT_EQ(hitsAt(0.3), 1u);        // on the arc, e2 = 0.3
    EXPECT_EQ(hitsAt(1.0), 0u);        // off the arc, e2 = 1.0
    EXPECT_EQ(hitsAt(-0.3), 1u);       // below the start, e2 = 0.3
    EXPECT_EQ(hitsAt(kPi - 0.3), 1u);  // far side, e2 = 0.3
    EXPECT_EQ(hitsAt(kPi + 0.3), 1u);  // far side, e2 = 0.3
    EXPECT_EQ(hitsAt(kPi / 2), 0u);    // e2 = pi/2
    EXPECT_EQ(hitsAt(-kPi / 2), 0u);   // e2 = pi/2
}

// The hits (0,1,0) and (0,-1,0) are a quarter turn from w: e2 = acos(0) = pi/2, about 1.5708.
TEST(RvDrawEntityIntersectArc, QuarterTurnNeedsASpanAbovePiOverTwo) {
    RvPolyLine2D path = Path({RvPoint2D(0, -2, 0), RvPoint2D(0, 2, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 1.5));
    EXPECT_TRUE(out.empty());
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 1.6));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 0, 1, 0, 0, 1));
    EXPECT_TRUE(HasValues(out[1], 0, -1, 0, 0, -1));
}

// The start direction g is c + w*r turned by -a0 about n, less c: for n = (0,0,1) and
// w = (1,0,0), g = (cos a0, -sin a0, 0). With a0 = 0.6 and a span of 0.5, a hit at angle 0.6
// has d*g = cos(1.2), e2 = 1.2, and is refused; a hit at -0.8 has d*g = cos(0.2), e2 = 0.2,
// and is kept.
TEST(RvDrawEntityIntersectArc, StartDirectionIsWTurnedByMinusTheStartAngle) {
    const auto hitsAt = [](double angle) {
        RvPolyLine2D path =
            Path({RvPoint2D(0, 0, 0), RvPoint2D(2 * std::cos(angle), 2 * std::sin(angle), 0)});
        std::vector<RvPoint2D> out;
        path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0.6, 1.1);
        return out.size();
    };
    EXPECT_EQ(hitsAt(0.6), 0u);
    EXPECT_EQ(hitsAt(-0.8), 1u);
}

// The hit (0,1,0) of the segment (0,0,0)-(0,2,0). With a0 = 0.5, g lies at -0.5 and
// d*g = -sin(0.5), so e2 = pi/2 - 0.5, about 1.07. The end 0.25 below the start grows to
// 0.25 + 2 pi, a span of about 6.03, which keeps the hit; the span 0.25 of the arc from 0.25 to
// 0.5 does not (there e2 = pi/2 - 0.25).
TEST(RvDrawEntityIntersectArc, EndBelowStartGrowsByTwoPi) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(0, 2, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0.5, 0.25));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 0, 1, 0, 0, 1));

    std::vector<RvPoint2D> ordered;
    EXPECT_FALSE(path.IntersectArc(ordered, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0.25, 0.5));
    EXPECT_TRUE(ordered.empty());
}

// Segment (-1,1,0)-(1,1,0): D = 0, one root t = -e/A = 2/4.
TEST(RvDrawEntityIntersectArc, TangentGivesOnePoint) {
    RvPolyLine2D path = Path({RvPoint2D(-1, 1, 0), RvPoint2D(1, 1, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 0, 1, 0, 0, 1));
}

// Segment (-1,y,0)-(1,y,0) with y = 1 - 2e-08: A = 4, e = -2, C = y*y, D = 16*(1 - y*y),
// about 6.4e-07. That is not above 1e-06, so the one root -e/A = 0.5 stands for both; the
// planar circle test, which compares D with 0 alone, finds two points on the same segment.
TEST(RvDrawEntityIntersectArc, DiscriminantUpToOneMillionthGivesOneRoot) {
    const double y = 1 - 2e-08;
    RvPolyLine2D path = Path({RvPoint2D(-1, y, 0), RvPoint2D(1, y, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 0, y, 0, 0, y));

    std::vector<RvPoint2D> planar;
    RvPoint2D c(0, 0);
    EXPECT_TRUE(path.IntersectCircle2D(c, 1.0, planar, true, false));
    EXPECT_EQ(planar.size(), 2u);
}

// y = 1 - 4e-08 gives D about 1.28e-06: two roots, 0.5 +- 1.41e-04.
TEST(RvDrawEntityIntersectArc, DiscriminantAboveOneMillionthGivesTwoRoots) {
    const double y = 1 - 4e-08;
    RvPolyLine2D path = Path({RvPoint2D(-1, y, 0), RvPoint2D(1, y, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 2u);
    // t1 is the larger root.
    EXPECT_NEAR(out[0].x, 2.83e-04, 1e-06);
    EXPECT_NEAR(out[1].x, -2.83e-04, 1e-06);
}

TEST(RvDrawEntityIntersectArc, SegmentMissingTheSphereGivesNothing) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 2, 0), RvPoint2D(2, 2, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    EXPECT_TRUE(out.empty());
}

// Segment (0,0,0)-(1,0,0) and radius r: A = 1, e = 0, D = 4*r*r, so t1 = r.
TEST(RvDrawEntityIntersectArc, RootsAreBoundedToTheSegment) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(1, 0, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 1.0));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 1, 0));

    std::vector<RvPoint2D> justInside;
    EXPECT_TRUE(
        path.IntersectArc(justInside, RvPoint2D(0, 0), 1.0000005, kNormalZ, kAlongX, 0, 1.0));
    EXPECT_EQ(justInside.size(), 1u);

    std::vector<RvPoint2D> justOutside;
    EXPECT_FALSE(
        path.IntersectArc(justOutside, RvPoint2D(0, 0), 1.000002, kNormalZ, kAlongX, 0, 1.0));
    EXPECT_TRUE(justOutside.empty());
}

// The quadratic meets the sphere; hits off the arc's plane are dropped.
TEST(RvDrawEntityIntersectArc, HitsOutsideThePlaneAreSkipped) {
    RvPolyLine2D axis = Path({RvPoint2D(0, 0, -2), RvPoint2D(0, 0, 2)});
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(axis.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    EXPECT_TRUE(out.empty());

    RvPolyLine2D lifted = Path({RvPoint2D(-2, 0, 0.5), RvPoint2D(2, 0, 0.5)});
    EXPECT_FALSE(lifted.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    EXPECT_TRUE(out.empty());
}

TEST(RvDrawEntityIntersectArc, PlaneToleranceIsOneMillionth) {
    RvPolyLine2D near = Path({RvPoint2D(-2, 0, 5e-07), RvPoint2D(2, 0, 5e-07)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(near.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_NEAR(out[0].x, 1.0, 1e-12);
    EXPECT_NEAR(out[0].z, 5e-07, 1e-15);

    RvPolyLine2D far = Path({RvPoint2D(-2, 0, 2e-06), RvPoint2D(2, 0, 2e-06)});
    std::vector<RvPoint2D> none;
    EXPECT_FALSE(far.IntersectArc(none, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    EXPECT_TRUE(none.empty());
}

TEST(RvDrawEntityIntersectArc, ResultCountsPointsAlreadyInOut) {
    RvPolyLine2D missing = Path({RvPoint2D(-2, 2, 0), RvPoint2D(2, 2, 0)});
    std::vector<RvPoint2D> out{RvPoint2D(7, 7)};
    EXPECT_TRUE(missing.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 7, 7, 0, 7, 7));
}

TEST(RvDrawEntityIntersectArc, EntityWithoutVerticesAnswersWhetherOutHoldsAnything) {
    RvPolyLine2D empty;
    std::vector<RvPoint2D> filled{RvPoint2D(7, 7)};
    EXPECT_TRUE(empty.IntersectArc(filled, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    EXPECT_EQ(filled.size(), 1u);

    std::vector<RvPoint2D> none;
    EXPECT_FALSE(empty.IntersectArc(none, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    RvPolyLine2D single = Path({RvPoint2D(1, 0, 0)});
    EXPECT_FALSE(single.IntersectArc(none, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    EXPECT_TRUE(none.empty());
}

TEST(RvDrawEntityIntersectArc, OutIsAppendedToNotCleared) {
    RvPolyLine2D path = Path({RvPoint2D(-2, 0, 0), RvPoint2D(2, 0, 0)});
    std::vector<RvPoint2D> out{RvPoint2D(7, 7)};
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], 7, 7, 0, 7, 7));
    EXPECT_TRUE(HasValues(out[1], 1, 0, 0, 1, 0));
}

TEST(RvDrawEntityIntersectArc, ClosingSegmentIsNotWalked) {
    RvPolyLine2D path =
        Path({RvPoint2D(0, -2, 0), RvPoint2D(2, -2, 0), RvPoint2D(2, 2, 0), RvPoint2D(0, 2, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    EXPECT_TRUE(out.empty());
}

// A null segment has A = 0 and the root -e/A = 0/0, which no bound accepts.
TEST(RvDrawEntityIntersectArc, DoubledVertexAddsNothing) {
    RvPolyLine2D path =
        Path({RvPoint2D(-2, 0, 0), RvPoint2D(0, 0, 0), RvPoint2D(0, 0, 0), RvPoint2D(0, 2, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 1.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(AllFinite(out));
    EXPECT_TRUE(HasValues(out[0], -1, 0, 0, -1, 0));
    EXPECT_TRUE(HasValues(out[1], 0, 1, 0, 0, 1));
}

// With r = 0 the segment (-1,0,0)-(1,0,0) touches the centre itself (D = 0, t = 0.5): the
// direction from the centre cannot be normalised, which warns once. Its x, y, z stay zero, so
// d*g = 0 and e2 = pi/2, which the span of 2 exceeds.
TEST(RvDrawEntityIntersectArc, HitOnTheCentreWarnsThroughNormalize) {
    MessageBoxRecorder recorder;
    RvPolyLine2D path = Path({RvPoint2D(-1, 0, 0), RvPoint2D(1, 0, 0)});
    std::vector<RvPoint2D> out;
    EXPECT_TRUE(path.IntersectArc(out, RvPoint2D(0, 0), 0.0, kNormalZ, kAlongX, 0, 2.0));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 0, 0, 0, 0, 0));
    ASSERT_EQ(recorder.calls().size(), 1u);
    EXPECT_EQ(recorder.calls()[0].text, kNormalizeWarning);
}
