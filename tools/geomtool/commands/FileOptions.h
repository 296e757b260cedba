// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/Formats.h"
#include "tools/geomtool/commands/DrawingOptions.h"

#include <cstddef>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// \file
/// The options that commands share for what they read and write.

namespace geomtool {

class Progress;

/// The files that a command reads.
struct InputOptions {
    std::vector<std::string> paths;
    /// Names of formats for the files in turn, the last one for all further files.
    std::vector<std::string> formats;
    bool withoutHoles = false;
};

/// Adds one file up to `most` as positional arguments, and --from and --no-holes-in.
void AddInputOptions(CLI::App& command, InputOptions& options, std::size_t most);

/// The same for one file, with a help text such as "the lines".
void AddOneInput(CLI::App& command, InputOptions& options, const std::string& help);

/// The format of a file. Throws a UsageError when nothing tells it.
Format InputFormat(const InputOptions& options, std::size_t index);

/// Throws a UsageError when standard input is named twice.
void CheckInputs(const InputOptions& options);

/// Reads all files. Throws a UsageError when standard input is named twice.
std::vector<PolygonSet> ReadInputs(const InputOptions& options, Progress& progress);

/// Reads one file.
PolygonSet ReadInput(const InputOptions& options, std::size_t index, Progress& progress);

/// Reads one file that may hold lines, too.
Figure ReadFigureInput(const InputOptions& options, std::size_t index, Progress& progress);

/// The file that a command writes.
struct OutputOptions {
    std::string path = "-";
    std::string format;
    bool withoutHoles = false;
    DrawingOptions drawing;
};

/// Adds -o, --to, --no-holes-out and the options of drawings.
void AddOutputOptions(CLI::App& command, OutputOptions& options);

/// The same for a command that writes lines only.
void AddLineOutputOptions(CLI::App& command, OutputOptions& options);

/// The fill of drawings of one layer.
inline constexpr const char* DEFAULT_FILL = "#c3d3b4";

/// Throws a UsageError when the output's format or drawing makes no sense, before any work.
void CheckOutput(const OutputOptions& options);

/// The same for a command that writes lines only.
void CheckLineOutput(const OutputOptions& options);

/// Writes the shapes, as a drawing of one layer when the format is SVG. Ends the progress.
/// \param defaultFill the fill of the drawing unless an option chooses one.
void WriteOutput(const PolygonSet& shapes, const OutputOptions& options,
                 const std::string& defaultFill, Progress& progress);

/// Writes polygons and lines likewise. Lines go to standard output as WKT unless an option says
/// otherwise. Throws an InputError when a coordinate has grown too large to be a number, and a
/// UsageError when the format holds no lines and there are some.
void WriteOutput(const Figure& figure, const OutputOptions& options, const std::string& defaultFill,
                 Progress& progress);

/// Writes lines, also when there are none.
void WriteOutput(const LineSet& lines, const OutputOptions& options, Progress& progress);

} // namespace geomtool
