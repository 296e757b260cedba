#include <geometry/geom.h>

#include <iostream>

int main() {
    const geom::Vec2d corners[] = {{4, 0}, {8, 4}, {4, 8}, {0, 4}};
    geom::GpcPolygon diamond(corners, 4);
    diamond.Intersection(geom::GpcPolygon(0.0, 0.0, 8.0, 6.0));

    std::vector<geom::Vec2d> ring;
    diamond.GetPolygon(ring);
    for (const geom::Vec2d& p : ring) {
        std::cout << p.x << ' ' << p.y << '\n';
    }
}
