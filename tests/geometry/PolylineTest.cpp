// SPDX-License-Identifier: MIT
#include "geometry/Polyline.h"

#include "tests/support/AllocationProbe.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

namespace geom {
namespace {

using test::AllocationProbe;

const Vec2d POINTS[] = {{1, 2}, {3, 4}, {5, 6}};
const tagPOINT DEVICE_POINTS[] = {{1, -2}, {2147483647, -2147483647 - 1}};

std::vector<Vec2d> Vertices(const Polyline& line) {
    return {line.GetVertices(), line.GetVertices() + line.Size()};
}

TEST(Polyline, DefaultIsEmpty) {
    const Polyline line;
    EXPECT_TRUE(line.Empty());
    EXPECT_EQ(line.Size(), 0U);
    EXPECT_EQ(line.GetVertices(), nullptr);
}

TEST(Polyline, CopiesVertices) {
    Vec2d source[] = {{1, 2}, {3, 4}};
    const Polyline line(source, 2);
    source[0] = {9, 9};
    EXPECT_FALSE(line.Empty());
    EXPECT_EQ(line.Size(), 2U);
    EXPECT_EQ(line[0], Vec2d(1, 2));
    EXPECT_EQ(line[1], Vec2d(3, 4));
    EXPECT_EQ(line.GetVertices(), &line[0]);
}

TEST(Polyline, ConvertsDevicePoints) {
    const Polyline line(DEVICE_POINTS, 2);
    EXPECT_EQ(line.Size(), 2U);
    EXPECT_EQ(line[0], Vec2d(1, -2));
    EXPECT_EQ(line[1], Vec2d(2147483647.0, -2147483648.0));
}

TEST(Polyline, NoPointsMakeAnEmptyOne) {
    const Vec2d* noPoints = nullptr;
    const tagPOINT* noDevicePoints = nullptr;
    EXPECT_TRUE(Polyline(POINTS, 0).Empty());
    EXPECT_TRUE(Polyline(DEVICE_POINTS, 0).Empty());
    EXPECT_TRUE(Polyline(noPoints, 0).Empty());
    EXPECT_TRUE(Polyline(noPoints, 3).Empty());
    EXPECT_TRUE(Polyline(noDevicePoints, 3).Empty());
    EXPECT_EQ(Polyline(POINTS, 0).GetVertices(), nullptr);
}

TEST(Polyline, CopiesAreDeep) {
    Polyline line(POINTS, 3);
    Polyline copy(line);
    Polyline assigned;
    assigned = line;
    line.Clear();
    EXPECT_EQ(Vertices(copy), std::vector<Vec2d>(POINTS, POINTS + 3));
    EXPECT_EQ(Vertices(assigned), std::vector<Vec2d>(POINTS, POINTS + 3));
    assigned.Append(POINTS, 1);
    EXPECT_EQ(copy.Size(), 3U);
}

TEST(Polyline, AssignmentToItselfChangesNothing) {
    Polyline line(POINTS, 3);
    Polyline& same = line;
    line = same;
    EXPECT_EQ(Vertices(line), std::vector<Vec2d>(POINTS, POINTS + 3));
}

TEST(Polyline, AssignmentReplaces) {
    Polyline line(POINTS, 3);
    line = Polyline(POINTS + 1, 1);
    EXPECT_EQ(Vertices(line), std::vector<Vec2d>({{3, 4}}));
}

TEST(Polyline, AppendAddsAtTheEnd) {
    Polyline line;
    line.Append(POINTS, 1);
    line.Append(POINTS + 1, 2);
    line.Append(POINTS, 0);
    line.Append(nullptr, 0);
    line.Append(nullptr, 5);
    EXPECT_EQ(Vertices(line), std::vector<Vec2d>(POINTS, POINTS + 3));
}

TEST(Polyline, AppendsItsOwnVertices) {
    Polyline line(POINTS, 3);
    std::vector<Vec2d> expected(POINTS, POINTS + 3);
    for (int i = 0; i < 6; ++i) { // with and without growth
        const std::vector<Vec2d> own = expected;
        line.Append(line.GetVertices() + 1, line.Size() - 1);
        expected.insert(expected.end(), own.begin() + 1, own.end());
        ASSERT_EQ(Vertices(line), expected);
    }
    Polyline roomy(POINTS, 3);
    roomy.Append(POINTS, 3);
    roomy.Clear();
    roomy.Append(POINTS, 2);
    roomy.Append(roomy.GetVertices(), 2);
    EXPECT_EQ(Vertices(roomy), std::vector<Vec2d>({{1, 2}, {3, 4}, {1, 2}, {3, 4}}));
}

TEST(Polyline, ClearKeepsTheStorage) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    Polyline line(POINTS, 3);
    const Vec2d* storage = line.GetVertices();
    line.Clear();
    EXPECT_TRUE(line.Empty());
    EXPECT_EQ(line.GetVertices(), nullptr);
    const AllocationProbe probe;
    line.Append(POINTS, 3);
    EXPECT_EQ(probe.Count(), 0U);
    EXPECT_EQ(line.GetVertices(), storage);
}

TEST(Polyline, GrowthByOneIsAmortised) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    Polyline line;
    const AllocationProbe probe;
    for (int i = 0; i < 10000; ++i) {
        line.Append(POINTS, 1);
    }
    EXPECT_LT(probe.Count(), 30U);
}

TEST(Polyline, CountThatNoArrayCanHaveIsRefused) {
    Polyline line(POINTS, 3);
    EXPECT_THROW(line.Append(POINTS, SIZE_MAX), std::length_error);
    EXPECT_THROW(line.Append(POINTS, SIZE_MAX / sizeof(Vec2d)), std::length_error);
    EXPECT_THROW(Polyline(POINTS, SIZE_MAX), std::length_error);
    EXPECT_THROW(Polyline(DEVICE_POINTS, SIZE_MAX), std::length_error);
    EXPECT_EQ(Vertices(line), std::vector<Vec2d>(POINTS, POINTS + 3));
}

TEST(Polyline, FailedAllocationLeavesItUnchanged) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    Polyline line(POINTS, 3);
    Polyline other(POINTS, 1);
    int failures = 0;
    const auto failing = [&](auto call) {
        const AllocationProbe probe(0);
        try {
            call();
        } catch (const std::bad_alloc&) {
            ++failures;
        }
    };
    failing([&] { line.Append(POINTS, 3); });
    failing([&] { other = line; });
    // Each object is looked at from outside, or a compiler may leave it out with its storage.
    const Polyline* volatile seen = nullptr;
    failing([&] {
        const Polyline copy(line);
        seen = &copy;
    });
    failing([&] {
        const Polyline made(POINTS, 3);
        seen = &made;
    });
    failing([&] {
        const Polyline made(DEVICE_POINTS, 2);
        seen = &made;
    });
    EXPECT_EQ(failures, 5);
    EXPECT_EQ(Vertices(line), std::vector<Vec2d>(POINTS, POINTS + 3));
    EXPECT_EQ(Vertices(other), std::vector<Vec2d>(POINTS, POINTS + 1));
}

} // namespace
} // namespace geom
