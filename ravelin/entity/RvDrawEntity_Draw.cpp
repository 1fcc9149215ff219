#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/platform/CDC.h"

namespace ravelin {

int RvDrawEntity::s_nROP2LIB = R2_MERGEPEN;

void RvDrawEntity::SetROP2LIB(int rop) {
    s_nROP2LIB = rop;
}

bool RvDrawEntity::IsIncidentSegment(const RvPoint2D& a, const RvPoint2D& b, const RvPoint2D& p,
                                     double& d, enumSnapType& snap, RvDrawEntity& hit) {
    const double w = d + 0.0001;
    const double left = p.x2D - w;
    const double right = p.x2D + w;
    const double low = p.y2D - w;
    const double high = p.y2D + w;
    // Segments wholly beside the cursor box are passed over before any distance is computed.
    if (left > a.x2D && left > b.x2D) {
        return false;
    }
    if (right < a.x2D && right < b.x2D) {
        return false;
    }
    if (low > a.y2D && low > b.y2D) {
        return false;
    }
    if (high < a.y2D && high < b.y2D) {
        return false;
    }
    const CTtagRECT box{left, high, right, low};
    if (!p.IsOnSegment2D(a, b, d) && IsInClientArea(a, b, p, d, box) == 0) {
        return false;
    }
    hit.clearA();
    hit.push_backA(a);
    hit.push_backA(b);
    snap = SnapEdge;
    return true;
}

bool RvDrawEntity::IsIncidentChain(const_iterator first, const_iterator last, const RvPoint2D& p,
                                   double& d, enumSnapType& snap, RvDrawEntity& hit) {
    bool found = false;
    for (const_iterator it = first; it != last && it + 1 != last; ++it) {
        if (IsIncidentSegment(*it, *(it + 1), p, d, snap, hit)) {
            found = true;
        }
    }
    return found;
}

bool RvDrawEntity::InvSelectVertices(const CRect& r, int mode) const {
    if (IsRectEmpty(&r)) {
        return false;
    }
    if (mode == 1) {
        for (const RvPoint2D& v : static_cast<const Base&>(*this)) {
            if (!PtInRect(&r, v.GetPOINT())) {
                return false;
            }
        }
        return true;
    }
    if (mode != 2) {
        return false;
    }
    for (const RvPoint2D& v : static_cast<const Base&>(*this)) {
        if (PtInRect(&r, v.GetPOINT())) {
            return true;
        }
    }
    const RvPoint2D cornerA(r.left, r.top);
    const RvPoint2D cornerB(r.right, r.top);
    const RvPoint2D cornerC(r.right, r.bottom);
    const RvPoint2D cornerD(r.left, r.bottom);
    return TestIntersectSegment2D(cornerA, cornerB) || TestIntersectSegment2D(cornerB, cornerC) ||
           TestIntersectSegment2D(cornerC, cornerD) || TestIntersectSegment2D(cornerA, cornerD);
}

}  // namespace ravelin
