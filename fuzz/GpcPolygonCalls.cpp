// SPDX-License-Identifier: MIT
// Sequences of calls of GpcPolygon on four polygons, each followed by a plain model of itself.
// What must hold after every call: every polygon is what its model is, in all its forms; errors
// are those that are stated and leave the polygon as it was.
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/PolygonModel.h"
#include "fuzz/support/Target.h"

#include "Subsystems/Kit/BufferedFile.h"
#include "geometry/GPCException.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>
#include <utility>

namespace geom::fuzz {

namespace {

constexpr int POLYGONS = 4;
constexpr int MOST_CALLS = 24;
constexpr int MOST_RINGS = 3;
constexpr int MOST_POINTS = 8;

/// The plain sweep takes its time, and contours without vertices can be doubled, too.
constexpr std::size_t MOST_VERTICES = 40;
constexpr std::size_t MOST_CONTOURS = 40;

/// A file that goes with the process.
class ScratchFile {
public:
    ScratchFile() {
        const int descriptor = ::mkstemp(m_path);
        FUZZ_CHECK(descriptor >= 0);
        ::close(descriptor);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { std::remove(m_path); }

    const char* Path() const { return m_path; }

private:
    char m_path[32] = "/tmp/fuzz_polygon_XXXXXX";
};

const char* ScratchPath() {
    static const ScratchFile file;
    return file.Path();
}

struct Subject {
    GpcPolygon polygon;
    PolygonModel model;

    bool IsSmall() const {
        return model.VertexCount() <= MOST_VERTICES && model.Contours().size() <= MOST_CONTOURS;
    }
};

/// Flat points and their counts.
struct Flat {
    Points points;
    std::vector<unsigned int> counts;
};

Flat Flatten(const std::vector<Points>& rings) {
    Flat flat;
    for (const Points& ring : rings) {
        flat.points.insert(flat.points.end(), ring.begin(), ring.end());
        flat.counts.push_back(static_cast<unsigned int>(ring.size()));
    }
    return flat;
}

std::vector<tagPOINT> Whole(const Points& points) {
    std::vector<tagPOINT> whole;
    for (const Vec2d& p : points) {
        whole.push_back({static_cast<std::int32_t>(p.x * 16), static_cast<std::int32_t>(p.y * 16)});
    }
    return whole;
}

Points Doubles(const std::vector<tagPOINT>& whole) {
    Points points;
    for (const tagPOINT& p : whole) {
        points.emplace_back(p.x, p.y);
    }
    return points;
}

PolygonModel ModelOf(const std::vector<Points>& rings) {
    PolygonModel model;
    for (const Points& ring : rings) {
        model.AddRing(ring);
    }
    return model;
}

template <typename Call>
void ExpectError(Call call, int line) {
    try {
        call();
    } catch (const kit::Exception& e) {
        FUZZ_CHECK(e.Module() == kit::GString("Geometry"));
        FUZZ_CHECK(e.File() == kit::GString("GpcPolygon"));
        FUZZ_CHECK(e.Line() == line);
        return;
    }
    Fail("an error is thrown", __FILE__, __LINE__);
}

class Machine {
public:
    explicit Machine(ByteSource& bytes)
        : m_bytes(bytes),
          // Of coordinates that are not finite no model says what becomes of them.
          m_coordinates(bytes, static_cast<CoordinateKind>(
                                   bytes.Below(static_cast<int>(CoordinateKind::Scaled)))) {}

    void Run() {
        for (int i = 0; i < MOST_CALLS && !m_bytes.AtEnd(); ++i) {
            Subject& subject = Pick();
            Call(subject);
            for (const Subject& any : m_subjects) {
                FUZZ_CHECK(any.model.Describes(any.polygon));
            }
        }
    }

private:
    Subject& Pick() { return m_subjects[m_bytes.Below(POLYGONS)]; }
    Points TakeRing() { return TakePoints(m_bytes, m_coordinates, MOST_POINTS); }
    std::vector<Points> TakeSome() {
        return TakeRings(m_bytes, m_coordinates, MOST_RINGS, MOST_POINTS);
    }

    void Call(Subject& subject);

    void MakeRing(Subject& subject);
    void MakeWholeRing(Subject& subject);
    void MakeRings(Subject& subject);
    void MakeWholeRings(Subject& subject);
    void MakeRectangle(Subject& subject);
    void MakeWholeRectangle(Subject& subject);
    void Copy(Subject& subject);
    void Move(Subject& subject);
    void Combine(Subject& subject, gpc_op operation);
    void AddPolygon(Subject& subject);
    void AddRings(Subject& subject);
    void RemoveReturnPaths(Subject& subject);
    void CheckPoint(const Subject& subject);
    void CheckRectangle(const Subject& subject);
    void CheckStrips(const Subject& subject);
    void PassThroughFile(Subject& subject, bool isText);
    void LoadFromHostileFile(Subject& subject);
    void CheckErrors(Subject& subject);

    ByteSource& m_bytes;
    Coordinates m_coordinates;
    Subject m_subjects[POLYGONS];
};

void Machine::Call(Subject& subject) {
    switch (m_bytes.Below(21)) {
    case 0: MakeRing(subject); break;
    case 1: MakeWholeRing(subject); break;
    case 2: MakeRings(subject); break;
    case 3: MakeWholeRings(subject); break;
    case 4: MakeRectangle(subject); break;
    case 5: MakeWholeRectangle(subject); break;
    case 6: Copy(subject); break;
    case 7: Move(subject); break;
    case 8: Combine(subject, GPC_INT); break;
    case 9: Combine(subject, GPC_UNION); break;
    case 10: Combine(subject, GPC_DIFF); break;
    case 11: Combine(subject, GPC_XOR); break;
    case 12: AddPolygon(subject); break;
    case 13: AddRings(subject); break;
    case 14: RemoveReturnPaths(subject); break;
    case 15: CheckPoint(subject); break;
    case 16: CheckRectangle(subject); break;
    case 17: CheckStrips(subject); break;
    case 18: PassThroughFile(subject, m_bytes.Flag()); break;
    case 19: LoadFromHostileFile(subject); break;
    case 20: CheckErrors(subject); break;
    }
}

void Machine::MakeRing(Subject& subject) {
    const Points ring = TakeRing();
    subject.polygon = GpcPolygon(ring.data(), ring.size());
    subject.model = PolygonModel(ring);
}

void Machine::MakeWholeRing(Subject& subject) {
    const std::vector<tagPOINT> ring = Whole(TakeRing());
    subject.polygon = GpcPolygon(ring.data(), ring.size());
    subject.model = PolygonModel(Doubles(ring));
}

void Machine::MakeRings(Subject& subject) {
    const std::vector<Points> rings = TakeSome();
    const Flat flat = Flatten(rings);
    subject.polygon = GpcPolygon(flat.points.data(), flat.counts.data(), rings.size());
    subject.model = ModelOf(rings);
}

void Machine::MakeWholeRings(Subject& subject) {
    std::vector<Points> rings = TakeSome();
    for (Points& ring : rings) {
        ring = Doubles(Whole(ring));
    }
    const Flat flat = Flatten(rings);
    std::vector<tagPOINT> whole;
    for (const Vec2d& p : flat.points) {
        whole.push_back({static_cast<std::int32_t>(p.x), static_cast<std::int32_t>(p.y)});
    }
    subject.polygon = GpcPolygon(whole.data(), flat.counts.data(), rings.size());
    subject.model = ModelOf(rings);
}

void Machine::MakeRectangle(Subject& subject) {
    const Vec2d a = m_coordinates.Next();
    const Vec2d b = m_coordinates.Next();
    subject.polygon = GpcPolygon(a.x, a.y, b.x, b.y);
    const bool hasArea = a.x != b.x && a.y != b.y;
    subject.model = hasArea ? PolygonModel(Points{a, {b.x, a.y}, b, {a.x, b.y}}) : PolygonModel();
}

void Machine::MakeWholeRectangle(Subject& subject) {
    const std::vector<tagPOINT> ends = Whole({m_coordinates.Next(), m_coordinates.Next()});
    const tagRECT r = {ends[0].x, ends[0].y, ends[1].x, ends[1].y};
    subject.polygon = GpcPolygon(r);
    subject.model = PolygonModel(
        Doubles({{r.left, r.top}, {r.right, r.top}, {r.right, r.bottom}, {r.left, r.bottom}}));
}

void Machine::Copy(Subject& subject) {
    const Subject& other = Pick();
    if (m_bytes.Flag()) {
        subject.polygon = other.polygon;
    } else {
        GpcPolygon copy(other.polygon);
        subject.polygon = std::move(copy);
    }
    subject.model = PolygonModel(other.model);
}

void Machine::Move(Subject& subject) {
    Subject& other = Pick();
    if (m_bytes.Flag()) {
        subject.polygon = std::move(other.polygon);
    } else {
        GpcPolygon taken(std::move(other.polygon));
        FUZZ_CHECK(other.polygon.GetNumContours() == 0);
        subject.polygon = std::move(taken);
    }
    if (&subject != &other) {
        subject.model = other.model;
        other.model.Clear();
    }
}

void Machine::Combine(Subject& subject, gpc_op operation) {
    using Operation = void (GpcPolygon::*)(const GpcPolygon&);
    constexpr Operation OPERATIONS[] = {&GpcPolygon::Difference, &GpcPolygon::Intersection,
                                        &GpcPolygon::XOR, &GpcPolygon::Union};
    const Subject& other = Pick();
    if (!subject.IsSmall() || !other.IsSmall()) {
        return;
    }
    bool succeeds = true;
    if (&subject != &other) {
        succeeds = subject.model.Combine(operation, other.model);
    } else if (operation == GPC_DIFF || operation == GPC_XOR) {
        subject.model.Clear();
    }
    try {
        (subject.polygon.*OPERATIONS[operation])(other.polygon);
        FUZZ_CHECK(succeeds);
    } catch (const GPCException&) {
        FUZZ_CHECK(!succeeds);
    }
}

void Machine::AddPolygon(Subject& subject) {
    const Subject& other = Pick();
    if (subject.IsSmall() && other.IsSmall()) {
        subject.polygon.AddContours(other.polygon);
        subject.model.AddContours(other.model);
    }
}

void Machine::AddRings(Subject& subject) {
    const std::vector<Points> rings = TakeSome();
    if (subject.IsSmall()) {
        const Flat flat = Flatten(rings);
        subject.polygon.AddContours(flat.points.data(), flat.counts.data(), rings.size());
        subject.model.AddContours(ModelOf(rings));
    }
}

void Machine::RemoveReturnPaths(Subject& subject) {
    if (!subject.IsSmall()) {
        return;
    }
    const Box2d box = subject.model.Box();
    const GpcPolygon rectangle(box.minX, box.minY, box.maxX, box.maxY);
    PolygonModel clip;
    if (rectangle.GetNumContours() != 0) {
        clip.AddRing({{box.minX, box.minY},
                      {box.maxX, box.minY},
                      {box.maxX, box.maxY},
                      {box.minX, box.maxY}});
    }
    const bool succeeds = subject.model.Combine(GPC_INT, clip);
    try {
        subject.polygon.RemoveZeroWidthReturnPaths();
        FUZZ_CHECK(succeeds);
    } catch (const GPCException&) {
        FUZZ_CHECK(!succeeds);
    }
}

/// On the boundary of a polygon that is no rectangle, membership depends on the sweep.
void Machine::CheckPoint(const Subject& subject) {
    const Vec2d corner = m_coordinates.Next();
    const Vec2d p = m_bytes.Flag() ? corner : Vec2d(corner.x + 0.375, corner.y + 0.21875);
    if (!subject.IsSmall()) {
        return;
    }
    try {
        const bool isInside = subject.polygon.PointInside(p);
        FUZZ_CHECK(subject.polygon.PointInside(p) == isInside);
        FUZZ_CHECK(!isInside || subject.model.Box().Contains(p));
        if (subject.polygon.IsRectangle(nullptr)) {
            FUZZ_CHECK(isInside == subject.model.Box().Contains(p));
        } else if (!subject.model.IsOnAnEdge(p)) {
            FUZZ_CHECK(isInside == subject.model.Contains(p));
        }
    } catch (const GPCException&) {
        // The sweep failed twice.
    }
}

void Machine::CheckRectangle(const Subject& subject) {
    const std::vector<ModelContour>& contours = subject.model.Contours();
    bool expected = false;
    Box2d expectedBox;
    if (contours.size() == 1 && contours[0].points.size() == 4) {
        const Points& p = contours[0].points;
        expected = p[0].y == p[1].y && p[1].x == p[2].x && p[2].y == p[3].y && p[3].x == p[0].x;
        expectedBox = Box2d(p[3].x, p[3].y, p[1].x, p[1].y);
    }
    Box2d box;
    FUZZ_CHECK(subject.polygon.IsRectangle(&box) == expected);
    FUZZ_CHECK(!expected || box == expectedBox);
}

/// Collects strips until one too many is offered.
struct StripCollector {
    std::size_t most;
    std::vector<Points> strips;

    static bool Take(const Vec2d* pts, unsigned int n, void* user) {
        auto& self = *static_cast<StripCollector*>(user);
        self.strips.emplace_back(pts, pts + n);
        return self.strips.size() < self.most;
    }
};

void Machine::CheckStrips(const Subject& subject) {
    const int most = m_bytes.Byte();
    if (!subject.IsSmall()) {
        return;
    }
    const auto expected = subject.model.Strips();
    StripCollector collector = {static_cast<std::size_t>(most) + 1, {}};
    std::vector<Points> outlines = {{{1, 2}}};
    try {
        const bool isWhole = subject.polygon.Decompose(&StripCollector::Take, &collector);
        FUZZ_CHECK(expected.has_value());
        FUZZ_CHECK(isWhole == (expected->size() < collector.most));
        subject.polygon.Decompose(outlines);
    } catch (const GPCException&) {
        FUZZ_CHECK(!expected.has_value());
        return;
    }
    FUZZ_CHECK(collector.strips.size() == std::min(expected->size(), collector.most));
    FUZZ_CHECK(outlines.size() == 1 + expected->size());
    for (std::size_t s = 0; s < collector.strips.size(); ++s) {
        const Points& strip = collector.strips[s];
        FUZZ_CHECK(strip.size() == (*expected)[s].size());
        for (std::size_t i = 0; i < strip.size(); ++i) {
            FUZZ_CHECK(SameBits(strip[i], {(*expected)[s][i].x, (*expected)[s][i].y}));
        }
        const Points& outline = outlines[s + 1];
        FUZZ_CHECK(outline.size() >= strip.size() && outline.size() <= strip.size() + 1);
        FUZZ_CHECK(outline.front() == outline.back());
    }
}

void Machine::PassThroughFile(Subject& subject, bool isText) {
    Subject& target = Pick();
    CBufferedFile file(ScratchPath(), "wb");
    isText ? subject.polygon.DumpToTextFile(file) : subject.polygon.DumpToBinaryFile(file);
    file.Open(ScratchPath(), "rb");
    isText ? target.polygon.LoadFromTextFile(file) : target.polygon.LoadFromBinaryFile(file);
    target.model = PolygonModel(subject.model);
    if (isText) {
        target.model.RoundToText();
    }
}

/// What a failed load leaves can be assigned to.
void Machine::LoadFromHostileFile(Subject& subject) {
    const bool isText = m_bytes.Flag();
    {
        CBufferedFile file(ScratchPath(), "wb");
        for (int n = m_bytes.Below(24); n > 0; --n) {
            std::fputc(m_bytes.Byte(), file.GetStream());
        }
    }
    CBufferedFile file(ScratchPath(), "rb");
    try {
        isText ? subject.polygon.LoadFromTextFile(file) : subject.polygon.LoadFromBinaryFile(file);
    } catch (const kit::Exception&) {
    }
    const Subject nothing;
    if (m_bytes.Flag()) {
        subject.polygon = GpcPolygon();
    } else {
        subject.polygon = nothing.polygon;
    }
    subject.model.Clear();
}

void Machine::CheckErrors(Subject& subject) {
    const GpcPolygon& polygon = subject.polygon;
    const unsigned int counts[] = {1};
    ExpectError([&] { polygon.GetContourVertexCount(polygon.GetNumContours()); }, 122);
    ExpectError([&] { GpcPolygon(static_cast<const Vec2d*>(nullptr), 3); }, 131);
    ExpectError([&] { subject.polygon.AddContours(nullptr, counts, 1); }, 131);
    ExpectError([&] { subject.polygon.AddContours(nullptr, nullptr, 1); }, 132);
    ExpectError([&] { polygon.Decompose(nullptr, nullptr); }, 700);
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    geom::fuzz::Machine(bytes).Run();
    return 0;
}
