// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>

namespace geom::test {

/// Counts this thread's heap requests (malloc, calloc, realloc, operator new) and releases while
/// it lives, and makes one of the requests fail. Probes do not nest.
///
/// A program that uses it has its heap functions replaced; under AddressSanitizer the
/// replacements pass on to the sanitizer's. Where there is no room for them, as under
/// ThreadSanitizer, Works() is false, nothing is counted and nothing fails, and a test skips
/// itself.
class AllocationProbe {
public:
    static constexpr std::size_t NEVER = std::numeric_limits<std::size_t>::max();

    /// Whose requests are counted and may fail.
    enum class Caller {
        Anyone,
        Tessellator, ///< code of the OpenGL Utility library
        Library      ///< anyone else
    };

    /// \param failAt the number of the request to fail, counted from 0.
    explicit AllocationProbe(std::size_t failAt = NEVER, Caller caller = Caller::Anyone);
    AllocationProbe(const AllocationProbe&) = delete;
    AllocationProbe& operator=(const AllocationProbe&) = delete;
    ~AllocationProbe();

    static bool Works();
    /// Counts the requests from 0 again and lets another one fail. The balance goes on.
    void Restart(std::size_t failAt);
    /// The requests made so far.
    std::size_t Count() const;
    /// The blocks that this thread has taken so far less those that it has given back: 0 when
    /// nothing has leaked in a stretch of work that keeps nothing.
    std::ptrdiff_t Balance() const;
    /// The most bytes that this thread has held at once, of what it has taken so far.
    std::size_t PeakBytes() const;
    /// Whether the chosen request has been made, and failed.
    bool Failed() const;
};

} // namespace geom::test
