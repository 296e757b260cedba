// SPDX-License-Identifier: MIT
// The rooms of the sweep that keep order: the heap, the tournament, the sorting, the active list
// and the schedule.
#include "geometry/engine/ActiveList.h"
#include "geometry/engine/Heap.h"
#include "geometry/engine/Insertion.h"
#include "geometry/engine/Ordering.h"
#include "geometry/engine/PairSchedule.h"
#include "geometry/engine/SlotPool.h"
#include "geometry/engine/Tournament.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace geom::detail {
namespace {

constexpr double NOTHING = std::numeric_limits<double>::infinity();

struct Item {
    double y;
    int number;
};

TEST(Heap, GivesItemsInAscendingOrder) {
    std::mt19937_64 random(1);
    Heap<Item> heap("items");
    std::vector<double> expected;
    for (int i = 0; i < 1000; ++i) {
        const auto y = static_cast<double>(random() % 300);
        expected.push_back(y);
        heap.Push({y, i});
    }
    std::sort(expected.begin(), expected.end());
    for (const double y : expected) {
        ASSERT_FALSE(heap.IsEmpty());
        EXPECT_EQ(heap.Top().y, y);
        heap.Pop();
    }
    EXPECT_TRUE(heap.IsEmpty());
}

TEST(Tournament, KnowsTheLowestOfAllThatWait) {
    std::mt19937_64 random(5);
    std::vector<Slot> slots(300);
    std::vector<double> waiting(slots.size(), NOTHING);
    Tournament tournament("slots");
    EXPECT_TRUE(tournament.IsEmpty());
    for (int step = 0; step < 20000; ++step) {
        // Slots come in by and by, so that the tournament grows while others wait.
        const std::size_t some = 1 + static_cast<std::size_t>(step) * slots.size() / 20000;
        const std::size_t i = random() % some;
        const auto y = static_cast<double>(random() % 1000);
        const auto lowest = std::min_element(waiting.begin(), waiting.end());
        if (waiting[i] == NOTHING) {
            slots[i].number = static_cast<std::uint32_t>(i);
            tournament.Enter({waiting[i] = y, &slots[i]});
        } else if (random() % 2 == 0) {
            waiting[tournament.Winner().slot->number] = y;
            tournament.ReplaceWinner(y);
        } else {
            waiting[tournament.Winner().slot->number] = NOTHING;
            tournament.RemoveWinner();
        }
        const auto now = std::min_element(waiting.begin(), waiting.end());
        ASSERT_EQ(tournament.Winner().y, *now) << "after " << *lowest;
        ASSERT_EQ(tournament.IsEmpty(), *now == NOTHING);
        if (!tournament.IsEmpty()) {
            ASSERT_EQ(waiting[tournament.Winner().slot->number], *now);
        }
    }
}

std::vector<int> OrderedNumbers(const std::vector<double>& keys) {
    Block<Item> items("items");
    Block<Item> scratch("items");
    for (std::size_t i = 0; i < keys.size(); ++i) {
        items.Append({keys[i], static_cast<int>(i)});
    }
    OrderAsInserted(
        items, scratch, [](const Item& a, const Item& b) { return a.y < b.y; },
        [](const Item& item) { return std::isnan(item.y); });
    std::vector<int> numbers;
    for (const Item& item : items) {
        numbers.push_back(item.number);
    }
    return numbers;
}

std::vector<int> InsertedNumbers(const std::vector<double>& keys) {
    std::vector<int> list;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const auto place = std::find_if(list.begin(), list.end(), [&](int other) {
            return keys[i] < keys[static_cast<std::size_t>(other)];
        });
        list.insert(place, static_cast<int>(i));
    }
    return list;
}

TEST(OrderAsInserted, EqualsInsertionOneByOne) {
    std::mt19937_64 random(2);
    for (int round = 0; round < 500; ++round) {
        std::vector<double> keys(random() % 200);
        for (double& key : keys) {
            key = static_cast<double>(random() % 40);
        }
        if (round % 5 == 0 && !keys.empty()) {
            keys[keys.size() / 2] = std::numeric_limits<double>::quiet_NaN();
        }
        EXPECT_EQ(OrderedNumbers(keys), InsertedNumbers(keys));
    }
}

// A vertical edge at x, upwards from 0.
std::unique_ptr<Slot> Upright(double x) {
    auto slot = std::make_unique<Slot>();
    slot->bot = {x, 0};
    slot->top = {x, 1};
    return slot;
}

void ExpectInOrder(const ActiveList& list, const std::vector<Slot*>& expected) {
    std::vector<Slot*> slots;
    for (Slot* slot = list.First(); slot != nullptr; slot = slot->next) {
        slots.push_back(slot);
        if (slot->next != nullptr) {
            EXPECT_LT(slot->label, slot->next->label);
            EXPECT_EQ(slot->next->prev, slot);
        }
    }
    EXPECT_EQ(slots, expected);
    EXPECT_EQ(list.Last(), expected.empty() ? nullptr : expected.back());
}

TEST(ActiveList, KeepsOrderThroughInsertionsSwapsAndRemovals) {
    std::mt19937_64 random(3);
    std::vector<std::unique_ptr<Slot>> storage;
    std::vector<Slot*> expected;
    ActiveList list;
    for (int step = 0; step < 20000; ++step) {
        const std::size_t i = expected.empty() ? 0 : random() % expected.size();
        const std::uint64_t action = random() % 8;
        const auto at = expected.begin() + static_cast<std::ptrdiff_t>(i);
        if (expected.size() < 10 || action < 3) {
            storage.push_back(Upright(0));
            Slot* slot = storage.back().get();
            list.InsertBehind(i == 0 ? nullptr : expected[i - 1], slot);
            expected.insert(at, slot);
        } else if (action < 5) {
            list.Remove(expected[i]);
            expected.erase(at);
        } else if (i + 1 < expected.size()) {
            list.SwapBundles(expected[i], expected[i + 1]);
            std::swap(expected[i], expected[i + 1]);
        }
        if (step % 1000 == 0) {
            ExpectInOrder(list, expected);
        }
    }
    ExpectInOrder(list, expected);
}

TEST(ActiveList, InsertionAtOnePlaceUsesUpAGapAndRelabels) {
    std::vector<std::unique_ptr<Slot>> storage;
    std::vector<Slot*> expected;
    ActiveList list;
    for (int i = 0; i < 300; ++i) {
        storage.push_back(Upright(0));
        Slot* slot = storage.back().get();
        list.InsertBehind(i == 0 ? nullptr : expected.front(), slot);
        expected.insert(expected.empty() ? expected.begin() : expected.begin() + 1, slot);
    }
    ExpectInOrder(list, expected);
}

// Labels that change when slots come in, each behind the one `place` picks from those there are.
template <typename Place>
std::uint64_t LabelsMoved(int insertions, Place place) {
    std::vector<std::unique_ptr<Slot>> storage;
    std::vector<Slot*> expected;
    std::vector<std::uint64_t> labels;
    ActiveList list;
    std::uint64_t moved = 0;
    for (int i = 0; i < insertions; ++i) {
        storage.push_back(Upright(0));
        const std::size_t at = place(expected.size());
        list.InsertBehind(at == 0 ? nullptr : expected[at - 1], storage.back().get());
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at), storage.back().get());
        labels.insert(labels.begin() + static_cast<std::ptrdiff_t>(at), expected[at]->label);
        for (std::size_t k = 0; k < labels.size(); ++k) {
            moved += labels[k] != expected[k]->label ? 1U : 0U;
            labels[k] = expected[k]->label;
        }
    }
    ExpectInOrder(list, expected);
    return moved;
}

TEST(ActiveList, InsertionMovesFewLabels) {
    constexpr int INSERTIONS = 10000;
    constexpr std::uint64_t MOST = 20 * std::uint64_t{INSERTIONS};
    const auto atHead = [](std::size_t) { return std::size_t{0}; };
    const auto behindFirst = [](std::size_t n) { return n == 0 ? n : 1; };
    const auto beforeLast = [](std::size_t n) { return n == 0 ? n : n - 1; };
    const auto inTheMiddle = [](std::size_t n) { return n / 2; };
    EXPECT_LT(LabelsMoved(INSERTIONS, atHead), MOST);
    EXPECT_LT(LabelsMoved(INSERTIONS, behindFirst), MOST);
    EXPECT_LT(LabelsMoved(INSERTIONS, beforeLast), MOST);
    EXPECT_LT(LabelsMoved(INSERTIONS, inTheMiddle), MOST);
}

TEST(ActiveList, SwapsWholeBundles) {
    std::vector<std::unique_ptr<Slot>> storage;
    std::vector<Slot*> slots;
    ActiveList list;
    for (int i = 0; i < 40; ++i) {
        storage.push_back(Upright(i));
        slots.push_back(storage.back().get());
        list.InsertBehind(i == 0 ? nullptr : slots[slots.size() - 2], slots.back());
    }
    // A bundle of the slots 3 to 20, headed by the last, then one of 21 and 22.
    for (std::size_t i = 3; i < 22; ++i) {
        slots[i]->state = BundleState::Tail;
    }
    slots[20]->state = slots[22]->state = BundleState::Head;
    list.SwapBundles(slots[20], slots[22]);
    std::rotate(slots.begin() + 3, slots.begin() + 21, slots.begin() + 23);
    ExpectInOrder(list, slots);
    while (!slots.empty()) { // every slot is still found where it stands
        list.Remove(slots.back());
        slots.pop_back();
        ExpectInOrder(list, slots);
    }
}

TEST(Insertion, FindsThePlaceThatAWalkFromTheHeadWouldFind) {
    std::mt19937_64 random(4);
    int searched = 0;
    for (int round = 0; round < 300; ++round) {
        std::vector<std::unique_ptr<Slot>> storage;
        Block<Slot*> touched("slots");
        ActiveList list;
        for (int i = 0; i < 60; ++i) {
            // Mostly ascending, with inversions in every second round.
            const double jump = round % 2 == 0 ? 0 : static_cast<double>(random() % 7) - 3;
            storage.push_back(Upright(std::floor(i / 3.0) + jump));
            storage.back()->dx = static_cast<double>(random() % 3);
            storage.back()->top.y = 2;
            list.InsertBehind(i == 0 ? nullptr : storage[storage.size() - 2].get(),
                              storage.back().get());
            touched.Append(storage.back().get());
        }
        Insertion insertion(list, false);
        insertion.BeginRow(0, touched);
        const auto bound = Upright(static_cast<double>(random() % 24) - 2);
        bound->dx = static_cast<double>(random() % 3);
        const Slot* expected = nullptr;
        for (const Slot* slot = list.First(); slot != nullptr; slot = slot->next) {
            if (slot->bot.x > bound->bot.x ||
                (slot->bot.x == bound->bot.x && slot->dx > bound->dx)) {
                break;
            }
            expected = slot;
            ++searched;
        }
        EXPECT_EQ(insertion.FindPlace(*bound), expected) << round;
    }
    EXPECT_GT(searched, 1000);
}

// Two edges from the given bottoms to the given tops, y from 0 to 8.
struct Pair {
    Pair(double leftBottom, double leftTop, double rightBottom, double rightTop) {
        Set(left, leftBottom, leftTop);
        Set(right, rightBottom, rightTop);
        left.next = &right;
        right.prev = &left;
    }
    static void Set(Slot& slot, double bottom, double top) {
        slot.bot = {bottom, 0};
        slot.top = {top, 8};
        slot.dx = (top - bottom) / 8;
        slot.error = 0x1p-48 * std::fmax(std::fabs(bottom), std::fabs(top));
    }
    Slot left{};
    Slot right{};
};

// The first of the ordinates 0.25, 0.5, ... at which the pair is looked at; 0 for never.
double FirstLook(Pair& pair, bool checkAlways) {
    PairSchedule schedule(checkAlways);
    schedule.Schedule(pair.right, 0);
    for (double y = 0.25; y <= 8; y += 0.25) {
        if (schedule.IsAnyDue(y)) {
            return y;
        }
    }
    return 0;
}

TEST(PairSchedule, LooksAtAPairWhenItsLinesMeet) {
    Pair meetAtFour(0, 8, 4, 4);
    EXPECT_EQ(FirstLook(meetAtFour, false), 4);
    Pair parallel(0, 3, 4, 7);
    EXPECT_EQ(FirstLook(parallel, false), 0);
    Pair diverging(0, 0, 1, 5);
    EXPECT_EQ(FirstLook(diverging, false), 0);
    Pair apartToTheEnd(0, 4, 8, 5);
    EXPECT_EQ(FirstLook(apartToTheEnd, false), 0);
    Pair touching(1, 1, 1, 5);
    EXPECT_EQ(FirstLook(touching, false), 0.25) << "no gap: in the next scanbeam";
    Pair wrongOrder(3, 3, 1, 1);
    EXPECT_EQ(FirstLook(wrongOrder, false), 0.25);
}

TEST(PairSchedule, LooksAlwaysWhereFormulasMayOverflow) {
    Pair parallel(0, 3, 4, 7);
    EXPECT_EQ(FirstLook(parallel, true), 0.25);
}

TEST(PairSchedule, APairScheduledAgainIsLookedAtOnce) {
    Pair pair(0, 8, 4, 4);
    PairSchedule schedule(false);
    schedule.Schedule(pair.right, 0);
    schedule.Schedule(pair.right, 0);
    Block<Slot*> dirty("slots");
    schedule.TakeDue(5, 1, dirty);
    EXPECT_EQ(dirty.Count(), 1U);
    EXPECT_EQ(schedule.Touched().Count(), 1U);
}

TEST(PairSchedule, EdgesThatStayTogetherAreLeftAlone) {
    Pair same(1, 5, 1, 5);
    same.left.state = BundleState::Tail;
    EXPECT_EQ(FirstLook(same, false), 0);
}

} // namespace
} // namespace geom::detail
