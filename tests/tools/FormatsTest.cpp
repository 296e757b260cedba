// SPDX-License-Identifier: MIT
#include "tools/geomtool/Formats.h"

#include "tests/tools/Shapes.h"
#include "tests/tools/TemporaryFolder.h"

namespace geomtool {
namespace {

TEST(Formats, ExtensionsTellTheFormat) {
    struct {
        const char* path;
        std::optional<Format> format;
    } const cases[] = {
        {"a.txt", Format::Text},
        {"b/c.d/a.WKT", Format::Wkt},
        {"a.bin", Format::Binary},
        {"a.json", Format::GeoJson},
        {"a.GeoJson", Format::GeoJson},
        {"a.svg", Format::Svg},
        {"-", Format::Text},
        {"a", std::nullopt},
        {"a.txt/b", std::nullopt},
        {"a.doc", std::nullopt},
        {"", std::nullopt},
        {"a.", std::nullopt},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FormatOfPath(c.path), c.format) << c.path;
    }
}

TEST(Formats, NamesOfOtherFilesPromiseNoSvg) {
    for (const char* const path : {"a.txt", "a.json", "a.WKT", "a.bin", "a.png", "b.c/a.PDF"}) {
        EXPECT_TRUE(PromisesNoSvg(path)) << path;
    }
    for (const char* const path :
         {"a.svg", "a.SVG", "-", "a", "a.x7Kq2", "/dev/stdout", "a.png/b"}) {
        EXPECT_FALSE(PromisesNoSvg(path)) << path;
    }
}

TEST(Formats, NamesTellTheFormat) {
    EXPECT_EQ(FormatOfName("text"), Format::Text);
    EXPECT_EQ(FormatOfName("binary"), Format::Binary);
    EXPECT_EQ(FormatOfName("wkt"), Format::Wkt);
    EXPECT_EQ(FormatOfName("geojson"), Format::GeoJson);
    EXPECT_EQ(FormatOfName("svg"), Format::Svg);
    EXPECT_EQ(FormatOfName("WKT"), std::nullopt);
    EXPECT_EQ(FormatNames().size(), 5u);
}

TEST(Formats, DrawingsCannotBeRead) {
    const test::TemporaryFolder folder;
    const std::string path = folder.Create("a.svg", "<svg/>");
    test::ExpectInputError([&] { ReadShapes(path, Format::Svg, true); },
                           path + ": SVG files can be written, not read");
}

} // namespace
} // namespace geomtool
