#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ravelin/entity/RvDrawEntity.h"
#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

namespace {

// The index before `i` and after `i` among `n` vertices, with wrap.
int PrevIndex(int i, int n) {
    return i <= 0 ? n - 1 : i - 1;
}
int NextIndex(int i, int n) {
    return i >= n - 1 ? 0 : i + 1;
}

// A normal of the arm `arm` in its plane: arm x (0, 0, 1), or arm x (1, 0, 0) for an arm
// along the z axis.
RvPoint3D ArmNormal(const RvPoint3D& arm) {
    if (std::fabs(arm.x) > 1e-07 || std::fabs(arm.y) > 1e-07) {
        return arm.GetVektorovySucin(RvPoint3D(0, 0, 1));
    }
    return arm.GetVektorovySucin(RvPoint3D(1, 0, 0));
}

}  // namespace

bool RvDrawEntity::AddPolygonPoint(const RvPoint2D& p) {
    while (size() > 1 && (*this)[size() - 1] == (*this)[size() - 2]) {
        pop_back();
    }
    if (size() == 1) {
        if (!((*this)[0] == p)) {
            push_back(p);
        }
        return true;
    }
    if (empty()) {
        push_back(p);
        return true;
    }
    const RvPoint2D& l = (*this)[size() - 1];
    const RvPoint2D& m = (*this)[size() - 2];
    RvPoint3D a = RvPoint3D(l) - RvPoint3D(m);
    RvPoint3D b = RvPoint3D(l) - RvPoint3D(p);
    if (!b.IsNotNull()) {
        return false;
    }
    a.Normalize();
    b.Normalize();
    if (std::fabs(static_cast<double>(a * b)) < 0.99999999) {
        push_back(p);
        return true;
    }
    // Collinear: either the path folds back onto `m`, or `p` extends the last segment.
    if (m == p) {
        pop_back();
        return true;
    }
    (*this)[size() - 1] = p;
    return false;
}

void RvDrawEntity::UpEndFrom(RvDrawEntity& src, int from, int to) {
    // A `to` that the walk never meets (outside the vertices) ends it after one full round.
    const std::size_t n = src.size();
    for (std::size_t appended = 0; from != to && appended < n; ++appended) {
        push_backA(CheckedAt(src, from));
        ++from;
        src.ValidateIndex(from);
    }
}

void RvDrawEntity::OdstranOstreUhly(double angle, double minLength) {
    const double limit = std::cos(angle);
    bool again = false;
    int i = 2;
    // A corner needs three vertices; stepping back stops at vertex 0.
    while (size() >= 3 && i < static_cast<int>(size()) - 1) {
        const int n = static_cast<int>(size());
        const RvPoint2D p = (*this)[i];
        const RvPoint3D u = RvPoint3D(*GetPrevPoint(i)) - RvPoint3D(p);
        const RvPoint3D v = RvPoint3D(*GetNextPoint(i)) - RvPoint3D(p);
        const double lu = u.GetSize();
        const double lv = v.GetSize();
        const double c = (u * v) / (lu * lv);
        if (!(c > limit)) {
            again = false;
            ++i;
            continue;
        }
        // A corner that arises from a repair is repaired whatever its arms.
        if (!again && !(std::min(lu, lv) < minLength)) {
            ++i;
            continue;
        }
        // The short arm's far vertex `k` goes; the corner moves to where the line beyond the
        // short arm meets the long arm's line.
        const bool prevIsShort = lv > lu;
        const int k = prevIsShort ? PrevIndex(i, n) : NextIndex(i, n);
        const RvPoint2D kPoint = (*this)[k];
        const int beyond = prevIsShort ? PrevIndex(k, n) : NextIndex(k, n);
        const RvPoint3D w = RvPoint3D((*this)[beyond]) - RvPoint3D(kPoint);
        const RvPoint3D nrm = ArmNormal(prevIsShort ? v : u);
        const double den = nrm * w;
        if (!(std::fabs(den) > 1e-08)) {
            erase(begin() + i);
        } else {
            const double t = (p * nrm - kPoint * nrm) / den;
            (*this)[i] = kPoint + RvPoint2D(w * t);
            erase(begin() + k);
            again = true;
        }
        i = std::max(i - 1, 0);
    }
}

void RvDrawEntity::ZaobliVrcholy(double radius) {
    if (size() < 3) {
        return;
    }
    double prevLength = (*this)[0].Distance((*this)[1]);
    for (std::size_t i = 1; i < size() - 1; ++i) {
        RvPoint3D u = RvPoint3D((*this)[i - 1]) - RvPoint3D((*this)[i]);
        RvPoint3D v = RvPoint3D((*this)[i + 1]) - RvPoint3D((*this)[i]);
        const double nextLength = v.GetSize();
        double m = std::min(prevLength / 3, nextLength / 3);
        if (m > 1e-07) {
            u.Normalize();
            v.Normalize();
            const double c = u * v;
            // Nearly straight corners are left as they are.
            if (c > -0.98) {
                const double a = std::acos(std::clamp(c, -1.0, 1.0));
                if (radius < m) {
                    m = radius;
                }
                double d = m / std::tan(a * 0.5);
                // Only the incoming arm limits the cut.
                if (prevLength < d) {
                    d = prevLength * 0.5;
                }
                const RvPoint3D w = RvPoint3D((*this)[i]) + u * d;
                (*this)[i] = (*this)[i] + RvPoint2D(v * d);
                insert(begin() + static_cast<std::ptrdiff_t>(i), RvPoint2D(w));
                ++i;
            }
        }
        prevLength = nextLength;
    }
}

void RvDrawEntity::ExtendUpEnd(iterator first, iterator last, double d1, double d2, RvPoint3D v,
                               const RvPoint3D& n, RvDrawEntity& out) {
    if (empty()) {
        return;
    }
    // Each walk takes at most one round, so a `last` it never meets cannot hold it forever.
    const std::size_t rounds = size();
    if (v.IsNotNull()) {
        v.Normalize();
    }
    RvPoint3D w = n.GetVektorovySucin(v);
    w.Normalize();
    RvPoint3D q = *first;

    // First stage: the offset points of the stretch from `first` to `last`.
    iterator it = first;
    bool endedEarly = false;
    for (std::size_t step = 0; it != last && step < rounds; ++step, it = GetNextPoint(it)) {
        RvPoint3D s = RvPoint3D(*GetNextPoint(it)) - RvPoint3D(*it);
        if (!s.IsNotNull() || !(std::fabs(static_cast<double>(s * w)) > 1e-10)) {
            continue;
        }
        s.Normalize();
        const double t = (q * w - *it * w) / (s * w);
        q = RvPoint3D(*it + RvPoint2D(s * t));
        const RvPoint3D b = RvPoint3D::DajBodNaOsiUhla(q, s, v, d1, n);
        if (out.empty()) {
            out.push_backA(RvPoint2D(b));
        } else {
            const double e = (RvPoint3D(out[out.size() - 1]) - b) * v;
            if (Number(e) < -1e-07) {
                endedEarly = true;  // the new offset point lies behind what `out` has reached
                break;
            }
            out.AddPolygonPoint(RvPoint2D(b));
        }
        v = s * -1;
        w = n.GetVektorovySucin(v);
        w.Normalize();
    }

    // Second stage: where the offset path's end rejoins the path.
    if (!endedEarly || it == last) {
        it = first;
        if (it == last) {
            return;
        }
    }
    for (std::size_t step = 0; it != last && step < rounds; ++step, it = GetNextPoint(it)) {
        const RvPoint3D s = RvPoint3D(*GetNextPoint(it)) - RvPoint3D(*it);
        // With no offset point in `out` there is nothing to rejoin from: the checked access
        // raises "invalid vector<T> subscript".
        const RvPoint3D l = CheckedAt(out, static_cast<std::ptrdiff_t>(out.size()) - 1);
        const double den = s * w;
        const double g = l * w - *it * w;
        if (std::fabs(den) > 1e-08) {
            const double q2 = g / den;
            if (!(-1e-08 < q2 && q2 < 0.99999999)) {
                continue;
            }
            const RvPoint3D x = RvPoint3D(*it + RvPoint2D(s * q2));
            const RvPoint3D r = x - l;
            if (Number(r * v) < -1e-07 && Number(r.GetSize()) > std::fabs(d2) + 1e-07) {
                out.AddPolygonPoint(RvPoint2D(x - v * d2));
            }
            return;
        }
        if (std::fabs(g) < 1e-08) {
            // The segment lies along the line: rejoin at the nearer of its two ends.
            const RvPoint3D& previous = *GetPrevPoint(it);
            const RvPoint3D& current = *it;
            const bool currentNearer = Number(l.Distance(previous)) > l.Distance(current);
            const RvPoint3D& c = currentNearer ? current : previous;
            out.AddPolygonPoint(RvPoint2D(c - v * d2));
            return;
        }
    }
}

}  // namespace ravelin
