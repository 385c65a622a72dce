// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/host_memory.h"

#include "platform/memory32.h"

#include <limits>
#include <new>
#include <stdexcept>

namespace ogl::host {

HostMemory::~HostMemory() {
    for (void* block : blocks_)
        memory32::release(block);
}

void* HostMemory::allocate(size_t bytes) {
    blocks_.reserve(blocks_.size() + 1);
    void* block = memory32::allocate(bytes, memory32::Kind::Host);
    if (block == nullptr)
        throw std::bad_alloc();
    blocks_.push_back(block);
    return block;
}

void clearList(LIST& list, size_t elementSize) {
    list = LIST{};
    list.growBy = 16;
    list.elementSize = static_cast<int16_t>(elementSize);
}

void* fillList(HostMemory& memory, LIST& list, size_t count, size_t elementSize) {
    if (count > static_cast<size_t>(std::numeric_limits<int32_t>::max()))
        throw std::length_error("a list of the scene has too many elements");
    clearList(list, elementSize);
    if (count == 0)
        return nullptr;
    void* data = memory.allocate(count * elementSize);
    list.data = data;
    list.count = static_cast<int32_t>(count);
    return data;
}

} // namespace ogl::host
