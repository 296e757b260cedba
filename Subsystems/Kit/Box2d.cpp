// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Box2d.h"

#include <algorithm>
#include <limits>

namespace kit {

namespace {
constexpr double LARGEST = std::numeric_limits<double>::max();
}

Box2d::Box2d() : minX(LARGEST), minY(LARGEST), maxX(-LARGEST), maxY(-LARGEST) {}

void Box2d::Normalize() {
    if (minX > maxX) {
        std::swap(minX, maxX);
    }
    if (minY > maxY) {
        std::swap(minY, maxY);
    }
}

bool Box2d::IsEmpty() const {
    return minX > maxX || minY > maxY;
}

bool Box2d::HasArea() const {
    return maxX > minX && maxY > minY;
}

bool Box2d::Contains(const Vec2d& p) const {
    return minX <= p.x && p.x <= maxX && minY <= p.y && p.y <= maxY;
}

bool Box2d::Contains(const Box2d& o) const {
    return minX <= o.minX && o.maxX <= maxX && minY <= o.minY && o.maxY <= maxY;
}

void Box2d::GetCorners(Vec2d corners[4]) const {
    corners[0] = {minX, minY};
    corners[1] = {maxX, minY};
    corners[2] = {maxX, maxY};
    corners[3] = {minX, maxY};
}

// Halved first: the sum of two large coordinates could overflow.
Vec2d Box2d::Center() const {
    return {0.5 * minX + 0.5 * maxX, 0.5 * minY + 0.5 * maxY};
}

void Box2d::ExtendBy(const Vec2d& p) {
    if (p.x < minX) {
        minX = p.x;
    }
    if (p.x > maxX) {
        maxX = p.x;
    }
    if (p.y < minY) {
        minY = p.y;
    }
    if (p.y > maxY) {
        maxY = p.y;
    }
}

void Box2d::Intersect(const Box2d& o) {
    minX = std::max(minX, o.minX);
    minY = std::max(minY, o.minY);
    maxX = std::min(maxX, o.maxX);
    maxY = std::min(maxY, o.maxY);
}

double Box2d::GetArea() const {
    return (maxX - minX) * (maxY - minY);
}

Box2d& Box2d::operator|=(const Box2d& o) {
    minX = std::min(minX, o.minX);
    minY = std::min(minY, o.minY);
    maxX = std::max(maxX, o.maxX);
    maxY = std::max(maxY, o.maxY);
    return *this;
}

} // namespace kit
