// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/draw_lists.h"
#include "render/renderer.h"

#include <functional>

namespace ogl {

enum class SurfaceLayer { Opaque, Blended };

/// The layer that a material is drawn in. `sharedSlot`, `alphaMap`: as bindMaterialTextures tells.
SurfaceLayer surfaceLayer(const MATERIAL& material, bool sharedSlot, bool alphaMap);

/// True when no surface of the material is drawn: it is unused, or lacks the texture without which
/// it isn't to be drawn.
bool isSkipped(const MATERIAL& material);

/// Draws the surfaces: the opaque ones, then the translucent ones without writing depth, one
/// draw call per object and material.
struct SurfacePass {
    Renderer& renderer;
    const DrawLists& meshes;
    /// Sets GL's colour for a material: material, sharedSlot, textured.
    std::function<void(const MATERIAL&, int, int)> setColor;

    void draw();

  private:
    void setState() const;
    void drawLayer(SurfaceLayer layer, const SceneLists& lists);
    bool showsAny(int material, const SceneLists& lists) const;
    void drawMaterial(int material, SurfaceLayer layer, const SceneLists& lists);
    void restoreState() const;
};

} // namespace ogl
