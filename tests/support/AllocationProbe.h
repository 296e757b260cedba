// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>

namespace geom::test {

/// Counts this thread's heap requests (malloc, calloc, realloc, operator new) and releases while
/// it lives, and makes one of the requests fail. Probes do not nest.
///
/// A program that uses it has its heap functions replaced. Sanitizers that own the heap leave
/// no room for that: then Works() is false, nothing is counted and nothing fails, and a test
/// skips itself.
class AllocationProbe {
public:
    static constexpr std::size_t NEVER = std::numeric_limits<std::size_t>::max();

    /// \param failAt the number of the request to fail, counted from 0.
    explicit AllocationProbe(std::size_t failAt = NEVER);
    AllocationProbe(const AllocationProbe&) = delete;
    AllocationProbe& operator=(const AllocationProbe&) = delete;
    ~AllocationProbe();

    static bool Works();
    /// The requests made so far.
    std::size_t Count() const;
    /// The blocks that this thread has taken so far less those that it has given back: 0 when
    /// nothing has leaked in a stretch of work that keeps nothing.
    std::ptrdiff_t Balance() const;
    /// Whether the chosen request has been made, and failed.
    bool Failed() const;
};

} // namespace geom::test
