#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {}  // namespace ravelin
