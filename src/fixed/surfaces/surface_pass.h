// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/draw_lists.h"
#include "fixed/surfaces/surface_shading.h"
#include "render/renderer.h"

namespace ogl {

enum class SurfaceLayer { Opaque, Blended };

/// The layer that a material is drawn in. `sharedSlot`, `alphaMap`: as bindMaterialTextures tells.
SurfaceLayer surfaceLayer(const MATERIAL& material, bool sharedSlot, bool alphaMap);

/// Draws the surfaces: the opaque ones, then the translucent ones without writing depth, material
/// by material.
struct SurfacePass {
    const Renderer& renderer;
    const DrawLists& meshes;
    SurfaceShading& shading;
    bool lit = false; ///< fixed-function lighting stays as the caller has set it up

    void draw() const;

  private:
    void setState() const;
    void drawLayer(SurfaceLayer layer, const SceneLists& lists) const;
    bool showsAny(int material, const SceneLists& lists) const;
    void drawMaterial(int material, SurfaceLayer layer, const SceneLists& lists) const;
    void restoreState() const;
};

} // namespace ogl
