// SPDX-License-Identifier: MIT
// Segments and polylines against a rectangle.
//
// A segment is cut at the sides that its outcodes name, its start first, each end first in x
// and then in y. A polyline is a chain of such segments; it is one run for as long as each clipped
// segment starts where the one before it ended.
#include "geometry/CLineClip.h"

#include "geometry/Errors.h"
#include "geometry/detail/LeadingRun.h"
#include "geometry/detail/PointsInside.h"

#include <utility>

namespace geom {

namespace {

constexpr int LINE_NULL_POINTS = 24;

enum Outcode : unsigned int { INSIDE = 0, LEFT = 1, RIGHT = 2, TOP = 4, BOTTOM = 8 };

void CheckPoints(const Vec2d* pts, std::size_t n) {
    if (pts == nullptr && n != 0) {
        ThrowInternalError(L"CLineClip", LINE_NULL_POINTS);
    }
}

// Not by outcodes: where the rectangle's sides are reversed a point can lie beyond both
// opposite ones, and its outcode names only one of them.
bool BothBeyondOneSide(const Vec2d& p0, const Vec2d& p1, const Box2d& rect) {
    return (p0.x < rect.minX && p1.x < rect.minX) || (p0.x > rect.maxX && p1.x > rect.maxX) ||
           (p0.y < rect.minY && p1.y < rect.minY) || (p0.y > rect.maxY && p1.y > rect.maxY);
}

// The point of the line through p with direction (dx, dy) at the given side. Only called for
// lines that cross the side, so the divisor is not 0.
Vec2d AtVerticalSide(const Vec2d& p, double x, double dx, double dy) {
    return {x, p.y + ((x - p.x) * dy) / dx};
}

Vec2d AtHorizontalSide(const Vec2d& p, double y, double dx, double dy) {
    return {p.x + ((y - p.y) * dx) / dy, y};
}

// Runs stored one after another in the caller's vectors.
class RunsInVectors {
public:
    RunsInVectors(std::vector<Vec2d>& pts, std::vector<unsigned int>& counts)
        : m_pts(pts), m_counts(counts) {}

    bool IsEmpty() const { return m_pts.size() == m_start; }
    const Vec2d& Last() const { return m_pts.back(); }
    void Add(const Vec2d& p) { m_pts.push_back(p); }
    void Add(const Vec2d* pts, std::size_t n) { m_pts.insert(m_pts.end(), pts, pts + n); }
    void Close() {
        m_counts.push_back(static_cast<unsigned int>(m_pts.size() - m_start));
        m_start = m_pts.size();
    }

private:
    std::vector<Vec2d>& m_pts;
    std::vector<unsigned int>& m_counts;
    std::size_t m_start = 0;
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

// The points of a line that follow one inside the rectangle and are inside, too. Nothing is cut
// from the segments between them and each starts where the one before it ended, so the run goes
// on with the points as they are. What has no order (NaN) equals nothing and would begin a run
// of its own; it is not counted here.
std::size_t CountInside(const Box2d& rect, const Vec2d* pts, std::size_t n) {
    return detail::LeadingRun(pts, n, [r = rect](const Vec2d& p) {
        return (p.x >= r.minX) & (p.x <= r.maxX) & (p.y >= r.minY) & (p.y <= r.maxY);
    });
}

// The points of a line that follow `from` and are beyond the same side of the rectangle. No run
// is open there, and the segments between them show nothing.
std::size_t CountBeyond(const Box2d& rect, const Vec2d& from, const Vec2d* pts, std::size_t n) {
    std::size_t beyond = 0;
    if (from.x < rect.minX) {
        beyond = detail::LeadingRun(pts, n, [x = rect.minX](const Vec2d& p) { return p.x < x; });
    } else if (from.x > rect.maxX) {
        beyond = detail::LeadingRun(pts, n, [x = rect.maxX](const Vec2d& p) { return p.x > x; });
    }
    if (beyond == 0 && from.y < rect.minY) {
        beyond = detail::LeadingRun(pts, n, [y = rect.minY](const Vec2d& p) { return p.y < y; });
    } else if (beyond == 0 && from.y > rect.maxY) {
        beyond = detail::LeadingRun(pts, n, [y = rect.maxY](const Vec2d& p) { return p.y > y; });
    }
    return beyond;
}

template <typename Runs>
bool ClipSegment(const CLineClip& clip, Vec2d start, Vec2d end, Runs& runs) {
    const bool visible = clip.ClipLine(start, end);
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
    return visible;
}

// A segment that shows ends with its own end where that is inside; so a block of points inside
// can follow it.
template <typename Runs>
void ClipSegments(const CLineClip& clip, const Vec2d* pts, std::size_t n, Runs& runs) {
    const Box2d& rect = clip.GetClipRect();
    for (std::size_t i = 1; i < n; ++i) {
        const Vec2d* const rest = pts + i + 1;
        if (!ClipSegment(clip, pts[i - 1], pts[i], runs)) {
            i += CountBeyond(rect, pts[i], rest, n - i - 1);
        } else if (CountInside(rect, pts + i, 1) == 1) {
            const std::size_t inside = CountInside(rect, rest, n - i - 1);
            runs.Add(rest, inside);
            i += inside;
        }
    }
    if (!runs.IsEmpty()) {
        runs.Close();
    }
}

} // namespace

CLineClip::CLineClip() : m_enabled(false) {}

CLineClip::CLineClip(const Box2d& rect) : m_enabled(rect.HasArea()), m_rect(rect) {}

void CLineClip::SetClipRect(const Box2d& rect) {
    m_rect = rect;
    m_enabled = m_rect.HasArea();
}

void CLineClip::IntersectClipRect(const Box2d& rect) {
    if (!m_enabled) {
        SetClipRect(rect);
        return;
    }
    m_rect.Intersect(rect);
    m_enabled = m_rect.HasArea();
}

void CLineClip::SetClipEnabled(bool enabled) {
    m_enabled = enabled;
}

bool CLineClip::IsClipEnabled() const {
    return m_enabled;
}

void CLineClip::Clear() {
    m_enabled = false;
}

const Box2d& CLineClip::GetClipRect() const {
    return m_rect;
}

unsigned int CLineClip::Classify(const Vec2d& p) const {
    unsigned int code = INSIDE;
    if (p.x < m_rect.minX) {
        code |= LEFT;
    } else if (p.x > m_rect.maxX) {
        code |= RIGHT;
    }
    if (p.y < m_rect.minY) {
        code |= BOTTOM;
    } else if (p.y > m_rect.maxY) {
        code |= TOP;
    }
    return code;
}

bool CLineClip::ClipLine(Vec2d& p0, Vec2d& p1) const {
    if (!m_enabled) {
        return true;
    }
    unsigned int c0 = Classify(p0);
    unsigned int c1 = Classify(p1);
    if (BothBeyondOneSide(p0, p1, m_rect)) {
        return false;
    }
    if (c0 == INSIDE && c1 == INSIDE) {
        return true;
    }
    // The direction stays that of the whole segment: clipped ends would give a rounded one.
    const double dx = p1.x - p0.x;
    const double dy = p1.y - p0.y;

    if ((c0 & (LEFT | RIGHT)) != 0) {
        p0 = AtVerticalSide(p0, (c0 & LEFT) != 0 ? m_rect.minX : m_rect.maxX, dx, dy);
        c0 = p0.y < m_rect.minY ? BOTTOM : p0.y > m_rect.maxY ? TOP : INSIDE;
        if ((c0 & c1) != 0) {
            return false;
        }
        if (c0 == INSIDE && c1 == INSIDE) {
            return true;
        }
    }
    if ((c0 & (TOP | BOTTOM)) != 0) {
        p0 = AtHorizontalSide(p0, (c0 & TOP) != 0 ? m_rect.maxY : m_rect.minY, dx, dy);
        if (p0.x < m_rect.minX || p0.x > m_rect.maxX) {
            return false;
        }
        if (c1 == INSIDE) {
            return true;
        }
    }
    if ((c1 & (LEFT | RIGHT)) != 0) {
        p1 = AtVerticalSide(p1, (c1 & LEFT) != 0 ? m_rect.minX : m_rect.maxX, dx, dy);
        if (m_rect.minY <= p1.y && p1.y <= m_rect.maxY) {
            return true;
        }
        c1 = p1.y < m_rect.minY ? BOTTOM : TOP;
    }
    if ((c1 & (TOP | BOTTOM)) != 0) {
        p1 = AtHorizontalSide(p1, (c1 & TOP) != 0 ? m_rect.maxY : m_rect.minY, dx, dy);
    }
    return true;
}

void CLineClip::ClipPolyline(const Vec2d* pts, std::size_t n, std::vector<Vec2d>& outPts,
                             std::vector<unsigned int>& outCounts) const {
    CheckPoints(pts, n);
    if (n != 0 && detail::PointsInside(pts, outPts.data(), outPts.size())) {
        const std::vector<Vec2d> copy(pts, pts + n);
        ClipPolyline(copy.data(), n, outPts, outCounts);
        return;
    }
    outPts.clear();
    outCounts.clear();
    if (!m_enabled) {
        outPts.assign(pts, pts + n);
        outCounts.push_back(static_cast<unsigned int>(n));
        return;
    }
    if (n == 1) {
        if (m_rect.Contains(*pts)) {
            outPts.push_back(*pts);
            outCounts.push_back(1);
        }
        return;
    }
    RunsInVectors runs(outPts, outCounts);
    ClipSegments(*this, pts, n, runs);
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
    ClipSegments(*this, pts, n, runs);
}

} // namespace geom
