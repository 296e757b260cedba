// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"

#include <cstdint>

/// \file
/// The integer point and rectangle records of the screen side, and the platform's scaled
/// integer product. Where the platform's own headers supply the records they are used.

#if defined(_WIN32)
#include <windows.h>
#else

/// A device point: two 32-bit signed integers.
struct tagPOINT {
    std::int32_t x, y;
};

/// A device rectangle; `right` and `bottom` may be smaller than `left` and `top`.
struct tagRECT {
    std::int32_t left, top, right, bottom;
};

#endif

namespace kit {

/// `number * numerator / denominator` with a 64-bit product, rounded to nearest, halves away
/// from zero. Returns -1 when the denominator is 0 or the result does not fit 32 bits.
KIT_API int MulDiv(int number, int numerator, int denominator);

} // namespace kit
