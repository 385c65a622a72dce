// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/deferred_renderer.h"
#include "gl/gl_fixture.h"

namespace ogl::test {

/// Tests of the photo renderer. The scene has ambient light alone, no occlusion, a grey-blue
/// background and a tone curve that is none of the simple ones.
class PhotoTest : public GLTest {
  protected:
    static constexpr Pixel kBackground{40, 80, 120};
    static constexpr float kAmbient = 0.6f * 0.7f;

    void SetUp() override;
    /// Selects the renderer with the per-call fields of render mode 8.
    DeferredRenderer& selectPhoto(uint32_t drawFlags = kDrawFullQuality | kDrawShadows);
    /// A material whose surfaces have the colour: brightness 0.4 leaves it as it is.
    int addColored(Pixel color);
    /// Turns the sun on: angles in degrees, a negative elevation shines downwards.
    void setSun(int azimuth, int elevation);
    /// Two lights that are no lamps, then the lamps.
    void addLamps(const std::vector<LIGHT>& lamps);

    /// The light of the sun on a surface, without shadows.
    Vec3 sunOn(Vec3 normal) const;
    /// What a surface looks like: `albedo` in bytes, `light` without the ambient part.
    Pixel shown(Pixel albedo, Vec3 light = {}) const;
    /// Light as the screen shows it, once it has met the surface.
    Pixel toned(Vec3 light) const;
};

/// A lamp that shines downwards from `position`.
LIGHT pointLamp(Vec3 position, Vec3 color);
LIGHT spotLamp(Vec3 position, Vec3 target, Vec3 color, float coneDegrees);

/// A TGA file of one colour.
std::string plainTga(Pixel color);

/// The inside of an axis-aligned box, fronts inwards, but for the wall on the left, at low.x.
void addRoom(SceneFixture& scene, Vec3 low, Vec3 high, int16_t material);

} // namespace ogl::test
