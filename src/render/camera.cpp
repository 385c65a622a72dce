// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/camera.h"

#include "scene/record_views.h"

#include <cmath>

namespace ogl {

namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr float kViewNearPlane = 0.4f;

Vec3 vec3(VEC3F v) {
    return {v.x, v.y, v.z};
}

} // namespace

void Camera::applyView() const {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(position.x, position.y, position.z, target.x, target.y, target.z, up.x, up.y, up.z);
}

void Camera::apply() const {
    glViewport(viewportX, viewportY, viewportWidth, viewportHeight);
    applyProjection();
    applyView();
}

void Camera::applyLens() const {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glScalef(static_cast<float>(scale), static_cast<float>(scale), 1.0f);
    glTranslatef(static_cast<float>(offsetX), static_cast<float>(offsetY), 0.0f);
}

void PerspectiveCamera::applyProjection() const {
    if (tile.has_value()) {
        loadFrustum(*tile);
        return;
    }
    applyLens();
    gluPerspective(static_cast<double>(fov) * kDegreesPerRadian, static_cast<double>(aspect),
                   static_cast<double>(near), static_cast<double>(far));
}

Matrix4f PerspectiveCamera::projectionMatrix() const {
    applyProjection();
    Matrix4f result{};
    glGetFloatv(GL_PROJECTION_MATRIX, result.m);
    return result;
}

Frustum PerspectiveCamera::pictureFrustum() const {
    const double halfHeight = std::tan(0.5 * static_cast<double>(fov)) * static_cast<double>(near);
    const double halfWidth = halfHeight * static_cast<double>(aspect);
    return {halfWidth * (-1.0 / scale - offsetX),
            halfWidth * (1.0 / scale - offsetX),
            halfHeight * (-1.0 / scale - offsetY),
            halfHeight * (1.0 / scale - offsetY),
            static_cast<double>(near),
            static_cast<double>(far)};
}

void OrthoCamera::applyProjection() const {
    applyLens();
    const double radius = 0.5 * static_cast<double>(bounds.diagonal());
    if (radius > 0.0 && near != far) // glOrtho refuses a volume without extent
        glOrtho(-radius, radius, -radius, radius, static_cast<double>(near),
                static_cast<double>(far));
}

Matrix4f OrthoCamera::projectionMatrix() const {
    return Matrix4f::perspective(static_cast<float>(fov * kDegreesPerRadian), aspect, near, far);
}

void OrthoCamera::setDirection(Vec3 direction) {
    const Vec3 center = bounds.center();
    const float diagonal = bounds.diagonal();
    position = center - direction * (1.1f * diagonal);
    target = center;
    const float distance = length(target - position);
    near = distance - 0.5f * diagonal;
    far = distance + 0.5f * diagonal;
}

void setViewCamera(Camera& camera, const SCENE& scene, int width, int height, float farPlane) {
    const GEOMETRY& geometry = scene.geometry;
    camera.viewportWidth = width;
    camera.viewportHeight = height;
    camera.aspect =
        width > 0 && height > 0 ? static_cast<float>(width) / static_cast<float>(height) : 1.0f;
    camera.position = vec3(geometry.eye);
    camera.target = vec3(geometry.target);
    camera.up = vec3(geometry.up);
    camera.fov = static_cast<float>(geometry.fieldOfView);
    camera.near = kViewNearPlane;
    camera.far = farPlane;

    // The shift acts on normalised device coordinates, which are two view heights or widths high.
    const ZoomWindow window = zoomWindow(scene, width, height);
    camera.scale = window.zoom;
    camera.offsetX = -2.0 * window.centerX / static_cast<double>(camera.aspect);
    camera.offsetY = -2.0 * window.centerY;
}

Vec3 spotUpVector(Vec3 direction) {
    Vec3 side = cross(direction, {0.0f, 0.0f, 1.0f});
    if (length(side) < 0.9f)
        side = cross(direction, {1.0f, 0.0f, 0.0f});
    return cross(normalized(side), direction);
}

} // namespace ogl
