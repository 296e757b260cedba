// SPDX-License-Identifier: MIT
// Many threads at once: separate objects in every service, and constant ones shared. Results are
// those of one thread alone; ThreadSanitizer watches how they came about.
#include "geometry/LineClipPolygon.h"
#include "geometry/RemoveSelfIntersections.h"
#include "geometry/SpatialSearchGrid2D.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

#include <gtest/gtest.h>

#include <atomic>
#include <exception>
#include <functional>
#include <iostream>
#include <memory>
#include <thread>

namespace geom {
namespace {

using test::Digest;
using test::Random;
using test::Service;

constexpr int THREADS = 8;

// Runs a piece of work on all threads, which begin at the same moment, and returns the digests
// of their results. What a thread throws is thrown on.
std::vector<std::uint64_t> OnAllThreads(const std::function<void(Digest&)>& work) {
    std::vector<std::uint64_t> digests(THREADS);
    std::vector<std::exception_ptr> failures(THREADS);
    std::atomic<int> waiting{THREADS};
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < THREADS; ++t) {
        threads.emplace_back([&, t] {
            --waiting;
            while (waiting.load() > 0) {
                std::this_thread::yield();
            }
            try {
                Digest results;
                work(results);
                digests[t] = results.Value();
            } catch (...) {
                failures[t] = std::current_exception();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::exception_ptr& failure : failures) {
        if (failure != nullptr) {
            std::rethrow_exception(failure);
        }
    }
    return digests;
}

// Checks that the work gives the same results on all threads at once as on one alone.
void ExpectResultsOfOneThread(const std::function<void(Digest&)>& work) {
    Digest expected;
    work(expected);
    EXPECT_NE(expected.Value(), Digest().Value()) << "the work has no results";
    for (const std::uint64_t digest : OnAllThreads(work)) {
        EXPECT_EQ(digest, expected.Value());
    }
}

Polygon2 RingOf(std::vector<Vec2d> points) {
    Polygon2 polygon;
    polygon.Points() = std::move(points);
    polygon.Counts().push_back(static_cast<unsigned int>(polygon.Points().size()));
    return polygon;
}

// Tests run in this order in one process, so that here is the tessellator's first use, which
// checks its version. CTest gives each test a process of its own.
TEST(Threads, FirstUseOfTheTessellatorAtOnce) {
    const std::vector<std::uint64_t> digests = OnAllThreads([](Digest& results) {
        const Polygon2 bow = RingOf({{0.0, 0.0}, {4.0, 4.0}, {4.0, 0.0}, {0.0, 4.0}});
        Polygon2 parts;
        RemoveSelfIntersections(bow, parts, 100130, RSI_NORMAL_POSITIVE_Z);
        EXPECT_EQ(parts.Counts(), (std::vector<unsigned int>{3, 3}));
        results.Add(parts);
    });
    for (const std::uint64_t digest : digests) {
        EXPECT_EQ(digest, digests[0]);
    }
}

// The threads run all services at the same time, each beginning with another one.
TEST(Threads, SeparateObjectsInEveryService) {
    const std::vector<Service> services = test::Services();
    std::vector<std::uint64_t> expected;
    for (const Service& service : services) {
        expected.push_back(DigestOf(service, 1));
    }
    std::atomic<std::size_t> next{0};
    std::atomic<int> runs{0};
    OnAllThreads([&](Digest&) {
        const std::size_t first = next.fetch_add(services.size() / THREADS);
        for (std::size_t i = 0; i < services.size(); ++i) {
            const std::size_t s = (first + i) % services.size();
            EXPECT_EQ(DigestOf(services[s], 1), expected[s]) << services[s].name;
            ++runs;
        }
    });
    EXPECT_EQ(runs.load(), THREADS * static_cast<int>(services.size()));
    std::cout << "[ figures  ] " << THREADS << " threads, " << services.size() << " services, "
              << runs.load() << " runs\n";
}

TEST(Threads, OneLineClipPolygonIsShared) {
    Random random(1);
    const test::Parts rings = test::PartsOf(test::NestedHoles(random, 400).subject);
    const LineClipPolygon clip(rings.points.data(), rings.counts.data(), rings.Size());
    const Box2d box = clip.GetBBox();
    const std::vector<Vec2d> line = test::SomePoints(random, 300, box.minX, box.maxX);
    ExpectResultsOfOneThread([&](Digest& results) {
        std::vector<LineSegment2> pieces;
        clip.Clip(line.data(), line.size(), pieces);
        EXPECT_GT(pieces.size(), 100u);
        results.Add(pieces);
        std::vector<Vec2d> outline;
        clip.GetPolygon(outline);
        results.Add(outline);
        results.Add(clip.GetBBox());
        results.Add(clip.GetNumContours());
        results.Add(clip.GetContourVertexCount(0));
        results.Add(clip.GetTotalVertexCount());
        results.Add(clip.IsRectangle(nullptr));
        for (const Vec2d& p : line) {
            results.Add(clip.PointInside(p));
        }
        const LineClipPolygon copy = clip;
        results.Add(copy.GetTotalVertexCount());
    });
}

class VertexArray : public SpatialSearchGrid2D::IVertexSource {
public:
    explicit VertexArray(std::vector<Vec2d> points) : m_points(std::move(points)) {}
    bool GetVertex(int index, Vec2d& out) const override {
        out = m_points[static_cast<std::size_t>(index)];
        return true;
    }

private:
    std::vector<Vec2d> m_points;
};

TEST(Threads, OneSearchGridIsShared) {
    Random random(2);
    constexpr int COUNT = 5000;
    SpatialSearchGrid2D grid;
    grid.Initialize(0, COUNT,
                    std::make_shared<VertexArray>(test::SomePoints(random, COUNT, -50.0, 50.0)));
    const std::vector<Vec2d> places = test::SomePoints(random, 2000, -70.0, 70.0);
    ExpectResultsOfOneThread([&](Digest& results) {
        for (const Vec2d& p : places) {
            const int nearest = grid.Query(p);
            EXPECT_GE(nearest, 0);
            results.Add(nearest);
        }
        results.Add(grid.ColumnEdges());
        results.Add(grid.RowEdges());
        const SpatialSearchGrid2D copy = grid;
        results.Add(copy.Query({0.0, 0.0}));
    });
}

TEST(Threads, OneGpcPolygonIsShared) {
    Random random(3);
    const GpcPolygon polygon = test::PolygonFrom(test::NestedHoles(random, 200).subject);
    const GpcPolygon other = test::PolygonFrom(test::Stars(random, 200).subject);
    const Box2d box = polygon.GetBBox();
    const std::vector<Vec2d> places = test::SomePoints(random, 20, box.minX, box.maxX);
    ExpectResultsOfOneThread([&](Digest& results) {
        GpcPolygon copy = polygon;
        copy.Intersection(other);
        results.Add(static_cast<const gpc_polygon&>(copy));
        GpcPolygon second = other;
        second.XOR(polygon);
        results.Add(static_cast<const gpc_polygon&>(second));
        std::vector<Vec2d> points;
        std::vector<unsigned int> counts;
        polygon.GetPolyPolygon(points, counts, true);
        results.Add(points);
        polygon.GetPolygon(points);
        results.Add(points);
        std::vector<std::vector<Vec2d>> outlines;
        polygon.Decompose(outlines);
        EXPECT_FALSE(outlines.empty());
        for (const std::vector<Vec2d>& outline : outlines) {
            results.Add(outline);
        }
        for (const Vec2d& p : places) {
            results.Add(polygon.PointInside(p));
        }
        results.Add(polygon.GetBBox());
        results.Add(polygon.GetTotalVertexCount());
        const LineClipPolygon clip(polygon);
        results.Add(clip.GetTotalVertexCount());
    });
}

// The tessellator's error callback gets no pointer of ours: each thread finds its own run.
TEST(Threads, TessellatorErrorsStayWithTheirThread) {
    std::atomic<int> turn{0};
    std::atomic<int> refused{0};
    OnAllThreads([&](Digest&) {
        const bool tooLarge = turn.fetch_add(1) % 2 == 0;
        for (int i = 0; i < 200; ++i) {
            const double size = tooLarge ? 1e200 : 2.0;
            const Polygon2 square = RingOf({{0.0, 0.0}, {size, 0.0}, {size, size}, {0.0, size}});
            Polygon2 result;
            try {
                RemoveSelfIntersections(square, result, 100131, RSI_NORMAL_POSITIVE_Z);
                EXPECT_FALSE(tooLarge);
                EXPECT_EQ(result.Points().size(), 4u);
            } catch (const Exception&) {
                EXPECT_TRUE(tooLarge);
                ++refused;
            }
        }
    });
    EXPECT_EQ(refused.load(), THREADS / 2 * 200);
}

} // namespace
} // namespace geom
