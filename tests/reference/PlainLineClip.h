// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <vector>

namespace geom::test {

/// Line clipping against contours that looks at every edge for every segment and every point.
///
/// A contour is a closed sequence of points, as GpcPolygon::GetPolygon gives it.
class PlainLineClip {
public:
    struct Piece {
        Vec2d a, b;
    };

    PlainLineClip() = default;
    /// One contour, kept inside. Its own box decides PointInside.
    explicit PlainLineClip(const std::vector<Vec2d>& sequence);

    void AddContour(const std::vector<Vec2d>& sequence, bool isHole);

    /// All pieces, however short, as they come.
    std::vector<Piece> AllPieces(const Vec2d& p, const Vec2d& q) const;
    /// Without those that are too short.
    std::vector<Piece> Clip(const std::vector<Vec2d>& points) const;
    void Clip(const std::vector<Vec2d>& points, std::vector<Vec2d>& outPoints,
              std::vector<unsigned int>& outCounts) const;
    bool PointInside(const Vec2d& p) const;
    /// Strictly inside the first contour.
    bool Inside(const Vec2d& p) const;
    bool OnContour(const Vec2d& p) const;

    /// How many edges there are, and how many crossings have been recorded so far.
    std::size_t EdgeCount() const;
    std::size_t Recorded() const { return m_recorded; }

private:
    struct Edge {
        double x1, y1, x2, y2;
    };
    struct Contour {
        bool isHole;
        std::vector<Edge> edges;
        Box2d box;
    };
    struct Entry {
        double x, y;
        int kind;
    };

    static int Where(const Vec2d& a, const Vec2d& b, const Edge& segment);
    static bool On(const Contour& contour, const Vec2d& p);
    void CrossCalc(const Contour& contour, const Edge& segment, std::vector<Entry>& list) const;
    bool Inside(const Contour& contour, const Vec2d& p) const;
    void ClipTo(std::size_t contourIndex, Vec2d p, Vec2d q, std::vector<Piece>& pieces) const;

    std::vector<Contour> m_contours;
    Box2d m_box;
    mutable std::size_t m_recorded = 0;
};

} // namespace geom::test
