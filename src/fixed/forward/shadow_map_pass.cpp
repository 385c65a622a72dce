// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/shadow_map_pass.h"

#include "fixed/forward/portal_sky.h"
#include "fixed/surfaces/surface_pass.h"
#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"
#include "gpu/shader_program.h"
#include "gpu/texture.h"

namespace ogl {

namespace {

constexpr float kCasterOffsetFactor = 0.8f;
constexpr float kCasterOffsetUnits = 1.0f;
constexpr float kOpeningDepth = -0.99f; ///< z of what the portals let through, almost the far plane
constexpr uint32_t kCastsNoShadow = kBatchNoShadow | kBatchTranslucent;

void setDepthTextureParameters() {
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_MODE, GL_NONE);
    glTexParameteri(GL_TEXTURE_2D, GL_DEPTH_TEXTURE_MODE, GL_LUMINANCE);
}

/// Makes the light's shadow map unless there is one, and binds it.
void bindShadowTexture(ShadowLight& light) {
    glActiveTexture(GL_TEXTURE0);
    const bool isNew = !light.shadowTexture.exists();
    light.shadowTexture.create();
    glBindTexture(GL_TEXTURE_2D, light.shadowTexture.name());
    setDepthTextureParameters();
    if (isNew)
        glTexImage2D(GL_TEXTURE_2D, 0, GL_DEPTH24_STENCIL8, kShadowMapSize, kShadowMapSize, 0,
                     GL_DEPTH_STENCIL, GL_UNSIGNED_INT_24_8, nullptr);
}

} // namespace

TargetLayout shadowTargetLayout() {
    TargetLayout layout;
    layout.kind = TargetKind::Texture2D;
    layout.width = kShadowMapSize;
    layout.height = kShadowMapSize;
    layout.depth = DepthMode::Shared;
    layout.format = ColorFormat::Rgb8;
    return layout;
}

void ShadowMapPass::draw(ShadowLight& light) const {
    const DebugGroup group("shadow map");
    setState();
    target.bind();
    target.setDrawBuffer(0);
    glClearDepth(interior ? 0.0 : 1.0);
    glClearStencil(0);
    glClear(GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    glClearDepth(1.0);
    light.camera->apply();
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    if (interior)
        drawOpenings();
    drawCasters();
    copyDepth(light);
    target.unbind();
    restoreState();
}

void ShadowMapPass::setState() const {
    glEnable(GL_CULL_FACE);
    glDepthMask(GL_TRUE);
    ShaderProgram::useNone();
    glDisable(GL_BLEND);
    glDisable(GL_MULTISAMPLE);
    glDisable(GL_STENCIL_TEST);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    resetTextureUnit(0);
    glEnable(GL_DEPTH_TEST);
}

/// Everything is in the shadow but what lies behind the portals as the light sees them.
void ShadowMapPass::drawOpenings() const {
    glCullFace(GL_FRONT);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glDepthMask(GL_FALSE);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(GL_ALWAYS, 1, 0xffffffffu);
    glStencilOp(GL_KEEP, GL_KEEP, GL_REPLACE);
    drawPortalQuads(portals);

    glStencilFunc(GL_EQUAL, 1, 0xffffffffu);
    glStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glDepthFunc(GL_ALWAYS);
    glDisable(GL_CULL_FACE);
    const ScreenMatrices matrices;
    glBegin(GL_QUADS);
    glVertex3f(0.0f, 0.0f, kOpeningDepth);
    glVertex3f(0.0f, 1.0f, kOpeningDepth);
    glVertex3f(1.0f, 1.0f, kOpeningDepth);
    glVertex3f(1.0f, 0.0f, kOpeningDepth);
    glEnd();
    glDepthFunc(GL_LESS);
    glEnable(GL_CULL_FACE);
}

void ShadowMapPass::drawCasters() const {
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(kCasterOffsetFactor, kCasterOffsetUnits);
    glCullFace(GL_FRONT);
    glShadeModel(GL_FLAT);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glDisable(GL_COLOR_MATERIAL);
    glDisable(GL_LIGHTING);
    glEnable(GL_ALPHA_TEST);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_TEXTURE_RECTANGLE);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    unbindAllArrays();
    const SceneLists lists(*renderer.scene);
    const VIEW* view = viewOf(*renderer.scene);
    for (int m = 0; m < lists.materials.size(); ++m)
        if (!isSkipped(lists.materials[m]) && !meshes.of(m).empty())
            drawCastersOf(m, lists, view);
    unbindAllArrays();
}

void ShadowMapPass::drawCastersOf(int material, const SceneLists& lists, const VIEW* view) const {
    const MATERIAL& record = lists.materials[material];
    const BoundMaterial bound = shading.bindTextures(record);
    shading.setColor(record, bound);
    for (const MeshDraw& draw : meshes.of(material))
        if ((draw.batch->flags & kCastsNoShadow) == 0 && isStillDrawn(draw, lists, view))
            shading.draw(*draw.batch, bound);
    shading.finish(bound);
}

void ShadowMapPass::copyDepth(ShadowLight& light) const {
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDisable(GL_STENCIL_TEST);
    glDisable(GL_POLYGON_OFFSET_FILL);
    target.setReadBuffer(0);
    bindShadowTexture(light);
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 0, 0, kShadowMapSize, kShadowMapSize);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void ShadowMapPass::restoreState() const {
    glCullFace(GL_BACK);
    glDepthFunc(GL_LEQUAL);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_MULTISAMPLE);
    for (int unit = 3; unit >= 0; --unit)
        resetTextureUnit(unit);
}

} // namespace ogl
