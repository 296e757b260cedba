// SPDX-License-Identifier: MIT
// The tool as a process on files that were made to do harm: it says why in one line, and takes
// neither much memory nor much time.
#include "tests/tools/CommandTest.h"

#include <cstdio>

namespace geomtool::test {
namespace {

using namespace std::string_literals;

/// The program alone takes some 10 megabytes; instrumented, some 50 and the shadows of its memory.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long MOST_KILOBYTES = 800'000;
#else
constexpr long MOST_KILOBYTES = 60'000;
#endif
constexpr double MOST_SECONDS = 5.0;

class HostileFilesOnTheCommandLine : public CommandTest {
protected:
    void ExpectCheapRefusal(const std::string& name, const std::string& bytes) {
        SCOPED_TRACE(name);
        const ToolRun run = RunGeomtool({"info", Create(name, bytes)});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.rfind("geomtool: ", 0), 0U) << run.errors;
        EXPECT_EQ(run.errors.find('\n'), run.errors.size() - 1) << run.errors;
        EXPECT_LT(run.kilobytes, MOST_KILOBYTES);
        EXPECT_LT(run.seconds, MOST_SECONDS);
        std::printf("%-24s %8zu bytes: %6ld kB, %5.1f ms: %s", name.c_str(), bytes.size(),
                    run.kilobytes, 1000 * run.seconds, run.errors.substr(10).c_str());
    }
};

std::string Repeated(std::size_t times, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST_F(HostileFilesOnTheCommandLine, AreRefusedInOneLineWithLittleMemory) {
    const std::string most = "\xFF\xFF\xFF\x7F"s;
    const std::string digits(10000, '7');
    ExpectCheapRefusal("contours.bin", most + "\0\0\0\0\0\0\0\0"s);
    ExpectCheapRefusal("vertices.bin", "\x01\0\0\0"s + most + "\0\0\0\0"s);
    ExpectCheapRefusal("contours.txt", "2147483647");
    ExpectCheapRefusal("vertices.txt", "2 1 0 1 2 2147483647 0 1 2");
    ExpectCheapRefusal("digits.txt", "1 1 0 " + digits + " 2");
    ExpectCheapRefusal("bytes.txt", "1 1 0 \xFF\xFE\x1B[31m 2");
    ExpectCheapRefusal("deep.wkt", Repeated(100'000, "GEOMETRYCOLLECTION("));
    ExpectCheapRefusal("parentheses.wkt", "POLYGON" + std::string(100'000, '('));
    ExpectCheapRefusal("digits.wkt", "POLYGON((" + digits + " 0))");
    ExpectCheapRefusal("arrays.geojson", "{\"coordinates\":" + std::string(100'000, '['));
    ExpectCheapRefusal("objects.geojson", Repeated(100'000, "{\"geometry\":"));
    ExpectCheapRefusal("digits.geojson",
                       "{\"type\":\"Polygon\",\"coordinates\":[[[" + digits + ",0]]]}");
    ExpectCheapRefusal("utf8.geojson", "{\"type\":\"\xFF\xFE\"}");
    ExpectCheapRefusal("type.geojson", "{\"type\":\"" + std::string(100'000, 'P') + "\"}");
}

} // namespace
} // namespace geomtool::test
