// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace geomtool {

/// Prints help in lines that fit a terminal. What stands behind an option's name is its option
/// text.
class HelpFormatter : public CLI::Formatter {
public:
    std::string make_description(const CLI::App* app) const override;
    std::string make_usage(const CLI::App* app, std::string name) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
    std::string make_subcommand(const CLI::App* command) const override;
};

} // namespace geomtool
