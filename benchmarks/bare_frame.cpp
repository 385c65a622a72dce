// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bare_frame.h"

#include "fixed/batches/batches.h"
#include "platform/win32.h"
#include "scene/record_views.h"

#include <algorithm>

namespace ogl::bench {

namespace {

constexpr int kEdgeRun = 500;

unsigned nameOf(const SharedBuffer& buffer) {
    return buffer != nullptr ? buffer->name() : 0;
}

Box boxOf(const Vec3Array& positions, size_t first, size_t count) {
    Box box;
    for (size_t i = first; i < first + count; ++i)
        box.grow(positions[i]);
    return box;
}

/// GL's current matrices.
struct Matrices {
    double view[16];
    double projection[16];
    GLint viewport[4];
};

ScreenRect rectOf(const Box& box, const Matrices& matrices) {
    ScreenRect rect{1e9, 1e9, -1e9, -1e9};
    for (unsigned corner = 0; corner < 8; ++corner) {
        double x = 0.0, y = 0.0, depth = 0.0;
        gluProject(static_cast<double>((corner & 1) != 0 ? box.max.x : box.min.x),
                   static_cast<double>((corner & 2) != 0 ? box.max.y : box.min.y),
                   static_cast<double>((corner & 4) != 0 ? box.max.z : box.min.z), matrices.view,
                   matrices.projection, matrices.viewport, &x, &y, &depth);
        rect = {std::min(rect.left, x), std::min(rect.bottom, y), std::max(rect.right, x),
                std::max(rect.top, y)};
    }
    return rect;
}

} // namespace

BareFrame::BareFrame(const VIEW& view, int materials, const ColorVertexArray& edges)
    : materials_(static_cast<size_t>(materials)), edgeBuffer_(nameOf(edges.positionBuffer)),
      edgeVertices_(edges.vertexCount) {
    for (int first = 0; first < edgeVertices_; first += kEdgeRun) {
        const int count = std::min(kEdgeRun, edgeVertices_ - first);
        edgeRuns_.push_back(
            {first,
             count,
             boxOf(edges.positions, static_cast<size_t>(first), static_cast<size_t>(count)),
             {}});
    }
    for (int k = 0; k < cacheEntryCount(view); ++k)
        for (const auto& batch : cacheEntry(view, k)->meshBatches.get()->batches)
            materials_[static_cast<size_t>(batch->material)].push_back(
                {nameOf(batch->positionBuffer),
                 nameOf(batch->normalBuffer),
                 nameOf(batch->texCoordBuffer),
                 nameOf(batch->tangentBuffer),
                 batch->firstVertex,
                 batch->vertexCount,
                 boxOf(batch->positions, 0, batch->positions.size()),
                 {}});
}

void BareFrame::place(int width, int height) {
    Matrices matrices{{}, {}, {0, 0, width, height}};
    glGetDoublev(GL_MODELVIEW_MATRIX, matrices.view);
    glGetDoublev(GL_PROJECTION_MATRIX, matrices.projection);
    for (auto& meshes : materials_)
        for (Mesh& mesh : meshes)
            mesh.rect = rectOf(mesh.box, matrices);
    for (EdgeRun& run : edgeRuns_)
        run.rect = rectOf(run.box, matrices);
}

void BareFrame::draw() const {
    drawMeshes(nullptr);
    drawEdges(nullptr);
}

void BareFrame::drawShaded(unsigned program) const {
    glUseProgram(program);
    drawMeshes(nullptr);
    glUseProgram(0);
    drawEdges(nullptr);
}

void BareFrame::drawWithin(const ScreenRect& rect) const {
    drawMeshes(&rect);
    drawEdges(&rect);
}

void BareFrame::drawMeshes(const ScreenRect* rect) const {
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
        const Mesh* run = nullptr;
        int end = 0;
        for (const Mesh& mesh : meshes) {
            if (rect != nullptr && !mesh.rect.overlaps(*rect))
                continue;
            if (run == nullptr || run->positions != mesh.positions || end != mesh.first) {
                if (run != nullptr)
                    drawRun(*run, end);
                run = &mesh;
            }
            end = mesh.first + mesh.count;
        }
        if (run != nullptr)
            drawRun(*run, end);
    }
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_CULL_FACE);
    glDisableClientState(GL_VERTEX_ARRAY);
}

/// Draws from the mesh's first vertex to `end` in its buffers.
void BareFrame::drawRun(const Mesh& mesh, int end) {
    glBindBuffer(GL_ARRAY_BUFFER, mesh.positions);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glBindBuffer(GL_ARRAY_BUFFER, mesh.normals);
    glNormalPointer(GL_FLOAT, 0, nullptr);
    glBindBuffer(GL_ARRAY_BUFFER, mesh.texCoords);
    glTexCoordPointer(3, GL_FLOAT, 0, nullptr);
    glBindBuffer(GL_ARRAY_BUFFER, mesh.tangents);
    glSecondaryColorPointer(3, GL_FLOAT, 0, nullptr);
    glDrawArrays(GL_TRIANGLES, mesh.first, end - mesh.first);
}

void BareFrame::drawEdges(const ScreenRect* rect) const {
    if (edgeVertices_ == 0)
        return; // no buffer either
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    glLineWidth(0.6f);
    glColor4f(0.1f, 0.1f, 0.1f, 1.0f);
    glBindBuffer(GL_ARRAY_BUFFER, edgeBuffer_);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    if (rect == nullptr) {
        glDrawArrays(GL_LINES, 0, edgeVertices_);
    } else {
        for (const EdgeRun& run : edgeRuns_)
            if (run.rect.overlaps(*rect))
                glDrawArrays(GL_LINES, run.first, run.count);
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDisable(GL_BLEND);
}

} // namespace ogl::bench
