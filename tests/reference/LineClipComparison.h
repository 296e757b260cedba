// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/LineClipPolygon.h"
#include "tests/reference/PlainLineClip.h"
#include "tests/support/LineClipCases.h"

/// \file
/// LineClipPolygon with its index against the walk over all edges, to the bit, in every form of
/// output.

namespace geom::test {

struct LineClipTally {
    std::size_t segments = 0;
    std::size_t pieces = 0;
    std::size_t runs = 0;
    std::size_t probes = 0;
    std::size_t inside = 0;
    std::size_t on = 0;
    std::size_t differences = 0;
};

/// One polygon in both forms.
class LineClipPair {
public:
    explicit LineClipPair(const LineClipCase& made);

    /// Clips the segments between every two points.
    void CompareSegments(const std::vector<Vec2d>& ends, LineClipTally& tally) const;
    /// Clips a polyline, as segments and as runs.
    void CompareRuns(const std::vector<Vec2d>& line, LineClipTally& tally) const;
    /// Asks where points lie.
    void CompareProbes(const std::vector<Vec2d>& points, LineClipTally& tally) const;

private:
    using Pieces = std::vector<PlainLineClip::Piece>;

    /// Opens what the class keeps for derived ones.
    class OpenClip : public LineClipPolygon {
    public:
        using LineClipPolygon::LineClipPolygon;

        Pieces AllPieces(const Vec2d& p, const Vec2d& q) const;
        bool Inside(const Vec2d& p) const { return p_inside(contours, &p); }
        bool On(const Vec2d& p) const { return on_contour(contours, &p); }
    };

    explicit LineClipPair(const GpcPolygon& polygon);

    OpenClip m_clip;
    PlainLineClip m_plain;
};

} // namespace geom::test
