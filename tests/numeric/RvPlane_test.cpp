#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>
#include <vector>

#include "ravelin/numeric/RvPlane.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/AfxMessageBox.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

constexpr double kTight = 1e-12;

// Every test starts with the warning armed and a handler that records what would have been
// shown; both the handler and the process-wide flag are put back afterwards.
class RvPlaneTest : public testing::Test {
private:
    MessageBoxRecorder m_recorder;

protected:
    const std::vector<MessageBoxCall>& m_shown = m_recorder.calls();
};

using RvPlaneConstruction = RvPlaneTest;
using RvPlaneSetFromNormal = RvPlaneTest;
using RvPlaneSetFromDirections = RvPlaneTest;
using RvPlaneNormalVector = RvPlaneTest;
using RvPlaneIntersectVector = RvPlaneTest;
using RvPlaneNullVectors = RvPlaneTest;

void ExpectPlanar(const RvPoint2D& p, double x2D, double y2D, double tol = kTight) {
    EXPECT_NEAR(p.x2D, x2D, tol);
    EXPECT_NEAR(p.y2D, y2D, tol);
}

double Dot(const RvPoint3D& a, const RvPoint3D& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

double Length(const RvPoint3D& a) {
    return std::sqrt(Dot(a, a));
}

void ExpectSameFiveValues(const RvPoint2D& a, const RvPoint2D& b) {
    EXPECT_DOUBLE_EQ(a.x, b.x);
    EXPECT_DOUBLE_EQ(a.y, b.y);
    EXPECT_DOUBLE_EQ(a.z, b.z);
    EXPECT_DOUBLE_EQ(a.x2D, b.x2D);
    EXPECT_DOUBLE_EQ(a.y2D, b.y2D);
}

}  // namespace

// --- Construction -------------------------------------------------------------------------

TEST_F(RvPlaneConstruction, DefaultHoldsThreeZeroPoints) {
    const RvPlane plane;
    ExpectXyzNear(plane.m_vectorU, 0, 0, 0, 0);
    ExpectPlanar(plane.m_vectorU, 0, 0, 0);
    ExpectXyzNear(plane.m_vectorV, 0, 0, 0, 0);
    ExpectPlanar(plane.m_vectorV, 0, 0, 0);
    ExpectXyzNear(plane.m_point, 0, 0, 0, 0);
}

TEST_F(RvPlaneConstruction, DestructorIsVirtual) {
    EXPECT_TRUE(std::has_virtual_destructor_v<RvPlane>);
}

TEST_F(RvPlaneConstruction, PointAndNormalConstructorEqualsSet) {
    const RvPoint3D point(4, -5, 6);
    const RvPoint3D normal(1, 2, 2);
    const RvPlane made(point, normal);
    RvPlane set;
    set.Set(point, normal);
    ExpectSameFiveValues(made.m_vectorU, set.m_vectorU);
    ExpectSameFiveValues(made.m_vectorV, set.m_vectorV);
    ExpectXyzNear(made.m_point, 4, -5, 6, 0);
}

TEST_F(RvPlaneConstruction, PointAndDirectionsConstructorEqualsSet) {
    const RvPoint3D point(-1, 0, 7);
    const RvPoint3D u(3, 0, 4);
    const RvPoint3D v(1, 1, 0);
    const RvPlane made(point, u, v);
    RvPlane set;
    set.Set(point, u, v);
    ExpectSameFiveValues(made.m_vectorU, set.m_vectorU);
    ExpectSameFiveValues(made.m_vectorV, set.m_vectorV);
    ExpectXyzNear(made.m_point, -1, 0, 7, 0);
}

TEST_F(RvPlaneConstruction, GetPointReturnsACopyOfThePoint) {
    RvPlane plane(RvPoint3D(1, 2, 3), RvPoint3D(0, 0, 1));
    RvPoint3D copy = plane.GetPoint();
    ExpectXyzNear(copy, 1, 2, 3, 0);
    copy.Set(9, 9, 9);
    ExpectXyzNear(plane.m_point, 1, 2, 3, 0);
}

// --- Set from a point and a normal ---------------------------------------------------------

TEST_F(RvPlaneSetFromNormal, VerticalNormalKeepsStartDirection) {
    RvPlane plane;
    plane.Set(RvPoint3D(1, 2, 3), RvPoint3D(0, 0, 1));
    // Neither x nor y of the normal is large enough: the second direction stays (0, 1, 0), and
    // the first is (0, 0, 1) x (0, 1, 0) = (-1, 0, 0).
    ExpectXyzNear(plane.m_vectorV, 0, 1, 0, kTight);
    ExpectPlanar(plane.m_vectorV, 0, 1);
    ExpectXyzNear(plane.m_vectorU, -1, 0, 0, kTight);
    ExpectPlanar(plane.m_vectorU, -1, 0);
    ExpectXyzNear(plane.m_point, 1, 2, 3, 0);
    EXPECT_TRUE(m_shown.empty());
}

TEST_F(RvPlaneSetFromNormal, DownwardNormalTurnsFirstDirectionAround) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(0, 0, -2));
    // (0, 0, -1) x (0, 1, 0) = (1, 0, 0).
    ExpectXyzNear(plane.m_vectorV, 0, 1, 0, kTight);
    ExpectXyzNear(plane.m_vectorU, 1, 0, 0, kTight);
    ExpectPlanar(plane.m_vectorU, 1, 0);
}

TEST_F(RvPlaneSetFromNormal, NormalAlongXIsNormalisedAndGivesVerticalFirstDirection) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(2, 0, 0));
    // x decides: the second direction is (-(0 / 2), 1, 0) = (0, 1, 0); the normal becomes
    // (1, 0, 0), and (1, 0, 0) x (0, 1, 0) = (0, 0, 1).
    ExpectXyzNear(plane.m_vectorV, 0, 1, 0, kTight);
    ExpectPlanar(plane.m_vectorV, 0, 1);
    ExpectXyzNear(plane.m_vectorU, 0, 0, 1, kTight);
    ExpectPlanar(plane.m_vectorU, 0, 0);
    EXPECT_TRUE(m_shown.empty());
}

TEST_F(RvPlaneSetFromNormal, NormalAlongYBendsSecondDirectionOnlyInSpace) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(0, 3, 0));
    // y decides: the second direction is (1, -(0 / 3), 0) = (1, 0, 0) in space. Its planar pair
    // keeps the start value (0, 1): only its position in space is bent toward the normal.
    ExpectXyzNear(plane.m_vectorV, 1, 0, 0, kTight);
    ExpectPlanar(plane.m_vectorV, 0, 1);
    // (0, 1, 0) x (1, 0, 0) = (0, 0, -1).
    ExpectXyzNear(plane.m_vectorU, 0, 0, -1, kTight);
    ExpectPlanar(plane.m_vectorU, 0, 0);
}

TEST_F(RvPlaneSetFromNormal, ObliqueNormalWithLeadingX) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(1, 2, 2));
    // Second direction (-2, 1, 0) / sqrt(5); normal (1, 2, 2) / 3; their product is
    // (-2, -4, 5) / (3 sqrt(5)).
    const double s5 = std::sqrt(5.0);
    ExpectXyzNear(plane.m_vectorV, -2 / s5, 1 / s5, 0, kTight);
    // The second direction's planar pair keeps its start value (0, 1): only its position in
    // space is bent toward the normal.
    ExpectPlanar(plane.m_vectorV, 0, 1);
    ExpectXyzNear(plane.m_vectorU, -2 / (3 * s5), -4 / (3 * s5), 5 / (3 * s5), kTight);
    ExpectPlanar(plane.m_vectorU, -2 / (3 * s5), -4 / (3 * s5));
}

TEST_F(RvPlaneSetFromNormal, DiagonalNormal) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(1, 1, 1));
    // Second direction (-1, 1, 0) / sqrt(2); (1, 1, 1) x (-1, 1, 0) = (-1, -1, 2), so the first
    // is (-1, -1, 2) / sqrt(6).
    const double s2 = std::sqrt(2.0);
    const double s6 = std::sqrt(6.0);
    ExpectXyzNear(plane.m_vectorV, -1 / s2, 1 / s2, 0, kTight);
    ExpectPlanar(plane.m_vectorV, 0, 1);
    ExpectXyzNear(plane.m_vectorU, -1 / s6, -1 / s6, 2 / s6, kTight);
    ExpectPlanar(plane.m_vectorU, -1 / s6, -1 / s6);
}

TEST_F(RvPlaneSetFromNormal, ObliqueNormalWithoutX) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(0, 1, 1));
    // y decides: second direction (1, 0, 0); (0, 1, 1) / sqrt(2) x (1, 0, 0) = (0, 1, -1) /
    // sqrt(2).
    const double s2 = std::sqrt(2.0);
    ExpectXyzNear(plane.m_vectorV, 1, 0, 0, kTight);
    ExpectPlanar(plane.m_vectorV, 0, 1);
    ExpectXyzNear(plane.m_vectorU, 0, 1 / s2, -1 / s2, kTight);
    ExpectPlanar(plane.m_vectorU, 0, 1 / s2);
}

TEST_F(RvPlaneSetFromNormal, DirectionsAreUnitPerpendicularAndHorizontal) {
    const std::vector<RvPoint3D> normals = {
        RvPoint3D(1, 0, 0),    RvPoint3D(0, 1, 0),    RvPoint3D(1, 1, 1),    RvPoint3D(1, 2, 2),
        RvPoint3D(-3, 4, 0),   RvPoint3D(0, 1, 1),    RvPoint3D(0.5, -2, 3), RvPoint3D(2, 0, 1),
        RvPoint3D(-7, -1, -5), RvPoint3D(0, -0.3, 9), RvPoint3D(1e-3, 1, 0)};
    for (const RvPoint3D& normal : normals) {
        SCOPED_TRACE(testing::Message()
                     << "normal (" << normal.x << ", " << normal.y << ", " << normal.z << ")");
        RvPlane plane;
        plane.Set(RvPoint3D(1, 1, 1), normal);
        const RvPoint3D unitNormal = normal * (1 / Length(normal));
        const RvPoint3D& u = plane.m_vectorU;
        const RvPoint3D& v = plane.m_vectorV;
        EXPECT_NEAR(Length(v), 1, kTight);
        EXPECT_DOUBLE_EQ(v.z, 0);
        EXPECT_NEAR(Dot(v, unitNormal), 0, kTight);
        EXPECT_NEAR(Length(u), 1, kTight);
        EXPECT_NEAR(Dot(u, unitNormal), 0, kTight);
        EXPECT_NEAR(Dot(u, v), 0, kTight);
        // The first direction's planar pair copies its x, y.
        EXPECT_DOUBLE_EQ(plane.m_vectorU.x2D, u.x);
        EXPECT_DOUBLE_EQ(plane.m_vectorU.y2D, u.y);
        // The second direction's planar pair keeps its start value (0, 1), because only its
        // position in space is bent toward the normal.
        EXPECT_DOUBLE_EQ(plane.m_vectorV.x2D, 0);
        EXPECT_DOUBLE_EQ(plane.m_vectorV.y2D, 1);
    }
    EXPECT_TRUE(m_shown.empty());
}

TEST_F(RvPlaneSetFromNormal, XOfExactlyTheThresholdLetsYDecide) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(0.0001, 1, 0));
    // |x| is not above 0.0001, so y decides: (1, -(0.0001 / 1), 0) normalised. Had x decided,
    // the direction would have been (-10000, 1, 0) normalised, pointing toward negative x.
    const double length = std::sqrt(1 + 1e-8);
    ExpectXyzNear(plane.m_vectorV, 1 / length, -0.0001 / length, 0, 1e-15);
}

TEST_F(RvPlaneSetFromNormal, NegativeXOfExactlyTheThresholdLetsYDecide) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(-0.0001, 1, 0));
    const double length = std::sqrt(1 + 1e-8);
    ExpectXyzNear(plane.m_vectorV, 1 / length, 0.0001 / length, 0, 1e-15);
}

TEST_F(RvPlaneSetFromNormal, XPlainlyAboveTheThresholdDecides) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(0.0002, 1, 0));
    // (-(1 / 0.0002), 1, 0) = (-5000, 1, 0), normalised.
    const double length = std::sqrt(5000.0 * 5000.0 + 1);
    ExpectXyzNear(plane.m_vectorV, -5000 / length, 1 / length, 0, 1e-15);
}

TEST_F(RvPlaneSetFromNormal, YOfExactlyTheThresholdKeepsStartDirection) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(0, 0.0001, 1));
    // Neither x nor y is plainly above 0.0001: the second direction stays (0, 1, 0). The unit
    // normal is (0, 0.0001, 1) / sqrt(1 + 1e-8), and its product with (0, 1, 0) is (-z, 0, 0).
    ExpectXyzNear(plane.m_vectorV, 0, 1, 0, 0);
    ExpectXyzNear(plane.m_vectorU, -1 / std::sqrt(1 + 1e-8), 0, 0, 1e-15);
}

TEST_F(RvPlaneSetFromNormal, SecondSetStartsAgainFromTheStartDirection) {
    RvPlane plane(RvPoint3D(5, 5, 5), RvPoint3D(1, 1, 1));
    plane.Set(RvPoint3D(1, 0, 0), RvPoint3D(0, 0, 1));
    ExpectXyzNear(plane.m_vectorV, 0, 1, 0, 0);
    ExpectPlanar(plane.m_vectorV, 0, 1, 0);
    ExpectXyzNear(plane.m_vectorU, -1, 0, 0, kTight);
    ExpectXyzNear(plane.m_point, 1, 0, 0, 0);
}

TEST_F(RvPlaneSetFromNormal, CallersNormalIsLeftAsItIs) {
    RvPoint3D normal(0, 0, 4);
    RvPoint3D point(1, 2, 3);
    RvPlane plane;
    plane.Set(point, normal);
    ExpectXyzNear(normal, 0, 0, 4, 0);
    ExpectXyzNear(point, 1, 2, 3, 0);
}

// --- Set from a point and two directions ---------------------------------------------------

TEST_F(RvPlaneSetFromDirections, DirectionsAreNormalised) {
    RvPlane plane;
    plane.Set(RvPoint3D(7, 8, 9), RvPoint3D(3, 0, 4), RvPoint3D(0, 2, 0));
    ExpectXyzNear(plane.m_point, 7, 8, 9, 0);
    ExpectXyzNear(plane.m_vectorU, 0.6, 0, 0.8, kTight);
    ExpectXyzNear(plane.m_vectorV, 0, 1, 0, kTight);
    ExpectPlanar(plane.m_vectorV, 0, 1);
    EXPECT_TRUE(m_shown.empty());
}

TEST_F(RvPlaneSetFromDirections, PlanarPairIsNormalisedOnItsOwn) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(3, 0, 4), RvPoint3D(0, 2, 0));
    // The planar pair starts as (3, 0) and is divided by its own length, 3; the position in
    // space is divided by 5. For a direction that leaves the drawing plane the two differ.
    ExpectPlanar(plane.m_vectorU, 1, 0);
    EXPECT_DOUBLE_EQ(plane.m_vectorU.x, 0.6);
}

TEST_F(RvPlaneSetFromDirections, HorizontalDirectionsKeepPlanarPairEqualToXY) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(-6, 8, 0), RvPoint3D(1, 1, 0));
    const double s2 = std::sqrt(2.0);
    ExpectXyzNear(plane.m_vectorU, -0.6, 0.8, 0, kTight);
    ExpectPlanar(plane.m_vectorU, -0.6, 0.8);
    ExpectXyzNear(plane.m_vectorV, 1 / s2, 1 / s2, 0, kTight);
    ExpectPlanar(plane.m_vectorV, 1 / s2, 1 / s2);
}

TEST_F(RvPlaneSetFromDirections, DirectionsAreNotMadePerpendicular) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(2, 0, 0), RvPoint3D(1, 1, 0));
    const double s2 = std::sqrt(2.0);
    ExpectXyzNear(plane.m_vectorU, 1, 0, 0, kTight);
    ExpectXyzNear(plane.m_vectorV, 1 / s2, 1 / s2, 0, kTight);
    // (1, 0, 0) x (1, 1, 0) / sqrt(2) = (0, 0, 1 / sqrt(2)): not of unit length.
    const RvPoint3D normal = plane.GetNormalVector();
    ExpectXyzNear(normal, 0, 0, 1 / s2, kTight);
    EXPECT_NEAR(Length(normal), 1 / s2, kTight);
}

TEST_F(RvPlaneSetFromDirections, VerticalDirectionHasNoPlanarPair) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(1, 0, 0), RvPoint3D(0, 0, 5));
    // The planar pair (0, 0) is divided by its length 0 with no guard; the position in space is
    // still normalised.
    ExpectXyzNear(plane.m_vectorV, 0, 0, 1, kTight);
    EXPECT_TRUE(std::isnan(plane.m_vectorV.x2D));
    EXPECT_TRUE(std::isnan(plane.m_vectorV.y2D));
    EXPECT_TRUE(m_shown.empty());
}

// --- Normal vector -----------------------------------------------------------------------

TEST_F(RvPlaneNormalVector, IsFirstDirectionCrossSecond) {
    RvPlane plane;
    plane.m_vectorU = RvPoint2D(1, 2, 3);
    plane.m_vectorV = RvPoint2D(4, 5, 6);
    // (2*6 - 3*5, 3*4 - 1*6, 1*5 - 2*4) = (-3, 6, -3), with no normalisation.
    ExpectXyzNear(plane.GetNormalVector(), -3, 6, -3, 0);
}

TEST_F(RvPlaneNormalVector, ReadsOnlyThePositionsInSpace) {
    RvPlane plane;
    plane.m_vectorU = RvPoint2D(50, 60, 1, 0, 0);
    plane.m_vectorV = RvPoint2D(70, 80, 0, 1, 0);
    ExpectXyzNear(plane.GetNormalVector(), 0, 0, 1, 0);
}

TEST_F(RvPlaneNormalVector, OfAPlaneFromANormalPointsTheOtherWay) {
    // The first direction is normal x second, so first x second = (n x v) x v = -n for a unit
    // second direction perpendicular to the unit normal.
    RvPlane flat(RvPoint3D(), RvPoint3D(0, 0, 1));
    ExpectXyzNear(flat.GetNormalVector(), 0, 0, -1, kTight);
    RvPlane oblique(RvPoint3D(), RvPoint3D(1, 2, 2));
    ExpectXyzNear(oblique.GetNormalVector(), -1.0 / 3, -2.0 / 3, -2.0 / 3, kTight);
}

// --- Intersection direction ----------------------------------------------------------------

TEST_F(RvPlaneIntersectVector, ParallelPlanesGiveZero) {
    const RvPlane lower(RvPoint3D(0, 0, 0), RvPoint3D(0, 0, 1));
    const RvPlane upper(RvPoint3D(0, 0, 5), RvPoint3D(0, 0, 1));
    ExpectXyzNear(lower.GetIntersectVector(upper), 0, 0, 0, 0);
}

TEST_F(RvPlaneIntersectVector, ObliqueParallelAndOppositePlanesGiveZero) {
    const RvPlane a(RvPoint3D(0, 0, 0), RvPoint3D(1, 2, 2));
    const RvPlane b(RvPoint3D(3, 3, 3), RvPoint3D(2, 4, 4));
    const RvPlane c(RvPoint3D(-1, 0, 0), RvPoint3D(-1, -2, -2));
    ExpectXyzNear(a.GetIntersectVector(b), 0, 0, 0, kTight);
    ExpectXyzNear(a.GetIntersectVector(c), 0, 0, 0, kTight);
}

TEST_F(RvPlaneIntersectVector, HorizontalAndUprightPlanesMeetAlongX) {
    const RvPlane xy(RvPoint3D(), RvPoint3D(0, 0, 1));
    const RvPlane xz(RvPoint3D(), RvPoint3D(0, 1, 0));
    // The normals are (0, 0, -1) and (0, -1, 0); their product is (-1, 0, 0).
    ExpectXyzNear(xy.GetIntersectVector(xz), -1, 0, 0, kTight);
    // The order of the planes is the order of the product.
    ExpectXyzNear(xz.GetIntersectVector(xy), 1, 0, 0, kTight);
}

TEST_F(RvPlaneIntersectVector, IsPerpendicularToBothNormals) {
    const RvPlane a(RvPoint3D(), RvPoint3D(1, 2, 2));
    const RvPlane b(RvPoint3D(), RvPoint3D(0, 0, 1));
    // -(1, 2, 2) / 3 x (0, 0, -1) = (2/3, -1/3, 0).
    const RvPoint3D line = a.GetIntersectVector(b);
    ExpectXyzNear(line, 2.0 / 3, -1.0 / 3, 0, kTight);
    EXPECT_NEAR(Dot(line, a.GetNormalVector()), 0, kTight);
    EXPECT_NEAR(Dot(line, b.GetNormalVector()), 0, kTight);
}

// --- Null vectors ------------------------------------------------------------------------

TEST_F(RvPlaneNullVectors, ZeroNormalShowsTheWarningOnce) {
    RvPlane plane;
    plane.Set(RvPoint3D(1, 2, 3), RvPoint3D(0, 0, 0));
    ASSERT_EQ(m_shown.size(), 1u);
    EXPECT_EQ(m_shown[0].text, kNormalizeWarning);
    EXPECT_EQ(m_shown[0].type, 0u);
    EXPECT_EQ(m_shown[0].helpId, 0u);
    EXPECT_FALSE(RvPoint3D::s_bNormalizeWarning);
    // The zero normal stays zero, so the first direction is zero; the second is the start one.
    ExpectXyzNear(plane.m_vectorV, 0, 1, 0, 0);
    ExpectXyzNear(plane.m_vectorU, 0, 0, 0, 0);
    ExpectPlanar(plane.m_vectorU, 0, 0, 0);
    ExpectXyzNear(plane.m_point, 1, 2, 3, 0);
}

TEST_F(RvPlaneNullVectors, WarningIsNotRepeatedUntilArmedAgain) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D());
    plane.Set(RvPoint3D(), RvPoint3D());
    EXPECT_EQ(m_shown.size(), 1u);
    RvPoint3D::Activate_Normalize_Warning_ERR();
    plane.Set(RvPoint3D(), RvPoint3D());
    EXPECT_EQ(m_shown.size(), 2u);
}

TEST_F(RvPlaneNullVectors, DisarmedWarningStaysSilent) {
    RvPoint3D::s_bNormalizeWarning = false;
    RvPlane plane(RvPoint3D(0, 0, 0), RvPoint3D(0, 0, 0));
    EXPECT_TRUE(m_shown.empty());
    ExpectXyzNear(plane.m_vectorU, 0, 0, 0, 0);
}

TEST_F(RvPlaneNullVectors, ZeroDirectionsWarnOnceAndStayZero) {
    RvPlane plane;
    plane.Set(RvPoint3D(), RvPoint3D(), RvPoint3D());
    ASSERT_EQ(m_shown.size(), 1u);
    EXPECT_EQ(m_shown[0].text, kNormalizeWarning);
    ExpectXyzNear(plane.m_vectorU, 0, 0, 0, 0);
    ExpectXyzNear(plane.m_vectorV, 0, 0, 0, 0);
}
