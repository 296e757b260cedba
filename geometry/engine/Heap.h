// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/engine/Memory.h"

namespace geom::detail {

/// A binary min-heap of items with a member `y`.
template <typename T>
class Heap {
public:
    explicit Heap(const char* reason) : m_items(reason) {}

    bool IsEmpty() const { return m_items.IsEmpty(); }
    const T& Top() const { return m_items[0]; }

    void Push(const T& item) {
        m_items.Append(item);
        Lift(m_items.Count() - 1, item);
    }

    void Pop() {
        const T last = m_items[m_items.Count() - 1];
        m_items.Truncate(m_items.Count() - 1);
        if (!m_items.IsEmpty()) {
            ReplaceTop(last);
        }
    }

private:
    // The hole sinks to the bottom along the smaller children, and the item rises from there,
    // since it mostly belongs near the bottom.
    void ReplaceTop(const T& item) {
        const std::uint64_t count = m_items.Count();
        std::uint64_t hole = 0;
        for (std::uint64_t child = 1; child < count; child = 2 * hole + 1) {
            if (child + 1 < count) {
                child += m_items[child + 1].y < m_items[child].y ? 1U : 0U;
            }
            m_items[hole] = m_items[child];
            hole = child;
        }
        Lift(hole, item);
    }

    void Lift(std::uint64_t hole, const T& item) {
        while (hole > 0) {
            const std::uint64_t parent = (hole - 1) / 2;
            if (!(item.y < m_items[parent].y)) {
                break;
            }
            m_items[hole] = m_items[parent];
            hole = parent;
        }
        m_items[hole] = item;
    }

    Block<T> m_items;
};

} // namespace geom::detail
