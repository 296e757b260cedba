// SPDX-License-Identifier: MIT
#include "geometry/Errors.h"
#include "geometry/Polyline.h"
#include "geometry/detail/LineClipRooms.h"
#include "geometry/detail/Overlap.h"

#include <limits>
#include <utility>

/// \file
/// How a segment becomes the pieces that contours let pass, and how pieces leave: as segments
/// or joined to runs.

namespace geom {

namespace {

bool IsNear(const Vec2d& a, const Vec2d& b) {
    return a.DistanceSquared(b) <= detail::SAME_POINT;
}

template <typename Segment>
void PutInOrder(Segment& segment) {
    if (detail::IsBefore(segment.endX, segment.endY, segment.startX, segment.startY)) {
        std::swap(segment.startX, segment.endX);
        std::swap(segment.startY, segment.endY);
    }
}

} // namespace

// Looks for a point between two neighbouring entries that is not on the contour, by halving
// towards the first; its side is that of the segment just behind `from`. False when both are
// (or come to be) the same point, so that everything between them is on the contour.
//
// Far from the origin neighbouring doubles are further apart than any tolerance; when no double
// lies between the two points, they count as the same. A distance that is not a number decides
// nothing.
bool LineClipPolygon::DecideBeside(const CONTOUR* contour, const CLIST& from, const CLIST& to,
                                   bool& inside) const {
    const Vec2d near(from.x, from.y);
    Vec2d far(to.x, to.y);
    while (near.DistanceSquared(far) > detail::SAME_POINT) {
        const Vec2d middle = (near + far) * 0.5;
        if (!on_contour(contour, &middle)) {
            inside = ProbeIsOdd(contour, middle);
            return true;
        }
        if (middle == far) {
            return false;
        }
        far = middle;
    }
    return !IsNear(near, far);
}

// Finds out whether a segment that starts on the contour first runs inside it. Leading entries
// that do not leave the contour are given up; false when no piece is left.
bool LineClipPolygon::DecideStart(const CONTOUR* contour, CrossingList& list, bool& inside) const {
    inside = false;
    while (!DecideBeside(contour, list[0], list[1], inside)) {
        ++list.first;
        if (list.Count() < 2) {
            return false;
        }
    }
    return true;
}

// A crossing turns inside to outside and back. A stretch along the boundary keeps the state of
// the piece before it, which turns where the stretch ends.
void LineClipPolygon::clip_to_contours(CONTOUR* contour, SEGMENT* segment, PieceCallback callback,
                                       void* context) const {
    PutInOrder(*segment);
    const Vec2d start(segment->startX, segment->startY);
    const Vec2d end(segment->endX, segment->endY);
    if (contour == nullptr) {
        callback(start, end, context);
        return;
    }
    const bool isOuter = (contour->flags & 1U) != 0;
    if (disjunct(contour, segment)) {
        if (!isOuter) {
            clip_to_contours(contour->next, segment, callback, context);
        }
        return;
    }
    const RingIndex* const index = IndexOf(contour);
    if (index != nullptr && index->AreClear(start, end)) {
        if (ProbeIsOdd(contour, start) == isOuter) {
            clip_to_contours(contour->next, segment, callback, context);
        }
        return;
    }
    CrossingList list;
    list.entries.Append({start.x, start.y, 0});
    list.entries.Append({end.x, end.y, 0});
    const bool startsOnContour = Gather(contour, *segment, list);
    bool inside = false;
    if (!startsOnContour) {
        inside = ProbeIsOdd(contour, start);
    } else if (!DecideStart(contour, list, inside)) {
        return;
    }
    bool pass = inside == isOuter;
    bool isOverlap = false;
    for (std::size_t k = 0; k + 1 < list.Count(); ++k) {
        if (pass) {
            SEGMENT piece = {list[k].x, list[k].y, list[k + 1].x, list[k + 1].y, nullptr, nullptr};
            clip_to_contours(contour->next, &piece, callback, context);
        }
        if (!isOverlap && list[k + 1].kind == 1) {
            isOverlap = true;
        } else {
            isOverlap = false;
            pass = !pass;
        }
    }
}

namespace {

void CollectPiece(const Vec2d& a, const Vec2d& b, void* pieces) {
    if (!IsNear(a, b)) {
        static_cast<std::vector<LineSegment2>*>(pieces)->emplace_back(a, b);
    }
}

/// Runs of points under construction in a caller's vectors.
class Runs {
public:
    Runs(std::vector<Vec2d>& points, std::vector<unsigned int>& counts)
        : m_points(points), m_counts(counts) {}

    static void JoinPiece(const Vec2d& a, const Vec2d& b, void* runs) {
        if (!IsNear(a, b)) {
            static_cast<Runs*>(runs)->Join(a, b);
        }
    }

private:
    void Join(const Vec2d& a, const Vec2d& b) {
        if (m_points.empty() || m_counts.empty()) {
            Start(a, b);
            return;
        }
        if (Extend(a, b)) {
            return;
        }
        // The first piece of a run may have come out against the run's direction.
        const std::size_t n = m_points.size();
        if (m_counts.back() == 2 && n >= 2) {
            std::swap(m_points[n - 2], m_points[n - 1]);
            if (Extend(a, b)) {
                return;
            }
        }
        Start(a, b);
    }

    bool Extend(const Vec2d& a, const Vec2d& b) {
        const Vec2d& last = m_points.back();
        if (!IsNear(last, a) && !IsNear(last, b)) {
            return false;
        }
        if (m_counts.back() == std::numeric_limits<unsigned int>::max()) {
            ThrowInternalError(detail::LINE_CLIP_FILE, detail::LINE_RUN_TOO_LONG);
        }
        m_points.push_back(IsNear(last, a) ? b : a);
        ++m_counts.back();
        return true;
    }

    void Start(const Vec2d& a, const Vec2d& b) {
        m_counts.push_back(2);
        try {
            m_points.insert(m_points.end(), {a, b});
        } catch (...) {
            m_counts.pop_back();
            throw;
        }
    }

    std::vector<Vec2d>& m_points;
    std::vector<unsigned int>& m_counts;
};

} // namespace

void LineClipPolygon::Clip(const Polyline& line, std::vector<LineSegment2>& out) const {
    Clip(line.GetVertices(), line.Size(), out);
}

void LineClipPolygon::Clip(const LineSegment2& segment, std::vector<LineSegment2>& out) const {
    SEGMENT ends = {segment.A().x, segment.A().y, segment.B().x, segment.B().y, nullptr, nullptr};
    clip_to_contours(contours, &ends, CollectPiece, &out);
}

void LineClipPolygon::Clip(const Vec2d* points, std::size_t n,
                           std::vector<LineSegment2>& out) const {
    const detail::StableInput<Vec2d> input(points, n, out);
    const Vec2d* const vertices = input.Data();
    for (std::size_t i = 0; i + 1 < n; ++i) {
        Clip(LineSegment2(vertices[i], vertices[i + 1]), out);
    }
}

void LineClipPolygon::Clip(const Vec2d* points, std::size_t n, std::vector<Vec2d>& outPoints,
                           std::vector<unsigned int>& outCounts) const {
    const detail::StableInput<Vec2d> input(points, n, outPoints);
    const Vec2d* const vertices = input.Data();
    Runs runs(outPoints, outCounts);
    for (std::size_t i = 0; i + 1 < n; ++i) {
        const Vec2d& a = vertices[i];
        const Vec2d& b = vertices[i + 1];
        SEGMENT segment = {a.x, a.y, b.x, b.y, nullptr, nullptr};
        clip_to_contours(contours, &segment, Runs::JoinPiece, &runs);
    }
}

} // namespace geom
