// SPDX-License-Identifier: MIT
#pragma once

#include "tools/geomtool/Figure.h"

#include <optional>
#include <string>
#include <vector>

/// \file
/// The table of file formats.

namespace geomtool {

enum class Format { Text, Binary, Wkt, GeoJson, Svg };

/// The names that options accept, in the order of the enumeration.
const std::vector<std::string>& FormatNames();

/// The format of a name such as "wkt"; nothing for an unknown one.
std::optional<Format> FormatOfName(const std::string& name);

/// The format that a file's extension tells; text for the standard streams; nothing for an
/// unknown extension. The case of letters does not matter.
std::optional<Format> FormatOfPath(const std::string& path);

/// Whether a file's extension promises something else than SVG: another format of this table, or
/// pixels or pages.
bool PromisesNoSvg(const std::string& path);

/// Reads a file or standard input. SVG cannot be read.
PolygonSet ReadShapes(const std::string& path, Format format, bool holeFlags);

/// The same with lines, which WKT and GeoJSON can hold.
Figure ReadFigure(const std::string& path, Format format, bool holeFlags);

/// The bytes of a file with the shapes. `format` is not Svg: a drawing takes a style, too.
std::string FormatShapes(const PolygonSet& shapes, Format format, bool holeFlags);

/// Whether a format can hold lines.
bool HoldsLines(Format format);

/// The bytes of a file with lines. Throws a UsageError for a format that holds none.
std::string FormatLines(const LineSet& lines, Format format);

/// The bytes of a file with polygons and lines. Throws a UsageError when there are lines and the
/// format holds none.
std::string FormatFigure(const Figure& figure, Format format, bool holeFlags);

} // namespace geomtool
