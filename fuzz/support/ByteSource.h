// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace geom::fuzz {

/// Takes a fuzzer's bytes apart, from the front. Behind the end come zeros, so every sequence of
/// bytes means something, and a shorter one something smaller.
class ByteSource {
public:
    ByteSource(const std::uint8_t* data, std::size_t size) : m_data(data), m_left(size) {}

    bool AtEnd() const { return m_left == 0; }

    std::uint8_t Byte() {
        if (m_left == 0) {
            return 0;
        }
        --m_left;
        return *m_data++;
    }
    /// A number in 0 .. count - 1, for at most 256 numbers.
    int Below(int count) { return Byte() % count; }
    /// A number in low .. high.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool Flag() { return (Byte() & 1) != 0; }
    /// A number in 0 .. 65535.
    int Word() {
        const int low = Byte();
        return low + 256 * Byte();
    }
    /// Any double, infinities and values that are no numbers among them.
    double Bits() {
        std::uint64_t bits = 0;
        for (int i = 0; i < 8; ++i) {
            bits |= std::uint64_t{Byte()} << (8 * i);
        }
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    /// All bytes that are left.
    std::string_view Rest() {
        const std::string_view rest(reinterpret_cast<const char*>(m_data), m_left);
        m_data += m_left;
        m_left = 0;
        return rest;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_left;
};

} // namespace geom::fuzz
