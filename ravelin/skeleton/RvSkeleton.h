#pragma once

#include <deque>
#include <list>
#include <queue>
#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/skeleton/SkeletonGeometry.h"

namespace ravelin {

class RvPolygon2D;
class RvPolyLine2D;
class RvSkeleton;
struct SkeletonLine;

/// A vertex of the shrinking wavefront. Vertices are owned by their skeleton, never move, and
/// refer to each other by plain pointers.
struct RAVELIN_API SkeletonVertex {
    Point point;           ///< Where the vertex appeared.
    SkeletonRay bisector;  ///< The direction in which it moves.
    /// The wavefront edge on its previous side, as a ray pointing away from the corner.
    SkeletonRay prevEdge;
    SkeletonRay nextEdge;  ///< The same on its next side.
    /// The vertex whose `prevEdge` this one inherited; a contour vertex points to itself.
    SkeletonVertex* leftParent = nullptr;
    /// The vertex whose `nextEdge` this one inherited; a contour vertex points to itself.
    SkeletonVertex* rightParent = nullptr;
    SkeletonVertex* nextVertex = nullptr;  ///< Successor on the current wavefront ring.
    SkeletonVertex* prevVertex = nullptr;  ///< Predecessor on the current wavefront ring.
    /// The vertex that replaced this one when it was consumed; null while none has.
    SkeletonVertex* successor = nullptr;
    bool done = false;  ///< Consumed: no longer on the wavefront.
    int id = -1;        ///< Its index in the skeleton's vertex list; -1 until placed.
    /// The two lines that arrive at this vertex from below; null for a contour vertex.
    SkeletonLine* leftLine = nullptr;
    SkeletonLine* rightLine = nullptr;
    SkeletonLine* outLine = nullptr;  ///< The line that leaves it upwards, once consumed.

    /// A contour vertex at `p` between its neighbours `prev` and `next`.
    SkeletonVertex(const Point& p, const Point& prev, const Point& next);
    /// An event vertex at `p`, which inherits the previous edge of `left` and the next edge of
    /// `right` and moves towards (or, for diverging edges, away from) the meeting point of their
    /// lines; along them when they are parallel.
    SkeletonVertex(const Point& p, SkeletonVertex& left, SkeletonVertex& right);
};

/// The last vertex of the chain of successors from `v`.
RAVELIN_API SkeletonVertex* Highest(SkeletonVertex* v);

/// One end of a skeleton arc, with the arcs beside it there.
struct RAVELIN_API SkeletonLineEnd {
    SkeletonVertex* vertex = nullptr;
    SkeletonLine* left = nullptr;
    SkeletonLine* right = nullptr;
};

/// An arc of the skeleton, from the vertex reached first to the one reached later.
struct RAVELIN_API SkeletonLine {
    SkeletonLineEnd lower;   ///< The end reached first (lower height).
    SkeletonLineEnd higher;  ///< The other end.
    /// Where a requested offset crosses this arc; the infinite point when it does not.
    Point extendPoint = InfinitePoint();
};

/// A candidate event of one wavefront vertex.
struct RAVELIN_API SkeletonEvent {
    static constexpr int EdgeEvent = 0;   ///< Two neighbours meet.
    static constexpr int SplitEvent = 1;  ///< A reflex vertex hits an opposite edge.

    Point point;  ///< Where it happens.
    SkeletonVertex* leftVertex = nullptr;
    SkeletonVertex* rightVertex = nullptr;  ///< For a split event, the same as `leftVertex`.
    double height = 0.0;                    ///< Its priority.
    int kind = EdgeEvent;

    /// The next event of `v`: the nearer meeting with a neighbour's bisector, or the split of
    /// an opposite edge by a reflex vertex; height SKELETON_INFINITY when there is none.
    SkeletonEvent(RvSkeleton& s, SkeletonVertex& v);
};

/// The order of the event queue: the top has the least height, heights within the band are
/// equivalent and keep the heap's own order.
struct RAVELIN_API SkeletonEventAbove {
    bool operator()(const SkeletonEvent& a, const SkeletonEvent& b) const;
};

/// The straight skeleton of a contour, or of a boundary with holes: the arcs traced by the
/// vertices of the contour as it shrinks, each edge moving inwards at unit speed. A boundary
/// must run clockwise and holes counterclockwise (x to the right, y up); a contour given the
/// other way grows instead and gives an incomplete or empty skeleton. The whole computation
/// runs in the constructor; afterwards only the lines' `extendPoint` changes.
class RAVELIN_API RvSkeleton : public std::list<SkeletonLine> {
public:
    using EventQueue =
        std::priority_queue<SkeletonEvent, std::deque<SkeletonEvent>, SkeletonEventAbove>;

    RvSkeleton();
    /// The skeleton of the polygon's points in stored order, on the planar pair.
    explicit RvSkeleton(RvPolygon2D& polygon);
    /// The first polygon is the boundary, the others holes.
    explicit RvSkeleton(std::vector<RvPolygon2D>& polygons);
    /// The contours themselves: the first is the boundary, the others holes. Adjacent duplicate
    /// points are erased from the caller's vectors.
    explicit RvSkeleton(std::vector<std::vector<Point>>& contours);
    RvSkeleton(const RvSkeleton&) = delete;
    RvSkeleton& operator=(const RvSkeleton&) = delete;
    virtual ~RvSkeleton();

    /// Appends the offset rings at the signed distance `offset` (negative shrinks a clockwise
    /// boundary), each point at height `z`, one polygon per connected ring. Always true.
    bool GetExtendPolygons(double offset, double z, std::vector<RvPolygon2D>& result);
    /// Appends each arc as a two-point polyline at height `z`. Always true.
    bool GetSkeletonPolygons(double z, std::vector<RvPolyLine2D>& result);

    /// Every wavefront vertex made, in order of creation.
    const std::list<SkeletonVertex>& Vertices() const { return m_vertices; }
    /// The number of vertices of the first contour after cleaning.
    int BoundaryVertexCount() const { return m_boundaryVertexCount; }

private:
    friend struct SkeletonEvent;

    void Build(std::vector<std::vector<Point>>& contours);
    void AppendContour(std::vector<Point>& contour);
    void LinkRings(const std::vector<std::vector<Point>>& contours);
    void PushIfFinite(const SkeletonEvent& e);
    SkeletonVertex& Store(SkeletonVertex v);
    SkeletonLine& PushLine(SkeletonVertex* lower, SkeletonVertex* higher);
    void RunEvents();

    double FindSplitEvent(SkeletonVertex& v, SkeletonVertex*& left, SkeletonVertex*& right,
                          Point& point);
    static Point TestSplitCandidate(const SkeletonVertex& v, const SkeletonVertex& left,
                                    const SkeletonVertex& right);
    static Point ComputeSplitPoint(const SkeletonVertex& v, const SkeletonVertex& left,
                                   const SkeletonVertex& right);
    bool IsSplitBlocked(const SkeletonVertex& v, const SkeletonEvent& event) const;
    void ApplyEdgeEvent(const SkeletonEvent& e);
    void ApplySplitEvent(const SkeletonEvent& e);
    void ApplyClosingEvent(const SkeletonEvent& e);
    void CloseTwoVertexRing(SkeletonVertex& a, SkeletonVertex& b);

    static void ComputeExtendPoint(SkeletonLine& line, double h);
    SkeletonLine* NextFiniteLine(SkeletonLine* line, bool& forward) const;

    EventQueue m_events;
    std::list<SkeletonVertex> m_vertices;
    int m_boundaryVertexCount = 0;
};

}  // namespace ravelin
