// SPDX-License-Identifier: MIT
#include "tests/support/AllocationProbe.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <new>
#include <thread>
#include <vector>

namespace geom::test {
namespace {

class AllocationProbes : public testing::Test {
protected:
    void SetUp() override {
        if (!AllocationProbe::Works()) {
            GTEST_SKIP() << "the heap belongs to a sanitizer in this build";
        }
    }
};

// Kept from the optimiser, which may leave out a block that is never used.
void* volatile kept;

void Keep(void* block) {
    kept = block;
}

TEST_F(AllocationProbes, CountsEveryKindOfRequest) {
    const AllocationProbe probe;
    void* block = std::malloc(8);
    Keep(block);
    EXPECT_EQ(probe.Count(), 1U);
    block = std::realloc(block, 4000);
    Keep(block);
    EXPECT_EQ(probe.Count(), 2U);
    std::free(block);
    block = std::calloc(3, 5);
    Keep(block);
    EXPECT_EQ(probe.Count(), 3U);
    std::free(block);
    const auto number = std::make_unique<int>(7);
    Keep(number.get());
    EXPECT_EQ(probe.Count(), 4U);
    EXPECT_FALSE(probe.Failed());
}

TEST_F(AllocationProbes, BalanceIsWhatIsStillOwned) {
    const AllocationProbe probe;
    void* block = std::malloc(8);
    Keep(block);
    auto number = std::make_unique<int>(7);
    Keep(number.get());
    EXPECT_EQ(probe.Balance(), 2);
    block = std::realloc(block, 4000);
    Keep(block);
    EXPECT_EQ(probe.Balance(), 2);
    std::free(block);
    EXPECT_EQ(probe.Balance(), 1);
    number.reset();
    EXPECT_EQ(probe.Balance(), 0);
}

TEST_F(AllocationProbes, FailsTheChosenRequestOnly) {
    const AllocationProbe probe(1);
    void* first = std::malloc(8);
    Keep(first);
    EXPECT_NE(first, nullptr);
    EXPECT_FALSE(probe.Failed());
    errno = 0;
    void* second = std::malloc(8);
    Keep(second);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(errno, ENOMEM);
    EXPECT_TRUE(probe.Failed());
    void* third = std::malloc(8);
    Keep(third);
    EXPECT_NE(third, nullptr);
    std::free(first);
    std::free(third);
}

TEST_F(AllocationProbes, MakesNewThrow) {
    const AllocationProbe probe(0);
    bool threw = false;
    try {
        std::vector<int> numbers(100);
        Keep(numbers.data());
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    EXPECT_TRUE(threw);
}

TEST_F(AllocationProbes, FailedReallocationKeepsTheBlock) {
    void* volatile block = std::malloc(8); // read anew each time: its value outlives the call
    ASSERT_NE(block, nullptr);
    static_cast<char*>(block)[7] = 'x';
    {
        const AllocationProbe probe(0);
        void* grown = std::realloc(block, 1000000);
        Keep(grown);
        EXPECT_EQ(grown, nullptr);
    }
    EXPECT_EQ(static_cast<char*>(block)[7], 'x');
    std::free(block);
}

TEST_F(AllocationProbes, EndsWithItsScope) {
    { const AllocationProbe probe(0); }
    void* block = std::malloc(8);
    Keep(block);
    EXPECT_NE(block, nullptr);
    std::free(block);
    const AllocationProbe fresh;
    EXPECT_EQ(fresh.Count(), 0U);
}

TEST_F(AllocationProbes, WatchesItsOwnThreadOnly) {
    std::size_t before = 0;
    std::size_t after = 0;
    bool otherSucceeded = false;
    const auto other = [&otherSucceeded] {
        void* block = std::malloc(8);
        Keep(block);
        otherSucceeded = block != nullptr;
        std::free(block);
    };
    {
        const AllocationProbe probe(1000);
        std::thread thread(other);
        before = probe.Count(); // starting a thread asks the heap on this side
        thread.join();
        after = probe.Count();
    }
    EXPECT_TRUE(otherSucceeded);
    EXPECT_EQ(before, after);
}

} // namespace
} // namespace geom::test
