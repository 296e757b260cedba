// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The engine's heap: every block comes from here, and a request that fails says which step of
/// the work it was for.

#include "geometry/engine/Lines.h"

#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

namespace geom::detail {

/// A malloc block of the given size in bytes; null for size 0. Throws a kit::Exception of
/// module "GPC Library" with the given file and line and the message "GPCAlloc failure: "
/// followed by the reason.
void* GpcAlloc(std::uint64_t size, const char* file, int line, const char* reason);

/// As GpcAlloc, moving the contents of an earlier block; on failure that block stays as it was.
void* GpcRealloc(void* block, std::uint64_t size, const char* file, int line, const char* reason);

/// Releases a block of GpcAlloc or GpcRealloc; null is allowed.
void GpcFree(void* block);

/// A hint that memory will be read soon.
inline void Prefetch(const void* address) {
#ifdef __GNUC__
    __builtin_prefetch(address);
#else
    static_cast<void>(address);
#endif
}

/// A growing array of plain records in one engine block, released by its destructor.
///
/// Addresses of elements hold until the next Append; a Reserve of enough elements makes them
/// hold for good.
template <typename T>
class Block {
    static_assert(std::is_trivially_copyable_v<T>, "elements are moved as raw bytes");

public:
    using Index = std::uint32_t;
    static constexpr Index NONE = std::numeric_limits<Index>::max();

    /// \param reason what a failed request of this array was for.
    explicit Block(const char* reason) : m_reason(reason) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() { GpcFree(m_data); }

    /// Makes room for this many elements in all.
    void Reserve(std::uint64_t capacity) {
        if (capacity > m_capacity) {
            // NOLINTNEXTLINE(bugprone-sizeof-expression): some blocks do hold pointers
            const std::uint64_t size = capacity * sizeof(T);
            m_data =
                static_cast<T*>(GpcRealloc(m_data, size, ENGINE_FILE, LINE_ALLOCATE_RUN, m_reason));
            m_capacity = capacity;
        }
    }

    /// Appends an element and returns its index. The element must not be one of this array.
    Index Append(const T& value) {
        if (m_count == m_capacity) {
            if (m_count >= NONE) {
                ThrowArgumentError(LINE_TOO_MANY_ITEMS);
            }
            Reserve(m_capacity == 0 ? FIRST_CAPACITY : m_capacity * 2);
        }
        m_data[m_count] = value;
        return static_cast<Index>(m_count++);
    }

    /// Unset storage for this many elements, at the start of the array; for scratch.
    T* Space(std::uint64_t count) {
        Reserve(count);
        return m_data;
    }

    /// Keeps the first elements only, and the storage.
    void Truncate(std::uint64_t count) { m_count = count; }
    void Clear() { m_count = 0; }

    /// Exchanges the contents of two arrays that serve the same step.
    void Swap(Block& other) {
        std::swap(m_data, other.m_data);
        std::swap(m_count, other.m_count);
        std::swap(m_capacity, other.m_capacity);
    }

    T& operator[](std::uint64_t index) { return m_data[index]; }
    const T& operator[](std::uint64_t index) const { return m_data[index]; }
    std::uint64_t Count() const { return m_count; }
    bool IsEmpty() const { return m_count == 0; }
    T* begin() { return m_data; }
    T* end() { return m_data + m_count; }
    const T* begin() const { return m_data; }
    const T* end() const { return m_data + m_count; }

private:
    static constexpr std::uint64_t FIRST_CAPACITY = 16;

    const char* m_reason;
    T* m_data = nullptr;
    std::uint64_t m_count = 0;
    std::uint64_t m_capacity = 0;
};

} // namespace geom::detail
