// SPDX-License-Identifier: MIT
// The list of calls has every function of docs/reference.md, so that none is forgotten.
#include "tests/calls/Trial.h"
#include "tests/docs/Pages.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

namespace geom::test {
namespace {

using Names = std::set<std::string>;

/// Types: their functions are called, but there is nothing to call in them.
bool IsType(const std::string& name, const Names& all) {
    static const Names records = {"gpc_vertex",
                                  "gpc_vertex_list",
                                  "gpc_polygon",
                                  "gpc_tristrip",
                                  "gpc_op",
                                  "CLineClip::Sink",
                                  "LineClipPolygon::PieceCallback",
                                  "DashLineGenerator::PieceCallback",
                                  "DashLine3Generator::PieceCallback",
                                  "Polygon2Data",
                                  "Polygon2::RingOrientationStatus",
                                  "RSI_NormalDir",
                                  "IError",
                                  "tagPOINT",
                                  "tagRECT"};
    const auto member = all.lower_bound(name + "::");
    const bool hasMembers =
        member != all.end() && member->compare(0, name.size() + 2, name + "::") == 0;
    return hasMembers || records.count(name) > 0;
}

/// The names in the first columns of the reference's tables.
Names ReferenceNames() {
    std::istringstream page(ReadText(SourceTree() / "docs/reference.md"));
    static const std::regex name("`([^`]+)`");
    Names names;
    for (std::string line; std::getline(page, line);) {
        if (line.compare(0, 3, "| `") == 0) {
            const std::string first = line.substr(2, line.find(" | ", 2) - 2);
            for (std::sregex_iterator it(first.begin(), first.end(), name), end; it != end; ++it) {
                names.insert((*it)[1]);
            }
        }
    }
    return names;
}

TEST(CallList, HasEveryFunctionOfTheReference) {
    const Names reference = ReferenceNames();
    ASSERT_GE(reference.size(), 200U);
    Names called;
    for (const PublicCall& call : AllCalls()) {
        called.insert(call.Function());
    }
    for (const std::string& name : reference) {
        if (!IsType(name, reference)) {
            EXPECT_EQ(called.count(name), 1U) << name << " is called nowhere";
        }
    }
}

TEST(CallList, NamesNoCallTwice) {
    Names names;
    for (const PublicCall& call : AllCalls()) {
        // Kit and the library have a thrower of one name.
        EXPECT_TRUE(names.insert(call.name).second || call.name == "ThrowInternalError")
            << call.name;
    }
}

} // namespace
} // namespace geom::test
