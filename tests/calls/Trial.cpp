// SPDX-License-Identifier: MIT
#include "tests/calls/Trial.h"

#include "geometry/GPCException.h"
#include "geometry/GpcPolygon.h"
#include "geometry/LineClipPolygon.h"
#include "geometry/Polygon2.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <limits>

namespace geom::test {

std::int32_t Trial::Integer(std::int32_t usual) {
    const double value = Number(usual);
    constexpr double LEAST = std::numeric_limits<std::int32_t>::min();
    constexpr double MOST = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int32_t>(std::round(std::min(std::max(value, LEAST), MOST)));
}

Vec2d Trial::Point(double x, double y) {
    const double first = Number(x);
    return {first, Number(y)};
}

Vec3d Trial::Point(double x, double y, double z) {
    const Vec2d first = Point(x, y);
    return {first.x, first.y, Number(z)};
}

tagPOINT Trial::Device(std::int32_t x, std::int32_t y) {
    const std::int32_t first = Integer(x);
    return {first, Integer(y)};
}

Box2d Trial::Box(double left, double bottom, double right, double top) {
    const Vec2d low = Point(left, bottom);
    const Vec2d high = Point(right, top);
    return {low.x, low.y, high.x, high.y};
}

std::vector<Vec2d> Trial::Points(std::initializer_list<Vec2d> usual) {
    std::vector<Vec2d> points;
    for (const Vec2d& p : usual) {
        points.push_back(Point(p.x, p.y));
    }
    return points;
}

std::vector<tagPOINT> Trial::Devices(std::initializer_list<tagPOINT> usual) {
    std::vector<tagPOINT> points;
    for (const tagPOINT& p : usual) {
        points.push_back(Device(p.x, p.y));
    }
    return points;
}

std::vector<Vec2d> Trial::Star(double x, double y) {
    std::vector<Vec2d> points;
    const int n = m_conductor.Many();
    for (int i = 0; i < n; ++i) {
        // On the diamond |x| + |y| = r, so that no function of the platform is called.
        const double turn = 4.0 * i / n;
        const double r = i % 2 == 0 ? 10.0 : 4.0;
        const double dx = turn < 2 ? 1 - turn : turn - 3;
        const double dy = turn < 1 ? turn : turn < 3 ? 2 - turn : turn - 4;
        points.push_back(Point(x + r * dx, y + r * dy));
    }
    return points;
}

std::vector<Vec2d> Trial::Zigzag() {
    std::vector<Vec2d> points;
    const int n = m_conductor.Many() / 2;
    for (int i = 0; i <= n; ++i) {
        points.push_back(Point(-12 + 24.5 * i / n, i % 2 == 0 ? -11 : 11.5));
    }
    return points;
}

void Trial::KeepBytes(const void* first, std::size_t size) {
    const auto* const bytes = static_cast<const unsigned char*>(first);
    m_kept.push_back({first, {bytes, bytes + size}});
}

void Trial::Keep(const GpcPolygon& polygon) {
    KeepBytes(&polygon, sizeof polygon);
    const auto n = static_cast<std::size_t>(polygon.num_contours);
    KeepBytes(polygon.hole, n * sizeof(int));
    KeepBytes(polygon.contour, n * sizeof(gpc_vertex_list));
    for (std::size_t i = 0; i < n; ++i) {
        const gpc_vertex_list& ring = polygon.contour[i];
        KeepBytes(ring.vertex, static_cast<std::size_t>(ring.num_vertices) * sizeof(gpc_vertex));
    }
}

void Trial::Keep(const Polygon2& polygon) {
    Keep(polygon.Points());
    Keep(polygon.Counts());
}

void Trial::ExpectKept() const {
    for (const Kept& kept : m_kept) {
        if (!kept.bytes.empty() &&
            std::memcmp(kept.first, kept.bytes.data(), kept.bytes.size()) != 0) {
            ADD_FAILURE() << "the call has changed its input";
        }
    }
}

void Fingerprint::Mix(const void* first, std::size_t size) {
    const auto* const bytes = static_cast<const unsigned char*>(first);
    for (std::size_t i = 0; i < size; ++i) {
        m_value = (m_value ^ bytes[i]) * 0x100000001B3;
    }
}

void Fingerprint::Add(const std::string& text) {
    Mix(text.data(), text.size());
}

void Fingerprint::Add(const GpcPolygon& polygon) {
    Add(polygon.GetBBox());
    Add(polygon.num_contours);
    for (int i = 0; i < polygon.num_contours; ++i) {
        const gpc_vertex_list& ring = polygon.contour[i];
        Add(polygon.hole[i]);
        Add(ring.num_vertices);
        Mix(ring.vertex, static_cast<std::size_t>(ring.num_vertices) * sizeof(gpc_vertex));
    }
}

void Fingerprint::Add(const LineClipPolygon& polygon) {
    std::vector<Vec2d> points;
    polygon.GetPolygon(points);
    Add(points);
    Add(polygon.GetBBox());
}

void Fingerprint::Add(const Polygon2& polygon) {
    Add(polygon.Points());
    Add(polygon.Counts());
}

std::string PublicCall::Function() const {
    return name.substr(0, name.find(" ("));
}

Errors Together(std::initializer_list<Errors> lists) {
    Errors all;
    for (const Errors& list : lists) {
        all.insert(all.end(), list.begin(), list.end());
    }
    return all;
}

const Calls& AllCalls() {
    static const Calls all = [] {
        Calls calls;
        for (const auto family :
             {FoundationCalls, RectangleClipperCalls, EngineCalls, GpcPolygonCalls, ClipUtilCalls,
              LineClipCalls, DashCalls, PolylineCalls, SegmentCalls, RingCalls, CurveCalls,
              SearchCalls, SpaceCalls, ErrorCalls}) {
            for (PublicCall& call : family()) {
                calls.push_back(std::move(call));
            }
        }
        return calls;
    }();
    return all;
}

namespace {

Errors OfEngine(const char* line, std::initializer_list<const char*> reasons) {
    Errors errors;
    for (const char* const reason : reasons) {
        errors.push_back(std::string("GPC Library, Gpc ") + line + ": GPCAlloc failure: " + reason);
    }
    return errors;
}

} // namespace

const Errors& EngineMemory() {
    static const Errors errors =
        Together({OfEngine("200", {"hole flag table creation", "contour creation",
                                   "vertex creation", "tristrip list creation", "tristrip creation",
                                   "contour hole addition", "contour addition"}),
                  OfEngine("202", {"Bounding box creation", "overlap table creation",
                                   "edge table creation", "LMT insertion",
                                   "scanbeam tree insertion", "sbt creation", "IT insertion",
                                   "ST insertion", "polygon node creation", "vertex node creation",
                                   "tristrip vertex creation", "tristrip node creation"})});
    return errors;
}

const Errors& EngineNumbers() {
    static const Errors errors = {"Geometry, Gpc 102: Internal error",
                                  "GPC Library, Gpc 3", // a state that a correct sweep never meets
                                  "Geometry, Gpc 3"};
    return errors;
}

const Errors& ContourMemory() {
    static const Errors errors = {"Geometry, GpcPolygon 878: Out of memory",
                                  "Geometry, GpcPolygon 885: Out of memory",
                                  "Geometry, GpcPolygon 903: Out of memory"};
    return errors;
}

void DescribeException(char* text, std::size_t size) {
    try {
        throw;
    } catch (const kit::Exception& e) {
        std::snprintf(text, size, "%s, %s %d: %s", e.Module().Narrow().c_str(),
                      e.File().Narrow().c_str(), e.Line(), e.Message().Narrow().c_str());
    } catch (const std::bad_alloc&) {
        std::snprintf(text, size, "bad_alloc");
    } catch (const std::exception& e) {
        std::snprintf(text, size, "%s", e.what());
    } catch (...) {
        std::snprintf(text, size, "an unknown exception");
    }
}

} // namespace geom::test
