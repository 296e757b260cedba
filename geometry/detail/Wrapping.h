// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// \file
/// 32-bit signed arithmetic that wraps around, the way device-coordinate callers rely on. It
/// goes through unsigned integers, where wrapping is defined.

namespace geom::detail {

/// The number of 32 bits that `bits` stands for in two's complement.
constexpr std::int32_t Signed(std::uint32_t bits) {
    constexpr std::uint32_t HALF = 0x80000000U;
    return bits < HALF ? static_cast<std::int32_t>(bits)
                       : static_cast<std::int32_t>(bits - HALF) + INT32_MIN;
}

constexpr std::int32_t WrapAdd(std::int32_t a, std::int32_t b) {
    return Signed(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr std::int32_t WrapSubtract(std::int32_t a, std::int32_t b) {
    return Signed(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

constexpr std::int32_t WrapMultiply(std::int32_t a, std::int32_t b) {
    return Signed(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

constexpr std::int32_t WrapNegate(std::int32_t a) {
    return WrapSubtract(0, a);
}

} // namespace geom::detail
