// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/background_texture.h"

#include "gpu/texture.h"
#include "image/tga_file.h"

namespace ogl {

GLTexture createBackgroundTexture(const std::string& texturesFolder) {
    Image image;
    if (!loadTga((texturesFolder + "\\background.tga").c_str(), image))
        return {};
    unsigned format = GL_LUMINANCE;
    if (image.format == ImageFormat::Rgb8)
        format = GL_RGB;
    else if (image.format == ImageFormat::Rgba8)
        format = GL_RGBA;
    GLTexture texture = createTexture2D(TextureKind::Repeating, format, image.width, image.height,
                                        image.pixels.data());
    resetTextureUnit(0);
    return texture;
}

} // namespace ogl
