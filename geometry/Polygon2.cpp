// SPDX-License-Identifier: MIT
#include "geometry/Polygon2.h"

#include "geometry/Errors.h"
#include "geometry/PolygonMeasures.h"
#include "geometry/detail/Rings.h"

#include <algorithm>
#include <type_traits>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"Polygon2";
constexpr int LINE_RING_OUT_OF_RANGE = 132;

using PointIterator = std::vector<Vec2d>::iterator;

std::ptrdiff_t Steps(std::size_t n) {
    return static_cast<std::ptrdiff_t>(n);
}

// The end of a ring that begins here and says it has `count` points.
PointIterator RingEnd(PointIterator first, PointIterator last, unsigned int count) {
    return first + Steps(detail::RingSize(count, static_cast<std::size_t>(last - first)));
}

// Copies a ring to where it belongs, in front of or at its old place, without consecutive equal
// points and without a repeated closing point. Returns the new end.
PointIterator MoveWithoutDuplicates(PointIterator from, PointIterator end, PointIterator to) {
    const PointIterator first = to;
    for (; from != end; ++from) {
        if (to == first || *from != to[-1]) {
            *to++ = *from;
        }
    }
    return to - first > 1 && to[-1] == *first ? to - 1 : to;
}

} // namespace

static_assert(std::is_standard_layout_v<Polygon2> && sizeof(Polygon2) == sizeof(Polygon2Data),
              "a polygon is its two arrays");

// A ring's place among the points.
struct Polygon2::RingSpan {
    std::size_t first, count;
};

void Polygon2::clear() {
    m_data.points.clear();
    m_data.counts.clear();
}

bool Polygon2::empty() const {
    return m_data.points.empty() || m_data.counts.empty();
}

void Polygon2::Take(Polygon2Data& data) {
    clear();
    if (&data != &m_data) {
        m_data.points.swap(data.points);
        m_data.counts.swap(data.counts);
    }
    Normalize();
}

void Polygon2::Normalize() {
    RemoveDuplicatePoints();
    std::vector<unsigned int>& counts = m_data.counts;
    counts.erase(std::remove(counts.begin(), counts.end(), 0U), counts.end());
}

std::size_t Polygon2::RingIndexToPointIndex(std::size_t ring) const {
    if (ring >= m_data.counts.size()) {
        ThrowInternalError(UNIT, LINE_RING_OUT_OF_RANGE);
    }
    std::size_t first = 0;
    for (std::size_t i = 0; i < ring; ++i) {
        first += m_data.counts[i];
    }
    return std::min(first, m_data.points.size());
}

Polygon2::RingSpan Polygon2::SpanOf(std::size_t ring) const {
    const std::size_t first = RingIndexToPointIndex(ring);
    return {first, detail::RingSize(m_data.counts[ring], m_data.points.size() - first)};
}

void Polygon2::RemoveRing(std::size_t ring) {
    const RingSpan span = SpanOf(ring);
    const PointIterator first = m_data.points.begin() + Steps(span.first);
    m_data.points.erase(first, first + Steps(span.count));
    m_data.counts.erase(m_data.counts.begin() + Steps(ring));
}

Polygon2::RingOrientationStatus Polygon2::RingOrientation(std::size_t ring) const {
    if (empty()) {
        return Degenerate;
    }
    const RingSpan span = SpanOf(ring);
    const double area = PolygonArea(m_data.points.data() + span.first, span.count);
    if (area < 0.0) {
        return Clockwise;
    }
    return area > 0.0 ? CounterClockwise : Degenerate;
}

void Polygon2::RemoveDegenerateRings(std::size_t minPoints) {
    auto& [points, counts] = m_data;
    PointIterator from = points.begin();
    PointIterator to = from;
    auto kept = counts.begin();
    for (const unsigned int count : counts) {
        const PointIterator end = RingEnd(from, points.end(), count);
        if (static_cast<std::size_t>(end - from) >= minPoints) {
            *kept++ = static_cast<unsigned int>(end - from);
            to = std::move(from, end, to);
        }
        from = end;
    }
    points.erase(to, from);
    counts.erase(kept, counts.end());
}

void Polygon2::Reverse() {
    PointIterator first = m_data.points.begin();
    for (const unsigned int count : m_data.counts) {
        const PointIterator end = RingEnd(first, m_data.points.end(), count);
        std::reverse(first, end);
        first = end;
    }
}

void Polygon2::RemoveDuplicatePoints() {
    PointIterator from = m_data.points.begin();
    PointIterator to = from;
    for (unsigned int& count : m_data.counts) {
        const PointIterator first = to;
        const PointIterator end = RingEnd(from, m_data.points.end(), count);
        to = MoveWithoutDuplicates(from, end, to);
        count = static_cast<unsigned int>(to - first);
        from = end;
    }
    m_data.points.erase(to, from);
}

} // namespace geom
