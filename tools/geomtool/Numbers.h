// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// \file
/// Numbers in text, the same in every locale: a point is the decimal separator.

namespace geomtool {

enum class NumberStatus {
    Valid,
    NotANumber,
    /// Larger than the largest double, or written as an infinity.
    TooLarge
};

/// Reads the decimal number at the start of `text` and removes it from there. Numbers too small
/// for a double become 0. After a failure `text` and `value` are unchanged.
NumberStatus TakeNumber(std::string_view& text, double& value);

/// Appends the shortest text that reads back as the same double.
void AppendNumber(std::string& out, double value);

/// Appends a number with at most `decimals` digits after the point, without trailing zeros, from
/// its value in units of the last digit.
void AppendFixed(std::string& out, long long units, int decimals);

} // namespace geomtool
