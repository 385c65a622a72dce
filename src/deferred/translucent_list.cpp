// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/translucent_list.h"

#include "fixed/surfaces/surface_pass.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr double kUnitsPerScale = 1000.0;

bool isTranslucent(const MATERIAL& material) {
    return !isSkipped(material) && material.opacity != 0.0f && material.opacity != 1.0f;
}

/// Distance of an object from the eye; 0 when it has no place.
float distanceOf(const OBJECT* object, Vec3 eye, double unitScale) {
    if (object == nullptr)
        return 0.0f;
    const double k = 1.0 / (unitScale * kUnitsPerScale);
    const VEC3I at = object->referencePoint;
    const Vec3 place{static_cast<float>(k * at.x), static_cast<float>(k * at.y),
                     static_cast<float>(k * at.z)};
    const float distance = length(eye - place);
    return std::isfinite(distance) ? distance : 0.0f;
}

} // namespace

std::vector<TranslucentSurface> translucentSurfaces(const Renderer& renderer,
                                                    const DrawLists& meshes) {
    const SceneLists lists(*renderer.scene);
    const VIEW* view = viewOf(*renderer.scene);
    const double unitScale = renderer.scene->geometry.unitScale;
    std::vector<TranslucentSurface> surfaces;
    for (int m = 0; m < lists.materials.size(); ++m) {
        if (!isTranslucent(lists.materials[m]))
            continue;
        for (const MeshDraw& draw : meshes.of(m)) {
            if (!isStillDrawn(draw, lists, view))
                continue;
            const OBJECT* object = lists.objects.at(draw.object);
            surfaces.push_back({distanceOf(object, renderer.camera.position, unitScale), m, &draw});
        }
    }
    std::ranges::stable_sort(surfaces, std::ranges::greater(), &TranslucentSurface::distance);
    return surfaces;
}

} // namespace ogl
