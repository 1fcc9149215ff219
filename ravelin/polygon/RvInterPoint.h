#pragma once

#include "ravelin/RvExport.h"
#include "ravelin/numeric/RvPoint2D.h"

namespace ravelin {

/// A point on the boundary of a polygon, with the index of the edge it lies on: edge `i` runs
/// from the vertex before `i` to vertex `i`.
struct RAVELIN_API _RvInterPoint : public RvPoint2D {
    int m_nEdge;  ///< The edge, or -1 when there is none.
    int m_nAux;   ///< A second integer that travels with the record; the library never reads it.

    /// The origin, on no edge.
    _RvInterPoint();
    _RvInterPoint(const RvPoint2D& p, int edge, int aux = 0);
    _RvInterPoint(const _RvInterPoint& o);
    _RvInterPoint& operator=(const _RvInterPoint& o);
    ~_RvInterPoint() override;

    /// Exchanges the point, the edge and the second integer with those of `o`.
    void Swap(_RvInterPoint& o);
};

/// A stretch of a polygon's boundary between two boundary points.
struct RAVELIN_API _RvInterSegment {
    _RvInterPoint m_Start;
    _RvInterPoint m_End;
    /// A record with this flag sorts behind every record without it. Owned by the caller.
    bool m_bDone = false;
};

}  // namespace ravelin
