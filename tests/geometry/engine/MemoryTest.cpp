// SPDX-License-Identifier: MIT
#include "geometry/engine/Memory.h"

#include "geometry/GPCException.h"
#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

namespace geom::detail {
namespace {

using test::ExpectError;

TEST(GpcAlloc, SizeZeroIsNullAndNoError) {
    EXPECT_EQ(GpcAlloc(0, "Gpc", 1, "nothing"), nullptr);
}

TEST(GpcAlloc, GivesUsableMemory) {
    auto* block = static_cast<char*>(GpcAlloc(3, "Gpc", 1, "three bytes"));
    ASSERT_NE(block, nullptr);
    block[0] = block[2] = 'x';
    GpcFree(block);
}

TEST(GpcAlloc, FailureNamesFileLineAndReason) {
    ExpectError([] { GpcAlloc(std::uint64_t{1} << 62U, "Gpc", 77, "contour creation"); },
                "GPC Library", "Gpc", 77, "GPCAlloc failure: contour creation");
    ExpectError([] { GpcAlloc(~std::uint64_t{0}, "Gpc", 78, "vertex creation"); }, "GPC Library",
                "Gpc", 78, "GPCAlloc failure: vertex creation");
}

TEST(GpcAlloc, FailureIsNoEngineError) {
    try {
        GpcAlloc(~std::uint64_t{0}, "Gpc", 1, "x");
        FAIL() << "nothing was thrown";
    } catch (const GPCException&) {
        FAIL() << "an exhausted heap is not an inconsistent sweep";
    } catch (const kit::Exception&) {
    }
}

TEST(GpcRealloc, FailureLeavesTheBlock) {
    auto* block = static_cast<int*>(GpcAlloc(sizeof(int), "Gpc", 1, "an integer"));
    *block = 42;
    EXPECT_THROW(GpcRealloc(block, ~std::uint64_t{0}, "Gpc", 1, "too much"), kit::Exception);
    EXPECT_EQ(*block, 42);
    GpcFree(block);
}

TEST(Block, KeepsItsElementsWhileItGrows) {
    Block<int> block("numbers");
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(block.Append(i), static_cast<std::uint32_t>(i));
    }
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(block[static_cast<std::uint64_t>(i)], i);
    }
    block.Truncate(10);
    EXPECT_EQ(block.Count(), 10U);
    block.Clear();
    EXPECT_TRUE(block.IsEmpty());
}

TEST(Block, ReservedElementsDoNotMove) {
    Block<int> block("numbers");
    block.Reserve(100);
    block.Append(0);
    const int* first = block.begin();
    for (int i = 1; i < 100; ++i) {
        block.Append(i);
    }
    EXPECT_EQ(block.begin(), first);
}

TEST(Block, FailedReserveKeepsTheElements) {
    Block<int> block("numbers");
    block.Append(7);
    ExpectError([&] { block.Reserve(std::uint64_t{1} << 61U); }, "GPC Library", "Gpc",
                LINE_ALLOCATE_RUN, "GPCAlloc failure: numbers");
    EXPECT_EQ(block[0], 7);
}

} // namespace
} // namespace geom::detail
