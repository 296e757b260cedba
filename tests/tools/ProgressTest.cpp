// SPDX-License-Identifier: MIT
#include "tools/geomtool/Progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>

namespace geomtool {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t WIDTH = 30;

std::string Bar(const std::string& line) {
    const std::size_t open = line.find('[');
    return line.substr(open + 1, line.find(']') - open - 1);
}

TEST(Progress, BarFillsWithTheFraction) {
    EXPECT_EQ(ProgressLine("clip", 0, 1.5), "clip [>" + std::string(WIDTH - 1, ' ') + "] 0 %  1 s");
    EXPECT_EQ(ProgressLine("clip", 0.5, 61),
              "clip [" + std::string(15, '=') + ">" + std::string(14, ' ') + "] 50 %  61 s");
    EXPECT_EQ(ProgressLine("clip", 1, 2), "clip [" + std::string(WIDTH, '=') + "] 100 %  2 s");
    EXPECT_EQ(ProgressLine("clip", 7, 2), ProgressLine("clip", 1, 2));
}

TEST(Progress, BlockOfUnknownWorkRunsToAndFro) {
    std::size_t leftmost = WIDTH;
    std::size_t rightmost = 0;
    for (int tenths = 0; tenths < 200; ++tenths) {
        const std::string bar = Bar(ProgressLine("clip", -1, tenths / 10.0));
        ASSERT_EQ(bar.size(), WIDTH);
        ASSERT_EQ(bar.find_last_of('=') - bar.find('='), 4u);
        leftmost = std::min(leftmost, bar.find('='));
        rightmost = std::max(rightmost, bar.find_last_of('='));
    }
    EXPECT_EQ(leftmost, 0u);
    EXPECT_EQ(rightmost, WIDTH - 1);
}

TEST(Progress, DrawsAfterTheDelayAndWipesAtTheEnd) {
    std::string drawn;
    std::promise<void> first;
    int draws = 0;
    {
        Progress progress(
            [&](const std::string& text) {
                drawn = text;
                if (++draws == 1) {
                    first.set_value();
                }
            },
            milliseconds(0), milliseconds(1));
        progress.Begin("reading");
        progress.Step(1, 4);
        first.get_future().wait();
    }
    EXPECT_GE(draws, 2);
    EXPECT_EQ(drawn, "\r\x1b[K");
}

TEST(Progress, NothingIsDrawnAfterTheFinish) {
    std::promise<void> first;
    int draws = 0;
    Progress progress(
        [&](const std::string&) {
            if (++draws == 1) {
                first.set_value();
            }
        },
        milliseconds(0), milliseconds(1));
    first.get_future().wait();
    progress.Finish();
    const int drawn = draws;
    progress.Begin("more");
    progress.Finish();
    EXPECT_EQ(draws, drawn);
}

TEST(Progress, ShortWorkDrawsNothing) {
    int draws = 0;
    {
        Progress progress([&](const std::string&) { ++draws; }, milliseconds(1000000),
                          milliseconds(1));
        progress.Begin("reading");
    }
    EXPECT_EQ(draws, 0);
}

TEST(Progress, WithoutASinkNothingHappens) {
    Progress progress(Progress::Sink(), milliseconds(0), milliseconds(1));
    progress.Begin("reading");
    progress.Step(0, 0);
}

} // namespace
} // namespace geomtool
