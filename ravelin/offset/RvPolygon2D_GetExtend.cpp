#include <cmath>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "ravelin/numeric/Number.h"
#include "ravelin/polygon/RvInterPoint.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

using Cuts = std::vector<_RvInterPoint>;

// `a` minus `b` in space, whatever the two points carry in the plane.
RvPoint3D Minus(const RvPoint3D& a, const RvPoint3D& b) {
    return a - b;
}

// Index `i` brought round the ring of `ring`.
int Wrap(const RvDrawEntity& ring, int i) {
    ring.ValidateIndex(i);
    return i;
}

// Vertex `i` of `ring`, with wrap-around: i - 1 of vertex 0 is the last one.
const RvPoint2D& At(const RvDrawEntity& ring, int i) {
    return ring[static_cast<std::size_t>(Wrap(ring, i))];
}

// A cut is always entered as two records with the same point, one for each edge meeting there.
void AddCutPair(Cuts& cuts, const RvPoint3D& point, int first, int second) {
    cuts.emplace_back(RvPoint2D(point), first);
    cuts.emplace_back(RvPoint2D(point), second);
}

// ---- Building the ring ---------------------------------------------------------------------

// The offset ring, index for index. A vertex on a null edge repeats the corner before it (and
// a first vertex on a null edge lands on the origin).
RvPolygon2D BuildOffsetRing(const RvPolygon2D& input, double distance, const RvPoint3D& n) {
    RvPolygon2D raw;
    RvPoint3D q;
    const int count = static_cast<int>(input.size());
    for (int i = 0; i < count; ++i) {
        const RvPoint3D& vertex = input[static_cast<std::size_t>(i)];
        RvPoint3D a = Minus(At(input, i + 1), vertex);
        RvPoint3D b = Minus(At(input, i - 1), vertex);
        if (a.IsNotNull() && b.IsNotNull()) {
            a.Normalize();
            b.Normalize();
            q = RvPoint3D::DajBodNaOsiUhla(vertex, a, b, distance, n);
        }
        raw.push_back(RvPoint2D(q));
    }
    return raw;
}

// ---- Bypassing flipped edges ---------------------------------------------------------------

// Whether the offset edge between vertex `i` and its neighbour `side` still runs the way the
// input edge ran.
bool EdgeKept(const RvPolygon2D& input, const RvPolygon2D& raw, int i, int side) {
    const RvPoint3D shifted = Minus(At(raw, side), At(raw, i));
    const RvPoint3D original = Minus(At(input, side), At(input, i));
    return Number(shifted * original) > 1e-07;
}

// Where the edge from vertex `i` towards `i + step` meets the line of the edge from `i - step`
// to `i - 2 * step`, the edge between those two lines having flipped. `step` is +1 when the
// flipped edge lies before `i`, -1 when it lies after. The point must fall inside the kept edge
// and on the prolongation of the far edge, not on the edge itself.
bool FindBypassPoint(const RvPolygon2D& input, const RvPolygon2D& raw, int i, int step,
                     const RvPoint3D& n, RvPoint3D& x) {
    const RvPoint3D& here = At(raw, i);
    const RvPoint3D& behind = At(raw, i - step);
    const RvPoint3D& behind2 = At(raw, i - 2 * step);
    const RvPoint3D u = Minus(At(raw, i + step), here);
    const RvPoint3D v = Minus(At(input, i - 2 * step), At(input, i - step)).GetVektorovySucin(n);
    const double uv = u * v;
    if (std::fabs(uv) <= 1e-06) {
        return false;
    }
    const double t = (Minus(behind, here) * v) / uv;
    if (!(1e-07 < t && t < 0.99999999)) {
        return false;
    }
    x = here + u * t;
    return Number(Minus(behind, x) * Minus(behind2, x)) > 1e-08;
}

// Enters a cut where a flipped edge is bypassed: the edge on the kept side of vertex `i` is cut
// where it meets the line of the edge beyond the flipped one. `inside` tells whether a point
// keeps its distance inside the input polygon.
template <class Inside>
void BypassFlippedEdges(const RvPolygon2D& input, const RvPolygon2D& raw, const RvPoint3D& n,
                        const Inside& inside, Cuts& cuts) {
    const int count = static_cast<int>(raw.size());
    for (int i = 0; i < count; ++i) {
        const bool prevKept = EdgeKept(input, raw, i, i - 1);
        const bool nextKept = EdgeKept(input, raw, i, i + 1);
        if (prevKept == nextKept) {
            continue;
        }
        // The edge before `i` flipped: step forward; the edge after it flipped: step back.
        const int step = nextKept ? 1 : -1;
        RvPoint3D x;
        if (!FindBypassPoint(input, raw, i, step, n, x) || !inside(x)) {
            continue;
        }
        if (step > 0) {
            AddCutPair(cuts, x, Wrap(raw, i + 1), Wrap(raw, i - 1));
        } else {
            AddCutPair(cuts, x, i, Wrap(raw, i + 2));
        }
    }
}

// ---- Crossing edges ------------------------------------------------------------------------

// Whether the part of edge `i` of `raw` from `x` to the edge's end still runs the way of the
// input edge `i`.
bool RunsForwardFrom(const RvPolygon2D& input, const RvPolygon2D& raw, int i, const RvPoint3D& x) {
    return Number(Minus(At(raw, i), x) * Minus(At(input, i), At(input, i - 1))) > 1e-08;
}

// The line of edge `i`: its unit normal `f` (direction cross normal) and offset `c` = end·f.
struct EdgeLine {
    RvPoint3D f;
    double c;
};

// Enters the cut, if any, between edge `i` (with line `line`) and the non-neighbouring edge
// `j`. Collinear edges are cut where they overlap; crossing edges where both run forward.
void CrossEdges(const RvPolygon2D& input, const RvPolygon2D& raw, int i, const EdgeLine& line,
                int j, Cuts& cuts) {
    const RvPoint3D& jEnd = At(raw, j);
    const RvPoint3D g = Minus(At(raw, j - 1), jEnd);
    const double gf = g * line.f;
    const double gap = line.c - static_cast<double>(jEnd * line.f);
    if (std::fabs(gf) <= 1e-06) {
        RvPoint2D y;
        if (std::fabs(gap) < 1e-05 &&
            RvPolygon2D::FindOverlapPoint(At(raw, i - 1), At(raw, i), At(raw, j - 1), At(raw, j),
                                          y)) {
            AddCutPair(cuts, y, i, j);
        }
        return;
    }
    const double t = gap / gf;
    if (!(1e-07 < t && t < 1.00000001)) {
        return;
    }
    const RvPoint3D x = jEnd + g * t;
    if (!(Number(Minus(x, At(raw, i - 1)) * Minus(x, At(raw, i))) < -1e-08)) {
        return;
    }
    if (RunsForwardFrom(input, raw, i, x) && RunsForwardFrom(input, raw, j, x)) {
        AddCutPair(cuts, x, i, j);
    }
}

// Meets each pair of edges i < j that are not neighbours in the index order once; for edge 0
// the last edge, its neighbour across the wrap, is met too.
void FindCrossings(const RvPolygon2D& input, const RvPolygon2D& raw, const RvPoint3D& n,
                   Cuts& cuts) {
    const int count = static_cast<int>(raw.size());
    for (int i = 0; i < count; ++i) {
        RvPoint3D e = Minus(At(raw, i), At(raw, i - 1));
        if (e.IsNull()) {
            continue;
        }
        e.Normalize();
        EdgeLine line;
        line.f = e.GetVektorovySucin(n);
        line.c = At(raw, i) * line.f;
        for (int j = i + 2; j < count; ++j) {
            CrossEdges(input, raw, i, line, j, cuts);
        }
    }
}

// ---- Ordering the cuts ---------------------------------------------------------------------

// Whether record `b` goes before record `a`: a lower edge, or the same edge with `b` nearer to
// the edge's start (farther from its end vertex).
bool GoesBefore(const _RvInterPoint& b, const _RvInterPoint& a, const RvPolygon2D& raw) {
    if (b.m_nEdge != a.m_nEdge) {
        return b.m_nEdge < a.m_nEdge;
    }
    const Number fromA = a.Distance(At(raw, a.m_nEdge));
    const Number fromB = b.Distance(At(raw, b.m_nEdge));
    return fromA < fromB;
}

// Orders the records by edge and along each edge from its start, by an exchange sort.
void SortCuts(Cuts& cuts, const RvPolygon2D& raw) {
    for (std::size_t a = 0; a < cuts.size(); ++a) {
        for (std::size_t b = a + 1; b < cuts.size(); ++b) {
            if (GoesBefore(cuts[b], cuts[a], raw)) {
                cuts[a].Swap(cuts[b]);
            }
        }
    }
}

// ---- The first side ------------------------------------------------------------------------

// Whether the walk starts on a kept part of the ring, judged at the first cut and its partner
// record `partner` on the other edge.
bool StartsKeptAt(const RvPolygon2D& input, const RvPolygon2D& raw, const RvPoint3D& n,
                  const _RvInterPoint& c0, const _RvInterPoint& partner) {
    RvPoint3D g = Minus(At(raw, c0.m_nEdge), c0);
    const RvPoint3D h = Minus(At(raw, c0.m_nEdge - 1), c0);
    if (Number(g * h) < -1e-07) {
        // The cut lies inside its edge: what follows it is kept when it leaves the other edge
        // on the outside, so that the stretch up to the cut is what stays.
        RvPoint3D v = Minus(At(input, partner.m_nEdge), At(input, partner.m_nEdge - 1));
        v.Normalize();
        const RvPoint3D f = v.GetVektorovySucin(n);
        if (g.IsNull()) {
            return true;
        }
        g.Normalize();
        return Number(g * f) > 1e-08;
    }
    // The cut sits on a vertex.
    return Wrap(raw, c0.m_nEdge - 2) != partner.m_nEdge;
}

// Whether the walk starts on a kept part: false unless the first record has a partner.
bool StartsKept(const RvPolygon2D& input, const RvPolygon2D& raw, const RvPoint3D& n,
                const Cuts& cuts) {
    const RvPoint2D& first = cuts.front();
    for (std::size_t m = 1; m < cuts.size(); ++m) {
        if (first == static_cast<const RvPoint2D&>(cuts[m])) {
            return StartsKeptAt(input, raw, n, cuts.front(), cuts[m]);
        }
    }
    return false;
}

// ---- Walking and cutting -------------------------------------------------------------------

// Strings the kept parts of `raw` into `piece`: from the last vertex on, each cut switches
// between a kept and a dropped stretch.
void WalkCuts(RvPolygon2D& raw, const Cuts& cuts, bool keep, RvPolygon2D& piece) {
    const int last = static_cast<int>(raw.size()) - 1;
    int from = last;
    for (const _RvInterPoint& cut : cuts) {
        if (keep) {
            piece.UpEndFrom(raw, from, cut.m_nEdge);
        }
        piece.push_back(static_cast<const RvPoint2D&>(cut));
        from = cut.m_nEdge;
        keep = !keep;
    }
    if (keep) {
        piece.UpEndFrom(raw, from, last);
    }
}

// ---- Filter --------------------------------------------------------------------------------

// Whether a polygon produced by the offset is to be dropped: empty, leaving the input polygon,
// or running against it.
bool IsRejected(RvPolygon2D& input, const RvPoint3D& n, const RvPolygon2D& part) {
    if (part.empty()) {
        return true;
    }
    for (const RvPoint2D& p : part) {
        if (input.PointInPolygonEx2D(p) == 0) {
            return true;
        }
    }
    return Number(part.GetNormalVector() * n) < -1e-06;
}

// Drops the rejected polygons from position `first` of `result` on; the others keep their
// order.
void FilterParts(RvPolygon2D& input, const RvPoint3D& n, std::vector<RvPolygon2D>& result,
                 std::size_t first) {
    std::size_t kept = first;
    for (std::size_t k = first; k < result.size(); ++k) {
        if (IsRejected(input, n, result[k])) {
            continue;
        }
        if (kept != k) {
            result[kept] = result[k];
        }
        ++kept;
    }
    result.erase(result.begin() + static_cast<std::ptrdiff_t>(kept), result.end());
}

// ---- Loops ---------------------------------------------------------------------------------

// The first point from two places after `cursor` (one if `cursor` is the last) up to `end`
// equal to the one at `cursor`; `end` if none. A point repeated at once closes no loop.
RvPolygon2D::iterator FindRepeat(RvPolygon2D::iterator cursor, RvPolygon2D::iterator end) {
    RvPolygon2D::iterator it = cursor + 1;
    if (it != end) {
        ++it;
    }
    for (; it != end; ++it) {
        if (*it == *cursor) {
            return it;
        }
    }
    return end;
}

// One level of the loop walk: the points up to `end` go into `acc`. A level that collects a
// loop of its own owns the polygon `acc` points to.
struct LoopLevel {
    RvPolygon2D::iterator end;
    bool top;
    RvPolygon2D* acc;
    std::unique_ptr<RvPolygon2D> own;
};

// A loop collected by a level of its own: a repeated closing point is dropped.
void EmitLoop(RvPolygon2D& loop, std::vector<RvPolygon2D>& result) {
    if (!loop.empty() && loop[0] == loop[loop.size() - 1]) {
        loop.pop_back();
    }
    result.push_back(loop);
}

// Handles the point at `cursor` on the innermost level: it either goes into the level's
// polygon, or opens a nested level up to its repetition. Returns whether the cursor is to be
// advanced now; a nested level advances it past the repetition when it ends.
bool StepLoops(std::vector<LoopLevel>& levels, RvPolygon2D::iterator cursor) {
    LoopLevel& level = levels.back();
    const RvPolygon2D::iterator found = FindRepeat(cursor, level.end);
    if (found == level.end) {
        level.acc->AddPolygonPoint(*cursor);
        return true;
    }
    if (level.top && !level.acc->empty()) {
        // The stretch up to the repetition stays in this polygon, its own loops split off.
        RvPolygon2D* acc = level.acc;
        levels.push_back(LoopLevel{found, false, acc, nullptr});
        return false;
    }
    auto inner = std::make_unique<RvPolygon2D>();
    RvPolygon2D* acc = inner.get();
    levels.push_back(LoopLevel{found, false, acc, std::move(inner)});
    return false;
}

}  // namespace

// Nested loops are walked with an explicit stack of levels rather than by recursion, so that
// deeply nested repetitions cannot exhaust the call stack. The order of the polygons emitted is
// that of the recursive walk: a level's loop is emitted when the level ends, inner loops first.
void RvPolygon2D::CollectLoops(iterator& cursor, iterator end, std::vector<RvPolygon2D>& result,
                               bool top) {
    std::vector<LoopLevel> levels;
    levels.push_back(LoopLevel{end, top, this, nullptr});
    while (!levels.empty()) {
        if (cursor != levels.back().end) {
            if (StepLoops(levels, cursor)) {
                ++cursor;
            }
            continue;
        }
        LoopLevel done = std::move(levels.back());
        levels.pop_back();
        if (done.own) {
            EmitLoop(*done.own, result);
        }
        if (!levels.empty()) {
            // The cursor stands on the repetition that closed the level: step over it.
            ++cursor;
        }
    }
}

// The ring is offset edge by edge; where the offset ring crosses itself, or bypasses an edge
// that flipped, it is cut, and the stretches on the kept side are strung together and split
// into polygons at their repeated points.
void RvPolygon2D::GetExtend(double distance, std::vector<RvPolygon2D>& result) {
    const std::less<const RvPolygon2D*> before;
    if (!before(this, result.data()) && before(this, result.data() + result.size())) {
        // Appending to `result` may move this polygon: work on a copy.
        RvPolygon2D copy(*this);
        copy.GetExtend(distance, result);
        return;
    }
    if (size() < 3) {
        return;
    }
    const RvPoint3D n = GetNormalVector();
    if (n.IsNull()) {
        return;
    }
    const std::size_t first = result.size();
    RvPolygon2D raw = BuildOffsetRing(*this, distance, n);
    Cuts cuts;
    const auto inside = [this, distance](const RvPoint3D& x) {
        RvPoint3D probe = x;
        int scratch = 0;
        return TestOffsetPoint(probe, distance, scratch);
    };
    BypassFlippedEdges(*this, raw, n, inside, cuts);
    FindCrossings(*this, raw, n, cuts);
    if (cuts.empty()) {
        RemoveFlatVertices(raw);
        result.push_back(raw);
    } else {
        SortCuts(cuts, raw);
        RvPolygon2D piece;
        WalkCuts(raw, cuts, StartsKept(*this, raw, n, cuts), piece);
        raw.clear();
        iterator cursor = piece.begin();
        raw.CollectLoops(cursor, piece.end(), result, true);
        if (!raw.empty()) {
            result.push_back(raw);
        }
    }
    if (distance < 1e-06) {
        FilterParts(*this, n, result, first);
    }
}

bool RvPolygon2D::FindOverlapPoint(const RvPoint2D& iStart, const RvPoint2D& iEnd,
                                   const RvPoint2D& jStart, const RvPoint2D& jEnd, RvPoint2D& y) {
    if (iEnd.IsInsideSegment(jEnd, jStart)) {
        y = iEnd;
        return true;
    }
    if (iStart.IsInsideSegment(jEnd, jStart)) {
        return false;
    }
    if (jEnd.IsInsideSegment(iEnd, iStart)) {
        y = jEnd;
        return true;
    }
    if (jStart.IsInsideSegment(iEnd, iStart)) {
        y = jStart;
        return true;
    }
    return false;
}

void RvPolygon2D::RemoveFlatVertices(RvPolygon2D& ring) {
    std::size_t k = 0;
    while (k < ring.size()) {
        // Vertex 0 has no vertex before it in the vector, also after vertex 0 has been removed:
        // its predecessor is the last vertex, the ring's own neighbour.
        const RvPoint3D& predecessor = k == 0 ? ring[ring.size() - 1] : ring[k - 1];
        const RvPoint3D& next = *ring.GetNextPoint(static_cast<int>(k));
        const RvPoint3D a = predecessor - ring[k];
        const RvPoint3D b = next - ring[k];
        const double sizes = static_cast<double>(a.GetSize()) * static_cast<double>(b.GetSize());
        if (std::fabs(static_cast<double>(a * b)) > sizes - 1e-08) {
            ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(k));
        } else {
            ++k;
        }
    }
}

}  // namespace ravelin
