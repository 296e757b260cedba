// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace geom::test {

/// A dash generator that collects each visible stretch as a list of points and hands it out
/// when it ends. For patterns with a positive sum and finite segments only: it has no guards.
class PlainDashWalk {
public:
    using Piece = std::pair<Vec2d, Vec2d>;

    explicit PlainDashWalk(std::vector<double> dashes);

    std::vector<Piece> Decompose(const std::vector<Vec2d>& points);

private:
    void InitState();

    std::vector<double> m_dashes;
    Vec2d m_lastPoint;
    int m_index = 0;
    bool m_penDown = true;
    double m_remaining = 0.0;
};

} // namespace geom::test
