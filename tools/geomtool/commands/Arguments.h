// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <string>
#include <vector>

/// \file
/// Reads the values of options. Everything throws a UsageError that names the option; infinities
/// and what is not a number are refused like any other text.

namespace geomtool {

/// A number.
double ParseNumber(const std::string& option, const std::string& text);

/// A number above 0.
double ParsePositive(const std::string& option, const std::string& text);

/// A whole number from `least` to `most`.
std::size_t ParseCount(const std::string& option, const std::string& text, std::size_t least,
                       std::size_t most);

/// Numbers such as "1,2.5,-3", exactly `count` of them.
std::vector<double> ParseNumbers(const std::string& option, const std::string& text,
                                 std::size_t count);

/// "x,y"
geom::Vec2d ParsePoint(const std::string& option, const std::string& text);

/// A rectangle from two of its corners, "x,y,x,y"; it must have an area.
geom::Box2d ParseBox(const std::string& option, const std::string& text);

/// The lengths of dashes and gaps, "3,1.5": at least one, none negative, and not all of them 0.
std::vector<double> ParsePattern(const std::string& option, const std::string& text);

} // namespace geomtool
