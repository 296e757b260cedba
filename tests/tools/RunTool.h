// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace geomtool::test {

/// What a run of the tool left behind.
struct ToolRun {
    /// The exit status; -1 when a signal ended the process.
    int status;
    std::string output;
    std::string errors;
    /// The most memory that was resident at once.
    long kilobytes;
    /// Processor time.
    double seconds;
};

/// Runs the built tool as a process of its own.
ToolRun RunGeomtool(const std::vector<std::string>& arguments, const std::string& input = {});

} // namespace geomtool::test
