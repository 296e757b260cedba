// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/CLineClip.h"

#include <vector>

/// \file
/// A polyline against a rectangle, one segment after the other.

namespace geom::test {

using LineRuns = std::vector<std::vector<Vec2d>>;

inline LineRuns PlainLineRuns(const CLineClip& clip, const std::vector<Vec2d>& line) {
    LineRuns runs;
    bool open = false;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        Vec2d start = line[i];
        Vec2d end = line[i + 1];
        if (!clip.ClipLine(start, end)) {
            open = false;
            continue;
        }
        if (!open || !(start == runs.back().back())) {
            runs.push_back({start});
        }
        runs.back().push_back(end);
        open = true;
    }
    return runs;
}

} // namespace geom::test
