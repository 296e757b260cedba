// SPDX-License-Identifier: MIT
#pragma once

#include "tests/reference/PlainSweep.h"
#include "tests/support/PlaneTruth.h"

#include <cmath>
#include <vector>

/// \file
/// Measures of the results of set operations, whoever computed them.

namespace geom::test {

inline Rings RingsOf(const std::vector<PlainContour>& contours) {
    Rings rings;
    for (const PlainContour& contour : contours) {
        rings.push_back(contour.vertices);
    }
    return rings;
}

/// The area of external contours less that of holes.
inline double AreaByFlags(const std::vector<PlainContour>& contours) {
    double area = 0;
    for (const PlainContour& contour : contours) {
        const double ring = std::fabs(SignedRingArea(contour.vertices));
        area += contour.hole ? -ring : ring;
    }
    return area;
}

/// The sum over all triangles of all strips.
inline double AreaOfTriangles(const std::vector<PlainStrip>& strips) {
    double area = 0;
    for (const PlainStrip& strip : strips) {
        for (std::size_t i = 2; i < strip.size(); ++i) {
            area += std::fabs(SignedRingArea({strip[i - 2], strip[i - 1], strip[i]}));
        }
    }
    return area;
}

} // namespace geom::test
