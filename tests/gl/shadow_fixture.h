// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/forward/shadow_renderer.h"
#include "gl/gl_fixture.h"

namespace ogl::test {

/// Tests of the shadowed renderer: a sun over the scene, no edges, grey-blue background.
class ShadowTest : public GLTest {
  protected:
    static constexpr Pixel kBackground{40, 80, 120};
    static constexpr float kAmbient = 0.1f;
    static constexpr Vec3 kSunColor{0.15f, 0.14f, 0.12f};

    void SetUp() override;
    /// Sets the direction in which the sun's light travels, of any length.
    void setSun(Vec3 direction);
    /// Selects the renderer with the per-call fields of render mode 7, edges off.
    ShadowRenderer& selectShadow(uint32_t drawFlags);
    int addColored(Pixel color, float brightness = 0.4f);
    /// What a surface looks like: `albedo` are its colour channels after all factors, `lit` the
    /// share of the sun's light that reaches it.
    Pixel shaded(Vec3 albedo, Vec3 normal, double lit) const;

    LIGHT sun_{};
    Vec3 toSun_{};
};

/// An axis-aligned box from `low` to `high` with all six sides.
void addBox(SceneFixture& scene, Vec3 low, Vec3 high, int16_t material = 0);

} // namespace ogl::test
