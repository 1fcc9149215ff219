#include <algorithm>
#include <cmath>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/skeleton/RvSkeleton.h"

namespace ravelin {

namespace {

// The id of a line's upper vertex; -1 for a missing line or vertex.
int HigherId(const SkeletonLine* line) {
    if (line == nullptr || line->higher.vertex == nullptr) {
        return -1;
    }
    return line->higher.vertex->id;
}

// Whether the walk goes on forward from `line`: its upper vertex differs from that of the arc
// beside it there.
bool ContinuesForward(const SkeletonLine& line) {
    return HigherId(&line) != HigherId(line.higher.left);
}

RvPoint2D VertexAt(const Point& p, double z) {
    return RvPoint2D(RvPoint3D(p.x, p.y, z));
}

}  // namespace

// The point at height -h on the lower vertex's bisector, if it lies on this arc. A negative
// offset thus runs inwards. A point exactly at the upper end belongs to the arcs above. From a
// contour vertex there is no lower bound, so a positive offset grows the polygon with mitred
// corners.
void RvSkeleton::ComputeExtendPoint(SkeletonLine& line, double h) {
    const SkeletonVertex* b = line.lower.vertex;
    const SkeletonVertex* t = line.higher.vertex;
    if (b == nullptr || t == nullptr) {
        return;
    }
    const double d = DistanceToRay(b->bisector.origin, b->prevEdge);
    const double s = (-h - d) / std::sin(b->bisector.angle - b->prevEdge.angle);
    const Point p{b->bisector.origin.x + std::cos(b->bisector.angle) * s,
                  b->bisector.origin.y + std::sin(b->bisector.angle) * s};
    if (!PointOnRay(p, SkeletonRay(t->point, b->point))) {
        return;  // beyond the arc
    }
    if (p == t->bisector.origin) {
        return;
    }
    const bool contourVertex = b->leftParent == b && b->rightParent == b;
    if (contourVertex || PointOnRay(p, b->bisector)) {
        line.extendPoint = p;
    }
}

// From `line`, the next arc along the offset ring that carries a point, turning back at an upper
// vertex shared with the next arc. Null when the walk runs out of arcs. The bound only guards
// the walk: a ring of arcs with no point on it would otherwise be walked for ever.
SkeletonLine* RvSkeleton::NextFiniteLine(SkeletonLine* line, bool& forward) const {
    if (line == nullptr) {
        return nullptr;
    }
    if (!IsInfinite(line->extendPoint)) {
        return line;
    }
    SkeletonLine* cur = line;
    for (std::size_t steps = 0; steps <= 2 * size(); ++steps) {
        SkeletonLine* next = forward ? cur->higher.left : cur->lower.left;
        if (forward) {
            if (next == nullptr) {
                return nullptr;
            }
            if (HigherId(next) == HigherId(cur)) {
                forward = false;
            }
        }
        if (!forward && next == nullptr) {
            forward = true;
            next = cur->higher.left;
            if (next == nullptr) {
                return nullptr;
            }
        }
        cur = next;
        if (!IsInfinite(cur->extendPoint)) {
            return cur;
        }
    }
    return nullptr;
}

bool RvSkeleton::GetExtendPolygons(double offset, double z, std::vector<RvPolygon2D>& result) {
    for (SkeletonLine& line : *this) {
        ComputeExtendPoint(line, offset);
    }
    const auto carriesPoint = [](const SkeletonLine& line) {
        return !IsInfinite(line.extendPoint);
    };
    auto it = std::find_if(begin(), end(), carriesPoint);
    while (it != end()) {
        bool forward = true;
        SkeletonLine* first = NextFiniteLine(&*it, forward);
        forward = ContinuesForward(*first);
        RvPolygon2D& ring = result.emplace_back();
        ring.AddPolygonPoint(VertexAt(first->extendPoint, z));
        // A line closing a two-vertex ring may have no arc beside its upper end: the walk ends
        // there.
        SkeletonLine* cur = first->higher.left;
        for (;;) {
            SkeletonLine* c = NextFiniteLine(cur, forward);
            if (c == nullptr || c == first) {
                break;
            }
            ring.AddPolygonPoint(VertexAt(c->extendPoint, z));
            forward = ContinuesForward(*c);
            cur = c->higher.left;
            c->extendPoint = InfinitePoint();
        }
        first->extendPoint = InfinitePoint();
        if (ring.empty()) {
            result.pop_back();
        } else {
            ring.Reverse();  // the ring runs against the walk
        }
        it = std::find_if(it, end(), carriesPoint);
    }
    return true;
}

bool RvSkeleton::GetSkeletonPolygons(double z, std::vector<RvPolyLine2D>& result) {
    for (const SkeletonLine& line : *this) {
        RvPolyLine2D& path = result.emplace_back();
        path.push_back(VertexAt(line.lower.vertex->point, z));
        path.push_back(VertexAt(line.higher.vertex->point, z));
    }
    return true;
}

// ---- The polygon's own skeleton -------------------------------------------------------------

// The skeleton shrinks clockwise contours, so a counterclockwise polygon is reversed in place
// first: its point order changes for every later user. The skeleton is made once and served
// again even if the points change afterwards.
RvSkeleton* RvPolygon2D::GetSkelet() {
    if (m_pSkeleton != nullptr) {
        return m_pSkeleton;
    }
    if (GetOrientation() > 0) {
        Reverse();
    }
    m_pSkeleton = new RvSkeleton(*this);
    return m_pSkeleton;
}

void RvPolygon2D::GetExtendSKELET(double offset, std::vector<RvPolygon2D>& result) {
    if (empty()) {
        return;
    }
    const double z = (*this)[0].z;
    GetSkelet()->GetExtendPolygons(offset, z, result);
}

}  // namespace ravelin
