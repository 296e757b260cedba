// SPDX-License-Identifier: MIT
// Failures inside the tessellator and its callbacks. This program stands between the library
// and the tessellator: it defines some of the tessellator's functions itself and passes the
// calls on to the real ones, unless a test wants them to fail.
#include "geometry/RemoveSelfIntersections.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/LeaksAllowed.h"

#include <GL/glu.h>
#include <gtest/gtest.h>

#include <cmath>
#include <dlfcn.h>
#include <iostream>
#include <new>
#include <regex>
#include <set>
#include <string>

namespace {

struct Interference {
    bool noTessellator = false;
    const char* version = nullptr; // instead of the real one
    bool noErrorText = false;      // no text for any error
    GLenum errorAtVertex = 0;      // reported by the third vertex
    GLenum errorAtEnd = 0;         // reported at the end of the polygon
    GLenum errorAtProperty = 0;    // reported when a property is set
    int vertices = 0;
    int errorsReported = 0;
    int tessellators = 0; // alive
    std::vector<GLenum> callbacks;
    void(GLAPIENTRY* errorCallback)(GLenum) = nullptr;

    void Report(GLenum code) {
        ++errorsReported;
        if (errorCallback != nullptr) {
            errorCallback(code);
        }
    }
};

Interference interference;

template <typename Function>
Function* Real(const char* name, Function*) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

GLUtesselator* GLAPIENTRY gluNewTess(void) {
    if (interference.noTessellator) {
        return nullptr;
    }
    GLUtesselator* tess = Real("gluNewTess", gluNewTess)();
    interference.tessellators += tess != nullptr;
    return tess;
}

void GLAPIENTRY gluDeleteTess(GLUtesselator* tess) {
    --interference.tessellators;
    Real("gluDeleteTess", gluDeleteTess)(tess);
}

const GLubyte* GLAPIENTRY gluGetString(GLenum name) {
    if (interference.version != nullptr) {
        return reinterpret_cast<const GLubyte*>(interference.version);
    }
    return Real("gluGetString", gluGetString)(name);
}

const GLubyte* GLAPIENTRY gluErrorString(GLenum code) {
    return interference.noErrorText ? nullptr : Real("gluErrorString", gluErrorString)(code);
}

void GLAPIENTRY gluTessCallback(GLUtesselator* tess, GLenum which, _GLUfuncptr callback) {
    if (interference.callbacks.size() < interference.callbacks.capacity()) {
        interference.callbacks.push_back(which);
    }
    if (which == GLU_TESS_ERROR) {
        interference.errorCallback = reinterpret_cast<void(GLAPIENTRY*)(GLenum)>(callback);
    }
    Real("gluTessCallback", gluTessCallback)(tess, which, callback);
}

void GLAPIENTRY gluTessProperty(GLUtesselator* tess, GLenum which, GLdouble value) {
    if (interference.errorAtProperty != 0) {
        interference.Report(interference.errorAtProperty);
    }
    Real("gluTessProperty", gluTessProperty)(tess, which, value);
}

void GLAPIENTRY gluTessVertex(GLUtesselator* tess, GLdouble* location, void* data) {
    ++interference.vertices;
    if (interference.vertices == 3 && interference.errorAtVertex != 0) {
        interference.Report(interference.errorAtVertex);
    }
    Real("gluTessVertex", gluTessVertex)(tess, location, data);
}

void GLAPIENTRY gluTessEndPolygon(GLUtesselator* tess) {
    if (interference.errorAtEnd != 0) {
        interference.Report(interference.errorAtEnd);
        interference.Report(GLU_TESS_MISSING_END_POLYGON); // only the first one counts
    }
    Real("gluTessEndPolygon", gluTessEndPolygon)(tess);
}

} // extern "C"

namespace geom {
namespace {

using test::AllocationProbe;
using test::ExpectError;
using test::LeaksAllowed;

constexpr const char* UNIT = "RemoveSelfIntersections";

class RemoveSelfIntersectionsFailures : public testing::Test {
protected:
    RemoveSelfIntersectionsFailures() {
        interference = Interference();
        interference.callbacks.reserve(5); // no more, so that it takes nothing from the heap later
        m_square.Points() = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
        m_square.Counts() = {4};
        m_out = m_square;
    }
    ~RemoveSelfIntersectionsFailures() override {
        EXPECT_EQ(interference.tessellators, 0) << "every tessellator is deleted";
        EXPECT_EQ(interference.errorCallback, nullptr) << "taken off before deletion";
    }

    void Clean(const Polygon2& in) {
        RemoveSelfIntersections(in, m_out, GLU_TESS_WINDING_ODD, RSI_NORMAL_POSITIVE_Z);
    }
    void ExpectOutputUnchanged() const {
        EXPECT_EQ(m_out.Points(), m_square.Points());
        EXPECT_EQ(m_out.Counts(), m_square.Counts());
    }

    Polygon2 m_square;
    Polygon2 m_out;
};

TEST_F(RemoveSelfIntersectionsFailures, FourCallbacksAreRegistered) {
    Clean(m_square);
    EXPECT_EQ(interference.callbacks,
              (std::vector<GLenum>{GLU_TESS_BEGIN_DATA, GLU_TESS_VERTEX_DATA, GLU_TESS_ERROR,
                                   GLU_TESS_COMBINE_DATA, GLU_TESS_ERROR}));
}

TEST_F(RemoveSelfIntersectionsFailures, NoTessellatorIsOutOfMemory) {
    interference.noTessellator = true;
    ExpectError([&] { Clean(m_square); }, "Geometry", UNIT, 123, "Out of memory");
    ExpectOutputUnchanged();
}

TEST_F(RemoveSelfIntersectionsFailures, ErrorWhileVerticesAreGivenCarriesItsText) {
    interference.errorAtVertex = GLU_TESS_COORD_TOO_LARGE;
    ExpectError([&] { Clean(m_square); }, "Geometry", UNIT, 53, "a coordinate is too large");
    EXPECT_EQ(interference.vertices, 3) << "nothing more is given to it";
    ExpectOutputUnchanged();
}

TEST_F(RemoveSelfIntersectionsFailures, FirstErrorWhileTessellatingIsThrown) {
    interference.errorAtEnd = GLU_TESS_NEED_COMBINE_CALLBACK;
    ExpectError([&] { Clean(m_square); }, "Geometry", UNIT, 53, "need combine callback");
    EXPECT_EQ(interference.errorsReported, 2);
    ExpectOutputUnchanged();
}

TEST_F(RemoveSelfIntersectionsFailures, ErrorWhileSettingUpIsThrown) {
    interference.errorAtProperty = GLU_INVALID_ENUM;
    ExpectError([&] { Clean(m_square); }, "Geometry", UNIT, 53, "invalid enumerant");
    ExpectOutputUnchanged();
}

TEST_F(RemoveSelfIntersectionsFailures, ErrorWithoutTextHasAFixedMessage) {
    interference.errorAtVertex = GLU_TESS_COORD_TOO_LARGE;
    interference.noErrorText = true;
    ExpectError([&] { Clean(m_square); }, "Geometry", UNIT, 53, "Unknown OpenGL tesselator error");
    interference = Interference();
    interference.noErrorText = true;
    m_square.Points()[1].x = std::nan("");
    ExpectError([&] { Clean(m_square); }, "Geometry", UNIT, 53, "Unknown OpenGL tesselator error");
}

TEST_F(RemoveSelfIntersectionsFailures, NoNumberNeverReachesTheTessellator) {
    Polygon2 bad = m_square;
    bad.Points()[2].y = std::nan("");
    ExpectError([&] { Clean(bad); }, "Geometry", UNIT, 53, "a coordinate is too large");
    EXPECT_EQ(interference.vertices, 2);
    ExpectOutputUnchanged();
}

TEST_F(RemoveSelfIntersectionsFailures, LaterCallsAreNotHarmedByAFailedOne) {
    interference.errorAtEnd = GLU_TESS_NEED_COMBINE_CALLBACK;
    ExpectError([&] { Clean(m_square); }, "Geometry", UNIT, 53);
    interference = Interference();
    Clean(m_square);
    EXPECT_EQ(m_out.Counts(), std::vector<unsigned int>{4});
}

// A comb of crossing bars: many crossings, and many rings in the result.
Polygon2 CrossingBars(int n) {
    Polygon2 bars;
    for (int i = 0; i < n; ++i) {
        const double at = 2.0 * i;
        bars.Points().insert(bars.Points().end(),
                             {{at, -1}, {at + 1, -1}, {at + 1, 2.0 * n}, {at, 2.0 * n}});
        bars.Points().insert(bars.Points().end(),
                             {{-1, at}, {2.0 * n, at}, {2.0 * n, at + 1}, {-1, at + 1}});
        bars.Counts().insert(bars.Counts().end(), {4, 4});
    }
    return bars;
}

TEST_F(RemoveSelfIntersectionsFailures, AllocationFailingInEachCallbackIsLoggedAndPasses) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours";
    }
    const Polygon2 bars = CrossingBars(6);
    std::set<int> logged;
    std::size_t badAllocations = 0;
    std::size_t otherFailures = 0;
    for (std::size_t k = 0;; ++k) {
        bool failed = false;
        bool ours = false;
        testing::internal::CaptureStderr();
        {
            const LeaksAllowed leaks; // the tessellator's own
            const AllocationProbe probe(k);
            try {
                Clean(bars);
            } catch (const std::bad_alloc&) {
                ++badAllocations;
                ours = true;
            } catch (const Exception& e) {
                EXPECT_TRUE(e.Line() == 53 || e.Line() == 123) << e.Line();
                ++otherFailures;
            }
            failed = probe.Failed();
            // What the tessellator allocated is its own to release: it gives up with a long
            // jump and forgets some of it.
            if (ours) {
                EXPECT_EQ(probe.Balance(), 0) << "request " << k;
            }
        }
        const std::string log = testing::internal::GetCapturedStderr();
        std::smatch match;
        if (std::regex_search(
                log, match,
                std::regex("Geometry: exception in RemoveSelfIntersections, line ([0-9]+)"))) {
            logged.insert(std::stoi(match[1]));
        }
        EXPECT_EQ(interference.tessellators, 0);
        if (!failed) {
            break;
        }
        ExpectOutputUnchanged();
        m_out = m_square;
    }
    std::cout << badAllocations << " bad allocations of ours, " << otherFailures
              << " failures of the tessellator\n";
    EXPECT_EQ(logged, (std::set<int>{68, 84, 99}));
    EXPECT_GE(badAllocations, 10U);
    EXPECT_GE(otherFailures, 2U);
    EXPECT_GE(m_out.Counts().size(), 10U) << "the last run succeeded";
}

// The version is looked at once in the life of a process, so each case runs in its own.
int LinesOfTwoCalls(const char* version) {
    interference.version = version;
    Polygon2 out;
    int lines = 0;
    for (int call = 0; call < 2; ++call) {
        lines *= 1000;
        try {
            RemoveSelfIntersections(Polygon2(), out, GLU_TESS_WINDING_ODD, RSI_NORMAL_POSITIVE_Z);
        } catch (const Exception& e) {
            lines += e.Line();
        }
    }
    return lines;
}

TEST(RemoveSelfIntersectionsVersionDeathTest, OldTessellatorIsRefusedOnTheFirstCall) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* version : {"1.2.0 old", "1.1", "0.2", "1"}) {
        EXPECT_EXIT(std::exit(LinesOfTwoCalls(version) == 111000 ? 0 : 1),
                    testing::ExitedWithCode(0), "")
            << version;
    }
}

TEST(RemoveSelfIntersectionsVersionDeathTest, NewTessellatorIsAccepted) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* version : {"1.3", "1.3.1 new", "2.0", "2"}) {
        EXPECT_EXIT(std::exit(LinesOfTwoCalls(version) == 0 ? 0 : 1), testing::ExitedWithCode(0),
                    "")
            << version;
    }
}

} // namespace
} // namespace geom
