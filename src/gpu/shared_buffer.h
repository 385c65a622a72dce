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

/// A new buffer with these contents, which stays bound; null without any.
SharedBuffer makeBuffer(std::span<const std::byte> contents);

} // namespace ogl
