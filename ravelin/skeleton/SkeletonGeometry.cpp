#include "ravelin/skeleton/SkeletonGeometry.h"

#include <cmath>

#include "ravelin/numeric/Number.h"

namespace ravelin {

namespace {

// The determinant of the two directions; zero for parallel rays.
double Determinant(const SkeletonRay& a, const SkeletonRay& b) {
    return std::cos(a.angle) * std::sin(b.angle) - std::cos(b.angle) * std::sin(a.angle);
}

// The parameter along `a` of the meeting point of the two lines.
double ParameterAlongA(const SkeletonRay& a, const SkeletonRay& b, double det) {
    return ((a.origin.y - b.origin.y) * std::cos(b.angle) -
            (a.origin.x - b.origin.x) * std::sin(b.angle)) /
           det;
}

Point AlongRay(const SkeletonRay& r, double u) {
    return Point{r.origin.x + u * std::cos(r.angle), r.origin.y + u * std::sin(r.angle)};
}

// The cases in which an origin lies on the other ray, shared by both intersections. True with
// `out` set when one of them applies.
bool IntersectAtOrigins(const SkeletonRay& a, const SkeletonRay& b, Point& out) {
    if (a.origin == b.origin) {
        out = a.origin;
        return true;
    }
    const bool bOnA = PointOnRay(b.origin, a);
    const bool aOnB = PointOnRay(a.origin, b);
    if (bOnA && aOnB) {
        out = Midpoint(a.origin, b.origin);  // facing each other on one line
        return true;
    }
    if (bOnA) {
        out = b.origin;
        return true;
    }
    if (aOnB) {
        out = a.origin;
        return true;
    }
    return false;
}

}  // namespace

Point Midpoint(const Point& a, const Point& b) {
    return Point{(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

bool Point::operator==(const Point& o) const {
    return x - o.x < Number::kBand && o.x - x < Number::kBand && y - o.y < Number::kBand &&
           o.y - y < Number::kBand;
}

Point InfinitePoint() {
    return Point{SKELETON_INFINITY, SKELETON_INFINITY};
}

bool IsInfinite(const Point& p) {
    return p == InfinitePoint();
}

SkeletonRay::SkeletonRay(const Point& from, const Point& towards)
    : origin(from), angle(NormalizedAngle(std::atan2(towards.y - from.y, towards.x - from.x))) {}

double PointDistance(const Point& a, const Point& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return std::sqrt(dy * dy + dx * dx);
}

SkeletonRay OppositeRay(const SkeletonRay& r) {
    SkeletonRay o;
    o.origin = r.origin;
    o.angle = NormalizedAngle(r.angle + kPi);
    return o;
}

bool PointOnRay(const Point& p, const SkeletonRay& r) {
    if (p == r.origin) {
        return true;
    }
    return Number(SkeletonRay(r.origin, p).angle) == r.angle;
}

bool RaysParallel(const SkeletonRay& a, const SkeletonRay& b) {
    const double na = NormalizedAngle(a.angle);
    const double nb = NormalizedAngle(b.angle);
    const double opposite = NormalizedAngle(a.angle + kPi);
    return Number(nb) == na || Number(nb) == opposite;
}

SkeletonRay BisectorRay(const Point& b, const Point& a, const Point& c) {
    double alpha = SkeletonRay(b, a).angle;
    const double gamma = SkeletonRay(b, c).angle;
    if (alpha > gamma && Number(alpha) > gamma) {
        alpha -= kTwoPi;
    }
    SkeletonRay r;
    r.origin = b;
    r.angle = NormalizedAngle((gamma + alpha) * 0.5);
    return r;
}

double DistanceToRay(const Point& p, const SkeletonRay& r) {
    const SkeletonRay t(r.origin, p);
    const double d = PointDistance(r.origin, p);
    const double h = std::sin(r.angle - t.angle) * d;
    if (h < 0 && 0 - h >= Number::kBand) {
        return -h;
    }
    return h;
}

Point IntersectRays(const SkeletonRay& a, const SkeletonRay& b) {
    Point at;
    if (IntersectAtOrigins(a, b, at)) {
        return at;
    }
    if (RaysParallel(a, b)) {
        return InfinitePoint();
    }
    const double det = Determinant(a, b);
    if (Number(det) == 0) {
        return InfinitePoint();
    }
    const double u = ParameterAlongA(a, b, det);
    if (Number(u) != 0 && Number(u) < 0) {
        return InfinitePoint();  // behind `a`
    }
    const double v = ((b.origin.y - a.origin.y) * std::cos(a.angle) -
                      (b.origin.x - a.origin.x) * std::sin(a.angle)) /
                     det;
    if (v > 0) {
        return InfinitePoint();  // behind `b`
    }
    return AlongRay(a, u);
}

Point IntersectLines(const SkeletonRay& a, const SkeletonRay& b) {
    Point at;
    if (IntersectAtOrigins(a, b, at)) {
        return at;
    }
    if (PointOnRay(b.origin, OppositeRay(a)) && PointOnRay(a.origin, OppositeRay(b))) {
        return Midpoint(a.origin, b.origin);  // pointing apart on one line
    }
    const double det = Determinant(a, b);
    if (RaysParallel(a, b) || Number(det) == 0) {
        return InfinitePoint();
    }
    return AlongRay(a, ParameterAlongA(a, b, det));
}

}  // namespace ravelin
