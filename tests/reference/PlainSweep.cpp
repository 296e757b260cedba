// SPDX-License-Identifier: MIT
#include "tests/reference/PlainSweep.h"

#include "geometry/Errors.h"
#include "geometry/GPCException.h"
#include "tests/reference/PlainOutput.h"

#include <algorithm>
#include <cmath>
#include <list>

namespace geom::test {

namespace {

constexpr double EPSILON = 0x1p-52;

constexpr int LINE_INCONSISTENT = 1;
constexpr int LINE_NO_ACTIVE_EDGE = 2;

/// Around an event, in the order of the walk along the scanline with y upwards:
///
///              before | after
///     above      4    |   8
///     ----------------x------->
///     below      1    |   2
enum Quadrant { BEFORE_BELOW = 1, AFTER_BELOW = 2, BEFORE_ABOVE = 4, AFTER_ABOVE = 8 };

/// A horizontal edge that is pending for one polygon: it lies between the event that began it
/// and the next one.
enum class Horizontal { None, Bottom, Top };

Horizontal NextHorizontal(Horizontal state, int exists, int parity) {
    constexpr Horizontal N = Horizontal::None;
    constexpr Horizontal B = Horizontal::Bottom;
    constexpr Horizontal T = Horizontal::Top;
    constexpr Horizontal NEXT[3][6] = {{B, T, T, B, N, N}, {N, N, N, N, T, T}, {N, N, N, N, B, B}};
    const int column = (exists - 1) * 2 + parity;
    if (column < 0 || column > 5)
        ThrowInconsistent();
    return NEXT[static_cast<int>(state)][column];
}

int Combine(gpc_op operation, int clip, int subject) {
    switch (operation) {
    case GPC_DIFF:
    case GPC_INT: return clip & subject;
    case GPC_XOR: return clip ^ subject;
    case GPC_UNION: return clip | subject;
    }
    return 0;
}

bool CarriesPolygon(const Edge& edge) {
    return edge.bundle[ABOVE][CLIP] || edge.bundle[ABOVE][SUBJECT];
}

struct Crossing {
    Edge* left; ///< before the crossing
    Edge* right;
    double x;
    double y; ///< above the bottom of the scanbeam
};

class Sweep {
public:
    Sweep(gpc_op operation, PlainOutput& output) : m_operation(operation), m_output(output) {}
    void Run(const SweepInput& input);

private:
    void Insert(Edge* edge);
    void BundleUp(double yb);
    void Coincide(Edge& tail, Edge& head) const;
    void VisitBoundary(double yb);
    bool Contributes(const int (&exists)[2]) const;
    VertexClass ClassAtBoundary(const Edge& edge) const;
    void RemoveEnded(double yb);
    void ProjectTo(double yt);
    std::list<Crossing> FindCrossings(double dy) const;
    std::size_t PositionOf(const Edge* edge) const;
    std::size_t FirstOfBundle(std::size_t head) const;
    bool Adjacent(const Crossing& crossing) const;
    void VisitCrossings(double yb, double dy);
    void Cross(const Crossing& crossing, double yb);
    VertexClass ClassAtCrossing(const Edge& e0, const Edge& e1) const;
    void Advance(double yt);

    gpc_op m_operation;
    PlainOutput& m_output;
    ActiveEdges m_active;
    int m_parity[2] = {};
    Horizontal m_horizontal[2] = {};
};

void Sweep::Run(const SweepInput& input) {
    // The outside of the clip polygon is what a difference keeps.
    m_parity[CLIP] = m_operation == GPC_DIFF ? 1 : 0;
    auto minimum = input.minima.begin();
    for (std::size_t row = 0; row < input.ordinates.size(); ++row) {
        const double yb = input.ordinates[row];
        if (minimum != input.minima.end() && minimum->y == yb) {
            for (Edge* edge : minimum->bounds)
                Insert(edge);
            ++minimum;
        }
        BundleUp(yb);
        VisitBoundary(yb);
        RemoveEnded(yb);
        if (row + 1 < input.ordinates.size()) {
            const double yt = input.ordinates[row + 1];
            ProjectTo(yt);
            VisitCrossings(yb, yt - yb);
            Advance(yt);
        }
    }
}

void Sweep::Insert(Edge* edge) {
    auto at = m_active.begin();
    while (at != m_active.end() && !GoesBehind(**at, *edge))
        ++at;
    m_active.insert(at, edge);
}

/// Finds the edges that coincide above the scanline.
void Sweep::BundleUp(double yb) {
    if (m_active.empty())
        ThrowInternalError(L"Gpc", LINE_NO_ACTIVE_EDGE);
    Edge* last = nullptr; // the last one so far that has an upward part
    for (Edge* edge : m_active) {
        const bool upward = edge->top.y != yb;
        edge->bundle[ABOVE][edge->role] = upward;
        edge->bundle[ABOVE][edge->role == CLIP ? SUBJECT : CLIP] = 0;
        edge->bstate[ABOVE] = Bundling::None;
        if (!upward)
            continue;
        if (last && std::fabs(last->xb - edge->xb) <= EPSILON &&
            std::fabs(last->dx - edge->dx) <= EPSILON)
            Coincide(*last, *edge);
        last = edge;
    }
}

void Sweep::Coincide(Edge& tail, Edge& head) const {
    const Role other = head.role == CLIP ? SUBJECT : CLIP;
    head.bundle[ABOVE][head.role] ^= tail.bundle[ABOVE][head.role];
    head.bundle[ABOVE][other] = tail.bundle[ABOVE][other];
    head.bstate[ABOVE] = Bundling::Head;
    tail.bundle[ABOVE][CLIP] = 0;
    tail.bundle[ABOVE][SUBJECT] = 0;
    tail.bstate[ABOVE] = Bundling::Tail;
}

void Sweep::VisitBoundary(double yb) {
    m_horizontal[CLIP] = Horizontal::None;
    m_horizontal[SUBJECT] = Horizontal::None;
    m_output.BeginRow();
    for (Edge* edge : m_active) {
        int exists[2];
        for (int t : {CLIP, SUBJECT})
            exists[t] = edge->bundle[ABOVE][t] + 2 * edge->bundle[BELOW][t];
        if (exists[CLIP] == 0 && exists[SUBJECT] == 0)
            continue;
        for (int t : {CLIP, SUBJECT})
            edge->bside[t] = m_parity[t];
        const bool contributes = Contributes(exists);
        const VertexClass vertexClass = ClassAtBoundary(*edge);
        for (int t : {CLIP, SUBJECT}) {
            m_parity[t] ^= edge->bundle[ABOVE][t];
            if (exists[t] != 0)
                m_horizontal[t] = NextHorizontal(m_horizontal[t], exists[t], m_parity[t]);
        }
        if (contributes)
            m_output.AtBoundary(vertexClass, *edge, yb);
    }
}

bool Sweep::Contributes(const int (&exists)[2]) const {
    const bool clip = exists[CLIP] != 0;
    const bool subject = exists[SUBJECT] != 0;
    const bool pendingClip = m_horizontal[CLIP] != Horizontal::None;
    const bool pendingSubject = m_horizontal[SUBJECT] != Horizontal::None;
    const bool alike = m_parity[CLIP] == m_parity[SUBJECT];
    switch (m_operation) {
    case GPC_DIFF:
    case GPC_INT:
        return (clip && (m_parity[SUBJECT] || pendingSubject)) ||
               (subject && (m_parity[CLIP] || pendingClip)) || (clip && subject && alike);
    case GPC_XOR: return clip || subject;
    case GPC_UNION:
        return (clip && (!m_parity[SUBJECT] || pendingSubject)) ||
               (subject && (!m_parity[CLIP] || pendingClip)) || (clip && subject && alike);
    }
    return false;
}

VertexClass Sweep::ClassAtBoundary(const Edge& edge) const {
    int quadrants[2];
    for (int t : {CLIP, SUBJECT}) {
        const int horizontal = m_horizontal[t] != Horizontal::None ? 1 : 0;
        // Named by the side of the walk on which they lie: right is where the walk comes from.
        const int br = m_parity[t];
        const int bl = m_parity[t] ^ edge.bundle[ABOVE][t];
        const int tr = m_parity[t] ^ horizontal;
        const int tl = m_parity[t] ^ horizontal ^ edge.bundle[BELOW][t];
        quadrants[t] = tr * BEFORE_BELOW + tl * AFTER_BELOW + br * BEFORE_ABOVE + bl * AFTER_ABOVE;
    }
    return static_cast<VertexClass>(Combine(m_operation, quadrants[CLIP], quadrants[SUBJECT]));
}

/// Removes the edges that end at yb. A bundle that loses its head gives what the head carried
/// to the tail before it.
void Sweep::RemoveEnded(double yb) {
    for (std::size_t i = 0; i < m_active.size();) {
        const Edge* edge = m_active[i];
        if (edge->top.y != yb) {
            ++i;
            continue;
        }
        if (edge->bstate[BELOW] == Bundling::Head && i > 0 &&
            m_active[i - 1]->bstate[BELOW] == Bundling::Tail) {
            Edge* heir = m_active[i - 1];
            heir->outp[BELOW] = edge->outp[BELOW];
            const bool more = i > 1 && m_active[i - 2]->bstate[BELOW] == Bundling::Tail;
            heir->bstate[BELOW] = more ? Bundling::Head : Bundling::None;
        }
        m_active.erase(m_active.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

void Sweep::ProjectTo(double yt) {
    for (Edge* edge : m_active)
        edge->xt = edge->top.y == yt ? edge->top.x : edge->bot.x + edge->dx * (yt - edge->bot.y);
}

/// Sorts the edges by their x at the top of the scanbeam, by insertion: every edge that a new
/// one passes is crossed by it. The crossings come in ascending y, and in order of discovery
/// where y is equal.
std::list<Crossing> Sweep::FindCrossings(double dy) const {
    std::list<Crossing> crossings;
    std::vector<Edge*> sorted;
    for (Edge* edge : m_active) {
        if (edge->bstate[ABOVE] != Bundling::Head && !CarriesPolygon(*edge))
            continue;
        std::size_t at = sorted.size();
        for (; at > 0; --at) {
            Edge* st = sorted[at - 1];
            const double den = (st->xt - st->xb) - (edge->xt - edge->xb);
            const bool passes = edge->xt < st->xt && edge->dx != st->dx && std::fabs(den) > EPSILON;
            if (!passes)
                break;
            const double r = (edge->xb - st->xb) / den;
            const Crossing crossing{st, edge, st->xb + r * (st->xt - st->xb), r * dy};
            auto before = crossings.begin();
            while (before != crossings.end() && !(before->y > crossing.y))
                ++before;
            crossings.insert(before, crossing);
        }
        sorted.insert(sorted.begin() + static_cast<std::ptrdiff_t>(at), edge);
    }
    return crossings;
}

std::size_t Sweep::PositionOf(const Edge* edge) const {
    return static_cast<std::size_t>(std::find(m_active.begin(), m_active.end(), edge) -
                                    m_active.begin());
}

std::size_t Sweep::FirstOfBundle(std::size_t head) const {
    std::size_t first = head;
    if (m_active[head]->bstate[ABOVE] == Bundling::Head) {
        while (first > 0 && m_active[first - 1]->bstate[ABOVE] == Bundling::Tail)
            --first;
    }
    return first;
}

/// \return whether the right edge's bundle stands directly behind the left edge.
bool Sweep::Adjacent(const Crossing& crossing) const {
    const std::size_t right = FirstOfBundle(PositionOf(crossing.right));
    return right > 0 && m_active[right - 1] == crossing.left;
}

/// Where three or more edges pass through nearly one point, the computed ordinates of their
/// crossings can come in an order in which a pair is not yet adjacent. Such a pair waits until
/// the crossings that bring it together have been visited.
void Sweep::VisitCrossings(double yb, double dy) {
    std::list<Crossing> crossings = FindCrossings(dy);
    while (!crossings.empty()) {
        const auto next = std::find_if(crossings.begin(), crossings.end(),
                                       [this](const Crossing& c) { return Adjacent(c); });
        if (next == crossings.end())
            ThrowInconsistent();
        Cross(*next, yb);
        crossings.erase(next);
    }
}

void Sweep::Cross(const Crossing& crossing, double yb) {
    Edge& e0 = *crossing.left;
    Edge& e1 = *crossing.right;
    const std::size_t left = PositionOf(&e0);
    const std::size_t right = PositionOf(&e1);
    if (CarriesPolygon(e0) && CarriesPolygon(e1))
        m_output.AtCrossing(ClassAtCrossing(e0, e1),
                            {m_active, left, right, crossing.x, crossing.y + yb});
    for (int t : {CLIP, SUBJECT}) {
        if (e0.bundle[ABOVE][t])
            e1.bside[t] = !e1.bside[t];
        if (e1.bundle[ABOVE][t])
            e0.bside[t] = !e0.bside[t];
    }
    const auto at = [this](std::size_t i) {
        return m_active.begin() + static_cast<std::ptrdiff_t>(i);
    };
    std::rotate(at(FirstOfBundle(left)), at(FirstOfBundle(right)), at(right + 1));
}

VertexClass Sweep::ClassAtCrossing(const Edge& e0, const Edge& e1) const {
    int quadrants[2];
    for (int t : {CLIP, SUBJECT}) {
        const int has0 = e0.bundle[ABOVE][t];
        const int has1 = e1.bundle[ABOVE][t];
        const bool in = (has0 && !e0.bside[t]) || (has1 && e1.bside[t]) ||
                        (!has0 && !has1 && e0.bside[t] && e1.bside[t]);
        const int tr = in ? 1 : 0;
        const int tl = tr ^ has1;
        const int br = tr ^ has0;
        const int bl = tr ^ has1 ^ has0;
        quadrants[t] = tr * BEFORE_BELOW + tl * AFTER_BELOW + br * BEFORE_ABOVE + bl * AFTER_ABOVE;
    }
    return static_cast<VertexClass>(Combine(m_operation, quadrants[CLIP], quadrants[SUBJECT]));
}

/// Hands everything above the old scanline to below the new one. Where an edge ends, the next
/// edge of its bound takes its place.
void Sweep::Advance(double yt) {
    for (Edge*& place : m_active) {
        Edge* edge = place;
        Edge* heir = edge->top.y == yt && edge->succ ? edge->succ : edge;
        heir->outp[BELOW] = edge->outp[ABOVE];
        heir->bstate[BELOW] = edge->bstate[ABOVE];
        for (int t : {CLIP, SUBJECT})
            heir->bundle[BELOW][t] = edge->bundle[ABOVE][t];
        if (heir == edge)
            edge->xb = edge->xt;
        heir->outp[ABOVE] = NO_PIECE;
        place = heir;
    }
}

/// \return whether there can be no result at all, by the numbers of contours.
bool IsTriviallyEmpty(gpc_op operation, const gpc_polygon& subject, const gpc_polygon& clip) {
    const bool within = operation == GPC_DIFF || operation == GPC_INT;
    const bool noSubject = subject.num_contours <= 0;
    const bool noClip = clip.num_contours <= 0;
    return (noSubject && (noClip || within)) || (noClip && operation == GPC_INT);
}

void RunSweep(gpc_op operation, const gpc_polygon& subject, const gpc_polygon& clip,
              PlainOutput& output) {
    if (IsTriviallyEmpty(operation, subject, clip))
        return;
    const SweepInput input = BuildSweepInput(operation, subject, clip);
    if (!input.minima.empty())
        Sweep(operation, output).Run(input);
}

} // namespace

void ThrowInconsistent() {
    throw GPCException(L"Gpc", LINE_INCONSISTENT);
}

std::vector<PlainContour> PlainClip(gpc_op operation, const gpc_polygon& subject,
                                    const gpc_polygon& clip) {
    PlainContours contours;
    RunSweep(operation, subject, clip, contours);
    return contours.Result();
}

std::vector<PlainStrip> PlainTristrip(gpc_op operation, const gpc_polygon& subject,
                                      const gpc_polygon& clip) {
    PlainStrips strips;
    RunSweep(operation, subject, clip, strips);
    return strips.Result();
}

} // namespace geom::test
