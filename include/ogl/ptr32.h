// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
/// @file
/// Addresses of 4 bytes.
#pragma once

#include <cstdint>

/// Makes fields of a record byte-packed where the pragma alone lets references bind to them.
#if defined(__GNUC__)
#define OGL_PACKED __attribute__((packed))
#else
#define OGL_PACKED
#endif

namespace ogl {

/// An address of 4 bytes, as host records hold it. On a 32-bit build this is a plain pointer in
/// disguise; on a 64-bit build the memory must lie below 4 GiB (see platform/memory32.h). The type
/// has no alignment, so that it can stand anywhere in a packed record.
#pragma pack(push, 1)
template <class T> class OGL_PACKED Ptr32 {
  public:
    Ptr32() = default;
    /// As set().
    Ptr32(T* pointer) { set(pointer); }

    /// The address as a native pointer; null stays null.
    T* get() const { return reinterpret_cast<T*>(static_cast<uintptr_t>(address_)); }

    /// Stores `pointer`. An address that needs more than 32 bits is stored as null.
    void set(T* pointer) {
        const auto value = reinterpret_cast<uintptr_t>(pointer);
        address_ = static_cast<uint32_t>(value) == value ? static_cast<uint32_t>(value) : 0u;
    }

    /// As set().
    Ptr32& operator=(T* pointer) {
        set(pointer);
        return *this;
    }
    /// Whether it is not null.
    explicit operator bool() const { return address_ != 0; }
    /// The 4 bytes as a number.
    uint32_t address() const { return address_; }

  private:
    uint32_t address_;
};
#pragma pack(pop)

static_assert(sizeof(Ptr32<void>) == 4 && alignof(Ptr32<void>) == 1);

} // namespace ogl
