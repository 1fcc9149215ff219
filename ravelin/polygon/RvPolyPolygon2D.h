#pragma once

#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

/// A polygon of several rings (an outline and holes, or separate islands) held one after the
/// other in the vertex vector: ring 0 first, then ring 1, and so on, with `m_Counts` giving the
/// number of vertices of each. A client appends a ring's vertices and then calls AddCount.
/// Rings are read as stored, with no closing edge added. Its type word is 10.
class RAVELIN_API RvPolyPolygon2D : public RvPolygon2D {
public:
    static constexpr unsigned int kType = 10;

    /// The number of vertices of each ring, in order. Nothing checks that they add up to the
    /// vertex count.
    std::vector<int> m_Counts;

    RvPolyPolygon2D();
    /// The polygon copy, then the counts.
    RvPolyPolygon2D(const RvPolyPolygon2D& p);
    RvPolyPolygon2D& operator=(const RvPolyPolygon2D& p);
    ~RvPolyPolygon2D() override;
    /// RvDrawEntity::ReInit, then no counts and the type word 10. The skeleton pointer is left
    /// as it is.
    void ReInit();

    /// Appends the count of a ring.
    void AddCount(int n);
    std::vector<int>* GetCounts();

    /// 1 if the crossings of the leftward half-line from `p` with all rings add up to an odd
    /// number; a ring on whose edge `p` lies adds nothing.
    int PointInsidePolyPolygonEx2D(const RvPoint2D& p) const;
    /// The vertex before `i` within its ring: the ring's last vertex for its first one.
    std::vector<RvPoint2D>::const_iterator GetPrevPoint(int i) const;

    /// Fills all rings together in the library's raster operation, with the current pen when
    /// `m_bDrawEdges`, else with a null pen.
    CRect Draw(CDC* dc) override;
    /// Inside (unless `snap` comes as SnapEdge) by PointInsidePolyPolygonEx2D, then, with
    /// `m_bDrawEdges`, the edges within each ring.
    bool IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                    RvDrawEntity& hit) const override;
    /// The hits on all rings, with their own tolerances; `m_nEdge` of each hit is a running
    /// number (the queue's size plus one), not an edge index.
    bool IntersectHalfLine2D(const RvPoint2D& p, const RvPoint2D& d, HitQueue& q) const override;
    /// The edge nearest to `p` in the plane over all rings, its ends counting; `q` is not read.
    /// The index is that of the edge's end vertex; -1 if none, or at once when an edge is
    /// parallel to the normal.
    int GetNearestSegment2D(const RvPoint2D& p, const RvPoint2D& q, RvPoint2D& foot) const override;

private:
    /// The ring counts fitted to the vertices: a negative count becomes 0, and a count reaching
    /// past the vertices is cut at the last one, so that the rings after it are empty. Nothing
    /// keeps `m_Counts` in step with the vertices, and no ring may be read beyond them. Counts
    /// that add up to the vertex count come back as they are.
    std::vector<int> RingCounts() const;
    /// The hits of the half-line on the ring from `first` to `last`.
    bool IntersectHalfLineRing(const RvPoint2D& p, const RvPoint2D& d, HitQueue& q,
                               const_iterator first, const_iterator last) const;
};

}  // namespace ravelin
