#include "ravelin/polygon/RvPolyPolygon2D.h"

#include <algorithm>
#include <cstddef>

#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

std::vector<int> RvPolyPolygon2D::RingCounts() const {
    std::vector<int> clamped;
    clamped.reserve(m_Counts.size());
    std::size_t offset = 0;
    for (const int count : m_Counts) {
        const std::size_t wanted = count > 0 ? static_cast<std::size_t>(count) : 0;
        const std::size_t kept = std::min(wanted, size() - offset);
        clamped.push_back(static_cast<int>(kept));
        offset += kept;
    }
    return clamped;
}

RvPolyPolygon2D::RvPolyPolygon2D() {
    type = kType;
}

RvPolyPolygon2D::RvPolyPolygon2D(const RvPolyPolygon2D& p) : RvPolygon2D(p), m_Counts(p.m_Counts) {
    type = kType;
}

RvPolyPolygon2D& RvPolyPolygon2D::operator=(const RvPolyPolygon2D& p) {
    RvPolygon2D::operator=(p);
    m_Counts = p.m_Counts;
    return *this;
}

RvPolyPolygon2D::~RvPolyPolygon2D() = default;

void RvPolyPolygon2D::ReInit() {
    // The entity part only: the skeleton pointer is neither destroyed nor forgotten here.
    RvDrawEntity::ReInit();
    m_Counts.clear();
    type = kType;
}

void RvPolyPolygon2D::AddCount(int n) {
    m_Counts.push_back(n);
}

std::vector<int>* RvPolyPolygon2D::GetCounts() {
    return &m_Counts;
}

int RvPolyPolygon2D::PointInsidePolyPolygonEx2D(const RvPoint2D& p) const {
    int crossings = 0;
    const_iterator first = begin();
    for (const int count : RingCounts()) {
        const const_iterator last = first + count;
        // Each ring is counted as stored, without a closing edge; a ring on whose edge `p` lies
        // adds nothing, and the other rings still count.
        if (first != last) {
            crossings += CountHalfLineCrossings(p, first, last, false);
        }
        first = last;
    }
    return crossings % 2 != 0 ? 1 : 0;
}

std::vector<RvPoint2D>::const_iterator RvPolyPolygon2D::GetPrevPoint(int i) const {
    // Wide enough that the vertex before the least int is still a number below zero.
    std::ptrdiff_t index = static_cast<std::ptrdiff_t>(i) - 1;
    std::ptrdiff_t offset = 0;
    for (const int count : RingCounts()) {
        if (offset > i) {
            break;
        }
        if (offset == i) {
            // The first vertex of a ring follows the ring's last one.
            index = offset + count - 1;
            break;
        }
        offset += count;
    }
    // An index before the first vertex or past the last raises the range error.
    CheckedAt(static_cast<const Base&>(*this), index);
    return begin() + index;
}

bool RvPolyPolygon2D::IntersectHalfLine2D(const RvPoint2D& p, const RvPoint2D& d,
                                          HitQueue& q) const {
    if (empty()) {
        return false;
    }
    bool found = false;
    const_iterator first = begin();
    for (const int count : RingCounts()) {
        const const_iterator last = first + count;
        // Every ring is walked, also after one that was hit.
        if (IntersectHalfLineRing(p, d, q, first, last)) {
            found = true;
        }
        first = last;
    }
    return found;
}

bool RvPolyPolygon2D::IntersectHalfLineRing(const RvPoint2D& p, const RvPoint2D& d, HitQueue& q,
                                            const_iterator first, const_iterator last) const {
    if (first == last) {
        return false;
    }
    bool found = false;
    // The edge from the ring's last vertex to its first comes first.
    const_iterator prev = last - 1;
    for (const_iterator cur = first; cur != last; prev = cur, ++cur) {
        const RvPoint2D e = *prev - *cur;
        const double det = d.x2D * e.y2D - d.y2D * e.x2D;
        if (Number(det) == 0) {
            continue;
        }
        const double t = -(((cur->y2D - p.y2D) * d.x2D - (cur->x2D - p.x2D) * d.y2D) / det);
        // Both ends of the edge belong to it, within the band.
        if (!(Number(t) >= 0 && Number(t) <= 1)) {
            continue;
        }
        const RvPoint2D h = *cur + e * t;
        const double u = (h.y2D - p.y2D) * d.y2D + (h.x2D - p.x2D) * d.x2D;
        // A hit at the start of the half-line itself counts.
        if (!(u > -1e-08)) {
            continue;
        }
        // The record carries a running hit number, not the index of the edge.
        q.push(Intersection2D{h, static_cast<int>(q.size() + 1), h.Distance2D(p)});
        found = true;
    }
    return found;
}

int RvPolyPolygon2D::GetNearestSegment2D(const RvPoint2D& p, const RvPoint2D& /*q*/,
                                         RvPoint2D& foot) const {
    const RvPoint3D normal = GetNormalVector2();
    double best = -1.0;
    int result = -1;
    std::size_t first = 0;
    for (const int count : RingCounts()) {
        const std::size_t last = first + static_cast<std::size_t>(count);
        if (first == last) {
            continue;
        }
        const RvPoint2D* prev = &(*this)[last - 1];
        for (std::size_t k = first; k < last; prev = &(*this)[k], ++k) {
            const RvPoint2D& cur = (*this)[k];
            if (cur == *prev) {
                continue;
            }
            // The edge's normal in the polygon's plane; an edge along the polygon's normal (or a
            // null normal) leaves no way to measure, and the search gives up.
            RvPoint3D m = normal.GetVektorovySucin(*prev - cur);
            if (m.IsNull()) {
                return -1;
            }
            m.Normalize();
            const double s = (m * p) - (m * cur);
            const RvPoint2D f = p - RvPoint2D(m * s);
            const RvPoint3D* candidate = &f;
            double dist = 0.0;
            // The foot counts when it lies on the edge, its ends included; otherwise the nearer
            // end stands for the edge.
            if (Number((f - cur) * (f - *prev)) <= 0) {
                dist = p.SquareDistance2D(f);
            } else {
                const double dp = p.SquareDistance2D(*prev);
                const double dc = p.SquareDistance2D(cur);
                if (Number(dp) > dc) {
                    candidate = &cur;
                    dist = dc;
                } else {
                    candidate = prev;
                    dist = dp;
                }
            }
            if (Number(dist) < best || Number(best) == -1.0) {
                best = dist;
                result = static_cast<int>(k);
                foot.Set(candidate->x, candidate->y, candidate->z);
            }
        }
        first = last;
    }
    return result;
}

}  // namespace ravelin
