// SPDX-License-Identifier: MIT
#include "tools/geomtool/Palette.h"

#include <algorithm>
#include <cstdint>

namespace geomtool {

using geom::Vec2d;

namespace {

/// A set of colours, one bit each.
using ColourMask = std::uint32_t;

bool Before(const Vec2d& a, const Vec2d& b) {
    return a.x != b.x ? a.x < b.x : a.y < b.y;
}

std::vector<Vec2d> DistinctPoints(const PolygonSet& shapes) {
    std::vector<Vec2d> points;
    points.reserve(shapes.VertexCount());
    for (const Ring& ring : shapes.rings) {
        points.insert(points.end(), ring.points.begin(), ring.points.end());
    }
    std::sort(points.begin(), points.end(), Before);
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

/// The colours that meet at each vertex so far.
class ColoursAtPoints {
public:
    explicit ColoursAtPoints(const PolygonSet& shapes)
        : m_shapes(shapes), m_points(DistinctPoints(shapes)), m_masks(m_points.size(), 0) {}

    /// The colours of the neighbours that have one.
    ColourMask Around(const NestedPolygon& polygon) {
        ColourMask around = 0;
        ForEachMask(polygon, [&around](ColourMask& mask) { around |= mask; });
        return around;
    }

    void Add(const NestedPolygon& polygon, std::size_t colour) {
        ForEachMask(polygon, [colour](ColourMask& mask) { mask |= ColourMask{1} << colour; });
    }

private:
    template <typename Visit>
    void ForEachMask(const NestedPolygon& polygon, Visit visit) {
        VisitRing(polygon.exterior, visit);
        for (const std::size_t hole : polygon.holes) {
            VisitRing(hole, visit);
        }
    }

    template <typename Visit>
    void VisitRing(std::size_t ring, Visit visit) {
        for (const Vec2d& p : m_shapes.rings[ring].points) {
            const auto at = std::lower_bound(m_points.begin(), m_points.end(), p, Before);
            visit(m_masks[static_cast<std::size_t>(at - m_points.begin())]);
        }
    }

    const PolygonSet& m_shapes;
    std::vector<Vec2d> m_points;
    std::vector<ColourMask> m_masks;
};

/// The least used colour, taken ones only when there is no other.
std::size_t LeastUsed(const std::vector<std::size_t>& uses, ColourMask taken) {
    std::size_t best = 0;
    bool bestIsTaken = true;
    for (std::size_t i = 0; i < uses.size(); ++i) {
        const bool isTaken = (taken >> i & 1) != 0;
        if ((bestIsTaken && !isTaken) || (isTaken == bestIsTaken && uses[i] < uses[best])) {
            best = i;
            bestIsTaken = isTaken;
        }
    }
    return best;
}

} // namespace

const std::vector<std::string>& Palette() {
    static const std::vector<std::string> colours = {"#e9c9a1", "#b9d1a7", "#e0b4ae", "#d2c795",
                                                     "#ebdfa7", "#cbb9d9", "#a8d0c8", "#d9cfc1"};
    return colours;
}

std::vector<std::size_t> ColourNeighboursApart(const PolygonSet& shapes,
                                               const std::vector<NestedPolygon>& polygons) {
    ColoursAtPoints colours(shapes);
    std::vector<std::size_t> uses(Palette().size(), 0);
    std::vector<std::size_t> picked;
    picked.reserve(polygons.size());
    for (const NestedPolygon& polygon : polygons) {
        const std::size_t colour = LeastUsed(uses, colours.Around(polygon));
        colours.Add(polygon, colour);
        ++uses[colour];
        picked.push_back(colour);
    }
    return picked;
}

} // namespace geomtool
