// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/shared_buffer.h"

namespace ogl {

namespace {

SharedBuffer makeBound(size_t size, const void* contents) {
    auto buffer = std::make_shared<GLBuffer>();
    buffer->create();
    glBindBuffer(GL_ARRAY_BUFFER, buffer->name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(size), contents, GL_STATIC_DRAW);
    return buffer;
}

} // namespace

SharedBuffer makeBuffer(size_t size) {
    return makeBound(size, nullptr);
}

SharedBuffer makeFilledBuffer(std::span<const std::byte> contents) {
    if (contents.empty())
        return nullptr;
    ++glWork().uploads;
    return makeBound(contents.size(), contents.data());
}

void writeBuffer(const GLBuffer& buffer, size_t offset, std::span<const std::byte> contents) {
    glBindBuffer(GL_ARRAY_BUFFER, buffer.name());
    glBufferSubData(GL_ARRAY_BUFFER, static_cast<GLintptr>(offset),
                    static_cast<GLsizeiptr>(contents.size()), contents.data());
    ++glWork().uploads;
}

} // namespace ogl
