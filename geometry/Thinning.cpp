// SPDX-License-Identifier: MIT
#include "geometry/Thinning.h"

#include <cmath>

namespace geom {

namespace {

constexpr std::size_t FEWEST_TO_THIN = 5;

// The angle from the y axis; `otherwise` for a step without length.
double Bearing(const Vec2d& step, double otherwise) {
    return step.x == 0.0 && step.y == 0.0 ? otherwise : std::atan2(step.x, step.y);
}

/// Asked at each vertex between the ends, with the step that leaves it; remembers the step that
/// arrived.
class AngularDeviation {
public:
    AngularDeviation(const Vec2d& firstStep, double limit)
        : m_previous(Bearing(firstStep, 0.0)), m_limit(limit) {}

    bool Keeps(const Vec2d& step) {
        const double direction = Bearing(step, m_previous);
        double deviation = std::fabs(direction - m_previous);
        if (deviation > kit::PI) {
            deviation = kit::TWO_PI - deviation;
        }
        m_previous = direction;
        return deviation > m_limit;
    }

private:
    double m_previous;
    double m_limit;
};

class Reversal {
public:
    explicit Reversal(const Vec2d& firstStep) : m_previous(firstStep) {}

    bool Keeps(const Vec2d& step) {
        const bool slanted = step.x != 0.0 && step.y != 0.0;
        const bool turnsBack = step.x * m_previous.x < 0.0 || step.y * m_previous.y < 0.0;
        m_previous = step;
        return slanted && turnsBack;
    }

private:
    Vec2d m_previous;
};

template <typename Criterion>
void AppendKept(const Vec2d* points, std::size_t n, Criterion criterion, std::vector<Vec2d>& out) {
    std::vector<Vec2d> kept = {points[0]};
    for (std::size_t i = 2; i < n; ++i) {
        if (criterion.Keeps(points[i] - points[i - 1])) {
            kept.push_back(points[i - 1]);
        }
    }
    kept.push_back(points[n - 1]);
    out.insert(out.end(), kept.begin(), kept.end());
}

void AppendAll(const Vec2d* points, std::size_t n, std::vector<Vec2d>& out) {
    if (points != nullptr) {
        const std::vector<Vec2d> kept(points, points + n);
        out.insert(out.end(), kept.begin(), kept.end());
    }
}

bool IsWorthThinning(const Vec2d* points, std::size_t n) {
    return points != nullptr && n >= FEWEST_TO_THIN;
}

} // namespace

void ThinByAngularDeviation(const Vec2d* points, std::size_t n, double maxDeviation,
                            std::vector<Vec2d>& out) {
    if (!IsWorthThinning(points, n)) {
        AppendAll(points, n, out);
        return;
    }
    AppendKept(points, n, AngularDeviation(points[1] - points[0], maxDeviation), out);
}

void ThinToMinimalDetail(const Vec2d* points, std::size_t n, std::vector<Vec2d>& out) {
    if (!IsWorthThinning(points, n)) {
        AppendAll(points, n, out);
        return;
    }
    AppendKept(points, n, Reversal(points[1] - points[0]), out);
}

} // namespace geom
