// SPDX-License-Identifier: MIT
#include "geometry/detail/CrowdedCells.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace geom::detail {

namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();

// How far a point is from a range, along one axis; 0 inside.
double Gap(double low, double high, double x) {
    return std::max(std::max(0.0, low - x), x - high);
}

// Squared, as the distance of a vertex is computed. Subtraction, multiplication and addition
// round monotonically: no vertex in the box has a smaller squared distance, not even by rounding.
double DistanceSquared(const Box2d& box, const Vec2d& p) {
    const double dx = Gap(box.minX, box.maxX, p.x);
    const double dy = Gap(box.minY, box.maxY, p.y);
    return dx * dx + dy * dy;
}

} // namespace

// A query in one cell.
struct CrowdedCells::Descent {
    const CrowdedCells& trees;
    const SpatialSearchGrid2D::IVertexSource& source;
    const int* indices;
    std::size_t count;
    const Vec2d p;
    NearestVertex& best;

    // The part that may hold the better vertex first: it mostly makes the other one needless.
    void Visit(const Subtree& tree) const {
        if (tree.leaves == 1) {
            VisitLeaf(tree.firstLeaf * LEAF);
            return;
        }
        const Branch& branch = trees.m_branches[tree.branch];
        const double distances[] = {DistanceSquared(branch.boxes[0], p),
                                    DistanceSquared(branch.boxes[1], p)};
        const NearestVertex first = {branch.lowest[0], distances[0]};
        const std::size_t better = first.CanChange(branch.lowest[1], distances[1]) ? 1 : 0;
        for (const std::size_t part : {better, 1 - better}) {
            if (best.CanChange(branch.lowest[part], distances[part])) {
                Visit(tree.Part(part));
            }
        }
    }

    void VisitLeaf(std::size_t at) const {
        best.Compete(source, indices + at, std::min(LEAF, count - at), p);
    }
};

void CrowdedCells::Search(std::size_t cell, const SpatialSearchGrid2D::IVertexSource& source,
                          const int* indices, std::size_t count, const Vec2d& p,
                          NearestVertex& best) const {
    // Gaps to what is no number would look like none.
    if (!std::isnan(p.x) && !std::isnan(p.y)) {
        Descent{*this, source, indices, count, p, best}.Visit(TreeOf(m_roots[cell], count));
    }
}

CrowdedCells::Builder::Builder(const std::vector<int>& cellStarts) {
    std::size_t entries = 0;
    std::size_t branches = 0;
    const std::size_t cells = cellStarts.size() - 1;
    for (std::size_t cell = 0; cell < cells; ++cell) {
        const std::size_t count = static_cast<std::size_t>(cellStarts[cell + 1] - cellStarts[cell]);
        if (count <= LIMIT) {
            continue;
        }
        if (entries == 0) {
            m_shifts.resize(cells, NOT_CROWDED);
            m_result.m_roots.resize(cells, NOT_CROWDED);
        }
        m_shifts[cell] = cellStarts[cell] - static_cast<int>(entries);
        m_result.m_roots[cell] = static_cast<int>(branches);
        entries += count;
        branches += LeavesFor(count) - 1;
    }
    m_entries.resize(entries);
    m_result.m_branches.resize(branches);
}

// Vertices that are no numbers are never nearest. For the sake of an order they all go to the
// far end of the plane.
void CrowdedCells::Builder::Keep(std::size_t at, int index, const Vec2d& vertex) {
    const bool isPoint = !std::isnan(vertex.x) && !std::isnan(vertex.y);
    m_entries[at] = {isPoint ? vertex : Vec2d(INFINITE, INFINITE), index};
}

CrowdedCells CrowdedCells::Builder::Build(const std::vector<int>& cellStarts,
                                          std::vector<int>& cellIndices) {
    for (std::size_t cell = 0; cell < m_shifts.size(); ++cell) {
        if (m_shifts[cell] == NOT_CROWDED) {
            continue;
        }
        Entry* const first = m_entries.data() + (cellStarts[cell] - m_shifts[cell]);
        const std::ptrdiff_t count = cellStarts[cell + 1] - cellStarts[cell];
        Arrange(first, first + count,
                TreeOf(m_result.m_roots[cell], static_cast<std::size_t>(count)));
        std::transform(first, first + count, cellIndices.begin() + cellStarts[cell],
                       [](const Entry& entry) { return entry.index; });
    }
    return std::move(m_result);
}

CrowdedCells::Builder::Extent CrowdedCells::Builder::ExtentOf(const Entry* first,
                                                              const Entry* last) {
    Extent extent = {Box2d(INFINITE, INFINITE, -INFINITE, -INFINITE), first->index};
    for (const Entry* entry = first; entry != last; ++entry) {
        extent.box.minX = std::min(extent.box.minX, entry->vertex.x);
        extent.box.minY = std::min(extent.box.minY, entry->vertex.y);
        extent.box.maxX = std::max(extent.box.maxX, entry->vertex.x);
        extent.box.maxY = std::max(extent.box.maxY, entry->vertex.y);
        extent.lowest = std::min(extent.lowest, entry->index);
    }
    return extent;
}

// Parts the vertices across the longer side of their box, and each part again.
CrowdedCells::Builder::Extent CrowdedCells::Builder::Arrange(Entry* first, Entry* last,
                                                             const Subtree& tree) {
    const Extent extent = ExtentOf(first, last);
    if (tree.leaves == 1) {
        std::sort(first, last, [](const Entry& a, const Entry& b) { return a.index < b.index; });
        return extent;
    }
    Entry* const middle = first + tree.LeavesInFirstPart() * LEAF;
    const Box2d& box = extent.box;
    if (box.maxX - box.minX > box.maxY - box.minY) {
        std::nth_element(first, middle, last,
                         [](const Entry& a, const Entry& b) { return a.vertex.x < b.vertex.x; });
    } else {
        std::nth_element(first, middle, last,
                         [](const Entry& a, const Entry& b) { return a.vertex.y < b.vertex.y; });
    }
    const Extent parts[] = {Arrange(first, middle, tree.Part(0)),
                            Arrange(middle, last, tree.Part(1))};
    Branch& branch = m_result.m_branches[tree.branch];
    for (std::size_t i = 0; i < 2; ++i) {
        branch.boxes[i] = parts[i].box;
        branch.lowest[i] = parts[i].lowest;
    }
    return extent;
}

} // namespace geom::detail
