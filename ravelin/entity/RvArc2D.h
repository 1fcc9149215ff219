#pragma once

#include "ravelin/RvExport.h"
#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/platform/CDC.h"
#include "ravelin/platform/CRect.h"

namespace ravelin {

/// A polyline that also remembers the circle it was sampled from. The client fills both the
/// vertices (the visible sampled path) and the circle's fields; the members below check the
/// two against each other. Only the end points count as vertices in hit tests. With
/// `m_bFilled` the arc is drawn and hit as a filled shape, otherwise as an ordinary polyline.
/// Its type word is 13.
///
/// Several members keep the names their authors gave them; each is described in English.
class RAVELIN_API RvArc2D : public RvPolyLine2D {
public:
    static constexpr unsigned int kType = 13;

    double m_dRadius;    ///< Radius of the circle.
    double m_dAngle1;    ///< Start angle, in radians.
    double m_dAngle2;    ///< End angle, in radians.
    RvPoint2D m_center;  ///< Centre of the circle.
    /// Drawn as a filled shape and hit in its interior; false at construction. The library
    /// never writes it.
    bool m_bFilled;

    /// No vertices; radius, angles, centre and the flag zero.
    RvArc2D();
    /// Copies the polyline part, the circle's fields and the flag.
    RvArc2D(const RvArc2D& a);
    /// Assigns the polyline part, the circle's fields and the flag.
    RvArc2D& operator=(const RvArc2D& a);
    ~RvArc2D() override;

    /// As RvPolyLine2D::ReInit, then the type word 13 again and the circle's fields and the
    /// flag zero.
    void ReInit();

    /// Unfilled: as a polyline. Filled, with at least two vertices: fills the path in the
    /// library's raster operation in transparent background mode, then draws its outline (not
    /// closed) with R2_COPYPEN, and restores the device's raster operation. The background
    /// mode stays transparent.
    CRect Draw(CDC* dc) override;
    /// Filled: the pixel of `p` inside the pixel region of the path (unless `snap` comes as
    /// SnapEdge) is a hit with SnapInside; a path whose region cannot be made is never hit.
    /// Then, filled or not, the segments as for a polyline.
    bool IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                    RvDrawEntity& hit) const override;
    /// Hit test of the first and the last vertex only, the last winning a tie. A closed arc
    /// (ends equal within 0.01 and sweep above 3.14) has no ends and gives false. No vertices:
    /// "invalid vector<T> subscript".
    bool IsOnVertex(RvPoint2D& cursor, RvPoint2D& found, double& tol) override;

    /// Whether the vertices lie on the circle round `m_center`, on the planar pair: 1 with
    /// `radius` set, else 0. `angle1` and `angle2` receive the stored angles for a full circle,
    /// otherwise the angles of the end vertices ordered so that the counterclockwise sweep from
    /// `angle1` to `angle2` passes through vertex 1; they are written even when the answer is 0
    /// for collinear vertices. Fewer than three vertices: 0 with nothing written. Only vertices
    /// 0, 1, 2 (for collinearity) and 0, 1 and the last (for the radius) are read.
    int IsArc2D(double& radius, double& angle1, double& angle2) const;
    /// TestParalelToPlane: 1 if the radii to vertex 0 and to the last vertex (to vertex 1 for a
    /// half circle, whose ends are opposite) are both perpendicular to `normal` within 1e-05,
    /// in space; else 0.
    int TestParalelToPlane(RvPoint3D normal) const;
};

}  // namespace ravelin
