// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/engine/Memory.h"
#include "geometry/engine/Minima.h"
#include "geometry/engine/Records.h"

#include <algorithm>
#include <cmath>

namespace geom::detail {

/// The slots of a run. They do not move, and are used again when their bound has ended.
class SlotPool {
public:
    SlotPool() : m_chunks("edge table creation") {}
    SlotPool(const SlotPool&) = delete;
    SlotPool& operator=(const SlotPool&) = delete;
    ~SlotPool();

    /// A slot that stands at the first edge of a bound: of the minimum's forward or reverse one.
    Slot* Acquire(const LocalMinimum& minimum, const Operand& operand, bool forward);
    void Release(Slot* slot);
    Slot* At(std::uint32_t number) { return m_chunks[number / CHUNK].slots + number % CHUNK; }

    /// Loads the next edge of the slot's bound; false when the bound ends.
    static bool LoadNextEdge(Slot& slot) {
        const std::uint32_t next = NextVertex(slot.topVertex, slot.ringSize, slot.forward);
        const gpc_vertex& top = slot.ring[next];
        if (!(top.y > slot.top.y)) {
            return false;
        }
        slot.topVertex = next;
        PrefetchBehind(slot);
        SetEdge(slot, slot.top, top);
        return true;
    }

private:
    static constexpr std::uint32_t CHUNK = 64;
    static constexpr std::size_t LINE_SIZE = 64; ///< of the cache, in bytes

    struct Chunk {
        void* block;
        Slot* slots;
    };

    // A line of the cache holds four vertices, and a bound takes them one after another, but
    // with much of the sweep in between.
    static void PrefetchBehind(const Slot& slot) {
        constexpr std::uint32_t AHEAD = LINE_SIZE / sizeof(gpc_vertex);
        const std::uint32_t at = slot.topVertex;
        const std::uint32_t before = at < AHEAD ? 0 : at - AHEAD;
        const std::uint32_t behind = slot.ringSize - at > AHEAD ? at + AHEAD : at;
        Prefetch(slot.ring + (slot.forward ? behind : before));
    }

    // An x computed inside an edge's span differs from the exact line through its ends by at most
    // 2^-50 of the larger end: three roundings, each 2^-53 of at most twice that end, and the
    // rounding of the slope. Four times that leaves room for the sum of two such errors, twice.
    static constexpr double RELATIVE_ERROR = 0x1p-48;

    static void SetEdge(Slot& slot, gpc_vertex bot, gpc_vertex top) {
        slot.bot = bot;
        slot.top = top;
        slot.dx = Slope(bot, top);
        slot.error = RELATIVE_ERROR * std::max(std::fabs(bot.x), std::fabs(top.x));
    }

    static Chunk AllocateChunk();
    Slot* Fresh();

    Block<Chunk> m_chunks;
    std::uint32_t m_used = 0; ///< slots ever given out
    Slot* m_free = nullptr;   ///< released ones, linked by next
};

} // namespace geom::detail
