// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace ogl::low_pages {

/// Address space is handed out in steps of this many bytes.
inline constexpr size_t kGranule = 65536;

/// Reads and writes as zeros, lies wholly below 4 GiB, starts at a multiple of kGranule. `bytes` is
/// a multiple of kGranule. Null when there is no such range or no memory. Memory is taken up only
/// as it is touched.
void* map(size_t bytes);

/// Gives back a whole range that map() returned.
void unmap(void* address, size_t bytes);

/// Makes a part of a mapped range (multiples of kGranule) read as zeros again; its memory goes back
/// to the system where that is possible.
void clear(void* address, size_t bytes);

} // namespace ogl::low_pages
