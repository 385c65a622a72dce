// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"
#include "ogl/host_records.h"
#include "render/renderer.h"

namespace ogl {

/// How strong edges are.
struct EdgeStyle {
    float width = 1.0f; ///< pixels
    float alpha = 1.0f;
    float pointSize = 1.0f; ///< of the marks on their ends, pixels
    /// Edges weigh in by `alpha` alone and leave of what is below one minus their own alpha;
    /// otherwise their own alpha counts for both.
    bool constantAlpha = false;
};

/// The style that the scene and the drawing flags ask for. Outside full-quality frames edges never
/// fade away. `baseWidth`: the renderer's line width, pixels.
EdgeStyle edgeStyle(const SCENE& scene, uint32_t drawFlags, float baseWidth);

/// How far edges and the marks on their ends reach from where they lie, pixels.
int edgeReach(const EdgeStyle& style);

/// Draws edges and silhouettes over the surfaces of the same frame, whose depth must still be in
/// the depth buffer. The renderer tells which kinds, and how.
struct EdgePass {
    const Renderer& renderer;
    const ColorVertexArray* edges;       ///< null: none
    const ColorVertexArray* silhouettes; ///< null: none
    EdgeStyle style;

    /// Hidden edges, visible edges and silhouettes, as far as the renderer wants them.
    void draw() const;

  private:
    void drawHiddenEdges() const;
    void drawVisibleEdges() const;
    void drawSilhouettes() const;
    void drawEdges() const;
    void drawMarks() const;
    void drawUnbound(const ColorVertexArray& batch) const;
    unsigned drawFlags() const;
};

} // namespace ogl
