#include "ravelin/polygon/RvPolygon2D.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

#include "ravelin/platform/CRgn.h"
#include "ravelin/skeleton/RvSkeleton.h"

namespace ravelin {

namespace {

// Whether `c` replaces `e` as the extreme vertex: lower, or as low and not to the left of it
// (so that of exact duplicates the last wins). Plain comparisons.
bool IsMoreExtreme(const RvPoint2D& e, const RvPoint2D& c) {
    if (e.y2D < c.y2D) {
        return false;
    }
    if (e.y2D > c.y2D) {
        return true;
    }
    return !(e.x2D > c.x2D);
}

// The index of the extreme vertex among the first `m` vertices of `v`.
std::size_t ExtremeIndex(const RvDrawEntity& v, std::size_t m) {
    std::size_t e = 0;
    for (std::size_t k = 1; k < m; ++k) {
        if (IsMoreExtreme(v[e], v[k])) {
            e = k;
        }
    }
    return e;
}

}  // namespace

RvPolygon2D::RvPolygon2D() : m_bDrawEdges(false), m_pSkeleton(nullptr) {
    type = kType;
}

RvPolygon2D::RvPolygon2D(const RvPolygon2D& p)
    : RvDrawEntity(p), m_bDrawEdges(false), m_pSkeleton(nullptr) {
    type = kType;
}

RvPolygon2D::RvPolygon2D(const RvPolyLine2D& p)
    : RvDrawEntity(p), m_bDrawEdges(false), m_pSkeleton(nullptr) {
    type = kType;
}

RvPolygon2D& RvPolygon2D::operator=(const RvPolygon2D& p) {
    RvDrawEntity::operator=(p);
    DeleteSkeleton();
    return *this;
}

RvPolygon2D::~RvPolygon2D() {
    DeleteSkeleton();
}

void RvPolygon2D::DeleteSkeleton() {
    delete m_pSkeleton;
    m_pSkeleton = nullptr;
}

void RvPolygon2D::ReInit() {
    RvDrawEntity::ReInit();
    type = kType;
    m_pSkeleton = nullptr;  // forgotten, not destroyed
}

// ---- Measures ----------------------------------------------------------------------------------

double RvPolygon2D::GetPlochuOriented() const {
    const std::size_t n = size();
    if (n < 3) {
        return 0.0;
    }
    const RvPoint2D& v0 = (*this)[0];
    double sum = 0;
    for (std::size_t i = 2; i < n; ++i) {
        const RvPoint3D c = RvPoint3D((*this)[i - 1] - v0).GetVektorovySucin((*this)[i] - v0);
        // Each triangle counts with the sign of its cross product's z.
        if (c.z > 0) {
            sum += c.GetSize();
        } else {
            sum -= c.GetSize();
        }
    }
    return sum / 2;
}

double RvPolygon2D::GetPlochu() const {
    return std::fabs(GetPlochuOriented());
}

double RvPolygon2D::GetObvod() const {
    const std::size_t n = size();
    if (n < 3) {
        return 0.0;
    }
    double sum = 0;
    for (std::size_t i = 0; i + 1 < n; ++i) {
        sum += (*this)[i].Distance((*this)[i + 1]);
    }
    if (!((*this)[n - 1] == (*this)[0])) {
        sum += (*this)[n - 1].Distance((*this)[0]);
    }
    return sum;
}

Number RvPolygon2D::GetOrientation() const {
    const std::size_t n = size();
    if (n < 3) {
        return Number(0.0);
    }
    const std::size_t e = ExtremeIndex(*this, n);
    const RvPoint2D& ext = (*this)[e];
    const RvPoint2D& next = (*this)[e == n - 1 ? 0 : e + 1];
    // Before vertex 0 comes the last vertex, or the one before it when the ring is stored
    // closed.
    std::size_t before = e - 1;
    if (e == 0) {
        before = (*this)[n - 1] == (*this)[0] ? n - 2 : n - 1;
    }
    const RvPoint2D& prev = (*this)[before];
    return Number((next.y2D - prev.y2D) * (ext.x2D - prev.x2D) -
                  (next.x2D - prev.x2D) * (ext.y2D - prev.y2D));
}

RvPoint3D RvPolygon2D::GetNormalVector2() const {
    const std::size_t n = size();
    if (n < 3) {
        return RvPoint3D();
    }
    // A stored closing vertex is left out of the ring.
    const std::size_t m = (*this)[0] == (*this)[n - 1] ? n - 1 : n;
    const std::size_t e = ExtremeIndex(*this, m);
    const RvPoint2D& ext = (*this)[e];
    const RvPoint2D& prev = (*this)[e == 0 ? m - 1 : e - 1];
    const RvPoint2D& next = (*this)[e + 1 == m ? 0 : e + 1];
    RvPoint3D normal = RvPoint3D(prev - next).GetVektorovySucin(ext - next);
    if (!normal.IsNull()) {
        normal.Normalize();
    }
    return normal;
}

bool RvPolygon2D::operator==(const RvPolygon2D& o) const {
    const int n = static_cast<int>(size());
    if (n != static_cast<int>(o.size())) {
        return false;
    }
    const auto same = [this, &o](int mine, int theirs) {
        return (*this)[mine].IsEqual2D(o[theirs], 0.01);
    };
    int k = 0;
    while (k < n && !same(k, 0)) {
        ++k;
    }
    if (k == n) {
        return false;
    }
    if (n == 1) {
        return true;  // no second vertex to compare
    }
    int f = k + 1 == n ? 0 : k + 1;
    if (same(f, 1)) {
        for (int m = 2; m < n; ++m) {
            f = f + 1 == n ? 0 : f + 1;
            if (!same(f, m)) {
                return false;
            }
        }
        return true;
    }
    // Backward. The start is f - 2, or the last vertex when that is negative.
    int g = f - 2 < 0 ? n - 1 : f - 2;
    if (!same(g, 1)) {
        return false;
    }
    for (int m = 2; m < n; ++m) {
        g = g - 1 < 0 ? n - 1 : g - 1;
        if (!same(g, m)) {
            return false;
        }
    }
    return true;
}

std::vector<RvPolygon2D>::iterator RvPolygon2D::GetBigestPolygon(std::vector<RvPolygon2D>& polys) {
    auto best = polys.begin();
    for (auto it = polys.begin(); it != polys.end(); ++it) {
        if (best->GetPlochu() < it->GetPlochu()) {
            best = it;
        }
    }
    return best;
}

std::vector<RvPolygon2D>::iterator RvPolygon2D::GetNearestPolygon(const RvPoint3D& p,
                                                                  std::vector<RvPolygon2D>& polys) {
    auto result = polys.begin();
    double best = -1.0;
    for (auto it = polys.begin(); it != polys.end(); ++it) {
        double d = -1.0;
        for (int k = 0; k < static_cast<int>(it->size()); ++k) {
            const RvPoint3D& s = (*it)[static_cast<std::size_t>(k)];
            const RvPoint3D& r = *it->GetPrevPoint(k);
            const RvPoint3D e = r - s;
            double candidate = s.Distance(p);
            if (!e.IsNull()) {
                const double t = (p * e - s * e) / (e * e);
                if (-1e-06 < t && t < 1.0000001) {
                    candidate = p.Distance(s + e * t);
                }
            }
            if (d > candidate || d < -1e-07) {
                d = candidate;
            }
        }
        // A polygon without vertices keeps d = -1, which beats any distance.
        if (d < best || best < -1e-05) {
            result = it;
            best = d;
        }
    }
    return result;
}

int RvPolygon2D::LocatePointToPlain(RvPoint3D& p) {
    const std::size_t n = size();
    if (n < 3) {
        return 0;
    }
    const RvPoint3D& a = (*this)[0];
    std::size_t ib = 1;
    while (ib < n && RvPoint3D((*this)[ib]).IsEqual3D(a, 0.01)) {
        ++ib;
    }
    if (ib == n) {
        return 0;
    }
    const RvPoint3D u = RvPoint3D((*this)[ib]) - a;
    // The plane's normal must have a z: a plane standing vertical counts as none.
    std::size_t ic = ib + 1;
    RvPoint3D w;
    for (; ic < n; ++ic) {
        w = RvPoint3D((*this)[ic]) - a;
        if (std::fabs(u.x * w.y - u.y * w.x) >= 0.001) {
            break;
        }
    }
    if (ic == n) {
        return 0;
    }
    const RvPoint3D normal = u.GetVektorovySucin(w);
    p.z = a.z + (-(p.x - a.x) * normal.x - (p.y - a.y) * normal.y) / normal.z;
    return 1;
}

RvPolygon2D& RvPolygon2D::operator&=(const RvPolygon2D& o) {
    // The regions are combined and dropped; only the pixel work of the platform happens. The
    // other polygon is read with this polygon's count, but never past its own end.
    const std::unique_ptr<tagPOINT[]> mine(GetPOINTArray());
    const std::unique_ptr<tagPOINT[]> theirs(o.GetPOINTArray());
    const int n = static_cast<int>(size());
    CRgn first;
    CRgn second;
    first.CreatePolygonRgn(mine.get(), n, ALTERNATE);
    second.CreatePolygonRgn(theirs.get(), std::min(n, static_cast<int>(o.size())), ALTERNATE);
    second.CombineRgn(&second, &first, RGN_AND);
    return *this;
}

}  // namespace ravelin
