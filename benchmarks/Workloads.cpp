// SPDX-License-Identifier: MIT
#include "Workloads.h"

#include "Crossings.h"

#include <cmath>
#include <stdexcept>

namespace geom::bench {

namespace {

constexpr const char* SET_OPERATIONS = "Set operations";
constexpr const char* STRIPS = "Triangle strips";
constexpr const char* BOXES = "Clipping to rectangles";
constexpr const char* LINES = "Lines and dashes";
constexpr const char* QUERIES = "Queries and measures";
constexpr const char* OFFSETS = "Offsets";
constexpr const char* FILES = "Ring clean-up and files";

constexpr const char* VERTEX = "vertex";

double Vertices(const Regions& regions) {
    return static_cast<double>(VertexCount(regions.subject) + VertexCount(regions.clip));
}

Input Pair(Regions regions) {
    Input input;
    input.regions = std::move(regions);
    input.units = Vertices(input.regions);
    return input;
}

/// The time of a set operation grows with the crossings, too.
Input CountedPair(Regions regions) {
    Input input = Pair(std::move(regions));
    input.work = input.units + static_cast<double>(CrossingCount(input.regions));
    return input;
}

Input Single(Region region) {
    return Pair({std::move(region), {}});
}

const Ring& OnlyRing(const Input& input) {
    return input.regions.subject.rings.front();
}

// A map is known by its number of vertices.

const char* MapOf(int vertices) {
    switch (vertices) {
    case 10299: return "world_countries_110m";
    case 58955: return "world_land_50m";
    case 97656: return "world_countries_50m";
    case 178490: return "world_land_10m";
    default: throw std::invalid_argument("no such map");
    }
}

const std::vector<int> COASTS = {10299, 58955, 178490};

/// Libraries on a grid of integers round every crossing.
constexpr double GRID_TOLERANCE = 1e-4;

using MakeRegions = std::function<Regions(int size)>;

/// Every library that can.
Workload SetOperation(const char* name, gpc_op operation, std::vector<int> sizes,
                      const MakeRegions& make) {
    return {SET_OPERATIONS,
            name,
            VERTEX,
            std::move(sizes),
            [make](int size) { return CountedPair(make(size)); },
            [operation](const Library& library, const Input& input) {
                return library.SetOperation(operation, input.regions);
            },
            GRID_TOLERANCE};
}

/// Only libraries that take rings with shared borders as one operand.
Workload TouchingRings(const char* name, gpc_op operation, std::vector<int> sizes,
                       const MakeRegions& make) {
    Workload workload = SetOperation(name, operation, std::move(sizes), make);
    workload.job = [operation](const Library& library, const Input& input) {
        return library.TakesTouchingRings() ? library.SetOperation(operation, input.regions)
                                            : Job();
    };
    return workload;
}

Workload CombsPerCrossing() {
    Workload workload =
        SetOperation("comb and comb: intersection", GPC_INT, {50, 250, 500}, &Combs);
    workload.unit = "crossing";
    workload.input = [](int teeth) {
        Input input = CountedPair(Combs(teeth));
        input.units = 4.0 * teeth * teeth;
        return input;
    };
    return workload;
}

void AddSetOperations(std::vector<Workload>& table) {
    const std::vector<int> all = {1000, 10000, 100000, 1000000};
    table.push_back(SetOperation("noisy stars: intersection", GPC_INT, all, &NoisyStars));
    table.push_back(
        SetOperation("noisy stars: union", GPC_UNION, {1000, 10000, 100000}, &NoisyStars));
    table.push_back(
        SetOperation("noisy stars: difference", GPC_DIFF, {1000, 10000, 100000}, &NoisyStars));
    table.push_back(
        SetOperation("noisy stars: exclusive-or", GPC_XOR, {1000, 10000, 100000}, &NoisyStars));
    table.push_back(SetOperation("smooth stars: intersection", GPC_INT, all, &SmoothStars));
    table.push_back(SetOperation("spikes: intersection", GPC_INT, {1000, 10000, 100000}, &Spikes));
    table.push_back(SetOperation("coast and shifted coast: intersection", GPC_INT, COASTS,
                                 [](int n) { return MapAndShifted(MapOf(n)); }));
    table.push_back(SetOperation("land and star: intersection", GPC_INT, COASTS,
                                 [](int n) { return MapAndStar(MapOf(n)); }));
    table.push_back(SetOperation("squares and blob: intersection", GPC_INT, all, &SquaresAndBlob));
    table.push_back(SetOperation("two grids: union", GPC_UNION, all, &TwoGrids));
    table.push_back(CombsPerCrossing());
    table.push_back(
        SetOperation("tall saws: intersection", GPC_INT, {10000, 100000, 1000000}, &TallSaws));
    table.push_back(
        TouchingRings("countries and blob: union", GPC_UNION, {10299, 97656}, [](int n) {
            const Region& map = Map(MapOf(n));
            return Regions{map, Blob(BoundingBox(map))};
        }));
    table.push_back(TouchingRings("triangle mesh and blob: union", GPC_UNION,
                                  {10000, 100000, 1000000}, &MeshAndBlob));
}

void AddStrips(std::vector<Workload>& table) {
    const auto strips = [](const Library& library, const Input& input) {
        return library.Strips(input.regions.subject);
    };
    table.push_back({STRIPS,
                     "star",
                     VERTEX,
                     {10000, 100000},
                     [](int n) {
                         return Single({{LargeStar(n)}, {0}});
                     },
                     strips});
    table.push_back({STRIPS,
                     "noisy star",
                     VERTEX,
                     {10000, 100000},
                     [](int n) { return Single(NoisyStar(n)); },
                     strips});
    table.push_back({STRIPS,
                     "star with holes",
                     VERTEX,
                     {10000, 100000},
                     [](int n) { return Single(StarWithHoles(n)); },
                     strips});
}

/// Ten rows of ten tiles over a map.
Input MapAndTiles(int size) {
    Input input = Single(Map(MapOf(size)));
    const Box2d box = BoundingBox(input.regions.subject);
    const double width = (box.maxX - box.minX) / 10;
    const double height = (box.maxY - box.minY) / 10;
    for (int i = 0; i < 100; ++i) {
        const double x = box.minX + i % 10 * width;
        const double y = box.minY + i / 10 * height;
        input.tiles.emplace_back(x, y, x + width, y + height);
    }
    input.units *= 100;
    return input;
}

Input StarAndBox(int size) {
    Input input = Single({{LargeStar(size)}, {0}});
    input.tiles.emplace_back(-700, -500, 800, 600);
    return input;
}

Input WalksAndBox(int points) {
    Input input;
    input.box = Box2d(-700, -500, 800, 600);
    input.lines = Walks(points / 100, 100, Box2d(-1000, -1000, 1000, 1000));
    input.units = points;
    return input;
}

void AddBoxes(std::vector<Workload>& table) {
    const auto clip = [](const Library& library, const Input& input) {
        return library.ClipToBoxes(input.regions.subject, input.tiles);
    };
    table.push_back({BOXES,
                     "countries to 10 x 10 tiles",
                     "vertex and tile",
                     {10299, 97656},
                     &MapAndTiles,
                     clip});
    table.push_back(
        {BOXES, "star to a rectangle", VERTEX, {10000, 100000, 1000000}, &StarAndBox, clip});
    table.push_back({BOXES,
                     "walks of 100 points to a rectangle",
                     VERTEX,
                     {10000, 100000, 1000000},
                     &WalksAndBox,
                     [](const Library& library, const Input& input) {
                         return library.ClipLinesToBox(input.lines, input.box);
                     }});
}

Input WalksAndHoles(int edges) {
    Input input = Single(StarWithHoles(edges));
    input.lines = Walks(10000, 10, Box2d(-1000, -1000, 1000, 1000));
    input.units = 100000;
    return input;
}

Workload Dashing(const char* name, std::vector<double> pattern) {
    return {LINES,
            name,
            VERTEX,
            {10000, 100000, 1000000},
            [pattern](int size) {
                Input input;
                input.lines = UnitSteps(size);
                input.pattern = pattern;
                input.units = size;
                return input;
            },
            [](const Library& library, const Input& input) {
                return library.Dash(input.lines, input.pattern);
            },
            1e-4}; // the last dash may end where the line does, or be dropped
}

void AddLines(std::vector<Workload>& table) {
    table.push_back({LINES,
                     "10,000 walks to a holed polygon, with its index",
                     "point",
                     {1000, 10000, 100000},
                     &WalksAndHoles,
                     [](const Library& library, const Input& input) {
                         return library.ClipLinesToRegion(input.lines, input.regions.subject);
                     }});
    table.push_back(Dashing("dashes longer than steps", {3, 1.5, 0.5, 1.5}));
    table.push_back(Dashing("dashes shorter than steps", {0.13, 0.05, 0.04, 0.05}));
}

Input PointsInStar(int size) {
    Input input = Single({{LargeStar(size)}, {0}});
    input.queries = UniformPoints(10000000 / size, 10);
    input.units = static_cast<double>(input.queries.size());
    return input;
}

using MakePoints = std::vector<Vec2d> (*)(int size, std::uint64_t seed);

Workload NearestOf(const char* name, std::vector<int> sizes, MakePoints make) {
    return {QUERIES,
            name,
            "query",
            std::move(sizes),
            [make](int size) {
                Input input;
                input.points = make(size, 11);
                input.queries = make(size, 12);
                input.units = size;
                return input;
            },
            [](const Library& library, const Input& input) {
                return library.Nearest(input.points, input.queries);
            }};
}

void AddQueries(std::vector<Workload>& table) {
    const auto star = [](int n) { return Single({{LargeStar(n)}, {0}}); };
    table.push_back({QUERIES,
                     "point in polygon",
                     "query",
                     {1000, 10000, 100000},
                     &PointsInStar,
                     [](const Library& library, const Input& input) {
                         return library.PointsInside(OnlyRing(input), input.queries);
                     }});
    table.push_back(NearestOf("nearest vertex, uniform, with building", {10000, 100000, 1000000},
                              &UniformPoints));
    table.push_back(NearestOf("nearest vertex, 1,000 clusters, with building",
                              {10000, 100000, 1000000}, &ClusteredPoints));
    table.push_back(
        {QUERIES, "area", VERTEX, {1000000}, star, [](const Library& library, const Input& input) {
             return library.Area(OnlyRing(input));
         }});
    table.push_back({QUERIES,
                     "perimeter",
                     VERTEX,
                     {1000000},
                     star,
                     [](const Library& library, const Input& input) {
                         return library.Perimeter(OnlyRing(input));
                     }});
}

/// Arcs may be cut into different chords.
constexpr double ARC_TOLERANCE = 1e-3;

Workload Offset(const char* name, std::vector<int> sizes, double distance,
                const std::function<Region(int size)>& make) {
    return {OFFSETS,
            name,
            VERTEX,
            std::move(sizes),
            [=](int size) {
                Input input = Single(make(size));
                input.distance = distance;
                return input;
            },
            [](const Library& library, const Input& input) {
                return library.Offset(input.regions.subject, input.distance);
            },
            ARC_TOLERANCE};
}

void AddOffsets(std::vector<Workload>& table) {
    table.push_back(Offset("circle grown by 1", {1000, 10000, 100000}, 1, &Circle));
    table.push_back(Offset("circle shrunk by 1", {1000}, -1, &Circle));
    table.push_back(Offset("noisy star grown by 1", {1000}, 1, &NoisyStar));
}

Workload File(const char* name, bool binary, Job (Library::*task)(const Region&, bool) const) {
    return {FILES,
            name,
            VERTEX,
            {10000, 100000, 1000000},
            [](int n) {
                return Single({{LargeStar(n)}, {0}});
            },
            [=](const Library& library, const Input& input) {
                return (library.*task)(input.regions.subject, binary);
            }};
}

void AddFiles(std::vector<Workload>& table) {
    table.push_back({FILES,
                     "clean-up of square rings",
                     "ring",
                     {10000, 100000},
                     [](int rings) {
                         Input input = Single(DirtyRings(rings));
                         input.units = rings;
                         return input;
                     },
                     [](const Library& library, const Input& input) {
                         return library.CleanRings(input.regions.subject);
                     }});
    table.push_back(File("text file, writing", false, &Library::WriteFile));
    table.push_back(File("text file, reading", false, &Library::ReadFile));
    table.push_back(File("binary file, writing", true, &Library::WriteFile));
    table.push_back(File("binary file, reading", true, &Library::ReadFile));
}

Input Sample() {
    const Ring triangle = {{0, 0}, {4, 0}, {0, 4}};
    Input input;
    input.regions = {{{triangle}, {0}}, {{triangle}, {0}}};
    input.lines = {{{0, 0}, {1, 1}}, {2}};
    input.box = Box2d(0, 0, 1, 1);
    input.tiles = {input.box};
    input.points = input.queries = {{0, 0}};
    input.pattern = {1, 1};
    return input;
}

} // namespace

const std::vector<Workload>& Workloads() {
    static const std::vector<Workload> table = [] {
        std::vector<Workload> workloads;
        AddSetOperations(workloads);
        AddStrips(workloads);
        AddBoxes(workloads);
        AddLines(workloads);
        AddQueries(workloads);
        AddOffsets(workloads);
        AddFiles(workloads);
        return workloads;
    }();
    return table;
}

bool Takes(const Library& library, const Workload& workload) {
    return static_cast<bool>(workload.job(library, Sample()));
}

} // namespace geom::bench
