#include <cstddef>
#include <vector>

#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// Takes the null edges of the moved ring out of `edgeIndices`; every other edge stays, whatever
// its direction.
void DropNullEdges(const RvPolygon2D& work, std::vector<int>& edgeIndices) {
    std::size_t k = 0;
    while (k < edgeIndices.size()) {
        if (work.GetSegmentVector(edgeIndices[k]).IsNotNull()) {
            ++k;
        } else {
            edgeIndices.erase(edgeIndices.begin() + static_cast<std::ptrdiff_t>(k));
        }
    }
}

}  // namespace

RvPolygon2D RvPolygon2D::OffsetEdgesToPolygon(std::vector<double>& distances,
                                              const RvPoint3D& normal, bool useEx2) const {
    if (distances.size() < 2) {
        return *this;
    }
    if (normal.IsNull()) {
        return RvPolygon2D();
    }
    RvPolygon2D work;
    std::vector<int> edgeIndices;
    work.MoveOffsetCopy(*this, distances, normal, useEx2, true, edgeIndices);
    DropNullEdges(work, edgeIndices);
    std::vector<RvPolygon2D> pieces;
    work.TraceOffsetGraph(edgeIndices, normal, pieces);
    RvPolygon2D offset;
    offset = pieces.empty() ? work : pieces.back();
    RemoveFlatVertices(offset);
    return offset;
}

RvPolygon2D RvPolygon2D::GetOffsetEx(std::vector<double>& distances,
                                     const RvPoint3D& normal) const {
    return OffsetEdgesToPolygon(distances, normal, false);
}

RvPolygon2D RvPolygon2D::GetOffsetEx2(std::vector<double>& distances, const RvPoint3D& normal) {
    return OffsetEdgesToPolygon(distances, normal, true);
}

RvPolygon2D RvPolygon2D::GetOffsetEx(double distance, const RvPoint3D& normal, int useEx2) {
    std::vector<double> distances(size(), distance);
    return OffsetEdgesToPolygon(distances, normal, useEx2 != 0);
}

RvPolygon2D RvPolygon2D::GetOffsetEx(double first, double second, const RvPolyLine2D& outline,
                                     const RvPoint3D& normal, int useEx2) {
    std::vector<double> distances = GetOutlineDistances(first, second, outline);
    return OffsetEdgesToPolygon(distances, normal, useEx2 != 0);
}

}  // namespace ravelin
