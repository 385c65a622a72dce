// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/ptr32.h"
#include "platform/memory32.h"

#include <new>
#include <utility>

namespace ogl {

/// Makes an object whose address fits a host record; null when there is no memory below 4 GiB.
template <class T> T* makeRecordObject(memory32::Kind kind) {
    void* memory = memory32::allocate(sizeof(T), kind);
    return memory != nullptr ? ::new (memory) T() : nullptr;
}

/// The object at an address found in a host record, or null when it is none of ours.
template <class T> T* liveRecordObject(T* address, memory32::Kind kind) {
    return memory32::owns(address, kind) ? address : nullptr;
}

/// Destroys the object that the slot names, if it is one of ours, and sets the slot to null.
template <class T> void releaseRecordObject(Ptr32<T>& slot, memory32::Kind kind) {
    T* object = liveRecordObject(slot.get(), kind);
    slot = nullptr;
    if (object == nullptr)
        return;
    object->~T();
    memory32::release(object);
}

} // namespace ogl
