// SPDX-License-Identifier: MIT
#include "geometry/engine/Contours.h"

#include "geometry/engine/Lines.h"
#include "geometry/engine/ResultArrays.h"

#include <limits>
#include <utility>

namespace geom::detail {

namespace {

constexpr std::uint32_t SMALLEST_CONTOUR = 3;

} // namespace

OutputIndex ChainForest::Begin(const gpc_vertex& point) {
    const auto number = static_cast<OutputIndex>(m_chains.Count());
    const VertexIndex vertex = m_vertices.Append(point, VertexStore::NONE);
    return m_chains.Append({vertex, vertex, 1, number, false});
}

OutputIndex ChainForest::FindRoot(OutputIndex chain) {
    while (m_chains[chain].parent != chain) {
        OutputIndex& parent = m_chains[chain].parent;
        parent = m_chains[parent].parent; // halves the way for the next search
        chain = parent;
    }
    return chain;
}

void ChainForest::AddLeft(OutputIndex number, const gpc_vertex& point) {
    if (number == NO_OUTPUT) {
        ThrowEngineError(LINE_ADD_LEFT_TO_NOTHING);
    }
    Chain& chain = m_chains[FindRoot(number)];
    chain.left = m_vertices.Append(point, chain.left);
    ++chain.count;
}

void ChainForest::AddRight(OutputIndex number, const gpc_vertex& point) {
    if (number == NO_OUTPUT) {
        ThrowEngineError(LINE_ADD_RIGHT_TO_NOTHING);
    }
    Chain& chain = m_chains[FindRoot(number)];
    const VertexIndex vertex = m_vertices.Append(point, VertexStore::NONE);
    m_vertices.SetNext(chain.right, vertex);
    chain.right = vertex;
    ++chain.count;
}

void ChainForest::MergeLeft(OutputIndex from, OutputIndex into) {
    if (from == NO_OUTPUT || into == NO_OUTPUT) {
        ThrowEngineError(LINE_MERGE_WITH_NOTHING);
    }
    Chain& p = m_chains[FindRoot(from)];
    const OutputIndex root = FindRoot(into);
    Chain& q = m_chains[root];
    q.hole = true;
    if (&p != &q) {
        m_vertices.SetNext(p.right, q.left);
        q.left = p.left;
        q.count += p.count;
        p.parent = root;
    }
}

void ChainForest::MergeRight(OutputIndex from, OutputIndex into) {
    if (from == NO_OUTPUT || into == NO_OUTPUT) {
        ThrowEngineError(LINE_MERGE_WITH_NOTHING);
    }
    Chain& p = m_chains[FindRoot(from)];
    const OutputIndex root = FindRoot(into);
    Chain& q = m_chains[root];
    q.hole = false;
    if (&p != &q) {
        m_vertices.SetNext(q.right, p.left);
        q.right = p.right;
        q.count += p.count;
        p.parent = root;
    }
}

bool ChainForest::IsContour(OutputIndex chain) const {
    return m_chains[chain].parent == chain && m_chains[chain].count >= SMALLEST_CONTOUR;
}

gpc_polygon ChainForest::TakeResult() const {
    std::uint64_t contours = 0;
    for (OutputIndex c = 0; c < m_chains.Count(); ++c) {
        contours += IsContour(c) ? 1U : 0U;
    }
    PolygonBuilder result(contours);
    for (auto c = static_cast<OutputIndex>(m_chains.Count()); c-- > 0;) {
        if (IsContour(c)) {
            const Chain& chain = m_chains[c];
            CopyVertices(chain, result.AddContour(chain.count, chain.hole ? 1 : 0));
        }
    }
    return result.Release();
}

// A chain runs from its left end to its right end; the contour's array is filled backwards.
void ChainForest::CopyVertices(const Chain& chain, gpc_vertex_list& contour) const {
    VertexIndex from = chain.left;
    for (int to = contour.num_vertices; to-- > 0;) {
        contour.vertex[to] = m_vertices.Point(from);
        from = m_vertices.Next(from);
    }
}

void ContourOutput::BeginRun() {
    m_carried = NO_OUTPUT;
    m_previousX = -std::numeric_limits<double>::max();
}

// The carried chain's end may already stand at this x: the event before was there, too.
void ContourOutput::AddCarriedLeft(const gpc_vertex& point) {
    if (point.x != m_previousX) {
        m_chains.AddLeft(m_carried, point);
        m_previousX = point.x;
    }
}

void ContourOutput::AddCarriedRight(const gpc_vertex& point) {
    if (point.x != m_previousX) {
        m_chains.AddRight(m_carried, point);
        m_previousX = point.x;
    }
}

void ContourOutput::BeginAt(Slot& slot, const gpc_vertex& point) {
    slot.outp[ABOVE] = m_chains.Begin(point);
}

void ContourOutput::AtBoundary(VertexClass vertexClass, Slot& slot, const gpc_vertex& point) {
    switch (vertexClass) {
    case VertexClass::ExternalMinimum:
    case VertexClass::InternalMinimum:
        BeginAt(slot, point);
        m_previousX = point.x;
        m_carried = slot.outp[ABOVE];
        break;
    case VertexClass::ExternalRightIntermediate:
        AddCarriedRight(point);
        slot.outp[ABOVE] = std::exchange(m_carried, NO_OUTPUT);
        break;
    case VertexClass::InternalLeftIntermediate:
        AddCarriedLeft(point);
        slot.outp[ABOVE] = std::exchange(m_carried, NO_OUTPUT);
        break;
    case VertexClass::ExternalLeftIntermediate:
        m_chains.AddLeft(slot.outp[BELOW], point);
        m_previousX = point.x;
        m_carried = slot.outp[BELOW];
        break;
    case VertexClass::InternalRightIntermediate:
        m_chains.AddRight(slot.outp[BELOW], point);
        m_previousX = point.x;
        m_carried = std::exchange(slot.outp[BELOW], NO_OUTPUT);
        break;
    case VertexClass::ExternalMaximum:
        AddCarriedLeft(point);
        m_chains.MergeRight(m_carried, slot.outp[BELOW]);
        m_carried = NO_OUTPUT;
        break;
    case VertexClass::InternalMaximum:
        AddCarriedRight(point);
        m_chains.MergeLeft(m_carried, slot.outp[BELOW]);
        m_carried = NO_OUTPUT;
        slot.outp[BELOW] = NO_OUTPUT;
        break;
    case VertexClass::InternalMaximumAndMinimum:
        AddCarriedRight(point);
        m_chains.MergeLeft(m_carried, slot.outp[BELOW]);
        slot.outp[BELOW] = NO_OUTPUT;
        BeginAt(slot, point);
        m_carried = slot.outp[ABOVE];
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        AddCarriedLeft(point);
        m_chains.MergeRight(m_carried, slot.outp[BELOW]);
        slot.outp[BELOW] = NO_OUTPUT;
        BeginAt(slot, point);
        m_carried = slot.outp[ABOVE];
        break;
    case VertexClass::LeftEdge:
        if (slot.bot.y == point.y) {
            m_chains.AddLeft(slot.outp[BELOW], point);
        }
        slot.outp[ABOVE] = slot.outp[BELOW];
        m_previousX = point.x;
        break;
    case VertexClass::RightEdge:
        if (slot.bot.y == point.y) {
            m_chains.AddRight(slot.outp[BELOW], point);
        }
        slot.outp[ABOVE] = slot.outp[BELOW];
        m_previousX = point.x;
        break;
    case VertexClass::Empty:
    case VertexClass::TopEdge:
    case VertexClass::BottomEdge:
    case VertexClass::Full: break;
    }
}

void ContourOutput::AtCrossing(VertexClass vertexClass, Slot& left, Slot& right,
                               const gpc_vertex& point) {
    OutputIndex& p = left.outp[ABOVE];
    OutputIndex& q = right.outp[ABOVE];
    const bool both = p != NO_OUTPUT && q != NO_OUTPUT;
    switch (vertexClass) {
    case VertexClass::ExternalMinimum:
    case VertexClass::InternalMinimum:
        BeginAt(left, point);
        q = p;
        break;
    case VertexClass::ExternalRightIntermediate:
        if (p != NO_OUTPUT) {
            m_chains.AddRight(p, point);
            q = std::exchange(p, NO_OUTPUT);
        }
        break;
    case VertexClass::ExternalLeftIntermediate:
        if (q != NO_OUTPUT) {
            m_chains.AddLeft(q, point);
            p = std::exchange(q, NO_OUTPUT);
        }
        break;
    case VertexClass::InternalLeftIntermediate:
        if (p != NO_OUTPUT) {
            m_chains.AddLeft(p, point);
            q = std::exchange(p, NO_OUTPUT);
        }
        break;
    case VertexClass::InternalRightIntermediate:
        if (q != NO_OUTPUT) {
            m_chains.AddRight(q, point);
            p = std::exchange(q, NO_OUTPUT);
        }
        break;
    case VertexClass::ExternalMaximum:
        if (both) {
            m_chains.AddLeft(p, point);
            m_chains.MergeRight(p, q);
            p = q = NO_OUTPUT;
        }
        break;
    case VertexClass::InternalMaximum:
        if (both) {
            m_chains.AddRight(p, point);
            m_chains.MergeLeft(p, q);
            p = q = NO_OUTPUT;
        }
        break;
    case VertexClass::InternalMaximumAndMinimum:
        if (both) {
            m_chains.AddRight(p, point);
            m_chains.MergeLeft(p, q);
            BeginAt(left, point);
            q = p;
        }
        break;
    case VertexClass::ExternalMaximumAndMinimum:
        if (both) {
            m_chains.AddLeft(p, point);
            m_chains.MergeRight(p, q);
            BeginAt(left, point);
            q = p;
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
