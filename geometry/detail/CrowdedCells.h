// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"
#include "geometry/detail/NearestVertex.h"

#include <cstddef>
#include <vector>

namespace geom::detail {

/// Search trees over the vertices of those cells of a grid that hold too many to look at all.
///
/// A cell's indices are arranged in leaves of LEAF vertices that lie close together; only the
/// last leaf may be shorter. A branch over k leaves parts them into the first (k + 1) / 2 and the
/// rest, and knows of both the box and the lowest index. So the shape of a tree follows from the
/// number of vertices alone, and the tree holds neither coordinates nor pointers: 5 bytes for
/// each vertex of a crowded cell.
class CrowdedCells {
public:
    /// Cells of more vertices are crowded.
    static constexpr std::size_t LIMIT = 64;

    class Builder;

    /// Lets the vertices of one crowded cell compete for the nearest to `p`, leaving out those
    /// that cannot win. `indices` are the cell's, as the builder arranged them.
    void Search(std::size_t cell, const SpatialSearchGrid2D::IVertexSource& source,
                const int* indices, std::size_t count, const Vec2d& p, NearestVertex& best) const;

private:
    static constexpr std::size_t LEAF = 16;

    struct Branch {
        Box2d boxes[2];
        int lowest[2];
    };

    /// Consecutive leaves and the branch over them, whose first part is the next branch.
    struct Subtree {
        std::size_t branch;
        std::size_t firstLeaf;
        std::size_t leaves;

        std::size_t LeavesInFirstPart() const { return (leaves + 1) / 2; }
        Subtree Part(std::size_t part) const {
            const std::size_t first = LeavesInFirstPart();
            return part == 0 ? Subtree{branch + 1, firstLeaf, first}
                             : Subtree{branch + first, firstLeaf + first, leaves - first};
        }
    };

    struct Descent;

    static std::size_t LeavesFor(std::size_t vertices) { return (vertices + LEAF - 1) / LEAF; }

    static Subtree TreeOf(int root, std::size_t vertices) {
        return {static_cast<std::size_t>(root), 0, LeavesFor(vertices)};
    }

    std::vector<int> m_roots; // the branch over each crowded cell
    std::vector<Branch> m_branches;
};

/// Collects the vertices of crowded cells and arranges them.
class CrowdedCells::Builder {
public:
    /// `cellStarts` says where each cell's indices start, and where the last ones end.
    explicit Builder(const std::vector<int>& cellStarts);

    /// Whether there is anything to build.
    bool HasCrowds() const { return !m_entries.empty(); }

    /// Takes a vertex of any cell whose index stands at `place` of all indices.
    void Add(std::size_t cell, int place, int index, const Vec2d& vertex) {
        if (HasCrowds() && m_shifts[cell] != NOT_CROWDED) {
            Keep(static_cast<std::size_t>(place - m_shifts[cell]), index, vertex);
        }
    }

    /// Rearranges the indices of crowded cells, all of whose vertices have been added.
    CrowdedCells Build(const std::vector<int>& cellStarts, std::vector<int>& cellIndices);

private:
    struct Entry {
        Vec2d vertex;
        int index;
    };
    struct Extent {
        Box2d box;
        int lowest;
    };

    static constexpr int NOT_CROWDED = -1;

    void Keep(std::size_t at, int index, const Vec2d& vertex);
    Extent Arrange(Entry* first, Entry* last, const Subtree& tree);
    static Extent ExtentOf(const Entry* first, const Entry* last);

    CrowdedCells m_result;
    std::vector<Entry> m_entries;
    std::vector<int> m_shifts; // from the places of a crowded cell to its entries
};

} // namespace geom::detail
