// SPDX-License-Identifier: MIT
#include "Entries.h"

#include <agg2/agg_conv_clip_polygon.h>
#include <agg2/agg_conv_clip_polyline.h>
#include <agg2/agg_conv_dash.h>
#include <agg2/agg_path_storage.h>
#include <cmath>

namespace geom::bench {

namespace {

/// A vertex of a path as it comes out of a converter.
struct Step {
    Vec2d to;
    unsigned int command;
};
using Steps = std::vector<Step>;

template <typename Source>
void Collect(Source& source, Steps& steps) {
    source.rewind(0);
    Step step;
    while (!agg::is_stop(step.command = source.vertex(&step.to.x, &step.to.y))) {
        steps.push_back(step);
    }
}

Answer SignedArea(const Steps& steps) {
    Answer answer;
    Vec2d first(0, 0), last(0, 0);
    for (const Step& step : steps) {
        if (!agg::is_vertex(step.command)) {
            continue;
        }
        if (agg::is_move_to(step.command)) {
            answer.value += Cross(last.x, last.y, first.x, first.y) / 2;
            first = step.to;
        } else {
            answer.value += Cross(last.x, last.y, step.to.x, step.to.y) / 2;
        }
        last = step.to;
        ++answer.vertices;
    }
    answer.value += Cross(last.x, last.y, first.x, first.y) / 2;
    return answer;
}

Answer Length(const Steps& steps) {
    Answer answer;
    Vec2d last(0, 0);
    for (const Step& step : steps) {
        if (!agg::is_vertex(step.command)) {
            continue;
        }
        if (!agg::is_move_to(step.command)) {
            answer.value += std::hypot(step.to.x - last.x, step.to.y - last.y);
        }
        last = step.to;
        ++answer.vertices;
    }
    return answer;
}

void AddLines(agg::path_storage& path, const Lines& lines) {
    std::size_t at = 0;
    for (unsigned int n : lines.counts) {
        for (unsigned int i = 0; i < n; ++i, ++at) {
            const Vec2d& p = lines.points[at];
            i == 0 ? path.move_to(p.x, p.y) : path.line_to(p.x, p.y);
        }
    }
}

struct BoxClipState {
    void Run() {
        for (const Box2d& box : boxes) {
            agg::conv_clip_polygon<agg::path_storage> clip(path);
            clip.clip_box(box.minX, box.minY, box.maxX, box.maxY);
            Steps piece;
            Collect(clip, piece);
            area += SignedArea(piece).value;
        }
    }
    Answer Find() const { return {area, 0}; }
    void Clear() { area = 0; }

    agg::path_storage path;
    std::vector<Box2d> boxes;
    double area = 0;
};

struct LinesToBoxState {
    void Run() {
        agg::conv_clip_polyline<agg::path_storage> clip(path);
        clip.clip_box(box.minX, box.minY, box.maxX, box.maxY);
        Collect(clip, result);
    }
    Answer Find() const { return Length(result); }
    void Clear() { result = {}; }

    agg::path_storage path;
    Box2d box;
    Steps result;
};

struct DashState {
    void Run() {
        agg::conv_dash<agg::path_storage> dash(path);
        for (std::size_t i = 0; i + 1 < pattern.size(); i += 2) {
            dash.add_dash(pattern[i], pattern[i + 1]);
        }
        Collect(dash, result);
    }
    Answer Find() const { return Length(result); }
    void Clear() { result = {}; }

    agg::path_storage path;
    std::vector<double> pattern;
    Steps result;
};

class Agg : public Library {
public:
    std::string Name() const override { return "AGG"; }

    Job ClipToBoxes(const Region& region, const std::vector<Box2d>& boxes) const override {
        auto state = std::make_shared<BoxClipState>();
        state->boxes = boxes;
        for (const Ring& ring : region.rings) {
            for (std::size_t i = 0; i < ring.size(); ++i) {
                i == 0 ? state->path.move_to(ring[i].x, ring[i].y)
                       : state->path.line_to(ring[i].x, ring[i].y);
            }
            state->path.close_polygon();
        }
        return MakeJob(state);
    }
    Job ClipLinesToBox(const Lines& lines, const Box2d& box) const override {
        auto state = std::make_shared<LinesToBoxState>();
        state->box = box;
        AddLines(state->path, lines);
        return MakeJob(state);
    }
    Job Dash(const Lines& line, const std::vector<double>& pattern) const override {
        auto state = std::make_shared<DashState>();
        state->pattern = pattern;
        AddLines(state->path, line);
        return MakeJob(state);
    }
};

} // namespace

const Library& AggEntry() {
    static const Agg agg;
    return agg;
}

} // namespace geom::bench
