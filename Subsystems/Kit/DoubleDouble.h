// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"

namespace kit {

/// An extended-precision number, high + low, with about 32 significant digits.
///
/// The low part is at most half a unit in the last place of the high part; every operation
/// keeps it so. The operations are the error-free transformations of Dekker (1971) and Knuth
/// (1969) combined as in Hida, Li and Bailey, "Library for double-double and quad-double
/// arithmetic" (2007). Values near the largest or the smallest double lose the low part; results
/// beyond the range of doubles are infinite.
struct doubledouble {
    double high, low;

    doubledouble() : high(0.0), low(0.0) {}
    doubledouble(double value) : high(value), low(0.0) {}
    /// The two parts are stored as given.
    doubledouble(double highPart, double lowPart) : high(highPart), low(lowPart) {}

    doubledouble operator-() const { return {-high, -low}; }
};

KIT_API doubledouble operator+(const doubledouble& a, const doubledouble& b);
KIT_API doubledouble operator-(const doubledouble& a, const doubledouble& b);
KIT_API doubledouble operator*(const doubledouble& a, const doubledouble& b);
KIT_API doubledouble operator/(const doubledouble& a, const doubledouble& b);
KIT_API doubledouble operator*(int a, const doubledouble& b);
/// Keeps a factor that is no whole number from being cut down to an int.
KIT_API doubledouble operator*(double a, const doubledouble& b);

/// Comparisons of the full values.
KIT_API bool operator>(const doubledouble& a, const doubledouble& b);
KIT_API bool operator<(const doubledouble& a, const doubledouble& b);
KIT_API bool operator==(const doubledouble& a, const doubledouble& b);
KIT_API bool operator!=(const doubledouble& a, const doubledouble& b);

/// The square root; 0 for 0, not a number for a negative value.
KIT_API doubledouble sqrt(const doubledouble& a);

} // namespace kit
