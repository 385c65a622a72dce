// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "drawing_renderer.h"

#include "fixed/batches/edge_builder.h"

namespace ogl::bench {

std::unique_ptr<FixedRenderer> makeDrawingRenderer(HiddenView& view, int width, int height,
                                                   SCENE& scene) {
    auto renderer = std::make_unique<FixedRenderer>(view.context());
    renderer->resetGLState();
    renderer->createResources();
    renderer->scene = &scene;
    renderer->choices.drawFlags = kDrawFullQuality;
    renderer->choices.textureMode = TextureMode::SharedOnly;
    renderer->choices.colorMode = ColorMode::White;
    renderer->choices.drawFaces = true;
    renderer->choices.singleColorEdges = true;
    renderer->setSize(width, height);
    renderer->setupCamera(scene);
    return renderer;
}

void buildDrawingEdges(const SCENE& scene, int objects, ColorVertexArray& edges) {
    const EdgeBuilder builder(scene, {.silhouettes = true, .edgesOnly = false});
    ColorVertexArray silhouettes;
    builder.reserve(objects, edges, &silhouettes);
    for (int k = 0; k < objects; ++k)
        builder.append(k, edges, &silhouettes);
    edges.upload(GL_LINES);
}

} // namespace ogl::bench
