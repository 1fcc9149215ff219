#include "ravelin/curve/RvNURBS.h"

#include <cstddef>
#include <utility>

#include "ravelin/entity/RvPolyLine2D.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/platform/CheckedVector.h"

namespace ravelin {

// ---- NURBSPoint ------------------------------------------------------------------------------

NURBSPoint::NURBSPoint(double x, double y, double z, double weight)
    : RvPoint3D(x, y, z), weight(weight) {}

NURBSPoint::NURBSPoint(const NURBSPoint& p) : RvPoint3D(p), weight(p.weight) {}

NURBSPoint& NURBSPoint::operator=(const NURBSPoint& p) {
    RvPoint3D::operator=(p);
    weight = p.weight;
    return *this;
}

NURBSPoint::~NURBSPoint() = default;

// ---- RvNURBS ---------------------------------------------------------------------------------

RvNURBS::RvNURBS() : m_nExponent(0), m_nControlPoints(0), m_nKnots(0), m_dSegmentLenght(0.0) {}

RvNURBS::RvNURBS(const RvNURBS& n) = default;

RvNURBS& RvNURBS::operator=(const RvNURBS& n) = default;

RvNURBS::~RvNURBS() = default;

void RvNURBS::SetNumberOfControlPoints(int n) {
    m_nControlPoints = n;
}

void RvNURBS::SetNumberOfKnots(int n) {
    m_nKnots = n;
}

void RvNURBS::SetSegmentLenght(double d) {
    m_dSegmentLenght = d;
}

void RvNURBS::SetExponent(int p) {
    m_nExponent = p;
}

bool RvNURBS::CheckConsistency() {
    // In 64 bits so that extreme declared numbers cannot overflow the sum.
    return static_cast<long long>(m_nKnots) ==
           static_cast<long long>(m_nControlPoints) + m_nExponent + 1;
}

bool RvNURBS::AddControlPoint(const NURBSPoint& p) {
    if (std::cmp_greater_equal(m_controlPoints.size(), m_nControlPoints)) {
        return false;
    }
    m_controlPoints.push_back(p);
    return true;
}

bool RvNURBS::AddKnot(double k) {
    if (m_knots.empty()) {
        // A curve's parameter always starts at 0, whatever the caller passes first.
        m_knots.push_back(0.0);
        return true;
    }
    if (std::cmp_greater_equal(m_knots.size(), m_nKnots)) {
        return false;
    }
    m_knots.push_back(k);
    return true;
}

double RvNURBS::N_ip(int i, int p, double u) {
    if (p < 0) {
        return 0.0;
    }
    if (p == 0) {
        // Degree 0: the indicator of the span [t[i], t[i+1]], closed at both ends.
        if (u < CheckedAt(m_knots, i)) {
            return 0.0;
        }
        if (u <= CheckedAt(m_knots, i + 1)) {
            return 1.0;
        }
        return 0.0;
    }
    double left = 0.0;
    const double leftSpan = CheckedAt(m_knots, i + p) - CheckedAt(m_knots, i);
    if (leftSpan != 0.0) {
        left = N_ip(i, p - 1, u) * (u - CheckedAt(m_knots, i)) / leftSpan;
    }
    const double rightSpan = CheckedAt(m_knots, i + p + 1) - CheckedAt(m_knots, i + 1);
    if (rightSpan == 0.0) {
        return left;
    }
    return N_ip(i + 1, p - 1, u) * (CheckedAt(m_knots, i + p + 1) - u) / rightSpan + left;
}

double RvNURBS::GetKoef(double u, int i) {
    const double basis = N_ip(i, m_nExponent, u);
    return basis * CheckedAt(m_controlPoints, i).weight;
}

RvPoint3D RvNURBS::Eval(double u) {
    RvPoint3D s(0.0, 0.0, 0.0);
    double w = 0.0;
    for (std::size_t i = 0; i < m_controlPoints.size(); ++i) {
        const double k = GetKoef(u, static_cast<int>(i));
        w += k;
        const NURBSPoint& cp = m_controlPoints[i];
        s.x += cp.x * k;
        s.y += cp.y * k;
        s.z += cp.z * k;
    }
    if (w == 0.0) {
        return s;
    }
    return s * (1.0 / w);
}

double RvNURBS::Lenght() {
    double sum = 0.0;
    for (std::size_t i = 1; i < m_controlPoints.size(); ++i) {
        sum += static_cast<double>(m_controlPoints[i - 1].Distance(m_controlPoints[i]));
    }
    return sum / m_dSegmentLenght;
}

void RvNURBS::GetPolyLine(RvPolyLine2D* out) {
    if (out == nullptr || m_nExponent < 0) {
        return;
    }
    // The evaluation reads knot i + p + 1 for every control point i.
    const std::size_t knotsRead =
        m_controlPoints.size() + static_cast<std::size_t>(m_nExponent) + 1;
    if (m_knots.size() < knotsRead) {
        return;
    }
    // A negative, infinite or NaN number of steps (a zero or negative segment length) samples
    // nothing, and neither does one beyond the limit; n is then at least 1, so i / n is defined.
    const double steps = Lenght();
    if (!(steps >= 0.0 && steps < static_cast<double>(kMaxPolyLineSteps))) {
        return;
    }
    const int n = static_cast<int>(steps + 1.0);
    const double nd = static_cast<double>(n);
    for (int i = 0; i <= n; ++i) {
        out->push_backA(RvPoint2D(Eval(static_cast<double>(i) / nd)));
    }
}

}  // namespace ravelin
