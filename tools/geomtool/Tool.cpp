// SPDX-License-Identifier: MIT
#include "tools/geomtool/Tool.h"

#include "Subsystems/Kit/Exception.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/HelpFormatter.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace geomtool {

namespace {

enum ExitStatus { SUCCESS = 0, BAD_INPUT = 1, BAD_USAGE = 2 };

int Report(ExitStatus status, const std::string& message) {
    std::fprintf(stderr, "geomtool: %s\n", OneLine(message).c_str());
    return status;
}

int ReportUsage(const CLI::App& app, const std::string& message) {
    std::string name;
    for (const CLI::App* const command : app.get_subcommands()) {
        name = command->get_name();
    }
    if (name.empty()) {
        return Report(BAD_USAGE, message + " (see geomtool --help)");
    }
    return Report(BAD_USAGE, name + ": " + message + " (see geomtool " + name + " --help)");
}

/// What is wrong with the arguments. A word that is no command explains more than that a command
/// is missing.
std::string Complaint(const CLI::App& app, const CLI::ParseError& error) {
    if (!app.get_subcommands().empty()) {
        return error.what();
    }
    const std::vector<std::string> unknown = app.remaining();
    return unknown.empty() ? "a command is required"
                           : "no such command or option: " + unknown.front();
}

int Perform(const CLI::App& app, const Action& chosen) {
    try {
        chosen();
        return SUCCESS;
    } catch (const UsageError& error) {
        return ReportUsage(app, error.what());
    } catch (const InputError& error) {
        return Report(BAD_INPUT, error.what());
    } catch (const kit::Exception& error) {
        return Report(BAD_INPUT, error.Message().Narrow());
    } catch (const std::bad_alloc&) {
        return Report(BAD_INPUT, "out of memory");
    } catch (const std::exception& error) {
        return Report(BAD_INPUT, error.what());
    }
}

} // namespace

int RunTool(int argc, const char* const* argv) {
    CLI::App app("Set operations on polygons, and services for lines and curves: reads and writes "
                 "polygon files, WKT and GeoJSON, and draws SVG",
                 "geomtool");
    app.footer("Example:\n  geomtool clip countries.txt sheet.wkt -o map.geojson\n\n"
               "geomtool COMMAND --help tells more about each command.");
    app.set_version_flag("--version", "geomtool " GEOMTOOL_VERSION);
    app.require_subcommand(1);
    app.formatter(std::make_shared<HelpFormatter>()); // subcommands inherit it
    Action chosen;
    AddSetOperationCommands(app, chosen);
    AddStripsCommand(app, chosen);
    AddContainsCommand(app, chosen);
    AddInfoCommand(app, chosen);
    AddConvertCommand(app, chosen);
    AddDrawCommand(app, chosen);
    AddClipLinesCommand(app, chosen);
    AddDashCommand(app, chosen);
    AddBordersCommand(app, chosen);
    AddThinCommand(app, chosen);
    AddMeasureCommands(app, chosen);
    AddNearestCommands(app, chosen);
    AddOffsetCommand(app, chosen);
    AddCleanCommand(app, chosen);
    AddCurveCommands(app, chosen);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return ReportUsage(app, Complaint(app, error));
    }
    return Perform(app, chosen);
}

} // namespace geomtool
