// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <numeric>
#include <vector>

namespace ogl::host {

/// Sets of numbers that are joined step by step (union by lower number, path halving).
class DisjointSets {
  public:
    explicit DisjointSets(size_t count) : parent_(count) {
        std::iota(parent_.begin(), parent_.end(), 0u);
    }
    uint32_t find(uint32_t n) {
        while (parent_[n] != n) {
            parent_[n] = parent_[parent_[n]];
            n = parent_[n];
        }
        return n;
    }
    void join(uint32_t a, uint32_t b) {
        a = find(a);
        b = find(b);
        if (a < b)
            parent_[b] = a;
        else
            parent_[a] = b;
    }

  private:
    std::vector<uint32_t> parent_;
};

} // namespace ogl::host
