// SPDX-License-Identifier: MIT
// What holds for both file formats.
#include "FileSupport.h"

#include "geometry/Gpc.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/FailEachAllocation.h"

#include <gmock/gmock.h>

#include <climits>
#include <random>
#include <thread>

#if defined(__unix__)
#include <unistd.h>
#endif

namespace {

using namespace geom;
using namespace geom::test;
using testing::Each;
using testing::HasSubstr;
using testing::SizeIs;

constexpr int FIRST_ENTRIES = 65536;

class PolygonFiles : public testing::TestWithParam<FileFormat> {
protected:
    const FileFormat& format = GetParam();

    /// The file that begins with the given integers.
    std::string Integers(const std::vector<int>& values) const {
        std::string bytes;
        for (const int value : values) {
            bytes += format.read == TEXT.read ? std::to_string(value) + "\n" : BytesOf(value);
        }
        return bytes;
    }

    bool Read(const std::string& bytes, int holeFlags, gpc_polygon& polygon) const {
        const Stream stream = StreamOf(bytes);
        return format.read(stream.get(), holeFlags, &polygon);
    }

    void ExpectAllocationFailure(const std::string& bytes, gpc_polygon& polygon,
                                 const std::string& reason) const {
        const auto e = Caught([&] { Read(bytes, 0, polygon); });
        ASSERT_TRUE(e.has_value());
        EXPECT_EQ(e->Module(), L"GPC Library");
        EXPECT_EQ(e->File(), L"Gpc");
        EXPECT_EQ(e->Message().Narrow(), "GPCAlloc failure: " + reason);
        EXPECT_FALSE(e->Flag());
    }
};

INSTANTIATE_TEST_SUITE_P(Formats, PolygonFiles, testing::Values(TEXT, BINARY),
                         [](const auto& p) { return std::string(p.param.name); });

const std::vector<Contour> SQUARE_WITH_HOLE = {
    {0, {{0, 0}, {4, 0}, {4, 4}, {0, 4}}},
    {1, {{1, 1}, {1, 2.5}, {2.5, 1}}},
    {0, {}},
    {7, {{-0.125, -1e6}}},
};

} // namespace

TEST_P(PolygonFiles, RoundTripWithFlagsGivesTheSamePolygon) {
    const Record polygon(SQUARE_WITH_HOLE);
    Record copy;
    EXPECT_TRUE(Read(format.Written(polygon, 1), 1, copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST_P(PolygonFiles, RoundTripWithoutFlagsMakesEveryContourExternal) {
    Record polygon(SQUARE_WITH_HOLE);
    Record copy;
    EXPECT_TRUE(Read(format.Written(polygon, 0), 0, copy));
    EXPECT_FALSE(SameToTheBit(polygon, copy));
    std::fill_n(polygon.hole, polygon.num_contours, 0);
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST_P(PolygonFiles, AnySwitchThatIsNotZeroMeansFlags) {
    const Record polygon(SQUARE_WITH_HOLE);
    Record copy;
    EXPECT_TRUE(Read(format.Written(polygon, -3), 42, copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST_P(PolygonFiles, EmptyPolygonReadsBackWithNullArrays) {
    const Record empty;
    EXPECT_EQ(format.Written(empty, 0), Integers({0}));
    EXPECT_EQ(format.Written(empty, 1), Integers({0}));
    Record copy;
    copy.num_contours = 5;
    EXPECT_TRUE(Read(Integers({0}), 1, copy));
    EXPECT_EQ(copy.num_contours, 0);
    EXPECT_EQ(copy.hole, nullptr);
    EXPECT_EQ(copy.contour, nullptr);
}

TEST_P(PolygonFiles, ContourWithoutVerticesIsItsCountAndFlag) {
    const Record polygon({Contour{3, {}}});
    EXPECT_EQ(format.Written(polygon, 0), Integers({1, 0}));
    EXPECT_EQ(format.Written(polygon, 1), Integers({1, 0, 3}));
    Record copy;
    EXPECT_TRUE(Read(Integers({1, 0, 3}), 1, copy));
    ASSERT_EQ(copy.num_contours, 1);
    EXPECT_EQ(copy.hole[0], 3);
    EXPECT_EQ(copy.contour[0].num_vertices, 0);
    EXPECT_EQ(copy.contour[0].vertex, nullptr);
}

TEST_P(PolygonFiles, NullArgumentsAreFalseAndLeaveTheRecordAlone) {
    Record polygon(SQUARE_WITH_HOLE);
    const Stream stream = StreamOf("");
    EXPECT_FALSE(format.read(nullptr, 0, &polygon));
    EXPECT_FALSE(format.read(stream.get(), 0, nullptr));
    EXPECT_FALSE(format.write(nullptr, 0, &polygon));
    EXPECT_FALSE(format.write(stream.get(), 0, nullptr));
    EXPECT_TRUE(SameToTheBit(polygon, Record(SQUARE_WITH_HOLE)));
    std::rewind(stream.get());
    EXPECT_EQ(RestOf(stream.get()), "");
}

TEST_P(PolygonFiles, CountsWithoutArraysAreNotWritten) {
    gpc_polygon polygon = {2, nullptr, nullptr};
    const Stream stream = StreamOf("");
    EXPECT_FALSE(format.write(stream.get(), 0, &polygon));

    gpc_vertex_list lacking = {3, nullptr};
    polygon = {1, nullptr, &lacking};
    EXPECT_FALSE(format.write(stream.get(), 0, &polygon));

    gpc_vertex_list empty = {0, nullptr};
    polygon = {1, nullptr, &empty};
    EXPECT_FALSE(format.write(stream.get(), 1, &polygon)) << "no flags to write";
    EXPECT_EQ(format.Written(polygon, 0), Integers({1, 0}));
}

TEST_P(PolygonFiles, NegativeCountsAreWrittenAsTheyAre) {
    gpc_vertex_list negative = {-2, nullptr};
    const gpc_polygon polygon = {1, nullptr, &negative};
    EXPECT_EQ(format.Written(polygon, 0), Integers({1, -2}));
    const gpc_polygon nothing = {-7, nullptr, nullptr};
    EXPECT_EQ(format.Written(nothing, 1), Integers({-7}));
}

TEST_P(PolygonFiles, ReadingOverwritesWhateverTheRecordHolds) {
    for (const std::string& bytes : {std::string(), Integers({1}), Integers({1, 0})}) {
        gpc_polygon garbage;
        std::memset(&garbage, 0xA5, sizeof garbage);
        Read(bytes, 0, garbage);
        gpc_free_polygon(&garbage);
        EXPECT_EQ(garbage.num_contours, 0);
    }
}

TEST_P(PolygonFiles, EmptyInputIsFalse) {
    Record polygon;
    EXPECT_FALSE(Read("", 0, polygon));
    EXPECT_EQ(polygon.num_contours, 0);
    EXPECT_EQ(polygon.contour, nullptr);
}

TEST_P(PolygonFiles, FailedReadKeepsWhatWasReadAndZeroesTheRest) {
    const Record three({{1, {{1, 2}, {3, 4}}}, {1, {{5, 6}, {7, 8}}}, {1, {{9, 9}}}});
    std::string bytes = format.Written(three, 1);
    // Cut within the second contour, after its first vertex.
    const Record two({{1, {{1, 2}, {3, 4}}}, {1, {{5, 6}}}});
    bytes.resize(format.Written(two, 1).size());

    Record polygon;
    EXPECT_FALSE(Read(bytes, 1, polygon));
    ASSERT_EQ(polygon.num_contours, 3);
    EXPECT_EQ(polygon.hole[0], 1);
    ASSERT_EQ(polygon.contour[0].num_vertices, 2);
    EXPECT_EQ(polygon.contour[0].vertex[1].y, 4);
    ASSERT_EQ(polygon.contour[1].num_vertices, 2);
    EXPECT_EQ(polygon.contour[1].vertex[0].x, 5);
    EXPECT_EQ(polygon.contour[1].vertex[1].x, 0);
    EXPECT_EQ(polygon.contour[1].vertex[1].y, 0);
    EXPECT_EQ(polygon.hole[2], 0);
    EXPECT_EQ(polygon.contour[2].num_vertices, 0);
    EXPECT_EQ(polygon.contour[2].vertex, nullptr);
}

TEST_P(PolygonFiles, RecordOfAFailedReadCanBeLoadedAgainAfterItsRelease) {
    const Record polygon(SQUARE_WITH_HOLE);
    const std::string bytes = format.Written(polygon, 1);
    Record copy;
    EXPECT_FALSE(Read(bytes.substr(0, bytes.size() / 2), 1, copy));
    gpc_free_polygon(&copy);
    EXPECT_TRUE(Read(bytes, 1, copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST_P(PolygonFiles, ReadingFlagsThatAreNotThereNeverCrashes) {
    const Record polygon(SQUARE_WITH_HOLE);
    for (const int flags : {0, 1}) {
        Record misread;
        try {
            Read(format.Written(polygon, flags), 1 - flags, misread);
        } catch (const kit::Exception& e) {
            EXPECT_EQ(e.Module(), L"GPC Library");
        }
    }
}

TEST_P(PolygonFiles, FlagsReadAsVertexCountsAreNotNoticed) {
    const Record polygon({Contour{0, {}}, Contour{0, {}}});
    Record misread;
    EXPECT_TRUE(Read(format.Written(polygon, 1), 0, misread));
    EXPECT_EQ(misread.num_contours, 2);
}

TEST_P(PolygonFiles, NegativeContourCountIsAFailedAllocation) {
    for (const int count : {-1, -1000, INT_MIN}) {
        Record polygon;
        ExpectAllocationFailure(Integers({count}), polygon, "hole flag array creation");
        EXPECT_EQ(polygon.num_contours, count);
        EXPECT_EQ(polygon.hole, nullptr);
        EXPECT_EQ(polygon.contour, nullptr);
    }
}

TEST_P(PolygonFiles, NegativeVertexCountIsAFailedAllocation) {
    for (const int count : {-1, -1000, INT_MIN}) {
        Record polygon;
        ExpectAllocationFailure(Integers({2, 0, count, 0}), polygon, "vertex creation");
        EXPECT_EQ(polygon.num_contours, 2);
        EXPECT_EQ(polygon.contour[1].vertex, nullptr);
    }
}

TEST_P(PolygonFiles, HostileContourCountTakesNoMoreThanWasRead) {
    for (const int holeFlags : {0, 1}) {
        Record polygon;
        EXPECT_FALSE(Read(Integers({INT_MAX, 0, 0}), holeFlags, polygon));
        ASSERT_EQ(polygon.num_contours, FIRST_ENTRIES);
        for (int i = 0; i < polygon.num_contours; ++i) {
            ASSERT_EQ(polygon.hole[i], 0);
            ASSERT_EQ(polygon.contour[i].num_vertices, 0);
            ASSERT_EQ(polygon.contour[i].vertex, nullptr);
        }
    }
}

TEST_P(PolygonFiles, HostileVertexCountTakesNoMoreThanWasRead) {
    Record polygon;
    EXPECT_FALSE(Read(Integers({1, INT_MAX, 0, 0}), 0, polygon));
    ASSERT_EQ(polygon.num_contours, 1);
    ASSERT_EQ(polygon.contour[0].num_vertices, FIRST_ENTRIES);
    for (int i = 0; i < FIRST_ENTRIES; ++i) {
        ASSERT_EQ(polygon.contour[0].vertex[i].x, 0);
        ASSERT_EQ(polygon.contour[0].vertex[i].y, 0);
    }
}

TEST_P(PolygonFiles, ArraysGrowWithWhatIsRead) {
    std::vector<int> counts(1 + 70000, 0);
    for (const int announced : {70000, 100000, 200000}) {
        counts[0] = announced;
        Record polygon;
        EXPECT_EQ(Read(Integers(counts), 0, polygon), announced == 70000);
        ASSERT_EQ(polygon.num_contours, std::min(announced, 2 * FIRST_ENTRIES));
        EXPECT_EQ(polygon.contour[polygon.num_contours - 1].vertex, nullptr);
    }
}

TEST_P(PolygonFiles, LongContoursAndManyContoursReadBack) {
    Contour ring = {1, {}};
    for (int i = 0; i < 3 * FIRST_ENTRIES + 5; ++i) {
        ring.vertices.push_back({i * 0.5, -i * 0.25});
    }
    std::vector<gpc_vertex_list> lists(2 * FIRST_ENTRIES + 3, {0, nullptr});
    std::vector<int> holes(lists.size());
    for (std::size_t i = 0; i < lists.size(); ++i) {
        lists[i] = {static_cast<int>(i % 3), ring.vertices.data()};
        holes[i] = static_cast<int>(i % 2);
    }
    lists[1] = {static_cast<int>(ring.vertices.size()), ring.vertices.data()};
    const gpc_polygon polygon = {static_cast<int>(lists.size()), holes.data(), lists.data()};
    Record copy;
    EXPECT_TRUE(Read(format.Written(polygon, 1), 1, copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST_P(PolygonFiles, FailedAllocationsNameTheirStepAndLeaveAReleasableRecord) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    const Record polygon(SQUARE_WITH_HOLE);
    const Stream stream = StreamOf(format.Written(polygon, 1));
    std::vector<char> buffer(4096); // the stream's own would be a request more
    const Stream read(std::tmpfile());
    std::setvbuf(read.get(), buffer.data(), _IOFBF, buffer.size());
    const std::string bytes = RestOf(stream.get());
    std::fwrite(bytes.data(), 1, bytes.size(), read.get());
    bool whole = false;
    const std::vector<std::string> failures = FailEachAllocation([&] {
        std::rewind(read.get());
        Record copy; // released whatever happens
        whole = format.read(read.get(), 1, &copy) && SameToTheBit(polygon, copy);
    });
    EXPECT_TRUE(whole);
    ASSERT_THAT(failures, SizeIs(5));
    EXPECT_THAT(failures, Each(testing::StartsWith("GPC Library, Gpc ")));
    EXPECT_THAT(failures[0], HasSubstr("GPCAlloc failure: hole flag array creation"));
    EXPECT_THAT(failures[1], HasSubstr("GPCAlloc failure: contour creation"));
    for (std::size_t i = 2; i < 5; ++i) {
        EXPECT_THAT(failures[i], HasSubstr("GPCAlloc failure: vertex creation"));
    }
}

TEST_P(PolygonFiles, FailedGrowthLeavesAReleasableRecord) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer";
    }
    std::vector<int> counts(1 + 70000, 0);
    counts[0] = 70000;
    const Stream stream = StreamOf(Integers(counts));
    std::vector<char> buffer(4096);
    std::setvbuf(stream.get(), buffer.data(), _IOFBF, buffer.size());
    for (const std::size_t k : {2U, 3U}) {
        std::rewind(stream.get());
        int contours = 0;
        bool thrown = false;
        std::ptrdiff_t balance = 0;
        {
            const AllocationProbe probe(k);
            Record polygon;
            try {
                format.read(stream.get(), 0, &polygon);
            } catch (const kit::Exception&) {
                thrown = true;
            }
            contours = polygon.num_contours;
            gpc_free_polygon(&polygon);
            balance = probe.Balance();
        }
        EXPECT_TRUE(thrown);
        EXPECT_EQ(contours, FIRST_ENTRIES);
        EXPECT_EQ(balance, 0);
    }
}

TEST_P(PolygonFiles, SeveralPolygonsFollowOneAnotherInOneFile) {
    const Record first(SQUARE_WITH_HOLE);
    const Record second({{0, {{1, 2}}}});
    const Stream stream = StreamOf(format.Written(first, 1) + format.Written(second, 1) + "rest");
    Record a;
    Record b;
    EXPECT_TRUE(format.read(stream.get(), 1, &a));
    EXPECT_TRUE(format.read(stream.get(), 1, &b));
    EXPECT_TRUE(SameToTheBit(a, first));
    EXPECT_TRUE(SameToTheBit(b, second));
    const std::string rest = RestOf(stream.get());
    EXPECT_EQ(rest, format.read == TEXT.read ? "\nrest" : "rest");
}

TEST_P(PolygonFiles, StreamsOfTheWrongDirectionAreFalse) {
    const std::string path = testing::TempDir() + "polygon_files_direction_" + format.name;
    Record polygon({{0, {{1, 2}}}});
    {
        const Stream stream(std::fopen(path.c_str(), "wb"));
        ASSERT_NE(stream, nullptr);
        Record copy;
        EXPECT_FALSE(format.read(stream.get(), 0, &copy));
    }
    {
        const Stream stream(std::fopen(path.c_str(), "rb"));
        ASSERT_NE(stream, nullptr);
        EXPECT_FALSE(format.write(stream.get(), 0, &polygon));
    }
    std::remove(path.c_str());
}

TEST_P(PolygonFiles, RandomBytesNeverCrash) {
    constexpr unsigned int SEED = 33;
    std::mt19937 random(SEED);
    SCOPED_TRACE(SEED);
    const std::string sound = format.Written(Record(SQUARE_WITH_HOLE), 1);
    int whole = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = sound;
        for (std::size_t changes = random() % 4; changes > 0; --changes) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        Record polygon;
        try {
            whole += Read(bytes, static_cast<int>(random() % 2), polygon) ? 1 : 0;
        } catch (const kit::Exception& e) {
            EXPECT_EQ(e.Module(), L"GPC Library");
        }
    }
    EXPECT_GT(whole, 300);
}

#if defined(__unix__)

namespace {

/// A pipe into which a thread writes piece by piece, keeping it open until it is told not to.
class Pipe {
public:
    explicit Pipe(std::vector<std::string> pieces) {
        int ends[2];
        if (pipe(ends) != 0) {
            ADD_FAILURE() << "no pipe";
            return;
        }
        reader.reset(fdopen(ends[0], "rb"));
        m_write = ends[1];
        m_thread = std::thread([this, all = std::move(pieces)] {
            for (const std::string& piece : all) {
                for (std::size_t done = 0; done < piece.size();) {
                    const ssize_t n = ::write(m_write, piece.data() + done, piece.size() - done);
                    if (n <= 0) {
                        return;
                    }
                    done += static_cast<std::size_t>(n);
                }
            }
        });
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() { Close(); }

    void Close() {
        if (m_thread.joinable()) {
            m_thread.join();
            ::close(m_write);
        }
    }

    Stream reader;

private:
    int m_write = -1;
    std::thread m_thread;
};

std::vector<std::string> OneByOne(const std::string& bytes) {
    std::vector<std::string> pieces;
    for (const char c : bytes) {
        pieces.emplace_back(1, c);
    }
    return pieces;
}

} // namespace

// The writer keeps the pipe open: a reader that asked for more than it needs would not return.
TEST_P(PolygonFiles, PipesAreLeftBehindTheLastVertex) {
    const Record polygon(SQUARE_WITH_HOLE);
    const std::string bytes = format.Written(polygon, 1);
    for (const bool buffered : {true, false}) {
        Pipe pipe(OneByOne(bytes + "behind"));
        if (!buffered) {
            std::setvbuf(pipe.reader.get(), nullptr, _IONBF, 0);
        }
        Record copy;
        EXPECT_TRUE(format.read(pipe.reader.get(), 1, &copy));
        EXPECT_TRUE(SameToTheBit(polygon, copy));
        char rest[8] = "";
        const std::string expected = format.read == TEXT.read ? "\nbehind" : "behind";
        EXPECT_EQ(std::fread(rest, 1, expected.size(), pipe.reader.get()), expected.size());
        EXPECT_EQ(rest, expected);
    }
}

TEST_P(PolygonFiles, PipesDeliverLongPolygons) {
    Contour ring = {1, {}};
    for (int i = 0; i < 100000; ++i) {
        ring.vertices.push_back({i * 0.5, -i * 0.25});
    }
    const Record polygon({ring, {0, {{1, 2}}}});
    Pipe pipe({format.Written(polygon, 1)});
    Record copy;
    EXPECT_TRUE(format.read(pipe.reader.get(), 1, &copy));
    EXPECT_TRUE(SameToTheBit(polygon, copy));
}

TEST_P(PolygonFiles, FullDeviceIsReportedWhereTheStreamReportsIt) {
    const Stream unbuffered(std::fopen("/dev/full", "wb"));
    if (!unbuffered) {
        GTEST_SKIP() << "there is no /dev/full";
    }
    std::setvbuf(unbuffered.get(), nullptr, _IONBF, 0);
    const Record small(SQUARE_WITH_HOLE);
    EXPECT_FALSE(format.write(unbuffered.get(), 0, &small));

    Contour ring = {0, {}};
    ring.vertices.resize(10000, {1, 2});
    const Record large({ring});
    const Stream buffered(std::fopen("/dev/full", "wb"));
    EXPECT_FALSE(format.write(buffered.get(), 0, &large));
    const Record manyEmpty(std::vector<Contour>(10000, Contour{0, {}}));
    const Stream counts(std::fopen("/dev/full", "wb"));
    EXPECT_FALSE(format.write(counts.get(), 0, &manyEmpty));
    // What fits into the buffer fails when it is flushed.
    const Stream fresh(std::fopen("/dev/full", "wb"));
    EXPECT_TRUE(format.write(fresh.get(), 0, &small));
    EXPECT_NE(std::fflush(fresh.get()), 0);
}

#endif
