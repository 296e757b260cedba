// SPDX-License-Identifier: MIT
//
// The second attempt in single precision. A sound engine gives no occasion for it, so this
// program puts one that fails at will in its place: the functions below are found before those
// of the library's archive.
#include "geometry/geom.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <utility>

namespace geom {
namespace {

using test::ExpectError;
using test::PolygonOf;
using test::Text;
using testing::ElementsAre;
using testing::IsEmpty;

/// What the engine in this program does and what it has seen.
struct Engine {
    enum Failure { GPC_EXCEPTION, OUT_OF_MEMORY };

    int failuresLeft = 0;
    Failure failure = GPC_EXCEPTION;
    bool records = true;
    std::vector<gpc_op> operations;
    std::vector<std::string> subjects;
    std::vector<std::string> clips;

    void Enter(gpc_op operation, const gpc_polygon& subject, const gpc_polygon& clip) {
        if (records) {
            operations.push_back(operation);
            subjects.push_back(Text(subject));
            clips.push_back(Text(clip));
        }
    }

    void FailIfAsked() {
        if (failuresLeft == 0) {
            return;
        }
        --failuresLeft;
        if (failure == OUT_OF_MEMORY) {
            throw Exception("GPC Library", "Gpc", 2, "GPCAlloc failure: test", false);
        }
        throw GPCException("Gpc", 1);
    }
};

Engine engine;

gpc_polygon TakeCopy(const gpc_polygon& polygon) {
    GpcPolygon copy;
    for (int i = 0; i < polygon.num_contours; ++i) {
        gpc_add_contour(&copy, &polygon.contour[i], polygon.hole[i]);
    }
    return std::exchange(static_cast<gpc_polygon&>(copy), gpc_polygon{0, nullptr, nullptr});
}

} // namespace

// The result is a copy of the subject, or rubbish when the call fails.
void gpc_polygon_clip(gpc_op operation, const gpc_polygon* subject, const gpc_polygon* clip,
                      gpc_polygon* result) {
    engine.Enter(operation, *subject, *clip);
    *result = {99, nullptr, nullptr};
    engine.FailIfAsked();
    *result = TakeCopy(*subject);
}

void gpc_tristrip_clip(gpc_op, const gpc_polygon*, const gpc_polygon*, gpc_tristrip*) {
    throw std::logic_error("not called by GpcPolygon");
}

// Each contour is a strip.
void gpc_polygon_to_tristrip(const gpc_polygon* polygon, gpc_tristrip* result) {
    engine.Enter(GPC_DIFF, *polygon, {0, nullptr, nullptr});
    *result = {99, nullptr};
    engine.FailIfAsked();
    const gpc_polygon copy = TakeCopy(*polygon);
    std::free(copy.hole);
    *result = {copy.num_contours, copy.contour};
}

namespace {

// 0.1 and its nearest single-precision value.
constexpr const char* FINE = "0.10000000000000001 0, 8 0, 0 8";
constexpr const char* ROUNDED = "0.10000000149011612 0, 8 0, 0 8";

class GpcPolygonRetry : public testing::Test {
protected:
    GpcPolygonRetry() { engine = Engine(); }
};

TEST_F(GpcPolygonRetry, SuccessIsNotRepeated) {
    GpcPolygon polygon = PolygonOf(FINE);
    polygon.Union(PolygonOf("0.3 1, 2 1, 1 2"));
    EXPECT_THAT(engine.subjects, ElementsAre(FINE));
    EXPECT_THAT(engine.operations, ElementsAre(GPC_UNION));
    EXPECT_EQ(Text(polygon), FINE);
}

TEST_F(GpcPolygonRetry, FailedOperationIsRepeatedOnRoundedCopies) {
    engine.failuresLeft = 1;
    GpcPolygon polygon = PolygonOf(FINE);
    const GpcPolygon other = PolygonOf("0.29999999999999999 1, 2 1, 1 2");
    polygon.XOR(other);
    EXPECT_THAT(engine.operations, ElementsAre(GPC_XOR, GPC_XOR));
    EXPECT_THAT(engine.subjects, ElementsAre(FINE, ROUNDED));
    EXPECT_THAT(engine.clips,
                ElementsAre("0.29999999999999999 1, 2 1, 1 2", "0.30000001192092896 1, 2 1, 1 2"));
    EXPECT_EQ(Text(polygon), ROUNDED) << "the second result";
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 8, 8));
    EXPECT_EQ(Text(other), "0.29999999999999999 1, 2 1, 1 2") << "only its copy is rounded";
}

TEST_F(GpcPolygonRetry, SecondFailurePassesAndChangesNothing) {
    engine.failuresLeft = 2;
    GpcPolygon polygon = PolygonOf(FINE);
    EXPECT_THROW(polygon.Difference(PolygonOf("1 1, 2 1, 1 2")), GPCException);
    EXPECT_EQ(engine.operations.size(), 2u);
    EXPECT_EQ(Text(polygon), FINE);
    EXPECT_EQ(polygon.GetBBox(), Box2d(0, 0, 8, 8));
}

TEST_F(GpcPolygonRetry, OtherFailuresAreNotRepeated) {
    engine.failuresLeft = 1;
    engine.failure = Engine::OUT_OF_MEMORY;
    GpcPolygon polygon = PolygonOf(FINE);
    const auto intersect = [&] { polygon.Intersection(PolygonOf("1 1, 2 1, 1 2")); };
    ExpectError(intersect, "GPC Library", "Gpc", 2, "GPCAlloc failure: test");
    EXPECT_THAT(engine.operations, ElementsAre(GPC_INT));
    EXPECT_EQ(Text(polygon), FINE);
}

TEST_F(GpcPolygonRetry, PointInsideRepeatsItsIntersections) {
    engine.failuresLeft = 1;
    const GpcPolygon polygon = PolygonOf(FINE);
    EXPECT_TRUE(polygon.PointInside({0.1, 0}));
    EXPECT_THAT(engine.subjects, ElementsAre(FINE, ROUNDED, FINE))
        << "the rounded copy has no vertex at the point, so the second quadrant is asked";
}

TEST_F(GpcPolygonRetry, ReturnPathsAreRemovedInTheSecondAttempt) {
    engine.failuresLeft = 1;
    GpcPolygon polygon = PolygonOf(FINE);
    polygon.RemoveZeroWidthReturnPaths();
    EXPECT_THAT(engine.clips, ElementsAre("0 0, 8 0, 8 8, 0 8", "0 0, 8 0, 8 8, 0 8"));
    EXPECT_EQ(Text(polygon), ROUNDED);
}

bool Collect(const Vec2d* pts, unsigned int n, void* user) {
    static_cast<std::vector<std::string>*>(user)->push_back(Text(std::vector<Vec2d>(pts, pts + n)));
    return true;
}

TEST_F(GpcPolygonRetry, FailedDecompositionIsRepeatedOnARoundedCopy) {
    engine.failuresLeft = 1;
    std::vector<std::string> strips;
    EXPECT_TRUE(PolygonOf(FINE).Decompose(Collect, &strips));
    EXPECT_THAT(engine.subjects, ElementsAre(FINE, ROUNDED));
    EXPECT_THAT(strips, ElementsAre(ROUNDED));
}

TEST_F(GpcPolygonRetry, SecondFailureOfADecompositionPasses) {
    engine.failuresLeft = 2;
    std::vector<std::string> strips;
    std::vector<std::vector<Vec2d>> rings = {{{1, 2}}};
    EXPECT_THROW(PolygonOf(FINE).Decompose(Collect, &strips), GPCException);
    EXPECT_THAT(strips, IsEmpty());
    engine.failuresLeft = 2;
    EXPECT_THROW(PolygonOf(FINE).Decompose(rings), GPCException);
    EXPECT_EQ(rings.size(), 1u);
}

TEST_F(GpcPolygonRetry, OtherFailuresOfADecompositionAreNotRepeated) {
    engine.failuresLeft = 1;
    engine.failure = Engine::OUT_OF_MEMORY;
    std::vector<std::string> strips;
    const auto decompose = [&] { PolygonOf(FINE).Decompose(Collect, &strips); };
    ExpectError(decompose, "GPC Library", "Gpc", 2);
    EXPECT_EQ(engine.operations.size(), 1u);
}

TEST_F(GpcPolygonRetry, StripsOfFewerThanThreeVerticesGiveNoRing) {
    std::vector<std::vector<Vec2d>> rings;
    EXPECT_TRUE(PolygonOf("1 1, 2 2 | - | 0 0, 4 0, 0 4 | 7 7").Decompose(rings));
    ASSERT_EQ(rings.size(), 1u);
    EXPECT_EQ(Text(rings[0]), "4 0, 0 4, 0 0, 4 0");
    std::vector<std::string> strips;
    EXPECT_TRUE(PolygonOf("1 1, 2 2 | 0 0, 4 0, 0 4").Decompose(Collect, &strips));
    EXPECT_THAT(strips, ElementsAre("1 1, 2 2", "0 0, 4 0, 0 4")) << "the callback gets them all";
}

TEST_F(GpcPolygonRetry, RingThatIsClosedIsNotClosedAgain) {
    std::vector<std::vector<Vec2d>> rings;
    PolygonOf("4 0, 4 0, 0 4").Decompose(rings);
    ASSERT_EQ(rings.size(), 1u);
    EXPECT_EQ(Text(rings[0]), "4 0, 0 4, 4 0");
}

// The engine's first exception needs the heap, too, and the runtime keeps a reserve for it; so
// some of the failures change nothing.
template <typename Call>
void ExpectNothingLeftBehind(Call call) {
    std::size_t thrown = 0;
    for (std::size_t failAt = 0;; ++failAt) {
        test::AllocationProbe probe(failAt);
        try {
            call();
        } catch (...) {
            ++thrown;
        }
        EXPECT_EQ(probe.Balance(), 0) << "request " << failAt;
        if (!probe.Failed()) {
            break;
        }
    }
    EXPECT_GT(thrown, 10u);
}

TEST_F(GpcPolygonRetry, NothingIsLeftBehindWhenTheHeapIsExhausted) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    engine.records = false;
    const GpcPolygon subject = PolygonOf("0 0, 9 0, 0 9 | hole 1 1, 2 1, 1 2");
    const GpcPolygon other = PolygonOf(FINE);
    ExpectNothingLeftBehind([&] {
        engine.failuresLeft = 1;
        GpcPolygon polygon(subject);
        polygon.Union(other);
    });
    ExpectNothingLeftBehind([&] {
        engine.failuresLeft = 1;
        std::vector<std::vector<Vec2d>> rings;
        subject.Decompose(rings);
    });
}

template <auto member>
struct QuantizedToFloat {
    friend void CallGetQuantizedToFloat(const GpcPolygon& polygon, GpcPolygon& out) {
        (polygon.*member)(out);
    }
};
void CallGetQuantizedToFloat(const GpcPolygon& polygon, GpcPolygon& out);
template struct QuantizedToFloat<&GpcPolygon::GetQuantizedToFloat>;

TEST_F(GpcPolygonRetry, RoundedCopyReplacesAndHasItsOwnBox) {
    const GpcPolygon polygon = PolygonOf("0.1 0.2, 16777217 0, 0 1e-60 | hole 1 1, 2 1, 1 2 | -");
    GpcPolygon rounded = PolygonOf("-5 -5, -6 -5, -5 -6");
    CallGetQuantizedToFloat(polygon, rounded);
    EXPECT_EQ(Text(rounded), "0.10000000149011612 0.20000000298023224, 16777216 0, 0 0 | "
                             "hole 1 1, 2 1, 1 2 | -");
    EXPECT_EQ(rounded.GetBBox(), Box2d(0, 0, 16777216, 2));
}

TEST_F(GpcPolygonRetry, RoundedCopyHasInfinityForWhatIsTooLarge) {
    const Vec2d ring[] = {{1e39, -1e300}, {3.5e38, std::nan("")}, {0, 0}};
    GpcPolygon rounded;
    CallGetQuantizedToFloat(GpcPolygon(ring, 3), rounded);
    constexpr double INF = std::numeric_limits<double>::infinity();
    EXPECT_EQ(rounded.contour[0].vertex[0].x, INF);
    EXPECT_EQ(rounded.contour[0].vertex[0].y, -INF);
    EXPECT_EQ(rounded.contour[0].vertex[1].x, INF);
    EXPECT_TRUE(std::isnan(rounded.contour[0].vertex[1].y));
    EXPECT_EQ(rounded.GetBBox(), Box2d(0, -INF, INF, 0));
}

} // namespace
} // namespace geom
