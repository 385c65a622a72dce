// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/draw_lists.h"
#include "gpu/shader_program.h"
#include "render/renderer.h"

namespace ogl {

/// Leaves the depth of the opaque surfaces in the framebuffer that is bound, with the holes that
/// the G-buffer has: the same program decides about them.
struct DepthPass {
    const Renderer& renderer;
    const DrawLists& meshes;
    const ShaderProgram& program; ///< "objGBuffer"

    void draw() const;
};

} // namespace ogl
