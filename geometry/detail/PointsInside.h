// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>

namespace geom::detail {

/// Whether a pointer leads to an element of the given block: whether an input that is read
/// while an output grows is that output. std::less orders pointers of different blocks, too.
template <typename T>
bool PointsInside(const T* pointer, const T* block, std::size_t count) {
    const std::less<const T*> before;
    return count != 0 && !before(pointer, block) && before(pointer, block + count);
}

} // namespace geom::detail
