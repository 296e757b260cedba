// SPDX-License-Identifier: MIT
#pragma once

namespace kit {

inline constexpr double PI = 3.14159265358979323846;
inline constexpr double ONE_PI = PI;
inline constexpr double TWO_PI = 6.28318530717958647693;
inline constexpr double THREE_PI = 9.42477796076937971539;
inline constexpr double HALF_PI = 1.57079632679489661923;
inline constexpr double DEG_TO_RAD = 0.01745329251994329577;

} // namespace kit
