#include <cmath>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "ravelin/platform/CheckedVector.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"

namespace ravelin {

namespace {

// The vertex that ends the edge at `position` of `edgeIndices`, round the list.
const RvPoint2D& EdgeEnd(const RvPolygon2D& ring, const std::vector<int>& edgeIndices,
                         std::size_t position) {
    return CheckedAt(ring, CheckedAt(edgeIndices, position % edgeIndices.size()));
}

// The vertex that starts it: the end of the edge listed before it. The ring traced runs from
// edge end to edge end, so an edge dropped from the list is bridged, and its crossings must be
// sought on the bridge.
const RvPoint2D& EdgeStart(const RvPolygon2D& ring, const std::vector<int>& edgeIndices,
                           std::size_t position) {
    return EdgeEnd(ring, edgeIndices, position + edgeIndices.size() - 1);
}

}  // namespace

void RvPolygon2D::FindEdgeCrossings(std::size_t position, const std::vector<int>& edgeIndices,
                                    const RvPoint3D& normal, SplitNodes& nodes,
                                    std::vector<SplitNode*>& edgeNodes) const {
    const RvPoint2D& start = EdgeStart(*this, edgeIndices, position);
    const RvPoint2D& end = EdgeEnd(*this, edgeIndices, position);
    RvPoint3D e = static_cast<const RvPoint3D&>(end) - start;
    if (e.IsNull()) {
        return;
    }
    e.Normalize();
    const RvPoint3D f = e.GetVektorovySucin(normal);
    const double c = end * f;
    // Each pair of edges that are not neighbours in the list is met once; the first edge meets
    // the last one too, its neighbour across the wrap.
    for (std::size_t q = position + 2; q < edgeIndices.size(); ++q) {
        const RvPoint2D& jStart = EdgeStart(*this, edgeIndices, q);
        const RvPoint2D& jEnd = EdgeEnd(*this, edgeIndices, q);
        const RvPoint3D g = static_cast<const RvPoint3D&>(jStart) - jEnd;
        const double gf = g * f;
        const double gap = c - static_cast<double>(jEnd * f);
        RvPoint2D x;
        if (std::fabs(gf) <= 1e-06) {
            if (!(std::fabs(gap) < 1e-05 && FindOverlapPoint(start, end, jStart, jEnd, x))) {
                continue;
            }
        } else {
            // t runs from the end of the later edge back to its start: its start counts, its
            // end is the start of the edge after it and counts there.
            const double t = gap / gf;
            if (!(1e-07 < t && t < 1.0000001)) {
                continue;
            }
            x = RvPoint2D(jEnd + g * t);
            if (!x.IsInsideSegment(start, end)) {
                continue;
            }
        }
        SplitNode* node = AddSplitNode(nodes, 2, x, edgeIndices[q]);
        edgeNodes.push_back(node);
    }
}

void RvPolygon2D::TraceOffsetGraph(const std::vector<int>& edgeIndices, const RvPoint3D& normal,
                                   std::vector<RvPolygon2D>& result) const {
    SplitNodes nodes;
    std::vector<SplitNode*> ring;
    // The crossings found on later edges, waiting by the index of their edge.
    std::map<int, std::vector<SplitNode*>> waiting;
    const std::size_t count = edgeIndices.size();
    for (std::size_t position = 0; position < count; ++position) {
        const int edge = edgeIndices[position];
        // The crossings that earlier edges found on this one, then this edge's own with the
        // edges after it, then its end vertex.
        std::vector<SplitNode*> edgeNodes = std::move(waiting[edge]);
        waiting.erase(edge);
        if (position + 2 < count) {
            const std::size_t found = nodes.size();
            FindEdgeCrossings(position, edgeIndices, normal, nodes, edgeNodes);
            for (std::size_t k = found; k < nodes.size(); ++k) {
                waiting[nodes[k]->index].push_back(nodes[k].get());
            }
        }
        edgeNodes.push_back(AddSplitNode(nodes, 0, EdgeEnd(*this, edgeIndices, position), edge));
        SortSplitNodesByDistance(edgeNodes, 0, EdgeStart(*this, edgeIndices, position));
        ring.insert(ring.end(), edgeNodes.begin(), edgeNodes.end());
    }
    if (ring.empty()) {
        return;
    }
    // A crossing stands in the ring twice, once on each of its edges, and so gets two links:
    // the tracing splits the ring there.
    LinkSplitRing(ring);
    TraceOffsetLoops(ring.front(), result);
}

void RvPolygon2D::TraceOffsetLoops(SplitNode* start, std::vector<RvPolygon2D>& result) {
    TraceChordLoops(start, result);
}

}  // namespace ravelin
