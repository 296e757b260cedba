// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/engine/Memory.h"

namespace geom::detail {

/// The ordinates at which scanbeams begin and end: every distinct y of a kept vertex, ascending.
class Scanbeams {
public:
    Scanbeams() : m_ordinates("sbt creation") {}

    /// Makes room for this many more ordinates.
    void Expect(std::uint64_t count) { m_ordinates.Reserve(m_ordinates.Count() + count); }
    void Append(double y);
    /// Sorts the ordinates and drops repeated ones.
    void Sort();

    std::uint64_t Count() const { return m_ordinates.Count(); }
    double operator[](std::uint64_t index) const { return m_ordinates[index]; }

private:
    Block<double> m_ordinates;
    double m_firstZero = 0.0; ///< the zero, positive or negative, that came first
    bool m_hasZero = false;
};

} // namespace geom::detail
