#pragma once

#include "ravelin/RvExport.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"

namespace ravelin {

/// A plane given by one of its points and two unit directions lying in it. Only the positions
/// in space of the directions matter to the operations.
class RAVELIN_API RvPlane {
public:
    RvPoint2D m_vectorU;  ///< First in-plane direction.
    RvPoint2D m_vectorV;  ///< Second in-plane direction.
    RvPoint3D m_point;    ///< A point of the plane.

    RvPlane();
    RvPlane(RvPoint3D point, RvPoint3D normal);
    RvPlane(RvPoint3D point, RvPoint3D u, RvPoint3D v);
    virtual ~RvPlane();

    /// The plane through `point` with normal `normal`: the second direction is horizontal and
    /// perpendicular to the normal's projection, the first is normal x second.
    void Set(RvPoint3D point, RvPoint3D normal);
    /// The plane through `point` spanned by `u` and `v`, each normalised but not made
    /// perpendicular to the other.
    void Set(RvPoint3D point, RvPoint3D u, RvPoint3D v);
    /// `m_vectorU` x `m_vectorV`, not normalised again.
    RvPoint3D GetNormalVector() const;
    /// This plane's normal x `other`'s normal: the direction of the common line.
    RvPoint3D GetIntersectVector(const RvPlane& other) const;
    /// A copy of `m_point`.
    RvPoint3D GetPoint() const;
};

}  // namespace ravelin
