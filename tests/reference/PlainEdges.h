// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Gpc.h"

#include <deque>
#include <vector>

/// \file
/// What the plain sweep walks over: the edges of both polygons, chained into bounds that rise
/// from a local minimum to a local maximum, and the ordinates that cut the plane into
/// scanbeams.

namespace geom::test {

enum Side { ABOVE, BELOW };
enum Role { CLIP, SUBJECT };

/// Edges that coincide over a scanbeam act as one bundle. The last of them in list order is
/// its head and speaks for all, the others are its tails.
enum class Bundling { None, Head, Tail };

constexpr int NO_PIECE = -1;

struct Edge {
    gpc_vertex bot;
    gpc_vertex top;
    double dx;          ///< change of x per unit of y
    double xb;          ///< x at the bottom of the current scanbeam
    double xt;          ///< x at its top
    Role role;          ///< the polygon that it belongs to
    int bundle[2][2];   ///< [side][role]: whether that polygon has an edge in its bundle
    int bside[2];       ///< [role]: whether the right of that polygon's inside lies here
    Bundling bstate[2]; ///< [side]
    int outp[2];        ///< [side]: the piece of output attached, or NO_PIECE
    Edge* succ;         ///< the next edge of the same bound
};

/// The first edges of all bounds that start at one ordinate, by x, then by slope.
struct Minimum {
    double y;
    std::vector<Edge*> bounds;
};

struct SweepInput {
    std::deque<Edge> edges;
    std::vector<Minimum> minima;   ///< by ascending y
    std::vector<double> ordinates; ///< ascending, each once
};

/// \return whether `edge` stands strictly behind `other` on a scanline at their lower ends: by x,
/// then by slope. Edges that are equal in both keep the order in which they came.
bool GoesBehind(const Edge& edge, const Edge& other);

/// Cuts the contours into bounds. Contours that cannot take part in an intersection or a
/// difference, by their boxes, are left out.
SweepInput BuildSweepInput(gpc_op operation, const gpc_polygon& subject, const gpc_polygon& clip);

} // namespace geom::test
