#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <map>
#include <utility>
#include <vector>

#include "ravelin/platform/CheckedVector.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// The vector from `from` to `to` in space, whatever the two points carry in the plane.
RvPoint3D Between(const RvPoint3D& from, const RvPoint3D& to) {
    return to - from;
}

// Vertex `i` of `ring`, brought round the ring.
RvPoint2D& Around(RvPolygon2D& ring, int i) {
    ring.ValidateIndex(i);
    return ring[static_cast<std::size_t>(i)];
}
const RvPoint2D& Around(const RvPolygon2D& ring, int i) {
    ring.ValidateIndex(i);
    return ring[static_cast<std::size_t>(i)];
}

// How an edge moves: it runs from vertex `start` to vertex `end` and moves along its unit outer
// normal `m`; its start slides along `dp`, the direction of the edge before it, and its end
// along `dn`, the direction of the edge after it, both pointing forward along the ring. A
// neighbour that may shrink has its length in `back` or `ahead`, if one was found.
struct EdgeSlide {
    int start = 0;
    int end = 0;
    RvPoint3D m;
    RvPoint3D dp;
    RvPoint3D dn;
    double c1 = 0;  // dp·m: the start travels 1 / c1 along its neighbour per unit moved
    double c2 = 0;  // dn·m: the same for the end
    bool hasBack = false;
    double back = 0;
    bool hasAhead = false;
    double ahead = 0;
};

// The first edge that is not null walking from vertex `from` by `step` (-1: the edges ending
// at `from` and before; +1: those starting there and after), never taking an edge that starts
// (walking back) or ends (walking ahead) beyond `stop`. Its vector runs forward along the ring.
bool FindLiveEdge(const RvPolygon2D& ring, int from, int step, const RvPoint2D* stop,
                  RvPoint3D& edge) {
    int k = from;
    for (std::size_t walked = 0; walked < ring.size(); ++walked) {
        if (&Around(ring, k) == stop) {
            return false;
        }
        const RvPoint3D v = step < 0 ? Between(Around(ring, k - 1), Around(ring, k))
                                     : Between(Around(ring, k), Around(ring, k + 1));
        if (!v.IsNull()) {
            edge = v;
            return true;
        }
        k += step;
    }
    return false;
}

// `d` brought down to `bound` in magnitude, keeping its sign.
double Clamp(double d, double bound) {
    if (std::fabs(d) > bound) {
        return d < -1e-07 ? -bound : bound;
    }
    return d;
}

// How far from the edge's line the lines of its two neighbours meet, if they meet on the side
// the edge moves to (the sign of `d`) or on the edge's line, where the edge has shrunk to a
// point; false where they meet behind it or are parallel (DajPriesecnik refuses them).
bool NeighboursMeetAhead(const RvPolygon2D& ring, const EdgeSlide& s, const RvPoint3D& normal,
                         double d, double& height) {
    const RvPoint3D& end = ring[static_cast<std::size_t>(s.end)];
    try {
        const RvPoint3D x = RvPoint3D::DajPriesecnik(ring[static_cast<std::size_t>(s.start)], s.dp,
                                                     end, s.dn.GetVektorovySucin(normal));
        const double ahead = (x - end) * s.m;
        if (d > 0.0 ? ahead < -1e-08 : ahead > 1e-08) {
            return false;
        }
        height = x.DistanceFromPlane(end, s.m);
        return true;
    } catch (double) {
        return false;
    }
}

// Limits the move `d` by the neighbour before the edge, if that neighbour shrinks: the start
// slides by dp·(d / c1), and since dp points into the start, it runs back along its neighbour
// when d·c1 is negative. The move stops where the neighbour has shrunk to nothing, and, if the
// end's neighbour does not grow meanwhile, where the two neighbours' lines meet ahead of it. False
// when the shrinking neighbour runs along the edge, so that the start cannot slide on it.
bool LimitAtStart(const RvPolygon2D& ring, const EdgeSlide& s, const RvPoint3D& normal, double& d) {
    if (!(d * s.c1 < -1e-08)) {
        return true;
    }
    if (std::fabs(s.c1) < 1e-06) {
        return false;
    }
    if (!s.hasBack) {
        return true;
    }
    d = Clamp(d, s.back * std::fabs(s.c1));
    double height = 0;
    if (s.c2 * d >= -1e-08 && NeighboursMeetAhead(ring, s, normal, d, height)) {
        d = Clamp(d, height);
    }
    return true;
}

// The mirror image for the neighbour after the edge: dn points away from the end, so that
// neighbour shrinks when d·c2 is positive, and the start's neighbour grows when d·c1 is.
bool LimitAtEnd(const RvPolygon2D& ring, const EdgeSlide& s, const RvPoint3D& normal, double& d) {
    if (!(d * s.c2 > 1e-08)) {
        return true;
    }
    if (std::fabs(s.c2) < 1e-06) {
        return false;
    }
    if (!s.hasAhead) {
        return true;
    }
    d = Clamp(d, s.ahead * std::fabs(s.c2));
    double height = 0;
    if (s.c1 * d <= 1e-08 && NeighboursMeetAhead(ring, s, normal, d, height)) {
        d = Clamp(d, height);
    }
    return true;
}

// Where an end at `from` goes when the edge moves by `d`: along the neighbour's direction
// `slide`, so as to stay on the neighbour's line, unless the neighbour runs along the edge.
RvPoint3D SlidTo(const RvPoint3D& from, const RvPoint3D& m, const RvPoint3D& slide, double c,
                 double d) {
    if (std::fabs(c) < 1e-06) {
        return from + m * d;
    }
    return from + slide * (d / c);
}

// Puts vertex `vertex` at `to`, together with the vertices that sat on it, walking by `step`
// up to but not including `stop`: a collapsed edge stays collapsed. A `stop` on the vertex
// itself lets nothing follow it.
void MoveCollapsed(RvPolygon2D& ring, int vertex, const RvPoint3D& to, int step,
                   const RvPoint2D* stop) {
    RvPoint2D& moved = Around(ring, vertex);
    const RvPoint3D from = moved;
    moved = RvPoint2D(to);
    int k = vertex;
    for (std::size_t walked = 1; walked < ring.size() && &moved != stop; ++walked) {
        k += step;
        RvPoint2D& next = Around(ring, k);
        if (&next == stop || !Between(from, next).IsNull()) {
            return;
        }
        next = RvPoint2D(to);
    }
}

// Moves both ends of the edge by `d`, then what collapsed onto them.
void MoveEdgeEnds(RvPolygon2D& ring, const EdgeSlide& s, double d, const RvPoint2D* before,
                  const RvPoint2D* after) {
    const RvPoint3D start = SlidTo(Around(ring, s.start), s.m, s.dp, s.c1, d);
    const RvPoint3D end = SlidTo(Around(ring, s.end), s.m, s.dn, s.c2, d);
    MoveCollapsed(ring, s.start, start, -1, before);
    MoveCollapsed(ring, s.end, end, 1, after);
}

// Of the vertices `a` and `b`, the one met first walking from `from` by `step`, `from` itself
// included.
int FirstMet(const RvPolygon2D& ring, int from, int step, int a, int b) {
    ring.ValidateIndex(a);
    ring.ValidateIndex(b);
    int k = from;
    for (std::size_t walked = 0; walked < ring.size(); ++walked) {
        ring.ValidateIndex(k);
        if (k == a || k == b) {
            return k;
        }
        k += step;
    }
    return a;
}

// The bounds of the walks from the edge at place `k` of `active`: the start of the previous
// active edge and the end of the next one. A lone edge may walk round the ring, back up to the
// vertex after its end and ahead up to the one before its start. A chain is cut at vertex
// `cut`, where it starts and ends: no walk passes it (-1 for a ring).
void FindWalkBounds(RvPolygon2D& ring, const std::vector<int>& active, std::size_t k, int cut,
                    RvPoint2D*& before, RvPoint2D*& after) {
    const int edge = active[k];
    const std::size_t count = active.size();
    int back = edge + 1;
    int ahead = edge - 2;
    if (count > 1) {
        back = active[(k + count - 1) % count] - 1;
        ahead = active[(k + 1) % count];
    }
    if (cut >= 0) {
        back = FirstMet(ring, edge - 1, -1, back, cut);
        ahead = FirstMet(ring, edge, 1, ahead, cut);
    }
    before = &Around(ring, back);
    after = &Around(ring, ahead);
}

// How edge `edge` of `ring` moves: its outer normal and those of its neighbours are the entries
// next to it in `edgeDirections`, round the map, as the copy recorded them, so a neighbour that
// has collapsed still lends its line. A shrinking neighbour's length is that of the first edge
// that is not null behind the start (ahead of the end), within `before` (`after`). False where a
// direction is null.
bool BuildSlide(const RvPolygon2D& ring, int edge, const std::map<int, RvPoint3D>& edgeDirections,
                const RvPoint3D& normal, const RvPoint2D* before, const RvPoint2D* after,
                EdgeSlide& s) {
    const auto found = edgeDirections.find(edge);
    if (found == edgeDirections.end() || ring.size() < 2) {
        return false;
    }
    const auto previous =
        found == edgeDirections.begin() ? std::prev(edgeDirections.end()) : std::prev(found);
    const auto next =
        std::next(found) == edgeDirections.end() ? edgeDirections.begin() : std::next(found);
    s.end = edge;
    s.start = edge - 1;
    ring.ValidateIndex(s.start);
    s.m = found->second;
    s.dp = normal.GetVektorovySucin(previous->second);
    s.dn = normal.GetVektorovySucin(next->second);
    if (s.m.IsNull() || s.dp.IsNull() || s.dn.IsNull()) {
        return false;
    }
    s.c1 = s.dp * s.m;
    s.c2 = s.dn * s.m;
    RvPoint3D edgeVector;
    s.hasBack = FindLiveEdge(ring, s.start, -1, before, edgeVector);
    s.back = s.hasBack ? static_cast<double>(edgeVector.GetSize()) : 0.0;
    s.hasAhead = FindLiveEdge(ring, s.end, 1, after, edgeVector);
    s.ahead = s.hasAhead ? static_cast<double>(edgeVector.GetSize()) : 0.0;
    return true;
}

// Moves the edge by what is left of its distance, within the limits if `limited`, and keeps
// the rest as its remainder. False, with nothing moved, where a limit cannot be applied.
bool ApplySlide(RvPolygon2D& ring, const EdgeSlide& s, const RvPoint3D& normal, double& remainder,
                const RvPoint2D* before, const RvPoint2D* after, bool limited) {
    double d = remainder;
    if (limited && !(LimitAtStart(ring, s, normal, d) && LimitAtEnd(ring, s, normal, d))) {
        return false;
    }
    MoveEdgeEnds(ring, s, d, before, after);
    remainder -= d;
    return true;
}

// Whether `v` adds nothing between `before` and `after`: it doubles `after` (within 0.01), or
// the three are in line, as AddPolygonPoint judges a straight run or a fold.
bool IsRedundantVertex(const RvPoint2D& before, const RvPoint2D& v, const RvPoint2D& after) {
    if (v == after) {
        return true;
    }
    RvPoint3D in = Between(before, v);
    RvPoint3D out = Between(after, v);
    if (!in.IsNotNull() || !out.IsNotNull()) {
        return true;
    }
    in.Normalize();
    out.Normalize();
    return std::fabs(static_cast<double>(in * out)) >= 0.99999999;
}

// AddPolygonPoint judges each vertex by the ones before it, so the copy may still double or run
// straight through where it closes: its last vertex, then its first, are dropped while they add
// nothing. A vertex on a straight run would otherwise be moved once by each of its two edges.
// The edge that loses its start keeps its direction, the same line's; the index of each edge
// after a dropped first vertex falls by one.
void CleanOffsetSeam(RvPolygon2D& ring, std::map<int, RvPoint3D>& edgeDirections) {
    while (ring.size() >= 3) {
        const std::size_t last = ring.size() - 1;
        if (IsRedundantVertex(ring[last - 1], ring[last], ring[0])) {
            ring.pop_back();
            edgeDirections.erase(static_cast<int>(last));
        } else if (IsRedundantVertex(ring[last], ring[0], ring[1])) {
            ring.erase(ring.begin());
            std::map<int, RvPoint3D> shifted;
            for (const auto& [index, direction] : edgeDirections) {
                if (index > 0) {
                    shifted[index - 1] = direction;
                }
            }
            edgeDirections = std::move(shifted);
        } else {
            return;
        }
    }
}

}  // namespace

std::map<int, RvPoint3D> RvPolygon2D::CopyOffsetRing(const RvPolygon2D& source,
                                                     const RvPoint3D& normal) {
    std::map<int, RvPoint3D> edgeDirections;
    for (int i = 0; i < static_cast<int>(source.size()); ++i) {
        const RvPoint2D& vertex = source[static_cast<std::size_t>(i)];
        RvPoint3D back = Between(vertex, *source.GetPrevPoint(i));
        if (back.IsNull()) {
            continue;
        }
        back.Normalize();
        const std::size_t count = size();
        AddPolygonPoint(vertex);
        // A vertex added, or one that took the place of the last on a straight run (its
        // backward vector runs along that edge, whichever way the run now goes), ends an edge
        // of this direction. A fold back onto the vertex before takes the last vertex away, and
        // with it its edge.
        if (size() > count || (size() == count && count > 1)) {
            edgeDirections[static_cast<int>(size()) - 1] = normal.GetVektorovySucin(back);
        }
        edgeDirections.erase(edgeDirections.lower_bound(static_cast<int>(size())),
                             edgeDirections.end());
    }
    CleanOffsetSeam(*this, edgeDirections);
    return edgeDirections;
}

std::map<int, RvPoint3D> RvPolygon2D::MoveOffsetCopy(const RvPolygon2D& source,
                                                     std::vector<double>& distances,
                                                     const RvPoint3D& normal, bool useEx2,
                                                     bool chain, std::vector<int>& edgeIndices) {
    std::map<int, RvPoint3D> edgeDirections = CopyOffsetRing(source, normal);
    FillEdgeIndices(edgeIndices);
    MoveOffsetEdges(edgeDirections, distances, edgeIndices, normal, useEx2, chain);
    return edgeDirections;
}

void RvPolygon2D::FillEdgeIndices(std::vector<int>& edgeIndices) const {
    edgeIndices.clear();
    for (int i = 0; i < static_cast<int>(size()); ++i) {
        edgeIndices.push_back(i);
    }
}

void RvPolygon2D::MoveOffsetEdges(std::map<int, RvPoint3D>& edgeDirections,
                                  std::vector<double>& distances, std::vector<int>& edgeIndices,
                                  const RvPoint3D& normal, bool useEx2, bool chain) {
    std::vector<int> activeEdges = edgeIndices;
    // A chain starts at the start of its first edge and ends at the end of its last, the same
    // vertex of the ring.
    int cut = -1;
    if (chain && !edgeIndices.empty()) {
        cut = edgeIndices.front() - 1;
        ValidateIndex(cut);
    }
    int passes = 5;
    // A pass that finishes an edge does not count, so the loop ends: each pass either shortens
    // the list or uses up one of the passes.
    while (!activeEdges.empty() && passes >= 1) {
        bool removed = false;
        std::size_t k = 0;
        while (k < activeEdges.size()) {
            const int edge = activeEdges[k];
            RvPoint2D* before = nullptr;
            RvPoint2D* after = nullptr;
            FindWalkBounds(*this, activeEdges, k, cut, before, after);
            if (useEx2) {
                MoveOffsetEdge2(edge, edgeDirections, distances, edgeIndices, normal, before,
                                after);
            } else {
                MoveOffsetEdge(edge, edgeDirections, distances, normal, before, after, passes != 1);
            }
            if (std::fabs(CheckedAt(distances, edge)) < 0.0001) {
                activeEdges.erase(activeEdges.begin() + static_cast<std::ptrdiff_t>(k));
                removed = true;
            } else {
                ++k;
            }
        }
        if (!removed) {
            --passes;
        }
    }
}

bool RvPolygon2D::MoveOffsetEdge(int edge, std::map<int, RvPoint3D>& edgeDirections,
                                 std::vector<double>& distances, const RvPoint3D& normal,
                                 RvPoint2D* before, RvPoint2D* after, bool limited) {
    EdgeSlide s;
    if (!BuildSlide(*this, edge, edgeDirections, normal, before, after, s)) {
        return false;
    }
    return ApplySlide(*this, s, normal, CheckedAt(distances, edge), before, after, limited);
}

bool RvPolygon2D::MoveOffsetEdge2(int edge, std::map<int, RvPoint3D>& edgeDirections,
                                  std::vector<double>& distances, std::vector<int>& edgeIndices,
                                  const RvPoint3D& normal, RvPoint2D* before, RvPoint2D* after) {
    // Only an edge still in the list moves. The limits are those of MoveOffsetEdge, in every
    // pass: a neighbour's length, measured by the walk over collapsed vertices, is never null,
    // so no zero length is divided by. Lines taken from the ring as it stands, or limits that
    // pass over collapsed neighbours, would mislead: an edge whose ends slide far along nearly
    // parallel neighbours is turned inside out for a moment, until those move too.
    EdgeSlide s;
    if (std::find(edgeIndices.begin(), edgeIndices.end(), edge) == edgeIndices.end() ||
        !BuildSlide(*this, edge, edgeDirections, normal, before, after, s)) {
        return false;
    }
    return ApplySlide(*this, s, normal, CheckedAt(distances, edge), before, after, true);
}

}  // namespace ravelin
