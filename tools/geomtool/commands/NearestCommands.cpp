// SPDX-License-Identifier: MIT
// The nearest vertex and the nearest segment to points, one line of output for each point.
#include "geometry/Geometry.h"
#include "geometry/SpatialSearchGrid2D.h"
#include "tools/geomtool/Files.h"
#include "tools/geomtool/InputError.h"
#include "tools/geomtool/Numbers.h"
#include "tools/geomtool/Progress.h"
#include "tools/geomtool/commands/Arguments.h"
#include "tools/geomtool/commands/Commands.h"
#include "tools/geomtool/commands/FileOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>

namespace geomtool {

namespace {

using geom::Vec2d;

struct Options {
    InputOptions input;
    std::vector<std::string> points;
};

/// A vertex, or a place on the segment behind it, on one of the lines.
struct Place {
    std::size_t line;
    std::size_t vertex;
    Vec2d point;
};

std::vector<Vec2d> ParsePoints(const Options& options) {
    std::vector<Vec2d> points;
    for (const std::string& text : options.points) {
        points.push_back(ParsePoint("--point", text));
    }
    return points;
}

/// "line=0 segment=3 x=1 y=2 distance=0.5"
std::string Answer(const Place& place, const char* lineLabel, const char* vertexLabel,
                   const Vec2d& query) {
    std::string text = std::string(lineLabel) + "=" + std::to_string(place.line) + " " +
                       vertexLabel + "=" + std::to_string(place.vertex) + " x=";
    AppendNumber(text, place.point.x);
    text += " y=";
    AppendNumber(text, place.point.y);
    text += " distance=";
    AppendNumber(text, std::hypot(query.x - place.point.x, query.y - place.point.y));
    return text + "\n";
}

[[noreturn]] void FailTooFar() {
    throw InputError("the distances are beyond the range of numbers");
}

std::optional<Place> NearestOnLines(const LineSet& lines, const Vec2d& query) {
    std::optional<Place> nearest;
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < lines.lines.size(); ++i) {
        const Line& line = lines.lines[i];
        double distance = 0;
        const std::size_t at = geom::FindClosestSegment(line.data(), line.size(), query, &distance);
        if (line.size() >= 2 && distance < least) {
            least = distance;
            nearest = Place{i, at, {}};
        }
    }
    if (nearest) {
        const Line& line = lines.lines[nearest->line];
        Vec2d p = query;
        Vec2d a = line[nearest->vertex];
        Vec2d b = line[nearest->vertex + 1];
        geom::GetNormalIntersection(p, a, b, nearest->point);
    }
    return nearest;
}

std::string NearestSegments(const Options& options) {
    const std::vector<Vec2d> points = ParsePoints(options);
    Progress progress;
    CheckInputs(options.input);
    const LineSet lines = AllLines(ReadFigureInput(options.input, 0, progress));
    const bool hasSegment = std::any_of(lines.lines.begin(), lines.lines.end(),
                                        [](const Line& line) { return line.size() >= 2; });
    if (!hasSegment) {
        throw ErrorIn(DisplayName(options.input.paths[0]), "there is no segment");
    }
    progress.Begin("nearest segment");
    std::string text;
    for (const Vec2d& p : points) {
        const std::optional<Place> nearest = NearestOnLines(lines, p);
        if (!nearest) {
            FailTooFar();
        }
        text += Answer(*nearest, "line", "segment", p);
    }
    return text;
}

/// The contours' points without the repeated first one, and behind them the lines'.
LineSet Vertices(const Figure& figure) {
    LineSet all;
    for (const Ring& ring : figure.polygons.rings) {
        all.lines.push_back(ring.points);
    }
    all.lines.insert(all.lines.end(), figure.lines.lines.begin(), figure.lines.lines.end());
    return all;
}

class FlatVertices : public geom::SpatialSearchGrid2D::IVertexSource {
public:
    explicit FlatVertices(const LineSet& lines) : m_flat(Flatten(lines)) {}

    bool GetVertex(int index, Vec2d& out) const override {
        out = m_flat.points[static_cast<std::size_t>(index)];
        return true;
    }
    std::size_t Count() const { return m_flat.points.size(); }

    Place PlaceOf(int index) const {
        auto vertex = static_cast<std::size_t>(index);
        const Vec2d point = m_flat.points[vertex];
        std::size_t line = 0;
        for (; vertex >= m_flat.counts[line]; ++line) {
            vertex -= m_flat.counts[line];
        }
        return {line, vertex, point};
    }

private:
    FlatLines m_flat;
};

std::string NearestVertices(const Options& options) {
    const std::vector<Vec2d> points = ParsePoints(options);
    Progress progress;
    CheckInputs(options.input);
    const auto vertices =
        std::make_shared<FlatVertices>(Vertices(ReadFigureInput(options.input, 0, progress)));
    if (vertices->Count() == 0) {
        throw ErrorIn(DisplayName(options.input.paths[0]), "there is no vertex");
    }
    if (vertices->Count() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        throw ErrorIn(DisplayName(options.input.paths[0]), "there are too many vertices");
    }
    progress.Begin("nearest vertex");
    geom::SpatialSearchGrid2D grid;
    grid.Initialize(0, static_cast<int>(vertices->Count()), vertices);
    std::string text;
    for (const Vec2d& p : points) {
        const int index = grid.Query(p);
        if (index < 0) {
            FailTooFar();
        }
        text += Answer(vertices->PlaceOf(index), "line", "vertex", p);
    }
    return text;
}

void AddCommand(CLI::App& app, Action& chosen, const char* name, const char* description,
                const char* example, std::string (*answer)(const Options&)) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *app.add_subcommand(name, description);
    command.footer(std::string("Example:\n  ") + example);
    AddOneInput(command, options->input, "polygons or lines");
    command
        .add_option("--point", options->points,
                    "the place to start from; repeated, one after "
                    "another")
        ->required()
        ->allow_extra_args(false)
        ->option_text("X,Y");
    command.callback([&chosen, options, answer] {
        chosen = [options, answer] { WriteFile("-", answer(*options)); };
    });
}

} // namespace

void AddNearestCommands(CLI::App& app, Action& chosen) {
    AddCommand(app, chosen, "nearest",
               "prints the vertex nearest to a point: its contour or line and its number, both "
               "counted from 0 and contours first, its place and its distance",
               "geomtool nearest harbours.geojson --point 8.55,47.37", &NearestVertices);
    AddCommand(app, chosen, "nearest-segment",
               "prints the segment nearest to a point: its contour or line and its number, both "
               "counted from 0 and contours first, the nearest place on it and its distance",
               "geomtool nearest-segment roads.wkt --point 8.55,47.37", &NearestSegments);
}

} // namespace geomtool
