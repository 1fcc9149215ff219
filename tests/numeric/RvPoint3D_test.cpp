#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "ravelin/numeric/Number.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/AfxMessageBox.h"
#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CObject.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

testing::AssertionResult PointNear(const RvPoint3D& p, double x, double y, double z,
                                   double tol = 1e-12) {
    if (std::fabs(p.x - x) <= tol && std::fabs(p.y - y) <= tol && std::fabs(p.z - z) <= tol) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "(" << p.x << ", " << p.y << ", " << p.z << ") is not within " << tol << " of (" << x
           << ", " << y << ", " << z << ")";
}

// Every test records the message boxes instead of showing them, with the warning of Normalize
// armed; both are put back afterwards.
class RecordedMessageBoxes : public testing::Test {
private:
    MessageBoxRecorder m_recorder;

protected:
    const std::vector<MessageBoxCall>& m_calls = m_recorder.calls();
};

std::vector<std::uint8_t> Stored(RvPoint3D& p) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    p.Serialize(ar);
    ar.Flush();
    return file.GetData();
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction and assignment

TEST(RvPoint3DConstruction, DefaultIsTheOrigin) {
    const RvPoint3D p;
    EXPECT_TRUE(PointIs(p, 0.0, 0.0, 0.0));
}

TEST(RvPoint3DConstruction, FromCoordinates) {
    const RvPoint3D p(1.5, -2.0, 3.25);
    EXPECT_TRUE(PointIs(p, 1.5, -2.0, 3.25));
}

TEST(RvPoint3DConstruction, CopyKeepsTheCoordinates) {
    const RvPoint3D p(1.5, -2.0, 3.25);
    const RvPoint3D q(p);
    EXPECT_TRUE(PointIs(q, 1.5, -2.0, 3.25));
}

TEST(RvPoint3DConstruction, AssignmentCopiesAndReturnsTheTarget) {
    const RvPoint3D p(1.5, -2.0, 3.25);
    RvPoint3D q(7.0, 8.0, 9.0);
    RvPoint3D& result = (q = p);
    EXPECT_EQ(&result, &q);
    EXPECT_TRUE(PointIs(q, 1.5, -2.0, 3.25));
}

TEST(RvPoint3DConstruction, SetReplacesTheCoordinates) {
    RvPoint3D p(1.0, 2.0, 3.0);
    p.Set(-4.0, 5.5, 0.0);
    EXPECT_TRUE(PointIs(p, -4.0, 5.5, 0.0));
}

TEST(RvPoint3DConstruction, SwapExchangesTheCoordinates) {
    RvPoint3D p(1.0, 2.0, 3.0);
    RvPoint3D q(-4.0, -5.0, -6.0);
    p.Swap(q);
    EXPECT_TRUE(PointIs(p, -4.0, -5.0, -6.0));
    EXPECT_TRUE(PointIs(q, 1.0, 2.0, 3.0));
}

// ---------------------------------------------------------------------------------------------
// Component-wise arithmetic

TEST(RvPoint3DArithmetic, SumAndDifference) {
    const RvPoint3D p(1.0, 2.0, 3.0);
    const RvPoint3D q(0.5, -4.0, 10.0);
    EXPECT_TRUE(PointIs(p + q, 1.5, -2.0, 13.0));
    EXPECT_TRUE(PointIs(p - q, 0.5, 6.0, -7.0));
    EXPECT_TRUE(PointIs(p, 1.0, 2.0, 3.0));
}

TEST(RvPoint3DArithmetic, ScaleAndDivide) {
    const RvPoint3D p(1.0, -2.0, 3.0);
    EXPECT_TRUE(PointIs(p * 2.5, 2.5, -5.0, 7.5));
    EXPECT_TRUE(PointIs(p / 4.0, 0.25, -0.5, 0.75));
}

TEST(RvPoint3DArithmetic, CompoundAddAndSubtractReturnTheTarget) {
    RvPoint3D p(1.0, 2.0, 3.0);
    RvPoint3D& added = (p += RvPoint3D(1.0, 1.0, 1.0));
    EXPECT_EQ(&added, &p);
    EXPECT_TRUE(PointIs(p, 2.0, 3.0, 4.0));
    RvPoint3D& subtracted = (p -= RvPoint3D(4.0, 0.5, 4.0));
    EXPECT_EQ(&subtracted, &p);
    EXPECT_TRUE(PointIs(p, -2.0, 2.5, 0.0));
}

TEST(RvPoint3DArithmetic, CompoundScaleAndDivide) {
    RvPoint3D p(1.0, -2.0, 3.0);
    p *= 2.0;
    EXPECT_TRUE(PointIs(p, 2.0, -4.0, 6.0));
    p /= 8.0;
    EXPECT_TRUE(PointIs(p, 0.25, -0.5, 0.75));
}

TEST(RvPoint3DArithmetic, DivisionByZeroIsNotGuarded) {
    // 1/0 = inf, -1/0 = -inf, 0/0 = NaN.
    const RvPoint3D q = RvPoint3D(1.0, -1.0, 0.0) / 0.0;
    EXPECT_EQ(q.x, kInf);
    EXPECT_EQ(q.y, -kInf);
    EXPECT_TRUE(std::isnan(q.z));

    RvPoint3D p(1.0, -1.0, 0.0);
    p /= 0.0;
    EXPECT_EQ(p.x, kInf);
    EXPECT_EQ(p.y, -kInf);
    EXPECT_TRUE(std::isnan(p.z));
}

// ---------------------------------------------------------------------------------------------
// Products, sizes and distances

TEST(RvPoint3DProducts, DotProduct) {
    // 1*4 + 2*5 + 3*6 = 32.
    EXPECT_EQ((RvPoint3D(1.0, 2.0, 3.0) * RvPoint3D(4.0, 5.0, 6.0)).value, 32.0);
    EXPECT_EQ((RvPoint3D(1.0, 0.0, 0.0) * RvPoint3D(0.0, 1.0, 0.0)).value, 0.0);
}

TEST(RvPoint3DProducts, DotProductComparesWithinTheBand) {
    testing::StaticAssertTypeEq<Number, decltype(RvPoint3D() * RvPoint3D())>();
    const Number dot = RvPoint3D(1.0, 0.0, 0.0) * RvPoint3D(1.0000004, 0.0, 0.0);
    EXPECT_TRUE(dot == 1.0);
    EXPECT_FALSE(dot > 1.0);
}

TEST(RvPoint3DProducts, DotProductSumsXAndYBeforeZ) {
    // Terms 1, 1e-16 and -1: (1 + 1e-16) rounds to 1, so the sum is exactly 0. Summing y and z
    // first, or x and z first, would leave about 1e-16.
    const Number dot = RvPoint3D(1.0, 1e-16, 1.0) * RvPoint3D(1.0, 1.0, -1.0);
    EXPECT_EQ(dot.value, 0.0);
}

TEST(RvPoint3DProducts, VectorProduct) {
    // (2*6 - 3*5, 3*4 - 1*6, 1*5 - 2*4) = (-3, 6, -3).
    const RvPoint3D a(1.0, 2.0, 3.0);
    const RvPoint3D b(4.0, 5.0, 6.0);
    EXPECT_TRUE(PointIs(a.GetVektorovySucin(b), -3.0, 6.0, -3.0));
    EXPECT_TRUE(PointIs(b.GetVektorovySucin(a), 3.0, -6.0, 3.0));
    EXPECT_TRUE(PointIs(RvPoint3D(1, 0, 0).GetVektorovySucin(RvPoint3D(0, 1, 0)), 0, 0, 1));
    EXPECT_TRUE(PointIs(RvPoint3D(0, 1, 0).GetVektorovySucin(RvPoint3D(0, 0, 1)), 1, 0, 0));
    EXPECT_TRUE(PointIs(RvPoint3D(0, 0, 1).GetVektorovySucin(RvPoint3D(1, 0, 0)), 0, 1, 0));
}

TEST(RvPoint3DProducts, SetVektorovySucinReplacesThePoint) {
    RvPoint3D a(1.0, 2.0, 3.0);
    a.SetVektorovySucin(RvPoint3D(4.0, 5.0, 6.0));
    EXPECT_TRUE(PointIs(a, -3.0, 6.0, -3.0));
}

TEST(RvPoint3DProducts, SquareSizeAndSize) {
    testing::StaticAssertTypeEq<Number, decltype(RvPoint3D().GetSize())>();
    testing::StaticAssertTypeEq<Number, decltype(RvPoint3D().GetSquareSize())>();
    const RvPoint3D p(1.0, -2.0, 2.0);
    EXPECT_EQ(p.GetSquareSize().value, 9.0);
    EXPECT_EQ(p.GetSize().value, 3.0);
    EXPECT_TRUE(RvPoint3D(0.0, 0.0, 4e-07).GetSize() == 0.0);
}

TEST(RvPoint3DProducts, DistanceInSpace) {
    testing::StaticAssertTypeEq<Number, decltype(RvPoint3D().Distance(RvPoint3D()))>();
    // Difference (-3, -4, 12): 9 + 16 + 144 = 169.
    EXPECT_EQ(RvPoint3D(1.0, 1.0, 1.0).Distance(RvPoint3D(4.0, 5.0, -11.0)).value, 13.0);
}

TEST(RvPoint3DProducts, PlanarDistancesIgnoreZ) {
    testing::StaticAssertTypeEq<Number, decltype(RvPoint3D().Distance2D(RvPoint3D()))>();
    testing::StaticAssertTypeEq<Number, decltype(RvPoint3D().SquareDistance2D(RvPoint3D()))>();
    const RvPoint3D a(1.0, 1.0, -50.0);
    const RvPoint3D b(4.0, 5.0, 100.0);
    EXPECT_EQ(a.Distance2D(b).value, 5.0);
    EXPECT_EQ(a.SquareDistance2D(b).value, 25.0);
}

// ---------------------------------------------------------------------------------------------
// Equality

TEST(RvPoint3DEquality, BoxComparisonWithOneHundredthIsStrict) {
    const RvPoint3D origin;
    EXPECT_TRUE(RvPoint3D(0.005, 0.0, 0.0) == origin);
    EXPECT_FALSE(RvPoint3D(0.01, 0.0, 0.0) == origin);
    EXPECT_FALSE(origin == RvPoint3D(0.01, 0.0, 0.0));
    EXPECT_FALSE(RvPoint3D(-0.01, 0.0, 0.0) == origin);
}

TEST(RvPoint3DEquality, EveryCoordinateIsCompared) {
    const RvPoint3D origin;
    const RvPoint3D near[] = {{0.009, 0, 0}, {0, -0.009, 0}, {0, 0, 0.009}, {0.009, 0.009, -0.009}};
    const RvPoint3D far[] = {{0.02, 0, 0}, {0, -0.02, 0}, {0, 0, 0.02}};
    for (const RvPoint3D& p : near) {
        SCOPED_TRACE(testing::Message() << "(" << p.x << ", " << p.y << ", " << p.z << ")");
        EXPECT_TRUE(p == origin);
        EXPECT_FALSE(p != origin);
    }
    for (const RvPoint3D& p : far) {
        SCOPED_TRACE(testing::Message() << "(" << p.x << ", " << p.y << ", " << p.z << ")");
        EXPECT_FALSE(p == origin);
        EXPECT_TRUE(p != origin);
    }
}

TEST(RvPoint3DEquality, IsEqual2DIgnoresZ) {
    const RvPoint3D a(1.0, 2.0, 0.0);
    EXPECT_TRUE(a.IsEqual2D(RvPoint3D(1.25, 1.75, 100.0), 0.5));
    EXPECT_FALSE(a.IsEqual2D(RvPoint3D(1.5, 2.0, 0.0), 0.5));
    EXPECT_FALSE(a.IsEqual2D(RvPoint3D(1.0, 1.5, 0.0), 0.5));
}

TEST(RvPoint3DEquality, IsEqual3DUsesTheGivenToleranceStrictly) {
    // 1.5 - 0.5 < 1.0 is false: a difference of exactly the tolerance is not equal.
    const RvPoint3D a(1.0, 2.0, 3.0);
    EXPECT_TRUE(a.IsEqual3D(RvPoint3D(1.25, 2.25, 2.75), 0.5));
    EXPECT_FALSE(a.IsEqual3D(RvPoint3D(1.0, 2.0, 3.5), 0.5));
    EXPECT_FALSE(a.IsEqual3D(RvPoint3D(1.0, 2.0, 2.5), 0.5));
    EXPECT_FALSE(a.IsEqual3D(RvPoint3D(1.5, 2.0, 3.0), 0.5));
    EXPECT_TRUE(a.IsEqual3D(RvPoint3D(1.0, 2.0, 3.5), 0.75));
}

// ---------------------------------------------------------------------------------------------
// Null tests

TEST(RvPoint3DNull, BelowTheLimitIsNull) {
    const RvPoint3D cases[] = {{0, 0, 0}, {8e-07, 0, 0}, {0, -8e-07, 0}, {8e-07, 8e-07, -8e-07}};
    for (const RvPoint3D& p : cases) {
        SCOPED_TRACE(testing::Message() << "(" << p.x << ", " << p.y << ", " << p.z << ")");
        EXPECT_TRUE(p.IsNull());
        EXPECT_FALSE(p.IsNotNull());
    }
}

TEST(RvPoint3DNull, AtTheLimitIsNeitherNullNorNotNull) {
    const RvPoint3D cases[] = {{9e-07, 0, 0}, {0, -9e-07, 0}, {0, 0, 9e-07}, {9e-07, 9e-07, 9e-07}};
    for (const RvPoint3D& p : cases) {
        SCOPED_TRACE(testing::Message() << "(" << p.x << ", " << p.y << ", " << p.z << ")");
        EXPECT_FALSE(p.IsNull());
        EXPECT_FALSE(p.IsNotNull());
    }
}

TEST(RvPoint3DNull, AboveTheLimitIsNotNull) {
    const RvPoint3D cases[] = {{1e-06, 0, 0}, {0, -1e-06, 0}, {0, 0, 1e-06}, {0, 0, -1.0}};
    for (const RvPoint3D& p : cases) {
        SCOPED_TRACE(testing::Message() << "(" << p.x << ", " << p.y << ", " << p.z << ")");
        EXPECT_FALSE(p.IsNull());
        EXPECT_TRUE(p.IsNotNull());
    }
}

TEST(RvPoint3DNull, IsNotNullWithAGivenTolerance) {
    EXPECT_FALSE(RvPoint3D(0.5, 0.0, 0.0).IsNotNull(0.5));
    EXPECT_FALSE(RvPoint3D(-0.5, 0.5, -0.5).IsNotNull(0.5));
    EXPECT_TRUE(RvPoint3D(0.0, 0.0, -0.6).IsNotNull(0.5));
    EXPECT_TRUE(RvPoint3D(0.0, 0.6, 0.0).IsNotNull(0.5));
    EXPECT_TRUE(RvPoint3D(1e-06, 0.0, 0.0).IsNotNull(0.0));
    EXPECT_FALSE(RvPoint3D(0.0, 0.0, 0.0).IsNotNull(0.0));
}

// ---------------------------------------------------------------------------------------------
// IsEqualOrientation

TEST(RvPoint3DIsEqualOrientation, NullVectorIsNeverOfEqualOrientation) {
    const RvPoint3D null;
    EXPECT_FALSE(null.IsEqualOrientation(RvPoint3D(1.0, 1.0, 1.0)));
    EXPECT_FALSE(null.IsEqualOrientation(RvPoint3D(-1.0, 0.0, 0.0)));
    EXPECT_FALSE(null.IsEqualOrientation(null));
    // No coordinate exceeds 0.0001, so none qualifies.
    EXPECT_FALSE(RvPoint3D(0.0001, -0.0001, 0.00005).IsEqualOrientation(RvPoint3D(1, 1, 1)));
}

TEST(RvPoint3DIsEqualOrientation, SameSideAndOppositeSide) {
    EXPECT_TRUE(RvPoint3D(2.0, 0.0, 0.0).IsEqualOrientation(RvPoint3D(1.0, 0.0, 0.0)));
    EXPECT_FALSE(RvPoint3D(2.0, 0.0, 0.0).IsEqualOrientation(RvPoint3D(-1.0, 0.0, 0.0)));
    EXPECT_TRUE(RvPoint3D(-2.0, 0.0, 0.0).IsEqualOrientation(RvPoint3D(-1.0, 0.0, 0.0)));
    EXPECT_FALSE(RvPoint3D(0.0, 0.0, 3.0).IsEqualOrientation(RvPoint3D(0.0, 0.0, 0.0)));
}

TEST(RvPoint3DIsEqualOrientation, OnlyTheFirstQualifyingCoordinateIsLookedAt) {
    // x of (1, 0, 0) decides: the other's x is positive, so (1, 5, -3) counts as the same
    // orientation although it is far from parallel.
    EXPECT_TRUE(RvPoint3D(1.0, 0.0, 0.0).IsEqualOrientation(RvPoint3D(1.0, 5.0, -3.0)));
    EXPECT_FALSE(RvPoint3D(1.0, 1.0, 1.0).IsEqualOrientation(RvPoint3D(-1.0, 1.0, 1.0)));
    // x = 0.00005 is too small; y decides: 1/1 > 0.0001.
    EXPECT_TRUE(RvPoint3D(0.00005, 1.0, 0.0).IsEqualOrientation(RvPoint3D(-100.0, 1.0, 0.0)));
    // x and y too small; z decides: -2/-1 = 2.
    EXPECT_TRUE(RvPoint3D(0.0, 0.0, -1.0).IsEqualOrientation(RvPoint3D(5.0, -5.0, -2.0)));
}

TEST(RvPoint3DIsEqualOrientation, CoordinateExactlyAtTheLimitDoesNotQualify) {
    // x = 0.0001 does not exceed 0.0001, so y decides, where the quotient is 1.
    EXPECT_TRUE(RvPoint3D(0.0001, 1.0, 0.0).IsEqualOrientation(RvPoint3D(-1.0, 1.0, 0.0)));
    EXPECT_FALSE(RvPoint3D(0.0001, -1.0, 0.0).IsEqualOrientation(RvPoint3D(1.0, 1.0, 0.0)));
}

TEST(RvPoint3DIsEqualOrientation, QuotientMustExceedTheLimit) {
    // 0.0001 / 1 is not above 0.0001; 0.0002 / 1 is.
    EXPECT_FALSE(RvPoint3D(1.0, 0.0, 0.0).IsEqualOrientation(RvPoint3D(0.0001, 0.0, 0.0)));
    EXPECT_TRUE(RvPoint3D(1.0, 0.0, 0.0).IsEqualOrientation(RvPoint3D(0.0002, 0.0, 0.0)));
    EXPECT_FALSE(RvPoint3D(1.0, 0.0, 0.0).IsEqualOrientation(RvPoint3D(0.0, 1.0, 1.0)));
}

// ---------------------------------------------------------------------------------------------
// GetNearest

TEST(RvPoint3DGetNearest, ReturnsTheCloserArgumentItself) {
    const RvPoint3D origin;
    const RvPoint3D a(1.0, 0.0, 0.0);
    const RvPoint3D b(0.0, 2.0, 0.0);
    EXPECT_EQ(&origin.GetNearest(a, b), &a);
    EXPECT_EQ(&origin.GetNearest(b, a), &a);
}

TEST(RvPoint3DGetNearest, ExactTieGoesToB) {
    const RvPoint3D origin;
    const RvPoint3D a(1.0, 0.0, 0.0);
    const RvPoint3D b(0.0, 0.0, -1.0);
    EXPECT_EQ(&origin.GetNearest(a, b), &b);
    EXPECT_EQ(&origin.GetNearest(b, a), &a);
}

TEST(RvPoint3DGetNearest, TieWithinTheBandGoesToB) {
    // b is 4e-07 farther than a: not farther by the band, so b is taken.
    const RvPoint3D origin;
    const RvPoint3D a(1.0, 0.0, 0.0);
    const RvPoint3D b(1.0000004, 0.0, 0.0);
    EXPECT_EQ(&origin.GetNearest(a, b), &b);
    // 1e-06 farther is beyond the band: a is taken.
    const RvPoint3D c(1.000001, 0.0, 0.0);
    EXPECT_EQ(&origin.GetNearest(a, c), &a);
}

// ---------------------------------------------------------------------------------------------
// Normalize and its warning

TEST(RvPoint3DNormalizeWarning, IsArmedWhenTheLibraryIsLoaded) {
    // Every test that disarms the warning puts it back as it found it.
    EXPECT_TRUE(RvPoint3D::s_bNormalizeWarning);
}

TEST(RvPoint3DNormalizeWarning, ActivateArmsTheWarning) {
    const bool saved = RvPoint3D::s_bNormalizeWarning;
    RvPoint3D::s_bNormalizeWarning = false;
    RvPoint3D::Activate_Normalize_Warning_ERR();
    EXPECT_TRUE(RvPoint3D::s_bNormalizeWarning);
    RvPoint3D::s_bNormalizeWarning = saved;
}

class RvPoint3DNormalize : public RecordedMessageBoxes {};

TEST_F(RvPoint3DNormalize, RegularVectorBecomesUnit) {
    RvPoint3D p(3.0, 0.0, -4.0);
    p.Normalize();
    EXPECT_TRUE(PointNear(p, 0.6, 0.0, -0.8));
    RvPoint3D q(1.0, 2.0, 2.0);
    q.Normalize();
    EXPECT_TRUE(PointNear(q, 1.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0));
    RvPoint3D r(0.0, -7.0, 0.0);
    r.Normalize();
    EXPECT_TRUE(PointIs(r, 0.0, -1.0, 0.0));
    EXPECT_TRUE(m_calls.empty());
    EXPECT_TRUE(RvPoint3D::s_bNormalizeWarning);
}

TEST_F(RvPoint3DNormalize, ShortVectorStaysAndWarnsOnce) {
    // Length sqrt(2.4e-07^2 + 3.2e-07^2) = 4e-07, within the band of 0.
    RvPoint3D p(2.4e-07, -3.2e-07, 0.0);
    p.Normalize();
    EXPECT_TRUE(PointIs(p, 2.4e-07, -3.2e-07, 0.0));
    ASSERT_EQ(m_calls.size(), 1u);
    EXPECT_EQ(m_calls[0].text, kNormalizeWarning);
    EXPECT_EQ(m_calls[0].type, 0u);
    EXPECT_EQ(m_calls[0].helpId, 0u);
    EXPECT_FALSE(RvPoint3D::s_bNormalizeWarning);
}

TEST_F(RvPoint3DNormalize, VectorOfLengthSixTenMillionthsIsNormalized) {
    RvPoint3D p(0.0, 6e-07, 0.0);
    p.Normalize();
    EXPECT_TRUE(PointNear(p, 0.0, 1.0, 0.0));
    // Length sqrt(3.6e-07^2 + 4.8e-07^2) = 6e-07.
    RvPoint3D q(3.6e-07, 0.0, 4.8e-07);
    q.Normalize();
    EXPECT_TRUE(PointNear(q, 0.6, 0.0, 0.8));
    EXPECT_TRUE(m_calls.empty());
    EXPECT_TRUE(RvPoint3D::s_bNormalizeWarning);
}

TEST_F(RvPoint3DNormalize, LengthOfExactlyTheBandIsNormalized) {
    // sqrt(x*x) gives x back, so the length is exactly 5e-07 and Number(5e-07) > 0 holds.
    RvPoint3D p(5e-07, 0.0, 0.0);
    p.Normalize();
    EXPECT_TRUE(PointNear(p, 1.0, 0.0, 0.0));
    EXPECT_TRUE(m_calls.empty());

    const double justShort = std::nextafter(5e-07, 0.0);
    RvPoint3D q(0.0, 0.0, justShort);
    q.Normalize();
    EXPECT_TRUE(PointIs(q, 0.0, 0.0, justShort));
    EXPECT_EQ(m_calls.size(), 1u);
}

TEST_F(RvPoint3DNormalize, ZeroVectorStaysZeroAndWarns) {
    RvPoint3D p;
    p.Normalize();
    EXPECT_TRUE(PointIs(p, 0.0, 0.0, 0.0));
    ASSERT_EQ(m_calls.size(), 1u);
    EXPECT_EQ(m_calls[0].text, kNormalizeWarning);
}

TEST_F(RvPoint3DNormalize, SecondNullVectorShowsNothingUntilRearmed) {
    RvPoint3D p;
    p.Normalize();
    ASSERT_EQ(m_calls.size(), 1u);

    RvPoint3D q(1e-07, 0.0, 0.0);
    q.Normalize();
    EXPECT_TRUE(PointIs(q, 1e-07, 0.0, 0.0));
    EXPECT_EQ(m_calls.size(), 1u);

    RvPoint3D::Activate_Normalize_Warning_ERR();
    EXPECT_TRUE(RvPoint3D::s_bNormalizeWarning);
    q.Normalize();
    ASSERT_EQ(m_calls.size(), 2u);
    EXPECT_EQ(m_calls[1].text, kNormalizeWarning);
    EXPECT_EQ(m_calls[1].type, 0u);
    EXPECT_EQ(m_calls[1].helpId, 0u);
    EXPECT_FALSE(RvPoint3D::s_bNormalizeWarning);

    q.Normalize();
    EXPECT_EQ(m_calls.size(), 2u);
}

TEST_F(RvPoint3DNormalize, DisarmedWarningStaysSilent) {
    RvPoint3D::s_bNormalizeWarning = false;
    RvPoint3D p;
    p.Normalize();
    EXPECT_TRUE(m_calls.empty());
    EXPECT_FALSE(RvPoint3D::s_bNormalizeWarning);
}

TEST_F(RvPoint3DNormalize, NormalizingAfterTheWarningDoesNotRearmIt) {
    RvPoint3D null;
    null.Normalize();
    RvPoint3D p(3.0, 4.0, 0.0);
    p.Normalize();
    EXPECT_TRUE(PointNear(p, 0.6, 0.8, 0.0));
    EXPECT_FALSE(RvPoint3D::s_bNormalizeWarning);
    null.Normalize();
    EXPECT_EQ(m_calls.size(), 1u);
}

// ---------------------------------------------------------------------------------------------
// Round

TEST(RvPoint3DRound, HalvesGoAwayFromZero) {
    // 1.0005 * 1000 rounds to 1000.5 in doubles: floor(1001) / 1000 = 1.001, and for -1.0005
    // ceil(-1001) / 1000 = -1.001. Zero gives floor(0.5) / 1000 = 0.
    RvPoint3D p(1.0005, -1.0005, 0.0);
    p.Round(1000);
    EXPECT_DOUBLE_EQ(p.x, 1.001);
    EXPECT_DOUBLE_EQ(p.y, -1.001);
    EXPECT_EQ(p.z, 0.0);
}

TEST(RvPoint3DRound, WholeStepsPerUnit) {
    struct Case {
        double in;
        double out;
    };
    const Case cases[] = {{2.5, 3.0}, {-2.5, -3.0}, {2.4, 2.0},  {-2.4, -2.0},
                          {0.5, 1.0}, {-0.5, -1.0}, {0.49, 0.0}, {-0.49, 0.0},
                          {2.6, 3.0}, {-2.6, -3.0}, {7.0, 7.0},  {-7.0, -7.0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "c = " << c.in);
        RvPoint3D p(c.in, c.in, c.in);
        p.Round(1);
        EXPECT_TRUE(PointIs(p, c.out, c.out, c.out));
    }
}

TEST(RvPoint3DRound, EachCoordinateIsRoundedOnItsOwn) {
    // 0.25 * 10 = 2.5 -> 3 -> 0.3; -0.25 -> -0.3; 0.04 * 10 = 0.4 -> 0.
    RvPoint3D p(0.25, -0.25, 0.04);
    p.Round(10);
    EXPECT_DOUBLE_EQ(p.x, 0.3);
    EXPECT_DOUBLE_EQ(p.y, -0.3);
    EXPECT_EQ(p.z, 0.0);
}

TEST(RvPoint3DRound, SignTestIsOnTheCoordinateNotOnTheProduct) {
    // With n = -1000, c = 1.0005 is not negative: floor(-1000.5 + 0.5) / -1000 = 1.0. A test on
    // c*n would have taken ceil(-1000.5 - 0.5) / -1000 = 1.001. Likewise c = -1.0005 gives
    // ceil(1000.5 - 0.5) / -1000 = -1.0.
    RvPoint3D p(1.0005, -1.0005, 0.0);
    p.Round(-1000);
    EXPECT_DOUBLE_EQ(p.x, 1.0);
    EXPECT_DOUBLE_EQ(p.y, -1.0);
}

// ---------------------------------------------------------------------------------------------
// IsInHalfSpace

TEST(RvPoint3DIsInHalfSpace, PositiveSideIsInside) {
    EXPECT_TRUE(RvPoint3D(0.0, 0.0, 1.0).IsInHalfSpace(0.0, 0.0, 1.0, 0.0));
    EXPECT_FALSE(RvPoint3D(0.0, 0.0, -1.0).IsInHalfSpace(0.0, 0.0, 1.0, 0.0));
    // x - 2 at x = 3 is 1.
    EXPECT_TRUE(RvPoint3D(3.0, 0.0, 0.0).IsInHalfSpace(1.0, 0.0, 0.0, -2.0));
    EXPECT_FALSE(RvPoint3D(1.0, 5.0, 5.0).IsInHalfSpace(1.0, 0.0, 0.0, -2.0));
}

TEST(RvPoint3DIsInHalfSpace, PointOnThePlaneIsOutside) {
    EXPECT_FALSE(RvPoint3D(5.0, -7.0, 0.0).IsInHalfSpace(0.0, 0.0, 1.0, 0.0));
    EXPECT_FALSE(RvPoint3D(2.0, 9.0, 9.0).IsInHalfSpace(1.0, 0.0, 0.0, -2.0));
}

TEST(RvPoint3DIsInHalfSpace, MarginIsStrict) {
    // The value is exactly z here: 1e-07 is not above the margin, 2e-07 is.
    EXPECT_FALSE(RvPoint3D(5.0, -7.0, 1e-07).IsInHalfSpace(0.0, 0.0, 1.0, 0.0));
    EXPECT_TRUE(RvPoint3D(5.0, -7.0, 2e-07).IsInHalfSpace(0.0, 0.0, 1.0, 0.0));
    EXPECT_TRUE(RvPoint3D(5.0, -7.0, 1.1e-07).IsInHalfSpace(0.0, 0.0, 1.0, 0.0));
}

// ---------------------------------------------------------------------------------------------
// GetSumernyBod and SetSumernyBod

TEST(RvPoint3DSumernyBod, MirrorImageInThePlane) {
    // Plane z = 1: t = 2 * (5 - 1) / 1 = 8, z becomes 5 - 8 = -3.
    EXPECT_TRUE(PointIs(RvPoint3D(2.0, 3.0, 5.0).GetSumernyBod(0, 0, 1, -1), 2.0, 3.0, -3.0));
    // The same plane with normal (0, 0, 2): t = 2 * (10 - 2) / 4 = 4, z = 5 - 4 * 2 = -3.
    EXPECT_TRUE(PointIs(RvPoint3D(2.0, 3.0, 5.0).GetSumernyBod(0, 0, 2, -2), 2.0, 3.0, -3.0));
    // Plane x + y = 0: t = 2 * 1 / 2 = 1, (1, 0, 0) becomes (0, -1, 0).
    EXPECT_TRUE(PointIs(RvPoint3D(1.0, 0.0, 7.0).GetSumernyBod(1, 1, 0, 0), 0.0, -1.0, 7.0));
}

TEST(RvPoint3DSumernyBod, PointOnThePlaneIsItsOwnImage) {
    EXPECT_TRUE(PointIs(RvPoint3D(3.0, -3.0, 4.0).GetSumernyBod(1, 1, 0, 0), 3.0, -3.0, 4.0));
}

TEST(RvPoint3DSumernyBod, GetLeavesThePointAndSetReplacesIt) {
    RvPoint3D p(2.0, 3.0, 5.0);
    const RvPoint3D image = p.GetSumernyBod(0, 0, 1, -1);
    EXPECT_TRUE(PointIs(p, 2.0, 3.0, 5.0));
    p.SetSumernyBod(0, 0, 1, -1);
    EXPECT_TRUE(PointIs(p, image.x, image.y, image.z));
    EXPECT_TRUE(PointIs(p, 2.0, 3.0, -3.0));
}

TEST(RvPoint3DSumernyBod, ZeroNormalIsNotGuarded) {
    // t = 2 * 1 / 0 = inf, and x - inf * 0 is NaN.
    const RvPoint3D image = RvPoint3D(1.0, 1.0, 1.0).GetSumernyBod(0, 0, 0, 1);
    EXPECT_TRUE(std::isnan(image.x));
    EXPECT_TRUE(std::isnan(image.y));
    EXPECT_TRUE(std::isnan(image.z));
}

// ---------------------------------------------------------------------------------------------
// DistanceFromLine

TEST(RvPoint3DDistanceFromLine, MeasuresToTheWholeLine) {
    const RvPoint3D a(0.0, 0.0, 0.0);
    const RvPoint3D b(2.0, 0.0, 0.0);
    // t = 10 / 4 = 2.5, foot (5, 0, 0).
    EXPECT_DOUBLE_EQ(RvPoint3D(5.0, 3.0, 0.0).DistanceFromLine(a, b), 3.0);
    // t = -2 / 4 = -0.5, foot (-1, 0, 0).
    EXPECT_DOUBLE_EQ(RvPoint3D(-1.0, 0.0, 4.0).DistanceFromLine(a, b), 4.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(1.0, 0.0, 0.0).DistanceFromLine(a, b), 0.0);
}

TEST(RvPoint3DDistanceFromLine, SkewLine) {
    // Line through (1, 1, 0) along (1, 1, 0); point (0, 2, 5): t = (2 - 2) / 2 = 0, foot
    // (1, 1, 0), distance sqrt(1 + 1 + 25).
    EXPECT_DOUBLE_EQ(
        RvPoint3D(0.0, 2.0, 5.0).DistanceFromLine(RvPoint3D(1, 1, 0), RvPoint3D(2, 2, 0)),
        std::sqrt(27.0));
}

TEST(RvPoint3DDistanceFromLine, CoincidentEndsMeasureToA) {
    const RvPoint3D a(1.0, 1.0, 1.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(4.0, 5.0, 1.0).DistanceFromLine(a, a), 5.0);
}

TEST(RvPoint3DDistanceFromLine, EndsWithinTheNullLimitMeasureToA) {
    // b - a = (9e-07, 0, 0) is not IsNotNull: the distance is to a, 5, not to the x axis, 4.
    const RvPoint3D p(3.0, 4.0, 0.0);
    EXPECT_DOUBLE_EQ(p.DistanceFromLine(RvPoint3D(), RvPoint3D(9e-07, 0.0, 0.0)), 5.0);
    // 1e-06 apart is a line: t is about 3e6 and the foot about (3, 0, 0).
    EXPECT_NEAR(p.DistanceFromLine(RvPoint3D(), RvPoint3D(1e-06, 0.0, 0.0)), 4.0, 1e-9);
}

// ---------------------------------------------------------------------------------------------
// DistanceFromSegment

TEST(RvPoint3DDistanceFromSegment, FootInsideMeasuresToTheFoot) {
    const RvPoint3D a(0.0, 0.0, 0.0);
    const RvPoint3D b(2.0, 0.0, 0.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(1.0, 1.0, 0.0).DistanceFromSegment(a, b), 1.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(1.5, 0.0, -2.0).DistanceFromSegment(a, b), 2.0);
    // t = 1: the far end itself.
    EXPECT_DOUBLE_EQ(RvPoint3D(2.0, 3.0, 0.0).DistanceFromSegment(a, b), 3.0);
}

TEST(RvPoint3DDistanceFromSegment, FootBeyondTheFarEndMeasuresToTheStart) {
    // t = 6 / 4 = 1.5: the distance is to (0, 0, 0), sqrt(10), not sqrt(2) to (2, 0, 0).
    const Number d = RvPoint3D(3.0, 1.0, 0.0).DistanceFromSegment(RvPoint3D(), RvPoint3D(2, 0, 0));
    EXPECT_DOUBLE_EQ(d, std::sqrt(10.0));
    EXPECT_NEAR(d, 3.1623, 1e-4);
}

TEST(RvPoint3DDistanceFromSegment, FootBeforeTheStartMeasuresToTheStart) {
    // t = -2 / 4 = -0.5: distance to (0, 0, 0), sqrt(2).
    const Number d = RvPoint3D(-1.0, 1.0, 0.0).DistanceFromSegment(RvPoint3D(), RvPoint3D(2, 0, 0));
    EXPECT_DOUBLE_EQ(d, std::sqrt(2.0));
}

TEST(RvPoint3DDistanceFromSegment, ReversingTheSegmentChangesTheResult) {
    // Same point and segment, ends given the other way round: now a is (2, 0, 0) and the foot,
    // at t = -0.5, is before it, so the distance is to (2, 0, 0).
    const RvPoint3D p(3.0, 1.0, 0.0);
    EXPECT_DOUBLE_EQ(p.DistanceFromSegment(RvPoint3D(), RvPoint3D(2, 0, 0)), std::sqrt(10.0));
    EXPECT_DOUBLE_EQ(p.DistanceFromSegment(RvPoint3D(2, 0, 0), RvPoint3D()), std::sqrt(2.0));
}

TEST(RvPoint3DDistanceFromSegment, ParameterSlightlyBeyondTheEndIsNotClamped) {
    // On the segment (0, 0, 0)-(1, 0, 0), t equals x: at 1.00000005 the foot is the point
    // itself, so the distance is 0, not the 5e-08 to the end nor the distance to the start.
    const RvPoint3D a;
    const RvPoint3D b(1.0, 0.0, 0.0);
    EXPECT_EQ(RvPoint3D(1.00000005, 0.0, 0.0).DistanceFromSegment(a, b).value, 0.0);
    // At 1.0000002 it is above 1.0000001, so the distance is to the start.
    EXPECT_DOUBLE_EQ(RvPoint3D(1.0000002, 0.0, 0.0).DistanceFromSegment(a, b), 1.0000002);
}

TEST(RvPoint3DDistanceFromSegment, ParameterSlightlyBeforeTheStart) {
    const RvPoint3D a;
    const RvPoint3D b(1.0, 0.0, 0.0);
    // t = -5e-10 is not below -1e-09: measured to the foot, the point itself.
    EXPECT_EQ(RvPoint3D(-5e-10, 0.0, 0.0).DistanceFromSegment(a, b).value, 0.0);
    // t = -2e-09 is below: measured to the start.
    EXPECT_DOUBLE_EQ(RvPoint3D(-2e-09, 0.0, 0.0).DistanceFromSegment(a, b), 2e-09);
}

TEST(RvPoint3DDistanceFromSegment, CoincidentEndsMeasureToA) {
    const RvPoint3D a(1.0, 1.0, 1.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(1.0, 4.0, 5.0).DistanceFromSegment(a, a), 5.0);
    EXPECT_DOUBLE_EQ(
        RvPoint3D(3.0, 4.0, 0.0).DistanceFromSegment(RvPoint3D(), RvPoint3D(0, 9e-07, 0)), 5.0);
}

// ---------------------------------------------------------------------------------------------
// DistanceFromPlane

TEST(RvPoint3DDistanceFromPlane, NormalNeedNotBeUnit) {
    // Plane through (0, 0, 1) with normal (0, 0, 2): |8 - 2| / 2 = 3 above, |-4 - 2| / 2 = 3
    // below.
    const RvPoint3D a(0.0, 0.0, 1.0);
    const RvPoint3D n(0.0, 0.0, 2.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(5.0, 7.0, 4.0).DistanceFromPlane(a, n), 3.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(1.0, 1.0, -2.0).DistanceFromPlane(a, n), 3.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(9.0, -9.0, 1.0).DistanceFromPlane(a, n), 0.0);
}

TEST(RvPoint3DDistanceFromPlane, ObliqueNormal) {
    // Plane x + y = 0: (1, 0, 0) is 1 / sqrt(2) away; (2, 2, 7) is 12 / sqrt(18) = 4 / sqrt(2)
    // away measured with the normal scaled by 3.
    const RvPoint3D n(1.0, 1.0, 0.0);
    EXPECT_DOUBLE_EQ(RvPoint3D(1.0, 0.0, 0.0).DistanceFromPlane(RvPoint3D(), n),
                     1.0 / std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(RvPoint3D(2.0, 2.0, 7.0).DistanceFromPlane(RvPoint3D(), n * 3.0),
                     4.0 / std::sqrt(2.0));
}

// ---------------------------------------------------------------------------------------------
// IsInsideSegment

TEST(RvPoint3DIsInsideSegment, MidpointIsInside) {
    EXPECT_TRUE(RvPoint3D(1.0, 0.0, 0.0).IsInsideSegment(RvPoint3D(), RvPoint3D(2, 0, 0)));
    EXPECT_TRUE(RvPoint3D(1.0, 1.0, 1.0).IsInsideSegment(RvPoint3D(), RvPoint3D(2, 2, 2)));
    EXPECT_TRUE(RvPoint3D(0.5, 0.0, 0.0).IsInsideSegment(RvPoint3D(2, 0, 0), RvPoint3D()));
}

TEST(RvPoint3DIsInsideSegment, EndsAreNotInside) {
    const RvPoint3D a(0.0, 0.0, 0.0);
    const RvPoint3D b(2.0, 0.0, 0.0);
    EXPECT_FALSE(a.IsInsideSegment(a, b));
    EXPECT_FALSE(b.IsInsideSegment(a, b));
}

TEST(RvPoint3DIsInsideSegment, PointWithinTheNullLimitOfAnEndIsNotInside) {
    // u = (-5e-07, 0, 0) is not normalised; u*v = -5e-07 is not below -1e-05 by the band.
    EXPECT_FALSE(RvPoint3D(5e-07, 0.0, 0.0).IsInsideSegment(RvPoint3D(), RvPoint3D(2, 0, 0)));
}

TEST(RvPoint3DIsInsideSegment, PointBeyondAnEndIsNotInside) {
    EXPECT_FALSE(RvPoint3D(3.0, 0.0, 0.0).IsInsideSegment(RvPoint3D(), RvPoint3D(2, 0, 0)));
    EXPECT_FALSE(RvPoint3D(-1.0, 0.0, 0.0).IsInsideSegment(RvPoint3D(), RvPoint3D(2, 0, 0)));
}

TEST(RvPoint3DIsInsideSegment, PointOffTheLineIsNotInside) {
    // u x v = (0, 0, 1): its components sum to 1.
    EXPECT_FALSE(RvPoint3D(1.0, 1.0, 0.0).IsInsideSegment(RvPoint3D(), RvPoint3D(2, 0, 0)));
    // u = (1, 0, 0), v = (-1, 1, 0) / sqrt(2): u x v = (0, 0, 1/sqrt(2)).
    EXPECT_FALSE(RvPoint3D().IsInsideSegment(RvPoint3D(1, 0, 0), RvPoint3D(-1, 1, 0)));
}

TEST(RvPoint3DIsInsideSegment, VectorProductWhoseComponentsCancelPasses) {
    // u = (1, 0, 0), v = (-1, 1, 1) / sqrt(3) = (-k, k, k): u x v = (0, -k, k), whose components
    // sum to exactly 0, and u*v = -k < -1e-05. The origin is not on the segment, yet passes.
    EXPECT_TRUE(RvPoint3D().IsInsideSegment(RvPoint3D(1, 0, 0), RvPoint3D(-1, 1, 1)));
    EXPECT_GT(RvPoint3D().DistanceFromLine(RvPoint3D(1, 0, 0), RvPoint3D(-1, 1, 1)), 0.5);
}

// ---------------------------------------------------------------------------------------------
// IsInsideSegment2D

TEST(RvPoint3DIsInsideSegment2D, MidpointIsInsideWhateverZ) {
    EXPECT_TRUE(
        RvPoint3D(1.0, 0.0, 5.0).IsInsideSegment2D(RvPoint3D(0, 0, 0), RvPoint3D(2, 0, -3)));
    EXPECT_TRUE(RvPoint3D(1.0, 1.0, 0.0).IsInsideSegment2D(RvPoint3D(0, 0, 9), RvPoint3D(2, 2, 9)));
}

TEST(RvPoint3DIsInsideSegment2D, EndsAndPointsBeyondAreNotInside) {
    const RvPoint3D a(0.0, 0.0, 0.0);
    const RvPoint3D b(2.0, 0.0, 0.0);
    EXPECT_FALSE(RvPoint3D(0.0, 0.0, 4.0).IsInsideSegment2D(a, b));
    EXPECT_FALSE(RvPoint3D(2.0, 0.0, 4.0).IsInsideSegment2D(a, b));
    EXPECT_FALSE(RvPoint3D(3.0, 0.0, 0.0).IsInsideSegment2D(a, b));
    EXPECT_FALSE(RvPoint3D(-1.0, 0.0, 0.0).IsInsideSegment2D(a, b));
}

TEST(RvPoint3DIsInsideSegment2D, PointOffTheLineIsNotInside) {
    EXPECT_FALSE(RvPoint3D(1.0, 1.0, 0.0).IsInsideSegment2D(RvPoint3D(), RvPoint3D(2, 0, 0)));
    // In the plane, u = (1, 0), v = (-1, 1) / sqrt(2): c = 1/sqrt(2), so the case that passes in
    // space does not pass here.
    EXPECT_FALSE(RvPoint3D().IsInsideSegment2D(RvPoint3D(1, 0, 0), RvPoint3D(-1, 1, 1)));
}

TEST(RvPoint3DIsInsideSegment2D, VerticalSegmentHasNoPlanarInside) {
    // Both planar differences are null: c = 0 but u*v = 0.
    const RvPoint3D a(1.0, 0.0, 0.0);
    const RvPoint3D b(1.0, 0.0, 5.0);
    EXPECT_FALSE(RvPoint3D(1.0, 0.0, 2.0).IsInsideSegment2D(a, b));
    EXPECT_TRUE(RvPoint3D(1.0, 0.0, 2.0).IsInsideSegment(a, b));
}

// ---------------------------------------------------------------------------------------------
// IsOnLine

class RvPoint3DIsOnLine : public RecordedMessageBoxes {};

TEST_F(RvPoint3DIsOnLine, PointWithinOneHundredthOfTheLinePointIsOnAnyLine) {
    // p equals the point by operator== (0.005 < 0.01), so even a null direction is accepted.
    const RvPoint3D origin;
    EXPECT_TRUE(origin.IsOnLine(RvPoint3D(0.005, 0.0, 0.0), RvPoint3D(0.0, 1.0, 0.0)));
    EXPECT_TRUE(origin.IsOnLine(RvPoint3D(0.0, -0.009, 0.009), RvPoint3D()));
}

TEST_F(RvPoint3DIsOnLine, PointAlongTheDirectionIsOnTheLine) {
    const RvPoint3D p(1.0, 0.0, 0.0);
    EXPECT_TRUE(RvPoint3D(3.0, 0.0, 0.0).IsOnLine(p, RvPoint3D(2.0, 0.0, 0.0)));
    EXPECT_TRUE(RvPoint3D(-5.0, 0.0, 0.0).IsOnLine(p, RvPoint3D(2.0, 0.0, 0.0)));
    // The sign of the direction does not matter.
    EXPECT_TRUE(RvPoint3D(3.0, 0.0, 0.0).IsOnLine(p, RvPoint3D(-0.5, 0.0, 0.0)));
    EXPECT_TRUE(RvPoint3D(2.0, 3.0, 4.0).IsOnLine(RvPoint3D(1, 2, 3), RvPoint3D(7, 7, 7)));
    EXPECT_TRUE(m_calls.empty());
}

TEST_F(RvPoint3DIsOnLine, SecondArgumentIsADirectionNotAPoint) {
    // Through (1, 0, 0) along (2, 1, 0): (3, 1, 0) is on it. Read as a second point, (2, 1, 0)
    // would give the line along (1, 1, 0) through (3, 2, 0), which is off the line along
    // (2, 1, 0): the cosine there is 6 / sqrt(8 * 5), about 0.95.
    const RvPoint3D p(1.0, 0.0, 0.0);
    const RvPoint3D dir(2.0, 1.0, 0.0);
    EXPECT_TRUE(RvPoint3D(3.0, 1.0, 0.0).IsOnLine(p, dir));
    EXPECT_FALSE(RvPoint3D(3.0, 2.0, 0.0).IsOnLine(p, dir));
}

TEST_F(RvPoint3DIsOnLine, NullDirectionGivesFalse) {
    const RvPoint3D p(1.0, 0.0, 0.0);
    EXPECT_FALSE(RvPoint3D(3.0, 0.0, 0.0).IsOnLine(p, RvPoint3D()));
    EXPECT_FALSE(RvPoint3D(3.0, 0.0, 0.0).IsOnLine(p, RvPoint3D(4e-07, 0.0, 0.0)));
    // The direction is tested before it is normalised: no warning.
    EXPECT_TRUE(m_calls.empty());
}

TEST_F(RvPoint3DIsOnLine, CosineMustExceedTheLimit) {
    // v = (1, 0, 0); w = (1, h, 0) normalised: v*w = 1 / sqrt(1 + h*h).
    // h = 0.003: 0.9999955 > 0.99999. h = 0.006: 0.999982, not above.
    const RvPoint3D origin;
    const RvPoint3D p(1.0, 0.0, 0.0);
    EXPECT_TRUE(origin.IsOnLine(p, RvPoint3D(1.0, 0.003, 0.0)));
    EXPECT_FALSE(origin.IsOnLine(p, RvPoint3D(1.0, 0.006, 0.0)));
    EXPECT_FALSE(origin.IsOnLine(p, RvPoint3D(1.0, 1.0, 0.0)));
    EXPECT_FALSE(origin.IsOnLine(p, RvPoint3D(0.0, 0.0, 1.0)));
}

TEST_F(RvPoint3DIsOnLine, UndefinedDistanceGivesFalseWithoutWarning) {
    // A NaN coordinate: p is not equal to the point, and the size of the difference is NaN,
    // which is neither above nor equal to 0, so the answer is false before any normalising.
    const RvPoint3D origin;
    EXPECT_FALSE(origin.IsOnLine(RvPoint3D(kNaN, 0.0, 0.0), RvPoint3D(1.0, 0.0, 0.0)));
    EXPECT_TRUE(m_calls.empty());
    EXPECT_TRUE(RvPoint3D::s_bNormalizeWarning);
}

// ---------------------------------------------------------------------------------------------
// IsOnPlane

TEST(RvPoint3DIsOnPlane, PointInThePlaneOfTheTriangle) {
    const RvPoint3D a(0.0, 0.0, 0.0);
    const RvPoint3D b(1.0, 0.0, 0.0);
    const RvPoint3D c(0.0, 1.0, 0.0);
    EXPECT_TRUE(RvPoint3D(5.0, 7.0, 0.0).IsOnPlane(a, b, c));
    EXPECT_TRUE(RvPoint3D(-3.0, 0.5, 0.0).IsOnPlane(a, b, c));
    EXPECT_FALSE(RvPoint3D(5.0, 7.0, 1.0).IsOnPlane(a, b, c));
    // Plane x + y + z = 1.
    EXPECT_TRUE(RvPoint3D(2.0, 3.0, -4.0)
                    .IsOnPlane(RvPoint3D(1, 0, 0), RvPoint3D(0, 1, 0), RvPoint3D(0, 0, 1)));
    EXPECT_FALSE(RvPoint3D(2.0, 3.0, -3.0)
                     .IsOnPlane(RvPoint3D(1, 0, 0), RvPoint3D(0, 1, 0), RvPoint3D(0, 0, 1)));
}

TEST(RvPoint3DIsOnPlane, CoordinatesAreRoundedToTenThousandthsFirst) {
    const RvPoint3D a(0.0, 0.0, 0.0);
    const RvPoint3D b(1.0, 0.0, 0.0);
    const RvPoint3D c(0.0, 1.0, 0.0);
    // z = 0.00004 rounds to 0 and is on the plane; 0.00006 rounds to 0.0001, whose product with
    // n = (0, 0, 1) is beyond the band.
    EXPECT_TRUE(RvPoint3D(5.0, 7.0, 0.00004).IsOnPlane(a, b, c));
    EXPECT_FALSE(RvPoint3D(5.0, 7.0, 0.00006).IsOnPlane(a, b, c));
    // The triangle's corners are rounded too.
    EXPECT_TRUE(RvPoint3D(0.5, 0.5, 0.0)
                    .IsOnPlane(RvPoint3D(0, 0, 0.00004), RvPoint3D(1, 0, -0.00004),
                               RvPoint3D(0, 1, 0.00003)));
}

TEST(RvPoint3DIsOnPlane, ToleranceScalesWithTheTriangle) {
    // Corners 0.001 apart: n = (0, 0, 1e-06), so 0.1 off the plane gives a product of 1e-07,
    // within the band, and 0.6 off gives 6e-07, beyond it.
    const RvPoint3D a(0.0, 0.0, 0.0);
    EXPECT_TRUE(
        RvPoint3D(5.0, 7.0, 0.1).IsOnPlane(a, RvPoint3D(0.001, 0, 0), RvPoint3D(0, 0.001, 0)));
    EXPECT_FALSE(
        RvPoint3D(5.0, 7.0, 0.6).IsOnPlane(a, RvPoint3D(0.001, 0, 0), RvPoint3D(0, 0.001, 0)));
    // Corners 1000 apart: n = (0, 0, 1e6), so 0.0001 off gives 100.
    EXPECT_FALSE(
        RvPoint3D(5.0, 7.0, 0.0001).IsOnPlane(a, RvPoint3D(1000, 0, 0), RvPoint3D(0, 1000, 0)));
}

TEST(RvPoint3DIsOnPlane, PointAndCornersAreNotChanged) {
    const RvPoint3D p(5.123456789, 7.0, 0.00004);
    const RvPoint3D a(0.0, 0.0, 0.00001234);
    const RvPoint3D b(1.0, 0.0, 0.0);
    const RvPoint3D c(0.0, 1.000012345, 0.0);
    EXPECT_TRUE(p.IsOnPlane(a, b, c));
    EXPECT_TRUE(PointIs(p, 5.123456789, 7.0, 0.00004));
    EXPECT_TRUE(PointIs(a, 0.0, 0.0, 0.00001234));
    EXPECT_TRUE(PointIs(c, 0.0, 1.000012345, 0.0));
}

// ---------------------------------------------------------------------------------------------
// DajBodNaOsiUhla

TEST(RvPoint3DDajBodNaOsiUhla, RightAngleWithNormalUp) {
    // u x v = (0, 0, 1), its product with n is 1, so sign = -1; sin(pi/2) = 1:
    // (1, 1, 0) * -1 = (-1, -1, 0).
    const RvPoint3D r = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(), RvPoint3D(1, 0, 0),
                                                   RvPoint3D(0, 1, 0), 1.0, RvPoint3D(0, 0, 1));
    EXPECT_TRUE(PointNear(r, -1.0, -1.0, 0.0));
}

TEST(RvPoint3DDajBodNaOsiUhla, RightAngleWithNormalDown) {
    const RvPoint3D r = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(), RvPoint3D(1, 0, 0),
                                                   RvPoint3D(0, 1, 0), 1.0, RvPoint3D(0, 0, -1));
    EXPECT_TRUE(PointNear(r, 1.0, 1.0, 0.0));
}

TEST(RvPoint3DDajBodNaOsiUhla, ResultIsOffsetFromTheVertex) {
    const RvPoint3D r = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(10, 20, 30), RvPoint3D(1, 0, 0),
                                                   RvPoint3D(0, 1, 0), 2.0, RvPoint3D(0, 0, -1));
    EXPECT_TRUE(PointNear(r, 12.0, 22.0, 30.0));
}

TEST(RvPoint3DDajBodNaOsiUhla, WideAngleIsAtTheDistanceFromBothArms) {
    // u = (1, 0, 0), v = (-1/2, sqrt(3)/2, 0): a = 2 pi / 3, sin(a) = sqrt(3)/2. With n down,
    // (u x v)*n = -sqrt(3)/2 < 0 and sign = +1: (1/2, sqrt(3)/2, 0) / (sqrt(3)/2) =
    // (1/sqrt(3), 1, 0), 1 from the x axis and |v x r| = 1/2 + 1/2 = 1 from the other arm.
    const RvPoint3D u(1.0, 0.0, 0.0);
    const RvPoint3D v(-0.5, std::sqrt(3.0) / 2.0, 0.0);
    const RvPoint3D down = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(), u, v, 1.0, RvPoint3D(0, 0, -1));
    EXPECT_TRUE(PointNear(down, 1.0 / std::sqrt(3.0), 1.0, 0.0));
    const RvPoint3D up = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(), u, v, 1.0, RvPoint3D(0, 0, 1));
    EXPECT_TRUE(PointNear(up, -1.0 / std::sqrt(3.0), -1.0, 0.0));
}

TEST(RvPoint3DDajBodNaOsiUhla, CoincidentArmsUseTheNormal) {
    // a = acos(1) = 0: p + (n x u) * d. (0, 0, 1) x (1, 0, 0) = (0, 1, 0).
    const RvPoint3D p(2.0, 3.0, 0.0);
    const RvPoint3D u(1.0, 0.0, 0.0);
    EXPECT_TRUE(
        PointIs(RvPoint3D::DajBodNaOsiUhla(p, u, u, 2.0, RvPoint3D(0, 0, 1)), 2.0, 5.0, 0.0));
    EXPECT_TRUE(
        PointIs(RvPoint3D::DajBodNaOsiUhla(p, u, u, 2.0, RvPoint3D(0, 0, -1)), 2.0, 1.0, 0.0));
}

TEST(RvPoint3DDajBodNaOsiUhla, ArmsWithinTheBandOfAngleCountAsCoincident) {
    // u*v = cos(1e-07), and acos gives back about 1e-07, below the band: the normal is used,
    // not (u + v) / sin(a), which would be about 2e7 away.
    const RvPoint3D u(1.0, 0.0, 0.0);
    const RvPoint3D v(std::cos(1e-07), std::sin(1e-07), 0.0);
    const RvPoint3D r = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(), u, v, 1.0, RvPoint3D(0, 0, 1));
    EXPECT_TRUE(PointNear(r, 0.0, 1.0, 0.0));
}

TEST(RvPoint3DDajBodNaOsiUhla, DotProductBelowMinusOneIsLimited) {
    // u*v = -1.0000001 is limited to -1, so a = pi and sin(a) is about 1.22e-16; there is no
    // special case: (u + v) = (-1e-07, 0, 0) times -1 / sin(a) is about 8e8 along x. Without the
    // limit acos would give NaN and the normal branch would answer (0, 1, 0).
    const RvPoint3D r = RvPoint3D::DajBodNaOsiUhla(
        RvPoint3D(), RvPoint3D(1, 0, 0), RvPoint3D(-1.0000001, 0, 0), 1.0, RvPoint3D(0, 0, 1));
    EXPECT_TRUE(std::isfinite(r.x));
    EXPECT_GT(r.x, 1e8);
    EXPECT_EQ(r.y, 0.0);
    EXPECT_EQ(r.z, 0.0);
}

TEST(RvPoint3DDajBodNaOsiUhla, OppositeArmsGiveTheVertex) {
    // a = pi: u + v is null, and null times the large factor is null.
    const RvPoint3D r = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(4, 5, 6), RvPoint3D(1, 0, 0),
                                                   RvPoint3D(-1, 0, 0), 1.0, RvPoint3D(0, 0, 1));
    EXPECT_TRUE(PointIs(r, 4.0, 5.0, 6.0));
}

// ---------------------------------------------------------------------------------------------
// DajBodNaOsiUhlaEx

TEST(RvPoint3DDajBodNaOsiUhlaEx, SeparateDistancePerArm) {
    // Right angle, d1 = 1 from arm u (the x axis), d2 = 2 from arm v (the y axis):
    // offset = u * 2 + v * 1 = (2, 1, 0); with n down sign = +1.
    const RvPoint3D u(1.0, 0.0, 0.0);
    const RvPoint3D v(0.0, 1.0, 0.0);
    EXPECT_TRUE(
        PointNear(RvPoint3D::DajBodNaOsiUhlaEx(RvPoint3D(), u, 1.0, v, 2.0, RvPoint3D(0, 0, -1)),
                  2.0, 1.0, 0.0));
    EXPECT_TRUE(
        PointNear(RvPoint3D::DajBodNaOsiUhlaEx(RvPoint3D(), u, 1.0, v, 2.0, RvPoint3D(0, 0, 1)),
                  -2.0, -1.0, 0.0));
}

TEST(RvPoint3DDajBodNaOsiUhlaEx, WideAngleWithTwoDistances) {
    // u = (1, 0, 0), v = (-1/2, sqrt(3)/2, 0), s = sqrt(3)/2, d1 = 1, d2 = 2, n down:
    // offset = u * 2/s + v * 1/s = (1.5/s, 1, 0) = (sqrt(3), 1, 0). It is 1 from the x axis and
    // |v x r| = 1/2 + 3/2 = 2 from the line of v.
    const RvPoint3D u(1.0, 0.0, 0.0);
    const RvPoint3D v(-0.5, std::sqrt(3.0) / 2.0, 0.0);
    const RvPoint3D r =
        RvPoint3D::DajBodNaOsiUhlaEx(RvPoint3D(1, 1, 1), u, 1.0, v, 2.0, RvPoint3D(0, 0, -1));
    EXPECT_TRUE(PointNear(r, 1.0 + std::sqrt(3.0), 2.0, 1.0));
}

TEST(RvPoint3DDajBodNaOsiUhlaEx, EqualDistancesMatchDajBodNaOsiUhla) {
    const RvPoint3D u(1.0, 0.0, 0.0);
    const RvPoint3D v(-0.5, std::sqrt(3.0) / 2.0, 0.0);
    const RvPoint3D n(0.0, 0.0, -1.0);
    const RvPoint3D ex = RvPoint3D::DajBodNaOsiUhlaEx(RvPoint3D(), u, 1.5, v, 1.5, n);
    EXPECT_TRUE(PointNear(ex, 1.5 / std::sqrt(3.0), 1.5, 0.0));
    const RvPoint3D plain = RvPoint3D::DajBodNaOsiUhla(RvPoint3D(), u, v, 1.5, n);
    EXPECT_TRUE(PointNear(ex, plain.x, plain.y, plain.z));
}

TEST(RvPoint3DDajBodNaOsiUhlaEx, CoincidentArmsUseTheSecondDistance) {
    // a = 0: p + (n x u) * d2, with (0, 0, 1) x (1, 0, 0) = (0, 1, 0).
    const RvPoint3D u(1.0, 0.0, 0.0);
    EXPECT_TRUE(
        PointIs(RvPoint3D::DajBodNaOsiUhlaEx(RvPoint3D(), u, 1.0, u, 3.0, RvPoint3D(0, 0, 1)), 0.0,
                3.0, 0.0));
    EXPECT_TRUE(
        PointIs(RvPoint3D::DajBodNaOsiUhlaEx(RvPoint3D(), u, 1.0, u, 3.0, RvPoint3D(0, 0, -1)), 0.0,
                -3.0, 0.0));
    // An angle of about 1e-07 is within the band of 0 as well.
    const RvPoint3D v(std::cos(1e-07), std::sin(1e-07), 0.0);
    EXPECT_TRUE(
        PointNear(RvPoint3D::DajBodNaOsiUhlaEx(RvPoint3D(), u, 1.0, v, 3.0, RvPoint3D(0, 0, 1)),
                  0.0, 3.0, 0.0));
}

// ---------------------------------------------------------------------------------------------
// DajPriesecnik

TEST(RvPoint3DDajPriesecnik, LineMeetsThePlane) {
    // Down from (0, 0, 5) to the plane z = 1 with normal (0, 0, 2): den = -2, num = 2 - 10 = -8,
    // t = 4.
    EXPECT_TRUE(PointIs(RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, 5), RvPoint3D(0, 0, -1),
                                                 RvPoint3D(0, 0, 1), RvPoint3D(0, 0, 2)),
                        0.0, 0.0, 1.0));
    // From (1, 2, 3) along (1, 1, 1) to z = 0: den = 1, num = -3.
    EXPECT_TRUE(PointIs(RvPoint3D::DajPriesecnik(RvPoint3D(1, 2, 3), RvPoint3D(1, 1, 1),
                                                 RvPoint3D(), RvPoint3D(0, 0, 1)),
                        -2.0, -1.0, 0.0));
    // Meeting behind the start: from (0, 0, -2) along (0, 0, -1) to z = 1: t = -3.
    EXPECT_TRUE(PointIs(RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, -2), RvPoint3D(0, 0, -1),
                                                 RvPoint3D(7, 7, 1), RvPoint3D(0, 0, 1)),
                        0.0, 0.0, 1.0));
}

TEST(RvPoint3DDajPriesecnik, ParallelLineThrowsTheNumerator) {
    // den = 0, num = q*n - a*n = 2 - 10 = -8.
    EXPECT_THROW(RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, 5), RvPoint3D(1, 0, 0),
                                          RvPoint3D(0, 0, 1), RvPoint3D(0, 0, 2)),
                 double);
    try {
        RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, 5), RvPoint3D(1, 0, 0), RvPoint3D(0, 0, 1),
                                 RvPoint3D(0, 0, 2));
        ADD_FAILURE() << "no exception";
    } catch (double num) {
        EXPECT_EQ(num, -8.0);
    }
}

TEST(RvPoint3DDajPriesecnik, LineInThePlaneThrowsZero) {
    try {
        RvPoint3D::DajPriesecnik(RvPoint3D(3, 4, 1), RvPoint3D(1, 1, 0), RvPoint3D(0, 0, 1),
                                 RvPoint3D(0, 0, 1));
        ADD_FAILURE() << "no exception";
    } catch (double num) {
        EXPECT_EQ(num, 0.0);
    }
}

TEST(RvPoint3DDajPriesecnik, NearlyParallelWithinTheBandThrows) {
    // den = 2e-07 is within the band of 0; num = 1 - 5 = -4.
    try {
        RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, 5), RvPoint3D(1, 0, 2e-07), RvPoint3D(0, 0, 1),
                                 RvPoint3D(0, 0, 1));
        ADD_FAILURE() << "no exception";
    } catch (double num) {
        EXPECT_EQ(num, -4.0);
    }
}

TEST(RvPoint3DDajPriesecnik, NearlyParallelBeyondTheBandMeetsFarAway) {
    // den = 1e-06, num = -4: t = -4e6, the point (-4e6, 0, 1).
    RvPoint3D r;
    EXPECT_NO_THROW(r = RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, 5), RvPoint3D(1, 0, 1e-06),
                                                 RvPoint3D(0, 0, 1), RvPoint3D(0, 0, 1)));
    EXPECT_NEAR(r.x, -4e6, 1e-3);
    EXPECT_EQ(r.y, 0.0);
    EXPECT_NEAR(r.z, 1.0, 1e-9);
}

// ---------------------------------------------------------------------------------------------
// Archive record

TEST(RvPoint3DArchive, StoresThreeLittleEndianDoublesAndNothingElse) {
    // 1.5 = 0x3FF8000000000000, -2.0 = 0xC000000000000000, 0.1 = 0x3FB999999999999A.
    RvPoint3D p(1.5, -2.0, 0.1);
    const std::vector<std::uint8_t> expected = {
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF8, 0x3F,  // x
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xC0,  // y
        0x9A, 0x99, 0x99, 0x99, 0x99, 0x99, 0xB9, 0x3F,  // z
    };
    EXPECT_EQ(Stored(p), expected);
}

TEST(RvPoint3DArchive, SerializeThroughTheBaseClassWritesTheSameRecord) {
    RvPoint3D p(1.5, -2.0, 0.1);
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    CObject& object = p;
    object.Serialize(ar);
    ar.Flush();
    EXPECT_EQ(file.GetData(), Stored(p));
    EXPECT_EQ(file.GetData().size(), 24u);
}

TEST(RvPoint3DArchive, LoadsWhatWasStored) {
    RvPoint3D p(1.5, -2.0, 0.1);
    CMemFile file2(Stored(p));
    CArchive ar(&file2, CArchive::load);
    RvPoint3D q(9.0, 9.0, 9.0);
    q.Serialize(ar);
    EXPECT_TRUE(PointIs(q, 1.5, -2.0, 0.1));
    EXPECT_EQ(file2.GetPosition(), 24u);
}

TEST(RvPoint3DArchive, LoadsHandMadeBytes) {
    // 1.0 = 0x3FF0000000000000, -0.5 = 0xBFE0000000000000, 4.0 = 0x4010000000000000.
    CMemFile file(
        {0, 0, 0, 0, 0, 0, 0xF0, 0x3F, 0, 0, 0, 0, 0, 0, 0xE0, 0xBF, 0, 0, 0, 0, 0, 0, 0x10, 0x40});
    CArchive ar(&file, CArchive::load);
    RvPoint3D p;
    p.Serialize(ar);
    EXPECT_TRUE(PointIs(p, 1.0, -0.5, 4.0));
}

TEST(RvPoint3DArchive, RoundTripKeepsEveryBit) {
    const double values[][3] = {
        {-0.0, std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::max()},
        {kInf, -kInf, std::numeric_limits<double>::lowest()},
        {kNaN, 1e-300, -123456.789},
    };
    for (const auto& v : values) {
        SCOPED_TRACE(testing::Message() << v[0] << ", " << v[1] << ", " << v[2]);
        RvPoint3D p(v[0], v[1], v[2]);
        CMemFile file2(Stored(p));
        CArchive ar(&file2, CArchive::load);
        RvPoint3D q;
        q.Serialize(ar);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(q.x), std::bit_cast<std::uint64_t>(v[0]));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(q.y), std::bit_cast<std::uint64_t>(v[1]));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(q.z), std::bit_cast<std::uint64_t>(v[2]));
    }
}

TEST(RvPoint3DArchive, SeveralRecordsFollowOneAnother) {
    RvPoint3D a(1.0, 2.0, 3.0);
    RvPoint3D b(-4.0, -5.0, -6.0);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        a.Serialize(ar);
        b.Serialize(ar);
        ar.Flush();
    }
    ASSERT_EQ(file.GetData().size(), 48u);
    CMemFile file2(file.GetData());
    CArchive ar(&file2, CArchive::load);
    RvPoint3D c;
    RvPoint3D d;
    c.Serialize(ar);
    d.Serialize(ar);
    EXPECT_TRUE(PointIs(c, 1.0, 2.0, 3.0));
    EXPECT_TRUE(PointIs(d, -4.0, -5.0, -6.0));
}

TEST(RvPoint3DArchive, WritingToALoadingArchiveRaises) {
    RvPoint3D p(1.0, 2.0, 3.0);
    CMemFile file;
    CArchive ar(&file, CArchive::load);
    try {
        ar << p.x;
        ADD_FAILURE() << "no exception";
    } catch (const CArchiveException& e) {
        EXPECT_EQ(e.m_cause, CArchiveException::readOnly);
    }
    EXPECT_THROW(ar.WriteObject(&p), CArchiveException);
    EXPECT_TRUE(file.GetData().empty());
}

TEST(RvPoint3DArchive, ReadingFromAStoringArchiveRaises) {
    RvPoint3D p(1.0, 2.0, 3.0);
    CMemFile file(Stored(p));
    CArchive ar(&file, CArchive::store);
    double x = 0.0;
    try {
        ar >> x;
        ADD_FAILURE() << "no exception";
    } catch (const CArchiveException& e) {
        EXPECT_EQ(e.m_cause, CArchiveException::writeOnly);
    }
    EXPECT_THROW(ar.ReadObject(RUNTIME_CLASS(RvPoint3D)), CArchiveException);
}

TEST(RvPoint3DArchive, TruncatedRecordRaisesEndOfFile) {
    RvPoint3D p(1.5, -2.0, 0.1);
    std::vector<std::uint8_t> bytes = Stored(p);
    bytes.resize(20);
    CMemFile file2(bytes);
    CArchive ar(&file2, CArchive::load);
    RvPoint3D q;
    try {
        q.Serialize(ar);
        ADD_FAILURE() << "no exception";
    } catch (const CArchiveException& e) {
        EXPECT_EQ(e.m_cause, CArchiveException::endOfFile);
    }
}

TEST(RvPoint3DArchive, EmptyFileRaisesEndOfFile) {
    CMemFile file2;
    CArchive ar(&file2, CArchive::load);
    RvPoint3D q;
    try {
        q.Serialize(ar);
        ADD_FAILURE() << "no exception";
    } catch (const CArchiveException& e) {
        EXPECT_EQ(e.m_cause, CArchiveException::endOfFile);
    }
}

TEST(RvPoint3DArchive, WrittenAsAnObjectTheClassNameAndSchemaComeFirst) {
    // New-class tag 0xFFFF, schema 1, name length 9, "RvPoint3D", then the record.
    RvPoint3D p(1.5, -2.0, 0.1);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        ar.WriteObject(&p);
        ar.Flush();
    }
    std::vector<std::uint8_t> expected = {0xFF, 0xFF, 0x01, 0x00, 0x09, 0x00};
    AppendText(expected, "RvPoint3D");
    const std::vector<std::uint8_t> record = Stored(p);
    expected.insert(expected.end(), record.begin(), record.end());
    EXPECT_EQ(file.GetData(), expected);

    CMemFile file2(file.GetData());
    CArchive ar(&file2, CArchive::load);
    const std::unique_ptr<CObject> object = ar.ReadObject(RUNTIME_CLASS(RvPoint3D));
    const auto* q = dynamic_cast<const RvPoint3D*>(object.get());
    ASSERT_NE(q, nullptr);
    EXPECT_TRUE(PointIs(*q, 1.5, -2.0, 0.1));
}

// ---------------------------------------------------------------------------------------------
// Run-time class

TEST(RvPoint3DRuntimeClass, NameSchemaAndBase) {
    const RvPoint3D p;
    const CRuntimeClass* runtimeClass = p.GetRuntimeClass();
    ASSERT_NE(runtimeClass, nullptr);
    EXPECT_EQ(runtimeClass, RUNTIME_CLASS(RvPoint3D));
    EXPECT_STREQ(runtimeClass->m_lpszClassName, "RvPoint3D");
    EXPECT_EQ(runtimeClass->m_wSchema, 1u);
    EXPECT_EQ(runtimeClass->m_pBaseClass, &CObject::classCObject);
}

TEST(RvPoint3DRuntimeClass, RuntimeClassIsReachedThroughTheBase) {
    const RvPoint3D p;
    const CObject& object = p;
    EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "RvPoint3D");
    EXPECT_TRUE(object.IsKindOf(&CObject::classCObject));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(RvPoint3D)));
    EXPECT_TRUE(object.IsSerializable());
}

TEST(RvPoint3DRuntimeClass, CreateObjectByNameMakesADefaultPoint) {
    EXPECT_EQ(CRuntimeClass::FromName("RvPoint3D"), RUNTIME_CLASS(RvPoint3D));
    const std::unique_ptr<CObject> object = CRuntimeClass::CreateObject("RvPoint3D");
    ASSERT_NE(object, nullptr);
    const auto* p = dynamic_cast<const RvPoint3D*>(object.get());
    ASSERT_NE(p, nullptr);
    EXPECT_TRUE(PointIs(*p, 0.0, 0.0, 0.0));
    EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(RvPoint3D));
}

TEST(RvPoint3DRuntimeClass, CreateObjectFromTheRuntimeClass) {
    const std::unique_ptr<CObject> object = RUNTIME_CLASS(RvPoint3D)->CreateObject();
    const auto* p = dynamic_cast<const RvPoint3D*>(object.get());
    ASSERT_NE(p, nullptr);
    EXPECT_TRUE(PointIs(*p, 0.0, 0.0, 0.0));
}
