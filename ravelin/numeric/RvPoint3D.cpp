#include "ravelin/numeric/RvPoint3D.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "ravelin/platform/AfxMessageBox.h"
#include "ravelin/platform/CArchive.h"

namespace ravelin {

RAVELIN_IMPLEMENT_SERIAL(RvPoint3D, CObject, 1)

namespace {

// Shown once when a vector too short to normalise turns up (the user is asked to close the
// function and try again if it misbehaves).
constexpr const char* kNormalizeWarning =
    "Nastal problém s normalizáciou vektora pri výpočte!\n\n"
    "Pokiaľ funkcia nebude pracovať správne,\n"
    "ukončite ju a pokúste sa ju použiť znova.";

constexpr double kNullCoordinate = 9e-07;

// Unit vector of `v` where it is not null; a null one is kept as it is.
RvPoint3D NormalizedIfNotNull(RvPoint3D v) {
    if (v.IsNotNull()) {
        v.Normalize();
    }
    return v;
}

double ClampedAngleBetween(const RvPoint3D& u, const RvPoint3D& v) {
    return std::acos(std::clamp(static_cast<double>(u * v), -1.0, 1.0));
}

// +1 when the turn from `u` to `v` runs against the normal `n`, else -1.
double AxisSign(const RvPoint3D& u, const RvPoint3D& v, const RvPoint3D& n) {
    return Number(u.GetVektorovySucin(v) * n) < 0 ? 1.0 : -1.0;
}

}  // namespace

bool RvPoint3D::s_bNormalizeWarning = true;

RvPoint3D::RvPoint3D() : x(0), y(0), z(0) {}

RvPoint3D::RvPoint3D(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

RvPoint3D::RvPoint3D(const RvPoint3D& p) : CObject(p), x(p.x), y(p.y), z(p.z) {}

RvPoint3D& RvPoint3D::operator=(const RvPoint3D& p) {
    x = p.x;
    y = p.y;
    z = p.z;
    return *this;
}

RvPoint3D::~RvPoint3D() = default;

void RvPoint3D::Set(double x_, double y_, double z_) {
    x = x_;
    y = y_;
    z = z_;
}

void RvPoint3D::Swap(RvPoint3D& p) {
    std::swap(x, p.x);
    std::swap(y, p.y);
    std::swap(z, p.z);
}

RvPoint3D RvPoint3D::operator+(const RvPoint3D& p) const {
    return {x + p.x, y + p.y, z + p.z};
}

RvPoint3D RvPoint3D::operator-(const RvPoint3D& p) const {
    return {x - p.x, y - p.y, z - p.z};
}

RvPoint3D RvPoint3D::operator*(double f) const {
    return {x * f, y * f, z * f};
}

RvPoint3D RvPoint3D::operator/(double f) const {
    return {x / f, y / f, z / f};
}

RvPoint3D& RvPoint3D::operator+=(const RvPoint3D& p) {
    x += p.x;
    y += p.y;
    z += p.z;
    return *this;
}

RvPoint3D& RvPoint3D::operator-=(const RvPoint3D& p) {
    x -= p.x;
    y -= p.y;
    z -= p.z;
    return *this;
}

void RvPoint3D::operator*=(const double& f) {
    x *= f;
    y *= f;
    z *= f;
}

void RvPoint3D::operator/=(const double& f) {
    x /= f;
    y /= f;
    z /= f;
}

Number RvPoint3D::operator*(const RvPoint3D& o) const {
    return x * o.x + y * o.y + z * o.z;
}

RvPoint3D RvPoint3D::GetVektorovySucin(const RvPoint3D& o) const {
    return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
}

void RvPoint3D::SetVektorovySucin(const RvPoint3D& o) {
    *this = GetVektorovySucin(o);
}

Number RvPoint3D::GetSquareSize() const {
    return x * x + y * y + z * z;
}

Number RvPoint3D::GetSize() const {
    return std::sqrt(x * x + y * y + z * z);
}

Number RvPoint3D::Distance(const RvPoint3D& p) const {
    return (*this - p).GetSize();
}

Number RvPoint3D::Distance2D(const RvPoint3D& p) const {
    return std::sqrt(SquareDistance2D(p));
}

Number RvPoint3D::SquareDistance2D(const RvPoint3D& p) const {
    const double dx = x - p.x;
    const double dy = y - p.y;
    return dx * dx + dy * dy;
}

bool RvPoint3D::operator==(const RvPoint3D& p) const {
    return IsEqual3D(p, 0.01);
}

bool RvPoint3D::operator!=(const RvPoint3D& p) const {
    return !(*this == p);
}

bool RvPoint3D::IsEqual2D(const RvPoint3D& o, double tol) const {
    return BoxEqual(x, o.x, tol) && BoxEqual(y, o.y, tol);
}

bool RvPoint3D::IsEqual3D(const RvPoint3D& o, double tol) const {
    return IsEqual2D(o, tol) && BoxEqual(z, o.z, tol);
}

bool RvPoint3D::IsNull() const {
    return std::fabs(x) < kNullCoordinate && std::fabs(y) < kNullCoordinate &&
           std::fabs(z) < kNullCoordinate;
}

bool RvPoint3D::IsNotNull() const {
    return IsNotNull(kNullCoordinate);
}

bool RvPoint3D::IsNotNull(double tol) const {
    return std::fabs(x) > tol || std::fabs(y) > tol || std::fabs(z) > tol;
}

bool RvPoint3D::IsEqualOrientation(const RvPoint3D& o) const {
    constexpr double kSmallest = 0.0001;
    const double mine[] = {x, y, z};
    const double theirs[] = {o.x, o.y, o.z};
    for (int i = 0; i < 3; ++i) {
        if (std::fabs(mine[i]) > kSmallest) {
            return theirs[i] / mine[i] > kSmallest;
        }
    }
    return false;
}

const RvPoint3D& RvPoint3D::GetNearest(const RvPoint3D& a, const RvPoint3D& b) const {
    return Distance(b) > Distance(a) ? a : b;
}

void RvPoint3D::Normalize() {
    const Number size = GetSize();
    if (size > 0) {
        x /= size;
        y /= size;
        z /= size;
        return;
    }
    if (s_bNormalizeWarning) {
        AfxMessageBox(kNormalizeWarning, 0, 0);
        s_bNormalizeWarning = false;
    }
}

double RvPoint3D::RoundCoordinate(double c, int n) {
    return c >= 0 ? std::floor(c * n + 0.5) / n : std::ceil(c * n - 0.5) / n;
}

void RvPoint3D::Round(int n) {
    x = RoundCoordinate(x, n);
    y = RoundCoordinate(y, n);
    z = RoundCoordinate(z, n);
}

bool RvPoint3D::IsOnLine(const RvPoint3D& p, const RvPoint3D& dir) const {
    if (p == *this) {
        return true;
    }
    RvPoint3D v = p - *this;
    const Number size = v.GetSize();
    if (!(size > 0)) {
        return size == 0;
    }
    v.Normalize();
    RvPoint3D w = dir;
    if (!(w.GetSize() > 0)) {
        return false;
    }
    w.Normalize();
    return std::fabs(v * w) > 0.99999;
}

bool RvPoint3D::IsOnPlane(RvPoint3D a, RvPoint3D b, RvPoint3D c) const {
    constexpr int kSteps = 10000;
    RvPoint3D p = *this;
    a.Round(kSteps);
    b.Round(kSteps);
    c.Round(kSteps);
    p.Round(kSteps);
    const RvPoint3D n = (b - a).GetVektorovySucin(c - a);
    return Number(a * n - p * n) == 0;
}

bool RvPoint3D::IsInsideSegment(const RvPoint3D& a, const RvPoint3D& b) const {
    const RvPoint3D u = NormalizedIfNotNull(a - *this);
    const RvPoint3D v = NormalizedIfNotNull(b - *this);
    const RvPoint3D c = u.GetVektorovySucin(v);
    if (!(std::fabs(c.x + c.y + c.z) < 1e-05)) {
        return false;
    }
    return Number(u * v) < -1e-05;
}

bool RvPoint3D::IsInsideSegment2D(const RvPoint3D& a, const RvPoint3D& b) const {
    const RvPoint3D u = NormalizedIfNotNull(RvPoint3D(a.x - x, a.y - y, 0));
    const RvPoint3D v = NormalizedIfNotNull(RvPoint3D(b.x - x, b.y - y, 0));
    if (!(Number(u.x * v.y - u.y * v.x) == 0)) {
        return false;
    }
    return Number(u * v) < -1e-05;
}

bool RvPoint3D::IsInHalfSpace(double a, double b, double c, double d) const {
    return a * x + b * y + c * z + d > 1e-07;
}

Number RvPoint3D::DistanceFromLine(const RvPoint3D& a, const RvPoint3D& b) const {
    const RvPoint3D d = b - a;
    if (!d.IsNotNull()) {
        return Distance(a);
    }
    const double t = (*this * d - a * d) / (d * d);
    return Distance(a + d * t);
}

Number RvPoint3D::DistanceFromSegment(const RvPoint3D& a, const RvPoint3D& b) const {
    const RvPoint3D d = b - a;
    if (!d.IsNotNull()) {
        return Distance(a);
    }
    double t = (*this * d - a * d) / (d * d);
    // A foot beyond either end measures to the start of the segment.
    if (t > 1.0000001 || t < -1e-09) {
        t = 0;
    }
    return Distance(a + d * t);
}

Number RvPoint3D::DistanceFromPlane(const RvPoint3D& a, const RvPoint3D& n) const {
    return std::fabs(*this * n - a * n) / n.GetSize();
}

RvPoint3D RvPoint3D::GetSumernyBod(double a, double b, double c, double d) const {
    const double t = 2 * (a * x + b * y + c * z + d) / (a * a + b * b + c * c);
    return {x - t * a, y - t * b, z - t * c};
}

void RvPoint3D::SetSumernyBod(double a, double b, double c, double d) {
    *this = GetSumernyBod(a, b, c, d);
}

RvPoint3D RvPoint3D::DajBodNaOsiUhla(const RvPoint3D& p, const RvPoint3D& u, const RvPoint3D& v,
                                     double d, const RvPoint3D& n) {
    const double a = ClampedAngleBetween(u, v);
    if (!(Number(a) > 0)) {
        return p + n.GetVektorovySucin(u) * d;
    }
    return p + (u + v) * (AxisSign(u, v, n) * d / std::sin(a));
}

RvPoint3D RvPoint3D::DajBodNaOsiUhlaEx(const RvPoint3D& p, const RvPoint3D& u, double d1,
                                       const RvPoint3D& v, double d2, const RvPoint3D& n) {
    const double a = ClampedAngleBetween(u, v);
    if (Number(a) == 0) {
        return p + n.GetVektorovySucin(u) * d2;
    }
    const double s = std::sin(a);
    const RvPoint3D offset = u * (d2 / s) + v * (d1 / s);
    return p + offset * AxisSign(u, v, n);
}

RvPoint3D RvPoint3D::DajPriesecnik(const RvPoint3D& a, const RvPoint3D& dir, const RvPoint3D& q,
                                   const RvPoint3D& n) {
    const double den = dir * n;
    const double num = q * n - a * n;
    if (Number(den) == 0) {
        throw num;
    }
    return a + dir * (num / den);
}

void RvPoint3D::Activate_Normalize_Warning_ERR() {
    s_bNormalizeWarning = true;
}

void RvPoint3D::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << x << y << z;
    } else {
        ar >> x >> y >> z;
    }
}

}  // namespace ravelin
