#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/skeleton/RvSkeleton.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// Destructions of CountingSkeleton since the last reset.
int g_skeletonsDestroyed = 0;

// A skeleton that counts its destructions, to observe who deletes the one a polygon holds.
class CountingSkeleton : public RvSkeleton {
public:
    ~CountingSkeleton() override { ++g_skeletonsDestroyed; }
};

// A point whose planar pair and spatial position are both (x, y, z) and (x, y).
RvPoint2D P3(double x, double y, double z) {
    return RvPoint2D(x, y, x, y, z);
}

RvPolygon2D CcwUnitSquare() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1)});
}
RvPolygon2D CcwUnitSquareClosed() {
    return Ring(
        {RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0, 0)});
}
RvPolygon2D CwUnitSquare() {
    return Ring({RvPoint2D(0, 0), RvPoint2D(0, 1), RvPoint2D(1, 1), RvPoint2D(1, 0)});
}
RvPolygon2D CwUnitSquareClosed() {
    return Ring(
        {RvPoint2D(0, 0), RvPoint2D(0, 1), RvPoint2D(1, 1), RvPoint2D(1, 0), RvPoint2D(0, 0)});
}

// An axis-aligned square of side `s` with its lower left corner at (x, y), at height z.
RvPolygon2D SquareAt(double x, double y, double s, double z = 0.0) {
    return Ring({P3(x, y, z), P3(x + s, y, z), P3(x + s, y + s, z), P3(x, y + s, z)});
}

// ---- Construction, copying and the skeleton ---------------------------------------------------

TEST(RvPolygon2DConstruction, DefaultIsEmptyWithTypeOneAndNoSkeleton) {
    RvPolygon2D p;
    EXPECT_TRUE(p.empty());
    EXPECT_EQ(p.GetType(), 1u);
    EXPECT_EQ(p.m_pSkeleton, nullptr);
}

TEST(RvPolygon2DConstruction, EdgesAreNotDrawnByDefaultAndTheFlagIsSettable) {
    RvPolygon2D p;
    EXPECT_FALSE(p.m_bDrawEdges);
    p.m_bDrawEdges = true;
    EXPECT_TRUE(p.m_bDrawEdges);
    p.m_bDrawEdges = false;
    EXPECT_FALSE(p.m_bDrawEdges);
}

TEST(RvPolygon2DConstruction, FromPolylineTakesItsPointsAsTheyStandWithTypeOne) {
    const RvPolyLine2D line = Path({RvPoint2D(0, 0), RvPoint2D(3, 0), RvPoint2D(3, 2)});
    ASSERT_EQ(line.GetType(), 2u);
    const RvPolygon2D p(line);
    EXPECT_EQ(p.GetType(), 1u);
    EXPECT_EQ(p.m_pSkeleton, nullptr);
    ASSERT_EQ(p.size(), 3u);
    EXPECT_TRUE(HasValues(p[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(p[1], 3, 0, 0, 3, 0));
    EXPECT_TRUE(HasValues(p[2], 3, 2, 0, 3, 2));
}

TEST(RvPolygon2DConstruction, CopyKeepsPointsAndTypeButStartsWithoutSkeleton) {
    g_skeletonsDestroyed = 0;
    {
        RvPolygon2D source = CcwUnitSquare();
        auto* skeleton = new CountingSkeleton;
        source.m_pSkeleton = skeleton;
        const RvPolygon2D copy(source);
        EXPECT_EQ(copy.GetType(), 1u);
        EXPECT_EQ(copy.m_pSkeleton, nullptr);
        EXPECT_EQ(source.m_pSkeleton, skeleton);
        ASSERT_EQ(copy.size(), 4u);
        EXPECT_TRUE(HasValues(copy[2], 1, 1, 0, 1, 1));
    }
    // Only the source owned the skeleton: it is destroyed once.
    EXPECT_EQ(g_skeletonsDestroyed, 1);
}

TEST(RvPolygon2DSkeleton, DestructorDeletesTheSkeletonHeld) {
    g_skeletonsDestroyed = 0;
    {
        RvPolygon2D p = CcwUnitSquare();
        p.m_pSkeleton = new CountingSkeleton;
        EXPECT_EQ(g_skeletonsDestroyed, 0);
    }
    EXPECT_EQ(g_skeletonsDestroyed, 1);
}

TEST(RvPolygon2DSkeleton, DestructorWithoutSkeletonDeletesNothing) {
    g_skeletonsDestroyed = 0;
    { RvPolygon2D p = CcwUnitSquare(); }
    EXPECT_EQ(g_skeletonsDestroyed, 0);
}

TEST(RvPolygon2DSkeleton, AssignmentDeletesOwnSkeletonAndNeverCopiesTheSources) {
    g_skeletonsDestroyed = 0;
    {
        RvPolygon2D target = CcwUnitSquare();
        RvPolygon2D source = SquareAt(5, 5, 2);
        target.m_pSkeleton = new CountingSkeleton;
        auto* sourceSkeleton = new CountingSkeleton;
        source.m_pSkeleton = sourceSkeleton;

        RvPolygon2D& result = (target = source);
        EXPECT_EQ(&result, &target);
        EXPECT_EQ(g_skeletonsDestroyed, 1);  // the target's own
        EXPECT_EQ(target.m_pSkeleton, nullptr);
        EXPECT_EQ(source.m_pSkeleton, sourceSkeleton);
        EXPECT_EQ(target.GetType(), 1u);
        ASSERT_EQ(target.size(), 4u);
        EXPECT_TRUE(HasValues(target[0], 5, 5, 0, 5, 5));
        EXPECT_TRUE(HasValues(target[2], 7, 7, 0, 7, 7));
    }
    // The source's skeleton goes with the source only.
    EXPECT_EQ(g_skeletonsDestroyed, 2);
}

TEST(RvPolygon2DSkeleton, ReInitForgetsTheSkeletonWithoutDeletingIt) {
    g_skeletonsDestroyed = 0;
    auto* skeleton = new CountingSkeleton;
    {
        RvPolygon2D p = CcwUnitSquare();
        p.m_pSkeleton = skeleton;
        p.ReInit();
        EXPECT_EQ(p.m_pSkeleton, nullptr);
        EXPECT_EQ(g_skeletonsDestroyed, 0);
    }
    // The polygon no longer knows it, so its destructor left it alone as well.
    EXPECT_EQ(g_skeletonsDestroyed, 0);
    delete skeleton;
    EXPECT_EQ(g_skeletonsDestroyed, 1);
}

TEST(RvPolygon2DSkeleton, ReInitLeavesAnEmptyPolygonOfTypeOneAndNoArea) {
    RvPolygon2D p = CcwUnitSquare();
    p.ReInit();
    EXPECT_TRUE(p.empty());
    EXPECT_EQ(p.GetType(), 1u);
    EXPECT_EQ(p.GetPlochu(), 0.0);
}

// ---- Area -----------------------------------------------------------------------------------

TEST(RvPolygon2DArea, CounterclockwiseUnitSquareIsPlusOneOpenOrClosed) {
    EXPECT_DOUBLE_EQ(CcwUnitSquare().GetPlochuOriented(), 1.0);
    EXPECT_DOUBLE_EQ(CcwUnitSquareClosed().GetPlochuOriented(), 1.0);
}

TEST(RvPolygon2DArea, ClockwiseUnitSquareIsMinusOneOpenOrClosed) {
    EXPECT_DOUBLE_EQ(CwUnitSquare().GetPlochuOriented(), -1.0);
    EXPECT_DOUBLE_EQ(CwUnitSquareClosed().GetPlochuOriented(), -1.0);
}

TEST(RvPolygon2DArea, UnsignedAreaIsTheMagnitude) {
    EXPECT_DOUBLE_EQ(CcwUnitSquare().GetPlochu(), 1.0);
    EXPECT_DOUBLE_EQ(CwUnitSquare().GetPlochu(), 1.0);
}

TEST(RvPolygon2DArea, FewerThanThreeVerticesGiveZero) {
    EXPECT_EQ(RvPolygon2D().GetPlochuOriented(), 0.0);
    EXPECT_EQ(Ring({RvPoint2D(0, 0), RvPoint2D(5, 5)}).GetPlochuOriented(), 0.0);
    EXPECT_EQ(Ring({RvPoint2D(0, 0), RvPoint2D(5, 5)}).GetPlochu(), 0.0);
}

TEST(RvPolygon2DArea, TiltedPlanarPolygonGivesItsTrueArea) {
    // The unit square lifted along y: z = y. Its sides are 1 and sqrt(2).
    const RvPolygon2D tilted = Ring({P3(0, 0, 0), P3(1, 0, 0), P3(1, 1, 1), P3(0, 1, 1)});
    EXPECT_NEAR(tilted.GetPlochuOriented(), std::sqrt(2.0), 1e-12);
    const RvPolygon2D reversed = Ring({P3(0, 0, 0), P3(0, 1, 1), P3(1, 1, 1), P3(1, 0, 0)});
    EXPECT_NEAR(reversed.GetPlochuOriented(), -std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(reversed.GetPlochu(), std::sqrt(2.0), 1e-12);
}

TEST(RvPolygon2DArea, TrianglesWithZeroZAreSubtractedInEitherDirection) {
    // A unit square standing in the plane x = 0: every fan triangle has cross product (+-1,0,0),
    // whose z is not above 0, so each is subtracted whichever way the ring runs.
    const RvPolygon2D wall = Ring({P3(0, 0, 0), P3(0, 1, 0), P3(0, 1, 1), P3(0, 0, 1)});
    EXPECT_DOUBLE_EQ(wall.GetPlochuOriented(), -1.0);
    const RvPolygon2D wallReversed = Ring({P3(0, 0, 0), P3(0, 0, 1), P3(0, 1, 1), P3(0, 1, 0)});
    EXPECT_DOUBLE_EQ(wallReversed.GetPlochuOriented(), -1.0);
}

TEST(RvPolygon2DArea, ReadsTheSpatialPositionNotThePlanarPair) {
    // Planar pair a 10 x 10 square, spatial position the clockwise unit square.
    const RvPolygon2D p = Ring({RvPoint2D(0, 0, 0, 0, 0), RvPoint2D(10, 0, 0, 1, 0),
                                RvPoint2D(10, 10, 1, 1, 0), RvPoint2D(0, 10, 1, 0, 0)});
    EXPECT_DOUBLE_EQ(p.GetPlochuOriented(), -1.0);
}

// ---- Perimeter ------------------------------------------------------------------------------

TEST(RvPolygon2DPerimeter, UnitSquareIsFourOpenOrClosed) {
    EXPECT_DOUBLE_EQ(CcwUnitSquare().GetObvod(), 4.0);
    EXPECT_DOUBLE_EQ(CcwUnitSquareClosed().GetObvod(), 4.0);
}

TEST(RvPolygon2DPerimeter, FewerThanThreeVerticesGiveZero) {
    EXPECT_EQ(RvPolygon2D().GetObvod(), 0.0);
    EXPECT_EQ(Ring({RvPoint2D(0, 0), RvPoint2D(5, 0)}).GetObvod(), 0.0);
}

TEST(RvPolygon2DPerimeter, IsMeasuredInSpace) {
    // The square lifted along y has two sides of 1 and two of sqrt(2).
    const RvPolygon2D tilted = Ring({P3(0, 0, 0), P3(1, 0, 0), P3(1, 1, 1), P3(0, 1, 1)});
    EXPECT_NEAR(tilted.GetObvod(), 2.0 + 2.0 * std::sqrt(2.0), 1e-12);
}

TEST(RvPolygon2DPerimeter, LastVertexWithinToleranceOfFirstAddsNoClosingEdge) {
    // (0.005, 0) counts as the first vertex: the ring is closed and only the stored edges count.
    const RvPolygon2D p = Ring(
        {RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0.005, 0)});
    EXPECT_NEAR(p.GetObvod(), 3.0 + std::sqrt(1.0 + 0.005 * 0.005), 1e-12);
    // (0.5, 0) does not: the closing edge of length 0.5 is added.
    const RvPolygon2D q = Ring(
        {RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0.5, 0)});
    EXPECT_NEAR(q.GetObvod(), 3.0 + std::sqrt(1.25) + 0.5, 1e-12);
}

// ---- Orientation ----------------------------------------------------------------------------

TEST(RvPolygon2DOrientation, FewerThanThreeVerticesGiveZero) {
    EXPECT_EQ(static_cast<double>(RvPolygon2D().GetOrientation()), 0.0);
    EXPECT_EQ(static_cast<double>(Ring({RvPoint2D(0, 0), RvPoint2D(1, 0)}).GetOrientation()), 0.0);
}

TEST(RvPolygon2DOrientation, CounterclockwiseIsPositive) {
    // Extreme vertex (1,0), prev (0,0), next (1,1): 1*1 - 1*0 = 1.
    EXPECT_EQ(static_cast<double>(CcwUnitSquare().GetOrientation()), 1.0);
}

TEST(RvPolygon2DOrientation, ClockwiseIsNegative) {
    // Extreme vertex (1,0), the last; next wraps to (0,0), prev (1,1): (0-1)*0 - (0-1)*(0-1).
    EXPECT_EQ(static_cast<double>(CwUnitSquare().GetOrientation()), -1.0);
}

TEST(RvPolygon2DOrientation, ClosedRingWithSeamAtExtremeVertexGivesZero) {
    // (1,0) is both first and last; the last wins among duplicates, and next is v[0] again.
    const RvPolygon2D p =
        Ring({RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_EQ(static_cast<double>(p.GetOrientation()), 0.0);
}

TEST(RvPolygon2DOrientation, ClosingVertexLeftOfFirstWithinToleranceTakesTheOneBefore) {
    // The last vertex (0.995, 0) lies left of (1,0) and equals it within 0.01: the extreme
    // vertex stays v[0], and prev is v[n-2] = (0,0): (1-0)*(1-0) - (1-0)*(0-0) = 1.
    // With prev = (0.995, 0) it would be 0.005.
    const RvPolygon2D p = Ring(
        {RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0, 0), RvPoint2D(0.995, 0)});
    EXPECT_NEAR(static_cast<double>(p.GetOrientation()), 1.0, 1e-12);
}

TEST(RvPolygon2DOrientation, OpenRingTakesTheLastVertexAsPrevOfTheFirst) {
    // The last vertex (0.5, 0) differs from v[0]: prev = (0.5,0), next = (1,1):
    // (1-0)*(1-0.5) - (1-0.5)*(0-0) = 0.5.
    const RvPolygon2D p = Ring(
        {RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0, 0), RvPoint2D(0.5, 0)});
    EXPECT_DOUBLE_EQ(static_cast<double>(p.GetOrientation()), 0.5);
}

TEST(RvPolygon2DOrientation, ReadsThePlanarPairNotTheSpatialPosition) {
    // Planar pair counterclockwise, spatial position clockwise: orientation and area disagree.
    const RvPolygon2D p = Ring({RvPoint2D(0, 0, 0, 0, 0), RvPoint2D(1, 0, 0, 1, 0),
                                RvPoint2D(1, 1, 1, 1, 0), RvPoint2D(0, 1, 1, 0, 0)});
    EXPECT_GT(static_cast<double>(p.GetOrientation()), 0.0);
    EXPECT_LT(p.GetPlochuOriented(), 0.0);
}

// ---- Normal at the extreme vertex -------------------------------------------------------------

TEST(RvPolygon2DNormal2, CounterclockwiseRingPointsUp) {
    EXPECT_TRUE(PointIs(CcwUnitSquare().GetNormalVector2(), 0, 0, 1));
    EXPECT_TRUE(PointIs(CcwUnitSquareClosed().GetNormalVector2(), 0, 0, 1));
}

TEST(RvPolygon2DNormal2, ClockwiseRingPointsDown) {
    EXPECT_TRUE(PointIs(CwUnitSquare().GetNormalVector2(), 0, 0, -1));
    EXPECT_TRUE(PointIs(CwUnitSquareClosed().GetNormalVector2(), 0, 0, -1));
}

TEST(RvPolygon2DNormal2, IsNormalised) {
    const RvPolygon2D big = SquareAt(0, 0, 10);
    EXPECT_TRUE(PointIs(big.GetNormalVector2(), 0, 0, 1));
}

TEST(RvPolygon2DNormal2, FewerThanThreeVerticesGiveTheNullVector) {
    EXPECT_TRUE(PointIs(Ring({RvPoint2D(0, 0), RvPoint2D(1, 0)}).GetNormalVector2(), 0, 0, 0));
}

TEST(RvPolygon2DNormal2, ClosedRingWithExtremeFirstVertexUsesTheVertexBeforeTheRepeat) {
    // The repeat (1,0) is left out; the extreme vertex is v[0] = (1,0), prev v[n-2] = (0,0),
    // next (1,1): (-1,-1,0) x (0,-1,0) = (0,0,1). Taking the repeat as prev would give null.
    const RvPolygon2D p =
        Ring({RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_TRUE(PointIs(p.GetNormalVector2(), 0, 0, 1));
}

TEST(RvPolygon2DNormal2, FlatRingGivesTheNullVectorWithoutWarning) {
    MessageBoxRecorder recorder;
    const RvPolygon2D p = Ring({RvPoint2D(0, 0), RvPoint2D(1, 0), RvPoint2D(2, 0)});
    EXPECT_TRUE(PointIs(p.GetNormalVector2(), 0, 0, 0));
    EXPECT_TRUE(recorder.calls().empty());
}

// ---- Equality -------------------------------------------------------------------------------

TEST(RvPolygon2DEquality, RingEqualsItself) {
    EXPECT_TRUE(CcwUnitSquare() == CcwUnitSquare());
}

TEST(RvPolygon2DEquality, RotatedRingIsEqual) {
    const RvPolygon2D rotated =
        Ring({RvPoint2D(1, 1), RvPoint2D(0, 1), RvPoint2D(0, 0), RvPoint2D(1, 0)});
    EXPECT_TRUE(CcwUnitSquare() == rotated);
    EXPECT_TRUE(rotated == CcwUnitSquare());
}

TEST(RvPolygon2DEquality, ReversedRingStartedElsewhereIsEqual) {
    const RvPolygon2D reversed =
        Ring({RvPoint2D(1, 1), RvPoint2D(1, 0), RvPoint2D(0, 0), RvPoint2D(0, 1)});
    EXPECT_TRUE(CcwUnitSquare() == reversed);
}

TEST(RvPolygon2DEquality, ReversedRingStartedAtTheFirstVertexWrapsBackward) {
    // o[0] matches v[0]; v[1] does not match o[1], so the backward index starts at n-1.
    EXPECT_TRUE(CcwUnitSquare() == CwUnitSquare());
}

TEST(RvPolygon2DEquality, TwoEmptyPolygonsAreNotEqual) {
    EXPECT_FALSE(RvPolygon2D() == RvPolygon2D());
}

TEST(RvPolygon2DEquality, DifferentCountsAreNotEqual) {
    EXPECT_FALSE(CcwUnitSquare() == CcwUnitSquareClosed());
}

TEST(RvPolygon2DEquality, FirstVertexMissingIsNotEqual) {
    EXPECT_FALSE(CcwUnitSquare() == SquareAt(5, 5, 1));
}

TEST(RvPolygon2DEquality, MismatchLaterInTheWalkIsNotEqual) {
    const RvPolygon2D forward =
        Ring({RvPoint2D(1, 0), RvPoint2D(1, 1), RvPoint2D(0, 2), RvPoint2D(0, 0)});
    EXPECT_FALSE(CcwUnitSquare() == forward);
    const RvPolygon2D backward =
        Ring({RvPoint2D(1, 1), RvPoint2D(1, 0), RvPoint2D(0, 0), RvPoint2D(0, 2)});
    EXPECT_FALSE(CcwUnitSquare() == backward);
}

TEST(RvPolygon2DEquality, NeitherNeighbourMatchingIsNotEqual) {
    const RvPolygon2D other =
        Ring({RvPoint2D(0, 0), RvPoint2D(1, 1), RvPoint2D(1, 0), RvPoint2D(0, 1)});
    EXPECT_FALSE(CcwUnitSquare() == other);
}

TEST(RvPolygon2DEquality, OnlyTheFirstMatchOfTheStartVertexIsTried) {
    // v = A B A C D; o is v rotated to start at its second A: A C D A B. From the first A,
    // neither neighbour (B forward, D backward) is C, so the rings are not equal.
    const RvPoint2D a(0, 0), b(1, 0), c(1, 1), d(0, 1);
    const RvPolygon2D v = Ring({a, b, a, c, d});
    const RvPolygon2D o = Ring({a, c, d, a, b});
    EXPECT_FALSE(v == o);
}

TEST(RvPolygon2DEquality, VerticesMatchWithinTolerance) {
    const RvPolygon2D nudged =
        Ring({RvPoint2D(0.005, 0), RvPoint2D(1, 0.005), RvPoint2D(1, 1), RvPoint2D(0, 1)});
    EXPECT_TRUE(CcwUnitSquare() == nudged);
    const RvPolygon2D moved =
        Ring({RvPoint2D(0, 0), RvPoint2D(1, 0.05), RvPoint2D(1, 1), RvPoint2D(0, 1)});
    EXPECT_FALSE(CcwUnitSquare() == moved);
}

TEST(RvPolygon2DEquality, HeightIsNotCompared) {
    EXPECT_TRUE(SquareAt(0, 0, 1, 0.0) == SquareAt(0, 0, 1, 7.0));
}

TEST(RvPolygon2DEquality, TwoVertexPolygonsPassOnTheirFirstTwoComparisons) {
    const RvPolygon2D ab = Ring({RvPoint2D(0, 0), RvPoint2D(3, 0)});
    const RvPolygon2D ba = Ring({RvPoint2D(3, 0), RvPoint2D(0, 0)});
    EXPECT_TRUE(ab == ba);
}

// ---- Largest and nearest ----------------------------------------------------------------------

TEST(RvPolygon2DBiggest, EmptyVectorGivesEnd) {
    std::vector<RvPolygon2D> polys;
    EXPECT_TRUE(RvPolygon2D::GetBigestPolygon(polys) == polys.end());
}

TEST(RvPolygon2DBiggest, LargestByUnsignedAreaFirstOfEquals) {
    std::vector<RvPolygon2D> polys;
    polys.push_back(SquareAt(0, 0, 1));
    polys.push_back(CwUnitSquare());  // area -1
    polys.push_back(SquareAt(10, 0, 2));
    polys.push_back(SquareAt(20, 0, 2));
    polys.push_back(SquareAt(30, 0, 1));
    EXPECT_EQ(RvPolygon2D::GetBigestPolygon(polys) - polys.begin(), 2);
}

TEST(RvPolygon2DBiggest, SingleElementIsTheResult) {
    std::vector<RvPolygon2D> polys;
    polys.push_back(RvPolygon2D());
    EXPECT_TRUE(RvPolygon2D::GetBigestPolygon(polys) == polys.begin());
}

TEST(RvPolygon2DBiggest, ClockwiseRingCountsByItsMagnitude) {
    std::vector<RvPolygon2D> polys;
    polys.push_back(SquareAt(0, 0, 1));
    polys.push_back(Ring({RvPoint2D(0, 0), RvPoint2D(0, 3), RvPoint2D(3, 3), RvPoint2D(3, 0)}));
    EXPECT_EQ(RvPolygon2D::GetBigestPolygon(polys) - polys.begin(), 1);
}

TEST(RvPolygon2DNearest, EmptyVectorGivesBegin) {
    std::vector<RvPolygon2D> polys;
    EXPECT_TRUE(RvPolygon2D::GetNearestPolygon(RvPoint3D(0, 0, 0), polys) == polys.begin());
}

TEST(RvPolygon2DNearest, NearestBoundaryWins) {
    // From (5, 0.5, 0): the right side of the unit square is 4 away, the square at x = 10 is 5.
    std::vector<RvPolygon2D> polys;
    polys.push_back(SquareAt(10, 0, 1));
    polys.push_back(SquareAt(0, 0, 1));
    EXPECT_EQ(RvPolygon2D::GetNearestPolygon(RvPoint3D(5, 0.5, 0), polys) - polys.begin(), 1);
}

TEST(RvPolygon2DNearest, FirstOfEqualDistancesWins) {
    std::vector<RvPolygon2D> polys;
    polys.push_back(SquareAt(20, 0, 1));
    polys.push_back(SquareAt(0, 0, 1));
    polys.push_back(SquareAt(0, 0, 1));
    EXPECT_EQ(RvPolygon2D::GetNearestPolygon(RvPoint3D(5, 0.5, 0), polys) - polys.begin(), 1);
}

TEST(RvPolygon2DNearest, DistanceIsMeasuredInSpace) {
    // Same outline at heights 0 and 2; from (0.5, 0.5, 1.5) the upper ring is nearer
    // (sqrt(0.5) against sqrt(2.5)) though both are equally near in the plane.
    std::vector<RvPolygon2D> polys;
    polys.push_back(SquareAt(0, 0, 1, 0.0));
    polys.push_back(SquareAt(0, 0, 1, 2.0));
    EXPECT_EQ(RvPolygon2D::GetNearestPolygon(RvPoint3D(0.5, 0.5, 1.5), polys) - polys.begin(), 1);
}

TEST(RvPolygon2DNearest, EdgeInteriorIsPreferredToTheVertices) {
    // From (0.5, -1, 0): the wide rectangle's bottom side is 0.5 away at the foot (0.5, -0.5),
    // its vertices over 4.5; the small square's nearest point, its corner (1.2, -1.1), is about
    // 0.71 away. The rectangle wins only through the projection onto its edge.
    std::vector<RvPolygon2D> polys;
    polys.push_back(SquareAt(1.2, -1.2, 0.1));  // corner (1.2, -1.1): about 0.71 away
    polys.push_back(Ring({RvPoint2D(-4, -0.5), RvPoint2D(5, -0.5), RvPoint2D(5, 3),
                          RvPoint2D(-4, 3)}));  // bottom side 0.5 away
    EXPECT_EQ(RvPolygon2D::GetNearestPolygon(RvPoint3D(0.5, -1, 0), polys) - polys.begin(), 1);
}

TEST(RvPolygon2DNearest, PolygonWithoutVerticesBeatsADistanceAlreadySet) {
    std::vector<RvPolygon2D> polys;
    polys.push_back(SquareAt(0, 0, 1));
    polys.push_back(RvPolygon2D());
    EXPECT_EQ(RvPolygon2D::GetNearestPolygon(RvPoint3D(0.5, 0.5, 0), polys) - polys.begin(), 1);
}

TEST(RvPolygon2DNearest, PolygonAfterAnEmptyOneTakesOverBecauseItsMinusOneReadsAsUnset) {
    // The empty polygon leaves best at -1.0, below -1e-05, so the next polygon replaces it
    // whatever its distance. The empty polygon wins only when nothing with vertices follows.
    std::vector<RvPolygon2D> polys;
    polys.push_back(RvPolygon2D());
    polys.push_back(SquareAt(100, 100, 1));
    EXPECT_EQ(RvPolygon2D::GetNearestPolygon(RvPoint3D(0, 0, 0), polys) - polys.begin(), 1);
}

// ---- Locating a point on the plane --------------------------------------------------------------

TEST(RvPolygon2DLocate, SetsHeightOnATiltedPlane) {
    // Plane z = x + 2y. u = (1,0,1), w = (1,1,3), N = (-1,-2,1): z(2,3) = 2 + 6 = 8.
    RvPolygon2D p = Ring({P3(0, 0, 0), P3(1, 0, 1), P3(1, 1, 3), P3(0, 1, 2)});
    RvPoint3D q(2, 3, 99);
    EXPECT_EQ(p.LocatePointToPlain(q), 1);
    EXPECT_TRUE(PointIs(q, 2, 3, 8));
}

TEST(RvPolygon2DLocate, HorizontalPlaneGivesItsHeight) {
    RvPolygon2D p = SquareAt(0, 0, 1, 4.0);
    RvPoint3D q(-7, 12, 0);
    EXPECT_EQ(p.LocatePointToPlain(q), 1);
    ExpectXyzNear(q, -7, 12, 4, 1e-12);
}

TEST(RvPolygon2DLocate, VerticalPlaneIsNoPlane) {
    RvPolygon2D p = Ring({P3(0, 0, 0), P3(1, 0, 0), P3(1, 0, 1), P3(0, 0, 1)});
    RvPoint3D q(2, 3, 5);
    EXPECT_EQ(p.LocatePointToPlain(q), 0);
    EXPECT_TRUE(PointIs(q, 2, 3, 5));
}

TEST(RvPolygon2DLocate, FewerThanThreeVerticesIsNoPlane) {
    RvPolygon2D p = Ring({P3(0, 0, 0), P3(1, 0, 1)});
    RvPoint3D q(2, 3, 5);
    EXPECT_EQ(p.LocatePointToPlain(q), 0);
    EXPECT_TRUE(PointIs(q, 2, 3, 5));
}

TEST(RvPolygon2DLocate, AllVerticesWithinTheBoxOfTheFirstIsNoPlane) {
    RvPolygon2D p = Ring({P3(0, 0, 0), P3(0.005, 0, 0), P3(0, 0.005, 0.005)});
    RvPoint3D q(2, 3, 5);
    EXPECT_EQ(p.LocatePointToPlain(q), 0);
    EXPECT_TRUE(PointIs(q, 2, 3, 5));
}

TEST(RvPolygon2DLocate, NearDuplicatesOfTheFirstVertexAreSkipped) {
    // (0.005, 0.005, 0.009) lies within 0.01 of v[0] in every coordinate but off the plane
    // z = x + 2y; taken as B it would give z(2,3) = 4.4. Skipped, the plane is z = x + 2y.
    RvPolygon2D p =
        Ring({P3(0, 0, 0), P3(0.005, 0.005, 0.009), P3(1, 0, 1), P3(1, 1, 3), P3(0, 1, 2)});
    RvPoint3D q(2, 3, 99);
    EXPECT_EQ(p.LocatePointToPlain(q), 1);
    ExpectXyzNear(q, 2, 3, 8, 1e-9);
}

TEST(RvPolygon2DLocate, CollinearThirdVertexIsPassedOver) {
    // (2,0,2) is on the line of A and B; C is the next vertex, (1,1,3).
    RvPolygon2D p = Ring({P3(0, 0, 0), P3(1, 0, 1), P3(2, 0, 2), P3(1, 1, 3)});
    RvPoint3D q(2, 3, 99);
    EXPECT_EQ(p.LocatePointToPlain(q), 1);
    ExpectXyzNear(q, 2, 3, 8, 1e-9);
}

// ---- Region intersection --------------------------------------------------------------------

TEST(RvPolygon2DRegionAnd, ReturnsItselfAndChangesNeitherPolygon) {
    RvPolygon2D a = CcwUnitSquare();
    const RvPolygon2D b = SquareAt(0.5, 0.5, 2);
    RvPolygon2D& result = (a &= b);
    EXPECT_EQ(&result, &a);
    EXPECT_TRUE(a == CcwUnitSquare());
    EXPECT_EQ(a.size(), 4u);
    EXPECT_TRUE(HasValues(a[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(b == SquareAt(0.5, 0.5, 2));
}

}  // namespace
