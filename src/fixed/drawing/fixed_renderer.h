// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/kept_scenes.h"
#include "fixed/surfaces/scene_batches.h"
#include "render/renderer.h"

namespace ogl {

/// Technical drawing: unlit surfaces, white or textured, whose transparency becomes multisample
/// coverage; visible edges, hidden edges dashed when asked for, outlines of smooth surfaces.
class FixedRenderer : public Renderer {
  public:
    explicit FixedRenderer(RenderContext& creator);
    ~FixedRenderer() override;

    /// The drawing's own background colour when the scene's options ask for it, else white.
    int clearBackground() override;
    int createResources() override;
    void releaseResources() override;
    int drawToWindow(const GLSurface& surface) override;
    /// In tiles when the bitmap has another size than the view.
    int drawToBitmap(HBITMAP bitmap) override;
    /// Draws nothing. Returns 1.
    int drawToFile(const char* fileName) override;
    /// Sets GL's current colour for surfaces of the material.
    virtual void setMaterialColor(const MATERIAL& material, int sharedSlot, int textured);

  private:
    SceneBatches& batches();
    void drawScene();

    KeptScenes<SceneBatches> kept_;
};

} // namespace ogl
