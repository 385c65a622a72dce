// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The passes that draw a scene's surfaces into the G-buffer and into the depth of the window.
#include "deferred/depth_pass.h"
#include "deferred/gbuffer_pass.h"
#include "fixed/drawing/fixed_renderer.h"
#include "fixed/surfaces/scene_batches.h"
#include "fixed/textures/texture_image.h"
#include "gl/deferred_bench.h"
#include "gl/shading_formulas.h"
#include "gpu/texture.h"

namespace ogl {
namespace {

using test::expectTexel;
using test::plainMaterial;
using test::plate;
using test::Texel;

constexpr int kSide = 40; // pixels; half a unit of the scene each
constexpr float kHalfPrecision = 1e-3f;
constexpr Texel kNothing{0.3f, 0.3f, 0.3f, 1};
constexpr Vec3 kBackground{0.25f, 0.5f, 0.75f};

/// A map whose lower half in texture space is bright, the upper one dark.
TextureImage* makeHalves(uint8_t bright, uint8_t dark) {
    constexpr int kSize = 16;
    TextureImage* image = makeTextureImage();
    std::vector<uint8_t> bytes(kSize * kSize / 2, bright);
    bytes.resize(kSize * kSize, dark);
    image->width = image->height = kSize;
    image->pixelFormat = GL_LUMINANCE;
    image->setTexture(
        createTexture2D(TextureKind::Repeating, GL_LUMINANCE, kSize, kSize, bytes.data()));
    image->setBytes(std::move(bytes));
    return image;
}

class GBufferPassTest : public test::DeferredBench {
  protected:
    void SetUp() override {
        DeferredBench::SetUp();
        setSize(kSide, kSide);
        makeTargets(4);
        renderer_ = std::make_unique<FixedRenderer>(*context_);
        renderer_->scene = &scene_->scene();
        renderer_->choices.textureMode = TextureMode::All;
        glEnable(GL_MULTISAMPLE);
        glFrontFace(GL_CW);
    }
    void TearDown() override {
        batches_ = {};
        releaseTextureImage(holes_);
        DeferredBench::TearDown();
    }
    /// A matt red plate at the left, a glowing one at the right, glass before both, and a plate
    /// with a hole in the right half of its face at the top.
    void makeScene() {
        MATERIAL matt = plainMaterial();
        matt.color = {0, 51, 255};
        matt.specular = 0.5f;
        matt.reflection = 0.25f;
        matt.fresnel = 1.0f;
        MATERIAL glowing = plainMaterial();
        glowing.emission = 1.5f;
        MATERIAL glass = plainMaterial();
        glass.opacity = 0.5f;
        holes_ = makeHalves(255, 0);
        TEXTURESLOT slot{};
        slot.opacity = holes_.get();
        MATERIAL leaf = plainMaterial();
        leaf.textureIndex = static_cast<int16_t>(scene_->addTexture(slot));
        for (const MATERIAL& material : {plainMaterial(), matt, glowing, glass, leaf})
            scene_->addMaterial(material);
        scene_->addObject();
        const int first = 1; // after a material that nothing shows
        scene_->addFace(plate(-8, -8, 0, 0, 0, first));
        scene_->addFace(plate(0, -8, 8, 0, 0, first + 1));
        scene_->addFace(plate(-6, -6, 6, -4, 1, first + 2));
        scene_->addFace(plate(-8, 2, 8, 8, 0, first + 3));
        showScene();
    }
    void showScene() {
        scene_->commit();
        batches_.rebuildAll(*renderer_, {});
        renderer_->setSize(kSide, kSide);
        renderer_->setupCamera(scene_->scene());
        renderer_->camera.apply();
    }
    FrameView sceneFrame() {
        FrameView view = frame();
        view.eye = renderer_->camera.position;
        return view;
    }
    size_t pixelOf(float x, float y) const {
        return static_cast<size_t>(static_cast<int>((y + 10) * 2) * kSide +
                                   static_cast<int>((x + 10) * 2));
    }

    SceneBatches batches_;
    Ptr32<TextureImage> holes_{};
};

TEST_F(GBufferPassTest, SurfacesAreKeptWithTheirMaterials) {
    makeScene();
    const FrameView view = sceneFrame();
    GBufferPass{*renderer_, batches_.meshes(), program(kObjGBuffer), view, kBackground, {}}.draw();
    expectNeutralState();
    const auto places = surfacesOf(kPlaces, 3);
    const auto surfaces = surfacesOf(kSurfaces, 3);
    const auto colors = surfacesOf(kColors, 3);

    const size_t matt = pixelOf(-3.75f, -1.75f);
    // Sample 3 lies somewhere in its pixel.
    expectTexel(places[matt], {-3.75f, -1.75f, 0, 10}, 0.04f);
    EXPECT_NEAR(places[matt][0], -3.75f, 0.26f);
    expectTexel(surfaces[matt], {0.5f, 0.5f, 2, 0.5f}, kHalfPrecision);
    expectTexel(colors[matt], {1, 0.2f, 0, 0.25f}, kHalfPrecision);

    const size_t glowing = pixelOf(3.75f, -1.75f);
    EXPECT_EQ(surfaces[glowing][2], 3.0f);
    EXPECT_NEAR(colors[glowing][3], 4.5f, kHalfPrecision);

    // Glass leaves what is behind it; nothing leaves the clear values and the background.
    EXPECT_EQ(surfaces[pixelOf(-3.75f, -4.75f)][2], 2.0f);
    const size_t nothing = pixelOf(9.25f, 0.75f);
    expectTexel(places[nothing], kNothing, kHalfPrecision);
    expectTexel(surfaces[nothing], kNothing, kHalfPrecision);
    expectTexel(colors[nothing], {kBackground.x, kBackground.y, kBackground.z, 1}, kHalfPrecision);
}

TEST_F(GBufferPassTest, SamplesAtAnEdgeLieOnTheirSurface) {
    scene_->addMaterial(plainMaterial());
    scene_->addObject();
    scene_->addFace(test::quad({-5, -5, 0}, {-3, 5, 0}, {5, 5, 0}, {5, -5, 0}, 0));
    showScene();
    const FrameView view = sceneFrame();
    GBufferPass{*renderer_, batches_.meshes(), program(kObjGBuffer), view, kBackground, {}}.draw();
    int partly = 0;
    for (int sample = 0; sample < view.samples; ++sample) {
        const auto places = surfacesOf(kPlaces, sample);
        const auto surfaces = surfacesOf(kSurfaces, sample);
        for (size_t i = 0; i < pixels(); ++i) {
            if (surfaces[i][2] < 0.5f)
                continue;
            const float pastEdge = places[i][0] - (-4 + places[i][1] * 0.2f);
            EXPECT_GT(pastEdge, -0.02f) << places[i][0] << ", " << places[i][1];
            partly += pastEdge < 0.2f;
        }
    }
    EXPECT_GT(partly, 20);
}

TEST_F(GBufferPassTest, TheSkyLiesBehindTheSurfaces) {
    makeScene();
    const FrameView view = sceneFrame();
    const auto sky = [] {
        glClearColor(0, 1, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    };
    GBufferPass{*renderer_, batches_.meshes(), program(kObjGBuffer), view, kBackground, sky}.draw();
    expectTexel(surfacesOf(kColors, 0)[pixelOf(9.25f, 0.75f)], {0, 1, 0, 1}, 0);
    expectTexel(surfacesOf(kPlaces, 0)[pixelOf(9.25f, 0.75f)], kNothing, kHalfPrecision);
    EXPECT_EQ(surfacesOf(kSurfaces, 0)[pixelOf(3.75f, -1.75f)][2], 3.0f);
}

TEST_F(GBufferPassTest, DepthHasTheHolesOfTheGBuffer) {
    makeScene();
    const FrameView view = sceneFrame();
    GBufferPass{*renderer_, batches_.meshes(), program(kObjGBuffer), view, kBackground, {}}.draw();
    const auto surfaces = surfacesOf(kSurfaces, 0);

    RenderTarget window;
    ASSERT_TRUE(window.create(
        {TargetKind::Texture2D, kSide, kSide, 1, DepthMode::Shared, 0, ColorFormat::Rgba8}));
    window.bind();
    window.setDrawBuffer(0);
    window.setReadBuffer(0);
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    renderer_->camera.apply();
    DepthPass{*renderer_, batches_.meshes(), program(kObjGBuffer)}.draw();
    std::vector<float> depths(pixels());
    std::vector<Texel> colors(pixels());
    glReadPixels(0, 0, kSide, kSide, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    glReadPixels(0, 0, kSide, kSide, GL_RGBA, GL_FLOAT, colors.data());
    window.unbind();
    expectNeutralState();

    int solid = 0;
    int holes = 0;
    for (float y = 2.75f; y < 8; y += 0.5f) // inside the plate with the hole
        for (float x = -7.25f; x < 7.5f; x += 0.5f) {
            const size_t i = pixelOf(x, y);
            const bool kept = surfaces[i][2] > 0.5f;
            EXPECT_EQ(depths[i] < 1.0f, kept) << x << ", " << y;
            ++(kept ? solid : holes);
        }
    EXPECT_GT(solid, 50);
    EXPECT_GT(holes, 50);
    EXPECT_LT(depths[pixelOf(-3.75f, -4.75f)], 1.0f);
    EXPECT_NEAR(depths[pixelOf(-3.75f, -4.75f)], depths[pixelOf(-3.75f, -1.75f)],
                1e-6f); // no glass
    for (const Texel& color : colors)
        expectTexel(color, {0, 0, 1, 1}, 0);
}

} // namespace
} // namespace ogl
