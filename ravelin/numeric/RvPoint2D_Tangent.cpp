#include <cmath>
#include <cstddef>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/CMatrix.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/numeric/RvPoint2D.h"

namespace ravelin {

bool RvPoint2D::IsOnPolyLine2D(const RvPolyLine2D& line) const {
    for (std::size_t k = 0; k + 1 < line.size(); ++k) {
        const RvPoint2D& p = line[k];
        const RvPoint2D& c = line[k + 1];
        if (c == *this || p == *this) {
            return true;
        }
        // Between the ends, the direction from the segment's end to the point and the one from
        // the point to the segment's start agree.
        double a1 = std::atan2(y2D - c.y2D, x2D - c.x2D);
        double a2 = std::atan2(p.y2D - y2D, p.x2D - x2D);
        NormalizeAngle(a1);
        NormalizeAngle(a2);
        if (Number(a1) == a2) {
            return true;
        }
    }
    return false;
}

bool RvPoint2D::GetTangencialPoint(RvPoint2D& centre, double r, std::vector<RvPoint2D>& out) {
    RvPoint3D v = RvPoint3D(*this) - RvPoint3D(centre);
    const double n = v.GetSize();
    if (n < r - 1e-05) {
        return false;  // inside the circle
    }
    double h2 = r * r - r * r * r * r / (n * n);
    if (std::fabs(h2) < 1e-05) {
        h2 = 0;
    }
    // A negative h2 has no tangent; NaN (a point at the centre of a null circle) neither.
    if (!(h2 >= 0)) {
        return false;
    }
    const double a = r * r / n;
    const double h = std::sqrt(h2);
    v.Normalize();
    // The frame: x along the way from the centre to the point, y across it, origin at the
    // centre.
    const RvPoint3D down(0, 0, -1);
    CMatrix frame;
    frame.SetCol(0, v);
    frame.SetCol(1, v.GetVektorovySucin(down));
    frame.SetCol(2, down);
    frame.SetCol(3, centre);
    out.push_back(RvPoint2D(frame.GetPoint3D(a, h, 0)));
    out.push_back(RvPoint2D(frame.GetPoint3D(a, -h, 0)));
    return true;
}

bool RvPoint2D::GetTangencialPoint(RvPoint2D& centre, double a, double b,
                                   std::vector<RvPoint2D>& out) {
    const double dx = x2D - centre.x2D;
    const double dy = y2D - centre.y2D;
    const double A = a * a;
    const double B = b * b;
    const double k = A * B * B - B * B * dx * dx;
    const double D = A * A * B * B * dx * dx * dy * dy - (B * A * A - A * A * dy * dy) * k;
    if (D < 0) {
        return false;
    }
    if (std::fabs(k) < 1e-14) {
        return false;
    }
    const double s = std::sqrt(D);
    const double m1 = (A * B * dx * dy + s) / k;
    const double m2 = (A * B * dx * dy - s) / k;
    if (!(1e-14 <= std::fabs(A * B))) {
        return false;
    }
    const double q1 = (m1 * dx * B + dy * A) / (A * B);
    const double q2 = (dy * A + m2 * dx * B) / (A * B);
    if (std::fabs(q1) < 1e-14 || std::fabs(q2) < 1e-14) {
        return false;
    }
    out.clear();
    RvPoint2D first;
    first.x2D = centre.x2D + m1 / q1;
    first.y2D = centre.y2D + 1 / q1;
    out.push_back(first);
    RvPoint2D second;
    second.x2D = centre.x2D + m2 / q2;
    second.y2D = centre.y2D + 1 / q2;
    out.push_back(second);
    return true;
}

}  // namespace ravelin
