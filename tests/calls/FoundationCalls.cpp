// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Kit.h"
#include "tests/calls/Trial.h"

#include <cstdio>

namespace geom::test {

namespace {

using kit::Box3d;
using kit::CBufferedFile;
using kit::CPodVector;
using kit::doubledouble;
using kit::Exception;
using kit::GString;
using kit::Mat4d;
using kit::Vec4d;

const Errors BAD_ALLOC = {"bad_alloc"};
/// The runtime has room for an exception for which the heap has none.
const Errors THROWING = Together({BAD_ALLOC, TOLERATED});

doubledouble Extended(Trial& t, double usual) {
    const double high = t.Number(usual);
    return {high, t.Number(usual * 0x1p-60)};
}

void Result(Trial& t, const doubledouble& value) {
    t.Result(value.high);
    t.Result(value.low);
}

void Result(Trial& t, const Box3d& box) {
    t.Result(box.minCorner);
    t.Result(box.maxCorner);
}

Box3d Box3(Trial& t) {
    const Vec3d low = t.Point(1, 2, 3);
    return {low, t.Point(4, 6, 9)};
}

Mat4d Matrix(Trial& t) {
    const double usual[4][4] = {{1, 2, 3, 0}, {0, 1, 4, 0}, {5, 6, 0, 0}, {7, 8, 9, 1}};
    Mat4d m;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            m(row, column) = t.Number(usual[row][column]);
        }
    }
    return m;
}

Vec4d Four(Trial& t) {
    const Vec3d v = t.Point(1, 2, 3);
    return {v, t.Number(4)};
}

constexpr const char* LONG_TEXT = "a text that is longer than what a string has room for inside";

Calls BoxCalls() {
    return {
        {"Box2d",
         {},
         {},
         [](Trial& t) {
             const Vec2d a = t.Point(1, 2);
             const Vec2d b = t.Point(3, 4);
             Box2d box;
             bool same = false;
             t.Call([&] {
                 box = Box2d(a.x, a.y, b.x, b.y);
                 same = box == Box2d() || box != Box2d(b.x, b.y, a.x, a.y);
             });
             t.Result(box);
             t.Result(same);
         }},
        {"Box2d::Normalize",
         {},
         {},
         [](Trial& t) {
             Box2d box = t.Box(4, 3, 2, 1);
             t.Call([&] { box.Normalize(); });
             t.Result(box);
         }},
        {"Box2d::IsEmpty",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(1, 2, 3, 4);
             bool result = false;
             t.Call([&] { result = box.IsEmpty(); });
             t.Result(result);
         }},
        {"Box2d::HasArea",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(1, 2, 3, 4);
             bool result = false;
             t.Call([&] { result = box.HasArea(); });
             t.Result(result);
         }},
        {"Box2d::Contains",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(1, 2, 3, 4);
             const Vec2d p = t.Point(2, 3);
             const Box2d other = t.Box(1, 2, 2, 3);
             bool result[2] = {};
             t.Call([&] {
                 result[0] = box.Contains(p);
                 result[1] = box.Contains(other);
             });
             t.Result(result[0]);
             t.Result(result[1]);
         }},
        {"Box2d::GetCorners",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(1, 2, 3, 4);
             Vec2d corners[4];
             t.Call([&] { box.GetCorners(corners); });
             t.Result(corners[2]);
         }},
        {"Box2d::Center",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(1, 2, 3, 4);
             Vec2d center;
             t.Call([&] { center = box.Center(); });
             t.Result(center);
         }},
        {"Box2d::ExtendBy",
         {},
         {},
         [](Trial& t) {
             Box2d box = t.Box(1, 2, 3, 4);
             const Vec2d p = t.Point(7, -1);
             t.Call([&] { box.ExtendBy(p); });
             t.Result(box);
         }},
        {"Box2d::Intersect",
         {},
         {},
         [](Trial& t) {
             Box2d box = t.Box(1, 2, 3, 4);
             const Box2d other = t.Box(2, 0, 9, 3);
             t.Call([&] { box.Intersect(other); });
             t.Result(box);
         }},
        {"Box2d::GetArea",
         {},
         {},
         [](Trial& t) {
             const Box2d box = t.Box(1, 2, 3, 4);
             double area = 0;
             t.Call([&] { area = box.GetArea(); });
             t.Result(area);
         }},
        {"Box2d::operator|=",
         {},
         {},
         [](Trial& t) {
             Box2d box = t.Box(1, 2, 3, 4);
             const Box2d other = t.Box(2, 0, 9, 3);
             t.Call([&] { box |= other; });
             t.Result(box);
         }},
        {"Box3d",
         {},
         {},
         [](Trial& t) {
             Box3d box = Box3(t);
             const Vec3d p = t.Point(-1, 0, 20);
             Vec3d center;
             bool flat = false;
             bool same = false;
             t.Call([&] {
                 box.ExtendBy(p);
                 center = box.Center();
                 flat = box.IsDegenerate();
                 same = box == Box3d() || box != box;
             });
             Result(t, box);
             t.Result(center);
             t.Result(flat);
             t.Result(same);
         }},
    };
}

Calls VectorCalls() {
    return {
        {"Vec2d",
         {},
         {},
         [](Trial& t) {
             const Vec2d a = t.Point(1, 2);
             const Vec2d b = t.Point(3, -4);
             const tagPOINT p = t.Device(5, 6);
             const double s = t.Number(2.5);
             Vec2d r;
             bool same = false;
             t.Call([&] {
                 r = -a + b * a - b / a + s * a * s / s + Vec2d(p);
                 r += a;
                 r -= b;
                 r *= a;
                 r /= b;
                 r *= s;
                 r /= s;
                 same = r == a || r != b;
             });
             t.Result(r);
             t.Result(same);
         }},
        {"Vec2d::Normalize",
         {},
         {},
         [](Trial& t) {
             Vec2d a = t.Point(1, 2);
             const Vec2d b = t.Point(3, -4);
             double r[4] = {};
             bool normal = false;
             t.Call([&] {
                 r[0] = a.Dot(b);
                 r[1] = a.Length();
                 r[2] = a.LengthSquared();
                 r[3] = a.DistanceSquared(b);
                 normal = a.Normalize();
             });
             t.Result(a);
             t.Result(r[0] + r[1] + r[2] + r[3]);
             t.Result(normal);
         }},
        {"Vec3d",
         {},
         {},
         [](Trial& t) {
             const Vec3d a = t.Point(1, 2, 3);
             const Vec3d b = t.Point(3, -4, 5);
             const double s = t.Number(2.5);
             Vec3d r;
             bool same = false;
             t.Call([&] {
                 r = -a + b * a - b / a + s * a * s / s;
                 r += a;
                 r -= b;
                 r *= a;
                 r /= b;
                 r *= s;
                 r /= s;
                 same = r == a || r != b;
             });
             t.Result(r);
             t.Result(same);
         }},
        {"Vec3d::Normalize",
         {},
         {},
         [](Trial& t) {
             Vec3d a = t.Point(1, 2, 3);
             const Vec3d b = t.Point(3, -4, 5);
             double r[4] = {};
             Vec3d cross;
             bool normal = false;
             t.Call([&] {
                 r[0] = a.Dot(b);
                 r[1] = a.Length();
                 r[2] = a.LengthSquared();
                 r[3] = a.DistanceSquared(b);
                 cross = a.Cross(b) + a.Normalized();
                 normal = a.Normalize();
             });
             t.Result(a);
             t.Result(cross);
             t.Result(r[0] + r[1] + r[2] + r[3]);
             t.Result(normal);
         }},
        {"Vec4d",
         {},
         {},
         [](Trial& t) {
             const Vec4d a = Four(t);
             const Vec4d b = Four(t);
             const double s = t.Number(2.5);
             Vec4d r;
             double d = 0;
             bool same = false;
             t.Call([&] {
                 r = -a + b * a - b / a + s * a * s / s;
                 d = a.Dot(b) + a.Length() + a.LengthSquared();
                 same = r == a || r != b;
             });
             t.Result(r);
             t.Result(d);
             t.Result(same);
         }},
        {"Mat4d",
         {},
         {},
         [](Trial& t) {
             const Mat4d a = Matrix(t);
             const Vec3d p = t.Point(1, 2, 3);
             const Vec4d row = Four(t);
             Mat4d inverse;
             Mat4d product;
             Vec3d moved;
             bool regular = false;
             t.Call([&] {
                 product = a * a.Transpose();
                 product.SetRow(2, row);
                 moved = p * a + a.DirMult(p);
                 regular = a.Inverse(inverse) && product != Mat4d::IDENTITY;
             });
             t.Result(product);
             t.Result(inverse);
             t.Result(moved);
             t.Result(regular);
         }},
    };
}

Calls NumberCalls() {
    return {
        {"doubledouble",
         {},
         {},
         [](Trial& t) {
             const doubledouble a = Extended(t, 2);
             const doubledouble b = Extended(t, 3);
             const double s = t.Number(7);
             doubledouble r;
             bool compared = false;
             t.Call([&] {
                 r = (a + b) * (-a - b) / b + s * a + 3 * b;
                 compared = a > b || a < b || a == b || a != b;
             });
             Result(t, r);
             t.Result(compared);
         }},
        {"sqrt",
         {},
         {},
         [](Trial& t) {
             const doubledouble a = Extended(t, 2);
             doubledouble r;
             t.Call([&] { r = sqrt(a); });
             Result(t, r);
         }},
        {"MulDiv",
         {},
         {},
         [](Trial& t) {
             const int a = t.Integer(7);
             const int b = t.Integer(5);
             const int c = t.Integer(3);
             int r = 0;
             t.Call([&] { r = kit::MulDiv(a, b, c); });
             t.Result(r);
         }},
        {"CPodVector",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Keep(t.Star(1, 2));
             CPodVector<Vec2d, 2> v;
             t.Call(
                 [&] {
                     v.Clear();
                     for (const Vec2d& p : points) {
                         v.Append(p);
                     }
                     v.Append(points.data(), points.size());
                     v.Pop();
                 },
                 [&] {
                     v.Append(points[0]); // what is there is sound
                     v.Clear();
                 });
             CPodVector<Vec2d, 2> other;
             t.Call([&] { other = v; });
             t.Call([&] { CPodVector<Vec2d, 2> copy(other); });
             t.Result(other[other.Count() - 1]);
         }},
    };
}

Calls TextCalls() {
    return {
        {"GString",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             std::string text;
             t.Call([&] {
                 const GString a(LONG_TEXT);
                 const GString b(L"a text that is longer than what a string has room for inside");
                 GString c(a);
                 c = b;
                 text = a == b && c != a ? GString().Narrow() : a.Narrow();
             });
             t.Result(text);
         }},
        {"Exception",
         BAD_ALLOC,
         {},
         [](Trial& t) {
             int line = 0;
             t.Call([&] {
                 const Exception e(LONG_TEXT, LONG_TEXT, 7, LONG_TEXT, false);
                 Exception copy(e);
                 copy = e;
                 line = copy.Line();
             });
             t.Result(line);
         }},
        {"ThrowInternalError",
         THROWING,
         {},
         [](Trial& t) {
             t.Call([] {
                 try {
                     kit::ThrowInternalError(LONG_TEXT, LONG_TEXT, 3);
                 } catch (const Exception&) {
                 }
             });
         }},
        {"ThrowKitError",
         THROWING,
         {},
         [](Trial& t) {
             const double number = t.Number(1.5);
             const int integer = t.Integer(7);
             std::string text;
             t.Call([&] {
                 try {
                     kit::ThrowKitError("m", "f", 3, L"%S %g %d %f", LONG_TEXT, number, integer,
                                        number);
                 } catch (const Exception& e) {
                     text = e.Message().Narrow();
                 }
             });
             t.Result(text);
         }},
        {"Throw_ERR_KIT_NOGLOBALMEM",
         THROWING,
         {},
         [](Trial& t) {
             t.Call([] {
                 try {
                     kit::Throw_ERR_KIT_NOGLOBALMEM(LONG_TEXT, LONG_TEXT, 3);
                 } catch (const Exception&) {
                 }
             });
         }},
        {"Throw_ERR_KIT_FILE_READ",
         THROWING,
         {},
         [](Trial& t) {
             t.Call([] {
                 try {
                     kit::Throw_ERR_KIT_FILE_READ("m", "f", 3, LONG_TEXT, LONG_TEXT);
                 } catch (const Exception&) {
                 }
             });
         }},
        {"Throw_ERR_KIT_FILE_WRITE",
         THROWING,
         {},
         [](Trial& t) {
             t.Call([] {
                 try {
                     kit::Throw_ERR_KIT_FILE_WRITE("m", "f", 3, LONG_TEXT, LONG_TEXT);
                 } catch (const Exception&) {
                 }
             });
         }},
        // Said to return whatever happens: what it cannot say at length it says in short.
        {"LogExceptionInfo",
         TOLERATED,
         {},
         [](Trial& t) {
             const GString text(LONG_TEXT);
             t.Call([&] { kit::LogExceptionInfo(text, text, 1, nullptr); });
         }},
        {"CBufferedFile",
         Together({THROWING, {"Kit, BufferedFile 30: Cannot open file"}}),
         {},
         [](Trial& t) {
             t.Call([] {
                 // The name is short, because a full disk is not what is tried here.
                 CBufferedFile file("/dev/null", "wb");
                 std::fputs("x", file.GetStream());
                 file.Flush();
                 file.Close();
                 file.Open(GString("/dev/null"), GString("rb"));
             });
         }},
    };
}

} // namespace

Calls FoundationCalls() {
    Calls all;
    for (const auto family : {BoxCalls, VectorCalls, NumberCalls, TextCalls}) {
        for (PublicCall& call : family()) {
            all.push_back(std::move(call));
        }
    }
    return all;
}

} // namespace geom::test
