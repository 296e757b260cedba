// SPDX-License-Identifier: MIT
#include "tools/geomtool/SetOperation.h"

#include "tools/geomtool/GpcConversion.h"
#include "tools/geomtool/Nesting.h"
#include "tools/geomtool/Progress.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace geomtool {

using geom::GpcPolygon;

namespace {

void Apply(SetOperation operation, GpcPolygon& subject, const GpcPolygon& other) {
    switch (operation) {
    case SetOperation::Intersection: subject.Intersection(other); break;
    case SetOperation::Union: subject.Union(other); break;
    case SetOperation::Difference: subject.Difference(other); break;
    case SetOperation::Xor: subject.XOR(other); break;
    }
}

void Append(PolygonSet& shapes, PolygonSet more) {
    std::move(more.rings.begin(), more.rings.end(), std::back_inserter(shapes.rings));
}

bool BoxesMeet(const GpcPolygon& a, const GpcPolygon& b) {
    geom::Box2d common = a.GetBBox();
    common.Intersect(b.GetBBox());
    return !common.IsEmpty();
}

PolygonSet CutEach(SetOperation operation, const PolygonSet& first, const GpcPolygon& second,
                   Progress& progress) {
    const std::vector<NestedPolygon> polygons = Nest(first);
    PolygonSet result;
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        GpcPolygon polygon = ToGpcPolygon(Extract(first, polygons[i]));
        // What is far from the second operand is all lost or all kept, as it is.
        if (BoxesMeet(polygon, second)) {
            Apply(operation, polygon, second);
            Append(result, ToPolygonSet(polygon));
        } else if (operation == SetOperation::Difference) {
            Append(result, ToPolygonSet(polygon));
        }
        progress.Step(i + 1, polygons.size());
    }
    return result;
}

std::vector<GpcPolygon> SinglePolygons(const PolygonSet& shapes) {
    std::vector<GpcPolygon> singles;
    for (const NestedPolygon& polygon : Nest(shapes)) {
        singles.push_back(ToGpcPolygon(Extract(shapes, polygon)));
    }
    return singles;
}

/// Unites neighbours in the list, then the results, and so on: each vertex takes part in about
/// log n unions instead of n.
PolygonSet UniteEach(std::vector<GpcPolygon> polygons, Progress& progress) {
    const std::size_t total = polygons.size();
    for (std::size_t step = 1; step < total; step *= 2) {
        for (std::size_t i = 0; i + step < total; i += 2 * step) {
            polygons[i].Union(polygons[i + step]);
            polygons[i + step] = GpcPolygon();
        }
        progress.Step(std::min(2 * step, total), total);
    }
    if (total == 1) {
        polygons[0].Union(GpcPolygon());
    }
    return total > 0 ? ToPolygonSet(polygons[0]) : PolygonSet();
}

} // namespace

PolygonSet Combine(SetOperation operation, const PolygonSet& first, const PolygonSet& second) {
    GpcPolygon subject = ToGpcPolygon(first);
    Apply(operation, subject, ToGpcPolygon(second));
    return ToPolygonSet(subject);
}

PolygonSet CombineEach(SetOperation operation, const PolygonSet& first, const PolygonSet& second,
                       Progress& progress) {
    if (operation != SetOperation::Union) {
        return CutEach(operation, first, ToGpcPolygon(second), progress);
    }
    std::vector<GpcPolygon> polygons = SinglePolygons(first);
    std::vector<GpcPolygon> others = SinglePolygons(second);
    std::move(others.begin(), others.end(), std::back_inserter(polygons));
    return UniteEach(std::move(polygons), progress);
}

} // namespace geomtool
