#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// A vertex at (x2D, y2D) in the plane and at a fixed, unrelated position in space, so that a
// change of `x`, `y` or `z` shows.
RvPoint2D P(double x2D, double y2D) {
    return RvPoint2D(x2D, y2D, -7, 8, 9);
}

// The planar pairs of the vertices of `e`, compared exactly with `expected`.
void ExpectPlanarPath(const RvDrawEntity& e, std::initializer_list<RvPoint2D> expected) {
    ASSERT_EQ(e.size(), expected.size());
    std::size_t k = 0;
    for (const RvPoint2D& p : expected) {
        EXPECT_TRUE(PlanarIs(e[k], p.x2D, p.y2D)) << "vertex " << k;
        ++k;
    }
}

const int kHalf = 10;
const int kZero = 0;

}  // namespace

// ---------------------------------------------------------------------------------------------
// CutLineToSquare: a segment inside, and the final length test

TEST(RvDrawEntityCutLine, SegmentInsideIsUnchangedAndNotCut) {
    RvPoint2D a = P(1, 2);
    RvPoint2D b = P(-3, 4);
    bool cut = true;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(HasValues(a, -7, 8, 9, 1, 2));
    EXPECT_TRUE(HasValues(b, -7, 8, 9, -3, 4));
}

TEST(RvDrawEntityCutLine, SegmentOnTheBorderCountsAsInside) {
    // A coordinate equal to +-half is not outside.
    RvPoint2D a = P(-10, -10);
    RvPoint2D b = P(10, 10);
    bool cut = true;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, -10, -10));
    EXPECT_TRUE(PlanarIs(b, 10, 10));
}

TEST(RvDrawEntityCutLine, NullSegmentInsideIsRefusedByTheLengthTest) {
    RvPoint2D a = P(3, 3);
    RvPoint2D b = P(3, 3);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 3, 3));
    EXPECT_TRUE(PlanarIs(b, 3, 3));
}

TEST(RvDrawEntityCutLine, LengthTestAcceptsExactly0001OnEitherAxis) {
    // At least 0.001 on one axis is enough.
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(0.001, 0);
    bool cut = true;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);

    a = P(0, 0);
    b = P(0, -0.001);
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
}

TEST(RvDrawEntityCutLine, LengthTestRefusesJustBelow0001OnBothAxes) {
    const double below = std::nextafter(0.001, 0.0);
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(below, 0);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);

    // Each axis is tested on its own: 0.0009 on both is still too short, though the diagonal is
    // longer than 0.001.
    a = P(0, 0);
    b = P(0.0009, 0.0009);
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
}

TEST(RvDrawEntityCutLine, ClippedRemnantBelow0001IsRefusedThoughTheEndWasCut) {
    // b goes from (20, 0) to (10, 0); 0.0005 is left of the segment.
    RvPoint2D a = P(9.9995, 0);
    RvPoint2D b = P(20, 0);
    bool cut = false;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, 10, 0));
}

// ---------------------------------------------------------------------------------------------
// CutLineToSquare: stage 1, the end `b` in x2D

TEST(RvDrawEntityCutLine, SegmentFromOriginToTwiceHalfEndsAtHalf) {
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(20, 0);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(a, 0, 0));
    EXPECT_TRUE(PlanarIs(b, 10, 0));
}

TEST(RvDrawEntityCutLine, EndBeyondRightSideSlidesAlongTheLine) {
    // b.y2D = 6 + (2 - 6) * (10 - 20) / (0 - 20) = 6 - 2 = 4.
    RvPoint2D a = P(0, 2);
    RvPoint2D b = P(20, 6);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, 10, 4));
}

TEST(RvDrawEntityCutLine, EndBeyondLeftSideGoesToMinusHalf) {
    // X = -10: b.y2D = 10 + (0 - 10) * (-10 + 20) / (0 + 20) = 10 - 5 = 5.
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(-20, 10);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, -10, 5));
}

TEST(RvDrawEntityCutLine, VerticalSegmentBeyondHalfIsRefusedAtTheFirstStage) {
    RvPoint2D a = P(20, 0);
    RvPoint2D b = P(20, 5);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    // Refused before anything moved.
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 20, 0));
    EXPECT_TRUE(PlanarIs(b, 20, 5));
}

TEST(RvDrawEntityCutLine, FirstStageRefusesADifferenceOfExactly0001) {
    // With half 0 the difference 0.001 - 0 is exactly 0.001, which is not strictly above it.
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(0.001, 3);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(b, 0.001, 3));
}

TEST(RvDrawEntityCutLine, FirstStageMovesTheEndJustAbove0001) {
    // One step above 0.001 the end is moved to x2D = 0 and counts as cut; b.y2D becomes
    // 3 + (0 - 3) * (0 - x) / (0 - x) = 0. What is left has no length, so the result is false.
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(std::nextafter(0.001, 1.0), 3);
    bool cut = false;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, 0, 0));
}

TEST(RvDrawEntityCutLine, FirstStageNearTheBoundWithAWiderSquare) {
    // 0.0009 across: refused, nothing moved.
    RvPoint2D a = P(9.9995, 0);
    RvPoint2D b = P(10.0004, 1);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(b, 10.0004, 1));

    // 0.0011 across: b.y2D = 1.1 + (0 - 1.1) * (10 - 10.0006) / (9.9995 - 10.0006) = 0.5.
    a = P(9.9995, 0);
    b = P(10.0006, 1.1);
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    ExpectPlanarNear(b, 10, 0.5, 1e-9);
}

// ---------------------------------------------------------------------------------------------
// CutLineToSquare: stage 2, the start `a` in x2D

TEST(RvDrawEntityCutLine, SegmentFromOutsideToOriginMovesTheStartWithoutCut) {
    RvPoint2D a = P(20, 0);
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 10, 0));
    EXPECT_TRUE(PlanarIs(b, 0, 0));
}

TEST(RvDrawEntityCutLine, StartBeyondLeftSideSlidesAlongTheLine) {
    // X = -10: a.y2D = 6 + (0 - 6) * (-10 + 30) / (0 + 30) = 6 - 4 = 2.
    RvPoint2D a = P(-30, 6);
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, -10, 2));
}

TEST(RvDrawEntityCutLine, SecondStageRefusesADifferenceOfExactly0001) {
    RvPoint2D a = P(0.001, 5);
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 0.001, 5));
}

TEST(RvDrawEntityCutLine, SecondStageMovesTheStartJustAbove0001) {
    // a goes to x2D = 0 with a.y2D = 5 + (0 - 5) * 1 = 0; no length is left, and cut stays
    // false because only the start moved.
    RvPoint2D a = P(std::nextafter(0.001, 1.0), 5);
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 0, 0));
}

TEST(RvDrawEntityCutLine, SecondStageNearTheBoundWithAWiderSquare) {
    RvPoint2D a = P(10.0004, 1);
    RvPoint2D b = P(9.9995, 0);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(PlanarIs(a, 10.0004, 1));

    // a.y2D = 1.1 + (0 - 1.1) * (10 - 10.0006) / (9.9995 - 10.0006) = 0.5.
    a = P(10.0006, 1.1);
    b = P(9.9995, 0);
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    ExpectPlanarNear(a, 10, 0.5, 1e-9);
}

TEST(RvDrawEntityCutLine, BothEndsOutsideAreBothMovedAndCutIsSet) {
    // Stage 1: b.y2D = 5 + (-5 - 5) * (10 - 20) / (-20 - 20) = 2.5.
    // Stage 2, with the new b: a.y2D = -5 + (2.5 + 5) * (-10 + 20) / (10 + 20) = -2.5.
    RvPoint2D a = P(-20, -5);
    RvPoint2D b = P(20, 5);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(a, -10, -2.5));
    EXPECT_TRUE(PlanarIs(b, 10, 2.5));
}

// ---------------------------------------------------------------------------------------------
// CutLineToSquare: stage 3, the end `b` in y2D

TEST(RvDrawEntityCutLine, EndAboveTopSlidesAlongTheLine) {
    // b.x2D = 5 + (0 - 5) * (10 - 20) / (0 - 20) = 2.5.
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(5, 20);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, 2.5, 10));
}

TEST(RvDrawEntityCutLine, EndBelowBottomGoesToMinusHalf) {
    // X = -10: b.x2D = 4 + (0 - 4) * (-10 + 40) / (0 + 40) = 4 - 3 = 1.
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(4, -40);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, 1, -10));
}

TEST(RvDrawEntityCutLine, ThirdStageWorksOnTheEndLeftByTheFirst) {
    // Stage 1: (20, 40) -> (10, 40 + (0 - 40) * (10 - 20) / (0 - 20)) = (10, 20).
    // Stage 3: (10, 20) -> (10 + (0 - 10) * (10 - 20) / (0 - 20), 10) = (5, 10).
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(20, 40);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, 5, 10));
}

TEST(RvDrawEntityCutLine, HorizontalSegmentAboveTheSquareIsRefusedAtTheThirdStage) {
    RvPoint2D a = P(0, 15);
    RvPoint2D b = P(5, 15);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(b, 5, 15));
}

TEST(RvDrawEntityCutLine, RefusalAfterTheFirstStageKeepsCutSet) {
    // Stages 1 and 2 bring the ends to (10, 15) and (-10, 15); stage 3 then finds no height
    // between them. The end has moved, so cut stays true though the result is false.
    RvPoint2D a = P(-20, 15);
    RvPoint2D b = P(20, 15);
    bool cut = false;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(a, -10, 15));
    EXPECT_TRUE(PlanarIs(b, 10, 15));
}

TEST(RvDrawEntityCutLine, ThirdStageRefusesADifferenceOfExactly0001) {
    // Both x2D are 0, so the first two stages pass; then 0.001 - 0 is not above 0.001.
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(0, 0.001);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(b, 0, 0.001));
}

TEST(RvDrawEntityCutLine, ThirdStageMovesTheEndJustAbove0001) {
    RvPoint2D a = P(0, 0);
    RvPoint2D b = P(0, std::nextafter(0.001, 1.0));
    bool cut = false;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(b, 0, 0));
}

TEST(RvDrawEntityCutLine, ThirdStageNearTheBoundWithAWiderSquare) {
    RvPoint2D a = P(0, 9.9995);
    RvPoint2D b = P(1, 10.0004);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);

    // b.x2D = 1.1 + (0 - 1.1) * (10 - 10.0006) / (9.9995 - 10.0006) = 0.5.
    a = P(0, 9.9995);
    b = P(1.1, 10.0006);
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    ExpectPlanarNear(b, 0.5, 10, 1e-9);
}

// ---------------------------------------------------------------------------------------------
// CutLineToSquare: stage 4, the start `a` in y2D

TEST(RvDrawEntityCutLine, StartBelowBottomSlidesAlongTheLineWithoutCut) {
    // X = -10: a.x2D = 6 + (0 - 6) * (-10 + 30) / (0 + 30) = 2.
    RvPoint2D a = P(6, -30);
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 2, -10));
}

TEST(RvDrawEntityCutLine, FourthStageWorksOnTheStartLeftByTheSecond) {
    // Stage 2: (-20, -40) -> (-10, -40 + (0 + 40) * (-10 + 20) / (0 + 20)) = (-10, -20).
    // Stage 4: (-10, -20) -> (-10 + (0 + 10) * (-10 + 20) / (0 + 20), -10) = (-5, -10).
    RvPoint2D a = P(-20, -40);
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, -5, -10));
}

TEST(RvDrawEntityCutLine, FourthStageRefusesADifferenceOfExactly0001) {
    RvPoint2D a = P(0, -0.001);
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 0, -0.001));
}

TEST(RvDrawEntityCutLine, FourthStageMovesTheStartJustAbove0001) {
    RvPoint2D a = P(0, -std::nextafter(0.001, 1.0));
    RvPoint2D b = P(0, 0);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kZero, a, b, cut));
    EXPECT_FALSE(cut);
    EXPECT_TRUE(PlanarIs(a, 0, 0));
}

TEST(RvDrawEntityCutLine, FourthStageNearTheBoundWithAWiderSquare) {
    RvPoint2D a = P(1, 10.0004);
    RvPoint2D b = P(0, 9.9995);
    bool cut = true;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(PlanarIs(a, 1, 10.0004));

    // a.x2D = 1.1 + (0 - 1.1) * (10 - 10.0006) / (9.9995 - 10.0006) = 0.5.
    a = P(1.1, 10.0006);
    b = P(0, 9.9995);
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_FALSE(cut);
    ExpectPlanarNear(a, 0.5, 10, 1e-9);
}

// ---------------------------------------------------------------------------------------------
// CutLineToSquare: what the stages do not see

TEST(RvDrawEntityCutLine, SegmentMissingTheSquareIsProjectedOntoItsBorderLines) {
    // The line x + y = 25 misses the square. Stage 1: b (20, 5) -> (10, 15). Stage 3: b ->
    // (10 + (5 - 10) * (10 - 15) / (20 - 15), 10) = (15, 10), outside in x2D again, as no stage
    // looks back. Stage 4: a (5, 20) -> (5 + (15 - 5) * (10 - 20) / (10 - 20), 10) = (15, 10).
    // Nothing is left between them.
    RvPoint2D a = P(5, 20);
    RvPoint2D b = P(20, 5);
    bool cut = false;
    EXPECT_FALSE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(cut);
    EXPECT_TRUE(PlanarIs(a, 15, 10));
    EXPECT_TRUE(PlanarIs(b, 15, 10));
}

TEST(RvDrawEntityCutLine, OnlyThePlanarPairChanges) {
    RvPoint2D a(-20, -5, 1, 2, 3);
    RvPoint2D b(20, 5, 4, 5, 6);
    bool cut = false;
    EXPECT_TRUE(RvDrawEntity::CutLineToSquare(kHalf, a, b, cut));
    EXPECT_TRUE(HasValues(a, 1, 2, 3, -10, -2.5));
    EXPECT_TRUE(HasValues(b, 4, 5, 6, 10, 2.5));
}

// ---------------------------------------------------------------------------------------------
// CutToSquare, open

TEST(RvDrawEntityCutToSquare, OpenPathInsideIsUnchanged) {
    RvPolyLine2D e = Path({P(0, 0), P(5, 0), P(5, 5), P(-3, 2)});
    e.CutToSquare(kHalf, false);
    // An uncut end is the next segment's start and is not repeated.
    ExpectPlanarPath(e, {P(0, 0), P(5, 0), P(5, 5), P(-3, 2)});
}

TEST(RvDrawEntityCutToSquare, PieceAfterACutEndBringsItsOwnStart) {
    // (0, 0)-(20, 0) ends cut at (10, 0). (20, 0)-(0, 5) starts at (10, 2.5): a.y2D = 0 +
    // (5 - 0) * (10 - 20) / (0 - 20) = 2.5; it is appended, then (0, 5).
    RvPolyLine2D e = Path({P(0, 0), P(20, 0), P(0, 5)});
    e.CutToSquare(kHalf, false);
    ExpectPlanarPath(e, {P(0, 0), P(10, 0), P(10, 2.5), P(0, 5)});
}

TEST(RvDrawEntityCutToSquare, ClippedStartOfTheFirstSegmentIsKept) {
    // (-20, 0)-(0, 0) starts at (-10, 0) without a cut end, so (0, 0) is shared with the next.
    RvPolyLine2D e = Path({P(-20, 0), P(0, 0), P(5, 5)});
    e.CutToSquare(kHalf, false);
    ExpectPlanarPath(e, {P(-10, 0), P(0, 0), P(5, 5)});
}

TEST(RvDrawEntityCutToSquare, OpenPathDropsASegmentThatCannotBeClipped) {
    // (20, 0)-(20, 5) is vertical beyond the side and is dropped. The start flag is still set
    // from the cut end (10, 0), so (20, 5)-(0, 5) brings its start (10, 5).
    RvPolyLine2D e = Path({P(0, 0), P(20, 0), P(20, 5), P(0, 5)});
    e.CutToSquare(kHalf, false);
    ExpectPlanarPath(e, {P(0, 0), P(10, 0), P(10, 5), P(0, 5)});
}

TEST(RvDrawEntityCutToSquare, DroppedSegmentLeavesTheStartFlagAsItWas) {
    // (0, 0)-(10, 0) is inside and not cut: the flag is false. (10, 0)-(10.0005, 5) is refused
    // (0.0005 across) and dropped without touching the flag. (10.0005, 5)-(0, 5) is clipped to
    // (10, 5)-(0, 5), but with the flag false only its end is appended.
    RvPolyLine2D e = Path({P(0, 0), P(10, 0), P(10.0005, 5), P(0, 5)});
    e.CutToSquare(kHalf, false);
    ExpectPlanarPath(e, {P(0, 0), P(10, 0), P(0, 5)});
}

TEST(RvDrawEntityCutToSquare, OpenPathWhoseOnlySegmentFailsBecomesEmpty) {
    RvPolyLine2D e = Path({P(20, 0), P(20, 5)});
    e.CutToSquare(kHalf, false);
    EXPECT_TRUE(e.empty());
}

TEST(RvDrawEntityCutToSquare, CopiesKeepTheirPositionInSpace) {
    RvPolyLine2D e = Path({RvPoint2D(0, 0, 1, 2, 3), RvPoint2D(20, 0, 4, 5, 6)});
    e.CutToSquare(kHalf, false);
    ASSERT_EQ(e.size(), 2u);
    EXPECT_TRUE(HasValues(e[0], 1, 2, 3, 0, 0));
    EXPECT_TRUE(HasValues(e[1], 4, 5, 6, 10, 0));
}

// ---------------------------------------------------------------------------------------------
// CutToSquare, closed

TEST(RvDrawEntityCutToSquare, ClosedPathInsideAppendsTheFirstVertexAgain) {
    RvPolyLine2D e = Path({P(0, 0), P(5, 0), P(5, 5)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(0, 0), P(5, 0), P(5, 5), P(0, 0)});
}

TEST(RvDrawEntityCutToSquare, ClosedPathOfTwoVerticesGoesThereAndBack) {
    RvPolyLine2D e = Path({P(1, 2), P(3, 4)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(1, 2), P(3, 4), P(1, 2)});
}

TEST(RvDrawEntityCutToSquare, ClosedPathAlreadyEndingAtItsFirstVertexKeepsTheRepeat) {
    // The closing segment from (0, 0) to (0, 0) has no length; it is refused and, the path
    // being closed, both its ends are clamped and appended.
    RvPolyLine2D e = Path({P(0, 0), P(5, 0), P(5, 5), P(0, 0)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(0, 0), P(5, 0), P(5, 5), P(0, 0), P(0, 0), P(0, 0)});
}

TEST(RvDrawEntityCutToSquare, ClosedPathClampsASegmentThatCannotBeClipped) {
    // (0, 0)-(20, 0): (0, 0), (10, 0), flag set. (20, 0)-(20, 5) is refused; clamped to
    // (10, 0), (10, 5) and appended, flag untouched. The closing (20, 5)-(0, 0) starts at
    // a.y2D = 5 + (0 - 5) * (10 - 20) / (0 - 20) = 2.5, and with the flag set brings it along.
    RvPolyLine2D e = Path({P(0, 0), P(20, 0), P(20, 5)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(0, 0), P(10, 0), P(10, 0), P(10, 5), P(10, 2.5), P(0, 0)});
}

TEST(RvDrawEntityCutToSquare, ClampingLimitsBothCoordinatesAndKeepsSpace) {
    // (0, 0)-(20, 15): b.y2D = 15 + (0 - 15) * (10 - 20) / (0 - 20) = 7.5, cut.
    // (20, 15)-(20, -30): vertical, refused; clamped to (10, 10) and (10, -10).
    // (20, -30)-(0, 0): stage 2 gives a = (10, -30 + 30 * (-10) / (-20)) = (10, -15); stage 4
    // gives a.x2D = 10 + (0 - 10) * (-10 + 15) / (0 + 15) = 20 / 3, a = (20 / 3, -10).
    RvPolyLine2D e =
        Path({RvPoint2D(0, 0, 1, 1, 1), RvPoint2D(20, 15, 2, 2, 2), RvPoint2D(20, -30, 3, 3, 3)});
    e.CutToSquare(kHalf, true);
    ASSERT_EQ(e.size(), 6u);
    EXPECT_TRUE(HasValues(e[0], 1, 1, 1, 0, 0));
    EXPECT_TRUE(HasValues(e[1], 2, 2, 2, 10, 7.5));
    EXPECT_TRUE(HasValues(e[2], 2, 2, 2, 10, 10));
    EXPECT_TRUE(HasValues(e[3], 3, 3, 3, 10, -10));
    ExpectPlanarNear(e[4], 20.0 / 3.0, -10, 1e-12);
    EXPECT_TRUE(PointIs(e[4], 3, 3, 3));
    EXPECT_TRUE(HasValues(e[5], 1, 1, 1, 0, 0));
}

TEST(RvDrawEntityCutToSquare, ClosedPathClampsInsteadOfDroppingAfterAnUncutEnd) {
    // As in the open case the flag is false before the refused segment, so the closing piece
    // brings only its end; but the refused one is clamped to (10, 0), (10, 5) and kept.
    RvPolyLine2D e = Path({P(0, 0), P(10, 0), P(10.0005, 5), P(0, 5)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(0, 0), P(10, 0), P(10, 0), P(10, 5), P(0, 5), P(0, 0)});
}

TEST(RvDrawEntityCutToSquare, ClosingSegmentIsClippedToo) {
    // (5, 0)-(30, 0) ends cut at (10, 0); the closing (30, 0)-(0, 0) then brings its clipped
    // start (10, 0) and the first vertex.
    RvPolyLine2D e = Path({P(0, 0), P(5, 0), P(30, 0)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(0, 0), P(5, 0), P(10, 0), P(10, 0), P(0, 0)});
}

TEST(RvDrawEntityCutToSquare, FirstVertexOutsideComesBackClipped) {
    // (20, 0)-(0, 0) starts at (10, 0). The closing (0, 5)-(20, 0) ends cut at
    // b.y2D = 0 + (5 - 0) * (10 - 20) / (0 - 20) = 2.5.
    RvPolyLine2D e = Path({P(20, 0), P(0, 0), P(0, 5)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(10, 0), P(0, 0), P(0, 5), P(10, 2.5)});
}

TEST(RvDrawEntityCutToSquare, ClosedPathOfTwoVerticesBeyondTheSideIsClampedTwice) {
    RvPolyLine2D e = Path({P(20, 0), P(20, 5)});
    e.CutToSquare(kHalf, true);
    ExpectPlanarPath(e, {P(10, 0), P(10, 5), P(10, 5), P(10, 0)});
}

// ---------------------------------------------------------------------------------------------
// CutToSquare without segments

TEST(RvDrawEntityCutToSquare, SingleVertexHasNoSegmentsAndIsRemoved) {
    RvPolyLine2D open = Path({P(3, 4)});
    open.CutToSquare(kHalf, false);
    EXPECT_TRUE(open.empty());

    // Closed, too: a single vertex gives no closing segment.
    RvPolyLine2D closed = Path({P(3, 4)});
    closed.CutToSquare(kHalf, true);
    EXPECT_TRUE(closed.empty());
}

TEST(RvDrawEntityCutToSquare, EmptyEntityStaysEmpty) {
    RvPolyLine2D e;
    e.CutToSquare(kHalf, false);
    EXPECT_TRUE(e.empty());
    e.CutToSquare(kHalf, true);
    EXPECT_TRUE(e.empty());
}

// ---------------------------------------------------------------------------------------------
// IsInClientArea

namespace {

// Left 0, right 20, and `top` the greater ordinate 10, `bottom` 0.
const CTtagRECT kClient{0, 10, 20, 0};

}  // namespace

TEST(RvDrawEntityClientArea, PointInsideLowersBestToItsDistancePlusOne) {
    // m = max(|5 - 2|, |5 - 1|) + 1 = 5.
    double best = 100;
    EXPECT_TRUE(RvDrawEntity::IsInClientArea(P(5, 5), P(2, 1), best, kClient));
    EXPECT_EQ(best, 5.0);
}

TEST(RvDrawEntityClientArea, BestAlreadyBelowStaysAsItIs) {
    double best = 3;
    EXPECT_TRUE(RvDrawEntity::IsInClientArea(P(5, 5), P(2, 1), best, kClient));
    EXPECT_EQ(best, 3.0);
}

TEST(RvDrawEntityClientArea, BestEqualToTheDistanceStaysAsItIs) {
    double best = 5;
    EXPECT_TRUE(RvDrawEntity::IsInClientArea(P(5, 5), P(2, 1), best, kClient));
    EXPECT_EQ(best, 5.0);
    best = std::nextafter(5.0, 6.0);
    EXPECT_TRUE(RvDrawEntity::IsInClientArea(P(5, 5), P(2, 1), best, kClient));
    EXPECT_EQ(best, 5.0);
}

TEST(RvDrawEntityClientArea, PointOnTheEdgeIsOutside) {
    double best = 100;
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(0, 5), P(0, 5), best, kClient));
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(20, 5), P(0, 5), best, kClient));
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(5, 0), P(0, 5), best, kClient));
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(5, 10), P(0, 5), best, kClient));
    EXPECT_EQ(best, 100.0);
}

TEST(RvDrawEntityClientArea, PointBeyondTheRectangleIsOutside) {
    double best = 100;
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(-1, 5), P(0, 0), best, kClient));
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(21, 5), P(0, 0), best, kClient));
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(5, -1), P(0, 0), best, kClient));
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(5, 11), P(0, 0), best, kClient));
    EXPECT_EQ(best, 100.0);
}

TEST(RvDrawEntityClientArea, RectangleWithTopTheLesserOrdinateHoldsNothing) {
    // The orientation GetExtens2D fills: top 0 below bottom 10. Nothing lies above 10 and
    // below 0 at once.
    const CTtagRECT extent{0, 0, 20, 10};
    double best = 100;
    EXPECT_FALSE(RvDrawEntity::IsInClientArea(P(5, 5), P(5, 5), best, extent));
    EXPECT_EQ(best, 100.0);
}

TEST(RvDrawEntityClientArea, ReadsOnlyThePlanarPair) {
    // In space both points sit far outside; in the plane p is at (5, 5), the cursor at (5, 3).
    const RvPoint2D p(5, 5, 500, 500, 500);
    const RvPoint2D cursor(5, 3, -900, -900, 0);
    double best = 100;
    EXPECT_TRUE(RvDrawEntity::IsInClientArea(p, cursor, best, kClient));
    EXPECT_EQ(best, 3.0);
}

TEST(RvDrawEntityClientArea, PairReportsTheFirstPointInside) {
    // p1 is inside at distance max(3, 4) + 1 = 5; p2 would be nearer (1 + 1 = 2) but is not
    // looked at.
    double best = 100;
    EXPECT_EQ(RvDrawEntity::IsInClientArea(P(5, 5), P(2, 2), P(2, 1), best, kClient), 1);
    EXPECT_EQ(best, 5.0);
}

TEST(RvDrawEntityClientArea, PairReportsTheSecondWhenTheFirstIsOutside) {
    // p2 = (4, 2) is at max(2, 1) + 1 = 3 from the cursor.
    double best = 100;
    EXPECT_EQ(RvDrawEntity::IsInClientArea(P(30, 5), P(4, 2), P(2, 1), best, kClient), 2);
    EXPECT_EQ(best, 3.0);
}

TEST(RvDrawEntityClientArea, PairOfPointsOutsideIsZeroAndLeavesBest) {
    double best = 100;
    EXPECT_EQ(RvDrawEntity::IsInClientArea(P(30, 5), P(0, 5), P(2, 1), best, kClient), 0);
    EXPECT_EQ(best, 100.0);
}

TEST(RvDrawEntityClientArea, PairKeepsALowerBest) {
    double best = 1;
    EXPECT_EQ(RvDrawEntity::IsInClientArea(P(30, 5), P(4, 2), P(2, 1), best, kClient), 2);
    EXPECT_EQ(best, 1.0);
}
