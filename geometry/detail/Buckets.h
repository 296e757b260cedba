// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace geom::detail {

/// Which of many equal parts of a range hold something: a bit for each.
class Buckets {
public:
    Buckets() = default;
    Buckets(double low, double high, std::size_t count)
        : m_low(low), m_perUnit(static_cast<double>(count) / (high - low)),
          m_last(static_cast<double>(count - 1)), m_bits((count + 63) / 64) {}

    /// Marks all parts between two places; what lies outside goes to the parts at the ends.
    void Add(double from, double to) {
        const std::size_t last = IndexOf(to);
        for (std::size_t k = IndexOf(from); k <= last; ++k) {
            m_bits[k / 64] |= std::uint64_t{1} << k % 64;
        }
    }

    /// Whether the part that a place is in has been marked.
    bool Holds(double place) const {
        const std::size_t k = IndexOf(place);
        return (m_bits[k / 64] >> k % 64 & 1U) != 0;
    }

private:
    std::size_t IndexOf(double place) const {
        const double index = (place - m_low) * m_perUnit;
        return static_cast<std::size_t>(std::min(std::max(index, 0.0), m_last));
    }

    double m_low = 0.0;
    double m_perUnit = 0.0;
    double m_last = 0.0;
    std::vector<std::uint64_t> m_bits;
};

/// The same for parts so small and so many that they have to share bits, pseudo-randomly: holds
/// all that has been added, and little else.
class SharedBuckets {
public:
    SharedBuckets() = default;
    /// Parts of places above -1. At least `count` bits, which has to be a small multiple of how
    /// many parts get marked.
    SharedBuckets(double width, std::size_t count) : m_perUnit(1.0 / width) {
        while ((std::size_t{1} << (64 - m_shift)) < count) {
            --m_shift;
        }
        m_bits.resize(std::size_t{1} << (64 - m_shift) >> 6);
    }

    /// Marks all parts between two places.
    void Add(double from, double to) {
        const std::uint64_t last = PartOf(to);
        for (std::uint64_t part = PartOf(from); part <= last; ++part) {
            const std::size_t k = BitOf(part);
            m_bits[k / 64] |= std::uint64_t{1} << k % 64;
        }
    }

    bool Holds(double place) const {
        const std::size_t k = BitOf(PartOf(place));
        return (m_bits[k / 64] >> k % 64 & 1U) != 0;
    }

private:
    std::uint64_t PartOf(double place) const {
        return static_cast<std::uint64_t>((place + 1.0) * m_perUnit);
    }
    // The upper bits of a product with an odd number depend on all bits of the other factor.
    std::size_t BitOf(std::uint64_t part) const { return part * 0x9E3779B97F4A7C15U >> m_shift; }

    double m_perUnit = 0.0;
    unsigned int m_shift = 58; ///< leaves as many upper bits as number the bits
    std::vector<std::uint64_t> m_bits;
};

} // namespace geom::detail
