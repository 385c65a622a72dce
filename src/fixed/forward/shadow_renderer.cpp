// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/shadow_renderer.h"

#include "fixed/drawing/edge_pass.h"
#include "fixed/forward/file_frame.h"
#include "fixed/forward/plan_view.h"
#include "fixed/forward/portal_sky.h"
#include "fixed/forward/shadow_map_pass.h"
#include "fixed/forward/sun_lighting.h"
#include "fixed/overlays/frame_overlays.h"
#include "fixed/surfaces/material_color.h"
#include "fixed/surfaces/surface_pass.h"
#include "fixed/textures/background_texture.h"
#include "fixed/textures/jitter_texture.h"
#include "fixed/textures/mark_texture.h"
#include "gpu/gl_debug.h"
#include "render/bitmap_frame.h"
#include "render/error_log.h"
#include "render/settings.h"
#include "scene/record_color.h"

namespace ogl {

namespace {

constexpr float kBaseLineWidth = 0.6f;
constexpr float kMarkSizePerWidth = 50.0f;
constexpr float kSunIntensity = 4.0f; ///< of the programs' sun, in the host's light colours

} // namespace

ShadowRenderer::ShadowRenderer(RenderContext& creator) : Renderer(creator) {
    kind = kShadowRenderer;
    lineWidth = kBaseLineWidth;
}

ShadowRenderer::~ShadowRenderer() = default;

int ShadowRenderer::clearBackground() {
    const Vec3 color = colorOf(scene != nullptr ? scene->geometry.backgroundColor : 0u);
    clearColor[0] = color.x;
    clearColor[1] = color.y;
    clearColor[2] = color.z;
    clearTo(color.x, color.y, color.z);
    return 1;
}

int ShadowRenderer::createResources() {
    createSharedResources();
    initProgramSources(programSources_);
    buildObjectProgram((choices.drawFlags & kDrawShadows) != 0 ? kObjShaderShadow : kObjShader);
    return 0;
}

void ShadowRenderer::createSharedResources() {
    if (!backgroundTexture.exists())
        backgroundTexture = createBackgroundTexture(settings->texturesDir, *errorLog);
    if (quadric == nullptr)
        quadric = createSkyQuadric();
    if (!markTexture.exists())
        markTexture = createMarkTexture();
    if (!jitterTexture_.exists())
        jitterTexture_ = createJitterTexture();
    for (unsigned k = 0; k < kShadowSampleCount; ++k)
        shadowSamples_[k] = hammersley(k);
    kept_.clear();
}

void ShadowRenderer::releaseResources() {
    objectPrograms_.clear();
    shadowTargets_.clear();
    jitterTexture_.reset();
    kept_.clear();
}

LitScene& ShadowRenderer::kept() {
    return kept_.of(*scene,
                    [this](const LitScene& kept) { return kept.batches.belongsTo(*scene); });
}

bool ShadowRenderer::buildObjectProgram(ProgramIndex variant) {
    ObjectProgram& object = objectPrograms_.here();
    if (object.program != nullptr && object.program->variant() == variant)
        return false;
    object.program = buildProgram(programSources_, variant, *errorLog);
    object.isLinked = object.program->isLinked();
    return true;
}

const ShaderProgram* ShadowRenderer::objectProgram() {
    const ObjectProgram& object = objectPrograms_.here();
    return object.isLinked ? object.program.get() : nullptr;
}

void ShadowRenderer::updateSunLight() {
    const std::optional<SceneSun> sun = sunOf(*scene);
    LitScene& lit = kept();
    if (!sun || sceneBounds.min.x > sceneBounds.max.x) {
        lit.sun.reset();
        return;
    }
    if (lit.sun == nullptr)
        lit.sun = std::make_unique<SunLight>(sceneBounds, sun->direction, Vec3{});
    // A map drawn from elsewhere shows other shadows.
    lit.shadowsDirty = lit.shadowsDirty || !lit.sun->isAimed(sceneBounds, sun->direction);
    lit.sun->aim(sceneBounds, sun->direction);
    lit.sun->color = sun->color * kSunIntensity;
}

void ShadowRenderer::updateShadows() {
    LitScene& lit = kept();
    if (lit.sun == nullptr || !(lit.shadowsDirty || !lit.sun->shadowTexture.exists()))
        return;
    renderShadowMap(*lit.sun);
    lit.shadowsDirty = false;
}

void ShadowRenderer::renderShadowMap(ShadowLight& light) {
    RenderTarget& target = shadowTargets_.here();
    target.create(shadowTargetLayout()); // nothing when it is there
    const bool interior = kind == kDeferredRenderer && light.kind == LightKind::Sun &&
                          (scene->lightFlags & kLightInterior) != 0;
    FixedShading shading = fixedShading();
    const LitScene& lit = kept();
    ShadowMapPass{*this, lit.batches.meshes(), shading, target, interior, lit.portals}.draw(light);
}

void ShadowRenderer::buildPortals() {
    kept().portals = findPortals(*scene);
}

FixedShading ShadowRenderer::fixedShading() {
    return {*this, [this](const MATERIAL& material, int sharedSlot, int textured) {
                setMaterialColor(material, sharedSlot, textured);
            }};
}

void ShadowRenderer::setMaterialColor(const MATERIAL& material, int sharedSlot, int textured) {
    const Vec4 color = materialColor(material, choices.textureMode, choices.colorMode,
                                     sharedSlot != 0, textured != 0);
    glColor4f(color.x, color.y, color.z, color.w);
}

/// Collects what makes the shadow map out of date.
void ShadowRenderer::noticeChanges() {
    const bool marked = (scene->geometry.flags & kGeometryShadowsChanged) != 0;
    if (marked)
        scene->geometry.flags = scene->geometry.flags & ~kGeometryShadowsChanged;
    LitScene& lit = kept();
    const bool otherMeshes = lit.takesOtherMeshes();
    const bool otherSize = lit.takesOtherSize(width, height);
    lit.shadowsDirty = lit.shadowsDirty || marked || otherMeshes || otherSize;
}

void ShadowRenderer::prepareProgram(bool shadows) {
    updateSunLight();
    LitScene& lit = kept();
    const bool mapped = shadows && lit.sun != nullptr;
    if (buildObjectProgram(mapped ? kObjShaderShadow : kObjShader))
        lit.shadowsDirty = true;
    if (mapped && objectProgram() != nullptr)
        updateShadows();
}

int ShadowRenderer::drawToWindow(const GLSurface& surface) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    LitScene& lit = kept();
    lit.batches.refresh(*this, {});
    if (lit.takesOtherPortals())
        buildPortals();
    noticeChanges();
    if (objectCount == 0)
        return 1;
    prepareProgram((choices.drawFlags & kDrawShadows) != 0);
    drawFrame();
    drawFrameOverlays(*this, surface);
    choices.drawFlags &= ~kDrawOnce;
    return 1;
}

int ShadowRenderer::drawToBitmap(HBITMAP bitmap) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    kept().batches.refreshForBitmap(*this, {}); // bounds as in windows, for plans fit the scene
    if ((scene->geometry.flags & kGeometryPlanView) != 0) {
        prepareProgram(false);
        drawPlan(bitmap);
        return 1;
    }
    noticeChanges();
    prepareProgram((choices.drawFlags & kDrawShadows) != 0);
    drawFrameToBitmap(*this, bitmap, [this] { drawFrame(); },
                      {.reachPixels = edgeReach(edgeStyleOfFrame())});
    return 1;
}

int ShadowRenderer::drawToFile(const char* fileName) {
    if (scene == nullptr || fileName == nullptr)
        return 1;
    deleteReleasedObjects();
    kept().batches.rebuildAll(*this, {});
    noticeChanges();
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    updateSunLight();
    clearBackground();
    camera.apply();
    drawSky();
    drawMeshes(Lighting::Fixed);
    if (!writeFrame(width, height, fileName))
        errorLog->write("Error", "Cannot write the file", fileName);
    return 1;
}

void ShadowRenderer::drawFrame() {
    const DebugGroup group("shadowed frame");
    clearBackground();
    camera.apply();
    drawSky();
    drawMeshes(Lighting::Program);
}

void ShadowRenderer::drawSky() {
    const LitScene& lit = kept();
    if (backgroundTexture.exists() && !lit.portals.empty())
        drawSkyThroughPortals(lit.portals, backgroundTexture.name(), quadric);
}

void ShadowRenderer::drawMeshes(Lighting lighting) {
    const LitScene& lit = kept();
    const ShaderProgram* program = objectProgram();
    if (lighting == Lighting::Program && program != nullptr)
        ProgramSurfacePass{*this,         lit.batches.meshes(), *program,
                           lit.sun.get(), jitterTexture_,       shadowSamples_}
            .draw();
    else
        drawFixedSurfaces(lighting == Lighting::Fixed);
    EdgePass{*this, lit.batches.edges(), lit.batches.silhouettes(), edgeStyleOfFrame()}.draw();
}

void ShadowRenderer::drawFixedSurfaces(bool lit) {
    if (lit)
        turnSunLightingOn(sunOf(*scene));
    FixedShading shading = fixedShading();
    SurfacePass{*this, kept().batches.meshes(), shading, lit}.draw();
    turnSunLightingOff();
}

EdgeStyle ShadowRenderer::edgeStyleOfFrame() const {
    EdgeStyle style = edgeStyle(*scene, choices.drawFlags, lineWidth);
    style.pointSize = kMarkSizePerWidth * style.width + 1.0f;
    style.constantAlpha = true;
    return style;
}

void ShadowRenderer::drawPlan(HBITMAP bitmap) {
    const DebugGroup group("plan");
    drawPlanToBitmap(*this, bitmap, [this] { drawMeshes(Lighting::Program); });
}

} // namespace ogl
