#include <cstddef>
#include <map>
#include <vector>

#include "ravelin/numeric/Number.h"
#include "ravelin/platform/CheckedVector.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// The planar cross product of `a` - `origin` and `b` - `origin`, on the drawing-plane pairs.
double Cross2D(const RvPoint2D& a, const RvPoint2D& b, const RvPoint2D& origin) {
    return (a.x2D - origin.x2D) * (b.y2D - origin.y2D) -
           (a.y2D - origin.y2D) * (b.x2D - origin.x2D);
}

// Takes the edge at place `k` out of `edgeIndices`; a flipped edge (`flipped`) first has its
// end put back on its start, so that the edge after it starts where the ring now runs.
void DropEdge(RvPolygon2D& work, std::vector<int>& edgeIndices, std::size_t k, bool flipped) {
    const int edge = edgeIndices[k];
    if (flipped) {
        CheckedAt(work, edge) = *work.GetPrevPoint(edge);
    }
    edgeIndices.erase(edgeIndices.begin() + static_cast<std::ptrdiff_t>(k));
}

// GetExtendEx's rule: an edge stays while it runs the way its input edge ran, by more than the
// band, measured along the input direction (the outer normal turned back by the ring's normal).
// Any other edge goes. Its product lies above -6e-07 on that path, far above the old bound of
// -2|d0| - 50 that such edges were once held to, so no bound is tested; one that has flipped
// by more than 1e-05 has its end put back on its start.
void DropCollapsedEdges(RvPolygon2D& work, const std::map<int, RvPoint3D>& edgeDirections,
                        const RvPoint3D& normal, std::vector<int>& edgeIndices) {
    std::size_t k = 0;
    while (k < edgeIndices.size()) {
        const int edge = edgeIndices[k];
        const RvPoint3D back =
            static_cast<const RvPoint3D&>(*work.GetPrevPoint(edge)) - CheckedAt(work, edge);
        const double along = normal.GetVektorovySucin(edgeDirections.at(edge)) * back;
        if (back.IsNotNull() && Number(along) < -1e-07) {
            ++k;
        } else {
            DropEdge(work, edgeIndices, k, along > 1e-05);
        }
    }
}

// GetExtendEx2's rule: an edge that is null, or that runs against its input direction by more
// than the band, goes; a flipped one has its end put back on its start.
void DropFlippedEdges(RvPolygon2D& work, const std::map<int, RvPoint3D>& edgeDirections,
                      const RvPoint3D& normal, std::vector<int>& edgeIndices) {
    std::size_t k = 0;
    while (k < edgeIndices.size()) {
        const int edge = edgeIndices[k];
        const RvPoint3D forward =
            static_cast<const RvPoint3D&>(CheckedAt(work, edge)) - *work.GetPrevPoint(edge);
        const RvPoint3D input = normal.GetVektorovySucin(edgeDirections.at(edge));
        if (!forward.IsNotNull()) {
            DropEdge(work, edgeIndices, k, false);
        } else if (Number(forward * input) < -1e-06) {
            DropEdge(work, edgeIndices, k, true);
        } else {
            ++k;
        }
    }
}

// Removes from `result`, from place `first` on, the polygons that `unwanted` picks.
template <typename Predicate>
void RemoveFrom(std::vector<RvPolygon2D>& result, std::size_t first, Predicate unwanted) {
    std::size_t k = first;
    while (k < result.size()) {
        if (unwanted(result[k])) {
            result.erase(result.begin() + static_cast<std::ptrdiff_t>(k));
        } else {
            ++k;
        }
    }
}

}  // namespace

void RvPolygon2D::ExtendEdgesToPolygons(std::vector<double>& distances,
                                        std::vector<RvPolygon2D>& result, bool useEx2) {
    const std::size_t kept = result.size();
    const RvPoint3D normal = GetNormalVector();
    if (normal.IsNull()) {
        return;
    }
    // Everything read from this polygon is read before `result` grows: it may be one of them.
    const double orientation = GetOrientation();
    RvPolygon2D work;
    std::vector<int> edgeIndices;
    const std::map<int, RvPoint3D> edgeDirections =
        work.MoveOffsetCopy(*this, distances, normal, useEx2, false, edgeIndices);
    if (useEx2) {
        DropFlippedEdges(work, edgeDirections, normal, edgeIndices);
    } else {
        DropCollapsedEdges(work, edgeDirections, normal, edgeIndices);
    }
    work.TraceOffsetGraph(edgeIndices, normal, result);
    RemoveFrom(result, kept, [useEx2, orientation, &normal](const RvPolygon2D& piece) {
        if (useEx2) {
            return piece.GetNormalVector() * normal < -1e-06;
        }
        return static_cast<double>(piece.GetOrientation()) * orientation < 0.0;
    });
}

void RvPolygon2D::GetExtendEx(std::vector<double>& distances, std::vector<RvPolygon2D>& result) {
    ExtendEdgesToPolygons(distances, result, false);
}

void RvPolygon2D::GetExtendEx2(std::vector<double>& distances, std::vector<RvPolygon2D>& result) {
    ExtendEdgesToPolygons(distances, result, true);
}

void RvPolygon2D::GetExtendEx(double distance, std::vector<RvPolygon2D>& result, int useEx2) {
    if (empty()) {
        return;
    }
    std::vector<double> distances(size(), distance);
    ExtendEdgesToPolygons(distances, result, useEx2 != 0);
}

void RvPolygon2D::GetExtendEx(double first, double second, const RvPolyLine2D& outline,
                              std::vector<RvPolygon2D>& result, int useEx2) {
    std::vector<double> distances = GetOutlineDistances(first, second, outline);
    ExtendEdgesToPolygons(distances, result, useEx2 != 0);
}

std::vector<double> RvPolygon2D::GetOutlineDistances(double first, double second,
                                                     const RvPolyLine2D& outline) const {
    std::vector<double> distances;
    for (int i = 0; i < static_cast<int>(size()); ++i) {
        const RvPoint2D& vertex = (*this)[static_cast<std::size_t>(i)];
        const int segment = outline.GetNearestSegment(vertex, false);
        if (segment == -1) {
            distances.push_back(first);
            continue;
        }
        const RvPoint2D& end = CheckedAt(outline, segment);
        const RvPoint2D& start = *outline.GetPrevPoint(segment);
        const bool positive = Number(Cross2D(start, vertex, end)) > 0.0 ||
                              Number(Cross2D(start, *GetPrevPoint(i), end)) > 0.0;
        distances.push_back(positive ? first : second);
    }
    return distances;
}

}  // namespace ravelin
