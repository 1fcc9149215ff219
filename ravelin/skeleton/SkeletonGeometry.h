#pragma once

#include "ravelin/RvExport.h"

namespace ravelin {

/// The plain coordinate pair of the straight skeleton.
struct RAVELIN_API Point {
    double x = 0.0;
    double y = 0.0;

    /// Equal when both coordinates differ by less than 5e-07 either way.
    bool operator==(const Point& o) const;
};

/// The sentinel of the skeleton for "no point" and "no event": a large, finite value. A distance
/// measured to the infinite point overflows to +inf, which the event choice relies on.
inline constexpr double SKELETON_INFINITY = 1.797693e+308;

/// The infinite point (SKELETON_INFINITY, SKELETON_INFINITY).
RAVELIN_API Point InfinitePoint();
/// Whether `p` equals the infinite point within the band.
RAVELIN_API bool IsInfinite(const Point& p);

/// A half-line: an origin and a direction angle in radians, reduced to -pi .. pi (pi itself
/// becomes -pi).
struct RAVELIN_API SkeletonRay {
    Point origin;
    double angle = 0.0;

    SkeletonRay() = default;
    /// From `origin` towards `towards`; angle 0 when the two coincide.
    SkeletonRay(const Point& origin, const Point& towards);
};

/// The point halfway between `a` and `b`, each coordinate (sum) * 0.5.
RAVELIN_API Point Midpoint(const Point& a, const Point& b);
/// The Euclidean distance.
RAVELIN_API double PointDistance(const Point& a, const Point& b);
/// The same origin, the opposite direction.
RAVELIN_API SkeletonRay OppositeRay(const SkeletonRay& r);
/// Whether `p` is the origin of `r`, or lies in the direction of `r` from it by the band on the
/// angle. The angles are compared plainly, so directions on either side of the seam at -pi
/// differ.
RAVELIN_API bool PointOnRay(const Point& p, const SkeletonRay& r);
/// Whether the two rays point the same way or opposite ways, by the band on the angle.
RAVELIN_API bool RaysParallel(const SkeletonRay& a, const SkeletonRay& b);
/// The axis of the corner at `b` that bisects the counterclockwise sweep from the direction to
/// `a` to the direction to `c`.
RAVELIN_API SkeletonRay BisectorRay(const Point& b, const Point& a, const Point& c);
/// The distance from `p` to the line of `r`; a negative value within the band stays negative.
RAVELIN_API double DistanceToRay(const Point& p, const SkeletonRay& r);
/// The meeting point of two half-lines: an origin that lies on the other ray, the midpoint of two
/// rays facing each other on one line, or the infinite point where they do not meet.
RAVELIN_API Point IntersectRays(const SkeletonRay& a, const SkeletonRay& b);
/// The meeting point of the two full lines, with the collinear cases of IntersectRays and the
/// midpoint of two rays pointing apart on one line; the infinite point for parallel lines.
RAVELIN_API Point IntersectLines(const SkeletonRay& a, const SkeletonRay& b);

}  // namespace ravelin
