// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom::detail {

/// A binary tree of bounds over edges, in one array.
///
/// Nodes stand in the order of a walk that goes left first. Each knows where its subtree ends,
/// so a query is a loop over the array that steps into a node or past its subtree, without a
/// stack. A leaf has up to LEAF_SIZE entries.
///
/// `Bounds` is default-constructed empty and has
/// - `void Add(const Bounds&)`, which grows it,
/// - `int SplitAxis() const`, the axis along which a set of such bounds is best split, asked of
///   the bounds of the entries' centres,
/// - `double Centre(int axis) const`, and `static Bounds At(const Bounds&)`, the bounds of the
///   centre alone.
template <typename Bounds>
class EdgeTree {
public:
    struct Entry {
        Bounds bounds;
        std::uint32_t edge;
    };

    EdgeTree() = default;
    explicit EdgeTree(std::vector<Entry> entries) : m_entries(std::move(entries)) {
        if (!m_entries.empty()) {
            m_nodes.reserve(2 * (m_entries.size() / (LEAF_SIZE / 2) + 1));
            Build(0, m_entries.size());
        }
    }

    /// Calls `visit(edge)` for every entry whose bounds and those of all nodes above it are not
    /// missed, until a visit returns false. An edge with several entries may come repeatedly.
    template <typename Misses, typename Visit>
    bool Walk(Misses misses, Visit visit) const {
        std::size_t i = 0;
        while (i < m_nodes.size()) {
            const Node& node = m_nodes[i];
            if (misses(node.bounds)) {
                i = node.end;
                continue;
            }
            for (std::uint32_t k = node.first; k < node.last; ++k) {
                if (!misses(m_entries[k].bounds) && !visit(m_entries[k].edge)) {
                    return false;
                }
            }
            ++i;
        }
        return true;
    }

private:
    static constexpr std::size_t LEAF_SIZE = 4;

    struct Node {
        Bounds bounds;
        std::uint32_t first, last; ///< the entries of a leaf; an inner node has none
        std::uint32_t end;         ///< the node behind the subtree
    };

    void Build(std::size_t first, std::size_t last) {
        const std::size_t index = m_nodes.size();
        m_nodes.push_back({BoundsOf(first, last), 0, 0, 0});
        if (last - first <= LEAF_SIZE) {
            m_nodes[index].first = static_cast<std::uint32_t>(first);
            m_nodes[index].last = static_cast<std::uint32_t>(last);
        } else {
            const std::size_t middle = first + (last - first) / 2;
            Split(first, middle, last);
            Build(first, middle);
            Build(middle, last);
        }
        m_nodes[index].end = static_cast<std::uint32_t>(m_nodes.size());
    }

    Bounds BoundsOf(std::size_t first, std::size_t last) const {
        Bounds bounds;
        for (std::size_t k = first; k < last; ++k) {
            bounds.Add(m_entries[k].bounds);
        }
        return bounds;
    }

    void Split(std::size_t first, std::size_t middle, std::size_t last) {
        Bounds centres;
        for (std::size_t k = first; k < last; ++k) {
            centres.Add(Bounds::At(m_entries[k].bounds));
        }
        const int axis = centres.SplitAxis();
        const auto at = [this](std::size_t k) {
            return m_entries.begin() + static_cast<std::ptrdiff_t>(k);
        };
        std::nth_element(at(first), at(middle), at(last), [axis](const Entry& a, const Entry& b) {
            return a.bounds.Centre(axis) < b.bounds.Centre(axis);
        });
    }

    std::vector<Entry> m_entries;
    std::vector<Node> m_nodes;
};

} // namespace geom::detail
