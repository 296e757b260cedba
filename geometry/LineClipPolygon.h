// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"
#include "geometry/LineSegment2.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace geom {

class GpcPolygon;
class Polyline;

/// Cuts segments and polylines at the boundary of a polygon and keeps the pieces inside.
///
/// The polygon may have holes and several islands: its rings are run as one sequence of edges,
/// joined by edges that are run once each way, and inside is what an odd number of edges
/// separates from the outside. Built once, the object never changes, so several threads may
/// clip with it at once. An index over the edges is built with it: a short segment that is near
/// no edge costs the same for any number n of edges, another one about log n plus the edges near
/// it, and the results are to the bit those of looking at every edge.
///
/// Pieces run from their smaller to their larger end, by x and then y, whatever the direction
/// of the input. A stretch that runs along the boundary is kept when the piece below it in that
/// order is kept; a segment that lies wholly on the boundary gives nothing. Where the boundary
/// only touches a segment, it does not cut it. Pieces no longer than 1e-5 are dropped.
///
/// An empty polygon lets every segment pass and contains no point. Coordinates that are not
/// finite give some result; nothing is checked.
///
/// Exhausted memory is reported as the foundation's out-of-memory error of module "Geometry"
/// and file "LineClipPolygon", except that output vectors throw what they throw; more vertices
/// than an int counts (line 105), and a run that would grow beyond what 32 bits count (line 106),
/// are internal errors of that file. A failed call may have appended some pieces.
class GEOM_API LineClipPolygon {
public:
    /// Receives a piece, from its smaller to its larger end; `context` is the caller's.
    using PieceCallback = void (*)(const Vec2d& first, const Vec2d& second, void* context);

    /// Without edges, and with the empty box.
    LineClipPolygon();
    /// `ringCount` rings, implicitly closed; ring i takes the next counts[i] points.
    LineClipPolygon(const Vec2d* points, const unsigned int* counts, std::size_t ringCount);
    explicit LineClipPolygon(const GpcPolygon& polygon);
    /// The copy has one contour, which joins all contours of the other one.
    LineClipPolygon(const LineClipPolygon& other);
    /// As the copy constructor; when memory is exhausted the polygon is left empty or without
    /// its index.
    LineClipPolygon& operator=(const LineClipPolygon& other);
    virtual ~LineClipPolygon();

    std::size_t GetNumContours() const;
    /// The vertices of the first contour, the closing one included; 0 for any other index.
    /// Walks the contour.
    std::size_t GetContourVertexCount(std::size_t index) const;
    /// The vertices of all contours, closing ones included. Walks the contours.
    std::size_t GetTotalVertexCount() const;
    Box2d GetBBox() const;
    /// Appends the vertices of each contour, closed by its first one.
    void GetPolygon(std::vector<Vec2d>& out) const;
    /// True for a single contour of four axis-parallel edges whose first edge is horizontal; a
    /// rectangle whose first edge is vertical is not recognised. The box, which may be null,
    /// then receives the fourth vertex as its minimum and the second as its maximum, not
    /// normalised.
    bool IsRectangle(Box2d* box) const;
    /// True when a horizontal piece of the inside ends exactly at the point: true for points
    /// strictly inside, false for points outside; for points on the boundary it depends on
    /// where the inside lies.
    bool PointInside(const Vec2d& p) const;

    /// Appends the pieces of each of the polyline's segments, in their order.
    void Clip(const Polyline& line, std::vector<LineSegment2>& out) const;
    /// Appends the pieces of a segment, which may be an element of the output.
    void Clip(const LineSegment2& segment, std::vector<LineSegment2>& out) const;
    /// Appends the pieces of the n - 1 segments between n points, in order; fewer than 2 points
    /// have none. The points may lie in the output's storage.
    void Clip(const Vec2d* points, std::size_t n, std::vector<LineSegment2>& out) const;
    /// The same, with pieces that meet within 1e-5 joined to runs: appends the points of the
    /// runs and the number of points of each.
    ///
    /// A piece joins the run that ends the output, also one that the caller left there, at its
    /// last point; a run of two points may be reversed for that, and is left reversed when the
    /// piece fits at neither end. The points may lie in the output's storage.
    void Clip(const Vec2d* points, std::size_t n, std::vector<Vec2d>& outPoints,
              std::vector<unsigned int>& outCounts) const;

protected:
    /// A boundary edge, or a segment to be clipped (without neighbours).
    struct SEGMENT {
        double startX, startY;
        double endX, endY;
        SEGMENT* next; ///< the neighbours in the ring: the first edge follows the last one
        SEGMENT* prev;
    };

    /// A closed boundary.
    struct CONTOUR {
        std::uint16_t flags; ///< bit 0 set: pieces inside are kept; clear: a hole
        SEGMENT* segments;   ///< the first edge of the ring; owned, from malloc
        CONTOUR* next;       ///< null at the end of the list
        double minX, minY;   ///< the box of all points that made the contour
        double maxX, maxY;
    };

    /// A point on a segment to be clipped.
    struct CLIST {
        double x, y;
        std::uint16_t kind; ///< 1 at an end of an overlap with an edge, else 0
    };

    void Construct(const GpcPolygon& polygon);
    void Construct(const LineClipPolygon& other);

    /// Appends a contour of n points to a list. Runs of collinear edges become one edge, but
    /// the first edge is never merged with the last. Without points it does nothing. When
    /// memory is exhausted the list is unchanged.
    void def_contour(CONTOUR** list, const Vec2d* points, int n, int hole);
    /// Frees all contours of a list.
    void del_contours(CONTOUR** list);
    /// The first contour's box, widened by those of all following contours but the last one;
    /// false and (0, 0, 0, 0) for an empty list.
    bool contours_bbox(CONTOUR** list, Box2d& box) const;

    /// Hands out the pieces of a segment that every contour of a list lets pass. Swaps the
    /// segment's ends when they are not in order.
    void clip_to_contours(CONTOUR* contour, SEGMENT* segment, PieceCallback callback,
                          void* context) const;
    /// Appends the crossings of a segment with a contour to a list of malloc, which may move,
    /// and sorts the whole list by x, then y; equal points keep their order.
    void cross_calc(const CONTOUR* contour, SEGMENT* segment, CLIST** list, long* count,
                    long capacity) const;
    /// 1 when two points lie on the same side of a segment's line, -1 on opposite sides, 0 when
    /// either lies on it.
    int p_where(const Vec2d* a, const Vec2d* b, const SEGMENT* segment) const;
    /// Whether a point lies strictly inside a contour.
    bool p_inside(const CONTOUR* contour, const Vec2d* p) const;
    /// Whether a point lies exactly on an edge of a contour.
    bool on_contour(const CONTOUR* contour, const Vec2d* p) const;
    /// Whether the boxes of a contour and a segment do not meet.
    bool disjunct(const CONTOUR* contour, const SEGMENT* segment) const;

    CONTOUR* contours; ///< the first contour; owned
    Box2d bbox;

private:
    struct RingIndex;
    class LinkedEdge;
    struct CrossingList;

    void FreeAll();
    void BuildIndex(std::size_t mostEdges);
    const RingIndex* IndexOf(const CONTOUR* contour) const;
    static double ProbeStart(const CONTOUR* contour);
    template <typename Visit>
    void VisitEdgesNear(const CONTOUR* contour, const SEGMENT& segment, Visit visit) const;
    bool Gather(const CONTOUR* contour, const SEGMENT& segment, CrossingList& list) const;
    bool ShortProbeIsOdd(const CONTOUR* contour, const SEGMENT& probe, double fromX) const;
    bool ProbeIsOdd(const CONTOUR* contour, const Vec2d& p) const;
    bool DecideBeside(const CONTOUR* contour, const CLIST& from, const CLIST& to,
                      bool& inside) const;
    bool DecideStart(const CONTOUR* contour, CrossingList& list, bool& inside) const;

    std::unique_ptr<const RingIndex> m_index; ///< of the contour it was built for; may be null
};

} // namespace geom
