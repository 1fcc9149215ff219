#include <cmath>
#include <cstddef>

#include "ravelin/numeric/Number.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

namespace {

// The shift of a corner with unit arms `a` (to the next vertex) and `b` (to the previous one):
// the mitre at `distance` along the corner's axis, or sideways for a spike. Computed from the
// origin, so that adding it to a vertex moves every coordinate by the same amounts.
RvPoint3D CornerShift(const RvPoint3D& a, const RvPoint3D& b, double distance, const RvPoint3D& n) {
    return RvPoint3D::DajBodNaOsiUhla(RvPoint3D(), a, b, distance, n);
}

// The vector from `from` to `to`, in space.
RvPoint3D Arm(const RvPoint3D& from, const RvPoint3D& to) {
    return to - from;
}

}  // namespace

// Every shift is computed from the unshifted ring: `prev` keeps the vertex as it was before it
// moved, and the last vertex takes the unshifted first one as its next neighbour.
void RvPolygon2D::Extend(double distance) {
    const std::size_t n = size();
    if (n < 3) {
        return;
    }
    const RvPoint3D normal = GetNormalVector();
    if (normal.GetSize() < 1e-05) {
        return;
    }
    RvPoint2D prev = (*this)[n - 1];
    const RvPoint2D first = (*this)[0];
    for (std::size_t i = 0; i < n; ++i) {
        RvPoint2D& cur = (*this)[i];
        const RvPoint2D& next = i + 1 == n ? first : (*this)[i + 1];
        RvPoint3D a = Arm(cur, next);
        RvPoint3D b = Arm(cur, prev);
        // A vertex on a null edge stays behind, and its successor still sees the older `prev`.
        if (!a.IsNotNull() || !b.IsNotNull()) {
            continue;
        }
        a.Normalize();
        b.Normalize();
        prev = cur;
        cur += CornerShift(a, b, distance, normal);
    }
}

bool RvPolygon2D::TestOffsetPoint(RvPoint3D& point, double distance, int& index) {
    if (PointInPolygonEx2D(RvPoint2D(point)) == 0) {
        return false;
    }
    const RvPoint3D normal = GetNormalVector();
    const int n = static_cast<int>(size());
    const double reach = std::fabs(distance);
    for (int i = 0, p = n - 1; i < n; p = i, ++i) {
        const RvPoint3D cur = (*this)[i];
        RvPoint3D w = Arm(cur, (*this)[p]);
        if (w.IsNull()) {
            continue;
        }
        const double t = ((point - cur) * w) / (w * w);
        if (1e-07 < t && t < 1.00000001) {
            // The foot falls on the edge: the point must keep its distance from it.
            const RvPoint3D foot = cur + w * t;
            if ((point - foot).GetSize() < reach - 1e-07) {
                index = i;
                return false;
            }
            continue;
        }
        // Each corner is tested once, from the edge that ends at it.
        if (t >= 1e-08) {
            continue;
        }
        RvPoint3D v = Arm(cur, *GetNextPoint(i));
        if (w.IsNull() || v.IsNull()) {
            continue;
        }
        w.Normalize();
        v.Normalize();
        const RvPoint3D corner = RvPoint3D::DajBodNaOsiUhla(cur, v, w, distance, normal);
        const RvPoint3D x = cur - corner;
        const RvPoint3D y = point - corner;
        if (x.IsNull() || y.IsNull()) {
            continue;
        }
        // The forbidden cone round the axis from the offset corner to the vertex.
        const double xs = x.GetSize();
        const double ys = y.GetSize();
        double c = reach / xs;
        if (c > 0.999999999999) {
            c = 1.0;
        }
        const double q = (x * y) / (xs * ys);
        if (std::sqrt(1.00000001 - c * c) < q) {
            return false;
        }
    }
    return true;
}

// One corner that stays inside is enough. Vertices that continue the previous edge are passed
// over; the corner then moves to where the next edge meets the line of the previous one.
bool RvPolygon2D::IsExtendable(double distance) {
    const int n = static_cast<int>(size());
    if (n < 3) {
        return false;
    }
    if (distance > -1e-05) {
        return true;
    }
    const RvPoint3D normal = GetNormalVector();
    int start = 0;
    while (start < n && !Arm((*this)[start], *GetPrevPoint(start)).IsNotNull()) {
        ++start;
    }
    if (start == n) {
        return false;
    }
    RvPoint3D b = Arm((*this)[start], *GetPrevPoint(start));
    b.Normalize();
    RvPoint3D c((*this)[start].x, (*this)[start].y, (*this)[start].z);
    RvPoint3D d = normal.GetVektorovySucin(b);
    d.Normalize();
    for (int i = start; i < n; ++i) {
        const RvPoint3D e = (*this)[i];
        RvPoint3D a = Arm(e, *GetNextPoint(i));
        if (a.IsNull() || std::fabs(a * d) <= 1e-10) {
            continue;
        }
        a.Normalize();
        const double t = ((c - e) * d) / (a * d);
        c = e + a * t;
        RvPoint3D corner = RvPoint3D::DajBodNaOsiUhla(c, a, b, distance, normal);
        int scratch = 0;
        if (TestOffsetPoint(corner, distance, scratch)) {
            return true;
        }
        b = a * -1.0;
        d = normal.GetVektorovySucin(b);
        d.Normalize();
    }
    return false;
}

// An edge survives when its offset ends keep its direction and a small positive length.
RvPolygon2D RvPolygon2D::_GetReducedPolygon(double distance) {
    const int n = static_cast<int>(size());
    if (n < 3 || distance > -1e-07) {
        return *this;
    }
    const RvPoint3D normal = GetNormalVector();
    if (normal.GetSize() < 1e-05) {
        return RvPolygon2D();
    }
    RvPolygon2D result;
    for (int i = 0; i < n; ++i) {
        const RvPoint2D& cur = (*this)[i];
        const RvPoint2D& prev = *GetPrevPoint(i);
        const int p = i == 0 ? n - 1 : i - 1;
        const RvPoint2D& prev2 = *GetPrevPoint(p);
        RvPoint3D a = Arm(cur, *GetNextPoint(i));
        RvPoint3D b = Arm(cur, prev);
        RvPoint3D c = Arm(prev, cur);
        RvPoint3D d = Arm(prev, prev2);
        if (a.IsNull() || b.IsNull() || c.IsNull() || d.IsNull()) {
            continue;
        }
        a.Normalize();
        b.Normalize();
        c.Normalize();
        d.Normalize();
        const RvPoint3D p1 = RvPoint3D::DajBodNaOsiUhla(cur, a, b, distance, normal);
        const RvPoint3D p2 = RvPoint3D::DajBodNaOsiUhla(prev, c, d, distance, normal);
        if (Number((p2 - p1) * b) > -1e-09) {
            result.AddPolygonPoint(prev);
            result.AddPolygonPoint(cur);
        }
    }
    if (!result.empty() && result[0] == result[result.size() - 1]) {
        result.pop_back();
    }
    return result;
}

}  // namespace ravelin
