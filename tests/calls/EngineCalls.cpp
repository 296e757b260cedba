// SPDX-License-Identifier: MIT
#include "geometry/GPCException.h"
#include "geometry/GpcPolygon.h"
#include "geometry/TriStrip.h"
#include "tests/calls/Trial.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>

namespace geom::test {

namespace {

struct Polygon : gpc_polygon {
    Polygon() : gpc_polygon{0, nullptr, nullptr} {}
    Polygon(const Polygon&) = delete;
    Polygon& operator=(const Polygon&) = delete;
    ~Polygon() { gpc_free_polygon(this); }
};

struct Strips : gpc_tristrip {
    Strips() : gpc_tristrip{0, nullptr} {}
    Strips(const Strips&) = delete;
    Strips& operator=(const Strips&) = delete;
    ~Strips() { gpc_free_tristrip(this); }
};

void Result(Trial& t, const gpc_vertex_list* lists, int n) {
    t.Result(n);
    for (int i = 0; i < n; ++i) {
        for (int k = 0; k < lists[i].num_vertices; ++k) {
            t.Result(Vec2d(lists[i].vertex[k].x, lists[i].vertex[k].y));
        }
    }
}

void Clip(Trial& t, gpc_op operation) {
    const std::vector<Vec2d> a = t.Star(0, 0);
    const std::vector<Vec2d> b = t.Star(3, 1);
    const GpcPolygon subject(a.data(), a.size());
    const GpcPolygon clip(b.data(), b.size());
    t.Keep(subject);
    t.Keep(clip);
    Polygon result;
    t.Call([&] {
        gpc_polygon out{0, nullptr, nullptr}; // after an exception it must not be read
        gpc_polygon_clip(operation, &subject, &clip, &out);
        static_cast<gpc_polygon&>(result) = out;
    });
    Result(t, result.contour, result.num_contours);
}

void ClipToStrips(Trial& t, gpc_op operation) {
    const std::vector<Vec2d> a = t.Star(0, 0);
    const std::vector<Vec2d> b = t.Star(3, 1);
    const GpcPolygon subject(a.data(), a.size());
    const GpcPolygon clip(b.data(), b.size());
    t.Keep(subject);
    t.Keep(clip);
    Strips result;
    t.Call([&] {
        gpc_tristrip out{0, nullptr};
        gpc_tristrip_clip(operation, &subject, &clip, &out);
        static_cast<gpc_tristrip&>(result) = out;
    });
    Result(t, result.strip, result.num_strips);
}

/// Two operands that meet in a row of boxes: edges that lie on each other, and horizontals.
void ClipCombs(Trial& t, gpc_op operation) {
    std::vector<Vec2d> a;
    std::vector<Vec2d> b;
    std::vector<unsigned int> counts;
    for (int i = 0; i < 4; ++i) {
        for (const Vec2d& p : t.Points({{3.0 * i, 0}, {3.0 * i + 2, 0}, {3.0 * i + 2, 3}})) {
            a.push_back(p);
        }
        a.emplace_back(3.0 * i, 3);
        for (const Vec2d& p : t.Points({{3.0 * i + 1, 1}, {3.0 * i + 3, 1}, {3.0 * i + 3, 3}})) {
            b.push_back(p);
        }
        b.emplace_back(3.0 * i + 1, 3);
        counts.push_back(4);
    }
    const GpcPolygon subject(a.data(), counts.data(), counts.size());
    const GpcPolygon clip(b.data(), counts.data(), counts.size());
    t.Keep(subject);
    t.Keep(clip);
    Polygon result;
    t.Call([&] {
        gpc_polygon out{0, nullptr, nullptr};
        gpc_polygon_clip(operation, &subject, &clip, &out);
        static_cast<gpc_polygon&>(result) = out;
    });
    Result(t, result.contour, result.num_contours);
}

Errors ReadingMemory() {
    return {"GPC Library, Gpc 201: GPCAlloc failure: hole flag array creation",
            "GPC Library, Gpc 201: GPCAlloc failure: contour creation",
            "GPC Library, Gpc 201: GPCAlloc failure: vertex creation"};
}

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
using Reader = bool (*)(std::FILE*, int, gpc_polygon*);
using Writer = bool (*)(std::FILE*, int, const gpc_polygon*);

/// A file in memory with a polygon, at its start.
Stream Written(Writer write, const gpc_polygon& polygon) {
    Stream stream(std::tmpfile(), std::fclose);
    write(stream.get(), 1, &polygon);
    std::rewind(stream.get());
    return stream;
}

void Read(Trial& t, Reader read, Writer write) {
    const std::vector<Vec2d> points = t.Star(0, 0);
    const unsigned int counts[] = {4, static_cast<unsigned int>(points.size()) - 4};
    const GpcPolygon polygon(points.data(), counts, 2);
    const Stream stream = Written(write, polygon);
    Polygon result;
    bool done = false;
    t.Call([&] {
        gpc_free_polygon(&result); // what a failed reading leaves can be released
        std::rewind(stream.get());
        done = read(stream.get(), 1, &result);
    });
    t.Result(done);
    Result(t, result.contour, result.num_contours);
}

void Write(Trial& t, Writer write) {
    const std::vector<Vec2d> points = t.Star(0, 0);
    const GpcPolygon polygon(points.data(), points.size());
    t.Keep(polygon);
    const Stream stream = Written(write, polygon); // has its buffer
    bool done = false;
    t.Call([&] {
        std::rewind(stream.get());
        done = write(stream.get(), 1, &polygon);
    });
    t.Result(done);
}

void ToOutline(Trial& t, void (*convert)(const Vec2d*, std::size_t, Vec2d*)) {
    const std::vector<Vec2d> strip = t.Keep(t.Star(0, 0));
    std::vector<Vec2d> outline(strip.size());
    t.Call([&] { convert(strip.data(), strip.size(), outline.data()); });
    t.Result(outline);
}

void ToOutlineInPlace(Trial& t, void (*convert)(const Vec2d*, std::size_t, Vec2d*)) {
    std::vector<Vec2d> strip = t.Star(0, 0);
    const std::vector<Vec2d> before = strip;
    t.Call([&] { convert(strip.data(), strip.size(), strip.data()); },
           [&] {
               EXPECT_EQ(0,
                         std::memcmp(strip.data(), before.data(), before.size() * sizeof(Vec2d)));
           });
    t.Result(strip);
}

Calls ClippingCalls() {
    return {
        {"gpc_polygon_clip (difference)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { Clip(t, GPC_DIFF); }},
        {"gpc_polygon_clip (intersection)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { Clip(t, GPC_INT); }},
        {"gpc_polygon_clip (exclusive or)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { Clip(t, GPC_XOR); }},
        {"gpc_polygon_clip (union)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { Clip(t, GPC_UNION); }},
        {"gpc_polygon_clip (several contours, union)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { ClipCombs(t, GPC_UNION); }},
        {"gpc_polygon_clip (several contours, intersection)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { ClipCombs(t, GPC_INT); }},
        {"gpc_tristrip_clip (difference)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { ClipToStrips(t, GPC_DIFF); }},
        {"gpc_tristrip_clip (intersection)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { ClipToStrips(t, GPC_INT); }},
        {"gpc_tristrip_clip (exclusive or)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { ClipToStrips(t, GPC_XOR); }},
        {"gpc_tristrip_clip (union)", EngineMemory(), EngineNumbers(),
         [](Trial& t) { ClipToStrips(t, GPC_UNION); }},
        {"gpc_polygon_to_tristrip", EngineMemory(), EngineNumbers(),
         [](Trial& t) {
             const std::vector<Vec2d> a = t.Star(0, 0);
             const GpcPolygon polygon(a.data(), a.size());
             t.Keep(polygon);
             Strips result;
             t.Call([&] {
                 gpc_tristrip out{0, nullptr};
                 gpc_polygon_to_tristrip(&polygon, &out);
                 static_cast<gpc_tristrip&>(result) = out;
             });
             Result(t, result.strip, result.num_strips);
         }},
    };
}

Calls RecordCalls() {
    return {
        {"gpc_add_contour",
         EngineMemory(),
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Star(0, 0);
             const GpcPolygon source(points.data(), points.size());
             GpcPolygon polygon(0, 0, 4, 4);
             t.Keep(source);
             t.Call([&] { gpc_add_contour(&polygon, &source.contour[0], 1); },
                    [&] { EXPECT_EQ(polygon.num_contours, 1); });
             t.Result(polygon);
         }},
        {"gpc_free_polygon",
         {},
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Star(0, 0);
             GpcPolygon polygon(points.data(), points.size());
             t.Call([&] { gpc_free_polygon(&polygon); });
             t.Result(polygon.num_contours);
         }},
        {"gpc_free_tristrip",
         {},
         {},
         [](Trial& t) {
             const std::vector<Vec2d> points = t.Points({{0, 0}, {9, 1}, {3, 7}});
             const GpcPolygon polygon(points.data(), points.size());
             Strips strips;
             try {
                 gpc_polygon_to_tristrip(&polygon, &strips);
             } catch (const kit::Exception&) {
                 static_cast<gpc_tristrip&>(strips) = {0, nullptr};
             }
             t.Call([&] { gpc_free_tristrip(&strips); });
             t.Result(strips.num_strips);
         }},
        {"TriStripToCWPolygon", {}, {}, [](Trial& t) { ToOutline(t, TriStripToCWPolygon); }},
        {"TriStripToCCWPolygon", {}, {}, [](Trial& t) { ToOutline(t, TriStripToCCWPolygon); }},
        {"TriStripToCWPolygon (in place)",
         {"Geometry, TriStrip 32: Out of memory"},
         {},
         [](Trial& t) { ToOutlineInPlace(t, TriStripToCWPolygon); }},
        {"TriStripToCCWPolygon (in place)",
         {"Geometry, TriStrip 32: Out of memory"},
         {},
         [](Trial& t) { ToOutlineInPlace(t, TriStripToCCWPolygon); }},
        {"GPCException::GPCException",
         {"bad_alloc"},
         {},
         [](Trial& t) {
             int line = 0;
             t.Call([&] {
                 GPCException e("a file name that is too long to be kept inside a text", 7);
                 const GPCException copy(e);
                 e = copy;
                 line = e.Line();
             });
             t.Result(line);
         }},
    };
}

Calls FileCalls() {
    return {
        {"gpc_read_polygon",
         ReadingMemory(),
         {},
         [](Trial& t) { Read(t, gpc_read_polygon, gpc_write_polygon); }},
        {"gpc_read_polygon_binary",
         ReadingMemory(),
         {},
         [](Trial& t) { Read(t, gpc_read_polygon_binary, gpc_write_polygon_binary); }},
        {"gpc_write_polygon", {}, {}, [](Trial& t) { Write(t, gpc_write_polygon); }},
        {"gpc_write_polygon_binary", {}, {}, [](Trial& t) { Write(t, gpc_write_polygon_binary); }},
    };
}

} // namespace

Calls EngineCalls() {
    Calls all;
    for (const auto family : {ClippingCalls, RecordCalls, FileCalls}) {
        for (PublicCall& call : family()) {
            all.push_back(std::move(call));
        }
    }
    return all;
}

} // namespace geom::test
