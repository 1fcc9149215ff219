#include <cstddef>
#include <vector>

#include "ravelin/entity/RvLine2D.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// The first hit of the line through `point` with direction `direction` on the segment from
// `a` to `b`, in `hit`.
bool HitOnSegment(const RvPoint2D& a, const RvPoint2D& b, const RvPoint2D& point,
                  const RvPoint2D& direction, std::vector<RvPoint2D>& hits, RvPoint2D& hit) {
    RvLine2D segment(a, b);
    hits.clear();
    if (!segment.IntersectLine2D(point, direction, hits) || hits.empty()) {
        return false;
    }
    hit = hits[0];
    return true;
}

// Appends the polygons of `pieces` to `result`.
void AppendAll(const std::vector<RvPolygon2D>& pieces, std::vector<RvPolygon2D>& result) {
    result.insert(result.end(), pieces.begin(), pieces.end());
}

}  // namespace

bool RvPolygon2D::CutBoundingRectangle(RvPoint2D& point, RvPoint2D& direction, RvPolygon2D& first,
                                       RvPolygon2D& second) {
    if (empty()) {
        return false;
    }
    first.clear();
    second.clear();
    first.push_back((*this)[0]);
    RvPolygon2D* current = &first;
    bool met = false;
    std::vector<RvPoint2D> hits;
    RvPoint2D hit;
    for (std::size_t i = 1; i < size(); ++i) {
        if (HitOnSegment((*this)[i - 1], (*this)[i], point, direction, hits, hit)) {
            met = true;
            RvPolygon2D* other = current == &first ? &second : &first;
            current->push_back(hit);
            other->push_back(hit);
            other->push_back((*this)[i]);
            current = other;
        } else {
            current->push_back((*this)[i]);
        }
    }
    // The closing edge is taken from the first vertex to the last; its hit ends both halves,
    // whichever of them is current.
    if (HitOnSegment((*this)[0], (*this)[size() - 1], point, direction, hits, hit)) {
        second.push_back(hit);
        first.push_back(hit);
    }
    return met;
}

void RvPolygon2D::SplitWithLine(RvPoint2D first, RvPoint2D second,
                                std::vector<RvPolygon2D>& result) {
    RvPoint2D direction = second - first;
    if (!TestIntersectLine2D(first, direction, false)) {
        result.push_back(*this);
        return;
    }
    RvPolygon2D rectangle;
    GetBoundingRectangle(rectangle, 100.0);
    RvPolygon2D half1;
    RvPolygon2D half2;
    if (!rectangle.CutBoundingRectangle(first, direction, half1, half2)) {
        result.push_back(*this);
        return;
    }
    std::vector<RvPolygon2D> pieces;
    half1.Combine(*this, CombineIntersection, pieces);
    AppendAll(pieces, result);
    half2.Combine(*this, CombineIntersection, pieces);
    AppendAll(pieces, result);
}

}  // namespace ravelin
