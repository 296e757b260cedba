// SPDX-License-Identifier: MIT
// The foundation types: vectors, boxes, matrices, extended precision, scaled products.
#include "Subsystems/Kit/Kit.h"
#include "tests/services/Services.h"
#include "tests/services/Workload.h"

namespace geom::test {

namespace {

void Vectors(int rounds, Digest& results) {
    Random random(901);
    for (int i = 0; i < 200 * rounds; ++i) {
        Vec2d p = SomePoint(random, -5.0, 5.0);
        const Vec2d q = SomePoint(random, -5.0, 5.0);
        results.Add(p.Dot(q));
        results.Add(p.Length());
        results.Add(p.DistanceSquared(q));
        results.Add(p.Normalize());
        results.Add(p);
        const Vec3d a = SomePoint3(random, -5.0, 5.0);
        const Vec3d b = SomePoint3(random, -5.0, 5.0);
        results.Add(a.Cross(b));
        results.Add(a.Dot(b));
        results.Add(a.Normalized());
        results.Add(Vec4d(a, 1.0).Dot(Vec4d(b, 2.0)));
        results.Add(Vec4d(a, 1.0).Length());
    }
}

void Boxes(int rounds, Digest& results) {
    Random random(902);
    for (int i = 0; i < 200 * rounds; ++i) {
        Box2d box = SomeBox(random, -5.0, 5.0);
        const Box2d other = SomeBox(random, -5.0, 5.0);
        results.Add(box.Center());
        results.Add(box.GetArea());
        results.Add(box.Contains(other));
        box.Intersect(other);
        results.Add(box);
        results.Add(box.IsEmpty());
        box |= other;
        results.Add(box);
    }
}

Mat4d SomeMatrix(Random& random) {
    Mat4d matrix;
    for (auto& row : matrix.m) {
        for (double& value : row) {
            value = random.Between(-3.0, 3.0);
        }
    }
    return matrix;
}

void Matrices(int rounds, Digest& results) {
    Random random(903);
    for (int i = 0; i < 50 * rounds; ++i) {
        const Mat4d matrix = SomeMatrix(random);
        const Mat4d other = SomeMatrix(random);
        const Vec3d p = SomePoint3(random, -5.0, 5.0);
        Mat4d inverse;
        results.Add(matrix * other);
        results.Add(matrix.Inverse(inverse));
        results.Add(inverse);
        results.Add(matrix.Transpose());
        results.Add(matrix.DirMult(p));
        results.Add(p * matrix);
    }
}

void ExtendedPrecision(int rounds, Digest& results) {
    Random random(904);
    doubledouble sum;
    for (int i = 0; i < 200 * rounds; ++i) {
        const doubledouble a(random.Between(0.5, 5.0));
        const doubledouble b = doubledouble(random.Between(0.5, 5.0)) / a;
        sum = sum * b + a;
        results.Add(sum);
        results.Add(sqrt(b) - a);
        results.Add(a > b);
        sum = sum / (sum + 1.0);
    }
}

void ScaledProducts(int rounds, Digest& results) {
    Random random(905);
    for (int i = 0; i < 500 * rounds; ++i) {
        const int number = random.Between(-1000000000, 1000000000);
        const int numerator = random.Between(-50000, 50000);
        results.Add(kit::MulDiv(number, numerator, random.Between(-60000, 60000)));
    }
}

} // namespace

void AddFoundationServices(std::vector<Service>& services) {
    services.push_back({"vectors", Means::Arithmetic, Vectors});
    services.push_back({"boxes", Means::Arithmetic, Boxes});
    services.push_back({"matrices", Means::Arithmetic, Matrices});
    services.push_back({"extended precision", Means::Arithmetic, ExtendedPrecision});
    services.push_back({"scaled products", Means::Arithmetic, ScaledProducts});
}

} // namespace geom::test
