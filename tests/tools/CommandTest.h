// SPDX-License-Identifier: MIT
#pragma once

#include "tests/tools/RunTool.h"
#include "tests/tools/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace geomtool::test {

/// A folder with input files for runs of the built tool.
class CommandTest : public ::testing::Test {
protected:
    using Arguments = std::vector<std::string>;

    std::string Create(const std::string& name, const std::string& content) {
        ++m_files;
        return m_folder.Create(name, content);
    }
    std::string File(const std::string& name) const { return m_folder.File(name); }

    /// What a run prints that must succeed in silence.
    static std::string OutputOf(const Arguments& arguments, const std::string& input = {}) {
        const ToolRun run = RunGeomtool(arguments, input);
        EXPECT_EQ(run.status, 0) << arguments[0];
        EXPECT_EQ(run.errors, "");
        return run.output;
    }

    /// The file that a run writes that must succeed in silence.
    std::string FileOf(Arguments arguments, const std::string& name) {
        arguments.insert(arguments.end(), {"-o", File(name)});
        EXPECT_EQ(OutputOf(arguments), "");
        ++m_files;
        return m_folder.Content(name);
    }

    /// Expects a run to fail with one line and to leave no output, in a file least of all.
    void ExpectFailure(int status, Arguments arguments, const std::string& message,
                       const std::string& input = {}) {
        arguments.insert(arguments.end(), {"-o", File("out.svg")});
        ExpectQueryFailure(status, std::move(arguments), message, input);
    }

    /// The same for commands that only print.
    void ExpectQueryFailure(int status, const Arguments& arguments, const std::string& message,
                            const std::string& input = {}) {
        const std::string& name = arguments[0];
        const ToolRun run = RunGeomtool(arguments, input);
        EXPECT_EQ(run.status, status) << message;
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, status == 2 ? "geomtool: " + name + ": " + message +
                                                " (see geomtool " + name + " --help)\n"
                                          : "geomtool: " + message + "\n");
        EXPECT_EQ(m_folder.Count(), m_files) << message;
    }

    static void ExpectHelp(const std::string& name) {
        const std::string help = OutputOf({name, "--help"});
        EXPECT_NE(help.find("Example:\n  geomtool " + name + " "), std::string::npos) << name;
    }

private:
    TemporaryFolder m_folder;
    std::size_t m_files = 0;
};

} // namespace geomtool::test
