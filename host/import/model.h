// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A model as read from a file: metres, z up, node transforms applied. Plain values, so that it can
// travel from the importing process to the program.
#pragma once

#include "host/scene_parts.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace ogl::host {

/// What the alpha of a material's colour image does.
enum class AlphaUse : uint8_t {
    CutOut, ///< pixels show or don't
    Blend,  ///< pixels let something shine through
    None
};

/// One surface finish.
struct ModelMaterial {
    std::string name;
    std::array<float, 3> color{0.8f, 0.8f, 0.8f}; ///< red, green, blue, 0 .. 1
    float opacity = 1.0f;                         ///< 1 opaque .. 0 invisible
    float emission = 0.0f;                        ///< mean of the emissive colour, 0 .. 1
    float specular = 0.0f;                        ///< mean of the specular colour, 0 .. 1
    bool twoSided = false;                        ///< drawn from behind too
    std::string texture;       ///< file of the colour image, as the model names it; empty = none
    std::string alphaTexture;  ///< file of the opacity image; empty = none
    std::string normalTexture; ///< file of the normal map; empty = none
    AlphaUse alphaUse = AlphaUse::CutOut;
    int textureNumber = kNone;  ///< in Model::textures
    bool alphaTextured = false; ///< its texture is blended by its alpha

    bool operator==(const ModelMaterial&) const = default;
};

/// Triangles of one material. Counter-clockwise seen from outside.
struct ModelPart {
    uint32_t material = 0;           ///< number in Model::materials
    std::vector<Vec3> positions;     ///< metres
    std::vector<float> normals;      ///< 3 per position, unit length; or empty
    std::vector<float> texCoords;    ///< 2 per position, v upwards; or empty
    std::vector<uint32_t> triangles; ///< 3 position numbers per triangle
};

/// One thing with a name: a wall, a window, a chair.
struct ModelObject {
    std::string name;
    std::vector<ModelPart> parts;
};

struct Model {
    std::string format;             ///< as the importer names it
    std::string lengthUnit;         ///< unit of the file: "m", "cm", "mm", "in" or "ft"
    bool lengthUnitGuessed = false; ///< from the size, since the file doesn't say
    Vec3 moved; ///< added to every position, since the file lies far from its origin
    std::vector<ModelMaterial> materials;
    std::vector<Texture> textures;
    std::vector<ModelObject> objects;
    std::vector<std::string> warnings; ///< what the file lacks, one line each
};

Box boundsOf(const Model& model);
size_t triangleCount(const Model& model);

/// Drops the normals of a part in which every vertex has that of its triangle: such normals come
/// from files that have none for curved surfaces, and must not keep them from being recognised.
void dropFlatNormals(ModelPart& part);

} // namespace ogl::host
