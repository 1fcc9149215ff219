#include "ravelin/split/SplitNode.h"

#include <utility>

#include "ravelin/numeric/Number.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

SplitNode* AddSplitNode(SplitNodes& nodes, int type, const RvPoint2D& point, int index) {
    auto node = std::make_unique<SplitNode>();
    node->type = type;
    node->point = point;
    node->index = index;
    nodes.push_back(std::move(node));
    return nodes.back().get();
}

namespace {

// The node held at place `i`, whether the list owns it or not.
SplitNode* NodeAt(const SplitNodes& nodes, std::size_t i) {
    return nodes[i].get();
}
SplitNode* NodeAt(const std::vector<SplitNode*>& nodes, std::size_t i) {
    return nodes[i];
}

template <typename List>
void SortByDistance(List& nodes, std::size_t first, const RvPoint3D& origin) {
    for (std::size_t i = first; i < nodes.size(); ++i) {
        for (std::size_t j = i + 1; j < nodes.size(); ++j) {
            if (NodeAt(nodes, j)->point.Distance2D(origin) <
                NodeAt(nodes, i)->point.Distance2D(origin)) {
                std::swap(nodes[i], nodes[j]);
            }
        }
    }
}

template <typename List>
void LinkRing(const List& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        NodeAt(nodes, i)->links.push_back(NodeAt(nodes, (i + 1) % nodes.size()));
    }
}

}  // namespace

void SortSplitNodesByDistance(SplitNodes& nodes, std::size_t first, const RvPoint3D& origin) {
    SortByDistance(nodes, first, origin);
}

void SortSplitNodesByDistance(std::vector<SplitNode*>& nodes, std::size_t first,
                              const RvPoint3D& origin) {
    SortByDistance(nodes, first, origin);
}

void LinkSplitRing(SplitNodes& nodes) {
    LinkRing(nodes);
}

void LinkSplitRing(const std::vector<SplitNode*>& ring) {
    LinkRing(ring);
}

namespace {

// Dot product on `x` and `y` alone.
double Dot2D(const RvPoint3D& a, const RvPoint3D& b) {
    return a.x * b.x + a.y * b.y;
}

}  // namespace

PathSegmentHit CrossPathSegment(const RvPoint3D& edgeNormal, const RvPoint2D& end,
                                const RvPoint2D& p, const RvPoint2D& q, bool lastSegment,
                                RvPoint2D& x) {
    const RvPoint3D w = q - p;
    const double den = edgeNormal * w;
    const double num = Dot2D(end, edgeNormal) - Dot2D(p, edgeNormal);
    if (Number(den) == 0.0) {
        if (Number(num) == 0.0) {
            x = p;
            return PathSegmentHit::Collinear;
        }
        return PathSegmentHit::None;
    }
    const double t = num / den;
    const bool accepted =
        Number(t) == 0.0 || (t > 0.0 && Number(t) < 1.0) || (lastSegment && Number(t) == 1.0);
    if (!accepted) {
        return PathSegmentHit::None;
    }
    x = RvPoint2D(p.x + w.x * t, p.y + w.y * t, end.z);
    return PathSegmentHit::Crossing;
}

namespace {

// Vertex `i` counted from the end: 1 is the last.
const RvPoint2D& FromEnd(const RvPolygon2D& ring, std::size_t i) {
    return ring[ring.size() - i];
}

}  // namespace

void AppendTracedRing(RvPolygon2D& ring, std::vector<RvPolygon2D>& result) {
    if (ring.size() > 2) {
        if (FromEnd(ring, 1).IsInsideSegment(FromEnd(ring, 2), ring[0])) {
            ring.pop_back();
            if (ring.size() < 3) {
                return;
            }
        }
        if (ring[0].IsInsideSegment(ring[1], FromEnd(ring, 1))) {
            ring.erase(ring.begin());
            if (ring.size() < 3) {
                return;
            }
        }
    }
    result.push_back(ring);
}

}  // namespace ravelin
