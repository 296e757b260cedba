// SPDX-License-Identifier: MIT
/// \file
/// The polyline functions of ClipUtil.h.
#include "geometry/CLineClip.h"
#include "geometry/ClipUtil.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/Errors.h"
#include "geometry/GpcPolygon.h"
#include "geometry/LineClipPolygon.h"
#include "geometry/detail/LineRuns.h"
#include "geometry/detail/Overlap.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace geom {

namespace {

/// The lines that errors of flat input carry.
struct InputLines {
    int nullPoints;
    int nullCounts;
    int noLines;
};

constexpr InputLines DASHED_INPUT = {306, 307, 308};
constexpr InputLines POLYGON_INPUT = {381, 382, 383};
constexpr InputLines RECTANGLE_INPUT = {422, 423, 424};

void Check(const Vec2d* pts, const unsigned int* counts, std::size_t numLines,
           const InputLines& lines) {
    constexpr wchar_t FILE_NAME[] = L"ClipUtil";
    if (pts == nullptr) {
        ThrowInternalError(FILE_NAME, lines.nullPoints);
    }
    if (counts == nullptr) {
        ThrowInternalError(FILE_NAME, lines.nullCounts);
    }
    if (numLines == 0) {
        ThrowInternalError(FILE_NAME, lines.noLines);
    }
}

/// Flat polylines that stay readable while the outputs grow, even when they lie in them.
class FlatLines {
public:
    FlatLines(const Vec2d* pts, const unsigned int* counts, std::size_t numLines,
              const std::vector<Vec2d>& outPts, const std::vector<unsigned int>& outCounts)
        : m_counts(counts, numLines, outCounts),
          m_numPoints(std::accumulate(counts, counts + numLines, std::size_t{0})),
          m_points(pts, m_numPoints, outPts), m_numLines(numLines) {}

    /// Calls `visit(points, count)` for each polyline in order.
    template <typename Visit>
    void ForEach(Visit visit) const {
        const Vec2d* next = m_points.Data();
        for (std::size_t i = 0; i < m_numLines; ++i) {
            const unsigned int n = m_counts.Data()[i];
            visit(next, n);
            next += n;
        }
    }

    /// About how many points lie in a box, judged by some hundred of them.
    std::size_t EstimateWithin(const Box2d& box) const {
        constexpr std::size_t SAMPLES = 512;
        const std::size_t stride = m_numPoints / SAMPLES + 1;
        std::size_t within = 0;
        for (std::size_t i = 0; i < m_numPoints; i += stride) {
            within += box.Contains(m_points.Data()[i]) ? stride : 0;
        }
        return std::min(within, m_numPoints);
    }

private:
    detail::StableInput<unsigned int> m_counts;
    std::size_t m_numPoints;
    detail::StableInput<Vec2d> m_points;
    std::size_t m_numLines;
};

/// Makes room for so many elements more, and not less than appending them one by one would make.
template <typename Element>
void ReserveMore(std::vector<Element>& elements, std::size_t more) {
    const std::size_t needed = elements.size() + more;
    if (needed > elements.capacity()) {
        elements.reserve(std::max(needed, 2 * elements.capacity()));
    }
}

// Unlike a clipper made from the box, this one also clips to a box that is a line or a point.
CLineClip ClipperOn(const Box2d& rect) {
    Box2d box(rect);
    box.Normalize();
    CLineClip clipper;
    clipper.SetClipRect(box);
    clipper.SetClipEnabled(!box.IsEmpty());
    return clipper;
}

/// Appends to both outputs, or to none when memory runs out.
template <typename Append>
void WholeOrNothing(std::vector<Vec2d>& outPts, std::vector<unsigned int>& outCounts,
                    Append append) {
    const std::size_t points = outPts.size();
    const std::size_t runs = outCounts.size();
    try {
        append();
    } catch (...) {
        outPts.resize(points);
        outCounts.resize(runs);
        throw;
    }
}

/// Clips single segments to a polygon and appends what is left of them to the outputs. What the
/// polygon calls for is made once: a rectangle clipper, or a polygon for lines.
class SegmentClipper {
public:
    explicit SegmentClipper(const GpcPolygon& clip) {
        Box2d box;
        if (clip.IsRectangle(&box)) {
            m_toRect = ClipperOn(box);
            return;
        }
        m_toPolygon.emplace(clip);
        if (m_toPolygon->IsRectangle(&box)) {
            m_toRect = ClipperOn(box);
        }
    }

    void Clip(const LineSegment2& segment, std::vector<Vec2d>& outPts,
              std::vector<unsigned int>& outCounts) const {
        Vec2d ends[2] = {segment.A(), segment.B()};
        if (!m_toRect) {
            m_toPolygon->Clip(ends, 2, outPts, outCounts);
        } else if (m_toRect->ClipLine(ends[0], ends[1])) {
            WholeOrNothing(outPts, outCounts, [&] {
                outPts.insert(outPts.end(), ends, ends + 2);
                outCounts.push_back(2);
            });
        }
    }

private:
    std::optional<CLineClip> m_toRect;
    std::optional<LineClipPolygon> m_toPolygon;
};

} // namespace

void ClipPolylinesToRect(const Vec2d* pts, const unsigned int* counts, std::size_t numLines,
                         const Box2d& rect, std::vector<Vec2d>& outPts,
                         std::vector<unsigned int>& outCounts) {
    Check(pts, counts, numLines, RECTANGLE_INPUT);
    const CLineClip clipper = ClipperOn(rect);
    const FlatLines lines(pts, counts, numLines, outPts, outCounts);
    // With some more for the points where lines enter and leave.
    const std::size_t within = lines.EstimateWithin(clipper.GetClipRect());
    ReserveMore(outPts, within + within / 8);
    lines.ForEach([&](const Vec2d* line, unsigned int n) {
        WholeOrNothing(outPts, outCounts,
                       [&] { detail::AppendRuns(clipper, line, n, outPts, outCounts); });
    });
}

void ClipPolylinesToPolygon(const Vec2d* pts, const unsigned int* counts, std::size_t numLines,
                            const GpcPolygon& clip, std::vector<Vec2d>& outPts,
                            std::vector<unsigned int>& outCounts) {
    Box2d box;
    if (clip.IsRectangle(&box)) {
        ClipPolylinesToRect(pts, counts, numLines, box, outPts, outCounts);
    } else {
        ClipPolylinesToPolygon(pts, counts, numLines, LineClipPolygon(clip), outPts, outCounts);
    }
}

void ClipPolylinesToPolygon(const Vec2d* pts, const unsigned int* counts, std::size_t numLines,
                            const LineClipPolygon& clip, std::vector<Vec2d>& outPts,
                            std::vector<unsigned int>& outCounts) {
    Check(pts, counts, numLines, POLYGON_INPUT);
    Box2d box;
    if (clip.IsRectangle(&box)) {
        ClipPolylinesToRect(pts, counts, numLines, box, outPts, outCounts);
        return;
    }
    const FlatLines lines(pts, counts, numLines, outPts, outCounts);
    lines.ForEach(
        [&](const Vec2d* line, unsigned int n) { clip.Clip(line, n, outPts, outCounts); });
}

void ClipDashedPolylinesToPolygon(const Vec2d* pts, const unsigned int* counts,
                                  std::size_t numLines, DashLineGenerator& dashes,
                                  const GpcPolygon& clip, std::vector<Vec2d>& outPts,
                                  std::vector<unsigned int>& outCounts) {
    Check(pts, counts, numLines, DASHED_INPUT);
    // Made for the first dash: without dashes the polygon is never looked at.
    std::optional<SegmentClipper> clipper;
    std::vector<LineSegment2> pieces;
    const FlatLines lines(pts, counts, numLines, outPts, outCounts);
    lines.ForEach([&](const Vec2d* line, unsigned int n) {
        pieces.clear();
        dashes.Decompose(line, n, pieces);
        for (const LineSegment2& piece : pieces) {
            if (!clipper) {
                clipper.emplace(clip);
            }
            clipper->Clip(piece, outPts, outCounts);
        }
    });
}

} // namespace geom
