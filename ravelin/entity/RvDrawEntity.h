#pragma once

#include <cstdint>
#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CDC.h"
#include "ravelin/platform/CPoint.h"
#include "ravelin/platform/CRect.h"

namespace ravelin {

struct _RvInterPoint;

/// A rectangle in drawing units: four doubles. GetExtens2D fills `top` with the least and
/// `bottom` with the greatest ordinate; IsInClientArea reads `top` as the greater one.
struct CTtagRECT {
    double left;
    double top;
    double right;
    double bottom;
};

/// The kind of a hit found by IsIncident. The library assigns and tests these two values;
/// any other value a caller passes in comes back untouched.
enum enumSnapType : int {
    /// On an edge. Passed in, it asks for edges only, never the interior.
    SnapEdge = 2,
    /// Inside the area.
    SnapInside = 3,
};

/// The vertex sequence from which every drawable entity derives: an ordered sequence of
/// RvPoint2D vertices (the entity is itself the vector), a type word, and the links of a doubly
/// linked list that the client builds.
///
/// Segment `i` ends at vertex `i` and begins at the previous vertex with wrap, so segment 0 is
/// the closing one from the last vertex to vertex 0; members that number segments otherwise say
/// so. An "open chain" is the segments from vertex k to k + 1 for k from 0 to n - 2.
///
/// Element access through `operator[]` is checked here: an index outside the vertices raises
/// std::out_of_range with "invalid vector<T> subscript".
///
/// Several members keep the names their authors gave them; each is described in English.
class RAVELIN_API RvDrawEntity : public std::vector<RvPoint2D> {
public:
    using Base = std::vector<RvPoint2D>;

    std::uint32_t reservedWord1;  ///< Kept for clients; copied by copy and by assignment.
    std::uint32_t reservedWord2;  ///< Kept for clients; copied by copy and by assignment.
    std::uint32_t reservedWord3;  ///< Kept for clients; copied by assignment only.
    std::uint8_t reservedFlag;    ///< Kept for clients; copied by assignment only.
    /// The outcome of the last three-dimensional intersection or of the last
    /// PointInPolygonEx2D. Each of them sets it on entry; no constructor does.
    int intersectStatus;
    /// The type word, set by the derived classes. Copied by assignment, not by copying.
    unsigned int type;
    RvDrawEntity* next;  ///< Next member of the client's list, or null.
    RvDrawEntity* prev;  ///< Previous member of the client's list, or null.

    /// No vertices, all fields zero.
    RvDrawEntity();
    /// Copies `reservedWord1`, `reservedWord2` and the vertices; the rest is zero.
    RvDrawEntity(const RvDrawEntity& e);
    /// Copies the vertices and every field but the links, which become null without the
    /// neighbours being told.
    RvDrawEntity& operator=(const RvDrawEntity& e);
    /// Removes the vertices, then joins the neighbours to each other, so a list stays whole.
    virtual ~RvDrawEntity();

    // ---- Drawing and hit-testing --------------------------------------------------------------

    /// Paints the entity on `dc`; always returns an empty rectangle.
    virtual CRect Draw(CDC* dc) = 0;
    /// Whether the pointer at `p` touches the entity within the search distance `d`, which may
    /// come back lowered to the distance reached. `snap` and `hit` describe the hit.
    virtual bool IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                            RvDrawEntity& hit) const = 0;
    /// Whether the rectangle `r` selects the entity: `mode` 1 asks for full inclusion, 2 for
    /// touching.
    virtual bool InvSelectArea(const CRect& r, int mode) const = 0;
    /// Hit test of the vertices in pixels, within the half-width `tol` around `cursor`. The
    /// vertex hit is copied to `found` and `tol` becomes its distance plus one; a nearer vertex
    /// found later replaces it, and of equals the last wins.
    virtual bool IsOnVertex(RvPoint2D& cursor, RvPoint2D& found, double& tol);

    /// Sets the raster operation with which every later filled shape is drawn (15 at start).
    static void SetROP2LIB(int rop);

    // ---- List and type -----------------------------------------------------------------------

    unsigned int GetType() const { return type; }
    void SetType(unsigned int t) { type = t; }
    RvDrawEntity* GetNextItem() const { return next; }
    RvDrawEntity* GetPrevItem() const { return prev; }
    /// Links `e` after this entity, in both directions. `e` must not be null.
    void SetNextItem(RvDrawEntity* e);
    /// Forgets both links without telling the neighbours.
    void ClearThisItem();
    /// Destroys every member from `*head` on, following `next`, and leaves `*head` null.
    static void DeleteWholeList(RvDrawEntity** head);

    // ---- Vertices ----------------------------------------------------------------------------

    /// Vertex `i`, checked.
    RvPoint2D& operator[](size_type i);
    const RvPoint2D& operator[](size_type i) const;
    void clearA();
    void push_backA(const RvPoint2D& p);
    void insertA(const_iterator pos, const RvPoint2D& p);
    void insertA(const_iterator pos, const RvPoint2D* first, const RvPoint2D* last);
    /// Removes all vertices, then inserts the range.
    void assignA(const_iterator first, const_iterator last);
    /// Removes all vertices and zeroes all fields, the type and the links too, without
    /// unlinking. Derived classes set their type word again.
    void ReInit();

    // ---- Index arithmetic ----------------------------------------------------------------------

    /// Brings `i` into 0 to n - 1 by adding or subtracting the vertex count n. On an entity with
    /// no vertices `i` is left as it is.
    void ValidateIndex(int& i) const;
    /// The vertex after `i`: the first one if `i`, taken as unsigned, is at least n - 1 (so
    /// also for -1), else vertex `i` + 1. On an entity with no vertices, end().
    iterator GetNextPoint(int i);
    const_iterator GetNextPoint(int i) const;
    /// The vertex after `it`, the first after the last.
    iterator GetNextPoint(iterator it);
    const_iterator GetNextPoint(const_iterator it) const;
    /// The vertex before `i`: the last one if `i` <= 0, else vertex `i` - 1, which must exist
    /// (else "invalid vector<T> subscript"). On an entity with no vertices, end().
    iterator GetPrevPoint(int i);
    const_iterator GetPrevPoint(int i) const;
    /// The vertex before `it`, the last before the first.
    iterator GetPrevPoint(iterator it);
    const_iterator GetPrevPoint(const_iterator it) const;

    // ---- Transformations ----------------------------------------------------------------------

    /// Adds `d` to every vertex, all five values.
    void Move(RvPoint2D d);
    /// Mirrors every vertex in the plane `a*x + b*y + c*z + d = 0`, in space; the planar pair
    /// then equals the new `x`, `y`.
    void Mirror(double a, double b, double c, double d);
    /// Sets `z` of every vertex.
    void Locate(double z);
    /// Reverses the order of the vertices.
    void Reverse();

    // ---- Queries -------------------------------------------------------------------------------

    /// Sum of the distances in space along the open chain; 0 for fewer than two vertices.
    double GetLength() const;
    /// Vertex `i` less the vertex before it, in space.
    RvPoint3D GetSegmentVector(int i) const;
    /// GetSegmentVector(i) x (0, 0, 1), or x (0, 0, -1) unless `up`; of unit length unless
    /// it is null.
    RvPoint3D GetSegmentNormalVector(int i, bool up) const;
    /// True if no vertex has `sign * (a*x + b*y + c*z + d)` strictly above 1e-07: the entity
    /// lies on the side opposite to RvPoint3D::IsInHalfSpace, or on the plane.
    bool IsInHalfSpace(double a, double b, double c, double d, int sign) const;
    /// A new array of the device pixel of every vertex; the caller frees it with delete[].
    tagPOINT* GetPOINTArray() const;

    // ---- Bounding queries ----------------------------------------------------------------------

    /// GetExtens2D: the planar extent; false, with all four values zero, for fewer than two
    /// vertices.
    bool GetExtens2D(CTtagRECT& r) const;
    /// The extent of the vertices' device pixels. No vertices: "invalid vector<T> subscript".
    CRect GetBoundingRect() const;
    /// Least and greatest coordinates in space; both zero for fewer than two vertices.
    void GetBoundingCube(RvPoint3D& lo, RvPoint3D& hi) const;
    /// Replaces the vertices of `out` by the extent's four corners on `x`, `y`, grown by
    /// `margin`, counterclockwise from the least corner. No vertices: "invalid vector<T>
    /// subscript", with `out` untouched.
    void GetBoundingRectangle(RvDrawEntity& out, double margin) const;

    // ---- Intersection in the plane --------------------------------------------------------------
    // On the planar pair. Hits carry all five values by interpolation. Output vectors are
    // appended to, never cleared.

    /// Whether the line through `a` with direction `d` meets the open chain. With `skipEnds`, a
    /// hit on a segment's end vertex (within 0.01) does not count.
    bool TestIntersectLine2D(RvPoint2D& a, RvPoint2D& d, bool skipEnds) const;
    /// Whether the segment `a`-`b` meets the open chain.
    bool TestIntersectSegment2D(const RvPoint2D& a, const RvPoint2D& b) const;
    /// The crossing of the segment `a`-`b` with the segment from vertex `i` to the next one
    /// (the last wraps to vertex 0), in `out`. Unless `withEnds`, a crossing within 0.01 (on
    /// `x`, `y`) of any of the four ends is refused, `out` being written all the same.
    bool IntersectSegment2D(const RvPoint2D& a, const RvPoint2D& b, RvPoint2D& out, unsigned int i,
                            bool withEnds) const;
    /// All crossings of the segment `a`-`b` with the open chain.
    bool IntersectSegment2D(const RvPoint2D& a, const RvPoint2D& b,
                            std::vector<RvPoint2D>& out) const;
    /// All crossings of the line through `a` with direction `d` with the open chain.
    bool IntersectLine2D(const RvPoint2D& a, const RvPoint2D& d, std::vector<RvPoint2D>& out);
    /// The meeting point of this entity's segment `i` and `e`'s segment `j`, both forward and
    /// taken as infinite lines. Both indices are bounded by this entity's vertex count.
    bool IntersectLine2D(RvDrawEntity& e, RvPoint2D& out, int i, int j);
    /// All crossings of the half-line from `o` with direction `d` with the open chain.
    bool Intersection2D_HalfLine(const RvPoint2D& o, RvPoint2D d, std::vector<RvPoint2D>& out);
    /// All crossings of the open chains of `e` and of this entity; with `inner`, only those in
    /// the interiors of both segments.
    bool Intersect(RvDrawEntity& e, std::vector<RvPoint2D>& out, bool inner);

    // ---- Intersection in space
    // ------------------------------------------------------------------- On `x`, `y`, `z`;
    // `intersectStatus` says 1 for a skew pair or a hit out of bounds and 2 for a parallel one,
    // where the member says it sets it.

    /// Segment `i` (forward, wrapping) against the segment `a`-`b`; `out` may be written even
    /// when the hit lies beyond `a`-`b`.
    bool IntersectSegment3D(RvPoint3D& a, RvPoint3D& b, RvPoint3D& out, unsigned int i);
    /// Whether any segment, the closing one included, meets the segment `a`-`b`.
    bool IntersectSegment3D(RvPoint3D& a, RvPoint3D& b);
    /// Segment `i` against the infinite line through `a` and `b`.
    bool IntersectSegmentAndLine3D(RvPoint3D& a, RvPoint3D& b, RvPoint3D& out, unsigned int i);
    /// Segment `i` as a line against the line through `a` and `b`; a skew pair is accepted when
    /// `b` projects within 0.001 onto the plane of the segment and `a`.
    bool IntersectLine3D(RvPoint3D& a, RvPoint3D& b, RvPoint3D& out, unsigned int i);
    /// The meeting points of the lines of `e`'s open chain with those of this entity's segments.
    /// A skew pair ends the whole operation with false.
    bool Intersect3D(RvDrawEntity& e, std::vector<RvPoint2D>& out);
    /// The common line of the planes of the first three vertices of `e` and of this entity: a
    /// point of it in `p1`, its unit direction in `p2`.
    bool IntersectPlane(RvDrawEntity& e, RvPoint2D& p1, RvPoint2D& p2);

    // ---- Intersection with circles and arcs
    // --------------------------------------------------------

    /// The crossings of the open chain with the circle round `c` of radius `r`, on the planar
    /// pair: of each segment, or of its line unless `bounded`. With `testOnly`, the first
    /// crossing answers true and nothing is appended.
    bool IntersectCircle2D(RvPoint2D& c, double r, std::vector<RvPoint2D>& out, bool bounded,
                           bool testOnly);
    /// As IntersectCircle2D with bounded segments, limited to the arc from angle `a0` to `a1`,
    /// counterclockwise in radians.
    bool IntersectArc2D(RvPoint2D& c, double r, double a0, double a1, std::vector<RvPoint2D>& out,
                        bool testOnly);
    /// The crossings of the open chain with an arc in space round `c`, radius `r`, in the plane
    /// of normal `n`, `w` pointing to angle zero. True if `out` holds anything at the end.
    bool IntersectArc(std::vector<RvPoint2D>& out, RvPoint2D c, double r, RvPoint2D n, RvPoint2D w,
                      double a0, double a1);

    // ---- Measures and nearest-point queries
    // ------------------------------------------------------

    /// Distance of `p` from the line through vertex `i` and the next one (the last wraps), on
    /// the planar pair; -1 for a bad `i`, 0 for a null segment.
    double GetDistancePoint2D(const RvPoint2D& p, unsigned int i);
    /// Distance of `p` from the segment from vertex `i` to the next one (the last wraps), on
    /// the planar pair, bounded at its ends: beyond an end, `nearest` names that end and the
    /// distance is from it. -1 for a bad `i`.
    double GetDistancePointSegment2D(RvPoint2D& p, int& nearest, unsigned int i);
    /// Distance of `p` from segment `i`, in space.
    double GetDistFromSegment(int i, const RvPoint3D& p);
    /// The least of the distances of the four ends from the other segment.
    double GetDistFromSegment(int i, const RvPoint3D& p, const RvPoint3D& q);
    /// The segment nearest to `p` in space; -1 for no vertices. Without `closed`, segment 0 is
    /// left out. Beyond its ends a segment is measured from its start vertex.
    int GetNearestSegment(const RvPoint3D& p, bool closed) const;
    /// The length along the path from `a` to `b`, walking in the direction `step` (+1 or -1).
    double GetLength(const RvPoint3D& a, const RvPoint3D& b, int step) const;
    /// NanesDlzkuOdSpecial: lays the length `d` off from `p` on segment `i` toward the start of
    /// the path, moving `p` and `i`. False if it walked round the whole path.
    bool NanesDlzkuOdSpecial(RvPoint3D& p, int& i, double d);
    /// NanesDlzkuOdSpecialOpacne: the same toward the end of the path; vertices within `d` of
    /// the walker are passed at no cost, and the full `d` is laid off from the last one.
    bool NanesDlzkuOdSpecialOpacne(RvPoint3D& p, int& i, double d);

    // ---- Path editing
    // ----------------------------------------------------------------------------

    /// Appends `p` so that the sequence has no doubled vertices and no collinear inner ones;
    /// false when no vertex was added.
    bool AddPolygonPoint(const RvPoint2D& p);
    /// Appends the vertices of `src` from `from` up to, not including, `to`, with wrap.
    void UpEndFrom(RvDrawEntity& src, int from, int to);
    /// OdstranOstreUhly: removes corners sharper than `angle` (radians) whose shorter arm is
    /// below `minLength`, by joining the line beyond the short arm to the long arm.
    void OdstranOstreUhly(double angle, double minLength);
    /// ZaobliVrcholy: cuts each inner corner with a straight chamfer of a circle of `radius`.
    void ZaobliVrcholy(double radius);
    /// Appends to `out` the path from `first` to `last` offset by `d1` in the plane of normal
    /// `n`, entering with direction `v`, and its return to the path at `d2`.
    void ExtendUpEnd(iterator first, iterator last, double d1, double d2, RvPoint3D v,
                     const RvPoint3D& n, RvDrawEntity& out);

    // ---- Polygon support ------------------------------------------------------------------

    /// The crossings of the leftward half-line from `p` with the ring from `first` to `last`
    /// (and its closing edge when `close`), in the band; 0 as soon as `p` lies on an edge.
    int CountHalfLineCrossings(const RvPoint2D& p, const_iterator first, const_iterator last,
                               bool close) const;
    /// The hit of the half-line from `o` with direction `d` on segment `i`, walked from vertex
    /// `i` back to the vertex before it; a hit at the half-line's start does not count. On a
    /// hit `out` takes the point and the edge `i`.
    bool Intersection2D_HalfLineSegmentBreak(RvPoint2D o, RvPoint2D d, int i, _RvInterPoint& out);
    /// Appends `a`, the vertices of `src` from `a`'s edge up to `b`'s, then `b`.
    void AddPolygonPoints(const _RvInterPoint& a, const _RvInterPoint& b, RvDrawEntity& src);
    /// Appends `a`, the vertices of `src` from before `a`'s edge back to `b`'s, then `b`.
    void AddPolygonPointsBackward(const _RvInterPoint& a, const _RvInterPoint& b,
                                  RvDrawEntity& src);

    // ---- Clipping and the client area
    // --------------------------------------------------------------

    /// Clips the segment `a`-`b` to the square from -`half` to `half`, on the planar pair.
    /// `cut` tells whether `b` moved. False when nothing of length 0.001 is left.
    static bool CutLineToSquare(const int& half, RvPoint2D& a, RvPoint2D& b, bool& cut);
    /// Clips the whole path to the square; a closed one is also closed against its first vertex.
    void CutToSquare(const int& half, bool closed);
    /// 1 if `p1` lies strictly inside `r` (read with `top` the greater ordinate), else 2 if `p2`
    /// does, else 0; the first point inside may lower `best` to its distance from `cursor`.
    static int IsInClientArea(const RvPoint2D& p1, const RvPoint2D& p2, const RvPoint2D& cursor,
                              double& best, const CTtagRECT& r);
    /// Whether `p` lies strictly inside `r`; if so `best` may be lowered to its distance from
    /// `cursor` plus one.
    static bool IsInClientArea(const RvPoint2D& p, const RvPoint2D& cursor, double& best,
                               const CTtagRECT& r);

protected:
    /// The raster operation of filled shapes.
    static int s_nROP2LIB;

    /// The hit test of the segment `a`-`b` that every IsIncident applies: a quick box test,
    /// then the segment distance or the ends in the cursor box. On a hit, `hit` holds `a`, `b`
    /// and `snap` becomes SnapEdge; `d` may be lowered.
    static bool IsIncidentSegment(const RvPoint2D& a, const RvPoint2D& b, const RvPoint2D& p,
                                  double& d, enumSnapType& snap, RvDrawEntity& hit);
    /// IsIncidentSegment on each segment between consecutive vertices from `first` to `last`,
    /// in order: every segment is tried, and one that passes with the distance left by an
    /// earlier hit is nearer and replaces it. True if any was hit.
    static bool IsIncidentChain(const_iterator first, const_iterator last, const RvPoint2D& p,
                                double& d, enumSnapType& snap, RvDrawEntity& hit);
    /// InvSelectArea of a path: full inclusion of the vertices, or any vertex or border
    /// crossing for touching.
    bool InvSelectVertices(const CRect& r, int mode) const;
};

}  // namespace ravelin
