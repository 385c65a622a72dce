// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"
#include "ogl/host_records.h"
#include "scene/record_views.h"

namespace ogl {

/// Which faces' edges are built, and how.
struct EdgeRules {
    bool silhouettes = true; ///< smooth and weakly styled faces go to the silhouettes instead
    bool edgesOnly = false;  ///< render mode 11: the first loop of every face, no silhouettes
};

/// Turns the loops of faces into line segments, and the faces that are outlined by their
/// silhouette into triangles. Needs no GL.
class EdgeBuilder {
  public:
    EdgeBuilder(const SCENE& scene, EdgeRules rules);

    /// Makes room for all drawn objects among the first `objectCount`.
    void reserve(int objectCount, ColorVertexArray& edges, ColorVertexArray* silhouettes) const;

    /// Appends one object's edges and silhouette faces (`silhouettes` may be null in render mode
    /// 11). Returns the object's edge count: faces with edges, plus triangles of silhouettes.
    int append(int object, ColorVertexArray& edges, ColorVertexArray* silhouettes) const;

  private:
    struct Sizes {
        size_t edgeVertices = 0;
        size_t silhouetteVertices = 0;
    };
    struct Outline; ///< one loop to draw

    bool isOutlined(const FACE& face, const FaceTriangles& triangles) const;
    bool isSilhouette(const FACE& face, int object, float alpha) const;
    const LOOPSTYLE* firstStyle(const FACELOOPS& loops) const;
    FACELOOPS loopsOf(int face) const;
    template <class Visitor>
    void forEachOutline(const FACELOOPS& loops, const Visitor& visit) const;
    Outline outline(int loop, bool isFirst) const;
    void appendOutline(const Outline& outline, Vec4 color, ColorVertexArray& edges) const;
    void addSizes(int object, Sizes& sizes) const;

    SceneLists lists_;
    EdgeRules rules_;
    double scale_; ///< of loop points
};

} // namespace ogl
