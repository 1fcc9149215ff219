#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
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

// The scale fits the bounding rectangle, grown by one unit on each side, into the area; the
// offsets centre it, in integer halves.
void RvPolygon2D::DrawResult(CDC* dc, RvIntersectionArray* list) {
    const CRect area(0, 0, 500, 500);
    const CRect box = GetBoundingRect();
    const double sx = area.Width() / (box.Width() + 2.0);
    const double sy = area.Height() / (box.Height() + 2.0);
    const double s = std::min(sx, sy);
    const CRect scaled(TruncateToPixel(box.left * s), TruncateToPixel(box.top * s),
                       TruncateToPixel(box.right * s), TruncateToPixel(box.bottom * s));
    const double ox = (area.left + area.right) / 2 - (scaled.left + scaled.right) / 2;
    const double oy = (area.top + area.bottom) / 2 - (scaled.top + scaled.bottom) / 2;
    dc->FillSolidRect(&area, 0xffffff);
    if (list == nullptr) {
        return;
    }
    for (int i = 0; i < list->GetSize(); ++i) {
        const _RvIntersection& node = list->GetAt(i);
        const tagPOINT p = node.m_Point.GetPOINT();
        const double x = p.x * s + ox;
        const double y = p.y * s + oy;
        Rectangle(dc->m_hDC, TruncateToPixel(x - 4), TruncateToPixel(y - 4), TruncateToPixel(x + 4),
                  TruncateToPixel(y + 4));
        // "nie": no kind.
        const char* label = node.m_nKind != 0 ? "edge" : "nie";
        dc->TextOut(TruncateToPixel(x), TruncateToPixel(y + 10), label,
                    static_cast<int>(std::char_traits<char>::length(label)));
    }
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
