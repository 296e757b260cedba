// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/LineSet.h"
#include "tools/geomtool/PolygonSet.h"

#include <vector>

/// \file
/// Clips and dashes lines with the library.

namespace geomtool {

/// The parts of lines within a polygon. What is left of one line is not joined to what is left
/// of another, and a mere touch leaves nothing. Nothing is left within a polygon without contours.
LineSet ClipLines(const LineSet& lines, const PolygonSet& clip);

/// How lines are dashed.
struct DashStyle {
    /// Lengths of dashes and gaps in turn, from a dash on; none negative, with a sum above 0.
    std::vector<double> pattern;
    /// How much of the pattern lies before a line's start.
    double phase = 0;
};

/// How many dashes a pattern makes of lines, roughly; infinite when that is beyond reckoning.
double EstimateDashes(const LineSet& lines, const DashStyle& style);

/// The dashes of lines, in order, bends within a dash included. A line that starts where the one
/// before it ended goes on with its pattern.
LineSet DashLines(const LineSet& lines, const DashStyle& style);

/// The parts of the dashes within a polygon; nothing within one without contours.
LineSet DashLines(const LineSet& lines, const DashStyle& style, const PolygonSet& clip);

} // namespace geomtool
