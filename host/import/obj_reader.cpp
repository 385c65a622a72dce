// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/obj_reader.h"

#include "host/import/model_textures.h"
#include "host/import/place_model.h"

#define TINYOBJLOADER_USE_DOUBLE
#include <tiny_obj_loader.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace ogl::host {
namespace {

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

/// A number in 0 .. 1, whatever the file says.
float unitRange(double value, double otherwise) {
    return static_cast<float>(std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : otherwise);
}

float meanOf(const double (&color)[3]) {
    return unitRange((color[0] + color[1] + color[2]) / 3.0, 0.0);
}

ModelMaterial materialOf(const tinyobj::material_t& material) {
    ModelMaterial result;
    result.name = material.name;
    for (size_t k = 0; k < 3; ++k)
        result.color[k] = unitRange(material.diffuse[k], 0.8);
    result.opacity = unitRange(material.dissolve, 1.0);
    result.emission = meanOf(material.emission);
    result.specular = meanOf(material.specular);
    result.texture = material.diffuse_texname;
    result.alphaTexture = material.alpha_texname;
    result.normalTexture = material.normal_texname;
    return result;
}

/// Element `number` of rows of `width` numbers, or null.
const double* rowOf(const std::vector<double>& numbers, int number, size_t width) {
    if (number < 0 || (static_cast<size_t>(number) + 1) * width > numbers.size())
        return nullptr;
    const double* row = &numbers[static_cast<size_t>(number) * width];
    return std::all_of(row, row + width, [](double n) { return std::isfinite(n); }) ? row : nullptr;
}

/// What a part's triangles share: all corners have it, or none.
struct Complete {
    bool normals = true;
    bool texCoords = true;
};

class ObjScene {
  public:
    ObjScene(const tinyobj::ObjReader& file, Model& model)
        : attributes_(file.GetAttrib()), model_(model) {
        for (const tinyobj::material_t& material : file.GetMaterials())
            model_.materials.push_back(materialOf(material));
        for (const tinyobj::shape_t& shape : file.GetShapes())
            addObject(shape);
    }

  private:
    void addObject(const tinyobj::shape_t& shape) {
        std::map<uint32_t, ModelPart> parts; // by material
        std::map<uint32_t, Complete> complete;
        const tinyobj::mesh_t& mesh = shape.mesh;
        for (size_t face = 0; 3 * face + 2 < mesh.indices.size(); ++face) {
            const int id = face < mesh.material_ids.size() ? mesh.material_ids[face] : -1;
            const uint32_t material = materialNumber(id);
            addTriangle(&mesh.indices[3 * face], parts[material], complete[material]);
        }
        ModelObject object;
        object.name =
            shape.name.empty() ? "object " + std::to_string(model_.objects.size() + 1) : shape.name;
        for (auto& [material, part] : parts) {
            part.material = material;
            if (!complete[material].normals)
                part.normals.clear();
            if (!complete[material].texCoords)
                part.texCoords.clear();
            dropFlatNormals(part);
            if (!part.triangles.empty())
                object.parts.push_back(std::move(part));
        }
        if (!object.parts.empty())
            model_.objects.push_back(std::move(object));
    }

    /// Faces without a material get a plain one.
    uint32_t materialNumber(int id) {
        if (id >= 0 && static_cast<size_t>(id) < model_.materials.size())
            return static_cast<uint32_t>(id);
        if (plain_ == kNone) {
            plain_ = static_cast<int>(model_.materials.size());
            model_.materials.emplace_back();
        }
        return static_cast<uint32_t>(plain_);
    }

    void addTriangle(const tinyobj::index_t* corners, ModelPart& part, Complete& complete) const {
        for (int k = 0; k < 3; ++k)
            if (rowOf(attributes_.vertices, corners[k].vertex_index, 3) == nullptr)
                return;
        for (int k = 0; k < 3; ++k) {
            const double* p = rowOf(attributes_.vertices, corners[k].vertex_index, 3);
            part.triangles.push_back(static_cast<uint32_t>(part.positions.size()));
            part.positions.push_back({p[0], p[1], p[2]});
            addNormal(rowOf(attributes_.normals, corners[k].normal_index, 3), part, complete);
            const double* t = rowOf(attributes_.texcoords, corners[k].texcoord_index, 2);
            complete.texCoords = complete.texCoords && t != nullptr;
            for (int axis = 0; axis < 2; ++axis)
                part.texCoords.push_back(t != nullptr ? static_cast<float>(t[axis]) : 0.0f);
        }
    }

    static void addNormal(const double* n, ModelPart& part, Complete& complete) {
        const Vec3 normal = n != nullptr ? normalized(Vec3{n[0], n[1], n[2]}) : Vec3{};
        complete.normals = complete.normals && length(normal) > 0.5;
        for (const double component : {normal.x, normal.y, normal.z})
            part.normals.push_back(static_cast<float>(component));
    }

    const tinyobj::attrib_t& attributes_;
    Model& model_;
    int plain_ = kNone;
};

} // namespace

std::string readObj(const std::string& path, const ImportOptions& options, Model& model) {
    model = {};
    tinyobj::ObjReaderConfig config;
    config.vertex_color = false;
    tinyobj::ObjReader file;
    if (!file.ParseFromFile(path, config))
        return file.Error().empty() ? "the importer gave no reason" : firstLine(file.Error());
    const ObjScene scene(file, model);
    if (model.objects.empty()) {
        model = {};
        return "there are no surfaces in it";
    }
    model.format = "Wavefront Object Importer";
    if (!file.Warning().empty())
        model.warnings.push_back(firstLine(file.Warning()));
    addTextures(imagesBeside(path), model);
    placeModel(path, options, {}, model);
    return {};
}

} // namespace ogl::host
