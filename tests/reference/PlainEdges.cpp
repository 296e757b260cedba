// SPDX-License-Identifier: MIT
#include "tests/reference/PlainEdges.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace geom::test {

namespace {

constexpr double LARGEST = std::numeric_limits<double>::max();

struct Box {
    double xmin = LARGEST;
    double ymin = LARGEST;
    double xmax = -LARGEST;
    double ymax = -LARGEST;
};

Box BoxOf(const gpc_vertex_list& contour) {
    Box box;
    for (int i = 0; i < contour.num_vertices; ++i) {
        const gpc_vertex& v = contour.vertex[i];
        if (v.x < box.xmin)
            box.xmin = v.x;
        if (v.y < box.ymin)
            box.ymin = v.y;
        if (v.x > box.xmax)
            box.xmax = v.x;
        if (v.y > box.ymax)
            box.ymax = v.y;
    }
    return box;
}

/// Boxes that only touch do overlap.
bool Overlap(const Box& a, const Box& b) {
    return !(a.xmax < b.xmin || a.xmin > b.xmax || a.ymax < b.ymin || a.ymin > b.ymax);
}

/// Marks the contours of `polygon` that overlap no contour of `other`.
std::vector<bool> ContoursWithoutOverlap(const gpc_polygon& polygon, const gpc_polygon& other) {
    std::vector<bool> marks;
    for (int i = 0; i < polygon.num_contours; ++i) {
        bool overlaps = false;
        for (int j = 0; j < other.num_contours; ++j)
            overlaps = overlaps || Overlap(BoxOf(polygon.contour[i]), BoxOf(other.contour[j]));
        marks.push_back(!overlaps);
    }
    return marks;
}

/// The vertices without the middle ones of horizontal runs.
std::vector<gpc_vertex> KeptVertices(const gpc_vertex_list& contour) {
    std::vector<gpc_vertex> kept;
    const int n = contour.num_vertices;
    for (int i = 0; i < n; ++i) {
        const double y = contour.vertex[i].y;
        const double previous = contour.vertex[(i + n - 1) % n].y;
        const double next = contour.vertex[(i + 1) % n].y;
        if (previous != y || next != y)
            kept.push_back(contour.vertex[i]);
    }
    return kept;
}

/// Equal ordinates are entered once, so a zero keeps the sign with which it came first. An
/// ordinate that is no number bounds no edge.
void EnterOrdinate(std::vector<double>& ordinates, double y) {
    if (y != y)
        return;
    auto at = ordinates.begin();
    while (at != ordinates.end() && *at < y)
        ++at;
    if (at == ordinates.end() || *at != y)
        ordinates.insert(at, y);
}

void EnterBound(std::vector<Minimum>& minima, Edge* first) {
    auto node = minima.begin();
    while (node != minima.end() && node->y < first->bot.y)
        ++node;
    if (node == minima.end() || node->y != first->bot.y)
        node = minima.insert(node, Minimum{first->bot.y, {}});
    auto at = node->bounds.begin();
    while (at != node->bounds.end() && !GoesBehind(**at, *first))
        ++at;
    node->bounds.insert(at, first);
}

Edge MakeEdge(const gpc_vertex& bot, const gpc_vertex& top, Role role, gpc_op operation) {
    Edge edge{};
    edge.bot = bot;
    edge.top = top;
    edge.dx = (top.x - bot.x) / (top.y - bot.y);
    edge.xb = bot.x;
    edge.role = role;
    edge.bside[CLIP] = operation == GPC_DIFF ? 1 : 0;
    edge.outp[ABOVE] = NO_PIECE;
    edge.outp[BELOW] = NO_PIECE;
    return edge;
}

/// Cuts one contour into bounds, walking its vertices by `step`: 1 along it, n - 1 against it.
/// A bound starts where the walk turns from not rising to rising. Of a horizontal bottom,
/// each walk takes the end at which it begins to rise.
void EnterBounds(SweepInput& input, const std::vector<gpc_vertex>& vertices, std::size_t step,
                 Role role, gpc_op operation) {
    const std::size_t n = vertices.size();
    for (std::size_t i = 0; i < n; ++i) {
        const bool minimum = vertices[(i + n - step) % n].y >= vertices[i].y &&
                             vertices[(i + step) % n].y > vertices[i].y;
        if (!minimum)
            continue;
        Edge* last = nullptr;
        Edge* first = nullptr;
        for (std::size_t v = i; vertices[(v + step) % n].y > vertices[v].y; v = (v + step) % n) {
            input.edges.push_back(MakeEdge(vertices[v], vertices[(v + step) % n], role, operation));
            Edge* edge = &input.edges.back();
            (last ? last->succ : first) = edge;
            last = edge;
        }
        EnterBound(input.minima, first);
    }
}

void EnterPolygon(SweepInput& input, const gpc_polygon& polygon, const std::vector<bool>& leftOut,
                  Role role, gpc_op operation) {
    for (int c = 0; c < polygon.num_contours; ++c) {
        if (!leftOut.empty() && leftOut[static_cast<std::size_t>(c)])
            continue;
        const std::vector<gpc_vertex> vertices = KeptVertices(polygon.contour[c]);
        for (const gpc_vertex& v : vertices)
            EnterOrdinate(input.ordinates, v.y);
        EnterBounds(input, vertices, 1, role, operation);
        if (!vertices.empty())
            EnterBounds(input, vertices, vertices.size() - 1, role, operation);
    }
}

} // namespace

bool GoesBehind(const Edge& edge, const Edge& other) {
    return edge.xb > other.xb || (edge.xb == other.xb && edge.dx > other.dx);
}

SweepInput BuildSweepInput(gpc_op operation, const gpc_polygon& subject, const gpc_polygon& clip) {
    std::vector<bool> subjectLeftOut;
    std::vector<bool> clipLeftOut;
    const bool prune = operation == GPC_DIFF || operation == GPC_INT;
    if (prune && subject.num_contours > 0 && clip.num_contours > 0) {
        clipLeftOut = ContoursWithoutOverlap(clip, subject);
        if (operation == GPC_INT)
            subjectLeftOut = ContoursWithoutOverlap(subject, clip);
    }
    SweepInput input;
    EnterPolygon(input, subject, subjectLeftOut, SUBJECT, operation);
    EnterPolygon(input, clip, clipLeftOut, CLIP, operation);
    return input;
}

} // namespace geom::test
