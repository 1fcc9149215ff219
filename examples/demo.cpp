// A tour of what Ravelin can do so far, printed step by step.
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

#include "ravelin/ravelin.h"

using namespace ravelin;

namespace {

void Heading(const char* title) {
    std::printf("\n== %s ==\n", title);
}

// Values that are zero up to rounding print as 0 rather than as 6.1e-17.
double Tidy(double v) {
    return std::fabs(v) < 1e-12 ? 0.0 : v;
}

void Print(const char* label, const char* text) {
    std::printf("  %-42s %s\n", label, text);
}

void Print(const char* label, bool yes) {
    Print(label, yes ? "yes" : "no");
}

void Print(const char* label, double value) {
    std::printf("  %-42s %.8g\n", label, Tidy(value));
}

void Print(const char* label, const RvPoint3D& p) {
    std::printf("  %-42s (%.4g, %.4g, %.4g)\n", label, Tidy(p.x), Tidy(p.y), Tidy(p.z));
}

void ShowTolerances() {
    Heading("Tolerance-aware scalars");
    Print("1.0 == 1.0000004 (within the band)?", Number(1.0) == 1.0000004);
    Print("1.0 == 1.000001?", Number(1.0) == 1.000001);
    Print("1.0 < 1.0000001?", Number(1.0) < 1.0000001);
    double angle = 7.0;
    Print("7 rad brought into the band about 0:", NormalizeAngle(angle));
    angle = 3.1415925;
    Print("3.1415925, within the band of pi:", NormalizeAngle(angle));
}

void ShowPoints() {
    Heading("Points and vectors");
    const RvPoint3D a(0, 0, 0);
    const RvPoint3D b(2, 0, 0);
    Print("length of (3, 4, 0):", RvPoint3D(3, 4, 0).GetSize());
    Print("distance of (1, 1, 0) from (0,0,0)-(2,0,0):",
          RvPoint3D(1, 1, 0).DistanceFromSegment(a, b));
    Print("(1, 0, 0) strictly inside that segment?", RvPoint3D(1, 0, 0).IsInsideSegment(a, b));
    Print("(1, 2, 3) x (4, 5, 6):", RvPoint3D(1, 2, 3).GetVektorovySucin(RvPoint3D(4, 5, 6)));
    Print("mirror of (1, 1, 1) in the plane x = 0:", RvPoint3D(1, 1, 1).GetSumernyBod(1, 0, 0, 0));
    Print("point 1 from both arms of a right angle:",
          RvPoint3D::DajBodNaOsiUhla(a, RvPoint3D(1, 0, 0), RvPoint3D(0, 1, 0), 1,
                                     RvPoint3D(0, 0, -1)));
    Print("line down from (3, 2, 1) meets z = 0 at:",
          RvPoint3D::DajPriesecnik(RvPoint3D(3, 2, 1), RvPoint3D(0, 0, -1), a, RvPoint3D(0, 0, 1)));

    const RvPoint2D vertex(10.5, -2.5, 1, 2, 3);
    const tagPOINT pixel = vertex.GetPOINT();
    std::printf("  %-42s (%d, %d)\n", "planar (10.5, -2.5) as a pixel:", pixel.x, pixel.y);
    Print("(0, 1) left of the line (0, 0) -> (1, 0)?",
          RvPoint2D(0, 1).IsLeft(RvPoint2D(0, 0), RvPoint2D(1, 0)) > 0);
}

void ShowTransforms() {
    Heading("Transforms");
    CMatrix rotate;
    rotate.CreateRotateM(std::numbers::pi / 2, RvPoint3D(0, 0, 1));
    CMatrix translate;
    translate.CreateTranslateM(10, 0, 0);
    const CMatrix both = rotate * translate;  // turns first, then moves
    Print("(1, 0, 0) turned 90 degrees about z:", rotate.GetPoint3D(RvPoint3D(1, 0, 0)));
    Print("... then moved by (10, 0, 0):", both.GetPoint3D(RvPoint3D(1, 0, 0)));
    const CMatrix back = both.GetInverseMatrix();
    Print("and mapped back by the inverse:", back.GetPoint3D(both.GetPoint3D(1, 0, 0)));
    Print("determinant of the turn:", both.GetA33());
}

void ShowPlane() {
    Heading("Planes");
    const RvPlane floor(RvPoint3D(0, 0, 5), RvPoint3D(0, 0, 1));
    Print("floor z = 5, first direction:", floor.m_vectorU);
    Print("floor z = 5, second direction:", floor.m_vectorV);
    const RvPlane wall(RvPoint3D(), RvPoint3D(1, 0, 0));
    Print("floor meets the wall x = 0 along:", floor.GetIntersectVector(wall));
}

void ShowArchive() {
    Heading("Point grids in an archive");
    RvPointMatrix grid;
    for (int r = 0; r < 2; ++r) {
        for (int c = 0; c < 3; ++c) {
            grid.Set(r, c, RvPoint3D(c, r, r * c));
        }
    }
    CMemFile file;
    CArchive store(&file, CArchive::store);
    grid.Serialize(store);
    Print("bytes for a 2 x 3 grid (8 + 6 x 24):", static_cast<double>(file.GetData().size()));

    CMemFile copy(file.GetData());
    CArchive load(&copy, CArchive::load);
    RvPointMatrix restored;
    restored.Serialize(load);
    Print("element (1, 2) read back:", restored.GetAt(1, 2));
    try {
        restored.Serialize(load);
    } catch (const CArchiveException& e) {
        Print("reading on past the end:", e.what());
    }
}

void ShowWarning() {
    Heading("The one-shot warning of a null vector");
    int shown = 0;
    const AfxMessageBoxHandler previous =
        AfxSetMessageBoxHandler([&shown](const char* text, unsigned, unsigned) {
            ++shown;
            std::printf("  message box:\n    ");
            for (const char* c = text; *c != '\0'; ++c) {
                *c == '\n' ? std::printf("\n    ") : std::printf("%c", *c);
            }
            std::printf("\n");
            return IDOK;
        });
    RvPoint3D tiny(1e-7, 0, 0);
    tiny.Normalize();
    tiny.Normalize();
    Print("message boxes for two null vectors:", static_cast<double>(shown));
    AfxSetMessageBoxHandler(previous);
}

}  // namespace

// A small drawing: a zigzag path crossed by a straight line.
RvPolyLine2D Zigzag() {
    RvPolyLine2D path;
    path.push_backA(RvPoint2D(0, 0));
    path.push_backA(RvPoint2D(10, 10));
    path.push_backA(RvPoint2D(20, 0));
    path.push_backA(RvPoint2D(30, 10));
    return path;
}

void ShowPaths() {
    Heading("Paths");
    RvPolyLine2D path = Zigzag();
    Print("length of the zigzag (0,0)-(10,10)-(20,0)-(30,10):", path.GetLength());
    std::vector<RvPoint2D> hits;
    path.IntersectSegment2D(RvPoint2D(-5, 5), RvPoint2D(35, 5), hits);
    Print("crossings with the line y = 5:", static_cast<double>(hits.size()));
    for (const RvPoint2D& hit : hits) {
        Print("  at", hit);
    }
    Print("segment nearest to (19, 3) (segment i ends at vertex i):",
          static_cast<double>(path.GetNearestSegment(RvPoint3D(19, 3, 0), false)));
    std::vector<RvPoint2D> onCircle;
    path.IntersectCircle2D(*path.begin(), 5, onCircle, true, false);
    Print("the circle of radius 5 round the start meets the path at:", onCircle.at(0));
    RvPolyLine2D cut = Zigzag();
    cut.CutToSquare(15, false);
    Print("vertices left after clipping to the square of half-width 15:",
          static_cast<double>(cut.size()));
    RvPolyLine2D rounded = Zigzag();
    rounded.ZaobliVrcholy(1.0);
    Print("vertices after chamfering the inner corners:", static_cast<double>(rounded.size()));
}

void ShowDrawing() {
    Heading("Drawing and hit-testing");
    RvPolyLine2D path = Zigzag();
    CRecordingDC dc;
    path.Draw(&dc);
    for (const std::string& call : dc.Descriptions()) {
        Print("  drawn:", call.c_str());
    }
    double distance = 2.0;
    enumSnapType snap = SnapInside;
    RvPolyLine2D hit;
    const bool touched = path.IsIncident(RvPoint2D(15, 4), distance, snap, hit);
    Print("pointer at (15, 4) within 2 touches the path?", touched);
    Print("  on the segment from", hit.at(0));
    Print("  to", hit.at(1));
    Print("  at the distance", distance);
    Print("rectangle (25, -5)-(40, 20) selects it by touching?",
          path.InvSelectArea(CRect(25, -5, 40, 20), 2));
    Print("... and by full inclusion?", path.InvSelectArea(CRect(25, -5, 40, 20), 1));
}

// A square ring from (lo, lo) to (hi, hi), counterclockwise, stored closed.
void AppendSquareRing(RvDrawEntity& ring, double lo, double hi) {
    ring.push_backA(RvPoint2D(lo, lo));
    ring.push_backA(RvPoint2D(hi, lo));
    ring.push_backA(RvPoint2D(hi, hi));
    ring.push_backA(RvPoint2D(lo, hi));
    ring.push_backA(RvPoint2D(lo, lo));
}

void ShowPolygons() {
    Heading("Polygons");
    RvPolygon2D square;
    AppendSquareRing(square, 0, 10);
    Print("area of the square (0,0)-(10,10):", square.GetPlochu());
    Print("perimeter:", square.GetObvod());
    Print("counterclockwise (orientation > 0)?", square.GetOrientation() > 0);
    const RvPoint2D onEdge(0, 5);
    Print("(0, 5) in or on, by the edge-aware test?", square.PointInPolygonEx2D(onEdge) == 1);
    Print("(0, 5) strictly inside?", square.PointInsidePolygonEx2D(onEdge) == 1);

    RvPolyPolygon2D withHole;
    AppendSquareRing(withHole, 0, 10);
    withHole.AddCount(5);
    AppendSquareRing(withHole, 3, 7);
    withHole.AddCount(5);
    for (const RvPoint2D& p : {RvPoint2D(1, 1), RvPoint2D(5, 5), RvPoint2D(12, 5)}) {
        char label[64];
        std::snprintf(label, sizeof label, "(%g, %g) inside the square with a hole?", p.x2D, p.y2D);
        Print(label, withHole.PointInsidePolyPolygonEx2D(p) == 1);
    }
}

std::string RingText(const RvDrawEntity& ring) {
    std::string text;
    for (const RvPoint2D& v : ring) {
        char point[48];
        std::snprintf(point, sizeof point, "(%g, %g) ", Tidy(v.x2D), Tidy(v.y2D));
        text += point;
    }
    return text;
}

// An L-shaped room and a square that covers its inner corner: the edges cross in four places.
void ShowCombination() {
    Heading("Boolean combination");
    RvPolygon2D room;
    for (const RvPoint2D& p : {RvPoint2D(0, 0), RvPoint2D(20, 0), RvPoint2D(20, 8), RvPoint2D(8, 8),
                               RvPoint2D(8, 20), RvPoint2D(0, 20)}) {
        room.push_back(p);
    }
    RvPolygon2D square;
    AppendSquareRing(square, 4, 14);
    std::printf("  L shape: %s\n", RingText(room).c_str());
    std::printf("  square:  %s\n", RingText(square).c_str());
    const struct {
        const char* name;
        _RvCombineMode mode;
    } modes[] = {{"difference", CombineDifference},
                 {"intersection", CombineIntersection},
                 {"union", CombineUnion}};
    for (const auto& m : modes) {
        std::vector<RvPolygon2D> rings;
        room.Combine(square, m.mode, rings);
        double area = 0;
        for (const RvPolygon2D& ring : rings) {
            area += ring.GetPlochu();
        }
        std::printf("  %s: %zu ring(s), area %g\n", m.name, rings.size(), area);
        for (const RvPolygon2D& ring : rings) {
            std::printf("    %s\n", RingText(ring).c_str());
        }
    }
}

// The straight skeleton of an L shape given clockwise, as the skeleton wants its boundary: its
// arcs, then the rings that the wavefront reaches at two distances inwards.
void ShowSkeleton() {
    Heading("Straight skeleton");
    RvPolygon2D shape;
    for (const RvPoint2D& p : {RvPoint2D(0, 0), RvPoint2D(0, 10), RvPoint2D(4, 10), RvPoint2D(4, 4),
                               RvPoint2D(10, 4), RvPoint2D(10, 0)}) {
        shape.push_back(p);
    }
    std::printf("  L shape: %s\n", RingText(shape).c_str());
    RvSkeleton skeleton(shape);
    std::vector<RvPolyLine2D> arcs;
    skeleton.GetSkeletonPolygons(0.0, arcs);
    std::printf("  %zu arcs:\n", arcs.size());
    for (const RvPolyLine2D& arc : arcs) {
        std::printf("    (%g, %g) - (%g, %g)\n", arc[0].x2D, arc[0].y2D, arc[1].x2D, arc[1].y2D);
    }
    for (const double offset : {-0.5, -1.5}) {
        std::vector<RvPolygon2D> rings;
        skeleton.GetExtendPolygons(offset, 0.0, rings);
        std::printf("  offset %g: %zu ring(s)\n", offset, rings.size());
        for (const RvPolygon2D& ring : rings) {
            std::printf("    %s\n", RingText(ring).c_str());
        }
    }
}

// A U-shaped outline, concave, offset outwards and inwards by one distance: the repairing offset
// cuts the shifted ring where it crosses itself and keeps the parts on the proper side.
void ShowOffsets() {
    Heading("Offsets");
    RvPolygon2D shape;
    for (const RvPoint2D& p :
         {RvPoint2D(0, 0), RvPoint2D(30, 0), RvPoint2D(30, 20), RvPoint2D(20, 20), RvPoint2D(20, 8),
          RvPoint2D(10, 8), RvPoint2D(10, 20), RvPoint2D(0, 20)}) {
        shape.push_back(p);
    }
    std::printf("  U shape: %s\n", RingText(shape).c_str());
    for (const double distance : {2.0, -2.0, -4.5}) {
        std::vector<RvPolygon2D> rings;
        shape.GetExtend(distance, rings);
        std::printf("  GetExtend(%g): %zu polygon(s)\n", distance, rings.size());
        for (const RvPolygon2D& ring : rings) {
            std::printf("    %s\n", RingText(ring).c_str());
        }
    }
}

void PrintRings(const std::vector<RvPolygon2D>& rings) {
    for (const RvPolygon2D& ring : rings) {
        std::printf("    %s\n", RingText(ring).c_str());
    }
}

// The walls round an L-shaped room, of three thicknesses: the room's outline moved outward edge
// by edge, 0.5 on the street side, 0.3 on the courtyard side and 0.15 where it borders the
// neighbour. The wall area is what lies between the two outlines.
void ShowPerEdgeOffsets() {
    Heading("Per-edge offsets");
    RvPolygon2D room;
    for (const RvPoint2D& p : {RvPoint2D(0, 0), RvPoint2D(12, 0), RvPoint2D(12, 5), RvPoint2D(5, 5),
                               RvPoint2D(5, 9), RvPoint2D(0, 9)}) {
        room.push_back(p);
    }
    std::printf("  room: %s, area %g\n", RingText(room).c_str(), room.GetPlochu());
    // Entry i is the wall along the edge that ends at vertex i: from (0, 9) to (0, 0) first.
    std::vector<double> walls = {0.15, 0.5, 0.3, 0.3, 0.3, 0.15};
    std::printf("  walls by edge: ");
    for (std::size_t i = 0; i < walls.size(); ++i) {
        std::printf("%s%g", i == 0 ? "" : ", ", walls[i]);
    }
    std::printf("\n");
    std::vector<RvPolygon2D> outer;
    room.GetExtendEx(walls, outer);
    std::printf("  GetExtendEx: %zu polygon(s)\n", outer.size());
    PrintRings(outer);
    if (outer.size() == 1) {
        std::printf("  wall area: %g\n", outer[0].GetPlochu() - room.GetPlochu());
    }
    // Thicknesses chosen by a facade line drawn along the street side, running so that the
    // room lies on its right: an edge lying on the line takes the second thickness, every other
    // edge the first.
    RvPolyLine2D facade;
    for (const RvPoint2D& p : {RvPoint2D(30, 0), RvPoint2D(-10, 0)}) {
        facade.push_back(p);
    }
    std::vector<RvPolygon2D> byFacade;
    room.GetExtendEx(0.3, 0.5, facade, byFacade, 0);
    std::printf("  GetExtendEx(0.3, 0.5 along the facade line): %zu polygon(s)\n", byFacade.size());
    PrintRings(byFacade);
}

// The L-shaped room cut into pieces: by an infinite line across both of its arms, by a
// stepped path, and by a vertical plane in space; and a polyline cut by the room.
void ShowSplitting() {
    Heading("Splitting");
    RvPolygon2D room;
    for (const RvPoint2D& p : {RvPoint2D(0, 0), RvPoint2D(20, 0), RvPoint2D(20, 8), RvPoint2D(8, 8),
                               RvPoint2D(8, 20), RvPoint2D(0, 20)}) {
        room.push_back(p);
    }
    std::printf("  L shape: %s\n", RingText(room).c_str());

    std::vector<RvPolygon2D> byLine;
    room.SplitWithLine(RvPoint2D(0, 24), RvPoint2D(24, 0), byLine);
    std::printf("  by the line through (0, 24) and (24, 0): %zu pieces\n", byLine.size());
    PrintRings(byLine);

    RvPolyLine2D path;
    for (const RvPoint2D& p :
         {RvPoint2D(4, -2), RvPoint2D(4, 4), RvPoint2D(14, 4), RvPoint2D(14, 10)}) {
        path.push_back(p);
    }
    std::vector<RvPolygon2D> byPath;
    const bool cut = room.SplitWithPolyLine(path, byPath);
    std::printf("  by the path %s: %zu pieces (cut: %s)\n", RingText(path).c_str(), byPath.size(),
                cut ? "yes" : "no");
    PrintRings(byPath);

    std::vector<RvPolygon2D> byPlane;
    room.SplitWithPlane(RvPoint3D(4, 0, 0), RvPoint3D(1, 0, 0), byPlane);
    std::printf("  by the plane x = 4: %zu pieces\n", byPlane.size());
    PrintRings(byPlane);

    RvPolyLine2D wire;
    for (const RvPoint2D& p : {RvPoint2D(-5, 4), RvPoint2D(25, 4)}) {
        wire.push_back(p);
    }
    for (const bool inside : {true, false}) {
        std::vector<RvPolyLine2D> stretches;
        room.SplitPolyline(wire, stretches, inside);
        std::printf("  the line y = 4, %s: %zu stretch(es)\n", inside ? "inside" : "outside",
                    stretches.size());
        for (const RvPolyLine2D& s : stretches) {
            std::printf("    %s\n", RingText(s).c_str());
        }
    }
}

void PrintCalls(const char* title, CRecordingDC& dc) {
    std::printf("  %s\n", title);
    for (const std::string& call : dc.Descriptions()) {
        std::printf("    %s\n", call.c_str());
    }
}

// One entity of each kind drawn on a recording device, with the calls each makes.
void ShowEveryEntity() {
    Heading("Every entity on a recording device");
    {
        RvPolygon2D square;
        AppendSquareRing(square, 0, 10);
        square.m_bDrawEdges = true;
        CRecordingDC dc;
        square.Draw(&dc);
        PrintCalls("polygon with its outline:", dc);
    }
    {
        RvPolyPolygon2D withHole;
        AppendSquareRing(withHole, 0, 10);
        withHole.AddCount(5);
        AppendSquareRing(withHole, 3, 7);
        withHole.AddCount(5);
        CRecordingDC dc;
        withHole.Draw(&dc);
        PrintCalls("polygon with a hole, without outline:", dc);
    }
    {
        // A filled quarter disc of radius 10, sampled at every 30 degrees, closed at the centre.
        RvArc2D arc;
        arc.m_dRadius = 10;
        arc.m_dAngle1 = 0;
        arc.m_dAngle2 = std::numbers::pi / 2;
        arc.m_center = RvPoint2D(0, 0);
        for (int k = 0; k <= 3; ++k) {
            const double a = k * std::numbers::pi / 6;
            arc.push_back(RvPoint2D(10 * std::cos(a), 10 * std::sin(a)));
        }
        double radius = 0;
        double from = 0;
        double to = 0;
        Print("arc confirmed on its circle?", arc.IsArc2D(radius, from, to) == 1);
        arc.push_back(RvPoint2D(0, 0));
        arc.m_bFilled = true;
        CRecordingDC dc;
        arc.Draw(&dc);
        PrintCalls("filled arc:", dc);
    }
    {
        // A text stretched along a 100-pixel frame.
        RvTextEntity text;
        for (const RvPoint2D& p :
             {RvPoint2D(0, 0), RvPoint2D(0, 20), RvPoint2D(100, 20), RvPoint2D(100, 0)}) {
            text.push_back(p);
        }
        text.SetText("Ravelin");
        tagLOGFONTA font{};
        font.lfHeight = 20;
        text.CreateFontIndirectA(&font);
        CRecordingDC dc;
        text.Draw(&dc);
        PrintCalls("text of height 20 in a frame 100 wide:", dc);
    }
    {
        // The quarter of the unit circle as a rational quadratic, scaled by 10.
        RvNURBS curve;
        curve.SetExponent(2);
        curve.SetNumberOfControlPoints(3);
        curve.SetNumberOfKnots(6);
        curve.SetSegmentLenght(5);
        curve.AddControlPoint(NURBSPoint(10, 0, 0, 1));
        curve.AddControlPoint(NURBSPoint(10, 10, 0, std::numbers::sqrt2 / 2));
        curve.AddControlPoint(NURBSPoint(0, 10, 0, 1));
        for (const double k : {0.0, 0.0, 0.0, 1.0, 1.0, 1.0}) {
            curve.AddKnot(k);
        }
        RvPolyLine2D sampled;
        curve.GetPolyLine(&sampled);
        CRecordingDC dc;
        sampled.Draw(&dc);
        PrintCalls("NURBS quarter circle, sampled:", dc);
    }
}

int main() {
    std::printf("Ravelin: what the library does so far\n");
    ShowTolerances();
    ShowPoints();
    ShowTransforms();
    ShowPlane();
    ShowArchive();
    ShowWarning();
    ShowPaths();
    ShowDrawing();
    ShowPolygons();
    ShowCombination();
    ShowSkeleton();
    ShowSplitting();
    ShowOffsets();
    ShowPerEdgeOffsets();
    ShowEveryEntity();
    return 0;
}
