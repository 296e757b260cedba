// SPDX-License-Identifier: MIT
// Everything that geomtool reads: its file formats and the values of its options. The first byte
// chooses the parser, a letter each, so that inputs can be written by hand. What must hold:
// - a parser accepts a text or throws the error of its kind, which begins with the file's or the
//   option's name and tells something;
// - what was accepted is finite, and written and read again it is the same: as text and binary to
//   the bit, as WKT and GeoJSON once the contours have been grouped into polygons;
// - the library reads what the tool writes;
// - numbers are those of strtod.
#include "fuzz/support/ByteSource.h"
#include "fuzz/support/Check.h"
#include "fuzz/support/Coordinates.h"
#include "fuzz/support/MemoryStream.h"
#include "fuzz/support/Target.h"

#include "geometry/Gpc.h"
#include "tools/geomtool/BinaryFormat.h"
#include "tools/geomtool/Formats.h"
#include "tools/geomtool/GeoJsonFormat.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/TextFormat.h"
#include "tools/geomtool/WktFormat.h"
#include "tools/geomtool/commands/Arguments.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>

namespace geom::fuzz {

namespace {

using namespace geomtool;

constexpr const char* NAME = "input";

/// A message as the tool prints it: of a readable length, without control characters.
void CheckLine(const std::string& line) {
    FUZZ_CHECK(line.size() < 410);
    FUZZ_CHECK(std::none_of(line.begin(), line.end(),
                            [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; }));
}

/// The result of a reader; nothing where it throws an error, which must be a clear one.
template <typename Error, typename Read>
auto ReadOrFail(Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const Error& e) {
        const std::string message = e.what();
        const std::size_t colon = message.find(": ");
        FUZZ_CHECK(message.rfind(NAME, 0) == 0);
        FUZZ_CHECK(colon != std::string::npos && colon + 2 < message.size());
        CheckLine(OneLine(message));
        return std::nullopt;
    }
}

bool IsSame(const PolygonSet& a, const PolygonSet& b) {
    return std::equal(a.rings.begin(), a.rings.end(), b.rings.begin(), b.rings.end(),
                      [](const geomtool::Ring& p, const geomtool::Ring& q) {
                          return p.hole == q.hole && SameBits(p.points, q.points);
                      });
}

bool HasFlags(const PolygonSet& shapes) {
    return std::any_of(shapes.rings.begin(), shapes.rings.end(),
                       [](const geomtool::Ring& ring) { return ring.hole; });
}

void CheckFinite(const PolygonSet& shapes) {
    for (const geomtool::Ring& ring : shapes.rings) {
        FUZZ_CHECK(IsFinite(ring.points));
    }
}

/// A reader and a writer that belong together.
struct PolygonFormat {
    PolygonSet (*read)(const std::string& file, std::string_view bytes, bool holeFlags);
    std::string (*write)(const PolygonSet& shapes, bool holeFlags);
    bool (*readByLibrary)(std::FILE* stream, int holeFlags, gpc_polygon* polygon);
};

constexpr PolygonFormat TEXT = {&ReadText, &WriteText, &gpc_read_polygon};
constexpr PolygonFormat BINARY = {&ReadBinary, &WriteBinary, &gpc_read_polygon_binary};

PolygonSet ReadByLibrary(const std::string& bytes, const PolygonFormat& format, bool holeFlags) {
    const InputStream stream(bytes);
    gpc_polygon polygon = {0, nullptr, nullptr};
    FUZZ_CHECK(format.readByLibrary(stream.Get(), holeFlags, &polygon));
    PolygonSet shapes;
    for (int c = 0; c < polygon.num_contours; ++c) {
        shapes.rings.push_back({{}, polygon.hole[c] != 0});
        for (int v = 0; v < polygon.contour[c].num_vertices; ++v) {
            const gpc_vertex& p = polygon.contour[c].vertex[v];
            shapes.rings.back().points.emplace_back(p.x, p.y);
        }
    }
    gpc_free_polygon(&polygon);
    return shapes;
}

void CheckPolygons(const PolygonFormat& format, std::string_view bytes, bool holeFlags) {
    const auto shapes = ReadOrFail<InputError>([&] { return format.read(NAME, bytes, holeFlags); });
    if (!shapes) {
        return;
    }
    CheckFinite(*shapes);
    FUZZ_CHECK(holeFlags || !HasFlags(*shapes));
    const std::string written = format.write(*shapes, holeFlags);
    FUZZ_CHECK(IsSame(format.read(NAME, written, holeFlags), *shapes));
    FUZZ_CHECK(IsSame(ReadByLibrary(written, format, holeFlags), *shapes));
}

bool IsSame(const Figure& a, const Figure& b) {
    return IsSame(a.polygons, b.polygons) &&
           std::equal(a.lines.lines.begin(), a.lines.lines.end(), b.lines.lines.begin(),
                      b.lines.lines.end(),
                      [](const Line& p, const Line& q) { return SameBits(p, q); });
}

/// The readers and writers of a format that holds lines, too.
struct FigureFormat {
    Figure (*read)(const std::string& file, std::string_view text);
    PolygonSet (*readPolygons)(const std::string& file, std::string_view text);
    std::string (*write)(const Figure& figure);
};

constexpr FigureFormat WKT = {&ReadWktFigure, &ReadWkt, &WriteWktFigure};
constexpr FigureFormat GEO_JSON = {&ReadGeoJsonFigure, &ReadGeoJson, &WriteGeoJsonFigure};

void CheckFigures(const FigureFormat& format, std::string_view text) {
    const auto figure = ReadOrFail<InputError>([&] { return format.read(NAME, text); });
    const auto polygons = ReadOrFail<InputError>([&] { return format.readPolygons(NAME, text); });
    if (!figure) {
        FUZZ_CHECK(!polygons);
        return;
    }
    FUZZ_CHECK(!polygons || figure->lines.lines.empty());
    FUZZ_CHECK(!polygons || IsSame(*polygons, figure->polygons));
    CheckFinite(figure->polygons);
    for (const Line& line : figure->lines.lines) {
        FUZZ_CHECK(!line.empty() && IsFinite(line));
    }
    const Figure again = format.read(NAME, format.write(*figure));
    // What has no place in a format, such as lines of one point, is gone after the first time.
    FUZZ_CHECK(IsSame(format.read(NAME, format.write(again)), again));
    FUZZ_CHECK(again.polygons.VertexCount() <= figure->polygons.VertexCount());
    FUZZ_CHECK(again.lines.VertexCount() <= figure->lines.VertexCount());
}

void CheckNumber(const std::string& text) {
    std::string_view rest = text;
    double value = 7;
    const NumberStatus status = TakeNumber(rest, value);
    if (status != NumberStatus::Valid) {
        FUZZ_CHECK(rest == text && value == 7);
        return;
    }
    const std::string taken = text.substr(0, text.size() - rest.size());
    FUZZ_CHECK(std::isfinite(value));
    // What is too small becomes 0, whatever its sign is.
    FUZZ_CHECK(std::strtod(taken.c_str(), nullptr) == value);
    std::string written;
    AppendNumber(written, value);
    FUZZ_CHECK(SameBits(std::strtod(written.c_str(), nullptr), value));
}

void CheckPoint(const std::string& text) {
    const auto p = ReadOrFail<UsageError>([&] { return ParsePoint(NAME, text); });
    if (p) {
        std::string written;
        AppendNumber(written, p->x);
        written += ',';
        AppendNumber(written, p->y);
        FUZZ_CHECK(SameBits(ParsePoint(NAME, written), *p));
    }
}

void CheckOptions(const std::string& text) {
    CheckNumber(text);
    CheckPoint(text);
    const auto number = ReadOrFail<UsageError>([&] { return ParseNumber(NAME, text); });
    FUZZ_CHECK(!number || std::isfinite(*number));
    const auto positive = ReadOrFail<UsageError>([&] { return ParsePositive(NAME, text); });
    FUZZ_CHECK(positive ? *positive > 0 : !number || !(*number > 0));
    const auto count = ReadOrFail<UsageError>([&] { return ParseCount(NAME, text, 3, 700); });
    FUZZ_CHECK(!count || (*count >= 3 && *count <= 700));
    const auto box = ReadOrFail<UsageError>([&] { return ParseBox(NAME, text); });
    FUZZ_CHECK(!box || (box->minX < box->maxX && box->minY < box->maxY));
    const auto pattern = ReadOrFail<UsageError>([&] { return ParsePattern(NAME, text); });
    FUZZ_CHECK(!pattern || *std::max_element(pattern->begin(), pattern->end()) > 0);
    FUZZ_CHECK(!pattern || *std::min_element(pattern->begin(), pattern->end()) >= 0);
}

void Check(char parser, std::string_view bytes) {
    switch (parser) {
    case 't': CheckPolygons(TEXT, bytes, true); break;
    case 'T': CheckPolygons(TEXT, bytes, false); break;
    case 'b': CheckPolygons(BINARY, bytes, true); break;
    case 'B': CheckPolygons(BINARY, bytes, false); break;
    case 'w': CheckFigures(WKT, bytes); break;
    case 'g': CheckFigures(GEO_JSON, bytes); break;
    case 'o': CheckOptions(std::string(bytes)); break;
    default: break;
    }
}

} // namespace

} // namespace geom::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    geom::fuzz::ByteSource bytes(data, size);
    const char parser = static_cast<char>(bytes.Byte());
    geom::fuzz::Check(parser, bytes.Rest());
    return 0;
}
