// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/export_view.h"

#include <cmath>

namespace ogl {

namespace {

constexpr float kLightFactor = 4.0f;
constexpr double kMargin = 1.1;
constexpr double kWindowFactor = 0.2;
constexpr double kWindowDivisor = 1.45;

/// Six digits are written: single precision would show in the last one.
struct Wide {
    double x, y, z;

    Wide(double vx, double vy, double vz) : x(vx), y(vy), z(vz) {}
    explicit Wide(VEC3F v) : Wide(v.x, v.y, v.z) {}
    explicit Wide(Vec3 v) : Wide(v.x, v.y, v.z) {}
    Vec3 rounded() const {
        return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
    }
};
Wide operator+(Wide a, Wide b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
Wide operator-(Wide a, Wide b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
Wide operator*(Wide a, double k) {
    return {a.x * k, a.y * k, a.z * k};
}
double length(Wide a) {
    return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
}
/// At unit length; unchanged when it has none.
Wide normalized(Wide a) {
    const double size = length(a);
    return size > 0.0 ? Wide(a.x / size, a.y / size, a.z / size) : a;
}
Wide middle(const Box& box) {
    return {(static_cast<double>(box.min.x) + static_cast<double>(box.max.x)) * 0.5,
            (static_cast<double>(box.min.y) + static_cast<double>(box.max.y)) * 0.5,
            (static_cast<double>(box.min.z) + static_cast<double>(box.max.z)) * 0.5};
}

LIGHT sunOf(const SceneLists& lists) {
    if (const LIGHT* record = lists.lights.at(0))
        return *record;
    LIGHT black{};
    black.target = {0.0f, 0.0f, -1.0f};
    return black;
}

void setCamera(ExportView& view, const SCENE& scene, const Box& bounds, int width, int height) {
    const GEOMETRY& geometry = scene.geometry;
    const Wide eye(geometry.eye);
    const Wide sight = normalized(Wide(geometry.target) - eye);
    view.eye = eye.rounded();
    view.center = (eye + sight * length(middle(bounds) - eye)).rounded();
    view.fov = static_cast<float>(geometry.fieldOfView);
    view.aspect =
        width > 0 && height > 0 ? static_cast<float>(width) / static_cast<float>(height) : 1.0f;
    const double zoom = zoomWindow(scene, width, height).zoom;
    view.extent[1] =
        kWindowFactor * std::tan(static_cast<double>(view.fov)) / (kWindowDivisor * zoom);
    view.extent[0] = static_cast<double>(view.aspect) * view.extent[1];
}

void setLight(ExportView& view, const LIGHT& sun, const Box& bounds) {
    const Wide direction = normalized(Wide(sun.target));
    const Wide center = middle(bounds);
    const double size = length(Wide(bounds.max) - Wide(bounds.min));
    const Wide eye = center - direction * (kMargin * size);
    const double distance = length(center - eye);
    view.lightEye = eye.rounded();
    view.lightTarget = center.rounded();
    view.lightNear = static_cast<float>(distance - 0.5 * size);
    view.lightFar = static_cast<float>(distance + 0.5 * size);
    view.diagonal = static_cast<float>(kMargin * size);
    view.lightHalfSize = 0.5 * kMargin * size;
    view.toLight = -direction.rounded();
    view.intensity = Vec3{sun.color.x, sun.color.y, sun.color.z} * kLightFactor;
}

} // namespace

ExportView exportView(const SCENE& scene, const SceneLists& lists, const Box& bounds, int width,
                      int height) {
    ExportView view{};
    setCamera(view, scene, bounds, width, height);
    setLight(view, sunOf(lists), bounds);
    view.ambient = scene.geometry.lightAmbient * kLightFactor;
    return view;
}

} // namespace ogl
