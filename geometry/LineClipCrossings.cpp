// SPDX-License-Identifier: MIT
#include "geometry/detail/LineClipRooms.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>

/// \file
/// Where a segment crosses or follows a contour, and on which side of it points lie.
///
/// All tests are signs of rounded cross products, compared exactly. A segment runs from P with
/// direction d, an edge from A to B = A + e; for the crossing of their lines
///
///     den = d x e,    s / den: the place on the edge,    t / den: the place on the segment.

namespace geom {

namespace {

template <typename Segment>
int SidesOf(const Segment& segment, const Vec2d& a, const Vec2d& b) {
    const double dx = segment.endX - segment.startX;
    const double dy = segment.endY - segment.startY;
    const double sa = (a.y - segment.startY) * dx - (a.x - segment.startX) * dy;
    const double sb = (b.y - segment.endY) * dx - (b.x - segment.endX) * dy;
    if (sa == 0.0 || sb == 0.0) {
        return 0;
    }
    return (sa > 0.0 && sb < 0.0) || (sa < 0.0 && sb > 0.0) ? -1 : 1;
}

// Whether value / den lies in [0, 1].
bool IsFraction(double value, double den) {
    return den > 0.0 ? 0.0 <= value && value <= den : den < 0.0 && den <= value && value <= 0.0;
}

// An edge on the segment's line. Where the boundary stays on one side of the line, it only
// touches the segment; else the ends of the overlap are recorded. The start belongs to the
// smaller end and the end to the larger one, whichever way the edge runs, so that a recorded
// point may lie beyond the segment.
template <typename Edge, typename Segment, typename Record>
void FollowEdge(const Edge& edge, const Segment& segment, Record record) {
    if (SidesOf(segment, edge.Before(), edge.After()) > 0) {
        return;
    }
    const Vec2d start = edge.Start();
    const Vec2d end = edge.End();
    const bool isVertical = segment.startX == segment.endX;
    const double a = isVertical ? start.y : start.x;
    const double b = isVertical ? end.y : end.x;
    const double p = isVertical ? segment.startY : segment.startX;
    const double q = isVertical ? segment.endY : segment.endX;
    const double edgeLow = std::min(a, b);
    const double edgeHigh = std::max(a, b);
    const double low = std::min(p, q);
    const double high = std::max(p, q);
    if (!(edgeLow <= high && low <= edgeHigh)) {
        return;
    }
    if (edgeLow > low) {
        record(start.x, start.y, std::uint16_t{1});
    }
    if (high > edgeHigh) {
        record(end.x, end.y, std::uint16_t{1});
    }
}

// Records where the segment crosses the edge. The edge's end is left to the next edge, whose
// start it is; there, and where the boundary only touches the segment's line, nothing crosses.
// The segment's own ends are no crossings.
template <typename Edge, typename Segment, typename Record>
void CrossEdge(const Edge& edge, const Segment& segment, Record record) {
    const Vec2d start = edge.Start();
    const Vec2d end = edge.End();
    const double dx = segment.endX - segment.startX;
    const double dy = segment.endY - segment.startY;
    const double ex = end.x - start.x;
    const double ey = end.y - start.y;
    const double ax = start.x - segment.startX;
    const double ay = start.y - segment.startY;
    const double den = dx * ey - ex * dy;
    const double s = ax * dy - ay * dx;
    if (den == 0.0) {
        if (s == 0.0) {
            FollowEdge(edge, segment, record);
        }
        return;
    }
    const double t = ax * ey - ay * ex;
    if (!IsFraction(s, den) || !IsFraction(t, den) || s == den || t == den || t == 0.0) {
        return;
    }
    if (s == 0.0 && SidesOf(segment, edge.Before(), end) >= 0) {
        return;
    }
    const bool isVertical = segment.startX == segment.endX;
    const bool isHorizontal = segment.startY == segment.endY;
    record(isVertical ? segment.startX : start.x + ex * (s / den),
           isHorizontal ? segment.startY : start.y + ey * (s / den), std::uint16_t{0});
}

// Whether a point in the edge's box lies on the edge.
template <typename Edge>
bool IsOnEdge(const Edge& edge, const Vec2d& p) {
    const Vec2d a = edge.Start();
    const Vec2d b = edge.End();
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y) && (p.y - a.y) * (b.x - p.x) == (p.x - a.x) * (b.y - p.y);
}

// Stable, so that equal points stay in ring order.
template <typename Entry>
void SortCrossings(Entry* entries, std::size_t count) {
    constexpr std::size_t FEW = 16;
    const auto isBefore = [](const Entry& a, const Entry& b) {
        return detail::IsBefore(a.x, a.y, b.x, b.y);
    };
    const auto isNumber = [](const Entry& a) { return !std::isnan(a.x) && !std::isnan(a.y); };
    // Coordinates that are not numbers have no order, and the outcome is then the algorithm's.
    if (count > FEW || !std::all_of(entries, entries + count, isNumber)) {
        std::stable_sort(entries, entries + count, isBefore);
        return;
    }
    for (std::size_t i = 1; i < count; ++i) {
        const Entry entry = entries[i];
        std::size_t k = i;
        for (; k > 0 && isBefore(entry, entries[k - 1]); --k) {
            entries[k] = entries[k - 1];
        }
        entries[k] = entry;
    }
}

} // namespace

int LineClipPolygon::p_where(const Vec2d* a, const Vec2d* b, const SEGMENT* segment) const {
    return SidesOf(*segment, *a, *b);
}

// Visits, in ring order, at least all edges that a crossing test accepts for the segment and
// all that its ends lie on. Memory may run out here and in the visits.
template <typename Visit>
void LineClipPolygon::VisitEdgesNear(const CONTOUR* contour, const SEGMENT& segment,
                                     Visit visit) const {
    const Vec2d p(segment.startX, segment.startY);
    const Vec2d q(segment.endX, segment.endY);
    const RingIndex* const index = IndexOf(contour);
    try {
        if (index != nullptr && index->edges.IsGoodFor(p, q)) {
            detail::EdgeIndex::Found found;
            if (index->edges.FindNear(p, q, found)) {
                for (const std::uint32_t edge : found) {
                    visit(index->At(edge));
                }
                return;
            }
        }
        const SEGMENT* edge = contour->segments;
        do {
            visit(LinkedEdge(edge));
            edge = edge->next;
        } while (edge != contour->segments);
    } catch (const std::bad_alloc&) {
        detail::ThrowLineClipOutOfMemory(detail::LINE_CROSSING_LIST);
    }
}

void LineClipPolygon::cross_calc(const CONTOUR* contour, SEGMENT* segment, CLIST** list,
                                 long* count, long capacity) const {
    const auto record = [&](double x, double y, std::uint16_t kind) {
        if (*count >= capacity) {
            capacity = std::max(2 * capacity, *count + 1);
            void* const block =
                std::realloc(*list, static_cast<std::size_t>(capacity) * sizeof(CLIST));
            if (block == nullptr) {
                throw std::bad_alloc();
            }
            *list = static_cast<CLIST*>(block);
        }
        (*list)[(*count)++] = {x, y, kind};
    };
    VisitEdgesNear(contour, *segment, [&](const auto& edge) { CrossEdge(edge, *segment, record); });
    SortCrossings(*list, static_cast<std::size_t>(*count));
}

// As cross_calc, into a list of our own. Tells whether the segment starts on the contour.
bool LineClipPolygon::Gather(const CONTOUR* contour, const SEGMENT& segment,
                             CrossingList& list) const {
    const Vec2d start(segment.startX, segment.startY);
    bool startsOnContour = false;
    VisitEdgesNear(contour, segment, [&](const auto& edge) {
        startsOnContour = startsOnContour || IsOnEdge(edge, start);
        CrossEdge(edge, segment, [&list](double x, double y, std::uint16_t kind) {
            list.entries.Append({x, y, kind});
        });
    });
    SortCrossings(list.entries.Data(), list.entries.Count());
    return startsOnContour;
}

// Left of the contour.
double LineClipPolygon::ProbeStart(const CONTOUR* contour) {
    return contour->minX - 2.0;
}

// Whether a probe crosses the contour an odd number of times behind a clear place. Only the way
// from there is searched, but the tests are those of the whole probe.
bool LineClipPolygon::ShortProbeIsOdd(const CONTOUR* contour, const SEGMENT& probe,
                                      double fromX) const {
    const SEGMENT last = {fromX, probe.startY, probe.endX, probe.endY, nullptr, nullptr};
    bool isOdd = false;
    VisitEdgesNear(contour, last, [&](const auto& edge) {
        CrossEdge(edge, probe,
                  [&](double x, double, std::uint16_t) { isOdd = isOdd != (x > fromX); });
    });
    return isOdd;
}

// Whether a horizontal probe from the left of the contour to the point crosses it an odd number
// of times; the two ends of an overlap are one crossing.
bool LineClipPolygon::ProbeIsOdd(const CONTOUR* contour, const Vec2d& p) const {
    const SEGMENT probe = {ProbeStart(contour), p.y, p.x, p.y, nullptr, nullptr};
    const RingIndex* const index = IndexOf(contour);
    detail::ClearCells::Place place;
    if (index != nullptr && index->cells.FindBefore(p, place)) {
        return place.isInside != (place.x < p.x && ShortProbeIsOdd(contour, probe, place.x));
    }
    CrossingList list;
    Gather(contour, probe, list);
    const std::size_t count = list.Count();
    std::size_t pairs = 0;
    for (std::size_t k = 0; k + 1 < count; ++k) {
        if (list[k].kind == 1 && list[k + 1].kind == 1) {
            ++pairs;
            ++k;
        }
    }
    return (count - pairs) % 2 != 0;
}

bool LineClipPolygon::p_inside(const CONTOUR* contour, const Vec2d* p) const {
    return ProbeIsOdd(contour, *p) && !on_contour(contour, p);
}

bool LineClipPolygon::on_contour(const CONTOUR* contour, const Vec2d* p) const {
    if (const RingIndex* const index = IndexOf(contour)) {
        return index->edges.AnyAt(
            *p, [&](std::uint32_t edge) { return IsOnEdge(index->At(edge), *p); });
    }
    const SEGMENT* edge = contour->segments;
    do {
        if (IsOnEdge(LinkedEdge(edge), *p)) {
            return true;
        }
        edge = edge->next;
    } while (edge != contour->segments);
    return false;
}

} // namespace geom
