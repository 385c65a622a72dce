// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/light.h"

namespace ogl {

namespace {

std::unique_ptr<Camera> lightCamera(std::unique_ptr<Camera> camera) {
    camera->viewportWidth = kShadowMapSize;
    camera->viewportHeight = kShadowMapSize;
    camera->aspect = 1.0f;
    return camera;
}

bool isSame(Vec3 a, Vec3 b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// Along the z axis +z gives a camera no orientation.
Vec3 sunUpVector(Vec3 direction) {
    constexpr float kCosine5Degrees = 0.99619470f;
    return std::fabs(direction.z) > kCosine5Degrees ? Vec3{0.0f, 1.0f, 0.0f}
                                                    : Vec3{0.0f, 0.0f, 1.0f};
}

void bindDepthTexture(int unit, unsigned texture) {
    glActiveTexture(static_cast<unsigned>(GL_TEXTURE0 + unit));
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_MODE, GL_COMPARE_R_TO_TEXTURE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_FUNC, GL_LEQUAL);
    glTexParameteri(GL_TEXTURE_2D, GL_DEPTH_TEXTURE_MODE, GL_LUMINANCE);
}

} // namespace

ShadowLight::ShadowLight(LightKind lightKind, std::unique_ptr<Camera> shadowCamera)
    : Light(lightKind), camera(lightCamera(std::move(shadowCamera))) {
    castsShadow = 1;
}

void ShadowLight::bindShadowMap(int unit) const {
    Matrix4f projection{};
    Matrix4f view{};
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    camera->applyProjection();
    glGetFloatv(GL_PROJECTION_MATRIX, projection.m);
    camera->applyView();
    glGetFloatv(GL_MODELVIEW_MATRIX, view.m);

    bindDepthTexture(unit, shadowTexture.exists() ? shadowTexture.name() : 0);

    // Half a thousandth less than the middle: a surface doesn't shade itself.
    glMatrixMode(GL_TEXTURE);
    glLoadIdentity();
    glTranslatef(0.5f, 0.5f, 0.4995f);
    glScalef(0.5f, 0.5f, 0.5f);
    glMultMatrixf(projection.m);
    glMultMatrixf(view.m);

    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

SunLight::SunLight(const Box& bounds, Vec3 direction, Vec3 lightColor)
    : ShadowLight(LightKind::Sun, std::make_unique<OrthoCamera>()) {
    color = lightColor;
    aim(bounds, direction);
}

void SunLight::aim(const Box& bounds, Vec3 direction) {
    direction_ = direction;
    camera->up = sunUpVector(direction);
    camera->setBounds(bounds);
    camera->setDirection(direction);
}

bool SunLight::isAimed(const Box& bounds, Vec3 direction) const {
    return isSame(direction_, direction) && isSame(camera->bounds.min, bounds.min) &&
           isSame(camera->bounds.max, bounds.max);
}

SpotLight::SpotLight() : ShadowLight(LightKind::Spot, std::make_unique<PerspectiveCamera>()) {}

std::array<float, 2> hammersley(unsigned k) {
    float mirrored = 0.0f;
    float digit = 0.5f;
    for (unsigned rest = k; rest != 0; rest >>= 1) {
        if ((rest & 1u) != 0)
            mirrored += digit;
        digit *= 0.5f;
    }
    return {mirrored, (static_cast<float>(k) + 0.5f) / static_cast<float>(kShadowSampleCount)};
}

} // namespace ogl
