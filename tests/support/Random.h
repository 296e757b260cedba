// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

namespace geom::test {

/// Random numbers that are the same on every platform: the standard fixes the generator, but not
/// its distributions.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    /// A number in 0 .. count - 1.
    int Below(int count) {
        return static_cast<int>(m_engine() % static_cast<std::uint64_t>(count));
    }
    /// A number in low .. high.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    /// True in one of `count` cases.
    bool OneIn(int count) { return Below(count) == 0; }
    /// A number in [0, 1).
    double Unit() { return static_cast<double>(m_engine() >> 11) * 0x1p-53; }
    double Between(double low, double high) { return low + Unit() * (high - low); }

private:
    std::mt19937_64 m_engine;
};

} // namespace geom::test
