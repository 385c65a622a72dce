// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/forward/portals.h"
#include "fixed/surfaces/draw_lists.h"
#include "fixed/surfaces/surface_shading.h"
#include "gpu/render_target.h"
#include "render/light.h"

#include <span>

namespace ogl {

/// Layout of the target that shadow maps are drawn in.
TargetLayout shadowTargetLayout();

/// Draws the scene's depth as a light sees it into the light's shadow map, which is made on first
/// use. The back faces cast the shadows. Leaves the view's camera to be applied again.
struct ShadowMapPass {
    const Renderer& renderer;
    const DrawLists& meshes;
    FixedShading& shading; ///< binds the opacity maps that cut holes
    RenderTarget& target;  ///< of shadowTargetLayout()
    /// Interior mode: light comes in through the portals alone.
    bool interior = false;
    std::span<const PortalRecord> portals; ///< for the interior mode

    void draw(ShadowLight& light) const;

  private:
    void setState() const;
    void drawOpenings() const;
    void drawCasters() const;
    void drawCastersOf(int material, const SceneLists& lists, const VIEW* view) const;
    void copyDepth(ShadowLight& light) const;
    void restoreState() const;
};

} // namespace ogl
