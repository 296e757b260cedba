// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Errors.h"
#include "geometry/Errors.h"
#include "geometry/detail/LineClipRooms.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>

/// \file
/// The contours of LineClipPolygon: how they are made from points, freed, and indexed.

namespace geom {

namespace detail {

void ThrowLineClipOutOfMemory(int line) {
    kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), LINE_CLIP_FILE, line);
}

} // namespace detail

namespace {

// Rings smaller than this are walked as fast as an index is asked.
constexpr std::size_t FEWEST_INDEXED_EDGES = 16;

template <typename Record>
Record* Allocate(int line) {
    void* const block = std::malloc(sizeof(Record));
    if (block == nullptr) {
        detail::ThrowLineClipOutOfMemory(line);
    }
    return static_cast<Record*>(block);
}

// Frees a ring, also one that is not closed yet.
template <typename Segment>
void FreeRing(Segment* edge) {
    if (edge != nullptr && edge->prev != nullptr) {
        edge->prev->next = nullptr;
    }
    while (edge != nullptr) {
        Segment* const next = edge->next;
        std::free(edge);
        edge = next;
    }
}

/// A ring under construction, which it owns until it is handed over.
template <typename Segment>
class RingBuilder {
public:
    RingBuilder() = default;
    RingBuilder(const RingBuilder&) = delete;
    RingBuilder& operator=(const RingBuilder&) = delete;
    ~RingBuilder() { FreeRing(m_first); }

    void AddEdge(const Vec2d& from, const Vec2d& to) {
        Segment* const edge = Allocate<Segment>(detail::LINE_EDGE);
        *edge = {from.x, from.y, to.x, to.y, nullptr, m_last};
        (m_last == nullptr ? m_first : m_last->next) = edge;
        m_last = edge;
    }

    /// Lengthens the last edge to `next` when it runs there without a turn.
    bool Extend(const Vec2d& next) {
        Segment& last = *m_last;
        if ((next.y - last.endY) * (last.endX - last.startX) !=
            (next.x - last.endX) * (last.endY - last.startY)) {
            return false;
        }
        last.endX = next.x;
        last.endY = next.y;
        return true;
    }

    Segment* Close() {
        m_last->next = m_first;
        m_first->prev = m_last;
        Segment* const ring = m_first;
        m_first = m_last = nullptr;
        return ring;
    }

private:
    Segment* m_first = nullptr;
    Segment* m_last = nullptr;
};

} // namespace

void LineClipPolygon::def_contour(CONTOUR** list, const Vec2d* points, int n, int hole) {
    if (n <= 0) {
        return;
    }
    std::unique_ptr<CONTOUR, void (*)(void*)> contour(Allocate<CONTOUR>(detail::LINE_CONTOUR),
                                                      std::free);
    const auto follower = [points, n](int i) -> const Vec2d& {
        return points[i + 1 < n ? i + 1 : 0];
    };
    RingBuilder<SEGMENT> ring;
    ring.AddEdge(points[0], follower(0));
    for (int i = 1; i < n; ++i) {
        if (!ring.Extend(follower(i))) {
            ring.AddEdge(points[i], follower(i));
        }
    }
    Box2d box;
    for (int i = 0; i < n; ++i) {
        box.minX = std::min(box.minX, points[i].x);
        box.minY = std::min(box.minY, points[i].y);
        box.maxX = std::max(box.maxX, points[i].x);
        box.maxY = std::max(box.maxY, points[i].y);
    }
    const std::uint16_t flags = hole == 1 ? 0 : 1;
    *contour = {flags, ring.Close(), nullptr, box.minX, box.minY, box.maxX, box.maxY};
    while (*list != nullptr) {
        list = &(*list)->next;
    }
    *list = contour.release();
}

void LineClipPolygon::del_contours(CONTOUR** list) {
    while (*list != nullptr) {
        CONTOUR* const contour = *list;
        if (m_index != nullptr && m_index->contour == contour) {
            m_index.reset();
        }
        *list = contour->next;
        FreeRing(contour->segments);
        std::free(contour);
    }
}

bool LineClipPolygon::contours_bbox(CONTOUR** list, Box2d& box) const {
    if (*list == nullptr) {
        box = {0.0, 0.0, 0.0, 0.0};
        return false;
    }
    const CONTOUR* contour = *list;
    box = {contour->minX, contour->minY, contour->maxX, contour->maxY};
    if (contour->next != nullptr) {
        for (contour = contour->next; contour->next != nullptr; contour = contour->next) {
            box |= Box2d(contour->minX, contour->minY, contour->maxX, contour->maxY);
        }
    }
    return true;
}

bool LineClipPolygon::disjunct(const CONTOUR* contour, const SEGMENT* segment) const {
    return contour->minX > std::max(segment->startX, segment->endX) ||
           std::min(segment->startX, segment->endX) > contour->maxX ||
           contour->minY > std::max(segment->startY, segment->endY) ||
           std::min(segment->startY, segment->endY) > contour->maxY;
}

// Of the first contour, which is the only one unless a derived class has added others.
void LineClipPolygon::BuildIndex(std::size_t mostEdges) {
    if (contours == nullptr) {
        return;
    }
    try {
        auto index = std::make_unique<RingIndex>();
        std::vector<Vec2d>& vertices = index->vertices;
        vertices.reserve(mostEdges + 3);
        const SEGMENT* edge = contours->segments;
        vertices.emplace_back(edge->prev->startX, edge->prev->startY);
        do {
            vertices.emplace_back(edge->startX, edge->startY);
            edge = edge->next;
        } while (edge != contours->segments);
        const std::size_t count = vertices.size() - 1;
        if (count < FEWEST_INDEXED_EDGES) {
            return;
        }
        vertices.emplace_back(edge->startX, edge->startY);
        vertices.emplace_back(edge->endX, edge->endY);
        const detail::FramedRing ring(&vertices[1], count);
        index->edges = detail::EdgeIndex(ring);
        if (index->edges.IsBuilt()) {
            index->contour = contours;
            index->cells = detail::ClearCells(ring, ProbeStart(contours));
            m_index = std::move(index);
        }
    } catch (const std::bad_alloc&) {
        detail::ThrowLineClipOutOfMemory(detail::LINE_INDEX);
    }
}

const LineClipPolygon::RingIndex* LineClipPolygon::IndexOf(const CONTOUR* contour) const {
    return m_index != nullptr && m_index->contour == contour ? m_index.get() : nullptr;
}

} // namespace geom
