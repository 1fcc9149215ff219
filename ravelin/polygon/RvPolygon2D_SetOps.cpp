#include <vector>

#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

// `out` is not cleared: what it holds is subtracted from as well. A Combine that refuses an
// empty operand leaves the work vector as the previous difference left it, and those rings are
// appended again; only empty polygons in the input lead there.
void RvPolygon2D::RemovePolygons(std::vector<RvPolygon2D>& removed, std::vector<RvPolygon2D>& out) {
    out.push_back(*this);
    std::vector<RvPolygon2D> rings;
    for (const RvPolygon2D& r : removed) {
        std::vector<RvPolygon2D> pieces;
        for (const RvPolygon2D& p : out) {
            p.Combine(r, CombineDifference, rings);
            pieces.insert(pieces.end(), rings.begin(), rings.end());
        }
        out.clear();
        out.insert(out.end(), pieces.begin(), pieces.end());
    }
}

// The rings are gathered in one vector for the whole loop. Combine clears it, a polygon that
// lies inside does not: after such a polygon the previous rings are appended to `out` again.
void RvPolygon2D::IntersectPolygons(const std::vector<RvPolygon2D>& others,
                                    std::vector<RvPolygon2D>& out) {
    std::vector<RvPolygon2D> rings;
    for (const RvPolygon2D& q : others) {
        if (IsInside(q)) {
            rings.push_back(q);
        } else {
            Combine(q, CombineIntersection, rings);
        }
        out.insert(out.end(), rings.begin(), rings.end());
    }
}

bool RvPolygon2D::GetClosedInterPolygon(_RvInterPoint start, RvPoint3D dir, int step,
                                        _RvInterPoint& hit, RvPolygon2D& out) {
    out.clear();
    double best = -1.0;
    hit.m_nEdge = -1;
    SetVectInsideFrom(dir, start);
    // Each walk visits at most every edge once; the bound ends it when `step` or the start's
    // edge would never bring it back to the start's edge.
    const int n = static_cast<int>(size());
    int k = start.m_nEdge + step;
    ValidateIndex(k);
    for (int round = 0; k != start.m_nEdge && round < n; ++round) {
        _RvInterPoint t;
        if (Intersection2D_HalfLineSegmentBreak(start, RvPoint2D(dir), k, t)) {
            const double d = start.Distance(t);
            if (hit.m_nEdge == -1 || Number(d) < best) {
                hit = t;
                best = start.Distance(hit);
            }
        }
        k += step;
        ValidateIndex(k);
    }
    if (hit.m_nEdge == -1) {
        return false;
    }
    out.push_back(hit);
    // Edge k ends at vertex k, so walking up the indices starts one vertex lower.
    k = hit.m_nEdge;
    int e = start.m_nEdge;
    if (step > 0) {
        k -= step;
        e -= step;
        ValidateIndex(k);
        ValidateIndex(e);
    }
    for (int round = 0; k != e && round < n; ++round) {
        out.push_back((*this)[k]);
        k -= step;
        ValidateIndex(k);
    }
    out.push_back(start);
    return true;
}

}  // namespace ravelin
