#pragma once

#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CPoint.h"

namespace ravelin {

class RvPolyLine2D;

/// The vertex type: a position in space (`x`, `y`, `z`, inherited) and an independent position
/// in the drawing plane (`x2D`, `y2D`). Members whose names end in 2D, and the planar orderings
/// and predicates below, read only the planar pair; what is inherited reads only `x`, `y`, `z`.
/// Arithmetic, equality, Round and Swap of this class act on all five values.
class RAVELIN_API RvPoint2D : public RvPoint3D {
    RAVELIN_DECLARE_SERIAL(RvPoint2D)

public:
    double y2D;  ///< Planar ordinate.
    double x2D;  ///< Planar abscissa.

    RvPoint2D();
    /// (`a`, `b`, 0) in space and (`a`, `b`) in the plane.
    RvPoint2D(double a, double b);
    /// (`a`, `b`, `c`) in space and (`a`, `b`) in the plane.
    RvPoint2D(double a, double b, double c);
    /// (`a`, `b`, `c`) in space and (`x2`, `y2`) in the plane.
    RvPoint2D(double x2, double y2, double a, double b, double c);
    RvPoint2D(const RvPoint2D& p);
    /// `p` in space, and its `x`, `y` in the plane.
    RvPoint2D(const RvPoint3D& p);  // NOLINT(google-explicit-constructor)
    RvPoint2D& operator=(const RvPoint2D& p);
    RvPoint2D& operator=(const RvPoint3D& p);
    ~RvPoint2D() override;

    /// (`a`, `b`, `c`) in space and (`a`, `b`) in the plane.
    void Set(double a, double b, double c);
    /// (`a`, `b`, `c`) in space and (`x2`, `y2`) in the plane.
    void Set(double x2, double y2, double a, double b, double c);
    /// Brings the planar pair back to `x`, `y`.
    void ResetCoord2D();

    using RvPoint3D::IsEqualOrientation;
    using RvPoint3D::operator*;
    RvPoint2D operator+(const RvPoint2D& p) const;
    RvPoint2D operator-(const RvPoint2D& p) const;
    RvPoint2D operator*(double f) const;
    RvPoint2D operator/(double f) const;
    RvPoint2D& operator+=(const RvPoint2D& p);
    /// Adds `p` in space, and `p.x`, `p.y` in the plane.
    RvPoint2D& operator+=(const RvPoint3D& p);
    RvPoint2D& operator/=(const double& f);

    /// Length of the planar pair.
    double GetSize2D() const;
    /// Planar distance to `p`.
    double GetDistance2D(const RvPoint2D& p) const;
    /// Exchanges all five values with those of `p`.
    void Swap(RvPoint2D& p);
    /// Divides the planar pair by its length with no guard, then normalises the point in space,
    /// with the one-shot warning for a null vector.
    void Normalize();
    /// Rounds all five values to `n` steps per unit, halves away from zero.
    void Round(int n);

    /// Box comparison with 0.01 on `x`, `y`, `z`, `x2D`, `y2D`.
    bool operator==(const RvPoint2D& p) const;
    bool operator!=(const RvPoint2D& p) const;
    /// Exact lexicographic order on (`x2D`, `y2D`), with no tolerance.
    bool operator<(const RvPoint2D& o) const;
    /// Exact lexicographic order on (`x2D`, `y2D`), with no tolerance.
    bool operator>(const RvPoint2D& o) const;
    /// 0 if the planar pairs agree within 0.01; otherwise the exact order on (`x2D`, `y2D`):
    /// 1 if this point comes after `o`, -1 if before.
    int xyorder(const RvPoint2D& o) const;

    /// The nearest device pixel of the planar position, halves away from zero. Coordinates
    /// beyond the 32-bit range give its nearest end; NaN gives 0.
    tagPOINT GetPOINT() const;
    /// Twice the signed area of the triangle `a`, `b`, this point, on the planar pair: positive
    /// when the point lies left of the directed line from `a` to `b`.
    Number IsLeft(const RvPoint2D& a, const RvPoint2D& b) const;
    /// 1 if the planar vectors to `a` and to `b` point the same way (cosine above 0.999999),
    /// -1 if opposite (below -0.999999), else 0; also 0 when either vector is zero.
    int IsEqualOrientation(const RvPoint2D& a, const RvPoint2D& b) const;

    /// Whether the planar position lies on the segment `a`-`b`: the foot's parameter strictly
    /// between -1e-05 and 1.00001 and the distance from it strictly below 0.001.
    bool IsOnSegment2D(const RvPoint2D& a, const RvPoint2D& b) const;
    /// Hit test of a square cursor of half-width `tol` dragged along `a`-`b`. When the result
    /// is true, `tol` may come back smaller: the distance reached, for comparing candidates.
    bool IsOnSegment2D(const RvPoint2D& a, const RvPoint2D& b, double& tol) const;

    /// Whether the point lies on `line`: it equals an end of some segment (within 0.01), or the
    /// planar directions from the segment's end to the point and from the point to the
    /// segment's start agree within the band. False for fewer than two vertices.
    bool IsOnPolyLine2D(const RvPolyLine2D& line) const;
    /// GetTangencialPoint: appends the two points where the tangents from this point touch the
    /// circle round `centre` of radius `r`, on `x`, `y` in the plane `z` = 0. False, with
    /// nothing appended, for a point inside the circle.
    bool GetTangencialPoint(RvPoint2D& centre, double r, std::vector<RvPoint2D>& out);
    /// GetTangencialPoint: the same for the axis-parallel ellipse of semi-axes `a` along `x2D`
    /// and `b` along `y2D`, on the planar pair. On success `out` is cleared first and gets the
    /// two points in the plane, with `x`, `y`, `z` zero; on failure it is untouched.
    bool GetTangencialPoint(RvPoint2D& centre, double a, double b, std::vector<RvPoint2D>& out);

    /// The record of RvPoint3D, then `x2D` and `y2D`.
    void Serialize(CArchive& ar) override;

private:
    /// Parameter of the foot of this point on `a`-`b`, on the planar pair, and the foot itself;
    /// false for a segment of zero length or a foot outside the accepted range.
    bool FootOnSegment2D(const RvPoint2D& a, const RvPoint2D& b, double& footX,
                         double& footY) const;
};

}  // namespace ravelin
