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
};

thread_local State state;

} // namespace

AllocationProbe::AllocationProbe(std::size_t failAt) {
    state = {true, 0, failAt};
}

AllocationProbe::~AllocationProbe() {
    state.active = false;
}

std::size_t AllocationProbe::Count() const {
    return state.count;
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

} // namespace

} // namespace geom::test

// The C library's own names for its heap functions; operator new calls malloc.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) {
    return geom::test::MustFail() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
    return geom::test::MustFail() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) {
    return geom::test::MustFail() ? nullptr : __libc_realloc(block, size);
}
}

#endif
