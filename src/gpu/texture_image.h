// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "ogl/ptr32.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ogl {

/// What an image is used for.
enum class TextureRole : int32_t {
    Color = 0,
    Opacity = 1,
    NormalMap = 2,
    Bump = 3,
    Specular = 4, ///< specular map, or an opacity map from a TGA file
};

#pragma pack(push, 1)
/// What a host sees of an image: 28 bytes where pointers have 4; longer ones move `strength` alone.
struct OGL_PACKED TextureImageRecord {
    int32_t width = 0;
    int32_t height = 0;
    TextureRole role = TextureRole::Color;
    uint32_t pixelFormat = 0;   ///< GL_RGB, GL_RGBA, GL_BGR, GL_BGRA or GL_LUMINANCE
    uint32_t texture = kNoName; ///< name of the GL texture, once it is made
    uint8_t* pixels = nullptr;  ///< top row first, rows of textureRowBytes()
    float strength = 1.0f;      ///< bump images: of the normal map made last
};
#pragma pack(pop)
static_assert(offsetof(TextureImageRecord, width) == 0);
static_assert(offsetof(TextureImageRecord, height) == 4);
static_assert(offsetof(TextureImageRecord, role) == 8);
static_assert(offsetof(TextureImageRecord, pixelFormat) == 12);
static_assert(offsetof(TextureImageRecord, texture) == 16);
static_assert(offsetof(TextureImageRecord, pixels) == 20);
static_assert(offsetof(TextureImageRecord, strength) == 20 + sizeof(void*));
static_assert(sizeof(TextureImageRecord) == 24 + sizeof(void*));

/// An image that a host supplied, with the GL texture made from it on first use. Hosts hold its
/// address in texture slots, so it lives in memory32. The record at its start tells them of what
/// follows it; what the library reads and deletes does not hang on bytes that a host can write.
struct TextureImage : TextureImageRecord {
    TextureImage() = default;
    TextureImage(const TextureImage&) = delete;
    TextureImage& operator=(const TextureImage&) = delete;

    const std::vector<uint8_t>& bytes() const { return bytes_; }
    void setBytes(std::vector<uint8_t> bytes);

    bool hasTexture() const { return ownTexture_.exists(); }
    unsigned textureName() const { return ownTexture_.name(); }
    /// Takes a texture in place of the one that there is, which is deleted.
    void setTexture(GLTexture made);

  private:
    std::vector<uint8_t> bytes_;
    GLTexture ownTexture_;
};

/// Bytes of a pixel of 8 bits per component; 0 for formats that texture images don't have.
int textureComponents(uint32_t pixelFormat);

/// Bytes of a row as createTexture2D reads it: of GL_BGR padded to 4 bytes, as in the bitmaps
/// that these images come from, of other formats without padding. Hosts name any `width`; less than
/// 0 counts as 0.
uint64_t textureRowBytes(uint32_t pixelFormat, int width);

/// Whether the image has a size and bytes for all its rows.
bool hasAllPixels(const TextureImage& image);

/// The image at an address that a host's slot holds, or null when no live image is there.
TextureImage* liveImage(TextureImage* address);

} // namespace ogl
