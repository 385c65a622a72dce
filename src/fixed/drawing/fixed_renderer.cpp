// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/fixed_renderer.h"

#include "fixed/drawing/edge_pass.h"
#include "fixed/overlays/frame_overlays.h"
#include "fixed/surfaces/material_color.h"
#include "fixed/surfaces/surface_pass.h"
#include "fixed/textures/mark_texture.h"
#include "gpu/gl_debug.h"
#include "render/bitmap_frame.h"
#include "scene/record_color.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr float kBaseLineWidth = 0.6f;
constexpr BatchNeeds kNeeds{.emptyBounds = kUnitCube};

} // namespace

FixedRenderer::FixedRenderer(RenderContext& creator) : Renderer(creator) {
    kind = kFixedRenderer;
    lineWidth = kBaseLineWidth;
}

FixedRenderer::~FixedRenderer() = default;

int FixedRenderer::clearBackground() {
    if (scene != nullptr && (scene->drawingOptions & kOptionBackgroundColor) != 0) {
        const Vec3 color = colorOf(scene->drawingBackgroundColor);
        clearColor[0] = color.x;
        clearColor[1] = color.y;
        clearColor[2] = color.z;
        clearTo(color.x, color.y, color.z);
    } else {
        clearTo(1.0f, 1.0f, 1.0f);
    }
    return 1;
}

int FixedRenderer::createResources() {
    if (!markTexture.exists())
        markTexture = createMarkTexture();
    kept_.clear();
    return 0;
}

void FixedRenderer::releaseResources() {
    kept_.clear();
}

SceneBatches& FixedRenderer::batches() {
    return kept_.of(*scene, [this](const SceneBatches& kept) { return kept.belongsTo(*scene); });
}

int FixedRenderer::drawToWindow(const GLSurface& surface) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    batches().refresh(*this, kNeeds);
    if (objectCount == 0)
        return 1;
    drawScene();
    drawFrameOverlays(*this, surface);
    choices.drawFlags &= ~kDrawOnce;
    return 1;
}

int FixedRenderer::drawToBitmap(HBITMAP bitmap) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    batches().refreshForBitmap(*this, kNeeds);
    const EdgeStyle style = edgeStyle(*scene, choices.drawFlags, lineWidth);
    drawFrameToBitmap(*this, bitmap, [this] { drawScene(); }, {.reachPixels = edgeReach(style)});
    return 1;
}

int FixedRenderer::drawToFile(const char*) {
    return 1;
}

void FixedRenderer::setMaterialColor(const MATERIAL& material, int sharedSlot, int textured) {
    const Vec4 color = materialColor(material, choices.textureMode, choices.colorMode,
                                     sharedSlot != 0, textured != 0);
    glColor4f(color.x, color.y, color.z, color.w);
}

void FixedRenderer::drawScene() {
    const DebugGroup group("technical drawing");
    clearBackground();
    camera.apply();
    FixedShading shading(*this, [this](const MATERIAL& material, int sharedSlot, int textured) {
        setMaterialColor(material, sharedSlot, textured);
    });
    const SceneBatches& shown = batches();
    SurfacePass{*this, shown.meshes(), shading}.draw();
    EdgePass{*this, shown.edges(), shown.silhouettes(),
             edgeStyle(*scene, choices.drawFlags, lineWidth)}
        .draw();
}

} // namespace ogl
