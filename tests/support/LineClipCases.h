// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <random>
#include <vector>

namespace geom::test {

/// A polygon and segments to try on it, made so that coincidences happen.
struct LineClipCase {
    const char* kind;
    std::vector<Vec2d> points; ///< ring after ring
    std::vector<unsigned int> counts;
    std::vector<Vec2d> ends; ///< segment i runs from ends[2 i] to ends[2 i + 1]
};

/// Makes cases of all kinds in turn: integer grids, rectilinear rings, zigzags along one slanted
/// line (with edges far away that are nearly collinear with the segments), stars, islands and
/// holes that touch, all of them at times turned, scaled or moved far from the origin, and with
/// coordinates that are not finite or of extreme size.
class LineClipCases {
public:
    explicit LineClipCases(unsigned int seed);

    /// \param segments how many segments the case has
    LineClipCase Next(std::size_t segments);

private:
    int Integer(int low, int high);
    double Real(double low, double high);
    bool Chance(int oneIn);

    void Grid(LineClipCase& made);
    void Rectilinear(LineClipCase& made);
    void Zigzag(LineClipCase& made);
    void Star(LineClipCase& made);
    void Islands(LineClipCase& made);
    void AddRing(LineClipCase& made, const std::vector<Vec2d>& ring);
    Vec2d SomePoint(const LineClipCase& made, const Box2d& box);
    void AddSegment(LineClipCase& made, const Box2d& box);
    void Move(LineClipCase& made);
    void Nudge(std::vector<Vec2d>& points, int oneIn);
    void Spoil(std::vector<Vec2d>& points, int oneIn);

    std::mt19937 m_random;
    unsigned int m_turn = 0;
};

} // namespace geom::test
