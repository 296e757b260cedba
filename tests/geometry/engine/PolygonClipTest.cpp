// SPDX-License-Identifier: MIT
#include "geometry/Gpc.h"
#include "tests/support/Exceptions.h"
#include "tests/support/Shapes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace geom {
namespace {

using test::Area;
using test::Clip;
using test::Contours;
using test::Ring;
using test::Shape;
using test::Square;

constexpr gpc_op OPERATIONS[] = {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION};
const Shape NOTHING;

gpc_polygon Copy(const Shape& shape) {
    gpc_polygon copy = {0, nullptr, nullptr};
    const gpc_polygon* record = shape.Record();
    for (int c = 0; c < record->num_contours; ++c) {
        gpc_add_contour(&copy, &record->contour[c], 0);
    }
    return copy;
}

TEST(PolygonClip, CodesOfTheOperationsAreFixed) {
    static_assert(GPC_DIFF == 0 && GPC_INT == 1 && GPC_XOR == 2 && GPC_UNION == 3);
    static_assert(sizeof(gpc_op) == 4);
}

TEST(PolygonClip, OverlappingSquaresIntersectInTheirCommonPart) {
    const Contours result = Clip(GPC_INT, {Square(0, 0, 4)}, {Square(2, 1, 4)});
    ASSERT_EQ(result.rings.size(), 1U);
    EXPECT_EQ(result.rings[0], (Ring{{4, 1}, {2, 1}, {2, 4}, {4, 4}}));
    EXPECT_EQ(result.holes[0], 0);
}

TEST(PolygonClip, AreasOfOverlappingSquares) {
    const Shape a{Square(0, 0, 4)};
    const Shape b{Square(2, 1, 4)};
    EXPECT_EQ(Area(Clip(GPC_INT, a, b)), 6);
    EXPECT_EQ(Area(Clip(GPC_DIFF, a, b)), 10);
    EXPECT_EQ(Area(Clip(GPC_UNION, a, b)), 26);
    EXPECT_EQ(Area(Clip(GPC_XOR, a, b)), 20);
}

TEST(PolygonClip, EmptySubjectGivesTheEmptyResultOrTheClip) {
    const Shape clip{Square(0, 0, 1)};
    EXPECT_TRUE(Clip(GPC_DIFF, NOTHING, clip).rings.empty());
    EXPECT_TRUE(Clip(GPC_INT, NOTHING, clip).rings.empty());
    EXPECT_EQ(Area(Clip(GPC_XOR, NOTHING, clip)), 1);
    EXPECT_EQ(Area(Clip(GPC_UNION, NOTHING, clip)), 1);
}

TEST(PolygonClip, EmptyClipGivesTheEmptyResultOrTheSubject) {
    const Shape subject{Square(0, 0, 1)};
    EXPECT_TRUE(Clip(GPC_INT, subject, NOTHING).rings.empty());
    EXPECT_EQ(Area(Clip(GPC_DIFF, subject, NOTHING)), 1);
    EXPECT_EQ(Area(Clip(GPC_XOR, subject, NOTHING)), 1);
    EXPECT_EQ(Area(Clip(GPC_UNION, subject, NOTHING)), 1);
}

TEST(PolygonClip, TwoEmptyOperandsGiveTheEmptyRecord) {
    for (const gpc_op operation : OPERATIONS) {
        gpc_polygon result = {7, reinterpret_cast<int*>(&result), nullptr};
        gpc_polygon_clip(operation, NOTHING.Record(), NOTHING.Record(), &result);
        EXPECT_EQ(result.num_contours, 0);
        EXPECT_EQ(result.hole, nullptr);
        EXPECT_EQ(result.contour, nullptr);
    }
}

TEST(PolygonClip, DifferenceWithAClipFarAwayKeepsTheSubject) {
    const Shape subject{{{0, 0}, {4, 1}, {2, 5}}};
    const Contours pruned = Clip(GPC_DIFF, subject, {Square(100, 100, 1)});
    const Contours alone = Clip(GPC_DIFF, subject, NOTHING);
    EXPECT_EQ(pruned.rings, alone.rings);
    EXPECT_EQ(Area(pruned), Area(alone));
}

TEST(PolygonClip, BoxesThatOnlyTouchAreNotPruned) {
    // A pruned clip square would not split the subject's boundary at the shared corner.
    const Shape subject{Square(0, 0, 2)};
    const Contours result = Clip(GPC_DIFF, subject, {Square(2, 1, 1)});
    EXPECT_EQ(Area(result), 4);
    ASSERT_EQ(result.rings.size(), 1U);
    EXPECT_EQ(result.rings[0].size(), 5U);
    EXPECT_EQ(Clip(GPC_DIFF, subject, {Square(2.5, 1, 1)}).rings[0].size(), 4U);
}

TEST(PolygonClip, ContourOnOneLineContributesNothing) {
    const Shape flat{{{0, 3}, {5, 3}, {2, 3}}};
    for (const gpc_op operation : {GPC_XOR, GPC_UNION, GPC_DIFF}) {
        EXPECT_TRUE(Clip(operation, flat, NOTHING).rings.empty());
    }
    EXPECT_EQ(Area(Clip(GPC_UNION, flat, {Square(0, 0, 2)})), 4);
    const Shape steep{{{0, 0}, {2, 4}, {1, 2}}};
    EXPECT_TRUE(Clip(GPC_UNION, steep, NOTHING).rings.empty());
}

TEST(PolygonClip, ContoursOfFewVerticesContributeNothing) {
    const Shape few({Ring{}, Ring{{1, 1}}, Ring{{1, 1}, {1, 9}}, Ring{{0, 0}, {3, 0}}});
    const Shape square{Square(0, 0, 4)};
    EXPECT_TRUE(Clip(GPC_UNION, few, NOTHING).rings.empty());
    EXPECT_EQ(Area(Clip(GPC_UNION, few, square)), 16);
    EXPECT_TRUE(Clip(GPC_INT, few, square).rings.empty());
    EXPECT_EQ(Area(Clip(GPC_DIFF, square, few)), 16);
}

TEST(PolygonClip, SliverOfTwoVerticesIsDropped) {
    // The two triangles share one side and overlap nowhere.
    const Shape left{{{0, 0}, {2, 0}, {1, 3}}};
    const Shape right{{{2, 0}, {4, 3}, {1, 3}}};
    EXPECT_TRUE(Clip(GPC_INT, left, right).rings.empty());
}

TEST(PolygonClip, HoleComesOutAsAHole) {
    const Contours result = Clip(GPC_DIFF, {Square(0, 0, 9)}, {Square(3, 3, 2)});
    ASSERT_EQ(result.rings.size(), 2U);
    EXPECT_EQ(result.holes[0] + result.holes[1], 1);
    EXPECT_EQ(Area(result), 77);
}

TEST(PolygonClip, HoleFlagsOfTheOperandsAreIgnored) {
    const Shape shape({Square(0, 0, 9), Square(3, 3, 2)});
    gpc_polygon flagged = Copy(shape);
    flagged.hole[0] = 1; // wrong on purpose: inside is decided by parity
    flagged.hole[1] = 1;
    gpc_polygon result = {0, nullptr, nullptr};
    gpc_polygon_clip(GPC_UNION, &flagged, NOTHING.Record(), &result);
    ASSERT_EQ(result.num_contours, 2);
    EXPECT_EQ(result.hole[0] + result.hole[1], 1);
    gpc_free_polygon(&result);
    gpc_free_polygon(&flagged);
}

TEST(PolygonClip, SharedBordersDissolveInAUnionWithNothing) {
    const Shape tiles({Square(0, 0, 2), Square(2, 0, 2)});
    const Contours result = Clip(GPC_UNION, tiles, NOTHING);
    ASSERT_EQ(result.rings.size(), 1U);
    EXPECT_EQ(Area(result), 8);
}

TEST(PolygonClip, SelfIntersectingContourIsReadByParity) {
    const Shape bowTie{{{0, 0}, {4, 4}, {4, 0}, {0, 4}}};
    EXPECT_EQ(Area(Clip(GPC_UNION, bowTie, NOTHING)), 8);
}

TEST(PolygonClip, ResultMayReplaceTheSubject) {
    gpc_polygon subject = Copy({Square(0, 0, 4)});
    const Shape clip{Square(2, 1, 4)};
    gpc_polygon_clip(GPC_INT, &subject, clip.Record(), &subject);
    ASSERT_EQ(subject.num_contours, 1);
    EXPECT_EQ(test::CopyRing(subject.contour[0]), (Ring{{4, 1}, {2, 1}, {2, 4}, {4, 4}}));
    gpc_free_polygon(&subject);
}

TEST(PolygonClip, ResultMayReplaceTheClip) {
    gpc_polygon clip = Copy({Square(2, 1, 4)});
    const Shape subject{Square(0, 0, 4)};
    gpc_polygon_clip(GPC_DIFF, subject.Record(), &clip, &clip);
    ASSERT_EQ(clip.num_contours, 1);
    EXPECT_EQ(clip.contour[0].num_vertices, 6);
    gpc_free_polygon(&clip);
}

TEST(PolygonClip, OneRecordMayBeBothOperandsAndTheResult) {
    gpc_polygon both = Copy({Square(0, 0, 4)});
    gpc_polygon_clip(GPC_UNION, &both, &both, &both);
    ASSERT_EQ(both.num_contours, 1);
    gpc_polygon_clip(GPC_XOR, &both, &both, &both);
    EXPECT_EQ(both.num_contours, 0);
    EXPECT_EQ(both.contour, nullptr);
}

TEST(PolygonClip, TrivialResultReleasesTheRecordThatItReplaces) {
    gpc_polygon subject = Copy({Square(0, 0, 4)});
    gpc_polygon_clip(GPC_INT, &subject, NOTHING.Record(), &subject);
    EXPECT_EQ(subject.num_contours, 0);
    EXPECT_EQ(subject.contour, nullptr);
}

TEST(PolygonClip, EverythingPrunedReleasesTheRecordThatItReplaces) {
    gpc_polygon subject = Copy({Square(0, 0, 4)});
    gpc_polygon_clip(GPC_INT, &subject, Shape({Square(10, 10, 1)}).Record(), &subject);
    EXPECT_EQ(subject.num_contours, 0);
    EXPECT_EQ(subject.contour, nullptr);
}

TEST(PolygonClip, OperandsAreNotChanged) {
    gpc_polygon subject = Copy({Square(0, 0, 4), Square(50, 50, 1)});
    const gpc_polygon before = subject;
    gpc_polygon result = {0, nullptr, nullptr};
    gpc_polygon_clip(GPC_INT, &subject, Shape({Square(2, 1, 4), Square(90, 9, 1)}).Record(),
                     &result);
    EXPECT_EQ(std::memcmp(&before, &subject, sizeof before), 0);
    EXPECT_EQ(subject.contour[1].num_vertices, 4) << "pruned contours are not marked in the record";
    gpc_free_polygon(&subject);
    gpc_free_polygon(&result);
}

TEST(PolygonClip, EdgesWithinTheMachineEpsilonAreOneBundle) {
    // The right sides of two squares, this far apart.
    const auto contours = [](double apart) {
        const Shape a{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
        const Shape b{{{0, 0}, {1 + apart, 0}, {1 + apart, 1}, {0, 1}}};
        return Clip(GPC_XOR, a, b).rings.size();
    };
    EXPECT_EQ(contours(0x1p-52), 0U);
    EXPECT_EQ(contours(0x1p-51), 1U);
}

TEST(PolygonClip, NegativeAndMissingCountsAreNothing) {
    gpc_vertex vertex = {1, 2};
    gpc_vertex_list lists[] = {{-5, &vertex}, {3, nullptr}};
    const gpc_polygon odd = {2, nullptr, lists};
    const gpc_polygon negative = {-1, nullptr, lists};
    const gpc_polygon missing = {2, nullptr, nullptr};
    const Shape square{Square(0, 0, 2)};
    for (const gpc_polygon* polygon : {&odd, &negative, &missing}) {
        for (const gpc_op operation : OPERATIONS) {
            gpc_polygon result = {0, nullptr, nullptr};
            gpc_polygon_clip(operation, polygon, square.Record(), &result);
            EXPECT_EQ(result.num_contours, operation == GPC_XOR || operation == GPC_UNION ? 1 : 0);
            gpc_free_polygon(&result);
        }
    }
}

TEST(PolygonClip, CoordinatesNearTheLargestDoubleEndInAResultOrAnException) {
    const double huge = std::numeric_limits<double>::max();
    const Shape shapes[] = {Shape{{{-huge, -huge}, {huge, -huge}, {huge, huge}, {-huge, huge}}},
                            Shape{{{-huge, 0}, {huge, -1}, {0, huge}, {huge, huge}}},
                            Shape{{{0, -huge}, {huge, huge}, {-huge, 1}}}};
    int finished = 0;
    for (const Shape& a : shapes) {
        for (const Shape& b : shapes) {
            for (const gpc_op operation : OPERATIONS) {
                try {
                    Clip(operation, a, b);
                } catch (const kit::Exception&) {
                }
                ++finished;
            }
        }
    }
    EXPECT_EQ(finished, 36);
}

} // namespace
} // namespace geom
