#include "ravelin/numeric/RvPlane.h"

#include <cmath>

namespace ravelin {

namespace {

constexpr double kSmallComponent = 0.0001;

// The planar pair of a direction follows its `x`, `y`.
RvPoint2D DirectionOf(const RvPoint3D& v) {
    return RvPoint2D(v.x, v.y, v.x, v.y, v.z);
}

}  // namespace

RvPlane::RvPlane() = default;

RvPlane::RvPlane(RvPoint3D point, RvPoint3D normal) {
    Set(point, normal);
}

RvPlane::RvPlane(RvPoint3D point, RvPoint3D u, RvPoint3D v) {
    Set(point, u, v);
}

RvPlane::~RvPlane() = default;

void RvPlane::Set(RvPoint3D point, RvPoint3D normal) {
    m_point = point;
    m_vectorV = RvPoint2D(0, 1, 0, 1, 0);
    // Only the position in space is bent toward the normal; the planar pair stays (0, 1).
    if (std::fabs(normal.x) > kSmallComponent) {
        m_vectorV.x = -(normal.y / normal.x);
        m_vectorV.y = 1;
    } else if (std::fabs(normal.y) > kSmallComponent) {
        m_vectorV.y = -(normal.x / normal.y);
        m_vectorV.x = 1;
    }
    m_vectorV.Normalize();
    normal.Normalize();
    m_vectorU = DirectionOf(normal.GetVektorovySucin(m_vectorV));
}

void RvPlane::Set(RvPoint3D point, RvPoint3D u, RvPoint3D v) {
    m_point = point;
    m_vectorU = DirectionOf(u);
    m_vectorV = DirectionOf(v);
    m_vectorU.Normalize();
    m_vectorV.Normalize();
}

RvPoint3D RvPlane::GetNormalVector() const {
    return m_vectorU.GetVektorovySucin(m_vectorV);
}

RvPoint3D RvPlane::GetIntersectVector(const RvPlane& other) const {
    return GetNormalVector().GetVektorovySucin(other.GetNormalVector());
}

RvPoint3D RvPlane::GetPoint() const {
    return m_point;
}

}  // namespace ravelin
