#pragma once

#include "ravelin/RvExport.h"

namespace ravelin {

/// The straight skeleton of a polygon. A polygon owns the one it holds in `m_pSkeleton` and
/// destroys it through this virtual destructor.
class RAVELIN_API RvSkeleton {
public:
    RvSkeleton() = default;
    RvSkeleton(const RvSkeleton&) = delete;
    RvSkeleton& operator=(const RvSkeleton&) = delete;
    virtual ~RvSkeleton();
};

}  // namespace ravelin
