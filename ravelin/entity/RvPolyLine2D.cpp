#include "ravelin/entity/RvPolyLine2D.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ravelin {

RvPolyLine2D::RvPolyLine2D() {
    type = kType;
}

RvPolyLine2D::RvPolyLine2D(const RvPolyLine2D& p) : RvDrawEntity(p) {
    type = kType;
}

RvPolyLine2D::RvPolyLine2D(const RvPoint2D& a, const RvPoint2D& b) {
    type = kType;
    push_back(a);
    push_back(b);
}

RvPolyLine2D& RvPolyLine2D::operator=(const RvPolyLine2D& p) {
    RvDrawEntity::operator=(p);
    return *this;
}

RvPolyLine2D::~RvPolyLine2D() = default;

void RvPolyLine2D::ReInit() {
    RvDrawEntity::ReInit();
    type = kType;
}

CRect RvPolyLine2D::Draw(CDC* dc) {
    if (size() < 2) {
        return CRect();
    }
    const tagPOINT start = (*this)[0].GetPOINT();
    dc->MoveTo(start.x, start.y);
    for (std::size_t k = 1; k < size(); ++k) {
        const tagPOINT p = (*this)[k].GetPOINT();
        dc->LineTo(p.x, p.y);
    }
    return CRect();
}

bool RvPolyLine2D::IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                              RvDrawEntity& hit) const {
    hit.SetType(type);
    return IsIncidentChain(begin(), end(), p, d, snap, hit);
}

bool RvPolyLine2D::InvSelectArea(const CRect& r, int mode) const {
    return InvSelectVertices(r, mode);
}

bool RvPolyLine2D::FindInVect(std::vector<RvPolyLine2D>* lines) {
    const auto holds = [this](const RvPoint2D& v) {
        return std::any_of(begin(), end(), [&v](const RvPoint2D& w) { return w == v; });
    };
    return std::any_of(lines->begin(), lines->end(), [&holds](const RvPolyLine2D& line) {
        return std::all_of(line.begin(), line.end(), holds);
    });
}

bool RvPolyLine2D::IntersectSegment2DBreak(const RvPoint2D& a, const RvPoint2D& b,
                                           std::vector<RvPoint2D>& result) {
    if (empty()) {
        return false;
    }
    const RvPoint2D d = b - a;
    RvPoint2D prev = (*this)[size() - 1];
    bool found = false;
    // The closing segment comes first, and the one between the last two vertices never.
    for (std::size_t i = 0; i + 1 < size(); ++i) {
        const RvPoint2D& cur = (*this)[i];
        const RvPoint2D e = prev - cur;
        const double det = e.y2D * d.x2D - e.x2D * d.y2D;
        if (std::fabs(det) > 1e-6) {
            const double t = (e.y2D * (cur.x2D - a.x2D) - e.x2D * (cur.y2D - a.y2D)) / det;
            const double s = -((d.y2D * (a.x2D - cur.x2D) - d.x2D * (a.y2D - cur.y2D)) / det);
            if (t > -1e-6 && t < 1.000001 && s > -1e-6 && s < 1.000001) {
                result.push_back(cur + e * s);
                found = true;
            }
        }
        prev = cur;
    }
    return found;
}

}  // namespace ravelin
