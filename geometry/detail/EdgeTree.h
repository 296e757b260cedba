// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace geom::detail {

/// A tree of ranges along AXES axes over edges, packed for few and short visits to memory.
///
/// Every node holds the ranges of its 16 children, axis by axis, in single precision rounded
/// outwards: four cache lines of a plane. The children of node i of a level are the nodes 16 i
/// to 16 i + 15 of the level below, or the entries of these numbers below the lowest level, so
/// there are no pointers. Missing children have empty ranges.
template <std::size_t AXES>
class EdgeTree {
public:
    static constexpr std::size_t WIDTH = 16;

    struct Entry {
        std::array<double, AXES> low;
        std::array<double, AXES> high;
        std::uint32_t edge;

        double Centre(std::size_t axis) const { return 0.5 * (low[axis] + high[axis]); }
    };

    struct alignas(64) Node {
        float low[AXES][WIDTH];
        float high[AXES][WIDTH];

        Node() {
            std::fill_n(&low[0][0], AXES * WIDTH, std::numeric_limits<float>::infinity());
            std::fill_n(&high[0][0], AXES * WIDTH, -std::numeric_limits<float>::infinity());
        }
    };

    EdgeTree() = default;

    /// The entries' ranges are numbers of moderate size. `chooseAxis(spreads)` is asked for the
    /// axis along which to part entries whose centres spread so far along each.
    template <typename ChooseAxis>
    EdgeTree(std::vector<Entry> entries, ChooseAxis chooseAxis) {
        if (entries.empty()) {
            return;
        }
        Arrange(entries.begin(), entries.end(), chooseAxis);
        m_edges.reserve(entries.size());
        m_levels.emplace_back((entries.size() + WIDTH - 1) / WIDTH);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            m_edges.push_back(entries[i].edge);
            for (std::size_t axis = 0; axis < AXES; ++axis) {
                Widen(m_levels[0][i / WIDTH], axis, i % WIDTH, RoundedDown(entries[i].low[axis]),
                      RoundedUp(entries[i].high[axis]));
            }
        }
        while (m_levels.back().size() > 1) {
            AddLevel();
        }
    }

    /// Calls `visit(edge)` for every entry that `hits`, asked of the nodes from the top, leads
    /// to, until a visit returns false. `hits(node)` has a bit for each child to look at. An
    /// edge with several entries may come repeatedly.
    template <typename Hits, typename Visit>
    bool Walk(const Hits& hits, const Visit& visit) const {
        return m_levels.empty() || WalkNode(m_levels.size() - 1, 0, hits, visit);
    }

    static float RoundedDown(double x) {
        const float f = static_cast<float>(x);
        return f > x ? std::nextafter(f, -std::numeric_limits<float>::infinity()) : f;
    }
    static float RoundedUp(double x) { return -RoundedDown(-x); }

private:
    using Iterator = typename std::vector<Entry>::iterator;

    // Parts the entries again and again so that each child of each node gets a compact lot. The
    // first part is always the largest power of two that leaves something for the second one:
    // it fills whole subtrees.
    template <typename ChooseAxis>
    void Arrange(Iterator first, Iterator last, const ChooseAxis& chooseAxis) {
        const std::size_t count = static_cast<std::size_t>(last - first);
        if (count <= WIDTH) {
            return;
        }
        std::size_t part = WIDTH;
        while (2 * part < count) {
            part *= 2;
        }
        const std::size_t axis = chooseAxis(Spreads(first, last));
        const Iterator middle = first + static_cast<std::ptrdiff_t>(part);
        std::nth_element(first, middle, last, [axis](const Entry& a, const Entry& b) {
            return a.Centre(axis) < b.Centre(axis);
        });
        Arrange(first, middle, chooseAxis);
        Arrange(middle, last, chooseAxis);
    }

    std::array<double, AXES> Spreads(Iterator first, Iterator last) const {
        std::array<double, AXES> spreads;
        for (std::size_t axis = 0; axis < AXES; ++axis) {
            double low = first->Centre(axis);
            double high = low;
            for (Iterator entry = first; entry != last; ++entry) {
                low = std::min(low, entry->Centre(axis));
                high = std::max(high, entry->Centre(axis));
            }
            spreads[axis] = high - low;
        }
        return spreads;
    }

    static void Widen(Node& node, std::size_t axis, std::size_t child, float low, float high) {
        node.low[axis][child] = std::min(node.low[axis][child], low);
        node.high[axis][child] = std::max(node.high[axis][child], high);
    }

    void AddLevel() {
        const std::vector<Node>& below = m_levels.back();
        std::vector<Node> level((below.size() + WIDTH - 1) / WIDTH);
        for (std::size_t i = 0; i < below.size(); ++i) {
            for (std::size_t axis = 0; axis < AXES; ++axis) {
                const float* const low = below[i].low[axis];
                const float* const high = below[i].high[axis];
                Widen(level[i / WIDTH], axis, i % WIDTH, *std::min_element(low, low + WIDTH),
                      *std::max_element(high, high + WIDTH));
            }
        }
        m_levels.push_back(std::move(level));
    }

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
                level == 0 ? visit(m_edges[child]) : WalkNode(level - 1, child, hits, visit);
            if (!goesOn) {
                return false;
            }
        }
        return true;
    }

    std::vector<std::uint32_t> m_edges;
    std::vector<std::vector<Node>> m_levels; ///< from the lowest to the root
};

} // namespace geom::detail
