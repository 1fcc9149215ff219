#include "ravelin/entity/RvArc2D.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

#include "ravelin/platform/CPoint.h"
#include "ravelin/platform/CRgn.h"

namespace ravelin {

namespace {

// The bound of the last normalisation of IsArc2D lies 1e-06 below two pi.
constexpr double kAlmostTwoPi = 6.283184307179586;

// Angle of the planar position of `v` seen from `c`.
double PlanarAngle(const RvPoint2D& c, const RvPoint2D& v) {
    return std::atan2(v.y2D - c.y2D, v.x2D - c.x2D);
}

// Brings `b` into the turn that starts at `a`: `a` <= `b` <= `a` + two pi.
void Unwind(double a, double& b) {
    while (a > b) {
        b += kTwoPi;
    }
    while (b - a > kTwoPi) {
        b -= kTwoPi;
    }
}

}  // namespace

RvArc2D::RvArc2D() : m_dRadius(0), m_dAngle1(0), m_dAngle2(0), m_bFilled(false) {
    type = kType;
}

RvArc2D::RvArc2D(const RvArc2D& a)
    : RvPolyLine2D(a),
      m_dRadius(a.m_dRadius),
      m_dAngle1(a.m_dAngle1),
      m_dAngle2(a.m_dAngle2),
      m_center(a.m_center),
      m_bFilled(a.m_bFilled) {
    type = kType;
}

RvArc2D& RvArc2D::operator=(const RvArc2D& a) {
    RvPolyLine2D::operator=(a);
    m_dRadius = a.m_dRadius;
    m_dAngle1 = a.m_dAngle1;
    m_dAngle2 = a.m_dAngle2;
    m_center = a.m_center;
    m_bFilled = a.m_bFilled;
    return *this;
}

RvArc2D::~RvArc2D() = default;

void RvArc2D::ReInit() {
    RvPolyLine2D::ReInit();
    type = kType;
    m_dRadius = 0;
    m_dAngle1 = 0;
    m_dAngle2 = 0;
    m_center = RvPoint2D();
    m_bFilled = false;
}

// ---- Drawing and hit-testing -------------------------------------------------------------------

CRect RvArc2D::Draw(CDC* dc) {
    if (!m_bFilled) {
        return RvPolyLine2D::Draw(dc);
    }
    if (size() < 2) {
        return CRect();
    }
    const int n = static_cast<int>(size());
    const int former = dc->SetROP2(s_nROP2LIB);
    dc->SetBkMode(TRANSPARENT);
    std::unique_ptr<tagPOINT[]> points(GetPOINTArray());
    Polygon(dc->m_hDC, points.get(), n);
    // A filled arc always shows its outline, which stays open along the chord.
    dc->SetROP2(R2_COPYPEN);
    Polyline(dc->m_hDC, points.get(), n);
    // The background mode stays transparent; only the raster operation is put back.
    dc->SetROP2(former);
    return CRect();
}

bool RvArc2D::IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                         RvDrawEntity& hit) const {
    hit.SetType(type);
    if (m_bFilled) {
        // The interior is judged in device pixels: a pixel belongs to the region when its
        // centre lies inside, so the region's right and lower borders are outside.
        CRgn region;
        {
            const std::unique_ptr<tagPOINT[]> points(GetPOINTArray());
            if (!region.CreatePolygonRgn(points.get(), static_cast<int>(size()), ALTERNATE)) {
                return false;
            }
        }
        if (snap != SnapEdge && region.PtInRegion(p.GetPOINT())) {
            snap = SnapInside;
            return true;
        }
    }
    return RvPolyLine2D::IsIncident(p, d, snap, hit);
}

bool RvArc2D::IsOnVertex(RvPoint2D& cursor, RvPoint2D& found, double& tol) {
    const RvPoint2D& first = (*this)[0];
    const RvPoint2D& last = (*this)[size() - 1];
    // A closed arc has no ends to offer.
    if (first.IsEqual3D(last, 0.01) && std::fabs(m_dAngle2 - m_dAngle1) > 3.14) {
        return false;
    }
    // The cursor square in whole pixels, truncated toward zero and put in order.
    const auto square = [&cursor](double t) {
        CRect r(TruncateToPixel(cursor.x2D - t), TruncateToPixel(cursor.y2D - t),
                TruncateToPixel(cursor.x2D + t), TruncateToPixel(cursor.y2D + t));
        r.NormalizeRect();
        return r;
    };
    CRect r = square(tol);
    bool hit = false;
    // The last end is tried in the square the first one may have narrowed, so it wins a tie.
    for (const RvPoint2D* end : {&first, &last}) {
        if (!PtInRect(&r, end->GetPOINT())) {
            continue;
        }
        found = *end;
        tol = std::max(std::fabs(found.x2D - cursor.x2D), std::fabs(found.y2D - cursor.y2D)) + 1.0;
        r = square(tol);
        hit = true;
    }
    return hit;
}

// ---- Circle checks -----------------------------------------------------------------------------

int RvArc2D::IsArc2D(double& radius, double& angle1, double& angle2) const {
    if (size() < 3) {
        return 0;
    }
    const RvPoint2D& v0 = (*this)[0];
    const RvPoint2D& v1 = (*this)[1];
    const RvPoint2D& v2 = (*this)[2];
    const RvPoint2D& vn = (*this)[size() - 1];
    const double ux = v1.x2D - v0.x2D;
    const double uy = v1.y2D - v0.y2D;
    const double wx = v1.x2D - v2.x2D;
    const double wy = v1.y2D - v2.y2D;
    const RvPoint2D& c = m_center;

    if (std::fabs(std::fabs(m_dAngle2 - m_dAngle1) - kTwoPi) < 0.0001) {
        // A full circle: the stored angles stand.
        angle1 = m_dAngle1;
        angle2 = m_dAngle2;
    } else {
        angle1 = PlanarAngle(c, v0);
        angle2 = PlanarAngle(c, vn);
        double m = PlanarAngle(c, v1);
        Unwind(angle1, angle2);
        Unwind(angle1, m);
        while (angle1 < 0) {
            angle1 += kTwoPi;
            angle2 += kTwoPi;
            m += kTwoPi;
        }
        if (!(angle1 - 1e-5 < m && angle2 + 1e-5 > m)) {
            // The path runs clockwise: the counterclockwise sweep starts at the last vertex.
            std::swap(angle1, angle2);
            Unwind(angle1, angle2);
            while (angle1 > kAlmostTwoPi) {
                angle1 -= kTwoPi;
                angle2 -= kTwoPi;
            }
        }
    }

    // Collinear first three vertices lie on no circle.
    if (std::fabs(wy * ux - wx * uy) < 1e-5) {
        return 0;
    }
    const double r0 = c.GetDistance2D(v0);
    const double r1 = c.GetDistance2D(v1);
    const double r2 = c.GetDistance2D(vn);
    if (std::fabs(r0 - r1) < 1e-5 && std::fabs(r2 - r1) < 1e-5 && std::fabs(r2 - r0) < 1e-5) {
        radius = r0;
        return 1;
    }
    return 0;
}

int RvArc2D::TestParalelToPlane(RvPoint3D normal) const {
    constexpr double e = 1e-5;
    const auto dot = [&normal](const RvPoint3D& v) {
        return v.x * normal.x + v.y * normal.y + v.z * normal.z;
    };
    const RvPoint3D c(m_center.x, m_center.y, m_center.z);
    const RvPoint3D& v0 = (*this)[0];
    const RvPoint3D a = v0 - c;
    // The last vertex of a half circle is opposite to the first and spans no plane with it.
    const bool half = std::fabs(std::fabs(m_dAngle2 - m_dAngle1) - 3.141592653589793) < e;
    const RvPoint3D& other = half ? static_cast<const RvPoint3D&>((*this)[1])
                                  : static_cast<const RvPoint3D&>((*this)[size() - 1]);
    const RvPoint3D b = other - c;
    if (std::fabs(dot(a)) >= e) {
        return 0;
    }
    return std::fabs(dot(b)) < e ? 1 : 0;
}

}  // namespace ravelin
