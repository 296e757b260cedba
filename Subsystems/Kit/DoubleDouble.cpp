// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/DoubleDouble.h"

#include <cmath>

namespace kit {

namespace {

// The error part of an infinite result would be not a number and spoil it, so each of the three
// transformations leaves it out.

// a + b exactly, for any a and b (Knuth).
doubledouble TwoSum(double a, double b) {
    const double sum = a + b;
    if (!std::isfinite(sum)) {
        return sum;
    }
    const double shared = sum - a;
    return {sum, (a - (sum - shared)) + (b - shared)};
}

// a + b exactly, for |a| >= |b| (Dekker).
doubledouble FastTwoSum(double a, double b) {
    const double sum = a + b;
    return {sum, std::isfinite(sum) ? b - (sum - a) : 0.0};
}

// a * b exactly: a fused multiply-add rounds once, so it leaves just the product's error.
doubledouble TwoProduct(double a, double b) {
    const double product = a * b;
    return {product, std::isfinite(product) ? std::fma(a, b, -product) : 0.0};
}

} // namespace

doubledouble operator+(const doubledouble& a, const doubledouble& b) {
    doubledouble high = TwoSum(a.high, b.high);
    const doubledouble low = TwoSum(a.low, b.low);
    high = FastTwoSum(high.high, high.low + low.high);
    return FastTwoSum(high.high, high.low + low.low);
}

doubledouble operator-(const doubledouble& a, const doubledouble& b) {
    return a + -b;
}

doubledouble operator*(const doubledouble& a, const doubledouble& b) {
    const doubledouble product = TwoProduct(a.high, b.high);
    if (!std::isfinite(product.high)) {
        return product;
    }
    return FastTwoSum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

doubledouble operator*(int a, const doubledouble& b) {
    return doubledouble(static_cast<double>(a)) * b;
}

doubledouble operator*(double a, const doubledouble& b) {
    return doubledouble(a) * b;
}

// Long division: three quotient digits, each a double.
doubledouble operator/(const doubledouble& a, const doubledouble& b) {
    const double first = a.high / b.high;
    if (!std::isfinite(first) || std::isinf(b.high)) {
        return first;
    }
    doubledouble remainder = a - b * doubledouble(first);
    if (!std::isfinite(remainder.high)) {
        return first; // the product rounded up beyond the largest double
    }
    const double second = remainder.high / b.high;
    remainder = remainder - b * doubledouble(second);
    const double third = remainder.high / b.high;
    return FastTwoSum(first, second) + doubledouble(third);
}

bool operator>(const doubledouble& a, const doubledouble& b) {
    return a.high > b.high || (a.high == b.high && a.low > b.low);
}

bool operator<(const doubledouble& a, const doubledouble& b) {
    return b > a;
}

bool operator==(const doubledouble& a, const doubledouble& b) {
    return a.high == b.high && a.low == b.low;
}

bool operator!=(const doubledouble& a, const doubledouble& b) {
    return !(a == b);
}

// One Newton step in extended precision on the double root, after Karp and Markstein (1997):
// root + (a - root^2) / (2 * root), and the correction needs only double precision; a second
// step brings the last digits.
doubledouble sqrt(const doubledouble& a) {
    if (!(a.high > 0.0) || !std::isfinite(a.high)) {
        return std::sqrt(a.high);
    }
    doubledouble root = std::sqrt(a.high);
    for (int step = 0; step < 2; ++step) {
        const doubledouble remainder = a - root * root;
        root = root + doubledouble(remainder.high / (2.0 * root.high));
    }
    return root;
}

} // namespace kit
