#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <vector>

#include "ravelin/platform/CheckedVector.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

// The context of the sort predicates: the caller sets it before a sort and no member assigns it.
RvPolygon2D* RvPolygon2D::m_sortPolygon = nullptr;
_RvInterPoint RvPolygon2D::m_sortOrigin;
_RvInterPoint RvPolygon2D::m_sortOriginEnd;

namespace {

// Calls `onEdge(i, from, to)` for every edge of the ring, `i` = 0 .. n - 1: edge `i` runs from
// the vertex before `i` (the last one for `i` = 0) to vertex `i`. A stored closing vertex is an
// ordinary vertex, so a closed ring has a closing edge of zero length.
template <class OnEdge>
void ForEachEdge(const RvPolygon2D& poly, OnEdge onEdge) {
    const int n = static_cast<int>(poly.size());
    for (int i = 0; i < n; ++i) {
        const int j = i == 0 ? n - 1 : i - 1;
        onEdge(i, poly[static_cast<std::size_t>(j)], poly[static_cast<std::size_t>(i)]);
    }
}

// The parameter `t` along the edge from `to` with vector `e` where the line from `p` with
// direction `d` meets it (0 at `to`, 1 at `to + e`), on the planar pair. False when the two are
// parallel within 1e-06.
bool EdgeParameter(const RvPoint2D& to, const RvPoint2D& e, const RvPoint2D& p, const RvPoint2D& d,
                   double& t) {
    const double det = d.x2D * e.y2D - d.y2D * e.x2D;
    if (!(std::fabs(det) > 1e-06)) {
        return false;
    }
    t = -(((to.y2D - p.y2D) * d.x2D - (to.x2D - p.x2D) * d.y2D) / det);
    return true;
}

// The range of an edge parameter with both ends widened by 1e-06: a half-line through a vertex
// hits both edges there.
bool WithinEdge(double t) {
    return -1e-06 < t && t < 1.000001;
}

// Whether an edge parallel to the line through `p` lies on that line, or has no length. `e` is
// the edge vector, from vertex `to` back to the edge's start.
bool ParallelEdgeOnLine(RvPoint2D e, const RvPoint2D& p, const RvPoint2D& to) {
    const bool edgeNotNull = !e.IsNull();
    if (edgeNotNull) {
        e.Normalize();
    }
    RvPoint3D w = RvPoint3D(p) - RvPoint3D(to);
    const bool offsetNotNull = !w.IsNull();
    if (offsetNotNull) {
        w.Normalize();
    }
    // Unit vectors that are not (anti)parallel: the edge runs beside the line, off it.
    return !(edgeNotNull && offsetNotNull && std::fabs(static_cast<double>(w * e)) <= 0.9999999);
}

// The record appended for a crossing of a segment with edge `i`.
void AppendCrossing(std::vector<_RvInterPoint>& out, const RvPoint2D& h, int i) {
    out.emplace_back(h, i, 0);
}

void AppendCrossing(std::vector<RvPoint2D>& out, const RvPoint2D& h, int) {
    out.push_back(h);
}

// Removes from `out` the record nearest to `end` by distance in space: the first record is the
// candidate, and a later one replaces it only when it is nearer by the band or more. An empty
// `out` is left alone.
template <class Record>
void RemoveNearest(std::vector<Record>& out, const RvPoint2D& end) {
    if (out.empty()) {
        return;
    }
    std::size_t nearest = 0;
    double kept = end.Distance(CheckedAt(out, 0));
    for (std::size_t k = 1; k < out.size(); ++k) {
        const double d = end.Distance(CheckedAt(out, k));
        if (Number(kept) > d) {
            kept = d;
            nearest = k;
        }
    }
    out.erase(out.begin() + static_cast<std::ptrdiff_t>(nearest));
}

// The crossings of the segment `a`-`b` with the edges, then, for each end strictly inside the
// polygon, the removal of the record nearest to it. The removal reaches over all of `out`, records
// put there before the call included, and does not change the result.
template <class Record>
bool SegmentBreak(RvPolygon2D& poly, const RvPoint2D& a, const RvPoint2D& b,
                  std::vector<Record>& out) {
    if (poly.empty()) {
        return false;
    }
    bool found = false;
    const RvPoint2D d = b - a;
    ForEachEdge(poly, [&](int i, const RvPoint2D& from, const RvPoint2D& to) {
        const RvPoint2D e = from - to;
        const double det = e.y2D * d.x2D - e.x2D * d.y2D;
        if (!(std::fabs(det) > 1e-06)) {
            return;  // parallel, also a segment running along the edge
        }
        const double s = (e.y2D * (to.x2D - a.x2D) - e.x2D * (to.y2D - a.y2D)) / det;
        const double t = -((d.y2D * (a.x2D - to.x2D) - d.x2D * (a.y2D - to.y2D)) / det);
        if (WithinEdge(s) && WithinEdge(t)) {
            AppendCrossing(out, to + e * t, i);
            found = true;
        }
    });
    // `a` first, then `b`: an end in the polygon and on no edge lies strictly inside.
    for (const RvPoint2D* end : {&a, &b}) {
        if (poly.PointInPolygonEx2D(*end) != 0 && poly.PointOnEdge2D(*end) == 0) {
            RemoveNearest(out, *end);
        }
    }
    return found;
}

// The smaller arc length of the two ends of `s` from `origin` along the sort polygon's boundary;
// the nearer end is made the record's start.
double NearerEndFirst(_RvInterSegment& s, const _RvInterPoint& origin) {
    const double start = RvPolygon2D::m_sortPolygon->GetLength(origin, s.m_Start);
    const double end = RvPolygon2D::m_sortPolygon->GetLength(origin, s.m_End);
    if (end < start) {
        s.m_Start.Swap(s.m_End);
        return end;
    }
    return start;
}

// The larger arc length of the two ends of `s` from m_sortOriginEnd, the end's length taken
// first; the farther end is made the record's end.
double FartherEndLast(_RvInterSegment& s) {
    const _RvInterPoint& origin = RvPolygon2D::m_sortOriginEnd;
    const double end = RvPolygon2D::m_sortPolygon->GetLength(origin, s.m_End);
    const double start = RvPolygon2D::m_sortPolygon->GetLength(origin, s.m_Start);
    if (start > end) {
        s.m_Start.Swap(s.m_End);
        return start;
    }
    return end;
}

// True, with `result` set, when a flag decides: a record marked done sorts behind every record
// that is not.
bool DecidedByFlags(const _RvInterSegment& l, const _RvInterSegment& r, bool& result) {
    if (l.m_bDone) {
        result = false;
        return true;
    }
    if (r.m_bDone) {
        result = true;
        return true;
    }
    return false;
}

// The pointer predicates test the flags first and the sort polygon after them. A missing record
// cannot be compared: it answers false, as a missing sort polygon does.
bool DecidedBeforeLengths(const _RvInterSegment* l, const _RvInterSegment* r, bool& result) {
    if (l == nullptr || r == nullptr) {
        result = false;
        return true;
    }
    if (DecidedByFlags(*l, *r, result)) {
        return true;
    }
    if (RvPolygon2D::m_sortPolygon == nullptr) {
        result = false;
        return true;
    }
    return false;
}

}  // namespace

// ---- Sort predicates --------------------------------------------------------------------------

bool RvPolygon2D::sort_RvInterPoint_less(const _RvInterPoint& l, const _RvInterPoint& r) {
    if (m_sortPolygon == nullptr) {
        return false;
    }
    return m_sortPolygon->GetLength(m_sortOrigin, l) < m_sortPolygon->GetLength(m_sortOrigin, r);
}

bool RvPolygon2D::sort_RvInterSegmentStart_less(_RvInterSegment& l, _RvInterSegment& r) {
    // This form asks for the sort polygon before it looks at the flags.
    if (m_sortPolygon == nullptr) {
        return false;
    }
    bool result = false;
    if (DecidedByFlags(l, r, result)) {
        return result;
    }
    const double left = NearerEndFirst(l, m_sortOrigin);
    const double right = NearerEndFirst(r, m_sortOrigin);
    return left < right;
}

bool RvPolygon2D::sort_pRvInterSegmentStart_less(_RvInterSegment* l, _RvInterSegment* r) {
    bool result = false;
    if (DecidedBeforeLengths(l, r, result)) {
        return result;
    }
    const double left = NearerEndFirst(*l, m_sortOrigin);
    const double right = NearerEndFirst(*r, m_sortOrigin);
    return left < right;
}

bool RvPolygon2D::sort_pRvInterSegmentStart_greater(_RvInterSegment* l, _RvInterSegment* r) {
    bool result = false;
    if (DecidedBeforeLengths(l, r, result)) {
        return result;
    }
    const double left = NearerEndFirst(*l, m_sortOrigin);
    const double right = NearerEndFirst(*r, m_sortOrigin);
    return left > right;
}

bool RvPolygon2D::sort_pRvInterSegmentEnd_less(_RvInterSegment* l, _RvInterSegment* r) {
    bool result = false;
    if (DecidedBeforeLengths(l, r, result)) {
        return result;
    }
    const double left = FartherEndLast(*l);
    const double right = FartherEndLast(*r);
    return left < right;
}

bool RvPolygon2D::sort_pRvInterSegmentEnd_greater(_RvInterSegment* l, _RvInterSegment* r) {
    bool result = false;
    if (DecidedBeforeLengths(l, r, result)) {
        return result;
    }
    const double left = FartherEndLast(*l);
    const double right = FartherEndLast(*r);
    return left > right;
}

// ---- Arc length ---------------------------------------------------------------------------------

double RvPolygon2D::GetLength(const _RvInterPoint& a, const _RvInterPoint& b) {
    // Every index is outside the vertices of an empty polygon; GetPrevPoint would hand back end().
    if (empty()) {
        ThrowInvalidSubscript();
    }
    if (a.m_nEdge == b.m_nEdge) {
        // On one edge: straight along it when `a` lies towards the edge's start from `b`.
        const RvPoint3D u = RvPoint3D(*GetPrevPoint(a.m_nEdge)) - RvPoint3D(b);
        const RvPoint3D w = RvPoint3D(a) - RvPoint3D(b);
        const Number c = u * w;
        if (c > 1e-06) {
            return b.Distance(a);
        }
    }
    // Otherwise the walk goes from `a` to the end of its edge, over the whole edges between, and
    // along `b`'s edge up to `b`, round the ring if need be.
    double length = CheckedAt(*this, a.m_nEdge).Distance(a);
    // An edge of `b` outside the vertices would never be reached by the walk.
    CheckedAt(*this, b.m_nEdge);
    int k = a.m_nEdge + 1;
    ValidateIndex(k);
    while (k != b.m_nEdge) {
        length += CheckedAt(*this, k).Distance(*GetPrevPoint(k));
        ++k;
        ValidateIndex(k);
    }
    length += GetPrevPoint(b.m_nEdge)->Distance(b);
    return length;
}

// ---- Break queries ------------------------------------------------------------------------------

bool RvPolygon2D::IntersectHalfLine2D(const RvPoint2D& p, const RvPoint2D& d, HitQueue& q) const {
    if (empty()) {
        return false;
    }
    bool found = false;
    ForEachEdge(*this, [&](int i, const RvPoint2D& from, const RvPoint2D& to) {
        const RvPoint2D e = from - to;
        double t = 0;
        if (!EdgeParameter(to, e, p, d, t) || !WithinEdge(t)) {
            return;
        }
        const RvPoint2D h = to + e * t;
        const double u = (h.x2D - p.x2D) * d.x2D + (h.y2D - p.y2D) * d.y2D;
        // A plain comparison: a hit at `p` itself counts, at distance 0.
        if (!(u > -1e-08)) {
            return;
        }
        q.push({h, i, h.Distance2D(p)});
        found = true;
    });
    return found;
}

bool RvPolygon2D::IntersectHalfLine2DBreak(const RvPoint2D& p, const RvPoint2D& d,
                                           std::vector<_RvInterPoint>& out) {
    bool found = false;
    ForEachEdge(*this, [&](int i, const RvPoint2D& from, const RvPoint2D& to) {
        const RvPoint2D e = from - to;
        double t = 0;
        if (!EdgeParameter(to, e, p, d, t) || !WithinEdge(t)) {
            return;
        }
        const RvPoint2D h = to + e * t;
        // In space and within the band: a hit at `p` itself is refused, unlike in
        // IntersectHalfLine2D.
        const Number u = RvPoint3D(h - p) * RvPoint3D(d);
        if (!(u > -1e-08)) {
            return;
        }
        out.emplace_back(h, i);
        found = true;
    });
    return found;
}

bool RvPolygon2D::IntersectLine2DBreak(const RvPoint2D& p, const RvPoint2D& d,
                                       std::vector<_RvInterPoint>& out) {
    bool found = false;
    ForEachEdge(*this, [&](int i, const RvPoint2D& from, const RvPoint2D& to) {
        const RvPoint2D e = from - to;
        double t = 0;
        if (EdgeParameter(to, e, p, d, t)) {
            // One-sided: a hit at vertex `i` (t = 0) counts on the next edge, at its t = 1.
            if (t > 1e-06 && t < 1.0000001) {
                out.emplace_back(to + e * t, i);
                found = true;
            }
            return;
        }
        if (ParallelEdgeOnLine(e, p, to)) {
            // The edge lies on the line (or has no length): reported by its first vertex.
            out.emplace_back(from, i);
            found = true;
        }
    });
    return found;
}

bool RvPolygon2D::IntersectSegment2DBreak(RvPoint2D& a, RvPoint2D& b,
                                          std::vector<_RvInterPoint>& out) {
    return SegmentBreak(*this, a, b, out);
}

bool RvPolygon2D::IntersectSegment2DBreak(RvPoint2D& a, RvPoint2D& b, std::vector<RvPoint2D>& out) {
    return SegmentBreak(*this, a, b, out);
}

int RvPolygon2D::GetNearestSegment2D(const RvPoint2D& p, const RvPoint2D& q,
                                     RvPoint2D& foot) const {
    if (empty()) {
        return -1;
    }
    const RvPoint3D normal = GetNormalVector();
    double best = -1.0;
    int nearest = -1;
    ForEachEdge(*this, [&](int i, const RvPoint2D& from, const RvPoint2D& to) {
        // The unit normal of the edge within the polygon's plane.
        RvPoint3D m = normal.GetVektorovySucin(RvPoint3D(from) - RvPoint3D(to));
        if (m.IsNull()) {
            return;
        }
        m.Normalize();
        // `q` chooses the edge: its distance from the edge's line must beat the best so far.
        const double dist = std::fabs(m.x * q.x2D + m.y * q.y2D - (m.x * to.x2D + m.y * to.y2D));
        if (!(dist < best) && !(best < -0.1)) {
            return;
        }
        // `p` must project strictly between the edge's ends.
        const double s = m.y * p.y2D + m.x * p.x2D - m.x * to.x2D - m.y * to.y2D;
        const RvPoint3D f(p.x2D - m.x * s, p.y2D - m.y * s, to.z);
        const Number c = (f - RvPoint3D(to)) * (f - RvPoint3D(from));
        if (c < -1e-07) {
            best = dist;
            nearest = i;
            foot = p - RvPoint2D(m * s);
        }
    });
    return nearest;
}

}  // namespace ravelin
