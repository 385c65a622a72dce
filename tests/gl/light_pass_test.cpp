// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The deferred renderer's light passes: which lights they add, and that they add up.
#include "deferred/portal_pass.h"
#include "deferred/spot_pass.h"
#include "gl/deferred_bench.h"
#include "gl/shading_formulas.h"

namespace ogl {
namespace {

using test::expectTexel;
using test::Surface;
using test::Texel;

constexpr float kPrecision = 2e-3f; // of half floats
constexpr Texel kBefore{0.125f, 0.25f, 0.5f, 0.0625f};
constexpr Vec3 kColor{0.5f, 0.25f, 0.125f};

std::unique_ptr<PointLight> pointAt(Vec3 place, Vec3 color) {
    auto light = std::make_unique<PointLight>();
    light->at = place;
    light->color = color;
    return light;
}

/// A spot light straight above (0, 0, 0), aimed at it.
std::unique_ptr<SpotLight> spotAt(float height, float cosCutoff, int attenuate) {
    auto light = std::make_unique<SpotLight>();
    light->camera->position = {0, 0, height};
    light->camera->target = {0, 0, height - 1};
    light->camera->up = {0, 1, 0};
    light->camera->fov = 1.0f;
    light->camera->near = 0.1f;
    light->camera->far = 20.0f;
    light->cosCutoff = cosCutoff;
    light->attenuate = attenuate;
    light->color = kColor;
    return light;
}

/// A portal of 2 x 1 above (0, 0, 0), letting light in downwards.
std::unique_ptr<PortalLight> portalAbove(float height) {
    auto light = std::make_unique<PortalLight>();
    light->center = {0, 0, height};
    light->normal = {0, 0, 1};
    light->halfU = {0, 0.5f, 0};
    light->halfV = {1, 0, 0};
    return light;
}

/// A shadow map in which everything has one depth.
void setDepth(ShadowLight& light, float depth) {
    const std::vector<float> depths(16, depth);
    light.shadowTexture.create();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, light.shadowTexture.name());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT24, 4, 4, 0, GL_DEPTH_COMPONENT, GL_FLOAT,
                 depths.data());
    glBindTexture(GL_TEXTURE_2D, 0);
}

class LightPassTest : public test::DeferredBench {
  protected:
    using Lights = std::vector<std::unique_ptr<Light>>;

    void SetUp() override {
        DeferredBench::SetUp();
        makeTargets(2);
        jitter_ = makeTexture(GL_TEXTURE_2D, 1, 1, {{0, 0, 0, 0}});
        std::vector<Surface> floor;
        for (int x = 0; x < width_; ++x) {
            Surface s;
            s.place = {0.25f * static_cast<float>(x), 0, 0};
            floor.push_back(s);
        }
        writeSurfaces(*targets_.gBuffer, {floor, floor});
        for (unsigned k = 0; k < kShadowSampleCount; ++k)
            samples_[k] = hammersley(k);
        startOver();
    }
    void TearDown() override {
        jitter_.reset();
        DeferredBench::TearDown();
    }
    void startOver() {
        writeTexels(*targets_.edgeTarget, 0, std::vector<Texel>(pixels()));
        for (const int attachment : {0, 1})
            writeTexels(*targets_.lightTarget, attachment, std::vector<Texel>(pixels(), kBefore));
    }
    ShadowStyle shadows(bool on) const { return {on, jitter_, samples_}; }
    /// Compares the light added at pixel `x` in both attachments.
    void expectAdded(size_t x, Vec3 light) {
        for (const int attachment : {kLightSoFar, kLightAdded}) {
            SCOPED_TRACE(attachment);
            expectTexel(
                texelsOf(*targets_.lightTarget, attachment)[x],
                {kBefore[0] + light.x, kBefore[1] + light.y, kBefore[2] + light.z, kBefore[3]},
                kPrecision);
        }
    }

    GLTexture jitter_;
    ShadowSamples samples_{};
};

TEST_F(LightPassTest, SpotLightsShineInTheirCones) {
    for (const bool attenuated : {false, true}) {
        SCOPED_TRACE(attenuated);
        startOver();
        Lights lights;
        lights.push_back(pointAt({0, 0, 1}, kColor));
        lights.push_back(spotAt(2, 0.85f, attenuated ? 1 : 0));
        SpotPass{program(kImgSpotlight), frame(), lights, shadows(false)}.draw();
        expectNeutralState();
        expectAdded(0, kColor * (attenuated ? 1 / 4.02f : 1.0f));
        expectAdded(7, {}); // at 41 degrees
    }
    Lights lights;
    lights.push_back(spotAt(2, 0.5f, 0));
    for (const float depth : {0.0f, 1.0f}) {
        SCOPED_TRACE(depth);
        startOver();
        setDepth(static_cast<ShadowLight&>(*lights[0]), depth);
        lights.push_back(spotAt(2, 0.5f, 0)); // without a map of its own
        lights.back()->castsShadow = 0;
        SpotPass{program(kImgSpotlight), frame(), lights, shadows(true)}.draw();
        expectAdded(0, kColor * (depth + 1));
        lights.pop_back();
    }
}

TEST_F(LightPassTest, PortalsLightWhatTheyFaceInTheirColour) {
    SCENE& scene = scene_->scene();
    scene.portalColor = {255, 102, 51};
    scene.portalIntensity = -2000; // a quarter of 8
    const Vec3 color = portalColor(scene);
    EXPECT_NEAR(color.x, 2.0f, 1e-5f);
    EXPECT_NEAR(color.y, 0.8f, 1e-5f);
    EXPECT_NEAR(color.z, 0.4f, 1e-5f);

    Lights lights;
    lights.push_back(portalAbove(1));
    lights.push_back(pointAt({0, 0, 1}, kColor));
    PortalPass{program(kImgPortallight), frame(), lights, color}.draw();
    expectNeutralState();
    // Four quarters, each with its corner above the place.
    const auto side = [](float p, float q) {
        return p / std::sqrt(1 + p * p) * std::atan(q / std::sqrt(1 + p * p));
    };
    const float factor = 4 * (side(1, 0.5f) + side(0.5f, 1)) / (2 * test::kPi);
    expectAdded(0,
                test::perChannel(color, [=](float c) { return std::log(1.5f * c * factor + 1); }));
}

} // namespace
} // namespace ogl
