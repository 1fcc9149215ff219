#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

#include "ravelin/RvExport.h"

namespace ravelin {

/// Raises std::out_of_range with "invalid vector<T> subscript".
[[noreturn]] RAVELIN_API void ThrowInvalidSubscript();

/// Raises std::length_error with "vector<T> too long".
[[noreturn]] RAVELIN_API void ThrowVectorTooLong();

/// Element `index` of `v`; an index outside the vector raises ThrowInvalidSubscript's error.
/// Signed indices are accepted so that a negative index is refused rather than wrapped.
template <class Vector, std::integral Index>
decltype(auto) CheckedAt(Vector& v, Index index) {
    if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, v.size())) {
        ThrowInvalidSubscript();
    }
    return v[static_cast<std::size_t>(index)];
}

/// A requested element count as a size; a negative count raises ThrowVectorTooLong's error,
/// which is what a vector asked for that many elements would raise.
template <std::integral Count>
std::size_t CheckedCount(Count count) {
    if (std::cmp_less(count, 0)) {
        ThrowVectorTooLong();
    }
    return static_cast<std::size_t>(count);
}

}  // namespace ravelin
