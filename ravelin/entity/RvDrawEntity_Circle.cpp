#include <cmath>
#include <cstddef>
#include <utility>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/numeric/CMatrix.h"

namespace ravelin {

namespace {

bool WithinSegment(double v) {
    return -1e-06 < v && v < 1.000001;
}

// The two roots of the quadratic of the segment from `p` with vector `s` against the circle
// round `c` of radius `r`, on the planar pair, in the order (sqrt(D) - B) / 2A, then
// (-B - sqrt(D)) / 2A. False when the line misses the circle, and for a null segment, which
// has no line.
bool CircleRoots2D(const RvPoint2D& p, const RvPoint2D& s, const RvPoint2D& c, double r, double& u1,
                   double& u2) {
    const double qx = p.x2D - c.x2D;
    const double qy = p.y2D - c.y2D;
    const double a = s.x2D * s.x2D + s.y2D * s.y2D;
    const double b = 2 * (s.x2D * qx + s.y2D * qy);
    const double cc = qx * qx + qy * qy - r * r;
    const double d = b * b - 4 * a * cc;
    if (d < 0 || a == 0) {
        return false;
    }
    u1 = (std::sqrt(d) - b) / (2 * a);
    u2 = (-b - std::sqrt(d)) / (2 * a);
    return true;
}

// Whether the second root is a point of its own: a tangent gives one point, not two.
bool Distinct(double u1, double u2) {
    return std::fabs(u2 - u1) > 1e-06;
}

// Calls `onPoint(f)` for each crossing `f` of the open chain of `e` with the circle round `c`
// of radius `r`: of each segment, or of its line unless `bounded`, the two roots in order and
// the second only when distinct. The walk stops when `onPoint` returns false.
template <class OnPoint>
void ForEachCircleCrossing(const RvDrawEntity& e, const RvPoint2D& c, double r, bool bounded,
                           OnPoint onPoint) {
    for (std::size_t k = 0; k + 1 < e.size(); ++k) {
        const RvPoint2D& p = e[k];
        const RvPoint2D s = e[k + 1] - p;
        double u1 = 0;
        double u2 = 0;
        if (!CircleRoots2D(p, s, c, r, u1, u2)) {
            continue;
        }
        const bool take1 = !bounded || WithinSegment(u1);
        const bool take2 = Distinct(u1, u2) && (!bounded || WithinSegment(u2));
        for (const auto& [take, u] : {std::pair{take1, u1}, std::pair{take2, u2}}) {
            if (take && !onPoint(p + s * u)) {
                return;
            }
        }
    }
}

// Appends each crossing that `keep` keeps to `out`, or with `testOnly` stops at the first one
// and appends nothing. True if any was kept.
template <class Keep>
bool CollectCircleCrossings(const RvDrawEntity& e, const RvPoint2D& c, double r, bool bounded,
                            bool testOnly, std::vector<RvPoint2D>& out, Keep keep) {
    bool found = false;
    ForEachCircleCrossing(e, c, r, bounded, [&](const RvPoint2D& f) {
        if (!keep(f)) {
            return true;
        }
        found = true;
        if (testOnly) {
            return false;
        }
        out.push_back(f);
        return true;
    });
    return found;
}

}  // namespace

bool RvDrawEntity::IntersectCircle2D(RvPoint2D& c, double r, std::vector<RvPoint2D>& out,
                                     bool bounded, bool testOnly) {
    return CollectCircleCrossings(*this, c, r, bounded, testOnly, out,
                                  [](const RvPoint2D&) { return true; });
}

bool RvDrawEntity::IntersectArc2D(RvPoint2D& c, double r, double a0, double a1,
                                  std::vector<RvPoint2D>& out, bool testOnly) {
    if (a1 < a0) {
        a1 += kTwoPi;
    }
    // Whether the point `f` of the circle lies on the arc; an arc over the zero direction
    // measures angles below its start one turn further.
    const auto onArc = [&](const RvPoint2D& f) {
        double g = std::atan2(f.y2D - c.y2D, f.x2D - c.x2D);
        if (g < 0) {
            g += kTwoPi;
        }
        if (g < a0 - 1e-06 && a1 + 1e-06 > kTwoPi) {
            g += kTwoPi;
        }
        return a0 - 1e-06 < g && g < a1 + 1e-06;
    };
    return CollectCircleCrossings(*this, c, r, true, testOnly, out, onArc);
}

bool RvDrawEntity::IntersectArc(std::vector<RvPoint2D>& out, RvPoint2D c, double r, RvPoint2D n,
                                RvPoint2D w, double a0, double a1) {
    if (a1 < a0) {
        a1 += kTwoPi;
    }
    for (std::size_t k = 0; k + 1 < size(); ++k) {
        const RvPoint2D& p = (*this)[k];
        const RvPoint2D s = (*this)[k + 1] - p;
        const RvPoint3D s3(s);
        const RvPoint3D q = RvPoint3D(p) - RvPoint3D(c);
        const double a = s3 * s3;
        const double e = s3 * q;
        const double b = 2 * e;
        const double cc = q * q - r * r;
        const double d = b * b - 4 * a * cc;
        double roots[2] = {0, 0};
        int count = 0;
        if (d > 1e-06) {
            const double h = std::sqrt(d) * 0.5;
            roots[count++] = (h - e) / a;
            roots[count++] = (-e - h) / a;
        } else if (!(d < 0)) {
            roots[count++] = -e / a;
        }
        for (int k2 = 0; k2 < count; ++k2) {
            const double t = roots[k2];
            if (!WithinSegment(t)) {
                continue;
            }
            const RvPoint2D f = p + s * t;
            RvPoint2D dir = f - c;
            dir.Normalize();
            if (!(std::fabs(static_cast<double>(RvPoint3D(c - f) * n)) < 1e-06)) {
                continue;  // not in the arc's plane
            }
            CMatrix rotation;
            rotation.CreateRotateM(-a0, RvPoint3D(n));
            RvPoint2D g(rotation.GetPoint3D(RvPoint3D(c + w * r)) - RvPoint3D(c));
            g.Normalize();
            // The absolute value folds the angle into 0 to pi/2, so the far side of the arc
            // beyond a quarter turn is measured as if it were on the near side.
            const double e2 = std::acos(std::fabs(static_cast<double>(dir * g)));
            if (std::fabs(a1 - a0) > e2) {
                out.push_back(f);
            }
        }
    }
    return !out.empty();
}

}  // namespace ravelin
