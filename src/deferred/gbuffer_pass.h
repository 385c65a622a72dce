// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"
#include "fixed/surfaces/draw_lists.h"
#include "render/renderer.h"

#include <functional>

namespace ogl {

/// Fills the G-buffer with the opaque surfaces, for the camera that is set.
struct GBufferPass {
    const Renderer& renderer;
    const DrawLists& meshes;
    const ShaderProgram& program; ///< "objGBuffer"
    const FrameView& frame;
    Vec3 background;               ///< of the colours
    std::function<void()> drawSky; ///< into the colours behind the surfaces; may be empty

    void draw() const;

  private:
    void clear() const;
    void drawSurfaces() const;
};

} // namespace ogl
