// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/LineSet.h"

#include <string>

namespace geomtool {

/// "lines_in=1 vertices_in=2 lines_out=3 vertices_out=6 length=1.5 seconds=0.001": what became of
/// lines, for standard error. The length is that of the result.
std::string LineStatistics(const LineSet& in, const LineSet& out, double seconds);

} // namespace geomtool
