// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/low_pages.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstdint>
#include <cstring>

namespace ogl::low_pages {
namespace {

// The first free range below 4 GiB that holds `bytes`. In a 32-bit process the system's own choice
// is always low enough, so that only 64-bit processes walk the address space.
void* mapBelow4GiB(size_t bytes) {
    constexpr uint64_t kEnd = uint64_t{1} << 32;
    uint64_t at = 0x10000000;
    MEMORY_BASIC_INFORMATION range;
    while (at + bytes <= kEnd && VirtualQuery(reinterpret_cast<void*>(static_cast<uintptr_t>(at)),
                                              &range, sizeof range)) {
        const uint64_t end =
            reinterpret_cast<uintptr_t>(range.BaseAddress) + uint64_t{range.RegionSize};
        if (range.State == MEM_FREE && at + bytes <= end) {
            void* wanted = reinterpret_cast<void*>(static_cast<uintptr_t>(at));
            if (void* got = VirtualAlloc(wanted, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))
                return got;
        }
        at = (end + kGranule - 1) / kGranule * kGranule;
    }
    return nullptr;
}

} // namespace

void* map(size_t bytes) {
    if (bytes == 0)
        return nullptr;
    if constexpr (sizeof(void*) == 4)
        return VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    else
        return mapBelow4GiB(bytes);
}

void unmap(void* address, size_t) {
    VirtualFree(address, 0, MEM_RELEASE);
}

void clear(void* address, size_t bytes) {
    std::memset(address, 0, bytes);
}

} // namespace ogl::low_pages
