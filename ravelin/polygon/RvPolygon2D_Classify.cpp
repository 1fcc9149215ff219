#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "ravelin/platform/CRgn.h"
#include "ravelin/platform/CheckedVector.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// The index before `i` in a ring of `n` vertices.
std::size_t Before(std::size_t i, std::size_t n) {
    return i == 0 ? n - 1 : i - 1;
}

// Whether the rightward ray from `p`, as the hit `h` on the edge from e[0] to e[1], counts: a
// hit at a vertex counts only where that vertex is the lower end of its edge.
bool CountsAsCrossing(const RvPoint2D& h, const RvLine2D& e) {
    if (h.IsEqual2D(e[0], 1e-05) && e[1].y2D < e[0].y2D) {
        return false;
    }
    return !(h.IsEqual2D(e[1], 1e-05) && e[1].y2D > e[0].y2D);
}

// The parity of the crossings of the rightward ray from `p` with the edges of `poly`; with
// `onEdge`, a point on an edge stops the walk and `onEdge` is set.
int RayParity(const RvDrawEntity& poly, const RvPoint2D& p, bool* onEdge) {
    const std::size_t n = poly.size();
    const RvLine2D ray(p, RvPoint2D(p.x2D + 10.0, p.y2D, p.z));
    const RvPoint2D direction = ray[1] - ray[0];
    std::vector<RvPoint2D> hits;
    int count = 0;
    for (std::size_t i = 0; i < n; ++i) {
        RvLine2D e(poly[i], poly[Before(i, n)]);
        if (onEdge != nullptr && e.IsPointOnSegment2D(p) != 0) {
            *onEdge = true;
            return 1;
        }
        hits.clear();
        if (e.Intersection2D_HalfLine(ray[0], direction, hits) && CountsAsCrossing(hits[0], e)) {
            ++count;
        }
    }
    return count % 2;
}

// Whether `p` lies within 0.01 of the box that the first vertex's planar pair and the other
// vertices' spatial `x`, `y` span, read at `p`'s spatial `x`, `y`.
bool InLooseBox(const RvDrawEntity& poly, const RvPoint2D& p) {
    double minX = poly[0].x2D;
    double maxX = minX;
    double minY = poly[0].y2D;
    double maxY = minY;
    for (std::size_t k = 1; k < poly.size(); ++k) {
        minX = std::min(minX, poly[k].x);
        maxX = std::max(maxX, poly[k].x);
        minY = std::min(minY, poly[k].y);
        maxY = std::max(maxY, poly[k].y);
    }
    return !(minX - 0.01 > p.x || maxX + 0.01 < p.x || minY - 0.01 > p.y || maxY + 0.01 < p.y);
}

}  // namespace

int RvPolygon2D::PointInPolygon2D(const RvPoint2D& p) {
    const std::unique_ptr<tagPOINT[]> points(GetPOINTArray());
    CRgn region;
    if (!region.CreatePolygonRgn(points.get(), static_cast<int>(size()), ALTERNATE)) {
        return 0;
    }
    return region.PtInRegion(p.GetPOINT()) ? 1 : 0;
}

int RvPolygon2D::PointInPolygonEx2D(const RvPoint2D& p) {
    intersectStatus = 0;
    if (empty() || !InLooseBox(*this, p)) {
        return 0;
    }
    bool onEdge = false;
    const int parity = RayParity(*this, p, &onEdge);
    if (onEdge) {
        intersectStatus = 1;
    }
    return parity;
}

int RvPolygon2D::PointInPolygonEx2D_const(const RvPoint2D& p) const {
    if (!InLooseBox(*this, p)) {
        return 0;
    }
    return RayParity(*this, p, nullptr);
}

int RvPolygon2D::PointInsidePolygonEx2D(const RvPoint2D& p) const {
    return CountHalfLineCrossings(p, begin(), end(), true) % 2 == 1 ? 1 : 0;
}

int RvPolygon2D::PointOnEdge2D(const RvPoint2D& p) const {
    const std::size_t n = size();
    for (std::size_t i = 0; i + 1 < n; ++i) {
        if (p.IsOnSegment2D((*this)[i], (*this)[i + 1])) {
            return 1;
        }
    }
    // The closing edge is skipped when the first two vertices coincide (not the first and the
    // last).
    if ((*this)[0] == (*this)[1]) {
        return 0;
    }
    return p.IsOnSegment2D((*this)[0], (*this)[n - 1]) ? 1 : 0;
}

int RvPolygon2D::PointOnEdge2D(const RvPoint2D& p, int& edge) const {
    const std::size_t n = size();
    for (std::size_t i = 0; i + 1 < n; ++i) {
        if (p.IsOnSegment2D((*this)[i], (*this)[i + 1])) {
            edge = static_cast<int>(i);
            return 1;
        }
    }
    const RvPoint2D& first = (*this)[0];
    if (p.IsOnSegment2D(first, (*this)[n - 1])) {
        edge = static_cast<int>(n - 1);
        return 1;
    }
    return 0;
}

int RvPolygon2D::PointOnEdge2D(const RvPoint2D& p, int n, int& a, int& b) const {
    for (int i = 0; i < n; ++i) {
        if (CheckedAt(*this, i).IsEqual2D(p, 0.01)) {
            a = i;
            b = (i + n - 1) % n;
            return 1;
        }
    }
    // Within 0.01 of an edge's interior: the foot of `p` lies strictly between its ends.
    for (int i = 0; i < n; ++i) {
        const int j = i == 0 ? n - 1 : i - 1;
        const RvPoint2D& vi = CheckedAt(*this, i);
        const RvPoint2D& vj = CheckedAt(*this, j);
        const RvPoint2D f = RvLine2D::NormalFoot2D(vi, vj, p);
        if (!p.IsEqual2D(f, 0.01)) {
            continue;
        }
        const double s = (vi.x2D - f.x2D) * (vj.x2D - f.x2D) + (vi.y2D - f.y2D) * (vj.y2D - f.y2D);
        if (s < 0) {
            a = j;
            b = j;
            return 1;
        }
    }
    return 0;
}

int RvPolygon2D::LineOnEdge2D(const RvLine2D& line) const {
    const RvPoint2D& a = line[0];
    const RvPoint2D& b = line[1];
    int i = 0;
    int j = 0;
    if (PointOnEdge2D(a, i) == 0 || PointOnEdge2D(b, j) == 0) {
        return 0;
    }
    if (i > j) {
        std::swap(i, j);
    }
    if (i == j) {
        return 1;
    }
    const auto onLine = [&](int k) {
        return (*this)[static_cast<std::size_t>(k)].IsOnSegment2D(a, b);
    };
    bool allOn = true;
    for (int k = i + 1; k <= j && allOn; ++k) {
        allOn = onLine(k);
    }
    if (allOn) {
        return 1;
    }
    // The other way round the ring.
    const int n = static_cast<int>(size());
    int k = j;
    do {
        k = k + 1 == n ? 0 : k + 1;
        if (!onLine(k)) {
            return 0;
        }
    } while (k != i);
    return 1;
}

int RvPolygon2D::GetSegmentOnEdgeIndex(const RvPoint2D& a, const RvPoint2D& b, int start) const {
    const int n = static_cast<int>(size());
    if (n == 0 || start < 0 || start >= n) {
        return -1;
    }
    RvPoint3D prev = (*this)[static_cast<std::size_t>(start > 0 ? start - 1 : n - 1)];
    const RvPoint3D pa(a.x2D, a.y2D, prev.z);
    const RvPoint3D pb(b.x2D, b.y2D, prev.z);
    RvPoint3D u = pa - pb;
    if (!u.IsNull()) {
        u.Normalize();
    }
    for (int k = start; k < n; ++k) {
        const RvPoint3D cur = (*this)[static_cast<std::size_t>(k)];
        RvPoint3D w = prev - cur;
        if (!w.IsNull()) {
            w.Normalize();
        }
        // Parallel; only the overlap tests ask whether the two share a line.
        if (u.GetVektorovySucin(w).GetSize() < 1e-06) {
            const bool overlap = pa.IsInsideSegment(prev, cur) || pb.IsInsideSegment(prev, cur) ||
                                 prev.IsInsideSegment(pa, pb) || cur.IsInsideSegment(pa, pb) ||
                                 (prev == pa && cur == pb) || (prev == pb && cur == pa);
            if (overlap) {
                return k;
            }
        }
        prev = cur;
    }
    return -1;
}

bool RvPolygon2D::SegmentOnEdge(const RvPoint2D& a, const RvPoint2D& b) const {
    return GetSegmentOnEdgeIndex(a, b, 0) != -1;
}

int RvPolygon2D::PolylineOnEdge2D(const RvDrawEntity& e, bool closed) const {
    for (std::size_t k = 0; k + 1 < e.size(); ++k) {
        if (SegmentOnEdge(e[k], e[k + 1])) {
            return 1;
        }
    }
    if (closed && !e.empty() && !(e[0] == e[e.size() - 1])) {
        return SegmentOnEdge(e[0], e[e.size() - 1]) ? 1 : 0;
    }
    return 0;
}

namespace {

// A stretch of a line, from `s` to `e`, grown edge by edge along the boundary.
struct Run {
    RvPoint2D s;
    RvPoint2D e;

    bool Holds(const RvPoint3D& p) const {
        return Number((p - RvPoint3D(s)) * (p - RvPoint3D(e))) < 1e-06;
    }
    // Grows the run by the edge from `q` to `p` when the edge touches it; false when neither
    // end lies within.
    bool Extend(const RvPoint3D& p, const RvPoint3D& q) {
        const bool pIn = Holds(p);
        const bool qIn = Holds(q);
        if (pIn && qIn) {
            return true;
        }
        if (!pIn && !qIn) {
            return false;
        }
        const RvPoint3D& o = pIn ? q : p;
        RvPoint2D& end = Number(RvPoint3D(s).Distance(o)) < RvPoint3D(e).Distance(o) ? s : e;
        end = RvPoint2D(o);
        return true;
    }
    // Whether `p` lies within the run, with a tolerance that grows with the distances.
    bool Covers(const RvPoint3D& p) const {
        const RvPoint3D toS = p - RvPoint3D(s);
        const RvPoint3D toE = p - RvPoint3D(e);
        const double r = toS.GetSize() * toE.GetSize() * 1e-06 + 5e-05;
        return Number(toS * toE) < r;
    }
};

}  // namespace

bool RvPolygon2D::IsEdge(RvPoint2D& a, RvPoint2D& b) {
    const std::size_t n = size();
    const RvPoint3D normal = GetNormalVector();
    RvPoint3D w = RvPoint3D(b - a).GetVektorovySucin(normal);
    if (w.IsNull()) {
        return false;
    }
    w.Normalize();
    const double c = w * a;
    const auto onLine = [&](std::size_t k) { return std::fabs(w * (*this)[k] - c) < 5e-05; };
    std::vector<std::size_t> edges;
    for (std::size_t i = 0; i < n; ++i) {
        if (onLine(Before(i, n)) && onLine(i)) {
            edges.push_back(i);
        }
    }
    if (edges.empty()) {
        return false;
    }
    const auto startRun = [&](std::size_t i) { return Run{(*this)[i], (*this)[Before(i, n)]}; };
    Run run = startRun(edges[0]);
    std::size_t k = 0;
    bool merged = false;
    while (true) {
        const std::size_t i = edges[k];
        if (run.Extend((*this)[i], (*this)[Before(i, n)])) {
            edges.erase(edges.begin() + static_cast<std::ptrdiff_t>(k));
            merged = true;
            if (k >= edges.size() && k > 0) {
                --k;
            }
        } else if (++k == edges.size()) {
            k = 0;
            if (!merged) {
                run = startRun(edges[0]);
                edges.erase(edges.begin());
            }
            merged = false;
        }
        if (run.Covers(b) && run.Covers(a)) {
            return true;
        }
        if (edges.empty()) {
            return false;
        }
    }
}

bool RvPolygon2D::TestIntersectSegments(const_iterator a0, const_iterator a1, const_iterator b0,
                                        const_iterator b1) {
    if (*b0 == *b1 || *a0 == *a1) {
        return false;
    }
    const double ax = a1->x2D - a0->x2D;
    const double ay = a1->y2D - a0->y2D;
    const double bx = b1->x2D - b0->x2D;
    const double by = b1->y2D - b0->y2D;
    const double dx = a0->x2D - b0->x2D;
    const double dy = a0->y2D - b0->y2D;
    const double den = ax * by - ay * bx;
    const double t = bx * dy - by * dx;
    const double s = ax * dy - ay * dx;
    if (std::fabs(den) >= 0.0001) {
        const double tt = t / den;
        const double ss = s / den;
        return 0 <= tt && tt <= 1 && 0 <= ss && ss <= 1;
    }
    if (std::fabs(t) >= 0.0001 || std::fabs(s) >= 0.0001) {
        return false;  // parallel and apart
    }
    // Collinear: they meet when an end of one lies in the closed box of the other.
    const auto inBox = [](const RvPoint2D& p, const RvPoint2D& q0, const RvPoint2D& q1) {
        return std::min(q0.x2D, q1.x2D) <= p.x2D && p.x2D <= std::max(q0.x2D, q1.x2D) &&
               std::min(q0.y2D, q1.y2D) <= p.y2D && p.y2D <= std::max(q0.y2D, q1.y2D);
    };
    return inBox(*b0, *a0, *a1) || inBox(*b1, *a0, *a1) || inBox(*a0, *b0, *b1) ||
           inBox(*a1, *b0, *b1);
}

bool RvPolygon2D::IntersectPolygon(const RvDrawEntity& e, bool closed, int count) const {
    if (empty()) {
        return false;
    }
    for (const_iterator c = begin(); c != end(); ++c) {
        const_iterator d = e.begin();
        if (!closed && d != e.end()) {
            ++d;
        }
        for (; d != e.end(); ++d) {
            if (TestIntersectSegments(c, GetPrevPoint(c), d, e.GetPrevPoint(d)) && --count <= 0) {
                return true;
            }
        }
    }
    return false;
}

bool RvPolygon2D::TestIntersectEntity(const RvDrawEntity& e, bool closed) const {
    return IntersectPolygon(e, closed, 1) || PointInPolygonEx2D_const(e[0]) != 0;
}

bool RvPolygon2D::TestIntersectPolygon(const RvPolygon2D& o) const {
    return TestIntersectEntity(o, true) || o.PointInPolygonEx2D_const((*this)[0]) != 0 ||
           o == *this;
}

bool RvPolygon2D::IsInside(const RvDrawEntity& e) const {
    if (IntersectPolygon(e, true, 1)) {
        return false;
    }
    return PointInPolygonEx2D_const(e[0]) != 0;
}

bool RvPolygon2D::TestIntersectSegment2DBreak(RvPoint2D& a, RvPoint2D& b) {
    // Each end strictly inside cancels one crossing.
    int count = 0;
    if (PointInPolygonEx2D(a) != 0 && PointOnEdge2D(a) == 0) {
        count = -1;
    }
    if (PointInPolygonEx2D(b) != 0 && PointOnEdge2D(b) == 0) {
        count -= 1;
    }
    const RvPoint2D d = b - a;
    const std::size_t n = size();
    for (std::size_t i = 0; i < n; ++i) {
        const RvPoint2D& vi = (*this)[i];
        const RvPoint2D e = (*this)[Before(i, n)] - vi;
        const double det = e.y2D * d.x2D - e.x2D * d.y2D;
        if (!(std::fabs(det) > 1e-06)) {
            continue;
        }
        const double s = (e.y2D * (vi.x2D - a.x2D) - e.x2D * (vi.y2D - a.y2D)) / det;
        const double t = -((d.y2D * (a.x2D - vi.x2D) - d.x2D * (a.y2D - vi.y2D)) / det);
        if (-1e-06 < s && s < 1.000001 && -1e-06 < t && t < 1.000001) {
            ++count;
        }
    }
    return count >= 2;
}

bool RvPolygon2D::TestNeibEdgeBreak(const _RvInterPoint& a, _RvInterPoint& b) {
    if (a.m_nEdge < 0 || b.m_nEdge < 0) {
        return false;
    }
    const int e = a.m_nEdge;
    const int f = b.m_nEdge;
    const int last = static_cast<int>(size()) - 1;
    int common = -1;
    if (e - f == 1) {
        common = f;
    } else if (f - e == 1) {
        common = e;
    } else if (e == 0 && f == last) {
        common = f;
    } else if (f == 0 && e == last) {
        common = e;
    } else {
        return false;
    }
    static_cast<RvPoint2D&>(b) = CheckedAt(*this, common);
    b.m_nEdge = e;
    return true;
}

void RvPolygon2D::IntersectsWithLine(RvPoint2D& a, RvPoint2D& b,
                                     CArray<RvPoint2D, const RvPoint2D&>& out) {
    const std::size_t n = size();
    for (std::size_t i = 0; i < n; ++i) {
        RvPoint2D pt;
        if (!IntersectSegment2D(a, b, pt, static_cast<unsigned int>(i), true)) {
            continue;
        }
        const double dist = a.Distance(pt);
        int at = 0;
        bool duplicate = false;
        for (; at < out.GetSize(); ++at) {
            if (out[at].IsEqual2D(pt, 0.01)) {
                duplicate = true;
                break;
            }
            if (static_cast<double>(out[at].Distance(a)) > dist) {
                break;
            }
        }
        if (!duplicate) {
            out.InsertAt(at, pt);
        }
    }
}

RvPoint3D RvPolygon2D::GetNormalVector() const {
    const std::size_t n = size();
    if (n < 3) {
        return RvPoint3D();
    }
    // The first corner that is not flat, trying at most n - 1 of them.
    std::size_t corner = 0;
    RvPoint3D a;
    RvPoint3D b;
    RvPoint3D c;
    for (std::size_t k = 0; k + 1 < n; ++k) {
        corner = k;
        a = RvPoint3D((*this)[Before(k, n)]) - RvPoint3D((*this)[k]);
        b = RvPoint3D((*this)[k + 1]) - RvPoint3D((*this)[k]);
        c = a.GetVektorovySucin(b);
        if (c.GetSize() >= 1e-05) {
            break;
        }
    }
    if (c.GetSize() < 1e-05) {
        return c;  // flat or degenerate
    }
    c.Normalize();
    a.Normalize();
    b.Normalize();
    // The sign from a probe a step of up to two units along the corner's bisector.
    const RvPoint2D probe = (*this)[corner] + RvPoint2D(a + b);
    return PointInPolygonEx2D_const(probe) != 0 ? c * -1.0 : c;
}

bool RvPolygon2D::IsVectorInsideFrom(RvPoint3D v, const RvPoint3D& from) const {
    v.Normalize();
    return PointInPolygonEx2D_const(RvPoint2D(from + v)) == 1;
}

void RvPolygon2D::SetVectInsideFrom(RvPoint3D& v, const RvPoint3D& from) const {
    if (!IsVectorInsideFrom(v, from)) {
        v = v * -1.0;
    }
}

std::vector<RvPoint2D>::const_iterator RvPolygon2D::GetNonEdgePoint(const RvDrawEntity& e) const {
    return std::find_if(e.begin(), e.end(),
                        [this](const RvPoint2D& p) { return PointOnEdge2D(p) == 0; });
}

}  // namespace ravelin
