// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"
#include "ogl/host_records.h"

#include <vector>

namespace ogl::bench {

/// Pixels, counted from the lower left corner of a picture.
struct ScreenRect {
    double left, bottom, right, top;

    bool overlaps(const ScreenRect& other) const {
        return left <= other.right && right >= other.left && bottom <= other.top &&
               top >= other.bottom;
    }
};

/// The yardstick of a frame: a plain OpenGL program that draws the buffers which a technical
/// drawing built, with the same state, in as few calls as they allow.
class BareFrame {
  public:
    /// Notes the buffers parked in the scene's object cache and those of the edges.
    BareFrame(const VIEW& view, int materials, const ColorVertexArray& edges);

    /// Clears and draws with the camera that is set.
    void draw() const;
    /// The same with the meshes shaded by a GLSL program, whose uniforms are set.
    void drawShaded(unsigned program) const;

    /// Finds out where things lie in a picture of this size, drawn with the matrices that are set.
    /// All must be in front of the camera.
    void place(int width, int height);
    /// Clears and draws what overlaps the rectangle of that picture.
    void drawWithin(const ScreenRect& rect) const;

  private:
    struct Mesh {
        unsigned positions, normals, texCoords, tangents;
        int first, count;
        Box box;
        ScreenRect rect;
    };
    struct EdgeRun {
        int first, count;
        Box box;
        ScreenRect rect;
    };

    void drawMeshes(const ScreenRect* rect) const;
    static void drawRun(const Mesh& mesh, int end);
    void drawEdges(const ScreenRect* rect) const;

    std::vector<std::vector<Mesh>> materials_;
    unsigned edgeBuffer_;
    int edgeVertices_;
    std::vector<EdgeRun> edgeRuns_;
};

} // namespace ogl::bench
