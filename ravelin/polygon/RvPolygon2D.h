#pragma once

#include <deque>
#include <functional>
#include <map>
#include <queue>
#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvLine2D.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/platform/CArray.h"
#include "ravelin/polygon/RvInterPoint.h"
#include "ravelin/polygon/RvIntersection.h"
#include "ravelin/split/SplitNode.h"

namespace ravelin {

class RvSkeleton;

/// The closed polygon: an entity whose vertices are read as a ring, stored open (the last
/// vertex differs from the first) or closed (the last repeats the first within 0.01). Each
/// member says how it treats the two forms; the treatments differ on purpose. Its type word is
/// 1.
///
/// Boolean combination, splitting and offsetting are members of this class too.
///
/// Several members keep the names their authors gave them; each is described in English.
class RAVELIN_API RvPolygon2D : public RvDrawEntity {
public:
    static constexpr unsigned int kType = 1;

    /// A hit of a half-line: the element of IntersectHalfLine2D's queue.
    struct RAVELIN_API Intersection2D {
        RvPoint2D m_Point;   ///< The hit.
        int m_nEdge;         ///< The edge hit.
        double m_dDistance;  ///< Planar distance of the hit from the half-line's start.

        /// Farther by the band 5e-07 or more.
        bool operator>(const Intersection2D& o) const {
            return Number(m_dDistance) > o.m_dDistance;
        }
    };
    /// The hits of a half-line, nearest on top.
    using HitQueue = std::priority_queue<Intersection2D, std::deque<Intersection2D>,
                                         std::greater<Intersection2D>>;

    /// Outline drawn and edges hit; false at construction. The library never writes it.
    bool m_bDrawEdges;
    /// The straight skeleton, owned; null until one is built. Never copied.
    RvSkeleton* m_pSkeleton;

    /// The polygon along whose boundary the sort predicates order records; set by the caller
    /// before a sort. Starts null.
    static RvPolygon2D* m_sortPolygon;
    /// The origin of the predicates that order by the start of a record.
    static _RvInterPoint m_sortOrigin;
    /// The origin of the predicates that order by the end of a record.
    static _RvInterPoint m_sortOriginEnd;

    RvPolygon2D();
    /// Copies the entity part; the skeleton is not copied.
    RvPolygon2D(const RvPolygon2D& p);
    /// The ring of the polyline's vertices as they stand.
    RvPolygon2D(const RvPolyLine2D& p);  // NOLINT(google-explicit-constructor)
    /// Assigns the entity part and destroys the skeleton held.
    RvPolygon2D& operator=(const RvPolygon2D& p);
    /// Destroys the skeleton held.
    ~RvPolygon2D() override;
    /// As RvDrawEntity::ReInit, then the type word 1 and a null skeleton pointer. The skeleton
    /// held is forgotten, not destroyed.
    void ReInit();

    // ---- Drawing and hit-testing -------------------------------------------------------------

    /// Fills the ring in the library's raster operation in transparent background mode, then,
    /// with `m_bDrawEdges`, draws its outline (not closed) with R2_COPYPEN. The device's raster
    /// operation is restored; the background mode stays transparent.
    CRect Draw(CDC* dc) override;
    /// Inside (unless `snap` comes as SnapEdge) by PointInsidePolygonEx2D, then, with
    /// `m_bDrawEdges`, the edges including the closing one.
    bool IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                    RvDrawEntity& hit) const override;
    /// As for a polyline: the vertices' pixels, or a side of `r` crossing the open chain.
    bool InvSelectArea(const CRect& r, int mode) const override;
    /// A diagnostic view of combination nodes in a 500 by 500 pixel area: this polygon's
    /// bounding rectangle scaled to fit and centred, each node a small square labelled "edge",
    /// or "nie" (no) for a node without a kind.
    void DrawResult(CDC* dc, RvIntersectionArray* list);

    // ---- Measures ---------------------------------------------------------------------------

    /// The signed area, in space, by a fan from vertex 0: each triangle counts with the sign
    /// of the `z` of its cross product. Positive for a counterclockwise ring seen from +z.
    double GetPlochuOriented() const;
    /// GetPlochu: the area, |GetPlochuOriented()|.
    double GetPlochu() const;
    /// GetObvod: the perimeter in space, with the closing edge unless the ring is stored closed.
    double GetObvod() const;
    /// The orientation at the lowest (then rightmost) planar vertex: positive for a
    /// counterclockwise ring.
    Number GetOrientation() const;
    /// The unit normal from the corner at the lowest (then rightmost) vertex, a stored closing
    /// vertex left out: +z for a counterclockwise ring in the plane z = 0.
    RvPoint3D GetNormalVector2() const;
    /// The same ring (within 0.01 on `x`, `y`), from any start vertex, in either direction.
    bool operator==(const RvPolygon2D& o) const;
    /// GetBigestPolygon: the polygon of largest area, the first of equals; end() for none.
    static std::vector<RvPolygon2D>::iterator GetBigestPolygon(std::vector<RvPolygon2D>& polys);
    /// The polygon whose boundary is nearest to `p` in space, the first of equals; a polygon
    /// without vertices wins. begin() for none.
    static std::vector<RvPolygon2D>::iterator GetNearestPolygon(const RvPoint3D& p,
                                                                std::vector<RvPolygon2D>& polys);
    /// LocatePointToPlain: sets `p.z` onto the plane of the first vertices that span one; 1 on
    /// success, 0 when there is none (or it stands vertical).
    int LocatePointToPlain(RvPoint3D& p);
    /// Combines the pixel regions of the two polygons and discards the result: it changes
    /// nothing and returns this polygon.
    RvPolygon2D& operator&=(const RvPolygon2D& o);

    // ---- Point and edge classification --------------------------------------------------------

    /// 1 if the pixel of `p` lies in the even-odd pixel region of the ring, else 0.
    int PointInPolygon2D(const RvPoint2D& p);
    /// 1 if `p` lies inside or on the boundary (then `intersectStatus` is 1), else 0.
    int PointInPolygonEx2D(const RvPoint2D& p);
    /// 1 if `p` lies inside by the parity of a rightward ray; on the boundary either answer.
    /// No vertices: "invalid vector<T> subscript".
    int PointInPolygonEx2D_const(const RvPoint2D& p) const;
    /// 1 if `p` lies strictly inside, by the crossing count in the band; 0 on the boundary.
    int PointInsidePolygonEx2D(const RvPoint2D& p) const;
    /// 1 if `p` lies on an edge; the closing edge is skipped when vertices 0 and 1 coincide.
    int PointOnEdge2D(const RvPoint2D& p) const;
    /// 1 if `p` lies on an edge, with `edge` its first vertex (n - 1 for the closing edge).
    int PointOnEdge2D(const RvPoint2D& p, int& edge) const;
    /// Over the first `n` vertices: 1 at vertex `a` (within 0.01; `b` the vertex before it), or
    /// on the interior of the edge from `a` to the next vertex (then `b` == `a`); else 0.
    int PointOnEdge2D(const RvPoint2D& p, int n, int& a, int& b) const;
    /// 1 if the line's two ends lie on the boundary and all vertices between them, one way
    /// round, lie on the line.
    int LineOnEdge2D(const RvLine2D& line) const;
    /// The index of the end vertex of the first edge from `start` on that overlaps `a`-`b` and
    /// is parallel to it (in space, at the height of the vertex before `start`); -1 if none.
    int GetSegmentOnEdgeIndex(const RvPoint2D& a, const RvPoint2D& b, int start) const;
    /// Whether `a`-`b` overlaps some edge.
    bool SegmentOnEdge(const RvPoint2D& a, const RvPoint2D& b) const;
    /// 1 if some segment of `e` (the closing one too when `closed`) overlaps an edge.
    int PolylineOnEdge2D(const RvDrawEntity& e, bool closed) const;
    /// Whether `a`-`b` runs along the boundary, over as many collinear edges as needed.
    bool IsEdge(RvPoint2D& a, RvPoint2D& b);
    /// Whether the segments `a0`-`a1` and `b0`-`b1` meet, with ends included and 0.0001 as the
    /// parallel tolerance; false for a segment whose ends coincide within 0.01.
    static bool TestIntersectSegments(const_iterator a0, const_iterator a1, const_iterator b0,
                                      const_iterator b1);
    /// Whether at least `count` pairs of an edge and a segment of `e` meet.
    bool IntersectPolygon(const RvDrawEntity& e, bool closed, int count) const;
    /// Whether `e` meets the boundary or starts inside.
    bool TestIntersectEntity(const RvDrawEntity& e, bool closed) const;
    /// Whether the two polygons meet, one holds the other, or they are equal.
    bool TestIntersectPolygon(const RvPolygon2D& o) const;
    /// Whether `e` lies inside, touching the boundary nowhere.
    bool IsInside(const RvDrawEntity& e) const;
    /// Whether the segment `a`-`b` passes through the polygon: its crossings, less one for each
    /// end strictly inside, number at least two.
    bool TestIntersectSegment2DBreak(RvPoint2D& a, RvPoint2D& b);
    /// Whether the two records lie on adjacent edges; if so `b` moves to their common vertex
    /// and takes `a`'s edge.
    bool TestNeibEdgeBreak(const _RvInterPoint& a, _RvInterPoint& b);
    /// Merges into `out`, sorted by distance from `a` and without points within 0.01 of one
    /// already there, the crossings of the segment `a`-`b` with the edges.
    void IntersectsWithLine(RvPoint2D& a, RvPoint2D& b, CArray<RvPoint2D, const RvPoint2D&>& out);
    /// A unit normal of the ring, +z for a counterclockwise ring in the plane z = 0, decided by
    /// a probe up to two units inside the first corner that is not flat. The cross product as
    /// it is for a flat or degenerate ring.
    RvPoint3D GetNormalVector() const;
    /// Whether `from` plus the unit vector of `v` lies in the polygon.
    bool IsVectorInsideFrom(RvPoint3D v, const RvPoint3D& from) const;
    /// Reverses `v` unless it points inside from `from`.
    void SetVectInsideFrom(RvPoint3D& v, const RvPoint3D& from) const;
    /// The first point of `e` off this polygon's boundary; `e.end()` if none.
    std::vector<RvPoint2D>::const_iterator GetNonEdgePoint(const RvDrawEntity& e) const;

    // ---- Boundary records and break queries ---------------------------------------------------

    /// Orders boundary points by their arc length from `m_sortOrigin`; false with no
    /// `m_sortPolygon`.
    static bool sort_RvInterPoint_less(const _RvInterPoint& l, const _RvInterPoint& r);
    /// Orders records by their nearer end from `m_sortOrigin`, records marked done last; each
    /// record compared has its nearer end made its start.
    static bool sort_RvInterSegmentStart_less(_RvInterSegment& l, _RvInterSegment& r);
    static bool sort_pRvInterSegmentStart_less(_RvInterSegment* l, _RvInterSegment* r);
    static bool sort_pRvInterSegmentStart_greater(_RvInterSegment* l, _RvInterSegment* r);
    /// Orders records by their farther end from `m_sortOriginEnd`, records marked done last;
    /// each record compared has its farther end made its end.
    static bool sort_pRvInterSegmentEnd_less(_RvInterSegment* l, _RvInterSegment* r);
    static bool sort_pRvInterSegmentEnd_greater(_RvInterSegment* l, _RvInterSegment* r);

    using RvDrawEntity::GetLength;
    /// The arc length along the boundary from `a` to `b`, walking towards rising vertex index;
    /// `a` on `b`'s edge but not before it walks round the ring.
    double GetLength(const _RvInterPoint& a, const _RvInterPoint& b);
    /// Pushes the hits of the half-line from `p` with direction `d` on `q`, nearest on top.
    virtual bool IntersectHalfLine2D(const RvPoint2D& p, const RvPoint2D& d, HitQueue& q) const;
    /// Appends the hits of the half-line in the order of the edges; a hit at `p` is refused.
    bool IntersectHalfLine2DBreak(const RvPoint2D& p, const RvPoint2D& d,
                                  std::vector<_RvInterPoint>& out);
    /// Appends the hits of the whole line through `p`, with an edge lying on the line reported
    /// by its first vertex.
    bool IntersectLine2DBreak(const RvPoint2D& p, const RvPoint2D& d,
                              std::vector<_RvInterPoint>& out);
    /// Appends the crossings of the segment `a`-`b`; for each end strictly inside, the record
    /// nearest to it is then removed from `out`.
    bool IntersectSegment2DBreak(RvPoint2D& a, RvPoint2D& b, std::vector<_RvInterPoint>& out);
    bool IntersectSegment2DBreak(RvPoint2D& a, RvPoint2D& b, std::vector<RvPoint2D>& out);
    /// The edge nearest to `q` on which the foot of `p` lies strictly inside; the foot in `foot`.
    /// -1 if none.
    virtual int GetNearestSegment2D(const RvPoint2D& p, const RvPoint2D& q, RvPoint2D& foot) const;

    // ---- Boolean combination ------------------------------------------------------------------

    /// The difference, intersection or union with `other`, as open rings in `result` (holes as
    /// rings of their own, orientation as traced). Works on copies of both operands. False,
    /// with `result` untouched, if either polygon is empty; otherwise `result` is cleared and
    /// the answer is true, also when nothing remains.
    bool Combine(const RvPolygon2D& other, _RvCombineMode mode,
                 std::vector<RvPolygon2D>& result) const;
    /// The worker of Combine. It prepares this polygon in place: `z` zeroed and vertices within
    /// 0.01 of the one before removed.
    bool _Combine(RvPolygon2D other, _RvCombineMode mode, std::vector<RvPolygon2D>& result);

    /// Appends this polygon to `out`, then subtracts every polygon of `removed`, in order, from
    /// everything in `out`. Rings that come back are plain rings: which was a hole is lost.
    void RemovePolygons(std::vector<RvPolygon2D>& removed, std::vector<RvPolygon2D>& out);
    /// Appends to `out` the intersection with each of `others`: a copy of one that lies inside,
    /// otherwise Combine's rings. The rings of the last Combine are appended again after each
    /// polygon that lies inside.
    void IntersectPolygons(const std::vector<RvPolygon2D>& others, std::vector<RvPolygon2D>& out);
    /// The ring from the boundary point `start` along `dir` (turned inward if needed) to the
    /// nearest hit on the boundary, then back along the vertices, against the walk `step` (+1 or
    /// -1), to `start`. False, with `out` empty, if the half-line meets no edge.
    bool GetClosedInterPolygon(_RvInterPoint start, RvPoint3D dir, int step, _RvInterPoint& hit,
                               RvPolygon2D& out);

    // ---- Splitting
    // -------------------------------------------------------------------------------

    /// Divides the convex ring along the line through `point` with direction `direction`:
    /// `first` and `second` are emptied and receive the vertices on either side, each with the
    /// hits. Only two sides are known, so a ring met more than twice gets mixed halves. False,
    /// with everything in `first`, if the line meets no edge; false, with both untouched, for a
    /// ring without vertices.
    bool CutBoundingRectangle(RvPoint2D& point, RvPoint2D& direction, RvPolygon2D& first,
                              RvPolygon2D& second);
    /// Appends the pieces on either side of the line through `first` and `second`: the
    /// intersections with the two halves of the bounding rectangle grown by 100, the first
    /// half's pieces first. A copy of the polygon if the line misses it.
    void SplitWithLine(RvPoint2D first, RvPoint2D second, std::vector<RvPolygon2D>& result);
    /// Appends the pieces into which the open `path` cuts the polygon. True if more than one
    /// polygon was added; false, with nothing added, for a polygon without a normal. A path that
    /// does not cut it through adds the polygon itself.
    bool SplitWithPolyLine(const RvDrawEntity& path, std::vector<RvPolygon2D>& result) const;
    /// Appends the stretches of `line` inside the polygon (`inside`), or outside it, as
    /// polylines. True if `result` grew; false for fewer than two vertices.
    bool SplitPolyline(const RvPolyLine2D& line, std::vector<RvPolyLine2D>& result,
                       bool inside) const;
    /// Appends the pieces into which the plane through `point` with normal `normal` cuts the
    /// ring, on `x`, `y`, `z`. A plane that misses or only touches the ring adds the ring itself.
    void SplitWithPlane(RvPoint3D point, RvPoint3D normal, std::vector<RvPolygon2D>& result);
    /// As SplitWithPlane for the plane through `first` with normal `normal`, cutting only
    /// between `first` and `second`.
    void SplitWithPlaneSegment(RvPoint3D first, RvPoint3D second, RvPoint3D normal,
                               std::vector<RvPolygon2D>& result);

    // ---- Constant-distance offsets ----------------------------------------------------------
    //
    // A positive distance moves every edge away from the interior, a negative one towards it,
    // whichever way the ring runs.

    /// Set by FindOffsetCollision: 1 when its last answer was a true crossing, else 0. Shared by
    /// all polygons and threads.
    static int m_nOffsetCrossing;

    /// Moves every vertex by the mitred corner shift at `distance`, in place, with no repair:
    /// a shrinking past the polygon's size leaves an inverted or self-crossing ring.
    void Extend(double distance);
    /// Whether the ring has three vertices or more and an offset by `distance` leaves something:
    /// always for distances above -1e-05, otherwise when some offset corner stays inside.
    bool IsExtendable(double distance);
    /// The ring of the edges that survive a shrinking by `distance` (negative), at their input
    /// positions; a copy for a growing or too few vertices.
    RvPolygon2D _GetReducedPolygon(double distance);
    /// Appends the offset at `distance` as polygons: the shifted ring is cut where it crosses
    /// itself or where edges flipped, and the parts on the proper side are kept.
    void GetExtend(double distance, std::vector<RvPolygon2D>& result);
    /// The offset as one polygon, walking the vertices as an open chain from the first to the
    /// last: the first vertex stays, the closing edge is not offset, and edges that the new
    /// segment would run into are jumped over. A failure of DajPriesecnik reaches the caller.
    RvPolygon2D GetOffset(double distance);
    /// The offset as one polygon, every edge of the closed ring shifted and each new line
    /// trimming the result built so far.
    RvPolygon2D GetExtendXX(double distance);

    /// Where two collinear edges, i and j, overlap, tried in a fixed order: the end of
    /// edge i inside edge j; none if the start of edge i lies inside it; the end, then the
    /// start of edge j inside edge i.
    static bool FindOverlapPoint(const RvPoint2D& iStart, const RvPoint2D& iEnd,
                                 const RvPoint2D& jStart, const RvPoint2D& jEnd, RvPoint2D& y);

    // ---- Per-edge offsets --------------------------------------------------------------------
    //
    // Every edge moves by a distance of its own, signed as above. `distances[i]` belongs to the
    // edge that ends at vertex i of the working copy of the ring, which drops doubled vertices
    // and collinear runs (and a vertex 0 that repeats the last one): after such a drop the
    // entries no longer follow the input's indices. The edges move in passes, each edge sliding
    // its ends along its neighbours, and `distances` keeps what each edge has still to travel:
    // it ends with the remainders. Too short a vector raises "invalid vector<T> subscript".

    /// GetExtendEx: appends the per-edge offset as polygons. Edges that stop at a neighbour
    /// that has shrunk to nothing wait for a later pass; the last of the five passes moves them
    /// without limits. Collapsed and flipped edges leave the ring, the ring is cut where it
    /// crosses itself, and the pieces that turn the way the polygon turns are kept. Nothing for
    /// a polygon without a normal.
    void GetExtendEx(std::vector<double>& distances, std::vector<RvPolygon2D>& result);
    /// GetExtendEx2: as GetExtendEx, but the moves are limited in every pass, so an edge held
    /// back until the passes run out keeps its remainder and the ring stays where it has got
    /// to; an edge is dropped when it runs against its input direction, and a piece when its
    /// normal turns against the polygon's.
    void GetExtendEx2(std::vector<double>& distances, std::vector<RvPolygon2D>& result);
    /// GetExtendEx: every edge at `distance`, by GetExtendEx (`useEx2` 0) or GetExtendEx2.
    /// Nothing for a polygon without vertices.
    void GetExtendEx(double distance, std::vector<RvPolygon2D>& result, int useEx2);
    /// GetExtendEx: each edge at `first`, or at `second` when both its ends lie on the
    /// non-positive side of the nearest segment of `outline` (the planar cross product of the
    /// segment taken backwards from its end with the way from that end to the vertex): for an
    /// outline running along +x, `second` for edges above it. By GetExtendEx (`useEx2` 0) or
    /// GetExtendEx2.
    void GetExtendEx(double first, double second, const RvPolyLine2D& outline,
                     std::vector<RvPolygon2D>& result, int useEx2);
    /// GetOffsetEx: the per-edge offset as one polygon, about `normal` (the ring may be a chain
    /// without a normal of its own): the last piece traced, or the moved ring when nothing was
    /// traced, with its straight and folded vertices removed. A copy of this polygon for fewer
    /// than two distances; an empty polygon for a null `normal`.
    RvPolygon2D GetOffsetEx(std::vector<double>& distances, const RvPoint3D& normal) const;
    /// GetOffsetEx2: as GetOffsetEx, with the edges moved as by GetExtendEx2.
    RvPolygon2D GetOffsetEx2(std::vector<double>& distances, const RvPoint3D& normal);
    /// GetOffsetEx: every edge at `distance`, by GetOffsetEx (`useEx2` 0) or GetOffsetEx2.
    RvPolygon2D GetOffsetEx(double distance, const RvPoint3D& normal, int useEx2);
    /// GetOffsetEx: each edge at `first` or `second` as chosen by `outline`, by GetOffsetEx
    /// (`useEx2` 0) or GetOffsetEx2.
    RvPolygon2D GetOffsetEx(double first, double second, const RvPolyLine2D& outline,
                            const RvPoint3D& normal, int useEx2);

    // ---- Straight skeleton ----------------------------------------------------------------------

    /// GetSkelet: the polygon's straight skeleton, made on first use. A counterclockwise polygon
    /// is reversed in place first, since the skeleton shrinks clockwise contours. The skeleton
    /// stays as made when the points change later.
    RvSkeleton* GetSkelet();
    /// GetExtendSKELET: appends the offset rings at the signed distance `offset` (negative
    /// inwards), read from the skeleton, at the height of the first vertex. Nothing for a polygon
    /// without vertices.
    void GetExtendSKELET(double offset, std::vector<RvPolygon2D>& result);

private:
    /// Lets the tests drive the private steps of the offsets.
    friend struct RvPolygon2DTestAccess;

    /// Destroys the skeleton held, if any.
    void DeleteSkeleton();

    /// Adds the crossings of the edge from the vertex before `edge` to vertex `edge` with the
    /// path from `pathBegin` to `pathEnd`, as type 2 nodes and queue entries. `edgeNormal` is
    /// the edge's normal in the polygon's plane.
    void FindPathCrossings(const RvPoint3D& edgeNormal, int edge, const_iterator pathBegin,
                           const_iterator pathEnd, SplitNodes& nodes,
                           SplitCrossingQueue& crossings) const;
    /// Follows the links from `start`, taking the last link of each node, and appends the ring
    /// walked.
    static void TraceSplitLoop(SplitNode* start, std::vector<RvPolygon2D>& result);
    /// Adds the crossings of `line` with every edge, keyed by their length along it.
    void FindPolylineCrossings(const RvPolyLine2D& line, SplitPolylineQueue& points) const;
    /// The place in `chords` of the record of least position, of type 2 unless `anyType`; -1
    /// if none qualifies, and 0 for an empty list.
    static int FindNearestChord(const SplitChords& chords, bool anyType);
    /// Traces the rings of a plane cut from `start`: where a node keeps links after its last one
    /// was taken, the ring beyond it is traced and appended before the current one.
    static void TraceChordLoops(SplitNode* start, std::vector<RvPolygon2D>& result);

    /// Removes the vertices that are straight, folded or on a null edge (|A·B| above
    /// |A||B| - 1e-08 for the arms A and B). After a removal the vertex that takes the place is
    /// judged with the same predecessor; vertex 0 takes the last vertex as its predecessor.
    static void RemoveFlatVertices(RvPolygon2D& ring);

    /// Copies `source` into this empty polygon for per-edge offsetting, through
    /// AddPolygonPoint, leaving out vertices on a null edge, then drops a doubled or straight
    /// vertex where the ring closes; returns the unit outer normal about `normal` of each edge
    /// of the copy, by the index of the vertex that ends it.
    std::map<int, RvPoint3D> CopyOffsetRing(const RvPolygon2D& source, const RvPoint3D& normal);
    /// Copies `source` into this empty polygon (CopyOffsetRing), lists all its edges in
    /// `edgeIndices` and moves them by `distances` in the passes of MoveOffsetEdges; returns
    /// the edges' outer normals.
    std::map<int, RvPoint3D> MoveOffsetCopy(const RvPolygon2D& source,
                                            std::vector<double>& distances, const RvPoint3D& normal,
                                            bool useEx2, bool chain, std::vector<int>& edgeIndices);
    /// Overwrites `edgeIndices` with the indices of all vertices, in order.
    void FillEdgeIndices(std::vector<int>& edgeIndices) const;
    /// The moving passes of the per-edge offsets over the edges in `edgeIndices`, by
    /// MoveOffsetEdge or (`useEx2`) MoveOffsetEdge2. A `chain` is cut where its first edge
    /// starts, at the end of its last one: no walk over collapsed vertices passes that vertex.
    void MoveOffsetEdges(std::map<int, RvPoint3D>& edgeDirections, std::vector<double>& distances,
                         std::vector<int>& edgeIndices, const RvPoint3D& normal, bool useEx2,
                         bool chain);
    /// Moves edge `edge` (ending at that vertex) by what is left of its distance, its ends
    /// sliding along the lines of its neighbours in `edgeDirections`; with `limited`, no further
    /// than a shrinking neighbour's length or the meeting point of the neighbours' lines ahead.
    /// Collapsed vertices next to the ends move with them, up to `before` and `after`. False,
    /// with nothing moved, where a direction is null or a shrinking neighbour runs along the
    /// edge.
    bool MoveOffsetEdge(int edge, std::map<int, RvPoint3D>& edgeDirections,
                        std::vector<double>& distances, const RvPoint3D& normal, RvPoint2D* before,
                        RvPoint2D* after, bool limited);
    /// The variant of GetExtendEx2: MoveOffsetEdge, limited in every pass, for an edge still in
    /// `edgeIndices`; false for one that is not.
    bool MoveOffsetEdge2(int edge, std::map<int, RvPoint3D>& edgeDirections,
                         std::vector<double>& distances, std::vector<int>& edgeIndices,
                         const RvPoint3D& normal, RvPoint2D* before, RvPoint2D* after);
    /// Adds a type 2 node, indexed by the later edge, for each place where the edge at
    /// `position` of `edgeIndices` crosses or overlaps a later edge that is not the next one
    /// (the first edge meets the last, its neighbour across the wrap);
    /// each node also goes to `edgeNodes`, the list of the edge at `position`.
    void FindEdgeCrossings(std::size_t position, const std::vector<int>& edgeIndices,
                           const RvPoint3D& normal, SplitNodes& nodes,
                           std::vector<SplitNode*>& edgeNodes) const;
    /// Builds the ring of the edges in `edgeIndices` with their crossings as a node graph and
    /// appends the loops it falls into.
    void TraceOffsetGraph(const std::vector<int>& edgeIndices, const RvPoint3D& normal,
                          std::vector<RvPolygon2D>& result) const;
    /// Traces the loops of a ring that crosses itself, inner loops first, as TraceChordLoops.
    static void TraceOffsetLoops(SplitNode* start, std::vector<RvPolygon2D>& result);
    /// The distance of each vertex's edge, `first` or `second`: `first` unless both ends of the
    /// edge (the vertex and the one before it) lie on the non-positive side of the nearest
    /// segment of `outline` (its segment 0 left out), judged by the planar cross product of the
    /// segment, taken backwards from its end, with the way to the vertex. `first` throughout
    /// when `outline` has no vertices.
    std::vector<double> GetOutlineDistances(double first, double second,
                                            const RvPolyLine2D& outline) const;
    /// The per-edge offset as polygons, by GetExtendEx or (`useEx2`) GetExtendEx2.
    void ExtendEdgesToPolygons(std::vector<double>& distances, std::vector<RvPolygon2D>& result,
                               bool useEx2);
    /// The per-edge offset as one polygon, by GetOffsetEx or (`useEx2`) GetOffsetEx2.
    RvPolygon2D OffsetEdgesToPolygon(std::vector<double>& distances, const RvPoint3D& normal,
                                     bool useEx2) const;

    /// Whether `point` lies inside and at least |distance| from every edge, outside the cone of
    /// each offset corner. `index` receives the end vertex of an edge found too near, and is
    /// left alone otherwise.
    bool TestOffsetPoint(RvPoint3D& point, double distance, int& index);
    /// Strings the points from `cursor` to `end` into this polygon, splitting off into `result`
    /// every loop closed by a repeated point, inner loops first.
    void CollectLoops(iterator& cursor, iterator end, std::vector<RvPolygon2D>& result, bool top);
    /// The first vertex from `first` to `last` whose incoming edge the offset segment `from`-`to`
    /// crosses or comes nearer to than |distance|; `last` if none.
    static iterator FindOffsetCollision(const RvPoint3D& from, const RvPoint3D& to, double distance,
                                        const RvPoint3D& normal, iterator first, iterator last);
};

}  // namespace ravelin
