#pragma once

#include <cstdint>

namespace ravelin {

/// An extent in device pixels.
struct tagSIZE {
    std::int32_t cx;
    std::int32_t cy;
};
using SIZE = tagSIZE;

/// An extent with a constructor; default-constructed as (0, 0).
class CSize : public tagSIZE {
public:
    constexpr CSize() : tagSIZE{0, 0} {}
    constexpr CSize(std::int32_t x, std::int32_t y) : tagSIZE{x, y} {}
    constexpr CSize(const tagSIZE& s) : tagSIZE{s} {}  // NOLINT(google-explicit-constructor)
    constexpr bool operator==(const tagSIZE& s) const { return cx == s.cx && cy == s.cy; }
};

}  // namespace ravelin
