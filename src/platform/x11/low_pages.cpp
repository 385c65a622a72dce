// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/low_pages.h"

#include <sys/mman.h>

#include <cerrno>
#include <cstdint>
#include <mutex>

namespace ogl::low_pages {
namespace {

constexpr uint64_t kEnd = uint64_t{1} << 32;
// Programs that are not position-independent, and their heaps, start at 4 MiB.
constexpr uint64_t kFirst = 0x10000000;
// A range that is taken is skipped in steps of this size: a few thousand system calls at worst.
constexpr uint64_t kStep = 1u << 20;

std::mutex cursorMutex;
uint64_t cursor = kFirst;

void* mapAt(uint64_t address, size_t bytes) {
    auto* wanted = reinterpret_cast<void*>(address);
    void* got = mmap(wanted, bytes, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_FIXED_NOREPLACE, -1, 0);
    if (got == MAP_FAILED)
        return nullptr;
    if (got == wanted)
        return got;
    munmap(got, bytes); // kernels before 4.17 take the address as a hint only
    errno = EEXIST;
    return nullptr;
}

void* search(uint64_t first, uint64_t last, size_t bytes) {
    for (uint64_t at = first; at < last && at + bytes <= kEnd; at += kStep) {
        if (void* found = mapAt(at, bytes)) {
            cursor = (at + bytes + kStep - 1) / kStep * kStep;
            return found;
        }
        if (errno == ENOMEM)
            return nullptr;
    }
    return nullptr;
}

} // namespace

void* map(size_t bytes) {
    if (bytes == 0 || bytes >= kEnd)
        return nullptr;
    const std::lock_guard lock(cursorMutex);
    const uint64_t start = cursor;
    if (void* found = search(start, kEnd, bytes))
        return found;
    return search(kFirst, start, bytes);
}

void unmap(void* address, size_t bytes) {
    munmap(address, bytes);
}

void clear(void* address, size_t bytes) {
    madvise(address, bytes, MADV_DONTNEED);
}

} // namespace ogl::low_pages
