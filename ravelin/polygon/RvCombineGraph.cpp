#include "ravelin/polygon/RvCombineGraph.h"

#include <vector>

#include "ravelin/platform/CheckedVector.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// Zeroes `z`, erases each vertex within 0.01 of the last one kept, and returns the ring's count:
// a stored closing vertex stays in the polygon but not in the count.
int PrepareOperand(RvPolygon2D& p) {
    if (p.empty()) {
        return 0;
    }
    p[0].z = 0.0;
    RvPoint2D last = p[0];
    for (auto it = p.begin() + 1; it != p.end();) {
        it->z = 0.0;
        if (last.IsEqual2D(*it, 0.01)) {
            it = p.erase(it);
        } else {
            last = *it;
            ++it;
        }
    }
    int n = static_cast<int>(p.size());
    if (p[n - 1] == p[0]) {
        --n;
    }
    return n;
}

// The vertex of the ring of `n` vertices before `i`, wrapping at 0.
int Before(int i, int n) {
    return i == 0 ? n - 1 : i - 1;
}

// The vertex after `i`, wrapping at `n`.
int After(int i, int n) {
    return i + 1 == n ? 0 : i + 1;
}

// The two-vertex polygon of one edge.
RvPolygon2D EdgePolygon(const RvPoint2D& from, const RvPoint2D& to) {
    RvPolygon2D e;
    e.push_back(from);
    e.push_back(to);
    return e;
}

// Whether either end of `f` lies on the two-vertex polygon `e`.
bool EitherEndOn(const RvPolygon2D& e, const RvPolygon2D& f) {
    int a = 0;
    int b = 0;
    return e.PointOnEdge2D(f[0], 2, a, b) != 0 || e.PointOnEdge2D(f[1], 2, a, b) != 0;
}

bool IsAlongA(int slot) {
    return slot == 0 || slot == 1;
}

}  // namespace

RvCombineGraph::RvCombineGraph(RvPolygon2D& a, RvPolygon2D& b)
    : m_a(a), m_b(b), m_nA(PrepareOperand(a)), m_nB(PrepareOperand(b)), m_allowed{1, 1, 1, 1} {}

// ---- Phase 2: nodes ----------------------------------------------------------------------------

void RvCombineGraph::BuildNodes() {
    // The order decides where traces begin: vertices of `a`, then of `b`, then crossings.
    AppendVertexNodesA();
    AppendVertexNodesB();
    AppendCrossingNodes();
}

void RvCombineGraph::AppendVertexNodesA() {
    for (int i = 0; i < m_nA; ++i) {
        const RvPoint2D& v = m_a[i];
        const int prev = Before(i, m_nA);
        int a = 0;
        int b = 0;
        if (m_b.PointOnEdge2D(v, m_nB, a, b) == 0) {
            m_nodes.Add(_RvIntersection(i, prev, -1, -1, v, _RvIntersection::kKindPlain));
        } else {
            m_nodes.Add(_RvIntersection(i, prev, a, b, v, _RvIntersection::kKindTouching));
        }
    }
}

void RvCombineGraph::AppendVertexNodesB() {
    for (int j = 0; j < m_nB; ++j) {
        const RvPoint2D& w = m_b[j];
        const int prev = Before(j, m_nB);
        int a = 0;
        int b = 0;
        if (m_a.PointOnEdge2D(w, m_nA, a, b) == 0) {
            m_nodes.Add(_RvIntersection(-1, -1, j, prev, w, _RvIntersection::kKindPlain));
        } else if (a == b) {
            m_nodes.Add(_RvIntersection(a, b, j, prev, w, _RvIntersection::kKindTouching));
        }
        // At a vertex of `a` the meeting is already that vertex's node.
    }
}

void RvCombineGraph::AppendCrossingNodes() {
    for (int i = 0; i < m_nA; ++i) {
        const RvPolygon2D e = EdgePolygon(m_a[i], m_a[After(i, m_nA)]);
        for (int j = 0; j < m_nB; ++j) {
            const RvPoint2D& w0 = m_b[j];
            const RvPoint2D& w1 = m_b[After(j, m_nB)];
            RvPoint2D p;
            if (!m_a.IntersectSegment2D(w0, w1, p, static_cast<unsigned int>(i), false)) {
                continue;
            }
            // Edges that run together or meet at their ends do not cross.
            const RvPolygon2D f = EdgePolygon(w0, w1);
            if (EitherEndOn(e, f) && EitherEndOn(f, e)) {
                continue;
            }
            m_nodes.Add(_RvIntersection(i, i, j, j, p, _RvIntersection::kKindPlain));
        }
    }
}

// ---- Phase 2: links ----------------------------------------------------------------------------

void RvCombineGraph::BuildLinks() {
    for (int i = 0; i < m_nodes.GetSize(); ++i) {
        _RvIntersection& r = m_nodes[i];
        r.m_nIndex = i;
        LinkNode(r);
    }
}

void RvCombineGraph::LinkNode(_RvIntersection& r) {
    for (int k = 0; k < m_nodes.GetSize(); ++k) {
        const _RvIntersection& o = m_nodes[k];
        // The node itself, or an equal twin.
        if (o.m_nIndexA == r.m_nIndexA && o.m_nPrevA == r.m_nPrevA && o.m_nIndexB == r.m_nIndexB &&
            o.m_nPrevB == r.m_nPrevB && o.m_Point == r.m_Point) {
            continue;
        }
        const bool insideEdgeA = r.m_nIndexA == r.m_nPrevA;
        const bool insideEdgeB = r.m_nIndexB == r.m_nPrevB;
        if (r.m_nIndexA == o.m_nPrevA && r.m_nIndexA != -1) {
            Offer(r, k, 0, 1, insideEdgeA);
        }
        if (r.m_nPrevA == o.m_nIndexA && r.m_nIndexA != -1) {
            Offer(r, k, 1, 0, insideEdgeA);
        }
        if (r.m_nIndexB == o.m_nPrevB && r.m_nIndexB != -1) {
            Offer(r, k, 2, 3, insideEdgeB);
        }
        if (r.m_nPrevB == o.m_nIndexB && r.m_nIndexB != -1) {
            Offer(r, k, 3, 2, insideEdgeB);
        }
    }
}

// Offers node `o` to the pair of slots `preferred` and `other` of `r`: each slot of the pair
// ends up with the nearest node in its own direction from `r`.
//
// For `r` inside an edge of the polygon (`insideEdge`), a node on the same edge is offered to
// both slots, and the empty preferred slot could then take the very node that the other slot
// holds, losing the neighbour on the far side. There, an empty slot does not take a node that
// lies the way the other slot's node lies: the two compete instead. At a vertex the two slots
// face two different edges, and an empty slot always takes the node, however narrow the corner.
void RvCombineGraph::Offer(_RvIntersection& r, int o, int preferred, int other, bool insideEdge) {
    int& first = r.m_aLink[preferred];
    int& second = r.m_aLink[other];
    const RvPoint2D& p = m_nodes[o].m_Point;
    if (first == -1) {
        if (insideEdge && second != -1 &&
            r.m_Point.IsEqualOrientation(m_nodes[second].m_Point, p) == 1) {
            if (IsNearer(r, second, o)) {
                second = o;
            }
        } else {
            first = o;
        }
        return;
    }
    if (r.m_Point.IsEqualOrientation(m_nodes[first].m_Point, p) == 1) {
        if (IsNearer(r, first, o)) {
            first = o;
        }
        return;
    }
    if (second == -1 || IsNearer(r, second, o)) {
        second = o;
    }
}

// Whether `o` lies strictly nearer to `r` than the node `held`; a tie keeps `held`.
bool RvCombineGraph::IsNearer(const _RvIntersection& r, int held, int o) const {
    return (m_nodes[held].m_Point - r.m_Point).GetSize2D() >
           (m_nodes[o].m_Point - r.m_Point).GetSize2D();
}

// ---- Phase 3: classification -------------------------------------------------------------------

void RvCombineGraph::Classify() {
    static constexpr int kSlotOrder[4] = {2, 3, 0, 1};
    for (int i = 0; i < m_nodes.GetSize(); ++i) {
        for (const int slot : kSlotOrder) {
            _RvIntersection& r = m_nodes[i];
            if (r.m_aLink[slot] != -1) {
                const int linkClass = ClassOf(r, slot);
                m_nodes[i].m_aClass[slot] = linkClass;
            }
        }
    }
}

int RvCombineGraph::ClassOf(const _RvIntersection& r, int slot) {
    const _RvIntersection& o = m_nodes[r.m_aLink[slot]];
    const RvPoint2D m = (r.m_Point + o.m_Point) * 0.5;
    int linkClass = 0;
    if (IsAlongA(slot)) {
        linkClass = m_b.PointInsidePolygonEx2D(m) != 0 ? LinkAInsideB : LinkAOutsideB;
    } else {
        linkClass = m_a.PointInsidePolygonEx2D(m) != 0 ? LinkBInsideA : LinkBOutsideA;
    }
    if (r.m_nKind != _RvIntersection::kKindTouching ||
        o.m_nKind != _RvIntersection::kKindTouching) {
        return linkClass;
    }
    // A shared edge: `o` is also `r`'s neighbour along the other polygon.
    const int first = IsAlongA(slot) ? 2 : 0;
    if (r.m_aLink[first] == o.m_nIndex || r.m_aLink[first + 1] == o.m_nIndex) {
        return SharedEdgeClass(r, o, m);
    }
    return linkClass;
}

// Asks both polygons about one point 5 units to the left of the link's midpoint: the same
// answer means the interiors lie on the same side. The distance is absolute, so a polygon
// narrower than 5 there can be misjudged.
int RvCombineGraph::SharedEdgeClass(const _RvIntersection& r, const _RvIntersection& o,
                                    const RvPoint2D& m) {
    RvPoint2D d = o.m_Point - r.m_Point;
    const double dx = d.x2D;
    const double dy = d.y2D;
    d.x2D = -dy;
    d.x = -dy;
    d.y2D = dx;
    d.y = dx;
    d.Normalize();
    const RvPoint2D probe = m + d * 5.0;
    const bool ina = m_a.PointInPolygonEx2D(probe) != 0;
    const bool inb = m_b.PointInPolygonEx2D(probe) != 0;
    return ina == inb ? LinkSharedSameSide : LinkSharedOppositeSide;
}

// ---- Phase 4: tracing --------------------------------------------------------------------------

void RvCombineGraph::AllowedClasses(_RvCombineMode mode, int allowed[4]) {
    static constexpr int kTable[3][4] = {
        {LinkAOutsideB, LinkBInsideA, LinkSharedOppositeSide, LinkNoClass},
        {LinkAInsideB, LinkBInsideA, LinkSharedSameSide, LinkNoClass},
        {LinkAOutsideB, LinkBOutsideA, LinkSharedSameSide, LinkSharedOppositeSide},
    };
    const int m = static_cast<int>(mode);
    for (int k = 0; k < 4; ++k) {
        allowed[k] = (m >= 0 && m < 3) ? kTable[m][k] : LinkNoClass;
    }
}

bool RvCombineGraph::IsPrimary(int linkClass) const {
    return linkClass == m_allowed[0] || linkClass == m_allowed[1];
}

bool RvCombineGraph::IsSecondary(int linkClass) const {
    return linkClass == m_allowed[2] || linkClass == m_allowed[3];
}

void RvCombineGraph::TraceRings(_RvCombineMode mode, std::vector<RvPolygon2D>& result) {
    AllowedClasses(mode, m_allowed);
    // Each round marks at least one link as used, so the rounds end.
    for (int s = FindStart(); s != -1; s = FindStart()) {
        RvPolygon2D ring;
        TraceOneRing(s, ring);
        ClearTraceFlags(s);
        TidySeam(ring);
        if (ring.size() >= 3) {
            result.push_back(ring);
        }
    }
}

// The first node with an unused primary link; failing that, the last with an unused secondary
// one; -1 if neither is left.
int RvCombineGraph::FindStart() const {
    int found = -1;
    for (int i = 0; i < m_nodes.GetSize(); ++i) {
        const _RvIntersection& r = m_nodes[i];
        for (int k = 0; k < 4; ++k) {
            if (r.m_aUsed[k]) {
                continue;
            }
            if (IsPrimary(r.m_aClass[k])) {
                return i;
            }
            if (IsSecondary(r.m_aClass[k])) {
                found = i;
            }
        }
    }
    return found;
}

// Takes the first free link of `r` to an unvisited node, primary links before secondary ones,
// and marks it used from both ends, together with any twin link to the same node.
int RvCombineGraph::NextNode(int ri) {
    _RvIntersection& r = m_nodes[ri];
    r.m_bVisited = true;
    int chosen = -1;
    for (int pass = 0; pass < 2 && chosen == -1; ++pass) {
        for (int k = 0; k < 4; ++k) {
            const bool wanted = pass == 0 ? IsPrimary(r.m_aClass[k]) : IsSecondary(r.m_aClass[k]);
            if (wanted && !r.m_aUsed[k] && !m_nodes[r.m_aLink[k]].m_bVisited) {
                chosen = k;
                break;
            }
        }
    }
    if (chosen == -1) {
        r.m_nNext = -1;
        return -1;
    }
    const int target = r.m_aLink[chosen];
    _RvIntersection& o = m_nodes[target];
    for (int q = 0; q < 4; ++q) {
        if (o.m_aLink[q] == r.m_nIndex) {
            o.m_aUsed[q] = true;
        }
    }
    for (int q = 0; q < 4; ++q) {
        if (r.m_aLink[q] == target) {
            r.m_aUsed[q] = true;
        }
    }
    r.m_nNext = target;
    return target;
}

// A depth-first search from `f` back to the trace's start, with backtracking: a dead end gives
// its link back but stays visited, so it is not tried again in this trace. The search keeps the
// path on a stack of its own rather than on the machine's, since it can be as long as the graph
// has nodes; the order of visits is that of the plain recursion.
bool RvCombineGraph::Trace(int f) {
    if (m_nodes[f].m_bTraceStart) {
        return true;
    }
    std::vector<int> path{f};
    while (!path.empty()) {
        const int r = path.back();
        const int o = NextNode(r);
        if (o != -1) {
            if (m_nodes[o].m_bTraceStart) {
                return true;
            }
            path.push_back(o);
            continue;
        }
        path.pop_back();
        if (!path.empty()) {
            ReleaseLink(path.back(), r);
        }
    }
    return false;
}

// Gives back the link from `r` to its next node `o`, in both directions.
void RvCombineGraph::ReleaseLink(int ri, int oi) {
    _RvIntersection& r = m_nodes[ri];
    _RvIntersection& o = m_nodes[oi];
    for (int q = 0; q < 4; ++q) {
        if (r.m_aLink[q] == r.m_nNext) {
            r.m_aUsed[q] = false;
        }
    }
    for (int q = 0; q < 4; ++q) {
        if (o.m_aLink[q] == r.m_nIndex) {
            o.m_aUsed[q] = false;
        }
    }
}

// One round of the main loop from the start node `s`: the start's point, then the chain of
// `m_nNext` that the trace left, as it stands. A trace that dead-ends still gives its chain.
void RvCombineGraph::TraceOneRing(int s, RvPolygon2D& ring) {
    m_nodes[s].m_bTraceStart = true;
    const int f = NextNode(s);
    if (f == -1) {
        return;
    }
    ring.AddPolygonPoint(m_nodes[s].m_Point);
    m_nodes[s].m_bVisited = false;
    Trace(f);
    // Every node of the chain was chosen unvisited in this trace, so the chain cannot pass a
    // node twice; the bound only guards the walk.
    int cur = f;
    for (int steps = 0; steps < m_nodes.GetSize(); ++steps) {
        ring.push_back(m_nodes[cur].m_Point);
        const int next = m_nodes[cur].m_nNext;
        if (next == -1) {
            break;
        }
        m_nodes[next].m_bVisited = false;
        cur = next;
        if (m_nodes[cur].m_bTraceStart) {
            break;
        }
    }
}

void RvCombineGraph::ClearTraceFlags(int s) {
    for (int i = 0; i < m_nodes.GetSize(); ++i) {
        m_nodes[i].m_bVisited = false;
    }
    m_nodes[s].m_bTraceStart = false;
}

// Removes a collinear point at the seam only: the first point if it lies on the line from the
// last to the second, then the last if it lies on the line from the first to the last but one.
void RvCombineGraph::TidySeam(RvPolygon2D& ring) {
    if (ring.size() < 3) {
        return;
    }
    {
        const RvPoint2D& p0 = ring[0];
        const RvPoint2D& p1 = ring[1];
        const RvPoint2D& pl = ring[ring.size() - 1];
        const double c =
            (p1.x2D - pl.x2D) * (p0.y2D - pl.y2D) - (p1.y2D - pl.y2D) * (p0.x2D - pl.x2D);
        if (Number(c) == 0) {
            ring.erase(ring.begin());
        }
    }
    if (ring.size() < 3) {
        return;
    }
    const RvPoint2D& p0 = ring[0];
    const RvPoint2D& pm = ring[ring.size() - 2];
    const RvPoint2D& pl = ring[ring.size() - 1];
    const double c = (pm.x2D - p0.x2D) * (pl.y2D - p0.y2D) - (pl.x2D - p0.x2D) * (pm.y2D - p0.y2D);
    if (Number(c) == 0) {
        ring.pop_back();
    }
}

}  // namespace ravelin
