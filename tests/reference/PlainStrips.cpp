// SPDX-License-Identifier: MIT
#include "tests/reference/PlainOutput.h"

#include <algorithm>

namespace geom::test {

namespace {

double XAt(const Edge& edge, double y) {
    return edge.bot.x + edge.dx * (y - edge.bot.y);
}

/// The nearest edge before the pair that carries a strip.
Edge& PreviousLive(const CrossingPair& pair) {
    for (std::size_t i = pair.left; i > 0; --i) {
        if (pair.active[i - 1]->outp[ABOVE] != NO_PIECE)
            return *pair.active[i - 1];
    }
    ThrowInconsistent();
}

/// The nearest edge behind the pair that carries a strip.
Edge& NextLive(const CrossingPair& pair) {
    for (std::size_t i = pair.right + 1; i < pair.active.size(); ++i) {
        if (pair.active[i]->outp[ABOVE] != NO_PIECE)
            return *pair.active[i];
    }
    ThrowInconsistent();
}

} // namespace

void PlainStrips::BeginRow() {
    m_carried = nullptr;
    m_lastLeft = VertexClass::Empty;
}

void PlainStrips::NewStrip(Edge& edge, double x, double y) {
    edge.outp[ABOVE] = static_cast<int>(m_strips.size());
    m_strips.push_back({{{x, y}}, {}});
}

void PlainStrips::AddLeft(const Edge& edge, Side side, double x, double y) {
    if (edge.outp[side] == NO_PIECE)
        ThrowInconsistent();
    m_strips[static_cast<std::size_t>(edge.outp[side])].left.push_back({x, y});
}

void PlainStrips::AddRight(const Edge& edge, Side side, double x, double y) {
    if (edge.outp[side] == NO_PIECE)
        ThrowInconsistent();
    m_strips[static_cast<std::size_t>(edge.outp[side])].right.push_back({x, y});
}

Edge& PlainStrips::Carried() const {
    if (!m_carried)
        ThrowInconsistent();
    return *m_carried;
}

/// A piece of outside begins above an interval: the strip ends at the interval's left edge, and
/// a new one starts there.
void PlainStrips::SplitAtCarriedLeftEdge(double yb) {
    if (m_lastLeft != VertexClass::LeftEdge)
        return;
    Edge& carried = Carried();
    if (carried.bot.y != yb)
        AddLeft(carried, BELOW, carried.xb, yb);
    NewStrip(carried, carried.xb, yb);
}

void PlainStrips::AtRightEdge(Edge& edge, double yb) {
    Edge& carried = Carried();
    edge.outp[ABOVE] = carried.outp[ABOVE];
    if (m_lastLeft != VertexClass::LeftEdge) {
        AddRight(edge, BELOW, edge.xb, yb);
        AddRight(edge, ABOVE, edge.xb, yb);
    } else if (carried.bot.y == yb) {
        AddRight(edge, BELOW, edge.xb, yb);
    } else if (edge.bot.y == yb) {
        AddLeft(carried, BELOW, carried.xb, yb);
        AddRight(edge, BELOW, edge.xb, yb);
    }
    m_carried = nullptr;
}

void PlainStrips::AtBoundary(VertexClass vertexClass, Edge& edge, double yb) {
    const double x = edge.xb;
    int& above = edge.outp[ABOVE];
    switch (vertexClass) {
    case VertexClass::ExternalMinimum:
        NewStrip(edge, x, yb);
        m_carried = &edge;
        break;
    case VertexClass::ExternalRightIntermediate:
        above = Carried().outp[ABOVE];
        if (x != Carried().xb)
            AddRight(edge, ABOVE, x, yb);
        m_carried = nullptr;
        break;
    case VertexClass::ExternalLeftIntermediate:
        AddLeft(edge, BELOW, x, yb);
        above = NO_PIECE;
        m_carried = &edge;
        break;
    case VertexClass::ExternalMaximum:
        if (x != Carried().xb)
            AddRight(edge, BELOW, x, yb);
        above = NO_PIECE;
        m_carried = nullptr;
        break;
    case VertexClass::InternalMinimum:
        SplitAtCarriedLeftEdge(yb);
        above = Carried().outp[ABOVE];
        AddRight(edge, ABOVE, x, yb);
        break;
    case VertexClass::InternalLeftIntermediate:
        NewStrip(edge, x, yb);
        m_carried = &edge;
        m_lastLeft = vertexClass;
        break;
    case VertexClass::InternalRightIntermediate:
        SplitAtCarriedLeftEdge(yb);
        AddRight(edge, BELOW, x, yb);
        above = NO_PIECE;
        break;
    case VertexClass::InternalMaximum:
        AddLeft(edge, BELOW, x, yb);
        above = NO_PIECE;
        m_lastLeft = vertexClass;
        break;
    case VertexClass::InternalMaximumAndMinimum:
        AddLeft(edge, BELOW, x, yb);
        above = Carried().outp[ABOVE];
        if (x != Carried().xb)
            AddRight(Carried(), ABOVE, x, yb);
        m_carried = &edge;
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        AddRight(edge, BELOW, x, yb);
        above = NO_PIECE;
        NewStrip(edge, x, yb);
        m_carried = &edge;
        break;
    case VertexClass::LeftEdge:
        if (edge.bot.y == yb)
            AddLeft(edge, BELOW, x, yb);
        above = edge.outp[BELOW];
        m_carried = &edge;
        m_lastLeft = vertexClass;
        break;
    case VertexClass::RightEdge: AtRightEdge(edge, yb); break;
    case VertexClass::Empty:
    case VertexClass::TopEdge:
    case VertexClass::BottomEdge:
    case VertexClass::Full: break;
    }
}

void PlainStrips::AtCrossing(VertexClass vertexClass, const CrossingPair& pair) {
    Edge& e0 = *pair.active[pair.left];
    Edge& e1 = *pair.active[pair.right];
    int& left = e0.outp[ABOVE];
    int& right = e1.outp[ABOVE];
    const double ix = pair.x;
    const double iy = pair.y;
    const bool p = left != NO_PIECE;
    const bool q = right != NO_PIECE;
    switch (vertexClass) {
    case VertexClass::ExternalMinimum:
        NewStrip(e1, ix, iy);
        left = right;
        break;
    case VertexClass::ExternalRightIntermediate:
        if (p) {
            Edge& previous = PreviousLive(pair);
            AddLeft(previous, ABOVE, XAt(previous, iy), iy);
            AddRight(e0, ABOVE, ix, iy);
            right = left;
            left = NO_PIECE;
        }
        break;
    case VertexClass::ExternalLeftIntermediate:
        if (q) {
            Edge& next = NextLive(pair);
            AddLeft(e1, ABOVE, ix, iy);
            AddRight(next, ABOVE, XAt(next, iy), iy);
            left = right;
            right = NO_PIECE;
        }
        break;
    case VertexClass::ExternalMaximum:
        if (p && q) {
            AddLeft(e0, ABOVE, ix, iy);
            left = right = NO_PIECE;
        }
        break;
    case VertexClass::InternalMinimum: {
        Edge& previous = PreviousLive(pair);
        AddLeft(previous, ABOVE, XAt(previous, iy), iy);
        Edge& next = NextLive(pair);
        AddRight(next, ABOVE, XAt(next, iy), iy);
        NewStrip(previous, XAt(previous, iy), iy);
        right = previous.outp[ABOVE];
        AddRight(e1, ABOVE, ix, iy);
        NewStrip(e0, ix, iy);
        next.outp[ABOVE] = left;
        AddRight(next, ABOVE, XAt(next, iy), iy);
        break;
    }
    case VertexClass::InternalLeftIntermediate:
        if (p) {
            AddLeft(e0, ABOVE, ix, iy);
            Edge& next = NextLive(pair);
            AddRight(next, ABOVE, XAt(next, iy), iy);
            right = left;
            left = NO_PIECE;
        }
        break;
    case VertexClass::InternalRightIntermediate:
        if (q) {
            AddRight(e1, ABOVE, ix, iy);
            Edge& previous = PreviousLive(pair);
            AddLeft(previous, ABOVE, XAt(previous, iy), iy);
            left = right;
            right = NO_PIECE;
        }
        break;
    case VertexClass::InternalMaximum:
        if (p && q) {
            AddRight(e0, ABOVE, ix, iy);
            AddLeft(e1, ABOVE, ix, iy);
            left = right = NO_PIECE;
            Edge& previous = PreviousLive(pair);
            AddLeft(previous, ABOVE, XAt(previous, iy), iy);
            NewStrip(previous, XAt(previous, iy), iy);
            Edge& next = NextLive(pair);
            AddRight(next, ABOVE, XAt(next, iy), iy);
            next.outp[ABOVE] = previous.outp[ABOVE];
            AddRight(next, ABOVE, XAt(next, iy), iy);
        }
        break;
    case VertexClass::InternalMaximumAndMinimum:
        if (p && q) {
            AddRight(e0, ABOVE, ix, iy);
            AddLeft(e1, ABOVE, ix, iy);
            Edge& previous = PreviousLive(pair);
            AddLeft(previous, ABOVE, XAt(previous, iy), iy);
            NewStrip(previous, XAt(previous, iy), iy);
            Edge& next = NextLive(pair);
            AddRight(next, ABOVE, XAt(next, iy), iy);
            right = previous.outp[ABOVE];
            AddRight(e1, ABOVE, ix, iy);
            NewStrip(e0, ix, iy);
            next.outp[ABOVE] = left;
            AddRight(next, ABOVE, XAt(next, iy), iy);
        }
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        if (p && q) {
            AddLeft(e0, ABOVE, ix, iy);
            NewStrip(e1, ix, iy);
            left = right;
        }
        break;
    case VertexClass::Empty:
    case VertexClass::TopEdge:
    case VertexClass::RightEdge:
    case VertexClass::LeftEdge:
    case VertexClass::BottomEdge:
    case VertexClass::Full: break;
    }
}

std::vector<PlainStrip> PlainStrips::Result() const {
    std::vector<PlainStrip> result;
    for (const Piece& piece : m_strips) {
        if (piece.left.size() + piece.right.size() <= 2)
            continue;
        PlainStrip strip;
        for (std::size_t i = 0; i < std::max(piece.left.size(), piece.right.size()); ++i) {
            if (i < piece.left.size())
                strip.push_back(piece.left[i]);
            if (i < piece.right.size())
                strip.push_back(piece.right[i]);
        }
        result.push_back(strip);
    }
    return result;
}

} // namespace geom::test
