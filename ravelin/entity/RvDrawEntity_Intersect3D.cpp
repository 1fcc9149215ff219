#include <cmath>
#include <cstddef>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvLine2D.h"

namespace ravelin {

namespace {

// The statuses written to `intersectStatus`.
constexpr int kStatusNone = 0;
constexpr int kStatusSkew = 1;
constexpr int kStatusParallel = 2;

// The scalar triple product d . (s x e).
double TripleProduct(const RvPoint3D& d, const RvPoint3D& s, const RvPoint3D& e) {
    return d * s.GetVektorovySucin(e);
}

bool IsCoplanar(double det, double tol) {
    return -tol < det && det < tol;
}

// Sets to exactly 0 each coordinate of `e` no larger than 1e-06 in magnitude, so that noise in
// it does not count in a triple product.
void ZeroNoise(RvPoint3D& e) {
    for (double* c : {&e.x, &e.y, &e.z}) {
        if (!(std::fabs(*c) > 1e-06)) {
            *c = 0;
        }
    }
}

// The parameter on the line from `v` with vector `s` where it meets the plane that holds the
// line from `a` with vector `d` and is perpendicular to the plane of both.
double MeetingParameter(const RvPoint3D& a, const RvPoint3D& d, const RvPoint3D& v,
                        const RvPoint3D& s, const RvPoint3D& c) {
    const RvPoint3D m = c.GetVektorovySucin(d);
    return (a * m - v * m) / (s * m);
}

// Segment `i` of an entity, from vertex `i` to the next one (the last wrapping to vertex 0),
// against the line from `a` to `b`.
struct SegmentOperands {
    RvPoint3D v;   // vertex `i`
    RvPoint3D vj;  // the vertex after it
    RvPoint3D d;   // b - a
    RvPoint3D s;   // vj - v
};

// False for an index with no segment, and for a segment or an `a`-`b` shorter than 0.0001,
// which have no direction to speak of.
bool GetOperands(const RvDrawEntity& e, std::size_t i, const RvPoint3D& a, const RvPoint3D& b,
                 SegmentOperands& o) {
    const std::size_t n = e.size();
    if (i + 1 > n) {
        return false;
    }
    o.v = e[i];
    o.vj = e[i + 1 == n ? 0 : i + 1];
    o.d = b - a;
    o.s = o.vj - o.v;
    return !(o.d.GetSize() < 0.0001 || o.s.GetSize() < 0.0001);
}

}  // namespace

bool RvDrawEntity::IntersectSegment3D(RvPoint3D& a, RvPoint3D& b, RvPoint3D& out, unsigned int i) {
    SegmentOperands o;
    if (!GetOperands(*this, i, a, b, o)) {
        return false;
    }
    const auto& [v, vj, d, s] = o;
    const RvPoint3D e = v - b;
    if (!IsCoplanar(TripleProduct(d, s, e), 1e-06)) {
        return false;
    }
    const RvPoint3D c = d.GetVektorovySucin(s);
    if (!(c.GetSize() > 1e-05)) {
        return false;
    }
    const double t = MeetingParameter(a, d, v, s, c);
    if (!(-1e-06 < t && t < 1.000001)) {
        return false;
    }
    const RvPoint3D hit = v + s * t;
    out.Set(hit.x, hit.y, hit.z);
    // Between `a` and `b` the two vectors point apart, or one of them is short.
    return static_cast<double>((out - a) * (out - b)) < 1e-06;
}

bool RvDrawEntity::IntersectSegment3D(RvPoint3D& a, RvPoint3D& b) {
    RvPoint3D scratch;
    for (std::size_t i = 0; i < size(); ++i) {
        if (IntersectSegment3D(a, b, scratch, static_cast<unsigned int>(i))) {
            return true;
        }
    }
    return false;
}

bool RvDrawEntity::IntersectSegmentAndLine3D(RvPoint3D& a, RvPoint3D& b, RvPoint3D& out,
                                             unsigned int i) {
    intersectStatus = kStatusNone;
    SegmentOperands o;
    if (!GetOperands(*this, i, a, b, o)) {
        return false;
    }
    const auto& [v, vj, d, s] = o;
    RvPoint3D e = v - b;
    ZeroNoise(e);
    if (!IsCoplanar(TripleProduct(d, s, e), 1e-06)) {
        intersectStatus = kStatusSkew;
        return false;
    }
    const RvPoint3D c = d.GetVektorovySucin(s);
    if (!(c.GetSize() > 1e-05)) {
        intersectStatus = kStatusParallel;
        return false;
    }
    const double t = MeetingParameter(a, d, v, s, c);
    if (!(-1e-06 < t && t < 1.000001)) {
        intersectStatus = kStatusSkew;
        return false;
    }
    const RvPoint3D hit = v + s * t;
    out.Set(hit.x, hit.y, hit.z);
    return true;
}

bool RvDrawEntity::IntersectLine3D(RvPoint3D& a, RvPoint3D& b, RvPoint3D& out, unsigned int i) {
    intersectStatus = kStatusNone;
    SegmentOperands o;
    if (!GetOperands(*this, i, a, b, o)) {
        return false;
    }
    const auto& [v, vj, d, s] = o;
    const RvPoint3D e = v - b;
    // An end of one line on an end of the other makes the pair coplanar whatever the product.
    const bool touching = v.Distance(a) < 0.0001 || vj.Distance(a) < 0.0001 ||
                          v.Distance(b) < 0.0001 || vj.Distance(b) < 0.0001;
    if (!touching && !IsCoplanar(TripleProduct(d, s, e), 1e-06)) {
        // A nearly coplanar pair is accepted when `b` lies within 0.001 of the plane of the
        // segment and `a`.
        RvLine2D segment{RvPoint3D(v), RvPoint3D(vj)};
        RvPoint3D projected;
        if (!segment.GetKolmyPriemetBoduNarovinu(a, b, projected) ||
            !(projected.Distance(b) < 0.001)) {
            intersectStatus = kStatusSkew;
            return false;
        }
    }
    const RvPoint3D c = d.GetVektorovySucin(s);
    if (!(c.GetSize() > 1e-05)) {
        intersectStatus = kStatusParallel;
        return false;
    }
    // Both are lines: no bound on the parameter and no test against the ends of `a`-`b`.
    const double t = MeetingParameter(a, d, v, s, c);
    const RvPoint3D hit = v + s * t;
    out.Set(hit.x, hit.y, hit.z);
    return true;
}

bool RvDrawEntity::Intersect3D(RvDrawEntity& e, std::vector<RvPoint2D>& out) {
    intersectStatus = kStatusNone;
    if (e.size() < 2) {
        return false;
    }
    const std::size_t n = size();
    bool appended = false;
    for (std::size_t k = 0; k + 1 < e.size(); ++k) {
        const RvPoint3D& a = e[k];
        const RvPoint3D& b = e[k + 1];
        for (std::size_t i = 0; n >= 2 && i < n; ++i) {
            SegmentOperands o;
            if (!GetOperands(*this, i, a, b, o)) {
                continue;
            }
            const auto& [v, vj, d, s] = o;
            const RvPoint3D g = v - b;
            // A skew pair ends the whole operation, whatever has been appended.
            if (!IsCoplanar(TripleProduct(d, s, g), 1e-05)) {
                intersectStatus = kStatusSkew;
                return false;
            }
            const RvPoint3D c = d.GetVektorovySucin(s);
            if (!(c.GetSize() > 1e-05)) {
                continue;
            }
            // No bound on the parameter: segments that do not reach each other give the
            // meeting point of their lines.
            const double t = MeetingParameter(a, d, v, s, c);
            out.push_back(RvPoint2D(v + s * t));
            appended = true;
        }
    }
    return appended;
}

bool RvDrawEntity::IntersectPlane(RvDrawEntity& e, RvPoint2D& p1, RvPoint2D& p2) {
    if (e.size() < 3 || size() < 3) {
        return false;
    }
    const RvDrawEntity& v = *this;
    RvPoint3D ne = RvPoint3D(e[2] - e[0]).GetVektorovySucin(RvPoint3D(e[1] - e[0]));
    ne.Normalize();
    RvPoint3D nv = RvPoint3D(v[2] - v[0]).GetVektorovySucin(RvPoint3D(v[1] - v[0]));
    nv.Normalize();
    const RvPoint3D dir = ne.GetVektorovySucin(nv);
    p2.Set(dir.x, dir.y, dir.z);
    if (p2.IsNull()) {
        return false;
    }
    p2.Normalize();
    // The point lies on the line through v[0] and v[1], or else through v[0] and v[2].
    for (const std::size_t k : {std::size_t{1}, std::size_t{2}}) {
        const RvPoint2D w = v[k] - v[0];
        const double den = w * ne;
        if (std::fabs(den) > 1e-06) {
            const double t = (e[0] * ne - v[0] * ne) / den;
            p1 = v[0] + w * t;
            return true;
        }
    }
    return false;
}

}  // namespace ravelin
