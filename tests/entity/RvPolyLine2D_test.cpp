#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>
#include <vector>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// A point whose position in space is far from its planar position, so that a computation that
// read the wrong pair would notice.
RvPoint2D Planar(double x2D, double y2D) {
    return RvPoint2D(x2D, y2D, 900.0 + x2D, -700.0 - y2D, 33.0);
}

// A path through the planar points given, with positions in space unrelated to them.
RvPolyLine2D PlanarPath(std::initializer_list<std::pair<double, double>> points) {
    RvPolyLine2D line;
    for (const auto& [x, y] : points) {
        line.push_backA(Planar(x, y));
    }
    return line;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction, assignment and the type word

TEST(RvPolyLine2DConstruction, DefaultIsEmptyWithTypeTwo) {
    const RvPolyLine2D line;
    EXPECT_TRUE(line.empty());
    EXPECT_EQ(line.GetType(), 2u);
    EXPECT_EQ(RvPolyLine2D::kType, 2u);
    EXPECT_EQ(line.GetNextItem(), nullptr);
    EXPECT_EQ(line.GetPrevItem(), nullptr);
}

TEST(RvPolyLine2DConstruction, TwoPointConstructorHoldsBothVerticesWithTypeTwo) {
    const RvPolyLine2D line(RvPoint2D(1, 2, 3, 4, 5), RvPoint2D(6, 7, 8, 9, 10));
    ASSERT_EQ(line.size(), 2u);
    EXPECT_TRUE(HasValues(line[0], 3, 4, 5, 1, 2));
    EXPECT_TRUE(HasValues(line[1], 8, 9, 10, 6, 7));
    EXPECT_EQ(line.GetType(), 2u);
}

TEST(RvPolyLine2DConstruction, CopyGetsTypeTwoNotZeroNorTheSourceType) {
    RvPolyLine2D source = Path({{0, 0}, {1, 1}, {2, 0}});
    source.SetType(9);
    const RvPolyLine2D copy(source);
    // The base copy leaves the type word at zero; the path's own copy sets it to 2 again and
    // does not take the source's word.
    EXPECT_EQ(copy.GetType(), 2u);
    ASSERT_EQ(copy.size(), 3u);
    EXPECT_TRUE(HasValues(copy[2], 2, 0, 0, 2, 0));
}

TEST(RvPolyLine2DConstruction, CopyOfAFreshPathHasTypeTwo) {
    const RvPolyLine2D source;
    const RvPolyLine2D copy(source);
    EXPECT_EQ(copy.GetType(), 2u);
    EXPECT_TRUE(copy.empty());
}

TEST(RvPolyLine2DAssignment, CopiesVerticesAndTheSourceTypeWord) {
    RvPolyLine2D source = Path({{1, 1}, {2, 2}});
    source.SetType(9);
    RvPolyLine2D target = Path({{5, 5}, {6, 6}, {7, 7}});
    RvPolyLine2D& result = (target = source);
    EXPECT_EQ(&result, &target);
    ASSERT_EQ(target.size(), 2u);
    EXPECT_TRUE(HasValues(target[0], 1, 1, 0, 1, 1));
    EXPECT_TRUE(HasValues(target[1], 2, 2, 0, 2, 2));
    // Assignment copies the type word as it stands; only constructors and ReInit set 2.
    EXPECT_EQ(target.GetType(), 9u);
}

TEST(RvPolyLine2DAssignment, FromAPlainPathKeepsTypeTwo) {
    const RvPolyLine2D source = Path({{1, 1}});
    RvPolyLine2D target;
    target.SetType(4);
    target = source;
    EXPECT_EQ(target.GetType(), 2u);
    ASSERT_EQ(target.size(), 1u);
}

TEST(RvPolyLine2DReInit, RemovesVerticesAndSetsTypeTwoAgain) {
    RvPolyLine2D line = Path({{1, 1}, {2, 2}});
    line.SetType(9);
    line.reservedWord1 = 17;
    line.ReInit();
    EXPECT_TRUE(line.empty());
    EXPECT_EQ(line.GetType(), 2u);
    EXPECT_EQ(line.reservedWord1, 0u);
}

// ---------------------------------------------------------------------------------------------
// FindInVect

TEST(RvPolyLine2DFindInVect, EmptyVectorGivesFalse) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}});
    std::vector<RvPolyLine2D> lines;
    EXPECT_FALSE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, EmptyVectorGivesFalseForAnEmptyPathToo) {
    RvPolyLine2D line;
    std::vector<RvPolyLine2D> lines;
    EXPECT_FALSE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, PathWhoseVerticesAreAllHereIsFound) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{1, 1}, {0, 0}}));
    EXPECT_TRUE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, OrderAndRepetitionOfTheVerticesDoNotMatter) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}, {1, 1}});
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{1, 1}, {0, 0}, {1, 1}, {1, 0}, {0, 0}}));
    EXPECT_TRUE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, PathWithOneMissingVertexIsNotFound) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}, {1, 1}});
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{0, 0}, {1, 0}, {2, 2}}));
    EXPECT_FALSE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, LaterPathIsFoundAfterEarlierOnesFail) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}, {1, 1}});
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{5, 5}}));
    lines.push_back(Path({{0, 0}, {9, 9}}));
    lines.push_back(Path({{1, 0}, {1, 1}}));
    EXPECT_TRUE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, NoneOfSeveralPathsFoundGivesFalse) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}});
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{5, 5}}));
    lines.push_back(Path({{0, 0}, {9, 9}}));
    EXPECT_FALSE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, EmptyPathAnswersTrueWhenReached) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}});
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{7, 7}}));
    lines.push_back(RvPolyLine2D());
    lines.push_back(Path({{8, 8}}));
    EXPECT_TRUE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, EmptyPathAnswersTrueEvenForAnEmptyThisPath) {
    RvPolyLine2D line;
    std::vector<RvPolyLine2D> lines;
    lines.push_back(RvPolyLine2D());
    EXPECT_TRUE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, EmptyThisPathHoldsNoVertex) {
    RvPolyLine2D line;
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{0, 0}}));
    EXPECT_FALSE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, VerticesMatchWithinTheBoxOfPointEquality) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}});
    std::vector<RvPolyLine2D> lines;
    // 0.005 off on every value: the same point for operator==.
    lines.push_back(RvPolyLine2D());
    lines.back().push_backA(RvPoint2D(1.005, 0.005, 1.005, 0.005, 0.005));
    EXPECT_TRUE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, VertexOutsideTheBoxIsNotFound) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}});
    std::vector<RvPolyLine2D> lines;
    lines.push_back(Path({{1.02, 0}}));
    EXPECT_FALSE(line.FindInVect(&lines));
}

TEST(RvPolyLine2DFindInVect, VertexDifferingOnlyInSpaceIsNotFound) {
    RvPolyLine2D line = Path({{0, 0}, {1, 0}});
    std::vector<RvPolyLine2D> lines;
    // Same planar pair and x, y, but z 1: operator== compares all five values.
    lines.push_back(RvPolyLine2D());
    lines.back().push_backA(RvPoint2D(1, 0, 1, 0, 1));
    EXPECT_FALSE(line.FindInVect(&lines));
}

// ---------------------------------------------------------------------------------------------
// IntersectSegment2DBreak
//
// The triangle A(0, 0), B(10, 0), C(0, 10): the segments looked at are the closing one C-A
// (on the y axis) and A-B (on the x axis); B-C, between the last two vertices, never.

namespace {

RvPolyLine2D Triangle() {
    return Path({{0, 0}, {10, 0}, {0, 10}});
}

}  // namespace

TEST(RvPolyLine2DIntersectSegment2DBreak, EmptyPathGivesFalse) {
    RvPolyLine2D line;
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(-1, -1), RvPoint2D(1, 1), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, OneVertexPathTestsNothing) {
    RvPolyLine2D line = Path({{0, 0}});
    std::vector<RvPoint2D> result;
    // The segment runs straight through the only vertex.
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(-1, -1), RvPoint2D(1, 1), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, TwoVertexPathTestsItsOnlySegment) {
    RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(3, -2), RvPoint2D(3, 2), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_NEAR(result[0].x2D, 3.0, 1e-12);
    EXPECT_NEAR(result[0].y2D, 0.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, SegmentCrossingOnlyTheLastSegmentGivesFalse) {
    // Path A(0, 0), B(10, 0), C(10, 10); the segment (8, 2)-(12, 2) crosses only B-C, at
    // (10, 2), and B-C lies between the last two vertices.
    RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}});
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(8, 2), RvPoint2D(12, 2), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, ClosingSegmentIsTested) {
    // Path A(0, 0), B(10, 0), C(10, 10): the closing segment C-A lies on y = x. The segment
    // (2, 6)-(6, 2) meets it at (4, 4): det = 10 * 4 - 10 * (-4) = 80, t = 40 / 80 = 0.5,
    // s = 32 / 80 = 0.4, and A + (C - A) * 0.4 = (4, 4).
    RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}});
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(2, 6), RvPoint2D(6, 2), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_NEAR(result[0].x2D, 4.0, 1e-12);
    EXPECT_NEAR(result[0].y2D, 4.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, ClosingSegmentComesFirstInTheResult) {
    // The segment (1, 3)-(1, -1) meets the closing segment C-A (y = x) at (1, 1) and A-B at
    // (1, 0); the closing one is looked at first.
    RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}});
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(1, 3), RvPoint2D(1, -1), result));
    ASSERT_EQ(result.size(), 2u);
    EXPECT_NEAR(result[0].x2D, 1.0, 1e-12);
    EXPECT_NEAR(result[0].y2D, 1.0, 1e-12);
    EXPECT_NEAR(result[1].x2D, 1.0, 1e-12);
    EXPECT_NEAR(result[1].y2D, 0.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, OfFourVerticesTheSegmentBetweenTheLastTwoIsSkipped) {
    // Square A(0, 0), B(10, 0), C(10, 10), D(0, 10): D-A, A-B and B-C are looked at, C-D not.
    // The segment x = 5 from y = -2 to y = 12 crosses A-B at (5, 0) and C-D at (5, 10).
    RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(5, -2), RvPoint2D(5, 12), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_NEAR(result[0].x2D, 5.0, 1e-12);
    EXPECT_NEAR(result[0].y2D, 0.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, AppendsWithoutClearing) {
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    result.push_back(RvPoint2D(-50, -50));
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(3, -2), RvPoint2D(3, 2), result));
    ASSERT_EQ(result.size(), 2u);
    EXPECT_TRUE(HasValues(result[0], -50, -50, 0, -50, -50));
    EXPECT_NEAR(result[1].x2D, 3.0, 1e-12);
    EXPECT_NEAR(result[1].y2D, 0.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, NoCrossingLeavesTheResultAlone) {
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    result.push_back(RvPoint2D(-50, -50));
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(3, 1), RvPoint2D(4, 2), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_TRUE(HasValues(result[0], -50, -50, 0, -50, -50));
}

TEST(RvPolyLine2DIntersectSegment2DBreak, WorksOnThePlanarPair) {
    // Positions in space far from the planar ones; the crossing is found on the planar pair.
    RvPolyLine2D line = PlanarPath({{0, 0}, {10, 0}, {0, 10}});
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(Planar(3, -2), Planar(3, 2), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_NEAR(result[0].x2D, 3.0, 1e-12);
    EXPECT_NEAR(result[0].y2D, 0.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, HitCarriesAllFiveValuesByInterpolation) {
    // A-B from (0, 0) planar, (100, 0, 0) in space, to (10, 0) planar, (200, 0, 10) in space.
    // The crossing at planar x 3 lies at s = 0.7 from B toward A: in space
    // (200 - 70, 0, 10 - 7) = (130, 0, 3).
    RvPolyLine2D line;
    line.push_backA(RvPoint2D(0, 0, 100, 0, 0));
    line.push_backA(RvPoint2D(10, 0, 200, 0, 10));
    line.push_backA(RvPoint2D(0, 10, 100, 100, 0));
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(3, -2), RvPoint2D(3, 2), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_NEAR(result[0].x2D, 3.0, 1e-12);
    EXPECT_NEAR(result[0].y2D, 0.0, 1e-12);
    ExpectXyzNear(result[0], 130.0, 0.0, 3.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, SegmentEndingOnThePathCounts) {
    // t = 1 exactly: the segment (3, -2)-(3, 0) ends on A-B.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(3, -2), RvPoint2D(3, 0), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_NEAR(result[0].x2D, 3.0, 1e-12);
    EXPECT_NEAR(result[0].y2D, 0.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, SegmentParameterJustAboveOneIsAccepted) {
    // (3, -2)-(3, -1e-6): the x axis lies at t = 2 / 1.999999, about 1.0000005.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(3, -2), RvPoint2D(3, -1e-6), result));
    EXPECT_EQ(result.size(), 1u);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, SegmentParameterBeyondTheBoundIsRefused) {
    // (3, -2)-(3, -4e-6): t = 2 / 1.999996, about 1.000002, not below 1.000001.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(3, -2), RvPoint2D(3, -4e-6), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, SegmentParameterJustBelowZeroIsAccepted) {
    // (3, -1e-6)-(3, -4): the x axis lies at t = 1e-6 / (-3.999999), about -2.5e-7.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(3, -1e-6), RvPoint2D(3, -4), result));
    EXPECT_EQ(result.size(), 1u);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, SegmentParameterBelowTheLowerBoundIsRefused) {
    // (3, -1e-5)-(3, -4): t = 1e-5 / (-3.99999), about -2.5e-6, not above -1e-6.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(3, -1e-5), RvPoint2D(3, -4), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, PathParameterJustBeyondItsStartIsAccepted) {
    // On A-B, looked at from B toward A: s = (10 - x) / 10. At x = -5e-6, s = 1.0000005. The
    // closing segment C-A is parallel to the vertical cutting segment and not looked at.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    ASSERT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(-5e-6, -2), RvPoint2D(-5e-6, 2), result));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_NEAR(result[0].x2D, -5e-6, 1e-12);
    EXPECT_NEAR(result[0].y2D, 0.0, 1e-12);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, PathParameterBeyondItsStartIsRefused) {
    // At x = -2e-5, s = 1.000002.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(-2e-5, -2), RvPoint2D(-2e-5, 2), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, PathParameterJustBeforeItsEndIsAccepted) {
    // At x = 10 + 5e-6, s = -5e-7.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_TRUE(
        line.IntersectSegment2DBreak(RvPoint2D(10 + 5e-6, -2), RvPoint2D(10 + 5e-6, 2), result));
    EXPECT_EQ(result.size(), 1u);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, PathParameterBeyondItsEndIsRefused) {
    // At x = 10.00002, s = -2e-6.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(
        line.IntersectSegment2DBreak(RvPoint2D(10.00002, -2), RvPoint2D(10.00002, 2), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, ShortCrossingWithDeterminantAboveTheLimitCounts) {
    // d = (0, 2e-7) against e = (-10, 0): det = 2e-6, plainly above 1e-6.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_TRUE(line.IntersectSegment2DBreak(RvPoint2D(3, -1e-7), RvPoint2D(3, 1e-7), result));
    EXPECT_EQ(result.size(), 1u);
}

TEST(RvPolyLine2DIntersectSegment2DBreak, TinyDeterminantIsTakenAsParallel) {
    // d = (0, 4e-8) against e = (-10, 0): det = 4e-7, not above 1e-6, so the crossing is not
    // looked for although the segment does cross A-B.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(3, -2e-8), RvPoint2D(3, 2e-8), result));
    EXPECT_TRUE(result.empty());
}

TEST(RvPolyLine2DIntersectSegment2DBreak, CollinearSegmentFindsNothing) {
    // Along A-B itself: det = 0 for A-B, and the closing segment C-A is met only at A, which
    // the cutting segment (2, 0)-(8, 0) does not reach.
    RvPolyLine2D line = Triangle();
    std::vector<RvPoint2D> result;
    EXPECT_FALSE(line.IntersectSegment2DBreak(RvPoint2D(2, 0), RvPoint2D(8, 0), result));
    EXPECT_TRUE(result.empty());
}
