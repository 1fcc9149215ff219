#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "ravelin/numeric/Number.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/AfxMessageBox.h"
#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CObject.h"
#include "ravelin/platform/CPoint.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// A point whose position in space is far from its planar position, so that a test reading the
// wrong pair would notice.
RvPoint2D Planar(double x2D, double y2D) {
    return RvPoint2D(x2D, y2D, -70.0, 55.0, 9.0);
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction and assignment

TEST(RvPoint2DConstruction, DefaultIsAllZero) {
    const RvPoint2D p;
    EXPECT_TRUE(HasValues(p, 0, 0, 0, 0, 0));
}

TEST(RvPoint2DConstruction, TwoValuesSetBothPositionsWithZeroZ) {
    const RvPoint2D p(1.5, -2.5);
    EXPECT_TRUE(HasValues(p, 1.5, -2.5, 0, 1.5, -2.5));
}

TEST(RvPoint2DConstruction, ThreeValuesSetSpaceAndPlanarPairFromXY) {
    const RvPoint2D p(1.5, -2.5, 7.0);
    EXPECT_TRUE(HasValues(p, 1.5, -2.5, 7.0, 1.5, -2.5));
}

TEST(RvPoint2DConstruction, FiveValuesPutPlanarPairFirst) {
    const RvPoint2D p(1, 2, 3, 4, 5);
    EXPECT_EQ(p.x, 3.0);
    EXPECT_EQ(p.y, 4.0);
    EXPECT_EQ(p.z, 5.0);
    EXPECT_EQ(p.x2D, 1.0);
    EXPECT_EQ(p.y2D, 2.0);
}

TEST(RvPoint2DConstruction, CopyKeepsAllFiveValues) {
    const RvPoint2D source(1, 2, 3, 4, 5);
    const RvPoint2D copy(source);
    EXPECT_TRUE(HasValues(copy, 3, 4, 5, 1, 2));
}

TEST(RvPoint2DConstruction, FromPointInSpaceTakesPlanarPairFromXY) {
    const RvPoint3D source(6.0, -7.0, 8.0);
    const RvPoint2D p(source);
    EXPECT_TRUE(HasValues(p, 6, -7, 8, 6, -7));
}

TEST(RvPoint2DConstruction, ImplicitConversionFromPointInSpace) {
    const RvPoint2D p = RvPoint3D(6.0, -7.0, 8.0);
    EXPECT_TRUE(HasValues(p, 6, -7, 8, 6, -7));
}

TEST(RvPoint2DConstruction, OwnFieldsStandOrdinateFirst) {
    // The planar ordinate is declared before the abscissa.
    RvPoint2D p;
    EXPECT_LT(static_cast<void*>(&p.y2D), static_cast<void*>(&p.x2D));
}

TEST(RvPoint2DSet, ThreeValuesSetSpaceAndPlanarPairFromXY) {
    RvPoint2D p(1, 2, 3, 4, 5);
    p.Set(10.0, 20.0, 30.0);
    EXPECT_TRUE(HasValues(p, 10, 20, 30, 10, 20));
}

TEST(RvPoint2DSet, FiveValuesSetPlanarPairIndependently) {
    RvPoint2D p;
    p.Set(1.0, 2.0, 3.0, 4.0, 5.0);
    EXPECT_TRUE(HasValues(p, 3, 4, 5, 1, 2));
}

TEST(RvPoint2DAssignment, FromPlanarPointCopiesAllFive) {
    RvPoint2D p(9, 9, 9, 9, 9);
    const RvPoint2D source(1, 2, 3, 4, 5);
    RvPoint2D& result = (p = source);
    EXPECT_EQ(&result, &p);
    EXPECT_TRUE(HasValues(p, 3, 4, 5, 1, 2));
}

TEST(RvPoint2DAssignment, FromPointInSpaceTakesPlanarPairFromXY) {
    RvPoint2D p(9, 9, 9, 9, 9);
    RvPoint2D& result = (p = RvPoint3D(6.0, -7.0, 8.0));
    EXPECT_EQ(&result, &p);
    EXPECT_TRUE(HasValues(p, 6, -7, 8, 6, -7));
}

TEST(RvPoint2DResetCoord2D, BringsPlanarPairBackToXY) {
    RvPoint2D p(1, 2, 3, 4, 5);
    p.ResetCoord2D();
    EXPECT_EQ(p.x2D, 3.0);
    EXPECT_EQ(p.y2D, 4.0);
    EXPECT_EQ(p.x, 3.0);
    EXPECT_EQ(p.y, 4.0);
    EXPECT_EQ(p.z, 5.0);
}

// ---------------------------------------------------------------------------------------------
// Arithmetic

TEST(RvPoint2DArithmetic, AdditionActsOnAllFive) {
    const RvPoint2D p(1, 2, 3, 4, 5);
    const RvPoint2D q(10, 20, 30, 40, 50);
    EXPECT_TRUE(HasValues(p + q, 33, 44, 55, 11, 22));
}

TEST(RvPoint2DArithmetic, SubtractionActsOnAllFive) {
    const RvPoint2D p(1, 2, 3, 4, 5);
    const RvPoint2D q(10, 20, 30, 40, 50);
    EXPECT_TRUE(HasValues(q - p, 27, 36, 45, 9, 18));
}

TEST(RvPoint2DArithmetic, ScalingActsOnAllFive) {
    const RvPoint2D p(1, 2, 3, 4, 5);
    EXPECT_TRUE(HasValues(p * 2.0, 6, 8, 10, 2, 4));
    EXPECT_TRUE(HasValues(p * -0.5, -1.5, -2, -2.5, -0.5, -1));
}

TEST(RvPoint2DArithmetic, DivisionActsOnAllFive) {
    const RvPoint2D p(1, 2, 3, 4, 5);
    EXPECT_TRUE(HasValues(p / 2.0, 1.5, 2, 2.5, 0.5, 1));
}

TEST(RvPoint2DArithmetic, ResultsArePlanarPoints) {
    const RvPoint2D p;
    static_assert(std::is_same_v<decltype(p + p), RvPoint2D>);
    static_assert(std::is_same_v<decltype(p - p), RvPoint2D>);
    static_assert(std::is_same_v<decltype(p * 2.0), RvPoint2D>);
    static_assert(std::is_same_v<decltype(p / 2.0), RvPoint2D>);
    EXPECT_TRUE(HasValues(p + p, 0, 0, 0, 0, 0));
}

TEST(RvPoint2DArithmetic, CompoundAdditionActsOnAllFiveAndReturnsSelf) {
    RvPoint2D p(1, 2, 3, 4, 5);
    const RvPoint2D q(10, 20, 30, 40, 50);
    RvPoint2D& result = (p += q);
    EXPECT_EQ(&result, &p);
    EXPECT_TRUE(HasValues(p, 33, 44, 55, 11, 22));
}

TEST(RvPoint2DArithmetic, CompoundDivisionActsOnAllFiveAndReturnsSelf) {
    RvPoint2D p(1, 2, 3, 4, 5);
    RvPoint2D& result = (p /= 4.0);
    EXPECT_EQ(&result, &p);
    EXPECT_TRUE(HasValues(p, 0.75, 1, 1.25, 0.25, 0.5));
}

TEST(RvPoint2DArithmetic, AddingPointInSpaceAlsoMovesPlanarPairByItsXY) {
    RvPoint2D p(1, 2, 3, 4, 5);
    RvPoint2D& result = (p += RvPoint3D(10.0, 20.0, 30.0));
    EXPECT_EQ(&result, &p);
    // x, y, z gain 10, 20, 30; the planar pair gains 10, 20.
    EXPECT_TRUE(HasValues(p, 13, 24, 35, 11, 22));
}

TEST(RvPoint2DArithmetic, InheritedSubtractionChangesOnlySpace) {
    RvPoint2D p(1, 2, 3, 4, 5);
    const RvPoint2D q(10, 20, 30, 40, 50);
    p -= q;
    EXPECT_TRUE(HasValues(p, -27, -36, -45, 1, 2));
}

TEST(RvPoint2DArithmetic, InheritedScalingChangesOnlySpace) {
    RvPoint2D p(1, 2, 3, 4, 5);
    p *= 3.0;
    EXPECT_TRUE(HasValues(p, 9, 12, 15, 1, 2));
}

// ---------------------------------------------------------------------------------------------
// Planar measures

TEST(RvPoint2DGetSize2D, ReadsOnlyPlanarPair) {
    const RvPoint2D p(3.0, -4.0, 100.0, 200.0, 300.0);
    static_assert(std::is_same_v<decltype(p.GetSize2D()), double>);
    EXPECT_DOUBLE_EQ(p.GetSize2D(), 5.0);
}

TEST(RvPoint2DGetSize2D, ZeroPlanarPairHasZeroSize) {
    const RvPoint2D p(0.0, 0.0, 1.0, 1.0, 1.0);
    EXPECT_EQ(p.GetSize2D(), 0.0);
}

TEST(RvPoint2DGetDistance2D, ReadsOnlyPlanarPair) {
    const RvPoint2D p(1.0, 1.0, 0.0, 0.0, 0.0);
    const RvPoint2D q(4.0, 5.0, 100.0, -100.0, 50.0);
    static_assert(std::is_same_v<decltype(p.GetDistance2D(q)), double>);
    EXPECT_DOUBLE_EQ(p.GetDistance2D(q), 5.0);
    EXPECT_DOUBLE_EQ(q.GetDistance2D(p), 5.0);
}

// ---------------------------------------------------------------------------------------------
// Swap, Normalize, Round

TEST(RvPoint2DSwap, ExchangesAllFiveValues) {
    RvPoint2D p(1, 2, 3, 4, 5);
    RvPoint2D q(10, 20, 30, 40, 50);
    p.Swap(q);
    EXPECT_TRUE(HasValues(p, 30, 40, 50, 10, 20));
    EXPECT_TRUE(HasValues(q, 3, 4, 5, 1, 2));
}

TEST(RvPoint2DNormalize, DividesPlanarPairAndNormalisesSpace) {
    MessageBoxRecorder boxes;
    // Planar pair (3, 4) has length 5; the point in space (1, 2, 2) has length 3.
    RvPoint2D p(3.0, 4.0, 1.0, 2.0, 2.0);
    p.Normalize();
    EXPECT_DOUBLE_EQ(p.x2D, 0.6);
    EXPECT_DOUBLE_EQ(p.y2D, 0.8);
    EXPECT_DOUBLE_EQ(p.x, 1.0 / 3.0);
    EXPECT_DOUBLE_EQ(p.y, 2.0 / 3.0);
    EXPECT_DOUBLE_EQ(p.z, 2.0 / 3.0);
    EXPECT_EQ(boxes.calls().size(), 0u);
}

TEST(RvPoint2DNormalize, PlanarPairAndSpaceAreNormalisedIndependently) {
    MessageBoxRecorder boxes;
    RvPoint2D p(0.0, -2.0, 0.0, 0.0, 7.0);
    p.Normalize();
    EXPECT_DOUBLE_EQ(p.x2D, 0.0);
    EXPECT_DOUBLE_EQ(p.y2D, -1.0);
    EXPECT_DOUBLE_EQ(p.x, 0.0);
    EXPECT_DOUBLE_EQ(p.y, 0.0);
    EXPECT_DOUBLE_EQ(p.z, 1.0);
}

TEST(RvPoint2DNormalize, NullSpaceStaysAndWarnsOnceWhilePlanarPairIsNormalised) {
    MessageBoxRecorder boxes;
    RvPoint3D::Activate_Normalize_Warning_ERR();
    RvPoint2D p(3.0, 4.0, 0.0, 0.0, 0.0);
    p.Normalize();
    EXPECT_DOUBLE_EQ(p.x2D, 0.6);
    EXPECT_DOUBLE_EQ(p.y2D, 0.8);
    EXPECT_EQ(p.x, 0.0);
    EXPECT_EQ(p.y, 0.0);
    EXPECT_EQ(p.z, 0.0);
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].type, 0u);
    EXPECT_EQ(boxes.calls()[0].helpId, 0u);

    // The warning is one-shot until it is armed again.
    RvPoint2D q(3.0, 4.0, 0.0, 0.0, 0.0);
    q.Normalize();
    EXPECT_EQ(boxes.calls().size(), 1u);
}

TEST(RvPoint2DNormalize, NullPlanarPairIsDividedByZeroWithoutGuard) {
    MessageBoxRecorder boxes;
    // 0 / 0 in both planar values; the point in space is normalised as usual.
    RvPoint2D p(0.0, 0.0, 0.0, 0.0, 2.0);
    p.Normalize();
    EXPECT_TRUE(std::isnan(p.x2D));
    EXPECT_TRUE(std::isnan(p.y2D));
    EXPECT_DOUBLE_EQ(p.z, 1.0);
    EXPECT_EQ(boxes.calls().size(), 0u);
}

TEST(RvPoint2DRound, RoundsAllFiveHalvesAwayFromZero) {
    // Four steps per unit: 0.375 is 1.5 steps, 1.125 is 4.5 steps; all values are exact.
    RvPoint2D p(1.125, -1.125, 0.375, -0.375, 0.1);
    p.Round(4);
    EXPECT_EQ(p.x, 0.5);
    EXPECT_EQ(p.y, -0.5);
    EXPECT_EQ(p.z, 0.0);
    EXPECT_EQ(p.x2D, 1.25);
    EXPECT_EQ(p.y2D, -1.25);
}

TEST(RvPoint2DRound, RoundsToTenthsOnEveryValue) {
    // 0.26 * 10 + 0.5 = 3.1, floor 3, / 10 = 0.3; -0.26 goes to -0.3 by the mirror rule.
    RvPoint2D p(0.26, -0.26, 0.26, -0.26, 0.24);
    p.Round(10);
    EXPECT_DOUBLE_EQ(p.x, 0.3);
    EXPECT_DOUBLE_EQ(p.y, -0.3);
    EXPECT_DOUBLE_EQ(p.z, 0.2);
    EXPECT_DOUBLE_EQ(p.x2D, 0.3);
    EXPECT_DOUBLE_EQ(p.y2D, -0.3);
}

// ---------------------------------------------------------------------------------------------
// Equality and order

TEST(RvPoint2DEquality, EqualWithinBoxOfOneHundredthOnEachValue) {
    const RvPoint2D base(0, 0, 0, 0, 0);
    for (int field = 0; field < 5; ++field) {
        SCOPED_TRACE("field " + std::to_string(field));
        for (const double offset : {0.005, -0.005}) {
            double v[5] = {0, 0, 0, 0, 0};
            v[field] = offset;
            const RvPoint2D other(v[3], v[4], v[0], v[1], v[2]);
            EXPECT_TRUE(base == other);
            EXPECT_TRUE(other == base);
            EXPECT_FALSE(base != other);
        }
    }
}

TEST(RvPoint2DEquality, DifferenceOfExactlyOneHundredthInAnyValueIsUnequal) {
    // 0 + 0.01 > 0.01 and 0 - 0.01 < -0.01 are both false: the box is strict.
    const RvPoint2D base(0, 0, 0, 0, 0);
    for (int field = 0; field < 5; ++field) {
        SCOPED_TRACE("field " + std::to_string(field));
        for (const double offset : {0.01, -0.01}) {
            double v[5] = {0, 0, 0, 0, 0};
            v[field] = offset;
            const RvPoint2D other(v[3], v[4], v[0], v[1], v[2]);
            EXPECT_FALSE(base == other);
            EXPECT_FALSE(other == base);
            EXPECT_TRUE(base != other);
        }
    }
}

TEST(RvPoint2DEquality, SamePlanarPairButZApartIsUnequalYetXyorderIsZero) {
    const RvPoint2D a(1.0, 2.0, 1.0, 2.0, 0.0);
    const RvPoint2D b(1.0, 2.0, 1.0, 2.0, 1.0);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
    EXPECT_EQ(a.xyorder(b), 0);
    EXPECT_EQ(b.xyorder(a), 0);
}

TEST(RvPoint2DEquality, SameSpaceButPlanarPairApartIsUnequal) {
    const RvPoint2D a(1.0, 2.0, 5.0, 6.0, 7.0);
    const RvPoint2D b(1.5, 2.0, 5.0, 6.0, 7.0);
    EXPECT_FALSE(a == b);
}

TEST(RvPoint2DOrder, LessOrdersPointsOneTrillionthApartThatAreEqual) {
    const RvPoint2D a(1.0, 5.0);
    const RvPoint2D b(1.0 + 1e-12, 5.0);
    ASSERT_NE(a.x2D, b.x2D);
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
}

TEST(RvPoint2DOrder, LessWithEqualAbscissaDecidesOnOrdinate) {
    const RvPoint2D a = Planar(1.0, 2.0);
    const RvPoint2D b = Planar(1.0, 3.0);
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
}

TEST(RvPoint2DOrder, LessOnSmallerAbscissaIgnoresOrdinate) {
    const RvPoint2D a = Planar(1.0, 9.0);
    const RvPoint2D b = Planar(2.0, -9.0);
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
}

TEST(RvPoint2DOrder, LessIsFalseForIdenticalPlanarPairs) {
    const RvPoint2D a(1.0, 2.0, 0.0, 0.0, 0.0);
    const RvPoint2D b(1.0, 2.0, 50.0, 60.0, 70.0);
    EXPECT_FALSE(a < b);
    EXPECT_FALSE(b < a);
}

TEST(RvPoint2DOrder, LessReadsOnlyPlanarPair) {
    // In space a lies far after b; in the plane it lies before.
    const RvPoint2D a(1.0, 2.0, 100.0, 100.0, 100.0);
    const RvPoint2D b(2.0, 2.0, -100.0, -100.0, -100.0);
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(a > b);
}

TEST(RvPoint2DOrder, GreaterOnLargerAbscissaIgnoresOrdinate) {
    const RvPoint2D a = Planar(2.0, -9.0);
    const RvPoint2D b = Planar(1.0, 9.0);
    EXPECT_TRUE(a > b);
    EXPECT_FALSE(b > a);
}

TEST(RvPoint2DOrder, GreaterWithEqualAbscissaDecidesOnOrdinate) {
    const RvPoint2D a = Planar(1.0, 3.0);
    const RvPoint2D b = Planar(1.0, 2.0);
    EXPECT_TRUE(a > b);
    EXPECT_FALSE(b > a);
}

TEST(RvPoint2DOrder, GreaterIsExactAndFalseForIdenticalPairs) {
    const RvPoint2D a = Planar(1.0 + 1e-12, 0.0);
    const RvPoint2D b = Planar(1.0, 0.0);
    EXPECT_TRUE(a > b);
    EXPECT_FALSE(b > a);
    EXPECT_FALSE(b > Planar(1.0, 0.0));
}

TEST(RvPoint2DXyorder, ZeroWithinOneHundredthOnPlanarPair) {
    const RvPoint2D a(1.0, 2.0, 0.0, 0.0, 0.0);
    const RvPoint2D b(1.005, 1.995, 30.0, -40.0, 50.0);
    EXPECT_EQ(a.xyorder(b), 0);
    EXPECT_EQ(b.xyorder(a), 0);
}

TEST(RvPoint2DXyorder, ExactOrderOnAbscissaFirst) {
    const RvPoint2D a = Planar(1.0, 5.0);
    const RvPoint2D b = Planar(2.0, -5.0);
    EXPECT_EQ(a.xyorder(b), -1);
    EXPECT_EQ(b.xyorder(a), 1);
}

TEST(RvPoint2DXyorder, EqualAbscissaDecidesOnOrdinate) {
    const RvPoint2D a = Planar(1.0, 2.0);
    const RvPoint2D b = Planar(1.0, 3.0);
    EXPECT_EQ(a.xyorder(b), -1);
    EXPECT_EQ(b.xyorder(a), 1);
}

TEST(RvPoint2DXyorder, AbscissaWithinBoxStillDecidesExactlyWhenOrdinatesDiffer) {
    // Not box-equal (the ordinates are 1 apart), so the exact abscissa comparison decides,
    // although the abscissae are only 0.005 apart and the ordinates point the other way.
    const RvPoint2D a = Planar(0.005, 0.0);
    const RvPoint2D b = Planar(0.0, 1.0);
    EXPECT_EQ(a.xyorder(b), 1);
    EXPECT_EQ(b.xyorder(a), -1);
}

TEST(RvPoint2DXyorder, DifferenceOfExactlyOneHundredthIsOrdered) {
    const RvPoint2D a = Planar(0.0, 0.0);
    EXPECT_EQ(a.xyorder(Planar(0.01, 0.0)), -1);
    EXPECT_EQ(a.xyorder(Planar(-0.01, 0.0)), 1);
    EXPECT_EQ(a.xyorder(Planar(0.0, 0.01)), -1);
    EXPECT_EQ(a.xyorder(Planar(0.0, -0.01)), 1);
}

TEST(RvPoint2DXyorder, IgnoresPositionInSpace) {
    const RvPoint2D a(1.0, 2.0, 0.0, 0.0, 0.0);
    const RvPoint2D b(1.0, 2.0, 10.0, 20.0, 30.0);
    EXPECT_EQ(a.xyorder(b), 0);
    const RvPoint2D c(5.0, 2.0, 0.0, 0.0, 0.0);
    EXPECT_EQ(a.xyorder(c), -1);
}

TEST(RvPoint2DXyorder, UnorderedAbscissaWithEqualOrdinateGivesZero) {
    // NaN abscissae are neither box-equal nor ordered; equal ordinates leave the final 0.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const RvPoint2D a = Planar(nan, 2.0);
    const RvPoint2D b = Planar(nan, 2.0);
    EXPECT_EQ(a.xyorder(b), 0);
    EXPECT_EQ(a.xyorder(Planar(nan, 3.0)), -1);
    EXPECT_EQ(a.xyorder(Planar(nan, 1.0)), 1);
}

// ---------------------------------------------------------------------------------------------
// GetPOINT

TEST(RvPoint2DGetPOINT, RoundsHalvesAwayFromZero) {
    const tagPOINT p = Planar(2.5, -2.5).GetPOINT();
    EXPECT_EQ(p.x, 3);
    EXPECT_EQ(p.y, -3);
}

TEST(RvPoint2DGetPOINT, SmallValuesRoundToZero) {
    const tagPOINT p = Planar(0.0, 0.4).GetPOINT();
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 0);
}

TEST(RvPoint2DGetPOINT, NegativeBelowHalfGivesZeroAndPositiveHalfGivesOne) {
    const tagPOINT p = Planar(-0.4, 0.5).GetPOINT();
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 1);
}

TEST(RvPoint2DGetPOINT, ReadsOnlyPlanarPair) {
    const tagPOINT p = RvPoint2D(10.2, -7.7, 500.0, 600.0, 700.0).GetPOINT();
    EXPECT_EQ(p.x, 10);
    EXPECT_EQ(p.y, -8);
}

TEST(RvPoint2DGetPOINT, HugeValuesSaturateToIntegerLimits) {
    const tagPOINT p = Planar(1e20, -1e20).GetPOINT();
    EXPECT_EQ(p.x, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(p.y, std::numeric_limits<std::int32_t>::min());
    const double inf = std::numeric_limits<double>::infinity();
    const tagPOINT q = Planar(-inf, inf).GetPOINT();
    EXPECT_EQ(q.x, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(q.y, std::numeric_limits<std::int32_t>::max());
}

TEST(RvPoint2DGetPOINT, LargestRepresentableValuesStillRound) {
    // 2147483646.6 + 0.5 truncates to 2147483647; -2147483647.6 - 0.5 to -2147483648.
    const tagPOINT p = Planar(2147483646.6, -2147483647.6).GetPOINT();
    EXPECT_EQ(p.x, 2147483647);
    EXPECT_EQ(p.y, std::numeric_limits<std::int32_t>::min());
}

TEST(RvPoint2DGetPOINT, NaNGivesZero) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const tagPOINT p = Planar(nan, nan).GetPOINT();
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 0);
}

// ---------------------------------------------------------------------------------------------
// IsLeft and IsEqualOrientation

TEST(RvPoint2DIsLeft, PointLeftOfUpwardLineIsPositive) {
    // (0 - 0) * (0 - 0) - (1 - 0) * (-1 - 0) = 1.
    const Number left = Planar(-1.0, 0.0).IsLeft(Planar(0.0, 0.0), Planar(0.0, 1.0));
    EXPECT_DOUBLE_EQ(static_cast<double>(left), 1.0);
    EXPECT_TRUE(left > 0);
}

TEST(RvPoint2DIsLeft, PointRightOfLineIsNegativeAndOnLineIsZero) {
    const RvPoint2D a = Planar(0.0, 0.0);
    const RvPoint2D b = Planar(0.0, 1.0);
    EXPECT_DOUBLE_EQ(static_cast<double>(Planar(1.0, 0.0).IsLeft(a, b)), -1.0);
    EXPECT_DOUBLE_EQ(static_cast<double>(Planar(0.0, 7.0).IsLeft(a, b)), 0.0);
}

TEST(RvPoint2DIsLeft, GrowsWithSegmentLength) {
    // Twice the signed area: the same point against a segment three times as long gives 3.
    const RvPoint2D p = Planar(-1.0, 0.0);
    EXPECT_DOUBLE_EQ(static_cast<double>(p.IsLeft(Planar(0.0, 0.0), Planar(0.0, 3.0))), 3.0);
    EXPECT_DOUBLE_EQ(static_cast<double>(p.IsLeft(Planar(0.0, 0.0), Planar(0.0, 10.0))), 10.0);
}

TEST(RvPoint2DIsLeft, BandComparisonDependsOnSegmentLength) {
    // A point 1e-07 to the left: against a unit segment the result 1e-07 is inside the band,
    // against a segment of length 10 the result 1e-06 is outside it.
    const Number shortSegment = Planar(-1e-07, 0.5).IsLeft(Planar(0.0, 0.0), Planar(0.0, 1.0));
    const Number longSegment = Planar(-1e-07, 5.0).IsLeft(Planar(0.0, 0.0), Planar(0.0, 10.0));
    EXPECT_FALSE(shortSegment > 0);
    EXPECT_TRUE(shortSegment == 0);
    EXPECT_TRUE(longSegment > 0);
}

TEST(RvPoint2DIsLeft, ReadsOnlyPlanarPair) {
    // In space the point lies right of the line; in the plane it lies left.
    const RvPoint2D p(-1.0, 0.0, 5.0, 0.0, 0.0);
    const RvPoint2D a(0.0, 0.0, 0.0, 0.0, 0.0);
    const RvPoint2D b(0.0, 1.0, 0.0, 1.0, 0.0);
    EXPECT_DOUBLE_EQ(static_cast<double>(p.IsLeft(a, b)), 1.0);
}

TEST(RvPoint2DIsEqualOrientation, SameDirectionGivesOne) {
    const RvPoint2D o = Planar(1.0, 1.0);
    EXPECT_EQ(o.IsEqualOrientation(Planar(2.0, 1.0), Planar(5.0, 1.0)), 1);
    EXPECT_EQ(o.IsEqualOrientation(Planar(2.0, 2.0), Planar(4.0, 4.0)), 1);
}

TEST(RvPoint2DIsEqualOrientation, OppositeDirectionGivesMinusOne) {
    const RvPoint2D o = Planar(1.0, 1.0);
    EXPECT_EQ(o.IsEqualOrientation(Planar(2.0, 1.0), Planar(-2.0, 1.0)), -1);
    EXPECT_EQ(o.IsEqualOrientation(Planar(2.0, 2.0), Planar(-1.0, -1.0)), -1);
}

TEST(RvPoint2DIsEqualOrientation, OtherDirectionsGiveZero) {
    const RvPoint2D o = Planar(0.0, 0.0);
    EXPECT_EQ(o.IsEqualOrientation(Planar(1.0, 0.0), Planar(0.0, 1.0)), 0);
    EXPECT_EQ(o.IsEqualOrientation(Planar(1.0, 0.0), Planar(-1.0, 1.0)), 0);
}

TEST(RvPoint2DIsEqualOrientation, CosineLimitIsPointNineNineNineNineNineNine) {
    // Against (1, 0): (1, 0.001) has cosine 1/sqrt(1.000001), about 0.9999995, above the limit;
    // (1, 0.002) has 1/sqrt(1.000004), about 0.999998, below it. Likewise mirrored.
    const RvPoint2D o = Planar(0.0, 0.0);
    const RvPoint2D a = Planar(1.0, 0.0);
    EXPECT_EQ(o.IsEqualOrientation(a, Planar(1.0, 0.001)), 1);
    EXPECT_EQ(o.IsEqualOrientation(a, Planar(1.0, 0.002)), 0);
    EXPECT_EQ(o.IsEqualOrientation(a, Planar(-1.0, 0.001)), -1);
    EXPECT_EQ(o.IsEqualOrientation(a, Planar(-1.0, 0.002)), 0);
}

TEST(RvPoint2DIsEqualOrientation, ZeroVectorGivesZero) {
    const RvPoint2D o = Planar(1.0, 1.0);
    EXPECT_EQ(o.IsEqualOrientation(Planar(1.0, 1.0), Planar(3.0, 1.0)), 0);
    EXPECT_EQ(o.IsEqualOrientation(Planar(3.0, 1.0), Planar(1.0, 1.0)), 0);
    EXPECT_EQ(o.IsEqualOrientation(Planar(1.0, 1.0), Planar(1.0, 1.0)), 0);
}

TEST(RvPoint2DIsEqualOrientation, ReadsOnlyPlanarPair) {
    // In space the vectors point opposite ways; in the plane they point the same way.
    const RvPoint2D o(0.0, 0.0, 0.0, 0.0, 0.0);
    const RvPoint2D a(1.0, 0.0, 1.0, 0.0, 0.0);
    const RvPoint2D b(2.0, 0.0, -1.0, 0.0, 0.0);
    EXPECT_EQ(o.IsEqualOrientation(a, b), 1);
}

// ---------------------------------------------------------------------------------------------
// IsOnSegment2D, two arguments

TEST(RvPoint2DIsOnSegment, AcceptsJustBeyondTheEnd) {
    // Segment (0, 0)-(1, 0): the parameter of (t, 0) is t itself.
    const RvPoint2D a = Planar(0.0, 0.0);
    const RvPoint2D b = Planar(1.0, 0.0);
    EXPECT_TRUE(Planar(1.000005, 0.0).IsOnSegment2D(a, b));
}

TEST(RvPoint2DIsOnSegment, RefusesFurtherBeyondTheEnd) {
    const RvPoint2D a = Planar(0.0, 0.0);
    const RvPoint2D b = Planar(1.0, 0.0);
    EXPECT_FALSE(Planar(1.00002, 0.0).IsOnSegment2D(a, b));
}

TEST(RvPoint2DIsOnSegment, ParameterRangeIsOpen) {
    const RvPoint2D a = Planar(0.0, 0.0);
    const RvPoint2D b = Planar(1.0, 0.0);
    EXPECT_FALSE(Planar(1.00001, 0.0).IsOnSegment2D(a, b));
    EXPECT_TRUE(Planar(1.0000099, 0.0).IsOnSegment2D(a, b));
    EXPECT_FALSE(Planar(-1e-05, 0.0).IsOnSegment2D(a, b));
    EXPECT_TRUE(Planar(-0.99e-05, 0.0).IsOnSegment2D(a, b));
    EXPECT_FALSE(Planar(-0.5, 0.0).IsOnSegment2D(a, b));
}

TEST(RvPoint2DIsOnSegment, AcceptsEndsAndInteriorPoints) {
    const RvPoint2D a = Planar(2.0, 3.0);
    const RvPoint2D b = Planar(6.0, 11.0);
    EXPECT_TRUE(a.IsOnSegment2D(a, b));
    EXPECT_TRUE(b.IsOnSegment2D(a, b));
    EXPECT_TRUE(Planar(4.0, 7.0).IsOnSegment2D(a, b));
}

TEST(RvPoint2DIsOnSegment, DistanceMustBeStrictlyBelowOneThousandth) {
    // Foot (0.5, 0), so the distance is the ordinate itself.
    const RvPoint2D a = Planar(0.0, 0.0);
    const RvPoint2D b = Planar(1.0, 0.0);
    EXPECT_FALSE(Planar(0.5, 0.001).IsOnSegment2D(a, b));
    EXPECT_FALSE(Planar(0.5, -0.001).IsOnSegment2D(a, b));
    EXPECT_TRUE(Planar(0.5, 0.00099).IsOnSegment2D(a, b));
    EXPECT_TRUE(Planar(0.5, -0.00099).IsOnSegment2D(a, b));
}

TEST(RvPoint2DIsOnSegment, ZeroLengthSegmentIsRefusedEvenForItsOwnPoint) {
    const RvPoint2D a = Planar(2.0, 3.0);
    EXPECT_FALSE(a.IsOnSegment2D(a, a));
    // Equal planar pairs with different positions in space still make a zero-length segment.
    const RvPoint2D b(2.0, 3.0, 10.0, 20.0, 30.0);
    EXPECT_FALSE(a.IsOnSegment2D(a, b));
}

TEST(RvPoint2DIsOnSegment, ReadsOnlyPlanarPair) {
    // On the segment in the plane, off it in space.
    const RvPoint2D a(0.0, 0.0, 0.0, 0.0, 0.0);
    const RvPoint2D b(10.0, 0.0, 10.0, 0.0, 0.0);
    EXPECT_TRUE(RvPoint2D(5.0, 0.0, 5.0, 7.0, 3.0).IsOnSegment2D(a, b));
    // On the segment in space, off it in the plane.
    EXPECT_FALSE(RvPoint2D(5.0, 7.0, 5.0, 0.0, 0.0).IsOnSegment2D(a, b));
}

// ---------------------------------------------------------------------------------------------
// IsOnSegment2D with a tolerance
//
// Most cases put the foot at t = 0.5 with integer coordinates, so that the foot and the
// distance are exact and only the cursor geometry is being tested.

TEST(RvPoint2DIsOnSegmentTolerance, DistanceWithinToleranceReturnsIt) {
    // Segment (0, 0)-(10, 0), point (5, 0.25): foot (5, 0), distance 0.25 <= 1.
    double tol = 1.0;
    EXPECT_TRUE(Planar(5.0, 0.25).IsOnSegment2D(Planar(0.0, 0.0), Planar(10.0, 0.0), tol));
    EXPECT_EQ(tol, 0.25);
}

TEST(RvPoint2DIsOnSegmentTolerance, DistanceEqualToToleranceIsAccepted) {
    double tol = 1.0;
    EXPECT_TRUE(Planar(5.0, 1.0).IsOnSegment2D(Planar(0.0, 0.0), Planar(10.0, 0.0), tol));
    EXPECT_EQ(tol, 1.0);
}

TEST(RvPoint2DIsOnSegmentTolerance, PointOnSegmentBringsToleranceToZero) {
    double tol = 0.5;
    EXPECT_TRUE(Planar(3.0, 0.0).IsOnSegment2D(Planar(0.0, 0.0), Planar(10.0, 0.0), tol));
    EXPECT_EQ(tol, 0.0);
}

TEST(RvPoint2DIsOnSegmentTolerance, DistanceAtCursorDiagonalIsRefused) {
    // Distance 1.4142 equals 1 * 1.4142: step 3 refuses, tol stays.
    double tol = 1.0;
    EXPECT_FALSE(Planar(5.0, 1.4142).IsOnSegment2D(Planar(0.0, 0.0), Planar(10.0, 0.0), tol));
    EXPECT_EQ(tol, 1.0);
}

TEST(RvPoint2DIsOnSegmentTolerance, DiagonalLimitUsesOnePointFourOneFourTwoNotRootTwo) {
    // Segment (0, 0)-(10, 10), point (4, 6): foot (5, 5), distance sqrt(2), diagonal direction.
    // With tol = 1.0000095901379544, tol * 1.4142 is exactly sqrt(2): step 3 refuses, although
    // the square cursor's corner, tol * sqrt(2), would reach beyond the point.
    const double tol0 = 1.0000095901379544;
    ASSERT_EQ(tol0 * 1.4142, std::sqrt(2.0));
    double tol = tol0;
    EXPECT_FALSE(Planar(4.0, 6.0).IsOnSegment2D(Planar(0.0, 0.0), Planar(10.0, 10.0), tol));
    EXPECT_EQ(tol, tol0);
}

TEST(RvPoint2DIsOnSegmentTolerance, BandInAxisDirectionIsRefused) {
    // Distance 1.2 lies between tol = 1 and 1.4142, but the direction to the foot is an axis
    // direction: w folds to 0, r = cos(0) * (1 + 1 * tan(0)) = 1, and 1.2 >= r refuses.
    struct Case {
        RvPoint2D point;
        RvPoint2D a;
        RvPoint2D b;
    };
    const Case cases[] = {
        {Planar(5.0, 1.2), Planar(0.0, 0.0), Planar(10.0, 0.0)},
        {Planar(5.0, -1.2), Planar(0.0, 0.0), Planar(10.0, 0.0)},
        {Planar(1.2, 5.0), Planar(0.0, 0.0), Planar(0.0, 10.0)},
        {Planar(-1.2, 5.0), Planar(0.0, 0.0), Planar(0.0, 10.0)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("point (" + std::to_string(c.point.x2D) + ", " + std::to_string(c.point.y2D) +
                     ")");
        double tol = 1.0;
        EXPECT_FALSE(c.point.IsOnSegment2D(c.a, c.b, tol));
        EXPECT_EQ(tol, 1.0);
    }
}

TEST(RvPoint2DIsOnSegmentTolerance, BandInDiagonalDirectionIsAcceptedWithReducedTolerance) {
    // The foot is (5, 5) and the point lies one unit off it along each axis, in each of the four
    // diagonal directions; distance sqrt(2), tol = 1.2, so 1.2 < sqrt(2) < 1.2 * 1.4142.
    // |w| folds to pi/4: r = cos(pi/4) * (1.2 + 1.2 * tan(pi/4)) = 1.2 * sqrt(2).
    // Step 9: q = 1.2 - (1.2 sqrt(2) - sqrt(2)) * cos(pi/4) / 1.4142 = 1.2 - 0.2 / 1.4142.
    const double expected = 1.2 - 0.2 / 1.4142;
    const RvPoint2D foot = Planar(5.0, 5.0);
    const int offsets[4][2] = {{1, 1}, {-1, 1}, {-1, -1}, {1, -1}};
    for (const auto& g : offsets) {
        SCOPED_TRACE("offset (" + std::to_string(g[0]) + ", " + std::to_string(g[1]) + ")");
        // The point is foot - g, the segment runs through the foot perpendicular to g.
        const RvPoint2D point = Planar(foot.x2D - g[0], foot.y2D - g[1]);
        const RvPoint2D a = Planar(foot.x2D + 5.0 * g[1], foot.y2D - 5.0 * g[0]);
        const RvPoint2D b = Planar(foot.x2D - 5.0 * g[1], foot.y2D + 5.0 * g[0]);
        double tol = 1.2;
        EXPECT_TRUE(point.IsOnSegment2D(a, b, tol));
        EXPECT_NEAR(tol, expected, 1e-12);
    }
}

TEST(RvPoint2DIsOnSegmentTolerance, JustInsideDiagonalLimitIsAccepted) {
    // Segment (0, 0)-(10, 10), point (4, 6), distance sqrt(2), tol = 1.00001:
    // tol * 1.4142 = 1.41421414 > sqrt(2). r = 1.00001 sqrt(2); r - dist = 0.00001 sqrt(2);
    // q = 1.00001 - 0.00001 sqrt(2) * cos(pi/4) / 1.4142 = 1.00001 - 0.00001 / 1.4142.
    double tol = 1.00001;
    EXPECT_TRUE(Planar(4.0, 6.0).IsOnSegment2D(Planar(0.0, 0.0), Planar(10.0, 10.0), tol));
    EXPECT_NEAR(tol, 1.00001 - 0.00001 / 1.4142, 1e-12);
}

// The point lies at foot - g with g one of the eight directions (+-2, +-1) and (+-1, +-2), so
// that the direction to the foot folds, from every band of step 5, to |w| = atan(1/2), with
// cos w = 2/sqrt(5) and sin w = 1/sqrt(5). The distance is sqrt(5), and
// r = tol * (cos w + sin w) = tol * 3 / sqrt(5).
namespace {

struct OffAxisCase {
    RvPoint2D point;
    RvPoint2D a;
    RvPoint2D b;
};

std::vector<OffAxisCase> OffAxisCases() {
    const int directions[8][2] = {{2, 1},   {1, 2},   {-1, 2}, {-2, 1},
                                  {-2, -1}, {-1, -2}, {1, -2}, {2, -1}};
    std::vector<OffAxisCase> cases;
    for (const auto& g : directions) {
        // Foot (5, -10); the segment runs from foot - 5 g' to foot + 5 g', g' = (-g.y, g.x),
        // so the parameter of the point is exactly 0.5.
        const double fx = 5.0;
        const double fy = -10.0;
        cases.push_back({Planar(fx - g[0], fy - g[1]), Planar(fx + 5.0 * g[1], fy - 5.0 * g[0]),
                         Planar(fx - 5.0 * g[1], fy + 5.0 * g[0])});
    }
    return cases;
}

}  // namespace

TEST(RvPoint2DIsOnSegmentTolerance, OffAxisBandBeyondCursorEdgeIsRefused) {
    // tol = 1.6: sqrt(5) = 2.236 < 1.6 * 1.4142 = 2.263 passes step 3 and exceeds tol, but
    // r = 4.8 / sqrt(5) = 2.147 <= 2.236, so step 7 refuses and tol stays.
    for (const OffAxisCase& c : OffAxisCases()) {
        SCOPED_TRACE("point (" + std::to_string(c.point.x2D) + ", " + std::to_string(c.point.y2D) +
                     ")");
        double tol = 1.6;
        EXPECT_FALSE(c.point.IsOnSegment2D(c.a, c.b, tol));
        EXPECT_EQ(tol, 1.6);
    }
}

TEST(RvPoint2DIsOnSegmentTolerance, OffAxisBandInsideCursorEdgeIsAcceptedWithReducedTolerance) {
    // tol = 2: r = 6 / sqrt(5) > sqrt(5) = 5 / sqrt(5). Step 9:
    // q = 2 - (6 / sqrt(5) - 5 / sqrt(5)) * sin w / 1.4142 = 2 - (1/5) / 1.4142.
    const double expected = 2.0 - 0.2 / 1.4142;
    for (const OffAxisCase& c : OffAxisCases()) {
        SCOPED_TRACE("point (" + std::to_string(c.point.x2D) + ", " + std::to_string(c.point.y2D) +
                     ")");
        double tol = 2.0;
        EXPECT_TRUE(c.point.IsOnSegment2D(c.a, c.b, tol));
        EXPECT_NEAR(tol, expected, 1e-12);
    }
}

TEST(RvPoint2DIsOnSegmentTolerance, ParameterOutsideRangeIsRefusedWithToleranceUnchanged) {
    // Points on the line but beyond either end, with a tolerance far larger than the distance.
    const RvPoint2D a = Planar(0.0, 0.0);
    const RvPoint2D b = Planar(1.0, 0.0);
    for (const double t : {1.00002, 1.00001, -1e-05, -3.0}) {
        SCOPED_TRACE("t = " + std::to_string(t));
        double tol = 100.0;
        EXPECT_FALSE(Planar(t, 0.0).IsOnSegment2D(a, b, tol));
        EXPECT_EQ(tol, 100.0);
    }
    double tol = 100.0;
    EXPECT_TRUE(Planar(1.000005, 0.0).IsOnSegment2D(a, b, tol));
    EXPECT_EQ(tol, 0.0);
}

TEST(RvPoint2DIsOnSegmentTolerance, ZeroLengthSegmentIsRefusedWithToleranceUnchanged) {
    const RvPoint2D a = Planar(2.0, 3.0);
    double tol = 100.0;
    EXPECT_FALSE(a.IsOnSegment2D(a, a, tol));
    EXPECT_EQ(tol, 100.0);
}

TEST(RvPoint2DIsOnSegmentTolerance, ReadsOnlyPlanarPair) {
    const RvPoint2D a(0.0, 0.0, 0.0, 0.0, 0.0);
    const RvPoint2D b(10.0, 0.0, 10.0, 0.0, 0.0);
    double tol = 1.0;
    EXPECT_TRUE(RvPoint2D(5.0, 0.5, 5.0, 50.0, 50.0).IsOnSegment2D(a, b, tol));
    EXPECT_EQ(tol, 0.5);
}

// ---------------------------------------------------------------------------------------------
// Archive record and run-time class

TEST(RvPoint2DSerialize, StoresFortyBytesWithPlanarAbscissaBeforeOrdinate) {
    RvPoint2D p(4.5, -6.75, 1.0, -2.5, 3.25);
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    p.Serialize(ar);
    ar.Close();

    const std::vector<std::uint8_t>& bytes = file.GetData();
    ASSERT_EQ(bytes.size(), 40u);
    // 1.0 is 0x3FF0000000000000, 4.5 is 0x4012000000000000, -6.75 is 0xC01B000000000000.
    EXPECT_EQ(Slice(bytes, 0, 8), (std::vector<std::uint8_t>{0, 0, 0, 0, 0, 0, 0xF0, 0x3F}));
    EXPECT_EQ(Slice(bytes, 24, 8), (std::vector<std::uint8_t>{0, 0, 0, 0, 0, 0, 0x12, 0x40}));
    EXPECT_EQ(Slice(bytes, 32, 8), (std::vector<std::uint8_t>{0, 0, 0, 0, 0, 0, 0x1B, 0xC0}));
    EXPECT_EQ(DoubleAt(bytes, 0), 1.0);
    EXPECT_EQ(DoubleAt(bytes, 8), -2.5);
    EXPECT_EQ(DoubleAt(bytes, 16), 3.25);
    EXPECT_EQ(DoubleAt(bytes, 24), 4.5);
    EXPECT_EQ(DoubleAt(bytes, 32), -6.75);
}

TEST(RvPoint2DSerialize, LoadsAllFiveValuesBack) {
    const RvPoint2D original(4.5, -6.75, 1.0, -2.5, 0.1);
    CMemFile out;
    {
        CArchive ar(&out, CArchive::store);
        RvPoint2D copy(original);
        copy.Serialize(ar);
        ar.Close();
    }
    CMemFile in(out.GetData());
    CArchive ar(&in, CArchive::load);
    RvPoint2D loaded(9, 9, 9, 9, 9);
    loaded.Serialize(ar);
    EXPECT_TRUE(HasValues(loaded, 1.0, -2.5, 0.1, 4.5, -6.75));
    EXPECT_EQ(in.GetPosition(), 40u);
}

TEST(RvPoint2DSerialize, LoadsFromHandWrittenRecord) {
    // x = 1, y = 0, z = 0, x2D = 4.5, y2D = -6.75, as little-endian doubles.
    std::vector<std::uint8_t> bytes(40, 0);
    bytes[6] = 0xF0;
    bytes[7] = 0x3F;
    bytes[30] = 0x12;
    bytes[31] = 0x40;
    bytes[38] = 0x1B;
    bytes[39] = 0xC0;
    CMemFile in(bytes);
    CArchive ar(&in, CArchive::load);
    RvPoint2D loaded(9, 9, 9, 9, 9);
    loaded.Serialize(ar);
    EXPECT_TRUE(HasValues(loaded, 1.0, 0.0, 0.0, 4.5, -6.75));
}

TEST(RvPoint2DSerialize, TruncatedRecordRaisesArchiveException) {
    CMemFile in(std::vector<std::uint8_t>(32, 0));
    CArchive ar(&in, CArchive::load);
    RvPoint2D loaded;
    EXPECT_THROW(loaded.Serialize(ar), CArchiveException);
}

TEST(RvPoint2DRuntimeClass, IsSerialClassNamedRvPoint2DWithSchemaOne) {
    const CRuntimeClass* rc = RUNTIME_CLASS(RvPoint2D);
    ASSERT_NE(rc, nullptr);
    EXPECT_EQ(std::string(rc->m_lpszClassName), "RvPoint2D");
    EXPECT_EQ(rc->m_wSchema, 1u);
    EXPECT_EQ(rc->m_pBaseClass, RUNTIME_CLASS(RvPoint3D));
    EXPECT_NE(rc->m_pfnCreateObject, nullptr);
}

TEST(RvPoint2DRuntimeClass, ObjectReportsItsClassAndKinds) {
    const RvPoint2D p;
    EXPECT_EQ(p.GetRuntimeClass(), RUNTIME_CLASS(RvPoint2D));
    EXPECT_TRUE(p.IsKindOf(RUNTIME_CLASS(RvPoint2D)));
    EXPECT_TRUE(p.IsKindOf(RUNTIME_CLASS(RvPoint3D)));
    EXPECT_TRUE(p.IsKindOf(&CObject::classCObject));
    EXPECT_TRUE(p.IsSerializable());
    const RvPoint3D q;
    EXPECT_FALSE(q.IsKindOf(RUNTIME_CLASS(RvPoint2D)));
}

TEST(RvPoint2DRuntimeClass, ReachedThroughBaseReferenceStillReportsPlanarClass) {
    const RvPoint2D p;
    const RvPoint3D& base = p;
    EXPECT_EQ(base.GetRuntimeClass(), RUNTIME_CLASS(RvPoint2D));
}

TEST(RvPoint2DRuntimeClass, CreateObjectByNameMakesDefaultPoint) {
    EXPECT_EQ(CRuntimeClass::FromName("RvPoint2D"), RUNTIME_CLASS(RvPoint2D));
    std::unique_ptr<CObject> object = CRuntimeClass::CreateObject("RvPoint2D");
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(RvPoint2D));
    const auto* p = dynamic_cast<const RvPoint2D*>(object.get());
    ASSERT_NE(p, nullptr);
    EXPECT_TRUE(HasValues(*p, 0, 0, 0, 0, 0));
}

TEST(RvPoint2DRuntimeClass, CreateObjectFromRuntimeClassMakesDefaultPoint) {
    std::unique_ptr<CObject> object = RUNTIME_CLASS(RvPoint2D)->CreateObject();
    ASSERT_NE(object, nullptr);
    const auto* p = dynamic_cast<const RvPoint2D*>(object.get());
    ASSERT_NE(p, nullptr);
    EXPECT_TRUE(HasValues(*p, 0, 0, 0, 0, 0));
}

TEST(RvPoint2DArchiveObject, WriteObjectAndReadObjectRoundTrip) {
    const RvPoint2D first(4.5, -6.75, 1.0, -2.5, 3.25);
    const RvPoint2D second(-1.0, 2.0, 0.5, 0.25, -0.125);
    CMemFile out;
    {
        CArchive ar(&out, CArchive::store);
        ar.WriteObject(&first);
        ar.WriteObject(&second);
        ar.Close();
    }
    const std::vector<std::uint8_t>& bytes = out.GetData();
    // New-class tag, schema 1, name length 9, "RvPoint2D", the 40-byte record; then the
    // reference tag of the first class and the second record.
    ASSERT_EQ(bytes.size(), 2u + 2u + 2u + 9u + 40u + 2u + 40u);
    EXPECT_EQ(Slice(bytes, 0, 6), (std::vector<std::uint8_t>{0xFF, 0xFF, 0x01, 0x00, 0x09, 0x00}));
    EXPECT_EQ(std::string(bytes.begin() + 6, bytes.begin() + 15), "RvPoint2D");
    EXPECT_EQ(DoubleAt(bytes, 15 + 24), 4.5);
    EXPECT_EQ(Slice(bytes, 55, 2), (std::vector<std::uint8_t>{0x01, 0x80}));

    CMemFile in(bytes);
    CArchive ar(&in, CArchive::load);
    std::unique_ptr<CObject> a = ar.ReadObject(RUNTIME_CLASS(RvPoint2D));
    std::unique_ptr<CObject> b = ar.ReadObject(RUNTIME_CLASS(RvPoint3D));
    const auto* pa = dynamic_cast<const RvPoint2D*>(a.get());
    const auto* pb = dynamic_cast<const RvPoint2D*>(b.get());
    ASSERT_NE(pa, nullptr);
    ASSERT_NE(pb, nullptr);
    EXPECT_TRUE(HasValues(*pa, 1.0, -2.5, 3.25, 4.5, -6.75));
    EXPECT_TRUE(HasValues(*pb, 0.5, 0.25, -0.125, -1.0, 2.0));
}
