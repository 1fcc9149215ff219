#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <stdexcept>

#include "ravelin/entity/RvLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

const char* const kSubscriptError = "invalid vector<T> subscript";

// A point whose position in space is far from its planar position, so that a computation that
// read the wrong pair would notice.
RvPoint2D Planar(double x2D, double y2D) {
    return RvPoint2D(x2D, y2D, 900.0 - 3 * x2D, -700.0 + 5 * y2D, 33.0);
}

// A point in space whose planar pair is far from it.
RvPoint2D Spatial(double x, double y, double z) {
    return RvPoint2D(-800.0 + 7 * x, 600.0 - 2 * y, x, y, z);
}

// The line between the planar points (ax, ay) and (bx, by), with positions in space unrelated.
RvLine2D PlanarLine(double ax, double ay, double bx, double by) {
    return RvLine2D(Planar(ax, ay), Planar(bx, by));
}

// The line between two points in space, with planar pairs unrelated to them.
RvLine2D SpatialLine(double ax, double ay, double az, double bx, double by, double bz) {
    return RvLine2D(Spatial(ax, ay, az), Spatial(bx, by, bz));
}

// A line stripped of its vertices.
RvLine2D EmptyLine() {
    RvLine2D line;
    line.clearA();
    return line;
}

// A line left with only its first vertex.
RvLine2D OneVertexLine() {
    RvLine2D line(RvPoint2D(1, 2), RvPoint2D(3, 4));
    line.pop_back();
    return line;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction

TEST(RvLine2DConstruction, DefaultHasTwoDefaultVerticesAndTypeTwo) {
    const RvLine2D line;
    ASSERT_EQ(line.size(), 2u);
    EXPECT_TRUE(HasValues(line[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(line[1], 0, 0, 0, 0, 0));
    EXPECT_EQ(line.GetType(), 2u);
}

TEST(RvLine2DConstruction, FromPlanarPointsCopiesAllFiveValues) {
    const RvLine2D line(RvPoint2D(1, 2, 3, 4, 5), RvPoint2D(6, 7, 8, 9, 10));
    ASSERT_EQ(line.size(), 2u);
    EXPECT_TRUE(HasValues(line[0], 3, 4, 5, 1, 2));
    EXPECT_TRUE(HasValues(line[1], 8, 9, 10, 6, 7));
    EXPECT_EQ(line.GetType(), 2u);
}

TEST(RvLine2DConstruction, FromSpacePointsTakesThePlanarPairFromXY) {
    const RvLine2D line(RvPoint3D(1, 2, 3), RvPoint3D(4, 5, 6));
    ASSERT_EQ(line.size(), 2u);
    EXPECT_TRUE(HasValues(line[0], 1, 2, 3, 1, 2));
    EXPECT_TRUE(HasValues(line[1], 4, 5, 6, 4, 5));
    EXPECT_EQ(line.GetType(), 2u);
}

TEST(RvLine2DConstruction, CopyHasTypeTwoNotTheSourceType) {
    RvLine2D source(RvPoint2D(1, 2), RvPoint2D(3, 4));
    source.SetType(11);
    const RvLine2D copy(source);
    EXPECT_EQ(copy.GetType(), 2u);
    ASSERT_EQ(copy.size(), 2u);
    EXPECT_TRUE(HasValues(copy[0], 1, 2, 0, 1, 2));
    EXPECT_TRUE(HasValues(copy[1], 3, 4, 0, 3, 4));
}

// ---------------------------------------------------------------------------------------------
// Set and assignment

TEST(RvLine2DSet, PlanarFormOverwritesAllFiveValuesOfBothVertices) {
    RvLine2D line(RvPoint2D(1, 2), RvPoint2D(3, 4));
    line.Set(RvPoint2D(10, 20, 30, 40, 50), RvPoint2D(-1, -2, -3, -4, -5));
    ASSERT_EQ(line.size(), 2u);
    EXPECT_TRUE(HasValues(line[0], 30, 40, 50, 10, 20));
    EXPECT_TRUE(HasValues(line[1], -3, -4, -5, -1, -2));
}

TEST(RvLine2DSet, SpaceFormSetsThePlanarPairFromXY) {
    RvLine2D line(RvPoint2D(1, 2, 3, 4, 5), RvPoint2D(6, 7, 8, 9, 10));
    line.Set(RvPoint3D(11, 12, 13), RvPoint3D(14, 15, 16));
    EXPECT_TRUE(HasValues(line[0], 11, 12, 13, 11, 12));
    EXPECT_TRUE(HasValues(line[1], 14, 15, 16, 14, 15));
}

TEST(RvLine2DSet, WorksInPlaceAndLeavesFurtherVerticesAndFields) {
    RvLine2D line(RvPoint2D(1, 2), RvPoint2D(3, 4));
    line.push_backA(RvPoint2D(5, 6));
    line.SetType(7);
    line.reservedWord1 = 21;
    line.Set(RvPoint2D(10, 20), RvPoint2D(30, 40));
    ASSERT_EQ(line.size(), 3u);
    EXPECT_TRUE(HasValues(line[0], 10, 20, 0, 10, 20));
    EXPECT_TRUE(HasValues(line[1], 30, 40, 0, 30, 40));
    EXPECT_TRUE(HasValues(line[2], 5, 6, 0, 5, 6));
    EXPECT_EQ(line.GetType(), 7u);
    EXPECT_EQ(line.reservedWord1, 21u);
}

TEST(RvLine2DAssignment, OverwritesOnlyTheCoordinatesOfTheFirstTwoVertices) {
    RvLine2D source(RvPoint2D(1, 2, 3, 4, 5), RvPoint2D(6, 7, 8, 9, 10));
    source.push_backA(RvPoint2D(100, 100));
    source.SetType(13);
    source.reservedWord1 = 55;
    RvLine2D target(RvPoint2D(-1, -1), RvPoint2D(-2, -2));
    target.push_backA(RvPoint2D(-3, -3));
    target.SetType(7);
    target.reservedWord1 = 21;
    RvLine2D& result = (target = source);
    EXPECT_EQ(&result, &target);
    ASSERT_EQ(target.size(), 3u);
    EXPECT_TRUE(HasValues(target[0], 3, 4, 5, 1, 2));
    EXPECT_TRUE(HasValues(target[1], 8, 9, 10, 6, 7));
    // The third vertex, the type word and the reserved words are the target's own still.
    EXPECT_TRUE(HasValues(target[2], -3, -3, 0, -3, -3));
    EXPECT_EQ(target.GetType(), 7u);
    EXPECT_EQ(target.reservedWord1, 21u);
}

TEST(RvLine2DAssignment, KeepsTheLinksOfTheTarget) {
    RvLine2D neighbour;
    RvLine2D target;
    target.SetNextItem(&neighbour);
    const RvLine2D source(RvPoint2D(1, 1), RvPoint2D(2, 2));
    target = source;
    EXPECT_EQ(target.GetNextItem(), &neighbour);
    EXPECT_EQ(neighbour.GetPrevItem(), &target);
    target.ClearThisItem();
    neighbour.ClearThisItem();
}

// ---------------------------------------------------------------------------------------------
// The checked subscript

TEST(RvLine2DCheckedAccess, SetOfPlanarPointsOnAnEmptyLineRaises) {
    RvLine2D line = EmptyLine();
    ExpectThrowWithMessage<std::out_of_range>([&] { line.Set(RvPoint2D(1, 1), RvPoint2D(2, 2)); },
                                              kSubscriptError);
}

TEST(RvLine2DCheckedAccess, SetOfSpacePointsOnAnEmptyLineRaises) {
    RvLine2D line = EmptyLine();
    ExpectThrowWithMessage<std::out_of_range>(
        [&] { line.Set(RvPoint3D(1, 1, 1), RvPoint3D(2, 2, 2)); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, SetOnAOneVertexLineRaises) {
    RvLine2D line = OneVertexLine();
    ExpectThrowWithMessage<std::out_of_range>([&] { line.Set(RvPoint2D(1, 1), RvPoint2D(2, 2)); },
                                              kSubscriptError);
}

TEST(RvLine2DCheckedAccess, AssignmentToAnEmptyLineRaises) {
    RvLine2D line = EmptyLine();
    const RvLine2D source(RvPoint2D(1, 1), RvPoint2D(2, 2));
    ExpectThrowWithMessage<std::out_of_range>([&] { line = source; }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, AssignmentFromAOneVertexLineRaises) {
    RvLine2D line(RvPoint2D(1, 1), RvPoint2D(2, 2));
    const RvLine2D source = OneVertexLine();
    ExpectThrowWithMessage<std::out_of_range>([&] { line = source; }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, GetAngleOnAnEmptyLineRaises) {
    RvLine2D line = EmptyLine();
    RvLine2D other(RvPoint2D(0, 0), RvPoint2D(1, 0));
    ExpectThrowWithMessage<std::out_of_range>([&] { line.GetAngle(other); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, GetAngleWithAnEmptyOtherLineRaises) {
    RvLine2D line(RvPoint2D(0, 0), RvPoint2D(1, 0));
    RvLine2D other = EmptyLine();
    ExpectThrowWithMessage<std::out_of_range>([&] { line.GetAngle(other); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, GetAngleDefOnAnEmptyLineRaises) {
    RvLine2D line = EmptyLine();
    RvLine2D other(RvPoint2D(0, 0), RvPoint2D(1, 0));
    ExpectThrowWithMessage<std::out_of_range>([&] { line.GetAngleDef(other); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, GetAngleDefWithAOneVertexOtherLineRaises) {
    RvLine2D line(RvPoint2D(0, 0), RvPoint2D(1, 0));
    RvLine2D other = OneVertexLine();
    ExpectThrowWithMessage<std::out_of_range>([&] { line.GetAngleDef(other); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, GetNormalLine2DOnAnEmptyLineRaises) {
    RvLine2D line = EmptyLine();
    RvPoint3D p(1, 1, 0);
    ExpectThrowWithMessage<std::out_of_range>([&] { line.GetNormalLine2D(p); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, GetNormalLine3DOnAOneVertexLineRaises) {
    RvLine2D line = OneVertexLine();
    RvPoint3D p(1, 1, 0);
    ExpectThrowWithMessage<std::out_of_range>([&] { line.GetNormalLine3D(p); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, GetNormalLine3DOnAnEmptyLineRaises) {
    RvLine2D line = EmptyLine();
    RvPoint3D p(1, 1, 0);
    ExpectThrowWithMessage<std::out_of_range>([&] { line.GetNormalLine3D(p); }, kSubscriptError);
}

TEST(RvLine2DCheckedAccess, IsPointOnSegment3DOfAnEmptyLineIsZero) {
    RvLine2D line = EmptyLine();
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(0, 0, 0)), 0);
}

TEST(RvLine2DCheckedAccess, IsPointOnSegment3DOfAOneVertexLineIsZero) {
    // The only vertex is (1, 2, 0): even the vertex itself does not count.
    RvLine2D line = OneVertexLine();
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(1, 2, 0)), 0);
}

// ---------------------------------------------------------------------------------------------
// IsPointOnSegment2D

TEST(RvLine2DIsPointOnSegment2D, DegenerateSegmentHoldsNothing) {
    // Both extents below 0.0001: not even the end itself lies on it.
    RvLine2D line = PlanarLine(1, 1, 1.00005, 1.00005);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1, 1)), 0);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1.00005, 1.00005)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, ShortSegmentAlongOneAxisIsNotDegenerate) {
    // dx = 0.0002 is not below 0.0001; the midpoint lies on it.
    RvLine2D line = PlanarLine(1, 1, 1.0002, 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1.0001, 1)), 1);
}

TEST(RvLine2DIsPointOnSegment2D, SlantedSegmentHoldsItsMidpointAndEnds) {
    RvLine2D line = PlanarLine(0, 0, 10, 10);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(5, 5)), 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(0, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(10, 10)), 1);
}

TEST(RvLine2DIsPointOnSegment2D, ReadsThePlanarPairOnly) {
    // The line and the point agree in the plane; in space the point is nowhere near.
    RvLine2D line = PlanarLine(0, 0, 10, 10);
    EXPECT_EQ(line.IsPointOnSegment2D(RvPoint2D(5, 5, 400, -300, 7)), 1);
    // And the other way round: on the line in space, off it in the plane.
    RvLine2D spatial(RvPoint2D(0, 0, 0, 0, 0), RvPoint2D(10, 0, 10, 10, 0));
    EXPECT_EQ(spatial.IsPointOnSegment2D(RvPoint2D(5, 3, 5, 5, 0)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, SlantedSegmentRefusesDifferingParameters) {
    // t = 0.5, u = 0.501: |t - u| = 0.001 is not below 0.0001.
    RvLine2D line = PlanarLine(0, 0, 10, 10);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(5, 5.01)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, ParametersWithinTheToleranceStillNeedTheDistanceTest) {
    // On (0, 0)-(1000, 1000), the point (500, 500.09) has t = 0.5, u = 0.50009: they agree
    // within 0.0001, but the point is 0.09 / sqrt(2), about 0.064, from the line.
    RvLine2D line = PlanarLine(0, 0, 1000, 1000);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(500, 500.09)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, CloseParametersAndCloseDistanceGiveOne) {
    // On (0, 0)-(1, 1), (0.5, 0.50005): |t - u| = 5e-5, distance about 3.5e-5.
    RvLine2D line = PlanarLine(0, 0, 1, 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(0.5, 0.50005)), 1);
}

TEST(RvLine2DIsPointOnSegment2D, NearlyHorizontalSegmentRefusesAPointOffByTheTolerance) {
    // dy = 0.00005: the horizontal case. p.y - a.y = 0.0001 is not below 0.0001, so the point
    // is refused, although its distance from the slightly rising line is about 0.000075.
    RvLine2D line = PlanarLine(0, 0, 10, 0.00005);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(5, 0.0001)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, NearlyHorizontalSegmentAcceptsAPointWithinTheTolerance) {
    // p.y - a.y = 0.00009; t = u = 0.5; distance about 0.000065.
    RvLine2D line = PlanarLine(0, 0, 10, 0.00005);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(5, 0.00009)), 1);
}

TEST(RvLine2DIsPointOnSegment2D, HorizontalSegmentHoldsItsPoints) {
    RvLine2D line = PlanarLine(0, 3, 10, 3);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(7, 3)), 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(7, 3.01)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, NearlyVerticalSegmentRefusesAPointOffByTheTolerance) {
    // dx = 0.00005: the vertical case, with the same reasoning across x.
    RvLine2D line = PlanarLine(0, 0, 0.00005, 10);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(0.0001, 5)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, NearlyVerticalSegmentAcceptsAPointWithinTheTolerance) {
    RvLine2D line = PlanarLine(0, 0, 0.00005, 10);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(0.00009, 5)), 1);
}

TEST(RvLine2DIsPointOnSegment2D, VerticalSegmentHoldsItsPoints) {
    RvLine2D line = PlanarLine(-2, 0, -2, 10);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(-2, 4)), 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(-2.01, 4)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, ParameterJustBeyondTheEndCountsWhenOnTheLine) {
    // A long slanted segment; (1000.05, 1000.05) lies on its line at t = u = 1.00005.
    RvLine2D line = PlanarLine(0, 0, 1000, 1000);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1000.05, 1000.05)), 1);
}

TEST(RvLine2DIsPointOnSegment2D, ParameterJustBeyondTheEndFailsTheDistanceTestOffTheLine) {
    // t = 1.00005 and u = 1.00012 agree within 0.0001 and t is in range, but the point lies
    // 0.07 / sqrt(2), about 0.05, from the line.
    RvLine2D line = PlanarLine(0, 0, 1000, 1000);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1000.05, 1000.12)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, ParameterFurtherBeyondTheEndIsRefused) {
    // t = u = 1.0002, not below 1.0001.
    RvLine2D line = PlanarLine(0, 0, 1000, 1000);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1000.2, 1000.2)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, ParameterJustBeforeTheStartCounts) {
    // t = u = -0.00005, above -0.0001.
    RvLine2D line = PlanarLine(0, 0, 1000, 1000);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(-0.05, -0.05)), 1);
}

TEST(RvLine2DIsPointOnSegment2D, ParameterFurtherBeforeTheStartIsRefused) {
    // t = u = -0.0002.
    RvLine2D line = PlanarLine(0, 0, 1000, 1000);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(-0.2, -0.2)), 0);
}

TEST(RvLine2DIsPointOnSegment2D, ParameterBoundsHoldOnAHorizontalSegmentToo) {
    // On (0, 0)-(1000, 0), t = u = x / 1000.
    RvLine2D line = PlanarLine(0, 0, 1000, 0);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1000.05, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(1000.2, 0)), 0);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(-0.05, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegment2D(Planar(-0.2, 0)), 0);
}

// ---------------------------------------------------------------------------------------------
// IsPointOnSegmentEx2D

TEST(RvLine2DIsPointOnSegmentEx2D, EndsCountWithinTheBoxOfPointEquality) {
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(4, 2));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(0, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(4, 2)), 1);
    // Off the line, but within 0.01 of b on all five values.
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(4.005, 1.995)), 1);
}

TEST(RvLine2DIsPointOnSegmentEx2D, EndEqualityComparesSpaceToo) {
    // The planar pair of b, but z 1: not equal to b, and off the line in the exact test
    // (t = 1, u = 1.0025).
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(4, 2));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(4.0, 2.005, 4.0, 2.005, 1.0)), 0);
}

TEST(RvLine2DIsPointOnSegmentEx2D, SlantedSegmentHoldsAPointOfExactParameter) {
    // dx = 4, dy = 2: (2, 1) gives t = u = 0.5.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(4, 2));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(2, 1)), 1);
}

TEST(RvLine2DIsPointOnSegmentEx2D, PointOnTheLineBeyondTheEndCounts) {
    // (8, 4): t = u = 2. The parameter is not bounded.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(4, 2));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(8, 4)), 1);
    // And before the start: t = u = -1.
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(-4, -2)), 1);
}

TEST(RvLine2DIsPointOnSegmentEx2D, ComparisonIsExactWithoutBand) {
    // (2, 1 + 2^-20): t = 0.5, u = 0.5 + 2^-21. No tolerance: 0.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(4, 2));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(2, 1 + std::ldexp(1.0, -20))), 0);
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(2, 1.001)), 0);
}

TEST(RvLine2DIsPointOnSegmentEx2D, ReadsThePlanarPairForTheParameters) {
    // Planar (2, 1) lies on the planar line; the position in space is elsewhere.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(4, 2));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(2, 1, 50, -60, 70)), 1);
}

TEST(RvLine2DIsPointOnSegmentEx2D, DegenerateSegmentHoldsOnlyItsEnd) {
    const RvLine2D line(RvPoint2D(3, 3), RvPoint2D(3, 3));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(3, 3)), 1);
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(3, 4)), 0);
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(4, 3)), 0);
}

TEST(RvLine2DIsPointOnSegmentEx2D, VerticalSegmentCountsAnyPointAtTheOrdinateOfItsStart) {
    // dx = 0: the test looks at y2D and leaves t at 0; with dy = 10, u = 0 for any point of
    // a's ordinate. So points far off the segment, on the horizontal through a, count.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(0, 10));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(5, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(-123, 0)), 1);
}

TEST(RvLine2DIsPointOnSegmentEx2D, VerticalSegmentRefusesItsInnerPoints) {
    // (0, 5) lies on the segment, but its y2D differs from a's: 0.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(0, 10));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(0, 5)), 0);
}

TEST(RvLine2DIsPointOnSegmentEx2D, HorizontalSegmentCountsAnyPointAtTheAbscissaOfItsStart) {
    // dy = 0: the test looks at x2D; a point of a's abscissa has t = 0 and u left at 0.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(10, 0));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(0, 7)), 1);
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(0, -40)), 1);
}

TEST(RvLine2DIsPointOnSegmentEx2D, HorizontalSegmentRefusesItsInnerPoints) {
    // (5, 0) lies on the segment, but its x2D differs from a's: 0.
    const RvLine2D line(RvPoint2D(0, 0), RvPoint2D(10, 0));
    EXPECT_EQ(line.IsPointOnSegmentEx2D(RvPoint2D(5, 0)), 0);
}

// ---------------------------------------------------------------------------------------------
// IsPointOnSegment3D

TEST(RvLine2DIsPointOnSegment3D, PointsBetweenTheEndsCount) {
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(5, 0, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(0, 0, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(10, 0, 0)), 1);
}

TEST(RvLine2DIsPointOnSegment3D, PointOnTheLineBeyondAnEndDoesNotCount) {
    // |10 - (12 + 2)| = 4.
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(12, 0, 0)), 0);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(-0.001, 0, 0)), 0);
}

TEST(RvLine2DIsPointOnSegment3D, ToleranceOnTheSumOfDistances) {
    // (5, y, 0): the excess is 2 sqrt(25 + y^2) - 10, about y^2 / 5. For y = 0.005 it is
    // 5e-6, below 1e-5; for y = 0.01 it is 2e-5.
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(5, 0.005, 0)), 1);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(5, 0.01, 0)), 0);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(5, 0, 0.01)), 0);
}

TEST(RvLine2DIsPointOnSegment3D, WorksInSpace) {
    // A segment in space, its midpoint; the planar pairs of the vertices are elsewhere.
    RvLine2D line = SpatialLine(1, 2, 3, 5, 6, 11);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(3, 4, 7)), 1);
    EXPECT_EQ(line.IsPointOnSegment3D(RvPoint3D(3, 4, 8)), 0);
}

// ---------------------------------------------------------------------------------------------
// GetAngle and GetAngleDef

TEST(RvLine2DGetAngle, IdenticallyDirectedLinesGivePi) {
    // The other line's direction is taken backwards: (1, 0, 0) against (-2, 0, 0).
    RvLine2D line = SpatialLine(0, 0, 0, 1, 0, 0);
    RvLine2D other = SpatialLine(0, 1, 0, 2, 1, 0);
    EXPECT_NEAR(line.GetAngle(other), kPi, 1e-12);
}

TEST(RvLine2DGetAngleDef, IdenticallyDirectedLinesGiveZero) {
    RvLine2D line = SpatialLine(0, 0, 0, 1, 0, 0);
    RvLine2D other = SpatialLine(0, 1, 0, 2, 1, 0);
    EXPECT_NEAR(line.GetAngleDef(other), 0.0, 1e-12);
}

TEST(RvLine2DGetAngle, OppositelyDirectedLinesGiveZero) {
    RvLine2D line = SpatialLine(0, 0, 0, 1, 0, 0);
    RvLine2D other = SpatialLine(2, 1, 0, 0, 1, 0);
    EXPECT_NEAR(line.GetAngle(other), 0.0, 1e-12);
    EXPECT_NEAR(line.GetAngleDef(other), 0.0, 1e-12);
}

TEST(RvLine2DGetAngle, PerpendicularLinesGiveHalfPiBothWays) {
    RvLine2D line = SpatialLine(0, 0, 0, 1, 0, 0);
    RvLine2D other = SpatialLine(0, 0, 0, 0, 3, 0);
    EXPECT_NEAR(line.GetAngle(other), kPi / 2, 1e-12);
    EXPECT_NEAR(line.GetAngleDef(other), kPi / 2, 1e-12);
}

TEST(RvLine2DGetAngle, SixtyDegreeDirectionGivesTwoThirdsOfPi) {
    // u = (1, 0, 0), w = (-1, -sqrt(3), 0): cosine -1/2, so 2 pi / 3; the absolute form gives
    // pi / 3.
    RvLine2D line = SpatialLine(0, 0, 0, 1, 0, 0);
    RvLine2D other = SpatialLine(0, 0, 0, 1, std::sqrt(3.0), 0);
    EXPECT_NEAR(line.GetAngle(other), 2 * kPi / 3, 1e-12);
    EXPECT_NEAR(line.GetAngleDef(other), kPi / 3, 1e-12);
}

TEST(RvLine2DGetAngle, UsesTheSpaceFields) {
    // u = (0, 0, 1), w = (-1, 0, -1): cosine -1/sqrt(2), so 3 pi / 4; absolute form pi / 4.
    // The planar pairs of these vertices point elsewhere.
    RvLine2D line = SpatialLine(0, 0, 0, 0, 0, 1);
    RvLine2D other = SpatialLine(0, 0, 0, 1, 0, 1);
    EXPECT_NEAR(line.GetAngle(other), 3 * kPi / 4, 1e-12);
    EXPECT_NEAR(line.GetAngleDef(other), kPi / 4, 1e-12);
}

// ---------------------------------------------------------------------------------------------
// GetNormalLine2D

TEST(RvLine2DGetNormalLine2D, NearlyVerticalLineDropsTheFootAcrossX) {
    // dx = 0.05 < 0.1, dy = 10: the foot is (a.x, p.y) = (1, 3), z 0.
    RvLine2D line = SpatialLine(1, 0, 0, 1.05, 10, 0);
    RvPoint3D p(5, 3, 7);
    const RvLine2D normal = line.GetNormalLine2D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_TRUE(HasValues(normal[0], 5, 3, 7, 5, 3));
    EXPECT_TRUE(HasValues(normal[1], 1, 3, 0, 1, 3));
}

TEST(RvLine2DGetNormalLine2D, ShortLineGivesItsStartAsFoot) {
    // Both extents below 0.1: the foot is (a.x, a.y).
    RvLine2D line = SpatialLine(1, 2, 5, 1.05, 2.05, 5);
    RvPoint3D p(7, 8, 9);
    const RvLine2D normal = line.GetNormalLine2D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_TRUE(HasValues(normal[0], 7, 8, 9, 7, 8));
    EXPECT_TRUE(HasValues(normal[1], 1, 2, 0, 1, 2));
}

TEST(RvLine2DGetNormalLine2D, NearlyHorizontalLineDropsTheFootAcrossY) {
    // dx = 10, dy = 0.05: the foot is (p.x, a.y) = (5, 1).
    RvLine2D line = SpatialLine(0, 1, 0, 10, 1.05, 0);
    RvPoint3D p(5, 4, 0);
    const RvLine2D normal = line.GetNormalLine2D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_TRUE(HasValues(normal[1], 5, 1, 0, 5, 1));
}

TEST(RvLine2DGetNormalLine2D, DiagonalLineGivesThePerpendicularFoot) {
    // m = n = 1; for p = (10, 0): w = (10 + 0) / 2 = 5, foot (5, 5).
    RvLine2D line = SpatialLine(0, 0, 0, 10, 10, 0);
    RvPoint3D p(10, 0, 0);
    const RvLine2D normal = line.GetNormalLine2D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_TRUE(HasValues(normal[0], 10, 0, 0, 10, 0));
    EXPECT_NEAR(normal[1].x, 5.0, 1e-12);
    EXPECT_NEAR(normal[1].y, 5.0, 1e-12);
    EXPECT_EQ(normal[1].z, 0.0);
}

TEST(RvLine2DGetNormalLine2D, DiagonalPointOnTheLineGivesZeroLength) {
    // p = (3, 3) on y = x: w = (3 + 3) / 2 = 3, foot (3, 3).
    RvLine2D line = SpatialLine(0, 0, 0, 10, 10, 0);
    RvPoint3D p(3, 3, 0);
    const RvLine2D normal = line.GetNormalLine2D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_NEAR(normal.GetLength(), 0.0, 1e-12);
    EXPECT_NEAR(normal[1].x, 3.0, 1e-12);
    EXPECT_NEAR(normal[1].y, 3.0, 1e-12);
}

TEST(RvLine2DGetNormalLine2D, SlantedLineFootAndPerpendicularity) {
    // a = (1, 1), b = (3, 5): dx = 2, dy = 4, m = 0.5, n = 2. For p = (6, 1):
    // w = (5 * 0.5 + 0) / 2.5 = 1, foot (2, 3); p - foot = (4, -2) is at right angles to
    // (2, 4).
    RvLine2D line = SpatialLine(1, 1, 0, 3, 5, 0);
    RvPoint3D p(6, 1, 0);
    const RvLine2D normal = line.GetNormalLine2D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_NEAR(normal[1].x, 2.0, 1e-12);
    EXPECT_NEAR(normal[1].y, 3.0, 1e-12);
}

TEST(RvLine2DGetNormalLine2D, FootIsNotLimitedToTheSegment) {
    // p = (30, 10) on (0, 0)-(10, 10): w = (30 + 10) / 2 = 20, foot (20, 20).
    RvLine2D line = SpatialLine(0, 0, 0, 10, 10, 0);
    RvPoint3D p(30, 10, 0);
    const RvLine2D normal = line.GetNormalLine2D(p);
    EXPECT_NEAR(normal[1].x, 20.0, 1e-12);
    EXPECT_NEAR(normal[1].y, 20.0, 1e-12);
}

TEST(RvLine2DGetNormalLine2D, IgnoresZOfTheLine) {
    // The vertices differ in z; only x, y count, and the foot has z 0.
    RvLine2D line = SpatialLine(0, 0, -5, 10, 10, 40);
    RvPoint3D p(10, 0, 2);
    const RvLine2D normal = line.GetNormalLine2D(p);
    EXPECT_NEAR(normal[1].x, 5.0, 1e-12);
    EXPECT_NEAR(normal[1].y, 5.0, 1e-12);
    EXPECT_EQ(normal[1].z, 0.0);
    EXPECT_EQ(normal[0].z, 2.0);
}

TEST(RvLine2DGetNormalLine2D, ExtentOfExactlyTheLimitIsNotAxisParallel) {
    // dx = 0.1 is not below 0.1, so the general case holds: m = 0.01, n = 100, and for
    // p = (5, 0): w = 0.05 / 100.01, foot (w, 100 w), about (0.0005, 0.05).
    RvLine2D line = SpatialLine(0, 0, 0, 0.1, 10, 0);
    RvPoint3D p(5, 0, 0);
    const RvLine2D normal = line.GetNormalLine2D(p);
    const double w = 0.05 / 100.01;
    EXPECT_NEAR(normal[1].x, w, 1e-12);
    EXPECT_NEAR(normal[1].y, 100 * w, 1e-10);
}

TEST(RvLine2DGetNormalLine2D, ExtentJustBelowTheLimitIsAxisParallel) {
    // dx = 0.09: the foot is (a.x, p.y) = (0, 0).
    RvLine2D line = SpatialLine(0, 0, 0, 0.09, 10, 0);
    RvPoint3D p(5, 0, 0);
    const RvLine2D normal = line.GetNormalLine2D(p);
    EXPECT_TRUE(HasValues(normal[1], 0, 0, 0, 0, 0));
}

// ---------------------------------------------------------------------------------------------
// GetNormalLine3D

TEST(RvLine2DGetNormalLine3D, FootOnAnAxis) {
    // s = (3 * 10) / 100 = 0.3: foot (3, 0, 0).
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D p(3, 4, 5);
    const RvLine2D normal = line.GetNormalLine3D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_TRUE(HasValues(normal[0], 3, 4, 5, 3, 4));
    ExpectXyzNear(normal[1], 3, 0, 0, 1e-12);
    EXPECT_NEAR(normal[1].x2D, 3.0, 1e-12);
    EXPECT_NEAR(normal[1].y2D, 0.0, 1e-12);
}

TEST(RvLine2DGetNormalLine3D, FootIsNotLimitedToTheSegment) {
    // s = 15 * 10 / 100 = 1.5: foot (15, 0, 0).
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D p(15, 2, 0);
    ExpectXyzNear(line.GetNormalLine3D(p)[1], 15, 0, 0, 1e-12);
}

TEST(RvLine2DGetNormalLine3D, SlantedLineInSpace) {
    // a = (1, 1, 1), b = (3, 3, 3), p = (3, 1, 2): p - a = (2, 0, 1), b - a = (2, 2, 2),
    // s = 6 / 12 = 0.5, foot (2, 2, 2); p - foot = (1, -1, 0) is at right angles to b - a.
    RvLine2D line = SpatialLine(1, 1, 1, 3, 3, 3);
    RvPoint3D p(3, 1, 2);
    ExpectXyzNear(line.GetNormalLine3D(p)[1], 2, 2, 2, 1e-12);
}

TEST(RvLine2DGetNormalLine3D, ShortLineGivesItsStartAsFoot) {
    // dist(a, b) = 0.09 < 0.1.
    RvLine2D line = SpatialLine(1, 2, 3, 1.09, 2, 3);
    RvPoint3D p(5, 5, 5);
    const RvLine2D normal = line.GetNormalLine3D(p);
    ASSERT_EQ(normal.size(), 2u);
    EXPECT_TRUE(PointIs(normal[0], 5, 5, 5));
    EXPECT_TRUE(PointIs(normal[1], 1, 2, 3));
}

TEST(RvLine2DGetNormalLine3D, LineLongerThanTheLimitIsProjectedOn) {
    // dist(a, b) = 0.125 (exact in binary) is not below 0.1; p = (0.0625, 1, 0) projects to
    // s = 0.5, foot (0.0625, 0, 0), not to a.
    RvLine2D line = SpatialLine(0, 0, 0, 0.125, 0, 0);
    RvPoint3D p(0.0625, 1, 0);
    ExpectXyzNear(line.GetNormalLine3D(p)[1], 0.0625, 0, 0, 1e-12);
}

// ---------------------------------------------------------------------------------------------
// GetKolmyPriemetBoduNarovinu: projection onto the plane through the line and a point

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, ProjectsOntoThePlaneThroughTheLineAndThePoint) {
    // Line on the x axis, a2 = (5, 5, 5): F = (5, 0, 0), u = (10, 0, 0), w = (0, 5, 5).
    // For b2 = (2, 3, -1): s = 20 / 100 = 0.2, t = (15 - 5) / 50 = 0.2, so
    // out = (2, 0, 0) + (0, 1, 1) = (2, 1, 1).
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D out(-9, -9, -9);
    EXPECT_TRUE(line.GetKolmyPriemetBoduNarovinu(RvPoint3D(5, 5, 5), RvPoint3D(2, 3, -1), out));
    ExpectXyzNear(out, 2, 1, 1, 1e-12);
}

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, WorksWithAnOffsetLine) {
    // P0 = (1, 2, 3), P1 = (1, 2, 7), a2 = (4, 2, 5): F = (1, 2, 5), u = (0, 0, 4),
    // w = (3, 0, 0). b2 = (0, 9, 1): r = (-1, 7, -2), s = -8 / 16 = -0.5, t = -3 / 9, so
    // out = (1, 2, 3) + (0, 0, -2) + (-1, 0, 0) = (0, 2, 1).
    RvLine2D line = SpatialLine(1, 2, 3, 1, 2, 7);
    RvPoint3D out;
    EXPECT_TRUE(line.GetKolmyPriemetBoduNarovinu(RvPoint3D(4, 2, 5), RvPoint3D(0, 9, 1), out));
    ExpectXyzNear(out, 0, 2, 1, 1e-12);
}

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, PointOnThePlaneProjectsToItself) {
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D out;
    EXPECT_TRUE(line.GetKolmyPriemetBoduNarovinu(RvPoint3D(5, 5, 5), RvPoint3D(7, 2, 2), out));
    ExpectXyzNear(out, 7, 2, 2, 1e-12);
}

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, RefusesAShortLine) {
    RvLine2D line = SpatialLine(0, 0, 0, 0.05, 0, 0);
    RvPoint3D out(-9, -9, -9);
    EXPECT_FALSE(line.GetKolmyPriemetBoduNarovinu(RvPoint3D(5, 5, 5), RvPoint3D(2, 3, -1), out));
    EXPECT_TRUE(PointIs(out, -9, -9, -9));
}

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, RefusesAPointNearTheStart) {
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D out(-9, -9, -9);
    EXPECT_FALSE(line.GetKolmyPriemetBoduNarovinu(RvPoint3D(0, 0.08, 0), RvPoint3D(2, 3, -1), out));
    EXPECT_TRUE(PointIs(out, -9, -9, -9));
}

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, RefusesAPointNearTheEnd) {
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D out(-9, -9, -9);
    EXPECT_FALSE(
        line.GetKolmyPriemetBoduNarovinu(RvPoint3D(10, 0, 0.08), RvPoint3D(2, 3, -1), out));
    EXPECT_TRUE(PointIs(out, -9, -9, -9));
}

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, AcceptsDistancesAboveTheLimit) {
    // A line of 0.125 and a2 at 0.125 from the start, about 0.177 from the end. With
    // P0 = (0, 0, 0), P1 = (0.125, 0, 0), a2 = (0, 0.125, 0): F = P0, w = (0, 0.125, 0);
    // b2 = (1, 1, 1) projects to (1, 1, 0).
    RvLine2D line = SpatialLine(0, 0, 0, 0.125, 0, 0);
    RvPoint3D out;
    EXPECT_TRUE(line.GetKolmyPriemetBoduNarovinu(RvPoint3D(0, 0.125, 0), RvPoint3D(1, 1, 1), out));
    ExpectXyzNear(out, 1, 1, 0, 1e-12);
}

TEST(RvLine2DGetKolmyPriemetBoduNarovinu, RefusesALineWithFewerThanTwoVertices) {
    RvLine2D empty = EmptyLine();
    RvLine2D single = OneVertexLine();
    RvPoint3D out(-9, -9, -9);
    EXPECT_FALSE(empty.GetKolmyPriemetBoduNarovinu(RvPoint3D(5, 5, 5), RvPoint3D(1, 1, 1), out));
    EXPECT_FALSE(single.GetKolmyPriemetBoduNarovinu(RvPoint3D(5, 5, 5), RvPoint3D(1, 1, 1), out));
    EXPECT_TRUE(PointIs(out, -9, -9, -9));
}

// ---------------------------------------------------------------------------------------------
// IsPointNearSegment

TEST(RvLine2DIsPointNearSegment, PointWithinToleranceOfAnEndIsNear) {
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D beforeStart(-1, 0, 0);
    RvPoint3D beyondEnd(11, 0, 0);
    EXPECT_TRUE(line.IsPointNearSegment(beforeStart, 1.0));
    EXPECT_TRUE(line.IsPointNearSegment(beyondEnd, 1.0));
}

TEST(RvLine2DIsPointNearSegment, EndDistanceIsComparedWithTheBand) {
    // tol = 0.9999999 is within 5e-07 of the distance 1.
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D p(-1, 0, 0);
    EXPECT_TRUE(line.IsPointNearSegment(p, 0.9999999));
}

TEST(RvLine2DIsPointNearSegment, PointBeyondAnEndAndOutsideToleranceIsNotNear) {
    // The foot (-1, 0, 0) is not on the segment and the end is 1 away.
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D p(-1, 0, 0);
    EXPECT_FALSE(line.IsPointNearSegment(p, 0.999));
}

TEST(RvLine2DIsPointNearSegment, PointBesideTheSegmentWithinToleranceIsNear) {
    // Foot (5, 0, 0) on the segment, perpendicular length 0.5.
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D p(5, 0.5, 0);
    EXPECT_TRUE(line.IsPointNearSegment(p, 0.5));
    EXPECT_TRUE(line.IsPointNearSegment(p, 0.4999999));
    EXPECT_FALSE(line.IsPointNearSegment(p, 0.4));
}

TEST(RvLine2DIsPointNearSegment, WorksInSpace) {
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D p(5, 0, 0.3);
    EXPECT_TRUE(line.IsPointNearSegment(p, 0.3));
    EXPECT_FALSE(line.IsPointNearSegment(p, 0.2));
}

TEST(RvLine2DIsPointNearSegment, PointNearTheLineBeyondTheEndIsNotNear) {
    // (12, 0.1, 0): 2 from the end; its foot (12, 0, 0) lies off the segment.
    RvLine2D line = SpatialLine(0, 0, 0, 10, 0, 0);
    RvPoint3D p(12, 0.1, 0);
    EXPECT_FALSE(line.IsPointNearSegment(p, 0.5));
}
