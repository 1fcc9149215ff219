#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <numbers>
#include <stdexcept>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

constexpr double kTol = 1e-9;

// All five values of `p` within `tol`.
testing::AssertionResult ValuesNear(const RvPoint2D& p, double x, double y, double z, double x2D,
                                    double y2D, double tol = kTol) {
    if (std::fabs(p.x - x) <= tol && std::fabs(p.y - y) <= tol && std::fabs(p.z - z) <= tol &&
        std::fabs(p.x2D - x2D) <= tol && std::fabs(p.y2D - y2D) <= tol) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "got x=" << p.x << " y=" << p.y << " z=" << p.z << " x2D=" << p.x2D
           << " y2D=" << p.y2D << ", expected x=" << x << " y=" << y << " z=" << z << " x2D=" << x2D
           << " y2D=" << y2D << " within " << tol;
}

// A point of the plane z = 0 whose planar pair equals its x, y, within `tol`.
testing::AssertionResult IsAt(const RvPoint2D& p, double x, double y, double tol = kTol) {
    return ValuesNear(p, x, y, 0, x, y, tol);
}

const RvPoint3D kUp(0, 0, 1);

}  // namespace

// =============================================================================================
// AddPolygonPoint

TEST(RvDrawEntityAddPolygonPoint, EmptyEntityTakesThePoint) {
    RvPolyLine2D path;
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(7, 8, 1, 2, 3)));
    ASSERT_EQ(path.size(), 1u);
    EXPECT_TRUE(HasValues(path[0], 1, 2, 3, 7, 8));
}

TEST(RvDrawEntityAddPolygonPoint, SingleVertexAndDifferentPointAppends) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(1, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(HasValues(path[1], 1, 0, 0, 1, 0));
}

TEST(RvDrawEntityAddPolygonPoint, SingleVertexAndEqualPointChangesNothingButReturnsTrue) {
    // Within 0.01 on all five values: nothing is appended, and still the result is true.
    RvPolyLine2D path = Path({RvPoint2D(0, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(0.005, 0.005, 0.005, 0.005, 0.005)));
    ASSERT_EQ(path.size(), 1u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
}

TEST(RvDrawEntityAddPolygonPoint, SingleVertexComparesThePlanarPairToo) {
    // Same place in space, another planar pair: the points differ, so the point is appended.
    RvPolyLine2D path = Path({RvPoint2D(0, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(5, 5, 0, 0, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(HasValues(path[1], 0, 0, 0, 5, 5));
}

TEST(RvDrawEntityAddPolygonPoint, DoubledTailIsRemovedBeforeTheCornerTest) {
    // (1.005, 0) equals (1, 0) within 0.01, and so does the second (1, 0): both go, leaving the
    // segment (0,0)-(1,0), to which (1,1) makes a corner.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(1, 0), RvPoint2D(1.005, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(1, 1)));
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(path[1], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(path[2], 1, 1, 0, 1, 1));
}

TEST(RvDrawEntityAddPolygonPoint, DoubledTailDownToOneVertexActsAsSingleVertex) {
    RvPolyLine2D same = Path({RvPoint2D(2, 3), RvPoint2D(2, 3), RvPoint2D(2, 3)});
    EXPECT_TRUE(same.AddPolygonPoint(RvPoint2D(2, 3)));
    ASSERT_EQ(same.size(), 1u);
    EXPECT_TRUE(HasValues(same[0], 2, 3, 0, 2, 3));

    RvPolyLine2D other = Path({RvPoint2D(2, 3), RvPoint2D(2, 3), RvPoint2D(2, 3)});
    EXPECT_TRUE(other.AddPolygonPoint(RvPoint2D(5, 5)));
    ASSERT_EQ(other.size(), 2u);
    EXPECT_TRUE(HasValues(other[0], 2, 3, 0, 2, 3));
    EXPECT_TRUE(HasValues(other[1], 5, 5, 0, 5, 5));
}

TEST(RvDrawEntityAddPolygonPoint, PointAtTheLastVertexInSpaceIsRefused) {
    // l - p is null in space: refused whatever the planar pair says, and nothing changes.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_FALSE(path.AddPolygonPoint(RvPoint2D(1.005, 0.005, 1, 0, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(HasValues(path[1], 1, 0, 0, 1, 0));

    EXPECT_FALSE(path.AddPolygonPoint(RvPoint2D(1, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(HasValues(path[1], 1, 0, 0, 1, 0));
}

TEST(RvDrawEntityAddPolygonPoint, PointWithinToleranceAlongTheLastSegmentReturnsFalse) {
    // (1.005, 0) is collinear with (0,0)-(1,0): the last vertex is replaced by it, which leaves
    // the sequence equal to what it was within 0.01, and the result is false.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    const RvPolyLine2D before = path;
    EXPECT_FALSE(path.AddPolygonPoint(RvPoint2D(1.005, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(path[1] == before[1]);
    EXPECT_TRUE(HasValues(path[1], 1.005, 0, 0, 1.005, 0));
}

TEST(RvDrawEntityAddPolygonPoint, PointWithinToleranceOffTheLastSegmentIsACorner) {
    // (1.005, 0.005) equals the last vertex within 0.01, yet l - p = (-0.005, -0.005) is not
    // null and points off the line of the last segment (|cos| = 0.707): it makes a corner, is
    // appended, and the answer is true. Only the next call removes the doubled tail, before its
    // own corner test.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(1.005, 0.005)));
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[2], 1.005, 0.005, 0, 1.005, 0.005));

    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(1, 5)));
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[1], 1, 0, 0, 1, 0));
    EXPECT_TRUE(HasValues(path[2], 1, 5, 0, 1, 5));
}

TEST(RvDrawEntityAddPolygonPoint, CornerAppendsAndReturnsTrue) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(1, 1)));
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[2], 1, 1, 0, 1, 1));
}

TEST(RvDrawEntityAddPolygonPoint, ThreeCollinearPointsKeepOnlyTheEnds) {
    RvPolyLine2D path;
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(0, 0)));
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(1, 0)));
    EXPECT_FALSE(path.AddPolygonPoint(RvPoint2D(2, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(path[1], 2, 0, 0, 2, 0));
}

TEST(RvDrawEntityAddPolygonPoint, CollinearExtensionReplacesAllFiveValues) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_FALSE(path.AddPolygonPoint(RvPoint2D(9, 8, 2, 0, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(HasValues(path[1], 2, 0, 0, 9, 8));
}

TEST(RvDrawEntityAddPolygonPoint, FoldBackOntoThePreviousVertexRemovesTheLast) {
    RvPolyLine2D path;
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(0, 0)));
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(1, 0)));
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(0, 0)));
    ASSERT_EQ(path.size(), 1u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
}

TEST(RvDrawEntityAddPolygonPoint, FoldBackWithinToleranceOfThePreviousVertexRemovesTheLast) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(0.005, 0)));
    ASSERT_EQ(path.size(), 1u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
}

TEST(RvDrawEntityAddPolygonPoint, FoldBackShortOfOrBeyondThePreviousVertexMovesTheLast) {
    // Collinear, but p is not the previous vertex: the last vertex is replaced, result false.
    RvPolyLine2D shortOf = Path({RvPoint2D(0, 0), RvPoint2D(2, 0)});
    EXPECT_FALSE(shortOf.AddPolygonPoint(RvPoint2D(1, 0)));
    ASSERT_EQ(shortOf.size(), 2u);
    EXPECT_TRUE(HasValues(shortOf[1], 1, 0, 0, 1, 0));

    RvPolyLine2D beyond = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_FALSE(beyond.AddPolygonPoint(RvPoint2D(-1, 0)));
    ASSERT_EQ(beyond.size(), 2u);
    EXPECT_TRUE(HasValues(beyond[1], -1, 0, 0, -1, 0));
}

TEST(RvDrawEntityAddPolygonPoint, CollinearityIsJudgedInSpaceNotInThePlane) {
    // In space (0,0,0), (1,0,0), (2,0,0) are collinear; the planar pairs are scattered and do not
    // matter.
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0, 0, 0), RvPoint2D(5, 5, 1, 0, 0)});
    EXPECT_FALSE(path.AddPolygonPoint(RvPoint2D(0, 9, 2, 0, 0)));
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(HasValues(path[1], 2, 0, 0, 0, 9));
}

TEST(RvDrawEntityAddPolygonPoint, CornerThresholdOfTheDirectionCosine) {
    // From (1,0), p = (2, e) deviates by cos = 1 / sqrt(1 + e^2): for e = 0.01 that is about
    // 1 - 5e-05, a corner; for e = 1e-05 about 1 - 5e-11, collinear.
    RvPolyLine2D corner = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_TRUE(corner.AddPolygonPoint(RvPoint2D(2, 0.01)));
    EXPECT_EQ(corner.size(), 3u);

    RvPolyLine2D straight = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_FALSE(straight.AddPolygonPoint(RvPoint2D(2, 1e-05)));
    ASSERT_EQ(straight.size(), 2u);
    EXPECT_TRUE(HasValues(straight[1], 2, 1e-05, 0, 2, 1e-05));
}

TEST(RvDrawEntityAddPolygonPoint, LastTwoVerticesAtOnePlaceInSpaceMakeAnyPointACorner) {
    // The last two differ only in the planar pair, so they are not doubled; a = l - m is null,
    // its normalisation warns and leaves it null, a*b is 0 and p counts as a corner.
    MessageBoxRecorder boxes;
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 1, 0, 0), RvPoint2D(5, 5, 1, 0, 0)});
    EXPECT_TRUE(path.AddPolygonPoint(RvPoint2D(2, 0)));
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[2], 2, 0, 0, 2, 0));
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, kNormalizeWarning);
}

// =============================================================================================
// UpEndFrom

namespace {

RvPolyLine2D FiveVertices() {
    return Path({RvPoint2D(10, 11, 0, 0, 0), RvPoint2D(20, 21, 1, 0, 0), RvPoint2D(30, 31, 2, 0, 0),
                 RvPoint2D(40, 41, 3, 0, 0), RvPoint2D(50, 51, 4, 0, 0)});
}

}  // namespace

TEST(RvDrawEntityUpEndFrom, WrapsFromThreeToOneOverFiveVertices) {
    RvPolyLine2D src = FiveVertices();
    RvPolyLine2D out;
    out.UpEndFrom(src, 3, 1);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], 3, 0, 0, 40, 41));
    EXPECT_TRUE(HasValues(out[1], 4, 0, 0, 50, 51));
    EXPECT_TRUE(HasValues(out[2], 0, 0, 0, 10, 11));
    EXPECT_EQ(src.size(), 5u);
}

TEST(RvDrawEntityUpEndFrom, ForwardRangeWithoutWrap) {
    RvPolyLine2D src = FiveVertices();
    RvPolyLine2D out;
    out.UpEndFrom(src, 1, 4);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], 1, 0, 0, 20, 21));
    EXPECT_TRUE(HasValues(out[1], 2, 0, 0, 30, 31));
    EXPECT_TRUE(HasValues(out[2], 3, 0, 0, 40, 41));
}

TEST(RvDrawEntityUpEndFrom, FromTheLastVertexToTheFirstAppendsTheLastAlone) {
    RvPolyLine2D src = FiveVertices();
    RvPolyLine2D out;
    out.UpEndFrom(src, 4, 0);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 4, 0, 0, 50, 51));
}

TEST(RvDrawEntityUpEndFrom, AppendsAfterWhatIsThere) {
    RvPolyLine2D src = FiveVertices();
    RvPolyLine2D out = Path({RvPoint2D(-1, -1)});
    out.UpEndFrom(src, 0, 2);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], -1, -1, 0, -1, -1));
    EXPECT_TRUE(HasValues(out[1], 0, 0, 0, 10, 11));
    EXPECT_TRUE(HasValues(out[2], 1, 0, 0, 20, 21));
}

TEST(RvDrawEntityUpEndFrom, FromEqualToToAppendsNothing) {
    RvPolyLine2D src = FiveVertices();
    RvPolyLine2D out = Path({RvPoint2D(-1, -1)});
    out.UpEndFrom(src, 2, 2);
    EXPECT_EQ(out.size(), 1u);
    out.UpEndFrom(src, 0, 0);
    EXPECT_EQ(out.size(), 1u);
}

TEST(RvDrawEntityUpEndFrom, EmptySourceAppendsNothingAndReturns) {
    RvPolyLine2D src;
    RvPolyLine2D out = Path({RvPoint2D(-1, -1)});
    out.UpEndFrom(src, 0, 1);
    EXPECT_EQ(out.size(), 1u);
    out.UpEndFrom(src, 0, 0);
    EXPECT_EQ(out.size(), 1u);
}

TEST(RvDrawEntityUpEndFrom, ToOutsideTheVerticesEndsAfterOneRound) {
    // The index never equals 7 or -1, so the walk stops after all five vertices, starting at 2.
    RvPolyLine2D src = FiveVertices();
    RvPolyLine2D out;
    out.UpEndFrom(src, 2, 7);
    ASSERT_EQ(out.size(), 5u);
    EXPECT_TRUE(HasValues(out[0], 2, 0, 0, 30, 31));
    EXPECT_TRUE(HasValues(out[1], 3, 0, 0, 40, 41));
    EXPECT_TRUE(HasValues(out[2], 4, 0, 0, 50, 51));
    EXPECT_TRUE(HasValues(out[3], 0, 0, 0, 10, 11));
    EXPECT_TRUE(HasValues(out[4], 1, 0, 0, 20, 21));

    RvPolyLine2D negative;
    negative.UpEndFrom(src, 0, -1);
    ASSERT_EQ(negative.size(), 5u);
    EXPECT_TRUE(HasValues(negative[0], 0, 0, 0, 10, 11));
    EXPECT_TRUE(HasValues(negative[4], 4, 0, 0, 50, 51));
}

TEST(RvDrawEntityUpEndFrom, FromOutsideTheVerticesRaises) {
    // Vertex `from` is read before any wrap.
    RvPolyLine2D src = FiveVertices();
    RvPolyLine2D out;
    ExpectThrowWithMessage<std::out_of_range>([&] { out.UpEndFrom(src, 5, 1); },
                                              "invalid vector<T> subscript");
    ExpectThrowWithMessage<std::out_of_range>([&] { out.UpEndFrom(src, -1, 1); },
                                              "invalid vector<T> subscript");
    EXPECT_TRUE(out.empty());
}

// =============================================================================================
// OdstranOstreUhly
//
// The paths below lie in the plane z = 0, so a long arm (ax, ay) has the normal
// (ax, ay, 0) x (0, 0, 1) = (ay, -ax, 0). Unless said otherwise, angle is pi/4
// (limit cos = 0.7071) and minLength is 2.

TEST(RvDrawEntityOdstranOstreUhly, RightAnglesAreNotSharp) {
    // Every corner has c = 0, not above 0.7071; the short arms do not matter.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(2, 0), RvPoint2D(2, 0.5),
                              RvPoint2D(4, 0.5), RvPoint2D(4, 3)});
    const RvPolyLine2D before = path;
    path.OdstranOstreUhly(kPi / 4, 100);
    EXPECT_TRUE(SameVertices(path, before));
}

TEST(RvDrawEntityOdstranOstreUhly, SharpCornerWithArmsLongEnoughIsLeft) {
    // At vertex 2, u = (0,-1), v = (-5,-10): c = 10 / sqrt(125) = 0.894, sharp. The shorter arm
    // is 1, not strictly below 0.5 or 1.
    for (const double minLength : {0.5, 1.0}) {
        RvPolyLine2D path =
            Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 1), RvPoint2D(5, -9)});
        const RvPolyLine2D before = path;
        path.OdstranOstreUhly(kPi / 4, minLength);
        EXPECT_TRUE(SameVertices(path, before)) << "minLength " << minLength;
    }
}

TEST(RvDrawEntityOdstranOstreUhly, SharpCornerWithShortPreviousArmMovesOntoTheLineBeyondIt) {
    // Vertex 2 (10,1): u = (0,-1), lu = 1; v = (-5,-10), lv = 11.18 > lu, so the previous
    // vertex k = (10,0) goes. w = (0,0) - k = (-10,0), nrm = (-10,5,0), den = 100,
    // t = ((10,1)*nrm - (10,0)*nrm) / den = 5/100: vertex 2 becomes k + w*t = (9.5, 0), with the
    // planar pair of k moved by w*t too. Then vertex 1 (9.5,0) is examined: c = 0.447, not sharp.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(100, 200, 10, 0, 0), RvPoint2D(10, 1), RvPoint2D(5, -9)});
    path.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(ValuesNear(path[1], 9.5, 0, 0, 99.5, 200));
    EXPECT_TRUE(HasValues(path[2], 5, -9, 0, 5, -9));
}

TEST(RvDrawEntityOdstranOstreUhly, ShorterArmJustBelowMinLengthIsRepaired) {
    // The same corner as above, its shorter arm 1 just below minLength.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 1), RvPoint2D(5, -9)});
    path.OdstranOstreUhly(kPi / 4, 1.0001);
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(IsAt(path[1], 9.5, 0));
}

TEST(RvDrawEntityOdstranOstreUhly, SharpCornerWithShortNextArmMovesOntoTheLineBeyondIt) {
    // Vertex 2 (10,1): u = (-5,-10), lu = 11.18; v = (0,-1), lv = 1, so the next vertex
    // k = (10,0) goes. w = (0,0) - k = (-10,0), nrm from u = (-10,5,0), den = 100, t = 5/100:
    // vertex 2 becomes (9.5, 0). Vertex 1 (c = -0.447) and vertex 2 (c = 0.447) are then left.
    RvPolyLine2D path = Path(
        {RvPoint2D(0, -9), RvPoint2D(5, -9), RvPoint2D(10, 1), RvPoint2D(10, 0), RvPoint2D(0, 0)});
    path.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(HasValues(path[0], 0, -9, 0, 0, -9));
    EXPECT_TRUE(HasValues(path[1], 5, -9, 0, 5, -9));
    EXPECT_TRUE(IsAt(path[2], 9.5, 0));
    EXPECT_TRUE(HasValues(path[3], 0, 0, 0, 0, 0));
}

TEST(RvDrawEntityOdstranOstreUhly, EqualArmsTakeTheNextVertexAsTheShortArm) {
    // Vertex 2 (10,5): u = (0,-5), v = (-3,-4), both of length 5, c = 0.8. lv is not strictly
    // above lu, so k is the next vertex (7,1): w = (0,1) - k = (-7,0), nrm from u = (-5,0,0),
    // den = 35, t = (-50 + 35) / 35 = -3/7, and vertex 2 becomes (7,1) + (3,0) = (10,1).
    // Taking the previous vertex instead would have given (6.25, 0).
    RvPolyLine2D path = Path(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 5), RvPoint2D(7, 1), RvPoint2D(0, 1)});
    path.OdstranOstreUhly(kPi / 4, 6);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(HasValues(path[1], 10, 0, 0, 10, 0));
    EXPECT_TRUE(IsAt(path[2], 10, 1));
    EXPECT_TRUE(HasValues(path[3], 0, 1, 0, 0, 1));
}

TEST(RvDrawEntityOdstranOstreUhly, ShorterArmEqualToMinLengthIsLeft) {
    // As above, with minLength 5: the arms of 5 are not strictly below it.
    RvPolyLine2D path = Path(
        {RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 5), RvPoint2D(7, 1), RvPoint2D(0, 1)});
    const RvPolyLine2D before = path;
    path.OdstranOstreUhly(kPi / 4, 5);
    EXPECT_TRUE(SameVertices(path, before));
}

TEST(RvDrawEntityOdstranOstreUhly, LineBeyondShortArmParallelToLongArmRemovesTheVertexAlone) {
    // Vertex 2 (10,1): u = (0,-1) is short, k = (10,0), w = (8,-4) - k = (-2,-4); the long arm
    // v = (-5,-10) gives nrm = (-10,5,0), and nrm*w = 20 - 20 = 0: vertex 2 goes alone.
    // Vertex 1 (10,0) is then sharp (u = (-2,-4), v = (-5,-9), c = 0.999) with arms 4.47 and
    // 10.3; `again` is still false, so it is left.
    RvPolyLine2D path =
        Path({RvPoint2D(8, -4), RvPoint2D(10, 0), RvPoint2D(10, 1), RvPoint2D(5, -9)});
    path.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[0], 8, -4, 0, 8, -4));
    EXPECT_TRUE(HasValues(path[1], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(path[2], 5, -9, 0, 5, -9));
}

TEST(RvDrawEntityOdstranOstreUhly, CornerArisingFromARepairIsRepairedWhateverItsArms) {
    // Vertex 2 (0,5): u = (20,-5), v = (20,-3), c = 0.995, sharp, arms 20.6 and 20.2: left.
    // Vertex 3 (20,2): u = (-20,3), v = (-1,0.1), c = 0.999, short next arm 1.005: k = (19,2.1),
    // w = (0,17.9), nrm = (3,20,0), den = 358, t = (100 - 99) / 358: vertex 3 becomes (19, 2.15)
    // and `again` is true. The walk steps back to vertex 2: u = (20,-5), v = (19,-2.85),
    // still sharp; its arms are long, but the test of the arms is left out. lv = 19.2 < lu, so
    // k = (19,2.15), w = (0,17.85), nrm = (-5,-20,0), den = -357, t = 38 / -357: vertex 2
    // becomes (19, 2.15 - 1.9) = (19, 0.25). Vertex 1 (c = -0.243) ends the repairs.
    RvPolyLine2D path = Path({RvPoint2D(20, -20), RvPoint2D(20, 0), RvPoint2D(0, 5),
                              RvPoint2D(20, 2), RvPoint2D(19, 2.1), RvPoint2D(19, 20)});
    path.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(HasValues(path[0], 20, -20, 0, 20, -20));
    EXPECT_TRUE(HasValues(path[1], 20, 0, 0, 20, 0));
    EXPECT_TRUE(IsAt(path[2], 19, 0.25));
    EXPECT_TRUE(HasValues(path[3], 19, 20, 0, 19, 20));
}

TEST(RvDrawEntityOdstranOstreUhly, WithoutARepairTheSameSharpCornerIsLeft) {
    // The path above with minLength 1: the short arm 1.005 is not below it, nothing is
    // repaired, and vertex 2, sharp with long arms, stays.
    RvPolyLine2D path = Path({RvPoint2D(20, -20), RvPoint2D(20, 0), RvPoint2D(0, 5),
                              RvPoint2D(20, 2), RvPoint2D(19, 2.1), RvPoint2D(19, 20)});
    const RvPolyLine2D before = path;
    path.OdstranOstreUhly(kPi / 4, 1);
    EXPECT_TRUE(SameVertices(path, before));
}

TEST(RvDrawEntityOdstranOstreUhly, WalkStepsBackToVertexOne) {
    // Vertex 2 (5,10): u = (-5,-10), v = (-0.5,-0.8), c = 0.995, short next arm 0.94:
    // k = (4.5,9.2), w = (5.5,0), nrm = (-10,5,0), den = -55, t = 1/55: vertex 2 becomes
    // (4.6, 9.2). Back at vertex 1 (0,0), which the forward walk never examines: u = (0,20),
    // v = (4.6,9.2), c = 0.894, arms 20 and 10.3, repaired since `again` is set. lv < lu, so
    // k = (4.6,9.2), w = (5.4,0), nrm from u = (20,0,0), den = 108, t = -92/108: vertex 1
    // becomes (0, 9.2). Back at vertex 0, whose previous vertex is the last: u = (20,0),
    // v = (0,-10.8), c = 0, and the walk goes on without further change.
    RvPolyLine2D path = Path({RvPoint2D(0, 20), RvPoint2D(0, 0), RvPoint2D(5, 10),
                              RvPoint2D(4.5, 9.2), RvPoint2D(10, 9.2), RvPoint2D(20, 20)});
    path.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(HasValues(path[0], 0, 20, 0, 0, 20));
    EXPECT_TRUE(IsAt(path[1], 0, 9.2));
    EXPECT_TRUE(HasValues(path[2], 10, 9.2, 0, 10, 9.2));
    EXPECT_TRUE(HasValues(path[3], 20, 20, 0, 20, 20));
}

TEST(RvDrawEntityOdstranOstreUhly, RepairAtVertexZeroKeepsTheWalkAtZero) {
    // As above, with the last vertex (10,0). After vertex 1 becomes (0,9.2), vertex 0 (0,20)
    // has the previous vertex (10,0): u = (10,-20), v = (0,-10.8), c = 0.894, repaired with
    // `again` set. lv < lu: k = (0,9.2), w = (10,9.2) - k = (10,0), nrm = (-20,-10,0),
    // den = -200, t = (-200 + 92) / -200 = 0.54: vertex 0 becomes (5.4, 9.2) and vertex 1 goes.
    // The index stays 0: vertex 0 (c = 0.447) and vertex 1 (c = 0) are left.
    RvPolyLine2D path = Path({RvPoint2D(0, 20), RvPoint2D(0, 0), RvPoint2D(5, 10),
                              RvPoint2D(4.5, 9.2), RvPoint2D(10, 9.2), RvPoint2D(10, 0)});
    path.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(IsAt(path[0], 5.4, 9.2));
    EXPECT_TRUE(HasValues(path[1], 10, 9.2, 0, 10, 9.2));
    EXPECT_TRUE(HasValues(path[2], 10, 0, 0, 10, 0));
}

TEST(RvDrawEntityOdstranOstreUhly, StopsWhenFewerThanThreeVerticesRemain) {
    // angle 72 degrees, limit 0.309. Vertex 2 becomes (9.5,0) as in the short previous arm case.
    // Vertex 1 (9.5,0): u = (-9.5,0), v = (-4.5,-9), c = 0.447, now sharp, repaired with
    // `again` set. lv > lu: k = vertex 0, w = the last vertex (5,-9) - (0,0), nrm = (-9,4.5,0),
    // den = -85.5, t = -85.5 / -85.5 = 1: vertex 1 becomes (5,-9) and vertex 0 goes. Two
    // vertices are left, and the walk ends.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 1), RvPoint2D(5, -9)});
    path.OdstranOstreUhly(72 * kPi / 180, 2);
    ASSERT_EQ(path.size(), 2u);
    EXPECT_TRUE(IsAt(path[0], 5, -9));
    EXPECT_TRUE(IsAt(path[1], 5, -9));
}

TEST(RvDrawEntityOdstranOstreUhly, FirstExaminedIndexIsTwo) {
    // Vertex 1 (10,0) is sharp (u = (-10,0), v = (-1,0.5), c = 0.894) with a short arm 1.118,
    // but vertex 2 is not sharp (c = -0.447): with three or four vertices nothing changes.
    RvPolyLine2D three = Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(9, 0.5)});
    const RvPolyLine2D threeBefore = three;
    three.OdstranOstreUhly(kPi / 4, 2);
    EXPECT_TRUE(SameVertices(three, threeBefore));

    RvPolyLine2D four =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(9, 0.5), RvPoint2D(9, 10)});
    const RvPolyLine2D fourBefore = four;
    four.OdstranOstreUhly(kPi / 4, 2);
    EXPECT_TRUE(SameVertices(four, fourBefore));
}

TEST(RvDrawEntityOdstranOstreUhly, FourVerticesExamineVertexTwo) {
    // The short previous arm case of four vertices: vertex 2 is examined and repaired.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 1), RvPoint2D(5, -9)});
    path.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(IsAt(path[1], 9.5, 0));
}

TEST(RvDrawEntityOdstranOstreUhly, LastVertexIsNotExamined) {
    // Vertex 3 (-1,-2) with the closing arm to (0,0): u = (11,12), v = (1,2), c = 0.96, short
    // arm 2.24 < 3; but it is the last vertex. Vertex 2 has c = 0.676, not sharp.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(10, 10), RvPoint2D(-1, -2)});
    const RvPolyLine2D before = path;
    path.OdstranOstreUhly(kPi / 4, 3);
    EXPECT_TRUE(SameVertices(path, before));
}

TEST(RvDrawEntityOdstranOstreUhly, ZeroAngleLeavesEvenAFold) {
    // Vertex 2 (10,1): u = (0,-1), v = (0,-2), c = 2/2 = 1 exactly; with angle 0 the limit is
    // 1 and c is not strictly above it.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 1), RvPoint2D(10, -1)});
    const RvPolyLine2D before = path;
    path.OdstranOstreUhly(0, 2);
    EXPECT_TRUE(SameVertices(path, before));
}

TEST(RvDrawEntityOdstranOstreUhly, SmallAngleRepairsAFold) {
    // As above with angle 0.01: the fold is sharp. lv > lu: k = (10,0), w = (-10,0),
    // nrm = (-2,0,0), den = 20, t = (-20 + 20) / 20 = 0: vertex 2 becomes (10,0) and the old
    // vertex 1 goes. Vertex 1 (10,0) then has c = 0.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 1), RvPoint2D(10, -1)});
    path.OdstranOstreUhly(0.01, 2);
    ASSERT_EQ(path.size(), 3u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(path[1], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(path[2], 10, -1, 0, 10, -1));
}

TEST(RvDrawEntityOdstranOstreUhly, LongArmAlongZTakesItsNormalFromTheXAxis) {
    // In the plane x = 0. Vertex 2 (0,0,10): u = (0,0,-10), long; v = (0,0.5,-2), c = 0.970,
    // short (2.06 < 3). u has no x, y, so nrm = u x (1,0,0) = (0,-10,0). k = (0,0.5,8),
    // w = (0,5,0), den = -50, t = (0 + 5) / -50 = -0.1: vertex 2 becomes (0,0,8). With
    // u x (0,0,1), which is null, the vertex would have been removed instead.
    RvPolyLine2D path = Path({RvPoint2D(0, -10, 0), RvPoint2D(0, 0, 0), RvPoint2D(0, 0, 10),
                              RvPoint2D(0, 0.5, 8), RvPoint2D(0, 5.5, 8)});
    path.OdstranOstreUhly(kPi / 4, 3);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(HasValues(path[1], 0, 0, 0, 0, 0));
    EXPECT_TRUE(ValuesNear(path[2], 0, 0, 8, 0, 0));
    EXPECT_TRUE(HasValues(path[3], 0, 5.5, 8, 0, 5.5));
}

TEST(RvDrawEntityOdstranOstreUhly, ArmNormalFormIsChosenStrictlyAbove1e07) {
    // The long arm u = (ux, 0, -10). For ux = 1e-07 (not above) nrm = u x (1,0,0) = (0,-10,0);
    // with w = (0,0.04,0), den = -0.4 and vertex 2 moves to (0,0,8). For ux = 2e-07 (above)
    // nrm = u x (0,0,1) = (0,-2e-07,0), den = -8e-09, not above 1e-08 in magnitude: vertex 2
    // goes alone.
    RvPolyLine2D second = Path({RvPoint2D(0, -10, 0), RvPoint2D(1e-07, 0, 0), RvPoint2D(0, 0, 10),
                                RvPoint2D(0, 0.5, 8), RvPoint2D(0, 0.54, 8)});
    second.OdstranOstreUhly(kPi / 4, 3);
    ASSERT_EQ(second.size(), 4u);
    EXPECT_TRUE(ValuesNear(second[2], 0, 0, 8, 0, 0));
    EXPECT_TRUE(HasValues(second[3], 0, 0.54, 8, 0, 0.54));

    RvPolyLine2D first = Path({RvPoint2D(0, -10, 0), RvPoint2D(2e-07, 0, 0), RvPoint2D(0, 0, 10),
                               RvPoint2D(0, 0.5, 8), RvPoint2D(0, 0.54, 8)});
    first.OdstranOstreUhly(kPi / 4, 3);
    ASSERT_EQ(first.size(), 4u);
    EXPECT_TRUE(HasValues(first[1], 2e-07, 0, 0, 2e-07, 0));
    EXPECT_TRUE(HasValues(first[2], 0, 0.5, 8, 0, 0.5));
    EXPECT_TRUE(HasValues(first[3], 0, 0.54, 8, 0, 0.54));
}

TEST(RvDrawEntityOdstranOstreUhly, ShortPathsAreLeft) {
    RvPolyLine2D empty;
    empty.OdstranOstreUhly(kPi / 4, 2);
    EXPECT_TRUE(empty.empty());

    RvPolyLine2D two = Path({RvPoint2D(0, 0), RvPoint2D(1, 0)});
    two.OdstranOstreUhly(kPi / 4, 2);
    ASSERT_EQ(two.size(), 2u);
    EXPECT_TRUE(HasValues(two[1], 1, 0, 0, 1, 0));
}

// =============================================================================================
// ZaobliVrcholy

TEST(RvDrawEntityZaobliVrcholy, RightAngleWithArmsThreeAndRadiusHalfIsCutAtHalf) {
    // m = min(1, 1) = 1, lowered to the radius 0.5; a = pi/2, tan(a/2) = 1, d = 0.5.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3, 3)});
    path.ZaobliVrcholy(0.5);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(IsAt(path[1], 2.5, 0));
    EXPECT_TRUE(IsAt(path[2], 3, 0.5));
    EXPECT_TRUE(HasValues(path[3], 3, 3, 0, 3, 3));
}

TEST(RvDrawEntityZaobliVrcholy, VeryLargeRadiusCutsAThirdOfTheShorterArmOverTheHalfAngle) {
    // Right angle, arms 3 and 6: m = min(1, 2) = 1, d = 1 / tan(pi/4) = 1.
    RvPolyLine2D right = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3, 6)});
    right.ZaobliVrcholy(1e6);
    ASSERT_EQ(right.size(), 4u);
    EXPECT_TRUE(IsAt(right[1], 2, 0));
    EXPECT_TRUE(IsAt(right[2], 3, 1));

    // 60 degree corner, arms 3 and 3: m = 1, d = 1 / tan(30 degrees) = sqrt(3), below 3.
    const double r3 = std::sqrt(3.0);
    RvPolyLine2D acute = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(1.5, 1.5 * r3)});
    acute.ZaobliVrcholy(1e6);
    ASSERT_EQ(acute.size(), 4u);
    EXPECT_TRUE(IsAt(acute[1], 3 - r3, 0));
    // v = (-0.5, r3/2): (3,0) + v * sqrt(3) = (3 - r3/2, 1.5).
    EXPECT_TRUE(IsAt(acute[2], 3 - r3 / 2, 1.5));
}

TEST(RvDrawEntityZaobliVrcholy, AcuteCornerWhoseCutExceedsPrevLengthIsCutAtItsHalf) {
    // 30 degree corner with arms 3: m = 1, d = 1 / tan(15 degrees) = 2 + sqrt(3) = 3.73 > 3,
    // so d = 3 / 2. w = (3,0) + (-1,0) * 1.5; the vertex moves by v * 1.5, v = (-cos 30, sin 30).
    const double c30 = std::sqrt(3.0) / 2;
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3 - 3 * c30, 1.5)});
    path.ZaobliVrcholy(1e6);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(IsAt(path[1], 1.5, 0));
    EXPECT_TRUE(IsAt(path[2], 3 - 1.5 * c30, 0.75));
    EXPECT_TRUE(IsAt(path[3], 3 - 3 * c30, 1.5));
}

TEST(RvDrawEntityZaobliVrcholy, OnlyTheIncomingArmLimitsTheCut) {
    // 30 degree corner, arms 30 and 3: m = min(10, 1) = 1, d = 2 + sqrt(3) = 3.73, which is
    // below prevLength 30 and is kept although it exceeds the outgoing arm of 3: the moved
    // vertex passes the next one.
    const double c30 = std::sqrt(3.0) / 2;
    const double d = 2 + std::sqrt(3.0);
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(30, 0), RvPoint2D(30 - 3 * c30, 1.5)});
    path.ZaobliVrcholy(1e6);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(IsAt(path[1], 30 - d, 0));
    EXPECT_TRUE(IsAt(path[2], 30 - d * c30, 0.5 * d));
    EXPECT_TRUE(IsAt(path[3], 30 - 3 * c30, 1.5));
}

TEST(RvDrawEntityZaobliVrcholy, PrevLengthIsTheUncutLengthOfTheSegment) {
    // The first corner (3,0) is cut at d = 1, leaving 2 of the segment up to (3,3). The second
    // corner still takes prevLength 3: m = min(1, 1) = 1 and d = 1 (with 2 it would be 2/3).
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3, 3), RvPoint2D(0, 3)});
    path.ZaobliVrcholy(1e6);
    ASSERT_EQ(path.size(), 6u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(IsAt(path[1], 2, 0));
    EXPECT_TRUE(IsAt(path[2], 3, 1));
    EXPECT_TRUE(IsAt(path[3], 3, 2));
    EXPECT_TRUE(IsAt(path[4], 2, 3));
    EXPECT_TRUE(HasValues(path[5], 0, 3, 0, 0, 3));
}

TEST(RvDrawEntityZaobliVrcholy, NearlyStraightCornerIsLeft) {
    // u = (-1,0) and v = (0.985, 0.1726): c = -0.985, not above -0.98.
    const double s = std::sqrt(1 - 0.985 * 0.985);
    RvPolyLine2D nearly = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3 + 3 * 0.985, 3 * s)});
    const RvPolyLine2D before = nearly;
    nearly.ZaobliVrcholy(1e6);
    EXPECT_TRUE(SameVertices(nearly, before));

    // A straight vertex, c = -1.
    RvPolyLine2D straight = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(6, 0)});
    const RvPolyLine2D straightBefore = straight;
    straight.ZaobliVrcholy(1e6);
    EXPECT_TRUE(SameVertices(straight, straightBefore));
}

TEST(RvDrawEntityZaobliVrcholy, CornerJustSharperThanTheStraightLimitIsCut) {
    // c = -0.975, above -0.98. m = 1; tan(a/2) = sqrt((1 - c) / (1 + c)), so
    // d = sqrt(0.025 / 1.975) = 0.1125.
    const double s = std::sqrt(1 - 0.975 * 0.975);
    const double d = std::sqrt(0.025 / 1.975);
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3 + 3 * 0.975, 3 * s)});
    path.ZaobliVrcholy(1e6);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(IsAt(path[1], 3 - d, 0));
    EXPECT_TRUE(IsAt(path[2], 3 + 0.975 * d, s * d));
}

TEST(RvDrawEntityZaobliVrcholy, TinyArmsLeaveTheVertex) {
    // An incoming arm of 2.4e-07 gives m = 8e-08, not above 1e-07.
    RvPolyLine2D shortIn = Path({RvPoint2D(0, 0), RvPoint2D(2.4e-07, 0), RvPoint2D(2.4e-07, 3)});
    const RvPolyLine2D inBefore = shortIn;
    shortIn.ZaobliVrcholy(1e6);
    EXPECT_TRUE(SameVertices(shortIn, inBefore));

    // So does an outgoing arm of 2.4e-07.
    RvPolyLine2D shortOut = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3, 2.4e-07)});
    const RvPolyLine2D outBefore = shortOut;
    shortOut.ZaobliVrcholy(1e6);
    EXPECT_TRUE(SameVertices(shortOut, outBefore));
}

TEST(RvDrawEntityZaobliVrcholy, ArmsAboveTheLimitAreCut) {
    // An incoming arm of 1.5e-06 gives m = 5e-07, above 1e-07: a right angle cut at d = 5e-07.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(1.5e-06, 0), RvPoint2D(1.5e-06, 3)});
    path.ZaobliVrcholy(1e6);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(IsAt(path[1], 1e-06, 0, 1e-13));
    EXPECT_TRUE(IsAt(path[2], 1.5e-06, 5e-07, 1e-13));
}

TEST(RvDrawEntityZaobliVrcholy, RadiusZeroDoublesTheCornerVertex) {
    // The arms pass the test on m, then m becomes 0, d = 0: the inserted vertex and the moved
    // one both sit on the corner.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3, 3)});
    path.ZaobliVrcholy(0);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(HasValues(path[1], 3, 0, 0, 3, 0));
    EXPECT_TRUE(HasValues(path[2], 3, 0, 0, 3, 0));
}

TEST(RvDrawEntityZaobliVrcholy, FirstAndLastVerticesAreUntouched) {
    // A square that returns next to its start: corners 1 to 3 are cut, the closing corners at
    // vertices 0 and 4 are not examined.
    RvPolyLine2D path = Path({RvPoint2D(7, 7, 0, 0, 0), RvPoint2D(3, 0), RvPoint2D(3, 3),
                              RvPoint2D(0, 3), RvPoint2D(8, 8, 0, 1, 0)});
    path.ZaobliVrcholy(0.5);
    ASSERT_EQ(path.size(), 8u);
    EXPECT_TRUE(HasValues(path[0], 0, 0, 0, 7, 7));
    EXPECT_TRUE(IsAt(path[1], 2.5, 0));
    EXPECT_TRUE(IsAt(path[2], 3, 0.5));
    EXPECT_TRUE(IsAt(path[3], 3, 2.5));
    EXPECT_TRUE(IsAt(path[4], 2.5, 3));
    EXPECT_TRUE(IsAt(path[5], 0.5, 3));
    EXPECT_TRUE(IsAt(path[6], 0, 2.5));
    EXPECT_TRUE(HasValues(path[7], 0, 1, 0, 8, 8));
}

TEST(RvDrawEntityZaobliVrcholy, InsertedVertexTakesItsPlanarPairFromSpace) {
    // The corner vertex has the planar pair (100, 200). The inserted vertex (2.5, 0) takes its
    // own x, y as planar pair; the moved vertex keeps its planar pair, moved by v*d = (0, 0.5).
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(100, 200, 3, 0, 0), RvPoint2D(3, 3)});
    path.ZaobliVrcholy(0.5);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(ValuesNear(path[1], 2.5, 0, 0, 2.5, 0));
    EXPECT_TRUE(ValuesNear(path[2], 3, 0.5, 0, 100, 200.5));
}

TEST(RvDrawEntityZaobliVrcholy, CornerInAVerticalPlane) {
    // The same right angle as above, standing in the plane y = 0 with the corner at (3,0,0):
    // the cut is measured in space.
    RvPolyLine2D path = Path({RvPoint2D(0, 0, 0), RvPoint2D(3, 0, 0), RvPoint2D(3, 0, 3)});
    path.ZaobliVrcholy(0.5);
    ASSERT_EQ(path.size(), 4u);
    EXPECT_TRUE(ValuesNear(path[1], 2.5, 0, 0, 2.5, 0));
    EXPECT_TRUE(ValuesNear(path[2], 3, 0, 0.5, 3, 0));
}

TEST(RvDrawEntityZaobliVrcholy, FewerThanThreeVerticesAreLeft) {
    RvPolyLine2D empty;
    empty.ZaobliVrcholy(1);
    EXPECT_TRUE(empty.empty());

    RvPolyLine2D two = Path({RvPoint2D(0, 0), RvPoint2D(3, 0)});
    const RvPolyLine2D before = two;
    two.ZaobliVrcholy(1);
    EXPECT_TRUE(SameVertices(two, before));
}

// =============================================================================================
// ExtendUpEnd
//
// All paths lie in the plane z = 0 with n = (0,0,1), so w = n x v = (-v.y, v.x, 0). The offset
// point of DajBodNaOsiUhla(q, s, v, d, n) for perpendicular unit arms s and v is
// q + (s + v) * sign * d, with sign +1 when (s x v) * n < 0, else -1: with d > 0 it lies right
// of the direction of travel.

TEST(RvDrawEntityExtendUpEnd, FirstEqualToLastAppendsNothing) {
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
    RvPolyLine2D out = Path({RvPoint2D(-5, -5)});
    path.ExtendUpEnd(path.begin(), path.begin(), 1, 0, RvPoint3D(0, -1, 0), kUp, out);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], -5, -5, 0, -5, -5));

    RvPolyLine2D empty;
    path.ExtendUpEnd(path.begin() + 1, path.begin() + 1, 1, 0, RvPoint3D(0, -1, 0), kUp, empty);
    EXPECT_TRUE(empty.empty());
}

TEST(RvDrawEntityExtendUpEnd, RightTurnOfAnLShapedPath) {
    // v = (0,-3,0) normalised to (0,-1,0), w = (1,0,0), q = (0,0).
    // Vertex (0,0): s = (1,0,0), s*w = 1, t = 0; (s x v) * n = -1, sign +1:
    //   b = (0,0) + (1,-1) = (1,-1), the first point of out. v = (-1,0,0), w = (0,-1,0).
    // Vertex (10,0): s = (0,1,0), s*w = -1, t = 0, q = (10,0); (s x v) * n = 1, sign -1:
    //   b = (10,0) - (-1,1) = (11,-1); e = ((1,-1) - (11,-1)) * v = 10, not behind: appended.
    //   v = (0,-1,0), w = (1,0,0).
    // Second stage along the line x = 11 through the last point: segment (0,0)-(10,0) meets it
    // at q2 = 11/10, segment (10,0)-(10,10) is parallel to it at g = 1: no hit, out stays.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
    const RvPolyLine2D before = path;
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 2, 1, 0, RvPoint3D(0, -3, 0), kUp, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsAt(out[0], 1, -1));
    EXPECT_TRUE(IsAt(out[1], 11, -1));
    EXPECT_TRUE(SameVertices(path, before));
}

TEST(RvDrawEntityExtendUpEnd, NegativeDistanceOffsetsToTheLeft) {
    // As above with d1 = -1: b = (-1,1), then (9,1). The second stage meets segment
    // (0,0)-(10,0) at q2 = 0.9, x = (9,0); r = x - (9,1) = (0,-1) and r*v = 1 with v = (0,-1,0):
    // the hit lies behind, nothing is appended.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 2, -1, 0, RvPoint3D(0, -1, 0), kUp, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsAt(out[0], -1, 1));
    EXPECT_TRUE(IsAt(out[1], 9, 1));
}

TEST(RvDrawEntityExtendUpEnd, CollinearVertexAddsNoOffsetPoint) {
    // At (5,0) the segment (5,0)-(10,0) runs along v = (-1,0,0): s*w = 0 and the vertex is
    // passed over with v and w kept. The result is that of the L-shaped path.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(5, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 3, 1, 0, RvPoint3D(0, -1, 0), kUp, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsAt(out[0], 1, -1));
    EXPECT_TRUE(IsAt(out[1], 11, -1));
}

TEST(RvDrawEntityExtendUpEnd, DoubledVertexIsPassedOver) {
    // The null segment (10,0)-(10,0) is skipped; the result is that of the L-shaped path.
    MessageBoxRecorder boxes;
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 0), RvPoint2D(10, 10)});
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 3, 1, 0, RvPoint3D(0, -1, 0), kUp, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsAt(out[0], 1, -1));
    EXPECT_TRUE(IsAt(out[1], 11, -1));
    EXPECT_TRUE(boxes.calls().empty());
}

namespace {

// A clockwise spiral: up, right, down, then left along y = 0 toward its start.
RvPolyLine2D Spiral() {
    return Path(
        {RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(10, 10), RvPoint2D(10, 0), RvPoint2D(5, 0)});
}

}  // namespace

TEST(RvDrawEntityExtendUpEnd, SpiralRejoinsThePathAheadOfItsEnd) {
    // v = (-1,0,0), d1 = 1. Each vertex gives t = 0 and perpendicular arms:
    //   (0,0):   s = (0,1),  v = (-1,0), sign -1, b = (0,0) - (-1,1)   = (1,-1)
    //   (0,10):  s = (1,0),  v = (0,-1), sign +1, b = (0,10) + (1,-1)  = (1,9)
    //   (10,10): s = (0,-1), v = (-1,0), sign +1, b = (10,10) + (-1,-1) = (9,9)
    //   (10,0):  s = (-1,0), v = (0,1),  sign +1, b = (10,0) + (-1,1)  = (9,1)
    // each ahead of the one before (e = 10, 8, 8). Then v = (1,0,0), w = (0,1,0): the offset line
    // y = 1 through l = (9,1). Segment (0,0)-(0,10): den = 10, g = 1, q2 = 0.1, x = (0,1),
    // r = (-9,0): r*v = -9 and |r| = 9 > |d2|. x - v*d2 is appended.
    RvPolyLine2D path = Spiral();
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 4, 1, 2, RvPoint3D(-1, 0, 0), kUp, out);
    ASSERT_EQ(out.size(), 5u);
    EXPECT_TRUE(IsAt(out[0], 1, -1));
    EXPECT_TRUE(IsAt(out[1], 1, 9));
    EXPECT_TRUE(IsAt(out[2], 9, 9));
    EXPECT_TRUE(IsAt(out[3], 9, 1));
    EXPECT_TRUE(IsAt(out[4], -2, 1));

    RvPolyLine2D negative;
    path.ExtendUpEnd(path.begin(), path.begin() + 4, 1, -2, RvPoint3D(-1, 0, 0), kUp, negative);
    ASSERT_EQ(negative.size(), 5u);
    EXPECT_TRUE(IsAt(negative[4], 2, 1));
}

TEST(RvDrawEntityExtendUpEnd, HitNoFartherThanD2IsNotAppended) {
    // The hit (0,1) lies 9 from the last point (9,1): with d2 = 10 (or -10) nothing is
    // appended, and the walk stops.
    RvPolyLine2D path = Spiral();
    for (const double d2 : {10.0, -10.0, 9.0}) {
        RvPolyLine2D out;
        path.ExtendUpEnd(path.begin(), path.begin() + 4, 1, d2, RvPoint3D(-1, 0, 0), kUp, out);
        ASSERT_EQ(out.size(), 4u) << "d2 " << d2;
        EXPECT_TRUE(IsAt(out[3], 9, 1));
    }
}

namespace {

// Up a narrow channel: up x = 0, across to x = 1, down x = 1, then right.
RvPolyLine2D Channel() {
    return Path(
        {RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(1, 10), RvPoint2D(1, 0), RvPoint2D(20, 0)});
}

}  // namespace

TEST(RvDrawEntityExtendUpEnd, FirstStageEndsWhenTheOffsetPointFallsBehind) {
    // v = (-1,0,0), d1 = 0.8: (0,0) gives (0.8,-0.8) and (0,10) gives (0.8,9.2), v becoming
    // (-1,0,0) again. At (1,10): s = (0,-1), sign +1, b = (1,10) + (-1,-1) * 0.8 = (0.2,9.2);
    // e = ((0.8,9.2) - (0.2,9.2)) * v = -0.6: the first stage ends there, v and w unchanged
    // (w = (0,-1,0), the line y = 9.2). The second stage goes on from (1,10): segment
    // (1,10)-(1,0) has den = 10, g = -9.2 + 10 = 0.8, q2 = 0.08, x = (1,9.2), r = (0.2,0),
    // r*v = -0.2 and |r| = 0.2 > d2 = 0.1: x - v*d2 = (1.1, 9.2) is appended. Started from the
    // first vertex instead, the walk would have stopped at (0,9.2), behind the end.
    RvPolyLine2D path = Channel();
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 4, 0.8, 0.1, RvPoint3D(-1, 0, 0), kUp, out);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(IsAt(out[0], 0.8, -0.8));
    EXPECT_TRUE(IsAt(out[1], 0.8, 9.2));
    EXPECT_TRUE(IsAt(out[2], 1.1, 9.2));
}

TEST(RvDrawEntityExtendUpEnd, HitAtTheEndOfTheOffsetPathIsNotAppended) {
    // d1 = 1: (1,-1), (1,9), then (0,9) falls behind (e = -1). On y = 9 the segment
    // (1,10)-(1,0) is met at x = (1,9), which is the last point itself: r = 0, nothing added.
    RvPolyLine2D path = Channel();
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 4, 1, 0.1, RvPoint3D(-1, 0, 0), kUp, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(IsAt(out[0], 1, -1));
    EXPECT_TRUE(IsAt(out[1], 1, 9));
}

TEST(RvDrawEntityExtendUpEnd, SegmentAlongTheOffsetLineRejoinsAtTheNearerEnd) {
    // v = (0,-1,0), d1 = 1. Offset points: (0,-20) gives (1,-21); (11,-20) (s = (0,1),
    // v = (-1,0), sign -1) gives (12,-21); (11,-10) (s = (-1,0), v = (0,-1), sign -1) gives
    // (12,-9); (10,-10) (s = (0,1), v = (1,0), sign +1) gives (11,-9). Then v = (0,-1,0),
    // w = (1,0,0): the line x = 11. Segment (0,-20)-(11,-20): q2 = 11/11 = 1, not below
    // 0.99999999. Segment (11,-20)-(11,-10) lies along the line (den = 0, g = 0): of (11,-20),
    // 11 from l = (11,-9), and the previous vertex (0,-20), 15.6 from it, the first is nearer;
    // (11,-20) - v*2 = (11,-18) is appended.
    RvPolyLine2D path = Path({RvPoint2D(0, -20), RvPoint2D(11, -20), RvPoint2D(11, -10),
                              RvPoint2D(10, -10), RvPoint2D(10, 10)});
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 4, 1, 2, RvPoint3D(0, -1, 0), kUp, out);
    ASSERT_EQ(out.size(), 5u);
    EXPECT_TRUE(IsAt(out[0], 1, -21));
    EXPECT_TRUE(IsAt(out[1], 12, -21));
    EXPECT_TRUE(IsAt(out[2], 12, -9));
    EXPECT_TRUE(IsAt(out[3], 11, -9));
    EXPECT_TRUE(IsAt(out[4], 11, -18));
}

TEST(RvDrawEntityExtendUpEnd, SegmentAlongTheOffsetLineRejoinsAtTheNearerPreviousVertex) {
    // As above from (5,-12), entering with v = (-0.8,-0.6,0). (5,-12): s = (0.6,-0.8),
    // (s x v) * n = -1, sign +1, b = (5,-12) + (-0.2,-1.4) = (4.8,-13.4). (11,-20): s = (0,1),
    // v = (-0.6,0.8), cos a = 0.8, sin a = 0.6, sign -1, b = (11,-20) - (-0.6,1.8) / 0.6
    // = (12,-23). Then (12,-9) and (11,-9) as above. The segment (11,-20)-(11,-10) lies along
    // x = 11; the previous vertex (5,-12), 6.7 from l = (11,-9), is nearer than (11,-20), 11
    // from it: (5,-12) - v*2 = (5,-10) is appended.
    RvPolyLine2D path = Path({RvPoint2D(5, -12), RvPoint2D(11, -20), RvPoint2D(11, -10),
                              RvPoint2D(10, -10), RvPoint2D(10, 10)});
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.begin() + 4, 1, 2, RvPoint3D(-0.8, -0.6, 0), kUp, out);
    ASSERT_EQ(out.size(), 5u);
    EXPECT_TRUE(IsAt(out[0], 4.8, -13.4));
    EXPECT_TRUE(IsAt(out[1], 12, -23));
    EXPECT_TRUE(IsAt(out[2], 12, -9));
    EXPECT_TRUE(IsAt(out[3], 11, -9));
    EXPECT_TRUE(IsAt(out[4], 5, -10));
}

TEST(RvDrawEntityExtendUpEnd, LastAtEndStopsAfterOneRound) {
    // `last` = end() is never met: each stage takes one round of the four vertices. With
    // v = (0,1,0) the counterclockwise square gets its outer offset corners (-1,-1), (11,-1),
    // (11,11), (-1,11), the last one from the closing segment; the second stage finds no hit
    // ahead on x = -1.
    RvPolyLine2D path =
        Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(10, 10), RvPoint2D(0, 10)});
    const RvPolyLine2D before = path;
    RvPolyLine2D out;
    path.ExtendUpEnd(path.begin(), path.end(), 1, 0.5, RvPoint3D(0, 1, 0), kUp, out);
    ASSERT_EQ(out.size(), 4u);
    EXPECT_TRUE(IsAt(out[0], -1, -1));
    EXPECT_TRUE(IsAt(out[1], 11, -1));
    EXPECT_TRUE(IsAt(out[2], 11, 11));
    EXPECT_TRUE(IsAt(out[3], -1, 11));
    EXPECT_TRUE(SameVertices(path, before));
}

TEST(RvDrawEntityExtendUpEnd, NoOffsetPointLeavesNoLastVertexToRejoinFrom) {
    // Every segment runs along v = (1,0,0), so the first stage appends nothing. The second stage
    // then reads the last vertex of an empty `out`, which is past its end.
    RvPolyLine2D path = Path({RvPoint2D(0, 0), RvPoint2D(10, 0), RvPoint2D(20, 0)});
    RvPolyLine2D out;
    ExpectThrowWithMessage<std::out_of_range>(
        [&] {
            path.ExtendUpEnd(path.begin(), path.begin() + 2, 1, 0, RvPoint3D(1, 0, 0), kUp, out);
        },
        "invalid vector<T> subscript");
    EXPECT_TRUE(out.empty());
}
