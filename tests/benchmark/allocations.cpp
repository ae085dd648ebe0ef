// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

// The C library's internal names for its allocator. The usual names are replaced here, for the game
// and for every library it loads.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

thread_local bool counting = false;
thread_local Allocations counted;

void countForLibraries() {
    if (counting) {
        ++counted.byLibraries;
    }
}

} // namespace

bool countAllocations(bool on) {
    const bool was = counting;
    counting = on;
    return was;
}

Allocations countedAllocations() {
    return counted;
}

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the header's are reserved
extern "C" {

void* malloc(std::size_t size) {
    countForLibraries();
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
    countForLibraries();
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) {
    countForLibraries();
    return __libc_realloc(memory, size);
}

void* memalign(std::size_t alignment, std::size_t size) {
    countForLibraries();
    return __libc_memalign(alignment, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    countForLibraries();
    return __libc_memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    countForLibraries();
    *memory = __libc_memalign(alignment, size);
    return *memory == nullptr ? 12 : 0; // ENOMEM
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

void* operator new(std::size_t size) {
    if (counting) {
        ++counted.byGame;
    }
    void* memory = __libc_malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        std::abort();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
