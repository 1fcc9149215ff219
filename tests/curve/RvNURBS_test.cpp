#include "ravelin/curve/RvNURBS.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <stdexcept>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "support/RavelinTesting.h"

namespace ravelin {
namespace {

using testing_support::ExpectPlanarNear;
using testing_support::ExpectThrowWithMessage;
using testing_support::ExpectXyzNear;
using testing_support::HasValues;
using testing_support::PointIs;

constexpr const char* kInvalidSubscript = "invalid vector<T> subscript";

// A curve of degree `p` declared for exactly the given points and knots, and filled with them.
// The first knot is stored as 0 whatever is passed, so callers pass 0 first.
RvNURBS MakeCurve(int p, std::initializer_list<NURBSPoint> points,
                  std::initializer_list<double> knots, double segment = 1.0) {
    RvNURBS c;
    c.SetExponent(p);
    c.SetNumberOfControlPoints(static_cast<int>(points.size()));
    c.SetNumberOfKnots(static_cast<int>(knots.size()));
    c.SetSegmentLenght(segment);
    for (const NURBSPoint& q : points) {
        EXPECT_TRUE(c.AddControlPoint(q));
    }
    for (const double k : knots) {
        EXPECT_TRUE(c.AddKnot(k));
    }
    return c;
}

// Quadratic, clamped, one inner knot at 0.5: knots t = 0 0 0 0.5 1 1 1, four control points.
RvNURBS ClampedQuadratic() {
    return MakeCurve(2,
                     {NURBSPoint(0, 0, 0, 1), NURBSPoint(1, 2, 0, 1), NURBSPoint(3, 2, 0, 1),
                      NURBSPoint(4, 0, 0, 1)},
                     {0, 0, 0, 0.5, 1, 1, 1});
}

// A straight segment of degree 1 from (0, 0, 0) to (6, 8, 0), 10 long; knots 0 0 1 1.
RvNURBS TenLongSegment(double segment) {
    return MakeCurve(1, {NURBSPoint(0, 0, 0, 1), NURBSPoint(6, 8, 0, 1)}, {0, 0, 1, 1}, segment);
}

// ---- NURBSPoint ------------------------------------------------------------------------------

TEST(NURBSPointTest, ConstructorStoresCoordinatesAndWeight) {
    const NURBSPoint p(1.5, -2.0, 3.25, 0.5);
    EXPECT_TRUE(PointIs(p, 1.5, -2.0, 3.25));
    EXPECT_DOUBLE_EQ(p.weight, 0.5);
}

TEST(NURBSPointTest, CopyConstructionCopiesWeight) {
    const NURBSPoint p(1, 2, 3, 0.75);
    const NURBSPoint q(p);
    EXPECT_TRUE(PointIs(q, 1, 2, 3));
    EXPECT_DOUBLE_EQ(q.weight, 0.75);
}

TEST(NURBSPointTest, AssignmentCopiesCoordinatesAndWeight) {
    const NURBSPoint p(1, 2, 3, 0.75);
    NURBSPoint q(9, 9, 9, 4.0);
    q = p;
    EXPECT_TRUE(PointIs(q, 1, 2, 3));
    EXPECT_DOUBLE_EQ(q.weight, 0.75);
}

// ---- Construction and copying ----------------------------------------------------------------

TEST(RvNURBSTest, DefaultConstructionIsAllZeroAndEmpty) {
    const RvNURBS c;
    EXPECT_EQ(c.m_nExponent, 0);
    EXPECT_EQ(c.m_nControlPoints, 0);
    EXPECT_EQ(c.m_nKnots, 0);
    EXPECT_DOUBLE_EQ(c.m_dSegmentLenght, 0.0);
    EXPECT_TRUE(c.m_controlPoints.empty());
    EXPECT_TRUE(c.m_knots.empty());
}

TEST(RvNURBSTest, SettersStoreValuesAndResizeNothing) {
    RvNURBS c;
    c.SetExponent(3);
    c.SetNumberOfControlPoints(5);
    c.SetNumberOfKnots(9);
    c.SetSegmentLenght(0.25);
    EXPECT_EQ(c.m_nExponent, 3);
    EXPECT_EQ(c.m_nControlPoints, 5);
    EXPECT_EQ(c.m_nKnots, 9);
    EXPECT_DOUBLE_EQ(c.m_dSegmentLenght, 0.25);
    EXPECT_TRUE(c.m_controlPoints.empty());
    EXPECT_TRUE(c.m_knots.empty());
}

TEST(RvNURBSTest, CopyAndAssignmentCopyEveryField) {
    RvNURBS a = ClampedQuadratic();
    a.SetSegmentLenght(0.5);
    const RvNURBS b(a);
    RvNURBS c;
    c = a;
    for (const RvNURBS* x : {&b, static_cast<const RvNURBS*>(&c)}) {
        EXPECT_EQ(x->m_nExponent, 2);
        EXPECT_EQ(x->m_nControlPoints, 4);
        EXPECT_EQ(x->m_nKnots, 7);
        EXPECT_DOUBLE_EQ(x->m_dSegmentLenght, 0.5);
        ASSERT_EQ(x->m_controlPoints.size(), 4u);
        EXPECT_TRUE(PointIs(x->m_controlPoints.at(2), 3, 2, 0));
        EXPECT_DOUBLE_EQ(x->m_controlPoints.at(2).weight, 1.0);
        ASSERT_EQ(x->m_knots.size(), 7u);
        EXPECT_DOUBLE_EQ(x->m_knots.at(3), 0.5);
    }
}

// ---- Filling the curve -----------------------------------------------------------------------

TEST(RvNURBSTest, FirstKnotIsAlwaysZeroAndSecondIsStoredAsGiven) {
    RvNURBS c;
    c.SetNumberOfKnots(3);
    EXPECT_TRUE(c.AddKnot(5.0));
    EXPECT_TRUE(c.AddKnot(5.0));
    ASSERT_EQ(c.m_knots.size(), 2u);
    EXPECT_DOUBLE_EQ(c.m_knots.at(0), 0.0);
    EXPECT_DOUBLE_EQ(c.m_knots.at(1), 5.0);
}

TEST(RvNURBSTest, FirstKnotIsAcceptedEvenWithNoKnotsDeclared) {
    RvNURBS c;  // declared number of knots 0
    EXPECT_TRUE(c.AddKnot(7.0));
    EXPECT_FALSE(c.AddKnot(1.0));
    ASSERT_EQ(c.m_knots.size(), 1u);
    EXPECT_DOUBLE_EQ(c.m_knots.at(0), 0.0);
}

TEST(RvNURBSTest, KnotBeyondDeclaredNumberIsRefusedAndOrderIsNotChecked) {
    RvNURBS c;
    c.SetNumberOfKnots(3);
    EXPECT_TRUE(c.AddKnot(0.0));
    EXPECT_TRUE(c.AddKnot(2.0));
    EXPECT_TRUE(c.AddKnot(1.0));  // decreasing, still accepted
    EXPECT_FALSE(c.AddKnot(3.0));
    ASSERT_EQ(c.m_knots.size(), 3u);
    EXPECT_DOUBLE_EQ(c.m_knots.at(1), 2.0);
    EXPECT_DOUBLE_EQ(c.m_knots.at(2), 1.0);
}

TEST(RvNURBSTest, ControlPointBeyondDeclaredNumberIsRefusedAndNotStored) {
    RvNURBS c;
    c.SetNumberOfControlPoints(2);
    EXPECT_TRUE(c.AddControlPoint(NURBSPoint(1, 0, 0, 1)));
    EXPECT_TRUE(c.AddControlPoint(NURBSPoint(2, 0, 0, 1)));
    EXPECT_FALSE(c.AddControlPoint(NURBSPoint(3, 0, 0, 1)));
    ASSERT_EQ(c.m_controlPoints.size(), 2u);
    EXPECT_TRUE(PointIs(c.m_controlPoints.at(1), 2, 0, 0));
}

TEST(RvNURBSTest, ControlPointWithDeclaredNumberZeroIsAlwaysRefused) {
    RvNURBS c;
    EXPECT_FALSE(c.AddControlPoint(NURBSPoint(1, 0, 0, 1)));
    EXPECT_FALSE(c.AddControlPoint(NURBSPoint(2, 0, 0, 1)));
    EXPECT_TRUE(c.m_controlPoints.empty());
    c.SetNumberOfControlPoints(-1);
    EXPECT_FALSE(c.AddControlPoint(NURBSPoint(1, 0, 0, 1)));
    EXPECT_TRUE(c.m_controlPoints.empty());
}

TEST(RvNURBSTest, ConsistencyOfDegreeTwoWithFourPointsNeedsSevenKnots) {
    RvNURBS c;
    c.SetExponent(2);
    c.SetNumberOfControlPoints(4);
    c.SetNumberOfKnots(6);
    EXPECT_FALSE(c.CheckConsistency());
    c.SetNumberOfKnots(8);
    EXPECT_FALSE(c.CheckConsistency());
    c.SetNumberOfKnots(7);
    // 4 + 2 + 1 = 7, judged on the declared numbers while both vectors are still empty.
    EXPECT_TRUE(c.CheckConsistency());
    EXPECT_TRUE(c.m_knots.empty());
}

TEST(RvNURBSTest, ConsistencyIgnoresStoredVectors) {
    // Degree 2, one point and four knots declared and stored: 4 == 1 + 2 + 1. Declaring three
    // points makes it inconsistent though the stored vectors have not changed.
    RvNURBS c = MakeCurve(2, {NURBSPoint(0, 0, 0, 1)}, {0, 0, 0, 1});
    EXPECT_TRUE(c.CheckConsistency());
    c.SetNumberOfControlPoints(3);
    EXPECT_FALSE(c.CheckConsistency());
}

// ---- Basis functions -------------------------------------------------------------------------

TEST(RvNURBSTest, DegreeZeroSpansAreClosedAtBothEnds) {
    RvNURBS c = MakeCurve(0, {NURBSPoint(0, 0, 0, 1), NURBSPoint(1, 0, 0, 1)}, {0, 0.5, 1});
    // At the inner knot 0.5 both [0, 0.5] and [0.5, 1] hold u.
    EXPECT_DOUBLE_EQ(c.N_ip(0, 0, 0.5), 1.0);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 0, 0.5), 1.0);
    // Away from it only the span holding u gives 1.
    EXPECT_DOUBLE_EQ(c.N_ip(0, 0, 0.25), 1.0);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 0, 0.25), 0.0);
    EXPECT_DOUBLE_EQ(c.N_ip(0, 0, 0.75), 0.0);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 0, 0.75), 1.0);
    // Outside the knots nothing.
    EXPECT_DOUBLE_EQ(c.N_ip(0, 0, -0.1), 0.0);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 0, 1.1), 0.0);
    // Both coefficients are 1 at the inner knot, so the curve point is their average.
    const RvPoint3D mid = c.Eval(0.5);
    ExpectXyzNear(mid, 0.5, 0.0, 0.0, 1e-15);
}

TEST(RvNURBSTest, ClampedQuadraticMatchesHandComputedBasis) {
    RvNURBS c = ClampedQuadratic();
    // u = 0.25, knots t = 0 0 0 0.5 1 1 1.
    // Degree 0: only N(2,0) = 1 (span [t2, t3] = [0, 0.5]).
    // Degree 1: N(1,1) = N(2,0) (t3 - u) / (t3 - t2) = 0.25 / 0.5 = 0.5 (its left term has a
    //           zero span); N(2,1) = N(2,0) (u - t2) / (t3 - t2) = 0.5.
    // Degree 2: N(0,2) = N(1,1) (t3 - u) / (t3 - t1) = 0.5 * 0.25 / 0.5 = 0.25;
    //           N(1,2) = N(1,1) (u - t1) / (t3 - t1) + N(2,1) (t4 - u) / (t4 - t2)
    //                  = 0.5 * 0.25 / 0.5 + 0.5 * 0.75 / 1 = 0.625;
    //           N(2,2) = N(2,1) (u - t2) / (t4 - t2) = 0.125; N(3,2) = 0.
    EXPECT_DOUBLE_EQ(c.N_ip(2, 0, 0.25), 1.0);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 1, 0.25), 0.5);
    EXPECT_DOUBLE_EQ(c.N_ip(2, 1, 0.25), 0.5);
    EXPECT_DOUBLE_EQ(c.N_ip(0, 2, 0.25), 0.25);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 2, 0.25), 0.625);
    EXPECT_DOUBLE_EQ(c.N_ip(2, 2, 0.25), 0.125);
    EXPECT_DOUBLE_EQ(c.N_ip(3, 2, 0.25), 0.0);
    // Weights are 1, so GetKoef is the basis itself.
    EXPECT_DOUBLE_EQ(c.GetKoef(0.25, 1), 0.625);
    // 0.25 (0, 0) + 0.625 (1, 2) + 0.125 (3, 2) = (1, 1.5), and the coefficients sum to 1.
    ExpectXyzNear(c.Eval(0.25), 1.0, 1.5, 0.0, 1e-15);
}

TEST(RvNURBSTest, InnerKnotDoublesTheBasisButEvalDividesItOut) {
    RvNURBS c = ClampedQuadratic();
    // u = 0.5: N(2,0) and N(3,0) are both 1 (closed ends). Then N(2,1) = 1 * 0.5 / 0.5 +
    // 1 * 0.5 / 0.5 = 2, N(1,1) = N(3,1) = 0, so N(1,2) = 2 * 0.5 / 1 = 1 and N(2,2) = 2 * 0.5 / 1
    // = 1: the coefficients sum to 2, twice the true values 0.5 and 0.5.
    EXPECT_DOUBLE_EQ(c.N_ip(2, 1, 0.5), 2.0);
    EXPECT_DOUBLE_EQ(c.GetKoef(0.5, 0), 0.0);
    EXPECT_DOUBLE_EQ(c.GetKoef(0.5, 1), 1.0);
    EXPECT_DOUBLE_EQ(c.GetKoef(0.5, 2), 1.0);
    EXPECT_DOUBLE_EQ(c.GetKoef(0.5, 3), 0.0);
    // Dividing by their sum gives the curve point (1 (1, 2) + 1 (3, 2)) / 2 = (2, 2).
    ExpectXyzNear(c.Eval(0.5), 2.0, 2.0, 0.0, 1e-15);
}

TEST(RvNURBSTest, RationalCubicMatchesHandComputedBasis) {
    // Knots 0 0 0 0 1 1 1 1 at u = 0.25, worked through the recursion:
    // degree 1: N(2,1) = 0.75, N(3,1) = 0.25;
    // degree 2: N(1,2) = 0.75 * 0.75 = 0.5625, N(2,2) = 0.75 * 0.25 + 0.25 * 0.75 = 0.375,
    //           N(3,2) = 0.25 * 0.25 = 0.0625;
    // degree 3: N(0,3) = 0.5625 * 0.75 = 0.421875,
    //           N(1,3) = 0.5625 * 0.25 + 0.375 * 0.75 = 0.421875,
    //           N(2,3) = 0.375 * 0.25 + 0.0625 * 0.75 = 0.140625,
    //           N(3,3) = 0.0625 * 0.25 = 0.015625.
    RvNURBS c = MakeCurve(3,
                          {NURBSPoint(0, 0, 0, 1), NURBSPoint(1, 3, 1, 2), NURBSPoint(3, 3, 0, 2),
                           NURBSPoint(4, 0, 0, 1)},
                          {0, 0, 0, 0, 1, 1, 1, 1});
    EXPECT_DOUBLE_EQ(c.N_ip(1, 2, 0.25), 0.5625);
    EXPECT_DOUBLE_EQ(c.N_ip(2, 2, 0.25), 0.375);
    EXPECT_DOUBLE_EQ(c.N_ip(0, 3, 0.25), 0.421875);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 3, 0.25), 0.421875);
    EXPECT_DOUBLE_EQ(c.N_ip(2, 3, 0.25), 0.140625);
    EXPECT_DOUBLE_EQ(c.N_ip(3, 3, 0.25), 0.015625);
    // Coefficients with the weights 1 2 2 1: 0.421875, 0.84375, 0.28125, 0.015625; sum 1.5625.
    EXPECT_DOUBLE_EQ(c.GetKoef(0.25, 1), 0.84375);
    EXPECT_DOUBLE_EQ(c.GetKoef(0.25, 2), 0.28125);
    // x: (0.84375 * 1 + 0.28125 * 3 + 0.015625 * 4) / 1.5625 = 1.75 / 1.5625 = 1.12;
    // y: (0.84375 * 3 + 0.28125 * 3) / 1.5625 = 3.375 / 1.5625 = 2.16;
    // z: 0.84375 * 1 / 1.5625 = 0.54.
    ExpectXyzNear(c.Eval(0.25), 1.12, 2.16, 0.54, 1e-12);
}

TEST(RvNURBSTest, LastBasisFunctionIsOneAtEndOfClampedCurve) {
    RvNURBS c = ClampedQuadratic();
    // u = 1: N(3,0), N(4,0), N(5,0) are 1 (closed upper ends, the last two on empty spans).
    // N(3,1) = 1 * (1 - 0.5) / 0.5 = 1 (its right term has a zero span); N(2,1) = 0;
    // N(3,2) = N(3,1) * (1 - 0.5) / (1 - 0.5) = 1 and N(2,2) = N(3,1) * (1 - 1) / 0.5 = 0.
    EXPECT_DOUBLE_EQ(c.N_ip(3, 2, 1.0), 1.0);
    EXPECT_DOUBLE_EQ(c.N_ip(2, 2, 1.0), 0.0);
    EXPECT_DOUBLE_EQ(c.N_ip(1, 2, 1.0), 0.0);
    EXPECT_DOUBLE_EQ(c.N_ip(0, 2, 1.0), 0.0);
    // Hence Eval(1) is the last control point, and Eval(0) the first.
    ExpectXyzNear(c.Eval(1.0), 4.0, 0.0, 0.0, 1e-15);
    ExpectXyzNear(c.Eval(0.0), 0.0, 0.0, 0.0, 1e-15);
}

TEST(RvNURBSTest, ZeroWeightsOnActivePointsGiveUnscaledSum) {
    // At u = 0.25 the quadratic's basis is 0.25, 0.625, 0.125, 0 (see the hand computation
    // above); the last point, the only one with a nonzero weight, is inactive there.
    RvNURBS c = MakeCurve(2,
                          {NURBSPoint(1, 1, 1, 0), NURBSPoint(1, 2, 0, 0), NURBSPoint(3, 2, 0, 0),
                           NURBSPoint(4, 0, 0, 5)},
                          {0, 0, 0, 0.5, 1, 1, 1});
    // Every coefficient is 0, so the sum is (0, 0, 0) and is not divided (no NaN).
    EXPECT_TRUE(PointIs(c.Eval(0.25), 0, 0, 0));
}

TEST(RvNURBSTest, CoefficientsSummingToExactlyZeroGiveUnscaledSum) {
    // Weights 1, 0, -2, 1 at u = 0.25: coefficients 0.25, 0, -0.25, 0 sum to exactly 0, so the
    // result is 0.25 (0, 0) - 0.25 (3, 2) = (-0.75, -0.5) without division.
    RvNURBS c = MakeCurve(2,
                          {NURBSPoint(0, 0, 0, 1), NURBSPoint(1, 2, 0, 0), NURBSPoint(3, 2, 0, -2),
                           NURBSPoint(4, 0, 0, 1)},
                          {0, 0, 0, 0.5, 1, 1, 1});
    ExpectXyzNear(c.Eval(0.25), -0.75, -0.5, 0.0, 1e-15);
}

TEST(RvNURBSTest, EmptyCurveEvaluatesToOrigin) {
    RvNURBS c;
    EXPECT_TRUE(PointIs(c.Eval(0.5), 0, 0, 0));
}

TEST(RvNURBSTest, NegativeDegreeHasNoBasis) {
    RvNURBS c = MakeCurve(0, {NURBSPoint(0, 0, 0, 1)}, {0, 1});
    EXPECT_DOUBLE_EQ(c.N_ip(0, -1, 0.5), 0.0);
}

// ---- Reads past the knots or points ------------------------------------------------------------

TEST(RvNURBSTest, BasisPastTheKnotsRaisesCheckedSubscriptError) {
    RvNURBS c = MakeCurve(1, {NURBSPoint(0, 0, 0, 1), NURBSPoint(1, 0, 0, 1)}, {0, 0, 1, 1});
    // N(2,1) needs knot 4; only 0..3 exist.
    ExpectThrowWithMessage<std::out_of_range>([&] { c.N_ip(2, 1, 0.5); }, kInvalidSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { c.N_ip(-1, 1, 0.5); }, kInvalidSubscript);
    // u at or above t[3] = 1 reads t[4] in degree 0.
    ExpectThrowWithMessage<std::out_of_range>([&] { c.N_ip(3, 0, 1.0); }, kInvalidSubscript);
}

TEST(RvNURBSTest, CoefficientPastThePointsOrKnotsRaisesCheckedSubscriptError) {
    RvNURBS c = MakeCurve(1, {NURBSPoint(0, 0, 0, 1), NURBSPoint(1, 0, 0, 1)}, {0, 0, 1, 1, 2});
    // Control point 2 does not exist, though knots up to index 4 do.
    ExpectThrowWithMessage<std::out_of_range>([&] { c.GetKoef(0.5, 2); }, kInvalidSubscript);
    // Control point 3 lacks knot 5.
    ExpectThrowWithMessage<std::out_of_range>([&] { c.GetKoef(0.5, 3); }, kInvalidSubscript);
}

TEST(RvNURBSTest, EvalOfCurveShortOfKnotsRaisesCheckedSubscriptError) {
    // Degree 2 with three points needs six knots; four are stored.
    RvNURBS c;
    c.SetExponent(2);
    c.SetNumberOfControlPoints(3);
    c.SetNumberOfKnots(4);
    c.AddControlPoint(NURBSPoint(0, 0, 0, 1));
    c.AddControlPoint(NURBSPoint(1, 1, 0, 1));
    c.AddControlPoint(NURBSPoint(2, 0, 0, 1));
    for (const double k : {0.0, 0.0, 1.0, 1.0}) {
        c.AddKnot(k);
    }
    ExpectThrowWithMessage<std::out_of_range>([&] { c.Eval(0.5); }, kInvalidSubscript);
}

// ---- Length and sampling -----------------------------------------------------------------------

TEST(RvNURBSTest, LenghtIsControlPolygonLengthOverSegmentLength) {
    // 10 long, segment length 2: 5 steps.
    RvNURBS c = TenLongSegment(2.0);
    EXPECT_DOUBLE_EQ(c.Lenght(), 5.0);
}

TEST(RvNURBSTest, LenghtMeasuresControlPolygonInSpace) {
    // Polygon (0,0,0) -> (0,0,3) -> (4,0,3): 3 + 4 = 7, over 0.5 gives 14; the curve itself
    // (degree 2 here) is shorter, but only the polygon counts.
    RvNURBS c =
        MakeCurve(2, {NURBSPoint(0, 0, 0, 1), NURBSPoint(0, 0, 3, 1), NURBSPoint(4, 0, 3, 1)},
                  {0, 0, 0, 1, 1, 1}, 0.5);
    EXPECT_DOUBLE_EQ(c.Lenght(), 14.0);
}

TEST(RvNURBSTest, LenghtOfFewerThanTwoPointsIsZero) {
    RvNURBS c = MakeCurve(0, {NURBSPoint(3, 4, 0, 1)}, {0, 1}, 2.0);
    EXPECT_DOUBLE_EQ(c.Lenght(), 0.0);
}

TEST(RvNURBSTest, LenghtWithZeroSegmentLengthIsTheDivisionsResult) {
    RvNURBS c = TenLongSegment(0.0);
    EXPECT_TRUE(std::isinf(c.Lenght()));
    EXPECT_GT(c.Lenght(), 0.0);
    RvNURBS single = MakeCurve(0, {NURBSPoint(3, 4, 0, 1)}, {0, 1}, 0.0);
    EXPECT_TRUE(std::isnan(single.Lenght()));  // 0 / 0
}

TEST(RvNURBSTest, PolyLineOfTenLongSegmentWithSegmentTwoHasSevenPoints) {
    // Lenght 5, n = trunc(5 + 1) = 6: parameters i / 6, points (6, 8) * i / 6 = (i, 4i/3).
    RvNURBS c = TenLongSegment(2.0);
    RvPolyLine2D out;
    c.GetPolyLine(&out);
    ASSERT_EQ(out.size(), 7u);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double x = static_cast<double>(i);
        ExpectXyzNear(out[i], x, 4.0 * x / 3.0, 0.0, 1e-12);
        ExpectPlanarNear(out[i], x, 4.0 * x / 3.0, 1e-12);
    }
}

TEST(RvNURBSTest, PolyLinePointsKeepSpaceCoordinatesAndPlanarPair) {
    // Degree 1 from (0, 0, 0) to (0, 0, 4) with segment 4: Lenght 1, n = 2, three points at
    // z = 0, 2, 4; the planar pair is the space x, y.
    RvNURBS c = MakeCurve(1, {NURBSPoint(0, 0, 0, 1), NURBSPoint(0, 0, 4, 1)}, {0, 0, 1, 1}, 4.0);
    RvPolyLine2D out;
    c.GetPolyLine(&out);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_TRUE(HasValues(out[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(out[1], 0, 0, 2, 0, 0));
    EXPECT_TRUE(HasValues(out[2], 0, 0, 4, 0, 0));
}

TEST(RvNURBSTest, PolyLineAppendsAfterExistingVerticesWithoutClearing) {
    RvNURBS c = TenLongSegment(2.0);
    RvPolyLine2D out;
    out.push_backA(RvPoint2D(-5, -5));
    out.push_backA(RvPoint2D(-6, -6));
    c.GetPolyLine(&out);
    ASSERT_EQ(out.size(), 9u);
    EXPECT_TRUE(HasValues(out[0], -5, -5, 0, -5, -5));
    EXPECT_TRUE(HasValues(out[1], -6, -6, 0, -6, -6));
    ExpectXyzNear(out[2], 0, 0, 0, 1e-12);
    ExpectXyzNear(out[8], 6, 8, 0, 1e-12);
}

TEST(RvNURBSTest, RationalQuarterCircleSamplesLieOnUnitCircle) {
    // The conic arc with the middle weight cos(45 deg) = 1 / sqrt(2) is the exact quarter circle.
    const double w = 1.0 / std::sqrt(2.0);
    // Polygon length 2, segment 0.1: Lenght 20 (within rounding), n = 20 or 21.
    RvNURBS c =
        MakeCurve(2, {NURBSPoint(1, 0, 0, 1), NURBSPoint(1, 1, 0, w), NURBSPoint(0, 1, 0, 1)},
                  {0, 0, 0, 1, 1, 1}, 0.1);
    RvPolyLine2D out;
    c.GetPolyLine(&out);
    ASSERT_GE(out.size(), 21u);
    for (std::size_t i = 0; i < out.size(); ++i) {
        EXPECT_NEAR(std::hypot(out[i].x, out[i].y), 1.0, 1e-12) << "sample " << i;
        EXPECT_NEAR(out[i].z, 0.0, 1e-12);
        EXPECT_GE(out[i].x, -1e-12);
        EXPECT_GE(out[i].y, -1e-12);
    }
    ExpectXyzNear(out[0], 1, 0, 0, 1e-12);
    ExpectXyzNear(out[out.size() - 1], 0, 1, 0, 1e-12);
    // By symmetry of the weights, u = 0.5 is the middle of the arc, (1, 1) / sqrt(2).
    ExpectXyzNear(c.Eval(0.5), w, w, 0.0, 1e-12);
}

TEST(RvNURBSTest, PolyLineOfCurveShortOfKnotsAppendsNothing) {
    // Degree 2 with four points reads knots up to index 6; six are stored (declared 6, so the
    // declared numbers are inconsistent too).
    RvNURBS c = MakeCurve(2,
                          {NURBSPoint(0, 0, 0, 1), NURBSPoint(1, 2, 0, 1), NURBSPoint(3, 2, 0, 1),
                           NURBSPoint(4, 0, 0, 1)},
                          {0, 0, 0, 1, 1, 1});
    EXPECT_FALSE(c.CheckConsistency());
    RvPolyLine2D out;
    out.push_backA(RvPoint2D(7, 7));
    c.GetPolyLine(&out);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 7, 7, 0, 7, 7));
    // One knot more is exactly enough.
    c.SetNumberOfKnots(7);
    EXPECT_TRUE(c.AddKnot(1.0));
    c.GetPolyLine(&out);
    EXPECT_GT(out.size(), 1u);
}

TEST(RvNURBSTest, PolyLineAcceptsSurplusKnotsOfInconsistentCurve) {
    // Five knots for degree 1 and two points (four needed): the evaluation reads nothing past
    // them, so sampling goes ahead though the declared numbers are inconsistent.
    RvNURBS c =
        MakeCurve(1, {NURBSPoint(0, 0, 0, 1), NURBSPoint(6, 8, 0, 1)}, {0, 0, 1, 1, 1}, 2.0);
    EXPECT_FALSE(c.CheckConsistency());
    RvPolyLine2D out;
    c.GetPolyLine(&out);
    EXPECT_EQ(out.size(), 7u);
}

TEST(RvNURBSTest, PolyLineOfNegativeDegreeAppendsNothing) {
    RvNURBS c = TenLongSegment(2.0);
    c.SetExponent(-1);
    RvPolyLine2D out;
    c.GetPolyLine(&out);
    EXPECT_TRUE(out.empty());
}

TEST(RvNURBSTest, PolyLineWithZeroSegmentLengthLeavesOutUnchanged) {
    RvPolyLine2D out;
    out.push_backA(RvPoint2D(1, 2));
    // Lenght infinite.
    RvNURBS c = TenLongSegment(0.0);
    c.GetPolyLine(&out);
    // Lenght 0 / 0, NaN.
    RvNURBS single = MakeCurve(0, {NURBSPoint(3, 4, 0, 1)}, {0, 1}, 0.0);
    single.GetPolyLine(&out);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_TRUE(HasValues(out[0], 1, 2, 0, 1, 2));
}

TEST(RvNURBSTest, PolyLineWithNegativeSegmentLengthLeavesOutUnchanged) {
    RvPolyLine2D out;
    // Lenght -5: n would be -4.
    RvNURBS c = TenLongSegment(-2.0);
    c.GetPolyLine(&out);
    EXPECT_TRUE(out.empty());
    // Lenght -0.5: n would truncate to 0 and sample at 0 / 0; refused too.
    RvNURBS d = TenLongSegment(-20.0);
    d.GetPolyLine(&out);
    EXPECT_TRUE(out.empty());
    // Lenght -infinity and NaN segment length.
    RvNURBS e = TenLongSegment(-0.0);
    e.GetPolyLine(&out);
    RvNURBS f = TenLongSegment(std::numeric_limits<double>::quiet_NaN());
    f.GetPolyLine(&out);
    EXPECT_TRUE(out.empty());
}

TEST(RvNURBSTest, PolyLineRefusesStepCountsBeyondLimit) {
    // 10 / 1e-9 = 1e10 steps would overflow an int.
    RvPolyLine2D out;
    RvNURBS c = TenLongSegment(1e-9);
    c.GetPolyLine(&out);
    EXPECT_TRUE(out.empty());
    // Exactly the limit as Lenght would make n one more than the limit: refused.
    RvNURBS d =
        MakeCurve(1, {NURBSPoint(0, 0, 0, 1), NURBSPoint(RvNURBS::kMaxPolyLineSteps, 0, 0, 1)},
                  {0, 0, 1, 1}, 1.0);
    EXPECT_DOUBLE_EQ(d.Lenght(), static_cast<double>(RvNURBS::kMaxPolyLineSteps));
    d.GetPolyLine(&out);
    EXPECT_TRUE(out.empty());
}

TEST(RvNURBSTest, PolyLineOfSinglePointCurveHasTwoCopiesOfIt) {
    // Lenght 0, n = 1: parameters 0 and 1, both in the closed span [0, 1] of degree 0.
    RvNURBS c = MakeCurve(0, {NURBSPoint(3, 4, 5, 2)}, {0, 1}, 1.0);
    RvPolyLine2D out;
    c.GetPolyLine(&out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_TRUE(HasValues(out[0], 3, 4, 5, 3, 4));
    EXPECT_TRUE(HasValues(out[1], 3, 4, 5, 3, 4));
}

TEST(RvNURBSTest, PolyLineIntoNullOutputDoesNothing) {
    RvNURBS c = TenLongSegment(2.0);
    c.GetPolyLine(nullptr);  // must not crash
    EXPECT_DOUBLE_EQ(c.Lenght(), 5.0);
}

}  // namespace
}  // namespace ravelin
