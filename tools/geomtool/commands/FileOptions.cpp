// SPDX-License-Identifier: MIT
#include "tools/geomtool/commands/FileOptions.h"

#include "tools/geomtool/Files.h"
#include "tools/geomtool/InputError.h"
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

Format LineFormat(const OutputOptions& options) {
    if (options.format.empty() && IsStandardStream(options.path)) {
        return Format::Wkt;
    }
    const Format format = OutputFormat(options);
    if (!HoldsLines(format)) {
        throw UsageError("lines can be written as wkt, geojson or svg");
    }
    return format;
}

std::string Drawing(const Figure& figure, const OutputOptions& options,
                    const std::string& defaultFill) {
    return WriteSvg(StyleLayers({figure}, options.drawing, {defaultFill}), PageOf(options.drawing));
}

void RequireFinite(const Figure& figure) {
    if (!IsFinite(figure)) {
        throw InputError("the result has coordinates beyond the range of numbers");
    }
}

void AddOutputPath(CLI::App& command, OutputOptions& options) {
    command
        .add_option("-o,--output", options.path,
                    "the result; - is standard output, and the default")
        ->option_text("FILE");
}

void AddInputFormats(CLI::App& command, InputOptions& options) {
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

std::string OutputBytes(const PolygonSet& shapes, const OutputOptions& options,
                        const std::string& defaultFill) {
    const Format format = OutputFormat(options);
    if (format != Format::Svg) {
        return FormatShapes(shapes, format, !options.withoutHoles);
    }
    return Drawing({shapes, {}}, options, defaultFill);
}

std::string OutputBytes(const Figure& figure, const OutputOptions& options,
                        const std::string& defaultFill) {
    const bool hasLines = !figure.lines.lines.empty();
    const Format format = hasLines ? LineFormat(options) : OutputFormat(options);
    return format == Format::Svg ? Drawing(figure, options, defaultFill)
                                 : FormatFigure(figure, format, !options.withoutHoles);
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
    AddInputFormats(command, options);
}

void AddOneInput(CLI::App& command, InputOptions& options, const std::string& help) {
    command.add_option("FILE", options.paths, help + "; - is standard input")
        ->required()
        ->expected(1)
        ->option_text("FILE");
    AddInputFormats(command, options);
}

Format InputFormat(const InputOptions& options, std::size_t index) {
    const std::string name = options.formats.empty()
                                 ? std::string()
                                 : options.formats[std::min(index, options.formats.size() - 1)];
    return ChooseFormat(name, options.paths[index], "--from");
}

void CheckInputs(const InputOptions& options) {
    if (std::count_if(options.paths.begin(), options.paths.end(), IsStandardStream) > 1) {
        throw UsageError("standard input can be read only once");
    }
    for (std::size_t i = 0; i < options.paths.size(); ++i) {
        static_cast<void>(InputFormat(options, i));
    }
}

std::vector<PolygonSet> ReadInputs(const InputOptions& options, Progress& progress) {
    CheckInputs(options);
    std::vector<PolygonSet> inputs;
    for (std::size_t i = 0; i < options.paths.size(); ++i) {
        inputs.push_back(ReadInput(options, i, progress));
    }
    return inputs;
}

PolygonSet ReadInput(const InputOptions& options, std::size_t index, Progress& progress) {
    const Format format = InputFormat(options, index);
    progress.Begin("reading " + OneLine(options.paths[index]));
    return ReadShapes(options.paths[index], format, !options.withoutHoles);
}

Figure ReadFigureInput(const InputOptions& options, std::size_t index, Progress& progress) {
    const Format format = InputFormat(options, index);
    progress.Begin("reading " + OneLine(options.paths[index]));
    return ReadFigure(options.paths[index], format, !options.withoutHoles);
}

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
    AddOutputPath(command, options);
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

void AddLineOutputOptions(CLI::App& command, OutputOptions& options) {
    AddOutputPath(command, options);
    command
        .add_option("--to", options.format,
                    "format of the result where its name does not tell: wkt (.wkt), geojson "
                    "(.geojson, .json), svg (.svg); wkt on standard output")
        ->check(CLI::IsMember({"wkt", "geojson", "svg"}))
        ->option_text("FORMAT");
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

void CheckLineOutput(const OutputOptions& options) {
    static_cast<void>(LineFormat(options));
    static_cast<void>(PageOf(options.drawing));
}

void WriteOutput(const Figure& figure, const OutputOptions& options, const std::string& defaultFill,
                 Progress& progress) {
    progress.Begin("writing");
    RequireFinite(figure);
    const std::string bytes = OutputBytes(figure, options, defaultFill);
    progress.Finish();
    WriteFile(options.path, bytes);
}

void WriteOutput(const LineSet& lines, const OutputOptions& options, Progress& progress) {
    progress.Begin("writing");
    const Figure figure{{}, lines};
    RequireFinite(figure);
    const Format format = LineFormat(options);
    const std::string bytes =
        format == Format::Svg ? Drawing(figure, options, "none") : FormatLines(lines, format);
    progress.Finish();
    WriteFile(options.path, bytes);
}

} // namespace geomtool
