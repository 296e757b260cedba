// SPDX-License-Identifier: MIT
// Polylines against a rectangle: chains of segments, one run for as long as each clipped segment
// starts where the one before it ended.
#include "geometry/CLineClip.h"
#include "geometry/Errors.h"
#include "geometry/detail/LineRuns.h"
#include "geometry/detail/Overlap.h"
#include "geometry/detail/PointLanes.h"

#include <limits>
#include <utility>

namespace geom {

namespace {

constexpr int LINE_NULL_POINTS = 24;
constexpr int LINE_RUN_TOO_LONG = 25;

void CheckPoints(const Vec2d* pts, std::size_t n) {
    if (pts == nullptr && n != 0) {
        ThrowInternalError(L"CLineClip", LINE_NULL_POINTS);
    }
}

unsigned int CountOf(std::size_t points) {
    if (points > std::numeric_limits<unsigned int>::max()) {
        ThrowInternalError(L"CLineClip", LINE_RUN_TOO_LONG);
    }
    return static_cast<unsigned int>(points);
}

// Runs appended one after another to the caller's vectors.
class RunsInVectors {
public:
    RunsInVectors(std::vector<Vec2d>& pts, std::vector<unsigned int>& counts)
        : m_pts(pts), m_counts(counts), m_start(pts.size()) {}

    bool IsEmpty() const { return m_pts.size() == m_start; }
    const Vec2d& Last() const { return m_pts.back(); }
    void Add(const Vec2d& p) { m_pts.push_back(p); }
    void Add(const Vec2d* pts, std::size_t n) { m_pts.insert(m_pts.end(), pts, pts + n); }
    void Close() {
        m_counts.push_back(CountOf(m_pts.size() - m_start));
        m_start = m_pts.size();
    }

private:
    std::vector<Vec2d>& m_pts;
    std::vector<unsigned int>& m_counts;
    std::size_t m_start;
};

// One run at a time, handed out when it is complete.
class RunsToSink {
public:
    explicit RunsToSink(CLineClip::Sink sink) : m_sink(std::move(sink)) {}

    bool IsEmpty() const { return m_run.Count() == 0; }
    const Vec2d& Last() const { return m_run[m_run.Count() - 1]; }
    void Add(const Vec2d& p) { m_run.Append(p); }
    void Add(const Vec2d* pts, std::size_t n) { m_run.Append(pts, n); }
    void Close() {
        m_sink(m_run.Data(), m_run.Count());
        m_run.Clear();
    }

private:
    CLineClip::Sink m_sink;
    CPodVector<Vec2d, 32> m_run;
};

enum class Side { LEFT, RIGHT, BOTTOM, TOP };

// Whether points are all strictly beyond one side, given by its coordinate: a test for RunOf.
template <Side SIDE>
class AllBeyond {
public:
    explicit AllBeyond(double side) : m_side{side, side} {}

    void Add(detail::Lanes p) {
        if constexpr (SIDE == Side::LEFT || SIDE == Side::BOTTOM) {
            m_all &= p < m_side;
        } else {
            m_all &= p > m_side;
        }
    }
    bool Holds() const {
        constexpr bool IS_X = SIDE == Side::LEFT || SIDE == Side::RIGHT;
        return (IS_X ? m_all : detail::Exchanged(m_all))[0] != 0;
    }

private:
    detail::Lanes m_side;
    detail::LaneMask m_all{-1, -1};
};

// The points of a line that follow `from` and are beyond the same side of the rectangle. No run
// is open there, and the segments between them show nothing.
std::size_t CountBeyond(const Box2d& rect, const Vec2d& from, const Vec2d* pts, std::size_t n) {
    std::size_t beyond = 0;
    if (from.x < rect.minX) {
        beyond = detail::RunOf(AllBeyond<Side::LEFT>(rect.minX), pts, n);
    } else if (from.x > rect.maxX) {
        beyond = detail::RunOf(AllBeyond<Side::RIGHT>(rect.maxX), pts, n);
    }
    if (beyond == 0 && from.y < rect.minY) {
        beyond = detail::RunOf(AllBeyond<Side::BOTTOM>(rect.minY), pts, n);
    } else if (beyond == 0 && from.y > rect.maxY) {
        beyond = detail::RunOf(AllBeyond<Side::TOP>(rect.maxY), pts, n);
    }
    return beyond;
}

template <typename Runs>
void ClipSegment(const Box2d& rect, Vec2d start, Vec2d end, Runs& runs) {
    const bool visible = detail::ClipToRect(rect, start, end);
    const bool continues = visible && !runs.IsEmpty() && start == runs.Last();
    if (!continues && !runs.IsEmpty()) {
        runs.Close();
    }
    if (visible && !continues) {
        runs.Add(start);
    }
    if (visible) {
        runs.Add(end);
    }
}

// From a point inside, those that follow and are inside, too, are added as a block: nothing is cut
// from the segments between them and each starts where the one before it ended. From a point
// beyond a side, those that follow beyond it are passed. Single segments are cut in between:
//
//     inside    x--x--x         x--x--x     added as blocks
//     --------------- | ------- | ------    two segments cut
//     beyond          x--x--x--x            passed
//
// What has no order (NaN) equals nothing and would begin a run of its own; it does not count as
// inside here.
template <typename Runs>
void ClipSegments(const Box2d& rect, const Vec2d* pts, std::size_t n, Runs& runs) {
    const detail::AllWithin within(rect);
    for (std::size_t i = 0; i + 1 < n; ++i) {
        const std::size_t left = n - i - 1;
        const std::size_t inside = detail::RunOf(within, pts + i, left + 1);
        if (inside > 1) {
            if (runs.IsEmpty()) {
                runs.Add(pts[i]);
            }
            runs.Add(pts + i + 1, inside - 1);
            i += inside - 1;
        } else if (const std::size_t beyond =
                       inside == 0 ? CountBeyond(rect, pts[i], pts + i + 1, left) : 0;
                   beyond > 0) {
            if (!runs.IsEmpty()) {
                runs.Close();
            }
            i += beyond;
        }
        if (i + 1 < n) {
            ClipSegment(rect, pts[i], pts[i + 1], runs);
        }
    }
    if (!runs.IsEmpty()) {
        runs.Close();
    }
}

} // namespace

void CLineClip::ClipPolyline(const Vec2d* pts, std::size_t n, std::vector<Vec2d>& outPts,
                             std::vector<unsigned int>& outCounts) const {
    CheckPoints(pts, n);
    if (n != 0 && detail::LiesIn(pts, outPts.data(), outPts.data() + outPts.size())) {
        const std::vector<Vec2d> copy(pts, pts + n);
        ClipPolyline(copy.data(), n, outPts, outCounts);
        return;
    }
    outPts.clear();
    outCounts.clear();
    detail::AppendRuns(*this, pts, n, outPts, outCounts);
}

void CLineClip::ClipPolyline(const Vec2d* pts, std::size_t n, Sink sink) const {
    CheckPoints(pts, n);
    if (!m_enabled) {
        sink(pts, n);
        return;
    }
    if (n == 1) {
        if (m_rect.Contains(*pts)) {
            sink(pts, 1);
        }
        return;
    }
    RunsToSink runs(std::move(sink));
    ClipSegments(m_rect, pts, n, runs);
}

void detail::AppendRuns(const CLineClip& clip, const Vec2d* pts, std::size_t n,
                        std::vector<Vec2d>& outPts, std::vector<unsigned int>& outCounts) {
    if (clip.IsClipEnabled() && n != 1) {
        RunsInVectors runs(outPts, outCounts);
        ClipSegments(clip.GetClipRect(), pts, n, runs);
    } else if (!clip.IsClipEnabled() || clip.GetClipRect().Contains(*pts)) {
        const unsigned int count = CountOf(n);
        outPts.insert(outPts.end(), pts, pts + n);
        outCounts.push_back(count);
    }
}

} // namespace geom
