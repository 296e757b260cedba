// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace geom::detail {

/// Whether an array begins in the storage from `first` to `last`, and would be lost when that
/// moves. std::less orders pointers into different blocks, too.
inline bool LiesIn(const void* array, const void* first, const void* last) {
    const std::less<const void*> before;
    return !before(array, first) && before(array, last);
}

/// An input array that stays readable while `output` grows: the array itself, or a copy of it
/// when it lies in the output's storage.
template <typename Input>
class StableInput {
public:
    template <typename Output>
    StableInput(const Input* input, std::size_t n, const std::vector<Output>& output)
        : m_data(input) {
        if (LiesIn(input, output.data(), output.data() + output.size())) {
            m_copy.assign(input, input + n);
            m_data = m_copy.data();
        }
    }
    StableInput(const StableInput&) = delete;
    StableInput& operator=(const StableInput&) = delete;

    const Input* Data() const { return m_data; }

private:
    std::vector<Input> m_copy;
    const Input* m_data;
};

} // namespace geom::detail
