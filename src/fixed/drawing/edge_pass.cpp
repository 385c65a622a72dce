// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_pass.h"

#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"
#include "gpu/texture.h"
#include "render/bitmap_frame.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr float kWidthPerWeight = 0.0625f;
constexpr float kThinnestLine = 0.0625f; ///< OpenGL refuses widths of 0 and below
constexpr float kFaintestEdge = 0.05f;
constexpr float kInk = 0.1f;
constexpr float kHiddenWidth = 0.5f;
constexpr float kPointSizePerWidth = 15.0f;
/// Of points at the near plane, 0.4 from the eye: 1 / sqrt(0.7 x 0.4 + 0.3 x 0.4 x 0.4).
constexpr float kLargestAttenuation = 1.75f;
constexpr GLushort kDashes = 0x0f0f;
constexpr GLushort kSolid = 0xffff;

void setBlending() {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

} // namespace

EdgeStyle edgeStyle(const SCENE& scene, uint32_t drawFlags, float baseWidth) {
    EdgeStyle style;
    style.width =
        std::max(kWidthPerWeight * static_cast<float>(scene.lineWeight) + baseWidth, kThinnestLine);
    const float alpha = static_cast<float>(scene.geometry.edgeOpacity) * 0.01f;
    const float faintest = (drawFlags & kDrawFullQuality) != 0 ? 0.0f : kFaintestEdge;
    style.alpha = std::max(alpha, faintest);
    style.pointSize = kPointSizePerWidth * style.width;
    return style;
}

int edgeReach(const EdgeStyle& style) {
    // OpenGL cuts points at kPointSizeLimit, but not lines.
    const float points = std::min(kLargestAttenuation * style.pointSize, kPointSizeLimit);
    const float widest = std::max(points, 2.0f * style.width);
    return kUsualReach + static_cast<int>(std::min(widest, 1e4f) / 2.0f);
}

void EdgePass::draw() const {
    if (renderer.choices.edgeMode == EdgeMode::HiddenToo)
        drawHiddenEdges();
    if (renderer.choices.edgeMode != EdgeMode::None) {
        drawVisibleEdges();
        if (renderer.choices.drawFaces)
            drawSilhouettes();
    }
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
    glDisable(GL_MULTISAMPLE);
}

void EdgePass::drawHiddenEdges() const {
    const DebugGroup group("hidden edges");
    setBlending();
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(1, kDashes);
    glDepthMask(GL_FALSE);
    glDisable(GL_DEPTH_TEST);
    glLineWidth(kHiddenWidth);
    glPointSize(1.0f);
    glColor4f(kInk, kInk, kInk, std::sqrt(style.alpha) * 0.5f);
    drawEdges();
    glDisable(GL_LINE_STIPPLE);
}

void EdgePass::drawVisibleEdges() const {
    const DebugGroup group("edges");
    glDisable(GL_POINT_SPRITE);
    glDisable(GL_LINE_STIPPLE);
    glLineStipple(1, kSolid);
    glEnable(GL_DEPTH_TEST);
    glLineWidth(style.width);
    glPointSize(style.pointSize);
    setBlending();
    if (style.constantAlpha) {
        glBlendFunc(GL_CONSTANT_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glBlendColor(1.0f, 1.0f, 1.0f, style.alpha);
    }
    glColor4f(kInk, kInk, kInk, style.alpha);
    drawEdges();
    glDisable(GL_POLYGON_OFFSET_FILL);
}

/// The front faces write depth only, pulled forward, so that of the back faces' wire frame no more
/// shows than what sticks out beyond them: the outline.
void EdgePass::drawSilhouettes() const {
    if (silhouettes == nullptr)
        return;
    const DebugGroup group("silhouettes");
    glEnable(GL_CULL_FACE);
    glDepthMask(GL_TRUE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(-5.0f * style.width, -1.0f);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    drawUnbound(*silhouettes);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);

    // Mesa's software driver offsets lines too: edge-on faces then show through walls as dashes.
    glDisable(GL_POLYGON_OFFSET_FILL);
    glLineWidth(1.5f * style.width);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    glCullFace(GL_FRONT);
    glColor4f(kInk, kInk, kInk, style.alpha);
    drawUnbound(*silhouettes);

    glCullFace(GL_BACK);
    glDisable(GL_CULL_FACE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glDisable(GL_POLYGON_OFFSET_LINE);
}

unsigned EdgePass::drawFlags() const {
    return renderer.choices.singleColorEdges ? kDrawPositions : kDrawPositions | kDrawColors;
}

void EdgePass::drawUnbound(const ColorVertexArray& batch) const {
    unbindAllArrays();
    batch.drawWithin(renderer.tileVolume, drawFlags(), batch.primitiveMode);
    unbindAllArrays();
}

void EdgePass::drawEdges() const {
    if (edges == nullptr)
        return;
    drawUnbound(*edges);
    if (renderer.choices.roundEdgeEnds)
        drawMarks();
}

void EdgePass::drawMarks() const {
    if (!renderer.markTexture.exists())
        return;
    glDisable(GL_MULTISAMPLE);
    setBlending();
    bindTexture(0, TextureKind::Repeating, renderer.markTexture.name(), GL_LINEAR, 1.0f);
    glTexEnvi(GL_POINT_SPRITE, GL_COORD_REPLACE, GL_TRUE);
    glEnable(GL_POINT_SPRITE);
    edges->drawWithin(renderer.tileVolume, drawFlags(), GL_POINTS);
    unbindAllArrays();
    glTexEnvi(GL_POINT_SPRITE, GL_COORD_REPLACE, GL_FALSE);
    resetTextureUnit(0);
    glDisable(GL_POINT_SPRITE);
    glEnable(GL_MULTISAMPLE);
}

} // namespace ogl
