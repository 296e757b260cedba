// SPDX-License-Identifier: MIT
#include "geometry/GPCException.h"
#include "geometry/Gpc.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/Exceptions.h"
#include "tests/support/Shapes.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

namespace geom {
namespace {

using test::AllocationProbe;
using test::Ring;
using test::Shape;
using test::Square;

// Enough of everything that each step of a run has to ask for memory.
Shape Comb(bool upright) {
    Ring ring;
    for (int i = 0; i < 20; ++i) {
        const double along = i;
        const double across = i % 2 == 0 ? -1.5 : 25;
        ring.push_back(upright ? gpc_vertex{along, across} : gpc_vertex{across, along + 0.25});
    }
    ring.push_back(upright ? gpc_vertex{22, -3} : gpc_vertex{-3, 22});
    return Shape({ring, Square(7, 7, 1)});
}

void ExpectAllocationFailure(const kit::Exception& e, std::set<std::string>& reasons) {
    const std::string prefix = "GPCAlloc failure: ";
    const std::string message = e.Message().Narrow();
    EXPECT_EQ(e.Module(), kit::GString("GPC Library"));
    EXPECT_EQ(e.File(), kit::GString("Gpc"));
    EXPECT_FALSE(e.Flag());
    ASSERT_EQ(message.substr(0, prefix.size()), prefix);
    reasons.insert(message.substr(prefix.size()));
}

// Fails each request of a call in turn and collects the reasons that come out.
template <typename Call>
std::set<std::string> ReasonsOf(Call call) {
    std::set<std::string> reasons;
    for (std::size_t k = 0; k < 1000; ++k) {
        AllocationProbe probe(k);
        try {
            call();
            EXPECT_FALSE(probe.Failed());
            EXPECT_GT(k, 5U);
            return reasons;
        } catch (const GPCException&) {
            ADD_FAILURE() << "an exhausted heap is not an inconsistent sweep";
        } catch (const kit::Exception& e) {
            ExpectAllocationFailure(e, reasons);
        }
    }
    ADD_FAILURE() << "the call never came through";
    return reasons;
}

TEST(PolygonClipFailures, EveryRequestForContoursNamesItsStep) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours here";
    }
    const Shape a = Comb(true);
    const Shape b = Comb(false);
    a.Record();
    b.Record();
    const std::set<std::string> reasons = ReasonsOf([&] {
        gpc_polygon result = {0, nullptr, nullptr};
        gpc_polygon_clip(GPC_INT, a.Record(), b.Record(), &result);
        gpc_free_polygon(&result);
    });
    EXPECT_EQ(reasons, (std::set<std::string>{
                           "Bounding box creation", "overlap table creation", "edge table creation",
                           "LMT insertion", "sbt creation", "ST insertion", "IT insertion",
                           "polygon node creation", "vertex node creation",
                           "hole flag table creation", "contour creation", "vertex creation"}));
}

TEST(PolygonClipFailures, EveryRequestForStripsNamesItsStep) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours here";
    }
    const Shape a = Comb(true);
    const Shape b = Comb(false);
    a.Record();
    b.Record();
    const std::set<std::string> reasons = ReasonsOf([&] {
        gpc_tristrip result = {0, nullptr};
        gpc_tristrip_clip(GPC_XOR, a.Record(), b.Record(), &result);
        gpc_free_tristrip(&result);
    });
    EXPECT_EQ(reasons, (std::set<std::string>{"edge table creation", "LMT insertion",
                                              "sbt creation", "ST insertion", "IT insertion",
                                              "tristrip vertex creation", "tristrip node creation",
                                              "tristrip list creation", "tristrip creation"}));
}

TEST(PolygonClipFailures, OperandThatIsAlsoTheResultSurvivesAFailure) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap is not ours here";
    }
    const Shape clip{Square(1, 1, 4)};
    clip.Record();
    gpc_polygon subject = {0, nullptr, nullptr};
    const Ring ring = Square(0, 0, 4);
    const gpc_vertex_list list = {4, const_cast<gpc_vertex*>(ring.data())};
    gpc_add_contour(&subject, &list, 0);
    for (std::size_t k = 0;; ++k) {
        AllocationProbe probe(k);
        try {
            gpc_polygon_clip(GPC_INT, &subject, clip.Record(), &subject);
            break;
        } catch (const kit::Exception&) {
            ASSERT_EQ(subject.num_contours, 1);
            ASSERT_EQ(subject.contour[0].num_vertices, 4);
        }
    }
    EXPECT_EQ(subject.contour[0].vertex[0].x, 4);
    EXPECT_EQ(subject.contour[0].vertex[0].y, 1);
    gpc_free_polygon(&subject);
}

TEST(PolygonClipFailures, CoordinatesThatAreNotFiniteAreRefused) {
    const double bad[] = {std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity()};
    for (const double value : bad) {
        for (const bool inX : {true, false}) {
            const gpc_vertex vertex = inX ? gpc_vertex{value, 1} : gpc_vertex{1, value};
            const Shape broken{{{0, 0}, {4, 0}, vertex, {0, 4}}};
            const Shape square{Square(1, 1, 2)};
            gpc_polygon result = {0, nullptr, nullptr};
            const auto call = [&] {
                gpc_polygon_clip(GPC_UNION, broken.Record(), square.Record(), &result);
            };
            test::ExpectError(call, "Geometry", "Gpc", 102);
            gpc_tristrip strips = {0, nullptr};
            EXPECT_THROW(gpc_polygon_to_tristrip(broken.Record(), &strips), kit::Exception);
        }
    }
}

TEST(PolygonClipFailures, NullArgumentsAndUnknownOperationsAreRefused) {
    const Shape square{Square(0, 0, 1)};
    const gpc_polygon* record = square.Record();
    gpc_polygon result = {0, nullptr, nullptr};
    gpc_tristrip strips = {0, nullptr};
    test::ExpectError([&] { gpc_polygon_clip(GPC_INT, nullptr, record, &result); }, "Geometry",
                      "Gpc", 100);
    test::ExpectError([&] { gpc_polygon_clip(GPC_INT, record, nullptr, &result); }, "Geometry",
                      "Gpc", 100);
    test::ExpectError([&] { gpc_polygon_clip(GPC_INT, record, record, nullptr); }, "Geometry",
                      "Gpc", 100);
    test::ExpectError([&] { gpc_polygon_to_tristrip(nullptr, &strips); }, "Geometry", "Gpc", 100);
    test::ExpectError([&] { gpc_polygon_to_tristrip(record, nullptr); }, "Geometry", "Gpc", 100);
    for (const int code : {-1, 4, 99}) {
        const auto operation = static_cast<gpc_op>(code);
        test::ExpectError([&] { gpc_polygon_clip(operation, record, record, &result); }, "Geometry",
                          "Gpc", 101);
        test::ExpectError([&] { gpc_tristrip_clip(operation, record, record, &strips); },
                          "Geometry", "Gpc", 101);
    }
}

} // namespace
} // namespace geom
