// SPDX-License-Identifier: MIT
// docs/reference.md names everything that the public headers declare, and nothing else.
#include "tests/docs/Pages.h"
#include "tests/docs/PublicNames.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

namespace geom::test {
namespace {

using Names = std::set<std::string>;

/// The names in the first column of the tables between one heading of the second level and the
/// next.
Names NamesInTables(const std::string& heading) {
    std::istringstream page(ReadText(SourceTree() / "docs/reference.md"));
    static const std::regex name("`([^`]+)`");
    Names names;
    bool isInside = false;
    for (std::string line; std::getline(page, line);) {
        if (line.compare(0, 3, "## ") == 0) {
            isInside = line == "## " + heading;
        } else if (isInside && line.compare(0, 2, "| ") == 0) {
            const std::string first = line.substr(2, line.find(" | ", 2) - 2);
            for (std::sregex_iterator it(first.begin(), first.end(), name), end; it != end; ++it) {
                EXPECT_TRUE(names.insert((*it)[1]).second) << (*it)[1] << " has two rows";
            }
        }
    }
    return names;
}

void ExpectSame(const Names& declared, const Names& listed) {
    for (const std::string& name : declared) {
        EXPECT_EQ(listed.count(name), 1U) << name << " is missing in docs/reference.md";
    }
    for (const std::string& name : listed) {
        EXPECT_EQ(declared.count(name), 1U) << name << " of docs/reference.md is declared nowhere";
    }
}

TEST(Reference, NamesEveryClassAndFunctionOfTheLibrary) {
    Names declared;
    for (const auto& header : FilesIn(SourceTree() / "geometry", ".h")) {
        if (header.filename() != "Foundation.h") {
            declared.merge(PublicNames(ReadText(header)));
        }
    }
    EXPECT_GE(declared.size(), 200U);
    ExpectSame(declared, NamesInTables("Namespace geom"));
}

TEST(Reference, NamesEveryTypeAndFreeFunctionOfTheFoundation) {
    Names declared;
    for (const auto& header : FilesIn(SourceTree() / "Subsystems/Kit", ".h")) {
        for (const std::string& name : PublicNames(ReadText(header))) {
            const bool isMember = name.find("::") != std::string::npos;
            const bool isOperator = name.compare(0, 8, "operator") == 0;
            if (!isMember && !isOperator && header.filename() != "Formatting.h") {
                declared.insert(name);
            }
        }
    }
    EXPECT_GE(declared.size(), 15U);
    ExpectSame(declared, NamesInTables("Namespace kit"));
}

} // namespace
} // namespace geom::test
