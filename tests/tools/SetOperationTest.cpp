// SPDX-License-Identifier: MIT
#include "tools/geomtool/SetOperation.h"

#include "tests/tools/Shapes.h"
#include "tools/geomtool/GpcConversion.h"
#include "tools/geomtool/Progress.h"

namespace geomtool {
namespace {

using test::External;
using test::Hole;
using test::Square;

class SetOperations : public ::testing::Test {
protected:
    PolygonSet Each(SetOperation operation, const PolygonSet& a, const PolygonSet& b) {
        return CombineEach(operation, a, b, m_progress);
    }

private:
    Progress m_progress{Progress::Sink(), std::chrono::milliseconds(0),
                        std::chrono::milliseconds(1)};
};

const PolygonSet LEFT{{External(Square(-1, 0, 1))}};
const PolygonSet MIDDLE{{External(Square(0, 0, 1))}};
/// Two squares with a common edge.
const PolygonSet NEIGHBOURS{{External(Square(-1, 0, 1)), External(Square(1, 0, 1))}};
/// Two squares that overlap by half.
const PolygonSet OVERLAPPING{{External(Square(-1, 0, 1)), External(Square(0, 0, 1))}};

TEST_F(SetOperations, CombineTwoOperands) {
    EXPECT_EQ(Combine(SetOperation::Intersection, LEFT, MIDDLE).Area(), 2);
    EXPECT_EQ(Combine(SetOperation::Union, LEFT, MIDDLE).Area(), 6);
    EXPECT_EQ(Combine(SetOperation::Difference, LEFT, MIDDLE).Area(), 2);
    EXPECT_EQ(Combine(SetOperation::Xor, LEFT, MIDDLE).Area(), 4);
}

TEST_F(SetOperations, OneOperandLosesTheBordersThatItsPolygonsShare) {
    const PolygonSet merged = Combine(SetOperation::Union, NEIGHBOURS, {});
    EXPECT_EQ(merged.rings.size(), 1u);
    EXPECT_EQ(merged.Area(), 8);
}

TEST_F(SetOperations, OverlapsCancelUnlessUnitedOneByOne) {
    EXPECT_EQ(Combine(SetOperation::Union, OVERLAPPING, {}).Area(), 4);
    EXPECT_EQ(Each(SetOperation::Union, OVERLAPPING, {}).Area(), 6);
    EXPECT_EQ(Each(SetOperation::Union, OVERLAPPING, NEIGHBOURS).Area(), 8);
}

TEST_F(SetOperations, UnionOneByOneTakesAnyNumberOfPolygons) {
    PolygonSet row;
    EXPECT_EQ(Each(SetOperation::Union, row, {}).rings.size(), 0u);
    for (int i = 0; i < 9; ++i) {
        row.rings.push_back(External(Square(i, 0, .75)));
        const PolygonSet united = Each(SetOperation::Union, row, {});
        EXPECT_EQ(united.rings.size(), 1u);
        EXPECT_EQ(united.Area(), 1.5 * (i + 1.5));
    }
}

TEST_F(SetOperations, UnionOneByOneKeepsHoles) {
    const PolygonSet frame{{External(Square(0, 0, 3)), Hole(Square(0, 0, 2))}};
    EXPECT_EQ(Each(SetOperation::Union, frame, {}).Area(), 20);
    EXPECT_EQ(Each(SetOperation::Union, frame, MIDDLE).Area(), 24);
}

TEST_F(SetOperations, CutOneByOneKeepsBordersBetweenNeighbours) {
    const PolygonSet clipped = Each(SetOperation::Intersection, NEIGHBOURS, MIDDLE);
    EXPECT_EQ(clipped.rings.size(), 2u);
    EXPECT_EQ(clipped.Area(), 4);
    const PolygonSet cut = Each(SetOperation::Difference, NEIGHBOURS, MIDDLE);
    EXPECT_EQ(cut.rings.size(), 2u);
    EXPECT_EQ(cut.Area(), 4);
    EXPECT_EQ(Combine(SetOperation::Intersection, NEIGHBOURS, MIDDLE).rings.size(), 1u);
}

TEST_F(SetOperations, FarPolygonsAreLostOrKeptWhole) {
    const PolygonSet far{{External(Square(100, 0, 1)), External(Square(-1, 0, 1))}};
    EXPECT_EQ(Each(SetOperation::Intersection, far, MIDDLE).Area(), 2);
    const PolygonSet rest = Each(SetOperation::Difference, far, MIDDLE);
    ASSERT_EQ(rest.rings.size(), 2u);
    EXPECT_TRUE(rest.rings[0].points == far.rings[0].points);
    EXPECT_EQ(rest.Area(), 6);
    EXPECT_EQ(Each(SetOperation::Difference, far, {}).Area(), 8);
    EXPECT_EQ(Each(SetOperation::Intersection, far, {}).rings.size(), 0u);
}

TEST(GpcConversion, KeepsContoursAndFlags) {
    const PolygonSet shapes{{Hole(Square(0, 0, 1)), External({}), External({{1, 2}, {3, 4}})}};
    test::ExpectSame(ToPolygonSet(ToGpcPolygon(shapes)), shapes);
    test::ExpectSame(ToPolygonSet(ToGpcPolygon({})), {});
    EXPECT_EQ(ToGpcPolygon(shapes).GetBBox(), geom::Box2d(-1, -1, 3, 4));
}

} // namespace
} // namespace geomtool
