// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/mesh_vertex_array.h"

namespace ogl {

namespace {

/// The new buffer of an upload, or the old one when there is nothing to upload.
void refill(SharedBuffer& buffer, const Vec3Array& elements) {
    if (!elements.empty())
        buffer = makeBuffer(std::as_bytes(std::span(elements)));
}

} // namespace

void MeshVertexArray::upload(unsigned mode, unsigned usage) {
    refill(normalBuffer, normals);
    refill(tangentBuffer, tangents);
    refill(texCoordBuffer, texCoords);
    clearUploaded();
    VertexArray::upload(mode, usage);
}

void MeshVertexArray::place(const MeshBuffers& buffers, int first, unsigned mode) {
    positionBuffer = buffers.positions;
    normalBuffer = buffers.normals;
    tangentBuffer = buffers.tangents;
    texCoordBuffer = buffers.texCoords;
    clearUploaded();
    placeUploaded(mode, first);
}

void MeshVertexArray::clearUploaded() {
    normals.clear();
    tangents.clear();
    texCoords.clear();
}

void MeshVertexArray::bind(unsigned drawFlags) const {
    VertexArray::bind(drawFlags);
    if (normalBuffer != nullptr && normalBuffer->exists()) {
        glBindBuffer(GL_ARRAY_BUFFER, normalBuffer->name());
        glNormalPointer(GL_FLOAT, 0, nullptr);
        glEnableClientState(GL_NORMAL_ARRAY);
    } else {
        glDisableClientState(GL_NORMAL_ARRAY);
    }
    if (texCoordBuffer != nullptr && texCoordBuffer->exists()) {
        glBindBuffer(GL_ARRAY_BUFFER, texCoordBuffer->name());
        glTexCoordPointer(3, GL_FLOAT, 0, nullptr);
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    } else {
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
    if (tangentBuffer != nullptr && tangentBuffer->exists()) {
        glBindBuffer(GL_ARRAY_BUFFER, tangentBuffer->name());
        glSecondaryColorPointer(3, GL_FLOAT, 0, nullptr);
        glEnableClientState(GL_SECONDARY_COLOR_ARRAY);
    } else {
        glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
    }
}

void MeshVertexArray::unbind() const {
    VertexArray::unbind();
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
}

void MeshVertexArray::bindTexCoords(int unit) const {
    if (texCoordBuffer == nullptr)
        return;
    glClientActiveTexture(static_cast<unsigned>(GL_TEXTURE0 + unit));
    glBindBuffer(GL_ARRAY_BUFFER, texCoordBuffer->name());
    glTexCoordPointer(3, GL_FLOAT, 0, nullptr);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glClientActiveTexture(GL_TEXTURE0);
}

void MeshVertexArray::unbindTexCoords(int unit) {
    glClientActiveTexture(static_cast<unsigned>(GL_TEXTURE0 + unit));
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glClientActiveTexture(GL_TEXTURE0);
}

} // namespace ogl
