// SPDX-License-Identifier: MIT
#include "Entries.h"

#include <GL/glu.h>

#include <array>
#include <cmath>
#include <deque>
#include <limits>

namespace geom::bench {

namespace {

using Point = std::array<double, 3>;
using Callback = void (*)();

/// A fan, a strip or separate triangles.
struct Primitive {
    GLenum kind;
    std::vector<const Point*> points;
};

double TriangleArea(const Point& a, const Point& b, const Point& c) {
    return std::fabs(Cross(b[0] - a[0], b[1] - a[1], c[0] - a[0], c[1] - a[1])) / 2;
}

double PrimitiveArea(const Primitive& primitive) {
    const std::vector<const Point*>& p = primitive.points;
    const std::size_t step = primitive.kind == GL_TRIANGLES ? 3 : 1;
    double area = 0;
    for (std::size_t i = 2; i < p.size(); i += step) {
        const Point& first = primitive.kind == GL_TRIANGLE_FAN ? *p[0] : *p[i - 2];
        area += TriangleArea(first, *p[i - 1], *p[i]);
    }
    return area;
}

struct StripState {
    void Run();
    Answer Find() const {
        Answer answer;
        for (const Primitive& primitive : result) {
            answer.value += PrimitiveArea(primitive);
            answer.vertices += primitive.points.size();
        }
        return failed ? Answer{std::numeric_limits<double>::quiet_NaN(), 0} : answer;
    }
    void Clear() {
        result = {};
        crossings = {};
    }

    std::vector<std::vector<Point>> rings;
    std::vector<Primitive> result;
    std::deque<Point> crossings;
    bool failed = false;
};

extern "C" {

void GeomBenchBegin(GLenum kind, void* state) {
    static_cast<StripState*>(state)->result.push_back({kind, {}});
}

void GeomBenchVertex(void* point, void* state) {
    static_cast<StripState*>(state)->result.back().points.push_back(
        static_cast<const Point*>(point));
}

void GeomBenchCombine(GLdouble at[3], void**, GLfloat*, void** point, void* state) {
    std::deque<Point>& crossings = static_cast<StripState*>(state)->crossings;
    crossings.push_back({at[0], at[1], at[2]});
    *point = &crossings.back();
}

void GeomBenchError(GLenum, void* state) {
    static_cast<StripState*>(state)->failed = true;
}

} // extern "C"

void StripState::Run() {
    GLUtesselator* tessellator = gluNewTess();
    const auto on = [&](GLenum event, auto callback) {
        gluTessCallback(tessellator, event, reinterpret_cast<Callback>(callback));
    };
    on(GLU_TESS_BEGIN_DATA, &GeomBenchBegin);
    on(GLU_TESS_VERTEX_DATA, &GeomBenchVertex);
    on(GLU_TESS_COMBINE_DATA, &GeomBenchCombine);
    on(GLU_TESS_ERROR_DATA, &GeomBenchError);
    gluTessProperty(tessellator, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_ODD);
    gluTessNormal(tessellator, 0, 0, 1);
    gluTessBeginPolygon(tessellator, this);
    for (std::vector<Point>& ring : rings) {
        gluTessBeginContour(tessellator);
        for (Point& point : ring) {
            gluTessVertex(tessellator, point.data(), &point);
        }
        gluTessEndContour(tessellator);
    }
    gluTessEndPolygon(tessellator);
    gluDeleteTess(tessellator);
}

class Glu : public Library {
public:
    std::string Name() const override { return "GLU"; }

    Job Strips(const Region& region) const override {
        auto state = std::make_shared<StripState>();
        for (const Ring& ring : region.rings) {
            state->rings.emplace_back();
            for (const gpc_vertex& v : ring) {
                state->rings.back().push_back({v.x, v.y, 0});
            }
        }
        return MakeJob(state);
    }
};

} // namespace

const Library& GluEntry() {
    static const Glu glu;
    return glu;
}

} // namespace geom::bench
