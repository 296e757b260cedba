// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/InputError.h"
#include "tools/geomtool/PolygonSet.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

/// \file
/// Shapes as short literals, and expectations on them.

namespace geomtool::test {

inline Ring External(std::vector<geom::Vec2d> points) {
    return {std::move(points), false};
}

inline Ring Hole(std::vector<geom::Vec2d> points) {
    return {std::move(points), true};
}

/// The square of half the given width around a point, counter-clockwise.
inline std::vector<geom::Vec2d> Square(double x, double y, double half) {
    return {{x - half, y - half}, {x + half, y - half}, {x + half, y + half}, {x - half, y + half}};
}

/// Expects the same rings, exactly and in the same order.
inline void ExpectSame(const PolygonSet& actual, const PolygonSet& expected) {
    ASSERT_EQ(actual.rings.size(), expected.rings.size());
    for (std::size_t i = 0; i < expected.rings.size(); ++i) {
        EXPECT_EQ(actual.rings[i].hole, expected.rings[i].hole) << "ring " << i;
        EXPECT_TRUE(actual.rings[i].points == expected.rings[i].points) << "ring " << i;
    }
}

/// Expects a call to fail with an InputError of exactly the given text.
template <typename Call>
void ExpectInputError(Call call, const std::string& text) {
    try {
        call();
    } catch (const InputError& error) {
        EXPECT_EQ(error.what(), text);
        return;
    }
    ADD_FAILURE() << "no InputError where this one was expected: " << text;
}

} // namespace geomtool::test
