// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/background_texture.h"

#include "gpu/texture.h"
#include "image/tga_file.h"

namespace ogl {

namespace {

GLTexture createFileTexture(const std::string& path) {
    Image image;
    if (!loadTga(path.c_str(), image))
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

} // namespace

GLTexture createBackgroundTexture(const std::string& texturesFolder) {
    return createFileTexture(texturesFolder + "\\background.tga");
}

GLTexture createEnvironmentTexture(const std::string& texturesFolder) {
    return createFileTexture(texturesFolder + "\\environment.tga");
}

} // namespace ogl
