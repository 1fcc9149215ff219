#pragma once

#include <vector>

#include "ravelin/RvExport.h"
#include "ravelin/entity/RvDrawEntity.h"

namespace ravelin {

/// An open path. It draws as connected lines, is hit along its segments, and adds two queries
/// on sets of paths. Its type word is 2.
class RAVELIN_API RvPolyLine2D : public RvDrawEntity {
public:
    static constexpr unsigned int kType = 2;

    RvPolyLine2D();
    RvPolyLine2D(const RvPolyLine2D& p);
    /// A path of the two vertices `a`, `b`.
    RvPolyLine2D(const RvPoint2D& a, const RvPoint2D& b);
    RvPolyLine2D& operator=(const RvPolyLine2D& p);
    ~RvPolyLine2D() override;

    /// As RvDrawEntity::ReInit, then the type word 2 again.
    void ReInit();

    /// Lines from vertex 0 through every later vertex with the device's pen; nothing for fewer
    /// than two vertices. The raster operation is not touched.
    CRect Draw(CDC* dc) override;
    /// The edge hit of every segment of the open chain, in order; the last to pass wins.
    bool IsIncident(const RvPoint2D& p, double& d, enumSnapType& snap,
                    RvDrawEntity& hit) const override;
    /// `mode` 1: every vertex's pixel in `r`. `mode` 2: some vertex's pixel in `r`, or a side of
    /// `r` crossing the path. An empty `r` or another mode gives false.
    bool InvSelectArea(const CRect& r, int mode) const override;

    /// Whether some path of `lines` has all its vertices among this one's (within 0.01); an
    /// empty path answers true as soon as it is reached.
    bool FindInVect(std::vector<RvPolyLine2D>* lines);
    /// Appends the crossings of the segment `a`-`b` with the segments of this path, starting
    /// with the closing one from the last vertex to vertex 0; the segment between the last two
    /// vertices is not tested.
    bool IntersectSegment2DBreak(const RvPoint2D& a, const RvPoint2D& b,
                                 std::vector<RvPoint2D>& result);
};

}  // namespace ravelin
