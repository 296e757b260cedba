// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/Exceptions.h"
#include "tests/support/FailEachAllocation.h"
#include "tests/support/PolygonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <limits>

namespace geom {
namespace {

using test::ExpectError;
using test::PolygonOf;
using test::Text;

constexpr const char* WITH_HOLE = "0 0, 9 0, 9 9, 0 9 | hole 1 1, 2 1, 2 2 | - | -5.25 3, 4 4";

/// One of the two file formats.
struct Format {
    const char* name;
    void (GpcPolygon::*dump)(CBufferedFile&) const;
    void (GpcPolygon::*load)(CBufferedFile&);
    int writeLine;
    int readLine;
    const char* writeOperation;
    const char* readOperation;
};

void PrintTo(const Format& format, std::ostream* stream) {
    *stream << format.name;
}

const Format FORMATS[] = {
    {"Text", &GpcPolygon::DumpToTextFile, &GpcPolygon::LoadFromTextFile, 811, 824,
     "Polygon::DumpToTextFile", "Polygon::LoadFromTextFile"},
    {"Binary", &GpcPolygon::DumpToBinaryFile, &GpcPolygon::LoadFromBinaryFile, 838, 851,
     "Polygon::DumpToBinaryFile", "Polygon::LoadFromBinaryFile"},
};

class GpcPolygonFiles : public testing::TestWithParam<Format> {
protected:
    GpcPolygonFiles() {
        const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = test->name(); // "Situation/Format"
        std::replace(name.begin(), name.end(), '/', '_');
        m_path = testing::TempDir() + "geom_" + name + ".polygon";
    }
    ~GpcPolygonFiles() override { std::remove(m_path.c_str()); }

    void Dump(const GpcPolygon& polygon) const {
        CBufferedFile file(m_path.c_str(), "wb");
        (polygon.*GetParam().dump)(file);
        file.Close();
    }

    void Load(GpcPolygon& polygon) const {
        CBufferedFile file(m_path.c_str(), "rb");
        (polygon.*GetParam().load)(file);
    }

    std::string Content() const {
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    void SetContent(const std::string& content) const {
        std::ofstream(m_path, std::ios::binary) << content;
    }

    std::string Message(const char* failure, const char* operation) const {
        return std::string(failure) + " \"" + m_path + "\" (" + operation + ")";
    }

    void ExpectReadError(GpcPolygon& polygon) const {
        ExpectError([&] { Load(polygon); }, "Geometry", "GpcPolygon", GetParam().readLine,
                    Message("Cannot read file", GetParam().readOperation).c_str());
    }

    std::string m_path;
};

INSTANTIATE_TEST_SUITE_P(Formats, GpcPolygonFiles, testing::ValuesIn(FORMATS),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(GpcPolygonFiles, DumpedPolygonIsLoadedAgain) {
    Dump(PolygonOf(WITH_HOLE));
    GpcPolygon loaded;
    Load(loaded);
    EXPECT_EQ(Text(loaded), WITH_HOLE);
    EXPECT_EQ(loaded.GetBBox(), Box2d(-5.25, 0, 9, 9));
    EXPECT_EQ(loaded.hole[1], 1);
    EXPECT_EQ(loaded.contour[2].vertex, nullptr);
}

TEST_P(GpcPolygonFiles, EmptyPolygonIsLoadedAgain) {
    Dump(GpcPolygon());
    GpcPolygon loaded = PolygonOf(WITH_HOLE);
    Load(loaded);
    EXPECT_EQ(loaded.num_contours, 0);
    EXPECT_EQ(loaded.hole, nullptr);
    EXPECT_EQ(loaded.contour, nullptr);
    EXPECT_EQ(loaded.GetBBox(), Box2d());
}

TEST_P(GpcPolygonFiles, LoadReplaces) {
    Dump(PolygonOf("hole 1 1, 2 1, 1 2"));
    GpcPolygon loaded = PolygonOf(WITH_HOLE);
    Load(loaded);
    EXPECT_EQ(Text(loaded), "hole 1 1, 2 1, 1 2");
    EXPECT_EQ(loaded.GetBBox(), Box2d(1, 1, 2, 2));
}

TEST_P(GpcPolygonFiles, PolygonsFollowOneAnotherInAStream) {
    {
        CBufferedFile file(m_path.c_str(), "wb");
        (PolygonOf("0 0, 1 0, 0 1").*GetParam().dump)(file);
        (PolygonOf(WITH_HOLE).*GetParam().dump)(file);
        (GpcPolygon().*GetParam().dump)(file);
        EXPECT_TRUE(file.IsOpen());
    }
    CBufferedFile file(m_path.c_str(), "rb");
    GpcPolygon loaded;
    (loaded.*GetParam().load)(file);
    EXPECT_EQ(Text(loaded), "0 0, 1 0, 0 1");
    (loaded.*GetParam().load)(file);
    EXPECT_EQ(Text(loaded), WITH_HOLE);
    (loaded.*GetParam().load)(file);
    EXPECT_EQ(Text(loaded), "");
}

TEST_P(GpcPolygonFiles, FileThatEndsEarlyIsAReadErrorAtEveryLength) {
    const char* small = "hole 0 0, 9 0 | - | -5.25 3";
    Dump(PolygonOf(small));
    const std::string whole = Content();
    int failures = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SetContent(whole.substr(0, length));
        GpcPolygon polygon = PolygonOf("7 7, 8 7, 7 8");
        try {
            Load(polygon);
            // Digits cut off the last number, or its y as a whole, are not missed in a text.
            EXPECT_STREQ(GetParam().name, "Text");
            EXPECT_EQ(polygon.GetNumContours(), 3u);
        } catch (const Exception& e) {
            ++failures;
            EXPECT_EQ(e.Line(), GetParam().readLine);
            EXPECT_EQ(polygon.GetBBox(), Box2d());
        }
        SetContent(whole);
        Load(polygon);
        EXPECT_EQ(Text(polygon), small) << "loaded again after " << length << " bytes";
    }
    EXPECT_GT(failures, 50);
}

TEST_P(GpcPolygonFiles, PolygonOfAFailedLoadIsReleasedWithoutHarm) {
    Dump(PolygonOf(WITH_HOLE));
    SetContent(Content().substr(0, 40));
    {
        GpcPolygon destroyed;
        ExpectReadError(destroyed);
    }
    GpcPolygon assigned;
    ExpectReadError(assigned);
    assigned = PolygonOf("7 7, 8 7, 7 8");
    EXPECT_EQ(Text(assigned), "7 7, 8 7, 7 8");
    GpcPolygon moved;
    ExpectReadError(moved);
    const GpcPolygon target(std::move(moved));
}

TEST_P(GpcPolygonFiles, EmptyFileIsAReadError) {
    SetContent("");
    GpcPolygon polygon = PolygonOf(WITH_HOLE);
    ExpectReadError(polygon);
    EXPECT_EQ(polygon.GetNumContours(), 0u);
    EXPECT_EQ(polygon.GetBBox(), Box2d());
}

TEST_P(GpcPolygonFiles, FileThatIsNotOpenIsAReadOrWriteError) {
    CBufferedFile closed;
    GpcPolygon polygon = PolygonOf(WITH_HOLE);
    ExpectError([&] { (polygon.*GetParam().dump)(closed); }, "Geometry", "GpcPolygon",
                GetParam().writeLine);
    EXPECT_EQ(Text(polygon), WITH_HOLE) << "a failed dump changes nothing";
    EXPECT_EQ(polygon.GetBBox(), Box2d(-5.25, 0, 9, 9));
    ExpectError([&] { (polygon.*GetParam().load)(closed); }, "Geometry", "GpcPolygon",
                GetParam().readLine);
    EXPECT_EQ(polygon.GetNumContours(), 0u) << "a failed load has released the old contours";
}

TEST_P(GpcPolygonFiles, FileOpenForReadingOnlyIsAWriteError) {
    SetContent("");
    CBufferedFile file(m_path.c_str(), "rb");
    const GpcPolygon polygon = PolygonOf(WITH_HOLE);
    ExpectError([&] { (polygon.*GetParam().dump)(file); }, "Geometry", "GpcPolygon",
                GetParam().writeLine,
                Message("Cannot write file", GetParam().writeOperation).c_str());
    EXPECT_EQ(Text(polygon), WITH_HOLE);
}

TEST_P(GpcPolygonFiles, ContourCountBeyondTheContentIsAReadError) {
    const bool isText = std::string(GetParam().name) == "Text";
    SetContent(isText ? "2147483647\n" : std::string("\xff\xff\xff\x7f"));
    GpcPolygon polygon;
    ExpectReadError(polygon);
    Dump(PolygonOf(WITH_HOLE));
    Load(polygon);
    EXPECT_EQ(Text(polygon), WITH_HOLE);
}

TEST_P(GpcPolygonFiles, NegativeContourCountFailsAsAnAllocation) {
    const bool isText = std::string(GetParam().name) == "Text";
    SetContent(isText ? "-2\n" : std::string("\xfe\xff\xff\xff"));
    GpcPolygon polygon = PolygonOf(WITH_HOLE);
    const std::optional<Exception> e = test::Caught([&] { Load(polygon); });
    ASSERT_TRUE(e);
    EXPECT_EQ(e->Module(), GString("GPC Library"));
    EXPECT_EQ(e->Message(), GString("GPCAlloc failure: hole flag array creation"));
    EXPECT_EQ(polygon.GetNumContours(), 0u);
    EXPECT_EQ(polygon.GetBBox(), Box2d());
    Dump(PolygonOf(WITH_HOLE));
    Load(polygon);
    EXPECT_EQ(Text(polygon), WITH_HOLE);
}

TEST_P(GpcPolygonFiles, NegativeVertexCountFailsAsAnAllocation) {
    const bool isText = std::string(GetParam().name) == "Text";
    SetContent(isText ? "1\n-2\n0\n" : std::string("\1\0\0\0\xfe\xff\xff\xff\0\0\0\0", 12));
    GpcPolygon polygon;
    const std::optional<Exception> e = test::Caught([&] { Load(polygon); });
    ASSERT_TRUE(e);
    EXPECT_EQ(e->Message(), GString("GPCAlloc failure: vertex creation"));
    EXPECT_EQ(polygon.GetTotalVertexCount(), 0u);
    polygon = PolygonOf("7 7, 8 7, 7 8");
    EXPECT_EQ(Text(polygon), "7 7, 8 7, 7 8");
}

TEST_P(GpcPolygonFiles, ExhaustedHeapLeavesAPolygonThatCanBeLoadedAgain) {
    if (!test::AllocationProbe::Works()) {
        GTEST_SKIP() << "the sanitizer owns the heap";
    }
    Dump(PolygonOf(WITH_HOLE));
    CBufferedFile file(m_path.c_str(), "rb");
    std::fgetc(file.GetStream()); // the stream takes its buffer
    const std::vector<std::string> failures = test::FailEachAllocation([&] {
        std::rewind(file.GetStream());
        GpcPolygon polygon;
        (polygon.*GetParam().load)(file);
    });
    EXPECT_THAT(failures, testing::Each(testing::HasSubstr("GPCAlloc failure: ")));
    EXPECT_GE(failures.size(), 5u);
    for (std::size_t failAt = 0; failAt < failures.size(); ++failAt) {
        GpcPolygon polygon;
        std::rewind(file.GetStream());
        {
            test::AllocationProbe probe(failAt);
            EXPECT_THROW((polygon.*GetParam().load)(file), Exception);
        }
        EXPECT_EQ(polygon.GetBBox(), Box2d());
        Load(polygon);
        EXPECT_EQ(Text(polygon), WITH_HOLE);
    }
}

TEST(GpcPolygonBinaryFile, KeepsEveryBit) {
    const std::string path = testing::TempDir() + "geom_KeepsEveryBit.polygon";
    const double values[] = {0.1, -0.0, 1e-310, 1.7976931348623157e308,
                             std::numeric_limits<double>::infinity()};
    GpcPolygon polygon;
    for (const double value : values) {
        const Vec2d ring[] = {{value, -value}, {1, 2}};
        polygon.AddContours(GpcPolygon(ring, 2));
    }
    {
        CBufferedFile file(path.c_str(), "wb");
        polygon.DumpToBinaryFile(file);
    }
    GpcPolygon loaded;
    CBufferedFile file(path.c_str(), "rb");
    loaded.LoadFromBinaryFile(file);
    EXPECT_EQ(Text(loaded), Text(polygon));
    EXPECT_EQ(loaded.GetBBox(), polygon.GetBBox());
    std::remove(path.c_str());
}

TEST(GpcPolygonTextFile, LayoutIsTheEngines) {
    const std::string path = testing::TempDir() + "geom_LayoutIsTheEngines.polygon";
    {
        CBufferedFile file(path.c_str(), "wb");
        PolygonOf("0 0.5, -1 2 | hole 3 4").DumpToTextFile(file);
    }
    std::ifstream file(path);
    const std::string content{std::istreambuf_iterator<char>(file),
                              std::istreambuf_iterator<char>()};
    EXPECT_EQ(content, "2\n2\n0\n 0.000000000000000  0.500000000000000\n"
                       "-1.000000000000000  2.000000000000000\n"
                       "1\n1\n 3.000000000000000  4.000000000000000\n");
    std::remove(path.c_str());
}

} // namespace
} // namespace geom
