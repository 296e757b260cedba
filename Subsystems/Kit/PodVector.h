// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

namespace kit {

namespace detail {

/// Throws the Exception of a pop from an empty vector.
[[noreturn]] KIT_API void ThrowEmptyPodVector();

} // namespace detail

/// A growable array of plain data whose first N elements live inside the object.
///
/// Growing past N moves the elements to the heap once; from then on the heap block is grown by
/// reallocation, doubling each time. A failed growth throws std::bad_alloc and changes nothing.
///
/// The fields and their order are part of the interface: inline bodies of all hosts share them.
/// Read them freely; leave writing to the members.
template <typename T, std::size_t N>
class CPodVector {
    static_assert(std::is_trivially_copyable_v<T>, "elements are moved as raw bytes");
    static_assert(N > 0, "the inline buffer is never empty");
    static_assert(alignof(T) <= alignof(std::max_align_t), "the heap aligns no further");

public:
    T* m_data;              ///< The elements: m_inline, or a block of the heap.
    std::size_t m_count;    ///< The number of elements.
    std::size_t m_capacity; ///< The number of elements that fit without growing.
    T m_inline[N];          ///< The storage of a short vector.

    CPodVector() : m_data(m_inline), m_count(0), m_capacity(N) {}
    CPodVector(const CPodVector& o) : CPodVector() { Assign(o); }
    CPodVector& operator=(const CPodVector& o) {
        if (this != &o) {
            Assign(o);
        }
        return *this;
    }
    ~CPodVector() { Release(); }

    /// Appends one element; it may be an element of this vector.
    void Append(const T& value) {
        const T copy = value;
        if (m_count == m_capacity) {
            Grow(m_count + 1);
        }
        m_data[m_count++] = copy;
    }

    /// Appends n elements, which must not be elements of this vector.
    void Append(const T* values, std::size_t n) {
        if (n == 0) {
            return;
        }
        if (n > m_capacity - m_count) {
            Grow(m_count + n);
        }
        std::memcpy(m_data + m_count, values, n * sizeof(T));
        m_count += n;
    }

    /// Removes the last element. Throws an Exception of module "Kit" when there is none.
    void Pop() {
        if (m_count == 0) {
            detail::ThrowEmptyPodVector();
        }
        --m_count;
    }

    /// Removes all elements and keeps the storage.
    void Clear() { m_count = 0; }

    T& operator[](std::size_t index) { return m_data[index]; }
    const T& operator[](std::size_t index) const { return m_data[index]; }
    std::size_t Count() const { return m_count; }
    T* Data() { return m_data; }
    const T* Data() const { return m_data; }
    T* begin() { return m_data; }
    T* end() { return m_data + m_count; }
    const T* begin() const { return m_data; }
    const T* end() const { return m_data + m_count; }

private:
    void Grow(std::size_t needed) {
        constexpr std::size_t LIMIT = std::numeric_limits<std::size_t>::max() / sizeof(T);
        if (needed > LIMIT) {
            throw std::bad_alloc();
        }
        std::size_t capacity = m_capacity;
        while (capacity < needed) {
            capacity = capacity > LIMIT / 2 ? LIMIT : capacity * 2;
        }
        const bool isInline = m_data == m_inline;
        void* block = std::realloc(isInline ? nullptr : m_data, capacity * sizeof(T));
        if (block == nullptr) {
            throw std::bad_alloc();
        }
        if (isInline) {
            std::memcpy(block, m_inline, m_count * sizeof(T));
        }
        m_data = static_cast<T*>(block);
        m_capacity = capacity;
    }

    void Assign(const CPodVector& o) {
        if (o.m_count > m_capacity) {
            Grow(o.m_count);
        }
        std::memcpy(m_data, o.m_data, o.m_count * sizeof(T));
        m_count = o.m_count;
    }

    void Release() {
        if (m_data != m_inline) {
            std::free(m_data);
        }
    }
};

} // namespace kit
