#include "ravelin/polygon/RvInterPoint.h"

#include <utility>

namespace ravelin {

_RvInterPoint::_RvInterPoint() : m_nEdge(-1), m_nAux(0) {}

_RvInterPoint::_RvInterPoint(const RvPoint2D& p, int edge, int aux)
    : RvPoint2D(p), m_nEdge(edge), m_nAux(aux) {}

_RvInterPoint::_RvInterPoint(const _RvInterPoint& o) = default;

_RvInterPoint& _RvInterPoint::operator=(const _RvInterPoint& o) = default;

_RvInterPoint::~_RvInterPoint() = default;

void _RvInterPoint::Swap(_RvInterPoint& o) {
    RvPoint2D::Swap(o);
    std::swap(m_nEdge, o.m_nEdge);
    std::swap(m_nAux, o.m_nAux);
}

}  // namespace ravelin
