// SPDX-License-Identifier: MIT
#include "geometry/engine/Classification.h"

#include "geometry/GPCException.h"
#include "geometry/engine/Lines.h"
#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

namespace geom::detail {
namespace {

constexpr gpc_op OPERATIONS[] = {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION};

TEST(NextHorizontalState, EveryEntry) {
    constexpr auto NH = Horizontal::None;
    constexpr auto BH = Horizontal::Bottom;
    constexpr auto TH = Horizontal::Top;
    const Horizontal expected[3][6] = {
        {BH, TH, TH, BH, NH, NH}, {NH, NH, NH, NH, TH, TH}, {NH, NH, NH, NH, BH, BH}};
    for (int state = 0; state < 3; ++state) {
        for (int column = 0; column < 6; ++column) {
            EXPECT_EQ(NextHorizontalState(static_cast<Horizontal>(state), column),
                      expected[state][column])
                << state << ", " << column;
        }
    }
}

TEST(NextHorizontalState, ColumnOutsideTheTableIsAnEngineError) {
    for (const int column : {-1, 6, 1000, -1000}) {
        EXPECT_THROW(NextHorizontalState(Horizontal::None, column), GPCException);
        test::ExpectError([column] { NextHorizontalState(Horizontal::None, column); },
                          "GPC Library", "Gpc", LINE_HORIZONTAL_COLUMN);
    }
}

// One event of one operand: whether it has an edge above and below, the parity on its left, and
// whether a horizontal is pending there.
struct EventState {
    unsigned above, below, parity, horizontal;
};

EventState Unpack(unsigned bits) {
    return {bits & 1U, bits >> 1U & 1U, bits >> 2U & 1U, bits >> 3U & 1U};
}

bool Contributes(gpc_op operation, const EventState& clip, const EventState& subject) {
    const bool clipExists = clip.above + clip.below != 0;
    const bool subjectExists = subject.above + subject.below != 0;
    switch (operation) {
    case GPC_XOR: return clipExists || subjectExists;
    case GPC_UNION:
        return (clipExists && (subject.parity == 0 || subject.horizontal != 0)) ||
               (subjectExists && (clip.parity == 0 || clip.horizontal != 0)) ||
               (clipExists && subjectExists && clip.parity == subject.parity);
    default:
        return (clipExists && (subject.parity != 0 || subject.horizontal != 0)) ||
               (subjectExists && (clip.parity != 0 || clip.horizontal != 0)) ||
               (clipExists && subjectExists && clip.parity == subject.parity);
    }
}

bool Combine(gpc_op operation, unsigned clip, unsigned subject) {
    switch (operation) {
    case GPC_XOR: return (clip ^ subject) != 0;
    case GPC_UNION: return (clip | subject) != 0;
    default: return (clip & subject) != 0;
    }
}

unsigned ExpectedClass(gpc_op operation, const EventState& c, const EventState& s) {
    const bool br = Combine(operation, c.parity, s.parity);
    const bool bl = Combine(operation, c.parity ^ c.above, s.parity ^ s.above);
    const bool tr = Combine(operation, c.parity ^ c.horizontal, s.parity ^ s.horizontal);
    const bool tl =
        Combine(operation, c.parity ^ c.horizontal ^ c.below, s.parity ^ s.horizontal ^ s.below);
    return (tr ? 1U : 0U) + (tl ? 2U : 0U) + (br ? 4U : 0U) + (bl ? 8U : 0U);
}

bool HasAction(unsigned vertexClass) {
    return vertexClass != 0 && vertexClass != 3 && vertexClass != 12 && vertexClass != 15;
}

Slot EventSlot(const EventState& clip, const EventState& subject) {
    Slot slot{};
    slot.flags[ABOVE] = static_cast<RoleMask>(clip.above << CLIP | subject.above << SUBJECT);
    slot.flags[BELOW] = static_cast<RoleMask>(clip.below << CLIP | subject.below << SUBJECT);
    return slot;
}

// Brings a classifier to a parity and a pending horizontal of one operand: an edge that passes
// through turns the parity; an edge above only leaves a horizontal pending.
void Prepare(RowClassifier& classifier, gpc_op operation, Role role, const EventState& wanted) {
    const auto step = [&](unsigned above, unsigned below) {
        const EventState none = {0, 0, 0, 0};
        const EventState event = {above, below, 0, 0};
        Slot slot = role == CLIP ? EventSlot(event, none) : EventSlot(none, event);
        classifier.Classify(slot);
    };
    unsigned parity = OuterSides(operation) >> role & 1U;
    if (wanted.horizontal != 0) {
        step(1, 0);
        parity ^= 1U;
    }
    if (parity != wanted.parity) {
        step(1, 1);
    }
}

// An edge on one side only ends a pending horizontal, or begins one.
bool HasPendingBehind(const EventState& event) {
    return (event.horizontal != 0) != (event.above != event.below);
}

TEST(RowClassifier, EveryStateOfBothOperandsGivesTheQuadrantsOfTheResult) {
    int states = 0;
    for (const gpc_op operation : OPERATIONS) {
        for (unsigned c = 0; c < 16; ++c) {
            for (unsigned s = 0; s < 16; ++s) {
                const EventState clip = Unpack(c);
                const EventState subject = Unpack(s);
                RowClassifier classifier(operation);
                Prepare(classifier, operation, CLIP, clip);
                Prepare(classifier, operation, SUBJECT, subject);
                Slot slot = EventSlot(clip, subject);
                const auto vertexClass = static_cast<unsigned>(classifier.Classify(slot));
                EXPECT_EQ(vertexClass, ExpectedClass(operation, clip, subject))
                    << operation << " " << c << " " << s;
                EXPECT_EQ(slot.sides, clip.parity << CLIP | subject.parity << SUBJECT);
                EXPECT_EQ(classifier.HasPending(),
                          HasPendingBehind(clip) || HasPendingBehind(subject));
                ++states;
            }
        }
    }
    EXPECT_EQ(states, 1024);
}

TEST(RowClassifier, AnEdgeThatDoesNotContributeGetsAClassWithoutAnAction) {
    int silent = 0;
    for (const gpc_op operation : OPERATIONS) {
        for (unsigned bits = 0; bits < 256; ++bits) {
            const EventState clip = Unpack(bits & 15U);
            const EventState subject = Unpack(bits >> 4U);
            if (!Contributes(operation, clip, subject)) {
                EXPECT_FALSE(HasAction(ExpectedClass(operation, clip, subject)))
                    << operation << " " << bits;
                ++silent;
            }
        }
    }
    EXPECT_GT(silent, 100);
}

TEST(RowClassifier, StartsWithTheParitiesBehindASlot) {
    RowClassifier classifier(GPC_DIFF);
    EXPECT_FALSE(classifier.IsInside());
    Slot slot = EventSlot({0, 0, 0, 0}, {1, 1, 0, 0});
    slot.sides = 1U << CLIP;
    classifier.StartBehind(&slot);
    EXPECT_TRUE(classifier.IsInside()) << "inside the subject and outside the clip";
    classifier.StartBehind(nullptr);
    EXPECT_FALSE(classifier.IsInside());
}

TEST(ClassifyCrossing, TwoEdgesOfOneOperandAlone) {
    // Inside lies between the two edges below the crossing, and again above it.
    Slot left = EventSlot({0, 0, 0, 0}, {1, 0, 0, 0});
    Slot right = left;
    left.sides = 0;
    right.sides = 1U << SUBJECT;
    EXPECT_EQ(ClassifyCrossing(GPC_UNION, left, right), VertexClass::ExternalMaximumAndMinimum);
    left.sides = 1U << SUBJECT;
    right.sides = 0;
    EXPECT_EQ(ClassifyCrossing(GPC_UNION, left, right), VertexClass::InternalMaximumAndMinimum);
}

TEST(ClassifyCrossing, LeftEdgesOfBothOperands) {
    // Inside the clip lies right of the left edge, inside the subject right of the right one.
    Slot left = EventSlot({1, 0, 0, 0}, {0, 0, 0, 0});
    Slot right = EventSlot({0, 0, 0, 0}, {1, 0, 0, 0});
    left.sides = 0;
    right.sides = 1U << CLIP;
    EXPECT_EQ(ClassifyCrossing(GPC_INT, left, right), VertexClass::ExternalLeftIntermediate);
    EXPECT_EQ(ClassifyCrossing(GPC_UNION, left, right), VertexClass::InternalLeftIntermediate);
}

TEST(ClassifySuccession, IsABoundaryOnlyWhereTheResultChanges) {
    Slot slot = EventSlot({0, 0, 0, 0}, {1, 1, 0, 0});
    slot.sides = 1U << CLIP;
    EXPECT_EQ(ClassifySuccession(GPC_INT, slot), VertexClass::LeftEdge);
    EXPECT_EQ(ClassifySuccession(GPC_UNION, slot), VertexClass::Full);
    EXPECT_EQ(ClassifySuccession(GPC_XOR, slot), VertexClass::RightEdge);
    slot.sides = 0;
    EXPECT_EQ(ClassifySuccession(GPC_INT, slot), VertexClass::Empty);
}

} // namespace
} // namespace geom::detail
