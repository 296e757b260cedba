// SPDX-License-Identifier: MIT
// Runs of the built tool: exit status, output, messages, and what they leave on the disk.
#include "tests/tools/RunTool.h"
#include "tests/tools/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace geomtool {
namespace {

using test::RunGeomtool;
using test::TemporaryFolder;
using test::ToolRun;

const char* const SQUARE = "1\n4\n0\n0 0\n4 0\n4 4\n0 4\n";
const char* const SHIFTED = "POLYGON((2 2,6 2,6 6,2 6,2 2))";
const char* const NEIGHBOURS = "2\n4\n0\n0 0\n2 0\n2 2\n0 2\n4\n0\n2 0\n4 0\n4 2\n2 2\n";

/// A folder with two operands, a.txt and b.wkt.
class CommandLine : public ::testing::Test {
protected:
    CommandLine() {
        m_folder.Create("a.txt", SQUARE);
        m_folder.Create("b.wkt", SHIFTED);
        m_folder.Create("neighbours.txt", NEIGHBOURS);
        m_files = m_folder.Count();
    }

    std::string File(const std::string& name) const { return m_folder.File(name); }

    /// Expects a run to fail with one line and to leave no file behind.
    void ExpectFailure(int status, const std::vector<std::string>& arguments,
                       const std::string& message, const std::string& input = {}) {
        const ToolRun run = RunGeomtool(arguments, input);
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.errors, "geomtool: " + message + "\n");
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(m_folder.Count(), m_files);
    }

    /// The area that a set operation prints with --stats.
    std::string AreaOf(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--stats", "-o", "/dev/null", "--to", "text"});
        const ToolRun run = RunGeomtool(arguments);
        EXPECT_EQ(run.status, 0) << run.errors;
        const std::size_t at = run.errors.find(" area=") + 6;
        return run.errors.substr(at, run.errors.find(' ', at) - at);
    }

    TemporaryFolder m_folder;
    std::size_t m_files = 0;
};

TEST_F(CommandLine, EverySubcommandHasHelpWithAnExample) {
    for (const char* const name :
         {"clip", "union", "difference", "xor", "strips", "contains", "info", "convert", "draw"}) {
        const ToolRun run = RunGeomtool({name, "--help"});
        EXPECT_EQ(run.status, 0) << name;
        EXPECT_NE(run.output.find("Example:\n  geomtool " + std::string(name)), std::string::npos);
        EXPECT_EQ(run.errors, "");
    }
    EXPECT_EQ(RunGeomtool({"--help"}).status, 0);
    EXPECT_EQ(RunGeomtool({"--version"}).output.rfind("geomtool ", 0), 0u);
}

TEST_F(CommandLine, SetOperationsCombineTwoFiles) {
    EXPECT_EQ(AreaOf({"clip", File("a.txt"), File("b.wkt")}), "4");
    EXPECT_EQ(AreaOf({"union", File("a.txt"), File("b.wkt")}), "28");
    EXPECT_EQ(AreaOf({"difference", File("a.txt"), File("b.wkt")}), "12");
    EXPECT_EQ(AreaOf({"xor", File("a.txt"), File("b.wkt")}), "24");
}

TEST_F(CommandLine, ARectangleStandsForTheSecondFile) {
    EXPECT_EQ(AreaOf({"clip", File("a.txt"), "--rect", "-10,-10,1,3"}), "3");
    EXPECT_EQ(AreaOf({"difference", File("a.txt"), "--rect=1,3,-10,-10"}), "13");
}

TEST_F(CommandLine, UnionOfOneFileDissolvesSharedBorders) {
    const ToolRun run = RunGeomtool({"union", File("neighbours.txt"), "--to", "wkt"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output.rfind("POLYGON ((", 0), 0u) << run.output;
    EXPECT_EQ(AreaOf({"union", File("neighbours.txt")}), "8");
}

TEST_F(CommandLine, EachKeepsBordersOfNeighbours) {
    const ToolRun run =
        RunGeomtool({"clip", File("neighbours.txt"), "--rect", "1,0,3,1", "--each", "--to", "wkt"});
    EXPECT_EQ(run.output.rfind("MULTIPOLYGON (((", 0), 0u) << run.output;
}

TEST_F(CommandLine, EmptyResultsAreWritten) {
    EXPECT_EQ(RunGeomtool({"clip", File("a.txt"), "--rect", "50,50,60,60"}).output, "0\n");
    EXPECT_EQ(RunGeomtool({"clip", File("a.txt"), "--rect", "50,50,60,60", "--to", "wkt"}).output,
              "MULTIPOLYGON EMPTY\n");
}

TEST_F(CommandLine, StandardStreamsStandForFiles) {
    const ToolRun run = RunGeomtool({"convert", "-", "--from", "wkt", "--to", "text"}, SHIFTED);
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "1\n4\n0\n2 2\n6 2\n6 6\n2 6\n");
    const ToolRun text = RunGeomtool({"convert", "-"}, SQUARE);
    EXPECT_EQ(text.output, SQUARE);
}

TEST_F(CommandLine, FormatsAreGivenFileByFile) {
    const ToolRun run = RunGeomtool(
        {"clip", "-", File("a.txt"), "--from", "wkt", "--from", "text", "--to", "wkt"}, SHIFTED);
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output.rfind("POLYGON ((", 0), 0u);
}

TEST_F(CommandLine, HoleFlagsCanBeLeftOut) {
    const ToolRun run = RunGeomtool({"convert", File("a.txt"), "--no-holes-out"});
    EXPECT_EQ(run.output, "1\n4\n0 0\n4 0\n4 4\n0 4\n");
    EXPECT_EQ(RunGeomtool({"convert", "-", "--no-holes-in"}, run.output).output, SQUARE);
}

TEST_F(CommandLine, ContainsAnswersForPolygonsAndPoints) {
    const std::string big = m_folder.Create("big.wkt", "POLYGON((-9 -9,20 -9,-9 20))");
    EXPECT_EQ(RunGeomtool({"contains", big, File("a.txt")}).output, "yes\n");
    EXPECT_EQ(RunGeomtool({"contains", File("a.txt"), big}).output, "no\n");
    EXPECT_EQ(RunGeomtool({"contains", big, "--point", "-1,1"}).output, "yes\n");
    EXPECT_EQ(RunGeomtool({"contains", big, "--point", "19,19"}).output, "no\n");
}

TEST_F(CommandLine, InfoCountsAndMeasures) {
    const ToolRun run = RunGeomtool({"info", File("neighbours.txt"), "--even-odd"});
    EXPECT_EQ(run.output, "contours  2\nholes     0\nvertices  8\nbox       0 0 4 2\narea      8\n"
                          "even-odd  8\n");
    EXPECT_EQ(RunGeomtool({"info", "-"}, "0").output,
              "contours  0\nholes     0\nvertices  0\nbox       empty\narea      0\n");
}

TEST_F(CommandLine, InfoSaysThatAnAreaIsBeyondTheNumbers) {
    const ToolRun run = RunGeomtool({"info", "-"}, "1 4 0 -1e308 0 1e308 0 1e308 1e308 0 1e308");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_NE(run.output.find("area      beyond the range of numbers\n"), std::string::npos)
        << run.output;
}

TEST_F(CommandLine, StripsGiveContoursThatAddUp) {
    const ToolRun strips = RunGeomtool({"strips", File("b.wkt")});
    EXPECT_EQ(strips.status, 0) << strips.errors;
    EXPECT_NE(RunGeomtool({"info", "-"}, strips.output).output.find("area      16"),
              std::string::npos);
    const ToolRun triangles = RunGeomtool({"strips", File("b.wkt"), "--triangles"});
    EXPECT_EQ(triangles.output.substr(0, 4), "2\n3\n");
    EXPECT_NE(RunGeomtool({"info", "-"}, triangles.output).output.find("area      16"),
              std::string::npos);
}

TEST_F(CommandLine, DrawingsHaveStyles) {
    const ToolRun run =
        RunGeomtool({"draw", File("a.txt"), File("b.wkt"), "--fill", "teal", "--fill", "palette",
                     "--outline=white", "--background", "#eee"});
    EXPECT_EQ(run.status, 0) << run.errors;
    for (const char* const part : {"teal", "white", "#eee", "<svg", "</svg>"}) {
        EXPECT_NE(run.output.find(part), std::string::npos) << part;
    }
    EXPECT_EQ(RunGeomtool({"strips", File("a.txt"), "--outline", "-o", File("s.svg")}).status, 0);
    EXPECT_EQ(m_folder.Content("s.svg").rfind("<svg", 0), 0u);
}

TEST_F(CommandLine, BadInputIsOneLineAndStatusOne) {
    const std::string bad = m_folder.Create("bad.wkt", "POLYGON((0 0,\n1 x))");
    const std::string cut =
        m_folder.Create("cut.bin", std::string("\x01\0\0\0\x05\0\0\0\0\0\0\0", 12));
    const std::string json = m_folder.Create("deep.json", std::string(100000, '['));
    m_files += 3;
    const std::string out = File("out.txt");
    ExpectFailure(1, {"convert", bad, "-o", out}, bad + ":2: expected a number, found 'x))'");
    ExpectFailure(1, {"clip", File("a.txt"), bad, "-o", out},
                  bad + ":2: expected a number, found 'x))'");
    ExpectFailure(1, {"info", cut},
                  cut + ": byte 4: the vertex count 5 is larger than the file can hold");
    ExpectFailure(1, {"convert", json, "-o", out},
                  json + ":1: expected a GeoJSON object, found an array");
    ExpectFailure(1, {"info", File("none.txt")},
                  File("none.txt") + ": cannot open: No such file or directory");
    ExpectFailure(1, {"info", "-"},
                  "standard input:1: expected a contour count, but the file ends");
    ExpectFailure(1, {"convert", File("a.txt"), "-o", File("none/out.wkt")},
                  File("none/out.wkt") + ": cannot create a file there: No such file or directory");
    ExpectFailure(1, {"convert", File("a.txt"), "-o", "/dev/full", "--to", "wkt"},
                  "/dev/full: cannot write: No space left on device");
}

TEST_F(CommandLine, BadUsageIsOneLineAndStatusTwo) {
    const std::string a = File("a.txt");
    ExpectFailure(2, {"clip", a},
                  "clip: needs a second operand, a file or --rect (see geomtool clip "
                  "--help)");
    ExpectFailure(2, {"clip", a, File("b.wkt"), "--rect", "0,0,1,1"},
                  "clip: a second file and --rect exclude each other (see geomtool clip --help)");
    ExpectFailure(2, {"clip", a, "--rect", "0,0,1"},
                  "clip: --rect: expected 4 numbers with commas between them, found '0,0,1' (see "
                  "geomtool clip --help)");
    ExpectFailure(2, {"clip", a, "--rect", "0,0,1,0"},
                  "clip: --rect: a rectangle needs an area, unlike '0,0,1,0' (see "
                  "geomtool clip --help)");
    ExpectFailure(2, {"contains", a},
                  "contains: needs either a second file or --point (see geomtool "
                  "contains --help)");
    ExpectFailure(2, {"info", "noextension"},
                  "info: noextension: the name does not tell the format; --from does (see geomtool "
                  "info --help)");
    ExpectFailure(
        2, {"convert", a, "-o", File("x.doc")},
        "convert: " + File("x.doc") +
            ": the name does not tell the format; --to does (see geomtool convert --help)");
    ExpectFailure(2, {}, "a command is required (see geomtool --help)");
    ExpectFailure(2, {"fold", a}, "no such command or option: fold (see geomtool --help)");
    ExpectFailure(2, {"--fold"}, "no such command or option: --fold (see geomtool --help)");
    ExpectFailure(2, {"dash", a, "--pattern", "x"},
                  "dash: --pattern: expected a number, found 'x' (see geomtool dash --help)");
    ExpectFailure(2, {"draw", a, "-o", File("x.png")},
                  "draw: " + File("x.png") +
                      ": draws SVG, unlike what the name tells (see geomtool draw --help)");
    ExpectFailure(2, {"clip", "-", "-"},
                  "clip: standard input can be read only once (see geomtool clip --help)");
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {},
             {"fold"},
             {"clip"},
             {"info", a, a},
             {"info", a, "--colour"},
             {"info", a, "--from", "doc"},
             {"draw", a, "--fill", "red\"/><script>"},
             {"draw", a, "--size", "nan"},
             {"convert", a, "--decimals", "99"},
         }) {
        const ToolRun run = RunGeomtool(arguments);
        EXPECT_EQ(run.status, 2) << run.errors;
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
        EXPECT_EQ(run.errors.rfind("geomtool: ", 0), 0u) << run.errors;
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(CommandLine, AFailedRunLeavesAnOldOutputAsItWas) {
    m_folder.Create("out.txt", "old");
    m_folder.Create("bad.txt", "1\n3\n");
    const ToolRun run = RunGeomtool({"union", File("bad.txt"), "-o", File("out.txt")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(m_folder.Content("out.txt"), "old");
    EXPECT_EQ(m_folder.Count(), m_files + 2);
}

TEST_F(CommandLine, ADecimalCommaLocaleChangesNothing) {
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    const ToolRun run = RunGeomtool({"convert", "-", "--to", "geojson", "--from", "wkt"},
                                    "POLYGON((0.5 0.5,1.5 0.5,1.5 2.25))");
    ::unsetenv("LC_ALL");
    EXPECT_EQ(run.output, "{\"type\":\"Polygon\",\"coordinates\":\n"
                          "[[[0.5,0.5],[1.5,0.5],[1.5,2.25],[0.5,0.5]]]}\n");
}

TEST_F(CommandLine, ProgressStaysOutOfRedirectedOutput) {
    EXPECT_EQ(RunGeomtool({"union", File("neighbours.txt")}).errors, "");
}

} // namespace
} // namespace geomtool
