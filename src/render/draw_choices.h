// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

#include <cstdint>

namespace ogl {

enum class EdgeMode {
    None = 0,
    Visible = 1,
    HiddenToo = 2 ///< hidden edges too, dashed
};

enum class TextureMode {
    None = 0,
    SharedOnly = 2, ///< white surfaces, textures of shared slots
    All = 3         ///< material colours, inline and shared textures
};

enum class ColorMode {
    OfMaterials = 0,
    Grey = 1,
    White = 2 ///< in the deferred renderer; elsewhere as materials
};

/// What one drawing call decides.
struct DrawChoices {
    uint32_t drawFlags = 0; ///< kDraw... of the call
    EdgeMode edgeMode = EdgeMode::Visible;
    TextureMode textureMode = TextureMode::None;
    ColorMode colorMode = ColorMode::OfMaterials;
    bool singleColorEdges = false;
    bool drawFaces = false;     ///< silhouettes after the edges
    bool roundEdgeEnds = false; ///< marks on the end points of edges
    bool useLighting = false;

    friend bool operator==(const DrawChoices&, const DrawChoices&) = default;
};

/// The choices of a call that draws the scene into a window or a bitmap, by the scene's render mode
/// and options and the call's flags. What a mode says nothing of stays as `before`, the choices of
/// the call before; modes without a renderer say nothing but the flags.
DrawChoices choicesFor(const SCENE& scene, uint32_t drawFlags, const DrawChoices& before);

/// The choices of a call that draws into a file.
DrawChoices choicesForFile(uint32_t drawFlags, const DrawChoices& before);

} // namespace ogl
