// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

#include <cstddef>
#include <span>
#include <vector>

namespace ogl::host {

/// Owner of memory whose addresses fit into a host record.
class HostMemory {
  public:
    HostMemory() = default;
    ~HostMemory();
    HostMemory(const HostMemory&) = delete;
    HostMemory& operator=(const HostMemory&) = delete;

    /// `bytes` zeros below 4 GiB that live as long as this object. Throws std::bad_alloc when there
    /// are none.
    void* allocate(size_t bytes);

    /// A zeroed record.
    template <class T> T* make() { return static_cast<T*>(allocate(sizeof(T))); }

  private:
    std::vector<void*> blocks_;
};

/// Makes `list` an empty list of elements of `elementSize` bytes.
void clearList(LIST& list, size_t elementSize);

/// Makes `list` hold `count` zeroed elements and returns the first one (null for none). Throws
/// std::length_error when the record's integers can't hold the count.
void* fillList(HostMemory& memory, LIST& list, size_t count, size_t elementSize);

/// Makes `list` hold a copy of `elements`.
template <class T> void fillList(HostMemory& memory, LIST& list, std::span<const T> elements) {
    auto* to = static_cast<T*>(fillList(memory, list, elements.size(), sizeof(T)));
    for (const T& element : elements)
        *to++ = element;
}

} // namespace ogl::host
