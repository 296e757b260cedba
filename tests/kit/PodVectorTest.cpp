// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/PodVector.h"

#include "Subsystems/Kit/Vec2d.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <new>

namespace kit {
namespace {

using geom::test::AllocationProbe;

using Points = CPodVector<Vec2d, 32>;
using Numbers = CPodVector<int, 4>;

static_assert(offsetof(Points, m_data) == 0);
static_assert(offsetof(Points, m_count) == sizeof(void*));
static_assert(offsetof(Points, m_capacity) == 2 * sizeof(void*));
static_assert(offsetof(Points, m_inline) == 3 * sizeof(void*));
static_assert(sizeof(Points) == 3 * sizeof(void*) + 32 * sizeof(Vec2d));

Numbers Counting(int n) {
    Numbers v;
    for (int i = 0; i < n; ++i) {
        v.Append(i);
    }
    return v;
}

void ExpectCounting(const Numbers& v, std::size_t n) {
    ASSERT_EQ(v.Count(), n);
    for (std::size_t i = 0; i < n; ++i) {
        EXPECT_EQ(v[i], static_cast<int>(i));
    }
}

bool IsInline(const Numbers& v) {
    return v.Data() == v.m_inline;
}

TEST(CPodVector, StartsEmptyInItsInlineBuffer) {
    const Numbers v;
    EXPECT_EQ(v.Count(), 0U);
    EXPECT_EQ(v.m_capacity, 4U);
    EXPECT_TRUE(IsInline(v));
    EXPECT_EQ(v.begin(), v.end());
}

TEST(CPodVector, StaysInlineUntilTheBufferIsFull) {
    const Numbers v = Counting(4);
    ExpectCounting(v, 4);
    EXPECT_TRUE(IsInline(v));
}

TEST(CPodVector, MovesToTheHeapWhenTheBufferOverflows) {
    const Numbers v = Counting(5);
    ExpectCounting(v, 5);
    EXPECT_FALSE(IsInline(v));
    EXPECT_GE(v.m_capacity, 5U);
}

TEST(CPodVector, GrowsOnTheHeapWithoutLosingElements) {
    ExpectCounting(Counting(100000), 100000);
}

TEST(CPodVector, ElementsAreWrittenThroughTheIndex) {
    Numbers v = Counting(6);
    v[5] = 50;
    v[0] = 60;
    EXPECT_EQ(v[5], 50);
    EXPECT_EQ(v.Data()[0], 60);
}

TEST(CPodVector, IteratesOverItsElements) {
    Numbers v = Counting(7);
    int sum = 0;
    for (const int i : v) {
        sum += i;
    }
    EXPECT_EQ(sum, 21);
    std::reverse(v.begin(), v.end());
    EXPECT_EQ(v[0], 6);
}

TEST(CPodVector, ClearKeepsTheStorage) {
    Numbers v = Counting(10);
    const int* const data = v.Data();
    v.Clear();
    EXPECT_EQ(v.Count(), 0U);
    v.Append(7);
    EXPECT_EQ(v.Data(), data);
    EXPECT_EQ(v[0], 7);
}

TEST(CPodVector, PopDropsTheLastElementOnly) {
    Numbers v = Counting(6);
    v.Pop();
    ExpectCounting(v, 5);
    EXPECT_FALSE(IsInline(v)) << "storage is not given back";
    Numbers single = Counting(1);
    single.Pop();
    EXPECT_EQ(single.Count(), 0U);
}

TEST(CPodVector, PopOnEmptyThrows) {
    Numbers v;
    geom::test::ExpectError([&] { v.Pop(); }, "Kit", "Subsystems\\Kit\\PodVector.h", 300,
                            "Cannot pop element from empty CPodVector");
    EXPECT_EQ(v.Count(), 0U);
}

TEST(CPodVector, PopOnAClearedHeapVectorThrows) {
    Numbers v = Counting(9);
    v.Clear();
    geom::test::ExpectError([&] { v.Pop(); }, "Kit", "Subsystems\\Kit\\PodVector.h", 300);
}

TEST(CPodVector, AppendsItsOwnElementWhileGrowing) {
    Numbers v = Counting(4);
    v.Append(v[3]); // from the inline buffer to the heap
    EXPECT_EQ(v[4], 3);
    while (v.Count() < v.m_capacity) {
        v.Append(0);
    }
    const std::size_t count = v.Count();
    v.Append(v[4]); // from one heap block to another
    EXPECT_EQ(v[count], 3);
}

TEST(CPodVector, AppendsABlockInlineAndOnTheHeap) {
    const int values[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    for (const std::size_t n : {0U, 1U, 3U, 4U, 9U}) { // up to the inline buffer's end, and beyond
        Numbers v = Counting(1);
        v.Append(values, n);
        ExpectCounting(v, n + 1);
        EXPECT_EQ(IsInline(v), n < 4);
    }
    Numbers v;
    v.Append(nullptr, 0);
    EXPECT_EQ(v.Count(), 0U);
}

TEST(CPodVector, FailedGrowthForABlockChangesNothing) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap cannot fail in this build";
    }
    const int values[] = {7, 7, 7};
    Numbers v = Counting(3);
    bool threw = false;
    {
        const AllocationProbe probe(0);
        try {
            v.Append(values, 3);
        } catch (const std::bad_alloc&) {
            threw = true;
        }
    }
    EXPECT_TRUE(threw);
    ExpectCounting(v, 3);
}

TEST(CPodVector, CopyIsIndependentInlineAndOnTheHeap) {
    for (const int n : {0, 3, 50}) {
        Numbers v = Counting(n);
        Numbers copy(v);
        v.Append(99);
        ExpectCounting(copy, static_cast<std::size_t>(n));
        EXPECT_EQ(IsInline(copy), n <= 4);
    }
}

TEST(CPodVector, AssignmentReplacesTheElements) {
    Numbers v = Counting(50);
    v = Counting(3);
    ExpectCounting(v, 3);
    v = Counting(70);
    ExpectCounting(v, 70);
    const Numbers& same = v;
    v = same;
    ExpectCounting(v, 70);
}

TEST(CPodVector, AllocatesNothingWhileInline) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap cannot be watched in this build";
    }
    const AllocationProbe probe;
    Numbers v = Counting(4);
    Numbers copy(v);
    copy = v;
    copy.Clear();
    EXPECT_EQ(probe.Count(), 0U);
    v.Append(4);
    EXPECT_EQ(probe.Count(), 1U);
}

TEST(CPodVector, GrowingAsksTheHeapRarely) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap cannot be watched in this build";
    }
    const AllocationProbe probe;
    const Numbers v = Counting(100000);
    EXPECT_LE(probe.Count(), 20U);
}

TEST(CPodVector, FailedGrowthChangesNothing) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap cannot fail in this build";
    }
    for (const int n : {4, 8, 16}) { // the inline buffer full, and heap blocks full
        Numbers v = Counting(n);
        ASSERT_EQ(v.m_capacity, static_cast<std::size_t>(n));
        bool threw = false;
        {
            const AllocationProbe probe(0);
            try {
                v.Append(99);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
        }
        EXPECT_TRUE(threw);
        ExpectCounting(v, static_cast<std::size_t>(n));
        v.Append(n);
        ExpectCounting(v, static_cast<std::size_t>(n) + 1);
    }
}

TEST(CPodVector, FailedAssignmentChangesNothing) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap cannot fail in this build";
    }
    const Numbers large = Counting(50);
    Numbers v = Counting(3);
    bool threw = false;
    {
        const AllocationProbe probe(0);
        try {
            v = large;
        } catch (const std::bad_alloc&) {
            threw = true;
        }
    }
    EXPECT_TRUE(threw);
    ExpectCounting(v, 3);
    EXPECT_TRUE(IsInline(v));
}

} // namespace
} // namespace kit
