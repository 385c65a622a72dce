// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"

namespace ogl {

/// Buffers with the vertices of many meshes.
struct MeshBuffers {
    SharedBuffer positions, normals, tangents, texCoords;
};

/// The surface of one object in one material. Surfaces that lie in the same buffers can be drawn
/// together.
class MeshVertexArray : public VertexArray {
  public:
    /// Into buffers of its own.
    void upload(unsigned mode, unsigned usage = GL_STATIC_DRAW) override;
    /// Instead of an upload: all arrays are in these buffers already, from vertex `first` on.
    void place(const MeshBuffers& buffers, int first, unsigned mode);
    void bind(unsigned flags) const override;
    void unbind() const override;
    /// Meshes are drawn as triangles only: does nothing.
    void drawAs(unsigned, unsigned) const override {}

    /// Hands the texture coordinates to texture unit `unit` too, for the next draw; and takes them
    /// away again.
    void bindTexCoords(int unit) const;
    static void unbindTexCoords(int unit);

    // Empty after upload() and place().
    Vec3Array normals;
    Vec3Array tangents;
    Vec3Array texCoords; ///< u, v, 0
    SharedBuffer normalBuffer;
    SharedBuffer tangentBuffer;
    SharedBuffer texCoordBuffer;

  private:
    void clearUploaded();
};

} // namespace ogl
