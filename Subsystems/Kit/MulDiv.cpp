// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Platform.h"

#include <cstdint>
#include <limits>

namespace kit {

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) {
        return -1;
    }
    // |product| <= 2^62 and |denominator| <= 2^31, so neither the product nor the sum overflows.
    std::int64_t product = std::int64_t{number} * numerator;
    std::int64_t divisor = denominator;
    if (divisor < 0) {
        divisor = -divisor;
        product = -product;
    }
    const std::int64_t half = divisor / 2;
    const std::int64_t quotient = (product < 0 ? product - half : product + half) / divisor;
    if (quotient < std::numeric_limits<int>::min() || quotient > std::numeric_limits<int>::max()) {
        return -1;
    }
    return static_cast<int>(quotient);
}

} // namespace kit
