// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/engine/Memory.h"
#include "geometry/engine/Minima.h"
#include "geometry/engine/Records.h"

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
    static bool LoadNextEdge(Slot& slot);

private:
    static constexpr std::uint32_t CHUNK = 64;

    static constexpr std::size_t LINE_SIZE = 64;

    struct Chunk {
        void* block;
        Slot* slots;
    };

    static Chunk AllocateChunk();
    Slot* Fresh();

    Block<Chunk> m_chunks;
    std::uint32_t m_used = 0; ///< slots ever given out
    Slot* m_free = nullptr;   ///< released ones, linked by next
};

} // namespace geom::detail
