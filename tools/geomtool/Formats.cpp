// SPDX-License-Identifier: MIT
#include "tools/geomtool/Formats.h"

#include "tools/geomtool/BinaryFormat.h"
#include "tools/geomtool/Files.h"
#include "tools/geomtool/GeoJsonFormat.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/TextFormat.h"
#include "tools/geomtool/WktFormat.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace geomtool {

namespace {

constexpr std::array<std::pair<std::string_view, Format>, 8> EXTENSIONS = {{
    {".txt", Format::Text},
    {".text", Format::Text},
    {".bin", Format::Binary},
    {".binary", Format::Binary},
    {".wkt", Format::Wkt},
    {".geojson", Format::GeoJson},
    {".json", Format::GeoJson},
    {".svg", Format::Svg},
}};

constexpr std::array<std::string_view, 8> PICTURES = {
    ".png", ".jpg", ".jpeg", ".gif", ".webp", ".pdf", ".ps", ".eps",
};

std::string LowerCase(std::string text) {
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

/// With its point, in small letters; empty without one.
std::string ExtensionOf(const std::string& path) {
    const std::size_t name = path.find_last_of('/') + 1; // npos + 1 is 0
    const std::size_t dot = path.find_last_of('.');
    return dot == std::string::npos || dot < name ? std::string() : LowerCase(path.substr(dot));
}

} // namespace

const std::vector<std::string>& FormatNames() {
    static const std::vector<std::string> names = {"text", "binary", "wkt", "geojson", "svg"};
    return names;
}

std::optional<Format> FormatOfName(const std::string& name) {
    const std::vector<std::string>& names = FormatNames();
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) {
        return std::nullopt;
    }
    return static_cast<Format>(found - names.begin());
}

std::optional<Format> FormatOfPath(const std::string& path) {
    if (IsStandardStream(path)) {
        return Format::Text;
    }
    const std::string extension = ExtensionOf(path);
    for (const auto& [known, format] : EXTENSIONS) {
        if (extension == known) {
            return format;
        }
    }
    return std::nullopt;
}

bool PromisesNoSvg(const std::string& path) {
    if (IsStandardStream(path)) {
        return false;
    }
    const std::optional<Format> format = FormatOfPath(path);
    return format
               ? *format != Format::Svg
               : std::find(PICTURES.begin(), PICTURES.end(), ExtensionOf(path)) != PICTURES.end();
}

PolygonSet ReadShapes(const std::string& path, Format format, bool holeFlags) {
    const std::string bytes = ReadFile(path);
    const std::string name = DisplayName(path);
    switch (format) {
    case Format::Text: return ReadText(name, bytes, holeFlags);
    case Format::Binary: return ReadBinary(name, bytes, holeFlags);
    case Format::Wkt: return ReadWkt(name, bytes);
    case Format::GeoJson: return ReadGeoJson(name, bytes);
    case Format::Svg: break;
    }
    throw ErrorIn(name, "SVG files can be written, not read");
}

Figure ReadFigure(const std::string& path, Format format, bool holeFlags) {
    switch (format) {
    case Format::Wkt: return ReadWktFigure(DisplayName(path), ReadFile(path));
    case Format::GeoJson: return ReadGeoJsonFigure(DisplayName(path), ReadFile(path));
    default: return {ReadShapes(path, format, holeFlags), {}};
    }
}

std::string FormatShapes(const PolygonSet& shapes, Format format, bool holeFlags) {
    switch (format) {
    case Format::Text: return WriteText(shapes, holeFlags);
    case Format::Binary: return WriteBinary(shapes, holeFlags);
    case Format::Wkt: return WriteWkt(shapes);
    case Format::GeoJson: return WriteGeoJson(shapes);
    case Format::Svg: break;
    }
    throw UsageError("a drawing has no plain form");
}

bool HoldsLines(Format format) {
    return format == Format::Wkt || format == Format::GeoJson || format == Format::Svg;
}

std::string FormatLines(const LineSet& lines, Format format) {
    switch (format) {
    case Format::Wkt: return WriteWktLines(lines);
    case Format::GeoJson: return WriteGeoJsonLines(lines);
    default: throw UsageError("lines can be written as wkt, geojson or svg");
    }
}

std::string FormatFigure(const Figure& figure, Format format, bool holeFlags) {
    if (figure.lines.lines.empty()) {
        return FormatShapes(figure.polygons, format, holeFlags);
    }
    switch (format) {
    case Format::Wkt: return WriteWktFigure(figure);
    case Format::GeoJson: return WriteGeoJsonFigure(figure);
    default: return FormatLines(figure.lines, format); // refuses
    }
}

} // namespace geomtool
