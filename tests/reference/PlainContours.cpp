// SPDX-License-Identifier: MIT
#include "tests/reference/PlainOutput.h"

#include <limits>

namespace geom::test {

void PlainContours::BeginRow() {
    m_carried = NO_PIECE;
    m_previousX = -std::numeric_limits<double>::max();
}

PlainContours::Piece& PlainContours::ProxyOf(int piece) {
    if (piece == NO_PIECE)
        ThrowInconsistent();
    const int proxy = m_pieces[static_cast<std::size_t>(piece)].proxy;
    return m_pieces[static_cast<std::size_t>(proxy)];
}

int PlainContours::AddLocalMinimum(double x, double y) {
    const int index = static_cast<int>(m_pieces.size());
    m_pieces.push_back({true, false, index, {{x, y}}});
    return index;
}

void PlainContours::AddLeft(int piece, double x, double y) {
    ProxyOf(piece).chain.push_front({x, y});
}

void PlainContours::AddRight(int piece, double x, double y) {
    ProxyOf(piece).chain.push_back({x, y});
}

void PlainContours::Redirect(int from, int to) {
    for (Piece& piece : m_pieces) {
        if (piece.proxy == from) {
            piece.active = false;
            piece.proxy = to;
        }
    }
}

void PlainContours::MergeLeft(int p, int q) {
    Piece& from = ProxyOf(p);
    Piece& to = ProxyOf(q);
    to.hole = true;
    if (from.proxy == to.proxy)
        return;
    to.chain.splice(to.chain.begin(), from.chain);
    Redirect(from.proxy, to.proxy);
}

void PlainContours::MergeRight(int p, int q) {
    Piece& from = ProxyOf(p);
    Piece& to = ProxyOf(q);
    to.hole = false;
    if (from.proxy == to.proxy)
        return;
    to.chain.splice(to.chain.end(), from.chain);
    Redirect(from.proxy, to.proxy);
}

void PlainContours::AddLeftOnce(double x, double y) {
    if (x != m_previousX)
        AddLeft(m_carried, x, y);
    m_previousX = x;
}

void PlainContours::AddRightOnce(double x, double y) {
    if (x != m_previousX)
        AddRight(m_carried, x, y);
    m_previousX = x;
}

void PlainContours::AtBoundary(VertexClass vertexClass, Edge& edge, double yb) {
    const double x = edge.xb;
    int& above = edge.outp[ABOVE];
    int& below = edge.outp[BELOW];
    switch (vertexClass) {
    case VertexClass::ExternalMaximum:
        AddLeftOnce(x, yb);
        MergeRight(m_carried, below);
        m_carried = NO_PIECE;
        break;
    case VertexClass::ExternalLeftIntermediate:
        AddLeft(below, x, yb);
        m_previousX = x;
        m_carried = below;
        break;
    case VertexClass::ExternalRightIntermediate:
        AddRightOnce(x, yb);
        above = m_carried;
        m_carried = NO_PIECE;
        break;
    case VertexClass::RightEdge:
        if (edge.bot.y == yb)
            AddRight(below, x, yb);
        above = below;
        m_previousX = x;
        break;
    case VertexClass::InternalMaximumAndMinimum:
        AddRightOnce(x, yb);
        MergeLeft(m_carried, below);
        below = NO_PIECE;
        above = AddLocalMinimum(x, yb);
        m_carried = above;
        break;
    case VertexClass::InternalMinimum:
    case VertexClass::ExternalMinimum:
        above = AddLocalMinimum(x, yb);
        m_previousX = x;
        m_carried = above;
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        AddLeftOnce(x, yb);
        MergeRight(m_carried, below);
        below = NO_PIECE;
        above = AddLocalMinimum(x, yb);
        m_carried = above;
        break;
    case VertexClass::LeftEdge:
        if (edge.bot.y == yb)
            AddLeft(below, x, yb);
        above = below;
        m_previousX = x;
        break;
    case VertexClass::InternalLeftIntermediate:
        AddLeftOnce(x, yb);
        above = m_carried;
        m_carried = NO_PIECE;
        break;
    case VertexClass::InternalRightIntermediate:
        AddRight(below, x, yb);
        m_previousX = x;
        m_carried = below;
        below = NO_PIECE;
        break;
    case VertexClass::InternalMaximum:
        AddRightOnce(x, yb);
        MergeLeft(m_carried, below);
        m_carried = NO_PIECE;
        below = NO_PIECE;
        break;
    case VertexClass::Empty:
    case VertexClass::TopEdge:
    case VertexClass::BottomEdge:
    case VertexClass::Full: break;
    }
}

void PlainContours::AtCrossing(VertexClass vertexClass, const CrossingPair& pair) {
    int& left = pair.active[pair.left]->outp[ABOVE];
    int& right = pair.active[pair.right]->outp[ABOVE];
    const int p = left;
    const int q = right;
    const bool both = p != NO_PIECE && q != NO_PIECE;
    switch (vertexClass) {
    case VertexClass::InternalMinimum:
    case VertexClass::ExternalMinimum: left = right = AddLocalMinimum(pair.x, pair.y); break;
    case VertexClass::ExternalRightIntermediate:
        if (p != NO_PIECE) {
            AddRight(p, pair.x, pair.y);
            right = p;
            left = NO_PIECE;
        }
        break;
    case VertexClass::ExternalLeftIntermediate:
        if (q != NO_PIECE) {
            AddLeft(q, pair.x, pair.y);
            left = q;
            right = NO_PIECE;
        }
        break;
    case VertexClass::ExternalMaximum:
        if (both) {
            AddLeft(p, pair.x, pair.y);
            MergeRight(p, q);
            left = right = NO_PIECE;
        }
        break;
    case VertexClass::InternalLeftIntermediate:
        if (p != NO_PIECE) {
            AddLeft(p, pair.x, pair.y);
            right = p;
            left = NO_PIECE;
        }
        break;
    case VertexClass::InternalRightIntermediate:
        if (q != NO_PIECE) {
            AddRight(q, pair.x, pair.y);
            left = q;
            right = NO_PIECE;
        }
        break;
    case VertexClass::InternalMaximum:
        if (both) {
            AddRight(p, pair.x, pair.y);
            MergeLeft(p, q);
            left = right = NO_PIECE;
        }
        break;
    case VertexClass::InternalMaximumAndMinimum:
        if (both) {
            AddRight(p, pair.x, pair.y);
            MergeLeft(p, q);
            left = right = AddLocalMinimum(pair.x, pair.y);
        }
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        if (both) {
            AddLeft(p, pair.x, pair.y);
            MergeRight(p, q);
            left = right = AddLocalMinimum(pair.x, pair.y);
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

std::vector<PlainContour> PlainContours::Result() const {
    std::vector<PlainContour> result;
    for (auto piece = m_pieces.rbegin(); piece != m_pieces.rend(); ++piece) {
        if (piece->active && piece->chain.size() >= 3)
            result.push_back({piece->hole, {piece->chain.rbegin(), piece->chain.rend()}});
    }
    return result;
}

} // namespace geom::test
