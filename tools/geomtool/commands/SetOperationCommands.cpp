// SPDX-License-Identifier: MIT
// The four set operations, each on two operands or, where that makes sense, on one.
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/SetOperation.h"
#include "tools/geomtool/Statistics.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace geomtool {

namespace {

/// What tells one of the commands from the others.
struct CommandEntry {
    SetOperation operation;
    /// Whether a second operand must be given.
    bool needsSecond;
    const char* name;
    const char* description;
    const char* example;
    /// What --each does; null where it has no meaning.
    const char* each;
};

constexpr CommandEntry COMMANDS[] = {
    {SetOperation::Intersection, true, "clip",
     "the part of a polygon within another polygon or rectangle",
     "geomtool clip countries.txt sheet.wkt --each -o map.geojson\n"
     "  geomtool clip land.txt --rect -25,34,45,72 -o europe.svg",
     "clip each polygon by itself, so that borders between neighbours remain"},
    {SetOperation::Union, false, "union",
     "the area that either of two polygons covers; of one operand, borders that its polygons share "
     "dissolve, and where they overlap, even-odd parity decides, or --each",
     "geomtool union countries.txt -o land.wkt",
     "unite polygon by polygon, so that overlaps are inside, too"},
    {SetOperation::Difference, true, "difference", "a polygon without the area of another one",
     "geomtool difference land.txt lakes.geojson -o dry.txt",
     "cut each polygon by itself, so that borders between neighbours remain"},
    {SetOperation::Xor, false, "xor",
     "the area that exactly one of two polygons covers; of one operand, the area that an odd "
     "number of its contours cover",
     "geomtool xor old.wkt new.wkt -o changes.svg", nullptr},
};

struct Options {
    InputOptions input;
    OutputOptions output;
    std::string rectangle;
    bool each = false;
    bool statistics = false;
};

/// The rectangle of --rect, if there is one. Throws a UsageError when the operands are too many or
/// too few.
std::optional<geom::Box2d> CheckOperands(const CommandEntry& entry, const Options& options) {
    const bool hasSecondFile = options.input.paths.size() > 1;
    if (options.rectangle.empty()) {
        if (entry.needsSecond && !hasSecondFile) {
            throw UsageError("needs a second operand, a file or --rect");
        }
        return std::nullopt;
    }
    if (hasSecondFile) {
        throw UsageError("a second file and --rect exclude each other");
    }
    return ParseBox("--rect", options.rectangle);
}

/// The second operand: a file, the rectangle, or nothing.
PolygonSet SecondOperand(std::vector<PolygonSet>& inputs, const std::optional<geom::Box2d>& box) {
    if (box) {
        return Rectangle(*box);
    }
    return inputs.size() > 1 ? std::move(inputs[1]) : PolygonSet();
}

void Run(const CommandEntry& entry, const Options& options) {
    const std::optional<geom::Box2d> box = CheckOperands(entry, options);
    CheckOutput(options.output);
    Progress progress;
    std::vector<PolygonSet> inputs = ReadInputs(options.input, progress);
    const PolygonSet second = SecondOperand(inputs, box);
    Statistics statistics;
    statistics.AddInput(inputs[0]);
    statistics.AddInput(second);
    progress.Begin(entry.name);
    statistics.StartClock();
    const PolygonSet result = options.each
                                  ? CombineEach(entry.operation, inputs[0], second, progress)
                                  : Combine(entry.operation, inputs[0], second);
    statistics.StopClock();
    WriteOutput(result, options.output, DEFAULT_FILL, progress);
    if (options.statistics) {
        statistics.Print(result);
    }
}

void AddCommand(CLI::App& app, Action& chosen, const CommandEntry& entry) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(entry.name, entry.description);
    command.footer(std::string("Example:\n  ") + entry.example);
    AddInputOptions(command, options->input, 2);
    command
        .add_option("--rect", options->rectangle,
                    "a rectangle in the place of the second file, by two of its corners")
        ->option_text("X,Y,X,Y");
    if (entry.each != nullptr) {
        command.add_flag("--each", options->each, entry.each);
    }
    command.add_flag("--stats", options->statistics,
                     "print counts, area and seconds on standard error");
    AddOutputOptions(command, options->output);
    command.callback(
        [&chosen, &entry, options] { chosen = [&entry, options] { Run(entry, *options); }; });
}

} // namespace

void AddSetOperationCommands(CLI::App& app, Action& chosen) {
    for (const CommandEntry& entry : COMMANDS) {
        AddCommand(app, chosen, entry);
    }
}

} // namespace geomtool
