// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/composite_pass.h"
#include "fixed/surfaces/draw_lists.h"
#include "render/renderer.h"

namespace ogl {

/// Draws the translucent surfaces over the finished picture in the framebuffer that is bound, for
/// the camera that is set. They are tested against the depth that the framebuffer holds and leave
/// it as it is.
struct TranslucentPass {
    const Renderer& renderer;
    const DrawLists& meshes;
    const ShaderProgram& program; ///< "objTransparent"
    const PictureStyle& style;
    const GLTexture& environment; ///< may not exist: reflections are black then

    void draw() const;

  private:
    void setState() const;
    void setUniforms() const;
    void drawSurfaces() const;
};

} // namespace ogl
