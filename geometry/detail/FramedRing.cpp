// SPDX-License-Identifier: MIT
#include "geometry/detail/FramedRing.h"

namespace geom::detail {

namespace {

bool AreGood(const Vec2d* ring, std::size_t count) {
    bool areGood = true;
    for (std::size_t i = 0; i < count; ++i) {
        areGood = areGood && IsGoodCoordinate(ring[i].x) && IsGoodCoordinate(ring[i].y) &&
                  IsGoodExtent(ring[i + 1].x - ring[i].x) &&
                  IsGoodExtent(ring[i + 1].y - ring[i].y);
    }
    return areGood;
}

Box2d BoxOf(const Vec2d* ring, std::size_t count) {
    Box2d box(ring[0].x, ring[0].y, ring[0].x, ring[0].y);
    for (std::size_t i = 1; i < count; ++i) {
        box.minX = std::min(box.minX, ring[i].x);
        box.minY = std::min(box.minY, ring[i].y);
        box.maxX = std::max(box.maxX, ring[i].x);
        box.maxY = std::max(box.maxY, ring[i].y);
    }
    return box;
}

} // namespace

FramedRing::FramedRing(const Vec2d* ring, std::size_t edges)
    : isGood(edges != 0 && AreGood(ring, edges)), original(ring), count(edges) {
    if (isGood) {
        frame = RingFrame(BoxOf(ring, edges));
        points.resize(count + 1);
        std::transform(ring, ring + count + 1, points.begin(),
                       [this](const Vec2d& p) { return frame.ToRing(p); });
    }
}

} // namespace geom::detail
