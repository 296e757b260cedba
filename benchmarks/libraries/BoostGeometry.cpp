// SPDX-License-Identifier: MIT
#include "Entries.h"

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/geometries.hpp>
#include <boost/geometry/geometries/multi_linestring.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>

#include <cmath>
#include <iterator>

namespace geom::bench {

namespace {

namespace bg = boost::geometry;

using Point = bg::model::d2::point_xy<double>;
using Polygon = bg::model::polygon<Point>;
using Polygons = bg::model::multi_polygon<Polygon>;
using Line = bg::model::linestring<Point>;
using MultiLine = bg::model::multi_linestring<Line>;
using Box = bg::model::box<Point>;

void AppendRing(const Ring& ring, Polygon::ring_type& out) {
    for (const gpc_vertex& v : ring) {
        out.emplace_back(v.x, v.y);
    }
}

/// A hole belongs to the outer ring before it.
Polygons ToPolygons(const Region& region) {
    Polygons polygons;
    for (std::size_t i = 0; i < region.rings.size(); ++i) {
        if (region.holes[i] != 0 && !polygons.empty()) {
            polygons.back().inners().emplace_back();
            AppendRing(region.rings[i], polygons.back().inners().back());
        } else {
            polygons.emplace_back();
            AppendRing(region.rings[i], polygons.back().outer());
        }
    }
    bg::correct(polygons);
    return polygons;
}

MultiLine ToLines(const Lines& lines) {
    MultiLine result;
    const Vec2d* at = lines.points.data();
    for (unsigned int n : lines.counts) {
        result.emplace_back();
        for (unsigned int i = 0; i < n; ++i, ++at) {
            result.back().emplace_back(at->x, at->y);
        }
    }
    return result;
}

struct SetOperationState {
    void Run() {
        switch (operation) {
        case GPC_DIFF: bg::difference(subject, clip, result); break;
        case GPC_INT: bg::intersection(subject, clip, result); break;
        case GPC_XOR: bg::sym_difference(subject, clip, result); break;
        case GPC_UNION: bg::union_(subject, clip, result); break;
        }
    }
    Answer Find() const { return {bg::area(result), bg::num_points(result)}; }
    void Clear() { result = {}; }

    gpc_op operation;
    Polygons subject, clip;
    Polygons result;
};

struct LinesToBoxState {
    void Run() { bg::intersection(box, lines, result); }
    Answer Find() const {
        return {static_cast<double>(bg::length(result)), bg::num_points(result)};
    }
    void Clear() { result = {}; }

    MultiLine lines;
    Box box;
    MultiLine result;
};

struct LinesToRegionState {
    void Run() { bg::intersection(lines, polygons, result); }
    Answer Find() const {
        return {static_cast<double>(bg::length(result)), bg::num_points(result)};
    }
    void Clear() { result = {}; }

    MultiLine lines;
    Polygons polygons;
    MultiLine result;
};

struct InsideState {
    void Run() {
        inside = 0;
        for (const Point& p : queries) {
            inside += bg::within(p, polygons) ? 1U : 0U;
        }
    }
    Answer Find() const { return {static_cast<double>(inside), 0}; }
    void Clear() {}

    Polygons polygons;
    std::vector<Point> queries;
    std::size_t inside = 0;
};

using Tree = bg::index::rtree<Point, bg::index::linear<16>>;

/// Given all points at once, the tree packs them.
struct NearestState {
    void Run() {
        const Tree tree(points.begin(), points.end());
        sum = 0;
        for (const Point& p : queries) {
            Point found(0, 0);
            tree.query(bg::index::nearest(p, 1), &found);
            sum += bg::distance(p, found);
        }
    }
    Answer Find() const { return {sum, 0}; }
    void Clear() {}

    std::vector<Point> points;
    std::vector<Point> queries;
    double sum = 0;
};

std::vector<Point> ToPoints(const std::vector<Vec2d>& points) {
    std::vector<Point> result;
    for (const Vec2d& p : points) {
        result.emplace_back(p.x, p.y);
    }
    return result;
}

struct MeasureState {
    void Run() { value = area ? bg::area(polygons) : static_cast<double>(bg::perimeter(polygons)); }
    Answer Find() const { return {value, 0}; }
    void Clear() {}

    Polygons polygons;
    bool area;
    double value = 0;
};

class Boost : public Library {
public:
    std::string Name() const override { return "Boost"; }
    bool TakesTouchingRings() const override { return false; }

    Job SetOperation(gpc_op operation, const Regions& operands) const override {
        return MakeJob(std::make_shared<SetOperationState>(SetOperationState{
            operation, ToPolygons(operands.subject), ToPolygons(operands.clip), {}}));
    }
    Job ClipLinesToBox(const Lines& lines, const Box2d& box) const override {
        return MakeJob(std::make_shared<LinesToBoxState>(
            LinesToBoxState{ToLines(lines), {{box.minX, box.minY}, {box.maxX, box.maxY}}, {}}));
    }
    Job ClipLinesToRegion(const Lines& lines, const Region& region) const override {
        return MakeJob(std::make_shared<LinesToRegionState>(
            LinesToRegionState{ToLines(lines), ToPolygons(region), {}}));
    }
    Job PointsInside(const Ring& ring, const std::vector<Vec2d>& queries) const override {
        return MakeJob(std::make_shared<InsideState>(
            InsideState{ToPolygons({{ring}, {0}}), ToPoints(queries)}));
    }
    Job Nearest(const std::vector<Vec2d>& points,
                const std::vector<Vec2d>& queries) const override {
        return MakeJob(
            std::make_shared<NearestState>(NearestState{ToPoints(points), ToPoints(queries)}));
    }
    Job Area(const Ring& ring) const override { return MeasureOf(ring, true); }
    Job Perimeter(const Ring& ring) const override { return MeasureOf(ring, false); }

private:
    static Job MeasureOf(const Ring& ring, bool area) {
        return MakeJob(
            std::make_shared<MeasureState>(MeasureState{ToPolygons({{ring}, {0}}), area}));
    }
};

} // namespace

const Library& BoostEntry() {
    static const Boost boost;
    return boost;
}

} // namespace geom::bench
