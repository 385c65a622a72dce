// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/ray_camera.h"

#include "scene/record_views.h"

#include <cmath>

namespace ogl {

namespace {

Vec3 vec3(VEC3F v) {
    return {v.x, v.y, v.z};
}

} // namespace

RayCamera rayCamera(const SCENE& scene, int width, int height) {
    const GEOMETRY& geometry = scene.geometry;
    const Vec3 eye = vec3(geometry.eye);
    const Vec3 forward = normalized(vec3(geometry.target) - eye);
    const Vec3 left = normalized(cross(vec3(geometry.up), forward));
    const Vec3 above = normalized(cross(forward, left));
    const auto slope = static_cast<float>(std::tan(geometry.fieldOfView / 2.0));
    const float aspect =
        width > 0 && height > 0 ? static_cast<float>(width) / static_cast<float>(height) : 1.0f;
    const ZoomWindow window = zoomWindow(scene, width, height);
    const auto shiftX = static_cast<float>(-2.0 * window.centerX / static_cast<double>(aspect));
    const auto shiftY = static_cast<float>(-2.0 * window.centerY);

    RayCamera camera;
    camera.position = eye;
    camera.right = left * (slope * aspect);
    camera.up = above * slope;
    camera.direction = forward + camera.right * shiftX - camera.up * shiftY;
    camera.scale = static_cast<float>(window.zoom);
    return camera;
}

} // namespace ogl
