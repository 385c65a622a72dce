// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "math/vector3.h"
#include "render/camera.h"

#include <array>
#include <memory>
#include <vector>

namespace ogl {

enum class LightKind : int { Point = 0, Spot = 1, Portal = 2, Sun = 3 };

/// A light that a renderer keeps between frames.
class Light {
  public:
    explicit Light(LightKind lightKind) : kind(lightKind) {}
    Light(const Light&) = delete;
    Light& operator=(const Light&) = delete;
    virtual ~Light() = default;

    /// Unit vector in which the light shines; a point light has none and gives zero.
    virtual Vec3 direction() const = 0;
    virtual Vec3 position() const = 0;

    LightKind kind;
    int attenuate = 0;
    Vec3 color{}; ///< colour times intensity
    int castsShadow = 0;
};

using LightList = std::vector<std::unique_ptr<Light>>;

/// A light with a shadow map, seen through the light's camera.
class ShadowLight : public Light {
  public:
    ShadowLight(LightKind lightKind, std::unique_ptr<Camera> shadowCamera);

    /// Binds the shadow map on `unit` for depth comparison and sets the unit's texture matrix from
    /// scene coordinates to the map. The matrix stacks stay as they are; the unit stays active.
    void bindShadowMap(int unit) const;

    std::unique_ptr<Camera> camera;
    GLTexture shadowTexture; ///< made at the first shadow render
};

class SunLight : public ShadowLight {
  public:
    /// Shines along `direction` (unit length) on everything in `bounds`.
    SunLight(const Box& bounds, Vec3 direction, Vec3 lightColor);

    /// Re-aims the light and its camera, whose up vector is +z, or +y when the light comes within
    /// 5 degrees of the z axis.
    void aim(const Box& bounds, Vec3 direction);
    /// True when aim() with these would change nothing.
    bool isAimed(const Box& bounds, Vec3 direction) const;

    Vec3 direction() const override { return direction_; }
    Vec3 position() const override { return camera->position; }

  private:
    Vec3 direction_{};
};

class SpotLight : public ShadowLight {
  public:
    SpotLight();

    Vec3 direction() const override { return normalized(camera->target - camera->position); }
    Vec3 position() const override { return camera->position; }

    float cosCutoff = 0.0f; ///< cosine of half the cone angle
};

class PointLight : public Light {
  public:
    PointLight() : Light(LightKind::Point) {}

    Vec3 direction() const override { return {}; }
    Vec3 position() const override { return at; }

    Vec3 at{};
};

/// A window opening that lets light in: a rectangle with a normal.
class PortalLight : public Light {
  public:
    PortalLight() : Light(LightKind::Portal) {}

    Vec3 direction() const override { return -normal; }
    Vec3 position() const override { return center; }

    Vec3 center{};
    Vec3 normal{};
    Vec3 halfU{}; ///< from the centre to the middle of an edge
    Vec3 halfV{};
};

/// Samples of the shadow filter.
inline constexpr int kShadowSampleCount = 16;

/// Point `k` (0 .. 15) of the 16-point Hammersley set: the binary digits of k mirrored about the
/// binary point, and (k + 0.5) / 16.
std::array<float, 2> hammersley(unsigned k);

} // namespace ogl
