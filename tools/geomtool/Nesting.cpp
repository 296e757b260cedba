// SPDX-License-Identifier: MIT
#include "tools/geomtool/Nesting.h"

#include "tools/geomtool/BoxTree.h"
#include "tools/geomtool/InteriorPoint.h"
#include "tools/geomtool/RingLocator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace geomtool {

using geom::Box2d;
using geom::Vec2d;

namespace {

constexpr std::size_t NONE = static_cast<std::size_t>(-1);

/// The external contours, searched for the one that a hole belongs to.
class Exteriors {
public:
    Exteriors(const PolygonSet& shapes, const std::vector<NestedPolygon>& polygons)
        : m_shapes(shapes), m_polygons(polygons), m_tree(Boxes(shapes, polygons)) {
        for (const NestedPolygon& polygon : polygons) {
            m_areas.push_back(AreaOf(polygon.exterior));
        }
    }

    /// The smallest polygon around a hole, NONE when there is none.
    ///
    /// One point decides: contours of a polygon do not cross, so a contour larger than the hole
    /// holds all of it or nothing. The point lies away from the hole's boundary because a hole
    /// may touch the contour around it, where rounding would decide.
    std::size_t Around(std::size_t hole) {
        const Vec2d inside = InteriorPoint(m_shapes.rings[hole].points);
        const double area = AreaOf(hole);
        m_found.clear();
        m_tree.Find(inside, m_found);
        std::sort(m_found.begin(), m_found.end(), [this](std::size_t a, std::size_t b) {
            return m_areas[a] != m_areas[b] ? m_areas[a] < m_areas[b] : a < b;
        });
        for (const std::size_t polygon : m_found) {
            if (m_areas[polygon] > area && Locator(polygon).Contains(inside)) {
                return polygon;
            }
        }
        return NONE;
    }

private:
    static std::vector<Box2d> Boxes(const PolygonSet& shapes,
                                    const std::vector<NestedPolygon>& polygons) {
        std::vector<Box2d> boxes;
        boxes.reserve(polygons.size());
        for (const NestedPolygon& polygon : polygons) {
            boxes.push_back(BoxOf(shapes.rings[polygon.exterior].points));
        }
        return boxes;
    }

    /// Contours whose area overflows are larger than all others.
    double AreaOf(std::size_t ring) const {
        const double area = std::abs(SignedArea(m_shapes.rings[ring].points));
        return std::isnan(area) ? std::numeric_limits<double>::infinity() : area;
    }

    /// Built when first asked for: most external contours have no hole near them.
    const RingLocator& Locator(std::size_t polygon) {
        const auto [entry, isNew] =
            m_locators.try_emplace(polygon, m_shapes.rings[m_polygons[polygon].exterior].points);
        static_cast<void>(isNew);
        return entry->second;
    }

    const PolygonSet& m_shapes;
    const std::vector<NestedPolygon>& m_polygons;
    BoxTree m_tree;
    std::vector<double> m_areas;
    std::map<std::size_t, RingLocator> m_locators;
    std::vector<std::size_t> m_found;
};

bool HasArea(const Ring& ring) {
    return ring.points.size() >= 3;
}

/// The polygon around each ring that is a hole, NONE elsewhere.
std::vector<std::size_t> Owners(const PolygonSet& shapes) {
    std::vector<NestedPolygon> polygons;
    for (std::size_t i = 0; i < shapes.rings.size(); ++i) {
        if (!shapes.rings[i].hole && HasArea(shapes.rings[i])) {
            polygons.push_back({i, {}});
        }
    }
    std::vector<std::size_t> owners(shapes.rings.size(), NONE);
    Exteriors exteriors(shapes, polygons);
    for (std::size_t i = 0; i < shapes.rings.size(); ++i) {
        if (shapes.rings[i].hole && HasArea(shapes.rings[i])) {
            const std::size_t around = exteriors.Around(i);
            owners[i] = around == NONE ? NONE : polygons[around].exterior;
        }
    }
    return owners;
}

} // namespace

std::vector<NestedPolygon> Nest(const PolygonSet& shapes) {
    const std::vector<std::size_t> owners = Owners(shapes);
    std::vector<std::size_t> polygonOf(shapes.rings.size(), NONE);
    std::vector<NestedPolygon> polygons;
    for (std::size_t i = 0; i < shapes.rings.size(); ++i) {
        if (owners[i] == NONE && HasArea(shapes.rings[i])) {
            polygonOf[i] = polygons.size();
            polygons.push_back({i, {}});
        }
    }
    for (std::size_t i = 0; i < shapes.rings.size(); ++i) {
        if (owners[i] != NONE) {
            polygons[polygonOf[owners[i]]].holes.push_back(i);
        }
    }
    return polygons;
}

PolygonSet Extract(const PolygonSet& shapes, const NestedPolygon& polygon) {
    PolygonSet part;
    part.rings.push_back(shapes.rings[polygon.exterior]);
    part.rings.front().hole = false;
    for (const std::size_t hole : polygon.holes) {
        part.rings.push_back(shapes.rings[hole]);
    }
    return part;
}

} // namespace geomtool
