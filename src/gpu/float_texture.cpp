// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/float_texture.h"

namespace ogl {

GLTexture createFloatTexture(const FloatTable& table, std::span<const float> numbers) {
    const size_t perTexel = table.format == GL_RGBA ? 4 : 3;
    if (numbers.size() <
        static_cast<size_t>(table.width) * static_cast<size_t>(table.height) * perTexel)
        return {};
    GLTexture texture;
    texture.create();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(table.target, texture.name());
    glTexParameteri(table.target, GL_TEXTURE_MIN_FILTER, table.filter);
    glTexParameteri(table.target, GL_TEXTURE_MAG_FILTER, table.filter);
    glTexParameteri(table.target, GL_TEXTURE_WRAP_S, table.wrap);
    glTexParameteri(table.target, GL_TEXTURE_WRAP_T, table.wrap);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexImage2D(table.target, 0, static_cast<int>(table.internalFormat), table.width, table.height,
                 0, table.format, GL_FLOAT, numbers.data());
    glBindTexture(table.target, 0);
    return texture;
}

} // namespace ogl
