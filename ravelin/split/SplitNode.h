#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <queue>
#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/numeric/RvPoint2D.h"

namespace ravelin {

class RvPolygon2D;

/// A node of the graphs through which a ring is cut into pieces, by a path, a plane or its own
/// crossings: a ring vertex, a vertex of the cutter, or a crossing of the two.
struct RAVELIN_API SplitNode {
    /// 0 a ring vertex; 1 a vertex of the cutting path (or a ring vertex that counts as a
    /// crossing); 2 a crossing of ring and cutter.
    int type = 0;
    RvPoint2D point;
    /// The outgoing links. A walk takes the last one and removes it.
    std::deque<SplitNode*> links;
    /// Type 0: the ring index; type 1: the path vertex; type 2: the path vertex that ends the
    /// segment on which the crossing lies. -1 where a graph has no use for it.
    int index = -1;
};

/// The nodes of one graph, in the order its algorithm needs, owned for the length of one call.
/// Links between nodes are plain pointers into this list.
using SplitNodes = std::vector<std::unique_ptr<SplitNode>>;

/// A crossing waiting to be paired: its node, the ring edge it lies on and its length along the
/// cutting path.
struct RAVELIN_API SplitCrossing {
    SplitNode* node;
    int edge;
    double key;

    /// Farther along the path.
    bool operator>(const SplitCrossing& o) const { return key > o.key; }
};

/// The crossings in the order of the path, the nearest to its start on top.
using SplitCrossingQueue =
    std::priority_queue<SplitCrossing, std::deque<SplitCrossing>, std::greater<SplitCrossing>>;

/// A crossing of a plane cut, with its signed place along the line of cut.
struct RAVELIN_API SplitChord {
    SplitNode* node;
    double position;
};
using SplitChords = std::vector<SplitChord>;

/// A point of a polyline being cut by a polygon: a vertex or a crossing, with its length along
/// the polyline from its start and the index of its vertex (of the vertex ending its segment,
/// for a crossing).
struct RAVELIN_API SplitPolylinePoint {
    RvPoint2D point;
    double key;
    int index;

    /// Farther along the polyline.
    bool operator>(const SplitPolylinePoint& o) const { return key > o.key; }
};

/// The points of a polyline in the order of the walk along it, the nearest to its start on top.
using SplitPolylineQueue = std::priority_queue<SplitPolylinePoint, std::deque<SplitPolylinePoint>,
                                               std::greater<SplitPolylinePoint>>;

/// How a segment of a cutting path meets the line of a ring edge.
enum class PathSegmentHit {
    None,       ///< Parallel and apart, or met outside the accepted parameters.
    Collinear,  ///< On the edge's line; the segment's start stands for it.
    Crossing,   ///< Met at one point.
};

/// Meets the segment `p`-`q` of a cutting path with the line of the ring edge ending at `end`,
/// whose normal in the ring's plane is `edgeNormal`. A crossing counts at a parameter within
/// 5e-07 of 0, or between 0 and 1 short of 1 by the band; at 1 only on the path's last segment,
/// so that a path vertex on the edge counts once. The crossing `x` takes `z` from `end`. Whether
/// it lies on the edge itself is left to the caller.
RAVELIN_API PathSegmentHit CrossPathSegment(const RvPoint3D& edgeNormal, const RvPoint2D& end,
                                            const RvPoint2D& p, const RvPoint2D& q,
                                            bool lastSegment, RvPoint2D& x);

/// Appends a new node to `nodes` and returns it.
RAVELIN_API SplitNode* AddSplitNode(SplitNodes& nodes, int type, const RvPoint2D& point, int index);

/// Sorts the nodes from position `first` on by their planar distance from `origin`, nearest
/// first, by selection exchange: each place takes in turn any later node that is nearer by the
/// band. Nodes at equal distance keep no particular order.
RAVELIN_API void SortSplitNodesByDistance(SplitNodes& nodes, std::size_t first,
                                          const RvPoint3D& origin);
/// The same for a list that does not own its nodes.
RAVELIN_API void SortSplitNodesByDistance(std::vector<SplitNode*>& nodes, std::size_t first,
                                          const RvPoint3D& origin);

/// Links each node to the one after it, and the last to the first: the ring the walks follow.
RAVELIN_API void LinkSplitRing(SplitNodes& nodes);
/// The same for a ring that does not own its nodes. A node that stands in it twice, as a
/// crossing of the ring with itself does, gets a link for each place.
RAVELIN_API void LinkSplitRing(const std::vector<SplitNode*>& ring);

/// Appends a traced ring to `result`, tidied at its seam: a last vertex strictly inside the
/// segment from the second last to the first goes, then a first vertex strictly inside the
/// segment from the second to the last. A ring that falls below three vertices by either removal
/// is dropped; a ring of two vertices or fewer is appended as it came.
RAVELIN_API void AppendTracedRing(RvPolygon2D& ring, std::vector<RvPolygon2D>& result);

}  // namespace ravelin
