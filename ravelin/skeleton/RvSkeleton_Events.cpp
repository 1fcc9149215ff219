#include <cmath>
#include <utility>

#include "ravelin/numeric/Number.h"
#include "ravelin/skeleton/RvSkeleton.h"

namespace ravelin {

namespace {

// Where the bisectors of `v` and its neighbour `n` meet. Two bisectors that face each other on
// one line are not an event, although the rays meet halfway.
Point MeetingWithNeighbour(const SkeletonVertex& v, const SkeletonVertex& n) {
    if (PointOnRay(v.bisector.origin, n.bisector) && PointOnRay(n.bisector.origin, v.bisector) &&
        v.bisector.origin != n.bisector.origin) {
        return InfinitePoint();
    }
    return IntersectRays(v.bisector, n.bisector);
}

}  // namespace

// ---- The event of a vertex -------------------------------------------------------------------

SkeletonEvent::SkeletonEvent(RvSkeleton& s, SkeletonVertex& v)
    : point(InfinitePoint()),
      leftVertex(&v),
      rightVertex(&v),
      height(SKELETON_INFINITY),
      kind(SplitEvent) {
    SkeletonVertex* l = v.prevVertex;
    SkeletonVertex* r = v.nextVertex;
    if (l == nullptr || r == nullptr) {
        return;  // not on a ring: no event
    }
    const Point i1 = MeetingWithNeighbour(v, *l);
    const Point i2 = MeetingWithNeighbour(v, *r);
    const double d1 = PointDistance(v.point, i1);
    const double d2 = PointDistance(v.point, i2);
    double d3 = SKELETON_INFINITY;
    Point p{0.0, 0.0};
    SkeletonVertex* splitLeft = nullptr;
    SkeletonVertex* splitRight = nullptr;
    // A reflex vertex whose two edges still meet at it can split an opposite edge.
    if (Number(NormalizedAngle(v.prevEdge.angle - v.nextEdge.angle)) > 0) {
        const Point q = IntersectRays(v.prevEdge, v.nextEdge);
        if (q == v.point || IsInfinite(q)) {
            d3 = s.FindSplitEvent(v, splitLeft, splitRight, p);
        }
    }
    // The lengths along the bisector and the split height are compared as they stand. Ties go
    // to the previous neighbour, then the next one.
    if (Number(d1) <= d2 && Number(d1) <= d3) {
        leftVertex = l;
        rightVertex = &v;
        point = i1;
        kind = EdgeEvent;
        height = DistanceToRay(i1, v.prevEdge);
    } else if (Number(d2) <= d1 && Number(d2) <= d3) {
        leftVertex = &v;
        rightVertex = r;
        point = i2;
        kind = EdgeEvent;
        height = DistanceToRay(i2, v.nextEdge);
    } else if (Number(d3) <= d1 && Number(d3) <= d2) {
        point = p;
        height = d3;
    }
    if (IsInfinite(point)) {
        height = SKELETON_INFINITY;
    }
    if (kind == SplitEvent && s.IsSplitBlocked(v, *this)) {
        height = SKELETON_INFINITY;
    }
}

// ---- Split events -------------------------------------------------------------------------

// The nearest active edge that the bisector of `v` can hit, by the distance from `v` to the
// candidate point; the first of equals stays. Returns the height of the split point.
double RvSkeleton::FindSplitEvent(SkeletonVertex& v, SkeletonVertex*& left, SkeletonVertex*& right,
                                  Point& point) {
    double best = SKELETON_INFINITY;
    SkeletonVertex* candidate = nullptr;
    for (SkeletonVertex& e : m_vertices) {
        if (e.done || e.nextVertex == nullptr || e.prevVertex == nullptr || &e == &v ||
            e.nextVertex == &v) {
            continue;
        }
        const Point c = TestSplitCandidate(v, e, *e.nextVertex);
        if (IsInfinite(c)) {
            continue;
        }
        const double d = PointDistance(c, v.point);
        if (Number(d) < best) {
            best = d;
            candidate = &e;
        }
    }
    if (candidate == nullptr || Number(best) == SKELETON_INFINITY) {
        return SKELETON_INFINITY;
    }
    point = ComputeSplitPoint(v, *candidate, *candidate->nextVertex);
    left = candidate;
    right = candidate->nextVertex;
    return DistanceToRay(point, v.prevEdge);
}

// Whether `v` can hit the edge from `left` to `right`: the split point must lie in the region
// bounded by the edge and the bisectors at its two ends, the bounds included through the band.
Point RvSkeleton::TestSplitCandidate(const SkeletonVertex& v, const SkeletonVertex& left,
                                     const SkeletonVertex& right) {
    const Point p1 = IntersectRays(v.bisector, left.nextEdge);
    const Point p2 = IntersectRays(v.bisector, right.prevEdge);
    if (IsInfinite(p1) && IsInfinite(p2)) {
        return InfinitePoint();
    }
    const Point meet = ComputeSplitPoint(v, left, right);
    const double al = NormalizedAngle(left.bisector.angle - left.nextEdge.angle);
    const double ar = NormalizedAngle(right.bisector.angle - right.prevEdge.angle);
    const double alp = NormalizedAngle(SkeletonRay(left.point, meet).angle - left.nextEdge.angle);
    const double arp = NormalizedAngle(SkeletonRay(right.point, meet).angle - right.prevEdge.angle);
    if ((Number(alp) > 0 || Number(alp) < al) && !(Number(alp) == 0) && !(Number(alp) == al)) {
        return InfinitePoint();
    }
    if ((Number(arp) < 0 || Number(arp) > ar) && !(Number(arp) == 0) && !(Number(arp) == ar)) {
        return InfinitePoint();
    }
    return meet;
}

// The incentre of the triangle made by the lines of the two edges of `v` and of the edge from
// `left` to `right`; halfway to that edge when it runs parallel to one of `v`'s edges.
Point RvSkeleton::ComputeSplitPoint(const SkeletonVertex& v, const SkeletonVertex& left,
                                    const SkeletonVertex& right) {
    const Point p1 = IntersectLines(v.nextEdge, right.prevEdge);
    const Point p2 = IntersectLines(v.prevEdge, left.nextEdge);
    if (IsInfinite(p1) || IsInfinite(p2)) {
        return Midpoint(v.point, IntersectLines(left.nextEdge, v.bisector));
    }
    // The edge's line is met on the wrong side.
    if (PointOnRay(p1, v.nextEdge) || PointOnRay(p2, v.prevEdge)) {
        return InfinitePoint();
    }
    return IntersectLines(BisectorRay(p1, p2, v.point), v.bisector);
}

// Whether another active vertex meets the bisector of `v` below the event, at a height that
// `v` reaches first or together with it; the band is counted twice on that side.
bool RvSkeleton::IsSplitBlocked(const SkeletonVertex& v, const SkeletonEvent& event) const {
    for (const SkeletonVertex& e : m_vertices) {
        if (e.done || e.nextVertex == nullptr || e.prevVertex == nullptr) {
            continue;
        }
        const Point meet = IntersectRays(v.bisector, e.bisector);
        if (IsInfinite(meet) || &e == event.leftVertex || &e == event.rightVertex) {
            continue;
        }
        const double h1 = DistanceToRay(meet, v.prevEdge);
        if (!(Number(h1) < event.height)) {
            continue;
        }
        const double h2 = DistanceToRay(meet, e.prevEdge);
        if (!(Number(h2) > h1 + 5e-07)) {
            return true;
        }
    }
    return false;
}

// ---- The event loop ------------------------------------------------------------------------

// Events are validated when they are popped: one whose vertices are both consumed is dropped,
// one with a single consumed vertex is replaced by a fresh event of the other.
void RvSkeleton::RunEvents() {
    while (!m_events.empty()) {
        const SkeletonEvent e = m_events.top();
        m_events.pop();
        SkeletonVertex& l = *e.leftVertex;
        SkeletonVertex& r = *e.rightVertex;
        if (l.done && r.done) {
            continue;
        }
        if (l.done != r.done) {
            SkeletonVertex& w = l.done ? r : l;
            const SkeletonEvent fresh(*this, w);
            // An event that names a consumed vertex again could never be applied; it would come
            // back for ever.
            if (!fresh.leftVertex->done && !fresh.rightVertex->done) {
                m_events.push(fresh);
            }
            continue;
        }
        if (e.kind == SkeletonEvent::EdgeEvent) {
            if (l.prevVertex->prevVertex == &r || r.nextVertex->nextVertex == &l) {
                ApplyClosingEvent(e);
            } else {
                ApplyEdgeEvent(e);
            }
        } else {
            ApplySplitEvent(e);
        }
    }
}

// Two neighbours meet: a new vertex replaces both, and an arc rises from each to it.
void RvSkeleton::ApplyEdgeEvent(const SkeletonEvent& e) {
    SkeletonVertex& l = *e.leftVertex;
    SkeletonVertex& r = *e.rightVertex;
    SkeletonVertex made(e.point, l, r);
    made.prevVertex = l.prevVertex;
    made.nextVertex = r.nextVertex;
    SkeletonVertex& n = Store(made);
    l.prevVertex->nextVertex = &n;
    r.nextVertex->prevVertex = &n;
    l.successor = &n;
    r.successor = &n;
    l.done = true;
    r.done = true;
    PushIfFinite(SkeletonEvent(*this, n));

    SkeletonLine& a = PushLine(&l, &n);
    SkeletonLine& b = PushLine(&r, &n);
    a.lower.right = l.leftLine;
    a.lower.left = l.rightLine;
    a.higher.right = &b;
    b.lower.right = r.leftLine;
    b.lower.left = r.rightLine;
    b.higher.left = &a;
    if (l.leftLine != nullptr) {
        l.leftLine->higher.left = &a;
    }
    if (l.rightLine != nullptr) {
        l.rightLine->higher.right = &a;
    }
    if (r.leftLine != nullptr) {
        r.leftLine->higher.left = &b;
    }
    if (r.rightLine != nullptr) {
        r.rightLine->higher.right = &b;
    }
    n.leftLine = &a;
    n.rightLine = &b;
    l.outLine = &a;
    r.outLine = &b;
}

// The last three vertices of a ring meet at one point: three arcs rise to a final vertex.
void RvSkeleton::ApplyClosingEvent(const SkeletonEvent& e) {
    SkeletonVertex& l = *e.leftVertex;
    SkeletonVertex& r = *e.rightVertex;
    SkeletonVertex& c = *l.prevVertex;
    l.done = true;
    r.done = true;
    c.done = true;
    SkeletonVertex made(e.point, Point{0.0, 0.0}, Point{0.0, 0.0});
    made.done = true;
    SkeletonVertex& n = Store(made);

    SkeletonLine& a = PushLine(&l, &n);
    SkeletonLine& b = PushLine(&r, &n);
    SkeletonLine& cl = PushLine(&c, &n);
    a.higher.right = &b;
    b.higher.right = &cl;
    cl.higher.right = &a;
    a.higher.left = &cl;
    b.higher.left = &a;
    cl.higher.left = &b;
    for (const auto& [line, vertex] : {std::pair{&a, &l}, {&b, &r}, {&cl, &c}}) {
        line->lower.left = vertex->rightLine;
        line->lower.right = vertex->leftLine;
        if (vertex->leftLine != nullptr) {
            vertex->leftLine->higher.left = line;
        }
        if (vertex->rightLine != nullptr) {
            vertex->rightLine->higher.right = line;
        }
        vertex->outLine = line;
    }
}

// A reflex vertex reaches an opposite edge: it is replaced by two vertices at the same place,
// one on each of the two rings that the split leaves.
void RvSkeleton::ApplySplitEvent(const SkeletonEvent& e) {
    SkeletonVertex& v = *e.leftVertex;
    SkeletonVertex* left = nullptr;
    SkeletonVertex* right = nullptr;
    Point p;
    const double d = FindSplitEvent(v, left, right, p);
    // Nothing to split any more, or the split point has moved: the event is stale and dropped.
    if (Number(d) == SKELETON_INFINITY || p != e.point) {
        return;
    }
    // The parents are crossed: the first new vertex takes its previous edge from the edge's
    // right end, the second its next edge from the edge's left end.
    SkeletonVertex madeA(p, *right, v);
    SkeletonVertex madeB(p, v, *left);
    v.done = true;
    SkeletonVertex* vn = v.nextVertex;
    SkeletonVertex* hl = left->successor != nullptr ? Highest(left->successor) : left;
    madeA.nextVertex = vn;
    madeA.prevVertex = hl;
    SkeletonVertex& vertexA = Store(madeA);
    hl->nextVertex = &vertexA;
    vn->prevVertex = &vertexA;
    v.successor = &vertexA;

    SkeletonVertex* hr = right->successor != nullptr ? Highest(right->successor) : right;
    SkeletonVertex* vp = v.prevVertex;
    madeB.nextVertex = hr;
    madeB.prevVertex = vp;
    SkeletonVertex& vertexB = Store(madeB);
    vp->nextVertex = &vertexB;
    hr->prevVertex = &vertexB;
    v.successor = &vertexB;

    // The arc from `v`, then the two halves of a zero-length arc joining the new vertices.
    SkeletonLine& a = PushLine(&v, &vertexA);
    SkeletonLine& b = PushLine(&vertexA, &vertexB);
    SkeletonLine& c = PushLine(&vertexB, &vertexA);
    a.lower.right = v.leftLine;
    a.lower.left = v.rightLine;
    vertexB.leftLine = &a;
    vertexA.rightLine = &a;
    vertexA.leftLine = &b;
    vertexB.rightLine = &c;
    b.lower.right = &c;
    c.lower.left = &b;
    if (v.leftLine != nullptr) {
        v.leftLine->higher.left = &a;
    }
    if (v.rightLine != nullptr) {
        v.rightLine->higher.right = &a;
    }
    v.outLine = &a;

    if (vn != hl) {
        PushIfFinite(SkeletonEvent(*this, vertexA));
    } else {
        CloseTwoVertexRing(vertexA, *vn);
    }
    if (hr != vp) {
        PushIfFinite(SkeletonEvent(*this, vertexB));
    } else {
        CloseTwoVertexRing(vertexB, *hr);
    }
}

// A ring left with two vertices ends in one arc between them.
void RvSkeleton::CloseTwoVertexRing(SkeletonVertex& x, SkeletonVertex& y) {
    x.done = true;
    y.done = true;
    SkeletonLine& z = PushLine(&x, &y);
    z.lower.right = x.leftLine;
    z.lower.left = x.rightLine;
    z.higher.right = y.leftLine;
    z.higher.left = y.rightLine;
    for (SkeletonVertex* vertex : {&x, &y}) {
        if (vertex->leftLine != nullptr) {
            vertex->leftLine->higher.left = &z;
        }
        if (vertex->rightLine != nullptr) {
            vertex->rightLine->higher.right = &z;
        }
    }
}

}  // namespace ravelin
