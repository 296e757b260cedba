// SPDX-License-Identifier: MIT
#include "AllocationProbe.h"

#include <cerrno>
#include <cstdlib>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) ||                         \
    __has_feature(memory_sanitizer)
#define HEAP_IS_TAKEN
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__GLIBC__)
#define HEAP_IS_TAKEN
#endif

namespace geom::test {

namespace {

struct State {
    bool active = false;
    std::size_t count = 0;
    std::size_t failAt = AllocationProbe::NEVER;
    std::ptrdiff_t balance = 0;
};

thread_local State state;

} // namespace

AllocationProbe::AllocationProbe(std::size_t failAt) {
    state = {true, 0, failAt, 0};
}

AllocationProbe::~AllocationProbe() {
    state.active = false;
}

std::size_t AllocationProbe::Count() const {
    return state.count;
}

std::ptrdiff_t AllocationProbe::Balance() const {
    return state.balance;
}

bool AllocationProbe::Failed() const {
    return state.count > state.failAt;
}

#if defined(HEAP_IS_TAKEN)

bool AllocationProbe::Works() {
    return false;
}

} // namespace geom::test

#else

bool AllocationProbe::Works() {
    return true;
}

namespace {

bool MustFail() {
    if (!state.active || state.count++ != state.failAt) {
        return false;
    }
    errno = ENOMEM;
    return true;
}

void* Taken(void* block) {
    if (state.active && block != nullptr) {
        ++state.balance;
    }
    return block;
}

void GivenBack(const void* block) {
    if (state.active && block != nullptr) {
        --state.balance;
    }
}

} // namespace

} // namespace geom::test

// The C library's own names for its heap functions; operator new calls malloc. The replacements
// must be visible, or the shared libraries keep those of the C library.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

#define REPLACES_THE_HEAP __attribute__((visibility("default")))

REPLACES_THE_HEAP void* malloc(std::size_t size) {
    using namespace geom::test;
    return MustFail() ? nullptr : Taken(__libc_malloc(size));
}

REPLACES_THE_HEAP void* calloc(std::size_t count, std::size_t size) {
    using namespace geom::test;
    return MustFail() ? nullptr : Taken(__libc_calloc(count, size));
}

REPLACES_THE_HEAP void* realloc(void* block, std::size_t size) {
    using namespace geom::test;
    if (MustFail()) {
        return nullptr;
    }
    if (block == nullptr) {
        return Taken(__libc_realloc(nullptr, size));
    }
    if (size == 0) {
        GivenBack(block);
    }
    return __libc_realloc(block, size);
}

REPLACES_THE_HEAP void free(void* block) {
    geom::test::GivenBack(block);
    __libc_free(block);
}
}

#endif
