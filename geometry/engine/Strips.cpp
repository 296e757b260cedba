// SPDX-License-Identifier: MIT
#include "geometry/engine/Strips.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/ResultArrays.h"

namespace geom::detail {

namespace {

constexpr std::uint32_t SMALLEST_STRIP = 3;

gpc_vertex PointOn(const Edge& edge, double y) {
    return {XAt(edge, y), y};
}

// The nearest edges with an open strip on either side of a crossing bound the region that the
// crossing lies in.
Edge& PreviousLiveEdge(const Edge& left) {
    Edge* edge = left.prev;
    while (edge != nullptr && edge->outp[ABOVE] == NO_OUTPUT) {
        edge = edge->prev;
    }
    if (edge == nullptr) {
        ThrowEngineError(LINE_NO_PREVIOUS_LIVE_EDGE);
    }
    return *edge;
}

Edge& NextLiveEdge(const Edge& right) {
    Edge* edge = right.next;
    while (edge != nullptr && edge->outp[ABOVE] == NO_OUTPUT) {
        edge = edge->next;
    }
    if (edge == nullptr) {
        ThrowEngineError(LINE_NO_NEXT_LIVE_EDGE);
    }
    return *edge;
}

void MoveStrip(Edge& from, Edge& to) {
    to.outp[ABOVE] = from.outp[ABOVE];
    from.outp[ABOVE] = NO_OUTPUT;
}

} // namespace

OutputIndex StripList::Begin(const gpc_vertex& point) {
    constexpr VertexIndex NONE = Block<Vertex>::NONE;
    const VertexIndex vertex = m_vertices.Append({point, NONE});
    return m_strips.Append({{{vertex, vertex}, {NONE, NONE}}, 1});
}

void StripList::Add(OutputIndex number, Parity side, const gpc_vertex& point) {
    if (number == NO_OUTPUT) {
        ThrowEngineError(LINE_ADD_TO_NO_STRIP);
    }
    const VertexIndex vertex = m_vertices.Append({point, Block<Vertex>::NONE});
    Chain& chain = m_strips[number].chain[side];
    (chain.first == Block<Vertex>::NONE ? chain.first : m_vertices[chain.last].next) = vertex;
    chain.last = vertex;
    ++m_strips[number].count;
}

gpc_tristrip StripList::TakeResult() const {
    std::uint64_t count = 0;
    for (const Strip& strip : m_strips) {
        count += strip.count >= SMALLEST_STRIP ? 1U : 0U;
    }
    TristripBuilder result(count);
    for (const Strip& strip : m_strips) {
        if (strip.count >= SMALLEST_STRIP) {
            CopyVertices(strip, result.AddStrip(strip.count).vertex);
        }
    }
    return result.Release();
}

void StripList::CopyVertices(const Strip& strip, gpc_vertex* out) const {
    VertexIndex left = strip.chain[LEFT].first;
    VertexIndex right = strip.chain[RIGHT].first;
    while (left != Block<Vertex>::NONE || right != Block<Vertex>::NONE) {
        VertexIndex* const turns[] = {&left, &right};
        for (VertexIndex* next : turns) {
            if (*next != Block<Vertex>::NONE) {
                *out++ = m_vertices[*next].point;
                *next = m_vertices[*next].next;
            }
        }
    }
}

void StripOutput::BeginRow() {
    m_carried = nullptr;
    m_lastLeft = LastLeft::None;
}

Edge& StripOutput::Carried() const {
    if (m_carried == nullptr) {
        ThrowEngineError(LINE_NO_CARRIED_EDGE);
    }
    return *m_carried;
}

void StripOutput::Begin(Edge& edge, const gpc_vertex& point) {
    edge.outp[ABOVE] = m_strips.Begin(point);
}

void StripOutput::Add(const Edge& edge, Level level, Parity chain, const gpc_vertex& point) {
    m_strips.Add(edge.outp[level], chain, point);
}

// At the carried edge's own x the strip already has this vertex.
void StripOutput::AddUnlessAtCarried(const Edge& edge, Level level, const gpc_vertex& point) {
    if (point.x != Carried().xb) {
        Add(edge, level, RIGHT, point);
    }
}

// An edge ends the strip that a left edge has carried up to here:
//
//      |  new   x              the strip is closed at the left edge and a new one begins there
//     -|-------x x---
//      | old  / . \            (an edge that starts here has its vertex already)
void StripOutput::SplitAtCarriedLeftEdge(double yb) {
    if (m_lastLeft != LastLeft::LeftEdge) {
        return;
    }
    Edge& carried = Carried();
    const gpc_vertex corner = {carried.xb, yb};
    if (carried.bot.y != yb) {
        Add(carried, BELOW, LEFT, corner);
    }
    Begin(carried, corner);
}

void StripOutput::AtRightEdge(Edge& edge, const gpc_vertex& point) {
    Edge& carried = Carried();
    edge.outp[ABOVE] = carried.outp[ABOVE];
    if (m_lastLeft != LastLeft::LeftEdge) {
        Add(edge, BELOW, RIGHT, point);
        Add(edge, ABOVE, RIGHT, point);
    } else if (carried.bot.y == point.y) {
        Add(edge, BELOW, RIGHT, point);
    } else if (edge.bot.y == point.y) {
        Add(carried, BELOW, LEFT, {carried.xb, point.y});
        Add(edge, BELOW, RIGHT, point);
    }
    m_carried = nullptr;
}

void StripOutput::AtBoundary(VertexClass vertexClass, Edge& edge, double yb) {
    const gpc_vertex point = {edge.xb, yb};
    switch (vertexClass) {
    case VertexClass::ExternalMinimum:
        Begin(edge, point);
        m_carried = &edge;
        break;
    case VertexClass::ExternalRightIntermediate:
        edge.outp[ABOVE] = Carried().outp[ABOVE];
        AddUnlessAtCarried(edge, ABOVE, point);
        m_carried = nullptr;
        break;
    case VertexClass::ExternalLeftIntermediate:
        Add(edge, BELOW, LEFT, point);
        edge.outp[ABOVE] = NO_OUTPUT;
        m_carried = &edge;
        break;
    case VertexClass::ExternalMaximum:
        AddUnlessAtCarried(edge, BELOW, point);
        edge.outp[ABOVE] = NO_OUTPUT;
        m_carried = nullptr;
        break;
    case VertexClass::InternalMinimum:
        SplitAtCarriedLeftEdge(yb);
        edge.outp[ABOVE] = Carried().outp[ABOVE];
        Add(edge, ABOVE, RIGHT, point);
        break;
    case VertexClass::InternalLeftIntermediate:
        Begin(edge, point);
        m_carried = &edge;
        m_lastLeft = LastLeft::InternalLeft;
        break;
    case VertexClass::InternalRightIntermediate:
        SplitAtCarriedLeftEdge(yb);
        Add(edge, BELOW, RIGHT, point);
        edge.outp[ABOVE] = NO_OUTPUT;
        break;
    case VertexClass::InternalMaximum:
        Add(edge, BELOW, LEFT, point);
        edge.outp[ABOVE] = NO_OUTPUT;
        m_lastLeft = LastLeft::InternalMaximum;
        break;
    case VertexClass::InternalMaximumAndMinimum:
        Add(edge, BELOW, LEFT, point);
        edge.outp[ABOVE] = Carried().outp[ABOVE];
        AddUnlessAtCarried(*m_carried, ABOVE, point);
        m_carried = &edge;
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        Add(edge, BELOW, RIGHT, point);
        edge.outp[ABOVE] = NO_OUTPUT;
        Begin(edge, point);
        m_carried = &edge;
        break;
    case VertexClass::LeftEdge:
        if (edge.bot.y == yb) {
            Add(edge, BELOW, LEFT, point);
        }
        edge.outp[ABOVE] = edge.outp[BELOW];
        m_carried = &edge;
        m_lastLeft = LastLeft::LeftEdge;
        break;
    case VertexClass::RightEdge: AtRightEdge(edge, point); break;
    case VertexClass::Empty:
    case VertexClass::TopEdge:
    case VertexClass::BottomEdge:
    case VertexClass::Full: break;
    }
}

Edge& StripOutput::AddToPrevious(const Edge& left, double y) {
    Edge& previous = PreviousLiveEdge(left);
    Add(previous, ABOVE, LEFT, PointOn(previous, y));
    return previous;
}

Edge& StripOutput::SplitPrevious(const Edge& left, double y) {
    Edge& previous = AddToPrevious(left, y);
    Begin(previous, PointOn(previous, y));
    return previous;
}

Edge& StripOutput::AddToNext(const Edge& right, double y) {
    Edge& next = NextLiveEdge(right);
    Add(next, ABOVE, RIGHT, PointOn(next, y));
    return next;
}

// A hole opens inside a region: below lies one strip, above one on each side of the hole.
//
//      |  .  \       /  .  |
//      |previous\   / next |     the next live edge gets its vertex twice: on the strip that
//      |  .     \ /     .  |      it carried up to here and on the one that it is given here
//      x---------x--------x
//      |  .   below     . |
void StripOutput::OpenHole(Edge& left, Edge& right, const gpc_vertex& point) {
    Edge& previous = SplitPrevious(left, point.y);
    Edge& next = AddToNext(right, point.y);
    right.outp[ABOVE] = previous.outp[ABOVE];
    Add(right, ABOVE, RIGHT, point);
    Begin(left, point);
    next.outp[ABOVE] = left.outp[ABOVE];
    Add(next, ABOVE, RIGHT, PointOn(next, point.y));
}

// A hole closes: the strips on its two sides end, and one begins above. As where a hole opens,
// the next live edge gets its vertex twice.
void StripOutput::CloseHole(Edge& left, Edge& right, double y) {
    left.outp[ABOVE] = NO_OUTPUT;
    right.outp[ABOVE] = NO_OUTPUT;
    Edge& previous = SplitPrevious(left, y);
    Edge& next = AddToNext(right, y);
    next.outp[ABOVE] = previous.outp[ABOVE];
    Add(next, ABOVE, RIGHT, PointOn(next, y));
}

void StripOutput::AtCrossing(VertexClass vertexClass, Edge& left, Edge& right,
                             const gpc_vertex& point) {
    const double y = point.y;
    const bool p = left.outp[ABOVE] != NO_OUTPUT;
    const bool q = right.outp[ABOVE] != NO_OUTPUT;
    switch (vertexClass) {
    case VertexClass::ExternalMinimum:
        Begin(right, point);
        left.outp[ABOVE] = right.outp[ABOVE];
        break;
    case VertexClass::ExternalRightIntermediate:
        if (p) {
            AddToPrevious(left, y);
            Add(left, ABOVE, RIGHT, point);
            MoveStrip(left, right);
        }
        break;
    case VertexClass::ExternalLeftIntermediate:
        if (q) {
            Add(right, ABOVE, LEFT, point);
            AddToNext(right, y);
            MoveStrip(right, left);
        }
        break;
    case VertexClass::ExternalMaximum:
        if (p && q) {
            Add(left, ABOVE, LEFT, point);
            left.outp[ABOVE] = NO_OUTPUT;
            right.outp[ABOVE] = NO_OUTPUT;
        }
        break;
    case VertexClass::InternalMinimum: OpenHole(left, right, point); break;
    case VertexClass::InternalLeftIntermediate:
        if (p) {
            Add(left, ABOVE, LEFT, point);
            AddToNext(right, y);
            MoveStrip(left, right);
        }
        break;
    case VertexClass::InternalRightIntermediate:
        if (q) {
            Add(right, ABOVE, RIGHT, point);
            AddToPrevious(left, y);
            MoveStrip(right, left);
        }
        break;
    case VertexClass::InternalMaximum:
        if (p && q) {
            Add(left, ABOVE, RIGHT, point);
            Add(right, ABOVE, LEFT, point);
            CloseHole(left, right, y);
        }
        break;
    case VertexClass::InternalMaximumAndMinimum:
        if (p && q) {
            Add(left, ABOVE, RIGHT, point);
            Add(right, ABOVE, LEFT, point);
            OpenHole(left, right, point);
        }
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        if (p && q) {
            Add(left, ABOVE, LEFT, point);
            Begin(right, point);
            left.outp[ABOVE] = right.outp[ABOVE];
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

} // namespace geom::detail
