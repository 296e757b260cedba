// SPDX-License-Identifier: MIT
// Arcs, pies, chords and ellipses as points, and pseudo-angles.
#include "geometry/Curves.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

namespace geom::test {

namespace {

void Arcs(int rounds, Digest& results) {
    Random random(601);
    for (int i = 0; i < 20 * rounds; ++i) {
        const Vec2d center = SomePoint(random, -5.0, 5.0);
        const double radius = random.Between(0.1, 9.0);
        const double start = random.Between(-7.0, 7.0);
        const double sweep = random.Between(-7.0, 7.0);
        std::vector<Vec2d> points;
        CircularArc(center, radius, start, sweep, points, random.Between(0.05, 0.5));
        results.Add(points);
    }
}

void InscribedCurves(int rounds, Digest& results) {
    using Curve = bool (*)(const Box2d&, const Vec2d&, const Vec2d&, std::size_t, Vec2d*, Box2d*);
    constexpr std::size_t COUNT = 25;
    Random random(602);
    for (int i = 0; i < 10 * rounds; ++i) {
        const Box2d box = SomeBox(random, -5.0, 5.0);
        const Vec2d start = SomePoint(random, -9.0, 9.0);
        const Vec2d end = SomePoint(random, -9.0, 9.0);
        for (const Curve curve : {ArcToCurve, PieToArea, ChordToArea}) {
            std::vector<Vec2d> points(COUNT, Vec2d(0.0, 0.0));
            Box2d bounds;
            results.Add(curve(box, start, end, COUNT, points.data(), &bounds));
            results.Add(points);
            results.Add(bounds);
        }
        std::vector<Vec2d> ellipse(4 * COUNT + 1);
        GenerateEllipse(box, COUNT, ellipse.data());
        results.Add(ellipse);
    }
}

void PseudoAngles(int rounds, Digest& results) {
    Random random(603);
    for (int i = 0; i < 200 * rounds; ++i) {
        results.Add(AngleToTheta(random.Between(-10.0, 10.0)));
        results.Add(ThetaToAngle(random.Between(-10.0, 10.0)));
    }
}

} // namespace

void AddCurveServices(std::vector<Service>& services) {
    services.push_back({"arcs", Means::Platform, Arcs});
    services.push_back({"inscribed curves", Means::Platform, InscribedCurves});
    services.push_back({"pseudo-angles", Means::Platform, PseudoAngles});
}

} // namespace geom::test
