// SPDX-License-Identifier: MIT
#include "tools/geomtool/commands/HelpFormatter.h"

#include <sstream>

namespace geomtool {

namespace {

constexpr std::size_t LINE_WIDTH = 80;
constexpr std::size_t NAME_WIDTH = 26;

/// Appends words, breaking lines at the width and indenting what follows.
void AppendWrapped(std::string& out, const std::string& text, std::size_t indent) {
    std::size_t column = out.size() - (out.rfind('\n') + 1); // npos + 1 is 0
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const bool isFirst = column <= indent;
        if (!isFirst && column + 1 + word.size() > LINE_WIDTH) {
            out += '\n' + std::string(indent, ' ');
            column = indent;
        } else if (!isFirst) {
            out += ' ';
            ++column;
        }
        out += word;
        column += word.size();
    }
    out += '\n';
}

std::string Entry(const std::string& name, const std::string& description) {
    std::string out = "  " + name;
    if (out.size() + 2 > NAME_WIDTH) {
        out += '\n' + std::string(NAME_WIDTH, ' ');
    } else {
        out.resize(NAME_WIDTH, ' ');
    }
    AppendWrapped(out, description, NAME_WIDTH);
    return out;
}

} // namespace

std::string HelpFormatter::make_description(const CLI::App* app) const {
    std::string out;
    AppendWrapped(out, app->get_description(), 0);
    return out;
}

std::string HelpFormatter::make_usage(const CLI::App* app, std::string name) const {
    std::string out = "Usage: " + std::move(name);
    const auto isPositional = [](const CLI::Option* option) { return option->get_positional(); };
    for (const CLI::Option* const option : app->get_options(isPositional)) {
        out += ' ' + option->get_option_text();
    }
    if (app->get_require_subcommand_min() > 0) {
        out += " COMMAND";
    }
    return out + " [OPTION...]\n";
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
    const std::string& text = option->get_option_text();
    if (isPositional) {
        return Entry(text, option->get_description());
    }
    const std::string separator = text.empty() || text[0] == '[' ? "" : " ";
    // Flags carry their default values in braces behind their names.
    std::string names = option->get_name(false, true);
    const std::size_t brace = names.find('{');
    if (brace != std::string::npos) {
        names.erase(brace, names.find('}') + 1 - brace);
    }
    return Entry(names + separator + text, option->get_description());
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
    return Entry(command->get_name(), command->get_description());
}

} // namespace geomtool
