// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/depth_pass.h"

#include "deferred/opaque_surfaces.h"
#include "fixed/surfaces/program_material.h"
#include "gpu/gl_debug.h"

namespace ogl {

void DepthPass::draw() const {
    const DebugGroup group("depth");
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_ALPHA_TEST);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    program.use();
    OpaqueSurfaces{renderer, meshes, program, kDiffuseMap | kOpacityMap, true}.draw();
    ShaderProgram::useNone();
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

} // namespace ogl
