#pragma once

#include "ravelin/RvExport.h"
#include "ravelin/entity/RvPolyLine2D.h"

namespace ravelin {

/// A path meant to have exactly two vertices, `a` (vertex 0) and `b` (vertex 1): the workhorse
/// for perpendiculars and point-to-segment tests. Members that read vertices through the
/// checked subscript raise "invalid vector<T> subscript" on fewer than two.
///
/// Several members keep the names their authors gave them; each is described in English.
class RAVELIN_API RvLine2D : public RvPolyLine2D {
public:
    /// Two default vertices.
    RvLine2D();
    RvLine2D(const RvLine2D& l);
    RvLine2D(const RvPoint2D& a, const RvPoint2D& b);
    /// Two vertices with the planar pair equal to `x`, `y`.
    RvLine2D(const RvPoint3D& a, const RvPoint3D& b);
    ~RvLine2D() override;

    /// Overwrites all five values of vertices 0 and 1.
    void Set(const RvPoint2D& a, const RvPoint2D& b);
    /// Overwrites vertices 0 and 1 with `a`, `b` in space and in the plane.
    void Set(const RvPoint3D& a, const RvPoint3D& b);
    /// Overwrites all five values of vertices 0 and 1 with those of `l`; nothing else changes.
    RvLine2D& operator=(const RvLine2D& l);

    /// 1 if `p` lies on the segment within 0.0001, on the planar pair; else 0. A segment
    /// shorter than 0.0001 on both axes holds nothing.
    int IsPointOnSegment2D(const RvPoint2D& p);
    /// 1 if `p` equals an end (within 0.01), or lies exactly on the line by the parameter test
    /// along each axis; the parameter is not bounded, so points beyond the ends count. Else 0.
    int IsPointOnSegmentEx2D(const RvPoint2D& p) const;
    /// 1 if `p` lies on the segment in space: the two distances to the ends sum to its length
    /// within 1e-5. 0 for fewer than two vertices.
    int IsPointOnSegment3D(const RvPoint3D& p);
    /// The angle between `b - a` and the other line's direction taken backwards, 0 to pi.
    double GetAngle(RvLine2D& o);
    /// As GetAngle with the absolute value of the cosine, 0 to pi/2.
    double GetAngleDef(RvLine2D& o);
    /// The line from `p` to its foot on this line, on `x`, `y`; the foot has `z` 0. Lines within
    /// 0.1 of an axis direction are taken as axis-parallel.
    RvLine2D GetNormalLine2D(RvPoint3D& p);
    /// The foot of GetNormalLine2D for the line through `a` and `b`, without building lines.
    static RvPoint3D NormalFoot2D(const RvPoint3D& a, const RvPoint3D& b, const RvPoint3D& p);
    /// The line from `p` to its foot on this line, in space; the foot is `a` for a line shorter
    /// than 0.1.
    RvLine2D GetNormalLine3D(RvPoint3D& p);
    /// GetKolmyPriemetBoduNarovinu: the perpendicular projection of `b` onto the plane through
    /// this line and `a`. False unless the line and the distances of `a` from its ends exceed
    /// 0.1.
    bool GetKolmyPriemetBoduNarovinu(RvPoint3D a, RvPoint3D b, RvPoint3D& out);
    /// Whether `p` lies within `tol` of an end, or within `tol` of the segment.
    bool IsPointNearSegment(RvPoint3D& p, double tol);
};

}  // namespace ravelin
