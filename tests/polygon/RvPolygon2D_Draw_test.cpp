#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/platform/CRecordingDC.h"
#include "ravelin/platform/CRect.h"
#include "ravelin/polygon/RvPolyPolygon2D.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::Path;
using ravelin::testing_support::PlanarIs;

namespace {

using Strings = std::vector<std::string>;

// The square from (0, 0) to (10, 10), counterclockwise and stored open.
RvPolygon2D Square() {
    return RvPolygon2D(Path({{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
}

// Appends `points` as one ring and records its count.
void AddRing(RvPolyPolygon2D& pp, std::initializer_list<RvPoint2D> points) {
    for (const RvPoint2D& p : points) {
        pp.push_backA(p);
    }
    pp.AddCount(static_cast<int>(points.size()));
}

// The square from (0, 0) to (10, 10) with a hole from (2, 2) to (8, 8), both rings open.
RvPolyPolygon2D SquareWithHole() {
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    AddRing(pp, {{2, 2}, {8, 2}, {8, 8}, {2, 8}});
    return pp;
}

const std::string kSquarePoints = "(0, 0) (10, 0) (10, 10) (0, 10)";

std::string Call(const char* op, const std::string& inside) {
    std::string out(op);
    out.append("(").append(inside).append(")");
    return out;
}

std::string RingsCall() {
    std::string inside(kSquarePoints);
    inside.append(" (2, 2) (8, 2) (8, 8) (2, 8); 4 4");
    return Call("PolyPolygon", inside);
}

// A device whose raster operation was set to `rop` beforehand, with that call forgotten.
void Prepare(CRecordingDC& dc, int rop) {
    dc.SetROP2(rop);
    dc.ClearCalls();
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

// Puts the process-wide raster operation back to its initial value after each test.
class RvPolygon2DDraw : public ::testing::Test {
protected:
    void TearDown() override { RvDrawEntity::SetROP2LIB(R2_MERGEPEN); }
};

using RvPolyPolygon2DDraw = RvPolygon2DDraw;

}  // namespace

// --- RvPolygon2D::Draw --------------------------------------------------------------------------

TEST_F(RvPolygon2DDraw, FillsInTheLibraryModeAndRestoresTheFormerMode) {
    RvPolygon2D square = Square();
    CRecordingDC dc;
    Prepare(dc, 4);
    const CRect r = square.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    EXPECT_EQ(dc.Descriptions(), (Strings{"SetROP2(15)", "SetBkMode(1)",
                                          Call("Polygon", kSquarePoints), "SetROP2(4)"}));
    EXPECT_EQ(dc.GetROP2(), 4);
    // The background mode is not put back.
    EXPECT_EQ(dc.GetBkMode(), TRANSPARENT);
}

TEST_F(RvPolygon2DDraw, EdgesAreAnOpenOutlineInCopyMode) {
    RvPolygon2D square = Square();
    square.m_bDrawEdges = true;
    CRecordingDC dc;
    Prepare(dc, 4);
    square.Draw(&dc);
    EXPECT_EQ(dc.Descriptions(),
              (Strings{"SetROP2(15)", "SetBkMode(1)", Call("Polygon", kSquarePoints), "SetROP2(13)",
                       Call("Polyline", kSquarePoints), "SetROP2(4)"}));
    ASSERT_EQ(dc.Calls().size(), 6u);
    // The outline is the same four pixels, with no closing point added.
    EXPECT_EQ(dc.Calls()[4].points.size(), 4u);
    EXPECT_EQ(dc.GetROP2(), 4);
}

TEST_F(RvPolygon2DDraw, FewerThanTwoVerticesDrawNothing) {
    CRecordingDC dc;
    RvPolygon2D one(Path({{3, 4}}));
    one.m_bDrawEdges = true;
    EXPECT_TRUE(one.Draw(&dc).IsRectNull());
    RvPolygon2D none;
    EXPECT_TRUE(none.Draw(&dc).IsRectNull());
    EXPECT_TRUE(dc.Calls().empty());
}

TEST_F(RvPolygon2DDraw, TwoVerticesAreDrawn) {
    RvPolygon2D two(Path({{0, 0}, {10, 0}}));
    CRecordingDC dc;
    two.Draw(&dc);
    EXPECT_EQ(dc.Descriptions(), (Strings{"SetROP2(15)", "SetBkMode(1)",
                                          Call("Polygon", "(0, 0) (10, 0)"), "SetROP2(13)"}));
}

TEST_F(RvPolygon2DDraw, SetROP2LIBChangesTheFillOfEveryLaterPolygon) {
    RvDrawEntity::SetROP2LIB(R2_XORPEN);
    RvPolygon2D first = Square();
    RvPolygon2D second(Path({{0, 0}, {5, 0}, {0, 5}}));
    CRecordingDC dc;
    Prepare(dc, 9);
    first.Draw(&dc);
    EXPECT_EQ(dc.GetROP2(), 9);
    second.Draw(&dc);
    EXPECT_EQ(dc.GetROP2(), 9);
    EXPECT_EQ(dc.Descriptions(),
              (Strings{"SetROP2(7)", "SetBkMode(1)", Call("Polygon", kSquarePoints), "SetROP2(9)",
                       "SetROP2(7)", "SetBkMode(1)", Call("Polygon", "(0, 0) (5, 0) (0, 5)"),
                       "SetROP2(9)"}));
}

TEST_F(RvPolygon2DDraw, SetROP2LIBChangesTheFillOfRings) {
    RvDrawEntity::SetROP2LIB(R2_XORPEN);
    RvPolyPolygon2D pp = SquareWithHole();
    pp.m_bDrawEdges = true;
    CRecordingDC dc;
    Prepare(dc, 9);
    pp.Draw(&dc);
    EXPECT_EQ(dc.Descriptions(), (Strings{"SetROP2(7)", RingsCall(), "SetROP2(9)"}));
}

// --- RvPolyPolygon2D::Draw ----------------------------------------------------------------------

TEST_F(RvPolyPolygon2DDraw, WithEdgesFillsAllRingsWithTheCurrentPen) {
    RvPolyPolygon2D pp = SquareWithHole();
    pp.m_bDrawEdges = true;
    CRecordingDC dc;
    Prepare(dc, 4);
    CPen* pen = dc.GetCurrentPen();
    const CRect r = pp.Draw(&dc);
    EXPECT_TRUE(r.IsRectNull());
    // No background mode is set.
    EXPECT_EQ(dc.Descriptions(), (Strings{"SetROP2(15)", RingsCall(), "SetROP2(4)"}));
    EXPECT_EQ(dc.GetROP2(), 4);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
    EXPECT_EQ(dc.GetCurrentPen(), pen);
}

TEST_F(RvPolyPolygon2DDraw, WithoutEdgesFillsWithANullPenAndSelectsTheFormerOneAgain) {
    RvPolyPolygon2D pp = SquareWithHole();
    CRecordingDC dc;
    Prepare(dc, 4);
    CPen* pen = dc.GetCurrentPen();
    pp.Draw(&dc);
    // The null pen is PS_NULL (5), width 0, colour 0; the stock pen is solid black of width 0.
    EXPECT_EQ(dc.Descriptions(), (Strings{"SetROP2(15)", "SelectPen(5, 0, 0)", RingsCall(),
                                          "SelectPen(0, 0, 0)", "SetROP2(4)"}));
    EXPECT_EQ(dc.GetCurrentPen(), pen);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
}

TEST_F(RvPolyPolygon2DDraw, FewerThanTwoVerticesDrawNothing) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{1, 1}});
    CRecordingDC dc;
    EXPECT_TRUE(pp.Draw(&dc).IsRectNull());
    EXPECT_TRUE(dc.Calls().empty());
}

TEST_F(RvPolyPolygon2DDraw, CountsPastTheVerticesAreCutAtTheLast) {
    RvPolyPolygon2D pp = SquareWithHole();
    pp.GetCounts()->back() = 10;
    pp.m_bDrawEdges = true;
    CRecordingDC dc;
    pp.Draw(&dc);
    // The device is given no ring reaching beyond the eight vertices.
    EXPECT_EQ(dc.Descriptions(), (Strings{"SetROP2(15)", RingsCall(), "SetROP2(13)"}));
}

TEST_F(RvPolyPolygon2DDraw, NegativeCountIsAnEmptyRing) {
    RvPolyPolygon2D pp = SquareWithHole();
    pp.GetCounts()->insert(pp.GetCounts()->begin(), -3);
    pp.m_bDrawEdges = true;
    CRecordingDC dc;
    pp.Draw(&dc);
    ASSERT_EQ(dc.Calls().size(), 3u);
    EXPECT_EQ(dc.Calls()[1].counts, (std::vector<int>{0, 4, 4}));
    EXPECT_EQ(dc.Calls()[1].points.size(), 8u);
}

// --- RvPolygon2D::IsIncident --------------------------------------------------------------------

TEST(RvPolygon2DIsIncident, InsideGivesSnapInsideAndTheType) {
    const RvPolygon2D square = Square();
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(square, RvPoint2D(5, 5), 0.5, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapInside);
    EXPECT_EQ(r.d, 0.5);
    EXPECT_EQ(hit.GetType(), 1u);
    // The vertices of `hit` are written only on an edge hit.
    ASSERT_EQ(hit.size(), 1u);
    EXPECT_TRUE(PlanarIs(hit[0], 99, 99));
}

TEST(RvPolygon2DIsIncident, InsideIsFoundWithoutEdges) {
    // The interior is tested before the edge flag.
    const RvPolygon2D square = Square();
    ASSERT_FALSE(square.m_bDrawEdges);
    RvPolyLine2D hit;
    EXPECT_TRUE(Touch(square, RvPoint2D(5, 5), 0.5, hit).result);
}

TEST(RvPolygon2DIsIncident, SnapEdgeOnEntryDoesNotReportTheInside) {
    RvPolygon2D square = Square();
    square.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(square, RvPoint2D(5, 5), 0.5, hit, SnapEdge);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_EQ(hit.GetType(), 1u);
    EXPECT_EQ(hit.size(), 1u);
}

TEST(RvPolygon2DIsIncident, EdgesOffGiveFalseOnAnEdge) {
    const RvPolygon2D square = Square();
    RvPolyLine2D hit = StaleHit();
    // Just outside the right side, well within the search distance.
    const Incidence r = Touch(square, RvPoint2D(10.05, 5), 0.5, hit);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, static_cast<enumSnapType>(0));
    EXPECT_EQ(hit.GetType(), 1u);
    EXPECT_EQ(hit.size(), 1u);
}

TEST(RvPolygon2DIsIncident, EdgesOnHitTheSide) {
    RvPolygon2D square = Square();
    square.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(square, RvPoint2D(10.05, 5), 0.5, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    EXPECT_LE(r.d, 0.5);
    EXPECT_EQ(hit.GetType(), 1u);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 10, 0));
    EXPECT_TRUE(PlanarIs(hit[1], 10, 10));
}

TEST(RvPolygon2DIsIncident, ClosingEdgeIsHitFromTheFirstToTheLastVertex) {
    RvPolygon2D square = Square();
    square.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    // Just left of the left side, which the open ring does not store as a segment.
    const Incidence r = Touch(square, RvPoint2D(-0.05, 5), 0.5, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 0, 0));
    EXPECT_TRUE(PlanarIs(hit[1], 0, 10));
}

TEST(RvPolygon2DIsIncident, FarPointGivesFalseAndLeavesSnap) {
    RvPolygon2D square = Square();
    square.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(square, RvPoint2D(30, 5), 0.5, hit, static_cast<enumSnapType>(9));
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, static_cast<enumSnapType>(9));
    EXPECT_EQ(r.d, 0.5);
}

TEST(RvPolygon2DIsIncident, EmptyPolygonIsNeverHit) {
    RvPolygon2D none;
    none.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    EXPECT_FALSE(Touch(none, RvPoint2D(0, 0), 0.5, hit).result);
    EXPECT_EQ(hit.GetType(), 1u);
}

// --- RvPolyPolygon2D::IsIncident ----------------------------------------------------------------

TEST(RvPolyPolygon2DIsIncident, InsideTheOuterRingOnly) {
    const RvPolyPolygon2D pp = SquareWithHole();
    RvPolyLine2D hit = StaleHit();
    // (9, 5) crosses the hole's right side only (the open rings have no left sides): inside.
    const Incidence r = Touch(pp, RvPoint2D(9, 5), 0.5, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapInside);
    EXPECT_EQ(hit.GetType(), 10u);
}

TEST(RvPolyPolygon2DIsIncident, SnapEdgeOnEntryDoesNotReportTheInside) {
    RvPolyPolygon2D pp = SquareWithHole();
    pp.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(pp, RvPoint2D(9, 5), 0.3, hit, SnapEdge);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
}

TEST(RvPolyPolygon2DIsIncident, NoClosingEdgeIsAdded) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    pp.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    // Next to the left side, which this open ring does not store: nothing is hit.
    const Incidence r = Touch(pp, RvPoint2D(-0.05, 5), 0.5, hit);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(r.snap, static_cast<enumSnapType>(0));
    EXPECT_EQ(hit.GetType(), 10u);
    EXPECT_EQ(hit.size(), 1u);
}

TEST(RvPolyPolygon2DIsIncident, StoredClosingSegmentIsAnOrdinaryEdge) {
    RvPolyPolygon2D pp;
    AddRing(pp, {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    pp.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    const Incidence r = Touch(pp, RvPoint2D(-0.05, 5), 0.5, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 0, 10));
    EXPECT_TRUE(PlanarIs(hit[1], 0, 0));
}

TEST(RvPolyPolygon2DIsIncident, NoEdgeJoinsOneRingToTheNext) {
    RvPolyPolygon2D pp = SquareWithHole();
    pp.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    // (1, 6) halves the segment from the outer ring's last vertex (0, 10) to the hole's first
    // (2, 2); it is outside and 1 or more from every edge of either ring.
    const Incidence r = Touch(pp, RvPoint2D(1, 6), 0.2, hit);
    EXPECT_FALSE(r.result);
    EXPECT_EQ(hit.size(), 1u);
}

TEST(RvPolyPolygon2DIsIncident, EdgesOfTheHoleAreHit) {
    RvPolyPolygon2D pp = SquareWithHole();
    pp.m_bDrawEdges = true;
    RvPolyLine2D hit = StaleHit();
    // Inside the hole, next to its right side: not inside, so the edges are tried.
    const Incidence r = Touch(pp, RvPoint2D(7.95, 5), 0.5, hit);
    EXPECT_TRUE(r.result);
    EXPECT_EQ(r.snap, SnapEdge);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 8, 2));
    EXPECT_TRUE(PlanarIs(hit[1], 8, 8));
}

TEST(RvPolyPolygon2DIsIncident, EdgesOffGiveFalse) {
    const RvPolyPolygon2D pp = SquareWithHole();
    RvPolyLine2D hit = StaleHit();
    EXPECT_FALSE(Touch(pp, RvPoint2D(7.95, 5), 0.5, hit).result);
    EXPECT_EQ(hit.size(), 1u);
}

TEST(RvPolyPolygon2DIsIncident, CountsPastTheVerticesAreCutAtTheLast) {
    RvPolyPolygon2D pp = SquareWithHole();
    pp.GetCounts()->back() = 10;
    pp.m_bDrawEdges = true;
    RvPolyLine2D hit;
    EXPECT_TRUE(Touch(pp, RvPoint2D(7.95, 5), 0.5, hit).result);
    ASSERT_EQ(hit.size(), 2u);
    EXPECT_TRUE(PlanarIs(hit[0], 8, 2));
}

// --- InvSelectArea ------------------------------------------------------------------------------

TEST(RvPolygon2DInvSelectArea, RectangleWhollyInsideSelectsNothing) {
    const RvPolygon2D square(Path({{0, 0}, {100, 0}, {100, 100}, {0, 100}}));
    const CRect inner(20, 20, 80, 80);
    EXPECT_FALSE(square.InvSelectArea(inner, 2));
    EXPECT_FALSE(square.InvSelectArea(inner, 1));
}

TEST(RvPolygon2DInvSelectArea, EmptyRectangleSelectsNothing) {
    const RvPolygon2D square = Square();
    const CRect empty(5, 5, 5, 20);
    EXPECT_FALSE(square.InvSelectArea(empty, 1));
    EXPECT_FALSE(square.InvSelectArea(empty, 2));
}

TEST(RvPolygon2DInvSelectArea, FullInclusionOfTheVertices) {
    const RvPolygon2D square = Square();
    EXPECT_TRUE(square.InvSelectArea(CRect(-1, -1, 11, 11), 1));
    // The right and bottom sides are outside: (10, 10) is not included.
    EXPECT_FALSE(square.InvSelectArea(CRect(0, 0, 10, 10), 1));
    EXPECT_TRUE(square.InvSelectArea(CRect(0, 0, 11, 11), 1));
}

TEST(RvPolygon2DInvSelectArea, TouchingByAVertexOrASide) {
    const RvPolygon2D square(Path({{0, 0}, {100, 0}, {100, 100}, {0, 100}}));
    EXPECT_TRUE(square.InvSelectArea(CRect(90, 90, 110, 110), 2));
    // Across the lower side, no vertex inside.
    EXPECT_TRUE(square.InvSelectArea(CRect(40, -10, 60, 10), 2));
    EXPECT_FALSE(square.InvSelectArea(CRect(40, -10, 60, 10), 3));
}

TEST(RvPolygon2DInvSelectArea, TheClosingEdgeIsNotCrossed) {
    // Only the left side, the closing edge of the open ring, runs through the rectangle; the
    // sides are tested against the open chain as for a polyline.
    const RvPolygon2D square(Path({{0, 0}, {100, 0}, {100, 100}, {0, 100}}));
    EXPECT_FALSE(square.InvSelectArea(CRect(-10, 40, 10, 60), 2));
}

TEST(RvPolygon2DInvSelectArea, RingsUseThePolygonRule) {
    const RvPolyPolygon2D pp = SquareWithHole();
    // Wholly inside the hole, touching nothing.
    EXPECT_FALSE(pp.InvSelectArea(CRect(3, 3, 7, 7), 2));
    EXPECT_TRUE(pp.InvSelectArea(CRect(1, 1, 3, 3), 2));
}
