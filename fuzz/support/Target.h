// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// What every fuzz target defines: it runs one input and returns 0, or ends the process where a
/// law does not hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
