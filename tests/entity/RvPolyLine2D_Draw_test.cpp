#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/platform/CRecordingDC.h"
#include "ravelin/platform/CRect.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::HasValues;
using ravelin::testing_support::Path;

namespace {

// Exposes the raster operation of filled shapes, which has no getter.
class RopProbe : public RvPolyLine2D {
public:
    static int Current() { return s_nROP2LIB; }
};

// The outcome of one IsIncident call.
struct Incidence {
    bool result;
    double d;
    enumSnapType snap;
};

Incidence Touch(const RvPolyLine2D& line, const RvPoint2D& p, double d, RvDrawEntity& hit,
                enumSnapType snap = static_cast<enumSnapType>(0)) {
    const bool result = line.IsIncident(p, d, snap, hit);
    return {result, d, snap};
}

// Rotates the planar point (x, y) by `quarters` quarter turns counterclockwise round the origin.
std::array<double, 2> Turn(double x, double y, int quarters) {
    for (int k = 0; k < quarters; ++k) {
        const double t = x;
        x = -y;
        y = t;
    }
    return {x, y};
}

}  // namespace

// --- Draw -----------------------------------------------------------------------------------

TEST(RvPolyLine2DDraw, MoveToTheFirstVertexThenLineToEachLater) {
    const RvPolyLine2D line0 = Path({{0, 0}, {10, 0}, {10, 10}, {-4, 7}});
    RvPolyLine2D line = line0;
    CRecordingDC dc;
    const CRect r = line.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    const std::vector<std::string> expected{"MoveTo(0, 0)", "LineTo(10, 0)", "LineTo(10, 10)",
                                            "LineTo(-4, 7)"};
    EXPECT_EQ(dc.Descriptions(), expected);
    EXPECT_TRUE(dc.GetCurrentPosition() == CPoint(-4, 7));
}

TEST(RvPolyLine2DDraw, PixelsRoundThePlanarPairHalvesAwayFromZero) {
    // Space values are far off, so only the planar pair can give these pixels.
    RvPolyLine2D line;
    line.push_back(RvPoint2D(0.4, 0.5, 100, 100, 0));     // (0, 1)
    line.push_back(RvPoint2D(2.5, -2.5, 100, 100, 0));    // (3, -3)
    line.push_back(RvPoint2D(-0.5, 10.49, 100, 100, 0));  // (-1, 10)
    line.push_back(RvPoint2D(-1.5, -0.6, 100, 100, 0));   // (-2, -1)
    line.push_back(RvPoint2D(-0.4, 0.49, 100, 100, 0));   // (0, 0)
    CRecordingDC dc;
    line.Draw(&dc);
    const std::vector<std::string> expected{"MoveTo(0, 1)", "LineTo(3, -3)", "LineTo(-1, 10)",
                                            "LineTo(-2, -1)", "LineTo(0, 0)"};
    EXPECT_EQ(dc.Descriptions(), expected);
}

TEST(RvPolyLine2DDraw, FarVerticesGiveTheEndsOfThePixelRange) {
    RvPolyLine2D line = Path({{0, 0}, {3e9, -3e9}});
    CRecordingDC dc;
    line.Draw(&dc);
    ASSERT_EQ(dc.Calls().size(), 2u);
    EXPECT_EQ(dc.Calls()[1].op, DCOp::LineTo);
    ASSERT_EQ(dc.Calls()[1].args.size(), 2u);
    EXPECT_EQ(dc.Calls()[1].args[0], std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(dc.Calls()[1].args[1], std::numeric_limits<std::int32_t>::min());
}

TEST(RvPolyLine2DDraw, TwoVerticesDrawOneLine) {
    RvPolyLine2D line = Path({{1, 2}, {3, 4}});
    CRecordingDC dc;
    const CRect r = line.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    const std::vector<std::string> expected{"MoveTo(1, 2)", "LineTo(3, 4)"};
    EXPECT_EQ(dc.Descriptions(), expected);
}

TEST(RvPolyLine2DDraw, OneVertexDrawsNothingAndGivesAnEmptyRectangle) {
    RvPolyLine2D line = Path({{5, 5}});
    CRecordingDC dc;
    const CRect r = line.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    EXPECT_TRUE(dc.Calls().empty());
    EXPECT_TRUE(dc.GetCurrentPosition() == CPoint(0, 0));
}

TEST(RvPolyLine2DDraw, NoVerticesDrawNothingAndGiveAnEmptyRectangle) {
    RvPolyLine2D line;
    CRecordingDC dc;
    const CRect r = line.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    EXPECT_TRUE(dc.Calls().empty());
}

TEST(RvPolyLine2DDraw, RasterModeIsNotTouched) {
    RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}});
    CRecordingDC dc;
    dc.SetROP2(R2_XORPEN);
    dc.ClearCalls();
    line.Draw(&dc);
    EXPECT_EQ(dc.GetROP2(), R2_XORPEN);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
    for (const DCCall& call : dc.Calls()) {
        EXPECT_TRUE(call.op == DCOp::MoveTo || call.op == DCOp::LineTo) << call.Describe();
    }
    EXPECT_EQ(dc.Calls().size(), 3u);
}

TEST(RvPolyLine2DDraw, LibraryRasterOperationDoesNotReachAPolyline) {
    RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    CRecordingDC dc;
    RvDrawEntity::SetROP2LIB(R2_XORPEN);
    line.Draw(&dc);
    RvDrawEntity::SetROP2LIB(R2_MERGEPEN);
    EXPECT_EQ(dc.GetROP2(), R2_COPYPEN);
    EXPECT_EQ(dc.Calls().size(), 2u);
}

TEST(RvPolyLine2DDraw, GeometryIsUnchanged) {
    RvPolyLine2D line;
    line.push_back(RvPoint2D(0.4, 0.5, 1, 2, 3));
    line.push_back(RvPoint2D(2.5, -2.5, 4, 5, 6));
    CRecordingDC dc;
    line.Draw(&dc);
    ASSERT_EQ(line.size(), 2u);
    EXPECT_TRUE(HasValues(line[0], 1, 2, 3, 0.4, 0.5));
    EXPECT_TRUE(HasValues(line[1], 4, 5, 6, 2.5, -2.5));
}

// --- SetROP2LIB -----------------------------------------------------------------------------

TEST(RvDrawEntityROP2LIB, StartsAtMergePenAndSetROP2LIBStoresTheValue) {
    EXPECT_EQ(RopProbe::Current(), 15);
    RvDrawEntity::SetROP2LIB(7);
    EXPECT_EQ(RopProbe::Current(), 7);
    RvDrawEntity::SetROP2LIB(15);
    EXPECT_EQ(RopProbe::Current(), 15);
}

// --- IsIncident -----------------------------------------------------------------------------

TEST(RvPolyLine2DIsIncident, HitTypeIsSetEvenWithoutAHit) {
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    RvPolyLine2D hit;
    hit.SetType(77);
    const Incidence r = Touch(line, RvPoint2D(50, 50), 1.0, hit);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(hit.GetType(), 2u);
}

TEST(RvPolyLine2DIsIncident, HitTypeIsThisEntitysTypeWord) {
    RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    line.SetType(41);
    RvPolyLine2D hit;
    Touch(line, RvPoint2D(5, 0.5), 1.0, hit);
    EXPECT_EQ(hit.GetType(), 41u);
}

TEST(RvPolyLine2DIsIncident, HitHoldsBothEndsOfTheSegmentHit) {
    // p = (10.3, 5) with d = 1: the first segment lies wholly below the box (low = 3.9999);
    // the second, x = 10, has its foot at (10, 5), 0.3 away.
    RvPolyLine2D line;
    line.push_back(RvPoint2D(0, 0, 1, 1, 1));
    line.push_back(RvPoint2D(10, 0, 2, 2, 2));
    line.push_back(RvPoint2D(10, 10, 3, 3, 3));
    RvPolyLine2D hit;
    hit.push_back(RvPoint2D(99, 99));
    hit.push_back(RvPoint2D(98, 98));
    hit.push_back(RvPoint2D(97, 97));
    const Incidence r = Touch(line, RvPoint2D(10.3, 5), 1.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_NEAR(r.d, 0.3, 1e-12);
    // The earlier vertices of `hit` are gone; the two ends come with all five values.
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(HasValues(hit[0], 2, 2, 2, 10, 0));
    EXPECT_TRUE(HasValues(hit[1], 3, 3, 3, 10, 10));
    EXPECT_EQ(hit.GetType(), 2u);
}

TEST(RvPolyLine2DIsIncident, SnapBecomesEdgeWhateverItWas) {
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    for (const int before : {0, 2, 3, 7}) {
        RvPolyLine2D hit;
        const Incidence r =
            Touch(line, RvPoint2D(5, 0.25), 1.0, hit, static_cast<enumSnapType>(before));
        EXPECT_TRUE(r.result) << before;
        EXPECT_EQ(r.snap, SnapEdge) << before;
    }
}

TEST(RvPolyLine2DIsIncident, WithoutAHitSnapDAndHitVerticesStayAsTheyCame) {
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}});
    for (const int before : {0, 3, 7}) {
        RvPolyLine2D hit;
        hit.push_back(RvPoint2D(1, 2));
        const Incidence r =
            Touch(line, RvPoint2D(5, 5), 1.0, hit, static_cast<enumSnapType>(before));
        EXPECT_FALSE(r.result) << before;
        EXPECT_EQ(static_cast<int>(r.snap), before);
        EXPECT_EQ(r.d, 1.0);
        ASSERT_EQ(hit.size(), 1u);
        EXPECT_TRUE(HasValues(hit[0], 1, 2, 0, 1, 2));
    }
}

TEST(RvPolyLine2DIsIncident, DistanceIsLoweredToTheDistanceReached) {
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(4, -0.75), 2.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_DOUBLE_EQ(r.d, 0.75);
}

TEST(RvPolyLine2DIsIncident, UsesThePlanarPairOnly) {
    // In space the segment runs far away; in the plane it passes 0.5 below p.
    RvPolyLine2D line;
    line.push_back(RvPoint2D(0, 0, 500, 500, 500));
    line.push_back(RvPoint2D(10, 0, 600, 600, 600));
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(5, 0.5, -300, -300, 0), 1.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_DOUBLE_EQ(r.d, 0.5);
}

TEST(RvPolyLine2DIsIncident, DiagonalHitInTheCursorCornerLowersDByTheCornerRule) {
    // Segment (0, 0)-(10, 10), p = (5, 6.2), d = 0.7: the foot is (5.6, 5.6), dist = 0.6*sqrt(2)
    // = 0.848528, between d and 1.4142*d = 0.98994. The direction to the foot folds to
    // |w| = pi/4, so r = cos(pi/4)*(0.7 + 0.7) = 0.989949 > dist, and
    // q = 0.7 - (r - dist)*cos(pi/4)/1.4142 = 0.7 - 0.141421*0.707107/1.4142 = 0.629288.
    const RvPolyLine2D line = Path({{0, 0}, {10, 10}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(5, 6.2), 0.7, hit);
    EXPECT_TRUE(r.result);
    EXPECT_NEAR(r.d, 0.629288, 1e-5);
}

TEST(RvPolyLine2DIsIncident, BoxBesideTheSegmentRejectsWhatTheSegmentTestWouldAccept) {
    // The segment ends at b, the foot of p = (0, 0); b lies 1.2 from p in the direction 22.5
    // degrees off the downward axis, and the segment runs on from b away from p. With d = 1
    // the square-cursor test accepts (1.2 is below cos w + sin w = 1.30656), but the segment
    // lies wholly beyond one side of the box of half-width 1.0001 (b is 1.2*cos(22.5 deg) =
    // 1.10866 off that side's axis), so the quick rejection refuses it first. Each quarter turn
    // puts the segment beyond another side of the box.
    const double theta = 0.39269908169872414;  // 22.5 degrees
    const double bx = 1.2 * std::sin(theta);
    const double by = -1.2 * std::cos(theta);
    const double ax = bx - 10 * std::cos(theta);
    const double ay = by - 10 * std::sin(theta);
    const RvPoint2D p(0, 0);
    for (int quarters = 0; quarters < 4; ++quarters) {
        const auto a = Turn(ax, ay, quarters);
        const auto b = Turn(bx, by, quarters);
        const RvPoint2D pa(a[0], a[1]);
        const RvPoint2D pb(b[0], b[1]);
        double probe = 1.0;
        ASSERT_TRUE(p.IsOnSegment2D(pa, pb, probe)) << quarters;

        const RvPolyLine2D line = Path({pa, pb});
        RvPolyLine2D hit;
        const Incidence r = Touch(line, p, 1.0, hit);
        EXPECT_FALSE(r.result) << quarters;
        EXPECT_EQ(r.d, 1.0) << quarters;
        EXPECT_TRUE(hit.empty()) << quarters;
    }
}

TEST(RvPolyLine2DIsIncident, EndPointInTheCursorBoxHitsBeyondTheSegment) {
    // p = (10.5, 0.2) lies beyond b = (10, 0): the foot's parameter is 1.05, so the segment
    // test refuses. The box with d = 1 runs from 9.4999 to 11.5001 and from -0.8001 to 1.2001
    // and holds b, which is hit. Its distance max(0.5, 0.2) + 1 = 1.5 is not below d, so d
    // stays 1.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(10.5, 0.2), 1.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_EQ(r.d, 1.0);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(HasValues(hit[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(hit[1], 10, 0, 0, 10, 0));
}

TEST(RvPolyLine2DIsIncident, EndPointHitLowersDToItsDistancePlusOne) {
    // As above with d = 3: b's distance 0.5 + 1 = 1.5 is below 3.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(10.5, 0.2), 3.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_DOUBLE_EQ(r.d, 1.5);
}

TEST(RvPolyLine2DIsIncident, StartPointInTheCursorBoxHitsBeforeTheSegment) {
    // p = (-0.5, 0.25) lies before a = (0, 0) (parameter -0.05); a is in the box and gives
    // max(0.5, 0.25) + 1 = 1.5.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(-0.5, 0.25), 3.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_DOUBLE_EQ(r.d, 1.5);
}

TEST(RvPolyLine2DIsIncident, OnlyTheFirstEndInTheBoxLowersD) {
    // A short segment (0, 0)-(0.1, 0) and p = (0.6, 0) beyond it (parameter 6). Both ends lie in
    // the box of d = 3; the first, a, gives 0.6 + 1 = 1.6, and b, which would give 1.5, is not
    // looked at.
    const RvPolyLine2D line = Path({{0, 0}, {0.1, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(0.6, 0), 3.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_DOUBLE_EQ(r.d, 1.6);
}

TEST(RvPolyLine2DIsIncident, EndPointOnTheBoxBorderIsNotInside) {
    // p lies beyond b = (10, 0) on the axis, so that the box's left side passes exactly through
    // b: the box does not reject the segment (its left side is not above b.x2D), the segment
    // test refuses (parameter 1.05), and b on the border is not strictly inside.
    const double d = 0.4999;
    const double w = d + 0.0001;
    const double px = 10 + w;
    ASSERT_EQ(px - w, 10.0);
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(px, 0), d, hit);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.d, d);
}

TEST(RvPolyLine2DIsIncident, EndPointJustInsideTheBoxBorderHits) {
    // As above with p a little nearer: b is strictly inside. Its distance 0.49 + 1 is not
    // below d, so d stays.
    const double d = 0.4999;
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(10.49, 0), d, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.d, d);
    EXPECT_EQ(hit.size(), 2u);
}

TEST(RvPolyLine2DIsIncident, OverlappingSegmentsTheLastThatPassesWins) {
    // The path goes out along y = 0 and comes back over itself. Both segments lie 0.3 from
    // p = (5, 0.3): the first lowers d to 0.3, the second passes with that d (0.3 <= 0.3) and
    // replaces it.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}, {2, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(5, 0.3), 1.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_DOUBLE_EQ(r.d, 0.3);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(HasValues(hit[0], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(hit[1], 2, 0, 0, 2, 0));
}

TEST(RvPolyLine2DIsIncident, LaterSegmentIsTestedWithTheDistanceLeftByTheOneBefore) {
    // p = (5, 0.2), d = 1. Segment y = 0 (0.2 away) comes first and lowers d to 0.2; the later
    // segment y = 0.7 (0.5 away) would pass with d = 1 but not with 0.2, so the first stays.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 0.7}, {0, 0.7}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(5, 0.2), 1.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_DOUBLE_EQ(r.d, 0.2);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(HasValues(hit[0], 0, 0, 0, 0, 0));
    EXPECT_TRUE(HasValues(hit[1], 10, 0, 0, 10, 0));
}

TEST(RvPolyLine2DIsIncident, NearerLaterSegmentReplacesTheEarlierHit) {
    // The same two segments in the other order: y = 0.7 is hit first (d becomes 0.5), the
    // vertical one is beside the box, and y = 0 at 0.2 is nearer and replaces it.
    const RvPolyLine2D line = Path({{0, 0.7}, {10, 0.7}, {10, 0}, {0, 0}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(5, 0.2), 1.0, hit);
    EXPECT_TRUE(r.result);
    EXPECT_NEAR(r.d, 0.2, 1e-12);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(HasValues(hit[0], 10, 0, 0, 10, 0));
    EXPECT_TRUE(HasValues(hit[1], 0, 0, 0, 0, 0));
}

TEST(RvPolyLine2DIsIncident, NoVerticesOrOneVertexNeverHit) {
    for (const RvPolyLine2D& line : {Path({}), Path({{5, 5}})}) {
        RvPolyLine2D hit;
        hit.SetType(9);
        const Incidence r = Touch(line, RvPoint2D(5, 5), 10.0, hit, SnapInside);
        EXPECT_FALSE(r.result);
        EXPECT_EQ(r.snap, SnapInside);
        EXPECT_EQ(r.d, 10.0);
        EXPECT_EQ(hit.GetType(), 2u);
        EXPECT_TRUE(hit.empty());
    }
}

TEST(RvPolyLine2DIsIncident, ThereIsNoClosingSegment) {
    // An open triangle (0,0)-(10,0)-(10,10): p near the missing edge from (10,10) to (0,0) and
    // away from both drawn segments is not hit.
    const RvPolyLine2D line = Path({{0, 0}, {10, 0}, {10, 10}});
    RvPolyLine2D hit;
    const Incidence r = Touch(line, RvPoint2D(4, 4.2), 0.5, hit);
    EXPECT_FALSE(r.result);
}

// --- InvSelectArea --------------------------------------------------------------------------

TEST(RvPolyLine2DInvSelectArea, EmptyRectangleGivesFalseInBothModes) {
    const RvPolyLine2D line = Path({{0, 5}, {5, 5}});
    const CRect zeroWidth(0, 0, 0, 10);
    const CRect zeroHeight(0, 0, 10, 0);
    const CRect inverted(10, 10, 0, 0);
    for (const CRect& r : {zeroWidth, zeroHeight, inverted}) {
        EXPECT_FALSE(line.InvSelectArea(r, 1));
        EXPECT_FALSE(line.InvSelectArea(r, 2));
    }
}

TEST(RvPolyLine2DInvSelectArea, EmptyRectangleRefusesEvenAnEntityWithNoVertices) {
    const RvPolyLine2D line;
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 0, 0), 1));
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 0, 0), 2));
}

TEST(RvPolyLine2DInvSelectArea, FullInclusionOfEveryVertexPixel) {
    const RvPolyLine2D line = Path({{0, 0}, {9, 9}, {5, 2}});
    EXPECT_TRUE(line.InvSelectArea(CRect(0, 0, 10, 10), 1));
}

TEST(RvPolyLine2DInvSelectArea, FullInclusionFailsWithOneVertexOutside) {
    const RvPolyLine2D line = Path({{1, 1}, {9, 9}, {5, 12}});
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 1));
}

TEST(RvPolyLine2DInvSelectArea, FullInclusionRightAndBottomSidesAreOutside) {
    // Pixel (9, 9) is in; (10, 5) and (5, 10) are on the excluded sides.
    EXPECT_TRUE(Path({{1, 1}, {9, 9}}).InvSelectArea(CRect(0, 0, 10, 10), 1));
    EXPECT_FALSE(Path({{1, 1}, {10, 5}}).InvSelectArea(CRect(0, 0, 10, 10), 1));
    EXPECT_FALSE(Path({{1, 1}, {5, 10}}).InvSelectArea(CRect(0, 0, 10, 10), 1));
}

TEST(RvPolyLine2DInvSelectArea, FullInclusionJudgesTheRoundedPixel) {
    // 9.49 rounds to 9 (inside), 9.5 to 10 (outside); -0.49 to 0 (inside), -0.5 to -1 (outside).
    const CRect r(0, 0, 10, 10);
    EXPECT_TRUE(Path({{1, 1}, {9.49, 5}}).InvSelectArea(r, 1));
    EXPECT_FALSE(Path({{1, 1}, {9.5, 5}}).InvSelectArea(r, 1));
    EXPECT_TRUE(Path({{1, 1}, {-0.49, 5}}).InvSelectArea(r, 1));
    EXPECT_FALSE(Path({{1, 1}, {-0.5, 5}}).InvSelectArea(r, 1));
}

TEST(RvPolyLine2DInvSelectArea, FullInclusionOfAnEntityWithNoVerticesIsTrue) {
    const RvPolyLine2D line;
    EXPECT_TRUE(line.InvSelectArea(CRect(0, 0, 10, 10), 1));
}

TEST(RvPolyLine2DInvSelectArea, TouchingNeedsOnlyOneVertexInside) {
    const RvPolyLine2D line = Path({{100, 100}, {200, 150}, {5, 5}});
    EXPECT_TRUE(line.InvSelectArea(CRect(0, 0, 10, 10), 2));
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 1));
}

TEST(RvPolyLine2DInvSelectArea, TouchingOfASingleVertexJudgesItsPixel) {
    // One vertex and so no segment: only the pixel counts.
    EXPECT_TRUE(Path({{9.49, 5}}).InvSelectArea(CRect(0, 0, 10, 10), 2));
    EXPECT_FALSE(Path({{9.5, 5}}).InvSelectArea(CRect(0, 0, 10, 10), 2));
}

TEST(RvPolyLine2DInvSelectArea, TouchingBySidesCrossingASegmentWithNoVertexInside) {
    // A horizontal segment straight through the rectangle, both ends outside: the right and
    // left sides cross it.
    const RvPolyLine2D line = Path({{-5, 5}, {15, 5}});
    EXPECT_TRUE(line.InvSelectArea(CRect(0, 0, 10, 10), 2));
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 1));
}

TEST(RvPolyLine2DInvSelectArea, TouchingAcrossACornerOfTheRectangle) {
    // x + y = 2 cuts the corner at (0, 0): it crosses the top side y = 0 at x = 2 and the left
    // side x = 0 at y = 2, with both vertices outside.
    const RvPolyLine2D line = Path({{-2, 4}, {4, -2}});
    EXPECT_TRUE(line.InvSelectArea(CRect(0, 0, 10, 10), 2));
}

TEST(RvPolyLine2DInvSelectArea, TouchingFailsForASegmentBesideTheRectangle) {
    const RvPolyLine2D line = Path({{12, -5}, {12, 15}});
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 2));
}

TEST(RvPolyLine2DInvSelectArea, TouchingFailsForARectangleInsideALoop) {
    // A closed loop round the rectangle: no vertex in it and no side crossing the loop.
    const RvPolyLine2D line = Path({{-10, -10}, {20, -10}, {20, 20}, {-10, 20}, {-10, -10}});
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 2));
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 1));
}

TEST(RvPolyLine2DInvSelectArea, TouchingOfAnEntityWithNoVerticesIsFalse) {
    const RvPolyLine2D line;
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 2));
}

TEST(RvPolyLine2DInvSelectArea, OtherModesGiveFalse) {
    const RvPolyLine2D line = Path({{1, 1}, {5, 5}});
    const CRect r(0, 0, 10, 10);
    for (const int mode : {0, 3, -1, 12}) {
        EXPECT_FALSE(line.InvSelectArea(r, mode)) << mode;
    }
    // The same entity is selected in both real modes.
    EXPECT_TRUE(line.InvSelectArea(r, 1));
    EXPECT_TRUE(line.InvSelectArea(r, 2));
}

TEST(RvPolyLine2DInvSelectArea, OtherModesGiveFalseEvenWithNoVertices) {
    const RvPolyLine2D line;
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 0));
    EXPECT_FALSE(line.InvSelectArea(CRect(0, 0, 10, 10), 3));
}
