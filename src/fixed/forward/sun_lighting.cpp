// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/sun_lighting.h"

#include "platform/win32.h"
#include "scene/record_views.h"

namespace ogl {

std::optional<SceneSun> sunOf(const SCENE& scene) {
    const LIGHT* record = ListView<LIGHT>(scene.geometry.lights).at(0);
    if (record == nullptr)
        return std::nullopt;
    const VEC3F target = record->target;
    const VEC3F color = record->color;
    const Vec3 direction = normalized({target.x, target.y, target.z});
    if (!(length(direction) > 0.0f))
        return std::nullopt;
    return SceneSun{direction, {color.x, color.y, color.z}};
}

void turnSunLightingOn(const std::optional<SceneSun>& sun) {
    const Vec3 color = sun ? sun->color : Vec3{};
    const Vec3 direction = sun ? sun->direction : Vec3{0.0f, 0.0f, -1.0f};
    const float ambient[] = {0.2f, 0.2f, 0.2f, 1.0f};
    const float diffuse[] = {color.x, color.y, color.z, 1.0f};
    const float position[] = {-direction.x, -direction.y, -direction.z, 0.0f};
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_POSITION, position);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
}

void turnSunLightingOff() {
    glDisable(GL_COLOR_MATERIAL);
    glDisable(GL_LIGHT0);
    glDisable(GL_LIGHTING);
}

} // namespace ogl
