// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PolygonFamilies.h"

/// \file
/// What a set operation must give, found without a sweep: membership of a point by counting the
/// edges to its left, areas by cutting the plane into slabs in which no edges cross.

namespace geom::test {

/// \return whether the operation holds for a place, by whether it lies in each operand.
bool Holds(gpc_op operation, bool inSubject, bool inClip);

/// Even-odd membership over all rings. Reliable for points that are not next to an edge.
bool IsInside(const Rings& rings, gpc_vertex point);

/// \return whether a point lies within a distance of an edge.
bool IsNextToAnEdge(const Rings& rings, gpc_vertex point, double distance);

/// The area of the operation's result, both operands read even-odd.
double AreaOf(gpc_op operation, const Rings& subject, const Rings& clip);

/// The even-odd area of one set of rings.
double AreaOf(const Rings& rings);

/// The area that a ring encloses, positive when it runs counter-clockwise.
double SignedRingArea(const Ring& ring);

/// How far apart two computations of an area of these operands may be. A computed point of an
/// edge lies within 2^-50 of the largest coordinate of the true edge along x, or, for edges taken
/// as one, within the absolute 2^-52, and its ordinate is rounded; so an edge contributes at most
/// that much times its extent. The factor allows for edges that are cut and computed several
/// times.
double AreaTolerance(const Operands& operands);

} // namespace geom::test
