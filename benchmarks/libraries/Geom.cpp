// SPDX-License-Identifier: MIT
// The library to be measured.
#include "Entries.h"

#include "geometry/ClipUtil.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/Geometry.h"
#include "geometry/GpcPolygon.h"
#include "geometry/LineClipPolygon.h"
#include "geometry/OffsetPolygon.h"
#include "geometry/PolygonMeasures.h"
#include "geometry/SpatialSearchGrid2D.h"
#include "tests/support/PolygonView.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace geom::bench {

namespace {

/// A region as the engine's record.
struct Record {
    explicit Record(const Region& region) : rings(region.rings), view(rings) {}

    test::Rings rings;
    test::PolygonView view;
};

double RingArea(const gpc_vertex* v, std::size_t n) {
    double twice = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const gpc_vertex& b = v[i + 1 < n ? i + 1 : 0];
        twice += Cross(v[i].x, v[i].y, b.x, b.y);
    }
    return twice / 2;
}

/// External contours less holes.
Answer Measure(const gpc_polygon& polygon) {
    Answer answer;
    for (int c = 0; c < polygon.num_contours; ++c) {
        const gpc_vertex_list& list = polygon.contour[c];
        const auto n = static_cast<std::size_t>(list.num_vertices);
        const double area = std::fabs(RingArea(list.vertex, n));
        answer.value += polygon.hole[c] != 0 ? -area : area;
        answer.vertices += n;
    }
    return answer;
}

/// All rings of a polygon in one array.
struct Flat {
    explicit Flat(const Region& region) {
        for (const Ring& ring : region.rings) {
            counts.push_back(static_cast<unsigned int>(ring.size()));
            for (const gpc_vertex& v : ring) {
                points.emplace_back(v.x, v.y);
            }
        }
    }
    Flat() = default;

    void Clear() { *this = Flat(); }

    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
};

double SignedArea(const Flat& flat) {
    return PolygonArea(flat.points.data(), flat.counts.data(), flat.counts.size());
}

Answer Lengths(const Flat& lines) {
    Answer answer{0, lines.points.size()};
    const Vec2d* at = lines.points.data();
    for (unsigned int n : lines.counts) {
        answer.value += PolylineLength(at, n);
        at += n;
    }
    return answer;
}

struct SetOperationState {
    SetOperationState(gpc_op op, const Regions& operands)
        : operation(op), subject(operands.subject), clip(operands.clip) {}

    void Run() { gpc_polygon_clip(operation, &subject.view.Get(), &clip.view.Get(), &result); }
    Answer Find() const { return Measure(result); }
    void Clear() { gpc_free_polygon(&result); }

    gpc_op operation;
    Record subject, clip;
    gpc_polygon result = {0, nullptr, nullptr};
};

struct StripState {
    explicit StripState(const Region& region) : polygon(region) {}

    void Run() { gpc_polygon_to_tristrip(&polygon.view.Get(), &result); }
    Answer Find() const {
        Answer answer;
        for (int s = 0; s < result.num_strips; ++s) {
            const gpc_vertex_list& strip = result.strip[s];
            for (int i = 2; i < strip.num_vertices; ++i) {
                answer.value += std::fabs(RingArea(strip.vertex + i - 2, 3));
            }
            answer.vertices += static_cast<std::size_t>(strip.num_vertices);
        }
        return answer;
    }
    void Clear() { gpc_free_tristrip(&result); }

    Record polygon;
    gpc_tristrip result = {0, nullptr};
};

struct BoxClipState {
    void Run() {
        for (const Box2d& box : boxes) {
            Flat piece;
            ClipPolyPolygonToRect(polygon.points.data(), polygon.counts.data(),
                                  polygon.counts.size(), box, piece.points, piece.counts, false);
            area += SignedArea(piece);
        }
    }
    Answer Find() const { return {area, 0}; }
    void Clear() { area = 0; }

    Flat polygon;
    std::vector<Box2d> boxes;
    double area = 0;
};

struct OffsetState {
    void Run() { OffsetPolygon(polygon, distance, result); }
    Answer Find() const { return {std::fabs(PolygonArea(result)), result.Points().size()}; }
    void Clear() { result = Polygon2(); }

    Polygon2 polygon;
    double distance;
    Polygon2 result;
};

struct RingMeasureState {
    void Run() { value = measure(ring.points.data(), ring.points.size()); }
    Answer Find() const { return {std::fabs(value), 0}; }
    void Clear() {}

    Flat ring;
    double (*measure)(const Vec2d* pts, std::size_t n);
    double value = 0;
};

struct LinesToBoxState {
    void Run() {
        ClipPolylinesToRect(lines.points.data(), lines.counts.data(), lines.counts.size(), box,
                            result.points, result.counts);
    }
    Answer Find() const { return Lengths(result); }
    void Clear() { result.Clear(); }

    Lines lines;
    Box2d box;
    Flat result;
};

/// The index of the polygon is built within the run.
struct LinesToRegionState {
    void Run() {
        const LineClipPolygon clip(polygon.points.data(), polygon.counts.data(),
                                   polygon.counts.size());
        ClipPolylinesToPolygon(lines.points.data(), lines.counts.data(), lines.counts.size(), clip,
                               result.points, result.counts);
    }
    Answer Find() const { return Lengths(result); }
    void Clear() { result.Clear(); }

    Lines lines;
    Flat polygon;
    Flat result;
};

struct DashState {
    void Run() {
        DashLineGenerator generator(pattern.data(), pattern.size());
        generator.Decompose(line.points.data(), line.points.size(), result);
    }
    Answer Find() const {
        Answer answer{0, 2 * result.size()};
        for (const LineSegment2& piece : result) {
            answer.value += std::hypot(piece.B().x - piece.A().x, piece.B().y - piece.A().y);
        }
        return answer;
    }
    void Clear() { result = {}; }

    Lines line;
    std::vector<double> pattern;
    std::vector<LineSegment2> result;
};

struct InsideState {
    void Run() {
        inside = 0;
        for (const Vec2d& p : queries) {
            inside += PointInPolygon(p, ring.points.data(), ring.points.size()) ? 1U : 0U;
        }
    }
    Answer Find() const { return {static_cast<double>(inside), 0}; }
    void Clear() {}

    Flat ring;
    std::vector<Vec2d> queries;
    std::size_t inside = 0;
};

class Vertices : public SpatialSearchGrid2D::IVertexSource {
public:
    explicit Vertices(std::vector<Vec2d> points) : m_points(std::move(points)) {}

    bool GetVertex(int index, Vec2d& out) const override {
        out = m_points[static_cast<std::size_t>(index)];
        return true;
    }

private:
    std::vector<Vec2d> m_points;
};

struct NearestState {
    void Run() {
        SpatialSearchGrid2D grid;
        grid.Initialize(0, count, vertices);
        sum = 0;
        for (const Vec2d& p : queries) {
            Vec2d found;
            vertices->GetVertex(grid.Query(p), found);
            sum += std::sqrt(p.DistanceSquared(found));
        }
    }
    Answer Find() const { return {sum, 0}; }
    void Clear() {}

    std::shared_ptr<Vertices> vertices;
    int count;
    std::vector<Vec2d> queries;
    double sum = 0;
};

struct CleanState {
    explicit CleanState(const Region& region) {
        const Flat flat(region);
        dirty.Points() = flat.points;
        dirty.Counts() = flat.counts;
        Clear();
    }

    void Run() {
        polygon.RemoveDuplicatePoints();
        polygon.RemoveDegenerateRings(3);
    }
    Answer Find() const {
        const std::size_t n = polygon.Points().size();
        return {static_cast<double>(n), n};
    }
    void Clear() { polygon = dirty; }

    Polygon2 dirty, polygon;
};

using FileFunction = bool (*)(std::FILE*, int, const gpc_polygon*);

struct FileState {
    explicit FileState(const Region& region) : polygon(region), file(std::tmpfile()) {
        if (file == nullptr) {
            throw std::runtime_error("no temporary file");
        }
    }
    FileState(const FileState&) = delete;
    FileState& operator=(const FileState&) = delete;
    ~FileState() { std::fclose(file); }

    Answer Find() const {
        const gpc_polygon& counted = result.contour != nullptr ? result : polygon.view.Get();
        const Answer answer = Measure(counted);
        return {static_cast<double>(answer.vertices), answer.vertices};
    }
    void Clear() {
        gpc_free_polygon(&result);
        std::rewind(file);
    }

    Record polygon;
    std::FILE* file;
    gpc_polygon result = {0, nullptr, nullptr};
};

struct WriteState : FileState {
    WriteState(const Region& region, bool binary)
        : FileState(region), write(binary ? gpc_write_polygon_binary : gpc_write_polygon) {}

    void Run() {
        if (!write(file, 1, &polygon.view.Get()) || std::fflush(file) != 0) {
            throw std::runtime_error("cannot write");
        }
    }

    FileFunction write;
};

struct ReadState : WriteState {
    ReadState(const Region& region, bool binary)
        : WriteState(region, binary), read(binary ? gpc_read_polygon_binary : gpc_read_polygon) {
        WriteState::Run();
        Clear();
    }

    void Run() {
        if (!read(file, 1, &result)) {
            throw std::runtime_error("cannot read");
        }
    }

    bool (*read)(std::FILE*, int, gpc_polygon*);
};

class Geom : public Library {
public:
    std::string Name() const override { return "geom"; }

    Job SetOperation(gpc_op operation, const Regions& operands) const override {
        return MakeJob(std::make_shared<SetOperationState>(operation, operands));
    }
    Job Strips(const Region& region) const override {
        return MakeJob(std::make_shared<StripState>(region));
    }
    Job ClipToBoxes(const Region& region, const std::vector<Box2d>& boxes) const override {
        return MakeJob(std::make_shared<BoxClipState>(BoxClipState{Flat(region), boxes}));
    }
    Job Offset(const Region& region, double distance) const override {
        const Flat flat(region);
        Polygon2Data data{flat.points, flat.counts};
        OffsetState state{{}, distance, {}};
        state.polygon.Take(data);
        return MakeJob(std::make_shared<OffsetState>(state));
    }
    Job Area(const Ring& ring) const override { return Measured(ring, &PolygonArea); }
    Job Perimeter(const Ring& ring) const override { return Measured(ring, &PolygonPerimeter); }
    Job ClipLinesToBox(const Lines& lines, const Box2d& box) const override {
        return MakeJob(std::make_shared<LinesToBoxState>(LinesToBoxState{lines, box, {}}));
    }
    Job ClipLinesToRegion(const Lines& lines, const Region& region) const override {
        return MakeJob(
            std::make_shared<LinesToRegionState>(LinesToRegionState{lines, Flat(region), {}}));
    }
    Job Dash(const Lines& line, const std::vector<double>& pattern) const override {
        return MakeJob(std::make_shared<DashState>(DashState{line, pattern, {}}));
    }
    Job PointsInside(const Ring& ring, const std::vector<Vec2d>& queries) const override {
        return MakeJob(std::make_shared<InsideState>(InsideState{Flat({{ring}, {0}}), queries}));
    }
    Job Nearest(const std::vector<Vec2d>& points,
                const std::vector<Vec2d>& queries) const override {
        return MakeJob(std::make_shared<NearestState>(NearestState{
            std::make_shared<Vertices>(points), static_cast<int>(points.size()), queries}));
    }
    Job CleanRings(const Region& region) const override {
        return MakeJob(std::make_shared<CleanState>(region));
    }
    Job WriteFile(const Region& region, bool binary) const override {
        return MakeJob(std::make_shared<WriteState>(region, binary));
    }
    Job ReadFile(const Region& region, bool binary) const override {
        return MakeJob(std::make_shared<ReadState>(region, binary));
    }

private:
    static Job Measured(const Ring& ring, double (*measure)(const Vec2d* pts, std::size_t n)) {
        return MakeJob(
            std::make_shared<RingMeasureState>(RingMeasureState{Flat({{ring}, {0}}), measure}));
    }
};

} // namespace

const Library& GeomEntry() {
    static const Geom geom;
    return geom;
}

} // namespace geom::bench
