// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"

namespace ogl {

/// Buffers with room for the vertices of many meshes.
struct MeshBuffers {
    SharedBuffer positions, normals, tangents, texCoords;

    /// Makes the buffers, whose contents are unset.
    static MeshBuffers withRoomFor(int vertexCount);
};

/// The surface of one object in one material. Surfaces that lie in the same buffers can be drawn
/// together.
class MeshVertexArray : public VertexArray {
  public:
    /// Into buffers of its own.
    void upload(unsigned mode, unsigned usage = GL_STATIC_DRAW) override;
    /// Into vertices `first` and following of buffers that have room for them. Every array has as
    /// many elements as there are positions.
    void uploadInto(const MeshBuffers& buffers, int first, unsigned mode);
    void bind(unsigned flags) const override;
    void unbind() const override;
    /// Meshes are drawn as triangles only: does nothing.
    void drawAs(unsigned, unsigned) const override {}

    /// Hands the texture coordinates to texture unit `unit` too, for the next draw; and takes them
    /// away again.
    void bindTexCoords(int unit) const;
    static void unbindTexCoords(int unit);

    // Empty after an upload.
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
