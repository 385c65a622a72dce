// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/shared_buffer.h"

namespace ogl {

SharedBuffer makeBuffer(std::span<const std::byte> contents) {
    if (contents.empty())
        return nullptr;
    auto buffer = std::make_shared<GLBuffer>();
    buffer->create();
    glBindBuffer(GL_ARRAY_BUFFER, buffer->name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(contents.size()), contents.data(),
                 GL_STATIC_DRAW);
    ++glWork().uploads;
    return buffer;
}

} // namespace ogl
