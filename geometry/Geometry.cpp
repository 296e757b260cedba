// SPDX-License-Identifier: MIT
#include "geometry/Geometry.h"

#include "geometry/detail/Thresholds.h"
#include "geometry/detail/Wrapping.h"

#include <cmath>
#include <cstdint>

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"Geometry";
constexpr int LINE_U_WITHOUT_LENGTH = 274;
constexpr int LINE_V_WITHOUT_LENGTH = 278;
constexpr int LINE_NORMAL_WITHOUT_LENGTH = 283;

double DistanceBetween(const Vec2d& a, const Vec2d& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

// a - b in 32 bits, then exact.
Vec2d WrappedDifference(const tagPOINT& a, const tagPOINT& b) {
    return {static_cast<double>(detail::WrapSubtract(a.x, b.x)),
            static_cast<double>(detail::WrapSubtract(a.y, b.y))};
}

std::int32_t WrappedSquare(std::int32_t value) {
    return detail::WrapMultiply(value, value);
}

double SumOfSquares(const Vec2d& v) {
    return v.x * v.x + v.y * v.y;
}

// How one point type measures: the difference of two points, and the squared distance from `p`
// to a segment's end `b` when `p` lies beyond it.
struct PlaneMetric {
    using Point = Vec2d;
    static Vec2d Difference(const Vec2d& a, const Vec2d& b) { return {a.x - b.x, a.y - b.y}; }
    static double BeyondEnd(const Vec2d& p, const Vec2d& b) {
        return SumOfSquares(Difference(p, b));
    }
};

struct DeviceMetric {
    using Point = tagPOINT;
    static Vec2d Difference(const tagPOINT& a, const tagPOINT& b) {
        return WrappedDifference(a, b);
    }
    // The squares wrap as well, one by one; only their sum is taken in doubles.
    static double BeyondEnd(const tagPOINT& p, const tagPOINT& b) {
        return static_cast<double>(WrappedSquare(detail::WrapSubtract(p.y, b.y))) +
               static_cast<double>(WrappedSquare(detail::WrapSubtract(p.x, b.x)));
    }
};

template <typename Metric>
double SegmentDistanceSquared(const typename Metric::Point& p, const typename Metric::Point& a,
                              const typename Metric::Point& b) {
    const Vec2d d = Metric::Difference(b, a);
    const Vec2d w = Metric::Difference(p, a);
    const double t = w.x * d.x + w.y * d.y;
    if (t <= 0.0) {
        return SumOfSquares(w);
    }
    const double lengthSquared = SumOfSquares(d);
    if (t >= lengthSquared) {
        return Metric::BeyondEnd(p, b);
    }
    const double f = t / lengthSquared;
    const double missX = w.x - f * d.x;
    const double missY = w.y - f * d.y;
    return missX * missX + missY * missY;
}

struct Nearest {
    double distanceSquared = detail::LARGEST;
    std::size_t index = 0;

    void Offer(double candidate, std::size_t candidateIndex) {
        if (candidate < distanceSquared) {
            distanceSquared = candidate;
            index = candidateIndex;
        }
    }
};

// Four segments at a time: their distances do not depend on each other, so that the processor
// works on them side by side. They are offered in increasing order, as one by one.
template <typename Metric>
Nearest NearestSegment(const typename Metric::Point* pts, std::size_t segments,
                       const typename Metric::Point& p) {
    Nearest best;
    std::size_t i = 0;
    for (; segments - i >= 4; i += 4) {
        const double first = SegmentDistanceSquared<Metric>(p, pts[i], pts[i + 1]);
        const double second = SegmentDistanceSquared<Metric>(p, pts[i + 1], pts[i + 2]);
        const double third = SegmentDistanceSquared<Metric>(p, pts[i + 2], pts[i + 3]);
        const double fourth = SegmentDistanceSquared<Metric>(p, pts[i + 3], pts[i + 4]);
        best.Offer(first, i);
        best.Offer(second, i + 1);
        best.Offer(third, i + 2);
        best.Offer(fourth, i + 3);
    }
    for (; i < segments; ++i) {
        best.Offer(SegmentDistanceSquared<Metric>(p, pts[i], pts[i + 1]), i);
    }
    return best;
}

template <typename Metric>
std::size_t FindClosest(const typename Metric::Point* pts, std::size_t n,
                        const typename Metric::Point& p, double* distSq) {
    const std::size_t segments = pts == nullptr || n < 2 ? 0 : n - 1;
    const Nearest best = NearestSegment<Metric>(pts, segments, p);
    if (distSq != nullptr) {
        *distSq = best.distanceSquared;
    }
    return best.index;
}

double ClampedToUnit(double t) {
    return t < 0.0 ? 0.0 : t > 1.0 ? 1.0 : t;
}

bool SameSide(double side1, double side2) {
    return (side1 <= 0.0 && side2 <= 0.0) || (side1 > 0.0 && side2 > 0.0);
}

} // namespace

bool SegmentsIntersect(const Vec2d& p1, const Vec2d& p2, const Vec2d& q1, const Vec2d& q2) {
    const double s1 = (q2.x - q1.x) * (p1.y - q1.y) - (p1.x - q1.x) * (q2.y - q1.y);
    const double s2 = (p2.y - q1.y) * (q2.x - q1.x) - (p2.x - q1.x) * (q2.y - q1.y);
    const double t1 = (p2.y - q1.y) * (p1.x - q1.x) - (p2.x - q1.x) * (p1.y - q1.y);
    const double t2 = s1 - s2 + t1;
    return !SameSide(s1, s2) && !SameSide(t1, t2);
}

double PointLineSegDistSq(const Vec2d& p, const Vec2d& a, const Vec2d& b) {
    return SegmentDistanceSquared<PlaneMetric>(p, a, b);
}

double PointLineSegDistSq(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b) {
    return SegmentDistanceSquared<DeviceMetric>(p, a, b);
}

double PointLineSegDistSq(const Vec3d& p, const Vec3d& a, const Vec3d& b) {
    const Vec3d d = b - a;
    const Vec3d w = p - a;
    const double t = w.Dot(d);
    if (t <= 0.0) {
        return w.LengthSquared();
    }
    const double lengthSquared = d.LengthSquared();
    if (t >= lengthSquared) {
        return p.DistanceSquared(b);
    }
    return (w - d * (t / lengthSquared)).LengthSquared();
}

std::size_t FindClosestSegment(const Vec2d* pts, std::size_t n, const Vec2d& p, double* distSq) {
    return FindClosest<PlaneMetric>(pts, n, p, distSq);
}

std::size_t FindClosestSegment(const tagPOINT* pts, std::size_t n, const tagPOINT& p,
                               double* distSq) {
    return FindClosest<DeviceMetric>(pts, n, p, distSq);
}

double PolylineLength(const Vec2d* pts, std::size_t n) {
    double length = 0.0;
    for (std::size_t i = 1; pts != nullptr && i < n; ++i) {
        length += DistanceBetween(pts[i - 1], pts[i]);
    }
    return length;
}

void GetNormalIntersection(Vec2d& p, Vec2d& a, Vec2d& b, Vec2d& out) {
    const Vec2d d = b - a;
    const double lengthSquared = SumOfSquares(d);
    if (lengthSquared == 0.0) {
        out = a;
        return;
    }
    const double t = ClampedToUnit(-((a.x - p.x) * d.x + (a.y - p.y) * d.y) / lengthSquared);
    out = Vec2d(a.x + t * d.x, a.y + t * d.y);
}

void GetNormalIntersection(const tagPOINT& p, const tagPOINT& a, const tagPOINT& b, tagPOINT& out) {
    using namespace detail;
    const std::int32_t dx = WrapSubtract(b.x, a.x);
    const std::int32_t dy = WrapSubtract(b.y, a.y);
    const std::int32_t lengthSquared = WrapAdd(WrappedSquare(dx), WrappedSquare(dy));
    if (lengthSquared == 0) {
        out = a;
        return;
    }
    const std::int32_t numerator = WrapNegate(WrapAdd(WrapMultiply(dy, WrapSubtract(a.y, p.y)),
                                                      WrapMultiply(dx, WrapSubtract(a.x, p.x))));
    const double t =
        ClampedToUnit(static_cast<double>(numerator) / static_cast<double>(lengthSquared));
    const std::int32_t x = WrapAdd(a.x, static_cast<std::int32_t>(dx * t));
    const std::int32_t y = WrapAdd(a.y, static_cast<std::int32_t>(dy * t));
    out.x = x;
    out.y = y;
}

bool RectInRect(const Box2d& r, const Box2d& outer, bool allowPartial) {
    if (r.minX > outer.maxX || outer.minX > r.maxX || r.minY > outer.maxY || outer.minY > r.maxY) {
        return false;
    }
    if (allowPartial) {
        return true;
    }
    return !(outer.minX > r.minX || r.maxX > outer.maxX || outer.minY > r.minY ||
             r.maxY > outer.maxY);
}

// The slopes that part the directions are the tangents of 22.5 and 67.5 degrees to three places.
Vec2d ConstrainLineSegmentOrientation(const Vec2d& a, const Vec2d& b) {
    constexpr double FLAT = 0.414;
    constexpr double STEEP = 2.414;
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    if (dx == 0.0) {
        return {a.x, a.y + dy};
    }
    const double slope = dy / dx;
    if (-FLAT < slope && slope <= FLAT) {
        return {a.x + dx, a.y};
    }
    if (-STEEP < slope && slope <= STEEP) {
        const double width = std::fabs(dx);
        const double height = std::fabs(dy);
        return width > height ? Vec2d(a.x + (dx < 0.0 ? -height : height), a.y + dy)
                              : Vec2d(a.x + dx, a.y + (dy < 0.0 ? -width : width));
    }
    return {a.x, a.y + dy};
}

void OrientPlane(Mat4d& m, const Vec3d& origin, Vec3d u, Vec3d v) {
    if (!u.Normalize()) {
        ThrowInternalError(UNIT, LINE_U_WITHOUT_LENGTH);
    }
    m.SetRow(0, Vec4d(u, 0.0));
    if (!v.Normalize()) {
        ThrowInternalError(UNIT, LINE_V_WITHOUT_LENGTH);
    }
    m.SetRow(1, Vec4d(v, 0.0));
    Vec3d normal = u.Cross(v);
    if (!normal.Normalize()) {
        ThrowInternalError(UNIT, LINE_NORMAL_WITHOUT_LENGTH);
    }
    m.SetRow(2, Vec4d(normal, 0.0));
    m.SetRow(3, Vec4d(origin, 1.0));
}

} // namespace geom
