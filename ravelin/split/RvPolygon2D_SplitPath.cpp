#include <cstddef>
#include <unordered_map>
#include <vector>

#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/split/SplitNode.h"

namespace ravelin {

namespace {

// Where each node of the ring stands in the walking order.
using RingPlaces = std::unordered_map<const SplitNode*, std::size_t>;

RingPlaces PlacesOf(const SplitNodes& nodes) {
    RingPlaces places;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        places[nodes[i].get()] = i;
    }
    return places;
}

// The midpoint of the first stretch of the path after crossing `a`: up to the next path vertex,
// or up to `b` when both lie on one segment.
RvPoint2D FirstStretchMiddle(const RvDrawEntity& path, const SplitCrossing& a,
                             const SplitCrossing& b) {
    if (a.node->index != b.node->index) {
        return (a.node->point + path[static_cast<std::size_t>(a.node->index)]) * 0.5;
    }
    return (a.node->point + b.node->point) * 0.5;
}

// Lays the path between two paired crossings as a chain of type 1 nodes linked both ways: the
// crossing earlier in the ring walks into the chain, the later one keeps walking the ring and
// is entered from the chain's end.
void LayChain(const RvDrawEntity& path, const SplitCrossing& a, const SplitCrossing& b,
              const RingPlaces& places, SplitNodes& nodes) {
    SplitNode* prev = nullptr;
    SplitNode* other = nullptr;
    const auto addPathNode = [&](int k) {
        SplitNode* node = AddSplitNode(nodes, 1, path[static_cast<std::size_t>(k)], k);
        prev->links.push_back(node);
        node->links.push_back(prev);
        prev = node;
    };
    if (places.at(b.node) >= places.at(a.node)) {
        prev = a.node;
        other = b.node;
        for (int k = a.node->index; k < b.node->index; ++k) {
            addPathNode(k);
        }
    } else {
        prev = b.node;
        other = a.node;
        for (int k = b.node->index; k > a.node->index; --k) {
            addPathNode(k - 1);
        }
    }
    other->links.push_front(prev);
    prev->links.push_back(other);
}

// Takes the crossing nearest to the start of the path off the queue.
SplitCrossing TakeNearest(SplitCrossingQueue& crossings) {
    SplitCrossing c = crossings.top();
    crossings.pop();
    return c;
}

}  // namespace

bool RvPolygon2D::SplitWithPolyLine(const RvDrawEntity& path,
                                    std::vector<RvPolygon2D>& result) const {
    const RvPoint3D normal = GetNormalVector();
    if (normal.IsNull()) {
        return false;
    }
    const std::size_t before = result.size();
    SplitNodes nodes;
    SplitCrossingQueue crossings;

    // The ring, edge by edge: the vertex that starts the edge, then the crossings along it.
    for (int i = 0; i < static_cast<int>(size()); ++i) {
        const RvPoint3D edgeNormal = normal.GetVektorovySucin(GetSegmentVector(i));
        if (edgeNormal.IsNull()) {
            continue;
        }
        const RvPoint2D& start = *GetPrevPoint(i);
        const std::size_t first = nodes.size();
        FindPathCrossings(edgeNormal, i, path.begin(), path.end(), nodes, crossings);
        AddSplitNode(nodes, 0, start, i);
        SortSplitNodesByDistance(nodes, first, start);
    }
    if (nodes.empty()) {
        return false;
    }
    LinkSplitRing(nodes);
    const RingPlaces places = PlacesOf(nodes);

    // Crossings pair up in the order of the path; the stretches between a pair run inside.
    bool first = true;
    while (crossings.size() >= 2) {
        SplitCrossing a = TakeNearest(crossings);
        SplitCrossing b = TakeNearest(crossings);
        if (first) {
            if (PointInsidePolygonEx2D(FirstStretchMiddle(path, a, b)) == 0) {
                // The stretch after the first crossing lies outside, so that crossing opens
                // no chain. With no third crossing to pair with the second, nothing is traced
                // and nothing is added.
                if (crossings.empty()) {
                    return false;
                }
                a = b;
                b = TakeNearest(crossings);
            }
            first = false;
        }
        LayChain(path, a, b, places, nodes);
    }

    // Every walk starts at a node with one link left; crossings lose theirs one by one. Each
    // walk removes links, so the search ends.
    std::size_t i = 0;
    while (i < nodes.size()) {
        if (nodes[i]->links.size() == 1) {
            TraceSplitLoop(nodes[i].get(), result);
        } else {
            ++i;
        }
    }
    return result.size() - before > 1;
}

void RvPolygon2D::FindPathCrossings(const RvPoint3D& edgeNormal, int edge, const_iterator pathBegin,
                                    const_iterator pathEnd, SplitNodes& nodes,
                                    SplitCrossingQueue& crossings) const {
    if (pathBegin == pathEnd) {
        return;
    }
    const RvPoint2D& end = (*this)[static_cast<std::size_t>(edge)];
    const RvPoint2D& start = *GetPrevPoint(edge);
    double walked = 0.0;
    for (const_iterator p = pathBegin, q = pathBegin + 1; q != pathEnd; ++p, ++q) {
        RvPoint2D x;
        const PathSegmentHit hit = CrossPathSegment(edgeNormal, end, *p, *q, q + 1 == pathEnd, x);
        // A collinear segment counts by its start lying within the edge; a crossing also at the
        // edge's end vertex.
        const bool counts = hit == PathSegmentHit::Collinear
                                ? x.IsInsideSegment2D(start, end)
                                : hit == PathSegmentHit::Crossing &&
                                      (x.IsInsideSegment2D(start, end) || x.IsEqual2D(end, 0.01));
        if (counts) {
            SplitNode* node = AddSplitNode(nodes, 2, x, static_cast<int>(q - pathBegin));
            crossings.push(SplitCrossing{node, edge, walked + p->Distance2D(x)});
        }
        walked += p->Distance2D(*q);
    }
}

void RvPolygon2D::TraceSplitLoop(SplitNode* start, std::vector<RvPolygon2D>& result) {
    RvPolygon2D ring;
    SplitNode* node = start;
    while (!node->links.empty()) {
        ring.AddPolygonPoint(node->point);
        SplitNode* next = node->links.back();
        node->links.pop_back();
        node = next;
    }
    AppendTracedRing(ring, result);
}

}  // namespace ravelin
