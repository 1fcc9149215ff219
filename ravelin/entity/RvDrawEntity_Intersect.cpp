#include <cmath>
#include <cstddef>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

namespace {

// The parameters where the segment from `p` with vector `s` meets the line from `a` with vector
// `d`, on the planar pair: `t` on the other object (0 at `a`, 1 at `a + d`) and `u` on the
// segment (0 at `p`, 1 at `p + s`). False when the two are parallel, collinear overlap included.
bool CrossingParameters(const RvPoint2D& p, const RvPoint2D& s, const RvPoint2D& a,
                        const RvPoint2D& d, double& t, double& u) {
    const double den = d.x2D * s.y2D - d.y2D * s.x2D;
    if (!(std::fabs(den) > 1e-06)) {
        return false;
    }
    t = (s.y2D * (p.x2D - a.x2D) - s.x2D * (p.y2D - a.y2D)) / den;
    u = -((a.x2D - p.x2D) * d.y2D - (a.y2D - p.y2D) * d.x2D) / den;
    return true;
}

// The parameter range accepted on a segment, ends widened by 1e-06.
bool WithinSegment(double v) {
    return -1e-06 < v && v < 1.000001;
}

bool AnyT(double) {
    return true;
}

// Walks the open chain of `e` against the line from `a` with vector `d`. For each segment
// crossed within its ends, with `t` accepted by `acceptT`, calls `onHit(p, q, s, u)` with the
// segment's start `p`, end `q` and vector `s`; the walk stops when `onHit` returns false.
template <class AcceptT, class OnHit>
void WalkOpenChain(const RvDrawEntity& e, const RvPoint2D& a, const RvPoint2D& d, AcceptT acceptT,
                   OnHit onHit) {
    for (std::size_t k = 0; k + 1 < e.size(); ++k) {
        const RvPoint2D& p = e[k];
        const RvPoint2D& q = e[k + 1];
        const RvPoint2D s = q - p;
        double t = 0;
        double u = 0;
        if (CrossingParameters(p, s, a, d, t, u) && WithinSegment(u) && acceptT(t) &&
            !onHit(p, q, s, u)) {
            return;
        }
    }
}

// Appends every crossing of the open chain of `e` with the line from `a` with vector `d` whose
// `t` `acceptT` accepts, as the point of the chain's segment.
template <class AcceptT>
bool CollectCrossings(const RvDrawEntity& e, const RvPoint2D& a, const RvPoint2D& d,
                      AcceptT acceptT, std::vector<RvPoint2D>& out) {
    bool found = false;
    WalkOpenChain(e, a, d, acceptT,
                  [&](const RvPoint2D& p, const RvPoint2D&, const RvPoint2D& s, double u) {
                      out.push_back(p + s * u);
                      found = true;
                      return true;
                  });
    return found;
}

}  // namespace

bool RvDrawEntity::TestIntersectLine2D(RvPoint2D& a, RvPoint2D& d, bool skipEnds) const {
    bool found = false;
    WalkOpenChain(*this, a, d, AnyT,
                  [&](const RvPoint2D& p, const RvPoint2D& q, const RvPoint2D& s, double u) {
                      // With `skipEnds`, a hit on either end vertex of the segment does not count.
                      const RvPoint2D f = p + s * u;
                      found = !skipEnds || (!(f == p) && !(f == q));
                      return !found;
                  });
    return found;
}

bool RvDrawEntity::TestIntersectSegment2D(const RvPoint2D& a, const RvPoint2D& b) const {
    bool found = false;
    WalkOpenChain(*this, a, b - a, WithinSegment,
                  [&found](const RvPoint2D&, const RvPoint2D&, const RvPoint2D&, double) {
                      found = true;
                      return false;
                  });
    return found;
}

bool RvDrawEntity::IntersectSegment2D(const RvPoint2D& a, const RvPoint2D& b, RvPoint2D& out,
                                      unsigned int i, bool withEnds) const {
    const std::size_t n = size();
    if (static_cast<std::size_t>(i) + 1 > n) {
        return false;
    }
    const RvPoint2D& p = (*this)[i];
    const RvPoint2D& q = (*this)[i + 1 == n ? 0 : i + 1];
    // Cheap rejection: both vertices beyond the box of `a`, `b` grown by 0.1 on one side.
    const double loX = std::fmin(a.x2D, b.x2D) - 0.1;
    const double hiX = std::fmax(a.x2D, b.x2D) + 0.1;
    const double loY = std::fmin(a.y2D, b.y2D) - 0.1;
    const double hiY = std::fmax(a.y2D, b.y2D) + 0.1;
    if ((p.x2D > hiX && q.x2D > hiX) || (p.x2D < loX && q.x2D < loX) ||
        (p.y2D > hiY && q.y2D > hiY) || (p.y2D < loY && q.y2D < loY)) {
        return false;
    }
    const RvPoint2D s = q - p;
    const RvPoint2D d = b - a;
    double t = 0;
    double u = 0;
    if (!CrossingParameters(p, s, a, d, t, u) || !WithinSegment(u) || !WithinSegment(t)) {
        return false;
    }
    out = a + d * t;
    if (withEnds) {
        return true;
    }
    return !out.IsEqual2D(a, 0.01) && !out.IsEqual2D(b, 0.01) && !out.IsEqual2D(p, 0.01) &&
           !out.IsEqual2D(q, 0.01);
}

bool RvDrawEntity::IntersectSegment2D(const RvPoint2D& a, const RvPoint2D& b,
                                      std::vector<RvPoint2D>& out) const {
    return CollectCrossings(*this, a, b - a, WithinSegment, out);
}

bool RvDrawEntity::IntersectLine2D(const RvPoint2D& a, const RvPoint2D& d,
                                   std::vector<RvPoint2D>& out) {
    return CollectCrossings(*this, a, d, AnyT, out);
}

bool RvDrawEntity::IntersectLine2D(RvDrawEntity& e, RvPoint2D& out, int i, int j) {
    // Both indices are bounded, and wrapped, by this entity's count, `j` too.
    const int last = static_cast<int>(size()) - 1;
    if (i > last || j > last) {
        return false;
    }
    const int i1 = i == last ? 0 : i + 1;
    const int j1 = j == last ? 0 : j + 1;
    const RvPoint2D& p = CheckedAt(*this, i);
    const RvPoint2D s = CheckedAt(*this, i1) - p;
    const RvPoint2D& q = CheckedAt(e, j);
    const RvPoint2D t2 = CheckedAt(e, j1) - q;
    const double den = t2.x2D * s.y2D - t2.y2D * s.x2D;
    if (!(std::fabs(den) > 1e-06)) {
        return false;
    }
    const double w = ((q.y2D - p.y2D) * s.x2D - (q.x2D - p.x2D) * s.y2D) / den;
    out = q + t2 * w;
    return true;
}

bool RvDrawEntity::Intersection2D_HalfLine(const RvPoint2D& o, RvPoint2D d,
                                           std::vector<RvPoint2D>& out) {
    return CollectCrossings(
        *this, o, d, [](double t) { return -1e-06 < t; }, out);
}

bool RvDrawEntity::Intersect(RvDrawEntity& e, std::vector<RvPoint2D>& out, bool inner) {
    if (e.empty()) {
        ThrowInvalidSubscript();
    }
    // `inner` narrows both ranges by 2e-06 at each end, to the interiors of both segments.
    const double shift = inner ? 2e-06 : 0.0;
    const double lo = shift - 1e-06;
    const double hi = 1.000001 - shift;
    const auto within = [lo, hi](double v) { return lo < v && v < hi; };
    bool found = false;
    for (std::size_t m = 0; m + 1 < e.size(); ++m) {
        const RvPoint2D& a = e[m];
        const RvPoint2D d = e[m + 1] - a;
        for (std::size_t k = 0; k + 1 < size(); ++k) {
            const RvPoint2D& p = (*this)[k];
            const RvPoint2D s = (*this)[k + 1] - p;
            double t = 0;
            double u = 0;
            if (CrossingParameters(p, s, a, d, t, u) && within(u) && within(t)) {
                out.push_back(a + d * t);
                found = true;
            }
        }
    }
    return found;
}

}  // namespace ravelin
