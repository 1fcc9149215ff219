// A program outside the project that uses the installed library as a client would.
#include <ravelin/ravelin.h>

#include <cmath>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

// A device of the client's own: it counts the lines it is asked to draw.
class CountingDC : public ravelin::CRecordingDC {
public:
    bool LineTo(int x, int y) override {
        ++lines;
        return CRecordingDC::LineTo(x, y);
    }
    int lines = 0;
};

}  // namespace

int main() {
    using namespace ravelin;
    int failures = 0;
    auto check = [&failures](bool ok, const char* what) {
        if (!ok) {
            std::fprintf(stderr, "consumer: %s failed\n", what);
            ++failures;
        }
    };

    check(Number(1.0) == 1.0000004, "Number band");
    RvPoint3D v(3, 4, 0);
    check(v.GetSize() == 5.0, "RvPoint3D::GetSize");

    CMemFile file;
    CArchive store(&file, CArchive::store);
    RvPoint2D written(1, 2, 3, 4, 5);
    store.WriteObject(&written);

    CMemFile copy(file.GetData());
    CArchive load(&copy, CArchive::load);
    auto read = load.ReadObject(RUNTIME_CLASS(RvPoint3D));
    const auto* point = dynamic_cast<const RvPoint2D*>(read.get());
    check(point != nullptr && *point == written, "RvPoint2D archive round trip");

    try {
        RvPoint3D::DajPriesecnik(RvPoint3D(0, 0, 1), RvPoint3D(1, 0, 0), RvPoint3D(),
                                 RvPoint3D(0, 0, 1));
        check(false, "DajPriesecnik throws for a parallel line");
    } catch (double) {
    }

    // Entities cross the library's boundary as polymorphic objects: a client's device, a
    // virtual hit test through a base pointer, and a list torn down by the library.
    auto* path = new RvPolyLine2D(RvPoint2D(0, 0), RvPoint2D(10, 0));
    path->push_backA(RvPoint2D(10, 10));
    CountingDC dc;
    path->Draw(&dc);
    check(dc.lines == 2 && dc.Calls().size() == 3, "RvPolyLine2D::Draw on a client's device");
    const RvDrawEntity* entity = path;
    double distance = 1.0;
    enumSnapType snap = SnapInside;
    RvPolyLine2D hit;
    check(entity->IsIncident(RvPoint2D(5, 0.5), distance, snap, hit) && snap == SnapEdge,
          "IsIncident through the base class");
    std::vector<RvPoint2D> crossings;
    check(path->IntersectSegment2D(RvPoint2D(5, -5), RvPoint2D(5, 5), crossings) &&
              crossings.size() == 1,
          "IntersectSegment2D");
    RvDrawEntity* head = path;
    RvDrawEntity::DeleteWholeList(&head);
    check(head == nullptr, "DeleteWholeList");

    // Polygons combined by the library come back in the client's vector.
    RvPolygon2D a;
    RvPolygon2D b;
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}}) {
        a.push_back(RvPoint2D(x, y));
        b.push_back(RvPoint2D(x + 5, y + 5));
    }
    std::vector<RvPolygon2D> rings;
    check(a.Combine(b, CombineUnion, rings) && rings.size() == 1 && rings[0].size() == 8,
          "Combine");

    // A path cuts the square in two; the split graph lives and dies inside the library.
    RvPolyLine2D cutter(RvPoint2D(5, -5), RvPoint2D(5, 15));
    std::vector<RvPolygon2D> pieces;
    check(a.SplitWithPolyLine(cutter, pieces) && pieces.size() == 2, "SplitWithPolyLine");

    // Walls of their own thickness per edge; the client's distances come back as remainders.
    std::vector<double> walls = {0.5, 0.25, 0.5, 0.25};
    std::vector<RvPolygon2D> outline;
    a.GetExtendEx(walls, outline);
    check(outline.size() == 1 && std::fabs(outline[0].GetPlochu() - 11.0 * 10.5) < 1e-9 &&
              std::fabs(walls[0]) < 1e-4,
          "GetExtendEx");

    // The polygon's skeleton is made by the library and destroyed with the polygon.
    std::vector<RvPolygon2D> inset;
    a.GetExtendSKELET(-2.0, inset);
    check(inset.size() == 1 && inset[0].size() == 4 && a.m_pSkeleton != nullptr, "GetExtendSKELET");
    return failures == 0 ? 0 : 1;
}
