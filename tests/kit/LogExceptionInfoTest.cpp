// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Errors.h"
#include "tests/support/AllocationProbe.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

// It is called while another exception is being handled.
TEST(LogExceptionInfo, ThrowsNothingAndWritesItsLineWhenTheHeapIsExhausted) {
    using geom::test::AllocationProbe;
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const kit::GString module = "A module whose name does not fit into a small string";
    const kit::GString file = "A file whose name does not fit into a small string either";
    std::size_t failures = 0;
    for (bool failed = true; failed; ++failures) {
        bool thrown = false;
        testing::internal::CaptureStderr();
        {
            const AllocationProbe probe(failures);
            try {
                kit::LogExceptionInfo(module, file, 77, nullptr);
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
