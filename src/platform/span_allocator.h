// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/low_pages.h"

#include <cstdint>
#include <map>
#include <set>
#include <utility>

namespace ogl {

/// Runs of granules (64 KiB) below 4 GiB, named by their first granule's number: address / 64 KiB.
/// Address space is mapped in large pieces that are kept; free neighbours merge, and the smallest
/// run that fits is taken, so that mixed sizes don't fragment it. Free runs read as zeros.
class SpanAllocator {
  public:
    /// The first granule of a zeroed run of `count` granules, 0 when there is no room.
    uint32_t allocate(uint32_t count);
    void release(uint32_t first, uint32_t count);

  private:
    bool grow(uint32_t count);
    void insertFree(uint32_t first, uint32_t count);
    void eraseFree(std::map<uint32_t, uint32_t>::iterator run);

    std::map<uint32_t, uint32_t> freeByPlace_;           // first granule -> count
    std::set<std::pair<uint32_t, uint32_t>> freeBySize_; // (count, first granule)
};

/// The address of a granule.
inline void* granuleAddress(uint32_t granule) {
    return reinterpret_cast<void*>(static_cast<uintptr_t>(granule) * low_pages::kGranule);
}

} // namespace ogl
