#include "ravelin/skeleton/SkeletonGeometry.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

#include "support/RavelinTesting.h"

namespace ravelin {
namespace {

using testing_support::AppendDouble;
using testing_support::Bytes;

constexpr double kAngleTol = 1e-12;
constexpr double kCoordTol = 1e-9;

// A ray with the given origin and an angle set directly, without reduction.
SkeletonRay RayAt(double x, double y, double angle) {
    SkeletonRay r;
    r.origin = Point{x, y};
    r.angle = angle;
    return r;
}

void ExpectPointNear(const Point& p, double x, double y, double tol = kCoordTol) {
    EXPECT_NEAR(p.x, x, tol);
    EXPECT_NEAR(p.y, y, tol);
}

// ---- Point equality ------------------------------------------------------------------------

TEST(SkeletonPointTest, EqualWhenEachCoordinateDiffersByLessThanTheBand) {
    const Point a{0.0, 0.0};
    EXPECT_TRUE((a == Point{4.9e-07, 0.0}));
    EXPECT_TRUE((Point{4.9e-07, 0.0} == a));
    EXPECT_TRUE((a == Point{0.0, -4.9e-07}));
    EXPECT_TRUE((Point{0.0, -4.9e-07} == a));
    EXPECT_TRUE((a == Point{4.9e-07, -4.9e-07}));
    EXPECT_FALSE((a != Point{4.9e-07, -4.9e-07}));
}

TEST(SkeletonPointTest, ExactlyTheBandApartIsNotEqualInEitherCoordinateOrDirection) {
    // Against zero the difference is the double 5e-07 itself, exactly.
    const Point a{0.0, 0.0};
    EXPECT_FALSE((a == Point{5e-07, 0.0}));
    EXPECT_FALSE((Point{5e-07, 0.0} == a));
    EXPECT_FALSE((a == Point{-5e-07, 0.0}));
    EXPECT_FALSE((a == Point{0.0, 5e-07}));
    EXPECT_FALSE((Point{0.0, -5e-07} == a));
    EXPECT_TRUE((a != Point{0.0, 5e-07}));
}

TEST(SkeletonPointTest, OneCoordinateOutsideTheBandIsEnough) {
    EXPECT_FALSE((Point{1.0, 2.0} == Point{1.0, 2.001}));
    EXPECT_FALSE((Point{1.0, 2.0} == Point{1.001, 2.0}));
    // A coarse box tolerance would call these equal; the skeleton does not.
    EXPECT_FALSE((Point{1.0, 2.0} == Point{1.009, 2.009}));
}

TEST(SkeletonPointTest, ComparisonAwayFromZeroSeesTheRoundedDifference) {
    // 1.0 + 5e-07 rounds to a double whose difference from 1.0, exact by subtraction of close
    // values, lies just above 5e-07: not equal, like an exact band apart.
    const double far = 1.0 + 5e-07;
    ASSERT_GE(far - 1.0, 5e-07);
    EXPECT_FALSE((Point{1.0, 0.0} == Point{far, 0.0}));
    EXPECT_FALSE((Point{0.0, far} == Point{0.0, 1.0}));
    EXPECT_TRUE((Point{1.0, 0.0} == Point{1.0 + 4.9e-07, 0.0}));
}

// ---- The infinite point ----------------------------------------------------------------------

TEST(SkeletonInfinityTest, HasTheBytesOfTheWrittenDecimal) {
    Bytes bytes;
    AppendDouble(bytes, SKELETON_INFINITY);
    const Bytes expected{0x9a, 0x60, 0xb9, 0xd7, 0xff, 0xff, 0xef, 0x7f};
    EXPECT_EQ(bytes, expected);
    EXPECT_DOUBLE_EQ(SKELETON_INFINITY, 1.797693e+308);
    EXPECT_LT(SKELETON_INFINITY, DBL_MAX);
    EXPECT_TRUE(std::isfinite(SKELETON_INFINITY));
}

TEST(SkeletonInfinityTest, InfinitePointHasTheSentinelInBothCoordinates) {
    const Point p = InfinitePoint();
    EXPECT_DOUBLE_EQ(p.x, SKELETON_INFINITY);
    EXPECT_DOUBLE_EQ(p.y, SKELETON_INFINITY);
}

TEST(SkeletonInfinityTest, DistanceToTheInfinitePointOverflowsToPositiveInfinity) {
    // dx * dx alone exceeds the largest double.
    const double d = PointDistance(Point{0.0, 0.0}, InfinitePoint());
    EXPECT_TRUE(std::isinf(d));
    EXPECT_GT(d, 0.0);
    const double back = PointDistance(InfinitePoint(), Point{-3.0, 7.0});
    EXPECT_TRUE(std::isinf(back));
    EXPECT_GT(back, 0.0);
}

TEST(SkeletonInfinityTest, IsInfiniteOnlyForTheSentinelInBothCoordinates) {
    EXPECT_TRUE(IsInfinite(InfinitePoint()));
    EXPECT_TRUE(IsInfinite(Point{SKELETON_INFINITY, SKELETON_INFINITY}));
    EXPECT_FALSE(IsInfinite(Point{SKELETON_INFINITY, 0.0}));
    EXPECT_FALSE(IsInfinite(Point{0.0, SKELETON_INFINITY}));
    EXPECT_FALSE(IsInfinite(Point{0.0, 0.0}));
    // The largest double lies about 3e300 above the sentinel, far outside the band.
    EXPECT_FALSE(IsInfinite(Point{DBL_MAX, DBL_MAX}));
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(IsInfinite(Point{inf, inf}));
}

// ---- PointDistance ---------------------------------------------------------------------------

TEST(PointDistanceTest, IsTheEuclideanDistance) {
    EXPECT_DOUBLE_EQ(PointDistance(Point{1.0, 2.0}, Point{4.0, 6.0}), 5.0);
    EXPECT_DOUBLE_EQ(PointDistance(Point{4.0, 6.0}, Point{1.0, 2.0}), 5.0);
    EXPECT_DOUBLE_EQ(PointDistance(Point{-1.0, -1.0}, Point{-1.0, -1.0}), 0.0);
}

// ---- SkeletonRay -----------------------------------------------------------------------------

TEST(SkeletonRayTest, AngleIsTheDirectionFromOriginTowardsThePoint) {
    const SkeletonRay r(Point{1.0, 1.0}, Point{1.0, 5.0});
    EXPECT_DOUBLE_EQ(r.origin.x, 1.0);
    EXPECT_DOUBLE_EQ(r.origin.y, 1.0);
    EXPECT_NEAR(r.angle, kPi / 2, kAngleTol);
    EXPECT_NEAR(SkeletonRay(Point{0, 0}, Point{2, 0}).angle, 0.0, kAngleTol);
    EXPECT_NEAR(SkeletonRay(Point{0, 0}, Point{1, -1}).angle, -kPi / 4, kAngleTol);
    EXPECT_NEAR(SkeletonRay(Point{0, 0}, Point{-1, 1}).angle, 3 * kPi / 4, kAngleTol);
    EXPECT_NEAR(SkeletonRay(Point{0, 0}, Point{-1, -1}).angle, -3 * kPi / 4, kAngleTol);
}

TEST(SkeletonRayTest, NegativeXAxisIsMinusPiNeverPi) {
    // atan2 gives +pi here; the reduction turns pi into -pi (pi - 2 pi is exact).
    EXPECT_DOUBLE_EQ(SkeletonRay(Point{0, 0}, Point{-1, 0}).angle, -kPi);
    EXPECT_DOUBLE_EQ(SkeletonRay(Point{5, 3}, Point{2, 3}).angle, -kPi);
    // With a negative zero difference atan2 already gives -pi.
    EXPECT_DOUBLE_EQ(SkeletonRay(Point{0, 0}, Point{-1, -0.0}).angle, -kPi);
}

TEST(SkeletonRayTest, DirectionWithinTheBandBelowPiComesOutBelowMinusPi) {
    // atan2 gives pi - 1e-07, which lies within the band of pi and is moved down by 2 pi.
    const double a = SkeletonRay(Point{0, 0}, Point{-1, 1e-07}).angle;
    EXPECT_LT(a, -kPi);
    EXPECT_NEAR(a, -kPi - 1e-07, 1e-12);
    // Just outside the band it stays below pi.
    const double b = SkeletonRay(Point{0, 0}, Point{-1, 1e-06}).angle;
    EXPECT_NEAR(b, kPi - 1e-06, 1e-12);
}

TEST(SkeletonRayTest, CoincidentPointsGiveAngleZero) {
    EXPECT_DOUBLE_EQ(SkeletonRay(Point{3, 4}, Point{3, 4}).angle, 0.0);
    EXPECT_DOUBLE_EQ(SkeletonRay(Point{-2, 0}, Point{-2, 0}).angle, 0.0);
}

// ---- OppositeRay -----------------------------------------------------------------------------

TEST(OppositeRayTest, KeepsTheOriginAndTurnsByPi) {
    const SkeletonRay up(Point{2, 3}, Point{2, 9});
    const SkeletonRay down = OppositeRay(up);
    EXPECT_DOUBLE_EQ(down.origin.x, 2.0);
    EXPECT_DOUBLE_EQ(down.origin.y, 3.0);
    // pi/2 + pi exceeds pi and is reduced to -pi/2.
    EXPECT_NEAR(down.angle, -kPi / 2, kAngleTol);
    EXPECT_NEAR(OppositeRay(down).angle, kPi / 2, kAngleTol);
}

TEST(OppositeRayTest, OfAngleZeroIsMinusPiAndOfMinusPiIsZero) {
    EXPECT_DOUBLE_EQ(OppositeRay(RayAt(0, 0, 0.0)).angle, -kPi);
    EXPECT_NEAR(OppositeRay(RayAt(0, 0, -kPi)).angle, 0.0, kAngleTol);
    EXPECT_NEAR(OppositeRay(RayAt(0, 0, -kPi / 4)).angle, 3 * kPi / 4, kAngleTol);
}

// ---- PointOnRay ------------------------------------------------------------------------------

TEST(PointOnRayTest, TheOriginWithinTheBandIsOnTheRay) {
    const SkeletonRay r = RayAt(1, 1, kPi / 2);
    EXPECT_TRUE(PointOnRay(Point{1, 1}, r));
    EXPECT_TRUE(PointOnRay(Point{1 + 4e-07, 1 - 4e-07}, r));
}

TEST(PointOnRayTest, PointsAheadAreOnAndPointsBehindOrAsideAreNot) {
    const SkeletonRay r = RayAt(0, 0, 0.0);
    EXPECT_TRUE(PointOnRay(Point{5, 0}, r));
    EXPECT_TRUE(PointOnRay(Point{1e6, 0}, r));
    EXPECT_FALSE(PointOnRay(Point{-5, 0}, r));
    EXPECT_FALSE(PointOnRay(Point{5, 1}, r));
}

TEST(PointOnRayTest, TheBandIsOnTheAngleNotOnTheDistance) {
    const SkeletonRay r = RayAt(0, 0, 0.0);
    // Direction 2e-07 off the ray although 2e-06 away from its line.
    EXPECT_TRUE(PointOnRay(Point{10, 2e-06}, r));
    // Direction 1e-06 off the ray although only 1e-06 away from its line.
    EXPECT_FALSE(PointOnRay(Point{1, 1e-06}, r));
}

TEST(PointOnRayTest, AnAngleJustAboveMinusPiDiffersFromOneJustBelowPi) {
    // The point's direction is -pi + 1e-07; the ray's angle is pi - 1e-07. The two directions
    // are 2e-07 apart around the circle, but the angles are compared as plain numbers.
    const Point p{-1, -1e-07};
    EXPECT_FALSE(PointOnRay(p, RayAt(0, 0, kPi - 1e-07)));
    // The same point is on a ray of angle -pi and on one of angle -pi + 3e-07.
    EXPECT_TRUE(PointOnRay(p, RayAt(0, 0, -kPi)));
    EXPECT_TRUE(PointOnRay(p, RayAt(0, 0, -kPi + 3e-07)));
}

TEST(PointOnRayTest, AReducedRayJustBelowMinusPiReachesAcrossTheSeam) {
    // This ray's angle is -pi - 1e-07 after reduction, 2e-07 below the direction -pi + 1e-07.
    const SkeletonRay r(Point{0, 0}, Point{-1, 1e-07});
    EXPECT_TRUE(PointOnRay(Point{-1, -1e-07}, r));
    // Far enough below -pi it does not.
    EXPECT_FALSE(PointOnRay(Point{-1, -1e-06}, r));
}

// ---- RaysParallel ----------------------------------------------------------------------------

TEST(RaysParallelTest, SameDirectionIsParallel) {
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, 0.5), RayAt(3, 7, 0.5)));
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, 0.5), RayAt(3, 7, 0.5 + 4e-07)));
}

TEST(RaysParallelTest, OppositeDirectionIsParallel) {
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, 0.0), RayAt(0, 1, -kPi)));
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, -kPi), RayAt(0, 1, 0.0)));
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, kPi / 2), RayAt(5, 5, -kPi / 2)));
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, -3 * kPi / 4), RayAt(5, 5, kPi / 4)));
}

TEST(RaysParallelTest, OtherDirectionsAreNot) {
    EXPECT_FALSE(RaysParallel(RayAt(0, 0, 0.0), RayAt(0, 0, kPi / 2)));
    EXPECT_FALSE(RaysParallel(RayAt(0, 0, 0.5), RayAt(3, 7, 0.5 + 6e-07)));
    EXPECT_FALSE(RaysParallel(RayAt(0, 0, 0.0), RayAt(0, 0, kPi / 4)));
}

TEST(RaysParallelTest, AnglesAreReducedBeforeComparing) {
    // 3 pi/2 reduces to -pi/2.
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, 3 * kPi / 2), RayAt(0, 0, -kPi / 2)));
    // pi - 1e-07 reduces to -pi - 1e-07, within the band of 0 + pi reduced to -pi.
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, 0.0), RayAt(0, 1, kPi - 1e-07)));
    // 2 pi + 0.5 reduces to 0.5.
    EXPECT_TRUE(RaysParallel(RayAt(0, 0, kTwoPi + 0.5), RayAt(0, 1, 0.5)));
}

// ---- BisectorRay -----------------------------------------------------------------------------

TEST(BisectorRayTest, BisectsTheCounterclockwiseSweepFromAToC) {
    // From direction 0 (to a) counterclockwise to pi/2 (to c): the axis is pi/4.
    const SkeletonRay r = BisectorRay(Point{0, 0}, Point{1, 0}, Point{0, 1});
    EXPECT_DOUBLE_EQ(r.origin.x, 0.0);
    EXPECT_DOUBLE_EQ(r.origin.y, 0.0);
    EXPECT_NEAR(r.angle, kPi / 4, kAngleTol);
}

TEST(BisectorRayTest, AlphaAboveGammaSweepsTheLongWayRound) {
    // alpha = pi/2 > gamma = 0, so alpha becomes -3 pi/2 and the axis is (0 - 3 pi/2) / 2:
    // the counterclockwise sweep from pi/2 to 0 passes pi and 3 pi/2, its middle is -3 pi/4.
    const SkeletonRay r = BisectorRay(Point{2, 3}, Point{2, 4}, Point{3, 3});
    EXPECT_DOUBLE_EQ(r.origin.x, 2.0);
    EXPECT_DOUBLE_EQ(r.origin.y, 3.0);
    EXPECT_NEAR(r.angle, -3 * kPi / 4, kAngleTol);
}

TEST(BisectorRayTest, AStraightVertexGivesThePerpendicular) {
    // Previous point to the left (-pi), next to the right (0): the sweep from -pi to 0 runs
    // through -pi/2.
    const SkeletonRay down = BisectorRay(Point{0, 0}, Point{-1, 0}, Point{1, 0});
    EXPECT_NEAR(down.angle, -kPi / 2, kAngleTol);
    // Reversed: alpha = 0 > gamma = -pi, alpha becomes -2 pi, the mean -3 pi/2 reduces to pi/2.
    const SkeletonRay up = BisectorRay(Point{0, 0}, Point{1, 0}, Point{-1, 0});
    EXPECT_NEAR(up.angle, kPi / 2, kAngleTol);
}

TEST(BisectorRayTest, AlphaWithinTheBandAboveGammaIsNotWrapped) {
    // alpha = 1e-07 is plainly above gamma = 0 but not by the band: no wrap, the axis is
    // the mean 5e-08 and not the opposite direction.
    const SkeletonRay r = BisectorRay(Point{0, 0}, Point{1, 1e-07}, Point{2, 0});
    EXPECT_NEAR(r.angle, 5e-08, 1e-12);
}

TEST(BisectorRayTest, ReflexCornerPointsIntoTheWideSide) {
    // Directions to a = -pi/2 and to c = -pi: alpha > gamma, alpha becomes -5 pi/2 and the
    // mean -7 pi/4 reduces to pi/4, the middle of the counterclockwise sweep of 3 pi/2 from
    // straight down to straight left.
    const SkeletonRay r = BisectorRay(Point{0, 0}, Point{0, -1}, Point{-1, 0});
    EXPECT_NEAR(r.angle, kPi / 4, kAngleTol);
}

// ---- DistanceToRay ---------------------------------------------------------------------------

TEST(DistanceToRayTest, IsPositiveOnBothSidesBeyondTheBand) {
    const SkeletonRay r = RayAt(0, 0, 0.0);
    // Left of the ray: sin(0 - atan2(4, 3)) * 5 = -4, made positive.
    EXPECT_NEAR(DistanceToRay(Point{3, 4}, r), 4.0, kCoordTol);
    // Right of the ray: sin(0 - atan2(-4, 3)) * 5 = 4.
    EXPECT_NEAR(DistanceToRay(Point{3, -4}, r), 4.0, kCoordTol);
    // A vertical ray from (1, 1): the point (4, 1) lies 3 to its right.
    EXPECT_NEAR(DistanceToRay(Point{4, 1}, RayAt(1, 1, kPi / 2)), 3.0, kCoordTol);
    EXPECT_NEAR(DistanceToRay(Point{-2, 1}, RayAt(1, 1, kPi / 2)), 3.0, kCoordTol);
}

TEST(DistanceToRayTest, MeasuresToTheWholeLineBehindTheOriginToo) {
    const SkeletonRay r = RayAt(0, 0, 0.0);
    EXPECT_NEAR(DistanceToRay(Point{-3, 4}, r), 4.0, kCoordTol);
    EXPECT_NEAR(DistanceToRay(Point{-3, -4}, r), 4.0, kCoordTol);
}

TEST(DistanceToRayTest, ATinyNegativeValueWithinTheBandStaysNegative) {
    const SkeletonRay r = RayAt(0, 0, 0.0);
    // sin(0 - atan2(3e-07, 1)) * ~1 is about -3e-07, inside the band: left as it is.
    const double h = DistanceToRay(Point{1, 3e-07}, r);
    EXPECT_LT(h, 0.0);
    EXPECT_NEAR(h, -3e-07, 1e-13);
    // The same on the other side is positive anyway.
    EXPECT_NEAR(DistanceToRay(Point{1, -3e-07}, r), 3e-07, 1e-13);
}

TEST(DistanceToRayTest, ANegativeValueJustBeyondTheBandIsMadePositive) {
    const SkeletonRay r = RayAt(0, 0, 0.0);
    // About -6e-07 before the sign test, which is at least 5e-07 below zero.
    EXPECT_NEAR(DistanceToRay(Point{1, 6e-07}, r), 6e-07, 1e-13);
}

TEST(DistanceToRayTest, PointAtTheOriginIsZero) {
    EXPECT_DOUBLE_EQ(DistanceToRay(Point{2, 2}, RayAt(2, 2, 1.0)), 0.0);
}

// ---- IntersectRays ---------------------------------------------------------------------------

TEST(IntersectRaysTest, SameOriginReturnsTheOriginOfA) {
    const SkeletonRay a = RayAt(1, 2, 0.0);
    const SkeletonRay b = RayAt(1 + 3e-07, 2 - 3e-07, kPi / 2);
    const Point p = IntersectRays(a, b);
    EXPECT_DOUBLE_EQ(p.x, 1.0);
    EXPECT_DOUBLE_EQ(p.y, 2.0);
    const Point q = IntersectRays(b, a);
    EXPECT_DOUBLE_EQ(q.x, 1 + 3e-07);
    EXPECT_DOUBLE_EQ(q.y, 2 - 3e-07);
}

TEST(IntersectRaysTest, RaysFacingEachOtherOnOneLineGiveTheMidpoint) {
    const SkeletonRay a(Point{1, 1}, Point{5, 1});
    const SkeletonRay b(Point{5, 1}, Point{1, 1});
    ExpectPointNear(IntersectRays(a, b), 3.0, 1.0);
    ExpectPointNear(IntersectRays(b, a), 3.0, 1.0);
    // A diagonal pair: the midpoint of (0, 0) and (4, 6).
    ExpectPointNear(
        IntersectRays(SkeletonRay(Point{0, 0}, Point{4, 6}), SkeletonRay(Point{4, 6}, Point{0, 0})),
        2.0, 3.0);
}

TEST(IntersectRaysTest, RaysPointingTheSameWayOnOneLineGiveTheOriginAhead) {
    const SkeletonRay behind = RayAt(0, 0, 0.0);
    const SkeletonRay ahead = RayAt(3, 0, 0.0);
    // b's origin lies on a.
    ExpectPointNear(IntersectRays(behind, ahead), 3.0, 0.0);
    // a's origin lies on b.
    ExpectPointNear(IntersectRays(ahead, behind), 3.0, 0.0);
}

TEST(IntersectRaysTest, AnOriginOnTheOtherRayIsReturned) {
    // (5, 0) lies on the ray along the x axis; the other ray points up from it.
    const SkeletonRay along = RayAt(0, 0, 0.0);
    const SkeletonRay up = RayAt(5, 0, kPi / 2);
    ExpectPointNear(IntersectRays(along, up), 5.0, 0.0);
    ExpectPointNear(IntersectRays(up, along), 5.0, 0.0);
}

TEST(IntersectRaysTest, ParallelRaysDoNotMeet) {
    EXPECT_TRUE(IsInfinite(IntersectRays(RayAt(0, 0, 0.0), RayAt(0, 1, 0.0))));
    EXPECT_TRUE(IsInfinite(IntersectRays(RayAt(0, 0, 0.0), RayAt(0, 1, -kPi))));
    // Pointing apart on one line: parallel, and neither origin is on the other ray.
    EXPECT_TRUE(IsInfinite(IntersectRays(RayAt(0, 0, -kPi), RayAt(4, 0, 0.0))));
}

TEST(IntersectRaysTest, DeterminantWithinTheBandDoesNotMeet) {
    // Angles on either side of the seam: -pi - 2e-07 and pi - 6e-07 are 2 pi - 4e-07 apart as
    // numbers, so the parallel test misses them, but the directions differ by 4e-07 and the
    // determinant, the sine of that difference, lies within the band. The lines cross about 2.5e6
    // ahead of both origins, which the determinant test alone rejects.
    const SkeletonRay a = RayAt(0, 0, -kPi - 2e-07);
    const SkeletonRay b = RayAt(0, -1, kPi - 6e-07);
    ASSERT_FALSE(RaysParallel(a, b));
    EXPECT_TRUE(IsInfinite(IntersectRays(a, b)));
}

TEST(IntersectRaysTest, MeetingBehindAIsRejected) {
    // a runs right from the origin, b runs down from (-2, 2): the lines cross at (-2, 0), two
    // units behind a. det = cos 0 sin(-pi/2) - cos(-pi/2) sin 0 = -1, u = (2) / -1 = -2.
    EXPECT_TRUE(IsInfinite(IntersectRays(RayAt(0, 0, 0.0), RayAt(-2, 2, -kPi / 2))));
}

TEST(IntersectRaysTest, MeetingWithinTheBandBehindAIsAccepted) {
    // The lines cross at (-1e-07, 0), 1e-07 behind a's origin: u is within the band of 0.
    // b's origin, 1e-06 above the crossing, is not within the band of a's origin.
    const Point p = IntersectRays(RayAt(0, 0, 0.0), RayAt(-1e-07, 1e-06, -kPi / 2));
    ASSERT_FALSE(IsInfinite(p));
    EXPECT_NEAR(p.x, -1e-07, 1e-13);
    EXPECT_NEAR(p.y, 0.0, 1e-13);
}

TEST(IntersectRaysTest, MeetingBehindBIsRejected) {
    // a runs right from the origin, b runs up from (2, 2): the crossing (2, 0) is ahead of a
    // (u = 2) but two units behind b (v = 2 > 0).
    EXPECT_TRUE(IsInfinite(IntersectRays(RayAt(0, 0, 0.0), RayAt(2, 2, kPi / 2))));
}

TEST(IntersectRaysTest, MeetingBehindBIsRejectedWithoutBand) {
    // The crossing (2, 0) lies only 1e-07 behind b's origin (2, 1e-07): v = 1e-07 > 0.
    // a starts at (1.9, 0) so that b's origin is 1e-06 off a's direction and not on it.
    EXPECT_TRUE(IsInfinite(IntersectRays(RayAt(1.9, 0, 0.0), RayAt(2, 1e-07, kPi / 2))));
    // With b's origin 1e-07 below the line instead, the crossing is ahead of both.
    const Point p = IntersectRays(RayAt(1.9, 0, 0.0), RayAt(2, -1e-07, kPi / 2));
    ASSERT_FALSE(IsInfinite(p));
    EXPECT_NEAR(p.x, 2.0, 1e-12);
    EXPECT_NEAR(p.y, 0.0, 1e-12);
}

TEST(IntersectRaysTest, ProperCrossingIsComputed) {
    // From (0, 0) at pi/4 and from (4, 0) at 3 pi/4: det = 1, u = 4 sin(3 pi/4) = 2 sqrt 2,
    // and (0, 0) + u (cos pi/4, sin pi/4) = (2, 2).
    const SkeletonRay a(Point{0, 0}, Point{1, 1});
    const SkeletonRay b(Point{4, 0}, Point{3, 1});
    ExpectPointNear(IntersectRays(a, b), 2.0, 2.0);
    ExpectPointNear(IntersectRays(b, a), 2.0, 2.0);
    // A horizontal ray from (1, 2) and a downward one from (5, 7) meet at (5, 2).
    ExpectPointNear(IntersectRays(RayAt(1, 2, 0.0), RayAt(5, 7, -kPi / 2)), 5.0, 2.0);
}

// ---- IntersectLines --------------------------------------------------------------------------

TEST(IntersectLinesTest, CollinearCasesAreThoseOfIntersectRays) {
    // Same origin.
    const Point same = IntersectLines(RayAt(1, 2, 0.0), RayAt(1, 2, 1.0));
    EXPECT_DOUBLE_EQ(same.x, 1.0);
    EXPECT_DOUBLE_EQ(same.y, 2.0);
    // Facing each other: the midpoint.
    ExpectPointNear(IntersectLines(RayAt(1, 1, 0.0), RayAt(5, 1, -kPi)), 3.0, 1.0);
    // The same way: the origin ahead.
    ExpectPointNear(IntersectLines(RayAt(0, 0, 0.0), RayAt(3, 0, 0.0)), 3.0, 0.0);
    ExpectPointNear(IntersectLines(RayAt(3, 0, 0.0), RayAt(0, 0, 0.0)), 3.0, 0.0);
    // An origin on the other ray.
    ExpectPointNear(IntersectLines(RayAt(0, 0, 0.0), RayAt(5, 0, kPi / 2)), 5.0, 0.0);
}

TEST(IntersectLinesTest, RaysPointingApartOnOneLineGiveTheMidpoint) {
    // The left-pointing ray from (0, 0) and the right-pointing one from (4, 0): each origin
    // lies on the other's opposite ray.
    ExpectPointNear(IntersectLines(RayAt(0, 0, -kPi), RayAt(4, 0, 0.0)), 2.0, 0.0);
    ExpectPointNear(IntersectLines(RayAt(4, 0, 0.0), RayAt(0, 0, -kPi)), 2.0, 0.0);
}

TEST(IntersectLinesTest, ParallelLinesDoNotMeet) {
    EXPECT_TRUE(IsInfinite(IntersectLines(RayAt(0, 0, 0.0), RayAt(0, 1, 0.0))));
    EXPECT_TRUE(IsInfinite(IntersectLines(RayAt(0, 0, 0.0), RayAt(0, 1, -kPi))));
    EXPECT_TRUE(IsInfinite(IntersectLines(RayAt(0, 0, kPi / 2), RayAt(3, 0, -kPi / 2))));
}

TEST(IntersectLinesTest, DeterminantWithinTheBandDoesNotMeet) {
    // The seam pair of IntersectRays: not parallel by angle, but the determinant is in the band.
    EXPECT_TRUE(IsInfinite(IntersectLines(RayAt(0, 0, -kPi - 2e-07), RayAt(0, -1, kPi - 6e-07))));
}

TEST(IntersectLinesTest, ACrossingBehindBothRaysIsFound) {
    // Right from (6, 0) and up from (5, 5): the lines cross at (5, 0), behind both.
    const SkeletonRay a = RayAt(6, 0, 0.0);
    const SkeletonRay b = RayAt(5, 5, kPi / 2);
    EXPECT_TRUE(IsInfinite(IntersectRays(a, b)));
    ExpectPointNear(IntersectLines(a, b), 5.0, 0.0);
    ExpectPointNear(IntersectLines(b, a), 5.0, 0.0);
    // Behind a only: the crossing (2, 0) of IntersectRaysTest.MeetingBehindBIsRejected.
    ExpectPointNear(IntersectLines(RayAt(0, 0, 0.0), RayAt(2, 2, kPi / 2)), 2.0, 0.0);
}

TEST(IntersectLinesTest, ProperCrossingAheadOfBothIsTheSameAsForRays) {
    const SkeletonRay a(Point{0, 0}, Point{1, 1});
    const SkeletonRay b(Point{4, 0}, Point{3, 1});
    ExpectPointNear(IntersectLines(a, b), 2.0, 2.0);
}

}  // namespace
}  // namespace ravelin
