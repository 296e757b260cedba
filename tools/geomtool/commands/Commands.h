// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace CLI {
class App;
}

/// \file
/// The subcommands. Each function adds one, or one family, to the command line; when the user
/// chooses it, its work is stored in `chosen` and runs after the whole line has been parsed.

namespace geomtool {

using Action = std::function<void()>;

/// clip, union, difference, xor
void AddSetOperationCommands(CLI::App& app, Action& chosen);
void AddStripsCommand(CLI::App& app, Action& chosen);
void AddContainsCommand(CLI::App& app, Action& chosen);
void AddInfoCommand(CLI::App& app, Action& chosen);
void AddConvertCommand(CLI::App& app, Action& chosen);
void AddDrawCommand(CLI::App& app, Action& chosen);
void AddClipLinesCommand(CLI::App& app, Action& chosen);
void AddDashCommand(CLI::App& app, Action& chosen);
void AddBordersCommand(CLI::App& app, Action& chosen);
void AddThinCommand(CLI::App& app, Action& chosen);
/// length, perimeter, area
void AddMeasureCommands(CLI::App& app, Action& chosen);
/// nearest, nearest-segment
void AddNearestCommands(CLI::App& app, Action& chosen);
void AddOffsetCommand(CLI::App& app, Action& chosen);
void AddCleanCommand(CLI::App& app, Action& chosen);
/// arc, pie, chord, ellipse
void AddCurveCommands(CLI::App& app, Action& chosen);

} // namespace geomtool
