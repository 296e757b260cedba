// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "tests/support/PolygonFamilies.h"

#include <vector>

/// \file
/// The inputs of the workloads. Every function gives the same input on every run; sizes are
/// numbers of vertices unless said otherwise.

namespace geom::bench {

using test::Ring;

/// Rings that together are one area by the even-odd rule. A hole follows its outer ring.
struct Region {
    std::vector<Ring> rings;
    std::vector<int> holes;
};

struct Regions {
    Region subject;
    Region clip;
};

/// Polylines one after the other.
struct Lines {
    std::vector<Vec2d> points;
    std::vector<unsigned int> counts;
};

std::size_t VertexCount(const Region& region);
Box2d BoundingBox(const Region& region);
Region MovedBy(Region region, double dx, double dy);

// Pairs of operands; a size is that of each operand.

/// Two circles whose radii scatter by one edge length: about size / 2 crossings.
Regions NoisyStars(int size);
/// Two stars of eleven round rays; the crossings do not grow with the size.
Regions SmoothStars(int size);
/// Radii anywhere between half and all of the largest: a third of all edges is cut by any one
/// horizontal line.
Regions Spikes(int size);
/// Separate squares, and one blob over most of them.
Regions SquaresAndBlob(int size);
/// Separate squares, each over four of the other operand.
Regions TwoGrids(int size);
/// Teeth that stand and teeth that lie across all of them; a size is a number of teeth.
Regions Combs(int teeth);
/// Two upright bands with zigzag borders: few active edges at any height.
Regions TallSaws(int size);
/// Triangles that share all their borders, and a blob.
Regions MeshAndBlob(int size);
/// A map that was read, and the same map beside itself, as drawn from an imprecise survey.
Regions MapAndShifted(const char* file);
/// A map that was read, and a star of 1,000 vertices over a good part of it.
Regions MapAndStar(const char* file);

// Single regions.

/// A polygon file of the data folder.
const Region& Map(const char* file);
Region NoisyStar(int size);
/// A smooth star with nine square holes around its centre.
Region StarWithHoles(int size);
Region Circle(int size);
/// A blob of 100 vertices around the middle of a box.
Region Blob(const Box2d& box);

// Points and lines.

Ring LargeStar(int size);
/// Random walks of so many points each, all over a box.
Lines Walks(int lines, int pointsEach, const Box2d& box);
/// A winding line of unit steps.
Lines UnitSteps(int size);
std::vector<Vec2d> UniformPoints(int size, std::uint64_t seed);
/// 1,000 clusters; the widest is 10,000 times as wide as the narrowest.
std::vector<Vec2d> ClusteredPoints(int size, std::uint64_t seed);
/// Rings of four to six points, some of them repeated or all in one place.
Region DirtyRings(int rings);

} // namespace geom::bench
