// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <cstddef>
#include <memory>
#include <span>

namespace ogl {

/// A buffer that holds one or more arrays of vertices; null before an upload.
using SharedBuffer = std::shared_ptr<GLBuffer>;

/// A new buffer of `size` bytes, whose contents are unset; it stays bound.
SharedBuffer makeBuffer(size_t size);

/// A new buffer with these contents; null without any. It stays bound.
SharedBuffer makeFilledBuffer(std::span<const std::byte> contents);

/// Writes into a buffer that has room for `contents` after `offset` bytes; it stays bound.
void writeBuffer(const GLBuffer& buffer, size_t offset, std::span<const std::byte> contents);

} // namespace ogl
