// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Global memory: malloc with a handle. A block may be freed by another copy of this layer in the
// process, so what a handle means is written in front of the block.
#include "platform/x11/display.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr uint64_t kMark = 0x6f676c2d6d656d31u;
constexpr uintptr_t kMovable = 2; // in the handle, which is no address then

struct alignas(16) Header {
    uint64_t mark;
    size_t bytes;
};

Header* find(HGLOBAL handle) {
    const auto value = reinterpret_cast<uintptr_t>(handle);
    if (value < 65536 || (value & 15 & ~kMovable))
        return nullptr;
    const uintptr_t data = value & ~kMovable;
    auto* header = reinterpret_cast<Header*>(data - sizeof(Header));
    return header->mark == kMark ? header : nullptr;
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
    if (flags & ~GHND)
        ogl::x11::sayOnce("GlobalAlloc: a flag is not supported");
    if (bytes > SIZE_MAX - sizeof(Header))
        return nullptr;
    auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + bytes));
    if (!header)
        return nullptr;
    *header = {kMark, bytes};
    void* const data = header + 1;
    if (flags & GMEM_ZEROINIT)
        std::memset(data, 0, bytes);
    if (flags & GMEM_MOVEABLE)
        return reinterpret_cast<HGLOBAL>(reinterpret_cast<uintptr_t>(data) | kMovable);
    return data;
}

LPVOID GlobalLock(HGLOBAL memory) {
    Header* const header = find(memory);
    return header ? header + 1 : nullptr;
}

// FALSE means "no longer locked", not failure.
BOOL GlobalUnlock(HGLOBAL memory) {
    const bool fixed = (reinterpret_cast<uintptr_t>(memory) & kMovable) == 0;
    return find(memory) && fixed ? TRUE : FALSE;
}

SIZE_T GlobalSize(HGLOBAL memory) {
    const Header* const header = find(memory);
    return header ? header->bytes : 0;
}

HGLOBAL GlobalFree(HGLOBAL memory) {
    if (!memory)
        return nullptr;
    Header* const header = find(memory);
    if (!header)
        return memory;
    header->mark = 0;
    std::free(header);
    return nullptr;
}
