// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Exception.h"

#include <gtest/gtest.h>

#include <optional>

namespace geom::test {

/// Runs a call and returns a copy of the kit::Exception that it throws; nothing, and a failure
/// of the running test, when it throws none.
template <typename Call>
std::optional<kit::Exception> Caught(Call call) {
    try {
        call();
    } catch (const kit::Exception& e) {
        return e;
    }
    ADD_FAILURE() << "no exception was thrown";
    return std::nullopt;
}

/// Checks that a call throws a kit::Exception of the given module, file and line, flag false.
template <typename Call>
void ExpectError(Call call, const kit::GString& module, const kit::GString& file, int line) {
    const std::optional<kit::Exception> e = Caught(call);
    if (e) {
        EXPECT_EQ(e->Module(), module) << e->Module().Narrow();
        EXPECT_EQ(e->File(), file) << e->File().Narrow();
        EXPECT_EQ(e->Line(), line);
        EXPECT_FALSE(e->Flag());
    }
}

/// The same with the message.
template <typename Call>
void ExpectError(Call call, const kit::GString& module, const kit::GString& file, int line,
                 const kit::GString& message) {
    const std::optional<kit::Exception> e = Caught(call);
    if (e) {
        EXPECT_EQ(e->Module(), module) << e->Module().Narrow();
        EXPECT_EQ(e->File(), file) << e->File().Narrow();
        EXPECT_EQ(e->Line(), line);
        EXPECT_EQ(e->Message(), message) << e->Message().Narrow();
        EXPECT_FALSE(e->Flag());
    }
}

} // namespace geom::test
