#include <cmath>
#include <cstddef>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/platform/CheckedVector.h"
#include "ravelin/polygon/RvInterPoint.h"

namespace ravelin {

namespace {

// Twice the signed area of the triangle of `p` and the edge taken from its lower end `lo` to
// its upper end `hi`: positive when `p` lies to the left of the edge.
double SideOfEdge(const RvPoint2D& lo, const RvPoint2D& hi, const RvPoint2D& p) {
    return (hi.x2D - lo.x2D) * (p.y2D - lo.y2D) - (p.x2D - lo.x2D) * (hi.y2D - lo.y2D);
}

}  // namespace

int RvDrawEntity::CountHalfLineCrossings(const RvPoint2D& p, const_iterator first,
                                         const_iterator last, bool close) const {
    if (empty() || first == last) {
        return 0;
    }
    int count = 0;
    for (const_iterator it = first; it + 1 != last; ++it) {
        const RvPoint2D& a = *it;
        const RvPoint2D& b = *(it + 1);
        // The edge spans its lower end and not its upper one.
        const NumberInterval span(a.y2D, b.y2D);
        if (span.IsOutsideOrOnEnd(p.y2D) && !(Number(p.y2D) == span.low)) {
            continue;
        }
        const double c = b.y2D > a.y2D ? SideOfEdge(a, b, p) : SideOfEdge(b, a, p);
        if (Number(c) == 0 && p.IsOnSegment2D(a, b)) {
            return 0;
        }
        if (Number(c) < 0) {
            ++count;
        }
    }
    const RvPoint2D& a = *first;
    const RvPoint2D& b = *(last - 1);
    if (!close || a == b) {
        return count;
    }
    const NumberInterval span(b.y2D, a.y2D);
    if (!span.IsStrictlyInside(p.y2D) && !(Number(p.y2D) == span.low)) {
        return count;
    }
    const double c = a.y2D > b.y2D ? SideOfEdge(b, a, p) : SideOfEdge(a, b, p);
    // On the closing edge's line within its span counts as on the edge, without the segment
    // test the other edges get.
    if (Number(c) == 0) {
        return 0;
    }
    if (Number(c) < 0) {
        ++count;
    }
    return count;
}

bool RvDrawEntity::Intersection2D_HalfLineSegmentBreak(RvPoint2D o, RvPoint2D d, int i,
                                                       _RvInterPoint& out) {
    int k = i - 1;
    ValidateIndex(k);
    const RvPoint2D& v = CheckedAt(*this, i);
    // The segment is walked backwards, from vertex `i` to the vertex before it.
    const RvPoint2D s = CheckedAt(*this, k) - v;
    const double den = d.x2D * s.y2D - d.y2D * s.x2D;
    if (!(std::fabs(den) > 1e-06)) {
        return false;
    }
    const double t = (s.x2D * (o.y2D - v.y2D) - s.y2D * (o.x2D - v.x2D)) / den;
    if (!(t > 1e-06)) {
        return false;
    }
    // The abscissa of vertex `i` is read from its position in space here; the two agree for
    // the points this is used on.
    const double u = -(d.x2D * (v.y2D - o.y2D) - d.y2D * (v.x - o.x2D)) / den;
    if (!(-1e-06 < u && u < 1.000001)) {
        return false;
    }
    const RvPoint2D hit = v + s * u;
    static_cast<RvPoint2D&>(out) = hit;
    out.m_nEdge = i;
    return true;
}

void RvDrawEntity::AddPolygonPoints(const _RvInterPoint& a, const _RvInterPoint& b,
                                    RvDrawEntity& src) {
    AddPolygonPoint(a);
    // An edge of `b` that the walk never meets ends it after one round.
    int i = a.m_nEdge;
    for (std::size_t walked = 0; i != b.m_nEdge && walked < src.size(); ++walked) {
        push_backA(CheckedAt(src, i));
        ++i;
        src.ValidateIndex(i);
    }
    AddPolygonPoint(b);
}

void RvDrawEntity::AddPolygonPointsBackward(const _RvInterPoint& a, const _RvInterPoint& b,
                                            RvDrawEntity& src) {
    AddPolygonPoint(a);
    int i = a.m_nEdge - 1;
    int e = b.m_nEdge - 1;
    src.ValidateIndex(i);
    src.ValidateIndex(e);
    for (std::size_t walked = 0; i != e && walked < src.size(); ++walked) {
        push_backA(CheckedAt(src, i));
        --i;
        src.ValidateIndex(i);
    }
    AddPolygonPoint(b);
}

}  // namespace ravelin
