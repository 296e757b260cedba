// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"

#include <cstdio>

/// \file
/// The polygon set-operation engine: polygons with holes as plain records, their intersection,
/// union, difference and exclusive-or, their decomposition into triangle strips, and their
/// text and binary files.
///
/// A record with a zero count and null pointers is the empty value. All arrays are single
/// blocks from malloc, owned by their record and released by gpc_free_polygon or
/// gpc_free_tristrip. Every failed allocation throws a kit::Exception of module "GPC Library"
/// whose message begins with "GPCAlloc failure: ". The functions keep no state between calls:
/// different records may be used from different threads, and one record may be an operand in
/// several threads at once.

namespace geom {

/// One point.
struct gpc_vertex {
    double x;
    double y;
};

/// One contour or one triangle strip. A contour is closed implicitly: its last vertex joins
/// the first, which is not repeated. `vertex` is null when the count is 0.
struct gpc_vertex_list {
    int num_vertices;
    gpc_vertex* vertex;
};

/// A polygon: contours, each flagged as external (0) or hole (not 0). Both arrays are null
/// when the count is 0.
struct gpc_polygon {
    int num_contours;
    int* hole;
    gpc_vertex_list* contour;
};

/// Triangle strips. The array is null when the count is 0.
struct gpc_tristrip {
    int num_strips;
    gpc_vertex_list* strip;
};

/// A set operation. The values are fixed.
enum gpc_op : int {
    GPC_DIFF = 0, ///< subject minus clip
    GPC_INT = 1,  ///< intersection
    GPC_XOR = 2,  ///< exclusive or
    GPC_UNION = 3 ///< union
};

static_assert(sizeof(gpc_vertex) == 2 * sizeof(double), "vertices are pairs of doubles");

/// Reads a polygon from text: the contour count; for each contour its vertex count, its hole
/// flag when `read_hole_flags` is not 0, and its vertices as pairs of numbers; all separated
/// by white space.
///
/// The record's previous content is overwritten, not released. Whether a file holds hole flags
/// is not recorded in it: reader and writer must use the same setting. Without flags every
/// contour is external. A line that ends after x leaves that vertex's y at 0. A point is the
/// decimal separator in every locale; otherwise numbers are those of fscanf, and the stream is
/// left where fscanf leaves it. A count or flag beyond 32 bits is taken as the nearest one
/// within them.
///
/// \return false when an argument is null, which leaves the record alone, or the input ends
/// early or is no number. The record then holds what was read; entries not read are zero, so it
/// can be released with gpc_free_polygon. Its counts are those of the file, but never more than
/// the entries that exist: arrays grow with what is really read, from 65,536 entries at most.
/// Throws when an allocation fails, which a negative count always does; the record can be
/// released then, too.
GEOM_API bool gpc_read_polygon(std::FILE* stream, int read_hole_flags, gpc_polygon* polygon);

/// Writes a polygon as text, with 15 digits after the decimal point; a coordinate that is not
/// negative has a blank in the place of the sign.
///
/// \return false when an argument is null, the record has a count without its array, or a write
/// fails; the file is then truncated. Of a buffered stream, only what is flushed can fail.
GEOM_API bool gpc_write_polygon(std::FILE* stream, int write_hole_flags,
                                const gpc_polygon* polygon);

/// Reads a polygon from binary data without header or trailer: a 32-bit contour count; for
/// each contour a 32-bit vertex count, a 32-bit hole flag when `read_hole_flags` is not 0, and
/// the vertices as pairs of 64-bit doubles; all little-endian. Otherwise as gpc_read_polygon.
GEOM_API bool gpc_read_polygon_binary(std::FILE* stream, int read_hole_flags, gpc_polygon* polygon);

/// Writes a polygon in the form that gpc_read_polygon_binary reads.
///
/// \return false when an argument is null, the record has a count without its array, or a write
/// fails; the file is then truncated. Of a buffered stream, only what is flushed can fail.
GEOM_API bool gpc_write_polygon_binary(std::FILE* stream, int write_hole_flags,
                                       const gpc_polygon* polygon);

/// Appends a deep copy of a contour with the given hole flag. The caller keeps `contour`.
/// It may be one of the polygon's own. When an allocation fails (a negative count always does)
/// the polygon is unchanged. A null argument, or a count without its array, is an internal error
/// of module "Geometry" and file "Gpc".
///
/// Time: linear in the contour, and over many calls constant for those that are there already.
/// The polygon's arrays may be moved and may have room to spare.
GEOM_API void gpc_add_contour(gpc_polygon* polygon, const gpc_vertex_list* contour, int hole);

/// Computes a set operation on two polygons.
///
/// Inside is decided by even-odd parity over all contours of a polygon; the hole flags of the
/// operands are ignored and those of the result computed. Contours may cross themselves and
/// each other. The operands are not changed. `result` is overwritten without being released,
/// except that it may be one of the operands, which is then released and replaced. After an
/// exception the result must not be read.
///
/// Coordinates are used exactly as given. Edges within 2^-52 of each other are taken as one, an
/// absolute bound: polygons of about that size are not cut correctly. With coordinates that
/// are not finite the call returns some result or throws an Exception, in bounded time.
///
/// Throws GPCException when nearly degenerate input makes the sweep inconsistent.
///
/// Time: about (n + k) log n for n vertices and k crossings of edges.
///
/// The method is the scanbeam sweep of Vatti, "A generic solution to polygon clipping",
/// Communications of the ACM 35 (1992).
GEOM_API void gpc_polygon_clip(gpc_op operation, const gpc_polygon* subject,
                               const gpc_polygon* clip, gpc_polygon* result);

/// As gpc_polygon_clip, with the result as triangle strips. The strips' previous content is
/// overwritten without being released. In a union each vertex of the result takes time for the
/// edges inside beside it, too.
///
/// In general position the strips cover the result exactly. Where vertices of the operands
/// coincide, or several edges cross in nearly one point, a triangle can be missing: a bound that
/// starts exactly at the right end of another's horizontal top, for example, is compared with
/// the carried edge's position, and the union of the square (0,0)-(2,2) with the triangle
/// (2,2), (1,4), (0,4) lacks half of the square. The contours of gpc_polygon_clip are not
/// affected.
GEOM_API void gpc_tristrip_clip(gpc_op operation, const gpc_polygon* subject,
                                const gpc_polygon* clip, gpc_tristrip* result);

/// Decomposes a polygon's own area (even-odd over its contours) into triangle strips.
GEOM_API void gpc_polygon_to_tristrip(const gpc_polygon* polygon, gpc_tristrip* result);

/// Releases a polygon's arrays and leaves the empty record. Safe on the empty record and on
/// null; negative counts are taken as 0.
GEOM_API void gpc_free_polygon(gpc_polygon* polygon);

/// Releases the strips and leaves the empty record. Safe on the empty record and on null;
/// negative counts are taken as 0.
GEOM_API void gpc_free_tristrip(gpc_tristrip* strips);

} // namespace geom
