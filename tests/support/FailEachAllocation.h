// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Exception.h"
#include "tests/support/AllocationProbe.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <new>
#include <string>
#include <vector>

namespace geom::test {

/// Makes each heap request of a call fail in turn until the call succeeds, and returns what was
/// thrown each time: "module, file line: message" of a kit::Exception, or "bad_alloc".
///
/// The call keeps nothing that it allocates: what is left behind is a failure of the test.
template <typename Call>
std::vector<std::string> FailEachAllocation(Call call) {
    std::vector<std::string> failures;
    for (std::size_t k = 0;; ++k) {
        char text[256] = ""; // no heap while the probe lives
        std::ptrdiff_t balance = 0;
        bool failed = false;
        {
            AllocationProbe probe(k);
            try {
                call();
            } catch (const kit::Exception& e) {
                std::snprintf(text, sizeof text, "%s, %s %d: %s", e.Module().Narrow().c_str(),
                              e.File().Narrow().c_str(), e.Line(), e.Message().Narrow().c_str());
            } catch (const std::bad_alloc&) {
                std::snprintf(text, sizeof text, "bad_alloc");
            }
            balance = probe.Balance();
            failed = probe.Failed();
        }
        EXPECT_EQ(balance, 0) << "blocks left after request " << k << " failed";
        EXPECT_EQ(text[0] != '\0', failed) << "request " << k << ": " << text;
        if (!failed || text[0] == '\0') {
            return failures;
        }
        failures.emplace_back(text);
    }
}

} // namespace geom::test
