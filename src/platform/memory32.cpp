// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/memory32.h"

#include "platform/span_allocator.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

// With the address sanitizer every block is fenced in and freed blocks are marked, so that a read
// past the end of a host's list is reported although the memory is not from malloc.
#if defined(__SANITIZE_ADDRESS__)
#define OGL_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define OGL_ADDRESS_SANITIZER 1
#endif
#endif
#if defined(OGL_ADDRESS_SANITIZER)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#endif

namespace ogl::memory32 {
namespace {

#if defined(OGL_ADDRESS_SANITIZER)
constexpr size_t kFence = 16;
#else
constexpr size_t kFence = 0;
#endif
constexpr size_t kGranule = low_pages::kGranule;
constexpr size_t kGranules = 65536;      // in 4 GiB
constexpr size_t kMaximum = 0xfff00000u; // bytes in one allocation
constexpr size_t kLargestPooled = 131072;
constexpr size_t kPooledClasses = 48;
constexpr size_t kKinds = 4;
constexpr uint32_t kNone = UINT32_MAX;

// Block sizes go in steps of 16 bytes up to 128, then four sizes per doubling: at most a quarter of
// a block is slack.
struct SizeClass {
    size_t index;
    size_t blockSize;
};

SizeClass sizeClass(size_t bytes) {
    if (bytes <= 128) {
        const size_t index = bytes == 0 ? 0 : (bytes - 1) / 16;
        return {index, (index + 1) * 16};
    }
    const auto doubling = static_cast<size_t>(std::bit_width(bytes - 1)); // 8 for 129 to 256
    const size_t base = size_t{1} << (doubling - 1);
    const size_t step = base / 4;
    const size_t quarter = (bytes - 1 - base) / step;
    return {8 + (doubling - 8) * 4 + quarter, base + (quarter + 1) * step};
}

// A run of granules cut into equal blocks: one block for a large allocation.
struct Region {
    uint32_t firstGranule;
    uint32_t granules;
    size_t blockSize;
    uint32_t blockCount;
    size_t classIndex;           // kPooledClasses for a large allocation
    uint32_t fresh = 0;          // blocks from here on were never used and are zero
    uint32_t live = 0;           // blocks in use
    uint32_t firstFree = kNone;  // freed blocks, linked through nextFree
    size_t openIndex = SIZE_MAX; // place in the list of regions with room
    std::vector<uint8_t> kinds;  // kind + 1 of each block, 0 for none
    std::vector<uint32_t> nextFree;

    char* base() const { return static_cast<char*>(granuleAddress(firstGranule)); }
    size_t bytes() const { return granules * kGranule; }
    bool full() const { return live == blockCount; }
};

class Heap {
  public:
    void* allocate(size_t bytes, Kind kind);
    void release(const void* address);
    bool owns(const void* address, Kind kind);
    size_t liveCount(Kind kind);

  private:
    struct Place {
        Region* region;
        uint32_t block;
    };
    Region* makeRegion(size_t bytes, size_t blockSize, size_t classIndex);
    void destroyRegion(Region* region);
    Region* regionFor(size_t bytes);
    void open(Region* region);
    void close(Region* region);
    Place find(const void* address) const;

    std::mutex mutex_;
    SpanAllocator spans_;
    std::array<Region*, kGranules> regionOf_{};
    std::array<std::vector<Region*>, kPooledClasses> open_;
    std::array<size_t, kKinds> liveCounts_{};
};

Region* Heap::makeRegion(size_t bytes, size_t blockSize, size_t classIndex) {
    const auto granules = static_cast<uint32_t>((bytes + kGranule - 1) / kGranule);
    const auto blockCount = static_cast<uint32_t>(granules * kGranule / blockSize);
    auto region = std::make_unique<Region>(Region{.firstGranule = 0,
                                                  .granules = granules,
                                                  .blockSize = blockSize,
                                                  .blockCount = blockCount,
                                                  .classIndex = classIndex,
                                                  .kinds = std::vector<uint8_t>(blockCount),
                                                  .nextFree = std::vector<uint32_t>(blockCount)});
    region->firstGranule = spans_.allocate(granules);
    if (region->firstGranule == 0)
        return nullptr;
    ASAN_POISON_MEMORY_REGION(region->base(), region->bytes());
    for (uint32_t i = 0; i < granules; ++i)
        regionOf_[region->firstGranule + i] = region.get();
    return region.release();
}

void Heap::destroyRegion(Region* region) {
    close(region);
    ASAN_UNPOISON_MEMORY_REGION(region->base(), region->bytes());
    for (uint32_t i = 0; i < region->granules; ++i)
        regionOf_[region->firstGranule + i] = nullptr;
    spans_.release(region->firstGranule, region->granules);
    delete region;
}

Region* Heap::regionFor(size_t bytes) {
    if (bytes > kLargestPooled)
        return makeRegion(bytes, (bytes + kGranule - 1) / kGranule * kGranule, kPooledClasses);
    const auto [index, blockSize] = sizeClass(bytes);
    if (!open_[index].empty())
        return open_[index].back();
    Region* region = makeRegion(std::max(kGranule, 8 * blockSize), blockSize, index);
    if (region)
        open(region);
    return region;
}

void Heap::open(Region* region) {
    auto& list = open_[region->classIndex];
    list.push_back(region);
    region->openIndex = list.size() - 1;
}

void Heap::close(Region* region) {
    if (region->openIndex == SIZE_MAX)
        return;
    auto& list = open_[region->classIndex];
    list.back()->openIndex = region->openIndex;
    list[region->openIndex] = list.back();
    list.pop_back();
    region->openIndex = SIZE_MAX;
}

void* Heap::allocate(size_t bytes, Kind kind) {
    if (bytes > kMaximum || static_cast<size_t>(kind) >= kKinds)
        return nullptr;
    const std::lock_guard lock(mutex_);
    Region* region = regionFor(bytes + kFence);
    if (!region)
        return nullptr;
    uint32_t block = region->firstFree;
    const bool used = block != kNone;
    if (used)
        region->firstFree = region->nextFree[block];
    else
        block = region->fresh++;
    region->kinds[block] = static_cast<uint8_t>(static_cast<uint32_t>(kind) + 1);
    ++liveCounts_[static_cast<size_t>(kind)];
    ++region->live;
    if (region->full())
        close(region);

    char* address = region->base() + block * region->blockSize;
    ASAN_UNPOISON_MEMORY_REGION(address, bytes);
    if (used)
        std::memset(address, 0, bytes);
    return address;
}

Heap::Place Heap::find(const void* address) const {
    const uint64_t value = reinterpret_cast<uintptr_t>(address);
    if (value >= uint64_t{kGranules} * kGranule)
        return {nullptr, 0};
    Region* region = regionOf_[static_cast<size_t>(value / kGranule)];
    if (!region)
        return {nullptr, 0};
    const auto offset = static_cast<size_t>(value - reinterpret_cast<uintptr_t>(region->base()));
    const size_t block = offset / region->blockSize;
    if (offset % region->blockSize != 0 || block >= region->blockCount || !region->kinds[block])
        return {nullptr, 0};
    return {region, static_cast<uint32_t>(block)};
}

void Heap::release(const void* address) {
    const std::lock_guard lock(mutex_);
    const auto [region, block] = find(address);
    if (!region)
        return;
    --liveCounts_[region->kinds[block] - 1u];
    region->kinds[block] = 0;
    --region->live;
    const bool pooled = region->classIndex < kPooledClasses;
    // One empty region per class stays, so that a single block that comes and goes stays cheap.
    const bool spare =
        pooled && region->openIndex != SIZE_MAX && open_[region->classIndex].size() > 1;
    if (region->live == 0 && (!pooled || spare)) {
        destroyRegion(region);
        return;
    }
    ASAN_POISON_MEMORY_REGION(region->base() + block * region->blockSize, region->blockSize);
    region->nextFree[block] = region->firstFree;
    region->firstFree = block;
    if (region->openIndex == SIZE_MAX)
        open(region);
}

bool Heap::owns(const void* address, Kind kind) {
    const std::lock_guard lock(mutex_);
    const auto [region, block] = find(address);
    return region && region->kinds[block] == static_cast<uint32_t>(kind) + 1;
}

size_t Heap::liveCount(Kind kind) {
    const std::lock_guard lock(mutex_);
    return liveCounts_[static_cast<size_t>(kind)];
}

// Never destroyed: records may still name its blocks while the program's statics go.
Heap& heap() {
    static Heap* const instance = new Heap;
    return *instance;
}

} // namespace

void* allocate(size_t bytes, Kind kind) {
    try {
        return heap().allocate(bytes, kind);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void release(void* address) {
    heap().release(address);
}

bool owns(const void* address, Kind kind) {
    return heap().owns(address, kind);
}

size_t liveCount(Kind kind) {
    return heap().liveCount(kind);
}

} // namespace ogl::memory32
