// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Export.h"
#include "geometry/Foundation.h"
#include "geometry/LineSegment2.h"
#include "geometry/LineSegment3.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom {

class Polyline;

/// Splits polylines of the plane into the visible pieces of a repeating dash pattern.
///
/// A pattern is a list of lengths: the first visible stretch, the gap behind it, the next
/// visible stretch and so on, and from the first length again. With an odd number of lengths
/// the roles swap at each repetition: (1, 2, 3) is 1 on, 2 off, 3 on, 1 off, 2 on, 3 off.
///
/// The generator carries the phase of its pattern from polyline to polyline: one that starts
/// exactly where the last one ended goes on where that one stopped, any other starts the
/// pattern afresh. So one generator serves one thread at a time; separate ones are independent.
///
/// Lengths are used as they are, zero, negative or not finite, but a walk always ends:
/// - a pattern whose lengths do not sum to more than 0 draws polylines solid;
/// - a segment whose length is not finite, or that would need more than 2^32 cycles of the
///   pattern, passes with the pen as it is, and the pattern goes on behind it.
///
/// Errors are reported as a kit::Exception of module "Geometry" and file "DashLineGenerator".
class GEOM_API DashLineGenerator {
public:
    /// Receives a piece, from its first to its second point; `context` is the caller's.
    using PieceCallback = void (*)(const Vec2d& first, const Vec2d& second, void* context);

    /// Takes over `count` lengths. No lengths at all mean the single length 0, which draws
    /// solid. A null array with a count above 0 is an internal error; an exhausted heap is the
    /// out-of-memory error, and so are more lengths than an int counts.
    DashLineGenerator(const double* dashes, std::size_t count);
    /// Copies the pattern and the phase.
    DashLineGenerator(const DashLineGenerator& other);
    /// Copies the pattern and the phase. When that fails the pattern is empty, and nothing is
    /// dashed until the next SetDashes or assignment.
    DashLineGenerator& operator=(const DashLineGenerator& other);
    virtual ~DashLineGenerator();

    /// Replaces the pattern, as the constructor does, and starts afresh. When that fails the
    /// pattern is empty, and nothing is dashed until the next SetDashes or assignment.
    void SetDashes(const double* dashes, std::size_t count);

    /// Appends the visible pieces of a polyline, in order, however short. A dash that turns a
    /// corner gives one piece for each polyline segment that it covers, and a switch exactly at
    /// a vertex closes its dash with a piece of zero length there.
    ///
    /// An empty polyline does nothing; a single vertex starts the pattern afresh. Time grows
    /// with the vertices and the pieces. When the vector cannot grow, its exception passes, and
    /// the phase is that at the start of this polyline.
    void Decompose(const Polyline& line, std::vector<LineSegment2>& out);
    /// The same with `n` points; they may lie in the output's storage. Fewer than 2, or a null
    /// array, start the pattern afresh.
    void Decompose(const Vec2d* points, std::size_t n, std::vector<LineSegment2>& out);
    /// The same with the pieces handed to a callback, each as soon as it is complete. Takes no
    /// memory. An exception of the callback passes, and the phase is that at the start of this
    /// polyline.
    void Decompose(const Vec2d* points, std::size_t n, PieceCallback callback, void* context);

protected:
    /// Appends lengths to the pattern and starts afresh.
    void Construct(const double* dashes, std::size_t count);
    /// Forgets the last point and goes to the start of the pattern.
    void InitState();
    /// Empties the pattern.
    void FreeAll();

    std::vector<double> dashes;
    Vec2d lastPoint;    ///< where the last polyline ended; the largest doubles when there is none
    std::int32_t index; ///< the pattern entry being walked
    bool penDown;       ///< whether the current stretch is visible
    double remaining;   ///< from the start of the next segment to the next switch of the pen
};

/// Splits polylines in space into the visible pieces of a repeating dash pattern.
///
/// The pattern, the phase that carries from polyline to polyline, and the guards that let every
/// walk end are those of DashLineGenerator; polylines join when all three coordinates of the
/// point are equal. The errors are the same as well, with one difference: whatever goes wrong
/// while a polyline is walked is reported as the out-of-memory error, an exception that a
/// caller's callback throws included.
class GEOM_API DashLine3Generator {
public:
    /// Receives a piece, from its first to its second point; `context` is the caller's.
    using PieceCallback = void (*)(const Vec3d& first, const Vec3d& second, void* context);

    /// Takes over `count` lengths. No lengths at all mean the single length 0, which draws
    /// solid. A null array with a count above 0 is an internal error; an exhausted heap is the
    /// out-of-memory error, and so are more lengths than an int counts.
    DashLine3Generator(const double* dashes, std::size_t count);
    /// Copies the pattern and the phase.
    DashLine3Generator(const DashLine3Generator& other);
    /// Copies the pattern and the phase. When that fails the pattern is empty, and nothing is
    /// dashed until the next SetDashes or assignment.
    DashLine3Generator& operator=(const DashLine3Generator& other);
    virtual ~DashLine3Generator();

    /// Replaces the pattern, as the constructor does, and starts afresh. When that fails the
    /// pattern is empty, and nothing is dashed until the next SetDashes or assignment.
    void SetDashes(const double* dashes, std::size_t count);

    /// Appends the visible pieces of `n` points, in order, however short; see
    /// DashLineGenerator::Decompose. The points may lie in the output's storage. Fewer than 2, or
    /// a null array, start the pattern afresh. After an error the phase is that at the start of
    /// this polyline.
    void Decompose(const Vec3d* points, std::size_t n, std::vector<LineSegment3>& out);
    /// The same with the pieces handed to a callback, each as soon as it is complete.
    void Decompose(const Vec3d* points, std::size_t n, PieceCallback callback, void* context);

protected:
    /// Appends lengths to the pattern and starts afresh.
    void Construct(const double* dashes, std::size_t count);
    /// Forgets the last point and goes to the start of the pattern.
    void InitState();
    /// Empties the pattern.
    void FreeAll();

    std::vector<double> dashes;
    Vec3d lastPoint;    ///< where the last polyline ended; the largest doubles when there is none
    std::int32_t index; ///< the pattern entry being walked
    bool penDown;       ///< whether the current stretch is visible
    double remaining;   ///< from the start of the next segment to the next switch of the pen
};

} // namespace geom
