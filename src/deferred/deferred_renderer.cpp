// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/deferred_renderer.h"

#include "deferred/frame_passes.h"
#include "deferred/light_list.h"
#include "deferred/scene_sun.h"
#include "deferred/seed_directions.h"
#include "fixed/overlays/frame_overlays.h"
#include "fixed/textures/background_texture.h"
#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"
#include "render/bitmap_frame.h"
#include "render/error_log.h"
#include "render/settings.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr BatchNeeds kNeeds{.emptyBounds = kUnitCube, .withEdges = false};

/// The part of the picture that the camera shows while it draws a tile.
PicturePart partOf(const PerspectiveCamera& camera) {
    if (!camera.tile)
        return {};
    const Frustum tile = *camera.tile;
    const Frustum all = camera.pictureFrustum();
    const double width = all.right - all.left;
    const double height = all.top - all.bottom;
    return {static_cast<float>((tile.left - all.left) / width),
            static_cast<float>((tile.bottom - all.bottom) / height),
            static_cast<float>((tile.right - tile.left) / width),
            static_cast<float>((tile.top - tile.bottom) / height),
            static_cast<float>(height / width)};
}

} // namespace

DeferredRenderer::DeferredRenderer(RenderContext& creator) : ShadowRenderer(creator) {
    kind = kDeferredRenderer;
}

DeferredRenderer::~DeferredRenderer() = default;

int DeferredRenderer::clearBackground() {
    clearToSceneBackground();
    return 1;
}

int DeferredRenderer::createResources() {
    createSharedResources();
    if (!environment_.exists())
        environment_ = createEnvironmentTexture(settings->texturesDir, *errorLog);
    if (!seeds_.exists())
        seeds_ = createSeedTexture();
    surfaces_.here().programs.build(kObjShader, *errorLog);
    turnColorClampingOff();
    GLint most = 1;
    glGetIntegerv(GL_MAX_COLOR_TEXTURE_SAMPLES, &most);
    targetSamples =
        static_cast<int>(std::min(static_cast<float>(most), settings->photoSamples.value));
    return 0;
}

void DeferredRenderer::releaseResources() {
    surfaces_.clear();
    environment_.reset();
    seeds_.reset();
    ShadowRenderer::releaseResources();
}

int DeferredRenderer::drawToWindow(const GLSurface& surface) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    noticeChanges(kept().batches.refresh(*this, kNeeds));
    if (objectCount == 0 || width < 1 || height < 1)
        return 1;
    updateLights();
    drawFrame(surface.isSecondary == 1 ? 1 : 0, width, height, settings->useFXAA == 1);
    drawFrameOverlays(*this, surface);
    choices.drawFlags &= ~kDrawOnce;
    return 1;
}

int DeferredRenderer::drawToBitmap(HBITMAP bitmap) {
    const BitmapTarget target = bitmapTarget(bitmap);
    if (scene == nullptr || !target.isValid() || width < 1 || height < 1)
        return 1;
    deleteReleasedObjects();
    kept().batches.rebuildAll(*this, kNeeds);
    kept().takesOtherMeshes(); // the maps drawn here show them
    rebuildLights();
    updateLights();
    const bool single = target.width == width && target.height == height;
    const int side = std::min(width, height);
    drawFrameToBitmap(*this, bitmap,
                      [&] {
                          drawFrame(0, single ? width : side, single ? height : side,
                                    single && settings->useFXAA == 1);
                      },
                      {.screenSpacePasses = true});
    return 1;
}

/// Collects what makes the lights and their shadow maps out of date.
void DeferredRenderer::noticeChanges(bool rebuilt) {
    const uint32_t flags = scene->geometry.flags;
    const bool lightsChanged = (flags & kGeometryLightsChanged) != 0;
    scene->geometry.flags = flags & ~(kGeometryShadowsChanged | kGeometryLightsChanged);
    const bool marked = (flags & kGeometryShadowsChanged) != 0;
    LitScene& lit = kept();
    const bool otherMeshes = lit.takesOtherMeshes();
    lit.shadowsDirty = lit.shadowsDirty || marked || otherMeshes;
    if (rebuilt || lightsChanged || !lit.lampsKnown)
        rebuildLights();
}

void DeferredRenderer::rebuildLights() {
    buildPortals();
    LitScene& lit = kept();
    lit.lamps = lightsOf(*scene, lit.portals);
    lit.lampsKnown = true;
    lit.shadowsDirty = true;
    if (std::ranges::any_of(lit.lamps, [](const auto& light) {
            return light->kind == LightKind::Spot && light->castsShadow == 0;
        }))
        errorLog->writeOnce("Error", "Too many spot lights for shadows", "");
}

void DeferredRenderer::updateLights() {
    LitScene& lit = kept();
    if (updateSun(lit.sun, *scene, sceneBounds, *errorLog))
        lit.shadowsDirty = true;
    if ((choices.drawFlags & kDrawShadows) != 0)
        renderShadowMaps();
}

void DeferredRenderer::renderShadowMaps() {
    LitScene& lit = kept();
    if (!lit.shadowsDirty)
        return;
    const auto render = [this](Light& light) {
        renderShadowMap(static_cast<ShadowLight&>(light));
        ++shadowMapsDrawn_;
    };
    if (lit.sun != nullptr)
        render(*lit.sun);
    for (const auto& light : lit.lamps)
        if (light->castsShadow != 0)
            render(*light);
    lit.shadowsDirty = false;
}

void DeferredRenderer::drawFrame(int set, int frameWidth, int frameHeight, bool fxaa) {
    auto& [programs, targets] = surfaces_.here();
    programs.build(kObjShader, *errorLog);
    targets.ensure(frameWidth, frameHeight, &targetBlocks[static_cast<size_t>(set)], targetSamples);
    clearBackground();
    camera.apply();
    const FrameView frame{targets,         frameWidth,
                          frameHeight,     std::max(targets.gBuffer->samples(), 1),
                          camera.position, partOf(camera)};
    const LitScene& lit = kept();
    const FrameLights lights{
        lit.sun.get(),
        lit.lamps,
        {(choices.drawFlags & kDrawShadows) != 0, jitterTexture_, shadowSamples_}};
    FramePasses{*this,        lit.batches.meshes(),  programs, frame,    lights, seeds_,
                environment_, [this] { drawSky(); }, fxaa,     passDrawn}
        .draw();
}

} // namespace ogl
