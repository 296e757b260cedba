// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

/// \file
/// How a fuzz target reports that a law does not hold. It ends the process, which the fuzzer
/// takes for a crash: it keeps the input and tries to make it smaller.

namespace geom::fuzz {

[[noreturn]] inline void Fail(const char* what, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, what);
    std::abort();
}

} // namespace geom::fuzz

#define FUZZ_CHECK(condition)                                                                      \
    ((condition) ? static_cast<void>(0) : geom::fuzz::Fail(#condition, __FILE__, __LINE__))
