#include "ravelin/numeric/Number.h"

#include <cmath>

namespace ravelin {

namespace {

// Beyond this magnitude the angle is first brought near the band by a remainder, instead of
// subtracting 2 pi a step at a time, which could take a very long time or, for huge values,
// never change the value at all.
constexpr double kStepwiseLimit = 1.0e6;

bool AboveOrAtPi(double a) {
    return a > kPi || Number(a) == kPi;
}

bool BelowMinusPi(double a) {
    return Number(a) < -kPi;
}

}  // namespace

double& NormalizeAngle(double& a) {
    if (!std::isfinite(a)) {
        return a;
    }
    if (std::fabs(a) > kStepwiseLimit) {
        a = std::remainder(a, kTwoPi);
    }
    // The turns terminate: near -pi, adding 2 pi and both band tests are exact, so a value
    // taken up from below -pi by the band lands below +pi by the band and stays there.
    for (;;) {
        while (AboveOrAtPi(a)) {
            a -= kTwoPi;
        }
        if (!BelowMinusPi(a)) {
            return a;
        }
        a += kTwoPi;
    }
}

}  // namespace ravelin
