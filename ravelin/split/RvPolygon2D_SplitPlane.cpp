#include <cmath>
#include <cstddef>
#include <deque>
#include <vector>

#include "ravelin/numeric/Number.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"

namespace ravelin {

namespace {

// The ring of a plane cut as it is built: every vertex as a type 0 node, with the crossings
// made on its edges after it, each node linked to the one after it.
class PlaneCutRing {
public:
    SplitNodes nodes;

    // Appends a node and links the one before to it.
    SplitNode* Add(int type, const RvPoint2D& point) {
        SplitNode* tail = nodes.empty() ? nullptr : nodes.back().get();
        SplitNode* node = AddSplitNode(nodes, type, point, -1);
        if (tail != nullptr) {
            tail->links.push_back(node);
        }
        return node;
    }

    // Links the last node to the first.
    void Close() {
        if (!nodes.empty()) {
            nodes.back()->links.push_back(nodes.front().get());
        }
    }
};

// The vertex `offset` places from `i`, round the ring.
const RvPoint2D& Around(const RvPolygon2D& ring, std::size_t i, long offset) {
    const long n = static_cast<long>(ring.size());
    const long k = ((static_cast<long>(i) + offset) % n + n) % n;
    return ring[static_cast<std::size_t>(k)];
}

// `v` + `a`·`t` in space; the planar pair of the crossing made from it follows `x`, `y`.
RvPoint3D PointAlong(const RvPoint3D& v, const RvPoint3D& a, double t) {
    return v + a * t;
}

RvPoint3D Unit(RvPoint3D v) {
    v.Normalize();
    return v;
}

// The places of the crossings along the line of cut: the first at 0, the others at their
// distance from it, negative on the far side of the first from the second.
SplitChords OrderChords(const SplitNodes& nodes, bool withType1) {
    SplitChords chords;
    const SplitNode* first = nullptr;
    RvPoint3D direction;
    for (const auto& node : nodes) {
        if (node->type != 2 && !(withType1 && node->type == 1)) {
            continue;
        }
        if (first == nullptr) {
            first = node.get();
            chords.push_back(SplitChord{node.get(), 0.0});
            continue;
        }
        const RvPoint3D offset = node->point - first->point;
        if (chords.size() == 1) {
            direction = offset;
        }
        double position = node->point.Distance(first->point);
        if (Number(offset * direction) < 0.0) {
            position = -position;
        }
        chords.push_back(SplitChord{node.get(), position});
    }
    return chords;
}

// Takes out the record FindNearestChord names; null when it names none.
SplitNode* TakeChord(SplitChords& chords, int at) {
    if (at < 0 || static_cast<std::size_t>(at) >= chords.size()) {
        return nullptr;
    }
    SplitNode* node = chords[static_cast<std::size_t>(at)].node;
    chords.erase(chords.begin() + at);
    return node;
}

// Links the crossings two by two along the line of cut, nearest first; `find` names the next
// record to take. An odd crossing finds no partner: it is linked to the partner of the pair
// before, which the unpaired take leaves in place, or to nothing if there was none.
void PairChords(SplitChords& chords, bool anyType, int (*find)(const SplitChords&, bool)) {
    SplitNode* b = nullptr;
    while (!chords.empty()) {
        SplitNode* a = TakeChord(chords, find(chords, anyType));
        if (a == nullptr) {
            return;
        }
        if (SplitNode* partner = TakeChord(chords, find(chords, anyType))) {
            b = partner;
        }
        if (b != nullptr) {
            a->links.push_back(b);
            b->links.push_back(a);
        }
    }
}

// The number of edges walked back from vertex `i` up to and including the first that is not
// parallel to the plane; at most one round.
std::size_t EdgesBackToCrossingEdge(const RvPolygon2D& ring, std::size_t i,
                                    const RvPoint3D& normal) {
    std::size_t counted = 0;
    for (long back = 0; counted < ring.size(); --back) {
        ++counted;
        const RvPoint3D edge = Around(ring, i, back) - Around(ring, i, back - 1);
        if (std::fabs(edge * normal) >= 1e-07) {
            break;
        }
    }
    return counted;
}

}  // namespace

void RvPolygon2D::SplitWithPlane(RvPoint3D point, RvPoint3D normal,
                                 std::vector<RvPolygon2D>& result) {
    const double d = point * normal;
    PlaneCutRing ring;
    for (std::size_t i = 0; i < size(); ++i) {
        const RvPoint2D& v = (*this)[i];
        ring.Add(0, v);
        const RvPoint3D a = Around(*this, i, 1) - v;
        const double den = a * normal;
        // Edges in or parallel to the plane make no crossing.
        if (std::fabs(den) <= 1e-07) {
            continue;
        }
        // The end of an edge counts as the start of the following one.
        const double t = (d - v * normal) / den;
        if (!(-1e-08 < t && t < 0.9999999)) {
            continue;
        }
        if (t < 1e-08) {
            // The vertex lies on the plane: a crossing only if its neighbours lie on either side.
            const RvPoint3D b = Around(*this, i, -1) - v;
            if ((b * normal) * den > -1e-08) {
                continue;
            }
        }
        ring.Add(2, RvPoint2D(PointAlong(v, a, t)));
    }
    ring.Close();
    SplitChords chords = OrderChords(ring.nodes, false);
    PairChords(chords, false, &FindNearestChord);
    if (!ring.nodes.empty()) {
        TraceChordLoops(ring.nodes.front().get(), result);
    }
}

void RvPolygon2D::SplitWithPlaneSegment(RvPoint3D first, RvPoint3D second, RvPoint3D normal,
                                        std::vector<RvPolygon2D>& result) {
    const double d = first * normal;
    PlaneCutRing ring;
    for (std::size_t i = 0; i < size(); ++i) {
        const RvPoint2D& v = (*this)[i];
        SplitNode* vertexNode = ring.Add(0, v);
        const RvPoint3D a = Around(*this, i, 1) - v;
        const double den = a * normal;
        if (std::fabs(den) <= 1e-07) {
            // An edge lying in the plane: its start counts as a crossing where the ring runs
            // along the cut between the two points from the outside.
            if (std::fabs(v * normal - d) < 1e-08) {
                const RvPoint3D back = Unit(Around(*this, i, -1) - v);
                const RvPoint3D beyond = Unit(Around(*this, i, 2) - Around(*this, i, 1));
                if (PointInPolygonEx2D(RvPoint2D(v + back + beyond)) == 0 &&
                    Number((v - first) * (v - second)) < 1e-08) {
                    vertexNode->type = 1;
                }
            }
            continue;
        }
        const double t = (d - v * normal) / den;
        if (!(-1e-08 < t && t < 0.9999999)) {
            continue;
        }
        // A vertex on the plane that ends a run of edges in the plane is no fresh crossing.
        const bool fresh = !(t < 1e-08 && EdgesBackToCrossingEdge(*this, i, normal) > 1);
        const RvPoint3D x = PointAlong(v, a, t);
        if (!(Number((x - first) * (x - second)) < 1e-08)) {
            continue;
        }
        if (!fresh) {
            const RvPoint3D back = Unit(Around(*this, i, -1) - v);
            if (PointInPolygonEx2D(RvPoint2D(v + back + Unit(a))) == 0) {
                ring.nodes.back()->type = 1;
            }
            continue;
        }
        ring.Add(2, RvPoint2D(x));
    }
    ring.Close();
    SplitChords chords = OrderChords(ring.nodes, true);
    PairChords(chords, true, &FindNearestChord);
    if (!ring.nodes.empty()) {
        TraceChordLoops(ring.nodes.front().get(), result);
    }
}

int RvPolygon2D::FindNearestChord(const SplitChords& chords, bool anyType) {
    if (chords.empty()) {
        return 0;
    }
    int nearest = -1;
    for (std::size_t k = 0; k < chords.size(); ++k) {
        if (!anyType && chords[k].node->type != 2) {
            continue;
        }
        if (nearest < 0 ||
            chords[k].position < chords[static_cast<std::size_t>(nearest)].position) {
            nearest = static_cast<int>(k);
        }
    }
    return nearest;
}

namespace {

// One level of the ring tracing: the ring being walked, the node reached, and the node whose
// remaining links still call for `pending` inner rings to be traced from it.
struct ChordTrace {
    RvPolygon2D ring;
    SplitNode* node = nullptr;
    SplitNode* from = nullptr;
    std::size_t pending = 0;
};

}  // namespace

void RvPolygon2D::TraceChordLoops(SplitNode* start, std::vector<RvPolygon2D>& result) {
    if (start->links.empty()) {
        return;
    }
    // The walk nests one level for every node that keeps links when it is left, so it keeps its
    // levels on the heap; an inner ring is appended before the ring that led to it.
    std::deque<ChordTrace> levels;
    levels.push_back(ChordTrace{RvPolygon2D(), start, nullptr, 0});
    while (!levels.empty()) {
        ChordTrace& level = levels.back();
        if (level.pending > 0) {
            --level.pending;
            level.ring.AddPolygonPoint(level.node->point);
            if (!level.node->links.empty()) {
                SplitNode* next = level.node->links.front();
                level.node->links.pop_front();
                level.node = next;
            }
            if (!level.from->links.empty()) {
                levels.push_back(ChordTrace{RvPolygon2D(), level.from, nullptr, 0});
            }
            continue;
        }
        if (!level.node->links.empty()) {
            level.ring.AddPolygonPoint(level.node->point);
            level.from = level.node;
            level.node = level.from->links.back();
            level.from->links.pop_back();
            // The count is taken once: inner rings traced from `from` may use up its links,
            // and the rounds left then only add the point reached.
            level.pending = level.from->links.size();
            continue;
        }
        RvPolygon2D ring = level.ring;
        levels.pop_back();
        AppendTracedRing(ring, result);
    }
}

}  // namespace ravelin
