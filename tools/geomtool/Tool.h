// SPDX-License-Identifier: MIT
#pragma once

namespace geomtool {

/// Runs the tool on a command line and returns the process's exit status: 0 for success, 1 for
/// input that cannot be read or output that cannot be written, 2 for a wrong command line. All
/// failures print one line on standard error.
int RunTool(int argc, const char* const* argv);

} // namespace geomtool
