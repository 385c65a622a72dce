// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bare_frame.h"

#include "fixed/batches.h"
#include "platform/win32.h"
#include "scene/record_views.h"

namespace ogl::bench {

BareFrame::BareFrame(const VIEW& view, int materials, unsigned edgeBuffer, int edgeVertices)
    : materials_(static_cast<size_t>(materials)), edgeBuffer_(edgeBuffer),
      edgeVertices_(edgeVertices) {
    for (int k = 0; k < cacheEntryCount(view); ++k)
        for (const auto& batch : cacheEntry(view, k)->meshBatches.get()->batches)
            materials_[static_cast<size_t>(batch->material)].push_back(
                {batch->positionBuffer.name(), batch->normalBuffer.name(),
                 batch->texCoordBuffer.name(), batch->tangentBuffer.name(), batch->vertexCount});
}

void BareFrame::draw() const {
    glClearColor(1.0f, 1.0f, 1.0f, 1.0f);
    glDepthMask(GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

    glShadeModel(GL_SMOOTH);
    glDisable(GL_BLEND);
    glEnable(GL_MULTISAMPLE);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glEnable(GL_ALPHA_TEST);
    glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0f, 1.0f);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_SECONDARY_COLOR_ARRAY);
    for (const auto& meshes : materials_) {
        glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
        for (const Mesh& mesh : meshes) {
            glBindBuffer(GL_ARRAY_BUFFER, mesh.positions);
            glVertexPointer(3, GL_FLOAT, 0, nullptr);
            glBindBuffer(GL_ARRAY_BUFFER, mesh.normals);
            glNormalPointer(GL_FLOAT, 0, nullptr);
            glBindBuffer(GL_ARRAY_BUFFER, mesh.texCoords);
            glTexCoordPointer(3, GL_FLOAT, 0, nullptr);
            glBindBuffer(GL_ARRAY_BUFFER, mesh.tangents);
            glSecondaryColorPointer(3, GL_FLOAT, 0, nullptr);
            glDrawArrays(GL_TRIANGLES, 0, mesh.vertices);
        }
    }
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_CULL_FACE);

    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    glLineWidth(0.6f);
    glColor4f(0.1f, 0.1f, 0.1f, 1.0f);
    glBindBuffer(GL_ARRAY_BUFFER, edgeBuffer_);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glDrawArrays(GL_LINES, 0, edgeVertices_);
    glDisableClientState(GL_VERTEX_ARRAY);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDisable(GL_BLEND);
}

} // namespace ogl::bench
