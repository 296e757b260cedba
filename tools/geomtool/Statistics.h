// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/PolygonSet.h"

#include <chrono>
#include <cstddef>
#include <string>

namespace geomtool {

/// What a set operation took in and gave, for one line on standard error.
class Statistics {
public:
    void AddInput(const PolygonSet& shapes);
    void StartClock() { m_start = std::chrono::steady_clock::now(); }
    void StopClock() { m_elapsed = std::chrono::steady_clock::now() - m_start; }

    /// "contours_in=2 vertices_in=8 contours_out=1 vertices_out=4 area=1 seconds=0.001"; the
    /// time is that between the calls of StartClock and StopClock.
    std::string Line(const PolygonSet& result) const;
    /// Prints the line.
    void Print(const PolygonSet& result) const;

private:
    std::size_t m_contours = 0;
    std::size_t m_vertices = 0;
    std::chrono::steady_clock::time_point m_start;
    std::chrono::duration<double> m_elapsed{0};
};

} // namespace geomtool
