#include <vector>

#include "ravelin/polygon/RvCombineGraph.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {

bool RvPolygon2D::Combine(const RvPolygon2D& other, _RvCombineMode mode,
                          std::vector<RvPolygon2D>& result) const {
    // The worker rewrites its operand's vertices, so it runs on a copy.
    RvPolygon2D copy(*this);
    return copy._Combine(other, mode, result);
}

// Disjoint operands are not a special case: every pair goes through the whole graph.
bool RvPolygon2D::_Combine(RvPolygon2D other, _RvCombineMode mode,
                           std::vector<RvPolygon2D>& result) {
    if (empty() || other.empty()) {
        return false;
    }
    result.clear();
    RvCombineGraph graph(*this, other);
    graph.BuildNodes();
    graph.BuildLinks();
    graph.Classify();
    graph.TraceRings(mode, result);
    return true;
}

}  // namespace ravelin
