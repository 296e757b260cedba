// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace geom::detail {

/// The lowest of the ordinates that slots wait for, each slot for one at most.
///
/// A binary tree with a leaf for each slot, by its number; every other node holds the lower
/// one of its children:
///
///                  1: 2 of d             When the winner's leaf changes, the matches on its way
///               /            \           to the root are played again. Their opponents, `*`, are
///          2: 3 of b       3: 2 of d     known beforehand, so that they can be fetched all at
///           /    \          /    \       once: in a heap each step has to wait for the one
///        5 of a  3 of b  7 of c  2 of d  before.
///                  *       *
class Tournament {
public:
    struct Entry {
        double y;
        Slot* slot; ///< null where no slot waits
    };

    /// \param reason what a failed request for storage was for.
    explicit Tournament(const char* reason) : m_nodes(reason), m_reason(reason) { Grow(); }

    bool IsEmpty() const { return m_nodes[1].slot == nullptr; }
    /// The lowest entry.
    const Entry& Winner() const { return m_nodes[1]; }

    /// Enters a slot that does not wait yet.
    void Enter(const Entry& entry) {
        while (entry.slot->number >= m_leaves) {
            Grow();
        }
        std::uint32_t node = m_leaves + entry.slot->number;
        m_nodes[node] = entry;
        for (node /= 2; node > 0 && entry.y < m_nodes[node].y; node /= 2) {
            m_nodes[node] = entry;
        }
    }

    /// The winner waits for another ordinate from now on.
    void ReplaceWinner(double y) { Replay(Winner().slot->number, {y, Winner().slot}); }
    /// The winner waits no longer.
    void RemoveWinner() { Replay(Winner().slot->number, NOBODY); }

private:
    static constexpr Entry NOBODY = {std::numeric_limits<double>::infinity(), nullptr};
    static constexpr std::uint32_t FIRST_LEAVES = 4;

    static Entry Lower(const Entry& a, const Entry& b) { return b.y < a.y ? b : a; }

    /// The same without a branch, which a processor would mostly guess wrong.
    static Entry LowerOfRandom(const Entry& a, const Entry& b) {
        const auto first = reinterpret_cast<std::uintptr_t>(a.slot);
        const auto second = reinterpret_cast<std::uintptr_t>(b.slot);
        const std::uintptr_t mask = std::uintptr_t{0} - (b.y < a.y ? 1U : 0U);
        const std::uintptr_t lower = first ^ ((first ^ second) & mask);
        // NOLINTNEXTLINE(performance-no-int-to-ptr): it is one of the two pointers again.
        return {std::min(b.y, a.y), reinterpret_cast<Slot*>(lower)};
    }

    void Replay(std::uint32_t leaf, Entry entry) {
        Entry* nodes = m_nodes.begin();
        std::uint32_t node = m_leaves + leaf;
        nodes[node] = entry;
        for (; node > 1; node /= 2) {
            entry = LowerOfRandom(entry, nodes[node ^ 1U]);
            nodes[node / 2] = entry;
        }
    }

    void Grow() {
        Block<Entry> grown(m_reason);
        const std::uint32_t leaves = std::max(FIRST_LEAVES, m_leaves * 2);
        Entry* nodes = grown.Space(std::uint64_t{leaves} * 2);
        for (std::uint32_t leaf = 0; leaf < leaves; ++leaf) {
            nodes[leaves + leaf] = leaf < m_leaves ? m_nodes[m_leaves + leaf] : NOBODY;
        }
        for (std::size_t node = leaves; --node > 0;) {
            nodes[node] = Lower(nodes[2 * node], nodes[2 * node + 1]);
        }
        m_nodes.Swap(grown);
        m_leaves = leaves;
    }

    Block<Entry> m_nodes; ///< the root is 1, the children of k are 2k and 2k + 1
    const char* m_reason;
    std::uint32_t m_leaves = 0; ///< a power of two
};

} // namespace geom::detail
