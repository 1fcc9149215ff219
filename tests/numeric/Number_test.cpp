#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "ravelin/numeric/Number.h"

using namespace ravelin;

namespace {

constexpr double kBand = 5e-07;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// The six comparisons of one Number with one operand.
struct Comparison {
    bool eq;
    bool ne;
    bool lt;
    bool gt;
    bool le;
    bool ge;
};

Comparison CompareWithDouble(double v, double a) {
    const Number n(v);
    return {n == a, n != a, n<a, n> a, n <= a, n >= a};
}

Comparison CompareWithNumber(double v, double a) {
    const Number n(v);
    const Number m(a);
    return {n == m, n != m, n<m, n> m, n <= m, n >= m};
}

struct OperatorCase {
    std::string name;
    double v;
    double a;
    Comparison expected;
};

// Operands around the band, with the Number at 0 so that every difference is exact.
// - exactly the band apart: not equal, and the strict orderings hold;
// - one step of a double inside the band: equal, and only the loose orderings hold;
// - one step outside the band: as exactly on it;
// - NaN: only != holds.
std::vector<OperatorCase> OperatorCases() {
    const double justInside = std::nextafter(kBand, 0.0);
    const double justOutside = std::nextafter(kBand, 1.0);
    return {
        // name, v, a, then the expected ==, !=, <, >, <=, >=.
        {"same value", 0.0, 0.0, {true, false, false, false, true, true}},
        {"band above", 0.0, kBand, {false, true, true, false, true, false}},
        {"band below", 0.0, -kBand, {false, true, false, true, false, true}},
        {"inside band above", 0.0, justInside, {true, false, false, false, true, true}},
        {"inside band below", 0.0, -justInside, {true, false, false, false, true, true}},
        {"outside band above", 0.0, justOutside, {false, true, true, false, true, false}},
        {"outside band below", 0.0, -justOutside, {false, true, false, true, false, true}},
        {"far above", 0.0, 1.0, {false, true, true, false, true, false}},
        {"far below", 0.0, -1.0, {false, true, false, true, false, true}},
        {"NaN operand", 0.0, kNaN, {false, true, false, false, false, false}},
        {"NaN value", kNaN, 0.0, {false, true, false, false, false, false}},
        {"NaN both", kNaN, kNaN, {false, true, false, false, false, false}},
    };
}

void ExpectComparison(const Comparison& actual, const Comparison& expected) {
    EXPECT_EQ(actual.eq, expected.eq) << "==";
    EXPECT_EQ(actual.ne, expected.ne) << "!=";
    EXPECT_EQ(actual.lt, expected.lt) << "<";
    EXPECT_EQ(actual.gt, expected.gt) << ">";
    EXPECT_EQ(actual.le, expected.le) << "<=";
    EXPECT_EQ(actual.ge, expected.ge) << ">=";
}

// Neither loop of the reduction would run again on `r`: it is not above pi nor within the band
// of pi, and not below -pi by the band or more.
bool InReducedBand(double r) {
    const bool atOrAbovePi = r > kPi || (kPi - r < kBand && r - kPi < kBand);
    const bool belowMinusPi = r < -kPi && -kPi - r >= kBand;
    return !atOrAbovePi && !belowMinusPi;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Number comparisons

TEST(NumberComparison, ValuesCloserThanTheBandAreEqual) {
    EXPECT_TRUE(Number(1.0) == 1.0000004);
    EXPECT_FALSE(Number(1.0) == 1.000001);
    EXPECT_FALSE(Number(1.0) != 1.0000004);
    EXPECT_TRUE(Number(1.0) != 1.000001);
}

TEST(NumberComparison, GreaterNeedsAtLeastTheBand) {
    EXPECT_FALSE(Number(0.0) > 5e-07);
    EXPECT_TRUE(Number(6e-07) > 0.0);
}

TEST(NumberComparison, LooseOrderingsHoldBothWaysWithinTheBand) {
    EXPECT_TRUE(Number(1.0) <= 1.0000001);
    EXPECT_TRUE(Number(1.0000001) <= 1.0);
    EXPECT_FALSE(Number(1.0) < 1.0000001);
    EXPECT_FALSE(Number(1.0000001) < 1.0);
    EXPECT_TRUE(Number(1.0) >= 1.0000001);
    EXPECT_TRUE(Number(1.0000001) >= 1.0);
    EXPECT_FALSE(Number(1.0) > 1.0000001);
    EXPECT_FALSE(Number(1.0000001) > 1.0);
}

TEST(NumberComparison, EachOperatorAtAndAroundTheBandWithDoubleOperand) {
    for (const OperatorCase& c : OperatorCases()) {
        SCOPED_TRACE(c.name);
        ExpectComparison(CompareWithDouble(c.v, c.a), c.expected);
    }
}

TEST(NumberComparison, NumberOperandGivesTheSameResultsAsDouble) {
    for (const OperatorCase& c : OperatorCases()) {
        SCOPED_TRACE(c.name);
        ExpectComparison(CompareWithNumber(c.v, c.a), c.expected);
    }
}

TEST(NumberComparison, BandAwayFromZero) {
    // 1.5 and 1.5 + 2^-21 (about 4.77e-07) lie inside the band; 1.5 + 2^-20 (about 9.5e-07)
    // outside it. All three are exact doubles and so are their differences.
    const double inside = 1.5 + std::ldexp(1.0, -21);
    const double outside = 1.5 + std::ldexp(1.0, -20);
    EXPECT_TRUE(Number(1.5) == inside);
    EXPECT_TRUE(Number(inside) == 1.5);
    EXPECT_FALSE(Number(1.5) < inside);
    EXPECT_FALSE(Number(inside) > 1.5);
    EXPECT_FALSE(Number(1.5) == outside);
    EXPECT_TRUE(Number(1.5) < outside);
    EXPECT_TRUE(Number(outside) > 1.5);
    EXPECT_FALSE(Number(outside) <= 1.5);
    EXPECT_FALSE(Number(1.5) >= outside);
}

TEST(NumberComparison, OtherArithmeticOperandsAreTakenAsDouble) {
    EXPECT_TRUE(Number(1e-07) == 0);
    EXPECT_TRUE(Number(0.9999999) == 1);
    EXPECT_TRUE(Number(2.0) > 1);
    EXPECT_FALSE(Number(1.0000001) > 1);
    EXPECT_TRUE(Number(0.0) == 1e-07f);
    EXPECT_TRUE(Number(0.0) < 1L);
    EXPECT_TRUE(Number(-1.0) <= 0u);
}

TEST(NumberComparison, EqualityKeepsTheBandWithTheNumberOnTheRight) {
    EXPECT_TRUE(1.0000004 == Number(1.0));
    EXPECT_FALSE(1.000001 == Number(1.0));
    EXPECT_FALSE(1.0000004 != Number(1.0));
    EXPECT_TRUE(1.000001 != Number(1.0));
    EXPECT_TRUE(kNaN != Number(0.0));
    EXPECT_FALSE(kNaN == Number(0.0));
}

TEST(NumberComparison, InfiniteOperands) {
    // inf - inf is NaN, so two equal infinities are not equal within the band.
    EXPECT_FALSE(Number(kInf) == kInf);
    EXPECT_TRUE(Number(kInf) > 1.0);
    EXPECT_TRUE(Number(1.0) < kInf);
    EXPECT_TRUE(Number(-kInf) < 1.0);
    EXPECT_FALSE(Number(1.0) <= -kInf);
}

// ---------------------------------------------------------------------------------------------
// Number as a value

TEST(NumberValue, HoldsTheDoubleItWasMadeFrom) {
    const Number n(2.5);
    EXPECT_EQ(n.value, 2.5);
    const double back = n;
    EXPECT_EQ(back, 2.5);
}

TEST(NumberValue, ArithmeticIsPlainDoubleArithmetic) {
    // The conversion to double takes no tolerance: a difference far inside the band survives.
    const double difference = Number(1.0) - 1.0000004;
    EXPECT_LT(difference, 0.0);
    EXPECT_NEAR(difference, -4e-07, 1e-15);
    EXPECT_EQ(Number(2.5) * 2.0, 5.0);
    EXPECT_EQ(Number(1.0) + Number(0.5), 1.5);
    EXPECT_EQ(std::sqrt(Number(9.0)), 3.0);
}

TEST(NumberValue, BandConstantIsFiveTenMillionths) {
    EXPECT_EQ(Number::kBand, 5e-07);
}

// ---------------------------------------------------------------------------------------------
// NumberInterval

TEST(NumberInterval, ReversedPairIsExchanged) {
    const NumberInterval interval(2.0, 1.0);
    EXPECT_EQ(interval.low, 1.0);
    EXPECT_EQ(interval.high, 2.0);
}

TEST(NumberInterval, OrderedPairIsKept) {
    const NumberInterval interval(-3.0, 4.0);
    EXPECT_EQ(interval.low, -3.0);
    EXPECT_EQ(interval.high, 4.0);
}

TEST(NumberInterval, PairCloserThanTheBandKeepsItsOrder) {
    const NumberInterval interval(1.0000001, 1.0);
    EXPECT_EQ(interval.low, 1.0000001);
    EXPECT_EQ(interval.high, 1.0);
}

TEST(NumberInterval, PairExactlyTheBandApartIsExchanged) {
    // Number(0) < 5e-07 holds, since the difference is exactly the band.
    const NumberInterval exchanged(kBand, 0.0);
    EXPECT_EQ(exchanged.low, 0.0);
    EXPECT_EQ(exchanged.high, kBand);

    const double justInside = std::nextafter(kBand, 0.0);
    const NumberInterval kept(justInside, 0.0);
    EXPECT_EQ(kept.low, justInside);
    EXPECT_EQ(kept.high, 0.0);
}

TEST(NumberInterval, StrictlyInsideAndOutsideOrOnEndAreComplements) {
    const NumberInterval interval(0.0, 1.0);
    struct Case {
        double p;
        bool inside;
    };
    const Case cases[] = {
        {0.0, false},
        {1.0, false},
        {0.0000001, false},
        {0.5, true},
        {-1.0, false},
        {2.0, false},
        {0.9999999, false},
        {-0.0000001, false},
        {1.0000001, false},
        // Exactly the band beyond low is inside; 2^-20 (9.5e-07) below high is inside, 2^-21
        // (4.8e-07) below it is on the end.
        {kBand, true},
        {1.0 - std::ldexp(1.0, -20), true},
        {1.0 - std::ldexp(1.0, -21), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "p = " << c.p);
        EXPECT_EQ(interval.IsStrictlyInside(c.p), c.inside);
        EXPECT_EQ(interval.IsOutsideOrOnEnd(c.p), !c.inside);
    }
}

TEST(NumberInterval, QueriesTakeANumber) {
    const NumberInterval interval(0.0, 1.0);
    EXPECT_TRUE(interval.IsStrictlyInside(Number(0.5)));
    EXPECT_TRUE(interval.IsOutsideOrOnEnd(Number(1.0000004)));
}

TEST(NumberInterval, NaNIsNeitherInsideNorOutside) {
    const NumberInterval interval(0.0, 1.0);
    EXPECT_FALSE(interval.IsStrictlyInside(kNaN));
    EXPECT_FALSE(interval.IsOutsideOrOnEnd(kNaN));
}

TEST(NumberInterval, IntervalKeptReversedHasNoInside) {
    // low 1.0000001, high 1.0: nothing lies beyond low and below high by the band.
    const NumberInterval interval(1.0000001, 1.0);
    for (const double p : {1.0, 1.00000005, 1.0000001, 0.5, 1.5}) {
        SCOPED_TRACE(testing::Message() << "p = " << p);
        EXPECT_FALSE(interval.IsStrictlyInside(p));
        EXPECT_TRUE(interval.IsOutsideOrOnEnd(p));
    }
}

// ---------------------------------------------------------------------------------------------
// NormalizeAngle

TEST(NormalizeAngle, ReturnsTheSameReference) {
    double a = 1.0;
    EXPECT_EQ(&NormalizeAngle(a), &a);
}

TEST(NormalizeAngle, AngleInsideTheBandIsUnchanged) {
    for (const double a0 : {0.0, 1.0, -1.0, 3.0, -3.0, kPi - 6e-07, -kPi, -kPi - 4e-07}) {
        SCOPED_TRACE(testing::Message() << "a = " << a0);
        double a = a0;
        NormalizeAngle(a);
        EXPECT_EQ(a, a0);
    }
}

TEST(NormalizeAngle, AngleWithinTheBandOfPiGoesToTheNegativeEnd) {
    // 3.1415925 is 1.5e-07 below pi: one turn down gives 3.1415925 - 6.283185307179586.
    double a = 3.1415925;
    NormalizeAngle(a);
    EXPECT_DOUBLE_EQ(a, -3.141592807179586);
    EXPECT_NEAR(a, -3.1415928, 1e-07);
}

TEST(NormalizeAngle, PiItselfGoesToMinusPi) {
    // pi - 2 pi is exact in doubles.
    double a = kPi;
    NormalizeAngle(a);
    EXPECT_EQ(a, -kPi);
}

TEST(NormalizeAngle, AngleJustBelowMinusPiWithinTheBandStays) {
    // -3.1415928 is 1.46e-07 below -pi: within the band, no turn.
    double a = -3.1415928;
    NormalizeAngle(a);
    EXPECT_EQ(a, -3.1415928);
}

TEST(NormalizeAngle, PositiveAngleWrapsDown) {
    // 7 - 2 pi = 0.716814692820414.
    double a = 7.0;
    NormalizeAngle(a);
    EXPECT_DOUBLE_EQ(a, 7.0 - kTwoPi);
    EXPECT_NEAR(a, 0.7168, 1e-4);
}

TEST(NormalizeAngle, NegativeAngleWrapsUp) {
    // -4 + 2 pi = 2.283185307179586.
    double a = -4.0;
    NormalizeAngle(a);
    EXPECT_DOUBLE_EQ(a, 2.283185307179586);
}

TEST(NormalizeAngle, AngleBelowMinusPiByMoreThanTheBandTurnsToNearPi) {
    // -pi - 6e-07 + 2 pi = pi - 6e-07, which is outside the band of pi.
    double a = -kPi - 6e-07;
    NormalizeAngle(a);
    EXPECT_NEAR(a, kPi - 6e-07, 1e-15);
    EXPECT_TRUE(InReducedBand(a));
}

TEST(NormalizeAngle, SeveralTurnsEachWay) {
    struct Case {
        double in;
        double out;
    };
    // 20 - 3 * 2 pi = 1.150444078461241; 100 - 16 * 2 pi = -0.530964914873376;
    // -20 + 3 * 2 pi = -1.150444078461241; 13 pi - 12 pi = pi, which goes to -pi.
    const Case cases[] = {
        {20.0, 1.150444078461241},   {-20.0, -1.150444078461241}, {100.0, -0.530964914873376},
        {-100.0, 0.530964914873376}, {13.0 * kPi, -kPi},          {-11.0 * kPi, -kPi},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "a = " << c.in);
        double a = c.in;
        NormalizeAngle(a);
        EXPECT_NEAR(a, c.out, 1e-12);
        EXPECT_TRUE(InReducedBand(a));
    }
}

TEST(NormalizeAngle, NonFiniteAngleIsLeftAlone) {
    double nan = kNaN;
    NormalizeAngle(nan);
    EXPECT_TRUE(std::isnan(nan));

    double inf = kInf;
    NormalizeAngle(inf);
    EXPECT_EQ(inf, kInf);

    double minusInf = -kInf;
    NormalizeAngle(minusInf);
    EXPECT_EQ(minusInf, -kInf);
}

TEST(NormalizeAngle, HugeAngleEndsInTheBand) {
    const double cases[] = {1e7,
                            -1e7,
                            1e12,
                            -1e15,
                            1e300,
                            -1e300,
                            std::numeric_limits<double>::max(),
                            -std::numeric_limits<double>::max()};
    for (const double a0 : cases) {
        SCOPED_TRACE(testing::Message() << "a = " << a0);
        double a = a0;
        NormalizeAngle(a);
        EXPECT_TRUE(std::isfinite(a));
        EXPECT_TRUE(InReducedBand(a));
    }
}

TEST(NormalizeAngle, LargeAngleKeepsItsDirection) {
    // A reduction by whole turns keeps sine and cosine; the tolerance allows for the rounding
    // of 2 pi over about 1.6 million turns.
    double a = 1e7;
    NormalizeAngle(a);
    EXPECT_NEAR(std::sin(a), std::sin(1e7), 1e-3);
    EXPECT_NEAR(std::cos(a), std::cos(1e7), 1e-3);
}

TEST(NormalizeAngle, ValuesAroundTheLowerEndOfTheBandTerminateInside) {
    // For x near -pi - 5e-07, both x + 2 pi and -pi - x are exact in doubles, so the value
    // turns once exactly when it is below -pi by the band or more, and otherwise stays.
    double x = -kPi - kBand;
    for (int i = 0; i < 300; ++i) {
        x = std::nextafter(x, -kInf);
    }
    for (int i = 0; i < 600; ++i, x = std::nextafter(x, kInf)) {
        SCOPED_TRACE(testing::Message() << "a = " << std::hexfloat << x);
        const bool turns = x < -kPi && -kPi - x >= kBand;
        double a = x;
        NormalizeAngle(a);
        EXPECT_TRUE(InReducedBand(a));
        EXPECT_EQ(a, turns ? x + kTwoPi : x);
    }
}

TEST(NormalizeAngle, ValuesAroundTheUpperEndOfTheBandTerminateInside) {
    // For x near pi - 5e-07, x - 2 pi and pi - x are exact; x turns down once exactly when it is
    // within the band of pi.
    double x = kPi - kBand;
    for (int i = 0; i < 300; ++i) {
        x = std::nextafter(x, -kInf);
    }
    for (int i = 0; i < 600; ++i, x = std::nextafter(x, kInf)) {
        SCOPED_TRACE(testing::Message() << "a = " << std::hexfloat << x);
        const bool turns = x > kPi || kPi - x < kBand;
        double a = x;
        NormalizeAngle(a);
        EXPECT_TRUE(InReducedBand(a));
        EXPECT_EQ(a, turns ? x - kTwoPi : x);
    }
}

TEST(NormalizeAngle, ValuesThatReachTheLowerEndAfterTurnsTerminateInside) {
    // Start one and two turns below and above -pi - 5e-07, so that the edge is met after
    // rounded additions and subtractions.
    for (const int turns : {-2, -1, 1, 2}) {
        double x = -kPi - kBand + turns * kTwoPi;
        for (int i = 0; i < 100; ++i) {
            x = std::nextafter(x, -kInf);
        }
        for (int i = 0; i < 200; ++i, x = std::nextafter(x, kInf)) {
            SCOPED_TRACE(testing::Message() << "a = " << std::hexfloat << x);
            double a = x;
            NormalizeAngle(a);
            EXPECT_TRUE(InReducedBand(a));
            EXPECT_NEAR(std::remainder(a - x, kTwoPi), 0.0, 1e-12);
        }
    }
}
