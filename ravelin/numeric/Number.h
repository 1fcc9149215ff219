#pragma once

#include <type_traits>

#include "ravelin/RvExport.h"

namespace ravelin {

/// Operands that a Number compares with: any built-in arithmetic type, taken as a double.
template <class T>
concept NumberOperand = std::is_arithmetic_v<T>;

/// A double whose comparisons carry the band 5e-07: values less than 5e-07 apart are equal,
/// values exactly 5e-07 apart are not. It converts to double freely, and arithmetic on it is
/// plain double arithmetic; only the comparisons differ. A NaN operand makes != true and every
/// other comparison false.
///
/// Put the Number on the left of an ordering: with a plain number on the left the band would
/// be lost silently, so those forms are deleted. Equality, and != as its negation, keep the
/// band with the Number on either side.
struct Number {
    static constexpr double kBand = 5e-07;

    double value;

    constexpr Number(double v) : value(v) {}             // NOLINT(google-explicit-constructor)
    constexpr operator double() const { return value; }  // NOLINT(google-explicit-constructor)

    template <NumberOperand T>
    constexpr bool operator==(T a) const {
        return IsEqual(static_cast<double>(a));
    }
    template <NumberOperand T>
    constexpr bool operator<(T a) const {
        return IsLess(static_cast<double>(a));
    }
    template <NumberOperand T>
    constexpr bool operator>(T a) const {
        return IsGreater(static_cast<double>(a));
    }
    template <NumberOperand T>
    constexpr bool operator<=(T a) const {
        return IsLessOrEqual(static_cast<double>(a));
    }
    template <NumberOperand T>
    constexpr bool operator>=(T a) const {
        return IsGreaterOrEqual(static_cast<double>(a));
    }

    constexpr bool operator==(const Number& a) const { return IsEqual(a.value); }
    constexpr bool operator<(const Number& a) const { return IsLess(a.value); }
    constexpr bool operator>(const Number& a) const { return IsGreater(a.value); }
    constexpr bool operator<=(const Number& a) const { return IsLessOrEqual(a.value); }
    constexpr bool operator>=(const Number& a) const { return IsGreaterOrEqual(a.value); }

private:
    constexpr bool IsEqual(double a) const { return value - a < kBand && a - value < kBand; }
    constexpr bool IsLess(double a) const { return value < a && a - value >= kBand; }
    constexpr bool IsGreater(double a) const { return value > a && value - a >= kBand; }
    constexpr bool IsLessOrEqual(double a) const { return value < a || value - a < kBand; }
    constexpr bool IsGreaterOrEqual(double a) const { return value > a || a - value < kBand; }
};

template <NumberOperand T>
bool operator<(T, const Number&) = delete;
template <NumberOperand T>
bool operator>(T, const Number&) = delete;
template <NumberOperand T>
bool operator<=(T, const Number&) = delete;
template <NumberOperand T>
bool operator>=(T, const Number&) = delete;

/// Box comparison of one coordinate: `a` equals `b` within `tol` when `a - tol < b` and
/// `a + tol > b`, both strict, tested on the sum and the difference as written.
constexpr bool BoxEqual(double a, double b, double tol) {
    return a - tol < b && a + tol > b;
}

/// The span between two values, for comparing a coordinate with the extent of an edge.
struct NumberInterval {
    double low;
    double high;

    /// Stores the two values in order; they are exchanged only when `b` lies below `a` by the
    /// band or more, so a pair closer than the band keeps the order it was given in.
    constexpr NumberInterval(double a, double b) : low(a), high(b) {
        if (Number(b) < a) {
            low = b;
            high = a;
        }
    }

    /// Beyond `low` and below `high`, each by the band.
    constexpr bool IsStrictlyInside(const Number& p) const { return p > low && p < high; }
    /// At or below `low`, or at or above `high`, within the band.
    constexpr bool IsOutsideOrOnEnd(const Number& p) const { return p <= low || p >= high; }
};

/// Pi and two pi, as every angle computation of the library writes them.
inline constexpr double kPi = 3.141592653589793;
inline constexpr double kTwoPi = 6.283185307179586;

/// Reduces an angle in radians to the band from -pi to pi. An angle within 5e-07 of +pi goes to
/// the negative end, so that two directions that differ only by the wrap compare equal.
/// Infinite and NaN angles are left as they are. Returns `a`.
RAVELIN_API double& NormalizeAngle(double& a);
/// NormalizeAngle on a copy: the reduced value of `a`.
inline double NormalizedAngle(double a) {
    return NormalizeAngle(a);
}

}  // namespace ravelin
