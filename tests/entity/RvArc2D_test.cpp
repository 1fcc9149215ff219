#include "ravelin/entity/RvArc2D.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <numbers>
#include <stdexcept>
#include <string>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CRecordingDC.h"
#include "ravelin/platform/CRect.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::ExpectThrowWithMessage;
using ravelin::testing_support::HasValues;
using ravelin::testing_support::Path;
using ravelin::testing_support::PlanarIs;

namespace {

using Strings = std::vector<std::string>;

// Angles that went through a few additions of two pi are compared within this.
constexpr double kAngleTol = 1e-12;
// Coordinate of the point at 45 degrees on the circle of radius 10 round the origin.
const double kDiag = std::sqrt(50.0);

// An arc of the given vertices, appended one at a time, round `center` with the stored angles.
RvArc2D Arc(std::initializer_list<RvPoint2D> points, const RvPoint2D& center = RvPoint2D(),
            double angle1 = 0, double angle2 = 0) {
    RvArc2D arc;
    for (const RvPoint2D& p : points) {
        arc.push_backA(p);
    }
    arc.m_center = center;
    arc.m_dAngle1 = angle1;
    arc.m_dAngle2 = angle2;
    return arc;
}

// The four corners of the square from (0, 0) to (10, 10), all on the circle of radius sqrt(50)
// round (5, 5), counterclockwise from 225 degrees. The chord back to the first vertex is the
// left side x = 0.
RvArc2D SquareArc(bool filled) {
    RvArc2D arc =
        Arc({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, RvPoint2D(5, 5), 1.25 * kPi, 2.75 * kPi);
    arc.m_bFilled = filled;
    return arc;
}

// The same square walked from (10, 10), so that the chord is the right side x = 10 and the
// lower side y = 10 is an edge of the path.
RvArc2D SquareArcChordRight(bool filled) {
    RvArc2D arc =
        Arc({{10, 10}, {0, 10}, {0, 0}, {10, 0}}, RvPoint2D(5, 5), 0.25 * kPi, 1.75 * kPi);
    arc.m_bFilled = filled;
    return arc;
}

// Sentinels that show an output was left alone.
struct Outputs {
    double radius = -1;
    double angle1 = -2;
    double angle2 = -3;
};

int CallIsArc2D(const RvArc2D& arc, Outputs& out) {
    return arc.IsArc2D(out.radius, out.angle1, out.angle2);
}

// The outcome of one IsIncident call.
struct Incidence {
    bool result;
    double d;
    enumSnapType snap;
};

Incidence Touch(const RvDrawEntity& e, const RvPoint2D& p, double d, RvDrawEntity& hit,
                enumSnapType snap = static_cast<enumSnapType>(0)) {
    const bool result = e.IsIncident(p, d, snap, hit);
    return {result, d, snap};
}

// A hit entity holding one stale vertex and a stale type, to see what IsIncident writes.
RvPolyLine2D StaleHit() {
    RvPolyLine2D hit = Path({{99, 99}});
    hit.SetType(77);
    return hit;
}

std::string Call(const char* op, const std::string& inside) {
    std::string out(op);
    out.append("(").append(inside).append(")");
    return out;
}

const std::string kSquarePoints = "(0, 0) (10, 0) (10, 10) (0, 10)";

// A device whose raster operation was set to `rop` beforehand, with that call forgotten.
void Prepare(CRecordingDC& dc, int rop) {
    dc.SetROP2(rop);
    dc.ClearCalls();
}

// Puts the process-wide raster operation back to its initial value after each test.
class RvArc2DDraw : public ::testing::Test {
protected:
    void TearDown() override { RvDrawEntity::SetROP2LIB(R2_MERGEPEN); }
};

}  // namespace

// --- Construction and copying -------------------------------------------------------------------

TEST(RvArc2D, DefaultHasTypeThirteenNoVerticesAndZeroFields) {
    const RvArc2D arc;
    EXPECT_EQ(arc.GetType(), 13u);
    EXPECT_EQ(RvArc2D::kType, 13u);
    EXPECT_TRUE(arc.empty());
    EXPECT_EQ(arc.m_dRadius, 0.0);
    EXPECT_EQ(arc.m_dAngle1, 0.0);
    EXPECT_EQ(arc.m_dAngle2, 0.0);
    EXPECT_TRUE(HasValues(arc.m_center, 0, 0, 0, 0, 0));
    EXPECT_FALSE(arc.m_bFilled);
}

TEST(RvArc2D, ReInitZeroesEverythingAndKeepsTheType) {
    RvArc2D arc = Arc({{1, 2}, {3, 4}}, RvPoint2D(7, 8, 1, 2, 3), 0.5, 1.5);
    arc.m_dRadius = 4;
    arc.m_bFilled = true;
    arc.SetType(5);
    arc.ReInit();
    EXPECT_EQ(arc.GetType(), 13u);
    EXPECT_TRUE(arc.empty());
    EXPECT_EQ(arc.m_dRadius, 0.0);
    EXPECT_EQ(arc.m_dAngle1, 0.0);
    EXPECT_EQ(arc.m_dAngle2, 0.0);
    EXPECT_TRUE(HasValues(arc.m_center, 0, 0, 0, 0, 0));
    EXPECT_FALSE(arc.m_bFilled);
}

TEST(RvArc2D, CopyAndAssignmentTakeEveryField) {
    RvArc2D source = Arc({{1, 2}, {3, 4}, {5, 6}}, RvPoint2D(7, 8, 1, 2, 3), 0.5, 1.5);
    source.m_dRadius = 4;
    source.m_bFilled = true;

    const RvArc2D copy(source);
    EXPECT_EQ(copy.GetType(), 13u);
    EXPECT_EQ(copy.size(), 3u);
    EXPECT_TRUE(PlanarIs(copy[2], 5, 6));
    EXPECT_EQ(copy.m_dRadius, 4.0);
    EXPECT_EQ(copy.m_dAngle1, 0.5);
    EXPECT_EQ(copy.m_dAngle2, 1.5);
    EXPECT_TRUE(HasValues(copy.m_center, 1, 2, 3, 7, 8));
    EXPECT_TRUE(copy.m_bFilled);

    RvArc2D assigned;
    assigned = source;
    EXPECT_EQ(assigned.GetType(), 13u);
    EXPECT_EQ(assigned.size(), 3u);
    EXPECT_EQ(assigned.m_dRadius, 4.0);
    EXPECT_EQ(assigned.m_dAngle1, 0.5);
    EXPECT_EQ(assigned.m_dAngle2, 1.5);
    EXPECT_TRUE(HasValues(assigned.m_center, 1, 2, 3, 7, 8));
    EXPECT_TRUE(assigned.m_bFilled);
}

// --- IsArc2D ------------------------------------------------------------------------------------

TEST(RvArc2DIsArc2D, FewerThanThreeVerticesGiveZeroAndWriteNothing) {
    Outputs out;
    EXPECT_EQ(CallIsArc2D(Arc({{10, 0}, {0, 10}}), out), 0);
    EXPECT_EQ(out.radius, -1.0);
    EXPECT_EQ(out.angle1, -2.0);
    EXPECT_EQ(out.angle2, -3.0);
    EXPECT_EQ(CallIsArc2D(RvArc2D(), out), 0);
    EXPECT_EQ(out.radius, -1.0);
}

TEST(RvArc2DIsArc2D, CounterclockwiseQuarterKeepsItsAngles) {
    // 0, 45 and 90 degrees round the origin: the vertex angles are already in order.
    const RvArc2D arc = Arc({{10, 0}, {kDiag, kDiag}, {0, 10}}, RvPoint2D(0, 0), 0, kPi / 2);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_DOUBLE_EQ(out.radius, 10.0);
    EXPECT_NEAR(out.angle1, 0.0, kAngleTol);
    EXPECT_NEAR(out.angle2, kPi / 2, kAngleTol);
}

TEST(RvArc2DIsArc2D, CounterclockwiseEndAndMiddleBelowTheStartAreLiftedByATurn) {
    // 90, 225 and 315 degrees: atan2 gives pi/2, -3pi/4 and -pi/4, so the end and the middle
    // each get two pi added: 7pi/4 and 5pi/4, and the middle lies within the sweep.
    const RvArc2D arc =
        Arc({{0, 10}, {-kDiag, -kDiag}, {kDiag, -kDiag}}, RvPoint2D(0, 0), kPi / 2, 1.75 * kPi);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_DOUBLE_EQ(out.radius, 10.0);
    EXPECT_NEAR(out.angle1, kPi / 2, kAngleTol);
    EXPECT_NEAR(out.angle2, 1.75 * kPi, kAngleTol);
}

TEST(RvArc2DIsArc2D, NegativeStartIsLiftedTogetherWithTheOthers) {
    // -90, -45 and 0 degrees: the start -pi/2 is below zero, so two pi is added to all three,
    // giving 3pi/2, 7pi/4 and 2pi.
    const RvArc2D arc = Arc({{0, -10}, {kDiag, -kDiag}, {10, 0}}, RvPoint2D(0, 0), -kPi / 2, 0);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_NEAR(out.angle1, 1.5 * kPi, kAngleTol);
    EXPECT_NEAR(out.angle2, kTwoPi, kAngleTol);
}

TEST(RvArc2DIsArc2D, ClockwisePathIsTurnedIntoACounterclockwiseSweepThroughTheMiddle) {
    // 0, -45 and -90 degrees, walked clockwise. In order from 0: end 3pi/2, middle 7pi/4, which
    // is beyond the end, so the ends are exchanged: 3pi/2 to 0 + 2pi. The counterclockwise
    // sweep from 270 to 360 degrees passes the middle vertex at 315.
    const RvArc2D arc = Arc({{10, 0}, {kDiag, -kDiag}, {0, -10}}, RvPoint2D(0, 0), 0, -kPi / 2);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_DOUBLE_EQ(out.radius, 10.0);
    EXPECT_NEAR(out.angle1, 1.5 * kPi, kAngleTol);
    EXPECT_NEAR(out.angle2, kTwoPi, kAngleTol);
    EXPECT_GT(out.angle1, out.angle2 - kTwoPi);
    EXPECT_LT(out.angle1, out.angle2);
}

TEST(RvArc2DIsArc2D, ClockwiseStartAtTwoPiIsBroughtBackToZero) {
    // 90, 45 and 0 degrees, clockwise. From pi/2: end 0 + 2pi, middle pi/4 + 2pi beyond it, so
    // the ends are exchanged: angle1 = 2pi, angle2 = pi/2 + 2pi. 2pi exceeds the bound
    // 6.283184307179586, so a turn is taken off both: 0 and pi/2.
    const RvArc2D arc = Arc({{0, 10}, {kDiag, kDiag}, {10, 0}}, RvPoint2D(0, 0), kPi / 2, 0);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_NEAR(out.angle1, 0.0, kAngleTol);
    EXPECT_NEAR(out.angle2, kPi / 2, kAngleTol);
}

TEST(RvArc2DIsArc2D, LastNormalisationBoundLiesOneMillionthBelowTwoPi) {
    // As above with the end just below the positive x axis, at -5e-07 radians: after the
    // exchange angle1 = 2pi - 5e-07, which lies between the bound 6.283184307179586 and two
    // pi. It is above the bound, so a turn is taken off and angle1 comes back negative.
    const double tiny = -5e-06;  // y of the end; its angle is atan2(-5e-06, 10) = -5e-07
    const RvArc2D arc = Arc({{0, 10}, {kDiag, kDiag}, {10, tiny}}, RvPoint2D(0, 0), kPi / 2, 0);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_NEAR(out.angle1, -5e-07, kAngleTol);
    EXPECT_LT(out.angle1, 0.0);
    EXPECT_NEAR(out.angle2, kPi / 2, kAngleTol);
}

TEST(RvArc2DIsArc2D, FullCircleReturnsTheStoredAngles) {
    // |6.2832 - 0| differs from two pi by 1.47e-05, below 1e-4: a full circle.
    const RvArc2D arc =
        Arc({{10, 0}, {0, 10}, {-10, 0}, {0, -10}, {10, 0}}, RvPoint2D(0, 0), 0, 6.2832);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_DOUBLE_EQ(out.radius, 10.0);
    EXPECT_EQ(out.angle1, 0.0);
    EXPECT_EQ(out.angle2, 6.2832);
}

TEST(RvArc2DIsArc2D, FullCircleAnglesAreNotDerivedFromTheVerticesNorOrdered) {
    // The vertices start at 0 degrees, the stored angles say otherwise, and descend.
    const RvArc2D arc =
        Arc({{10, 0}, {0, 10}, {-10, 0}, {0, -10}, {10, 0}}, RvPoint2D(0, 0), 7.2832, 1.0);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_EQ(out.angle1, 7.2832);
    EXPECT_EQ(out.angle2, 1.0);
}

TEST(RvArc2DIsArc2D, SweepJustOffTwoPiDerivesTheAnglesFromTheVertices) {
    // 6.2834 differs from two pi by 2.1e-04: not a full circle. The ends coincide at angle 0
    // and vertex 1 at pi/2 lies beyond the empty sweep, so the ends are exchanged, still 0 and 0.
    const RvArc2D arc =
        Arc({{10, 0}, {0, 10}, {-10, 0}, {0, -10}, {10, 0}}, RvPoint2D(0, 0), 0, 6.2834);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_NEAR(out.angle1, 0.0, kAngleTol);
    EXPECT_NEAR(out.angle2, 0.0, kAngleTol);
}

TEST(RvArc2DIsArc2D, WrongStoredCentreGivesZeroAndLeavesTheRadius) {
    // On the circle round the origin, but the stored centre is (1, 0): r0 = 9, r1 differs.
    const RvArc2D arc = Arc({{10, 0}, {kDiag, kDiag}, {0, 10}}, RvPoint2D(1, 0), 0, kPi / 2);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 0);
    EXPECT_EQ(out.radius, -1.0);
}

TEST(RvArc2DIsArc2D, CollinearVerticesGiveZeroWithTheAnglesWritten) {
    // From the centre (5, -5): vertex 0 at 3pi/4, vertex 1 at pi/2, vertex 2 at pi/4. In order
    // from 3pi/4: end 9pi/4, middle 5pi/2 beyond it, so the ends are exchanged: 9pi/4 and
    // 11pi/4, then a turn is taken off both: pi/4 and 3pi/4. The collinearity test then
    // answers 0 with the radius untouched.
    const RvArc2D arc = Arc({{0, 0}, {5, 0}, {10, 0}}, RvPoint2D(5, -5), 0, 1);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 0);
    EXPECT_EQ(out.radius, -1.0);
    EXPECT_NEAR(out.angle1, kPi / 4, kAngleTol);
    EXPECT_NEAR(out.angle2, 0.75 * kPi, kAngleTol);
}

TEST(RvArc2DIsArc2D, CollinearFullCircleGivesZeroWithTheStoredAngles) {
    const RvArc2D arc = Arc({{0, 0}, {5, 0}, {10, 0}}, RvPoint2D(5, -5), 0, kTwoPi);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 0);
    EXPECT_EQ(out.radius, -1.0);
    EXPECT_EQ(out.angle1, 0.0);
    EXPECT_EQ(out.angle2, kTwoPi);
}

TEST(RvArc2DIsArc2D, OnlyVerticesZeroOneAndTheLastAreMeasured) {
    // Vertex 2 at (3, 3) is off the circle; it only enters the collinearity test, where
    // u = (kDiag - 10, kDiag) and w = (kDiag - 3, kDiag - 3) are not parallel.
    const RvArc2D arc =
        Arc({{10, 0}, {kDiag, kDiag}, {3, 3}, {0, 10}}, RvPoint2D(0, 0), 0, kPi / 2);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_DOUBLE_EQ(out.radius, 10.0);
}

TEST(RvArc2DIsArc2D, RadiiMustAgreeWithinOneHundredThousandth) {
    // The last vertex lies 2e-05 beyond the circle: |r2 - r1| = 2e-05 is not below 1e-05.
    const RvArc2D off = Arc({{10, 0}, {kDiag, kDiag}, {0, 10.00002}}, RvPoint2D(0, 0), 0, kPi / 2);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(off, out), 0);
    EXPECT_EQ(out.radius, -1.0);
    // 5e-06 beyond it passes.
    const RvArc2D near =
        Arc({{10, 0}, {kDiag, kDiag}, {0, 10.000005}}, RvPoint2D(0, 0), 0, kPi / 2);
    EXPECT_EQ(CallIsArc2D(near, out), 1);
    EXPECT_DOUBLE_EQ(out.radius, 10.0);
}

TEST(RvArc2DIsArc2D, ReadsThePlanarPairOnly) {
    // In space the vertices lie anywhere; in the plane they are the quarter round the origin.
    const RvArc2D arc = Arc({RvPoint2D(10, 0, 50, 60, 70), RvPoint2D(kDiag, kDiag, -5, 3, 1),
                             RvPoint2D(0, 10, 8, 8, 8)},
                            RvPoint2D(0, 0, 1, 2, 3), 0, kPi / 2);
    Outputs out;
    EXPECT_EQ(CallIsArc2D(arc, out), 1);
    EXPECT_DOUBLE_EQ(out.radius, 10.0);
    EXPECT_NEAR(out.angle2, kPi / 2, kAngleTol);
}

// --- TestParalelToPlane -------------------------------------------------------------------------

TEST(RvArc2DTestParalelToPlane, ArcInTheXyPlaneIsParallelToIt) {
    const RvArc2D arc = Arc({{10, 0}, {kDiag, kDiag}, {0, 10}}, RvPoint2D(0, 0), 0, kPi / 2);
    EXPECT_EQ(arc.TestParalelToPlane(RvPoint3D(0, 0, 1)), 1);
    // The radius to vertex 0 is (10, 0, 0): not perpendicular to the x axis.
    EXPECT_EQ(arc.TestParalelToPlane(RvPoint3D(1, 0, 0)), 0);
}

TEST(RvArc2DTestParalelToPlane, BothRadiiOnTheYAxisArePerpendicularToX) {
    // Vertex 0 at (0, 10) and the last at (0, -10): both radii lie on the y axis. The stored
    // sweep of 2 is no half circle, so the last vertex is the second radius.
    const RvArc2D arc = Arc({{0, 10}, {-10, 0}, {0, -10}}, RvPoint2D(0, 0), 0, 2);
    EXPECT_EQ(arc.TestParalelToPlane(RvPoint3D(1, 0, 0)), 1);
    // Vertex 0 on the y axis, the last not.
    const RvArc2D other = Arc({{0, 10}, {-10, 0}, {-kDiag, -kDiag}}, RvPoint2D(0, 0), 0, 2);
    EXPECT_EQ(other.TestParalelToPlane(RvPoint3D(1, 0, 0)), 0);
}

TEST(RvArc2DTestParalelToPlane, HalfCircleTakesVertexOneAsTheSecondRadius) {
    // Same vertices, but a stored sweep of pi: the second radius is vertex 1, (-10, 0, 0),
    // which is not perpendicular to x.
    const RvArc2D arc = Arc({{0, 10}, {-10, 0}, {0, -10}}, RvPoint2D(0, 0), kPi / 2, 1.5 * kPi);
    EXPECT_EQ(arc.TestParalelToPlane(RvPoint3D(1, 0, 0)), 0);
}

TEST(RvArc2DTestParalelToPlane, HalfCircleBranchReadsVertexOneNotTheLast) {
    // Vertex 1 (0, 0, 10) is perpendicular to x, the last (5, -5, 0) is not.
    const RvArc2D half = Arc({RvPoint2D(0, 10, 0), RvPoint2D(0, 0, 10), RvPoint2D(5, -5, 0)},
                             RvPoint2D(0, 0, 0), 0, 3.1416);
    // |3.1416 - pi| = 7.3e-06 is below 1e-05: a half circle.
    EXPECT_EQ(half.TestParalelToPlane(RvPoint3D(1, 0, 0)), 1);
    RvArc2D notHalf = half;
    // |pi + 2e-05 - pi| is not below 1e-05: the last vertex is read.
    notHalf.m_dAngle2 = kPi + 2e-05;
    EXPECT_EQ(notHalf.TestParalelToPlane(RvPoint3D(1, 0, 0)), 0);
}

TEST(RvArc2DTestParalelToPlane, ReadsTheSpatialCoordinates) {
    // In the plane the arc is the quarter round the origin; in space it stands in the plane
    // z = 0 with vertex 0 along y and the last along -x, against a centre at (0, 0, 0).
    const RvArc2D arc = Arc({RvPoint2D(10, 0, 0, 10, 0), RvPoint2D(kDiag, kDiag, -7, 7, 0),
                             RvPoint2D(0, 10, -10, 0, 0)},
                            RvPoint2D(0, 0, 0, 0, 0), 0, kPi / 2);
    // Radii (0, 10, 0) and (-10, 0, 0): perpendicular to z only.
    EXPECT_EQ(arc.TestParalelToPlane(RvPoint3D(0, 0, 1)), 1);
    EXPECT_EQ(arc.TestParalelToPlane(RvPoint3D(1, 0, 0)), 0);
    EXPECT_EQ(arc.TestParalelToPlane(RvPoint3D(0, 1, 0)), 0);
}

// --- IsOnVertex ---------------------------------------------------------------------------------

TEST(RvArc2DIsOnVertex, NoVerticesRaiseTheSubscriptError) {
    RvArc2D arc;
    RvPoint2D cursor(0, 0);
    RvPoint2D found;
    double d = 2;
    ExpectThrowWithMessage<std::out_of_range>([&] { arc.IsOnVertex(cursor, found, d); },
                                              "invalid vector<T> subscript");
}

TEST(RvArc2DIsOnVertex, InnerVerticesAreNoVertices) {
    RvArc2D arc = Arc({{0, 0}, {5, 0}, {10, 0}});
    RvPoint2D cursor(5, 0);
    RvPoint2D found(-1, -1);
    double d = 2;
    EXPECT_FALSE(arc.IsOnVertex(cursor, found, d));
    EXPECT_EQ(d, 2.0);
    EXPECT_TRUE(PlanarIs(found, -1, -1));
}

TEST(RvArc2DIsOnVertex, FirstEndIsFoundAndTheDistanceUpdated) {
    // The square round (0.4, 0.3) with d = 2 is (-1, -1) to (2, 2) after truncation; vertex 0's
    // pixel (0, 0) is in it. d becomes max(0.4, 0.3) + 1 = 1.4. Ends apart: a sweep of 3.2
    // makes no closed arc.
    RvArc2D arc = Arc({RvPoint2D(0, 0, 0, 0, 4), {10, 5}, {20, 0}}, RvPoint2D(10, -5), 0, 3.2);
    RvPoint2D cursor(0.4, 0.3);
    RvPoint2D found;
    double d = 2;
    EXPECT_TRUE(arc.IsOnVertex(cursor, found, d));
    EXPECT_TRUE(HasValues(found, 0, 0, 4, 0, 0));
    EXPECT_NEAR(d, 1.4, 1e-12);
}

TEST(RvArc2DIsOnVertex, NarrowedSquareKeepsTheNearerFirstEnd) {
    // Round (0.5, 0) with d = 4 the square is (-3, -4) to (4, 4): both ends (0, 0) and (3, 0)
    // are in it. The first gives d = 0.5 + 1 = 1.5 and the square (-1, -1) to (2, 1), which
    // leaves out the pixel (3, 0) of the last end.
    RvArc2D arc = Arc({{0, 0}, {5, 5}, {3, 0}});
    RvPoint2D cursor(0.5, 0);
    RvPoint2D found;
    double d = 4;
    EXPECT_TRUE(arc.IsOnVertex(cursor, found, d));
    EXPECT_TRUE(PlanarIs(found, 0, 0));
    EXPECT_DOUBLE_EQ(d, 1.5);
}

TEST(RvArc2DIsOnVertex, LastEndBeatsAnEquallyNearFirstEnd) {
    // Round (1, 0) with d = 3 the square is (-2, -3) to (4, 3). The first end (0, 0) gives
    // d = 1 + 1 = 2 and the square (-1, -2) to (3, 2); the last end (2, 0) is in it too and
    // replaces it with the same d. Vertex 1 sits on the cursor and is not offered.
    RvArc2D arc = Arc({{0, 0}, {1, 0}, {2, 0}});
    RvPoint2D cursor(1, 0);
    RvPoint2D found;
    double d = 3;
    EXPECT_TRUE(arc.IsOnVertex(cursor, found, d));
    EXPECT_TRUE(PlanarIs(found, 2, 0));
    EXPECT_DOUBLE_EQ(d, 2.0);
}

TEST(RvArc2DIsOnVertex, ClosedArcOfSweepAboveThreePointOneFourHasNoEnds) {
    // The ends agree within 0.01 (the last differs by 0.005 in z only).
    RvArc2D arc = Arc(
        {RvPoint2D(10, 0, 10, 0, 0), {0, 10}, {-10, 0}, {0, -10}, RvPoint2D(10, 0, 10, 0, 0.005)},
        RvPoint2D(0, 0), 0, 3.2);
    RvPoint2D cursor(10, 0);
    RvPoint2D found(-1, -1);
    double d = 2;
    EXPECT_FALSE(arc.IsOnVertex(cursor, found, d));
    EXPECT_EQ(d, 2.0);
    EXPECT_TRUE(PlanarIs(found, -1, -1));

    // With a sweep of 3.0 the same path has ends: the last, with z 0.005, wins the tie.
    arc.m_dAngle2 = 3.0;
    EXPECT_TRUE(arc.IsOnVertex(cursor, found, d));
    EXPECT_TRUE(HasValues(found, 10, 0, 0.005, 10, 0));
    EXPECT_DOUBLE_EQ(d, 1.0);
}

TEST(RvArc2DIsOnVertex, EndsApartAreOfferedWhateverTheSweep) {
    RvArc2D arc = Arc({{10, 0}, {0, 10}, {-10, 0}}, RvPoint2D(0, 0), 0, 6.0);
    RvPoint2D cursor(-10, 0);
    RvPoint2D found;
    double d = 2;
    EXPECT_TRUE(arc.IsOnVertex(cursor, found, d));
    EXPECT_TRUE(PlanarIs(found, -10, 0));
    EXPECT_DOUBLE_EQ(d, 1.0);
}

// --- Draw ---------------------------------------------------------------------------------------

TEST_F(RvArc2DDraw, UnfilledArcDrawsAsAPolyline) {
    RvArc2D arc = SquareArc(false);
    CRecordingDC dc;
    Prepare(dc, 4);
    const CRect r = arc.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    EXPECT_EQ(dc.Descriptions(),
              (Strings{"MoveTo(0, 0)", "LineTo(10, 0)", "LineTo(10, 10)", "LineTo(0, 10)"}));
    EXPECT_EQ(dc.GetROP2(), 4);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
}

TEST_F(RvArc2DDraw, FilledArcFillsThenDrawsItsOpenOutline) {
    RvArc2D arc = SquareArc(true);
    CRecordingDC dc;
    Prepare(dc, 4);
    RvDrawEntity& entity = arc;
    const CRect r = entity.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    EXPECT_EQ(dc.Descriptions(),
              (Strings{"SetROP2(15)", "SetBkMode(1)", Call("Polygon", kSquarePoints), "SetROP2(13)",
                       Call("Polyline", kSquarePoints), "SetROP2(4)"}));
    ASSERT_EQ(dc.Calls().size(), 6u);
    // The outline keeps the chord open: the same four points, none added.
    EXPECT_EQ(dc.Calls()[4].points.size(), 4u);
    EXPECT_EQ(dc.GetROP2(), 4);
    EXPECT_EQ(dc.GetBkMode(), TRANSPARENT);
}

TEST_F(RvArc2DDraw, FilledArcPixelsAreRoundedHalvesAwayFromZero) {
    RvArc2D arc = Arc({{0.5, -0.5}, {kDiag, kDiag}, {-2.4, 9.6}});
    arc.m_bFilled = true;
    CRecordingDC dc;
    arc.Draw(&dc);
    // (0.5, -0.5) -> (1, -1); (7.07.., 7.07..) -> (7, 7); (-2.4, 9.6) -> (-2, 10).
    const std::string points = "(1, -1) (7, 7) (-2, 10)";
    EXPECT_EQ(dc.Descriptions(), (Strings{"SetROP2(15)", "SetBkMode(1)", Call("Polygon", points),
                                          "SetROP2(13)", Call("Polyline", points), "SetROP2(13)"}));
}

TEST_F(RvArc2DDraw, SetROP2LIBChangesTheFillOfFilledArcs) {
    RvDrawEntity::SetROP2LIB(R2_XORPEN);
    RvArc2D arc = SquareArc(true);
    CRecordingDC dc;
    Prepare(dc, 9);
    arc.Draw(&dc);
    EXPECT_EQ(dc.Descriptions(),
              (Strings{"SetROP2(7)", "SetBkMode(1)", Call("Polygon", kSquarePoints), "SetROP2(13)",
                       Call("Polyline", kSquarePoints), "SetROP2(9)"}));
    EXPECT_EQ(dc.GetROP2(), 9);
}

TEST_F(RvArc2DDraw, FewerThanTwoVerticesDrawNothing) {
    CRecordingDC dc;
    for (const bool filled : {false, true}) {
        RvArc2D one = Arc({{3, 4}});
        one.m_bFilled = filled;
        EXPECT_TRUE(one.Draw(&dc).IsRectNull());
        RvArc2D none;
        none.m_bFilled = filled;
        EXPECT_TRUE(none.Draw(&dc).IsRectNull());
    }
    EXPECT_TRUE(dc.Calls().empty());
}

// --- IsIncident ---------------------------------------------------------------------------------

TEST(RvArc2DIsIncident, FilledInteriorIsAHitInside) {
    const RvArc2D arc = SquareArc(true);
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(arc, RvPoint2D(5, 5), 1, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapInside);
    EXPECT_EQ(r.d, 1.0);
    EXPECT_EQ(hit.GetType(), 13u);
    // The interior hit names no segment.
    ASSERT_EQ(hit.size(), 1u);
    EXPECT_TRUE(PlanarIs(hit[0], 99, 99));
}

TEST(RvArc2DIsIncident, LeftAndTopBordersOfTheRegionAreInside) {
    const RvArc2D arc = SquareArc(true);
    RvPolyLine2D hit = StaleHit();
    // (0, 5) lies on the chord: the pixel (0, 5) has its centre (0.5, 5.5) inside.
    const Incidence left = Touch(arc, RvPoint2D(0, 5), 1, hit);
    EXPECT_TRUE(left.result);
    EXPECT_EQ(left.snap, SnapInside);
    // (5, 0) lies on the first edge, but the interior is tried first.
    const Incidence top = Touch(arc, RvPoint2D(5, 0), 1, hit);
    EXPECT_TRUE(top.result);
    EXPECT_EQ(top.snap, SnapInside);
    EXPECT_EQ(top.d, 1.0);
    ASSERT_EQ(hit.size(), 1u);
}

TEST(RvArc2DIsIncident, RightBorderOfTheRegionIsOutsideAndFallsToTheEdge) {
    // (10, 5): the pixel's centre (10.5, 5.5) is outside the region; the point lies on the edge
    // from (10, 0) to (10, 10), at distance 0.
    const RvArc2D arc = SquareArc(true);
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(arc, RvPoint2D(10, 5), 1, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_NEAR(r.d, 0.0, 1e-12);
    EXPECT_EQ(hit.GetType(), 13u);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 10, 0));
    EXPECT_TRUE(PlanarIs(hit[1], 10, 10));
}

TEST(RvArc2DIsIncident, LowerBorderOfTheRegionIsOutsideAndFallsToTheEdge) {
    // (5, 10): the pixel's centre (5.5, 10.5) is outside; the edge (10, 10)-(0, 10) is hit.
    const RvArc2D arc = SquareArc(true);
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(arc, RvPoint2D(5, 10), 1, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 10, 10));
    EXPECT_TRUE(PlanarIs(hit[1], 0, 10));
}

TEST(RvArc2DIsIncident, PointsRoundingOntoTheRightOrLowerBorderAreMissed) {
    // Here the right side x = 10 is the chord, not an edge. (9.6, 5) lies inside the square
    // but its pixel (10, 5) does not; with d = 0.3 every edge's box test rejects it.
    const RvArc2D arc = SquareArcChordRight(true);
    RvPolyLine2D hit = StaleHit();
    enumSnapType snap = static_cast<enumSnapType>(0);
    double d = 0.3;
    EXPECT_FALSE(arc.IsIncident(RvPoint2D(9.6, 5), d, snap, hit));
    EXPECT_EQ(snap, static_cast<enumSnapType>(0));
    EXPECT_EQ(hit.GetType(), 13u);
    // (5, 9.6) rounds to the pixel (5, 10) on the lower border; the edge y = 10 is 0.4 away,
    // beyond the box of half-width 0.3001.
    EXPECT_FALSE(arc.IsIncident(RvPoint2D(5, 9.6), d, snap, hit));
    // One step less and the pixel (9, 5) is inside.
    EXPECT_TRUE(arc.IsIncident(RvPoint2D(9.4, 5), d, snap, hit));
    EXPECT_EQ(snap, SnapInside);
    // Exactly on the chord: the pixel (10, 5) is outside and no edge is near.
    snap = static_cast<enumSnapType>(0);
    EXPECT_FALSE(arc.IsIncident(RvPoint2D(10, 5), d, snap, hit));
}

TEST(RvArc2DIsIncident, SnapEdgeOnEntrySkipsTheInterior) {
    const RvArc2D arc = SquareArc(true);
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(arc, RvPoint2D(5, 5), 1, hit, SnapEdge);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_EQ(hit.GetType(), 13u);
    // Near an edge the edge is still reported, at the perpendicular distance 0.2.
    const Incidence e = Touch(arc, RvPoint2D(5, 0.2), 1, hit, SnapEdge);
    EXPECT_TRUE(e.result);
    EXPECT_EQ(e.snap, SnapEdge);
    EXPECT_NEAR(e.d, 0.2, 1e-12);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 0, 0));
    EXPECT_TRUE(PlanarIs(hit[1], 10, 0));
}

TEST(RvArc2DIsIncident, FilledArcOutsideTheRegionHitsAnEdge) {
    // (5, -0.6) rounds to the pixel (5, -1), above the region. The last edge (0, 0)-(10, 0)
    // has its foot at (5, 0), 0.6 away, within d = 1; the other edges are rejected by the box.
    const RvArc2D arc = SquareArcChordRight(true);
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(arc, RvPoint2D(5, -0.6), 1, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_NEAR(r.d, 0.6, 1e-12);
    EXPECT_EQ(hit.GetType(), 13u);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 0, 0));
    EXPECT_TRUE(PlanarIs(hit[1], 10, 0));
}

TEST(RvArc2DIsIncident, FilledArcWithoutARegionIsNeverHit) {
    // One vertex makes no region.
    const RvArc2D one = [] {
        RvArc2D a = Arc({{3, 4}});
        a.m_bFilled = true;
        return a;
    }();
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(one, RvPoint2D(3, 4), 5, hit);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, static_cast<enumSnapType>(0));
    EXPECT_EQ(r.d, 5.0);
    EXPECT_EQ(hit.GetType(), 13u);
    RvArc2D none;
    none.m_bFilled = true;
    RvPolyLine2D hit2 = StaleHit();
    EXPECT_FALSE(Touch(none, RvPoint2D(0, 0), 5, hit2).result);
    EXPECT_EQ(hit2.GetType(), 13u);
}

TEST(RvArc2DIsIncident, UnfilledArcHitTestsAsAPolyline) {
    const RvArc2D arc = SquareArc(false);
    RvPolyLine2D hit = StaleHit();
    // Inside the square and on the chord: no hit without the fill.
    const Incidence inside = Touch(arc, RvPoint2D(5, 5), 1, hit);
    EXPECT_FALSE(inside.result);
    EXPECT_EQ(inside.snap, static_cast<enumSnapType>(0));
    EXPECT_EQ(hit.GetType(), 13u);
    EXPECT_FALSE(Touch(arc, RvPoint2D(0, 5), 1, hit).result);
    ASSERT_EQ(hit.size(), 1u);
    // On the first edge, 0.5 from its foot (5, 0).
    const Incidence edge = Touch(arc, RvPoint2D(5, 0.5), 1, hit);
    EXPECT_TRUE(edge.result);
    EXPECT_EQ(edge.snap, SnapEdge);
    EXPECT_NEAR(edge.d, 0.5, 1e-12);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 0, 0));
    EXPECT_TRUE(PlanarIs(hit[1], 10, 0));
}

// --- InvSelectArea ------------------------------------------------------------------------------

TEST(RvArc2DInvSelectArea, FilledArcSelectsAsAPolyline) {
    const RvArc2D arc = SquareArc(true);
    // Every vertex's pixel in (0, 0)-(11, 11).
    EXPECT_TRUE(arc.InvSelectArea(CRect(0, 0, 11, 11), 1));
    // A rectangle inside the fill touches neither a vertex nor the path.
    EXPECT_FALSE(arc.InvSelectArea(CRect(2, 2, 8, 8), 2));
    // Its left side crosses the bottom edge of the path at (5, 0).
    EXPECT_TRUE(arc.InvSelectArea(CRect(5, -2, 8, 8), 2));
    EXPECT_FALSE(arc.InvSelectArea(CRect(), 1));
}
