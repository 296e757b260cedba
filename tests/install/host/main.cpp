// SPDX-License-Identifier: MIT
#include <Subsystems/Kit/Kit.h>
#include <geometry/geom.h>

#include <iostream>

int main() {
    geom::CLineClip clip(geom::Box2d(0, 0, 10, 10));
    geom::Vec2d a(-5, 5), b(15, 5);
    if (clip.ClipLine(a, b)) {
        std::cout << "(" << a.x << ", " << a.y << ") to (" << b.x << ", " << b.y << ")\n";
    }
    try {
        kit::CPodVector<geom::Vec2d, 4>().Pop();
    } catch (const kit::Exception& e) {
        std::cout << e.Message().Narrow() << "\n";
    }
}
