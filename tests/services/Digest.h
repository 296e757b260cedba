// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"
#include "geometry/LineSegment2.h"
#include "geometry/LineSegment3.h"
#include "geometry/Polygon2.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace geom::test {

/// A 64-bit summary of a sequence of results, which depends on every bit of them and on their
/// order; the same on every platform. Values that are not numbers are all alike, since
/// processors choose their bits.
class Digest {
public:
    std::uint64_t Value() const { return m_state; }

    void Add(double value) {
        std::uint64_t bits = NOT_A_NUMBER;
        if (value == value) {
            std::memcpy(&bits, &value, sizeof bits);
        }
        Mix(bits);
    }
    template <typename Integer, std::enable_if_t<std::is_integral_v<Integer>, int> = 0>
    void Add(Integer value) {
        Mix(static_cast<std::uint64_t>(value));
    }
    // Whether a char has a sign is the platform's choice.
    void Add(char value) { Mix(static_cast<unsigned char>(value)); }
    void Add(const Vec2d& p) {
        Add(p.x);
        Add(p.y);
    }
    void Add(const Vec3d& p) {
        Add(p.x);
        Add(p.y);
        Add(p.z);
    }
    void Add(const tagPOINT& p) {
        Add(p.x);
        Add(p.y);
    }
    void Add(const gpc_vertex& p) {
        Add(p.x);
        Add(p.y);
    }
    void Add(const Box2d& box) {
        Add(Vec2d(box.minX, box.minY));
        Add(Vec2d(box.maxX, box.maxY));
    }
    void Add(const Box3d& box) {
        Add(box.minCorner);
        Add(box.maxCorner);
    }
    void Add(const Mat4d& matrix) {
        for (const auto& row : matrix.m) {
            for (const double value : row) {
                Add(value);
            }
        }
    }
    void Add(const LineSegment2& segment) {
        Add(segment.A());
        Add(segment.B());
    }
    void Add(const LineSegment3& segment) {
        Add(segment.A());
        Add(segment.B());
    }
    void Add(const doubledouble& value) {
        Add(value.high);
        Add(value.low);
    }
    void Add(const std::string& text) { AddAll(text.data(), text.size()); }
    template <typename Value>
    void Add(const std::vector<Value>& values) {
        AddAll(values.data(), values.size());
    }
    template <typename Value>
    void AddAll(const Value* values, std::size_t count) {
        Add(count);
        for (std::size_t i = 0; i < count; ++i) {
            Add(values[i]);
        }
    }
    void Add(const gpc_vertex_list& ring) {
        AddAll(ring.vertex, static_cast<std::size_t>(ring.num_vertices));
    }
    void Add(const gpc_polygon& polygon) {
        Add(polygon.num_contours);
        for (int i = 0; i < polygon.num_contours; ++i) {
            Add(polygon.hole[i] != 0);
            Add(polygon.contour[i]);
        }
    }
    void Add(const gpc_tristrip& strips) {
        Add(strips.num_strips);
        for (int i = 0; i < strips.num_strips; ++i) {
            Add(strips.strip[i]);
        }
    }
    void Add(const Polygon2& polygon) {
        Add(polygon.Points());
        Add(polygon.Counts());
    }

    /// Adds that a call succeeded, or which error it threw.
    template <typename Call>
    void AddOutcome(Call call) {
        try {
            call();
            Add(0);
        } catch (const Exception& e) {
            Add(e.Line());
            Add(e.Message().Narrow());
        }
    }

private:
    static constexpr std::uint64_t NOT_A_NUMBER = 0x7FF8000000000000;

    // A product with an odd number is a permutation, and so is the fold of its upper half into
    // the lower one, so no bit is lost.
    void Mix(std::uint64_t word) {
        m_state = (m_state ^ word) * 0x9E3779B97F4A7C15;
        m_state ^= m_state >> 32;
    }

    std::uint64_t m_state = 0xCBF29CE484222325;
};

} // namespace geom::test
