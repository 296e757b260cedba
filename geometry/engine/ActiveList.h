// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The active edges in walking order.
///
/// Beside the links the list keeps two things that make order cheap to ask for. Labels grow
/// along the list, so that two slots are compared at once; where they run out they are spread
/// locally (Bender, Cole, Demaine, Farach-Colton and Zito, "Two simplified algorithms for
/// maintaining order in a list", ESA 2002). And a directory of leaves, runs of up to 16
/// neighbours, lets a binary search find the place of a new edge.

#include "geometry/engine/Memory.h"
#include "geometry/engine/Records.h"

namespace geom::detail {

class ActiveList {
public:
    ActiveList()
        : m_leaves("edge table creation"), m_directory("edge table creation"),
          m_freeLeaves("edge table creation"), m_moved("edge table creation") {}

    Slot* First() const { return m_first; }
    Slot* Last() const { return m_last; }

    /// Inserts a slot behind another, or at the head of the list behind null.
    void InsertBehind(Slot* place, Slot* slot);
    void Remove(Slot* slot);

    /// Exchanges two adjacent bundles, given by their heads. Slots take over the labels and the
    /// leaf places that belong to their new positions.
    ///
    ///     before | first .. left | second .. right | after
    ///     before | second .. right | first .. left | after
    void SwapBundles(Slot* left, Slot* right);

    /// Among the slots from `first` to `last`, whose x at y ascend, finds one at or before
    /// which no x is as large as this one and which stands less than two leaves before the first
    /// that is; null when the first slot's x is already as large.
    Slot* FindBelow(Slot* first, Slot* last, double x, double y) const;

private:
    static constexpr std::uint32_t LEAF_SIZE = 16;

    struct Leaf {
        Slot* slots[LEAF_SIZE];
        std::uint32_t count;
    };

    void Link(Slot* place, Slot* slot);
    void Label(Slot* slot);
    void RelabelAround(Slot* slot);
    static void Spread(Slot* first, Slot* last, std::uint64_t low, std::uint64_t step);
    std::uint32_t NewLeaf();
    std::uint64_t RankOf(const Slot* slot) const;
    void InsertIntoLeaf(Slot* place, Slot* slot);
    void SplitLeaf(std::uint32_t leaf);
    Slot** EntryOf(const Slot* slot);
    void SwapSingles(Slot* left, Slot* right);
    void Reorder(Slot* first, Slot* second, Slot* after);

    Slot* m_first = nullptr;
    Slot* m_last = nullptr;
    std::uint64_t m_count = 0;
    Block<Leaf> m_leaves;
    Block<std::uint32_t> m_directory; ///< leaves in list order
    Block<std::uint32_t> m_freeLeaves;

    struct Position {
        Slot* slot;
        Slot** entry;
        std::uint64_t label;
        std::uint32_t leaf;
    };
    Block<Position> m_moved;
};

} // namespace geom::detail
