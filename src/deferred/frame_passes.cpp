// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/frame_passes.h"

#include "deferred/ambient_occlusion_pass.h"
#include "deferred/blur_pass.h"
#include "deferred/composite_pass.h"
#include "deferred/depth_pass.h"
#include "deferred/edge_mask_pass.h"
#include "deferred/fxaa_pass.h"
#include "deferred/gbuffer_pass.h"
#include "deferred/point_pass.h"
#include "deferred/portal_pass.h"
#include "deferred/scene_look.h"
#include "deferred/sketch_pass.h"
#include "deferred/spot_pass.h"
#include "deferred/sun_pass.h"
#include "deferred/translucent_pass.h"
#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"
#include "scene/record_color.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr Vec3 kWhite{1.0f, 1.0f, 1.0f};

void setFirstState() {
    glEnable(GL_MULTISAMPLE);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

} // namespace

void FramePasses::draw() const {
    const DebugGroup group("photo");
    setFirstState();
    drawSurfaces();
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    drawLight();
    drawPicture();
}

void FramePasses::drawSurfaces() const {
    const ShaderProgram& surfaces = programs.get(kObjGBuffer);
    const float* clear = renderer.clearColor;
    const bool colored = (renderer.scene->lightFlags & kLightBackgroundColor) != 0;
    const Vec3 background = colored ? Vec3{clear[0], clear[1], clear[2]} : kWhite;
    DepthPass{renderer, meshes, surfaces}.draw();
    note("depth");
    GBufferPass{renderer, meshes, surfaces, frame, background, drawSky}.draw();
    note("g-buffer");
}

/// Whether the ambient light is all there is.
bool FramePasses::isLitEvenly() const {
    const SCENE& scene = *renderer.scene;
    const bool daylight = (scene.lightFlags & kLightSunAndPortals) != 0;
    if (daylight && lights.sun != nullptr)
        return false;
    const auto isOff = [daylight](const std::unique_ptr<Light>& light) {
        return light->kind == LightKind::Portal && !daylight;
    };
    return AmbientOcclusionPass::isNone(occlusionStrength(scene)) &&
           std::ranges::all_of(lights.list, isOff);
}

/// What occlusion, lights and blur come to in even light.
void FramePasses::clearLight() const {
    const float ambient = ambientLight(*renderer.scene);
    RenderTarget& target = *frame.targets.lightTarget;
    target.bind();
    target.setAllDrawBuffers();
    glClearColor(ambient, ambient, ambient, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    target.unbind();
}

/// Into attachment 1 of the light target, and smoothed into attachment 0.
void FramePasses::drawLight() const {
    const SCENE& scene = *renderer.scene;
    const bool evenly = isLitEvenly();
    if (evenly) {
        clearLight();
        note("even light");
        if ((scene.lightFlags & kLightSketchEdges) == 0)
            return;
    }
    EdgeMaskPass{programs.get(kImgEdge), frame}.draw();
    note("edge mask");
    if (evenly)
        return;
    AmbientOcclusionPass{programs.get(kImgAO), frame, seeds, ambientLight(scene),
                         occlusionStrength(scene)}
        .draw();
    note("occlusion");
    if ((scene.lightFlags & kLightSunAndPortals) != 0) {
        SunPass{programs.get(kImgSunlight), frame, lights.sun, lights.shadows}.draw();
        note("sun");
        PortalPass{programs.get(kImgPortallight), frame, lights.list, portalColor(scene)}.draw();
        note("portals");
    }
    SpotPass{programs.get(kImgSpotlight), frame, lights.list, lights.shadows}.draw();
    note("spots");
    PointPass{programs.get(kImgPointlight), frame, lights.list}.draw();
    note("points");
    glDisable(GL_MULTISAMPLE);
    BlurPass{programs.get(kImgEABlur), frame, kLightAdded, kLightSoFar}.draw();
    note("blur");
}

void FramePasses::drawPicture() const {
    const SCENE& scene = *renderer.scene;
    const float* clear = renderer.clearColor;
    if ((scene.lightFlags & kLightSketchEdges) != 0) {
        SketchPass{programs.get(kImgNpr),
                   frame,
                   sketchNoise(scene),
                   colorOf(scene.edgeColor),
                   {clear[0], clear[1], clear[2]}}
            .draw();
        note("sketch");
    }
    const PictureStyle style = pictureStyle(scene);
    glEnable(GL_MULTISAMPLE);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    CompositePass{programs.get(kImgFinal), frame, style, environment, kLightSoFar, fxaa}.draw();
    note("composite");
    if (fxaa) {
        glDisable(GL_ALPHA_TEST);
        glDisable(GL_MULTISAMPLE);
        FxaaPass{programs.get(kImgFxaa), frame}.draw();
        note("fxaa");
    }
    glEnable(GL_MULTISAMPLE);
    TranslucentPass{renderer, meshes, programs.get(kObjTransparent), style, environment}.draw();
    note("translucent");
}

void FramePasses::note(const char* pass) const {
    if (passed)
        passed(pass);
}

} // namespace ogl
