// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/draw_choices.h"

namespace ogl {

namespace {

/// What modes 7, 8 and 10 take from their options.
void applyOptions(DrawChoices& choices, uint32_t options) {
    choices.drawFaces = true;
    choices.edgeMode =
        (options & kOptionHiddenEdges) != 0 ? EdgeMode::HiddenToo : EdgeMode::Visible;
    choices.singleColorEdges = (options & kOptionSingleColorEdges) != 0;
    choices.roundEdgeEnds = (options & kOptionRoundEdgeEnds) != 0;
}

/// Modes 7 and 8.
void applyPhoto(DrawChoices& choices, const SCENE& scene) {
    applyOptions(choices, scene.photoOptions);
    choices.colorMode = ColorMode::OfMaterials;
    choices.textureMode = TextureMode::SharedOnly;
    if ((choices.drawFlags & kDrawFullQuality) == 0) {
        choices.colorMode = ColorMode::White;
        return;
    }
    if ((choices.drawFlags & kDrawGrey) != 0)
        choices.colorMode = ColorMode::Grey;
    if ((choices.drawFlags & kDrawInlineTextures) != 0)
        choices.textureMode = TextureMode::All;
}

} // namespace

DrawChoices choicesFor(const SCENE& scene, uint32_t drawFlags, const DrawChoices& before) {
    DrawChoices choices = before;
    choices.drawFlags = drawFlags;
    switch (scene.renderMode) {
    case kRenderModeShadow:
        applyPhoto(choices, scene);
        choices.useLighting = true;
        break;
    case kRenderModePhoto:
        applyPhoto(choices, scene);
        break;
    case kRenderModeDrawing:
        applyOptions(choices, scene.drawingOptions);
        choices.singleColorEdges = true;
        choices.colorMode = ColorMode::White;
        choices.textureMode = TextureMode::SharedOnly;
        choices.useLighting = false;
        break;
    case kRenderModeEdges:
        choices.textureMode = TextureMode::None;
        choices.drawFaces = false;
        choices.roundEdgeEnds = false;
        break;
    default:
        break;
    }
    return choices;
}

DrawChoices choicesForFile(uint32_t drawFlags, const DrawChoices& before) {
    DrawChoices choices = before;
    choices.drawFlags = drawFlags;
    choices.edgeMode = EdgeMode::None;
    choices.drawFaces = false;
    choices.colorMode = ColorMode::OfMaterials;
    choices.useLighting = true;
    choices.textureMode = TextureMode::All;
    return choices;
}

} // namespace ogl
