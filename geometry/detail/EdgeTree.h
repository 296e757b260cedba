// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/Foundation.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace geom::detail {

/// A tree of boxes over runs of edges, packed for few and short visits to memory.
///
/// Every node holds the boxes of its 16 children, side by side, in single precision: four cache
/// lines. The children of node i of a level are the nodes 16 i to 16 i + 15 of the level below,
/// or the entries of these numbers below the lowest level, so there are no pointers. Missing
/// children have empty boxes.
class EdgeTree {
public:
    static constexpr std::size_t WIDTH = 16;

    /// Coordinates are between -1 and 4, and rounded outwards by this step.
    static constexpr double SINGLE_STEP = 0x1p-22;
    static float RoundedDown(double x) { return static_cast<float>(x - SINGLE_STEP); }
    static float RoundedUp(double x) { return static_cast<float>(x + SINGLE_STEP); }

    struct Entry {
        Box2d box;
        std::uint32_t run;
    };

    struct alignas(64) Node {
        float lowX[WIDTH], lowY[WIDTH], highX[WIDTH], highY[WIDTH];

        Node() {
            for (float* const low : {lowX, lowY}) {
                std::fill_n(low, WIDTH, std::numeric_limits<float>::infinity());
            }
            for (float* const high : {highX, highY}) {
                std::fill_n(high, WIDTH, -std::numeric_limits<float>::infinity());
            }
        }

        void SetChild(std::size_t k, float left, float bottom, float right, float top) {
            lowX[k] = left;
            lowY[k] = bottom;
            highX[k] = right;
            highY[k] = top;
        }
    };

    /// A bit for each child for which `holds(child)`; simple conditions without jumps become a
    /// few vector instructions.
    template <typename Holds>
    static std::uint32_t BitsOf(const Holds& holds) {
        constexpr std::uint32_t BITS[] = {0x1,    0x2,    0x4,    0x8,   0x10,  0x20,
                                          0x40,   0x80,   0x100,  0x200, 0x400, 0x800,
                                          0x1000, 0x2000, 0x4000, 0x8000};
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < WIDTH; ++k) {
            bits |= holds(k) ? BITS[k] : 0U;
        }
        return bits;
    }

    EdgeTree() = default;
    explicit EdgeTree(std::vector<Entry> entries);

    /// Calls `visit(run)` for every entry that `hits`, asked of the nodes from the top, leads
    /// to, until a visit returns false. `hits(node)` has a bit for each child to look at. A run
    /// with several entries may come repeatedly.
    template <typename Hits, typename Visit>
    bool Walk(const Hits& hits, const Visit& visit) const {
        return m_levels.empty() || WalkNode(m_levels.size() - 1, 0, hits, visit);
    }

private:
    void AddLevel();

    template <typename Hits, typename Visit>
    bool WalkNode(std::size_t level, std::size_t index, const Hits& hits,
                  const Visit& visit) const {
        const std::uint32_t children = hits(m_levels[level][index]);
        for (std::size_t k = 0; (children >> k) != 0; ++k) {
            if ((children >> k & 1U) == 0) {
                continue;
            }
            const std::size_t child = index * WIDTH + k;
            const bool goesOn =
                level == 0 ? visit(m_runs[child]) : WalkNode(level - 1, child, hits, visit);
            if (!goesOn) {
                return false;
            }
        }
        return true;
    }

    std::vector<std::uint32_t> m_runs;
    std::vector<std::vector<Node>> m_levels; ///< from the lowest to the root
};

} // namespace geom::detail
