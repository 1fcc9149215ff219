#include "ravelin/entity/RvLine2D.h"

#include <cmath>

namespace ravelin {

namespace {

// Overwrites all five values of `target` with those of `source`.
void CopyFive(RvPoint2D& target, const RvPoint2D& source) {
    target.Set(source.x2D, source.y2D, source.x, source.y, source.z);
}

}  // namespace

RvLine2D::RvLine2D() {
    push_back(RvPoint2D());
    push_back(RvPoint2D());
}

RvLine2D::RvLine2D(const RvLine2D& l) = default;

RvLine2D::RvLine2D(const RvPoint2D& a, const RvPoint2D& b) : RvPolyLine2D(a, b) {}

RvLine2D::RvLine2D(const RvPoint3D& a, const RvPoint3D& b)
    : RvPolyLine2D(RvPoint2D(a), RvPoint2D(b)) {}

RvLine2D::~RvLine2D() = default;

void RvLine2D::Set(const RvPoint2D& a, const RvPoint2D& b) {
    CopyFive((*this)[0], a);
    CopyFive((*this)[1], b);
}

void RvLine2D::Set(const RvPoint3D& a, const RvPoint3D& b) {
    CopyFive((*this)[0], RvPoint2D(a));
    CopyFive((*this)[1], RvPoint2D(b));
}

RvLine2D& RvLine2D::operator=(const RvLine2D& l) {
    if (this != &l) {
        Set(l[0], l[1]);
    }
    return *this;
}

int RvLine2D::IsPointOnSegment2D(const RvPoint2D& p) {
    constexpr double e = 0.0001;
    const RvPoint2D& a = (*this)[0];
    const RvPoint2D& b = (*this)[1];
    const double dx = b.x2D - a.x2D;
    const double dy = b.y2D - a.y2D;
    double t = 0;
    double u = 0;
    if (std::fabs(dx) < e && std::fabs(dy) < e) {
        return 0;
    }
    if (std::fabs(dx) >= e && std::fabs(dy) >= e) {
        t = (p.x2D - a.x2D) / dx;
        u = (p.y2D - a.y2D) / dy;
    } else if (std::fabs(dx) >= e) {
        if (std::fabs(p.y2D - a.y2D) >= e) {
            return 0;
        }
        t = u = (p.x2D - a.x2D) / dx;
    } else {
        if (std::fabs(p.x2D - a.x2D) >= e) {
            return 0;
        }
        t = u = (p.y2D - a.y2D) / dy;
    }
    if (std::fabs(t - u) >= e) {
        return 0;
    }
    if (t <= -0.0001 || t >= 1.0001) {
        return 0;
    }
    return GetDistancePoint2D(p, 0) < e ? 1 : 0;
}

int RvLine2D::IsPointOnSegmentEx2D(const RvPoint2D& p) const {
    const RvPoint2D& a = (*this)[0];
    const RvPoint2D& b = (*this)[1];
    if (a == p || b == p) {
        return 1;
    }
    const double dx = b.x2D - a.x2D;
    const double dy = b.y2D - a.y2D;
    double t = 0;
    double u = 0;
    // Exact comparisons, on purpose: the parameter along each axis must agree exactly, and it
    // is not bounded to the segment.
    if (dx == 0) {
        if (dy == 0) {
            return 0;
        }
        if (p.y2D != a.y2D) {
            return 0;
        }
    } else {
        t = (p.x2D - a.x2D) / dx;
    }
    if (dy == 0) {
        if (p.x2D != a.x2D) {
            return 0;
        }
    } else {
        u = (p.y2D - a.y2D) / dy;
    }
    return t == u ? 1 : 0;
}

int RvLine2D::IsPointOnSegment3D(const RvPoint3D& p) {
    if (size() < 2) {
        return 0;
    }
    const RvPoint3D& a = (*this)[0];
    const RvPoint3D& b = (*this)[1];
    const double along = a.Distance(b);
    const double via = static_cast<double>(p.Distance(a)) + static_cast<double>(p.Distance(b));
    return std::fabs(along - via) < 1e-5 ? 1 : 0;
}

double RvLine2D::GetAngle(RvLine2D& o) {
    const RvPoint3D u = RvPoint3D((*this)[1]) - RvPoint3D((*this)[0]);
    const RvPoint3D w = RvPoint3D(o[0]) - RvPoint3D(o[1]);
    return std::acos((u * w) / (u.GetSize() * w.GetSize()));
}

double RvLine2D::GetAngleDef(RvLine2D& o) {
    const RvPoint3D u = RvPoint3D((*this)[1]) - RvPoint3D((*this)[0]);
    const RvPoint3D w = RvPoint3D(o[0]) - RvPoint3D(o[1]);
    return std::acos(std::fabs(static_cast<double>(u * w)) / (u.GetSize() * w.GetSize()));
}

RvLine2D RvLine2D::GetNormalLine2D(RvPoint3D& p) {
    return RvLine2D(p, NormalFoot2D((*this)[0], (*this)[1], p));
}

RvPoint3D RvLine2D::NormalFoot2D(const RvPoint3D& a, const RvPoint3D& b, const RvPoint3D& p) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    if (std::fabs(dx) < 0.1) {
        return std::fabs(dy) >= 0.1 ? RvPoint3D(a.x, p.y, 0) : RvPoint3D(a.x, a.y, 0);
    }
    if (std::fabs(dy) < 0.1) {
        return RvPoint3D(p.x, a.y, 0);
    }
    const double m = dx / dy;
    const double n = dy / dx;
    const double w = ((p.x - a.x) * m + (p.y - a.y)) / (m + n);
    return RvPoint3D(a.x + w, a.y + n * w, 0);
}

RvLine2D RvLine2D::GetNormalLine3D(RvPoint3D& p) {
    const RvPoint3D& a = (*this)[0];
    const RvPoint3D& b = (*this)[1];
    const double d = a.Distance(b);
    if (d < 0.1) {
        return RvLine2D(p, a);
    }
    const double s = (p - a) * (b - a) / (d * d);
    return RvLine2D(p, a + (b - a) * s);
}

bool RvLine2D::GetKolmyPriemetBoduNarovinu(RvPoint3D a, RvPoint3D b, RvPoint3D& out) {
    if (size() < 2) {
        return false;
    }
    const RvPoint3D p0 = (*this)[0];
    const RvPoint3D p1 = (*this)[1];
    if (!(static_cast<double>(p0.Distance(p1)) > 0.1 && static_cast<double>(p0.Distance(a)) > 0.1 &&
          static_cast<double>(p1.Distance(a)) > 0.1)) {
        return false;
    }
    const RvPoint3D foot = RvLine2D(p0, p1).GetNormalLine3D(a)[1];
    const RvPoint3D u = p1 - p0;
    const RvPoint3D w = (a + p0 - foot) - p0;
    const RvPoint3D r = b - p0;
    const double uu = u.GetSize();
    const double ww = w.GetSize();
    const double s = (r * u) / (uu * uu);
    const double t = (r * w) / (ww * ww);
    out = p0 + u * s + w * t;
    return true;
}

bool RvLine2D::IsPointNearSegment(RvPoint3D& p, double tol) {
    const RvPoint3D& a = (*this)[0];
    const RvPoint3D& b = (*this)[1];
    if (Number(tol) >= p.Distance(a) || Number(tol) >= p.Distance(b)) {
        return true;
    }
    RvLine2D normal = GetNormalLine3D(p);
    const RvPoint3D foot = normal[1];
    const double length = normal.GetLength();
    return IsPointOnSegment3D(foot) != 0 && Number(length) <= tol;
}

}  // namespace ravelin
