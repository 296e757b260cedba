// SPDX-License-Identifier: MIT
#include "geometry/engine/Memory.h"

#include "Subsystems/Kit/Exception.h"

#include <cstdlib>
#include <limits>
#include <string>

namespace geom::detail {

namespace {

[[noreturn]] void ThrowAllocationFailure(const char* file, int line, const char* reason) {
    const std::string message = std::string("GPCAlloc failure: ") + reason;
    throw kit::Exception(L"GPC Library", file, line, message.c_str(), false);
}

// No object is larger than this, and asking the heap for more is an error of its own.
constexpr std::uint64_t LARGEST_BLOCK =
    static_cast<std::uint64_t>(std::numeric_limits<std::ptrdiff_t>::max());

} // namespace

void* GpcAlloc(std::uint64_t size, const char* file, int line, const char* reason) {
    return size == 0 ? nullptr : GpcRealloc(nullptr, size, file, line, reason);
}

void* GpcRealloc(void* block, std::uint64_t size, const char* file, int line, const char* reason) {
    void* moved =
        size <= LARGEST_BLOCK ? std::realloc(block, static_cast<std::size_t>(size)) : nullptr;
    if (moved == nullptr) {
        ThrowAllocationFailure(file, line, reason);
    }
    return moved;
}

void GpcFree(void* block) {
    std::free(block);
}

} // namespace geom::detail
