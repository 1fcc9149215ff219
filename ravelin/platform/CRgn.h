#pragma once

#include <memory>

#include "ravelin/RvExport.h"
#include "ravelin/platform/CGdiObject.h"
#include "ravelin/platform/CPoint.h"
#include "ravelin/platform/CRect.h"

namespace ravelin {

/// Polygon fill modes.
inline constexpr int ALTERNATE = 1;
inline constexpr int WINDING = 2;

/// Ways of combining two regions.
inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5;

/// What CombineRgn reports of its result.
inline constexpr int RGN_ERROR = 0;
inline constexpr int NULLREGION = 1;
inline constexpr int COMPLEXREGION = 3;

/// A set of device pixels. A pixel (x, y) belongs to a polygon region when the centre of the
/// pixel, (x + 0.5, y + 0.5), lies inside the polygon under the region's fill rule: points on
/// the left and top borders are inside, on the right and bottom borders outside, so the
/// rectangle from (0, 0) to (10, 10) holds the pixels 0 to 9 in each direction.
class RAVELIN_API CRgn : public CGdiObject {
public:
    CRgn();
    ~CRgn() override;

    /// The region of the polygon of `n` points, closed from the last back to the first, under
    /// `mode` (ALTERNATE: even-odd; WINDING: non-zero). False, with the region left as it was,
    /// for a null array, fewer than two points or another mode.
    bool CreatePolygonRgn(const POINT* points, int n, int mode);
    /// The rectangle from (`left`, `top`) to (`right`, `bottom`).
    bool CreateRectRgn(int left, int top, int right, int bottom);
    /// Whether the pixel (x, y) belongs to the region; false for an empty region.
    bool PtInRegion(int x, int y) const;
    bool PtInRegion(const POINT& p) const { return PtInRegion(p.x, p.y); }
    /// This region becomes `a` combined with `b` by `mode` (`b` is not read for RGN_COPY).
    /// Either may be this region. Returns RGN_ERROR, leaving the region as it was, for an empty
    /// operand or an unknown mode; NULLREGION when the result's bounding box holds no pixel;
    /// otherwise COMPLEXREGION.
    int CombineRgn(const CRgn* a, const CRgn* b, int mode);
    /// The bounding box of the pixels the region may hold (empty for an empty region).
    CRect GetRgnBox() const;

    struct Shape;

private:
    std::shared_ptr<const Shape> m_shape;
};

}  // namespace ravelin
