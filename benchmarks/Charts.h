// SPDX-License-Identifier: MIT
#pragma once

#include "Report.h"

#include <string>

namespace geom::bench {

/// Draws a chart for each workload, those of a group in one picture
/// `<folder>/cost-<group>.svg`: time against size, both on logarithmic scales. Returns whether
/// all could be written.
bool DrawCharts(const std::vector<Result>& results, const std::string& folder);

} // namespace geom::bench
