// SPDX-License-Identifier: MIT
#include "fuzz/support/PolygonModel.h"

#include "geometry/GPCException.h"
#include "tests/support/PlaneTruth.h"
#include "tests/support/PolygonView.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace geom::fuzz {

namespace {

test::Rings RingsOf(const PolygonModel& model) {
    test::Rings rings;
    for (const ModelContour& contour : model.Contours()) {
        rings.emplace_back();
        for (const Vec2d& p : contour.points) {
            rings.back().push_back({p.x, p.y});
        }
    }
    return rings;
}

/// Half away from zero, limited to 32 bits. A half is added before truncation, so the value just
/// below 0.5 becomes 1.
std::int32_t Rounded(double value) {
    constexpr double LOW = std::numeric_limits<std::int32_t>::min();
    constexpr double HIGH = std::numeric_limits<std::int32_t>::max();
    const double shifted = value < 0 ? value - 0.5 : value + 0.5;
    return static_cast<std::int32_t>(std::clamp(std::trunc(shifted), LOW, HIGH));
}

bool IsRounded(const std::vector<tagPOINT>& rounded, const Points& points) {
    return std::equal(rounded.begin(), rounded.end(), points.begin(), points.end(),
                      [](const tagPOINT& r, const Vec2d& p) {
                          return r.x == Rounded(p.x) && r.y == Rounded(p.y);
                      });
}

double AsText(double value) {
    char text[400];
    std::snprintf(text, sizeof text, "% .15f", value);
    return std::strtod(text, nullptr);
}

template <typename Change>
void ForEachPoint(std::vector<ModelContour>& contours, Change change) {
    for (ModelContour& contour : contours) {
        for (Vec2d& p : contour.points) {
            p = Vec2d(change(p.x), change(p.y));
        }
    }
}

} // namespace

std::size_t PolygonModel::VertexCount() const {
    std::size_t count = 0;
    for (const ModelContour& contour : m_contours) {
        count += contour.points.size();
    }
    return count;
}

Box2d PolygonModel::Box() const {
    Box2d box;
    for (const ModelContour& contour : m_contours) {
        for (const Vec2d& p : contour.points) {
            box.ExtendBy(p);
        }
    }
    return box;
}

bool PolygonModel::Contains(const Vec2d& p) const {
    return test::IsInside(RingsOf(*this), {p.x, p.y});
}

bool PolygonModel::IsOnAnEdge(const Vec2d& p) const {
    const Box2d box = Box();
    const double largest = std::max(
        {1.0, std::fabs(box.minX), std::fabs(box.minY), std::fabs(box.maxX), std::fabs(box.maxY)});
    return test::IsNextToAnEdge(RingsOf(*this), {p.x, p.y}, 0x1p-36 * largest);
}

void PolygonModel::AddRing(const Points& ring) {
    Points open = ring;
    if (!open.empty() && open.front() == open.back()) {
        open.pop_back();
    }
    m_contours.push_back({0, open});
}

void PolygonModel::AddContours(const PolygonModel& other) {
    const std::vector<ModelContour> added = other.m_contours;
    m_contours.insert(m_contours.end(), added.begin(), added.end());
}

PolygonModel PolygonModel::InSinglePrecision() const {
    PolygonModel rounded = *this;
    ForEachPoint(rounded.m_contours,
                 [](double value) { return static_cast<double>(static_cast<float>(value)); });
    return rounded;
}

bool PolygonModel::Combine(gpc_op operation, const PolygonModel& other) {
    const auto combined = [operation](const PolygonModel& subject, const PolygonModel& clip) {
        test::Rings subjectRings = RingsOf(subject);
        test::Rings clipRings = RingsOf(clip);
        return test::PlainClip(operation, test::PolygonView(subjectRings).Get(),
                               test::PolygonView(clipRings).Get());
    };
    std::vector<test::PlainContour> result;
    try {
        result = combined(*this, other);
    } catch (const GPCException&) {
        try {
            result = combined(InSinglePrecision(), other.InSinglePrecision());
        } catch (const GPCException&) {
            return false;
        }
    }
    m_contours.clear();
    for (const test::PlainContour& contour : result) {
        m_contours.push_back({contour.hole ? 1 : 0, {}});
        for (const gpc_vertex& v : contour.vertices) {
            m_contours.back().points.emplace_back(v.x, v.y);
        }
    }
    return true;
}

std::optional<std::vector<test::PlainStrip>> PolygonModel::Strips() const {
    const auto stripsOf = [](const PolygonModel& model) {
        test::Rings rings = RingsOf(model);
        test::Rings nothing;
        return test::PlainTristrip(GPC_DIFF, test::PolygonView(rings).Get(),
                                   test::PolygonView(nothing).Get());
    };
    try {
        return stripsOf(*this);
    } catch (const GPCException&) {
        try {
            return stripsOf(InSinglePrecision());
        } catch (const GPCException&) {
            return std::nullopt;
        }
    }
}

void PolygonModel::RoundToText() {
    ForEachPoint(m_contours, AsText);
}

bool PolygonModel::Describes(const GpcPolygon& polygon) const {
    return polygon.GetBBox() == Box() && HasContoursOf(polygon) && HasFlatFormsOf(polygon, false) &&
           HasFlatFormsOf(polygon, true) && HasRingsOf(polygon);
}

bool PolygonModel::HasContoursOf(const GpcPolygon& polygon) const {
    if (polygon.GetNumContours() != m_contours.size() ||
        polygon.GetTotalVertexCount() != VertexCount()) {
        return false;
    }
    for (std::size_t i = 0; i < m_contours.size(); ++i) {
        const gpc_vertex_list& ring = polygon.contour[i];
        Points points;
        for (int v = 0; v < ring.num_vertices; ++v) {
            points.emplace_back(ring.vertex[v].x, ring.vertex[v].y);
        }
        if (polygon.GetContourVertexCount(i) != points.size() ||
            polygon.hole[i] != m_contours[i].hole || !SameBits(points, m_contours[i].points)) {
            return false;
        }
    }
    return true;
}

bool PolygonModel::HasFlatFormsOf(const GpcPolygon& polygon, bool close) const {
    Points expected;
    std::vector<unsigned int> expectedCounts;
    for (const ModelContour& contour : m_contours) {
        const std::size_t before = expected.size();
        expected.insert(expected.end(), contour.points.begin(), contour.points.end());
        if (close && !contour.points.empty()) {
            expected.push_back(contour.points.front());
        }
        expectedCounts.push_back(static_cast<unsigned int>(expected.size() - before));
    }
    Points points = {{7, 7}};
    std::vector<tagPOINT> rounded;
    std::vector<unsigned int> counts;
    std::vector<unsigned int> roundedCounts = {5, 5};
    return polygon.GetPolyPolygon(static_cast<Vec2d*>(nullptr), nullptr, close) ==
               expected.size() &&
           polygon.GetPolyPolygon(points, counts, close) == expected.size() &&
           polygon.GetPolyPolygon(rounded, roundedCounts, close) == expected.size() &&
           SameBits(points, expected) && counts == expectedCounts && IsRounded(rounded, expected) &&
           roundedCounts == expectedCounts;
}

bool PolygonModel::HasRingsOf(const GpcPolygon& polygon) const {
    Points expected;
    for (const ModelContour& contour : m_contours) {
        expected.insert(expected.end(), contour.points.begin(), contour.points.end());
        if (!contour.points.empty()) {
            expected.push_back(contour.points.front());
        }
    }
    for (std::size_t i = m_contours.empty() ? 0 : m_contours.size() - 1; i > 0; --i) {
        if (!m_contours[i - 1].points.empty()) {
            expected.push_back(m_contours[i - 1].points.front());
        }
    }
    Points ring = {{7, 7}};
    std::vector<tagPOINT> rounded;
    return polygon.GetPolygon(static_cast<tagPOINT*>(nullptr)) == expected.size() &&
           polygon.GetPolygon(ring) == expected.size() &&
           polygon.GetPolygon(rounded) == expected.size() && SameBits(ring, expected) &&
           IsRounded(rounded, expected);
}

} // namespace geom::fuzz
