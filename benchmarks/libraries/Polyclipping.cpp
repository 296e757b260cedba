// SPDX-License-Identifier: MIT
#include "Entries.h"

#include <cmath>
#include <polyclipping/clipper.hpp>

namespace geom::bench {

namespace {

using ClipperLib::Path;
using ClipperLib::Paths;

/// Below this magnitude the library computes with 64 bits, its faster way.
constexpr double LARGEST = 0x3FFFFFFF;

double Magnitude(const Region& region) {
    const Box2d box = BoundingBox(region);
    return std::max(std::max(std::fabs(box.minX), std::fabs(box.maxX)),
                    std::max(std::fabs(box.minY), std::fabs(box.maxY)));
}

Paths ToPaths(const Region& region, double scale) {
    Paths paths;
    for (const Ring& ring : region.rings) {
        Path path;
        for (const gpc_vertex& v : ring) {
            path.emplace_back(std::llround(v.x * scale), std::llround(v.y * scale));
        }
        paths.push_back(path);
    }
    return paths;
}

/// The library's holes run the other way than its outer rings.
Answer Measure(const Paths& paths, double scale) {
    Answer answer;
    for (const Path& path : paths) {
        answer.value += ClipperLib::Area(path) / scale / scale;
        answer.vertices += path.size();
    }
    return answer;
}

ClipperLib::ClipType TypeOf(gpc_op operation) {
    switch (operation) {
    case GPC_DIFF: return ClipperLib::ctDifference;
    case GPC_INT: return ClipperLib::ctIntersection;
    case GPC_XOR: return ClipperLib::ctXor;
    case GPC_UNION: break;
    }
    return ClipperLib::ctUnion;
}

struct SetOperationState {
    void Run() {
        ClipperLib::Clipper clipper;
        clipper.AddPaths(subject, ClipperLib::ptSubject, true);
        clipper.AddPaths(clip, ClipperLib::ptClip, true);
        clipper.Execute(type, result, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
    }
    Answer Find() const { return Measure(result, scale); }
    void Clear() { result = {}; }

    double scale;
    ClipperLib::ClipType type;
    Paths subject, clip;
    Paths result;
};

/// As many points to an arc as our own: 10 degrees from one to the next.
constexpr double ARC_ERROR = 0.0038; // 1 - cos(5 degrees)

struct OffsetState {
    void Run() {
        ClipperLib::ClipperOffset offset(2, std::fabs(distance) * ARC_ERROR);
        offset.AddPaths(paths, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
        offset.Execute(result, distance);
    }
    Answer Find() const { return Measure(result, scale); }
    void Clear() { result = {}; }

    double scale;
    double distance;
    Paths paths;
    Paths result;
};

class Polyclipping : public Library {
public:
    std::string Name() const override { return "polyclipping"; }

    Job SetOperation(gpc_op operation, const Regions& operands) const override {
        const double scale =
            std::floor(LARGEST / std::max(Magnitude(operands.subject), Magnitude(operands.clip)));
        return MakeJob(
            std::make_shared<SetOperationState>(SetOperationState{scale,
                                                                  TypeOf(operation),
                                                                  ToPaths(operands.subject, scale),
                                                                  ToPaths(operands.clip, scale),
                                                                  {}}));
    }
    Job Offset(const Region& region, double distance) const override {
        const double scale = std::floor(LARGEST / 2 / Magnitude(region));
        return MakeJob(std::make_shared<OffsetState>(
            OffsetState{scale, distance * scale, ToPaths(region, scale), {}}));
    }
};

} // namespace

const Library& PolyclippingEntry() {
    static const Polyclipping polyclipping;
    return polyclipping;
}

} // namespace geom::bench
