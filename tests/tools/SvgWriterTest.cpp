// SPDX-License-Identifier: MIT
#include "tools/geomtool/SvgWriter.h"

#include "tests/tools/Shapes.h"
#include "tools/geomtool/Palette.h"

namespace geomtool {
namespace {

using test::External;
using test::Hole;
using test::Square;

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

SvgPage SmallPage() {
    SvgPage page;
    page.size = 120;
    page.margin = 10;
    return page;
}

TEST(SvgWriter, DrawsUpwardsIntoAFittingPage) {
    const PolygonSet shapes{{External({{0, 0}, {10, 0}, {10, 5}}), Hole({{4, 1}, {6, 1}, {6, 2}})}};
    EXPECT_EQ(WriteSvg({{shapes, "teal", "#000", 0.5}}, SmallPage()),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"120\" height=\"70\" "
              "viewBox=\"0 0 120 70\">\n"
              "<g fill-rule=\"evenodd\" stroke-linejoin=\"round\" stroke=\"#000\" "
              "stroke-width=\".5\">\n"
              "<path fill=\"teal\" d=\"M10 60l100 0 0-50z\nM50 50l20 0 0-10z\n\"/>\n"
              "</g>\n</svg>\n");
}

TEST(SvgWriter, PaletteFillsEachPolygonWithItsHolesByItself) {
    const PolygonSet shapes{
        {External(Square(0, 0, 2)), Hole(Square(0, 0, 1)), External(Square(4, 0, 2))}};
    const std::string svg = WriteSvg({{shapes, PALETTE_FILL, "none"}}, SmallPage());
    EXPECT_EQ(CountOf(svg, "<path"), 2u);
    EXPECT_EQ(CountOf(svg, "z\n"), 3u);
    EXPECT_EQ(CountOf(svg, Palette()[0]), 1u);
    EXPECT_EQ(CountOf(svg, Palette()[1]), 1u);
}

TEST(SvgWriter, LayersAndBackgroundComeInOrder) {
    SvgPage page = SmallPage();
    page.background = "white";
    const PolygonSet square{{External(Square(0, 0, 1))}};
    const std::string svg = WriteSvg({{square, "red", "none"}, {square, "blue", "none"}}, page);
    EXPECT_LT(svg.find("white"), svg.find("red"));
    EXPECT_LT(svg.find("red"), svg.find("blue"));
}

TEST(SvgWriter, ViewCutsAwayWhatIsOutside) {
    SvgPage page = SmallPage();
    page.margin = 0;
    page.view = geom::Box2d(0, 0, 10, 10);
    const PolygonSet shapes{{External(Square(5, 5, 1)), External(Square(50, 5, 1))}};
    const std::string svg = WriteSvg({{shapes, "red", "none"}}, page);
    EXPECT_NE(svg.find("viewBox=\"0 0 120 120\""), std::string::npos);
    EXPECT_EQ(CountOf(svg, "M"), 1u);
}

TEST(SvgWriter, DecimalsSetThePrecision) {
    SvgPage page = SmallPage();
    page.decimals = 0;
    const PolygonSet shapes{{External({{0, 0}, {1, 0.34}, {0.001, 0.001}})}};
    const std::string svg = WriteSvg({{shapes, "red", "none"}}, page);
    // The third point falls on the first and closes the path there.
    EXPECT_NE(svg.find("d=\"M10 44l100-34-100 34z"), std::string::npos) << svg;
}

TEST(SvgWriter, DegenerateShapesGiveADrawing) {
    struct {
        const char* name;
        PolygonSet shapes;
    } const cases[] = {
        {"nothing", {}},
        {"empty contour", {{External({})}}},
        {"one point", {{External({{3, 4}})}}},
        {"one far point", {{External({{1e300, -1e300}})}}},
        {"flat", {{External({{0, 0}, {1, 0}, {2, 0}})}}},
        {"upright", {{External({{0, 0}, {0, 1}, {0, 2}})}}},
        {"tiny", {{External(Square(0, 0, 5e-324))}}},
        {"huge", {{External(Square(0, 0, 1.7e308))}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        for (const char* const fill : {"red", PALETTE_FILL}) {
            const std::string svg = WriteSvg({{c.shapes, fill, "none"}}, SmallPage());
            EXPECT_EQ(svg.find("nan"), std::string::npos);
            EXPECT_EQ(svg.find("inf"), std::string::npos);
            EXPECT_EQ(CountOf(svg, "</svg>"), 1u);
        }
    }
}

TEST(SvgWriter, HugeShapesFillThePage) {
    const std::string svg =
        WriteSvg({{{{External(Square(0, 0, 1.7e308))}}, "red", "none"}}, SmallPage());
    EXPECT_NE(svg.find("M10 110l100 0 0-100-100 0z"), std::string::npos) << svg;
}

TEST(SvgWriter, OnlyColoursPassAsColours) {
    for (const char* const colour : {"#fff", "#A1b2C3", "teal", "none"}) {
        EXPECT_TRUE(IsColour(colour)) << colour;
    }
    for (const char* const text :
         {"", "#", "#12", "#1234567", "#ggg", "red\"/>", "url(x)", "Red"}) {
        EXPECT_FALSE(IsColour(text)) << text;
    }
}

} // namespace
} // namespace geomtool
