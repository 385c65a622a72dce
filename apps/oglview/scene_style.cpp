// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/scene_style.h"

namespace oglview {

namespace {

// Mode 7 has no tone curve: with more light than this sunlit walls lose their colours. Files are
// drawn with OpenGL's own lighting, which takes a quarter of the sun.
constexpr int kSunPercent = 19;
constexpr int kFileSunPercent = 70;
constexpr float kAmbientLight = 0.14f;

ogl::host::Sun sunAt(const SunPosition& position) {
    ogl::host::Sun sun;
    sun.azimuthDegrees = position.azimuthDegrees + 180.0; // its light travels the other way
    sun.elevationDegrees = position.elevationDegrees;
    return sun;
}

} // namespace

uint32_t drawFlagsOf(const StyleOptions& style) {
    uint32_t flags = ogl::kDrawInlineTextures;
    if (style.surfaces != SurfaceLook::White)
        flags |= ogl::kDrawFullQuality;
    if (style.surfaces == SurfaceLook::Grey)
        flags |= ogl::kDrawGrey;
    if (style.shadows)
        flags |= ogl::kDrawShadows;
    return flags;
}

void applyStyle(ogl::host::SceneBuilder& builder, const StyleOptions& style) {
    ogl::host::DrawingStyle drawing;
    drawing.hiddenEdges = style.hiddenEdges;
    drawing.edgeMarks = style.roundEnds;
    drawing.lineWeight = style.lineWeight;
    drawing.edgeOpacityPercent = style.edgeOpacityPercent.value_or(drawing.edgeOpacityPercent);
    drawing.drawingBackground = style.background;
    if (style.background)
        drawing.background = *style.background;
    builder.setDrawingStyle(drawing);
    ogl::host::Sun sun = sunAt(style.sun);
    if (style.mode == ogl::kRenderModeShadow) {
        sun.intensityPercent = style.throughFile ? kFileSunPercent : kSunPercent;
        ogl::host::PhotoStyle light;
        light.lightAmbient = kAmbientLight;
        builder.setPhotoStyle(light);
    }
    builder.setSun(sun);
    builder.setRenderMode(style.mode);
}

} // namespace oglview
