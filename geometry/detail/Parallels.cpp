// SPDX-License-Identifier: MIT
#include "geometry/detail/Parallels.h"

namespace geom::detail {

namespace {

constexpr std::size_t BITS_PER_EDGE = 16;
constexpr std::size_t MOST_BITS = std::size_t{1} << 24;

} // namespace

Parallels::Parallels(const FramedRing& ring) {
    const std::size_t count = ring.count;
    const std::size_t buckets = count / 2 + 1;
    m_directions = Buckets(-1.0, 1.0, std::min(count * BITS_PER_EDGE, MOST_BITS));
    m_width = 2.0 / static_cast<double>(buckets);
    m_perUnit = static_cast<double>(buckets) / 2.0;
    m_firsts.assign(buckets + 1, 0);
    // Counted first, so that every edge is put into its place at once. Edges of no length cross
    // nothing.
    constexpr std::uint32_t NONE = 0xFFFFFFFFU;
    std::vector<std::uint32_t> bucketOf(count, NONE);
    for (std::size_t i = 0; i < count; ++i) {
        const Vec2d e = ring.original[i + 1] - ring.original[i];
        if (e.x != 0.0 || e.y != 0.0) {
            const double direction = DirectionOf(e);
            AddDirection(direction);
            bucketOf[i] = static_cast<std::uint32_t>(BucketOf(direction));
            ++m_firsts[bucketOf[i] + 1];
        }
    }
    for (std::size_t k = 1; k <= buckets; ++k) {
        m_firsts[k] += m_firsts[k - 1];
    }
    m_entries.resize(m_firsts.back());
    for (std::size_t i = count; i-- > 0;) {
        if (bucketOf[i] != NONE) {
            const double offset = OffsetOf(ring.points[i], bucketOf[i]);
            m_entries[--m_firsts[bucketOf[i] + 1]] = {static_cast<float>(offset),
                                                      static_cast<std::uint32_t>(i)};
        }
    }
    // What was the end of each bucket is now its start.
    std::move(m_firsts.begin() + 1, m_firsts.end(), m_firsts.begin());
    m_firsts.back() = static_cast<std::uint32_t>(m_entries.size());
    for (std::size_t k = 0; k < buckets; ++k) {
        std::sort(m_entries.begin() + static_cast<std::ptrdiff_t>(m_firsts[k]),
                  m_entries.begin() + static_cast<std::ptrdiff_t>(m_firsts[k + 1]),
                  [](const Entry& a, const Entry& b) { return a.offset < b.offset; });
    }
}

void Parallels::AddDirection(double direction) {
    m_directions.Add(direction - NEARLY, direction + NEARLY);
    if (direction - NEARLY < -1.0) {
        m_directions.Add(1.0, 1.0);
    }
    if (direction + NEARLY > 1.0) {
        m_directions.Add(-1.0, -1.0);
    }
}

// The cross product with the direction in the middle of the bucket.
double Parallels::OffsetOf(const Vec2d& p, std::size_t bucket) const {
    const double x = (static_cast<double>(bucket) + 0.5) * m_width - 1.0;
    return p.x * (1.0 - std::fabs(x)) - p.y * x;
}

} // namespace geom::detail
