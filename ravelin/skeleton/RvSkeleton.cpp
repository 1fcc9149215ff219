#include "ravelin/skeleton/RvSkeleton.h"

namespace ravelin {

RvSkeleton::~RvSkeleton() = default;

}  // namespace ravelin
