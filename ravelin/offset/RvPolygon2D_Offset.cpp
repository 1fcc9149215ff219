#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

int RvPolygon2D::m_nOffsetCrossing = 0;

}  // namespace ravelin
