// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/light_list.h"

#include "scene/record_views.h"

#include <cmath>

namespace ogl {

namespace {

constexpr int kFirstLamp = 2; ///< before it: the forward renderer's sun, and one more
constexpr uint8_t kPointRecord = 1;
constexpr uint8_t kSpotRecord = 2;
constexpr float kSpotScale = 0.7f;
constexpr float kWidestCone = 90.0f; ///< degrees; a shadow camera sees twice a cone
constexpr float kRadiansPerDegree = 0.0174532925f;
constexpr float kSpotNear = 0.1f;
constexpr float kSpotFar = 20.0f;

Vec3 vec3(VEC3F v) {
    return {v.x, v.y, v.z};
}

bool isFinite(Vec3 v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

std::unique_ptr<Light> spotLight(const LIGHT& record, Vec3 position, Vec3 color) {
    const Vec3 direction = normalized(vec3(record.target) - position);
    const float cone = record.coneAngle;
    if (!(length(direction) > 0.0f) || !(cone > 0.0f && cone < kWidestCone))
        return nullptr;
    auto light = std::make_unique<SpotLight>();
    light->color = color * kSpotScale;
    light->attenuate = record.attenuation > 0.0f ? 1 : 0;
    light->cosCutoff = cone / kWidestCone;
    Camera& camera = *light->camera;
    camera.position = position;
    camera.target = position + direction;
    camera.up = spotUpVector(direction);
    camera.fov = 2.0f * cone * kRadiansPerDegree;
    camera.near = kSpotNear;
    camera.far = kSpotFar;
    return light;
}

std::unique_ptr<Light> pointLight(Vec3 position, Vec3 color) {
    auto light = std::make_unique<PointLight>();
    light->at = position;
    light->color = color;
    light->attenuate = 1;
    return light;
}

/// Null when the record describes no light.
std::unique_ptr<Light> lampOf(const LIGHT& record) {
    const Vec3 position = vec3(record.position);
    const Vec3 color = vec3(record.color);
    if (!isFinite(position) || !isFinite(color))
        return nullptr;
    if (record.kind == kSpotRecord)
        return spotLight(record, position, color);
    return record.kind == kPointRecord ? pointLight(position, color) : nullptr;
}

std::unique_ptr<Light> portalLight(const PortalRecord& portal) {
    auto light = std::make_unique<PortalLight>();
    light->center = portal.center;
    light->normal = portal.normal;
    light->halfU = portal.halfU;
    light->halfV = portal.halfV;
    return light;
}

void limitSpotShadows(const LightList& lamps) {
    int shadows = 0;
    for (const auto& lamp : lamps)
        if (lamp->castsShadow != 0 && ++shadows > kMostSpotShadows)
            lamp->castsShadow = 0;
}

} // namespace

LightList lightsOf(const SCENE& scene, std::span<const PortalRecord> portals) {
    const ListView<LIGHT> records(scene.geometry.lights);
    LightList lights;
    for (int i = kFirstLamp; i < records.size(); ++i)
        lights.push_back(lampOf(records[i]));
    std::erase(lights, nullptr);
    limitSpotShadows(lights);
    for (const PortalRecord& portal : portals)
        lights.push_back(portalLight(portal));
    return lights;
}

} // namespace ogl
