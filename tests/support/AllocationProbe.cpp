// SPDX-License-Identifier: MIT
#include "AllocationProbe.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <new>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HEAP_IS_CHECKED
#endif
#if __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define HEAP_IS_TAKEN
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define HEAP_IS_CHECKED
#endif
#if defined(__SANITIZE_THREAD__) || !defined(__GLIBC__)
#define HEAP_IS_TAKEN
#endif

#if defined(__GLIBC__)
#include <cstring>
#include <link.h>
#include <malloc.h>
#endif

namespace geom::test {

namespace {

struct State {
    bool active = false;
    std::size_t count = 0;
    std::size_t failAt = AllocationProbe::NEVER;
    std::ptrdiff_t balance = 0;
    AllocationProbe::Caller caller = AllocationProbe::Caller::Anyone;
    std::ptrdiff_t bytes = 0;
    std::ptrdiff_t peak = 0;
};

thread_local State state;

#if defined(__GLIBC__)

/// Where the tessellator's code lies in memory.
struct CodeRange {
    std::uintptr_t first = 0;
    std::uintptr_t end = 0;
};

int FindTessellator(dl_phdr_info* object, std::size_t /*size*/, void* result) {
    if (std::strstr(object->dlpi_name, "libGLU") == nullptr) {
        return 0;
    }
    CodeRange& range = *static_cast<CodeRange*>(result);
    for (int i = 0; i < object->dlpi_phnum; ++i) {
        const ElfW(Phdr)& segment = object->dlpi_phdr[i];
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X) != 0) {
            range.first = object->dlpi_addr + segment.p_vaddr;
            range.end = range.first + segment.p_memsz;
        }
    }
    return 1;
}

CodeRange TessellatorCode() {
    CodeRange range;
    dl_iterate_phdr(FindTessellator, &range);
    return range;
}

const CodeRange tessellatorCode = TessellatorCode();

#endif

} // namespace

AllocationProbe::AllocationProbe(std::size_t failAt, Caller caller) {
    state = {true, 0, failAt, 0, caller, 0, 0};
}

AllocationProbe::~AllocationProbe() {
    state.active = false;
}

void AllocationProbe::Restart(std::size_t failAt) {
    state.count = 0;
    state.failAt = failAt;
}

std::size_t AllocationProbe::Count() const {
    return state.count;
}

std::ptrdiff_t AllocationProbe::Balance() const {
    return state.balance;
}

std::size_t AllocationProbe::PeakBytes() const {
    return static_cast<std::size_t>(state.peak);
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

bool Counts(const void* returnAddress) {
    if (!state.active || state.caller == AllocationProbe::Caller::Anyone) {
        return state.active;
    }
    const auto address = reinterpret_cast<std::uintptr_t>(returnAddress);
    const bool isTessellator = address >= tessellatorCode.first && address < tessellatorCode.end;
    return isTessellator == (state.caller == AllocationProbe::Caller::Tessellator);
}

/// \param returnAddress where the request came from.
bool MustFail(const void* returnAddress) {
    if (!Counts(returnAddress) || state.count++ != state.failAt) {
        return false;
    }
    errno = ENOMEM;
    return true;
}

void HoldBytes(std::ptrdiff_t change) {
    state.bytes += change;
    state.peak = state.bytes > state.peak ? state.bytes : state.peak;
}

std::ptrdiff_t SizeOf(void* block) {
    return static_cast<std::ptrdiff_t>(malloc_usable_size(block));
}

void* Taken(void* block) {
    if (state.active && block != nullptr) {
        ++state.balance;
        HoldBytes(SizeOf(block));
    }
    return block;
}

void GivenBack(void* block) {
    if (state.active && block != nullptr) {
        --state.balance;
        HoldBytes(-SizeOf(block));
    }
}

} // namespace

} // namespace geom::test

// The heap below: the C library's own names for its functions, or the sanitizer's. In the C++
// library operator new calls malloc; that of the sanitizer has to be replaced, too. The
// replacements must be visible, or the shared libraries keep those of the C library.
extern "C" {
#if defined(HEAP_IS_CHECKED)
#define BELOW(function) __interceptor_##function
#else
#define BELOW(function) __libc_##function
#endif
void* BELOW(malloc)(std::size_t size);
void* BELOW(calloc)(std::size_t count, std::size_t size);
void* BELOW(realloc)(void* block, std::size_t size);
void* BELOW(memalign)(std::size_t alignment, std::size_t size);
void BELOW(free)(void* block);

#define REPLACES_THE_HEAP __attribute__((visibility("default")))
#define CALLED_FROM __builtin_return_address(0)

REPLACES_THE_HEAP void* malloc(std::size_t size) {
    using namespace geom::test;
    return MustFail(CALLED_FROM) ? nullptr : Taken(BELOW(malloc)(size));
}

REPLACES_THE_HEAP void* calloc(std::size_t count, std::size_t size) {
    using namespace geom::test;
    return MustFail(CALLED_FROM) ? nullptr : Taken(BELOW(calloc)(count, size));
}

REPLACES_THE_HEAP void* realloc(void* block, std::size_t size) {
    using namespace geom::test;
    if (MustFail(CALLED_FROM)) {
        return nullptr;
    }
    if (block == nullptr) {
        return Taken(BELOW(realloc)(nullptr, size));
    }
    if (size == 0) {
        GivenBack(block);
        return BELOW(realloc)(block, size);
    }
    const std::ptrdiff_t before = state.active ? SizeOf(block) : 0;
    void* const moved = BELOW(realloc)(block, size);
    if (state.active && moved != nullptr) {
        HoldBytes(SizeOf(moved) - before);
    }
    return moved;
}

REPLACES_THE_HEAP void* memalign(std::size_t alignment, std::size_t size) {
    using namespace geom::test;
    return MustFail(CALLED_FROM) ? nullptr : Taken(BELOW(memalign)(alignment, size));
}

REPLACES_THE_HEAP void* aligned_alloc(std::size_t alignment, std::size_t size) {
    using namespace geom::test;
    return MustFail(CALLED_FROM) ? nullptr : Taken(BELOW(memalign)(alignment, size));
}

REPLACES_THE_HEAP int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    using namespace geom::test;
    void* const taken = MustFail(CALLED_FROM) ? nullptr : Taken(BELOW(memalign)(alignment, size));
    if (taken == nullptr) {
        return ENOMEM;
    }
    *block = taken;
    return 0;
}

REPLACES_THE_HEAP void free(void* block) {
    geom::test::GivenBack(block);
    BELOW(free)(block);
}
}

#if defined(HEAP_IS_CHECKED)

namespace {

void* New(std::size_t size, const void* returnAddress) {
    using namespace geom::test;
    return MustFail(returnAddress) ? nullptr : Taken(BELOW(malloc)(size == 0 ? 1 : size));
}

void* NewOrThrow(std::size_t size, const void* returnAddress) {
    void* const block = New(size, returnAddress);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void* NewAligned(std::size_t size, std::align_val_t alignment, const void* returnAddress) {
    using namespace geom::test;
    void* const block = MustFail(returnAddress)
                            ? nullptr
                            : Taken(BELOW(memalign)(static_cast<std::size_t>(alignment), size));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

} // namespace

REPLACES_THE_HEAP void* operator new(std::size_t size) {
    return NewOrThrow(size, CALLED_FROM);
}
REPLACES_THE_HEAP void* operator new[](std::size_t size) {
    return NewOrThrow(size, CALLED_FROM);
}
REPLACES_THE_HEAP void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return New(size, CALLED_FROM);
}
REPLACES_THE_HEAP void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return New(size, CALLED_FROM);
}
REPLACES_THE_HEAP void* operator new(std::size_t size, std::align_val_t alignment) {
    return NewAligned(size, alignment, CALLED_FROM);
}
REPLACES_THE_HEAP void* operator new[](std::size_t size, std::align_val_t alignment) {
    return NewAligned(size, alignment, CALLED_FROM);
}
REPLACES_THE_HEAP void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete(void* block, std::size_t /*size*/,
                                       std::align_val_t /*alignment*/) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete[](void* block, std::size_t /*size*/,
                                         std::align_val_t /*alignment*/) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete(void* block) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete[](void* block) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete(void* block, std::size_t /*size*/) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete[](void* block, std::size_t /*size*/) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    free(block);
}
REPLACES_THE_HEAP void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    free(block);
}

#endif

#endif
