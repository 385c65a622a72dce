// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/webgl_objects.h"

#include "scene/record_color.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

using Entries = std::span<const ExportFaces::Entry>;

constexpr float kShortestNormal = 0.00001f;
constexpr float kFaintestOpacity = 0.2f;
constexpr float kGlossScale = 3.1999998f;

/// One face of a block.
struct BlockFace {
    const FACE& record;
    FaceTriangles triangles;
    int vertexCount() const { return triangles.triangleCount * 3; }
};

BlockFace blockFace(const SceneLists& lists, ExportFaces::Entry entry) {
    const FACE& face = lists.faces.items()[entry.face];
    return {face, faceTriangles(lists, entry.face, face.flags)};
}

int vertexCountOf(const SceneLists& lists, Entries faces) {
    int count = 0;
    for (const auto& entry : faces)
        count += blockFace(lists, entry).vertexCount();
    return count;
}

void writePositions(DocumentWriter& out, const SceneLists& lists, Entries faces) {
    char before = '[';
    for (const auto& entry : faces) {
        const BlockFace face = blockFace(lists, entry);
        for (int k = 0; k < face.vertexCount(); ++k, before = ',') {
            const Vec3 p = storedVector(face.triangles.positions, k);
            out.numbers(before, p.x, p.y, p.z);
        }
    }
    out.put(']');
}

/// The face's normal turned round: rounded as it stands, or at unit length.
Vec3 turnedNormal(const FACE& face, bool unitLength) {
    const VEC3D n = face.normal;
    double size = 1.0;
    if (unitLength) {
        size = std::sqrt(n.x * n.x + n.y * n.y + n.z * n.z);
        size = size > 0.0 ? size : 1.0;
    }
    return {static_cast<float>(-n.x / size), static_cast<float>(-n.y / size),
            static_cast<float>(-n.z / size)};
}

void writeNormals(DocumentWriter& out, const SceneLists& lists, Entries faces) {
    char before = '[';
    for (const auto& entry : faces) {
        const BlockFace face = blockFace(lists, entry);
        const bool stored = face.triangles.normals != nullptr;
        const Vec3 own = turnedNormal(face.record, !stored);
        for (int k = 0; k < face.vertexCount(); ++k, before = ',') {
            Vec3 n = stored ? storedVector(face.triangles.normals, k) : own;
            if (stored && length(n) < kShortestNormal)
                n = own;
            out.numbers(before, n.x, n.y, n.z);
        }
    }
    out.put(']');
}

void writeTexCoords(DocumentWriter& out, const SceneLists& lists, Entries faces) {
    char before = '[';
    for (const auto& entry : faces) {
        const BlockFace face = blockFace(lists, entry);
        const int64_t first = face.record.texCoordIndex;
        for (int k = 0; k < face.vertexCount(); ++k, before = ',') {
            const int64_t number = first + k;
            const TEXCOORD* at = first >= 0 && number < lists.texCoords.size()
                                     ? lists.texCoords.at(static_cast<int>(number))
                                     : nullptr;
            if (at != nullptr)
                out.numbers(before, static_cast<float>(at->u), 1.0f - at->v);
            else
                out.numbers(before, 0, 0);
        }
    }
    out.put(']');
}

void writeDiffuse(DocumentWriter& out, const MATERIAL& material) {
    const BGR8 color = material.color;
    const auto channel = [&](uint8_t value) {
        const float base =
            static_cast<float>(value) / 255.0f + kReflectionShare * material.reflection;
        return std::min(1.0f, base * kBrightnessScale * material.brightness);
    };
    const float opacity = material.opacity;
    const bool tooFaint = opacity > 0.0f && opacity < kFaintestOpacity;
    out.numbers('[', channel(color.red), channel(color.green), channel(color.blue),
                tooFaint ? kFaintestOpacity : opacity);
    out.put(']');
}

void writeSpecular(DocumentWriter& out, const MATERIAL& material) {
    const double power = static_cast<double>(1.0f + kGlossScale * material.glossiness);
    out.numbers('[', static_cast<float>(material.specular), std::pow(10.0, power),
                static_cast<float>(material.fresnel), 0);
    out.put(']');
}

void writeBlock(DocumentWriter& out, const SceneLists& lists, Entries faces,
                const std::string& link) {
    const MATERIAL& material = *lists.materials.at(blockFace(lists, faces[0]).record.material);
    out << "object=new RenderObject();\nobject.vertices=";
    writePositions(out, lists, faces);
    out << ";\nobject.normals=";
    writeNormals(out, lists, faces);
    out << ";\nobject.texuvs=";
    writeTexCoords(out, lists, faces);
    out << ";\nobject.numVertices=" << vertexCountOf(lists, faces) << ";\nobject.diffuseMat=";
    writeDiffuse(out, material);
    out << ";\nobject.specularMat=";
    writeSpecular(out, material);
    out << ";\nobject.hasDiffuseTex=" << (link.empty() ? 0 : 1) << ";\nobject.diffuseTexFN=\""
        << link << "\";\nScene.addObject(object);\ngl.bindBuffer(gl.ARRAY_BUFFER, null);\n\n";
}

std::string textureLink(const MATERIAL& material, int number, const DocumentPath& path) {
    const char* kind = material.textureIndex != -1 ? "dec" : "tex";
    return path.linkTo(kind + std::to_string(number) + ".png");
}

} // namespace

void writeWebGLObjects(DocumentWriter& out, const SceneLists& lists, const ExportFaces& faces,
                       const DocumentPath& path) {
    for (int m = 0; m < lists.materials.size(); ++m) {
        Entries rest = faces.ofMaterial(m);
        if (rest.empty())
            continue;
        const std::string link = textureLink(lists.materials[m], m, path);
        while (!rest.empty()) {
            size_t count = 1;
            while (count < rest.size() && rest[count].object == rest[0].object)
                ++count;
            writeBlock(out, lists, rest.first(count), link);
            rest = rest.subspan(count);
        }
    }
}

} // namespace ogl
