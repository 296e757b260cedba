// SPDX-License-Identifier: MIT
#pragma once

#include "tests/reference/PlainEdges.h"
#include "tests/reference/PlainSweep.h"

#include <cstddef>
#include <list>
#include <vector>

/// \file
/// The two outputs of the plain sweep: what each class of event adds to contours or to strips.

namespace geom::test {

/// Where the result lies around an event, one bit for each quadrant, in the order of the walk
/// along the scanline with y upwards:
///
///              before | after
///     above      4    |   8
///     ----------------x------->
///     below      1    |   2
enum class VertexClass {
    Empty = 0,
    ExternalMaximum = 1,
    ExternalLeftIntermediate = 2,
    TopEdge = 3,
    ExternalRightIntermediate = 4,
    RightEdge = 5,
    InternalMaximumAndMinimum = 6,
    InternalMinimum = 7,
    ExternalMinimum = 8,
    ExternalMaximumAndMinimum = 9,
    LeftEdge = 10,
    InternalLeftIntermediate = 11,
    BottomEdge = 12,
    InternalRightIntermediate = 13,
    InternalMaximum = 14,
    Full = 15
};

using ActiveEdges = std::vector<Edge*>;

/// Throws the exception that stands for a sweep that rounding has made inconsistent.
[[noreturn]] void ThrowInconsistent();

/// Two edges that are about to change places, by their positions, and the point where.
struct CrossingPair {
    const ActiveEdges& active;
    std::size_t left;
    std::size_t right;
    double x;
    double y;
};

class PlainOutput {
public:
    PlainOutput() = default;
    PlainOutput(const PlainOutput&) = delete;
    PlainOutput& operator=(const PlainOutput&) = delete;
    virtual ~PlainOutput() = default;

    virtual void BeginRow() = 0;
    virtual void AtBoundary(VertexClass vertexClass, Edge& edge, double yb) = 0;
    virtual void AtCrossing(VertexClass vertexClass, const CrossingPair& pair) = 0;
};

class PlainContours : public PlainOutput {
public:
    void BeginRow() override;
    void AtBoundary(VertexClass vertexClass, Edge& edge, double yb) override;
    void AtCrossing(VertexClass vertexClass, const CrossingPair& pair) override;
    std::vector<PlainContour> Result() const;

private:
    struct Piece {
        bool active;
        bool hole;
        int proxy; ///< the piece that holds this one's vertices after merges
        std::list<gpc_vertex> chain;
    };

    Piece& ProxyOf(int piece);
    int AddLocalMinimum(double x, double y);
    void AddLeft(int piece, double x, double y);
    void AddRight(int piece, double x, double y);
    void MergeLeft(int p, int q);
    void MergeRight(int p, int q);
    void Redirect(int from, int to);
    void AddLeftOnce(double x, double y);
    void AddRightOnce(double x, double y);

    std::vector<Piece> m_pieces;
    int m_carried = NO_PIECE; ///< the contour carried along the scanline
    double m_previousX = 0;   ///< where the last vertex of the row went
};

class PlainStrips : public PlainOutput {
public:
    void BeginRow() override;
    void AtBoundary(VertexClass vertexClass, Edge& edge, double yb) override;
    void AtCrossing(VertexClass vertexClass, const CrossingPair& pair) override;
    std::vector<PlainStrip> Result() const;

private:
    struct Piece {
        std::vector<gpc_vertex> left;
        std::vector<gpc_vertex> right;
    };

    void NewStrip(Edge& edge, double x, double y);
    void AddLeft(const Edge& edge, Side side, double x, double y);
    void AddRight(const Edge& edge, Side side, double x, double y);
    Edge& Carried() const;
    void SplitAtCarriedLeftEdge(double yb);
    void AtRightEdge(Edge& edge, double yb);

    std::vector<Piece> m_strips;
    Edge* m_carried = nullptr;                   ///< the edge carried along the scanline
    VertexClass m_lastLeft = VertexClass::Empty; ///< the class of the row's last left event
};

} // namespace geom::test
