// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/surface_pass.h"

#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"
#include "gpu/texture.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr int kLastUnit = 5;

} // namespace

SurfaceLayer surfaceLayer(const MATERIAL& material, bool sharedSlot, bool alphaMap) {
    const bool blended = sharedSlot ? (material.flags & kMaterialAlphaTextured) != 0
                                    : material.opacity != 1.0f && !alphaMap;
    return blended ? SurfaceLayer::Blended : SurfaceLayer::Opaque;
}

void SurfacePass::draw() const {
    const DebugGroup group("surfaces");
    const SceneLists lists(*renderer.scene);
    setState();
    drawLayer(SurfaceLayer::Opaque, lists);
    glDepthMask(GL_FALSE);
    drawLayer(SurfaceLayer::Blended, lists);
    restoreState();
}

void SurfacePass::setState() const {
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_TEXTURE_RECTANGLE);
    if (!lit) {
        glDisable(GL_COLOR_MATERIAL);
        glDisable(GL_LIGHTING);
    }
    glShadeModel(GL_SMOOTH);
    glDisable(GL_BLEND);
    glEnable(GL_MULTISAMPLE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    const bool coverage = renderer.choices.textureMode != TextureMode::None;
    setCapability(GL_ALPHA_TEST, coverage);
    setCapability(GL_SAMPLE_ALPHA_TO_COVERAGE, coverage);
    // Surfaces step back, so that edges on them show.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0f, 1.0f);
    resetTextureUnit(0);
    unbindAllArrays();
}

void SurfacePass::drawLayer(SurfaceLayer layer, const SceneLists& lists) const {
    for (int m = 0; m < lists.materials.size(); ++m)
        if (!isSkipped(lists.materials[m]) && showsAny(m, lists))
            drawMaterial(m, layer, lists);
}

/// Binding a material costs more than looking whether a tile shows any of it.
bool SurfacePass::showsAny(int material, const SceneLists& lists) const {
    if (renderer.tileVolume == nullptr)
        return !meshes.of(material).empty();
    const VIEW* view = viewOf(*renderer.scene);
    return std::ranges::any_of(meshes.of(material), [&](const MeshDraw& draw) {
        return isStillDrawn(draw, lists, view) && draw.batch->isWithin(*renderer.tileVolume);
    });
}

void SurfacePass::drawMaterial(int material, SurfaceLayer layer, const SceneLists& lists) const {
    const MATERIAL& record = lists.materials[material];
    const BoundMaterial bound = shading.bindTextures(record);
    if (surfaceLayer(record, bound.sharedSlot, bound.alphaMap) != layer)
        return;
    setCapability(GL_CULL_FACE, !bound.alphaMap); // what is cut out is seen from both sides
    shading.setColor(record, bound);
    const VIEW* view = viewOf(*renderer.scene);
    for (const MeshDraw& draw : meshes.of(material)) {
        const bool leftOut =
            layer == SurfaceLayer::Opaque && (draw.batch->flags & kBatchTranslucent) != 0;
        if (!leftOut && isStillDrawn(draw, lists, view))
            shading.draw(*draw.batch, bound);
    }
    shading.finish(bound);
}

void SurfacePass::restoreState() const {
    unbindAllArrays();
    for (int unit = 1; unit <= kLastUnit; ++unit)
        resetTextureUnit(unit);
    resetTextureUnit(0);
    glDisable(GL_CULL_FACE);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(GL_POLYGON_OFFSET_FILL);
}

} // namespace ogl
