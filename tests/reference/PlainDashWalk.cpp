// SPDX-License-Identifier: MIT
#include "PlainDashWalk.h"

#include <cmath>
#include <limits>

namespace geom::test {

namespace {

void Deliver(const std::vector<Vec2d>& run, std::vector<PlainDashWalk::Piece>& pieces) {
    for (std::size_t j = 0; j + 1 < run.size(); ++j) {
        pieces.emplace_back(run[j], run[j + 1]);
    }
}

} // namespace

PlainDashWalk::PlainDashWalk(std::vector<double> dashes) : m_dashes(std::move(dashes)) {
    InitState();
}

void PlainDashWalk::InitState() {
    m_lastPoint = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    m_index = 0;
    m_penDown = true;
    m_remaining = m_dashes[0];
}

std::vector<PlainDashWalk::Piece> PlainDashWalk::Decompose(const std::vector<Vec2d>& points) {
    std::vector<Piece> pieces;
    if (points.size() < 2) {
        InitState();
        return pieces;
    }
    if (!(points[0].x == m_lastPoint.x && points[0].y == m_lastPoint.y)) {
        InitState();
    }
    std::vector<Vec2d> run;
    if (m_penDown) {
        run.push_back(points[0]);
    }
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const Vec2d p = points[i];
        const Vec2d q = points[i + 1];
        const double dx = q.x - p.x;
        const double dy = q.y - p.y;
        const double len = std::sqrt(dx * dx + dy * dy);
        while (len > m_remaining) {
            run.push_back({p.x + dx * m_remaining / len, p.y + dy * m_remaining / len});
            if (m_penDown) {
                Deliver(run, pieces);
                run.clear();
            }
            m_penDown = !m_penDown;
            m_index = (m_index + 1) % static_cast<int>(m_dashes.size());
            m_remaining += m_dashes[static_cast<std::size_t>(m_index)];
        }
        if (m_penDown) {
            run.push_back(q);
        }
        m_remaining -= len;
    }
    if (m_penDown && run.size() >= 2) {
        Deliver(run, pieces);
    }
    m_lastPoint = points.back();
    return pieces;
}

} // namespace geom::test
