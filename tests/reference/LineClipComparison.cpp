// SPDX-License-Identifier: MIT
#include "tests/reference/LineClipComparison.h"

#include "geometry/GpcPolygon.h"
#include "geometry/Polyline.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace geom::test {

namespace {

using Points = std::vector<Vec2d>;
using Counts = std::vector<unsigned int>;
using Pieces = std::vector<PlainLineClip::Piece>;

// To the bit, signs of zeros included; only undefined values are all the same.
bool Same(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

bool Same(const Vec2d& a, const Vec2d& b) {
    return Same(a.x, b.x) && Same(a.y, b.y);
}

bool Same(const Points& a, const Points& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Vec2d& p, const Vec2d& q) { return Same(p, q); });
}

bool Same(const Pieces& a, const Pieces& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& p, const auto& q) {
        return Same(p.a, q.a) && Same(p.b, q.b);
    });
}

Pieces PiecesOf(const std::vector<LineSegment2>& segments) {
    Pieces pieces;
    for (const LineSegment2& segment : segments) {
        pieces.push_back({segment.A(), segment.B()});
    }
    return pieces;
}

Points SequenceOf(const GpcPolygon& polygon) {
    Points points;
    polygon.GetPolygon(points);
    return points;
}

} // namespace

Pieces LineClipPair::OpenClip::AllPieces(const Vec2d& p, const Vec2d& q) const {
    Pieces pieces;
    SEGMENT segment = {p.x, p.y, q.x, q.y, nullptr, nullptr};
    clip_to_contours(
        contours, &segment,
        [](const Vec2d& a, const Vec2d& b, void* context) {
            static_cast<Pieces*>(context)->push_back({a, b});
        },
        &pieces);
    return pieces;
}

LineClipPair::LineClipPair(const LineClipCase& made)
    : LineClipPair(GpcPolygon(made.points.data(), made.counts.data(), made.counts.size())) {}

LineClipPair::LineClipPair(const GpcPolygon& polygon)
    : m_clip(polygon), m_plain(SequenceOf(polygon)) {}

void LineClipPair::CompareSegments(const Points& ends, LineClipTally& tally) const {
    for (std::size_t i = 0; i + 1 < ends.size(); i += 2) {
        ++tally.segments;
        const Pieces expected = m_plain.AllPieces(ends[i], ends[i + 1]);
        tally.pieces += expected.size();
        bool isSame = Same(m_clip.AllPieces(ends[i], ends[i + 1]), expected);
        std::vector<LineSegment2> segments;
        m_clip.Clip(LineSegment2(ends[i], ends[i + 1]), segments);
        isSame &= Same(PiecesOf(segments), m_plain.Clip({ends[i], ends[i + 1]}));
        tally.differences += isSame ? 0U : 1U;
    }
}

void LineClipPair::CompareRuns(const Points& line, LineClipTally& tally) const {
    Points points = {{1, 1}, {2, 2}};
    Counts counts = {2};
    Points expectedPoints = points;
    Counts expectedCounts = counts;
    m_plain.Clip(line, expectedPoints, expectedCounts);
    m_clip.Clip(line.data(), line.size(), points, counts);
    std::vector<LineSegment2> segments;
    m_clip.Clip(Polyline(line.data(), line.size()), segments);
    const bool isSame = Same(points, expectedPoints) && counts == expectedCounts &&
                        Same(PiecesOf(segments), m_plain.Clip(line));
    tally.runs += counts.size() - 1;
    tally.differences += isSame ? 0U : 1U;
}

void LineClipPair::CompareProbes(const Points& points, LineClipTally& tally) const {
    for (const Vec2d& p : points) {
        ++tally.probes;
        const bool isInside = m_plain.PointInside(p);
        bool isSame = m_clip.PointInside(p) == isInside;
        if (m_clip.GetNumContours() != 0) {
            isSame &= m_clip.Inside(p) == m_plain.Inside(p);
            isSame &= m_clip.On(p) == m_plain.OnContour(p);
            tally.on += m_plain.OnContour(p) ? 1U : 0U;
        }
        tally.inside += isInside ? 1U : 0U;
        tally.differences += isSame ? 0U : 1U;
    }
}

} // namespace geom::test
