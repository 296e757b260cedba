// SPDX-License-Identifier: MIT
// Sequences of calls of Polygon2 beside a model that takes its rings apart and puts them together
// again. What must hold after every call:
// - points and counts are those of the model, also where counts say more or less than there are
//   points;
// - orientation, area and membership are those of the plain measures;
// - on grids, where sums are exact, cleaning changes no area and reversing negates it.
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/Target.h"

#include "Subsystems/Kit/Exception.h"
#include "geometry/Polygon2.h"
#include "geometry/PolygonMeasures.h"
#include "tests/reference/PlainRings.h"

#include <algorithm>
#include <numeric>

namespace geom::fuzz {

namespace {

constexpr int MOST_CALLS = 16;
constexpr int MOST_RINGS = 6;
constexpr int MOST_POINTS = 10;

/// Rings, cut short where there are too few points, and the points behind them.
struct Parts {
    std::vector<Points> rings;
    Points rest;
};

struct Arrays {
    Points points;
    std::vector<unsigned int> counts;
};

Parts TakeApart(const Arrays& arrays) {
    Parts parts;
    std::size_t first = 0;
    for (const unsigned int count : arrays.counts) {
        const std::size_t end = first + std::min<std::size_t>(count, arrays.points.size() - first);
        parts.rings.emplace_back(arrays.points.begin() + static_cast<std::ptrdiff_t>(first),
                                 arrays.points.begin() + static_cast<std::ptrdiff_t>(end));
        first = end;
    }
    parts.rest.assign(arrays.points.begin() + static_cast<std::ptrdiff_t>(first),
                      arrays.points.end());
    return parts;
}

Arrays PutTogether(const Parts& parts) {
    Arrays arrays;
    for (const Points& ring : parts.rings) {
        arrays.points.insert(arrays.points.end(), ring.begin(), ring.end());
        arrays.counts.push_back(static_cast<unsigned int>(ring.size()));
    }
    arrays.points.insert(arrays.points.end(), parts.rest.begin(), parts.rest.end());
    return arrays;
}

void RemoveRingsBelow(Arrays& arrays, std::size_t minPoints) {
    Parts parts = TakeApart(arrays);
    std::vector<Points> kept;
    for (const Points& ring : parts.rings) {
        if (ring.size() >= minPoints) {
            kept.push_back(ring);
        }
    }
    parts.rings = kept;
    arrays = PutTogether(parts);
}

void RemoveDuplicates(Arrays& arrays) {
    Parts parts = TakeApart(arrays);
    for (Points& ring : parts.rings) {
        ring = test::PlainWithoutDuplicates(ring);
    }
    arrays = PutTogether(parts);
}

double AreaOf(const Parts& parts) {
    double area = 0;
    for (const Points& ring : parts.rings) {
        area += test::PlainRingArea(ring);
    }
    return area;
}

class Machine {
public:
    explicit Machine(ByteSource& bytes) : m_bytes(bytes), m_coordinates(bytes) {}

    void Run() {
        for (int i = 0; i < MOST_CALLS && !m_bytes.AtEnd(); ++i) {
            Call();
            CheckArrays();
            CheckMeasures();
        }
    }

private:
    void Call();
    void Take();
    void Edit();
    void RemoveRing();
    void RemoveDegenerateRings();
    void Reverse();
    void RemoveDuplicatePoints();
    Arrays TakeArrays();
    bool IsExact() const;
    void CheckArrays() const;
    void CheckMeasures();

    ByteSource& m_bytes;
    Coordinates m_coordinates;
    Polygon2 m_polygon;
    Arrays m_model;
};

void Machine::Call() {
    switch (m_bytes.Below(8)) {
    case 0: Take(); break;
    case 1: Edit(); break;
    case 2: RemoveRing(); break;
    case 3: RemoveDegenerateRings(); break;
    case 4: Reverse(); break;
    case 5: RemoveDuplicatePoints(); break;
    case 6: {
        const Polygon2 copy(m_polygon);
        m_polygon = copy;
        break;
    }
    case 7:
        m_polygon.clear();
        m_model = Arrays();
        FUZZ_CHECK(m_polygon.empty());
        break;
    }
}

/// Mostly sound; sometimes counts say more or less than there are points.
Arrays Machine::TakeArrays() {
    Parts parts;
    parts.rings = TakeRings(m_bytes, m_coordinates, MOST_RINGS, MOST_POINTS);
    Arrays arrays = PutTogether(parts);
    switch (m_bytes.Below(5)) {
    case 0: arrays.points.resize(arrays.points.size() / 2); break;
    case 1: arrays.points.push_back(m_coordinates.Next()); break;
    case 2: arrays.counts.push_back(0xFFFFFFFFU - static_cast<unsigned int>(m_bytes.Byte())); break;
    default: break;
    }
    return arrays;
}

void Machine::Take() {
    const Arrays arrays = TakeArrays();
    Polygon2Data data{arrays.points, arrays.counts};
    m_polygon.Take(data);
    FUZZ_CHECK(data.points.empty() && data.counts.empty());
    m_model = arrays;
    RemoveDuplicates(m_model);
    RemoveRingsBelow(m_model, 1);
    const std::vector<unsigned int>& counts = m_polygon.Counts();
    FUZZ_CHECK(std::accumulate(counts.begin(), counts.end(), std::size_t{0}) <=
               m_polygon.Points().size());
}

void Machine::Edit() {
    m_model = TakeArrays();
    m_polygon.Points() = m_model.points;
    m_polygon.Counts() = m_model.counts;
}

void Machine::RemoveRing() {
    const std::size_t ring = m_bytes.Byte() % (MOST_RINGS + 2);
    if (ring >= m_model.counts.size()) {
        try {
            m_polygon.RemoveRing(ring);
        } catch (const kit::Exception& e) {
            FUZZ_CHECK(e.Line() == 132);
            return;
        }
        Fail("an error is thrown", __FILE__, __LINE__);
    }
    m_polygon.RemoveRing(ring);
    Parts parts = TakeApart(m_model);
    const auto at = static_cast<std::ptrdiff_t>(ring);
    std::vector<unsigned int> counts = m_model.counts; // as they were, also where they say too much
    counts.erase(counts.begin() + at);
    parts.rings.erase(parts.rings.begin() + at);
    m_model = PutTogether(parts);
    m_model.counts = counts;
}

void Machine::RemoveDegenerateRings() {
    const std::size_t minPoints = m_bytes.Byte() % 6;
    m_polygon.RemoveDegenerateRings(minPoints);
    RemoveRingsBelow(m_model, minPoints);
}

void Machine::Reverse() {
    const double before = PolygonArea(m_polygon);
    m_polygon.Reverse();
    FUZZ_CHECK(!IsExact() || PolygonArea(m_polygon) == -before);
    Parts parts = TakeApart(m_model);
    for (Points& ring : parts.rings) {
        std::reverse(ring.begin(), ring.end());
    }
    m_model.points = PutTogether(parts).points;
}

void Machine::RemoveDuplicatePoints() {
    const double before = PolygonArea(m_polygon);
    m_polygon.RemoveDuplicatePoints();
    FUZZ_CHECK(!IsExact() || PolygonArea(m_polygon) == before);
    RemoveDuplicates(m_model);
}

/// Whether sums and products of coordinates are not rounded.
bool Machine::IsExact() const {
    const CoordinateKind kind = m_coordinates.Kind();
    return kind == CoordinateKind::SmallGrid || kind == CoordinateKind::FineGrid ||
           kind == CoordinateKind::SignedZeros;
}

void Machine::CheckArrays() const {
    FUZZ_CHECK(SameBits(m_polygon.Points(), m_model.points));
    FUZZ_CHECK(m_polygon.Counts() == m_model.counts);
    FUZZ_CHECK(m_polygon.empty() == (m_model.points.empty() || m_model.counts.empty()));
}

void Machine::CheckMeasures() {
    const Parts parts = TakeApart(m_model);
    for (std::size_t i = 0; i < parts.rings.size() && !m_polygon.empty(); ++i) {
        const double area = test::PlainRingArea(parts.rings[i]);
        const Polygon2::RingOrientationStatus expected = area < 0   ? Polygon2::Clockwise
                                                         : area > 0 ? Polygon2::CounterClockwise
                                                                    : Polygon2::Degenerate;
        FUZZ_CHECK(m_polygon.RingOrientation(i) == expected);
    }
    FUZZ_CHECK(SameBits(PolygonArea(m_polygon), AreaOf(parts)));
    const Vec2d p = m_coordinates.Next();
    bool isInside = false;
    for (const Points& ring : parts.rings) {
        isInside = isInside != test::PlainPointInRing(p, ring);
    }
    FUZZ_CHECK(PointInPolygon(p, m_polygon) == isInside);
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    geom::fuzz::Machine(bytes).Run();
    return 0;
}
