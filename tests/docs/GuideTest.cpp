// SPDX-License-Identifier: MIT
// The pages of the guide: their code is compiled, their links lead somewhere, their pictures are
// shown.
#include "tests/docs/Pages.h"

#include <gtest/gtest.h>

#include <regex>

namespace geom::test {
namespace {

namespace fs = std::filesystem;

std::string Squeezed(const std::string& text) {
    static const std::regex space(R"(\s+)");
    return std::regex_replace(text, space, " ");
}

/// What stands between ```cpp and ``` on the pages.
std::vector<std::string> CodeBlocks(const std::string& page) {
    std::vector<std::string> blocks;
    const std::string opening = "\n```cpp\n";
    for (std::size_t at = page.find(opening); at != std::string::npos;
         at = page.find(opening, at)) {
        at += opening.size();
        const std::size_t end = page.find("\n```", at);
        blocks.push_back(page.substr(at, end - at));
        at = end;
    }
    return blocks;
}

/// The targets of links and pictures, without those on the web and without anchors.
std::vector<std::string> LinkedFiles(std::string page) {
    static const std::regex link(R"(\]\(([^)#]+)(#[^)]*)?\))");
    for (const std::string& code : CodeBlocks(page)) {
        page.erase(page.find(code), code.size());
    }
    std::vector<std::string> targets;
    for (std::sregex_iterator it(page.begin(), page.end(), link), end; it != end; ++it) {
        const std::string target = (*it)[1];
        if (target.find("://") == std::string::npos) {
            targets.push_back(target);
        }
    }
    return targets;
}

TEST(Guide, CodeOnThePagesIsCompiled) {
    std::string compiled;
    for (const fs::path& file : FilesIn(SourceTree() / "tests/docs", "GuideTest.cpp")) {
        compiled += Squeezed(ReadText(file));
    }
    std::size_t count = 0;
    for (const char* const name :
         {"clipping.md", "lines.md", "rings.md", "curves.md", "search-and-space.md"}) {
        for (const std::string& block : CodeBlocks(ReadText(SourceTree() / "docs" / name))) {
            ++count;
            EXPECT_NE(compiled.find(Squeezed(block)), std::string::npos)
                << name << " shows code that tests/docs/ does not compile:\n"
                << block;
        }
    }
    EXPECT_GE(count, 20U);
}

TEST(Guide, LinksLeadToFiles) {
    std::size_t count = 0;
    std::vector<fs::path> pages = FilesIn(SourceTree() / "docs", ".md");
    for (const char* const name : {"README.md", "CONTRIBUTING.md", "SECURITY.md", "CHANGELOG.md"}) {
        pages.push_back(SourceTree() / name);
    }
    for (const fs::path& page : pages) {
        for (const std::string& target : LinkedFiles(ReadText(page))) {
            ++count;
            EXPECT_TRUE(fs::exists(page.parent_path() / target))
                << page.filename() << " links to " << target;
        }
    }
    EXPECT_GE(count, 40U);
}

TEST(Guide, EveryPictureIsShownAndSmall) {
    std::string pages;
    for (const fs::path& page : FilesIn(SourceTree() / "docs", ".md")) {
        pages += ReadText(page);
    }
    const std::vector<fs::path> pictures = FilesIn(SourceTree() / "docs/images", ".svg");
    EXPECT_GE(pictures.size(), 20U);
    for (const fs::path& picture : pictures) {
        const std::string name = picture.filename().string();
        EXPECT_NE(pages.find("](images/" + name + ")"), std::string::npos) << name;
        EXPECT_LE(fs::file_size(picture), 60000U) << name;
    }
}

} // namespace
} // namespace geom::test
