// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/batches/batches.h"
#include "fixed/surfaces/kept_scenes.h"
#include "gpu/vertex_array.h"
#include "render/renderer.h"

#include <memory>

namespace ogl {

/// Draws the outlines of all faces in their colours on white, without hiding any, and the box of
/// the site.
class EdgeRenderer : public Renderer {
  public:
    explicit EdgeRenderer(RenderContext& creator);
    ~EdgeRenderer() override;

    int createResources() override;
    void releaseResources() override;
    int drawToWindow(const GLSurface& surface) override;
    /// In tiles when the bitmap has another size than the view.
    int drawToBitmap(HBITMAP bitmap) override;
    /// Draws nothing. Returns 1.
    int drawToFile(const char* fileName) override;

  private:
    /// What is kept of a scene.
    struct EdgeScene {
        std::unique_ptr<ColorVertexArray> edges; ///< null before they are built
        ParkedLists parked;                      ///< empty ones
    };

    EdgeScene& built();
    void refreshBatches();
    void rebuild(EdgeScene& built);
    void drawScene();
    void drawEdges();

    KeptScenes<EdgeScene> kept_;
};

} // namespace ogl
