// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/span_allocator.h"

#include <algorithm>
#include <iterator>

namespace ogl {
namespace {

constexpr uint32_t kPieceGranules = 256; // 16 MiB

} // namespace

uint32_t SpanAllocator::allocate(uint32_t count) {
    auto fit = freeBySize_.lower_bound({count, 0});
    if (fit == freeBySize_.end()) {
        if (!grow(count))
            return 0;
        fit = freeBySize_.lower_bound({count, 0});
    }
    const auto [size, first] = *fit;
    eraseFree(freeByPlace_.find(first));
    if (size > count)
        insertFree(first + count, size - count);
    return first;
}

void SpanAllocator::release(uint32_t first, uint32_t count) {
    low_pages::clear(granuleAddress(first), size_t{count} * low_pages::kGranule);
    insertFree(first, count);
}

bool SpanAllocator::grow(uint32_t count) {
    uint32_t size = std::max(count, kPieceGranules);
    void* piece = low_pages::map(size_t{size} * low_pages::kGranule);
    if (!piece && size > count) {
        size = count; // what is left of the address space may be in smaller gaps
        piece = low_pages::map(size_t{size} * low_pages::kGranule);
    }
    if (!piece)
        return false;
    insertFree(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(piece) / low_pages::kGranule),
               size);
    return true;
}

void SpanAllocator::insertFree(uint32_t first, uint32_t count) {
    const auto after = freeByPlace_.lower_bound(first);
    if (after != freeByPlace_.begin()) {
        const auto before = std::prev(after);
        if (before->first + before->second == first) {
            first = before->first;
            count += before->second;
            eraseFree(before);
        }
    }
    if (after != freeByPlace_.end() && first + count == after->first) {
        count += after->second;
        eraseFree(after);
    }
    freeByPlace_.emplace(first, count);
    freeBySize_.emplace(count, first);
}

void SpanAllocator::eraseFree(std::map<uint32_t, uint32_t>::iterator run) {
    freeBySize_.erase({run->second, run->first});
    freeByPlace_.erase(run);
}

} // namespace ogl
