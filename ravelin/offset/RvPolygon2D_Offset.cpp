#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ravelin/numeric/Number.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

int RvPolygon2D::m_nOffsetCrossing = 0;

namespace {

using Iter = RvPolygon2D::iterator;

// The collision search, handed to the walk below by the member that may call it.
using Finder = Iter (*)(const RvPoint3D&, const RvPoint3D&, double, const RvPoint3D&, Iter, Iter);

// The spatial part of a vertex: the planar pair of an RvPoint2D takes no part in the geometry.
RvPoint3D Xyz(const RvPoint3D& p) {
    return RvPoint3D(p.x, p.y, p.z);
}

// The last vertex of `r`, through the checked subscript: an empty result raises the range error
// instead of reading before the start.
RvPoint3D LastOf(const RvPolygon2D& r) {
    return Xyz(r[r.size() - 1]);
}

// ---- Collision search ------------------------------------------------------------------------

// The unit direction across the segment `from`-`to` in the plane of `normal`; left as it is when
// the segment is too short to have one.
RvPoint3D AcrossSegment(const RvPoint3D& from, const RvPoint3D& to, const RvPoint3D& normal) {
    RvPoint3D s = normal.GetVektorovySucin(from - to);
    if (s.IsNotNull()) {
        s.Normalize();
    }
    return s;
}

// Whether the edge from `cur` along `w` (towards the vertex before it) meets the segment
// `from`-`to` at a point strictly inside both. An edge almost parallel to the segment is not
// tested for crossing.
bool CrossesSegment(const RvPoint3D& from, const RvPoint3D& to, const RvPoint3D& s,
                    const RvPoint3D& cur, const RvPoint3D& w) {
    const double ws = w * s;
    if (std::fabs(ws) <= 1e-09) {
        return false;
    }
    const double t = ((to - cur) * s) / ws;
    if (!(1e-07 < t && t < 0.99999999)) {
        return false;
    }
    const RvPoint3D x = cur + w * t;
    return (from - x) * (to - x) < -1e-07;
}

// Whether `to` comes nearer than |distance| to the edge from `cur` along `w` on its wrong side.
// The last edge of the range collides as soon as it is too near; an earlier one only when `cur`
// lies ahead of `to` across the edge's line.
bool TooNearEdge(const RvPoint3D& to, double distance, const RvPoint3D& normal,
                 const RvPoint3D& cur, const RvPoint3D& w, bool lastOfRange) {
    const double u = ((to - cur) * w) / (w * w);
    if (!(1e-07 < u && u < 1.00000001)) {
        return false;
    }
    const RvPoint3D m = normal.GetVektorovySucin(w);
    const RvPoint3D y = to - (cur + w * u);
    if (y.IsNotNull() && !(y * m < -1e-07)) {
        return false;  // `to` lies on the good side of the edge
    }
    if (!(y.GetSize() < std::fabs(distance) - 1e-07)) {
        return false;
    }
    return lastOfRange || static_cast<double>((cur - to) * m) > 1e-07;
}

// ---- The forward walk of GetOffset -----------------------------------------------------------

// What the backward check makes of a new corner.
enum class BackStep {
    kAhead,   // the new segment goes forward: look for collisions
    kFinish,  // it runs back over the previous edge and closes the walk
    kIgnore,  // it runs back without closing: the vertex is passed over
};

// The running state of the offset walk over an open chain: the corner C on the line of the
// previous edge, that edge's backward direction B and its offset direction D, and the result.
class OffsetWalk {
public:
    OffsetWalk(RvPolygon2D& poly, const RvPoint3D& normal, double distance, Finder find)
        : m_begin(poly.begin()),
          m_end(poly.end()),
          m_last(poly.end() - 1),
          m_normal(normal),
          m_distance(distance),
          m_find(find) {}

    // Walks the chain; nothing when every edge before the last vertex is null.
    RvPolygon2D Run() {
        Iter v = FirstEdgeEnd();
        if (v >= m_last) {
            return RvPolygon2D();
        }
        Start(v);
        // Every pass moves `v` on by one at least: a jump lands on `found` - 2, never behind `v`.
        for (; v < m_last; ++v) {
            if (Treat(v)) {
                return m_result;
            }
        }
        Close();
        return m_result;
    }

private:
    // The second vertex, or the first after it whose backward vector is not null; the last
    // vertex if every edge before it is null.
    Iter FirstEdgeEnd() const {
        Iter v = m_begin + 1;
        while (v < m_last && (Xyz(*(v - 1)) - Xyz(*v)).IsNull()) {
            ++v;
        }
        return v;
    }

    // The first vertex stays as it is; its offset along the first edge's normal follows unless
    // that short segment already runs into a later edge, in which case the walk resumes there.
    void Start(Iter& v) {
        m_c = Xyz(*v);
        m_b = Xyz(*(v - 1)) - Xyz(*v);
        m_b.Normalize();
        m_d = m_normal.GetVektorovySucin(m_b);
        m_result.push_backA(*m_begin);
        const RvPoint3D p = Xyz(*m_begin) + m_d * m_distance;
        const Iter found = m_find(LastOf(m_result), p, m_distance, m_normal, v + 1, m_last);
        if (found == m_last) {
            m_result.push_backA(RvPoint2D(p));
        } else {
            v = found;
        }
    }

    // Offsets the corner at `v`. True when the walk is over.
    bool Treat(Iter& v) {
        RvPoint3D a = Xyz(*(v + 1)) - Xyz(*v);
        if (a.IsNull() || std::fabs(a * m_d) <= 1e-10) {
            return false;  // collinear vertices are passed over with B, C and D unchanged
        }
        a.Normalize();
        m_c = Xyz(*v) + a * (((m_c - Xyz(*v)) * m_d) / (a * m_d));
        RvPoint3D p = RvPoint3D::DajBodNaOsiUhla(m_c, a, m_b, m_distance, m_normal);
        switch (CheckBackward(p, a)) {
            case BackStep::kFinish:
                m_result.pop_back();
                return true;
            case BackStep::kIgnore:
                return false;
            case BackStep::kAhead:
                break;
        }
        if (m_end - v > 2) {
            if (JumpOverCollision(v, p, a)) {
                return false;
            }
            m_result.AddPolygonPoint(RvPoint2D(p));
        } else if (!HitsChain(p)) {
            m_result.AddPolygonPoint(RvPoint2D(p));
        }
        m_b = a * -1.0;
        m_d = m_normal.GetVektorovySucin(m_b);
        m_d.Normalize();
        return false;
    }

    // At the vertex before the last, the new segment to `p` is searched against the whole chain;
    // a hit only keeps `p` out of the result.
    bool HitsChain(const RvPoint3D& p) const {
        return m_find(LastOf(m_result), p, m_distance, m_normal, m_begin + 1, m_end) != m_end;
    }

    // Whether the segment from the result's last vertex to `p` runs back along the previous
    // edge, and if so whether it crosses the line of the next edge (direction `a`) through C
    // within its length, which ends the walk.
    BackStep CheckBackward(const RvPoint3D& p, const RvPoint3D& a) const {
        const RvPoint3D l = LastOf(m_result);
        if (!((p - l) * m_b > 1e-08)) {
            return BackStep::kAhead;
        }
        const RvPoint3D m = m_normal.GetVektorovySucin(a);
        const RvPoint3D z = p - l;
        const double zm = z * m;
        if (std::fabs(zm) > 1e-09) {
            const double s = ((m_c - l) * m) / zm;
            if (-1e-07 < s && s < 1.00000001) {
                return BackStep::kFinish;
            }
        }
        return BackStep::kIgnore;
    }

    // Looks for a later edge that the new segment to `p` meets. A near edge moves `v` so that
    // the walk resumes at the vertex before it; a true crossing first halves `p` towards the
    // corner and searches again. True when `v` has moved.
    bool JumpOverCollision(Iter& v, RvPoint3D& p, const RvPoint3D& a) {
        Iter found = m_find(LastOf(m_result), p, m_distance, m_normal, v + 2, m_end);
        if (found == m_end) {
            return false;
        }
        if (RvPolygon2D::m_nOffsetCrossing == 1) {
            const RvPoint3D m2 = m_normal.GetVektorovySucin(Xyz(*(found - 1)) - Xyz(*found));
            // Only the failure matters: a bisector parallel to the crossed edge raises it, and
            // it goes to the caller. The point itself is not used.
            static_cast<void>(RvPoint3D::DajPriesecnik(m_c, a + m_b, Xyz(*found), m2));
            // The midpoint of the corner and its offset, deliberately, not the intersection.
            p = (m_c + p) * 0.5;
            found = m_find(LastOf(m_result), p, m_distance, m_normal, v + 2, m_end);
            if (found == m_end) {
                return false;
            }
        }
        // `found` is v + 2 or later, so `found` - 2 never falls behind `v` (nor before the first
        // vertex); the bound only states that. The loop's advance then brings `v` to `found` - 1.
        v = std::max(v, found - 2);
        return true;
    }

    // The last vertex shifted along the last normal ends the result unless it runs into an
    // earlier edge.
    void Close() {
        const RvPoint3D p = Xyz(*m_last) + m_d * m_distance;
        if (m_find(LastOf(m_result), p, m_distance, m_normal, m_begin + 1, m_last) == m_last) {
            m_result.push_backA(RvPoint2D(p));
        }
    }

    const Iter m_begin;
    const Iter m_end;
    const Iter m_last;
    const RvPoint3D m_normal;
    const double m_distance;
    const Finder m_find;
    RvPoint3D m_b;
    RvPoint3D m_c;
    RvPoint3D m_d;
    RvPolygon2D m_result;
};

// ---- The backward-trimming walk of GetExtendXX -----------------------------------------------

// One offset edge of the closed ring: S to E along the line of normal D; B runs back along the
// edge from its end vertex.
struct OffsetEdge {
    RvPoint3D b;
    RvPoint3D d;
    RvPoint3D s;
    RvPoint3D e;
};

OffsetEdge MakeOffsetEdge(const RvPoint3D& prev, const RvPoint3D& cur, const RvPoint3D& normal,
                          double distance) {
    OffsetEdge edge;
    // A null edge is not tested: Normalize leaves it as it is and reports it once.
    edge.b = prev - cur;
    edge.b.Normalize();
    edge.d = normal.GetVektorovySucin(edge.b);
    edge.d.Normalize();
    edge.s = prev + edge.d * distance;
    edge.e = cur + edge.d * distance;
    return edge;
}

// The unit direction from vertex `from` to vertex `to` of `r`.
RvPoint3D UnitBetween(const RvPolygon2D& r, std::size_t from, std::size_t to) {
    RvPoint3D v = Xyz(r[to]) - Xyz(r[from]);
    v.Normalize();
    return v;
}

// How the walk back ended.
enum class TrimEnd {
    kAppend,  // the last vertex was trimmed: E follows
    kClose,   // the last vertex was trimmed at the last edge: the start is trimmed next
    kDone,    // nothing more for this edge
};

// Trims the result's last vertex to the new offset line, going back over parallel segments and
// removing vertices that the line leaves behind.
TrimEnd WalkBack(RvPolygon2D& r, const OffsetEdge& edge, double distance, bool lastEdge) {
    std::size_t w = r.size() - 1;
    while (w > 0) {
        --w;
        const RvPoint3D v = UnitBetween(r, w, r.size() - 1);
        const double vd = v * edge.d;
        if (std::fabs(vd) <= 1e-06) {
            continue;  // parallel segments are passed over
        }
        const double t = ((edge.e - Xyz(r[w])) * edge.d) / vd;
        const RvPoint3D hit = Xyz(r[w]) + v * t;
        if (!(t > -1e-08)) {
            // The lines meet behind `w`.
            const double g = (hit - edge.e) * edge.b;
            if (g * distance > 0) {
                r[r.size() - 1] = RvPoint2D(hit);
                return TrimEnd::kDone;
            }
            r.pop_back();
            w = r.size() - 1;
            continue;
        }
        if (!((hit - edge.e) * edge.b > 0)) {
            return TrimEnd::kDone;  // the edge is discarded
        }
        r[r.size() - 1] = RvPoint2D(hit);
        return lastEdge ? TrimEnd::kClose : TrimEnd::kAppend;
    }
    return TrimEnd::kDone;
}

// At the last edge: trims the result's first vertex to the last offset line, removing the first
// vertices that lie behind it. Every pass moves on or removes one vertex, so it ends.
void TrimStart(RvPolygon2D& r, const OffsetEdge& edge) {
    if (r.size() == 1) {
        return;
    }
    std::size_t u = 0;
    do {
        ++u;
        const RvPoint3D v = UnitBetween(r, u, 0);
        const Number vd = v * edge.d;
        if (vd == 0) {
            return;
        }
        const double t = ((edge.e - Xyz(r[u])) * edge.d) / vd;
        if (t > -1e-08) {
            const RvPoint3D hit = Xyz(r[u]) + v * t;
            if ((hit - edge.s) * edge.b < 0) {
                r[0] = RvPoint2D(hit);
                return;
            }
        } else {
            r.erase(r.begin());
            u = 0;
        }
    } while (u + 1 < r.size());
}

// Adds one offset edge to the result.
void AddOffsetEdge(RvPolygon2D& r, const OffsetEdge& edge, double distance, bool lastEdge) {
    if (r.empty()) {
        r.push_backA(RvPoint2D(edge.s));
        r.push_backA(RvPoint2D(edge.e));
    } else {
        switch (WalkBack(r, edge, distance, lastEdge)) {
            case TrimEnd::kAppend:
                r.push_backA(RvPoint2D(edge.e));
                break;
            case TrimEnd::kClose:
                TrimStart(r, edge);
                break;
            case TrimEnd::kDone:
                break;
        }
    }
    // A lone vertex is dropped, so that the next edge starts afresh.
    if (r.size() == 1) {
        r.pop_back();
    }
}

}  // namespace

RvPolygon2D::iterator RvPolygon2D::FindOffsetCollision(const RvPoint3D& from, const RvPoint3D& to,
                                                       double distance, const RvPoint3D& normal,
                                                       iterator first, iterator last) {
    m_nOffsetCrossing = 0;
    const RvPoint3D s = AcrossSegment(from, to, normal);
    // Each vertex stands for the edge that ends at it; the callers never start the range at the
    // first vertex, so the vertex before `cur` exists. A range given backwards is empty.
    for (iterator cur = first; cur < last; ++cur) {
        const RvPoint3D c = Xyz(*cur);
        const RvPoint3D w = Xyz(*(cur - 1)) - c;
        if (w.IsNull()) {
            continue;
        }
        if (CrossesSegment(from, to, s, c, w)) {
            m_nOffsetCrossing = 1;
            return cur;
        }
        if (TooNearEdge(to, distance, normal, c, w, cur + 1 == last)) {
            return cur;
        }
    }
    return last;
}

RvPolygon2D RvPolygon2D::GetOffset(double distance) {
    if (size() < 3) {
        return RvPolygon2D();
    }
    const RvPoint3D normal = GetNormalVector();
    if (normal.GetSize() < 1e-05) {
        return RvPolygon2D();
    }
    return OffsetWalk(*this, normal, distance, &RvPolygon2D::FindOffsetCollision).Run();
}

RvPolygon2D RvPolygon2D::GetExtendXX(double distance) {
    RvPolygon2D result;
    const std::size_t n = size();
    if (n < 3) {
        return result;
    }
    const RvPoint3D normal = GetNormalVector();
    if (normal.GetSize() < 1e-05) {
        return result;
    }
    RvPoint3D prev = Xyz((*this)[n - 1]);
    for (std::size_t i = 0; i < n; ++i) {
        const RvPoint3D cur = Xyz((*this)[i]);
        AddOffsetEdge(result, MakeOffsetEdge(prev, cur, normal, distance), distance, i + 1 == n);
        prev = cur;
    }
    return result;
}

}  // namespace ravelin
