// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/CLineClip.h"

#include <cstddef>
#include <vector>

namespace geom::detail {

/// CLineClip::ClipLine of an enabled clipper.
bool ClipToRect(const Box2d& rect, Vec2d& p0, Vec2d& p1);

/// CLineClip::ClipPolyline, which appends: the points must not lie in the outputs. When memory runs
/// out the outputs hold a part of the runs.
void AppendRuns(const CLineClip& clip, const Vec2d* pts, std::size_t n, std::vector<Vec2d>& outPts,
                std::vector<unsigned int>& outCounts);

} // namespace geom::detail
