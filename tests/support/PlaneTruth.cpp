// SPDX-License-Identifier: MIT
#include "tests/support/PlaneTruth.h"

#include <algorithm>
#include <cmath>

namespace geom::test {

namespace {

struct Segment {
    gpc_vertex low;
    gpc_vertex high;
    bool ofSubject;
};

double XAt(const Segment& s, double y) {
    return s.low.x + (s.high.x - s.low.x) * ((y - s.low.y) / (s.high.y - s.low.y));
}

template <typename Visit>
void ForEachEdge(const Rings& rings, Visit visit) {
    for (const Ring& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i)
            visit(ring[i], ring[(i + 1) % ring.size()]);
}

/// The edges that are not horizontal.
void Collect(const Rings& rings, bool ofSubject, std::vector<Segment>& segments) {
    ForEachEdge(rings, [&](const gpc_vertex& a, const gpc_vertex& b) {
        if (a.y < b.y)
            segments.push_back({a, b, ofSubject});
        else if (b.y < a.y)
            segments.push_back({b, a, ofSubject});
    });
}

/// The ordinates of all ends and crossings, ascending.
std::vector<double> SlabBorders(const std::vector<Segment>& segments) {
    std::vector<double> borders;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        borders.push_back(segments[i].low.y);
        borders.push_back(segments[i].high.y);
        for (std::size_t j = 0; j < i; ++j) {
            const double low = std::max(segments[i].low.y, segments[j].low.y);
            const double high = std::min(segments[i].high.y, segments[j].high.y);
            if (!(low < high))
                continue;
            const double gapLow = XAt(segments[i], low) - XAt(segments[j], low);
            const double gapHigh = XAt(segments[i], high) - XAt(segments[j], high);
            if ((gapLow < 0 && gapHigh > 0) || (gapLow > 0 && gapHigh < 0))
                borders.push_back(low + (high - low) * (gapLow / (gapLow - gapHigh)));
        }
    }
    std::sort(borders.begin(), borders.end());
    borders.erase(std::unique(borders.begin(), borders.end()), borders.end());
    return borders;
}

/// The length on which the operation holds along the line at y.
double WidthAt(double y, gpc_op operation, const std::vector<Segment>& segments) {
    struct Cut {
        double x;
        bool ofSubject;
    };
    std::vector<Cut> cuts;
    for (const Segment& s : segments)
        if (s.low.y < y && y < s.high.y)
            cuts.push_back({XAt(s, y), s.ofSubject});
    std::sort(cuts.begin(), cuts.end(), [](const Cut& a, const Cut& b) { return a.x < b.x; });
    double width = 0;
    bool inSubject = false;
    bool inClip = false;
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
        bool& inside = cuts[i].ofSubject ? inSubject : inClip;
        inside = !inside;
        if (Holds(operation, inSubject, inClip))
            width += cuts[i + 1].x - cuts[i].x;
    }
    return width;
}

} // namespace

bool Holds(gpc_op operation, bool inSubject, bool inClip) {
    switch (operation) {
    case GPC_DIFF: return inSubject && !inClip;
    case GPC_INT: return inSubject && inClip;
    case GPC_XOR: return inSubject != inClip;
    case GPC_UNION: return inSubject || inClip;
    }
    return false;
}

bool IsInside(const Rings& rings, gpc_vertex point) {
    std::vector<Segment> segments;
    Collect(rings, true, segments);
    bool inside = false;
    for (const Segment& s : segments)
        if (s.low.y <= point.y && point.y < s.high.y && XAt(s, point.y) < point.x)
            inside = !inside;
    return inside;
}

bool IsNextToAnEdge(const Rings& rings, gpc_vertex point, double distance) {
    bool next = false;
    ForEachEdge(rings, [&](const gpc_vertex& a, const gpc_vertex& b) {
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        double along = 0;
        if (length > 0)
            along = ((point.x - a.x) * (b.x - a.x) + (point.y - a.y) * (b.y - a.y)) / length;
        const double t = length > 0 ? std::min(1.0, std::max(0.0, along / length)) : 0;
        const double dx = a.x + t * (b.x - a.x) - point.x;
        const double dy = a.y + t * (b.y - a.y) - point.y;
        next = next || std::hypot(dx, dy) <= distance;
    });
    return next;
}

double AreaOf(gpc_op operation, const Rings& subject, const Rings& clip) {
    std::vector<Segment> segments;
    Collect(subject, true, segments);
    Collect(clip, false, segments);
    const std::vector<double> borders = SlabBorders(segments);
    double area = 0;
    for (std::size_t i = 0; i + 1 < borders.size(); ++i) {
        const double height = borders[i + 1] - borders[i];
        area += height * WidthAt(borders[i] + height / 2, operation, segments);
    }
    return area;
}

double AreaOf(const Rings& rings) {
    return AreaOf(GPC_XOR, rings, {});
}

double SignedRingArea(const Ring& ring) {
    double sum = 0;
    for (std::size_t i = 2; i < ring.size(); ++i) {
        const gpc_vertex& a = ring[i - 1];
        const gpc_vertex& b = ring[i];
        sum += (a.x - ring[0].x) * (b.y - ring[0].y) - (b.x - ring[0].x) * (a.y - ring[0].y);
    }
    return sum / 2;
}

double AreaTolerance(const Operands& operands) {
    double largest = 1; // of the absolute bound
    double lengths = 0;
    for (const Rings* rings : {&operands.subject, &operands.clip}) {
        ForEachEdge(*rings, [&](const gpc_vertex& a, const gpc_vertex& b) {
            largest = std::max({largest, std::fabs(a.x), std::fabs(a.y)});
            lengths += std::fabs(b.x - a.x) + std::fabs(b.y - a.y);
        });
    }
    return 2 * 0x1p-50 * largest * lengths;
}

} // namespace geom::test
