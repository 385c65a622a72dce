// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ogl::host {

/// 64-bit mixer; constants of the splitmix64 generator (Vigna, 2015).
constexpr uint64_t mixBits(uint64_t v) {
    v = (v ^ (v >> 30)) * 0xbf58476d1ce4e5b9u;
    v = (v ^ (v >> 27)) * 0x94d049bb133111ebu;
    return v ^ (v >> 31);
}

/// Key of a cell of an integer lattice.
constexpr uint64_t cellKey(int64_t x, int64_t y, int64_t z) {
    return mixBits(static_cast<uint64_t>(x) * 0x9e3779b97f4a7c15u +
                   mixBits(static_cast<uint64_t>(y) * 0xc2b2ae3d27d4eb4fu +
                           mixBits(static_cast<uint64_t>(z))));
}

/// Chains of numbers by hashed key, open addressing over a power of two. Different keys of one
/// hash share nothing; equal keys are the caller's to tell apart.
class HashIndex {
  public:
    static constexpr uint32_t kEnd = UINT32_MAX;

    explicit HashIndex(size_t expected)
        : slots_(std::bit_ceil(expected * 2 + 16)), mask_(slots_.size() - 1) {}

    /// The latest number added under `key`, kEnd for none.
    uint32_t first(uint64_t key) const { return slots_[find(key)].head; }
    /// The number added under the same key before `number`, kEnd for none.
    uint32_t next(uint32_t number) const { return next_[number]; }

    /// Adds `number`, which must be the count of numbers added so far.
    void add(uint64_t key, uint32_t number) {
        if ((used_ + 1) * 4 > slots_.size() * 3)
            grow();
        Slot& slot = slots_[find(key)];
        if (slot.head == kEnd) {
            slot.key = key;
            ++used_;
        }
        if (next_.size() <= number)
            next_.resize(number + size_t{1}, kEnd);
        next_[number] = slot.head;
        slot.head = number;
    }

  private:
    struct Slot {
        uint64_t key = 0;
        uint32_t head = kEnd;
    };

    size_t find(uint64_t key) const {
        size_t at = static_cast<size_t>(key) & mask_;
        while (slots_[at].head != kEnd && slots_[at].key != key)
            at = (at + 1) & mask_;
        return at;
    }
    void grow() {
        std::vector<Slot> old(slots_.size() * 2);
        old.swap(slots_);
        mask_ = slots_.size() - 1;
        for (const Slot& slot : old)
            if (slot.head != kEnd)
                slots_[find(slot.key)] = slot;
    }

    std::vector<Slot> slots_;
    std::vector<uint32_t> next_;
    size_t mask_;
    size_t used_ = 0;
};

} // namespace ogl::host
