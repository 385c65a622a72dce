// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace ogl::x11 {

/// One row of the resource script, made into data when the library is built.
struct EmbeddedResource {
    unsigned number;
    const char* type;
    const unsigned char* bytes;
    size_t size;
};

extern const EmbeddedResource kEmbeddedResources[];
extern const size_t kEmbeddedResourceCount;

} // namespace ogl::x11
