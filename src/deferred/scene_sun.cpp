// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/scene_sun.h"

#include "render/error_log.h"
#include "scene/record_color.h"
#include "scene/sun/sun_position.h"

namespace ogl {

namespace {

bool isAimed(const SunLight& sun, const Box& bounds, Vec3 direction) {
    // A direction's product with itself can be a little below 1.
    return sun.isAimed(bounds, direction) ||
           (dot(sun.direction(), direction) >= 1.0f && sun.isAimed(bounds, sun.direction()));
}

} // namespace

bool updateSun(std::unique_ptr<SunLight>& sun, const SCENE& scene, const Box& bounds,
               ErrorLog& errorLog) {
    Vec3 direction = sun != nullptr ? sun->direction() : Vec3{};
    const SunState state = sunDirection(scene, direction);
    if (state == SunState::Unknown)
        errorLog.writeOnce("Error", "No sun for this date and place", "");
    const float intensity = static_cast<float>(scene.sunIntensity) * kPercent;
    if (state == SunState::None || !(intensity > 0.0f) || !(direction.z < 0.0f)) {
        sun.reset();
        return false;
    }
    const Vec3 color = colorOf(scene.sunColor) * intensity;
    if (sun == nullptr) {
        sun = std::make_unique<SunLight>(bounds, direction, color);
        return true;
    }
    sun->color = color;
    if (isAimed(*sun, bounds, direction))
        return false;
    sun->aim(bounds, direction);
    return true;
}

} // namespace ogl
