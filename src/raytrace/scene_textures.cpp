// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/scene_textures.h"

#include "gpu/gl_debug.h"
#include "gpu/texture.h"

#include <algorithm>
#include <array>
#include <vector>

namespace ogl {

namespace {

/// Texels to fill a texture with.
struct Texels {
    unsigned format; ///< GL_RGB or GL_RGBA
    const float* data;
    size_t count;

    size_t components() const { return format == GL_RGB ? 3 : 4; }
};

Texels texelsOf(const Vec3Array& vectors) {
    return {GL_RGB, vectors.empty() ? nullptr : &vectors.front().x, vectors.size()};
}

Texels texelsOf(const std::vector<MaterialRecord>& records) {
    return {GL_RGBA, records.empty() ? nullptr : &records.front().red, 2 * records.size()};
}

/// A box's numbers travel as floats.
std::vector<std::array<float, 8>> asFloats(const std::vector<BoxRecord>& records) {
    std::vector<std::array<float, 8>> texels;
    texels.reserve(records.size());
    for (const BoxRecord& r : records)
        texels.push_back({r.min.x, r.min.y, r.min.z, static_cast<float>(r.first), r.max.x, r.max.y,
                          r.max.z, static_cast<float>(r.count)});
    return texels;
}

Texels texelsOf(const std::vector<std::array<float, 8>>& boxes) {
    return {GL_RGBA, boxes.empty() ? nullptr : boxes.front().data(), 2 * boxes.size()};
}

/// Fills rows of the bound texture.
void fillRows(const Texels& texels, int side, size_t row, size_t rows, const float* data) {
    if (rows != 0)
        glTexSubImage2D(GL_TEXTURE_RECTANGLE, 0, 0, static_cast<int>(row), side,
                        static_cast<int>(rows), texels.format, GL_FLOAT, data);
}

/// Fills the bound texture: whole rows from where the data lies, the last one from a copy, the rest
/// with zeros.
void fill(const Texels& texels, int side) {
    const auto width = static_cast<size_t>(side);
    const size_t fullRows = texels.count / width;
    const size_t rowFloats = width * texels.components();
    fillRows(texels, side, 0, fullRows, texels.data);

    std::vector<float> row(rowFloats, 0.0f);
    if (fullRows * width < texels.count)
        std::copy(texels.data + fullRows * rowFloats,
                  texels.data + texels.count * texels.components(), row.begin());
    if (fullRows < width)
        fillRows(texels, side, fullRows, 1, row.data());
    std::ranges::fill(row, 0.0f);
    for (size_t k = fullRows + 1; k < width; ++k)
        fillRows(texels, side, k, 1, row.data());
}

/// Asks first: drivers may report a refusal as an error.
bool driverTakes(int side) {
    glTexImage2D(GL_PROXY_TEXTURE_RECTANGLE, 0, GL_RGBA32F, side, side, 0, GL_RGBA, GL_FLOAT,
                 nullptr);
    GLint width = 0;
    glGetTexLevelParameteriv(GL_PROXY_TEXTURE_RECTANGLE, 0, GL_TEXTURE_WIDTH, &width);
    return width == side;
}

/// Makes a new texture. False when there is no memory for it.
bool make(GLTexture& texture, const Texels& texels, int side) {
    texture.reset();
    if (!driverTakes(side))
        return false;
    texture.create();
    glBindTexture(GL_TEXTURE_RECTANGLE, texture.name());
    glTexImage2D(GL_TEXTURE_RECTANGLE, 0, GL_RGBA32F, side, side, 0, texels.format, GL_FLOAT,
                 nullptr);
    fill(texels, side);
    return glGetError() != GL_OUT_OF_MEMORY;
}

} // namespace

int largestTextureSide() {
    GLint side = 0;
    glGetIntegerv(GL_MAX_RECTANGLE_TEXTURE_SIZE, &side);
    return side;
}

bool SceneTextures::upload(const PackedScene& packed) {
    const DebugGroup group("ray-trace textures");
    sides = textureSides(packed);
    glActiveTexture(GL_TEXTURE0);
    glEnable(GL_TEXTURE_RECTANGLE);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    const bool done = make(vertsTex, texelsOf(packed.vertices), sides.vertTexRes) &&
                      make(normalsTex, texelsOf(packed.normals), sides.vertTexRes) &&
                      make(uvsTex, texelsOf(packed.uvs), sides.vertTexRes) &&
                      make(materialsTex, texelsOf(packed.materialRecords), sides.materialsTexRes) &&
                      make(gridsTex, texelsOf(asFloats(packed.gridCells)), sides.gridsTexRes) &&
                      make(boundsTex, texelsOf(asFloats(packed.objectBounds)), sides.boundsTexRes);
    glBindTexture(GL_TEXTURE_RECTANGLE, 0);
    resetTextureUnit(0);
    if (!done)
        release();
    return done;
}

void SceneTextures::release() {
    for (GLTexture* texture :
         {&vertsTex, &normalsTex, &uvsTex, &materialsTex, &gridsTex, &boundsTex})
        texture->reset();
}

} // namespace ogl
