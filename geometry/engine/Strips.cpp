// SPDX-License-Identifier: MIT
#include "geometry/engine/Strips.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/ResultArrays.h"

namespace geom::detail {

namespace {

constexpr std::uint32_t SMALLEST_STRIP = 3;

gpc_vertex PointOn(const Slot& slot, double y) {
    return {slot.XOnLine(y), y};
}

// The nearest edges with an open strip on either side of a crossing bound the region that the
// crossing lies in.
Slot& PreviousLiveEdge(const Slot& left) {
    Slot* slot = left.prev;
    while (slot != nullptr && slot->outp[ABOVE] == NO_OUTPUT) {
        slot = slot->prev;
    }
    if (slot == nullptr) {
        ThrowEngineError(LINE_NO_PREVIOUS_LIVE_EDGE);
    }
    return *slot;
}

Slot& NextLiveEdge(const Slot& right) {
    Slot* slot = right.next;
    while (slot != nullptr && slot->outp[ABOVE] == NO_OUTPUT) {
        slot = slot->next;
    }
    if (slot == nullptr) {
        ThrowEngineError(LINE_NO_NEXT_LIVE_EDGE);
    }
    return *slot;
}

void MoveStrip(Slot& from, Slot& to) {
    to.outp[ABOVE] = from.outp[ABOVE];
    from.outp[ABOVE] = NO_OUTPUT;
}

} // namespace

OutputIndex StripList::Begin(const gpc_vertex& point) {
    constexpr VertexIndex NONE = VertexStore::NONE;
    const VertexIndex vertex = m_vertices.Append(point, NONE);
    return m_strips.Append({{{vertex, vertex}, {NONE, NONE}}, 1});
}

void StripList::Add(OutputIndex number, End side, const gpc_vertex& point) {
    if (number == NO_OUTPUT) {
        ThrowEngineError(LINE_ADD_TO_NO_STRIP);
    }
    const VertexIndex vertex = m_vertices.Append(point, VertexStore::NONE);
    Chain& chain = m_strips[number].chain[side];
    if (chain.first == VertexStore::NONE) {
        chain.first = vertex;
    } else {
        m_vertices.SetNext(chain.last, vertex);
    }
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
    while (left != VertexStore::NONE || right != VertexStore::NONE) {
        VertexIndex* const turns[] = {&left, &right};
        for (VertexIndex* next : turns) {
            if (*next != VertexStore::NONE) {
                *out++ = m_vertices.Point(*next);
                *next = m_vertices.Next(*next);
            }
        }
    }
}

void StripOutput::BeginRun() {
    m_carried = nullptr;
    m_lastLeft = LastLeft::None;
}

void StripOutput::CarryFrom(Slot& boundary, double x) {
    Carry(boundary, x);
    m_lastLeft = LastLeft::LeftEdge;
}

void StripOutput::Carry(Slot& slot, double x) {
    m_carried = &slot;
    m_carriedX = x;
}

Slot& StripOutput::Carried() const {
    if (m_carried == nullptr) {
        ThrowEngineError(LINE_NO_CARRIED_EDGE);
    }
    return *m_carried;
}

void StripOutput::Begin(Slot& slot, const gpc_vertex& point) {
    slot.outp[ABOVE] = m_strips.Begin(point);
}

void StripOutput::Add(const Slot& slot, Level level, End chain, const gpc_vertex& point) {
    m_strips.Add(slot.outp[level], chain, point);
}

// At the carried edge's own x the strip already has this vertex.
void StripOutput::AddUnlessAtCarried(const Slot& slot, Level level, const gpc_vertex& point) {
    Carried();
    if (point.x != m_carriedX) {
        Add(slot, level, RIGHT, point);
    }
}

// An edge ends the strip that a left edge has carried up to here:
//
//      |  new   x              the strip is closed at the left edge and a new one begins there
//     -|-------x x---
//      | old  / . \            (an edge that starts here has its vertex already)
void StripOutput::SplitAtCarriedLeftEdge(double y) {
    if (m_lastLeft != LastLeft::LeftEdge) {
        return;
    }
    Slot& carried = Carried();
    const gpc_vertex corner = {m_carriedX, y};
    if (carried.bot.y != y) {
        Add(carried, BELOW, LEFT, corner);
    }
    Begin(carried, corner);
}

void StripOutput::AtRightEdge(Slot& slot, const gpc_vertex& point) {
    Slot& carried = Carried();
    slot.outp[ABOVE] = carried.outp[ABOVE];
    if (m_lastLeft != LastLeft::LeftEdge) {
        Add(slot, BELOW, RIGHT, point);
        Add(slot, ABOVE, RIGHT, point);
    } else if (carried.bot.y == point.y) {
        Add(slot, BELOW, RIGHT, point);
    } else if (slot.bot.y == point.y) {
        Add(carried, BELOW, LEFT, {m_carriedX, point.y});
        Add(slot, BELOW, RIGHT, point);
    }
    m_carried = nullptr;
}

void StripOutput::AtBoundary(VertexClass vertexClass, Slot& slot, const gpc_vertex& point) {
    switch (vertexClass) {
    case VertexClass::ExternalMinimum:
        Begin(slot, point);
        Carry(slot, point.x);
        break;
    case VertexClass::ExternalRightIntermediate:
        slot.outp[ABOVE] = Carried().outp[ABOVE];
        AddUnlessAtCarried(slot, ABOVE, point);
        m_carried = nullptr;
        break;
    case VertexClass::ExternalLeftIntermediate:
        Add(slot, BELOW, LEFT, point);
        slot.outp[ABOVE] = NO_OUTPUT;
        Carry(slot, point.x);
        break;
    case VertexClass::ExternalMaximum:
        AddUnlessAtCarried(slot, BELOW, point);
        slot.outp[ABOVE] = NO_OUTPUT;
        m_carried = nullptr;
        break;
    case VertexClass::InternalMinimum:
        SplitAtCarriedLeftEdge(point.y);
        slot.outp[ABOVE] = Carried().outp[ABOVE];
        Add(slot, ABOVE, RIGHT, point);
        break;
    case VertexClass::InternalLeftIntermediate:
        Begin(slot, point);
        Carry(slot, point.x);
        m_lastLeft = LastLeft::InternalLeft;
        break;
    case VertexClass::InternalRightIntermediate:
        SplitAtCarriedLeftEdge(point.y);
        Add(slot, BELOW, RIGHT, point);
        slot.outp[ABOVE] = NO_OUTPUT;
        break;
    case VertexClass::InternalMaximum:
        Add(slot, BELOW, LEFT, point);
        slot.outp[ABOVE] = NO_OUTPUT;
        m_lastLeft = LastLeft::InternalMaximum;
        break;
    case VertexClass::InternalMaximumAndMinimum:
        Add(slot, BELOW, LEFT, point);
        slot.outp[ABOVE] = Carried().outp[ABOVE];
        AddUnlessAtCarried(*m_carried, ABOVE, point);
        Carry(slot, point.x);
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        Add(slot, BELOW, RIGHT, point);
        slot.outp[ABOVE] = NO_OUTPUT;
        Begin(slot, point);
        Carry(slot, point.x);
        break;
    case VertexClass::LeftEdge:
        if (slot.bot.y == point.y) {
            Add(slot, BELOW, LEFT, point);
        }
        slot.outp[ABOVE] = slot.outp[BELOW];
        Carry(slot, point.x);
        m_lastLeft = LastLeft::LeftEdge;
        break;
    case VertexClass::RightEdge: AtRightEdge(slot, point); break;
    case VertexClass::Empty:
    case VertexClass::TopEdge:
    case VertexClass::BottomEdge:
    case VertexClass::Full: break;
    }
}

Slot& StripOutput::AddToPrevious(const Slot& left, double y) {
    Slot& previous = PreviousLiveEdge(left);
    Add(previous, ABOVE, LEFT, PointOn(previous, y));
    return previous;
}

Slot& StripOutput::SplitPrevious(const Slot& left, double y) {
    Slot& previous = AddToPrevious(left, y);
    Begin(previous, PointOn(previous, y));
    return previous;
}

Slot& StripOutput::AddToNext(const Slot& right, double y) {
    Slot& next = NextLiveEdge(right);
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
void StripOutput::OpenHole(Slot& left, Slot& right, const gpc_vertex& point) {
    Slot& previous = SplitPrevious(left, point.y);
    Slot& next = AddToNext(right, point.y);
    right.outp[ABOVE] = previous.outp[ABOVE];
    Add(right, ABOVE, RIGHT, point);
    Begin(left, point);
    next.outp[ABOVE] = left.outp[ABOVE];
    Add(next, ABOVE, RIGHT, PointOn(next, point.y));
}

// A hole closes: the strips on its two sides end, and one begins above. As where a hole opens,
// the next live edge gets its vertex twice.
void StripOutput::CloseHole(Slot& left, Slot& right, double y) {
    left.outp[ABOVE] = NO_OUTPUT;
    right.outp[ABOVE] = NO_OUTPUT;
    Slot& previous = SplitPrevious(left, y);
    Slot& next = AddToNext(right, y);
    next.outp[ABOVE] = previous.outp[ABOVE];
    Add(next, ABOVE, RIGHT, PointOn(next, y));
}

void StripOutput::AtCrossing(VertexClass vertexClass, Slot& left, Slot& right,
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
