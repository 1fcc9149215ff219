#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

#include "ravelin/platform/CDC.h"
#include "ravelin/platform/CGdiObject.h"
#include "ravelin/polygon/RvPolyPolygon2D.h"

namespace ravelin {

// ---- RvPolygon2D -------------------------------------------------------------------------------

CRect RvPolygon2D::Draw(CDC* dc) {
    if (size() < 2) {
        return CRect();
    }
    const int n = static_cast<int>(size());
    const int former = dc->SetROP2(s_nROP2LIB);
    dc->SetBkMode(TRANSPARENT);
    std::unique_ptr<tagPOINT[]> points(GetPOINTArray());
    Polygon(dc->m_hDC, points.get(), n);
    if (m_bDrawEdges) {
        // The outline is left open: a ring not stored closed keeps a gap at its seam.
        dc->SetROP2(R2_COPYPEN);
        Polyline(dc->m_hDC, points.get(), n);
    }
    // The background mode stays transparent; only the raster operation is put back.
    dc->SetROP2(former);
    return CRect();
}

bool RvPolygon2D::IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                             RvDrawEntity& hit) const {
    hit.SetType(type);
    // The interior is tried first, unless the caller asks for edges only.
    if (snap != SnapEdge && PointInsidePolygonEx2D(p) != 0) {
        snap = SnapInside;
        return true;
    }
    // Without vertices there is no closing edge to try either.
    if (!m_bDrawEdges || empty()) {
        return false;
    }
    bool found = IsIncidentChain(begin(), end(), p, d, snap, hit);
    if (IsIncidentSegment((*this)[0], (*this)[size() - 1], p, d, snap, hit)) {
        found = true;
    }
    return found;
}

bool RvPolygon2D::InvSelectArea(const CRect& r, int mode) const {
    return InvSelectVertices(r, mode);
}

// ---- RvPolyPolygon2D ---------------------------------------------------------------------------

CRect RvPolyPolygon2D::Draw(CDC* dc) {
    if (size() < 2) {
        return CRect();
    }
    const int former = dc->SetROP2(s_nROP2LIB);
    std::unique_ptr<tagPOINT[]> points(GetPOINTArray());
    const std::vector<int> counts = RingCounts();
    const int rings = static_cast<int>(counts.size());
    if (m_bDrawEdges) {
        PolyPolygon(dc->m_hDC, points.get(), counts.data(), rings);
    } else {
        // The rings are filled without an outline: a null pen is selected for the one call.
        CPen nullPen;
        nullPen.CreatePen(PS_NULL, 0, 0);
        CPen* formerPen = dc->SelectObject(&nullPen);
        PolyPolygon(dc->m_hDC, points.get(), counts.data(), rings);
        dc->SelectObject(formerPen);
    }
    points.reset();
    dc->SetROP2(former);
    return CRect();
}

bool RvPolyPolygon2D::IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                                 RvDrawEntity& hit) const {
    hit.SetType(type);
    if (snap != SnapEdge && PointInsidePolyPolygonEx2D(p) != 0) {
        snap = SnapInside;
        return true;
    }
    if (!m_bDrawEdges) {
        return false;
    }
    bool found = false;
    const_iterator first = begin();
    for (const int count : RingCounts()) {
        const const_iterator last = first + count;
        // Rings are stored closed, so no closing edge is added to any of them.
        if (IsIncidentChain(first, last, p, d, snap, hit)) {
            found = true;
        }
        first = last;
    }
    return found;
}

}  // namespace ravelin
