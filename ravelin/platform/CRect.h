#pragma once

#include <cstdint>
#include <utility>

#include "ravelin/platform/CPoint.h"

namespace ravelin {

/// A device rectangle of 32-bit signed integers. It holds the pixels from `left` and `top`
/// inclusive to `right` and `bottom` exclusive.
struct tagRECT {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};
using RECT = tagRECT;

/// Sets the four sides of `r`. Returns true.
constexpr bool SetRect(tagRECT* r, std::int32_t left, std::int32_t top, std::int32_t right,
                       std::int32_t bottom) {
    *r = tagRECT{left, top, right, bottom};
    return true;
}

/// True when `r` holds no pixel: its right side is not beyond its left or its bottom not below
/// its top.
constexpr bool IsRectEmpty(const tagRECT* r) {
    return r->right <= r->left || r->bottom <= r->top;
}

/// True when `p` lies in `r`: left and top sides included, right and bottom sides excluded.
constexpr bool PtInRect(const tagRECT* r, const tagPOINT& p) {
    return p.x >= r->left && p.x < r->right && p.y >= r->top && p.y < r->bottom;
}

/// A device rectangle with queries. Default-constructed empty at the origin.
class CRect : public tagRECT {
public:
    constexpr CRect() : tagRECT{0, 0, 0, 0} {}
    constexpr CRect(std::int32_t l, std::int32_t t, std::int32_t r, std::int32_t b)
        : tagRECT{l, t, r, b} {}
    constexpr CRect(const tagRECT& r) : tagRECT{r} {}  // NOLINT(google-explicit-constructor)
    constexpr CRect(const tagPOINT& topLeft, const tagPOINT& bottomRight)
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

    constexpr std::int32_t Width() const { return right - left; }
    constexpr std::int32_t Height() const { return bottom - top; }
    constexpr CPoint TopLeft() const { return CPoint(left, top); }
    constexpr CPoint BottomRight() const { return CPoint(right, bottom); }
    constexpr bool IsRectEmpty() const { return ravelin::IsRectEmpty(this); }
    constexpr bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    constexpr bool PtInRect(const tagPOINT& p) const { return ravelin::PtInRect(this, p); }
    constexpr void SetRect(std::int32_t l, std::int32_t t, std::int32_t r, std::int32_t b) {
        ravelin::SetRect(this, l, t, r, b);
    }
    constexpr void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    /// Exchanges the sides where needed so that `left <= right` and `top <= bottom`.
    constexpr void NormalizeRect() {
        if (left > right) {
            std::swap(left, right);
        }
        if (top > bottom) {
            std::swap(top, bottom);
        }
    }
    constexpr void OffsetRect(std::int32_t dx, std::int32_t dy) {
        SetRect(left + dx, top + dy, right + dx, bottom + dy);
    }
    constexpr void InflateRect(std::int32_t dx, std::int32_t dy) {
        SetRect(left - dx, top - dy, right + dx, bottom + dy);
    }
    constexpr bool operator==(const tagRECT& r) const {
        return left == r.left && top == r.top && right == r.right && bottom == r.bottom;
    }
};

}  // namespace ravelin
