#include "ravelin/polygon/RvIntersection.h"

namespace ravelin {

_RvIntersection::_RvIntersection()
    : m_nNext(-1),
      m_bTraceStart(false),
      m_bVisited(false),
      m_nIndexA(0),
      m_nPrevA(0),
      m_nIndexB(0),
      m_nPrevB(0),
      m_aLink{-1, -1, -1, -1},
      m_aClass{0, 0, 0, 0},
      m_aUsed{false, false, false, false},
      m_nKind(0),
      m_nIndex(-1) {}

_RvIntersection::_RvIntersection(int indexA, int prevA, int indexB, int prevB, RvPoint2D point,
                                 int kind)
    : _RvIntersection() {
    m_nIndexA = indexA;
    m_nPrevA = prevA;
    m_nIndexB = indexB;
    m_nPrevB = prevB;
    m_Point = point;
    m_nKind = kind;
}

}  // namespace ravelin
