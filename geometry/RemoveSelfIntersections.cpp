// SPDX-License-Identifier: MIT
#include "geometry/RemoveSelfIntersections.h"

#include "geometry/Errors.h"
#include "geometry/detail/Rings.h"

#include <GL/glu.h>

#include <atomic>
#include <cmath>
#include <deque>
#include <exception>
#include <limits>

#if !defined(GLAPIENTRY)
#define GLAPIENTRY
#endif

namespace geom {

namespace {

constexpr const wchar_t* UNIT = L"RemoveSelfIntersections";
constexpr int LINE_TESSELLATOR_ERROR = 53;
constexpr int LINE_IN_VERTEX_CALLBACK = 68;
constexpr int LINE_RING_TOO_LONG = 70;
constexpr int LINE_IN_COMBINE_CALLBACK = 84;
constexpr int LINE_IN_BEGIN_CALLBACK = 99;
constexpr int LINE_TESSELLATOR_TOO_OLD = 111;
constexpr int LINE_UNKNOWN_WINDING_RULE = 116;
constexpr int LINE_UNKNOWN_NORMAL = 117;
constexpr int LINE_NO_TESSELLATOR = 123;

[[noreturn]] void ThrowTessellatorError(GLenum code) {
    const GLubyte* text = gluErrorString(code);
    kit::ThrowKitError(ModuleName(), UNIT, LINE_TESSELLATOR_ERROR, L"%S",
                       text != nullptr ? reinterpret_cast<const char*>(text)
                                       : "Unknown OpenGL tesselator error");
}

// One run of the tessellator: what it reads and what it delivers.
//
// The tessellator is C code that no exception may cross, so the callbacks hold the first one.
// From then on they do nothing; it is thrown on when the tessellator returns to us.
class Run {
public:
    Run() : m_outer(s_current) { s_current = this; }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() { s_current = m_outer; }

    // The run of this thread, for the error callback, which gets no pointer of ours.
    static Run* Current() { return s_current; }

    Vec3d* AddVertex(double x, double y, double z) {
        m_vertices.emplace_back(x, y, z);
        return &m_vertices.back();
    }

    void BeginRing() { m_output.counts.push_back(0); }

    void AddToRing(const Vec3d& vertex) {
        unsigned int& count = m_output.counts.back();
        if (count == std::numeric_limits<unsigned int>::max()) {
            ThrowInternalError(UNIT, LINE_RING_TOO_LONG);
        }
        m_output.points.emplace_back(vertex.x, vertex.y);
        ++count;
    }

    Polygon2Data& Output() { return m_output; }

    // Runs a callback's work. A line other than 0 has a failure logged under it.
    template <typename Work>
    void Guard(int line, Work work) noexcept {
        if (m_failure != nullptr) {
            return;
        }
        try {
            work();
        } catch (...) {
            m_failure = std::current_exception();
            if (line != 0) {
                Log(line);
            }
        }
    }

    void RethrowFailure() const {
        if (m_failure != nullptr) {
            std::rethrow_exception(m_failure);
        }
    }

private:
    static void Log(int line) noexcept {
        try {
            kit::LogExceptionInfo(ModuleName(), UNIT, line, nullptr);
        } catch (...) {
            // Without memory for the log entry, the exception that is held must do.
        }
    }

    static thread_local Run* s_current;

    Run* m_outer;
    std::deque<Vec3d> m_vertices; // the tessellator keeps their addresses
    Polygon2Data m_output;
    std::exception_ptr m_failure;
};

thread_local Run* Run::s_current = nullptr;

static_assert(sizeof(Vec3d) == 3 * sizeof(GLdouble), "the tessellator reads vertices as triples");

extern "C" {

void GLAPIENTRY BeginRing(GLenum /*type*/, void* data) {
    Run& run = *static_cast<Run*>(data);
    run.Guard(LINE_IN_BEGIN_CALLBACK, [&] { run.BeginRing(); });
}

void GLAPIENTRY AddToRing(void* vertex, void* data) {
    Run& run = *static_cast<Run*>(data);
    run.Guard(LINE_IN_VERTEX_CALLBACK, [&] { run.AddToRing(*static_cast<const Vec3d*>(vertex)); });
}

// Positions are all that is delivered, so the vertices that meet here, and their weights, do
// not matter.
void GLAPIENTRY CombineVertices(GLdouble position[3], void* /*neighbours*/[4],
                                GLfloat /*weights*/[4], void** combined, void* data) {
    Run& run = *static_cast<Run*>(data);
    run.Guard(LINE_IN_COMBINE_CALLBACK,
              [&] { *combined = run.AddVertex(position[0], position[1], position[2]); });
}

void GLAPIENTRY HoldError(GLenum code) {
    if (Run* run = Run::Current()) {
        run->Guard(0, [&] { ThrowTessellatorError(code); });
    }
}

} // extern "C"

template <typename Function>
_GLUfuncptr AnyFunction(Function* function) {
    return reinterpret_cast<_GLUfuncptr>(function);
}

class Tessellator {
public:
    Tessellator() : m_tess(gluNewTess()) {
        if (m_tess == nullptr) {
            kit::Throw_ERR_KIT_NOGLOBALMEM(ModuleName(), UNIT, LINE_NO_TESSELLATOR);
        }
    }
    Tessellator(const Tessellator&) = delete;
    Tessellator& operator=(const Tessellator&) = delete;
    // Deleted in the middle of a contour, the tessellator would report errors again.
    ~Tessellator() {
        gluTessCallback(m_tess, GLU_TESS_ERROR, nullptr);
        gluDeleteTess(m_tess);
    }

    void SetUp(unsigned int windingRule, RSI_NormalDir normalDir) {
        gluTessCallback(m_tess, GLU_TESS_BEGIN_DATA, AnyFunction(BeginRing));
        gluTessCallback(m_tess, GLU_TESS_VERTEX_DATA, AnyFunction(AddToRing));
        gluTessCallback(m_tess, GLU_TESS_ERROR, AnyFunction(HoldError));
        gluTessCallback(m_tess, GLU_TESS_COMBINE_DATA, AnyFunction(CombineVertices));
        gluTessProperty(m_tess, GLU_TESS_WINDING_RULE, windingRule);
        gluTessProperty(m_tess, GLU_TESS_BOUNDARY_ONLY, GL_TRUE);
        gluTessNormal(m_tess, 0.0, 0.0, normalDir == RSI_NORMAL_POSITIVE_Z ? 1.0 : -1.0);
    }

    void Process(const Polygon2& polygon, Run& run) {
        gluTessBeginPolygon(m_tess, &run);
        run.RethrowFailure();
        detail::ForEachRing(polygon.Points().data(), polygon.Counts().data(),
                            polygon.Counts().size(), polygon.Points().size(),
                            [&](const Vec2d* ring, std::size_t n) { AddRing(ring, n, run); });
        gluTessEndPolygon(m_tess);
        run.RethrowFailure();
    }

private:
    void AddRing(const Vec2d* ring, std::size_t n, Run& run) {
        gluTessBeginContour(m_tess);
        run.RethrowFailure();
        for (std::size_t i = 0; i < n; ++i) {
            if (std::isnan(ring[i].x) || std::isnan(ring[i].y)) {
                ThrowTessellatorError(GLU_TESS_COORD_TOO_LARGE); // NaN can crash the tessellator
            }
            Vec3d* vertex = run.AddVertex(ring[i].x, ring[i].y, 0.0);
            gluTessVertex(m_tess, &vertex->x, vertex);
            run.RethrowFailure();
        }
        gluTessEndContour(m_tess);
        run.RethrowFailure();
    }

    GLUtesselator* m_tess;
};

// Whether a version text of the form "major.minor..." is 1.2 or older.
bool IsTooOld(const GLubyte* version) {
    if (version == nullptr) {
        return true;
    }
    const GLubyte minor = version[0] != 0 && version[1] != 0 ? version[2] : GLubyte{0};
    return version[0] <= '1' && minor <= '2';
}

// Boundary-only output and winding rules that can be relied on came with version 1.3.
void CheckVersionOnce() {
    static std::atomic<const GLubyte*> version{nullptr};
    if (version.load() == nullptr) {
        version = gluGetString(GLU_VERSION);
        if (IsTooOld(version)) {
            ThrowInternalError(UNIT, LINE_TESSELLATOR_TOO_OLD);
        }
    }
}

} // namespace

void RemoveSelfIntersections(const Polygon2& in, Polygon2& out, unsigned int windingRule,
                             RSI_NormalDir normalDir) {
    CheckVersionOnce();
    if (windingRule - GLU_TESS_WINDING_ODD > 4U) {
        ThrowInternalError(UNIT, LINE_UNKNOWN_WINDING_RULE);
    }
    if (normalDir > RSI_NORMAL_NEGATIVE_Z) {
        ThrowInternalError(UNIT, LINE_UNKNOWN_NORMAL);
    }
    Run run;
    Tessellator tessellator;
    tessellator.SetUp(windingRule, normalDir);
    run.RethrowFailure();
    tessellator.Process(in, run);
    out.Take(run.Output());
}

} // namespace geom
