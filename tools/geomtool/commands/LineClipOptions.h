// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <optional>
#include <string>

/// \file
/// What lines are clipped to: a polygon file or a rectangle.

namespace geomtool {

struct LineClipOptions {
    std::string path; ///< of the polygon, unless it stands behind the lines
    std::string rectangle;
};

/// Adds --rect.
void AddClipRectangle(CLI::App& command, LineClipOptions& options);

/// The input files of a command that clips lines: the lines, and behind them the polygon when
/// there is one. Throws a UsageError when there is a rectangle as well.
InputOptions WithClip(InputOptions input, const LineClipOptions& options);

/// The rectangle as a polygon; nothing when there is none. Throws a UsageError unless it has an
/// area.
std::optional<PolygonSet> ClipRectangle(const LineClipOptions& options);

} // namespace geomtool
