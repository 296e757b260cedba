// SPDX-License-Identifier: MIT
// Lines, planes and frames in space.
#include "geometry/Geometry.h"
#include "geometry/LineSegment3.h"
#include "geometry/ParametricLine3.h"
#include "geometry/Plane.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

namespace geom::test {

namespace {

Box3d SomeBox3(Random& random) {
    Box3d box;
    box.ExtendBy(SomePoint3(random, -5.0, 5.0));
    box.ExtendBy(SomePoint3(random, -5.0, 5.0));
    return box;
}

ParametricLine3 SomeLine(Random& random) {
    const Vec3d p = SomePoint3(random, -5.0, 5.0);
    const Vec3d q = SomePoint3(random, -5.0, 5.0);
    return {p, q};
}

void ClosestPoints(int rounds, Digest& results) {
    Random random(801);
    for (int i = 0; i < 200 * rounds; ++i) {
        const ParametricLine3 line = SomeLine(random);
        const ParametricLine3 other = SomeLine(random);
        Vec3d first(0.0, 0.0, 0.0);
        Vec3d second(0.0, 0.0, 0.0);
        results.Add(line.GetDirection());
        results.Add(line.GetClosestPoint(SomePoint3(random, -5.0, 5.0)));
        results.Add(line.GetClosestPoints(other, first, second));
        results.Add(first);
        results.Add(second);
    }
}

void Picking(int rounds, Digest& results) {
    Random random(802);
    for (int i = 0; i < 200 * rounds; ++i) {
        const ParametricLine3 line = SomeLine(random);
        const Box3d box = SomeBox3(random);
        const Vec3d a = SomePoint3(random, -5.0, 5.0);
        const Vec3d b = SomePoint3(random, -5.0, 5.0);
        const Vec3d c = SomePoint3(random, -5.0, 5.0);
        const double tolerance = random.Between(-0.5, 0.5);
        Vec3d first(0.0, 0.0, 0.0);
        Vec3d second(0.0, 0.0, 0.0);
        bool flag = false;
        results.Add(line.Intersect(tolerance, a));
        results.Add(line.Intersect(box, first, second));
        results.Add(line.Intersect(tolerance, box));
        results.Add(line.Intersect(tolerance, a, b, first));
        results.Add(first);
        results.Add(line.Intersect(a, b, c, first, second, flag));
        results.Add(first);
        results.Add(second);
        results.Add(flag);
    }
}

void Planes(int rounds, Digest& results) {
    Random random(803);
    for (int i = 0; i < 200 * rounds; ++i) {
        const Vec3d a = SomePoint3(random, -5.0, 5.0);
        const Vec3d b = SomePoint3(random, -5.0, 5.0);
        const Vec3d c = SomePoint3(random, -5.0, 5.0);
        results.AddOutcome([&] {
            Plane plane(a, b, c);
            results.Add(plane.GetNormal());
            results.Add(plane.GetDistanceFromOrigin());
            results.Add(plane.GetDistance({1.0, 2.0, 3.0}));
            Vec3d hit(0.0, 0.0, 0.0);
            results.Add(plane.Intersect(SomeLine(random), hit));
            results.Add(hit);
            Mat4d frame;
            OrientPlane(frame, a, b, c);
            results.Add(frame);
            plane.Transform(frame);
            results.Add(plane.GetNormal());
            results.Add(plane.GetDistanceFromOrigin());
        });
    }
}

} // namespace

void AddSpaceServices(std::vector<Service>& services) {
    services.push_back({"closest points in space", Means::Arithmetic, ClosestPoints});
    services.push_back({"picking in space", Means::Arithmetic, Picking});
    services.push_back({"planes and frames", Means::Arithmetic, Planes});
}

} // namespace geom::test
