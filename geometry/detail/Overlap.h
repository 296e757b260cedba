// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace geom::detail {

/// Whether an input array lies in the storage of a vector that is about to be appended to, and
/// would be lost when the vector moves.
template <typename Input, typename Output>
bool LiesIn(const Input* input, const std::vector<Output>& output) {
    const void* const first = output.data();
    const void* const last = output.data() + output.size();
    const std::less<const void*> before;
    return !output.empty() && !before(input, first) && before(input, last);
}

/// An input array that stays readable while `output` grows: the array itself, or a copy of it
/// when it lies in the output's storage.
template <typename Input>
class StableInput {
public:
    template <typename Output>
    StableInput(const Input* input, std::size_t n, const std::vector<Output>& output)
        : m_data(input) {
        if (LiesIn(input, output)) {
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
