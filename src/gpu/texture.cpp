// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/texture.h"

#include "gpu/driver_quirks.h"
#include "gpu/texture_image.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr float kAnisotropyLimit = 4.0f;

unsigned unitName(int unit) {
    return static_cast<unsigned>(GL_TEXTURE0 + unit);
}

/// With the legacy component counts the driver chooses the sizes.
int internalFormat2D(unsigned pixelFormat) {
    const int components = textureComponents(pixelFormat);
    return components > 1 ? components : GL_LUMINANCE;
}

void setCubeParameters() {
    setFilters(GL_TEXTURE_CUBE_MAP, GL_LINEAR, GL_LINEAR);
    setWrap(GL_TEXTURE_CUBE_MAP, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_WRAP_R, GL_CLAMP_TO_EDGE);
}

void setAnisotropy(float anisotropy) {
    if (GLEW_EXT_texture_filter_anisotropic)
        glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, std::max(anisotropy, 1.0f));
}

GLTexture createRepeating(unsigned pixelFormat, int width, int height, const void* pixels) {
    GLTexture texture;
    glEnable(GL_TEXTURE_2D);
    texture.create();
    glBindTexture(GL_TEXTURE_2D, texture.name());
    setFilters(GL_TEXTURE_2D, GL_LINEAR_MIPMAP_LINEAR, GL_LINEAR);
    setWrap(GL_TEXTURE_2D, GL_REPEAT);
    glTexImage2D(GL_TEXTURE_2D, 0, internalFormat2D(pixelFormat), width, height, 0, pixelFormat,
                 GL_UNSIGNED_BYTE, pixels);
    glGenerateMipmap(GL_TEXTURE_2D);
    return texture;
}

GLTexture createCube(unsigned pixelFormat, int width, int height, const void* pixels) {
    GLTexture texture;
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_TEXTURE_CUBE_MAP);
    texture.create();
    glBindTexture(GL_TEXTURE_CUBE_MAP, texture.name());
    setCubeParameters();
    const bool hasAlpha = pixelFormat == GL_RGBA || pixelFormat == GL_BGRA;
    for (unsigned face = 0; face < 6; ++face)
        glTexImage2D(GL_TEXTURE_CUBE_MAP_POSITIVE_X + face, 0, hasAlpha ? GL_RGBA : GL_RGB, width,
                     height, 0, pixelFormat, GL_UNSIGNED_BYTE, pixels);
    glDisable(GL_TEXTURE_CUBE_MAP);
    return texture;
}

} // namespace

void setFilters(unsigned target, int minification, int magnification) {
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, minification);
    glTexParameteri(target, GL_TEXTURE_MAG_FILTER, magnification);
}

void setWrap(unsigned target, int wrap) {
    glTexParameteri(target, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(target, GL_TEXTURE_WRAP_T, wrap);
}

GLTexture createTexture2D(TextureKind kind, unsigned pixelFormat, int width, int height,
                          const void* pixels) {
    if (!fitsTexture(width, height))
        return {};
    glPixelStorei(GL_UNPACK_ALIGNMENT, pixelFormat == GL_BGR ? 4 : 1);
    if (kind == TextureKind::Repeating)
        return createRepeating(pixelFormat, width, height, pixels);
    if (kind == TextureKind::Cube)
        return createCube(pixelFormat, width, height, pixels);
    return {};
}

bool fitsTexture(int width, int height) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    return width <= largest && height <= largest;
}

void bindTexture(int unit, TextureKind kind, unsigned texture, int filter, float anisotropy) {
    glActiveTexture(unitName(unit));
    switch (kind) {
    case TextureKind::Repeating:
    case TextureKind::RepeatingToo:
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, texture);
        setAnisotropy(anisotropy);
        setFilters(GL_TEXTURE_2D, filter == GL_LINEAR ? GL_LINEAR_MIPMAP_LINEAR : filter, filter);
        setWrap(GL_TEXTURE_2D, GL_REPEAT);
        break;
    case TextureKind::Multisample:
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D_MULTISAMPLE, texture);
        break;
    case TextureKind::Rectangle:
        glEnable(GL_TEXTURE_RECTANGLE);
        glBindTexture(GL_TEXTURE_RECTANGLE, texture);
        setFilters(GL_TEXTURE_RECTANGLE, filter, filter);
        break;
    case TextureKind::Clamped:
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, texture);
        setAnisotropy(1.0f);
        setFilters(GL_TEXTURE_2D, filter, filter);
        setWrap(GL_TEXTURE_2D, GL_CLAMP);
        break;
    case TextureKind::Cube:
        glEnable(GL_TEXTURE_CUBE_MAP);
        glBindTexture(GL_TEXTURE_CUBE_MAP, texture);
        setCubeParameters();
        break;
    }
}

void resetTextureUnit(int unit) {
    glActiveTexture(unitName(unit));
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_TEXTURE_3D);
    glDisable(GL_TEXTURE_CUBE_MAP);
    glDisable(GL_TEXTURE_RECTANGLE);
}

float materialAnisotropy() {
    if (!GLEW_EXT_texture_filter_anisotropic || filtersAnisotropicallyInSoftware())
        return 1.0f;
    float largest = 1.0f;
    glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &largest);
    return std::min(largest, kAnisotropyLimit);
}

} // namespace ogl
