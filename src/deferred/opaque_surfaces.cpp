// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/opaque_surfaces.h"

#include "fixed/surfaces/program_material.h"
#include "fixed/surfaces/surface_pass.h"
#include "gpu/texture.h"

namespace ogl {

namespace {

constexpr int kLastMapUnit = 3;

bool isOpaque(const MeshDraw& draw) {
    return (draw.batch->flags & kBatchTranslucent) == 0;
}

} // namespace

void OpaqueSurfaces::draw() const {
    const SceneLists lists(*renderer.scene);
    const VIEW* view = viewOf(*renderer.scene);
    ProgramShading shading(renderer, program, maps);
    unbindAllArrays();
    for (int m = 0; m < lists.materials.size(); ++m) {
        if (isSkipped(lists.materials[m]) || !showsAny(m, lists, view))
            continue;
        const BoundMaterial bound = shading.bindTextures(lists.materials[m]);
        if (depthOnly && !bound.textured && !bound.alphaMap) {
            drawDepth(m, lists, view);
            continue;
        }
        shading.setColor(lists.materials[m], bound);
        program.setFloat("faceID", static_cast<float>(m));
        for (const MeshDraw& draw : meshes.of(m))
            if (isOpaque(draw) && isStillDrawn(draw, lists, view))
                shading.draw(*draw.batch, bound);
        shading.finish(bound);
    }
    unbindAllArrays();
    for (int unit = kLastMapUnit; unit >= 0; --unit)
        resetTextureUnit(unit);
}

void OpaqueSurfaces::drawDepth(int material, const SceneLists& lists, const VIEW* view) const {
    ShaderProgram::useNone();
    MeshRuns runs(renderer.tileVolume);
    for (const MeshDraw& draw : meshes.of(material))
        if (isOpaque(draw) && isStillDrawn(draw, lists, view))
            runs.add(*draw.batch);
    runs.flush();
    program.use();
}

bool OpaqueSurfaces::showsAny(int material, const SceneLists& lists, const VIEW* view) const {
    for (const MeshDraw& draw : meshes.of(material))
        if (isOpaque(draw) && isStillDrawn(draw, lists, view))
            return true;
    return false;
}

} // namespace ogl
