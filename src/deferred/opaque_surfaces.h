// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/draw_lists.h"
#include "gpu/shader_program.h"
#include "render/renderer.h"

namespace ogl {

/// Draws the opaque surfaces of a scene with the G-buffer's program, material by material: a frame
/// binds each material once, however many objects use it. Where surfaces of different materials
/// coincide, the one of the later material shows.
struct OpaqueSurfaces {
    const Renderer& renderer;
    const DrawLists& meshes;
    const ShaderProgram& program; ///< "objGBuffer", in use
    unsigned maps;                ///< of materials that are bound, when textures are on
    /// What no map cuts holes into is drawn without the program: for its depth alone.
    bool depthOnly = false;

    /// Leaves the maps' units reset.
    void draw() const;

  private:
    void drawDepth(int material, const SceneLists& lists, const VIEW* view) const;
    bool showsAny(int material, const SceneLists& lists, const VIEW* view) const;
};

} // namespace ogl
