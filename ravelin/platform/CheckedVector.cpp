#include "ravelin/platform/CheckedVector.h"

#include <stdexcept>

namespace ravelin {

void ThrowInvalidSubscript() {
    throw std::out_of_range("invalid vector<T> subscript");
}

void ThrowVectorTooLong() {
    throw std::length_error("vector<T> too long");
}

}  // namespace ravelin
