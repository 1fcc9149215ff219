#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <utility>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

const double kSqrt3 = std::sqrt(3.0);
const double kSqrt7 = std::sqrt(7.0);

// A sentinel that no computed point of these tests equals.
RvPoint2D Sentinel() {
    return RvPoint2D(1, 2, 3, 4, 5);
}

// The planar pair of `p` within `tol`, and its position in space exactly zero.
void ExpectPlanarOnly(const RvPoint2D& p, double x2D, double y2D, double tol) {
    EXPECT_NEAR(p.x2D, x2D, tol);
    EXPECT_NEAR(p.y2D, y2D, tol);
    EXPECT_EQ(p.x, 0.0);
    EXPECT_EQ(p.y, 0.0);
    EXPECT_EQ(p.z, 0.0);
}

// `x`, `y` of `p` within `tol`, `z` exactly 0, and the planar pair equal to `x`, `y`.
void ExpectInPlaneZero(const RvPoint2D& p, double x, double y, double tol) {
    EXPECT_NEAR(p.x, x, tol);
    EXPECT_NEAR(p.y, y, tol);
    EXPECT_EQ(p.z, 0.0);
    EXPECT_EQ(p.x2D, p.x);
    EXPECT_EQ(p.y2D, p.y);
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// IsOnPolyLine2D

TEST(RvPoint2DIsOnPolyLine2D, EmptyLineGivesFalse) {
    const RvPolyLine2D line;
    EXPECT_FALSE(RvPoint2D(0, 0).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, OneVertexLineGivesFalseEvenAtItsVertex) {
    const RvPolyLine2D line = Path({{3, 4}});
    EXPECT_FALSE(RvPoint2D(3, 4).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, EndsCountWithinTheBoxOfPointEquality) {
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    EXPECT_TRUE(RvPoint2D(0, 0).IsOnPolyLine2D(line));
    EXPECT_TRUE(RvPoint2D(10, 0).IsOnPolyLine2D(line));
    // Beyond the end and beside the line, but within 0.01 of the end on all five values.
    EXPECT_TRUE(RvPoint2D(10.005, 0.005).IsOnPolyLine2D(line));
    EXPECT_TRUE(RvPoint2D(0.005, -0.005).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, PointBetweenTheEndsOfAHorizontalSegmentCounts) {
    // Both directions are atan2(0, -5) = pi, which both reduce to -pi.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    EXPECT_TRUE(RvPoint2D(5, 0).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, PointBetweenTheEndsOfADiagonalSegmentCounts) {
    // Both directions are atan2(-3, -3) = atan2(-1, -1) = -3 pi / 4.
    const RvPolyLine2D line = Path({{0, 0}, {4, 4}});
    EXPECT_TRUE(RvPoint2D(1, 1).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, PointOnTheLineBeyondTheSecondVertexDoesNotCount) {
    // From the end to the point: atan2(0, 5) = 0; from the point to the start:
    // atan2(0, -15) = pi, reduced to -pi.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    EXPECT_FALSE(RvPoint2D(15, 0).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, PointOnTheLineBeforeTheFirstVertexDoesNotCount) {
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    EXPECT_FALSE(RvPoint2D(-5, 0).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, PointSlightlyOffTheSegmentDoesNotCount) {
    // (5, 0.001), 0.001 beside the segment: a1 = atan2(0.001, -5), about pi - 0.0002, is not
    // within the band of pi and stays; a2 = atan2(-0.001, -5), about -pi + 0.0002. They differ
    // by nearly 2 pi: the direction test has no distance tolerance of its own.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    EXPECT_FALSE(RvPoint2D(5, 0.001).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, DirectionsThatDifferOnlyByTheWrapAgree) {
    // (5, 1e-7) above the segment (0, 0)-(10, 0): a1 = atan2(1e-7, -5), about pi - 2e-8,
    // lies within the band of pi and is brought to about -pi - 2e-8; a2 = atan2(-1e-7, -5),
    // about -pi + 2e-8. They agree within 5e-07, although before reduction they differ by
    // nearly 2 pi.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    EXPECT_TRUE(RvPoint2D(5, 1e-7).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, LaterSegmentIsTested) {
    // (10, 5) lies on the second segment only.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}});
    EXPECT_TRUE(RvPoint2D(10, 5).IsOnPolyLine2D(line));
    EXPECT_FALSE(RvPoint2D(12, 5).IsOnPolyLine2D(line));
}

TEST(RvPoint2DIsOnPolyLine2D, DirectionsAreTakenOnThePlanarPair) {
    // The planar pair (5, 0) lies on the segment; the position in space is elsewhere.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    EXPECT_TRUE(RvPoint2D(5, 0, 99, 99, 99).IsOnPolyLine2D(line));
    // And the other way round: the planar pair is off the segment.
    EXPECT_FALSE(RvPoint2D(5, 3, 5, 0, 0).IsOnPolyLine2D(line));
}

// ---------------------------------------------------------------------------------------------
// GetTangencialPoint of a circle

TEST(RvPoint2DTangentCircle, FromTwoUnitsToTheUnitCircle) {
    // v = (2, 0, 0), n = 2: h2 = 1 - 1/4 = 0.75, a = 0.5, h = sqrt(3)/2. The frame has
    // column 0 (1, 0, 0), column 1 (1, 0, 0) x (0, 0, -1) = (0, 1, 0), so the points are
    // (0.5, sqrt(3)/2) and then (0.5, -sqrt(3)/2).
    RvPoint2D p(2, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], 0.5, kSqrt3 / 2, 1e-12);
    ExpectInPlaneZero(out[1], 0.5, -kSqrt3 / 2, 1e-12);
}

TEST(RvPoint2DTangentCircle, OffCentreCircleAndAnotherDirection) {
    // Centre (1, 1), point (1, 3), r = 1: v = (0, 2, 0), n = 2, a = 0.5, h = sqrt(3)/2.
    // Column 0 is (0, 1, 0); column 1 is (0, 1, 0) x (0, 0, -1) = (-1, 0, 0). So the first
    // point is (1, 1) + (0, 0.5) + (-h, 0) and the second (1, 1) + (0, 0.5) + (h, 0).
    RvPoint2D p(1, 3);
    RvPoint2D centre(1, 1);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], 1 - kSqrt3 / 2, 1.5, 1e-12);
    ExpectInPlaneZero(out[1], 1 + kSqrt3 / 2, 1.5, 1e-12);
    // Each is a point of tangency: the radius to it is at right angles to the way to p.
    for (const RvPoint2D& t : out) {
        const double dot = (t.x - 1) * (1 - t.x) + (t.y - 1) * (3 - t.y);
        EXPECT_NEAR(dot, 0.0, 1e-12);
    }
}

TEST(RvPoint2DTangentCircle, ReadsTheSpaceFieldsNotThePlanarPair) {
    // In space the point is (2, 0, 0) and the centre (0, 0, 0); their planar pairs are
    // elsewhere. The result is that of the unit circle example, with planar pairs equal to x, y.
    RvPoint2D p(555, -555, 2, 0, 0);
    RvPoint2D centre(-77, 88, 0, 0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], 0.5, kSqrt3 / 2, 1e-12);
    ExpectInPlaneZero(out[1], 0.5, -kSqrt3 / 2, 1e-12);
}

TEST(RvPoint2DTangentCircle, AppendsWithoutClearing) {
    RvPoint2D p(2, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], 3, 4, 5, 1, 2));
    ExpectInPlaneZero(out[1], 0.5, kSqrt3 / 2, 1e-12);
    ExpectInPlaneZero(out[2], 0.5, -kSqrt3 / 2, 1e-12);
}

TEST(RvPoint2DTangentCircle, PointInsideTheCircleGivesFalse) {
    RvPoint2D p(0.5, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 3, 4, 5, 1, 2));
}

TEST(RvPoint2DTangentCircle, PointAtTheCentreGivesFalse) {
    RvPoint2D p(4, 4);
    RvPoint2D centre(4, 4);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1.0, out));
    EXPECT_TRUE(out.empty());
}

TEST(RvPoint2DTangentCircle, PointOnTheCircleGivesItselfTwice) {
    // n = r: h2 = 0, a = 1, so both points are (1, 0).
    RvPoint2D p(1, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], 1, 0, 1e-12);
    ExpectInPlaneZero(out[1], 1, 0, 1e-12);
}

TEST(RvPoint2DTangentCircle, PointOnAnOffCentreCircleGivesItselfTwice) {
    // Centre (3, -2), r = 5, point (6, 2) at distance 5: both points are the point itself.
    RvPoint2D p(6, 2);
    RvPoint2D centre(3, -2);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 5.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], 6, 2, 1e-12);
    ExpectInPlaneZero(out[1], 6, 2, 1e-12);
}

TEST(RvPoint2DTangentCircle, PointJustInsideWithNegligibleSquareIsOnTheCircle) {
    // n = 1 - 2e-6 is not below r - 1e-5; h2 = 1 - 1/n^2, about -4e-6, is within 1e-5 of
    // zero and becomes 0. a = 1/n, about 1.000002: both points lie there.
    RvPoint2D p(1 - 2e-6, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], 1 / (1 - 2e-6), 0, 1e-12);
    ExpectInPlaneZero(out[1], 1 / (1 - 2e-6), 0, 1e-12);
}

TEST(RvPoint2DTangentCircle, PointJustOutsideWithNegligibleSquareIsOnTheCircle) {
    // n = 1 + 2e-6: h2 about 4e-6, below 1e-5, becomes 0.
    RvPoint2D p(1 + 2e-6, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], 1 / (1 + 2e-6), 0, 1e-12);
    ExpectInPlaneZero(out[1], 1 / (1 + 2e-6), 0, 1e-12);
}

TEST(RvPoint2DTangentCircle, PointWithinTheMarginButClearlyNegativeSquareGivesFalse) {
    // n = 1 - 9e-6 is not below r - 1e-5 = 0.99999, so the inside test passes; but
    // h2 = 1 - 1/n^2, about -1.8e-5, is negative beyond 1e-5.
    RvPoint2D p(1 - 9e-6, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1.0, out));
    EXPECT_EQ(out.size(), 1u);
}

TEST(RvPoint2DTangentCircle, PointBelowTheMarginGivesFalse) {
    // n = 1 - 2e-5 is below r - 1e-5.
    RvPoint2D p(1 - 2e-5, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1.0, out));
    EXPECT_TRUE(out.empty());
}

TEST(RvPoint2DTangentCircle, FarPointGivesTangentsNearTheQuarterPoints) {
    // Centre (0, 0), r = 2, point (0, -20): n = 20, a = 0.2, h2 = 4 - 16/400 = 3.96.
    // v = (0, -1, 0); column 1 is (0, -1, 0) x (0, 0, -1) = (1, 0, 0). First point
    // (h, -0.2), second (-h, -0.2), h = sqrt(3.96).
    RvPoint2D p(0, -20);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 2.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectInPlaneZero(out[0], std::sqrt(3.96), -0.2, 1e-12);
    ExpectInPlaneZero(out[1], -std::sqrt(3.96), -0.2, 1e-12);
}

// ---------------------------------------------------------------------------------------------
// GetTangencialPoint of an axis-parallel ellipse

TEST(RvPoint2DTangentEllipse, CircleAsEllipseFromTwoUnits) {
    // a = b = 1, d = (2, 0): A = B = 1, k = 1 - 4 = -3, D = 0 - (1 - 0)(-3) = 3,
    // m1 = sqrt(3) / -3 = -1/sqrt(3), m2 = 1/sqrt(3), q1 = -2/sqrt(3), q2 = 2/sqrt(3).
    // First point (m1/q1, 1/q1) = (0.5, -sqrt(3)/2), second (0.5, sqrt(3)/2): the same two
    // points of tangency as the circle form, in the other order.
    RvPoint2D p(2, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], 0.5, -kSqrt3 / 2, 1e-12);
    ExpectPlanarOnly(out[1], 0.5, kSqrt3 / 2, 1e-12);
}

TEST(RvPoint2DTangentEllipse, EllipseOffCentreOnItsMajorAxis) {
    // a = 2, b = 1, centre (10, 20), point (14, 20): d = (4, 0), A = 4, B = 1,
    // k = 4 - 16 = -12, D = -(16)(-12) = 192, s = 8 sqrt(3), m1 = -2/sqrt(3), m2 = 2/sqrt(3),
    // q1 = m1 * 4 / 4 = m1, q2 = m2. Points (10 + 1, 20 - sqrt(3)/2), (10 + 1, 20 + sqrt(3)/2);
    // indeed 1/4 + 3/4 = 1, and the polar of (4, 0) is x = 1.
    RvPoint2D p(14, 20);
    RvPoint2D centre(10, 20);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 2.0, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], 11, 20 - kSqrt3 / 2, 1e-12);
    ExpectPlanarOnly(out[1], 11, 20 + kSqrt3 / 2, 1e-12);
}

TEST(RvPoint2DTangentEllipse, EllipseFromAPointInGeneralPosition) {
    // a = 2, b = 1, centre (-3, 5), point (1, 7): d = (4, 2), A = 4, B = 1. The polar line of
    // (4, 2) is x + 2y = 1; on x^2/4 + y^2 = 1 it gives 8y^2 - 4y - 3 = 0, so
    // y = (1 -+ sqrt(7)) / 4 and x = 1 - 2y = (1 +- sqrt(7)) / 2.
    // By the steps: k = -12, D = 1024 - 576 = 448, m1 = (32 + 8 sqrt(7)) / -12, q1 = m1 + 2,
    // which is the point with y = (1 - sqrt(7)) / 4; m2 the other.
    RvPoint2D p(1, 7);
    RvPoint2D centre(-3, 5);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 2.0, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], -3 + (1 + kSqrt7) / 2, 5 + (1 - kSqrt7) / 4, 1e-12);
    ExpectPlanarOnly(out[1], -3 + (1 - kSqrt7) / 2, 5 + (1 + kSqrt7) / 4, 1e-12);
}

TEST(RvPoint2DTangentEllipse, PointOnTheMinorAxis) {
    // a = 2, b = 1, d = (0, 2): k = 4, D = -(16 - 64) 4 = 192, m1 = 2 sqrt(3), m2 = -m1,
    // q1 = q2 = 2 * 4 / 4 = 2. Points (sqrt(3), 0.5) and (-sqrt(3), 0.5).
    RvPoint2D p(0, 2);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 2.0, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], kSqrt3, 0.5, 1e-12);
    ExpectPlanarOnly(out[1], -kSqrt3, 0.5, 1e-12);
}

TEST(RvPoint2DTangentEllipse, ReadsThePlanarPairOnly) {
    // The planar pairs are those of the first example; the positions in space are elsewhere,
    // and the results carry zero in space all the same.
    RvPoint2D p(2, 0, 50, 60, 70);
    RvPoint2D centre(0, 0, -5, -6, -7);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], 0.5, -kSqrt3 / 2, 1e-12);
    ExpectPlanarOnly(out[1], 0.5, kSqrt3 / 2, 1e-12);
}

TEST(RvPoint2DTangentEllipse, ClearsTheOutputOnSuccess) {
    RvPoint2D p(2, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel(), Sentinel(), Sentinel()};
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], 0.5, -kSqrt3 / 2, 1e-12);
    ExpectPlanarOnly(out[1], 0.5, kSqrt3 / 2, 1e-12);
}

TEST(RvPoint2DTangentEllipse, PointOnTheEllipseGivesItselfTwice) {
    // a = b = 1, d = (0, 1): k = 1, D = 0 - (1 - 1) 1 = 0, m1 = m2 = 0, q1 = q2 = 1.
    RvPoint2D p(0, 1);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1.0, 1.0, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], 0, 1, 1e-12);
    ExpectPlanarOnly(out[1], 0, 1, 1e-12);
}

TEST(RvPoint2DTangentEllipse, PointInsideGivesFalseAndLeavesTheOutputAlone) {
    // a = b = 1, d = (0.5, 0): k = 0.75, D = -(1)(0.75) < 0.
    RvPoint2D p(0.5, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1.0, 1.0, out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 3, 4, 5, 1, 2));
}

TEST(RvPoint2DTangentEllipse, VerticalTangentGivesFalseAndLeavesTheOutputAlone) {
    // a = b = 1, d = (1, 2): k = 1 - 1 = 0, below 1e-14, although D = 4 is not negative. The
    // line x = 1 through the point is a tangent the slope form cannot hold.
    RvPoint2D p(1, 2);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1.0, 1.0, out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 3, 4, 5, 1, 2));
}

TEST(RvPoint2DTangentEllipse, PointOnTheEllipseAtTheEndOfTheMajorAxisGivesFalse) {
    // a = 2, b = 1, d = (2, 0): k = 4 - 4 = 0.
    RvPoint2D p(2, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    EXPECT_FALSE(p.GetTangencialPoint(centre, 2.0, 1.0, out));
    EXPECT_EQ(out.size(), 1u);
}

TEST(RvPoint2DTangentEllipse, TinyAxisProductGivesFalseAndLeavesTheOutputAlone) {
    // a = 1e-8, b = sqrt(50), d = (0, 10): A = 1e-16, B = 50, k = A B^2 = 2.5e-13 (not below
    // 1e-14), D = -A^2 (B - 100) k, about 1.25e-43 (not negative), but A B = 5e-15 is below
    // 1e-14.
    RvPoint2D p(0, 10);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1e-8, std::sqrt(50.0), out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 3, 4, 5, 1, 2));
}

TEST(RvPoint2DTangentEllipse, SmallAxisProductAboveTheLimitIsAccepted) {
    // a = 1e-7: A B = 5e-13. q1 = q2 = dy A / (A B) = 10 / 50 = 0.2, so y = 5; the polar of
    // (0, 10) is y = 5, and x = +-a sqrt(1 - 25/50) = +-a / sqrt(2). m1 = sqrt(D) / k is the
    // positive one.
    RvPoint2D p(0, 10);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1e-7, std::sqrt(50.0), out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], 1e-7 / std::sqrt(2.0), 5, 1e-12);
    ExpectPlanarOnly(out[1], -1e-7 / std::sqrt(2.0), 5, 1e-12);
    EXPECT_GT(out[0].x2D, 0.0);
    EXPECT_LT(out[1].x2D, 0.0);
}

TEST(RvPoint2DTangentEllipse, TinyReciprocalOrdinateGivesFalse) {
    // The unit circle example scaled by 1e15: a = b = 1e15, d = (2e15, 0). k = -3e90,
    // D = 3e180, m1 = -1/sqrt(3), and q1 = m1 dx B / (A B) = -2/sqrt(3) * 1e-15, below 1e-14.
    RvPoint2D p(2e15, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out{Sentinel()};
    EXPECT_FALSE(p.GetTangencialPoint(centre, 1e15, 1e15, out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 3, 4, 5, 1, 2));
}

TEST(RvPoint2DTangentEllipse, LargeEllipseWithReciprocalOrdinateAboveTheLimitIsAccepted) {
    // Scaled by 1e13 instead: q1 = -2/sqrt(3) * 1e-13, not below 1e-14. The points are those
    // of the unit example scaled: (0.5e13, -+sqrt(3)/2 * 1e13), compared to 1e-12 of their
    // size.
    RvPoint2D p(2e13, 0);
    RvPoint2D centre(0, 0);
    std::vector<RvPoint2D> out;
    ASSERT_TRUE(p.GetTangencialPoint(centre, 1e13, 1e13, out));
    ASSERT_EQ(out.size(), 2u);
    ExpectPlanarOnly(out[0], 0.5e13, -kSqrt3 / 2 * 1e13, 10.0);
    ExpectPlanarOnly(out[1], 0.5e13, kSqrt3 / 2 * 1e13, 10.0);
}
