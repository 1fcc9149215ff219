#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/platform/CRecordingDC.h"
#include "ravelin/polygon/RvCombineGraph.h"
#include "ravelin/polygon/RvIntersection.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "support/RavelinTesting.h"

using namespace ravelin;
using ravelin::testing_support::PlanarIs;
using ravelin::testing_support::Ring;

namespace {

using Strings = std::vector<std::string>;

// The white fill of the 500 by 500 area that every view starts with (0xffffff = 16777215).
const std::string kFill = "FillSolidRect(0, 0, 500, 500, 16777215)";

// The axis-parallel rectangle from (x0, y0) to (x1, y1), counterclockwise.
RvPolygon2D Box(double x0, double y0, double x1, double y1) {
    return Ring({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

// A node at (x, y) of the given kind, on no edge.
_RvIntersection Node(double x, double y, int kind) {
    return _RvIntersection(-1, -1, -1, -1, RvPoint2D(x, y), kind);
}

std::string RectangleCall(int l, int t, int r, int b) {
    std::string out("Rectangle(");
    out.append(std::to_string(l)).append(", ").append(std::to_string(t)).append(", ");
    out.append(std::to_string(r)).append(", ").append(std::to_string(b)).append(")");
    return out;
}

std::string TextCall(int x, int y, const char* text) {
    std::string out("TextOut(");
    out.append(std::to_string(x)).append(", ").append(std::to_string(y)).append("; \"");
    out.append(text).append("\")");
    return out;
}

// The two calls of one node: the square (l, t, r, b) and its label at (tx, ty).
void AddNode(Strings& calls, int l, int t, int r, int b, int tx, int ty, const char* text) {
    calls.push_back(RectangleCall(l, t, r, b));
    calls.push_back(TextCall(tx, ty, text));
}

// ---------------------------------------------------------------------------------------------
// Scale and offsets

// The square from (0, 0) to (10, 10) has the bounding rectangle (0, 0, 10, 10):
// s = 500 / 12 = 41.67; S = (0, 0, 416, 416); ox = oy = 250 - 416 / 2 = 42.
// A node at (5, 5): x = y = 208.33 + 42 = 250.33, so the square is (246, 246, 254, 254) and the
// label stands at (250, 260).
TEST(RvPolygon2DDrawResult, FillsTheAreaWhiteThenDrawsASquareAndALabelPerNode) {
    RvPolygon2D square = Box(0, 0, 10, 10);
    RvIntersectionArray nodes;
    nodes.Add(Node(5, 5, 1));
    CRecordingDC dc;
    square.DrawResult(&dc, &nodes);

    Strings expected{kFill};
    AddNode(expected, 246, 246, 254, 254, 250, 260, "edge");
    EXPECT_EQ(dc.Descriptions(), expected);
    ASSERT_EQ(dc.Calls().size(), 3u);
    EXPECT_EQ(dc.Calls()[0].op, DCOp::FillSolidRect);
    EXPECT_EQ(dc.Calls()[1].op, DCOp::Rectangle);
    EXPECT_EQ(dc.Calls()[2].op, DCOp::TextOut);
    EXPECT_EQ(dc.Calls()[2].text, "edge");
}

TEST(RvPolygon2DDrawResult, AnEmptyListGivesOnlyTheFill) {
    RvPolygon2D square = Box(0, 0, 10, 10);
    RvIntersectionArray nodes;
    CRecordingDC dc;
    square.DrawResult(&dc, &nodes);
    EXPECT_EQ(dc.Descriptions(), Strings{kFill});
}

// Kind 0 is labelled "nie", every other kind "edge", negative ones too. All three nodes stand
// at (5, 5) of the square from (0, 0) to (10, 10): the same square each time (see above).
TEST(RvPolygon2DDrawResult, LabelsNodesWithoutAKindNieAndAllOthersEdge) {
    RvPolygon2D square = Box(0, 0, 10, 10);
    RvIntersectionArray nodes;
    nodes.Add(Node(5, 5, 0));
    nodes.Add(Node(5, 5, _RvIntersection::kKindTouching));
    nodes.Add(Node(5, 5, -1));
    CRecordingDC dc;
    square.DrawResult(&dc, &nodes);

    Strings expected{kFill};
    AddNode(expected, 246, 246, 254, 254, 250, 260, "nie");
    AddNode(expected, 246, 246, 254, 254, 250, 260, "edge");
    AddNode(expected, 246, 246, 254, 254, 250, 260, "edge");
    EXPECT_EQ(dc.Descriptions(), expected);
}

// The bounding rectangle (0, 0, 20, 40) is twice as tall as wide: sx = 500 / 22 = 22.73 and
// sy = 500 / 42 = 11.905, so s = 11.905 comes from the height. S = (0, 0, 238, 476), since
// 20 * s = 238.10 and 40 * s = 476.19; ox = 250 - 119 = 131, oy = 250 - 238 = 12.
//   (0, 0):   x = 131,    y = 12:     square (127, 8, 135, 16),    label (131, 22).
//   (10, 20): x = 250.05, y = 250.10: square (246, 246, 254, 254), label (250, 260).
//   (20, 40): x = 369.10, y = 488.19: square (365, 484, 373, 492), label (369, 498).
TEST(RvPolygon2DDrawResult, ATallBoundingBoxTakesItsScaleFromTheHeight) {
    RvPolygon2D tall = Box(0, 0, 20, 40);
    RvIntersectionArray nodes;
    nodes.Add(Node(0, 0, 1));
    nodes.Add(Node(10, 20, 1));
    nodes.Add(Node(20, 40, 6));
    CRecordingDC dc;
    tall.DrawResult(&dc, &nodes);

    Strings expected{kFill};
    AddNode(expected, 127, 8, 135, 16, 131, 22, "edge");
    AddNode(expected, 246, 246, 254, 254, 250, 260, "edge");
    AddNode(expected, 365, 484, 373, 492, 369, 498, "edge");
    EXPECT_EQ(dc.Descriptions(), expected);
}

// The bounding rectangle (-31, -21, -6, 2) is 25 wide and 23 high: sx = 500 / 27 = 18.519,
// sy = 500 / 25 = 20, so s = 18.519 comes from the width.
// S = (trunc(-574.07), trunc(-388.89), trunc(-111.11), trunc(37.04)) = (-574, -388, -111, 37).
// ox = 250 - (-685 / 2) = 250 - (-342) = 592, the integer division truncating toward zero
// (flooring would give -343 and 593); oy = 250 - (-351 / 2) = 250 - (-175) = 425.
//   (-31, -21): x = 17.93, y = 36.11: square (13, 32, 21, 40), label (17, 46).
//   (-32.6, -23.5) has the pixel (-33, -24), halves going away from zero:
//               x = -19.11, y = -19.44: x - 4 = -23.11 and y - 4 = -23.44 truncate to -23,
//               x + 4 = -15.11 and y + 4 = -15.44 to -15; the label at (-19, trunc(-9.44)) =
//               (-19, -9).
//   (-6, 2):    x = 480.89, y = 462.04: square (476, 458, 484, 466), label (480, 472).
TEST(RvPolygon2DDrawResult, NegativeCoordinatesTruncateTowardZero) {
    RvPolygon2D box = Box(-31, -21, -6, 2);
    RvIntersectionArray nodes;
    nodes.Add(Node(-31, -21, 1));
    nodes.Add(Node(-32.6, -23.5, 0));
    nodes.Add(Node(-6, 2, 1));
    CRecordingDC dc;
    box.DrawResult(&dc, &nodes);

    Strings expected{kFill};
    AddNode(expected, 13, 32, 21, 40, 17, 46, "edge");
    AddNode(expected, -23, -23, -15, -15, -19, -9, "nie");
    AddNode(expected, 476, 458, 484, 466, 480, 472, "edge");
    EXPECT_EQ(dc.Descriptions(), expected);
}

// The bounding rectangle is taken over the vertices' pixels: (-0.4, -0.4) rounds to (0, 0) and
// (9.5, 9.6) to (10, 10), so the view is that of the square from (0, 0) to (10, 10).
TEST(RvPolygon2DDrawResult, TheBoundingBoxIsTakenOverThePixelsOfTheVertices) {
    RvPolygon2D ring = Ring({{-0.4, -0.4}, {9.5, -0.4}, {9.5, 9.6}, {-0.4, 9.6}});
    RvIntersectionArray nodes;
    nodes.Add(Node(5, 5, 1));
    CRecordingDC dc;
    ring.DrawResult(&dc, &nodes);

    Strings expected{kFill};
    AddNode(expected, 246, 246, 254, 254, 250, 260, "edge");
    EXPECT_EQ(dc.Descriptions(), expected);
}

// Nothing of the node but its point and kind is read: links, indices and trace flags do not
// show.
TEST(RvPolygon2DDrawResult, ReadsOnlyThePointAndTheKindOfANode) {
    RvPolygon2D square = Box(0, 0, 10, 10);
    _RvIntersection busy(3, 2, 1, 0, RvPoint2D(5, 5), 1);
    busy.m_nNext = 4;
    busy.m_bTraceStart = true;
    busy.m_bVisited = true;
    busy.m_aLink[0] = 7;
    busy.m_aClass[0] = LinkAInsideB;
    busy.m_aUsed[0] = true;
    busy.m_nIndex = 9;
    RvIntersectionArray nodes;
    nodes.Add(busy);
    CRecordingDC dc;
    square.DrawResult(&dc, &nodes);

    Strings expected{kFill};
    AddNode(expected, 246, 246, 254, 254, 250, 260, "edge");
    EXPECT_EQ(dc.Descriptions(), expected);
}

// The nodes of a real combination: A, the square from (0, 0) to (10, 10), against B, the square
// from (5, 5) to (16, 16). The graph lists A's four vertices, B's four vertices (none lies on
// A's boundary, so all are of kind 1), then the crossings in the order of A's edges: (10, 5) on
// A's right edge, (5, 10) on its top edge. A default node is appended: no kind, at the origin.
// The view is scaled by A's box, as for the square above (s = 500 / 12, ox = oy = 42): a
// coordinate c goes to c * s + 42, which is 42 for 0, 250.33 for 5, 458.67 for 10 and 708.67
// for 16; the squares run from 4 below to 4 above, truncated, and the labels stand 10 lower.
TEST(RvPolygon2DDrawResult, DrawsTheNodesOfACombinationGraph) {
    RvPolygon2D a = Box(0, 0, 10, 10);
    RvPolygon2D b = Box(5, 5, 16, 16);
    RvCombineGraph graph(a, b);
    graph.BuildNodes();
    RvIntersectionArray nodes = graph.Nodes();
    ASSERT_EQ(nodes.GetSize(), 10);
    EXPECT_TRUE(PlanarIs(nodes[0].m_Point, 0, 0));
    EXPECT_TRUE(PlanarIs(nodes[4].m_Point, 5, 5));
    EXPECT_TRUE(PlanarIs(nodes[8].m_Point, 10, 5));
    EXPECT_TRUE(PlanarIs(nodes[9].m_Point, 5, 10));
    nodes.Add(_RvIntersection());

    CRecordingDC dc;
    a.DrawResult(&dc, &nodes);

    Strings expected{kFill};
    AddNode(expected, 38, 38, 46, 46, 42, 52, "edge");        // (0, 0)
    AddNode(expected, 454, 38, 462, 46, 458, 52, "edge");     // (10, 0)
    AddNode(expected, 454, 454, 462, 462, 458, 468, "edge");  // (10, 10)
    AddNode(expected, 38, 454, 46, 462, 42, 468, "edge");     // (0, 10)
    AddNode(expected, 246, 246, 254, 254, 250, 260, "edge");  // (5, 5)
    AddNode(expected, 704, 246, 712, 254, 708, 260, "edge");  // (16, 5)
    AddNode(expected, 704, 704, 712, 712, 708, 718, "edge");  // (16, 16)
    AddNode(expected, 246, 704, 254, 712, 250, 718, "edge");  // (5, 16)
    AddNode(expected, 454, 246, 462, 254, 458, 260, "edge");  // crossing (10, 5)
    AddNode(expected, 246, 454, 254, 462, 250, 468, "edge");  // crossing (5, 10)
    AddNode(expected, 38, 38, 46, 46, 42, 52, "nie");         // default node
    EXPECT_EQ(dc.Descriptions(), expected);
}

// Drawing the view changes neither the polygon nor the nodes.
TEST(RvPolygon2DDrawResult, LeavesThePolygonAndTheNodesAsTheyWere) {
    RvPolygon2D square = Box(0, 0, 10, 10);
    RvIntersectionArray nodes;
    nodes.Add(Node(2.5, 7.5, 1));
    CRecordingDC dc;
    square.DrawResult(&dc, &nodes);
    ASSERT_EQ(square.size(), 4u);
    EXPECT_TRUE(PlanarIs(square[2], 10, 10));
    ASSERT_EQ(nodes.GetSize(), 1);
    EXPECT_TRUE(PlanarIs(nodes[0].m_Point, 2.5, 7.5));
    EXPECT_EQ(nodes[0].m_nKind, 1);
}

}  // namespace
