#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "ravelin/platform/CheckedVector.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

constexpr const char* kSubscript = "invalid vector<T> subscript";
constexpr const char* kTooLong = "vector<T> too long";

}  // namespace

// --- CheckedAt ----------------------------------------------------------------------------

TEST(CheckedAt, ReturnsTheElement) {
    const std::vector<int> v = {10, 20, 30};
    EXPECT_EQ(CheckedAt(v, 0), 10);
    EXPECT_EQ(CheckedAt(v, 2), 30);
    EXPECT_EQ(CheckedAt(v, std::size_t{1}), 20);
    EXPECT_EQ(CheckedAt(v, 2LL), 30);
    EXPECT_EQ(CheckedAt(v, 1u), 20);
    EXPECT_EQ(CheckedAt(v, std::int16_t{0}), 10);
}

TEST(CheckedAt, ReturnsAReferenceIntoTheVector) {
    std::vector<int> v = {10, 20, 30};
    CheckedAt(v, 1) = 99;
    EXPECT_EQ(v[1], 99);
    EXPECT_EQ(&CheckedAt(v, 2), &v[2]);
    const std::vector<int>& constant = v;
    static_assert(std::is_same_v<decltype(CheckedAt(constant, 0)), const int&>);
    EXPECT_EQ(&CheckedAt(constant, 0), &v[0]);
}

TEST(CheckedAt, IndexAtOrBeyondTheEndIsInvalidSubscript) {
    const std::vector<int> v = {10, 20, 30};
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, 3); }, kSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, 1000); }, kSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, std::size_t{3}); }, kSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, UINT_MAX); }, kSubscript);
}

TEST(CheckedAt, NegativeIndexIsInvalidSubscriptNotWrapped) {
    const std::vector<int> v(10, 0);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, -1); }, kSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, -1LL); }, kSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, INT_MIN); }, kSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, std::int8_t{-1}); }, kSubscript);
}

TEST(CheckedAt, EmptyVectorHasNoElementZero) {
    const std::vector<double> v;
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(v, 0); }, kSubscript);
}

TEST(CheckedAt, NestedVectorsAreCheckedAtEachLevel) {
    // Rows are appended rather than listed in an initializer: with the list, g++ 12 at -O3
    // reports the refused row as an out-of-bounds read of the list's array.
    std::vector<std::vector<int>> grid;
    grid.push_back({1, 2, 3});
    grid.push_back({4});
    EXPECT_EQ(CheckedAt(CheckedAt(grid, 1), 0), 4);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(CheckedAt(grid, 1), 1); },
                                              kSubscript);
    ExpectThrowWithMessage<std::out_of_range>([&] { CheckedAt(CheckedAt(grid, 2), 0); },
                                              kSubscript);
}

TEST(CheckedAt, ErrorIsAStandardLogicError) {
    const std::vector<int> v;
    EXPECT_THROW(CheckedAt(v, 0), std::logic_error);
}

// --- CheckedCount -------------------------------------------------------------------------

TEST(CheckedCount, NonNegativeCountsPassThrough) {
    EXPECT_EQ(CheckedCount(0), 0u);
    EXPECT_EQ(CheckedCount(5), 5u);
    EXPECT_EQ(CheckedCount(INT_MAX), static_cast<std::size_t>(INT_MAX));
    EXPECT_EQ(CheckedCount(4000000000u), std::size_t{4000000000u});
    EXPECT_EQ(CheckedCount(std::size_t{7}), 7u);
}

TEST(CheckedCount, NegativeCountIsTooLong) {
    ExpectThrowWithMessage<std::length_error>([] { CheckedCount(-1); }, kTooLong);
    ExpectThrowWithMessage<std::length_error>([] { CheckedCount(-1LL); }, kTooLong);
    ExpectThrowWithMessage<std::length_error>([] { CheckedCount(LLONG_MIN); }, kTooLong);
}

// --- The throwing functions ---------------------------------------------------------------

TEST(ThrowInvalidSubscript, RaisesOutOfRange) {
    ExpectThrowWithMessage<std::out_of_range>([] { ThrowInvalidSubscript(); }, kSubscript);
}

TEST(ThrowVectorTooLong, RaisesLengthError) {
    ExpectThrowWithMessage<std::length_error>([] { ThrowVectorTooLong(); }, kTooLong);
}
