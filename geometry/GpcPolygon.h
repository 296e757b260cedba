// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"
#include "geometry/Gpc.h"

#include <cstddef>
#include <vector>

namespace geom {

/// A polygon of any number of contours, each flagged as external or hole, with its bounding
/// box and the set operations of the engine run in place.
///
/// It is the engine's record with one field more, so it is passed to the engine's functions as
/// it is; whoever changes its contours that way leaves the cached box behind. Contours are
/// stored open: the last vertex does not repeat the first. A polygon owns its arrays and is
/// copied deeply; a moved-from polygon is empty.
///
/// What is inside is decided by even-odd parity over all contours. Distinct polygons may be
/// used from different threads, and one polygon may be read from several threads at once.
///
/// Errors of the class are reported as a kit::Exception of module "Geometry" and file
/// "GpcPolygon": an exhausted heap as out of memory, and points or counts that are null where
/// some are needed as an internal error. Errors of the engine pass unchanged.
class GEOM_API GpcPolygon : public gpc_polygon {
public:
    /// The empty polygon: no contours, and the empty box.
    GpcPolygon();
    /// One external contour of n points. A last point that equals the first exactly is left
    /// out, here and wherever contours are made from points; a ring of one point is its own
    /// closing duplicate and gives a contour of 0 vertices.
    GpcPolygon(const Vec2d* pts, std::size_t n);
    /// The same from integer points, which are converted exactly.
    GpcPolygon(const tagPOINT* pts, std::size_t n);
    /// numContours external contours; contour i takes the next counts[i] points.
    GpcPolygon(const Vec2d* pts, const unsigned int* counts, std::size_t numContours);
    /// The same from integer points, which are converted exactly.
    GpcPolygon(const tagPOINT* pts, const unsigned int* counts, std::size_t numContours);
    /// The rectangle (left, top), (right, top), (right, bottom), (left, bottom). A rectangle of
    /// zero area gives the empty polygon.
    GpcPolygon(double left, double top, double right, double bottom);
    /// The rectangle (left, top), (right, top), (right, bottom), (left, bottom), also when it
    /// has no area.
    GpcPolygon(const tagRECT& r);
    GpcPolygon(const GpcPolygon& other);
    GpcPolygon(GpcPolygon&& other) noexcept;
    /// Replaces the contents by a deep copy; a failed allocation leaves the polygon empty.
    GpcPolygon& operator=(const GpcPolygon& other);
    GpcPolygon& operator=(GpcPolygon&& other) noexcept;
    ~GpcPolygon();

    std::size_t GetNumContours() const;
    /// The vertex count of contour i. An index out of range is an internal error.
    std::size_t GetContourVertexCount(std::size_t i) const;
    /// The sum of the vertex counts of all contours.
    std::size_t GetTotalVertexCount() const;
    /// The cached box of all vertices; the empty box when there are none.
    const Box2d& GetBBox() const;
    /// True when the polygon is one contour of four vertices p0 to p3, exactly axis-aligned,
    /// whose first edge is horizontal; a rectangle whose first edge is vertical is not
    /// recognised. The box then receives p3 as its minimum and p1 as its maximum, not
    /// normalised; it may be null.
    bool IsRectangle(Box2d* box) const;
    /// True for points inside the polygon.
    ///
    /// For rectangles (see IsRectangle) the boundary belongs to the inside. Otherwise the
    /// polygon is intersected with the quadrants above right and below left of the point, which
    /// is inside when it is a vertex of either result; so a point on the boundary is inside when
    /// it survives there as a vertex. Costs up to two set operations.
    bool PointInside(const Vec2d& p) const;

    /// Writes the contours one after another, holes like external contours: the vertices to
    /// pts, followed by the contour's first vertex again when close is true, and the number of
    /// points written for contour i to counts[i]. An empty contour has count 0. Either array may
    /// be null and is skipped then. Returns the total number of points.
    std::size_t GetPolyPolygon(Vec2d* pts, unsigned int* counts, bool close) const;
    /// The same, rounded to integers: half away from zero, limited to the range of 32 bits, not
    /// a number to 0. The half is added before the fraction is cut off, so the double just below
    /// 0.5, 0.49999999999999994, gives 1.
    std::size_t GetPolyPolygon(tagPOINT* pts, unsigned int* counts, bool close) const;
    /// The same into vectors, whose contents are replaced. Unchanged when the heap is exhausted.
    std::size_t GetPolyPolygon(std::vector<Vec2d>& pts, std::vector<unsigned int>& counts,
                               bool close) const;
    std::size_t GetPolyPolygon(std::vector<tagPOINT>& pts, std::vector<unsigned int>& counts,
                               bool close) const;

    /// Writes all contours as one ring and returns the number of points.
    ///
    /// A single contour is closed by its first vertex. Of several, each is closed by its own
    /// first vertex, and then the first vertices of all but the last contour follow backwards,
    /// so that the ring runs back to its start along paths of zero width:
    ///
    ///     a0 a1 a2 a0  b0 b1 b2 b0  c0 c1 c2 c0  b0 a0
    ///
    /// Empty contours among several contribute nothing. pts may be null to count only.
    std::size_t GetPolygon(Vec2d* pts) const;
    /// The same, rounded as in GetPolyPolygon.
    std::size_t GetPolygon(tagPOINT* pts) const;
    /// The same into a vector, whose content is replaced. Unchanged when the heap is exhausted.
    std::size_t GetPolygon(std::vector<Vec2d>& pts) const;
    std::size_t GetPolygon(std::vector<tagPOINT>& pts) const;

    /// Becomes the intersection with the other polygon.
    ///
    /// The four set operations leave the polygon as it was when they throw. When the engine
    /// throws GPCException, the operation is repeated once on copies of both operands whose
    /// coordinates are rounded to single precision; a second failure is thrown. With the
    /// polygon itself as operand, Intersection and Union change nothing, Difference and XOR
    /// make it empty.
    void Intersection(const GpcPolygon& other);
    /// Becomes the union with the other polygon, as in Intersection.
    void Union(const GpcPolygon& other);
    /// Loses the other polygon's area, as in Intersection.
    void Difference(const GpcPolygon& other);
    /// Becomes the area that exactly one of both polygons covers, as in Intersection.
    void XOR(const GpcPolygon& other);

    /// Appends all contours of a polygon with their hole flags, without any set operation. The
    /// other polygon may be this one, which doubles its contours. When an allocation fails the
    /// polygon is unchanged.
    void AddContours(const GpcPolygon& other);
    /// Appends external contours; contour i takes the next counts[i] points, less a closing
    /// duplicate. When an allocation fails the polygon is unchanged.
    void AddContours(const Vec2d* pts, const unsigned int* counts, std::size_t numContours);

    /// Intersects the polygon with its own box, which removes edges that run once in each
    /// direction, as in the rings of GetPolygon. A polygon whose box has no area becomes empty.
    void RemoveZeroWidthReturnPaths();

    /// Decomposes the polygon into triangle strips and hands out each: its vertices, their
    /// number, and the caller's pointer. The points are valid during the call. Returns false
    /// when a callback did, which ends the decomposition; an exception of the callback passes.
    /// When the engine throws GPCException, a copy rounded to single precision is decomposed
    /// instead.
    bool Decompose(bool (*callback)(const Vec2d* pts, unsigned int n, void* user),
                   void* user) const;
    /// Decomposes the polygon and appends the outline of each strip as a ring: the order of
    /// TriStripToCWPolygon, closed by the first point again. Returns true. Unchanged when it
    /// throws.
    bool Decompose(std::vector<std::vector<Vec2d>>& out) const;

    /// Writes the polygon to the file's stream in the engine's text format, with hole flags.
    /// A failed write is reported as the foundation's write error with the file's name. The
    /// file is neither flushed nor closed.
    void DumpToTextFile(CBufferedFile& file) const;
    /// Replaces the polygon by one that is read from the stream's position in the engine's text
    /// format, with hole flags. Input that ends early or is no number is reported as the
    /// foundation's read error with the file's name; the polygon then holds what was read, with
    /// the empty box, and is good for nothing but to be released, assigned or loaded again.
    void LoadFromTextFile(CBufferedFile& file);
    /// As DumpToTextFile, in the engine's binary format.
    void DumpToBinaryFile(CBufferedFile& file) const;
    /// As LoadFromTextFile, in the engine's binary format.
    void LoadFromBinaryFile(CBufferedFile& file);

private:
    using GPCContourList = gpc_polygon;
    enum class SetOperation { Intersection = 0, Union = 1, Difference = 2, XOR = 3 };

    void Construct(const GPCContourList& source);
    template <typename Point>
    void ConstructFromPoints(const Point* pts, const unsigned int* counts, std::size_t numContours);
    template <typename Point>
    void ConstructFromRing(const Point* pts, std::size_t n);
    template <typename Point>
    void SetContour(int i, const Point* pts, std::size_t n, int holeFlag,
                    bool dropClosingDuplicate);
    void AllocateContourList(std::size_t n);
    [[noreturn]] void HandleUnallocatedContour(int i);
    void GetQuantizedToFloat(GpcPolygon& out) const;
    void MoveTo(GpcPolygon& target);
    void Combine(const GpcPolygon& other, SetOperation operation);
    static gpc_op EngineOperation(SetOperation operation);
    static void ClipOrRetry(gpc_op operation, const GpcPolygon& subject, const GpcPolygon& clip,
                            GpcPolygon& result);
    void ToTriStripOrRetry(gpc_tristrip& strips) const;
    void CalcBBox();
    void ExtendBBox(const gpc_vertex_list& ring);
    void FreeAll();

    Box2d bbox;
};

} // namespace geom
