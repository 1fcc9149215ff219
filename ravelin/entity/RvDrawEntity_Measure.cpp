#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/entity/RvLine2D.h"
#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

namespace {

// Moves `p` by `d` along the direction of segment `i` of `e` (from the vertex before `i` to
// vertex `i`), backward for a negative `d`. Vertex `i` is read first, so that a bad index raises
// before its neighbour is looked up.
void LayOffOnSegment(RvDrawEntity& e, int i, RvPoint3D& p, double d) {
    const RvPoint3D& end = CheckedAt(e, i);
    RvPoint3D v = end - *e.GetPrevPoint(i);
    v.Normalize();
    p = p + v * d;
}

}  // namespace

double RvDrawEntity::GetDistancePoint2D(const RvPoint2D& p, unsigned int i) {
    const std::size_t n = size();
    if (i >= n) {
        return -1.0;
    }
    const RvPoint2D& vi = (*this)[i];
    const RvPoint2D& vj = (*this)[i + 1 == n ? 0 : i + 1];
    const double a = vi.y2D - vj.y2D;
    const double b = vj.x2D - vi.x2D;
    if (a == 0 && b == 0) {
        return 0.0;
    }
    const double c = -vi.x2D * a - vi.y2D * b;
    return std::fabs(a * p.x2D + b * p.y2D + c) / std::sqrt(a * a + b * b);
}

double RvDrawEntity::GetDistancePointSegment2D(RvPoint2D& p, int& nearest, unsigned int i) {
    nearest = -1;
    const std::size_t n = size();
    if (i >= n) {
        return -1.0;
    }
    const unsigned int j = i + 1 == n ? 0 : i + 1;
    const RvPoint2D& vi = (*this)[i];
    const RvPoint2D& vj = (*this)[j];
    const double a = vi.y2D - vj.y2D;
    const double b = vj.x2D - vi.x2D;
    // The perpendicular through `p` meets the segment exactly when the foot lies on it.
    RvLine2D segment(vi, vj);
    std::vector<RvPoint2D> hits;
    if (segment.IntersectLine2D(p, RvPoint2D(a, b), hits)) {
        return GetDistancePoint2D(p, i);
    }
    const double d1 = p.Distance2D(vi);
    const double d2 = p.Distance2D(vj);
    if (d1 < d2) {
        nearest = static_cast<int>(i);
        return d1;
    }
    nearest = static_cast<int>(j);
    return d2;
}

double RvDrawEntity::GetDistFromSegment(int i, const RvPoint3D& p) {
    // Vertex `i` is read first, so that a bad index raises before its neighbour is looked up.
    const RvPoint3D& end = CheckedAt(*this, i);
    return p.DistanceFromSegment(end, *GetPrevPoint(i));
}

double RvDrawEntity::GetDistFromSegment(int i, const RvPoint3D& p, const RvPoint3D& q) {
    const RvPoint3D& end = CheckedAt(*this, i);
    const RvPoint3D& start = *GetPrevPoint(i);
    return std::min({GetDistFromSegment(i, p), GetDistFromSegment(i, q),
                     static_cast<double>(end.DistanceFromSegment(p, q)),
                     static_cast<double>(start.DistanceFromSegment(p, q))});
}

int RvDrawEntity::GetNearestSegment(const RvPoint3D& p, bool closed) const {
    const int n = static_cast<int>(size());
    if (n == 0) {
        return -1;
    }
    const int first = closed ? 0 : 1;
    double best = 0;
    int bestIndex = -1;
    // The first candidate is always measured, even when it lies beyond the last vertex.
    for (int i = first; i == first || i < n; ++i) {
        const RvPoint3D& end = CheckedAt(*this, i);
        const RvPoint3D& start = *GetPrevPoint(i);
        const RvPoint3D d = GetSegmentVector(i) * -1;
        if (i != first && !d.IsNotNull()) {
            continue;
        }
        const double t = (p * d - end * d) / (d * d);
        // Beyond either end the segment is measured from its start vertex, even where its end
        // vertex is nearer.
        const RvPoint3D foot = Number(t) > 0 && Number(t) <= 1 ? end + d * t : start;
        const double measure = (p - foot).GetSquareSize();
        if (i == first || Number(measure) < best) {
            best = measure;
            bestIndex = i;
        }
    }
    return bestIndex;
}

double RvDrawEntity::GetLength(const RvPoint3D& a, const RvPoint3D& b, int step) const {
    const int n = static_cast<int>(size());
    int i = GetNearestSegment(a, true);
    int j = GetNearestSegment(b, true);
    double len = 0;
    if (i == j) {
        len = a.Distance(b);
        const RvPoint3D ab = b - a;
        const RvPoint3D& end = CheckedAt(*this, i);
        const RvPoint3D sv = end - *GetPrevPoint(i);
        if (static_cast<double>(sv * ab) < -1e-08) {
            // `b` lies behind `a`: the way leads round the path from the next segment.
            len = sv.GetSize() - len;
            i = i + step;
            if (i == n) {
                i = 0;
            }
        }
    } else {
        if (step < 0) {
            i = i - 1;
        } else {
            j = j - 1;
        }
        len = CheckedAt(*this, i).Distance(a) + CheckedAt(*this, j).Distance(b) + 0.0;
    }
    RvPoint3D c = CheckedAt(*this, i);
    // A step that never meets `j` stops after one round instead of walking forever.
    for (int k = i, walked = 0; k != j && walked < n; ++walked) {
        k = k + step;
        if (k == n) {
            k = 0;
        }
        const RvPoint3D& vk = CheckedAt(*this, k);
        len += c.Distance(vk);
        c = vk;
    }
    return len;
}

bool RvDrawEntity::NanesDlzkuOdSpecial(RvPoint3D& p, int& i, double d) {
    const std::size_t n = size();
    std::size_t count = 0;
    while (count < n) {
        const RvPoint3D& w = *GetPrevPoint(i);
        const double dist = w.Distance(p);
        if (d < dist) {
            break;
        }
        d = d - dist;
        p.Set(w.x, w.y, w.z);
        i = i - 1;
        ValidateIndex(i);
        ++count;
    }
    if (count == n) {
        return false;  // walked round the whole path
    }
    LayOffOnSegment(*this, i, p, -d);
    return true;
}

bool RvDrawEntity::NanesDlzkuOdSpecialOpacne(RvPoint3D& p, int& i, double d) {
    const std::size_t n = size();
    std::size_t count = 0;
    while (count < n) {
        const RvPoint3D& w = CheckedAt(*this, i);
        const double dist = w.Distance(p);
        if (dist > d) {
            break;
        }
        // The rest of `d` is not reduced: the full length is laid off from the last vertex
        // passed.
        p.Set(w.x, w.y, w.z);
        i = i + 1;
        ValidateIndex(i);
        ++count;
    }
    if (count == n) {
        return false;  // walked round the whole path
    }
    LayOffOnSegment(*this, i, p, d);
    return true;
}

}  // namespace ravelin
