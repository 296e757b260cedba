// SPDX-License-Identifier: MIT
#include "geometry/DashLineGenerator.h"
#include "geometry/Polyline.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace geom::test {

namespace {

const Errors BAD_ALLOC = {"bad_alloc"};
const Errors PATTERN = {"Geometry, DashLineGenerator 221: Out of memory"};
const Errors PATTERN_IN_SPACE = {"Geometry, DashLineGenerator 419: Out of memory"};
const Errors WALK_IN_SPACE = {"Geometry, DashLineGenerator 385: Out of memory"};

std::vector<double> Pattern(Trial& t) {
    std::vector<double> lengths = {3, 1, 2};
    for (double& length : lengths) {
        length = t.Number(length);
    }
    return lengths;
}

std::vector<Vec3d> LineInSpace(Trial& t) {
    std::vector<Vec3d> points;
    for (const Vec2d& p : t.Zigzag()) {
        points.emplace_back(p.x, p.y, t.Number(1));
    }
    return points;
}

std::vector<Vec2d> Line(Trial& t, const DashLineGenerator*) {
    return t.Zigzag();
}

std::vector<Vec3d> Line(Trial& t, const DashLine3Generator*) {
    return LineInSpace(t);
}

using Pieces = std::vector<LineSegment2>;
using PiecesInSpace = std::vector<LineSegment3>;

template <typename Segments>
void Result(Trial& t, const Segments& pieces) {
    t.Result(pieces.size());
    for (const auto& piece : pieces) {
        t.Result(piece.A());
        t.Result(piece.B());
    }
}

template <typename Generator, typename Segments>
struct Dashing {
    using Corner = std::decay_t<decltype(std::declval<typename Segments::value_type>().A())>;

    static void Construct(Trial& t) {
        const std::vector<double> lengths = t.Keep(Pattern(t));
        t.Call([&] { const Generator made(lengths.data(), lengths.size()); });
    }
    static void Copy(Trial& t) {
        const std::vector<double> lengths = Pattern(t);
        const Generator generator(lengths.data(), lengths.size());
        t.Call([&] { const Generator made(generator); });
    }
    /// After a failure the pattern is empty, and nothing is dashed.
    static void ExpectNoDashes(Generator& generator) {
        std::vector<Corner> points(2, Corner());
        points[1].x = 10;
        Segments pieces;
        generator.Decompose(points.data(), 2, pieces);
        EXPECT_TRUE(pieces.empty());
    }
    static void Assign(Trial& t) {
        const std::vector<double> lengths = Pattern(t);
        const Generator other(lengths.data(), lengths.size());
        const double solid = 1;
        Generator generator(&solid, 1);
        t.Call([&] { generator = other; }, [&] { ExpectNoDashes(generator); });
        Result(t, Dashed(t, generator));
    }
    static void SetDashes(Trial& t) {
        const std::vector<double> lengths = t.Keep(Pattern(t));
        const double solid = 1;
        Generator generator(&solid, 1);
        t.Call([&] { generator.SetDashes(lengths.data(), lengths.size()); },
               [&] { ExpectNoDashes(generator); });
        Result(t, Dashed(t, generator));
    }
    static void Decompose(Trial& t) {
        const std::vector<double> lengths = Pattern(t);
        Generator generator(lengths.data(), lengths.size());
        const auto line = t.Keep(Line(t, &generator));
        Segments pieces;
        // The phase after a failure is that at the start of the polyline, so another try gives
        // what the first one would have given.
        t.Call([&] {
            pieces.clear();
            generator.Decompose(line.data(), line.size(), pieces);
        });
        Result(t, pieces);
    }
    static void DecomposeToCallback(Trial& t) {
        const std::vector<double> lengths = Pattern(t);
        Generator generator(lengths.data(), lengths.size());
        const auto line = t.Keep(Line(t, &generator));
        std::size_t pieces = 0;
        t.Call([&] {
            generator.Decompose(
                line.data(), line.size(),
                [](const auto&, const auto&, void* n) { ++*static_cast<std::size_t*>(n); },
                &pieces);
        });
        t.Result(pieces);
    }

private:
    static Segments Dashed(Trial& t, Generator& generator) {
        const auto line = Line(t, &generator);
        Segments pieces;
        generator.Decompose(line.data(), line.size(), pieces);
        return pieces;
    }
};

using Plane = Dashing<DashLineGenerator, Pieces>;
using Space = Dashing<DashLine3Generator, PiecesInSpace>;

} // namespace

Calls DashCalls() {
    return {
        {"DashLineGenerator::DashLineGenerator", PATTERN, {}, Plane::Construct},
        {"DashLineGenerator::DashLineGenerator (copy)", PATTERN, {}, Plane::Copy},
        {"DashLineGenerator::operator=", PATTERN, {}, Plane::Assign},
        {"DashLineGenerator::SetDashes", PATTERN, {}, Plane::SetDashes},
        {"DashLineGenerator::Decompose", BAD_ALLOC, {}, Plane::Decompose},
        {"DashLineGenerator::Decompose (polyline)",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const std::vector<double> lengths = Pattern(t);
             DashLineGenerator generator(lengths.data(), lengths.size());
             const std::vector<Vec2d> points = t.Zigzag();
             const Polyline line(points.data(), points.size());
             Pieces pieces;
             t.Call([&] {
                 pieces.clear();
                 generator.Decompose(line, pieces);
             });
             Result(t, pieces);
         }},
        {"DashLineGenerator::Decompose (callback)", {}, {}, Plane::DecomposeToCallback},
        {"DashLine3Generator::DashLine3Generator", PATTERN_IN_SPACE, {}, Space::Construct},
        {"DashLine3Generator::DashLine3Generator (copy)", PATTERN_IN_SPACE, {}, Space::Copy},
        {"DashLine3Generator::operator=", PATTERN_IN_SPACE, {}, Space::Assign},
        {"DashLine3Generator::SetDashes", PATTERN_IN_SPACE, {}, Space::SetDashes},
        {"DashLine3Generator::Decompose", WALK_IN_SPACE, {}, Space::Decompose},
        {"DashLine3Generator::Decompose (callback)", {}, {}, Space::DecomposeToCallback},
    };
}

} // namespace geom::test
