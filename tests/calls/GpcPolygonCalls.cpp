// SPDX-License-Identifier: MIT
#include "geometry/GpcPolygon.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <unistd.h>

namespace geom::test {

namespace {

Errors OutOfMemory(int line) {
    return {"Geometry, GpcPolygon " + std::to_string(line) + ": Out of memory"};
}

GpcPolygon StarPolygon(Trial& t, double x, double y) {
    const std::vector<Vec2d> points = t.Star(x, y);
    return GpcPolygon(points.data(), points.size());
}

/// Two rings of which the second is a hole.
GpcPolygon TwoRings(Trial& t) {
    const std::vector<Vec2d> points = t.Star(0, 0);
    const unsigned int counts[] = {4, static_cast<unsigned int>(points.size()) - 4};
    GpcPolygon polygon(points.data(), counts, 2);
    polygon.hole[1] = 1;
    return polygon;
}

using Change = void (GpcPolygon::*)(const GpcPolygon&);

void SetOperation(Trial& t, Change operation) {
    GpcPolygon polygon = StarPolygon(t, 0, 0);
    const GpcPolygon other = StarPolygon(t, 3, 1);
    t.Keep(other);
    const std::uint64_t before = FingerprintOf(polygon);
    t.Call([&] { (polygon.*operation)(other); },
           [&] { EXPECT_EQ(FingerprintOf(polygon), before); });
    t.Result(polygon);
    polygon = other;
    t.Result(polygon);
}

/// A question to a polygon that answers with a plain value.
template <typename Question>
void Ask(Trial& t, Question question) {
    const GpcPolygon polygon = TwoRings(t);
    t.Keep(polygon);
    decltype(question(polygon)) answer{};
    t.Call([&] { answer = question(polygon); });
    t.Result(answer);
}

template <typename Make>
void Construct(Trial& t, Make make) {
    std::uint64_t fingerprint = 0;
    t.Call([&] { fingerprint = FingerprintOf(make()); });
    t.Result(fingerprint);
}

template <typename Point>
void ToVectors(Trial& t) {
    const GpcPolygon polygon = TwoRings(t);
    t.Keep(polygon);
    std::vector<Point> points(2);
    std::vector<unsigned int> counts(3);
    t.Call([&] { polygon.GetPolyPolygon(points, counts, true); },
           [&] {
               EXPECT_EQ(points.size(), 2U);
               EXPECT_EQ(counts.size(), 3U);
           });
    t.Result(points);
    t.Result(counts);
}

template <typename Point>
void ToVector(Trial& t) {
    const GpcPolygon polygon = TwoRings(t);
    t.Keep(polygon);
    std::vector<Point> points(2);
    t.Call([&] { polygon.GetPolygon(points); }, [&] { EXPECT_EQ(points.size(), 2U); });
    t.Result(points);
}

Calls MakingCalls() {
    return {
        {"GpcPolygon::GpcPolygon (none)",
         {},
         {},
         [](Trial& t) { Construct(t, [] { return GpcPolygon(); }); }},
        {"GpcPolygon::GpcPolygon (ring)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Keep(t.Star(0, 0));
             Construct(t, [&] { return GpcPolygon(points.data(), points.size()); });
         }},
        {"GpcPolygon::GpcPolygon (ring of integers)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const auto points = t.Keep(t.Devices({{0, 0}, {9, 1}, {7, 8}, {0, 0}}));
             Construct(t, [&] { return GpcPolygon(points.data(), points.size()); });
         }},
        {"GpcPolygon::GpcPolygon (rings)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Keep(t.Star(0, 0));
             const unsigned int counts[] = {3, 0, static_cast<unsigned int>(points.size()) - 3};
             Construct(t, [&] { return GpcPolygon(points.data(), counts, 3); });
         }},
        {"GpcPolygon::GpcPolygon (rings of integers)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const auto points =
                 t.Keep(t.Devices({{0, 0}, {9, 1}, {7, 8}, {1, 1}, {2, 1}, {2, 2}}));
             const unsigned int counts[] = {3, 3};
             Construct(t, [&] { return GpcPolygon(points.data(), counts, 2); });
         }},
        {"GpcPolygon::GpcPolygon (rectangle)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const Box2d box = t.Box(0, 9, 8, 1);
             Construct(t, [&] { return GpcPolygon(box.minX, box.minY, box.maxX, box.maxY); });
         }},
        {"GpcPolygon::GpcPolygon (rectangle of integers)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const tagPOINT a = t.Device(0, 9);
             const tagPOINT b = t.Device(8, 1);
             Construct(t, [&] { return GpcPolygon(tagRECT{a.x, a.y, b.x, b.y}); });
         }},
        {"GpcPolygon::GpcPolygon (copy)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             t.Keep(polygon);
             Construct(t, [&] { return GpcPolygon(polygon); });
         }},
        {"GpcPolygon::GpcPolygon (move)",
         {},
         {},
         [](Trial& t) {
             GpcPolygon polygon = TwoRings(t);
             Construct(t, [&] { return GpcPolygon(std::move(polygon)); });
         }},
        {"GpcPolygon::operator= (copy)",
         ContourMemory(),
         {},
         [](Trial& t) {
             const GpcPolygon other = TwoRings(t);
             t.Keep(other);
             GpcPolygon polygon(0, 0, 4, 4);
             t.Call([&] { polygon = other; },
                    [&] {
                        EXPECT_EQ(polygon.GetNumContours(), 0U);
                        EXPECT_EQ(polygon.GetBBox(), Box2d());
                    });
             t.Result(polygon);
         }},
        {"GpcPolygon::operator= (move)",
         {},
         {},
         [](Trial& t) {
             GpcPolygon other = TwoRings(t);
             GpcPolygon polygon(0, 0, 4, 4);
             t.Call([&] { polygon = std::move(other); });
             t.Result(polygon);
         }},
    };
}

Calls QuestionCalls() {
    return {
        {"GpcPolygon::GetNumContours",
         {},
         {},
         [](Trial& t) { Ask(t, [](const GpcPolygon& p) { return p.GetNumContours(); }); }},
        {"GpcPolygon::GetContourVertexCount",
         {},
         {},
         [](Trial& t) { Ask(t, [](const GpcPolygon& p) { return p.GetContourVertexCount(1); }); }},
        {"GpcPolygon::GetTotalVertexCount",
         {},
         {},
         [](Trial& t) { Ask(t, [](const GpcPolygon& p) { return p.GetTotalVertexCount(); }); }},
        {"GpcPolygon::GetBBox",
         {},
         {},
         [](Trial& t) { Ask(t, [](const GpcPolygon& p) { return p.GetBBox(); }); }},
        {"GpcPolygon::IsRectangle",
         {},
         {},
         [](Trial& t) {
             const Box2d corners = t.Box(0, 9, 8, 1);
             const GpcPolygon p(corners.minX, corners.minY, corners.maxX, corners.maxY);
             Box2d box;
             bool answer = false;
             t.Call([&] { answer = p.IsRectangle(&box); });
             t.Result(answer);
             t.Result(box);
         }},
        {"GpcPolygon::PointInside", Together({ContourMemory(), EngineMemory()}), EngineNumbers(),
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             const Vec2d p = t.Point(1.5, -2.25);
             t.Keep(polygon);
             bool answer = false;
             t.Call([&] { answer = polygon.PointInside(p); });
             t.Result(answer);
         }},
        {"GpcPolygon::GetPolyPolygon (arrays)",
         {},
         {},
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             t.Keep(polygon);
             std::vector<Vec2d> points(polygon.GetTotalVertexCount() + 2);
             std::vector<unsigned int> counts(2);
             t.Call([&] { polygon.GetPolyPolygon(points.data(), counts.data(), true); });
             t.Result(points);
             t.Result(counts);
         }},
        {"GpcPolygon::GetPolyPolygon (arrays of integers)",
         {},
         {},
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             t.Keep(polygon);
             std::vector<tagPOINT> points(polygon.GetTotalVertexCount() + 2);
             std::vector<unsigned int> counts(2);
             t.Call([&] { polygon.GetPolyPolygon(points.data(), counts.data(), true); });
             t.Result(points);
             t.Result(counts);
         }},
        {"GpcPolygon::GetPolyPolygon (vectors)", OutOfMemory(326), {}, ToVectors<Vec2d>},
        {"GpcPolygon::GetPolyPolygon (vectors of integers)",
         OutOfMemory(353),
         {},
         ToVectors<tagPOINT>},
        {"GpcPolygon::GetPolygon (array)",
         {},
         {},
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             t.Keep(polygon);
             std::vector<Vec2d> points(polygon.GetTotalVertexCount() + 3);
             t.Call([&] { polygon.GetPolygon(points.data()); });
             t.Result(points);
         }},
        {"GpcPolygon::GetPolygon (array of integers)",
         {},
         {},
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             t.Keep(polygon);
             std::vector<tagPOINT> points(polygon.GetTotalVertexCount() + 3);
             t.Call([&] { polygon.GetPolygon(points.data()); });
             t.Result(points);
         }},
        {"GpcPolygon::GetPolygon (vector)", OutOfMemory(538), {}, ToVector<Vec2d>},
        {"GpcPolygon::GetPolygon (vector of integers)", OutOfMemory(560), {}, ToVector<tagPOINT>},
    };
}

Calls OperationCalls() {
    return {
        {"GpcPolygon::Intersection", EngineMemory(), EngineNumbers(),
         [](Trial& t) { SetOperation(t, &GpcPolygon::Intersection); }},
        {"GpcPolygon::Union", EngineMemory(), EngineNumbers(),
         [](Trial& t) { SetOperation(t, &GpcPolygon::Union); }},
        {"GpcPolygon::Difference", EngineMemory(), EngineNumbers(),
         [](Trial& t) { SetOperation(t, &GpcPolygon::Difference); }},
        {"GpcPolygon::XOR", EngineMemory(), EngineNumbers(),
         [](Trial& t) { SetOperation(t, &GpcPolygon::XOR); }},
        {"GpcPolygon::AddContours (polygon)",
         EngineMemory(),
         {},
         [](Trial& t) {
             GpcPolygon polygon = TwoRings(t);
             const GpcPolygon other = TwoRings(t);
             t.Keep(other);
             const std::uint64_t before = FingerprintOf(polygon);
             t.Call([&] { polygon.AddContours(other); },
                    [&] { EXPECT_EQ(FingerprintOf(polygon), before); });
             t.Result(polygon);
         }},
        {"GpcPolygon::AddContours (points)",
         EngineMemory(),
         {},
         [](Trial& t) {
             GpcPolygon polygon = TwoRings(t);
             const std::vector<Vec2d> points = t.Keep(t.Star(0, 0));
             const unsigned int counts[] = {3, static_cast<unsigned int>(points.size()) - 3};
             const std::uint64_t before = FingerprintOf(polygon);
             t.Call([&] { polygon.AddContours(points.data(), counts, 2); },
                    [&] { EXPECT_EQ(FingerprintOf(polygon), before); });
             t.Result(polygon);
         }},
        {"GpcPolygon::RemoveZeroWidthReturnPaths", Together({ContourMemory(), EngineMemory()}),
         EngineNumbers(),
         [](Trial& t) {
             GpcPolygon polygon = TwoRings(t);
             t.Call([&] { polygon.RemoveZeroWidthReturnPaths(); });
             t.Result(polygon);
         }},
        {"GpcPolygon::Decompose (callback)", Together({EngineMemory(), OutOfMemory(701)}),
         EngineNumbers(),
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             t.Keep(polygon);
             std::uint64_t sum = 0;
             t.Call([&] {
                 sum = 0;
                 polygon.Decompose(
                     [](const Vec2d* pts, unsigned int n, void* user) {
                         *static_cast<std::uint64_t*>(user) += FingerprintOf(pts[n - 1]);
                         return true;
                     },
                     &sum);
             });
             t.Result(sum);
         }},
        {"GpcPolygon::Decompose (outlines)",
         Together({EngineMemory(), OutOfMemory(701), OutOfMemory(702)}), EngineNumbers(),
         [](Trial& t) {
             const GpcPolygon polygon = TwoRings(t);
             t.Keep(polygon);
             std::vector<std::vector<Vec2d>> out(1);
             t.Call([&] { polygon.Decompose(out); }, [&] { EXPECT_EQ(out.size(), 1U); });
             t.Result(out);
         }},
    };
}

/// A file without a name that has been opened by its descriptor.
class ScratchFile {
public:
    ScratchFile() : m_stream(std::tmpfile()) {
        const std::string path = "/dev/fd/" + std::to_string(fileno(m_stream));
        m_file.Open(path.c_str(), "r+b");
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { std::fclose(m_stream); }

    kit::CBufferedFile& Get() { return m_file; }
    void Rewind() { std::rewind(m_file.GetStream()); }

private:
    std::FILE* m_stream;
    kit::CBufferedFile m_file;
};

template <typename Dump>
void Write(Trial& t, Dump dump) {
    const GpcPolygon polygon = TwoRings(t);
    t.Keep(polygon);
    ScratchFile file;
    (polygon.*dump)(file.Get()); // has its buffer now
    t.Call([&] {
        file.Rewind();
        (polygon.*dump)(file.Get());
    });
}

template <typename Dump, typename Load>
void Read(Trial& t, Dump dump, Load load) {
    const GpcPolygon polygon = TwoRings(t);
    ScratchFile file;
    (polygon.*dump)(file.Get());
    GpcPolygon read(0, 0, 4, 4);
    t.Call([&] {
        file.Rewind();
        (read.*load)(file.Get());
    });
    t.Result(read);
    read = polygon;
    t.Result(read);
}

Calls PersistenceCalls() {
    const Errors reading = {"GPC Library, Gpc 201: GPCAlloc failure: hole flag array creation",
                            "GPC Library, Gpc 201: GPCAlloc failure: contour creation",
                            "GPC Library, Gpc 201: GPCAlloc failure: vertex creation"};
    return {
        {"GpcPolygon::DumpToTextFile",
         {},
         {},
         [](Trial& t) { Write(t, &GpcPolygon::DumpToTextFile); }},
        {"GpcPolygon::DumpToBinaryFile",
         {},
         {},
         [](Trial& t) { Write(t, &GpcPolygon::DumpToBinaryFile); }},
        {"GpcPolygon::LoadFromTextFile",
         reading,
         {},
         [](Trial& t) { Read(t, &GpcPolygon::DumpToTextFile, &GpcPolygon::LoadFromTextFile); }},
        {"GpcPolygon::LoadFromBinaryFile",
         reading,
         {},
         [](Trial& t) { Read(t, &GpcPolygon::DumpToBinaryFile, &GpcPolygon::LoadFromBinaryFile); }},
    };
}

} // namespace

Calls GpcPolygonCalls() {
    Calls all;
    for (const auto family : {MakingCalls, QuestionCalls, OperationCalls, PersistenceCalls}) {
        for (PublicCall& call : family()) {
            all.push_back(std::move(call));
        }
    }
    return all;
}

} // namespace geom::test
