#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace ravelin {

/// A device pixel: a pair of 32-bit signed integers.
struct tagPOINT {
    std::int32_t x;
    std::int32_t y;
};
using POINT = tagPOINT;

/// A device pixel with arithmetic. Default-constructed at (0, 0).
class CPoint : public tagPOINT {
public:
    constexpr CPoint() : tagPOINT{0, 0} {}
    constexpr CPoint(std::int32_t initX, std::int32_t initY) : tagPOINT{initX, initY} {}
    constexpr CPoint(const tagPOINT& p) : tagPOINT{p} {}  // NOLINT(google-explicit-constructor)

    constexpr void Offset(std::int32_t dx, std::int32_t dy) {
        x += dx;
        y += dy;
    }
    constexpr bool operator==(const tagPOINT& p) const { return x == p.x && y == p.y; }
    constexpr CPoint operator+(const tagPOINT& p) const { return CPoint(x + p.x, y + p.y); }
    constexpr CPoint operator-(const tagPOINT& p) const { return CPoint(x - p.x, y - p.y); }
    constexpr CPoint operator-() const { return CPoint(-x, -y); }
    constexpr CPoint& operator+=(const tagPOINT& p) {
        Offset(p.x, p.y);
        return *this;
    }
    constexpr CPoint& operator-=(const tagPOINT& p) {
        Offset(-p.x, -p.y);
        return *this;
    }
};

/// The device coordinate nearest to `v`, halves away from zero: `v + 0.5` for a positive `v`,
/// otherwise `v - 0.5`, truncated toward zero. Values beyond the 32-bit range give its nearest
/// end, and NaN gives 0, instead of an undefined conversion.
inline std::int32_t RoundToPixel(double v) {
    const double w = v > 0 ? v + 0.5 : v - 0.5;
    if (std::isnan(w)) {
        return 0;
    }
    if (w >= 2147483648.0) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (w <= -2147483649.0) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(w);
}

/// `v` truncated toward zero to a device coordinate. Values beyond the 32-bit range give its
/// nearest end, and NaN gives 0, instead of an undefined conversion.
inline std::int32_t TruncateToPixel(double v) {
    if (std::isnan(v)) {
        return 0;
    }
    if (v >= 2147483647.0) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (v <= -2147483648.0) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(v);
}

}  // namespace ravelin
