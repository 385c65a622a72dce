// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/assimp_scene.h"

#include "host/import/assimp_material.h"
#include "host/import/ifc_names.h"

#include <assimp/commonMetaData.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <unordered_map>

namespace ogl::host {
namespace {

std::string_view textOf(const aiString& text) {
    return {text.C_Str(), text.length};
}

/// An affine transform in doubles: chains of node transforms far from the origin lose millimetres
/// in floats.
struct Transform {
    std::array<std::array<double, 4>, 3> rows{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

    Transform operator*(const aiMatrix4x4& inner) const {
        Transform product;
        for (size_t row = 0; row < 3; ++row)
            for (unsigned column = 0; column < 4; ++column) {
                double sum = column == 3 ? rows[row][3] : 0.0;
                for (unsigned k = 0; k < 3; ++k)
                    sum += rows[row][k] * static_cast<double>(inner[k][column]);
                product.rows[row][column] = sum;
            }
        return product;
    }
    Vec3 point(const aiVector3D& p) const {
        const Vec3 turned = direction(p);
        return {turned.x + rows[0][3], turned.y + rows[1][3], turned.z + rows[2][3]};
    }
    Vec3 direction(const aiVector3D& p) const {
        const auto along = [&](size_t row) {
            return rows[row][0] * static_cast<double>(p.x) +
                   rows[row][1] * static_cast<double>(p.y) +
                   rows[row][2] * static_cast<double>(p.z);
        };
        return {along(0), along(1), along(2)};
    }
    Vec3 column(size_t number) const { return {rows[0][number], rows[1][number], rows[2][number]}; }
    double determinant() const { return dot(column(0), cross(column(1), column(2))); }
    /// A surface normal after the transform: times the matrix of cofactors, which mirrors rightly.
    Vec3 normal(const aiVector3D& n) const {
        const Vec3 sum = cross(column(1), column(2)) * static_cast<double>(n.x) +
                         cross(column(2), column(0)) * static_cast<double>(n.y) +
                         cross(column(0), column(1)) * static_cast<double>(n.z);
        return normalized(determinant() < 0.0 ? -sum : sum);
    }
};

class SceneReader {
  public:
    SceneReader(const aiScene& scene, const ImportOptions& options, Model& model)
        : scene_(scene), options_(options), model_(model) {}

    void read() {
        materialNumbers_.resize(scene_.mNumMaterials, 0);
        for (unsigned k = 0; k < scene_.mNumMaterials; ++k) {
            materialNumbers_[k] = addMaterial(readMaterial(*scene_.mMaterials[k]));
            channels_.push_back(textureChannel(*scene_.mMaterials[k]));
        }
        visit(*scene_.mRootNode, Transform{}, {}, kNoObject);
        std::erase_if(model_.objects, [](const ModelObject& o) { return o.parts.empty(); });
    }

  private:
    static constexpr size_t kNoObject = static_cast<size_t>(-1);

    uint32_t addMaterial(const ModelMaterial& material) {
        const auto found = std::ranges::find(model_.materials, material);
        if (found != model_.materials.end())
            return static_cast<uint32_t>(found - model_.materials.begin());
        model_.materials.push_back(material);
        return static_cast<uint32_t>(model_.materials.size() - 1);
    }

    /// `element`: the object of the building element that the node belongs to.
    void visit(const aiNode& node, const Transform& parent, std::string_view parentName,
               size_t element) {
        const std::string_view nodeName = textOf(node.mName);
        if (!options_.keepHelpers && isIfcHelper(nodeName))
            return;
        const Transform transform = parent * node.mTransformation;
        std::string name = ifcElementName(nodeName);
        if (name.empty())
            name = parentName;
        if (isIfcElement(nodeName))
            element = addObject(name);
        if (node.mNumMeshes > 0)
            addMeshes(node, transform, element != kNoObject ? element : addObject(name));
        for (unsigned k = 0; k < node.mNumChildren; ++k)
            visit(*node.mChildren[k], transform, name, element);
    }

    size_t addObject(const std::string& name) {
        const size_t number = model_.objects.size();
        model_.objects.push_back(
            {name.empty() ? "object " + std::to_string(number + 1) : name, {}});
        return number;
    }

    void addMeshes(const aiNode& node, const Transform& transform, size_t object) {
        for (unsigned k = 0; k < node.mNumMeshes; ++k) {
            const aiMesh& mesh = *scene_.mMeshes[node.mMeshes[k]];
            ModelPart part = readMesh(mesh, transform);
            if (!part.triangles.empty())
                model_.objects[object].parts.push_back(std::move(part));
        }
    }

    ModelPart readMesh(const aiMesh& mesh, const Transform& transform) const {
        ModelPart part;
        part.material = materialNumbers_[mesh.mMaterialIndex];
        part.positions.reserve(mesh.mNumVertices);
        for (unsigned k = 0; k < mesh.mNumVertices; ++k)
            part.positions.push_back(transform.point(mesh.mVertices[k]));
        if (mesh.HasNormals())
            readNormals(mesh, transform, part);
        const unsigned channel = channels_[mesh.mMaterialIndex];
        if (mesh.HasTextureCoords(channel))
            for (unsigned k = 0; k < mesh.mNumVertices; ++k) {
                part.texCoords.push_back(mesh.mTextureCoords[channel][k].x);
                part.texCoords.push_back(mesh.mTextureCoords[channel][k].y);
            }
        if (!std::ranges::all_of(part.texCoords, [](float t) { return std::isfinite(t); }))
            part.texCoords.clear();
        readTriangles(mesh, transform.determinant() < 0.0, part);
        dropFlatNormals(part);
        return part;
    }

    static void readNormals(const aiMesh& mesh, const Transform& transform, ModelPart& part) {
        for (unsigned k = 0; k < mesh.mNumVertices; ++k) {
            const Vec3 normal = transform.normal(mesh.mNormals[k]);
            if (!isFinite(normal)) {
                part.normals.clear();
                return;
            }
            for (const double component : {normal.x, normal.y, normal.z})
                part.normals.push_back(static_cast<float>(component));
        }
    }

    static void readTriangles(const aiMesh& mesh, bool mirrored, ModelPart& part) {
        for (unsigned k = 0; k < mesh.mNumFaces; ++k) {
            const aiFace& face = mesh.mFaces[k];
            if (face.mNumIndices != 3)
                continue;
            const std::array<uint32_t, 3> corners = {
                face.mIndices[0], face.mIndices[mirrored ? 2 : 1], face.mIndices[mirrored ? 1 : 2]};
            if (std::ranges::all_of(corners, [&](uint32_t c) {
                    return c < part.positions.size() && isFinite(part.positions[c]);
                }))
                part.triangles.insert(part.triangles.end(), corners.begin(), corners.end());
        }
        for (Vec3& position : part.positions)
            if (!isFinite(position))
                position = {}; // of no triangle
    }

    const aiScene& scene_;
    const ImportOptions& options_;
    Model& model_;
    std::vector<uint32_t> materialNumbers_; ///< by the importer's number
    std::vector<unsigned> channels_;        ///< of texture coordinates, likewise
};

} // namespace

void readScene(const aiScene& scene, const ImportOptions& options, Model& model) {
    if (scene.mMetaData != nullptr) {
        aiString format;
        if (scene.mMetaData->Get(AI_METADATA_SOURCE_FORMAT, format))
            model.format = textOf(format);
    }
    SceneReader(scene, options, model).read();
}

FileAxes readAxes(const aiScene& scene) {
    FileAxes axes;
    int32_t upAxis = 0;
    float centimetres = 0.0f;
    if (scene.mMetaData == nullptr)
        return axes;
    if (scene.mMetaData->Get("UpAxis", upAxis))
        axes.up = upAxis == 2 ? 'z' : 'y';
    if (scene.mMetaData->Get("UnitScaleFactor", centimetres) && std::isfinite(centimetres) &&
        centimetres > 0.0f)
        axes.metresPerUnit = 0.01 * static_cast<double>(centimetres);
    return axes;
}

} // namespace ogl::host
