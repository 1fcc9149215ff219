#include "ravelin/numeric/RvPoint2D.h"

#include <cmath>
#include <utility>

#include "ravelin/platform/CArchive.h"

namespace ravelin {

RAVELIN_IMPLEMENT_SERIAL(RvPoint2D, RvPoint3D, 1)

namespace {

constexpr double kQuarterPi = 0.7853981633974483;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kThreeQuarterPi = 2.356194490192345;
constexpr double kFiveQuarterPi = 3.9269908169872414;
constexpr double kThreeHalfPi = 4.71238898038469;
constexpr double kSevenQuarterPi = 5.497787143782138;
constexpr double kCursorDiagonal = 1.4142;

// An angle in [0, 2 pi) folded onto the nearest axis direction, into [-pi/4, pi/4].
double FoldToNearestAxis(double w) {
    if (w > kSevenQuarterPi) {
        return w - kTwoPi;
    }
    if (w > kFiveQuarterPi) {
        return w - kThreeHalfPi;
    }
    if (w > kThreeQuarterPi) {
        return w - kPi;
    }
    if (w > kQuarterPi) {
        return w - kHalfPi;
    }
    return w;
}

}  // namespace

RvPoint2D::RvPoint2D() : y2D(0), x2D(0) {}

RvPoint2D::RvPoint2D(double a, double b) : RvPoint3D(a, b, 0), y2D(b), x2D(a) {}

RvPoint2D::RvPoint2D(double a, double b, double c) : RvPoint3D(a, b, c), y2D(b), x2D(a) {}

RvPoint2D::RvPoint2D(double x2, double y2, double a, double b, double c)
    : RvPoint3D(a, b, c), y2D(y2), x2D(x2) {}

RvPoint2D::RvPoint2D(const RvPoint2D& p) : RvPoint3D(p), y2D(p.y2D), x2D(p.x2D) {}

RvPoint2D::RvPoint2D(const RvPoint3D& p) : RvPoint3D(p), y2D(p.y), x2D(p.x) {}

RvPoint2D& RvPoint2D::operator=(const RvPoint2D& p) {
    RvPoint3D::operator=(p);
    x2D = p.x2D;
    y2D = p.y2D;
    return *this;
}

RvPoint2D& RvPoint2D::operator=(const RvPoint3D& p) {
    RvPoint3D::operator=(p);
    x2D = p.x;
    y2D = p.y;
    return *this;
}

RvPoint2D::~RvPoint2D() = default;

void RvPoint2D::Set(double a, double b, double c) {
    Set(a, b, a, b, c);
}

void RvPoint2D::Set(double x2, double y2, double a, double b, double c) {
    RvPoint3D::Set(a, b, c);
    x2D = x2;
    y2D = y2;
}

void RvPoint2D::ResetCoord2D() {
    x2D = x;
    y2D = y;
}

RvPoint2D RvPoint2D::operator+(const RvPoint2D& p) const {
    return {x2D + p.x2D, y2D + p.y2D, x + p.x, y + p.y, z + p.z};
}

RvPoint2D RvPoint2D::operator-(const RvPoint2D& p) const {
    return {x2D - p.x2D, y2D - p.y2D, x - p.x, y - p.y, z - p.z};
}

RvPoint2D RvPoint2D::operator*(double f) const {
    return {x2D * f, y2D * f, x * f, y * f, z * f};
}

RvPoint2D RvPoint2D::operator/(double f) const {
    return {x2D / f, y2D / f, x / f, y / f, z / f};
}

RvPoint2D& RvPoint2D::operator+=(const RvPoint2D& p) {
    RvPoint3D::operator+=(p);
    x2D += p.x2D;
    y2D += p.y2D;
    return *this;
}

RvPoint2D& RvPoint2D::operator+=(const RvPoint3D& p) {
    RvPoint3D::operator+=(p);
    x2D += p.x;
    y2D += p.y;
    return *this;
}

RvPoint2D& RvPoint2D::operator/=(const double& f) {
    RvPoint3D::operator/=(f);
    x2D /= f;
    y2D /= f;
    return *this;
}

double RvPoint2D::GetSize2D() const {
    return std::sqrt(x2D * x2D + y2D * y2D);
}

double RvPoint2D::GetDistance2D(const RvPoint2D& p) const {
    return (*this - p).GetSize2D();
}

void RvPoint2D::Swap(RvPoint2D& p) {
    RvPoint3D::Swap(p);
    std::swap(x2D, p.x2D);
    std::swap(y2D, p.y2D);
}

void RvPoint2D::Normalize() {
    const double size = GetSize2D();
    x2D /= size;
    y2D /= size;
    RvPoint3D::Normalize();
}

void RvPoint2D::Round(int n) {
    RvPoint3D::Round(n);
    x2D = RoundCoordinate(x2D, n);
    y2D = RoundCoordinate(y2D, n);
}

bool RvPoint2D::operator==(const RvPoint2D& p) const {
    return RvPoint3D::operator==(p) && BoxEqual(x2D, p.x2D, 0.01) && BoxEqual(y2D, p.y2D, 0.01);
}

bool RvPoint2D::operator!=(const RvPoint2D& p) const {
    return !(*this == p);
}

bool RvPoint2D::operator<(const RvPoint2D& o) const {
    return x2D < o.x2D || (x2D == o.x2D && y2D < o.y2D);
}

bool RvPoint2D::operator>(const RvPoint2D& o) const {
    return x2D > o.x2D || (!(x2D < o.x2D) && y2D > o.y2D);
}

int RvPoint2D::xyorder(const RvPoint2D& o) const {
    if (BoxEqual(x2D, o.x2D, 0.01) && BoxEqual(y2D, o.y2D, 0.01)) {
        return 0;
    }
    if (x2D > o.x2D) {
        return 1;
    }
    if (x2D < o.x2D) {
        return -1;
    }
    if (y2D > o.y2D) {
        return 1;
    }
    if (y2D < o.y2D) {
        return -1;
    }
    return 0;
}

tagPOINT RvPoint2D::GetPOINT() const {
    return tagPOINT{RoundToPixel(x2D), RoundToPixel(y2D)};
}

Number RvPoint2D::IsLeft(const RvPoint2D& a, const RvPoint2D& b) const {
    return (b.x2D - a.x2D) * (y2D - a.y2D) - (b.y2D - a.y2D) * (x2D - a.x2D);
}

int RvPoint2D::IsEqualOrientation(const RvPoint2D& a, const RvPoint2D& b) const {
    const RvPoint2D u = a - *this;
    const RvPoint2D v = b - *this;
    const double c = (u.x2D * v.x2D + u.y2D * v.y2D) / (u.GetSize2D() * v.GetSize2D());
    if (c > 0.999999) {
        return 1;
    }
    if (c < -0.999999) {
        return -1;
    }
    return 0;
}

bool RvPoint2D::FootOnSegment2D(const RvPoint2D& a, const RvPoint2D& b, double& footX,
                                double& footY) const {
    const RvPoint2D d = b - a;
    const double length = d.x2D * d.x2D + d.y2D * d.y2D;
    if (length == 0) {  // only a segment of exactly zero length has no direction
        return false;
    }
    const double t = ((x2D - a.x2D) * d.x2D + (y2D - a.y2D) * d.y2D) / length;
    if (!(t > -1e-05 && t < 1.00001)) {
        return false;
    }
    footX = a.x2D + d.x2D * t;
    footY = a.y2D + d.y2D * t;
    return true;
}

bool RvPoint2D::IsOnSegment2D(const RvPoint2D& a, const RvPoint2D& b) const {
    double footX = 0;
    double footY = 0;
    if (!FootOnSegment2D(a, b, footX, footY)) {
        return false;
    }
    const double dx = x2D - footX;
    const double dy = y2D - footY;
    return std::sqrt(dx * dx + dy * dy) < 0.001;
}

bool RvPoint2D::IsOnSegment2D(const RvPoint2D& a, const RvPoint2D& b, double& tol) const {
    double footX = 0;
    double footY = 0;
    if (!FootOnSegment2D(a, b, footX, footY)) {
        return false;
    }
    const double dx = x2D - footX;
    const double dy = y2D - footY;
    const double dist = std::sqrt(dx * dx + dy * dy);
    if (dist >= tol * kCursorDiagonal) {
        return false;
    }
    if (dist <= tol) {
        tol = dist;
        return true;
    }
    // Between the inscribed circle and the corners of the square cursor: measure the square's
    // extent in the direction of the foot.
    double w = std::atan2(footY - y2D, footX - x2D);
    if (w < 0) {
        w += kTwoPi;
    }
    w = FoldToNearestAxis(w);
    const double r = std::cos(w) * (tol + tol * std::tan(std::fabs(w)));
    if (dist >= r) {
        return false;
    }
    if (dist < tol) {
        tol = dist;
        return true;
    }
    const double q = tol - (r - dist) * std::cos(kHalfPi - std::fabs(w)) / kCursorDiagonal;
    if (q < tol) {
        tol = q;
    }
    return true;
}

void RvPoint2D::Serialize(CArchive& ar) {
    RvPoint3D::Serialize(ar);
    if (ar.IsStoring()) {
        ar << x2D << y2D;
    } else {
        ar >> x2D >> y2D;
    }
}

}  // namespace ravelin
