// SPDX-License-Identifier: MIT
#include "geometry/Curves.h"

#include <boost/numeric/conversion/cast.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace geom {

using kit::HALF_PI;
using kit::ONE_PI;
using kit::THREE_PI;
using kit::TWO_PI;

namespace {

// Arcs with this many points or more are refused rather than counted.
constexpr double POINT_COUNT_LIMIT = 0x1p60;

// The number of turned points of an arc; 0 when the step cannot divide the sweep.
std::uint64_t StepCount(double sweep, double step) {
    const double count = std::fabs(sweep) / step;
    return step > 0.0 && count < POINT_COUNT_LIMIT ? static_cast<std::uint64_t>(count) : 0;
}

// Reserves room for more points. Room at least doubles when it grows: many short arcs appended
// to one vector then cost linear time.
void ReserveMore(std::vector<Vec2d>& points, std::uint64_t more) {
    if (more > points.capacity() - points.size()) {
        const std::size_t doubled = std::min(2 * points.capacity(), points.max_size());
        points.reserve(std::max<std::size_t>(points.size() + more, doubled));
    }
}

} // namespace

void CircularArc(const Vec2d& center, double radius, double startAngle, double sweep,
                 std::vector<Vec2d>& out, double step) {
    const Vec2d middle = center; // may be an element of the vector that grows
    double dx = radius * std::cos(startAngle);
    double dy = radius * std::sin(startAngle);
    if (radius == 0.0) {
        out.push_back(middle + Vec2d(dx, dy));
        return;
    }
    const std::uint64_t turns = StepCount(sweep, step);
    ReserveMore(out, turns + 2);
    out.push_back(middle + Vec2d(dx, dy));
    const double c = std::cos(step);
    const double s = sweep < 0.0 ? -std::sin(step) : std::sin(step);
    for (std::uint64_t i = 0; i < turns; ++i) {
        const double turned = c * dx - s * dy;
        dy = s * dx + c * dy;
        dx = turned;
        out.push_back(middle + Vec2d(dx, dy));
    }
    const double endAngle = startAngle + sweep;
    const Vec2d end = middle + radius * Vec2d(std::cos(endAngle), std::sin(endAngle));
    if (end != out.back()) {
        out.push_back(end);
    }
}

namespace {

// Directions closer to the vertical than this give the exact top or bottom of the ellipse,
// where the tangent grows beyond use.
constexpr double VERTICAL_TOLERANCE = 0.005;

// The ellipse inscribed in a box, by polar angle.
class InscribedEllipse {
public:
    explicit InscribedEllipse(const Box2d& box)
        : m_center(box.Center()), m_minY(box.minY), m_maxY(box.maxY) {
        const double a = box.maxX - m_center.x;
        const double b = box.maxY - m_center.y;
        m_a2 = a * a;
        m_b2 = b * b;
    }

    const Vec2d& Center() const { return m_center; }
    bool IsFlat() const { return m_a2 == 0.0 || m_b2 == 0.0; }

    // The angle of a point seen from the centre, in [0, 2 pi].
    double AngleOf(const Vec2d& p) const {
        const double angle = std::atan2(p.y - m_center.y, p.x - m_center.x);
        return angle < 0.0 ? angle + TWO_PI : angle;
    }

    // Where the ray from the centre at this angle meets the ellipse, which must not be flat:
    // the denominator is then never 0.
    Vec2d PointAt(double angle) const {
        if (std::fabs(angle - HALF_PI) < VERTICAL_TOLERANCE) {
            return {m_center.x, m_maxY};
        }
        if (std::fabs(angle - (HALF_PI + ONE_PI)) < VERTICAL_TOLERANCE) {
            return {m_center.x, m_minY};
        }
        const double t = std::tan(angle);
        const double q = (t * t) * m_a2 + m_b2;
        double x = std::sqrt((m_a2 * m_b2) / q);
        if (IsLeft(angle)) {
            x = -x;
        }
        return {m_center.x + x, m_center.y + t * x};
    }

private:
    static bool IsLeft(double angle) {
        return (HALF_PI < angle && angle < HALF_PI + ONE_PI) ||
               (HALF_PI + TWO_PI < angle && angle < HALF_PI + THREE_PI);
    }

    Vec2d m_center;
    double m_minY, m_maxY;
    double m_a2, m_b2; // the half-axes squared
};

} // namespace

bool ArcToCurve(const Box2d& box, const Vec2d& start, const Vec2d& end, std::size_t n, Vec2d* out,
                Box2d* outBox) {
    // Everything needed of the arguments is taken here: the outputs may be the same objects.
    const InscribedEllipse ellipse(box);
    if (n < 2 || start == ellipse.Center() || end == ellipse.Center() || ellipse.IsFlat()) {
        return false;
    }
    if (out == nullptr && outBox == nullptr) {
        return true;
    }
    const double startAngle = ellipse.AngleOf(start);
    double endAngle = ellipse.AngleOf(end);
    if (startAngle >= endAngle) {
        endAngle += TWO_PI;
    }
    const double step = (endAngle - startAngle) / static_cast<double>(n - 1);
    double angle = startAngle;
    for (std::size_t k = 0; k < n; ++k, angle += step) {
        const Vec2d point = ellipse.PointAt(angle);
        if (out != nullptr) {
            out[k] = point;
        }
        if (outBox != nullptr) {
            outBox->ExtendBy(point);
        }
    }
    return true;
}

bool PieToArea(const Box2d& box, const Vec2d& start, const Vec2d& end, std::size_t n, Vec2d* out,
               Box2d* outBox) {
    const Vec2d center((box.minX + box.maxX) * 0.5, (box.minY + box.maxY) * 0.5);
    if (n < 4 || out == nullptr || !ArcToCurve(box, start, end, n - 2, out, outBox)) {
        return false;
    }
    out[n - 2] = center;
    out[n - 1] = out[0];
    if (outBox != nullptr) {
        outBox->ExtendBy(center);
    }
    return true;
}

bool ChordToArea(const Box2d& box, const Vec2d& start, const Vec2d& end, std::size_t n, Vec2d* out,
                 Box2d* outBox) {
    if (n < 3 || !ArcToCurve(box, start, end, n - 1, out, outBox)) {
        return false;
    }
    if (out != nullptr) {
        out[n - 1] = out[0];
    }
    return true;
}

void GenerateEllipse(const Box2d& box, std::size_t n, Vec2d* out) {
    if (n == 0) {
        return;
    }
    const double step = HALF_PI / boost::numeric_cast<std::int32_t>(n);
    if (out == nullptr) {
        return;
    }
    const double b = (box.maxY - box.minY) * 0.5;
    const double a = (box.maxX - box.minX) * 0.5;
    const double c = std::cos(step);
    const double s = std::sin(step);

    Vec2d* next = out;
    double x = 1.0;
    double y = 0.0;
    for (std::size_t i = 0; i <= n; ++i) {
        *next++ = {a * x, b * y};
        const double turned = c * x - s * y;
        y = s * x + c * y;
        x = turned;
    }
    for (std::size_t i = n; i-- > 0;) {
        *next++ = {-out[i].x, out[i].y};
    }
    for (std::size_t i = 2 * n; i-- > 0;) {
        *next++ = {out[i].x, -out[i].y};
    }
    const Vec2d center = box.Center();
    std::for_each(out, next, [center](Vec2d& p) { p += center; });
}

double AngleToTheta(double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double d = std::fabs(s) + std::fabs(c);
    const double v = d < std::numeric_limits<double>::min() ? 0.0 : s / d;
    if (c < 0.0) {
        return 2.0 - v;
    }
    return s < 0.0 ? v + 4.0 : v;
}

double ThetaToAngle(double theta) {
    const double t = std::fmod(std::fmod(theta, 4.0) + 4.0, 4.0);
    const int quadrant = std::isfinite(t) ? boost::numeric_cast<std::int32_t>(t) : -1;
    switch (quadrant) {
    case 0: return std::atan2(t, 1.0 - t);
    case 1: return std::atan2(2.0 - t, 1.0 - t);
    case 2: return std::atan2(2.0 - t, t - 3.0);
    case 3: return std::atan2(t - 4.0, t - 3.0);
    default: return std::atan2(0.0, 1.0);
    }
}

} // namespace geom
