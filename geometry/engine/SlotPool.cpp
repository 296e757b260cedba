// SPDX-License-Identifier: MIT
#include "geometry/engine/SlotPool.h"

#include <memory>

namespace geom::detail {

SlotPool::~SlotPool() {
    for (const Chunk& chunk : m_chunks) {
        GpcFree(chunk.block);
    }
}

// Slots begin where lines of the cache do.
SlotPool::Chunk SlotPool::AllocateChunk() {
    std::size_t space = CHUNK * sizeof(Slot) + LINE_SIZE;
    void* block = GpcAlloc(space, ENGINE_FILE, LINE_ALLOCATE_RUN, "edge table creation");
    void* slots = block;
    std::align(LINE_SIZE, CHUNK * sizeof(Slot), slots, space);
    return {block, static_cast<Slot*>(slots)};
}

Slot* SlotPool::Fresh() {
    if (m_used % CHUNK == 0) {
        m_chunks.Reserve(m_chunks.Count() + 1); // so that the append cannot fail
        m_chunks.Append(AllocateChunk());
    }
    Slot* slot = At(m_used);
    *slot = Slot{};
    slot->number = m_used++;
    return slot;
}

Slot* SlotPool::Acquire(const LocalMinimum& minimum, const Operand& operand, bool forward) {
    Slot* slot = m_free;
    if (slot != nullptr) {
        m_free = slot->next;
    } else {
        slot = Fresh();
    }
    slot->ring = operand.Vertices(minimum.contour);
    slot->ringSize = operand.VertexCount(minimum.contour);
    slot->forward = forward;
    slot->topVertex = NextVertex(minimum.vertex, slot->ringSize, forward);
    SetEdge(*slot, slot->ring[minimum.vertex], slot->ring[slot->topVertex]);
    slot->outp[ABOVE] = slot->outp[BELOW] = NO_OUTPUT;
    slot->flags[ABOVE] = slot->flags[BELOW] = 0;
    slot->sides = 0;
    slot->role = minimum.role;
    slot->state = BundleState::Unbundled;
    slot->ended = false;
    slot->alone = false;
    slot->eventRow = slot->touchRow = 0;
    return slot;
}

void SlotPool::Release(Slot* slot) {
    ++slot->version; // what is still scheduled for it means nothing any more
    slot->next = m_free;
    m_free = slot;
}

} // namespace geom::detail
