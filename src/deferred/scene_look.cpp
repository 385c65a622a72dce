// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/scene_look.h"

#include "scene/record_color.h"

namespace ogl {

namespace {

constexpr float kAmbientScale = 0.7f;
constexpr float kLeastReflection = 0.4f;
constexpr float kNoiseScale = 2.0f;

} // namespace

float ambientLight(const SCENE& scene) {
    return static_cast<float>(scene.ambientLevel) * kPercent * kAmbientScale;
}

float occlusionStrength(const SCENE& scene) {
    return static_cast<float>(scene.aoStrength) * kPercent;
}

float sketchNoise(const SCENE& scene) {
    return static_cast<float>(scene.noiseStrength) * kPercent * kNoiseScale;
}

PictureStyle pictureStyle(const SCENE& scene) {
    PictureStyle style;
    style.reflectionLevel = ambientLight(scene) + kLeastReflection;
    style.saturation = scene.saturation;
    style.exposure = scene.exposure;
    style.gamma = scene.toneGamma;
    if ((scene.lightFlags & kLightSketchEdges) != 0)
        style.edgeStrength = static_cast<float>(scene.edgeStrength) * kPercent;
    style.monochrome = (scene.lightFlags & kLightMonochrome) != 0;
    style.edgeColor = colorOf(scene.edgeColor);
    return style;
}

} // namespace ogl
