// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
/// @file
/// Memory below 4 GiB.
#pragma once

#include <cstddef>
#include <cstdint>

/// Memory with addresses of 4 bytes, for what is named in host records. All functions may be called
/// from any thread. Each program or library that links this code has a heap of its own: memory is
/// released, and known to owns(), only where it was allocated.
namespace ogl::memory32 {

/// What an allocation is, so that an address found in a host record can be checked before use.
enum class Kind : uint32_t { Host, TextureImage, MeshBatchList, BatchSet };

/// `bytes` zeros below 4 GiB, aligned to 16 bytes. 0 bytes give a block of their own, too. Null
/// when there is no memory or no room below 4 GiB.
void* allocate(size_t bytes, Kind kind);

/// Frees what allocate returned. Null, and any address that is not the start of a live allocation,
/// are ignored.
void release(void* address);

/// True when `address` is the start of a live allocation of this kind.
bool owns(const void* address, Kind kind);

/// The number of live allocations of this kind.
size_t liveCount(Kind kind);

} // namespace ogl::memory32
