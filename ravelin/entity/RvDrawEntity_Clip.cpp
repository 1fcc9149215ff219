#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ravelin/entity/RvDrawEntity.h"

namespace ravelin {

namespace {

// Moves `moving` along the line through `fixed` to where its coordinate `along` lies on the
// nearer border of the square; `across` follows. False when the line is too close to parallel
// with the border (the two `along` coordinates within 0.001), with nothing moved.
bool ClipToBorder(double half, double& along, double& across, double fixedAlong,
                  double fixedAcross) {
    const double border = along < -half ? -half : half;
    if (!(std::fabs(fixedAlong - along) > 0.001)) {
        return false;
    }
    across = across + (fixedAcross - across) * (border - along) / (fixedAlong - along);
    along = border;
    return true;
}

bool Outside(double c, double half) {
    return c > half || c < -half;
}

}  // namespace

bool RvDrawEntity::CutLineToSquare(const int& half, RvPoint2D& a, RvPoint2D& b, bool& cut) {
    cut = false;
    const double h = half;
    if (Outside(b.x2D, h)) {
        if (!ClipToBorder(h, b.x2D, b.y2D, a.x2D, a.y2D)) {
            return false;
        }
        cut = true;
    }
    if (Outside(a.x2D, h) && !ClipToBorder(h, a.x2D, a.y2D, b.x2D, b.y2D)) {
        return false;
    }
    if (Outside(b.y2D, h)) {
        if (!ClipToBorder(h, b.y2D, b.x2D, a.y2D, a.x2D)) {
            return false;
        }
        cut = true;
    }
    if (Outside(a.y2D, h) && !ClipToBorder(h, a.y2D, a.x2D, b.y2D, b.x2D)) {
        return false;
    }
    return std::fabs(b.x2D - a.x2D) >= 0.001 || std::fabs(b.y2D - a.y2D) >= 0.001;
}

void RvDrawEntity::CutToSquare(const int& half, bool closed) {
    Base r;
    bool start = true;
    const auto clipSegment = [&](RvPoint2D a, RvPoint2D b) {
        bool cut = false;
        if (CutLineToSquare(half, a, b, cut)) {
            // After a cut end the next piece brings its own start; otherwise it starts here.
            if (start) {
                r.push_back(a);
            }
            r.push_back(b);
            start = cut;
        } else if (closed) {
            const double h = half;
            for (RvPoint2D* e : {&a, &b}) {
                e->x2D = std::clamp(e->x2D, -h, h);
                e->y2D = std::clamp(e->y2D, -h, h);
                r.push_back(*e);
            }
        }
    };
    if (size() >= 2) {
        for (std::size_t k = 0; k + 1 < size(); ++k) {
            clipSegment((*this)[k], (*this)[k + 1]);
        }
        if (closed) {
            clipSegment((*this)[size() - 1], (*this)[0]);
        }
    }
    Base::operator=(r);
}

int RvDrawEntity::IsInClientArea(const RvPoint2D& p1, const RvPoint2D& p2, const RvPoint2D& cursor,
                                 double& best, const CTtagRECT& r) {
    if (IsInClientArea(p1, cursor, best, r)) {
        return 1;
    }
    if (IsInClientArea(p2, cursor, best, r)) {
        return 2;
    }
    return 0;
}

bool RvDrawEntity::IsInClientArea(const RvPoint2D& p, const RvPoint2D& cursor, double& best,
                                  const CTtagRECT& r) {
    if (!(r.left < p.x2D && p.x2D < r.right && r.bottom < p.y2D && p.y2D < r.top)) {
        return false;
    }
    const double m = std::max(std::fabs(p.x2D - cursor.x2D), std::fabs(p.y2D - cursor.y2D)) + 1.0;
    if (m < best) {
        best = m;
    }
    return true;
}

}  // namespace ravelin
