// SPDX-License-Identifier: MIT
#include "tools/geomtool/Dashing.h"

#include "geometry/ClipUtil.h"
#include "geometry/DashLineGenerator.h"
#include "geometry/Geometry.h"
#include "geometry/LineClipPolygon.h"
#include "tools/geomtool/GpcConversion.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <utility>

namespace geomtool {

using geom::LineClipPolygon;
using geom::LineSegment2;
using geom::Vec2d;

namespace {

/// A generator whose lines begin anywhere in the pattern, not only at its start.
class PhasedDashes : public geom::DashLineGenerator {
public:
    explicit PhasedDashes(const DashStyle& style)
        : DashLineGenerator(style.pattern.data(), style.pattern.size()) {
        FindStart(style);
    }

    /// Dashes a line of at least two points.
    void Append(const Line& line, std::vector<LineSegment2>& out) {
        if (line.front() != lastPoint) {
            // As if a line had ended here with the pattern where it is to begin.
            lastPoint = line.front();
            index = m_index;
            penDown = m_penDown;
            remaining = m_remaining;
        }
        Decompose(line.data(), line.size(), out);
    }

private:
    /// With an odd number of lengths dashes and gaps change places in every second round, so
    /// only two rounds make a period.
    void FindStart(const DashStyle& style) {
        const double period = 2 * std::accumulate(dashes.begin(), dashes.end(), 0.0);
        double rest = std::fmod(style.phase, period);
        rest += rest < 0 ? period : 0;
        for (std::size_t i = 0; i < 2 * dashes.size(); ++i) {
            const double length = dashes[i % dashes.size()];
            if (rest < length) {
                m_index = static_cast<std::int32_t>(i % dashes.size());
                m_penDown = i % 2 == 0;
                m_remaining = length - rest;
                return;
            }
            rest -= length;
        }
        m_remaining = dashes[0]; // rounding took it past the end: the start again
    }

    std::int32_t m_index = 0;
    bool m_penDown = true;
    double m_remaining = 0;
};

std::vector<LineSegment2> PhasedPieces(const LineSet& lines, const DashStyle& style) {
    PhasedDashes dashes(style);
    std::vector<LineSegment2> pieces;
    for (const Line& line : lines.lines) {
        if (line.size() >= 2) {
            dashes.Append(line, pieces);
        }
    }
    return pieces;
}

FlatLines Flatten(const std::vector<LineSegment2>& pieces) {
    FlatLines flat;
    flat.points.reserve(2 * pieces.size());
    for (const LineSegment2& piece : pieces) {
        flat.points.push_back(piece.A());
        flat.points.push_back(piece.B());
    }
    flat.counts.assign(pieces.size(), 2);
    return flat;
}

/// Joins lines that begin where the one before them ends. A dash comes out of the generator in
/// pieces, one for each segment that it covers.
LineSet JoinTouching(LineSet lines) {
    LineSet joined;
    for (Line& line : lines.lines) {
        if (joined.lines.empty() || line.front() != joined.lines.back().back()) {
            joined.lines.push_back(std::move(line));
            continue;
        }
        Line& before = joined.lines.back();
        for (std::size_t i = 1; i < line.size(); ++i) {
            if (line[i] != before.back()) {
                before.push_back(line[i]);
            }
        }
    }
    return joined;
}

bool HasNoInside(const PolygonSet& polygon) {
    return polygon.VertexCount() == 0;
}

/// Takes away lines without length: a line that only touches a rectangle leaves one there.
LineSet WithoutPoints(LineSet lines) {
    const auto isPoint = [](const Line& line) {
        return std::all_of(line.begin(), line.end(),
                           [&line](const Vec2d& p) { return p == line.front(); });
    };
    lines.lines.erase(std::remove_if(lines.lines.begin(), lines.lines.end(), isPoint),
                      lines.lines.end());
    return lines;
}

void AppendMoved(LineSet&& from, LineSet& to) {
    std::move(from.lines.begin(), from.lines.end(), std::back_inserter(to.lines));
}

} // namespace

LineSet ClipLines(const LineSet& lines, const PolygonSet& clip) {
    LineSet result;
    if (HasNoInside(clip)) {
        return result; // the library would let everything pass
    }
    const LineClipPolygon polygon(ToGpcPolygon(clip));
    for (const Line& line : lines.lines) {
        if (line.size() >= 2) {
            const auto count = static_cast<unsigned int>(line.size());
            FlatLines left;
            geom::ClipPolylinesToPolygon(line.data(), &count, 1, polygon, left.points, left.counts);
            AppendMoved(WithoutPoints(Unflatten(left)), result);
        }
    }
    return result;
}

double EstimateDashes(const LineSet& lines, const DashStyle& style) {
    double length = 0;
    for (const Line& line : lines.lines) {
        length += geom::PolylineLength(line.data(), line.size());
    }
    const double sum = std::accumulate(style.pattern.begin(), style.pattern.end(), 0.0);
    const double rounds = length / sum;
    return std::isfinite(rounds) ? rounds * static_cast<double>(style.pattern.size()) / 2
                                 : HUGE_VAL;
}

LineSet DashLines(const LineSet& lines, const DashStyle& style) {
    return JoinTouching(Unflatten(Flatten(PhasedPieces(lines, style))));
}

LineSet DashLines(const LineSet& lines, const DashStyle& style, const PolygonSet& clip) {
    FlatLines out;
    if (lines.VertexCount() == 0 || HasNoInside(clip)) {
        return {};
    }
    if (style.phase == 0) {
        const FlatLines flat = geomtool::Flatten(lines);
        geom::DashLineGenerator dashes(style.pattern.data(), style.pattern.size());
        geom::ClipDashedPolylinesToPolygon(flat.points.data(), flat.counts.data(),
                                           flat.counts.size(), dashes, ToGpcPolygon(clip),
                                           out.points, out.counts);
        return WithoutPoints(JoinTouching(Unflatten(out)));
    }
    const FlatLines pieces = Flatten(PhasedPieces(lines, style));
    if (!pieces.counts.empty()) {
        geom::ClipPolylinesToPolygon(pieces.points.data(), pieces.counts.data(),
                                     pieces.counts.size(), LineClipPolygon(ToGpcPolygon(clip)),
                                     out.points, out.counts);
    }
    return WithoutPoints(JoinTouching(Unflatten(out)));
}

} // namespace geomtool
