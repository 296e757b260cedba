// SPDX-License-Identifier: MIT
#include "geometry/Thinning.h"

#include "tests/support/AllocationProbe.h"
#include "tests/support/Floats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <new>
#include <random>
#include <vector>

namespace geom {
namespace {

using namespace test;
using Points = std::vector<Vec2d>;

constexpr unsigned SEED = 8501;

Points ByAngle(const Points& points, double maxDeviation) {
    Points out;
    ThinByAngularDeviation(points.data(), points.size(), maxDeviation, out);
    return out;
}

Points ToMinimum(const Points& points) {
    Points out;
    ThinToMinimalDetail(points.data(), points.size(), out);
    return out;
}

TEST(Thinning, FourPointsAreLeftAsTheyAre) {
    const Points zigzag = {{0, 0}, {1, 0}, {2, 0}, {3, 0}};
    const Points back = {{0, 0}, {5, 5}, {0, 0}, {5, 5}};
    for (std::size_t n = 0; n <= 4; ++n) {
        const Points line(zigzag.begin(), zigzag.begin() + static_cast<std::ptrdiff_t>(n));
        EXPECT_EQ(ByAngle(line, 0.1), line);
        EXPECT_EQ(ToMinimum(line), line);
    }
    EXPECT_EQ(ByAngle(back, 10), back);
    EXPECT_EQ(ToMinimum(back), back);
}

TEST(Thinning, NullIsNoPoints) {
    Points out = {{7, 7}};
    ThinByAngularDeviation(nullptr, 0, 0.1, out);
    ThinByAngularDeviation(nullptr, 9, 0.1, out);
    ThinToMinimalDetail(nullptr, 0, out);
    ThinToMinimalDetail(nullptr, 9, out);
    EXPECT_EQ(out, Points({{7, 7}}));
}

TEST(Thinning, AppendsToTheOutput) {
    const Points line = {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}};
    Points out = {{7, 7}};
    ThinByAngularDeviation(line.data(), 5, 0.1, out);
    EXPECT_EQ(out, Points({{7, 7}, {0, 0}, {4, 0}}));
    ThinToMinimalDetail(line.data(), 5, out);
    EXPECT_EQ(out, Points({{7, 7}, {0, 0}, {4, 0}, {0, 0}, {4, 0}}));
    ThinToMinimalDetail(line.data(), 2, out);
    EXPECT_EQ(out, Points({{7, 7}, {0, 0}, {4, 0}, {0, 0}, {4, 0}, {0, 0}, {1, 0}}));
}

TEST(Thinning, InputMayLieInTheOutput) {
    const Points line = {{0, 0}, {1, 0}, {2, 0}, {3, 1}, {4, 1}, {5, 0}};
    for (const bool tight : {false, true}) {
        for (const std::size_t n : {std::size_t{3}, line.size()}) {
            for (const bool byAngle : {false, true}) {
                Points out = line;
                if (tight) {
                    out.shrink_to_fit();
                } else {
                    out.reserve(100);
                }
                Points expected = line;
                if (byAngle) {
                    ThinByAngularDeviation(line.data(), n, 0.1, expected);
                    ThinByAngularDeviation(out.data(), n, 0.1, out);
                } else {
                    ThinToMinimalDetail(line.data(), n, expected);
                    ThinToMinimalDetail(out.data(), n, out);
                }
                EXPECT_EQ(out, expected);
            }
        }
    }
}

TEST(Thinning, FailedAllocationLeavesTheOutputAsItWas) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const Points line = {{0, 0}, {1, 3}, {2, 0}, {3, 1}, {4, -1}, {5, 0}};
    for (const std::size_t n : {std::size_t{2}, line.size()}) {
        for (const bool byAngle : {false, true}) {
            bool succeeded = false;
            for (std::size_t k = 0; !succeeded; ++k) {
                ASSERT_LT(k, 20U);
                Points out = {{7, 7}};
                try {
                    const AllocationProbe probe(k);
                    byAngle ? ThinByAngularDeviation(line.data(), n, 0.1, out)
                            : ThinToMinimalDetail(line.data(), n, out);
                    succeeded = true;
                } catch (const std::bad_alloc&) {
                    EXPECT_EQ(out, Points({{7, 7}}));
                }
                EXPECT_EQ(succeeded, out.size() > 1);
            }
        }
    }
}

TEST(ThinByAngularDeviation, KeepsTheTurns) {
    const Points line = {{0, 0}, {1, 0}, {2, 0}, {3, 1}, {4, 1}};
    EXPECT_EQ(ByAngle(line, 0.1), Points({{0, 0}, {2, 0}, {3, 1}, {4, 1}}));
    EXPECT_EQ(ByAngle(line, 0.8), Points({{0, 0}, {4, 1}}));
}

TEST(ThinByAngularDeviation, TurnMustExceedTheLimit) {
    const Points corner = {{0, 0}, {0, 1}, {0, 2}, {1, 2}, {2, 2}}; // exactly atan2(1, 0)
    EXPECT_EQ(ByAngle(corner, kit::HALF_PI), Points({{0, 0}, {2, 2}}));
    EXPECT_EQ(ByAngle(corner, std::nextafter(kit::HALF_PI, 0.0)), Points({{0, 0}, {0, 2}, {2, 2}}));
    EXPECT_EQ(ByAngle(corner, -1), corner);
}

TEST(ThinByAngularDeviation, TurnAcrossTheBackIsTheShortWayRound) {
    // From bearing 170 to -170 degrees: 20 degrees.
    const auto step = [](double degrees) {
        return Vec2d(std::sin(degrees * kit::DEG_TO_RAD), std::cos(degrees * kit::DEG_TO_RAD));
    };
    Points line = {{0, 0}};
    for (const double bearing : {170.0, 170.0, -170.0, -170.0}) {
        line.push_back(line.back() + step(bearing));
    }
    EXPECT_EQ(ByAngle(line, 21 * kit::DEG_TO_RAD), Points({line[0], line[4]}));
    EXPECT_EQ(ByAngle(line, 19 * kit::DEG_TO_RAD), Points({line[0], line[2], line[4]}));
}

TEST(ThinByAngularDeviation, RepeatedPointsDoNotTurn) {
    const Points line = {{0, 0}, {1, 0}, {1, 0}, {2, 0}, {2, 0}, {2, 1}};
    // The turn is noticed where the upward step leaves.
    EXPECT_EQ(ByAngle(line, 0.1), Points({{0, 0}, {2, 0}, {2, 1}}));
    EXPECT_EQ(ByAngle(Points(7, Vec2d(3, 3)), 0.0), Points({{3, 3}, {3, 3}}));
}

TEST(ThinByAngularDeviation, FirstStepWithoutLengthPointsAlongTheYAxis) {
    const Points sideways = {{0, 0}, {0, 0}, {1, 0}, {2, 0}, {3, 0}};
    EXPECT_EQ(ByAngle(sideways, 0.1), Points({{0, 0}, {0, 0}, {3, 0}}));
    const Points upwards = {{0, 0}, {0, 0}, {0, 1}, {0, 2}, {0, 3}};
    EXPECT_EQ(ByAngle(upwards, 0.1), Points({{0, 0}, {0, 3}}));
    const Points negativeZero = {{0, 0}, {-0.0, -0.0}, {0, 1}, {0, 2}, {0, 3}};
    EXPECT_EQ(ByAngle(negativeZero, 0.1), Points({{0, 0}, {0, 3}}));
}

TEST(ThinByAngularDeviation, WhatIsNotANumberDoesNotTurn) {
    const Points line = {{0, 0}, {1, 0}, {NOT_A_NUMBER, 0}, {1, 1}, {1, 2}, {2, 2}};
    EXPECT_EQ(ByAngle(line, 0.1), Points({{0, 0}, {1, 2}, {2, 2}}));
    EXPECT_EQ(ByAngle({{0, 0}, {1, 5}, {2, 0}, {3, 5}, {4, 0}}, NOT_A_NUMBER),
              Points({{0, 0}, {4, 0}}));
    EXPECT_EQ(ByAngle({{0, 0}, {1, 5}, {2, 0}, {3, 5}, {4, 0}}, INF), Points({{0, 0}, {4, 0}}));
}

TEST(ThinToMinimalDetail, KeepsReversals) {
    EXPECT_EQ(ToMinimum({{0, 0}, {1, 1}, {2, 2}, {3, 1}, {4, 2}}),
              Points({{0, 0}, {2, 2}, {3, 1}, {4, 2}}));
    EXPECT_EQ(ToMinimum({{0, 0}, {1, 1}, {2, 2}, {1, 3}, {2, 4}}),
              Points({{0, 0}, {2, 2}, {1, 3}, {2, 4}}));
}

TEST(ThinToMinimalDetail, ReversalIntoAnAxisParallelSegmentIsDropped) {
    EXPECT_EQ(ToMinimum({{0, 0}, {1, 1}, {2, 2}, {2, 1}, {3, 0}}), Points({{0, 0}, {3, 0}}));
    EXPECT_EQ(ToMinimum({{0, 0}, {1, 1}, {2, 2}, {1, 2}, {0, 3}}), Points({{0, 0}, {0, 3}}));
}

TEST(ThinToMinimalDetail, MonotoneRunsCollapse) {
    EXPECT_EQ(ToMinimum({{0, 0}, {1, 5}, {2, 6}, {4, 7}, {9, 8}, {10, 20}}),
              Points({{0, 0}, {10, 20}}));
    EXPECT_EQ(ToMinimum(Points(6, Vec2d(1, 1))), Points({{1, 1}, {1, 1}}));
}

TEST(ThinToMinimalDetail, DifferencesThatAreNotNumbersCountAsNonZero) {
    // At (1, 1): x is not a number, y turns back.
    EXPECT_EQ(ToMinimum({{0, 0}, {1, 1}, {NOT_A_NUMBER, 0}, {3, 1}, {4, 2}}).size(), 4U);
    EXPECT_EQ(ToMinimum({{0, 0}, {1, 1}, {NOT_A_NUMBER, 2}, {3, 3}, {4, 4}}).size(), 2U);
}

TEST(Thinning, AgreesWithTheRulesOnRandomLines) {
    std::mt19937_64 random(SEED);
    std::size_t kept = 0, dropped = 0;
    for (int repeat = 0; repeat < 3000; ++repeat) {
        Points line;
        const std::size_t n = 5 + random() % 20;
        for (std::size_t i = 0; i < n; ++i) {
            line.emplace_back(static_cast<double>(random() % 5), static_cast<double>(random() % 5));
        }
        const double limit = static_cast<double>(random() % 8) * kit::PI / 8;
        Points byAngle = {line[0]}, reversals = {line[0]};
        double previous = std::atan2(line[1].x - line[0].x, line[1].y - line[0].y);
        for (std::size_t i = 2; i < n; ++i) {
            const Vec2d before = line[i - 1] - line[i - 2];
            const Vec2d after = line[i] - line[i - 1];
            const double direction = after == Vec2d(0, 0) ? previous : std::atan2(after.x, after.y);
            double turn = std::fabs(direction - previous);
            turn = turn > kit::PI ? kit::TWO_PI - turn : turn;
            if (turn > limit) {
                byAngle.push_back(line[i - 1]);
            }
            previous = direction;
            if (after.x * after.y != 0 && (after.x * before.x < 0 || after.y * before.y < 0)) {
                reversals.push_back(line[i - 1]);
            }
        }
        byAngle.push_back(line[n - 1]);
        reversals.push_back(line[n - 1]);
        ASSERT_EQ(ByAngle(line, limit), byAngle) << "seed " << SEED;
        ASSERT_EQ(ToMinimum(line), reversals) << "seed " << SEED;
        kept += byAngle.size() + reversals.size() - 4;
        dropped += 2 * n - byAngle.size() - reversals.size();
    }
    EXPECT_GT(kept, 10000U);
    EXPECT_GT(dropped, 10000U);
}

} // namespace
} // namespace geom
