// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/background_texture.h"

#include "gpu/texture.h"
#include "image/tga_file.h"
#include "render/error_log.h"

#include <algorithm>

namespace ogl {

namespace {

/// Leaves the colours of an image: the alpha test would cut out what is transparent.
void dropAlpha(Image& image) {
    if (image.format != ImageFormat::Rgba8)
        return;
    const size_t count = image.pixels.size() / 4;
    for (size_t i = 1; i < count; ++i)
        std::copy_n(&image.pixels[i * 4], 3, &image.pixels[i * 3]);
    image.pixels.resize(count * 3);
    image.format = ImageFormat::Rgb8;
}

GLTexture createFileTexture(const std::string& path, ErrorLog& log) {
    Image image;
    if (!loadTga(path.c_str(), image))
        return {};
    dropAlpha(image);
    const unsigned format = image.format == ImageFormat::Rgb8 ? GL_RGB : GL_LUMINANCE;
    GLTexture texture = createTexture2D(TextureKind::Repeating, format, image.width, image.height,
                                        image.pixels.data());
    resetTextureUnit(0);
    if (!texture.exists())
        log.writeOnce("Error", kImageTooLarge, path);
    return texture;
}

} // namespace

GLTexture createBackgroundTexture(const std::string& texturesFolder, ErrorLog& log) {
    return createFileTexture(texturesFolder + "\\background.tga", log);
}

GLTexture createEnvironmentTexture(const std::string& texturesFolder, ErrorLog& log) {
    return createFileTexture(texturesFolder + "\\environment.tga", log);
}

} // namespace ogl
