// SPDX-License-Identifier: MIT
#include "geometry/GPCException.h"
#include "geometry/engine/Contours.h"
#include "geometry/engine/Lines.h"
#include "geometry/engine/Strips.h"
#include "tests/support/Exceptions.h"
#include "tests/support/Shapes.h"

#include <gtest/gtest.h>

namespace geom::detail {
namespace {

using test::CopyRing;
using test::ExpectError;
using test::Ring;

TEST(StripList, SurplusOfTheLongerChainComesLastInChainOrder) {
    StripList strips;
    const OutputIndex strip = strips.Begin({0, 0});
    for (int i = 1; i < 4; ++i) {
        strips.Add(strip, LEFT, {0, static_cast<double>(i)});
    }
    strips.Add(strip, RIGHT, {9, 0});
    gpc_tristrip result = strips.TakeResult();
    ASSERT_EQ(result.num_strips, 1);
    EXPECT_EQ(CopyRing(result.strip[0]), (Ring{{0, 0}, {9, 0}, {0, 1}, {0, 2}, {0, 3}}));
    gpc_free_tristrip(&result);
}

TEST(StripList, StripsComeInOrderOfCreationAndShortOnesAreDropped) {
    StripList strips;
    const OutputIndex first = strips.Begin({1, 0});
    const OutputIndex shortOne = strips.Begin({2, 0});
    const OutputIndex last = strips.Begin({3, 0});
    for (const OutputIndex strip : {last, first}) {
        strips.Add(strip, RIGHT, {4, 0});
        strips.Add(strip, LEFT, {5, 0});
    }
    strips.Add(shortOne, RIGHT, {6, 0});
    gpc_tristrip result = strips.TakeResult();
    ASSERT_EQ(result.num_strips, 2);
    EXPECT_EQ(result.strip[0].vertex[0].x, 1);
    EXPECT_EQ(result.strip[1].vertex[0].x, 3);
    gpc_free_tristrip(&result);
}

TEST(StripList, AddingToNoStripIsAnEngineError) {
    StripList strips;
    ExpectError(
        [&] {
            strips.Add(NO_OUTPUT, LEFT, {0, 0});
        },
        "GPC Library", "Gpc", LINE_ADD_TO_NO_STRIP);
}

TEST(ChainForest, MergedChainsKeepTheirOrder) {
    ChainForest chains;
    const OutputIndex p = chains.Begin({1, 0});
    chains.AddRight(p, {2, 0});
    const OutputIndex q = chains.Begin({4, 0});
    chains.AddLeft(q, {3, 0});
    chains.MergeLeft(p, q);
    chains.AddLeft(p, {0, 0}); // the merged chain answers to both names
    chains.AddRight(q, {5, 0});
    gpc_polygon result = chains.TakeResult();
    ASSERT_EQ(result.num_contours, 1);
    EXPECT_EQ(CopyRing(result.contour[0]), (Ring{{5, 0}, {4, 0}, {3, 0}, {2, 0}, {1, 0}, {0, 0}}));
    EXPECT_EQ(result.hole[0], 1) << "closed to the left: a hole";
    gpc_free_polygon(&result);
}

TEST(ChainForest, MergeOfAChainWithItselfOnlyDecidesWhatItIs) {
    ChainForest chains;
    const OutputIndex chain = chains.Begin({1, 0});
    chains.AddRight(chain, {2, 0});
    chains.AddRight(chain, {2, 2});
    chains.MergeLeft(chain, chain);
    chains.MergeRight(chain, chain);
    gpc_polygon result = chains.TakeResult();
    ASSERT_EQ(result.num_contours, 1);
    EXPECT_EQ(result.contour[0].num_vertices, 3);
    EXPECT_EQ(result.hole[0], 0);
    gpc_free_polygon(&result);
}

TEST(ChainForest, NewestContourComesFirstAndSliversAreDropped) {
    ChainForest chains;
    for (int i = 0; i < 3; ++i) {
        const auto x = static_cast<double>(i);
        const OutputIndex chain = chains.Begin({x, 0});
        chains.AddRight(chain, {x, 1});
        if (i != 1) {
            chains.AddRight(chain, {x, 2});
        }
    }
    gpc_polygon result = chains.TakeResult();
    ASSERT_EQ(result.num_contours, 2);
    EXPECT_EQ(result.contour[0].vertex[0].x, 2);
    EXPECT_EQ(result.contour[1].vertex[0].x, 0);
    gpc_free_polygon(&result);
}

TEST(ChainForest, WorkOnNothingIsAnEngineError) {
    ChainForest chains;
    const OutputIndex chain = chains.Begin({1, 0});
    const auto expect = [](const auto& call, int line) {
        ExpectError(call, "GPC Library", "Gpc", line);
    };
    expect([&] { chains.AddLeft(NO_OUTPUT, {0, 0}); }, LINE_ADD_LEFT_TO_NOTHING);
    expect([&] { chains.AddRight(NO_OUTPUT, {0, 0}); }, LINE_ADD_RIGHT_TO_NOTHING);
    expect([&] { chains.MergeLeft(NO_OUTPUT, chain); }, LINE_MERGE_WITH_NOTHING);
    expect([&] { chains.MergeLeft(chain, NO_OUTPUT); }, LINE_MERGE_WITH_NOTHING);
    expect([&] { chains.MergeRight(NO_OUTPUT, chain); }, LINE_MERGE_WITH_NOTHING);
    expect([&] { chains.MergeRight(chain, NO_OUTPUT); }, LINE_MERGE_WITH_NOTHING);
}

Slot SlotWithoutOutput() {
    Slot slot{};
    slot.outp[ABOVE] = slot.outp[BELOW] = NO_OUTPUT;
    return slot;
}

TEST(StripOutput, EventsThatNeedACarriedEdgeAreEngineErrorsWithoutOne) {
    for (const VertexClass c :
         {VertexClass::ExternalMaximum, VertexClass::ExternalRightIntermediate,
          VertexClass::InternalMinimum, VertexClass::RightEdge}) {
        StripOutput output;
        Slot slot = SlotWithoutOutput();
        output.BeginRun();
        ExpectError(
            [&] {
                output.AtBoundary(c, slot, {0, 0});
            },
            "GPC Library", "Gpc", LINE_NO_CARRIED_EDGE);
    }
}

TEST(StripOutput, CrossingWithoutLiveNeighboursIsAnEngineError) {
    StripOutput output;
    Slot left = SlotWithoutOutput();
    Slot right = SlotWithoutOutput();
    left.next = &right;
    right.prev = &left;
    ExpectError(
        [&] {
            output.AtCrossing(VertexClass::InternalMinimum, left, right, {0, 0});
        },
        "GPC Library", "Gpc", LINE_NO_PREVIOUS_LIVE_EDGE);
    output.AtCrossing(VertexClass::ExternalMinimum, left, right, {0, 0});
    ExpectError(
        [&] {
            output.AtCrossing(VertexClass::ExternalLeftIntermediate, left, right, {0, 0});
        },
        "GPC Library", "Gpc", LINE_NO_NEXT_LIVE_EDGE);
}

} // namespace
} // namespace geom::detail
