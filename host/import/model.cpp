// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model.h"

namespace ogl::host {
namespace {

constexpr double kSameDirection = 0.9994; // cosine of 2 degrees

bool areFlat(const ModelPart& part) {
    for (size_t k = 0; k + 2 < part.triangles.size(); k += 3) {
        const uint32_t* corner = &part.triangles[k];
        const Vec3 origin = part.positions[corner[0]];
        const Vec3 face = normalized(
            cross(part.positions[corner[1]] - origin, part.positions[corner[2]] - origin));
        for (size_t c = 0; c < 3; ++c) {
            const float* normal = &part.normals[size_t{3} * corner[c]];
            if (length(face) > 0.0 && dot(face, {normal[0], normal[1], normal[2]}) < kSameDirection)
                return false;
        }
    }
    return true;
}

} // namespace

Box boundsOf(const Model& model) {
    Box bounds;
    for (const ModelObject& object : model.objects)
        for (const ModelPart& part : object.parts)
            for (const uint32_t vertex : part.triangles)
                bounds.add(part.positions[vertex]);
    return bounds;
}

size_t triangleCount(const Model& model) {
    size_t count = 0;
    for (const ModelObject& object : model.objects)
        for (const ModelPart& part : object.parts)
            count += part.triangles.size() / 3;
    return count;
}

void dropFlatNormals(ModelPart& part) {
    if (!part.normals.empty() && areFlat(part))
        part.normals.clear();
}

} // namespace ogl::host
