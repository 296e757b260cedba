// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PolygonFamilies.h"

namespace geom::test {

/// An engine record over rings that live elsewhere.
class PolygonView {
public:
    explicit PolygonView(Rings& rings) : m_holes(rings.size(), 0) {
        for (Ring& ring : rings)
            m_contours.push_back(
                {static_cast<int>(ring.size()), ring.empty() ? nullptr : ring.data()});
        m_polygon = {static_cast<int>(rings.size()), rings.empty() ? nullptr : m_holes.data(),
                     rings.empty() ? nullptr : m_contours.data()};
    }
    PolygonView(const PolygonView&) = delete;
    PolygonView& operator=(const PolygonView&) = delete;

    const gpc_polygon& Get() const { return m_polygon; }

private:
    std::vector<int> m_holes;
    std::vector<gpc_vertex_list> m_contours;
    gpc_polygon m_polygon;
};

} // namespace geom::test
