// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Errors.h"
#include "tests/support/AllocationProbe.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace kit {
namespace {

class TestError : public IError {};

// One line that names module, file and line.
void ExpectOneLine(const std::string& text) {
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    EXPECT_EQ(text.back(), '\n');
    for (const char* part : {"Module", "Unit", "77"}) {
        EXPECT_NE(text.find(part), std::string::npos) << text;
    }
}

TEST(LogExceptionInfo, WritesOneLineWithoutAnErrorObject) {
    testing::internal::CaptureStderr();
    LogExceptionInfo("Module", "Unit", 77, nullptr);
    ExpectOneLine(testing::internal::GetCapturedStderr());
}

TEST(LogExceptionInfo, WritesOneLineWithAnErrorObject) {
    const TestError error;
    testing::internal::CaptureStderr();
    LogExceptionInfo("Module", "Unit", 77, &error);
    ExpectOneLine(testing::internal::GetCapturedStderr());
}

// It is called while another exception is being handled.
TEST(LogExceptionInfo, ThrowsNothingAndWritesItsLineWhenTheHeapIsExhausted) {
    using geom::test::AllocationProbe;
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const GString module = "A module whose name does not fit into a small string";
    const GString file = "A file whose name does not fit into a small string either";
    std::size_t failures = 0;
    for (bool failed = true; failed; ++failures) {
        bool thrown = false;
        testing::internal::CaptureStderr();
        {
            const AllocationProbe probe(failures);
            try {
                LogExceptionInfo(module, file, 77, nullptr);
            } catch (...) {
                thrown = true;
            }
            failed = probe.Failed();
        }
        const std::string line = testing::internal::GetCapturedStderr();
        EXPECT_FALSE(thrown);
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line;
        EXPECT_THAT(line, testing::HasSubstr("line 77"));
    }
    EXPECT_GT(failures, 2U);
}

} // namespace
} // namespace kit
