// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/draw_lists.h"
#include "gpu/shader_program.h"
#include "render/light.h"
#include "render/renderer.h"
#include "render/shadow_filter.h"

#include <span>

namespace ogl {

/// Draws the surfaces with the object program, lit by the sun.
struct ProgramSurfacePass {
    const Renderer& renderer;
    const DrawLists& meshes;
    const ShaderProgram& program; ///< "objShader", either variant
    const SunLight* sun;          ///< null: ambient light alone, which needs the variant without
                                  ///< a shadow map
    const GLTexture& jitterTexture;
    const ShadowSamples& shadowSamples;

    void draw() const;

  private:
    void setLight() const;
    void setShadowMap() const;
    void restoreState() const;
};

} // namespace ogl
