// SPDX-License-Identifier: MIT
#include "tools/geomtool/commands/FileOptions.h"

#include "tools/geomtool/Files.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/Progress.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>

namespace geomtool {

namespace {

const char* const FORMAT_HELP = "text (.txt), binary (.bin), wkt (.wkt), geojson (.geojson, .json)";

Format ChooseFormat(const std::string& name, const std::string& path, const char* option) {
    const std::optional<Format> format = name.empty() ? FormatOfPath(path) : FormatOfName(name);
    if (!format) {
        throw UsageError(path + ": the name does not tell the format; " + option + " does");
    }
    return *format;
}

Format OutputFormat(const OutputOptions& options) {
    return ChooseFormat(options.format, options.path, "--to");
}

std::string OutputBytes(const PolygonSet& shapes, const OutputOptions& options,
                        const std::string& defaultFill) {
    const Format format = OutputFormat(options);
    if (format != Format::Svg) {
        return FormatShapes(shapes, format, !options.withoutHoles);
    }
    return WriteSvg(StyleLayers({shapes}, options.drawing, {defaultFill}), PageOf(options.drawing));
}

} // namespace

void AddInputOptions(CLI::App& command, InputOptions& options, std::size_t most) {
    command
        .add_option("FILE", options.paths,
                    most == 1 ? "the polygon; - is standard input"
                              : "the polygons; - is standard input")
        ->required()
        ->expected(1, static_cast<int>(most))
        ->option_text(most == 1   ? "FILE"
                      : most == 2 ? "FILE [FILE]"
                                  : "FILE...");
    command
        .add_option("--from", options.formats,
                    std::string("format of the input where its name does not tell: ") +
                        FORMAT_HELP + "; repeated, for one file after another")
        ->allow_extra_args(false)
        ->check(CLI::IsMember({"text", "binary", "wkt", "geojson"}))
        ->option_text("FORMAT");
    command.add_flag("--no-holes-in", options.withoutHoles,
                     "text and binary input store no hole flags");
}

Format InputFormat(const InputOptions& options, std::size_t index) {
    const std::string name = options.formats.empty()
                                 ? std::string()
                                 : options.formats[std::min(index, options.formats.size() - 1)];
    return ChooseFormat(name, options.paths[index], "--from");
}

std::vector<PolygonSet> ReadInputs(const InputOptions& options, Progress& progress) {
    if (std::count_if(options.paths.begin(), options.paths.end(), IsStandardStream) > 1) {
        throw UsageError("standard input can be read only once");
    }
    std::vector<PolygonSet> inputs;
    for (std::size_t i = 0; i < options.paths.size(); ++i) {
        const Format format = InputFormat(options, i);
        progress.Begin("reading " + OneLine(options.paths[i]));
        inputs.push_back(ReadShapes(options.paths[i], format, !options.withoutHoles));
    }
    return inputs;
}

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
    command
        .add_option("-o,--output", options.path,
                    "the result; - is standard output, and the default")
        ->option_text("FILE");
    command
        .add_option("--to", options.format,
                    std::string("format of the result where its name does not tell: ") +
                        FORMAT_HELP + ", svg (.svg)")
        ->check(CLI::IsMember(FormatNames()))
        ->option_text("FORMAT");
    command.add_flag("--no-holes-out", options.withoutHoles,
                     "store no hole flags in text and binary output");
    AddDrawingOptions(command, options.drawing);
}

void CheckOutput(const OutputOptions& options) {
    static_cast<void>(OutputFormat(options));
    static_cast<void>(PageOf(options.drawing));
}

void WriteOutput(const PolygonSet& shapes, const OutputOptions& options,
                 const std::string& defaultFill, Progress& progress) {
    progress.Begin("writing");
    const std::string bytes = OutputBytes(shapes, options, defaultFill);
    progress.Finish();
    WriteFile(options.path, bytes);
}

std::vector<double> ParseNumbers(const std::string& option, const std::string& text,
                                 std::size_t count) {
    std::vector<double> numbers;
    std::string_view rest = text;
    double number = 0;
    while (TakeNumber(rest, number) == NumberStatus::Valid) {
        numbers.push_back(number);
        if (rest.empty() && numbers.size() == count) {
            return numbers;
        }
        if (rest.empty() || rest[0] != ',') {
            break;
        }
        rest.remove_prefix(1);
    }
    throw UsageError(option + ": expected " + std::to_string(count) +
                     " numbers with commas between them, found '" + text + "'");
}

geom::Box2d ParseBox(const std::string& option, const std::string& text) {
    const std::vector<double> n = ParseNumbers(option, text, 4);
    geom::Box2d box(n[0], n[1], n[2], n[3]);
    box.Normalize();
    if (!box.HasArea()) {
        throw UsageError(option + ": a rectangle needs an area, unlike '" + text + "'");
    }
    return box;
}

} // namespace geomtool
